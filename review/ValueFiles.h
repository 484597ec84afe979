// The values of forms as texts of files.
#pragma once

#include <span>
#include <string>

#include "review/FormValues.h"

namespace qfr {

// One form of one batch, or the same form of its samples (RFC 4180). A line for the fields of each,
// and one for each row of its tables; a column of numbers is followed by one that holds nothing
// else. Without forms the head alone.
std::string CsvText(std::span<const FormValues> forms);

// A whole batch; packaging/qfrforms-values.schema.json describes the document.
std::string JsonText(std::span<const FormValues> forms);

}  // namespace qfr
