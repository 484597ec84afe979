#include "data/EntryTables.h"

#include <algorithm>
#include <type_traits>

#include "data/CalibrationEntryRules.h"
#include "data/RecoveryRanges.h"
#include "platform/DateTime.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

using enum EntryKind;

// The text or the list of texts at entries.*entry.*member.
template <auto entry, auto member>
constexpr EntryTexts TextsOf(std::size_t savedItems = std::numeric_limits<std::size_t>::max()) {
    using Texts = std::remove_cvref_t<decltype(Entries().*entry.*member)>;
    if constexpr (std::is_same_v<Texts, std::string>) {
        return {[](const Entries& entries, std::size_t) { return entries.*entry.*member; },
                [](Entries& entries, std::size_t, const std::string& text) {
                    entries.*entry.*member = text;
                }};
    } else {
        return {[](const Entries& entries, std::size_t item) {
                    return (entries.*entry.*member).at(item);
                },
                [](Entries& entries, std::size_t item, const std::string& text) {
                    (entries.*entry.*member).at(item) = text;
                },
                [](const Entries&) { return std::tuple_size_v<Texts>; }, savedItems};
    }
}

// Required in one turn, its form looked at in the other.
constexpr EntryRules Turns(int required, int form = 0) {
    return {.RequiredTurn = required, .FormTurn = form};
}

constexpr std::string_view kRequiredText = "Please enter an appropriate value.";
constexpr std::string_view kRequiredTitle = "Required Input Missing";

// ---- Form II

constexpr EntryTexts kLimits = {
    .Get = [](const Entries& entries,
              std::size_t) { return std::to_string(static_cast<int>(entries.Ranges.Limits)); },
    .Set =
        [](Entries& entries, std::size_t, const std::string& text) {
            const int kind = ParseInteger(text).value_or(0);
            const bool known = kind >= static_cast<int>(RecoveryLimits::kWater) &&
                               kind <= static_cast<int>(RecoveryLimits::kOil);
            entries.Ranges.Limits =
                known ? static_cast<RecoveryLimits>(kind) : RecoveryLimits::kWater;
        },
    .Shown =
        [](const std::string& text) {
            return std::string(text == "1" ? "water" : text == "2" ? "soil" : "oil");
        },
    // A saved oil choice comes back as soil, on purpose.
    .Restored =
        [](const std::string& text) {
            return ParseInteger(text) == static_cast<int>(RecoveryLimits::kOil) ? "2" : text;
        },
};

constexpr EntryField kRangesFields[] = {
    {"Ranges file", "FileEdit", kFile, TextsOf<&Entries::Ranges, &RangesEntry::FileName>(),
     Turns(1), EntryBrowse{"BrowseButton", FileKind::kText, BrowseRangesFile}},
    {"Limits", "RadioButton", kChoice, kLimits},
};

// ---- Form IV

constexpr EntryTexts kComments = {
    .Get =
        [](const Entries& entries, std::size_t item) {
            const auto& lines = entries.Comments.Lines;
            return item < lines.size() ? lines[item] : "";
        },
    .Set =
        [](Entries& entries, std::size_t item, const std::string& text) {
            auto& lines = entries.Comments.Lines;
            lines.resize(std::max(lines.size(), item + 1));
            lines[item] = text;
        },
    // An empty box is one empty line: a line of the file without any would leave old comments in
    // place.
    .Count =
        [](const Entries& entries) {
            return std::max<std::size_t>(entries.Comments.Lines.size(), 1);
        },
};

constexpr EntryField kCommentsFields[] = {{"Line", "RichEdit1", kLines, kComments}};

// ---- Form V

template <auto member>
constexpr EntryTexts kTune = TextsOf<&Entries::Tune, member>();

constexpr EntryField kTuneFields[] = {
    {"Sample no.", "SampleEdit", kText, kTune<&TuneEntry::SampleNo>, Turns(1)},
    {"Instrument ID", "InstrEdit", kText, kTune<&TuneEntry::InstrumentId>, Turns(2)},
    {"Lab file ID", "FileEdit", kText, kTune<&TuneEntry::LabFileId>, Turns(4)},
    {"Injection date", "MaskEdit1", kDate, kTune<&TuneEntry::InjectionDate>, Turns(3, 3)},
    {"Injection time", "MaskEdit2", kTime, kTune<&TuneEntry::InjectionTime>, Turns(5, 5)},
    {"Abundance", "StringGrid1", kCells, kTune<&TuneEntry::Abundances>, Turns(6, 6)},
};

// ---- Form VI

// The file has room for this many lab file IDs of the initial calibration.
constexpr std::size_t kSavedLevels = 5;

using Initial = InitialCalibrationEntry;
template <auto member>
constexpr EntryTexts kInitial = TextsOf<&Entries::InitialCalibration, member>(kSavedLevels);

constexpr EntryRules kLevelFileRules = {
    .RequiredTurn = 2,
    .AskedFor = [](const EntryScope& scope,
                   std::size_t level) { return static_cast<int>(level) < scope.LevelCount; },
};

