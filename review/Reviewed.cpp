#include <algorithm>
#include <array>
#include <utility>

#include "data/CalibrationEntryRules.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

// What the forms say is in the recorded forms already.
class Unheard : public Messages {
  public:
    void Show(const Message&) override {}
    bool AskYesNo(const Message&) override { return false; }
};

// The record whose header the forms of the batch print.
std::optional<std::size_t> FirstCompleteRecord(std::span<const SampleRecord> samples) {
    const auto complete = std::ranges::find_if(
        samples, [](const SampleRecord& sample) { return !FirstEmptyField(sample.Header); });
    return complete == samples.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(complete - samples.begin()));
}

}  // namespace

Reviewed::Reviewed(const ReviewInput& input)
    : Batch(input.Batch),
      Samples(SamplesOf(input.Batch)),
      Limits(input.Limits),
      Saved(input.Entries) {}

bool Reviewed::ReadNext(const ReviewInput& input) {
    constexpr std::array kParts = {&Reviewed::ReadCalibration, &Reviewed::ReadCheck,
                                   &Reviewed::BuildRecoveries, &Reviewed::BuildCalibrations,
                                   &Reviewed::BuildStandards};
    if (Quant.size() < Samples.size()) {
        ReadSample(input);
        return true;
    }
    if (partsRead_ == kParts.size()) {
        return false;
    }
    (this->*kParts[partsRead_++])(input);
    return true;
}

void Reviewed::ReadSample(const ReviewInput& input) {
    Unheard messages;
    const std::size_t record = Quant.size();
    Quant.push_back(input.Reports.Read<QuantReport>(Samples[record].FileName, Batch.Folder));
    DataSheets.push_back(BuildForm1VoaContent(Batch, record, input.Reports, messages));
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        const HeaderField field = HeaderFieldAt(number);
        HeaderTexts.try_emplace(Header(record, field), record, field);
    }
}

void Reviewed::ReadCalibration(const ReviewInput& input) {
    Unheard messages;
    const std::string name = Trim(Batch.Files.Calib);
    Entries entries = Saved;
    if (!name.empty()) {
        Calibration = input.Reports.Read<CalibrationReport>(name, Batch.Folder);
    }
    if (Calibration) {
        ReadCalibrationDataFiles(Calibration, input.Reports, false, FromLevelFiles, messages);
        LevelCount =
            ReadCalibrationDataFiles(Calibration, input.Reports, input.Flags.InitCalEntered,
                                     entries.InitialCalibration, messages);
        for (std::size_t level = 0; level < static_cast<std::size_t>(LevelCount); ++level) {
            LevelFiles.push_back(
                input.Reports.Read<RawDataFile>(Calibration->DataFiles[level], Calibration.Folder));
        }
    }
    ShowInitialCalibration(entries);
    Initial = entries.InitialCalibration;
}

void Reviewed::ReadCheck(const ReviewInput& input) {
    Unheard messages;
    const std::string name = Trim(Batch.Files.CheckCal);
    Entries entries = Saved;
    if (!name.empty()) {
        Check = input.Reports.Read<CheckReport>(name, Batch.Folder);
    }
    if (Check) {
        ReadCheckStandardInfo(Check, input.Reports, FromCheckStandard);
        ReadCheckStandardInfo(Check, input.Reports, entries.ContinuingCalibration);
    }
    ShowContinuingCalibration(entries, Batch, FirstCompleteRecord(Samples).value_or(Samples.size()),
                              input.Reports, messages);
    Continuing = entries.ContinuingCalibration;

    entries = Saved;
    entries.InitialCalibration = Initial;
    if (ShowStandardSummary(entries, Batch, input.Reports, LevelCount, messages)) {
        Summary = entries.StandardSummary;
    }
}

void Reviewed::BuildRecoveries(const ReviewInput& input) {
    Unheard messages;
    if (const auto record = FirstCompleteRecord(Samples)) {
        Recoveries = BuildForm2Content(Batch, *record, Saved.Ranges, input.Reports, messages);
    }
}

void Reviewed::BuildCalibrations(const ReviewInput& input) {
    Unheard messages;
    const std::optional<std::size_t> record = FirstCompleteRecord(Samples);
    if (!record) {
        return;
    }
    const SampleHeader& header = Samples[*record].Header;
    if (Calibration) {
        InitialCalibration = BuildForm6Content(header, *Calibration, LevelCount, Initial, messages);
    }
    const auto criteria =
        input.Reports.Read<CriteriaFile>(Trim(Continuing.CriteriaFile), Batch.Folder);
    if (Check && criteria && InitialCalibration) {
        ContinuingCalibration = BuildForm7Content(header, InitialCalibration->Compounds, *Check,
                                                  criteria->Criteria, Continuing);
    }
}

void Reviewed::BuildStandards(const ReviewInput& input) {
    Unheard messages;
    const std::optional<std::size_t> record = FirstCompleteRecord(Samples);
    if (record && (Check || Calibration)) {
        InternalStandards = BuildForm8Content(Batch, *record, Check ? &*Check : nullptr,
                                              Calibration ? &*Calibration : nullptr, LevelCount,
                                              Summary, input.Reports, messages);
    }
}

std::optional<DateTime> Reviewed::Analyzed(std::size_t record) const {
    return DateTimeIn(Header(record, HeaderField::kDateAnalyzed));
}

std::optional<DateTime> Reviewed::StandardAnalyzed() const {
    const auto analyzed = DateTimeIn(Continuing.AnalysisDateTime);
    return analyzed ? analyzed : DateTimeIn(Summary.AnalysisDateTime);
}

}  // namespace qfr
