// The 26 header values of a sample: one table, one row a value. The Form 1 header dialog, the table
// of all headers, the review, `qfrbatch show` and the export read it, and all take and check what
// was entered by the functions here.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "data/Batch.h"

namespace qfr {

enum class HeaderKind { kText, kDate, kChoice };

struct HeaderEntry {
    std::string_view Label;       // as it is called in lists and sentences
    std::string_view ExportName;  // of the value among exported ones
    std::string_view Control;     // in the Form 1 header dialog
    HeaderKind Kind = HeaderKind::kText;
    bool IsNumber = false;            // where it does not say that it has none
    bool IsPlaceholder = false;       // its first text is no laboratory's, and must not stay
    std::string_view Unit = {};       // of the number, where no other value states it
    std::string_view FirstText = {};  // in the dialog before anybody types
    std::array<std::string_view, 3> Choices = {};  // that are offered; empty texts are none
};

const HeaderEntry& HeaderEntryOf(HeaderField field);

// "Lab Name", "Column ID (mm)"
std::string HeaderHeading(HeaderField field);

// What was entered, as the header keeps it: one field of a batch file's line, no longer than what
// prints. A date is "mm/dd/yyyy hh:nn", of the receipt also "mm/dd/yyyy"; it may be entered with
// shorter parts or as digits alone. One that is left open is the empty mask, which counts as filled
// in. A text that is no date stays.
std::string HeaderText(HeaderField field, std::string_view entered);

// Why such a value cannot be taken, as a sentence; absent when it can.
std::optional<std::string> HeaderFault(HeaderField field, std::string_view value);

// Why a value that can be taken is to be looked at, as a sentence; absent when there is no reason:
// it is what the dialog has at first, and no laboratory has, or none of those that are offered.
std::optional<std::string> PlaceholderDoubt(HeaderField field, std::string_view value);
std::optional<std::string> ChoiceDoubt(HeaderField field, std::string_view value);

// "Complete", or what a form still asks for: "2 of 26 values are empty: Lab Name and Contract".
std::string CompletenessOf(const SampleHeader& header);

// Whether the value is one of those that are offered for any field.
bool IsListedChoice(std::string_view value);

inline constexpr std::array kRuledByMatrix = {HeaderField::kPercentMoisture,
                                              HeaderField::kSoilExtractVolume,
                                              HeaderField::kSoilAliquotVolume};

// What a change of the matrix does to the values that it rules. Texts other than "WATER", "SOIL"
// and "SED" change nothing.
void ApplyMatrixRules(SampleHeader& header);

}  // namespace qfr
