// The forms, in the order in which they print. The menu, Print All and the companion command
// go through these rows.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "data/EntryTables.h"
#include "forms/FormHost.h"

namespace qfr {

struct FormRow {
    std::string_view name;     // among the options of the companion command
    std::string_view caption;  // in lists
    std::string_view menuCaption;
    std::string_view shortcut;
    // One of the two: for each sample, or once for the batch.
    void (*printSample)(FormHost& host, std::size_t record);
    void (*printBatch)(FormHost& host);
    // Unless it is asked for by name, only for samples that have TICs.
    bool onlyWithTics = false;
};

inline constexpr std::size_t kFormCount = 8;
extern const std::array<FormRow, kFormCount> kForms;

// What is typed for a form before it prints, with and without a dialog.
constexpr const EntryTable& TableOf(EntryDialog dialog) {
    return *kEntryTables.at(static_cast<std::size_t>(dialog));
}
// Before it is typed: takes over what is known elsewhere by now. False when the dialog cannot be
// shown, after a message.
bool ShowEntry(FormHost& host, EntryDialog dialog, std::size_t headerRecord);
// After it: why the dialog would stay open.
std::optional<EntryFault> AcceptEntry(FormHost& host, EntryDialog dialog);

}  // namespace qfr
