#include "data/CalibrationReport.h"

#include "data/RawDataFile.h"
#include "platform/Text.h"

namespace qfr {

namespace {

// Each section takes what it needs from the report's lines, which go by once.

// The line below "Data File(s)": paths, each followed by ";".
struct DataFileSection {
    CalibrationReport& report;
    enum { kSearching, kList, kDone } state = kSearching;

    void Take(const std::string& line) {
        if (state == kSearching && BeginsWith(Trim(line), "data file(s)")) {
            state = kList;
        } else if (state == kList) {
            for (std::string list = Trim(line); !list.empty();) {
                std::string_view rest = list;
                report.DataFiles.emplace_back(TakeField(rest));
                list = Trim(rest);
            }
            state = kDone;
        }
    }
};

// Takes the first line of a compound's block apart: name; six fields for each level; use mask; one
// field more.
CompoundBlock ParseBlock(std::string_view line, char type) {
    CompoundBlock block;
    block.Name = LowerCase(Trim(TakeField(line)));
    block.Type = type;
    const auto takeLast = [&line] {
        const std::size_t mark = line.rfind(';');
        const std::string last(line.substr(mark == std::string_view::npos ? 0 : mark + 1));
        line = line.substr(0, mark == std::string_view::npos ? 0 : mark);
        return last;
    };
    takeLast();
    const std::string mask = Trim(takeLast());
    for (std::size_t level = 0; level < kMaxLevels; ++level) {
        block.Amount[level] = TakeField(line);
        TakeField(line);
        TakeField(line);
        const std::string rf(TakeField(line));
        block.RF[level] = level < mask.size() && mask[level] == '1' ? rf : "";
        TakeField(line);
        TakeField(line);
    }
    return block;
}

bool CutTexts(CompoundBlock& block) {
    bool cut = CutText(block.Name);
    for (std::size_t level = 0; level < kMaxLevels; ++level) {
        cut |= CutText(block.Amount[level]);
        cut |= CutText(block.RF[level]);
    }
    return cut;
}

// Behind the second blank line of the report.
struct BlockSection {
    CalibrationReport& report;
    int blankLines = 0;
    int lineOfBlock = 0;
    // A sound report ends with the blocks of its internal standards, the first of which ends the
    // table.
    enum { kCompounds, kStandards, kOver } state = kCompounds;
    std::string firstLine = {};
    bool hasText = false;  // the lines of this block

    void Take(const std::string& line) {
        if (blankLines < 2) {
            blankLines += Trim(line).empty() ? 1 : 0;
            return;
        }
        hasText = hasText || !IsBlank(line);
        ++lineOfBlock;
        if (lineOfBlock == 1) {
            firstLine = line;
        } else if (lineOfBlock == 3) {
            EndBlock(line.empty() ? ' ' : line.front());
            lineOfBlock = 0;
            hasText = false;
        }
    }

    void EndBlock(char type) {
        if (state == kCompounds) {
            if (type == 'A' || type == 'S') {
                report.TooManyBlocks = report.Blocks.size() == kMaxCompounds;
                if (report.TooManyBlocks) {
                    state = kOver;
                    return;
                }
                report.Blocks.push_back(ParseBlock(firstLine, type));
                report.TextsCut |= CutTexts(report.Blocks.back());
            } else {
                state = type == 'I' ? kStandards : kOver;
            }
        } else if (hasText && (state == kOver || type != 'I')) {
            report.HasTextBehind = true;
        }
    }

    void EndReport() {
        const bool cutShort = state == kCompounds && Contains(firstLine, ";");
        if (lineOfBlock > 0 && hasText && (state != kCompounds || cutShort)) {
            report.HasTextBehind = true;
        }
    }
};

}  // namespace

CalibrationReport CalibrationReport::Read(LineReader file) {
    constexpr int kAreaField = 7;  // of the first level, from 1
    constexpr int kFieldsOfLevel = 6;
    CalibrationReport report;
    FrameReader frame(ReportKind::kCalibration, report.Frame);
    DataFileSection dataFiles{report};
    BlockSection blocks{report};
    StandardLines standards(1);
    while (auto line = file.Next()) {
        frame.Take(*line);
        line->resize(FirstCharacters(*line, kMaxTextLine).size());
        dataFiles.Take(*line);
        blocks.Take(*line);
        if (const auto standard = standards.Take(*line)) {
            int field = kAreaField;
            for (std::string& area : report.StandardAreas[*standard]) {
                area = WholeCounts(GetField(*line, field));
                report.TextsCut |= CutText(area);
                field += kFieldsOfLevel;
            }
        }
    }
    blocks.EndReport();
    return report;
}

}  // namespace qfr
