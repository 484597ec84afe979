#include "app/HeadlessHost.h"

#include "data/CalibrationEntryRules.h"
#include "data/RecoveryRanges.h"
#include "data/TuneRules.h"

namespace qfr {

std::vector<DialogRules> EntryDialogRules() {
    return {
        {EntryDialog::kRecoveryRanges, nullptr,
         [](FormHost& host) { return CheckRanges(host.Entries().Ranges); }},
        {EntryDialog::kTune,
         [](FormHost& host, std::size_t record) {
             ShowTune(host.Entries().Tune, (*host.Batch().SampleList)[record].Header);
             return true;
         },
         [](FormHost& host) { return CheckTune(host.Entries().Tune); }},
        {EntryDialog::kInitialCalibration,
         [](FormHost& host, std::size_t) {
             ShowInitialCalibration(host.Entries());
             return true;
         },
         [](FormHost& host) {
             return AcceptInitialCalibration(host.Entries(), host.Calibration().LevelCount,
                                             host.Flags());
         }},
        {EntryDialog::kContinuingCalibration,
         [](FormHost& host, std::size_t) {
             ShowContinuingCalibration(host.Entries(), host.Batch(), host);
             return true;
         },
         [](FormHost& host) { return AcceptContinuingCalibration(host.Entries(), host.Flags()); }},
        {EntryDialog::kStandardSummary,
         [](FormHost& host, std::size_t) {
             return ShowStandardSummary(host.Entries(), host.Batch(), host.Calibration(), host);
         },
         [](FormHost& host) { return AcceptStandardSummary(host.Entries(), host.Batch()); }},
    };
}

HeadlessHost::HeadlessHost(SavedBatch saved, TextMetrics& metrics, Messages& messages,
                           std::vector<DialogRules> rules)
    : saved_(std::move(saved)),
      messages_(messages),
      rules_(std::move(rules)),
      printer_(metrics, *this),
      page_(printer_, [] {}) {}

bool HeadlessHost::AskYesNo(const Message& question) {
    messages_.Show(question);
    return false;
}

bool HeadlessHost::ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) {
    for (const DialogRules& rules : rules_) {
        if (rules.dialog != dialog) {
            continue;
        }
        if (rules.onShow && !rules.onShow(*this, headerRecord)) {
            return false;
        }
        if (const std::optional<EntryFault> fault = rules.onOk ? rules.onOk(*this) : std::nullopt) {
            Show(fault->Message);
            return false;
        }
    }
    return true;
}

}  // namespace qfr
