#include "forms/SampleChecks.h"

#include <optional>
#include <string>

#include "data/EntryChecks.h"
#include "platform/Text.h"

namespace qfr {

bool LabBlankSpecified(FormHost& host) {
    if (!Trim(host.Batch().Files.LabBlank).empty()) {
        return true;
    }
    host.Show({"Please use Data Files|Load Files menu option to specify a labblank.",
               "Lab Blank Not Specified"});
    return false;
}

bool AnalysisDatesReadable(FormHost& host, std::size_t first) {
    const SampleListType& samples = *host.Batch().SampleList;
    for (std::size_t i = first; i < samples.size(); ++i) {
        const SampleHeader& header = samples[i].Header;
        const std::string& date = header[HeaderField::kDateAnalyzed];
        if (Trim(date).empty() || IsEmptyMask(date) || IsDateTimeText(date)) {
            continue;
        }
        const std::string& sampleNo = header[HeaderField::kZovSampleNo];
        host.Show({"The analysis date of sample " +
                       (Trim(sampleNo).empty() ? FileNameOnly(samples[i].FileName) : sampleNo) +
                       ",\n" + date + ", is not a date and time.",
                   std::string(kIncorrectTimeFormat)});
        return false;
    }
    return true;
}

Message ReportNotFound(std::string_view fileName) {
    return {std::string(fileName) +
                "\ncould not be found.  Use Data Files|Load Files menu option\nto relocate file",
            kFileNotFoundTitle};
}

std::string TwelveHourFlag(std::string_view dateAnalyzed, DateTime start) {
    const std::optional<DateTime> analyzed = ParseDateTime(dateAnalyzed);
    if (!analyzed) {
        return "";
    }
    const std::int64_t after = analyzed->seconds - start.seconds;
    return after < 0 || after > kTwelveHours ? "*" : "";
}

}  // namespace qfr
