#include "forms/FormHost.h"

#include <string>

#include "data/EntryChecks.h"
#include "platform/Text.h"

namespace qfr {

std::optional<std::size_t> CheckFormPreconditions(FormHost& host, std::string_view formName) {
    const auto& samples = host.Batch().SampleList;
    if (!samples) {
        host.Show({std::string(kSpecifyFiles), "File Not Specified"});
        return std::nullopt;
    }
    for (std::size_t i = 0; i < samples->size(); ++i) {
        const std::optional<HeaderField> empty = FirstEmptyField((*samples)[i].Header);
        if (!empty) {
            return i;
        }
        host.SetPendingFocus(*empty);
    }
    const std::string form(formName);
    host.Show({"Header information is not complete for " + form +
                   ".\nGo to Form1 and enter header information for at\nleast one quantitation "
                   "file. Then return and print\n " +
                   form + ".",
               "Incomplete Header Information"});
    return std::nullopt;
}

std::optional<std::size_t> CheckAndAsk(FormHost& host, std::string_view formName,
                                       EntryDialog dialog) {
    const auto record = CheckFormPreconditions(host, formName);
    return record && host.ShowEntryDialog(dialog, *record) ? record : std::nullopt;
}

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
        if (IsDateTimeOrUnfilled(date)) {
            continue;
        }
        const std::string& sampleNo = header[HeaderField::kZovSampleNo];
        const auto noSuchDate = NoSuchDate(date);
        host.Show({"The analysis date of sample " +
                       (Trim(sampleNo).empty() ? FileNameOnly(samples[i].FileName) : sampleNo) +
                       ",\n" + date + ", is not a date and time." +
                       (noSuchDate ? "\n" + *noSuchDate : ""),
                   std::string(kIncorrectTimeFormat)});
        return false;
    }
    return true;
}

}  // namespace qfr
