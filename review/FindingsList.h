// A list of findings on paper, for whoever mends them.
#pragma once

#include <string>
#include <vector>

#include "forms/Page.h"

namespace qfr {

// Prints the lines below the heading as a job of that name on the chosen printer. A line that is
// too long goes on in the next one, indented; every page has the heading and its number. Nothing
// prints when the printer setup is cancelled.
void PrintFindings(Page& page, const std::string& heading, const std::vector<std::string>& lines);

}  // namespace qfr
