#include "review/Review.h"

#include <algorithm>
#include <utility>

#include "data/EntryTables.h"
#include "data/HeaderFields.h"
#include "forms/FormList.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

using enum Severity;

constexpr Rule kRules[] = {
    // ---- Headers
    {"header.empty", kError, "1", "Header value missing",
     "A form with an empty field in its header is returned as incomplete.", EmptyValues},
    {"header.not-received", kWarning, "1", "Date received missing",
     "Without the date of receipt nobody can tell whether the holding time was kept.", NotReceived},
    {"header.placeholder", kError, "1", "Value that the dialog started with",
     "What the dialog shows before anybody types is the name of no laboratory, case or contract.",
     Placeholders},
    {"header.carried-over", kError, "1", "Value of another sample",
     "The dialog carries values over to samples that have none, and the form then shows those of "
     "another analysis.",
     CarriedOver},
    {"header.other-than-report", kWarning, "1", "Value unlike the report's",
     "The raw data in the package are found by sample number, file ID and date.", OtherThanReport},
    {"header.choice", kError, "1", "Value that the form does not list",
     "Matrix, level, units and heated purge are read as codes.", UnlistedChoices},
    {"header.units", kError, "1", "Units of another matrix",
     "A concentration in the units of another matrix is another concentration.", ForeignUnits},
    {"header.moisture", kError, "1", "% moisture against the matrix",
     "Results of soil and sediment are corrected for moisture, those of water are not.",
     MoistureOfMatrix},
    {"header.volumes", kWarning, "1", "Extract and aliquot volumes against the matrix",
     "Only soil is extracted, and its concentrations depend on both volumes.", VolumesOfMatrix},
    {"header.number", kWarning, "1", "Amount that is no number",
     "A reviewer recomputes concentrations from amounts, volumes and dilution.",
     ValuesWithoutNumber},
    {"header.date", kError, "1", "Date that cannot be read",
     "A date that nobody can read proves no holding time.", UnreadableDates},
    {"header.package", kError, "1", "Laboratory, case or contract unlike the others",
     "All forms of a package belong to one laboratory, contract, case and SDG.", OtherPackage},
    {"header.instrument", kWarning, "1", "Instrument or column unlike the others",
     "A tune and a calibration hold for one instrument with one column.", OtherInstrument},
    {"header.sample-twice", kError, "1", "Sample number of two samples",
     "Samples are told from each other by their number alone.", SampleTwice},
    {"header.blank-as-sample", kError, "1", "Lab blank among the samples",
     "The blank would be listed twice, and flagged for what it contains itself.", BlankAsSample},

    // ---- Times
    {"time.received-after-analyzed", kError, "1", "Received after it was analyzed",
     "One of the two dates is wrong.", ReceivedAfterAnalyzed},
    {"time.holding", kWarning, "1", "Holding time exceeded",
     "Volatile compounds are lost while a sample waits.", HoldingTime},
    {"time.before-tune", kWarning, "5", "Analyzed before the BFB injection",
     "A tune says nothing of what was analyzed before it.", BeforeTune},
    {"time.after-tune", kWarning, "5", "More than 12 hours after the BFB injection",
     "A tune holds for 12 hours; Form V flags the sample.", LateAfterTune},
    {"time.before-blank", kWarning, "4", "Analyzed before the lab blank",
     "The blank shows that the system was clean before the samples.", BeforeBlank},
    {"time.after-blank", kWarning, "4", "More than 12 hours after the lab blank",
     "A blank holds for 12 hours; Form IV flags the sample.", LateAfterBlank},
    {"time.before-standard", kWarning, "8", "Analyzed before the continuing standard",
     "The continuing calibration is checked before the samples that depend on it.", BeforeStandard},
    {"time.after-standard", kWarning, "8", "More than 12 hours after the continuing standard",
     "A continuing calibration holds for 12 hours.", LateAfterStandard},
    {"time.calibration-after-samples", kError, "6", "Calibrated after the samples",
     "Nothing can be quantitated with a calibration that was not there yet.",
     CalibrationAfterSamples},
    {"time.standards-order", kError, "6", "First standard after the last",
     "The forms state the calibration's dates in their order.", StandardsOrder},

    // ---- Entries of Forms VI, VII and VIII
    {"entry.calibration-dates", kError, "6", "Dates of the initial calibration differ",
     "Forms VI, VII and VIII state the same initial calibration.", CalibrationDates},
    {"entry.standard-date", kError, "7", "Dates of the continuing standard differ",
     "Forms VII and VIII state the same continuing calibration standard.", StandardDates},
    {"entry.standard-file", kError, "7", "Lab file IDs of the continuing standard differ",
     "The raw data of the standard are found by its lab file ID.", StandardFileIds},
    {"entry.standard-sample", kError, "7", "Sample numbers of the continuing standard differ",
     "Forms VII and VIII state the same continuing calibration standard.", StandardSampleNos},
    {"entry.letter-case", kWarning, "7", "Continuing standard in two letter cases",
     "One name that is written in two ways looks like two standards.", LetterCase},

    // ---- Tune
    {"tune.ion-range", kWarning, "5", "Ion abundance outside its range",
     "Nothing that was analyzed after a failed tune is accepted.", IonRanges},
    {"tune.173-limit", kWarning, "5", "Mass 173 at its limit",
     "The criterion says less than 2.0%, and the form flags only what is above.", LimitOf173},
    {"tune.base-peak", kError, "5", "Base peak other than 100",
     "All abundances are relative to mass 95.", BasePeak},
    {"tune.ratio", kWarning, "5", "Ion typed relative to another mass",
     "Masses 173, 175 and 176 are percentages of mass 174, and 177 one of mass 176.",
     IonsOfOtherBase},

    // ---- Initial calibration
    {"calibration.rsd", kWarning, "6", "Large %RSD",
     "Response factors that scatter do not make a calibration.", LargeRsd},
    {"calibration.rsd-of-sample", kWarning, "6", "%RSD too large when divided by n - 1",
     "The form divides by the number of levels, and a calculator by one less.", RsdOfSample},
    {"calibration.rounded", kWarning, "6", "%RSD changed by rounding",
     "The form states the %RSD of response factors that are rounded to whole numbers.", RoundedRsd},
    {"calibration.levels", kWarning, "6", "Few levels",
     "An initial calibration has at least five levels.", FewLevels},
    {"calibration.unused-level", kWarning, "6", "Level not used",
     "A level that is left out of a compound's calibration has to be explained.", UnusedLevels},
    {"calibration.rf-number", kError, "6", "Response factor that is no number",
     "Without it there is neither a mean nor a %RSD, and the form does not print.",
     RfsWithoutNumber},
    {"calibration.level-head", kError, "6", "Level head unlike its amount",
     "Heads lose the zeros at their end, so that 10 may head its columns as 1.", LevelHeads},
    {"calibration.data-file-missing", kWarning, "6", "Raw data file of a level missing",
     "Lab file IDs and dates of the standards come from their raw data files.", LevelFilesMissing},
    {"calibration.lab-file-id", kError, "6", "Lab file ID of another level",
     "Where a raw data file is missing, the IDs of the others move up.", LevelFileIds},

    // ---- Continuing calibration
    {"check.amount-head", kError, "7", "Head of the standard unlike its amount",
     "Heads lose the zeros at their end, so that 10 may head its column as 1.", CheckHead},
    {"check.mean-rf", kError, "7", "Mean RF unlike Form VI",
     "The continuing calibration is compared to the initial one that Form VI states.",
     CheckMeanRfs},
    {"check.percent-d", kError, "7", "%D unlike its response factors",
     "A reviewer recomputes %D from the two response factors beside it.", CheckPercentD},
    {"check.above-maximum", kWarning, "7", "%D beyond MAX %D",
     "The response has drifted further than the method allows.", CheckAboveMaximum},
    {"check.below-minimum", kWarning, "7", "RF below MIN RF",
     "A compound with little response is quantitated badly.", CheckBelowMinimum},
    {"check.no-criteria", kWarning, "7", "Compound without criteria",
     "Empty limits look like limits that were not checked.", CheckWithoutCriteria},
    {"check.order", kError, "7", "Compounds in another order than Form VI",
     "Form VII puts the two reports together row by row.", CheckOrder},

    // ---- Samples
    {"sample.report-missing", kError, "1", "Report missing",
     "Nothing of the sample can be stated without its report.", ReportsMissing},
    {"sample.report-changed", kError, "1", "Report damaged or changed",
     "The header shows what the report had when it was loaded, and the rows what it has now.",
     ReportsChanged},
    {"sample.rows", kError, "1", "Compounds unlike the other samples'",
     "The lab blank's hits are matched row by row.", RowOrder},
    {"sample.above-calibration", kWarning, "1", "Above the highest level without E",
     "A concentration beyond the calibration is an estimate and says so.", AboveCalibration},
    {"sample.blank-flag", kError, "1", "B without a hit in the lab blank",
     "The flags were taken from the blank's report when it was loaded.", BlankFlagWithoutHit},
    {"sample.blank-flag-missing", kError, "1", "Hit in the lab blank without B",
     "The flags were taken from the blank's report when it was loaded.", BlankHitWithoutFlag},
    {"tic.incomplete", kError, "tic", "Tentatively identified compound incomplete",
     "Only the qualifier may be left open.", IncompleteTics},
    {"tic.repeated", kError, "tic", "More tentatively identified compounds than a page holds",
     "The form's further pages repeat its first one.", RepeatedTics},
    {"tic.none", kNote, "tic", "No tentatively identified compounds",
     "A package has this form for every sample, also where nothing was found.", NoTics},
    {"sample.recovery", kWarning, "2", "Recovery outside its range",
     "A monitoring compound that is lost or found twice puts the sample's results in doubt.",
     RecoveryOutside},
    {"sample.recovery-number", kWarning, "2", "Recovery that is no number",
     "What cannot be compared to its range is never flagged.", RecoveryWithoutNumber},
    {"sample.recovery-range", kWarning, "2", "Monitoring compound without a range",
     "Without a range no recovery is flagged.", RecoveryWithoutRange},
    {"sample.recovery-order", kError, "2", "Monitoring compounds unlike the other samples'",
     "Form II states names and limits once, those of the first sample.", RecoveryOrder},
    {"sample.standard", kWarning, "8", "Internal standard outside its limits",
     "Concentrations are relative to the internal standards.", StandardOutside},
    {"sample.standard-missing", kError, "8", "Internal standard missing",
     "An empty cell is never flagged.", StandardMissing},
    {"sample.standard-number", kError, "8", "Internal standard that is no number",
     "What cannot be compared to its limits is never flagged.", StandardWithoutNumber},

    // ---- Forms
    {"form.refused", kError, "1", "Form does not print",
     "A package without one of its forms is incomplete.", nullptr, Refused},
    {"form.message", kWarning, "1", "Form prints with a message",
     "What the program says while it prints is not on the page.", nullptr, PrintsWithMessage},
    {"form.page-count", kWarning, "1", "Pages unlike their count",
     "A reviewer looks for the page that is missing.", nullptr, PageCounts},
    {"form.wide-value", kWarning, "1", "Value wider than its line",
     "A value beyond its line runs into the next field.", nullptr, WideValues},
    {"form.text-over-line", kWarning, "1", "Text over a line",
     "A text that runs into the next column may hide what stands there.", nullptr, TextOverLine},
    {"form.text-off-page", kError, "1", "Text off the page", "It is not printed.", nullptr,
     TextOffPage},
    {"form.prints", kNote, "1", "Form prints", "So many pages belong to the package.", nullptr,
     Prints},
};

