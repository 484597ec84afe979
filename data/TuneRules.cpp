#include "data/TuneRules.h"

#include "data/EntryChecks.h"
#include "platform/Numbers.h"

namespace qfr {

namespace {

struct TuneBox {
    std::string_view control;
    std::string TuneEntry::*value;
    std::optional<EntryFault> (*check)(std::string_view text, std::string_view control);
};

constexpr TuneBox kTuneBoxes[] = {
    {"SampleEdit", &TuneEntry::SampleNo, RequireValue},
    {"InstrEdit", &TuneEntry::InstrumentId, RequireValue},
    {"MaskEdit1", &TuneEntry::InjectionDate, RequireDateTime},
    {"FileEdit", &TuneEntry::LabFileId, RequireValue},
    {"MaskEdit2", &TuneEntry::InjectionTime, RequireDateTime},
};

}  // namespace

void ShowTune(TuneEntry& entry, const SampleHeader& header) {
    entry.InstrumentId = header[HeaderField::kInstrumentId];
}

std::optional<EntryFault> CheckTuneBox(const TuneEntry& entry, std::string_view control) {
    for (const TuneBox& box : kTuneBoxes) {
        if (box.control == control) {
            return box.check(entry.*box.value, control);
        }
    }
    return std::nullopt;
}

std::optional<EntryFault> CheckTune(const TuneEntry& entry) {
    for (const TuneBox& box : kTuneBoxes) {
        if (auto fault = box.check(entry.*box.value, box.control)) {
            return fault;
        }
    }
    for (int row = 1; row <= TuneEntry::kIons; ++row) {
        if (!ParseNumber(entry.Abundances[static_cast<std::size_t>(row - 1)])) {
            return EntryFault{
                {"Entry must be a valid real number.", "Incorrect Entry"}, "StringGrid1", row};
        }
    }
    return std::nullopt;
}

std::optional<DateTime> InjectionDateTime(const TuneEntry& entry) {
    return ParseDateTime(entry.InjectionDate + " " + entry.InjectionTime);
}

}  // namespace qfr