constexpr EntryField kInitialCalibrationFields[] = {
    {"First standard", "CalStartMaskEdit", kDateTime, kInitial<&Initial::FirstStandard>,
     Turns(0, 1)},
    {"Last standard", "CalEndMaskEdit", kDateTime, kInitial<&Initial::LastStandard>, Turns(0, 1),
     std::nullopt, "!99/99/0000 90:00;1;_"},
    {"Lab file ID", "CalFileEdit", kText, kInitial<&Initial::LabFileIds>, kLevelFileRules,
     EntryBrowse{"BrowseButton", FileKind::kAny, BrowseLevelFile}},
};

// ---- Form VII

using Continuing = ContinuingCalibrationEntry;
template <auto member>
constexpr EntryTexts kContinuing = TextsOf<&Entries::ContinuingCalibration, member>();

constexpr EntryField kContinuingCalibrationFields[] = {
    {"Sample no.", "ZOV_IDEdit", kText, kContinuing<&Continuing::SampleNo>, Turns(3)},
    {"Lab file ID", "LabFileEdit", kText, kContinuing<&Continuing::LabFileId>, Turns(1),
     EntryBrowse{"BrowseButton", FileKind::kAny, BrowseContinuingStandard}},
    {"RF criteria file", "LimitEdit", kFile, kContinuing<&Continuing::CriteriaFile>, Turns(2),
     EntryBrowse{"Button1", FileKind::kText, BrowseCriteriaFile}},
    {"Instrument ID", "InstrEdit", kText, kContinuing<&Continuing::InstrumentId>, Turns(4)},
    {"Date analyzed", "MaskEdit1", kDateTime, kContinuing<&Continuing::AnalysisDateTime>,
     Turns(0, 5)},
    {"First standard", "MaskEdit2", kDateTime, kContinuing<&Continuing::FirstStandard>,
     Turns(0, 5)},
    {"Last standard", "MaskEdit3", kDateTime, kContinuing<&Continuing::LastStandard>, Turns(0, 5)},
};

// ---- Form VIII

using Summary = StandardSummaryEntry;
template <auto member>
constexpr EntryTexts kSummary = TextsOf<&Entries::StandardSummary, member>();

// From 0; none is -1.
constexpr EntryTexts kLevel = {
    .Get = [](const Entries& entries,
              std::size_t) { return std::to_string(entries.StandardSummary.LevelIndex); },
    .Set =
        [](Entries& entries, std::size_t, const std::string& text) {
            const int level = ParseInteger(text).value_or(-1);
            entries.StandardSummary.LevelIndex = level >= 0 && level < kMaxLevels ? level : -1;
        },
    .Shown =
        [](const std::string& text) {
            return text == "-1" ? "" : std::to_string(ParseInteger(text).value_or(0) + 1);
        },
};

constexpr EntryRules kStandardSampleNoRules = {
    .RequiredTurn = 1,
    .FormTurn = 3,
    .WrongForm = CheckStandardSampleNo,
    .Leave = LeaveStandardSampleNo,
};

// The initial calibration report knows no retention times of the standard.
bool WithoutCheckReport(const EntryScope& scope, std::size_t) {
    return !scope.CheckReport;
}

constexpr EntryRules kRetentionTimeRules = {.RequiredTurn = 2,
                                            .FormTurn = 3,
                                            .AskedFor = WithoutCheckReport,
                                            .WrongForm = CheckRetentionTime};
constexpr EntryRules kLevelRules = {
    .RequiredTurn = 2,
    .AskedFor = WithoutCheckReport,
    .Missing =
        [](const Entries& entries) {
            return IsUnfilled(ConcentrationText(entries.StandardSummary));
        },
};

constexpr EntryField kStandardSummaryFields[] = {
    {"Sample no.", "SampleEdit", kText, kSummary<&Summary::SampleNo>, kStandardSampleNoRules},
    {"Lab file ID", "LabFileEdit", kText, kSummary<&Summary::LabFileId>, Turns(1),
     EntryBrowse{"BrowseButton", FileKind::kAny, BrowseSummaryStandard}},
    {"Date analyzed", "MaskEdit1", kDateTime, kSummary<&Summary::AnalysisDateTime>, Turns(1, 4)},
    {"First calibration", "MaskEdit2", kDate, kSummary<&Summary::FirstCalibrationDate>,
     Turns(0, 4)},
    {"Last calibration", "MaskEdit3", kDate, kSummary<&Summary::LastCalibrationDate>, Turns(0, 4)},
    {"Retention time", "RTEdit", kNumber, kSummary<&Summary::RetentionTimes>, kRetentionTimeRules},
    {"Level chosen", "ConcCombo", kChoice, kLevel, kLevelRules},
};

// ---- Checks

