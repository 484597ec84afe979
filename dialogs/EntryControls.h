// The fields of an entry table in the controls of a dialog's design, which are found by their
// names.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include <QDialog>

#include "data/EntryTables.h"

namespace qfr {

template <typename Control = QWidget>
Control* Find(const QDialog& dialog, const std::string& name) {
    return dialog.findChild<Control*>(QString::fromStdString(name));
}

// The control of an item of a field, from 0; null for radio buttons.
QWidget* ControlOf(const QDialog& dialog, const EntryField& field, std::size_t item);

// What the field takes, for a MaskEdit; empty for what is no date and no time.
std::string MaskOf(const EntryField& field);

void ShowItem(const QDialog& dialog, const EntryField& field, std::size_t item,
              const std::string& text);
// Absent where there is nothing to choose from.
std::optional<std::string> EnteredItem(const QDialog& dialog, const EntryField& field,
                                       std::size_t item);

// Empty for what is not typed in.
std::string TextIn(const QWidget& control);

// What an entry has come from: for who hears the entry, and in the label beside it, if it has one.
void ShowSource(const QDialog& dialog, const std::string& control, const std::string& source);

}  // namespace qfr
