#include "data/MonitoringRecoveries.h"

#include <optional>

#include "platform/FileLookup.h"
#include "platform/LineReader.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kSection = "volatile";

bool FindSection(LineReader& report) {
    while (const std::optional<std::string> line = report.Next()) {
        if (BeginsWith(*line, kSection)) {
            return true;
        }
    }
    return false;
}

void ReadSection(LineReader& report, bool withNames, MonitoringRecoveries& record) {
    report.NextOrEmpty();
    for (std::string line = report.NextOrEmpty();
         !Trim(line).empty() && record.Recoveries.size() < kMaxMonitoringCompounds;
         line = report.NextOrEmpty()) {
        if (!Contains(line, ";")) {
            continue;
        }
        std::string_view rest = line;
        TakeField(rest);
        const std::string name = TakeField(rest);
        if (withNames) {
            record.Names.push_back(LowerCase(Trim(name)));
        }
        record.Recoveries.push_back(RoundToWhole(Trim(TakeField(rest))));
    }
}

}  // namespace

std::vector<MonitoringRecoveries> LoadMonitoringRecoveries(const Batch& batch, Messages& messages) {
    std::vector<MonitoringRecoveries> records;
    for (std::size_t i = 0; batch.SampleList && i < batch.SampleList->size(); ++i) {
        const SampleRecord& sample = (*batch.SampleList)[i];
        std::optional<LineReader> report;
        if (const auto path = FindFileBeside(sample.FileName, batch.Folder)) {
            report = LineReader::Open(*path);
        }
        if (!report) {
            continue;
        }
        if (!FindSection(*report)) {
            messages.Show({"Did not find keyword, volatile", ""});
            break;
        }
        MonitoringRecoveries record;
        record.SampleNo = sample.Header[HeaderField::kZovSampleNo];
        ReadSection(*report, i == 0, record);
        records.push_back(std::move(record));
    }
    return records;
}

std::string_view RecoveryFlag(std::string_view compound, std::string_view recovery,
                              const std::vector<RecoveryRange>& ranges) {
    const RecoveryRange* range = FindRange(ranges, compound);
    const std::optional<double> value = ParseNumber(recovery);
    if (range == nullptr || !value) {
        return "";
    }
    return *value < range->Low || *value > range->High ? "*" : "";
}

}  // namespace qfr
