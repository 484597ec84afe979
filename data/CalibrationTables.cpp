#include "data/CalibrationTables.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "platform/DateTime.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr char kCalibrationFileError[] = "Calibration File Error";

// The standards' dates as they are collected from their raw data files.
struct DateRange {
    DateTime first;
    DateTime last;

    void Widen(DateTime date, bool ofFirstFile) {
        if (ofFirstFile) {
            first = last = date;
        } else if (date < first) {
            first = date;
        } else if (date > last) {
            last = date;
        }
    }
};

// Mean and %RSD of the levels that are used. False, after a message, when one is no number.
bool AddStatistics(CalibrationRecord& record, Messages& messages) {
    int n = 0;
    double sum = 0;
    double sumOfSquares = 0;
    for (const std::string& rf : record.RF) {
        if (Trim(rf).empty()) {
            continue;
        }
        const auto x = ParseNumber(rf);
        if (!x) {
            messages.Show(
                {"The response factor \"" + rf + "\" of\n" + record.Name + "\nis not a number.",
                 kCalibrationFileError});
            return false;
        }
        ++n;
        sum += *x;
        sumOfSquares += *x * *x;
    }
    if (n == 0) {
        return true;
    }
    const double mean = sum / n;
    record.MeanRF = RoundToWhole(FormatGeneral(mean));
    // On purpose: rounded response factors, unrounded mean, and the deviation of a population.
    const double variance = (n * sumOfSquares - sum * sum) / (static_cast<double>(n) * n);
    // Without a mean, or beyond what a number can hold, there is no relative deviation.
    if (mean != 0 && std::isfinite(variance)) {
        record.RSD = FormatFixed(100 * std::sqrt(std::max(variance, 0.0)) / mean, 2);
    }
    return true;
}

CalibrationRecord RecordOf(const CompoundBlock& block, int levelCount) {
    CalibrationRecord record{block, "", ""};
    for (std::size_t level = 0; level < kMaxLevels; ++level) {
        const bool printed = level < static_cast<std::size_t>(levelCount);
        record.RF[level] = printed ? RoundToWhole(block.RF[level]) : "";
        record.Amount[level] = printed ? block.Amount[level] : "";
    }
    return record;
}

// Lab file IDs and dates follow the files that are there, also past what the user has entered.
void TellOfChanges(const std::vector<std::string>& missing, const InitialCalibrationEntry& entered,
                   const InitialCalibrationEntry& now, Messages& messages) {
    std::vector<std::string> levels;
    for (std::size_t i = 0; i < now.LabFileIds.size(); ++i) {
        if (now.LabFileIds[i] != entered.LabFileIds[i]) {
            levels.push_back(std::to_string(i + 1));
        }
    }
    std::vector<std::string> changes;
    if (!levels.empty()) {
        changes.push_back(
            (levels.size() > 1 ? "the lab file IDs of levels " : "the lab file ID of level ") +
            Enumerated(levels));
    }
    if (ParseDateTime(now.FirstStandard) != ParseDateTime(entered.FirstStandard)) {
        changes.emplace_back("the date of the first standard");
    }
    if (ParseDateTime(now.LastStandard) != ParseDateTime(entered.LastStandard)) {
        changes.emplace_back("the date of the last standard");
    }
    if (!changes.empty()) {
        messages.Show({"Calibration raw data not found: " + Enumerated(missing) +
                           ".\nThis has changed on Form VI: " + Enumerated(changes) + ".",
                       "Warning"});
    }
}

}  // namespace

int ReadCalibrationDataFiles(const FileContent<CalibrationReport>& report, Reports& reports,
                             bool initCalEntered, InitialCalibrationEntry& entry,
                             Messages& messages) {
    std::vector<std::string> files = report->DataFiles;
    if (files.size() > kMaxLevels) {
        messages.Show(
            {"The calibration file lists more than 10 levels.\n"
             "Only 10 levels can be printed.",
             "Warning"});
        files.resize(kMaxLevels);
    }
    DateRange dates;
    const InitialCalibrationEntry entered = entry;
    std::size_t found = 0;
    std::vector<std::string> missing;
    for (const std::string& file : files) {
        const auto data = reports.Read<RawDataFile>(file, report.Folder);
        if (!data) {
            if (missing.empty() && !initCalEntered) {
                messages.Show(
                    {"At least one calibration raw data file was not found.\n"
                     "Please complete and check all entries in next form.",
                     "Warning"});
            }
            missing.push_back(FileNameOnly(file));
            continue;
        }
        // On purpose: IDs go to the levels in the order of the files that are there.
        const std::size_t slot = found++;
        if (!data->HasTitle()) {
            continue;
        }
        if (const auto acquired = data->Acquired()) {
            dates.Widen(*acquired, slot == 0);
        }
        entry.LabFileIds[slot] = data->LabFileId();
    }
    if (!missing.empty() && !initCalEntered) {
        entry = InitialCalibrationEntry{};
        return static_cast<int>(files.size());
    }
    if (dates.first.HasDate()) {
        entry.FirstStandard = FormatDateTime(dates.first);
    }
    if (dates.last.HasDate() && dates.last != dates.first) {
        entry.LastStandard = FormatDateTime(dates.last);
    }
    if (!missing.empty()) {
        TellOfChanges(missing, entered, entry, messages);
    }
    return static_cast<int>(files.size());
}

