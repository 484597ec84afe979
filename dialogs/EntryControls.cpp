#include "dialogs/EntryControls.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "dialogs/EntryDialogs.h"
#include "dialogs/EntryGrid.h"
#include "dialogs/FieldRemarks.h"
#include "platform/Numbers.h"
#include "platform/qt/MaskEdit.h"

namespace qfr {

namespace {

// The radio buttons of a choice, which are numbered from 1.
QRadioButton* RadioButton(const QDialog& dialog, const EntryField& field, int number) {
    return Find<QRadioButton>(dialog, std::string(field.Control) + std::to_string(number));
}

}  // namespace

std::string MaskOf(const EntryField& field) {
    if (!field.Mask.empty()) {
        return std::string(field.Mask);
    }
    switch (field.Kind) {
        case EntryKind::kDate:
            return "!90/90/0000;1;_";
        case EntryKind::kTime:
            return "!90:00;1;_";
        case EntryKind::kDateTime:
            return "!90/90/0000 90:00;1;_";
        default:
            return "";
    }
}

QWidget* ControlOf(const QDialog& dialog, const EntryField& field, std::size_t item) {
    return Find(dialog, field.Kind == EntryKind::kCells ? std::string(field.Control)
                                                        : ControlName(field.Control, field, item));
}

void ShowItem(const QDialog& dialog, const EntryField& field, std::size_t item,
              const std::string& text) {
    QWidget* const control = ControlOf(dialog, field, item);
    if (auto* const date = qobject_cast<MaskEdit*>(control)) {
        date->SetMaskText(text);
    } else if (auto* const edit = qobject_cast<QLineEdit*>(control)) {
        ShowText(*edit, text);
    } else if (auto* const list = qobject_cast<QComboBox*>(control)) {
        list->setCurrentIndex(ParseInteger(text).value_or(-1));
    } else if (auto* const grid = qobject_cast<EntryGrid*>(control)) {
        grid->SetCell(static_cast<int>(item), grid->columnCount() - 1, text);
    } else {
        RadioButton(dialog, field, ParseInteger(text).value_or(1))->setChecked(true);
    }
}

std::optional<std::string> EnteredItem(const QDialog& dialog, const EntryField& field,
                                       std::size_t item) {
    const QWidget* const control = ControlOf(dialog, field, item);
    if (const auto* const date = qobject_cast<const MaskEdit*>(control)) {
        return date->MaskText();
    }
    if (const auto* const edit = qobject_cast<const QLineEdit*>(control)) {
        return EnteredIn(*edit);
    }
    if (const auto* const list = qobject_cast<const QComboBox*>(control)) {
        return list->count() > 0 ? std::optional(std::to_string(list->currentIndex()))
                                 : std::nullopt;
    }
    if (const auto* const grid = qobject_cast<const EntryGrid*>(control)) {
        return grid->TypedCell(static_cast<int>(item), grid->columnCount() - 1);
    }
    int number = 1;
    while (!RadioButton(dialog, field, number)->isChecked()) {
        ++number;
    }
    return std::to_string(number);
}

std::string TextIn(const QWidget& control) {
    if (const auto* const date = qobject_cast<const MaskEdit*>(&control)) {
        return date->MaskText();
    }
    const auto* const edit = qobject_cast<const QLineEdit*>(&control);
    return edit != nullptr ? EnteredIn(*edit) : "";
}

void ShowSource(const QDialog& dialog, const std::string& control, const std::string& source) {
    const QString text = QString::fromStdString(source);
    Remark(*Find(dialog, control), "source", text);
    if (auto* const label = Find<QLabel>(dialog, control + "Source")) {
        // A long name of a file must not widen the dialog.
        constexpr int kLetters = 80;
        const QFontMetrics metrics = label->fontMetrics();
        label->setText(
            metrics.elidedText(text, Qt::ElideMiddle, kLetters * metrics.averageCharWidth()));
    }
}

}  // namespace qfr
