// What each entry form asks for: one table a form, one row a field. The batch file's line,
// `qfrbatch show`, the dialog, its checks and the forms without a display read these tables, so a
// new field is a row here, its control in the dialog's design and its member in Entries.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "data/Batch.h"
#include "data/Entries.h"
#include "data/EntryChecks.h"
#include "data/Reports.h"
#include "platform/FileChooser.h"
#include "platform/Messages.h"

namespace qfr {

// What a text holds. A choice is the number that stands for it, lines are as many as were typed,
// and cells are the numbers in the last column of a grid.
enum class EntryKind { kText, kNumber, kDate, kTime, kDateTime, kFile, kChoice, kLines, kCells };

// The texts that a field holds: one, or those of a list.
struct EntryTexts {
    std::string (*Get)(const Entries& entries, std::size_t item);
    void (*Set)(Entries& entries, std::size_t item, const std::string& text);
    std::size_t (*Count)(const Entries& entries) = nullptr;  // absent: no list
    // That the batch file has room for.
    std::size_t SavedItems = std::numeric_limits<std::size_t>::max();
    // How a text reads in lists, and as what a saved one comes back; absent: as it stands.
    std::string (*Shown)(const std::string& text) = nullptr;
    std::string (*Restored)(const std::string& text) = nullptr;
};

// What decides whether an entry is asked for.
struct EntryScope {
    int LevelCount = 0;        // of the calibration
    bool CheckReport = false;  // the batch names one
};

// A Browse button: its name, what it chooses, and what is done with that.
struct EntryBrowse {
    std::string_view Button;
    FileKind Kind;
    BrowseAction* Take;
};

// How a field is checked. OK goes through the turns from 1 on, in each through the rows; 0: never.
struct EntryRules {
    int RequiredTurn = 0;
    // What is missing passes here, except where this is also the turn in which it is required.
    int FormTurn = 0;
    bool (*AskedFor)(const EntryScope& scope, std::size_t item) = nullptr;  // absent: always
    // These replace what the kind says.
    bool (*Missing)(const Entries& entries) = nullptr;
    std::optional<Message> (*WrongForm)(const std::string& text) = nullptr;
    std::optional<EntryFault> (*Leave)(Entries& entries, const Batch& batch, Reports& reports,
                                       Messages& messages) = nullptr;
};

struct EntryField {
    std::string_view Label;  // a list's items are numbered after it, from 1
    // In the dialog. A list's items are numbered after it, from 1, except cells; so are the radio
    // buttons of a choice.
    std::string_view Control;
    EntryKind Kind;
    EntryTexts Texts;
    EntryRules Rules = {};
    std::optional<EntryBrowse> Browse = {};
    std::string_view Mask = {};  // where it is not the kind's
};

struct EntryTable {
    std::string_view Caption;
    std::span<const EntryField> Fields;  // in the order of the batch file's line
    // Said where a required entry is missing.
    std::string_view MissingText;
    std::string_view MissingTitle;
    // Each box is complained about when it is left, also where it is only required.
    bool ChecksAllWhenLeft = false;
};

// In the order of EntryDialog.
std::span<const EntryTable> EntryTables();
const EntryTable& TableOf(EntryDialog dialog);

// Texts of the field: 1 where it is no list. Items count from 0.
std::size_t ItemCount(const EntryField& field, const Entries& entries);

// The names of an item: in lists, and of a control, as its own or that of its Browse button.
std::string LabelOf(const EntryField& field, std::size_t item);
std::string ControlName(std::string_view name, const EntryField& field, std::size_t item);

// As lists show it; an empty mask stands as it is.
std::string ShownText(const EntryField& field, const Entries& entries, std::size_t item);

// The kind's mask while nothing is typed; empty for a kind without one.
std::string_view EmptyMaskOf(EntryKind kind);

// What OK finds wrong first.
std::optional<EntryFault> CheckEntries(const EntryTable& table, const Entries& entries,
                                       const EntryScope& scope = {});

// Whether the field is checked when its control is left, and what is wrong then. Cells are not.
bool IsCheckedWhenLeft(const EntryTable& table, const EntryField& field);
std::optional<EntryFault> CheckLeft(const EntryTable& table, const EntryField& field,
                                    std::size_t item, const Entries& entries,
                                    const EntryScope& scope = {});

}  // namespace qfr
