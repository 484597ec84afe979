#include "data/CriteriaFile.h"

#include <string_view>

#include "platform/Text.h"

namespace qfr {

namespace {

std::vector<RFCriterion> ReadCriteriaTable(LineReader& file) {
    std::vector<RFCriterion> criteria;
    while (const auto line = file.Next()) {
        if (Trim(*line).empty()) {
            continue;
        }
        std::string_view rest = *line;
        RFCriterion criterion;
        criterion.Name = LowerCase(Trim(TakeField(rest)));
        criterion.MinimumRF = Trim(TakeField(rest));
        criterion.MaximumPercentD = Trim(rest);
        criteria.push_back(std::move(criterion));
    }
    return criteria;
}

}  // namespace

CriteriaFile CriteriaFile::Read(LineReader file) {
    const bool hasTitle = BeginsWith(file.NextOrEmpty(), "rf criteria");
    return {hasTitle, ReadCriteriaTable(file)};
}

}  // namespace qfr
