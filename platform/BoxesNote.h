// What the user is told of characters that no installed font has.
#pragma once

#include <optional>
#include <set>
#include <vector>

#include "platform/Messages.h"

namespace qfr {

class BoxesNote {
  public:
    // About those that it has not told of yet, with their code points; absent without any.
    std::optional<Message> About(const std::vector<char32_t>& boxes);

  private:
    std::set<char32_t> told_;
};

}  // namespace qfr
