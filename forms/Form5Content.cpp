#include "forms/Form5Content.h"

#include <optional>

#include "data/TuneRules.h"
#include "forms/SampleChecks.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

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
    for (const SampleRecord& record : samples) {
        const SampleHeader& sample = record.Header;
        const std::string analyzed = PrintableDate(sample[HeaderField::kDateAnalyzed]);
        content.Samples.push_back(
            {sample[HeaderField::kZovSampleNo], sample[HeaderField::kLabSampleId],
             sample[HeaderField::kLabFileId], CharacterRange(analyzed, 1, 10),
             CharacterRange(analyzed, 12, 27), TwelveHourFlag(analyzed, injection)});
    }
    return content;
}

std::array<std::string, TuneEntry::kIons> FlagTuneValues(const TuneEntry& tune) {
    std::array<std::string, TuneEntry::kIons> values;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::optional<double> abundance = ParseNumber(tune.Abundances[i]);
        const bool outside = abundance && !kTuneIons[i].Accepts(*abundance);
        values[i] = tune.Abundances[i] + (outside ? "  *" : "    ");
    }
    return values;
}

}  // namespace qfr
