#include "forms/FormHost.h"

#include <string>

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

}  // namespace qfr
