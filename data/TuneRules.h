// The BFB tune: its nine ions with their acceptance ranges, and what its entry dialog shows.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "data/Batch.h"
#include "data/Entries.h"
#include "platform/DateTime.h"

namespace qfr {

inline constexpr std::string_view kTuneBase = "95";  // m/e that most ions are a percentage of

struct TuneIon {
    std::string_view Mass;              // m/e
    std::string_view DialogCriterion;   // as the dialog words it
    std::string_view PrintedCriterion;  // where the form words it otherwise, else empty
    double Low;                         // percent; both ends are inside
    double High;                        // percent
    std::string_view Base = kTuneBase;  // m/e that it is a percentage of

    std::string_view FormCriterion() const {
        return PrintedCriterion.empty() ? DialogCriterion : PrintedCriterion;
    }
    bool Accepts(double abundance) const { return Low <= abundance && abundance <= High; }
};

inline constexpr double kUnlimited = std::numeric_limits<double>::infinity();

// On purpose: 2.0 passes for mass 173 although its criterion says less than that.
inline constexpr std::array<TuneIon, TuneEntry::kIons> kTuneIons = {{
    {"50", "15.0 - 40.0% of mass 95", "", 15.0, 40.0},
    {"75", "30.0 - 80.0% of mass 95", "", 30.0, 80.0},
    {"95", "Base peak, 100% relative abundance", "", -kUnlimited, kUnlimited},
    {"96", "5.0 - 9.0% of mass 95", "", 5.0, 9.0},
    {"173", "Less than 2.0% of mass 174", "", -kUnlimited, 2.0, "174"},
    {"174", "50.0 - 120.0% of mass 95", "50.0 - 120% of mass 95", 50.0, 120.0},
    {"175", "5.0 - 9.0% of mass 174", "", 5.0, 9.0, "174"},
    {"176", "95.0 - 101.0% of mass 174", "95 - 101% of mass 174", 95.0, 101.0, "174"},
    {"177", "5.0 - 9.0% of mass 176", "", 5.0, 9.0, "176"},
}};

using TuneAbundances = decltype(TuneEntry::Abundances);

// Index of the ion in kTuneIons; their number for a mass that is none of them.
std::size_t TuneIonOf(std::string_view mass);

// The base peak that is not 100, or an ion at the very limit that its criterion excludes: the form
// flags neither.
bool IsAgainstCriterionUnflagged(std::size_t ion, double abundance);

// Percent of its own base, of an ion that is outside its range as typed and would be inside had it
// been typed relative to mass 95. Absent for any other.
std::optional<double> PercentOfOwnBase(const TuneAbundances& typed, std::size_t ion);

// Whether the ion is in range, for who types it.
struct TuneVerdict {
    std::string Text;      // a few words; the range stands beside it
    std::string Sentence;  // the same with the range and what may be wrong
    bool Flagged = false;  // the form marks it
};
TuneVerdict VerdictOf(const TuneAbundances& typed, std::size_t ion);

// Whenever the dialog is shown, the instrument is that of the form's header.
inline void ShowTune(TuneEntry& entry, const SampleHeader& header) {
    entry.InstrumentId = header[HeaderField::kInstrumentId];
}

// Date and time of the injection; absent when they are none.
inline std::optional<DateTime> InjectionDateTime(const TuneEntry& entry) {
    return ParseDateTime(entry.InjectionDate + " " + entry.InjectionTime);
}

}  // namespace qfr
