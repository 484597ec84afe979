#include "data/CheckReport.h"

#include "data/CalibrationReport.h"
#include "data/RawDataFile.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kTableHead = "n;comp";

CheckRow ReadCheckRow(const std::string& line, bool& textsCut) {
    std::string_view rest = line;
    CheckRow row;
    TakeField(rest);
    row.Name = LowerCase(Trim(TakeField(rest)));
    row.MeanRF = TakeField(rest);
    TakeField(rest);
    row.Amount = TakeField(rest);
    TakeField(rest);
    TakeField(rest);
    row.RF = TakeField(rest);
    row.PercentD = TakeField(rest);
    for (std::string* text : {&row.Name, &row.MeanRF, &row.Amount, &row.RF, &row.PercentD}) {
        textsCut |= CutText(*text);
    }
    return row;
}

// The rows begin on the second line below the head.
struct TableSection {
    CheckReport& report;
    enum { kSearching, kRuler, kRows } state = kSearching;

    void Take(const std::string& line) {
        if (state == kRows) {
            if (report.Rows.size() < kMaxCompounds) {
                report.Rows.push_back(ReadCheckRow(Trim(line), report.TextsCut));
            }
        } else if (state == kRuler) {
            state = kRows;
        } else if (BeginsWith(Trim(line), kTableHead)) {
            report.HasTable = true;
            state = kRuler;
        }
    }
};

}  // namespace

CheckReport CheckReport::Read(LineReader file) {
    constexpr int kDataFileLine = 6;
    CheckReport report;
    FrameReader frame(ReportKind::kCheck, report.Frame);
    TableSection table{report};
    StandardLines standards(2);
    for (int number = 1; auto line = file.Next(); ++number) {
        frame.Take(*line);
        line->resize(FirstCharacters(*line, kMaxTextLine).size());
        if (number == kDataFileLine) {
            report.StandardFile = Trim(line->substr(line->find(':') + 1));
        }
        table.Take(*line);
        if (const auto standard = standards.Take(*line)) {
            PeakData& peak = report.InternalStandards[*standard];
            peak = {WholeCounts(GetField(*line, 10)), GetField(*line, 11)};
            report.TextsCut |= CutText(peak.Area);
            report.TextsCut |= CutText(peak.RetentionTime);
        }
    }
    return report;
}

}  // namespace qfr
