#include "data/CriteriaFile.h"

#include <string_view>

#include "platform/Text.h"

namespace qfr {

CriteriaFile CriteriaFile::Read(LineReader file) {
    CriteriaFile criteria{BeginsWith(file.NextOrEmpty(), "rf criteria"), {}, false};
    while (const auto line = file.Next()) {
        if (Trim(*line).empty()) {
            continue;
        }
        std::string_view rest = *line;
        RFCriterion& criterion = criteria.Criteria.emplace_back();
        criterion.Name = LowerCase(Trim(TakeField(rest)));
        criterion.MinimumRF = Trim(TakeField(rest));
        criterion.MaximumPercentD = Trim(rest);
        criteria.TextsCut |= CutText(criterion.MinimumRF);
        criteria.TextsCut |= CutText(criterion.MaximumPercentD);
    }
    return criteria;
}

}  // namespace qfr
