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
#include "app/BatchReview.h"
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
// was entered. Files are read anew. It goes in small steps, so that a window can answer meanwhile.
class LookThrough {
  public:
    // `levelCount` is as for ReviewAsPrinted. The metrics outlive it.
    LookThrough(SavedBatch saved, int levelCount, TextMetrics& metrics);

    // Goes on by one sample, rule or form. False: there was nothing left to do.
    bool Step() { return review_.Step(); }
    // Comes once, when there is nothing left to do.
    BatchStates Take();

  private:
    // How the jobs of one form have fared.
    struct Tally {
        std::size_t Due = 0;
        std::size_t Refused = 0;
        std::size_t Unfinished = 0;  // printed, with an incomplete header
        std::string Refusal;         // why the first one was refused
        std::string Mend;            // where that is mended; empty: not known
    };
    Tally& TallyOf(std::string_view form);
    void Count(const RecordedForm& form);
    static FormState StateOf(const Tally& tally);

    std::vector<Tally> tallies_ = std::vector<Tally>(kForms.size());
    SteppedReview review_;
};

// What the form's jobs are called, before the sample's number where they have one.
std::string JobTitle(const FormRow& form);

struct FormPrinted {
    std::size_t Jobs = 0;               // with different titles
    const PrintedJobs* Last = nullptr;  // null: none
};
FormPrinted PrintedOf(const FormRow& form, std::span<const PrintedJobs> printed);

}  // namespace qfr
