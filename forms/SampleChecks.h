// What the forms that list the samples' analysis times ask of the batch before they print, and the
// twelve hours within which a sample has to be analysed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "forms/FormHost.h"
#include "platform/DateTime.h"

namespace qfr {

// Whether a lab blank is named; false after the message that says so.
bool LabBlankSpecified(FormHost& host);

// Whether the analysis date of every record from index `first` of SampleList is empty or a
// date-time; false after the message that names the first other one.
bool AnalysisDatesReadable(FormHost& host, std::size_t first);

// What is said of a sample's report that is gone.
Message ReportNotFound(std::string_view fileName);

// "*" for a sample analysed before `start` or more than twelve hours after it, else empty; so also
// for a sample without an analysis date.
std::string TwelveHourFlag(std::string_view dateAnalyzed, DateTime start);

}  // namespace qfr
