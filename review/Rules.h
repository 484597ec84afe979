// What the rules of the review share: the batch as they see it, and where they put what they find.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/CalibrationTables.h"
#include "data/HeaderFields.h"
#include "forms/Form1VoaContent.h"
#include "forms/Form2Content.h"
#include "forms/Form6Content.h"
#include "forms/Form7Content.h"
#include "forms/Form8Content.h"
#include "platform/DateTime.h"
#include "review/Review.h"

namespace qfr {

// A batch with its reports and what its forms state. What a missing or unusable file leaves open is
// empty or absent; that a form is refused for it is a finding of its own.
struct Reviewed {
    explicit Reviewed(const ReviewInput& input);

    // Reads the next sample, and behind the last one what the batch's forms state, part by part.
    // False: everything was read.
    bool ReadNext(const ReviewInput& input);

    const qfr::Batch& Batch;
    std::span<const SampleRecord> Samples;
    const ReviewLimits& Limits;
    const Entries& Saved;

    // One for each sample.
    std::vector<FileContent<QuantReport>> Quant;
    std::vector<std::optional<Form1VoaContent>> DataSheets;

    FileContent<CalibrationReport> Calibration;
    int LevelCount = 0;
    std::vector<FileContent<RawDataFile>> LevelFiles;  // of each level
    // The dates of the first and the last standard as the raw data files of the levels have them.
    InitialCalibrationEntry FromLevelFiles;

    FileContent<CheckReport> Check;
    ContinuingCalibrationEntry FromCheckStandard;  // lab file ID and date of its raw data file

    // The entries as the forms print them, after the dialogs have taken over from each other.
    InitialCalibrationEntry Initial;
    ContinuingCalibrationEntry Continuing;
    StandardSummaryEntry Summary;

    std::optional<Form2Content> Recoveries;
    std::optional<Form6Content> InitialCalibration;
    std::optional<Form7Content> ContinuingCalibration;
    std::optional<Form8Content> InternalStandards;

    // The first sample with a header value, and which value that is.
    std::unordered_map<std::string_view, std::pair<std::size_t, HeaderField>> HeaderTexts;

    const std::string& Header(std::size_t record, HeaderField field) const {
        return Samples[record].Header[field];
    }
    // 1 when the first of Samples is the lab blank, else 0.
    std::size_t Blanks() const { return Samples.empty() ? 0 : LabBlankRecords(Batch); }
    // Date and time of a sample's analysis; absent without a date.
    std::optional<DateTime> Analyzed(std::size_t record) const;
    // That of the continuing calibration standard.
    std::optional<DateTime> StandardAnalyzed() const;

  private:
    void ReadSample(const ReviewInput& input);
    void ReadCalibration(const ReviewInput& input);
    void ReadCheck(const ReviewInput& input);
    void BuildRecoveries(const ReviewInput& input);
    void BuildCalibrations(const ReviewInput& input);
    void BuildStandards(const ReviewInput& input);

    std::size_t partsRead_ = 0;  // besides the samples
};

// Takes what a rule finds. What it says of several samples in the same words becomes one finding.
class Findings {
  public:
    explicit Findings(const Rule& rule) : rule_(rule) {}

    void AddSample(std::size_t record, const std::string& sentence, const MendPlace& mend,
                   const std::string& subject = "") {
        Add(record, subject, sentence, mend, rule_.Form);
    }
    void AddBatch(const std::string& sentence, const MendPlace& mend,
                  const std::string& subject = "") {
        Add(std::nullopt, subject, sentence, mend, rule_.Form);
    }
    void Add(std::optional<std::size_t> record, const std::string& subject,
             const std::string& words, const MendPlace& mend, std::string_view form);

    std::vector<Finding> Take();

  private:
    using Words = std::tuple<std::string_view, std::string, std::string, std::string>;
    const Rule& rule_;
    std::vector<Finding> found_;
    std::map<Words, std::size_t> places_;  // of those in found_
};

// ---- Where findings are mended

MendPlace HeaderPlace(HeaderField field);
MendPlace TicPlace(int row = 0);  // from 1
// The entry with that control; `item` counts from 0 in a list or grid.
MendPlace EntryPlace(EntryDialog dialog, std::string_view control, std::size_t item = 0);
MendPlace SampleFilesPlace();
MendPlace LabBlankPlace();
MendPlace CalibrationFilePlace();
MendPlace CheckFilePlace();

// ---- Small helpers

std::string Quoted(std::string_view text);
// The date and time in the text; absent where it has no date.
std::optional<DateTime> DateTimeIn(std::string_view text);
// Whether both are the same to the minute, which is all that forms and reports state.
bool IsSameMinute(std::optional<DateTime> one, std::optional<DateTime> other);

using RuleFunction = void(const Reviewed& batch, Findings& findings);

RuleFunction EmptyValues, NotReceived, Placeholders, CarriedOver, OtherThanReport, UnlistedChoices,
    ForeignUnits, MoistureOfMatrix, VolumesOfMatrix, ValuesWithoutNumber, UnreadableDates,
    OtherPackage, OtherInstrument, SampleTwice, BlankAsSample;

RuleFunction ReceivedAfterAnalyzed, HoldingTime, BeforeTune, LateAfterTune, BeforeBlank,
    LateAfterBlank, BeforeStandard, LateAfterStandard, CalibrationAfterSamples, StandardsOrder,
    CalibrationDates, StandardDates, StandardFileIds, StandardSampleNos, LetterCase;

RuleFunction IonRanges, LimitOf173, BasePeak, IonsOfOtherBase;

RuleFunction LargeRsd, FewLevels, UnusedLevels, RfsWithoutNumber, RoundedRsd, RsdOfSample,
    LevelHeads, LevelFilesMissing, LevelFileIds, CheckHead, CheckMeanRfs, CheckPercentD,
    CheckAboveMaximum, CheckBelowMinimum, CheckWithoutCriteria, CheckOrder;

RuleFunction ReportsMissing, ReportsChanged, RecoveryOutside, RecoveryWithoutNumber,
    RecoveryWithoutRange, RecoveryOrder, StandardOutside, StandardMissing, StandardWithoutNumber,
    AboveCalibration, BlankFlagWithoutHit, BlankHitWithoutFlag, RowOrder, IncompleteTics, NoTics,
    RepeatedTics;

using FormRuleFunction = void(const Reviewed& batch, const RecordedForm& form, Findings& findings);

FormRuleFunction Prints, Refused, PrintsWithMessage, PageCounts, WideValues, TextOverLine,
    TextOffPage;

}  // namespace qfr
