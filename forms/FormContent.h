// What a form states, before anybody decides where it stands: every text and flag, built once from
// batch, reports and entries. Each form's content stands beside its pages and adds to this one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"
#include "data/Reports.h"
#include "platform/DateTime.h"
#include "platform/Messages.h"

namespace qfr {

class FormHost;

struct FormContent {
    SampleHeader Header;   // as it prints: an empty date mask is empty
    std::string SampleNo;  // of the sample or standard that the form is about; empty without one
};

// The header as it prints.
SampleHeader PrintedHeader(const SampleHeader& header);

// Characters `first` (from 1) to `last` of a date and time as they print.
std::string PrintedPart(std::string_view dateTime, std::size_t first, std::size_t last);

// A sample of the forms that list the samples' analysis times.
struct ListedSample {
    std::string SampleNo;
    std::string LabSampleId;
    std::string LabFileId;
    std::string Analyzed;
    std::string DateAnalyzed;  // the two parts of it
    std::string TimeAnalyzed;
    std::string Flag;  // of the twelve hours within which it has to be analysed
};
// The samples from index `first` on; their twelve hours begin at `start`.
std::vector<ListedSample> ListSamples(const SampleListType& samples, std::size_t first,
                                      DateTime start);

// "*" for a sample analysed before `start` or more than twelve hours after it, else empty; so also
// for a sample without an analysis date.
std::string TwelveHourFlag(std::string_view dateAnalyzed, DateTime start);

// What is said of a sample's report that is gone.
Message ReportNotFound(std::string_view fileName);

// What is said of a sample's report that no longer is the one its record was read from: its rows,
// or the analysis that it is about while the header still shows the former one; or that has rows
// cut short. Absent for one that is as it was. Of a restored record nobody knows what was typed
// over: its header shows the former analysis where the report is newer than the batch file.
std::optional<Message> ReportChanged(const Batch& batch, const SampleRecord& sample,
                                     const FileContent<QuantReport>& report);

}  // namespace qfr
