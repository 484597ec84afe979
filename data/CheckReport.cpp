#include "data/CheckReport.h"

#include <string>

#include "data/RawDataFile.h"
#include "platform/Text.h"

namespace qfr {

void ReadCheckStandardInfo(LineReader& report, std::string_view folder,
                           ContinuingCalibrationEntry& entry) {
    constexpr int kDataFileLine = 6;
    report.Rewind();
    std::string line;
    for (int number = 1; number <= kDataFileLine; ++number) {
        line = ReadTextLine(report);
    }
    const std::size_t mark = line.find(':');
    const std::string path = Trim(mark == std::string::npos ? line : line.substr(mark + 1));
    const auto data = ReadRawDataFile(path, folder);
    if (!data) {
        return;
    }
    if (data->Acquired) {
        entry.AnalysisDateTime = FormatDateTime(*data->Acquired);
    }
    entry.LabFileId = data->LabFileId;
}

bool FindCheckTable(LineReader& report) {
    report.Rewind();
    while (!report.AtEnd()) {
        if (BeginsWith(Trim(ReadTextLine(report)), "n;comp")) {
            return true;
        }
    }
    return false;
}

std::vector<CalibrationRecord> ReadCheckTable(LineReader& report,
                                              const std::vector<CalibrationRecord>& rfTable) {
    std::vector<CalibrationRecord> table;
    FindCheckTable(report);
    ReadTextLine(report);
    for (const CalibrationRecord& compound : rfTable) {
        const std::string line = Trim(ReadTextLine(report));
        std::string_view rest = line;
        CalibrationRecord record;
        TakeField(rest);
        record.Name = LowerCase(Trim(TakeField(rest)));
        record.Type = compound.Type;
        record.RF[kCheckMeanRF] = TakeField(rest);
        TakeField(rest);
        record.Amount[kCheckAmount] = TakeField(rest);
        TakeField(rest);
        TakeField(rest);
        record.RF[kCheckRF] = TakeField(rest);
        record.Amount[kCheckPercentD] = TakeField(rest);
        table.push_back(std::move(record));
    }
    return table;
}

}  // namespace qfr