std::optional<Message> WrongForm(const EntryField& field, const std::string& text) {
    if (field.Rules.WrongForm) {
        return field.Rules.WrongForm(text);
    }
    if (!EmptyMaskOf(field.Kind).empty()) {
        return IsDateTimeText(text) ? std::nullopt : std::optional(DateTimeFormatMessage());
    }
    if ((field.Kind == kNumber || field.Kind == kCells) && !ParseNumber(text)) {
        return Message{"Entry must be a valid real number.", "Incorrect Entry"};
    }
    return std::nullopt;
}

// What is wrong with an item in this turn.
std::optional<EntryFault> CheckItem(const EntryTable& table, const EntryField& field,
                                    const Entries& entries, std::size_t item, int turn) {
    const EntryRules& rules = field.Rules;
    const std::string text = field.Texts.Get(entries, item);
    const bool missing = rules.Missing                     ? rules.Missing(entries)
                         : EmptyMaskOf(field.Kind).empty() ? Trim(text).empty()
                                                           : IsUnfilled(text);
    const bool required = rules.RequiredTurn == turn;
    std::optional<Message> message;
    if (rules.FormTurn == turn) {
        message = missing && !required ? std::nullopt : WrongForm(field, text);
    } else if (required && missing) {
        message = Message{std::string(table.MissingText), std::string(table.MissingTitle)};
    }
    if (!message) {
        return std::nullopt;
    }
    return field.Kind == kCells
               ? EntryFault{*message, std::string(field.Control), static_cast<int>(item) + 1}
               : EntryFault{*message, ControlName(field.Control, field, item)};
}

int TurnWhenLeft(const EntryTable& table, const EntryField& field) {
    if (field.Kind == kCells) {
        return 0;
    }
    return table.ChecksAllWhenLeft ? field.Rules.RequiredTurn : field.Rules.FormTurn;
}

constexpr EntryTable kTables[] = {
    {"Recovery ranges (Form II)", kRangesFields, "Please select a file for ranges.",
     "No File Specified"},
    {"Method blank comments (Form IV)", kCommentsFields, "", ""},
    {"BFB tune (Form V)", kTuneFields, "Please enter a value.", "All Fields Are Required", true},
    {"Initial calibration (Form VI)", kInitialCalibrationFields, kRequiredText, kRequiredTitle},
    {"Continuing calibration (Form VII)", kContinuingCalibrationFields, kRequiredText,
     kRequiredTitle},
    {"Internal standards (Form VIII)", kStandardSummaryFields, kRequiredText, kRequiredTitle},
};

}  // namespace

std::span<const EntryTable> EntryTables() {
    return kTables;
}

const EntryTable& TableOf(EntryDialog dialog) {
    return kTables[static_cast<std::size_t>(dialog)];
}

std::size_t ItemCount(const EntryField& field, const Entries& entries) {
    return field.Texts.Count ? field.Texts.Count(entries) : 1;
}

std::string LabelOf(const EntryField& field, std::size_t item) {
    const std::string label(field.Label);
    return field.Texts.Count ? label + " " + std::to_string(item + 1) : label;
}

std::string ControlName(std::string_view name, const EntryField& field, std::size_t item) {
    return std::string(name) + (field.Texts.Count ? std::to_string(item + 1) : "");
}

std::string ShownText(const EntryField& field, const Entries& entries, std::size_t item) {
    const std::string text = field.Texts.Get(entries, item);
    return field.Texts.Shown ? field.Texts.Shown(text) : text;
}

std::string_view EmptyMaskOf(EntryKind kind) {
    switch (kind) {
        case kDate:
            return kEmptyDateMask;
        case kTime:
            return kEmptyTimeMask;
        case kDateTime:
            return kEmptyDateTimeMask;
        default:
            return "";
    }
}

std::optional<EntryFault> CheckEntries(const EntryTable& table, const Entries& entries,
                                       const EntryScope& scope) {
    int lastTurn = 0;
    for (const EntryField& field : table.Fields) {
        lastTurn = std::max({lastTurn, field.Rules.RequiredTurn, field.Rules.FormTurn});
    }
    for (int turn = 1; turn <= lastTurn; ++turn) {
        for (const EntryField& field : table.Fields) {
            for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
                const bool asked = !field.Rules.AskedFor || field.Rules.AskedFor(scope, item);
                auto fault = asked ? CheckItem(table, field, entries, item, turn) : std::nullopt;
                if (fault) {
                    return fault;
                }
            }
        }
    }
    return std::nullopt;
}

bool IsCheckedWhenLeft(const EntryTable& table, const EntryField& field) {
    return TurnWhenLeft(table, field) > 0;
}

std::optional<EntryFault> CheckLeft(const EntryTable& table, const EntryField& field,
                                    std::size_t item, const Entries& entries,
                                    const EntryScope& scope) {
    const bool asked = !field.Rules.AskedFor || field.Rules.AskedFor(scope, item);
    return asked ? CheckItem(table, field, entries, item, TurnWhenLeft(table, field))
                 : std::nullopt;
}

}  // namespace qfr
