#include "data/MonitoringRecoveries.h"

#include <optional>

#include "data/OpenedFile.h"
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
    FileFinder finder;
    for (std::size_t i = 0; batch.SampleList && i < batch.SampleList->size(); ++i) {
        const SampleRecord& sample = (*batch.SampleList)[i];
        auto report = OpenFileBeside(sample.FileName, batch.Folder, finder);
        if (!report) {
            continue;
        }
        if (!FindSection(report->Lines)) {
            messages.Show({"Did not find keyword, volatile", ""});
            break;
        }
        MonitoringRecoveries record;
        record.SampleNo = sample.Header[HeaderField::kZovSampleNo];
        ReadSection(report->Lines, i == 0, record);
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
