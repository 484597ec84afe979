#include "forms/Form5Content.h"

#include <optional>

#include "data/TuneRules.h"
#include "platform/Numbers.h"

namespace qfr {

Form5Content BuildForm5Content(const SampleListType& samples, std::size_t headerRecord,
                               const TuneEntry& tune, DateTime injection) {
    Form5Content content;
    content.Header = PrintedHeader(samples[headerRecord].Header);
    content.SampleNo = tune.SampleNo;
    content.LabFileId = PrintableDate(tune.LabFileId);
    content.InjectionDate = PrintableDate(tune.InjectionDate);
    content.InjectionTime = PrintableDate(tune.InjectionTime);
    content.Abundances = FlagTuneValues(tune);
    content.Samples = ListSamples(samples, 0, injection);
    return content;
}

Form5Content::AbundanceList FlagTuneValues(const TuneEntry& tune) {
    Form5Content::AbundanceList values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::optional<double> abundance = ParseNumber(tune.Abundances[i]);
        const bool outside = abundance && !kTuneIons[i].Accepts(*abundance);
        values[i] = {tune.Abundances[i], outside ? "*" : ""};
    }
    return values;
}

}  // namespace qfr
