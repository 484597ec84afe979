// What an entry dialog's OK finds wrong: the message, and where the focus goes.
#pragma once

#include <optional>
#include <string>

#include "platform/Messages.h"

namespace qfr {

struct EntryFault {
    qfr::Message Message;
    std::string Control;  // name of the control to focus
    int Row = 0;          // of a grid, from 1; 0: no grid
};

}  // namespace qfr
