#include "data/TuneRules.h"

#include <algorithm>

#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kBasePeak = 100;  // percent

}  // namespace

std::size_t TuneIonOf(std::string_view mass) {
    return static_cast<std::size_t>(std::ranges::find(kTuneIons, mass, &TuneIon::Mass) -
                                    kTuneIons.begin());
}

bool IsAgainstCriterionUnflagged(std::size_t ion, double abundance) {
    const TuneIon& known = kTuneIons.at(ion);
    return known.Mass == kTuneBase ? abundance != kBasePeak
                                   : known.Low == -kUnlimited && abundance == known.High;
}

std::optional<double> PercentOfOwnBase(const TuneAbundances& typed, std::size_t ion) {
    const TuneIon& known = kTuneIons.at(ion);
    if (known.Base == kTuneBase) {
        return std::nullopt;
    }
    const auto abundance = ParseNumber(typed.at(ion));
    const auto base = ParseNumber(typed.at(TuneIonOf(known.Base)));
    if (!abundance || !base || *base <= 0 || known.Accepts(*abundance)) {
        return std::nullopt;
    }
    const double percent = 100 * *abundance / *base;
    return known.Accepts(percent) ? std::optional(percent) : std::nullopt;
}

TuneVerdict VerdictOf(const TuneAbundances& typed, std::size_t ion) {
    const TuneIon& known = kTuneIons.at(ion);
    const std::string criterion(known.DialogCriterion);
    const auto abundance = ParseNumber(typed.at(ion));
    if (!abundance) {
        const std::string text = Trim(typed.at(ion)).empty() ? "" : "Not a number";
        return {text, text};
    }
    if (!known.Accepts(*abundance)) {
        const auto percent = PercentOfOwnBase(typed, ion);
        return {"Out of range",
                "Out of range: " + criterion +
                    (percent ? ". It is " + FormatFixed(*percent, 1) + "% of mass " +
                                   std::string(known.Base) + ": typed relative to mass 95?"
                             : ""),
                true};
    }
    if (!IsAgainstCriterionUnflagged(ion, *abundance)) {
        return {"In range", "In range: " + criterion};
    }
    return known.Mass == kTuneBase
               ? TuneVerdict{"Not 100%",
                             "The base peak is 100% by definition. Form V prints any other value "
                             "without a flag."}
               : TuneVerdict{"At the limit", "The criterion is \"" + criterion +
                                                 "\", and this is the limit itself. Form V prints "
                                                 "it without a flag."};
}

}  // namespace qfr
