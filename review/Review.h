// What a reviewer of the package would flag, found before it is printed. The rules look at the
// batch, its reports and entries, at what its forms state and at the pages that were recorded; a
// value that prints is taken from the form's content and recomputed only where that is the rule's
// purpose.
//
// A window shows one row a finding. Filter: Finding::Rule->Severity, Finding::Form and
// Finding::Records. Beside it: Rule::Why. Go to: Finding::Mend, with the first of Records. A line
// to copy or to print: FindingLine.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/Batch.h"
#include "data/Entries.h"
#include "data/Reports.h"
#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "review/ReviewLimits.h"

namespace qfr {

enum class Severity {
    kError,    // the page would be wrong or incomplete
    kWarning,  // a reviewer will ask
    kNote,
};
std::string_view SeverityName(Severity severity);  // "error", "warning", "note"

// What came of printing a form, for each sample or once for the batch.
struct RecordedForm {
    std::string_view Form;              // a name of kForms
    std::optional<std::size_t> Record;  // of SampleList
    std::optional<PrintJob> Job;        // absent: the form was refused
    std::vector<Message> Messages;      // what was said meanwhile
};

struct Reviewed;
class Findings;

struct Rule {
    std::string_view Id;  // "tune.base-peak"; never changes
    qfr::Severity Severity;
    std::string_view Form;   // what it is about, unless a finding says otherwise: a name of kForms
    std::string_view Title;  // what it looks for
    std::string_view Why;    // one sentence: why a reviewer looks at this
    // One of the two: looks at the batch once, or at each of its forms.
    void (*Look)(const Reviewed& batch, Findings& findings) = nullptr;
    void (*LookAtForm)(const Reviewed& batch, const RecordedForm& form,
                       Findings& findings) = nullptr;
};
// In the order of their subjects: headers, times, entries, tune, calibration, samples, forms.
std::span<const Rule> ReviewRules();

// The window in which a finding is mended. A sample's windows show the finding's first record.
enum class MendWindow { kLoadFiles, kForm1Header, kTics, kEntry };

struct MendPlace {
    MendWindow Window = MendWindow::kLoadFiles;
    std::string Control;                     // the name of the one that takes the focus
    std::string Label = {};                  // what that is called
    std::optional<EntryDialog> Dialog = {};  // of kEntry
    std::optional<HeaderField> Field = {};   // of kForm1Header
    int Row = 0;                             // of a grid, from 1; 0: no grid
    bool operator==(const MendPlace&) const = default;
};
// "Form 1 Header, Lab Name"
std::string MendText(const MendPlace& place);

struct Finding {
    const qfr::Rule* Rule = nullptr;
    std::string_view Form;  // a name of kForms
    // The samples that it is about, as ascending indices of SampleList. One finding stands for all
    // samples of which the same is to be said. Empty: about the batch.
    std::vector<std::size_t> Records;
    std::string Subject;   // the compound or level, if it is about one
    std::string Sentence;  // with the values as they print
    MendPlace Mend;
};
// "ZA101", or "ZA101 and 2 more", and the compound or level behind it; empty for the batch.
std::string SubjectText(const Finding& finding, const Batch& batch);
// "warning calibration.rsd: form 6: acetone: ... [Load Files, Calib. File]"
std::string FindingLine(const Finding& finding, const Batch& batch);

std::size_t CountFindings(std::span<const Finding> findings, Severity severity);
// "1 error", "2 warnings"
std::string CountText(std::span<const Finding> findings, Severity severity);
std::string CountText(std::size_t count, Severity severity);

struct ReviewInput {
    const qfr::Batch& Batch;
    const qfr::Entries& Entries;  // as they are saved
    const BatchFlags& Flags;
    qfr::Reports& Reports;
    // Prints the next form, in the order in which they print; absent behind the last one. Each is
    // looked at and forgotten.
    std::function<std::optional<RecordedForm>()> NextForm;
    ReviewLimits Limits = {};
};

// By form, then sample (what is about the batch comes first), then rule. Time and memory go with
// the number of samples.
std::vector<Finding> ReviewBatch(const ReviewInput& input);

// The same in small steps, for a window that has to answer between them.
class RunningReview {
  public:
    explicit RunningReview(ReviewInput input);
    ~RunningReview();
    RunningReview(const RunningReview&) = delete;
    RunningReview& operator=(const RunningReview&) = delete;

    // Goes on by one sample, rule or form. False: there was nothing left to do.
    bool Step();
    // What was found. Comes once, when there is nothing left to do.
    std::vector<Finding> Take();

  private:
    const ReviewInput input_;
    std::unique_ptr<Reviewed> batch_;
    std::vector<Findings> findings_;  // of the rules that have looked at the batch
};

}  // namespace qfr