std::size_t FormIndex(std::string_view name) {
    return static_cast<std::size_t>(std::ranges::find(kForms, name, &FormRow::name) -
                                    kForms.begin());
}

}  // namespace

std::string_view SeverityName(Severity severity) {
    constexpr std::string_view kNames[] = {"error", "warning", "note"};
    return kNames[static_cast<std::size_t>(severity)];
}

std::span<const Rule> ReviewRules() {
    return kRules;
}

std::string MendText(const MendPlace& place) {
    std::string_view window;
    switch (place.Window) {
        case MendWindow::kLoadFiles:
            window = "Load Files";
            break;
        case MendWindow::kForm1Header:
            window = "Form 1 Header";
            break;
        case MendWindow::kTics:
            window = "Enter TICs";
            break;
        case MendWindow::kEntry:
            window = TableOf(*place.Dialog).Caption;
            break;
    }
    std::string text(window);
    if (!place.Label.empty()) {
        text += ", " + place.Label;
    }
    return place.Row > 0 ? text + ", row " + std::to_string(place.Row) : text;
}

std::string SubjectText(const Finding& finding, const Batch& batch) {
    std::string text;
    if (!finding.Records.empty()) {
        text = SampleName((*batch.SampleList)[finding.Records.front()]);
        const std::size_t others = finding.Records.size() - 1;
        text += others > 0 ? " and " + std::to_string(others) + " more" : "";
    }
    return text + (text.empty() || finding.Subject.empty() ? "" : ", ") + finding.Subject;
}

