// The BFB tune: its ions by their ranges, and whether they are relative to the right mass.
#include "data/TuneRules.h"

#include <string>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

MendPlace IonPlace(std::size_t ion) {
    return EntryPlace(EntryDialog::kTune, "StringGrid1", ion);
}

std::string MassIs(const Reviewed& batch, std::size_t ion) {
    return "m/e " + std::string(kTuneIons[ion].Mass) + " is " +
           Trim(batch.Saved.Tune.Abundances[ion]);
}

std::optional<double> Abundance(const Reviewed& batch, std::size_t ion) {
    return ParseNumber(batch.Saved.Tune.Abundances[ion]);
}

}  // namespace

void IonRanges(const Reviewed& batch, Findings& findings) {
    for (std::size_t ion = 0; ion < kTuneIons.size(); ++ion) {
        const auto abundance = Abundance(batch, ion);
        if (abundance && !kTuneIons[ion].Accepts(*abundance)) {
            findings.AddBatch(MassIs(batch, ion) + ", outside " +
                                  std::string(kTuneIons[ion].FormCriterion()) + ".",
                              IonPlace(ion));
        }
    }
}

void LimitOf173(const Reviewed& batch, Findings& findings) {
    const std::size_t ion = TuneIonOf("173");
    if (const auto abundance = Abundance(batch, ion);
        abundance && IsAgainstCriterionUnflagged(ion, *abundance)) {
        findings.AddBatch(MassIs(batch, ion) + " and is not flagged, but its criterion says: " +
                              std::string(kTuneIons[ion].FormCriterion()) + ".",
                          IonPlace(ion));
    }
}

void BasePeak(const Reviewed& batch, Findings& findings) {
    const std::size_t ion = TuneIonOf(kTuneBase);
    if (const auto abundance = Abundance(batch, ion);
        abundance && IsAgainstCriterionUnflagged(ion, *abundance)) {
        findings.AddBatch(MassIs(batch, ion) + ", and the base peak is 100.", IonPlace(ion));
    }
}

// In range by itself, such an ion may have been meant either way.
void IonsOfOtherBase(const Reviewed& batch, Findings& findings) {
    const TuneAbundances& typed = batch.Saved.Tune.Abundances;
    for (std::size_t ion = 0; ion < kTuneIons.size(); ++ion) {
        const std::string base(kTuneIons[ion].Base);
        if (const auto percent = PercentOfOwnBase(typed, ion)) {
            findings.AddBatch(MassIs(batch, ion) + ", which is " + FormatFixed(*percent, 1) +
                                  "% of m/e " + base + " at " + Trim(typed[TuneIonOf(base)]) +
                                  ": typed relative to m/e 95?",
                              IonPlace(ion));
        }
    }
}

}  // namespace qfr
