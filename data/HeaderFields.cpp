#include "data/HeaderFields.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "platform/DateTime.h"
#include "platform/Text.h"

namespace qfr {

namespace {

using enum HeaderKind;

// By number.
constexpr HeaderEntry kEntries[] = {
    {"ZOV Sample No.", "sampleNo", "ZOVComboBox"},
    {"Lab Sample ID", "labSampleId", "LabComboBox"},
    {.Label = "Lab Name",
     .ExportName = "labName",
     .Control = "Edit1",
     .IsPlaceholder = true,
     .FirstText = "Lab"},
    {.Label = "Contract",
     .ExportName = "contract",
     .Control = "Edit2",
     .IsPlaceholder = true,
     .FirstText = "Contract#"},
    {.Label = "Lab Code",
     .ExportName = "labCode",
     .Control = "Edit4",
     .IsPlaceholder = true,
     .FirstText = "XXX"},
    {.Label = "Case No.",
     .ExportName = "caseNo",
     .Control = "Edit5",
     .IsPlaceholder = true,
     .FirstText = "case001"},
    {.Label = "Mod. Ref No.",
     .ExportName = "modRefNo",
     .Control = "Edit6",
     .IsPlaceholder = true,
     .FirstText = "Mod00"},
    {.Label = "SDG No.",
     .ExportName = "sdgNo",
     .Control = "Edit7",
     .IsPlaceholder = true,
     .FirstText = "No123"},
    {.Label = "Matrix",
     .ExportName = "matrix",
     .Control = "ComboBox2",
     .Kind = kChoice,
     .FirstText = "WATER",
     .Choices = {"SOIL", "SED", "WATER"}},
    {.Label = "Sample wt/vol", .ExportName = "sampleWtVol", .Control = "Edit10", .IsNumber = true},
    {.Label = "Unit of wt/vol",
     .ExportName = "wtVolUnits",
     .Control = "ComboBox1",
     .Kind = kChoice,
     .FirstText = "mL",
     .Choices = {"g", "mL"}},
    {"Lab File ID", "labFileId", "Edit9"},
    {.Label = "Level",
     .ExportName = "level",
     .Control = "ComboBox3",
     .Kind = kChoice,
     .FirstText = "LOW",
     .Choices = {"TRACE", "LOW", "MED"}},
    {"Date Received", "dateReceived", "MaskEdit1", kDate},
    {"Date Analyzed", "dateAnalyzed", "MaskEdit2", kDate},
    {.Label = "% Moisture", .ExportName = "percentMoisture", .Control = "Edit13", .IsNumber = true},
    {.Label = "GC Column", .ExportName = "gcColumn", .Control = "Edit16", .FirstText = "Vocol"},
    {.Label = "Column ID",
     .ExportName = "columnId",
     .Control = "Edit17",
     .IsNumber = true,
     .Unit = "mm",
     .FirstText = ".3"},
    {.Label = "Dilution Factor",
     .ExportName = "dilutionFactor",
     .Control = "Edit14",
     .IsNumber = true,
     .FirstText = "1"},
    {.Label = "Soil Extract Volume",
     .ExportName = "soilExtractVolume",
     .Control = "Edit18",
     .IsNumber = true,
     .Unit = "uL"},
    {.Label = "Soil Aliquot Volume",
     .ExportName = "soilAliquotVolume",
     .Control = "Edit15",
     .IsNumber = true,
     .Unit = "uL"},
    {.Label = "Purge Volume",
     .ExportName = "purgeVolume",
     .Control = "Edit19",
     .IsNumber = true,
     .Unit = "mL",
     .FirstText = "5"},
    {.Label = "Unit of Concentration",
     .ExportName = "concUnits",
     .Control = "ComboBox4",
     .Kind = kChoice,
     .FirstText = "ug/L",
     .Choices = {"ug/L", "ug/kg"}},
    {"Instrument ID", "instrumentId", "Edit3"},
    {.Label = "Heated Purge",
     .ExportName = "heatedPurge",
     .Control = "ComboBox5",
     .Kind = kChoice,
     .FirstText = "N",
     .Choices = {"Y", "N"}},
    {.Label = "Column Length",
     .ExportName = "columnLength",
     .Control = "Edit8",
     .IsNumber = true,
     .Unit = "m",
     .FirstText = "30"},
};
static_assert(std::size(kEntries) == SampleHeader::kCount);

// What a matrix has a value for.
struct MatrixRule {
    std::string_view matrix;
    bool moisture;
    bool soilVolumes;
};
constexpr MatrixRule kMatrixRules[] = {
    {"WATER", false, false}, {"SOIL", true, true}, {"SED", true, false}};

constexpr std::size_t kDateLength = 10;  // of "mm/dd/yyyy"

// As the dialog's mask has it, where a part may begin with a blank.
bool HasMaskShape(std::string_view text) {
    return text.size() == kEmptyDateTimeMask.size() &&
           std::ranges::equal(text, kEmptyDateTimeMask, [](char c, char mask) {
               return (c >= '0' && c <= '9') ? mask == ' ' : c == mask;
           });
}

// "05182005" and "051820050905" as they come from an entry that has the literals.
std::string WithLiterals(const std::string& text) {
    constexpr std::size_t kDateDigits = 8;
    constexpr std::size_t kAllDigits = 12;
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
    if (!digits || (text.size() != kDateDigits && text.size() != kAllDigits)) {
        return text;
    }
    const std::string date = text.substr(0, 2) + "/" + text.substr(2, 2) + "/" + text.substr(4, 4);
    return text.size() == kDateDigits ? date
                                      : date + " " + text.substr(8, 2) + ":" + text.substr(10, 2);
}

std::string DateText(HeaderField field, const std::string& entered) {
    if (IsUnfilled(entered)) {
        return std::string(kEmptyDateTimeMask);
    }
    // The laboratory may know the day only on which it has received a sample.
    const std::string text =
        field == HeaderField::kDateReceived ? WithoutUnfilledTime(entered) : entered;
    if (HasMaskShape(text)) {
        return text;
    }
    const std::string spelled = WithLiterals(Trim(text));
    const auto when = ParseDateTime(spelled);
    if (!when || !Contains(spelled, "/")) {
        return text;
    }
    const std::string full = FormatDateTime(*when);
    return Contains(spelled, ":") ? full : full.substr(0, kDateLength);
}

bool IsOffered(const HeaderEntry& entry, std::string_view value) {
    return !value.empty() && std::ranges::count(entry.Choices, value) > 0;
}

std::string Is(HeaderField field, std::string_view value) {
    return std::string(HeaderEntryOf(field).Label) + " is \"" + std::string(value) + "\"";
}

}  // namespace

const HeaderEntry& HeaderEntryOf(HeaderField field) {
    return kEntries[static_cast<std::size_t>(field) - 1];
}

std::string HeaderHeading(HeaderField field) {
    const HeaderEntry& entry = HeaderEntryOf(field);
    const std::string label(entry.Label);
    return entry.Unit.empty() ? label : label + " (" + std::string(entry.Unit) + ")";
}

std::string HeaderText(HeaderField field, std::string_view entered) {
    std::string text = EnteredField(entered);
    CutText(text);
    return HeaderEntryOf(field).Kind == kDate ? DateText(field, text) : text;
}

std::optional<std::string> HeaderFault(HeaderField field, std::string_view value) {
    if (HeaderEntryOf(field).Kind != kDate || IsUnfilled(value)) {
        return std::nullopt;
    }
    const std::string label(HeaderEntryOf(field).Label);
    const std::string date = WithoutUnfilledTime(value);
    if (!IsDateTimeText(date) || !Contains(date, "/")) {
        const auto noSuchDate = NoSuchDate(date);
        return label + " is no date." + (noSuchDate ? " " + *noSuchDate : "");
    }
    if (field == HeaderField::kDateAnalyzed && !Contains(date, ":")) {
        return label + " has no time.";
    }
    return std::nullopt;
}

std::optional<std::string> PlaceholderDoubt(HeaderField field, std::string_view value) {
    const HeaderEntry& entry = HeaderEntryOf(field);
    if (!entry.IsPlaceholder || LowerCase(Trim(value)) != LowerCase(entry.FirstText)) {
        return std::nullopt;
    }
    return Is(field, entry.FirstText) + ", as the dialog has it at first.";
}

std::optional<std::string> ChoiceDoubt(HeaderField field, std::string_view value) {
    const HeaderEntry& entry = HeaderEntryOf(field);
    const std::string text = Trim(value);
    if (entry.Kind != kChoice || text.empty() || IsOffered(entry, text)) {
        return std::nullopt;
    }
    std::vector<std::string> names;
    for (const std::string_view choice : entry.Choices) {
        if (!choice.empty()) {
            names.emplace_back(choice);
        }
    }
    return Is(field, text) + ", none of " + Enumerated(names) + ".";
}

std::string CompletenessOf(const SampleHeader& header) {
    constexpr std::size_t kNamed = 4;
    const std::vector<HeaderField> empty = EmptyFields(header);
    if (empty.empty()) {
        return "Complete";
    }
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::min(empty.size(), kNamed); ++i) {
        names.emplace_back(HeaderEntryOf(empty[i]).Label);
    }
    if (empty.size() > kNamed) {
        names.push_back(std::to_string(empty.size() - kNamed) + " more");
    }
    return std::to_string(empty.size()) + " of " + std::to_string(SampleHeader::kCount) +
           (empty.size() == 1 ? " values is empty: " : " values are empty: ") + Enumerated(names);
}

bool IsListedChoice(std::string_view value) {
    return std::ranges::any_of(
        kEntries, [value](const HeaderEntry& entry) { return IsOffered(entry, value); });
}

void ApplyMatrixRules(SampleHeader& header) {
    const auto* const rule =
        std::ranges::find(kMatrixRules, header[HeaderField::kMatrix], &MatrixRule::matrix);
    if (rule == std::end(kMatrixRules)) {
        return;
    }
    const auto apply = [&header](HeaderField field, bool applies) {
        const bool isApplicable = header[field] != "N/A";
        if (applies != isApplicable) {
            header[field] = applies ? "0" : "N/A";
        }
    };
    apply(HeaderField::kPercentMoisture, rule->moisture);
    apply(HeaderField::kSoilAliquotVolume, rule->soilVolumes);
    apply(HeaderField::kSoilExtractVolume, rule->soilVolumes);
}

}  // namespace qfr
