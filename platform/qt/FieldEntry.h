// Entries whose text becomes a field of a batch file's line, which ends at its ";", and how the
// program fills them.
#pragma once

#include <functional>

#include <QLineEdit>
#include <QWidget>

namespace qfr {

// What becomes of a ";".
inline constexpr const char* kNoFieldEnd =
    "A value cannot hold \";\": typed, it is left out; pasted, it becomes \",\".";

// ";" cannot be typed into the widget, nor into a combo box that has it as its edit. `tell` hears
// of each one.
void TypeNoFieldEnd(QWidget& entry, const std::function<void()>& tell = {});

// Hears of each ";" in the edit, and of what else is typed or pasted there.
using HearTyping = std::function<void(QLineEdit& edit, bool fieldEnd)>;
// The same; what comes in by another way, such as a paste, becomes one field as EnteredField makes
// it.
void KeepToOneField(QLineEdit& edit, const HearTyping& hear = {});
// So in all edits of the window that take any text.
void KeepToOneFieldEach(const QWidget& window, const HearTyping& hear = {});

// Lets `fill` give the edit its text, which then shows from its beginning. What was selected as a
// whole, or has the focus and was empty, is selected as a whole again: typing replaces it.
void FillEdit(QLineEdit& edit, const std::function<void()>& fill);

}  // namespace qfr
