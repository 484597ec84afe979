// The forms, in the order in which they print. The menu, Print All, the companion command and the
// entries without a dialog go through these rows.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "data/EntryTables.h"
#include "forms/FormHost.h"

namespace qfr {

// What is typed for a form before it prints, and what happens around that, with and without a
// dialog.
struct FormEntry {
    EntryDialog dialog;
    const EntryTable& table;
    // On showing: takes over what is known elsewhere by now; false when the dialog cannot be shown,
    // after a message.
    bool (*onShow)(FormHost& host, std::size_t headerRecord);
    // On OK: why the dialog would stay open.
    std::optional<EntryFault> (*onOk)(FormHost& host);
};

struct FormRow {
    std::string_view name;     // among the options of the companion command
    std::string_view caption;  // in lists
    std::string_view menuCaption;
    std::string_view shortcut;
    // One of the two: for each sample, or once for the batch.
    void (*printSample)(FormHost& host, std::size_t record) = nullptr;
    void (*printBatch)(FormHost& host) = nullptr;
    // Unless it is asked for by name, only for samples that have TICs.
    bool onlyWithTics = false;
    std::optional<FormEntry> entry = std::nullopt;  // absent: the header has everything
};

inline constexpr std::size_t kFormCount = 8;
extern const std::array<FormRow, kFormCount> kForms;

const FormEntry& EntryOf(EntryDialog dialog);

}  // namespace qfr
