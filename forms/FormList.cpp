#include "forms/FormList.h"

#include <algorithm>

#include "data/CalibrationEntryRules.h"
#include "data/TuneRules.h"
#include "forms/FormDrivers.h"

namespace qfr {

namespace {

bool ShowAsItIs(FormHost& /*host*/, std::size_t /*headerRecord*/) {
    return true;
}

template <const EntryTable& table>
std::optional<EntryFault> Check(FormHost& host) {
    return CheckEntries(table, host.Entries());
}

bool OnShowTune(FormHost& host, std::size_t headerRecord) {
    const auto& samples = host.Batch().SampleList;
    if (samples && headerRecord < samples->size()) {
        ShowTune(host.Entries().Tune, (*samples)[headerRecord].Header);
    }
    return true;
}

bool OnShowInitialCalibration(FormHost& host, std::size_t /*headerRecord*/) {
    ShowInitialCalibration(host.Entries());
    return true;
}

std::optional<EntryFault> OnOkInitialCalibration(FormHost& host) {
    return AcceptInitialCalibration(host.Entries(), host.LevelCount(), host.Flags());
}

bool OnShowContinuingCalibration(FormHost& host, std::size_t /*headerRecord*/) {
    ShowContinuingCalibration(host.Entries(), host.Batch(), host.Reports(), host);
    return true;
}

std::optional<EntryFault> OnOkContinuingCalibration(FormHost& host) {
    return AcceptContinuingCalibration(host.Entries(), host.Flags());
}

bool OnShowStandardSummary(FormHost& host, std::size_t /*headerRecord*/) {
    return ShowStandardSummary(host.Entries(), host.Batch(), host.Reports(), host.LevelCount(),
                               host);
}

std::optional<EntryFault> OnOkStandardSummary(FormHost& host) {
    return AcceptStandardSummary(host.Entries(), host.Batch());
}

}  // namespace

constexpr std::array<FormRow, kFormCount> kForms = {{
    {.name = "1",
     .caption = "Form I VOA",
     .menuCaption = "Form &1 Volatile Organics Analysis",
     .shortcut = "Ctrl+1",
     .printSample = PrintFormIVoa},
    {.name = "tic",
     .caption = "Form I VOA-TIC",
     .menuCaption = "Form 1 &Tentative Identified Compounds",
     .shortcut = "Ctrl+T",
     .printSample = PrintFormITic,
     .onlyWithTics = true},
    {.name = "2",
     .caption = "Form II, monitoring compound recovery",
     .menuCaption = "Form &2 Monitoring Compound Recovery",
     .shortcut = "Ctrl+2",
     .printBatch = Form2MCRClick,
     .entry =
         FormEntry{EntryDialog::kRecoveryRanges, kRangesTable, ShowAsItIs, Check<kRangesTable>}},
    {.name = "4",
     .caption = "Form IV, method blank summary",
     .menuCaption = "Form &4 Method Blank Summary",
     .shortcut = "Ctrl+4",
     .printBatch = Form4MBSClick,
     .entry =
         FormEntry{EntryDialog::kBlankComments, kCommentsTable, ShowAsItIs, Check<kCommentsTable>}},
    {.name = "5",
     .caption = "Form V, instrument performance check",
     .menuCaption = "Form &5 Instrument Performance Check",
     .shortcut = "Ctrl+5",
     .printBatch = Form5IPCClick,
     .entry = FormEntry{EntryDialog::kTune, kTuneTable, OnShowTune, Check<kTuneTable>}},
    {.name = "6",
     .caption = "Form VI, initial calibration data",
     .menuCaption = "Form &6 Initial Calibration Data",
     .shortcut = "Ctrl+6",
     .printBatch = Form6CIDClick,
     .entry = FormEntry{EntryDialog::kInitialCalibration, kInitialCalibrationTable,
                        OnShowInitialCalibration, OnOkInitialCalibration}},
    {.name = "7",
     .caption = "Form VII, continuing calibration data",
     .menuCaption = "Form &7 Cont. Cal. Data",
     .shortcut = "Ctrl+7",
     .printBatch = Form7CCDClick,
     .entry = FormEntry{EntryDialog::kContinuingCalibration, kContinuingCalibrationTable,
                        OnShowContinuingCalibration, OnOkContinuingCalibration}},
    {.name = "8",
     .caption = "Form VIII, internal standard summary",
     .menuCaption = "Form &8 Internal Standard Summary",
     .shortcut = "Ctrl+8",
     .printBatch = Form8ARTClick,
     .entry = FormEntry{EntryDialog::kStandardSummary, kStandardSummaryTable, OnShowStandardSummary,
                        OnOkStandardSummary}},
}};

constexpr bool IsComplete(const FormRow& form) {
    const bool named = !form.name.empty() && !form.caption.empty() && !form.menuCaption.empty() &&
                       !form.shortcut.empty();
    return named && (form.printSample == nullptr) != (form.printBatch == nullptr);
}
static_assert(std::ranges::all_of(kForms, IsComplete),
              "a form without a caption, without a driver, or with two");

constexpr bool HasRules(const FormRow& form) {
    return !form.entry ||
           (form.entry->onShow != nullptr && form.entry->onOk != nullptr &&
            kEntryTables.at(static_cast<std::size_t>(form.entry->dialog)) == &form.entry->table);
}
static_assert(std::ranges::all_of(kForms, HasRules),
              "an entry dialog without its rules, or with another one's table");

constexpr bool IsAskedForOnce(const EntryTable* table) {
    return std::ranges::count_if(kForms, [table](const FormRow& form) {
               return form.entry && &form.entry->table == table;
           }) == 1;
}
static_assert(std::ranges::all_of(kEntryTables, IsAskedForOnce),
              "a table that no form asks for, or more than one");

const FormEntry& EntryOf(EntryDialog dialog) {
    return *std::ranges::find_if(kForms, [dialog](const FormRow& form) {
                return form.entry && form.entry->dialog == dialog;
            })->entry;
}

}  // namespace qfr
