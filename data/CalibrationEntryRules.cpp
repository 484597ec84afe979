#include "data/CalibrationEntryRules.h"

#include <algorithm>
#include <utility>

#include "data/CalibrationTables.h"
#include "data/EntryTables.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

// The buffer of the calibration dialog's Browse (characters a line).
constexpr std::size_t kBrowseLine = 99;

void TakeWhenFilled(std::string& entry, const std::string& source) {
    if (!IsUnfilled(source)) {
        entry = source;
    }
}

// The raw data file that the user chose; absent after a message.
FileContent<RawDataFile> ReadChosenFile(const std::string& fileName,
                                        bool (*hasTitle)(const RawDataFile&), Messages& messages) {
    auto data = Reports().Read<RawDataFile>(fileName, "");
    if (!data) {
        messages.Show(CouldNotBeRead(fileName));
        return {};
    }
    if (!hasTitle(*data)) {
        messages.Show({"Selected file\n" + FileNameOnly(fileName) + "not a DATA FILE.", "Message"});
        return {};
    }
    if (!data->Whole) {
        messages.Show(
            {"End of file:\n" + FileNameOnly(fileName) + "reached before expected", "Message"});
        return {};
    }
    return data;
}

template <typename StandardEntry>
std::optional<EntryFault> TakeStandardFile(StandardEntry& entry, const std::string& fileName,
                                           Messages& messages) {
    const auto anyCase = [](const RawDataFile& data) { return data.HasTitle(); };
    if (const auto data = ReadChosenFile(fileName, anyCase, messages)) {
        if (const auto acquired = data->Acquired()) {
            entry.AnalysisDateTime = FormatDateTime(*acquired);
        }
        entry.LabFileId = data->LabFileId();
    }
    return std::nullopt;
}

// The concentration that a standard's sample number names; absent when it is not of the form
// VSTD***##. The letters themselves are the laboratory's own.
std::optional<double> ConcentrationOf(std::string_view sampleNo) {
    const std::string digits = CharacterRange(Trim(sampleNo), 5, 7);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (digits.size() != 3 || !isDigit(digits[0]) || !(isDigit(digits[1]) || digits[1] == '.') ||
        !isDigit(digits[2])) {
        return std::nullopt;
    }
    return ParseNumber(digits);
}

// The raw data file of the standard: the continuing calibration report names its own, otherwise it
// is that of the chosen level. Empty when it cannot be found.
FileContent<RawDataFile> StandardFile(const StandardSummaryEntry& entry, const Batch& batch,
                                      Reports& reports) {
    if (CheckReportNamed(batch)) {
        const auto report = reports.Read<CheckReport>(Trim(batch.Files.CheckCal), batch.Folder);
        return report ? reports.Read<RawDataFile>(report->StandardFile, report.Folder)
                      : FileContent<RawDataFile>();
    }
    const auto level = static_cast<std::size_t>(entry.LevelIndex);
    const auto report = reports.Read<CalibrationReport>(Trim(batch.Files.Calib), batch.Folder);
    return report && level < report->DataFiles.size()
               ? reports.Read<RawDataFile>(report->DataFiles[level], report.Folder)
               : FileContent<RawDataFile>();
}

// Lab file ID and date from the standard's raw data file.
void TakeStandardData(StandardSummaryEntry& entry, const Batch& batch, Reports& reports,
                      Messages& messages) {
    // Form VII has taken them from the continuing calibration report's file before.
    const bool onlyEmpty = CheckReportNamed(batch);
    const bool takeId = !onlyEmpty || IsUnfilled(entry.LabFileId);
    const bool takeDate = !onlyEmpty || IsUnfilled(entry.AnalysisDateTime);
    if (!takeId && !takeDate) {
        return;
    }
    const FileContent<RawDataFile> data = StandardFile(entry, batch, reports);
    if (!data || !data->HasTitle()) {
        messages.Show(
            {"The appropriate raw data file could not be found.\n"
             "Please enter and check all data entries.",
             "Warning"});
        return;
    }
    if (takeId) {
        entry.LabFileId = data->LabFileId();
    }
    if (const auto acquired = data->Acquired(); takeDate && acquired) {
        entry.AnalysisDateTime = FormatDateTime(*acquired);
    }
}

// The date of the first source that is filled.
void TakeDate(std::string& entry, const std::string& source, const std::string& otherwise) {
    TakeWhenFilled(entry, CharacterRange(IsUnfilled(source) ? otherwise : source, 1, 10));
}

}  // namespace

void ShowInitialCalibration(Entries& entries) {
    TakeWhenFilled(entries.InitialCalibration.FirstStandard,
                   entries.ContinuingCalibration.FirstStandard);
    TakeWhenFilled(entries.InitialCalibration.LastStandard,
                   entries.ContinuingCalibration.LastStandard);
}

