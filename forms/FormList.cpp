#include "forms/FormList.h"

#include <algorithm>

#include "data/CalibrationEntryRules.h"
#include "data/TuneRules.h"
#include "forms/FormDrivers.h"

namespace qfr {

constexpr std::array<FormRow, kFormCount> kForms = {{
    {"1", "Form I VOA", "Form &1 Volatile Organics Analysis", "Ctrl+1", PrintFormIVoa, nullptr},
    {"tic", "Form I VOA-TIC", "Form 1 &Tentative Identified Compounds", "Ctrl+T", PrintFormITic,
     nullptr, true},
    {"2", "Form II, monitoring compound recovery", "Form &2 Monitoring Compound Recovery", "Ctrl+2",
     nullptr, Form2MCRClick},
    {"4", "Form IV, method blank summary", "Form &4 Method Blank Summary", "Ctrl+4", nullptr,
     Form4MBSClick},
    {"5", "Form V, instrument performance check", "Form &5 Instrument Performance Check", "Ctrl+5",
     nullptr, Form5IPCClick},
    {"6", "Form VI, initial calibration data", "Form &6 Initial Calibration Data", "Ctrl+6",
     nullptr, Form6CIDClick},
    {"7", "Form VII, continuing calibration data", "Form &7 Cont. Cal. Data", "Ctrl+7", nullptr,
     Form7CCDClick},
    {"8", "Form VIII, internal standard summary", "Form &8 Internal Standard Summary", "Ctrl+8",
     nullptr, Form8ARTClick},
}};
static_assert(std::ranges::all_of(kForms,
                                  [](const FormRow& form) {
                                      return (form.printSample == nullptr) !=
                                             (form.printBatch == nullptr);
                                  }),
              "a form without a driver, or with two");

bool ShowEntry(FormHost& host, EntryDialog dialog, std::size_t headerRecord) {
    const auto& samples = host.Batch().SampleList;
    switch (dialog) {
        case EntryDialog::kRecoveryRanges:
        case EntryDialog::kBlankComments:
            break;
        case EntryDialog::kTune:
            if (samples && headerRecord < samples->size()) {
                ShowTune(host.Entries().Tune, (*samples)[headerRecord].Header);
            }
            break;
        case EntryDialog::kInitialCalibration:
            ShowInitialCalibration(host.Entries());
            break;
        case EntryDialog::kContinuingCalibration:
            ShowContinuingCalibration(host.Entries(), host.Batch(), host.Reports(), host);
            break;
        case EntryDialog::kStandardSummary:
            return ShowStandardSummary(host.Entries(), host.Batch(), host.Reports(),
                                       host.LevelCount(), host);
    }
    return true;
}

std::optional<EntryFault> AcceptEntry(FormHost& host, EntryDialog dialog) {
    switch (dialog) {
        case EntryDialog::kRecoveryRanges:
        case EntryDialog::kBlankComments:
        case EntryDialog::kTune:
            break;
        case EntryDialog::kInitialCalibration:
            return AcceptInitialCalibration(host.Entries(), host.LevelCount(), host.Flags());
        case EntryDialog::kContinuingCalibration:
            return AcceptContinuingCalibration(host.Entries(), host.Flags());
        case EntryDialog::kStandardSummary:
            return AcceptStandardSummary(host.Entries(), host.Batch());
    }
    return CheckEntries(TableOf(dialog), host.Entries());
}

}  // namespace qfr
