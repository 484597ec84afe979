// What a form states, before anybody decides where it stands: every text and flag, built once from
// batch, reports and entries. Each form's content stands beside its pages and adds to this one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "data/Batch.h"

namespace qfr {

struct FormContent {
    SampleHeader Header;  // as it prints: an empty date mask is empty
};

// The header as it prints.
SampleHeader PrintedHeader(const SampleHeader& header);

// Characters `first` (from 1) to `last` of a date and time as they print.
std::string PrintedPart(std::string_view dateTime, std::size_t first, std::size_t last);

}  // namespace qfr
