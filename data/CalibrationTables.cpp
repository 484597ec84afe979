#include "data/CalibrationTables.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "data/RawDataFile.h"
#include "platform/DateTime.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

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
                 "Calibration File Error"});
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

// Takes the first line of a compound's block apart: name; six fields for each level; use mask; one
// field more.
CalibrationRecord ParseCompound(std::string_view line, int levelCount) {
    CalibrationRecord record;
    record.Name = LowerCase(Trim(TakeField(line)));
    const auto takeLast = [&line] {
        const std::size_t mark = line.rfind(';');
        const std::string last(line.substr(mark == std::string_view::npos ? 0 : mark + 1));
        line = line.substr(0, mark == std::string_view::npos ? 0 : mark);
        return last;
    };
    takeLast();
    const std::string mask = Trim(takeLast());
    for (std::size_t level = 0; level < static_cast<std::size_t>(levelCount); ++level) {
        record.Amount[level] = TakeField(line);
        TakeField(line);
        TakeField(line);
        const std::string rf = TakeField(line);
        if (level < mask.size() && mask[level] == '1') {
            record.RF[level] = RoundToWhole(rf);
        }
        TakeField(line);
        TakeField(line);
    }
    return record;
}

}  // namespace

std::vector<std::string> ReadDataFileList(LineReader& report) {
    report.Rewind();
    while (!report.AtEnd() && !BeginsWith(Trim(ReadTextLine(report)), "data file(s)")) {
    }
    std::vector<std::string> files;
    std::string list = Trim(ReadTextLine(report));
    while (!list.empty()) {
        std::string_view rest = list;
        files.push_back(TakeField(rest));
        list = Trim(rest);
    }
    return files;
}

int ReadCalibrationDataFiles(LineReader& report, std::string_view folder, bool initCalEntered,
                             InitialCalibrationEntry& entry, Messages& messages) {
    std::vector<std::string> files = ReadDataFileList(report);
    if (files.size() > kMaxLevels) {
        messages.Show(
            {"The calibration file lists more than 10 levels.\n"
             "Only 10 levels can be printed.",
             "Warning"});
        files.resize(kMaxLevels);
    }
    DateRange dates;
    std::size_t found = 0;
    bool missing = false;
    for (const std::string& file : files) {
        const auto data = ReadRawDataFile(file, folder);
        if (!data) {
            if (!missing && !initCalEntered) {
                messages.Show(
                    {"At least one calibration raw data file was not found.\n"
                     "Please complete and check all entries in next form.",
                     "Warning"});
            }
            missing = true;
            continue;
        }
        // On purpose: IDs go to the levels in the order of the files that are there.
        const std::size_t slot = found++;
        if (!data->HasTitle()) {
            continue;
        }
        if (data->Acquired) {
            dates.Widen(*data->Acquired, slot == 0);
        }
        entry.LabFileIds[slot] = data->LabFileId;
    }
    if (missing && !initCalEntered) {
        entry = InitialCalibrationEntry{};
        return static_cast<int>(files.size());
    }
    if (dates.first.HasDate()) {
        entry.FirstStandard = FormatDateTime(dates.first);
    }
    if (dates.last.HasDate() && dates.last != dates.first) {
        entry.LastStandard = FormatDateTime(dates.last);
    }
    return static_cast<int>(files.size());
}

void SkipCalibrationHeader(LineReader& report) {
    report.Rewind();
    for (int blankLines = 0; blankLines < 2 && !report.AtEnd();) {
        blankLines += Trim(ReadTextLine(report)).empty() ? 1 : 0;
    }
}

std::optional<std::vector<CalibrationRecord>> BuildRFTable(LineReader& report, int levelCount,
                                                           Messages& messages) {
    std::vector<CalibrationRecord> table;
    SkipCalibrationHeader(report);
    while (true) {
        const std::string line = ReadTextLine(report);
        ReadTextLine(report);
        const std::string kind = ReadTextLine(report);
        if (!kind.starts_with('A') && !kind.starts_with('S')) {
            return table;
        }
        CalibrationRecord record = ParseCompound(line, levelCount);
        record.Type = kind.front();
        if (!AddStatistics(record, messages)) {
            return std::nullopt;
        }
        table.push_back(std::move(record));
    }
}

std::string ChooseLevelAmount(const std::vector<CalibrationRecord>& table, std::size_t level) {
    std::unordered_map<std::string_view, std::size_t> analytesWith;
    for (const CalibrationRecord& record : table) {
        analytesWith[record.Amount[level]] += record.Type == 'A' ? 1 : 0;
    }
    std::string amount = table.empty() ? "" : Trim(table.front().Amount[level]);
    // On purpose: one count of agreements for all candidates, never taken back.
    std::size_t agreements = 0;
    for (const CalibrationRecord& record : table) {
        if (record.Type != 'A') {
            continue;
        }
        amount = Trim(record.Amount[level]);
        if (const auto same = analytesWith.find(amount); same != analytesWith.end()) {
            const bool countsItself = record.Amount[level] == amount;
            agreements += same->second - (countsItself ? 1 : 0);
        }
        if (agreements > table.size() / 2) {
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

void ChooseLevelAmounts(CalibrationTables& tables) {
    for (std::size_t level = 0; level < tables.LevelAmount.size(); ++level) {
        tables.LevelAmount[level] = level < static_cast<std::size_t>(tables.LevelCount)
                                        ? ChooseLevelAmount(tables.RFTable, level)
                                        : "";
    }
}

}  // namespace qfr
