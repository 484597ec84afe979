#include "forms/Form6Content.h"

#include <utility>

#include "platform/DateTime.h"

namespace qfr {

std::optional<Form6Content> BuildForm6Content(const SampleHeader& header,
                                              const CalibrationReport& report, int levelCount,
                                              const InitialCalibrationEntry& entry,
                                              Messages& messages) {
    auto table = BuildRFTable(report, levelCount, messages);
    if (!table) {
        return std::nullopt;
    }
    Form6Content content;
    content.Header = PrintedHeader(header);
    content.FirstDate = PrintedPart(entry.FirstStandard, 1, 10);
    content.FirstTime = PrintedPart(entry.FirstStandard, 12, 27);
    content.LastDate = PrintedPart(entry.LastStandard, 1, 10);
    content.LastTime = PrintedPart(entry.LastStandard, 12, 27);
    for (const std::string& amount : ChooseLevelAmounts(*table, levelCount)) {
        const std::string& labFileId = entry.LabFileIds[content.Levels.size()];
        content.Levels.push_back({PrintableDate(labFileId), amount});
    }
    content.Compounds = *std::move(table);
    return content;
}

}  // namespace qfr