std::optional<std::vector<CalibrationRecord>> BuildRFTable(const CalibrationReport& report,
                                                           int levelCount, Messages& messages) {
    std::vector<CalibrationRecord> table;
    table.reserve(report.Blocks.size());
    for (const CompoundBlock& block : report.Blocks) {
        table.push_back(RecordOf(block, levelCount));
        if (!AddStatistics(table.back(), messages)) {
            return std::nullopt;
        }
    }
    return table;
}

void TellOfDamage(const CalibrationReport& report, std::string_view name, Messages& messages) {
    if (report.Blocks.empty() || report.HasTextBehind) {
        messages.Show(
            {FileNameOnly(name) +
                 (report.Blocks.empty() ? " has no compound blocks."
                                        : " has text behind its compounds that is not read.") +
                 "\nIt may be damaged. Recreate the calibration file.",
             kCalibrationFileError});
    }
}

std::string ChooseAmount(std::span<const AmountVote> votes) {
    std::unordered_map<std::string_view, std::size_t> analytesWith;
    for (const AmountVote& vote : votes) {
        analytesWith[vote.Amount] += vote.Type == 'A' ? 1 : 0;
    }
    std::string amount = votes.empty() ? "" : Trim(votes.front().Amount);
    // On purpose: one count of agreements for all candidates, never taken back.
    std::size_t agreements = 0;
    for (const AmountVote& vote : votes) {
        if (vote.Type != 'A') {
            continue;
        }
        amount = Trim(vote.Amount);
        if (const auto same = analytesWith.find(amount); same != analytesWith.end()) {
            const bool countsItself = vote.Amount == amount;
            agreements += same->second - (countsItself ? 1 : 0);
        }
        if (agreements > votes.size() / 2) {
            break;
        }
    }
    // On purpose: no look for a decimal point, so that "100" heads its column as "1".
    while (amount.ends_with('0')) {
        amount.pop_back();
    }
    if (amount.ends_with('.')) {
        amount.pop_back();
    }
    return amount;
}

std::string ChooseLevelAmount(const std::vector<CalibrationRecord>& table, std::size_t level) {
    std::vector<AmountVote> votes;
    for (const CalibrationRecord& record : table) {
        votes.push_back({record.Amount[level], record.Type});
    }
    return ChooseAmount(votes);
}

std::vector<std::string> ChooseLevelAmounts(const std::vector<CalibrationRecord>& table,
                                            int levelCount) {
    std::vector<std::string> amounts;
    for (int level = 0; level < levelCount; ++level) {
        amounts.push_back(ChooseLevelAmount(table, static_cast<std::size_t>(level)));
    }
    return amounts;
}

void ReadCheckStandardInfo(const FileContent<CheckReport>& report, Reports& reports,
                           ContinuingCalibrationEntry& entry) {
    const auto data = reports.Read<RawDataFile>(report->StandardFile, report.Folder);
    if (!data || !data->HasTitle()) {
        return;
    }
    if (const auto acquired = data->Acquired()) {
        entry.AnalysisDateTime = FormatDateTime(*acquired);
    }
    entry.LabFileId = data->LabFileId();
}

std::vector<CheckRow> ReadCheckTable(const CheckReport& report,
                                     const std::vector<CalibrationRecord>& rfTable) {
    std::vector<CheckRow> rows = report.Rows;
    rows.resize(rfTable.size());
    return rows;
}

void TellOfOtherRows(const CheckReport& report, const std::vector<CalibrationRecord>& rfTable,
                     std::string_view name, Messages& messages) {
    if (!report.HasTable) {
        return;
    }
    std::size_t rows = report.Rows.size();
    while (rows > 0 && report.Rows[rows - 1].Name.empty()) {
        --rows;
    }
    std::string differences;
    if (rows < rfTable.size()) {
        differences = "\nRows: " + std::to_string(rows) + " for " + std::to_string(rfTable.size()) +
                      " compounds.";
    }
    for (std::size_t i = 0; i < std::min(rows, rfTable.size()); ++i) {
        if (report.Rows[i].Name != rfTable[i].Name) {
            differences += "\nRow " + std::to_string(i + 1) + ": " + report.Rows[i].Name +
                           " instead of " + rfTable[i].Name + ".";
            break;
        }
    }
    if (!differences.empty()) {
        messages.Show(
            {FileNameOnly(name) + " does not list the compounds of the calibration report" +
                 " in their order." + differences + "\nRecreate the check calibration file.",
             kCheckFileError});
    }
}

}  // namespace qfr
