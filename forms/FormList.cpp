#include "forms/FormList.h"

#include <algorithm>
#include <type_traits>

#include "data/CalibrationEntryRules.h"
#include "data/EntryTables.h"
#include "data/TuneRules.h"

namespace qfr {

namespace {

using enum EntryDialog;

bool ShowAsItIs(FormHost& /*host*/, std::size_t /*headerRecord*/) {
    return true;
}

template <EntryDialog dialog>
std::optional<EntryFault> Check(FormHost& host) {
    return CheckEntries(TableOf(dialog), host.Entries());
}

// The dialog shows what has no room, and asks.
std::optional<EntryFault> OnOkComments(FormHost& host) {
    if (const auto note = CommentsNotPrinted(host.Page(), host.Entries().Comments.Lines)) {
        host.Show(*note);
    }
    return std::nullopt;
}

bool OnShowTune(FormHost& host, std::size_t headerRecord) {
    const auto& samples = host.Batch().SampleList;
    if (samples && headerRecord < samples->size()) {
        ShowTune(host.Entries().Tune, (*samples)[headerRecord].Header);
    }
    return true;
}

bool OnShowInitial(FormHost& host, std::size_t /*headerRecord*/) {
    ShowInitialCalibration(host.Entries());
    return true;
}

std::optional<EntryFault> OnOkInitial(FormHost& host) {
    return AcceptInitialCalibration(host.Entries(), host.LevelCount(), host.Flags());
}

bool OnShowContinuing(FormHost& host, std::size_t headerRecord) {
    ShowContinuingCalibration(host.Entries(), host.Batch(), headerRecord, host.Reports(), host);
    return true;
}

std::optional<EntryFault> OnOkContinuing(FormHost& host) {
    return AcceptContinuingCalibration(host.Entries(), host.Batch(), host.Reports(), host.Flags());
}

bool OnShowSummary(FormHost& host, std::size_t /*headerRecord*/) {
    return ShowStandardSummary(host.Entries(), host.Batch(), host.Reports(), host.LevelCount(),
                               host);
}

std::optional<EntryFault> OnOkSummary(FormHost& host) {
    return AcceptStandardSummary(host.Entries(), host.Batch(), host.Reports(), host);
}

template <auto prepare>
std::optional<AnyFormContent> Prepare(FormHost& host, std::size_t record) {
    if constexpr (std::is_invocable_v<decltype(prepare), FormHost&>) {
        return prepare(host);
    } else {
        return prepare(host, record);
    }
}

constexpr FormRow kRows[] = {
    {"1", "Form I VOA", "Form &1 Volatile Organics Analysis", "Ctrl+1", PrintFormIVoa, nullptr,
     Prepare<PrepareForm1Voa>},
    {"tic", "Form I VOA-TIC", "Form 1 &Tentative Identified Compounds", "Ctrl+T", PrintFormITic,
     nullptr, Prepare<PrepareForm1Tic>, true},
    {"2", "Form II, monitoring compound recovery", "Form &2 Monitoring Compound Recovery", "Ctrl+2",
     nullptr, Form2MCRClick, Prepare<PrepareForm2>, false, kRecoveryRanges, ShowAsItIs,
     Check<kRecoveryRanges>},
    {"4", "Form IV, method blank summary", "Form &4 Method Blank Summary", "Ctrl+4", nullptr,
     Form4MBSClick, Prepare<PrepareForm4>, false, kBlankComments, ShowAsItIs, OnOkComments},
    {"5", "Form V, instrument performance check", "Form &5 Instrument Performance Check", "Ctrl+5",
     nullptr, Form5IPCClick, Prepare<PrepareForm5>, false, kTune, OnShowTune, Check<kTune>},
    {"6", "Form VI, initial calibration data", "Form &6 Initial Calibration Data", "Ctrl+6",
     nullptr, Form6CIDClick, Prepare<PrepareForm6>, false, kInitialCalibration, OnShowInitial,
     OnOkInitial},
    {"7", "Form VII, continuing calibration data", "Form &7 Cont. Cal. Data", "Ctrl+7", nullptr,
     Form7CCDClick, Prepare<PrepareForm7>, false, kContinuingCalibration, OnShowContinuing,
     OnOkContinuing},
    {"8", "Form VIII, internal standard summary", "Form &8 Internal Standard Summary", "Ctrl+8",
     nullptr, Form8ARTClick, Prepare<PrepareForm8>, false, kStandardSummary, OnShowSummary,
     OnOkSummary},
};

constexpr bool IsWhole(const FormRow& form) {
    const bool hasEntry = form.entry.has_value();
    return form.prepare != nullptr &&
           (form.printSample == nullptr) != (form.printBatch == nullptr) &&
           hasEntry == (form.printBatch != nullptr) && hasEntry == (form.onShow != nullptr) &&
           hasEntry == (form.onOk != nullptr);
}
#ifndef __SANITIZE_ADDRESS__  // under which GCC takes no function's address for a constant
static_assert(std::ranges::all_of(kRows, IsWhole), "one driver; an entry with both its rules");
#endif

}  // namespace

constexpr std::span<const FormRow> kForms = kRows;

const FormRow& FormOf(EntryDialog dialog) {
    return *std::ranges::find(kRows, dialog, &FormRow::entry);
}

}  // namespace qfr
