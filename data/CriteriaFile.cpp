#include "data/CriteriaFile.h"

#include "platform/Text.h"

namespace qfr {

bool IsCriteriaTitle(std::string_view firstLine) {
    return BeginsWith(firstLine, "rf criteria");
}

std::vector<RFCriterion> ReadCriteriaTable(LineReader& file) {
    std::vector<RFCriterion> criteria;
    file.Rewind();
    file.Next();
    for (auto line = file.Next(); line; line = file.Next()) {
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

}  // namespace qfr
