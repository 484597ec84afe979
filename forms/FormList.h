// The forms, in the order in which they print. The menu, Print All, the companion command and the
// entries without a dialog go through these rows.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "data/EntryChecks.h"
#include "forms/Form1TicContent.h"
#include "forms/Form1VoaContent.h"
#include "forms/Form2Content.h"
#include "forms/Form4Content.h"
#include "forms/Form5Content.h"
#include "forms/Form6Content.h"
#include "forms/Form7Content.h"
#include "forms/Form8Content.h"
#include "forms/FormHost.h"

namespace qfr {

// What one of the forms states.
using AnyFormContent = std::variant<Form1VoaContent, Form1TicContent, Form2Content, Form4Content,
                                    Form5Content, Form6Content, Form7Content, Form8Content>;

struct FormRow {
    std::string_view name;     // among the options of the companion command
    std::string_view caption;  // in lists
    std::string_view menuCaption;
    std::string_view shortcut;
    // One of the two: for each sample, or once for the batch.
    void (*printSample)(FormHost& host, std::size_t record);
    void (*printBatch)(FormHost& host);
    // What it would print, after the same questions and messages; absent where it refuses. The
    // record is that of a form that prints for each sample.
    std::optional<AnyFormContent> (*prepare)(FormHost& host, std::size_t record);
    // Unless it is asked for by name, only for samples that have TICs.
    bool onlyWithTics = false;
    // What is typed before it prints, with and without a dialog; absent: the header has everything.
    std::optional<EntryDialog> entry = std::nullopt;
    // Before it is typed: takes over what is known elsewhere by now. False when the dialog cannot
    // be shown, after a message.
    bool (*onShow)(FormHost& host, std::size_t headerRecord) = nullptr;
    // After it: why the dialog would stay open.
    std::optional<EntryFault> (*onOk)(FormHost& host) = nullptr;
};

extern const std::span<const FormRow> kForms;

// The form that the dialog is for.
const FormRow& FormOf(EntryDialog dialog);

}  // namespace qfr