std::optional<EntryFault> BrowseLevelFile(Entries& entries, std::size_t level,
                                          const std::string& fileName, Messages& messages) {
    InitialCalibrationEntry& entry = entries.InitialCalibration;
    entry.LabFileIds.at(level) = FileNameOnly(fileName);
    const auto capitals = [](const RawDataFile& data) {
        return data.Title.starts_with("DATA FILE");
    };
    const auto data = ReadChosenFile(fileName, capitals, messages);
    if (!data) {
        return std::nullopt;
    }
    if (const auto acquired = data->Acquired(kBrowseLine)) {
        const auto first = ParseDateTime(entry.FirstStandard);
        const auto last = ParseDateTime(entry.LastStandard);
        entry.FirstStandard = FormatDateTime(first ? std::min(*first, *acquired) : *acquired);
        entry.LastStandard = FormatDateTime(last ? std::max(*last, *acquired) : *acquired);
    }
    entry.LabFileIds.at(level) = data->LabFileId(kBrowseLine);
    return std::nullopt;
}

std::optional<EntryFault> AcceptInitialCalibration(Entries& entries, int levelCount,
                                                   BatchFlags& flags) {
    const InitialCalibrationEntry& entry = entries.InitialCalibration;
    if (auto fault = CheckEntries(TableOf(EntryDialog::kInitialCalibration), entries,
                                  {.LevelCount = levelCount})) {
        return fault;
    }
    flags.InitCalEntered = true;
    entries.ContinuingCalibration.FirstStandard = entry.FirstStandard;
    entries.ContinuingCalibration.LastStandard = entry.LastStandard;
    entries.StandardSummary.FirstCalibrationDate = CharacterRange(entry.FirstStandard, 1, 10);
    entries.StandardSummary.LastCalibrationDate = CharacterRange(entry.LastStandard, 1, 10);
    return std::nullopt;
}

void ShowContinuingCalibration(Entries& entries, const Batch& batch, std::size_t headerRecord,
                               Reports& reports, Messages& messages) {
    const std::string name = Trim(batch.Files.CheckCal);
    if (!name.empty()) {
        const auto report = reports.Read<CheckReport>(name, batch.Folder);
        if (!report || !report->HasTable) {
            messages.Show(
                {"The check calibration file could not be read.\n"
                 "Recreate the check calibration file.",
                 kCheckFileError});
        }
    }
    ContinuingCalibrationEntry& entry = entries.ContinuingCalibration;
    // On purpose: what comes from the other form arrives in lower case.
    TakeWhenFilled(entry.SampleNo, LowerCase(entries.StandardSummary.SampleNo));
    TakeWhenFilled(entry.LabFileId, LowerCase(entries.StandardSummary.LabFileId));
    TakeWhenFilled(entry.FirstStandard, entries.InitialCalibration.FirstStandard);
    TakeWhenFilled(entry.LastStandard, entries.InitialCalibration.LastStandard);
    if (const auto samples = SamplesOf(batch);
        IsUnfilled(entry.InstrumentId) && headerRecord < samples.size()) {
        entry.InstrumentId = samples[headerRecord].Header[HeaderField::kInstrumentId];
    }
}

std::optional<EntryFault> BrowseCriteriaFile(Entries& entries, std::size_t /*item*/,
                                             const std::string& fileName, Messages& messages) {
    std::string& entry = entries.ContinuingCalibration.CriteriaFile;
    const auto file = Reports().Read<CriteriaFile>(fileName, "");
    if (!file) {
        messages.Show(CouldNotBeRead(fileName));
    } else if (file->HasTitle) {
        entry = LowerCase(fileName);
    } else {
        entry.clear();
        messages.Show(NotACriteriaFile(fileName));
    }
    return std::nullopt;
}

Message NotACriteriaFile(std::string_view fileName) {
    return {FileNameOnly(fileName) + " is not a RF criteria file.\nPlease select another file.",
            kIncorrectFileTypeTitle};
}

std::optional<EntryFault> BrowseContinuingStandard(Entries& entries, std::size_t /*item*/,
                                                   const std::string& fileName,
                                                   Messages& messages) {
    return TakeStandardFile(entries.ContinuingCalibration, fileName, messages);
}

std::optional<EntryFault> AcceptContinuingCalibration(const Entries& entries, const Batch& batch,
                                                      Reports& reports, BatchFlags& flags) {
    if (auto fault = CheckEntries(TableOf(EntryDialog::kContinuingCalibration), entries)) {
        return fault;
    }
    const std::string name = Trim(entries.ContinuingCalibration.CriteriaFile);
    if (const auto file = reports.Read<CriteriaFile>(name, batch.Folder); file && !file->HasTitle) {
        return EntryFault{NotACriteriaFile(name), "LimitEdit"};
    }
    flags.ContCalEntered = true;
    return std::nullopt;
}