std::string FindingLine(const Finding& finding, const Batch& batch) {
    const std::string subject = SubjectText(finding, batch);
    const std::string mend =
        finding.Mend.Control.empty() ? "" : " [" + MendText(finding.Mend) + "]";
    return std::string(SeverityName(finding.Rule->Severity)) + " " + std::string(finding.Rule->Id) +
           ": form " + std::string(finding.Form) + ": " + subject + (subject.empty() ? "" : ": ") +
           finding.Sentence + mend;
}

std::size_t CountFindings(std::span<const Finding> findings, Severity severity) {
    return static_cast<std::size_t>(std::ranges::count_if(
        findings,
        [severity](const Finding& finding) { return finding.Rule->Severity == severity; }));
}

std::string CountText(std::span<const Finding> findings, Severity severity) {
    return CountText(CountFindings(findings, severity), severity);
}

std::string CountText(std::size_t count, Severity severity) {
    return Counted(count, SeverityName(severity));
}

RunningReview::RunningReview(ReviewInput input)
    : input_(std::move(input)), batch_(std::make_unique<Reviewed>(input_)) {}

RunningReview::~RunningReview() = default;

bool RunningReview::Step() {
    if (batch_->ReadNext(input_)) {
        return true;
    }
    if (findings_.size() < std::size(kRules)) {
        const Rule& rule = kRules[findings_.size()];
        findings_.emplace_back(rule);
        if (rule.Look != nullptr) {
            rule.Look(*batch_, findings_.back());
        }
        return true;
    }
    const auto form = input_.NextForm();
    for (std::size_t i = 0; form && i < std::size(kRules); ++i) {
        if (kRules[i].LookAtForm != nullptr) {
            kRules[i].LookAtForm(*batch_, *form, findings_[i]);
        }
    }
    return form.has_value();
}

