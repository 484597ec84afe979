// Where a batch stands, as the main window's two tables show it: what is known of each sample and
// each form, whether it would print, and where it was printed.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/BatchFile.h"
#include "data/Batch.h"
#include "forms/FormList.h"
#include "platform/PrintLog.h"
#include "platform/Printer.h"

namespace qfr {

// What a reviewer would flag about one sample.
struct FindingCount {
    std::size_t Errors = 0;
    std::size_t Warnings = 0;
    bool operator==(const FindingCount&) const = default;
};
// "1 error, 2 warnings", "1 warning", "none"
std::string FindingText(const FindingCount& count);

// What is lacking for Form I VOA-TIC.
inline constexpr std::string_view kNoTics = "No sample has TICs.";

struct FormState {
    bool Ready = false;
    std::string Text;  // "Ready", or in one line what is missing
    bool operator==(const FormState&) const = default;
};

struct BatchStates {
    std::vector<FindingCount> Samples;  // of SampleList
    std::vector<FormState> Forms;       // of kForms
};

// Tries all forms once, as the review does, without asking anything: the dialogs answer with what
// was entered. `levelCount` is as for ReviewAsPrinted. Files are read anew.
BatchStates LookThrough(SavedBatch saved, int levelCount, TextMetrics& metrics);

// What the form's jobs are called, before the sample's number where they have one.
std::string JobTitle(const FormRow& form);

struct FormPrinted {
    std::size_t Jobs = 0;               // with different titles
    const PrintedJobs* Last = nullptr;  // null: none
};
FormPrinted PrintedOf(const FormRow& form, std::span<const PrintedJobs> printed);

}  // namespace qfr
