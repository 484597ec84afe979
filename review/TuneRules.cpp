// The BFB tune: its ions by their ranges, and whether they are relative to the right mass.
#include "data/TuneRules.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/Numbers.h"
#include "platform/Text.h"
#include "review/Rules.h"

namespace qfr {

namespace {

std::size_t IonOf(std::string_view mass) {
    return static_cast<std::size_t>(std::ranges::find(kTuneIons, mass, &TuneIon::Mass) -
                                    std::begin(kTuneIons));
}

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

// An ion that is stated as a percentage of another one than mass 95.
struct IonOfBase {
    std::string_view Mass;
    std::string_view Base;
};
constexpr IonOfBase kIonsOfBase[] = {
    {"173", "174"}, {"175", "174"}, {"176", "174"}, {"177", "176"}};

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
    const std::size_t ion = IonOf("173");
    if (Abundance(batch, ion) == kTuneIons[ion].High) {
        findings.AddBatch(MassIs(batch, ion) + " and is not flagged, but its criterion says: " +
                              std::string(kTuneIons[ion].FormCriterion()) + ".",
                          IonPlace(ion));
    }
}

void BasePeak(const Reviewed& batch, Findings& findings) {
    const std::size_t ion = IonOf("95");
    if (const auto abundance = Abundance(batch, ion); abundance && *abundance != 100) {
        findings.AddBatch(MassIs(batch, ion) + ", and the base peak is 100.", IonPlace(ion));
    }
}

// In range by itself, such an ion may have been meant either way.
void IonsOfOtherBase(const Reviewed& batch, Findings& findings) {
    for (const auto& [mass, base] : kIonsOfBase) {
        const std::size_t ion = IonOf(mass);
        const auto typed = Abundance(batch, ion);
        const auto ofBase = Abundance(batch, IonOf(base));
        if (!typed || !ofBase || *ofBase <= 0 || kTuneIons[ion].Accepts(*typed)) {
            continue;
        }
        const double percent = 100 * *typed / *ofBase;
        if (kTuneIons[ion].Accepts(percent)) {
            findings.AddBatch(MassIs(batch, ion) + ", which is " + FormatFixed(percent, 1) +
                                  "% of m/e " + std::string(base) + " at " +
                                  Trim(batch.Saved.Tune.Abundances[IonOf(base)]) +
                                  ": typed relative to m/e 95?",
                              IonPlace(ion));
        }
    }
}

}  // namespace qfr
