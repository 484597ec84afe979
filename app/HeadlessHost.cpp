#include "app/HeadlessHost.h"

#include "forms/FormList.h"

namespace qfr {

HeadlessHost::HeadlessHost(SavedBatch saved, TextMetrics& metrics, Messages& messages)
    : saved_(std::move(saved)),
      flags_(saved_.Flags),
      metrics_(metrics),
      messages_(messages),
      printer_(metrics, *this),
      page_(printer_, [] { return true; }) {}

bool HeadlessHost::AskYesNo(const Message& question) {
    messages_.Show(question);
    return false;
}

void HeadlessHost::TakeJob(int, PrintJob job) {
    if (const auto boxes = boxes_.About(metrics_.TakeBoxes())) {
        messages_.Show(*boxes);
    }
    job_ = std::move(job);
}

bool HeadlessHost::ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) {
    const FormRow& form = FormOf(dialog);
    if (!form.onShow(*this, headerRecord)) {
        return false;
    }
    if (const std::optional<EntryFault> fault = form.onOk(*this)) {
        Show(fault->Message);
        return false;
    }
    return true;
}

}  // namespace qfr
