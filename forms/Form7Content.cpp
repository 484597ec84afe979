#include "forms/Form7Content.h"

#include <string_view>
#include <unordered_map>

#include "platform/DateTime.h"
#include "platform/Numbers.h"

namespace qfr {

namespace {

using CriteriaByName = std::unordered_map<std::string_view, const RFCriterion*>;

Form7Content::Compound CompoundOf(const CheckRow& row, const CriteriaByName& criteria) {
    Form7Content::Compound compound{
        row.Name, RoundToWhole(row.MeanRF), RoundToWhole(row.RF), row.PercentD, "", ""};
    if (const auto limits = criteria.find(row.Name); limits != criteria.end()) {
        compound.MinimumRF = limits->second->MinimumRF;
        compound.MaximumPercentD = limits->second->MaximumPercentD;
    }
    return compound;
}

}  // namespace

Form7Content BuildForm7Content(const SampleHeader& header,
                               const std::vector<CalibrationRecord>& rfTable,
                               const CheckReport& check, const std::vector<RFCriterion>& criteria,
                               const ContinuingCalibrationEntry& entry) {
    CriteriaByName byName;
    for (const RFCriterion& criterion : criteria) {
        byName.emplace(criterion.Name, &criterion);  // the first of a name counts
    }
    Form7Content content;
    content.Header = PrintedHeader(header);
    content.SampleNo = PrintableDate(entry.SampleNo);
    content.LabFileId = PrintableDate(entry.LabFileId);
    content.CalibrationDate = PrintedPart(entry.AnalysisDateTime, 1, 10);
    content.CalibrationTime = PrintedPart(entry.AnalysisDateTime, 12, 16);
    content.FirstDate = PrintedPart(entry.FirstStandard, 1, 10);
    content.FirstTime = PrintedPart(entry.FirstStandard, 12, 16);
    content.LastDate = PrintedPart(entry.LastStandard, 1, 10);
    content.LastTime = PrintedPart(entry.LastStandard, 12, 16);
    std::vector<AmountVote> votes;
    const std::vector<CheckRow> rows = ReadCheckTable(check, rfTable);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        votes.push_back({rows[i].Amount, rfTable[i].Type});
        content.Compounds.push_back(CompoundOf(rows[i], byName));
    }
    content.Amount = ChooseAmount(votes);
    return content;
}

}  // namespace qfr
