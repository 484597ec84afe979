// The bar that looks for a text on the pages of a view.
#pragma once

#include <vector>

#include "platform/JobText.h"
#include "platform/qt/FindBar.h"
#include "platform/qt/PageView.h"

namespace qfr {

class PageSearch : public FindBar {
    Q_OBJECT

  public:
    // Marks what it finds on the view, which outlives it.
    explicit PageSearch(PageView& view, QWidget* parent = nullptr);

  private:
    Found Look(const std::string& text, int by) override;
    void Leave() override;

    PageView& view_;
    std::vector<FoundText> found_;
    std::size_t place_ = 0;  // of found_
};

}  // namespace qfr