bool ShowStandardSummary(Entries& entries, const Batch& batch, Reports& reports, int levelCount,
                         Messages& messages) {
    StandardSummaryEntry& entry = entries.StandardSummary;
    const ContinuingCalibrationEntry& continuing = entries.ContinuingCalibration;
    const InitialCalibrationEntry& initial = entries.InitialCalibration;
    const std::string before = LowerCase(Trim(entry.SampleNo));
    TakeWhenFilled(entry.SampleNo, continuing.SampleNo);
    TakeWhenFilled(entry.LabFileId, continuing.LabFileId);
    TakeWhenFilled(entry.AnalysisDateTime, continuing.AnalysisDateTime);
    TakeDate(entry.FirstCalibrationDate, initial.FirstStandard, continuing.FirstStandard);
    TakeDate(entry.LastCalibrationDate, initial.LastStandard, continuing.LastStandard);

    entry.Levels.clear();
    const auto report = reports.Read<CalibrationReport>(Trim(batch.Files.Calib), batch.Folder);
    if (report) {
        const auto table = BuildRFTable(*report, levelCount, messages);
        if (!table) {
            return false;
        }
        entry.Levels = ChooseLevelAmounts(*table, levelCount);
        if (entry.LevelIndex >= levelCount) {
            entry.LevelIndex = -1;
        }
    }
    // What was entered for this number, and perhaps saved, prints as it was.
    const bool filled = !IsUnfilled(entry.LabFileId) && !IsUnfilled(entry.AnalysisDateTime) &&
                        (!report || entry.LevelIndex >= 0);
    if (filled && LowerCase(Trim(entry.SampleNo)) == before) {
        entry.AnsweredSampleNo = before;
    }
    return true;
}

std::optional<Message> CheckStandardSampleNo(const std::string& sampleNo) {
    if (Trim(sampleNo).empty() || ConcentrationOf(sampleNo)) {
        return std::nullopt;
    }
    return Message{
        "The sample ID format appears to be incorrect.\n\n"
        "The format should be VSTD***## where:\n"
        "  *** represents the standard concentration and\n"
        "  ## is one or two unique characters.\n"
        "(See 'Statement of Work for Organics Analysis'\n"
        "Page B-40)",
        "Warning"};
}

std::optional<EntryFault> LeaveStandardSampleNo(Entries& entries, const Batch& batch,
                                                Reports& reports, Messages& messages) {
    StandardSummaryEntry& entry = entries.StandardSummary;
    if (auto wrong = CheckStandardSampleNo(entry.SampleNo)) {
        return EntryFault{*std::move(wrong), "SampleEdit"};
    }
    const auto concentration = ConcentrationOf(entry.SampleNo);
    if (!concentration) {
        return std::nullopt;
    }
    const auto level = std::ranges::find_if(entry.Levels, [&](const std::string& amount) {
        return ParseNumber(amount) == concentration;
    });
    const bool found = level != entry.Levels.end();
    const Message notFound{"A calibration concentration of " + FormatShortest(*concentration) +
                               " was not found.\nPlease re-enter the sample ID with a calibration "
                               "concentration.",
                           "Warning"};
    // Without a calibration report there is no number that would be found.
    if (!found && !entry.Levels.empty()) {
        return EntryFault{notFound, "SampleEdit"};
    }
    // What the user has corrected since stays.
    const std::string number = LowerCase(Trim(entry.SampleNo));
    if (std::exchange(entry.AnsweredSampleNo, number) == number) {
        return std::nullopt;
    }
    if (found) {
        entry.LevelIndex = static_cast<int>(level - entry.Levels.begin());
    } else {
        messages.Show(notFound);
    }
    TakeStandardData(entry, batch, reports, messages);
    return std::nullopt;
}

std::optional<Message> CheckRetentionTime(const std::string& text) {
    if (ParseNumber(text)) {
        return std::nullopt;
    }
    return Message{"Please enter the retention time in minutes, as 8.84.",
                   "Incorrect Number Format"};
}

std::optional<EntryFault> BrowseSummaryStandard(Entries& entries, std::size_t /*item*/,
                                                const std::string& fileName, Messages& messages) {
    return TakeStandardFile(entries.StandardSummary, fileName, messages);
}

std::optional<EntryFault> AcceptStandardSummary(Entries& entries, const Batch& batch,
                                                Reports& reports, Messages& messages) {
    // Comes first: the number brings some of the other entries along.
    if (auto fault = LeaveStandardSampleNo(entries, batch, reports, messages)) {
        return fault;
    }
    return CheckEntries(TableOf(EntryDialog::kStandardSummary), entries,
                        {.CheckReport = CheckReportNamed(batch)});
}

std::string ConcentrationText(const StandardSummaryEntry& entry) {
    const auto level = static_cast<std::size_t>(entry.LevelIndex);
    return level < entry.Levels.size() ? entry.Levels[level] : "";
}

}  // namespace qfr