std::vector<Finding> RunningReview::Take() {
    std::vector<Finding> all;
    for (Findings& ofRule : findings_) {
        std::ranges::move(ofRule.Take(), std::back_inserter(all));
    }
    std::ranges::stable_sort(all, {}, [](const Finding& finding) {
        return std::pair(FormIndex(finding.Form),
                         finding.Records.empty() ? 0 : finding.Records.front() + 1);
    });
    return all;
}

std::vector<Finding> ReviewBatch(const ReviewInput& input) {
    RunningReview review(input);
    while (review.Step()) {
    }
    return review.Take();
}

void Findings::Add(std::optional<std::size_t> record, const std::string& subject,
                   const std::string& words, const MendPlace& mend, std::string_view form) {
    // A message may list thousands of samples.
    constexpr std::size_t kLongest = 1000;
    const std::string_view kept = FirstCharacters(words, kLongest);
    const std::string sentence = std::string(kept) + (kept.size() < words.size() ? " ..." : "");
    const auto [place, isNew] =
        places_.try_emplace({form, subject, sentence, mend.Control}, found_.size());
    if (isNew) {
        found_.push_back({&rule_, form, {}, subject, sentence, mend});
    }
    if (record) {
        found_[place->second].Records.push_back(*record);
    }
}

std::vector<Finding> Findings::Take() {
    for (Finding& finding : found_) {
        std::ranges::sort(finding.Records);
        finding.Records.erase(std::unique(finding.Records.begin(), finding.Records.end()),
                              finding.Records.end());
    }
    return std::move(found_);
}

MendPlace HeaderPlace(HeaderField field) {
    return {.Window = MendWindow::kForm1Header,
            .Control = std::string(HeaderEntryOf(field).Control),
            .Label = std::string(HeaderEntryOf(field).Label),
            .Field = field};
}

MendPlace TicPlace(int row) {
    return {.Window = MendWindow::kTics, .Control = "StringGrid1", .Row = row};
}

MendPlace EntryPlace(EntryDialog dialog, std::string_view control, std::size_t item) {
    const std::span<const EntryField> fields = TableOf(dialog).Fields;
    const EntryField& field = *std::ranges::find(fields, control, &EntryField::Control);
    const bool isCell = field.Kind == EntryKind::kCells;
    const bool holdsAll = isCell || field.Kind == EntryKind::kLines;
    return {.Window = MendWindow::kEntry,
            .Control = holdsAll ? std::string(control) : ControlName(control, field, item),
            .Label = isCell ? std::string(field.Label) : LabelOf(field, item),
            .Dialog = dialog,
            .Row = isCell ? static_cast<int>(item) + 1 : 0};
}

MendPlace SampleFilesPlace() {
    return {.Control = "QFilesList", .Label = "Quant. Files"};
}

MendPlace LabBlankPlace() {
    return {.Control = "LabBlankEdit", .Label = "Lab Blank"};
}

MendPlace CalibrationFilePlace() {
    return {.Control = "CalibEdit", .Label = "Calib. File"};
}

MendPlace CheckFilePlace() {
    return {.Control = "CheckCalEdit", .Label = "Continuing Cal"};
}

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

bool IsSameMinute(std::optional<DateTime> one, std::optional<DateTime> other) {
    return one && other && FormatDateTime(*one) == FormatDateTime(*other);
}

std::optional<DateTime> DateTimeIn(std::string_view text) {
    const auto when = ParseDateTime(text);
    return when && when->HasDate() ? when : std::nullopt;
}

}  // namespace qfr
