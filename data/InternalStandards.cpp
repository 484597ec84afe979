#include "data/InternalStandards.h"

#include <utility>

#include "data/OpenedFile.h"
#include "data/RawDataFile.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::size_t kStandards = InternalStandardNames.size();

// Areas are reported with decimals that nobody counts.
std::string WholeCounts(const std::string& area) {
    return area.substr(0, area.find('.'));
}

// For each internal standard the first line whose `nameField` is its name, empty without one.
std::array<std::string, kStandards> FindStandardLines(LineReader& report, int nameField) {
    std::array<std::string, kStandards> lines;
    report.Rewind();
    while (!report.AtEnd()) {
        const std::string line = ReadTextLine(report);
        const std::string name = LowerCase(GetField(line, nameField));
        for (std::size_t i = 0; i < kStandards; ++i) {
            if (lines[i].empty() && name == InternalStandardNames[i]) {
                lines[i] = line;
            }
        }
    }
    return lines;
}

void SetLimits(StandardISTable& table) {
    for (StandardISRecord& record : table) {
        record.AreaUpper = ScaleText(record.Area, 2.0, 0);
        record.AreaLower = ScaleText(record.Area, 0.5, 0);
        record.RTUpper = ShiftText(record.RT, 0.5, 2);
        record.RTLower = ShiftText(record.RT, -0.5, 2);
    }
}

}  // namespace

SampleISData ReadISBlock(LineReader& report) {
    SampleISData data;
    report.Rewind();
    while (!report.AtEnd()) {
        const std::string heading = CharacterRange(ReadTextLine(report), 11, 42);
        if (LowerCase(Trim(heading)) == "internal standard data") {
            break;
        }
    }
    ReadTextLine(report);
    while (!report.AtEnd()) {
        const std::string line = ReadTextLine(report);
        for (std::size_t i = 0; i < kStandards; ++i) {
            if (BeginsWith(line, InternalStandardNames[i])) {
                data.Area[i] = WholeCounts(GetField(line, 2));
                data.RT[i] = GetField(line, 3);
            }
        }
    }
    return data;
}

std::optional<std::vector<SampleISData>> ReadSampleISData(const Batch& batch, Messages& messages) {
    std::vector<SampleISData> samples;
    bool complete = true;
    FileFinder finder;
    for (const SampleRecord& record : *batch.SampleList) {
        auto report = OpenFileBeside(record.FileName, batch.Folder, finder);
        if (report) {
            samples.push_back(ReadISBlock(report->Lines));
        } else {
            complete = false;
            messages.Show(ReportNotFound(record.FileName));
        }
    }
    return complete ? std::optional(std::move(samples)) : std::nullopt;
}

StandardISTable StandardFromCheckReport(LineReader& report) {
    const auto lines = FindStandardLines(report, 2);
    StandardISTable table;
    for (std::size_t i = 0; i < kStandards; ++i) {
        table[i].Area = WholeCounts(GetField(lines[i], 10));
        table[i].RT = GetField(lines[i], 11);
    }
    SetLimits(table);
    return table;
}

std::optional<StandardISTable> StandardFromCalibration(
    LineReader& report, const CalibrationTables& tables, std::string_view concentration,
    const std::array<std::string, kStandards>& retentionTimes, Messages& messages,
    int chosenLevel) {
    const auto matches = [&](int level) {
        return !concentration.empty() && level >= 0 && level < tables.LevelCount &&
               tables.LevelAmount[static_cast<std::size_t>(level)] == concentration;
    };
    int level = matches(chosenLevel) ? chosenLevel : 0;
    while (level < tables.LevelCount && !matches(level)) {
        ++level;
    }
    if (level == tables.LevelCount) {
        messages.Show({"A " + std::string(concentration) +
                           " ug/L concentration was not found. Return to\nForm 8 entry to enter "
                           "the appropriate concentration.",
                       "Concentration Not Found"});
        return std::nullopt;
    }
    const auto lines = FindStandardLines(report, 1);
    StandardISTable table;
    for (std::size_t i = 0; i < kStandards; ++i) {
        const std::string& typed = retentionTimes[i];
        table[i].Area = WholeCounts(GetField(lines[i], (level + 1) * 6 + 1));
        table[i].RT = ParseNumber(typed) ? ShiftText(typed, 0, 2) : Trim(typed);
    }
    SetLimits(table);
    return table;
}

std::string ScaleText(std::string_view text, double factor, int decimals) {
    const auto number = ParseNumber(text);
    return number ? FormatFixed(*number * factor, decimals) : "";
}

std::string ShiftText(std::string_view text, double offset, int decimals) {
    const auto number = ParseNumber(text);
    return number ? FormatFixed(*number + offset, decimals) : "";
}

bool OutsideLimits(std::string_view value, std::string_view lower, std::string_view upper) {
    const auto x = ParseNumber(value);
    const auto low = ParseNumber(lower);
    const auto high = ParseNumber(upper);
    return x && low && high && (*x > *high || *x < *low);
}

}  // namespace qfr
