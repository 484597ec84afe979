// The BFB tune: its nine ions with their acceptance ranges, and what its entry dialog shows.
#pragma once

#include <array>
#include <limits>
#include <optional>
#include <string_view>

#include "data/Batch.h"
#include "data/Entries.h"
#include "platform/DateTime.h"

namespace qfr {

struct TuneIon {
    std::string_view Mass;              // m/e
    std::string_view DialogCriterion;   // as the dialog words it
    std::string_view PrintedCriterion;  // where the form words it otherwise, else empty
    double Low;                         // percent; both ends are inside
    double High;                        // percent

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
    {"173", "Less than 2.0% of mass 174", "", -kUnlimited, 2.0},
    {"174", "50.0 - 120.0% of mass 95", "50.0 - 120% of mass 95", 50.0, 120.0},
    {"175", "5.0 - 9.0% of mass 174", "", 5.0, 9.0},
    {"176", "95.0 - 101.0% of mass 174", "95 - 101% of mass 174", 95.0, 101.0},
    {"177", "5.0 - 9.0% of mass 176", "", 5.0, 9.0},
}};

// Whenever the dialog is shown, the instrument is that of the form's header.
inline void ShowTune(TuneEntry& entry, const SampleHeader& header) {
    entry.InstrumentId = header[HeaderField::kInstrumentId];
}

// Date and time of the injection; absent when they are none.
inline std::optional<DateTime> InjectionDateTime(const TuneEntry& entry) {
    return ParseDateTime(entry.InjectionDate + " " + entry.InjectionTime);
}

}  // namespace qfr
