#include "dialogs/HeaderControls.h"

#include <algorithm>
#include <iterator>

#include <QComboBox>
#include <QLineEdit>

#include "data/HeaderFields.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/MaskEdit.h"

namespace qfr {

namespace {

const char* const kDateMask = "!99/99/9999 99:99;1;_";

QString TextOf(std::string_view ascii) {
    return QString::fromLatin1(ascii.data(), std::ssize(ascii));
}

}  // namespace

void HeaderControls::FindIn(const QWidget& window) {
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        const HeaderField field = HeaderFieldAt(number);
        const HeaderEntry& entry = HeaderEntryOf(field);
        auto* const control = window.findChild<QWidget*>(TextOf(entry.Control));
        controls_.at(static_cast<std::size_t>(number) - 1) = control;
        if (auto* const date = qobject_cast<MaskEdit*>(control)) {
            date->SetMask(kDateMask);
            continue;
        }
        if (auto* const box = qobject_cast<QComboBox*>(control)) {
            for (const std::string_view choice : entry.Choices) {
                choice.empty() ? void() : box->addItem(TextOf(choice));
            }
        }
        SetText(field, std::string(entry.FirstText));
    }
}

QWidget* HeaderControls::Of(HeaderField field) const {
    return controls_.at(static_cast<std::size_t>(field) - 1);
}

std::optional<HeaderField> HeaderControls::FieldOf(const QWidget* control) const {
    const auto place = std::ranges::find(controls_, control);
    return place == controls_.end()
               ? std::nullopt
               : std::optional(HeaderFieldAt(static_cast<int>(place - controls_.begin()) + 1));
}

QLineEdit& HeaderControls::EditOf(QWidget& control) {
    auto* const box = qobject_cast<QComboBox*>(&control);
    return box != nullptr ? *box->lineEdit() : static_cast<QLineEdit&>(control);
}

std::string HeaderControls::Text(HeaderField field) const {
    QWidget* const control = Of(field);
    const auto* const date = qobject_cast<const MaskEdit*>(control);
    return HeaderText(field,
                      date != nullptr ? date->MaskText() : EditOf(*control).text().toStdString());
}

SampleHeader HeaderControls::Texts() const {
    SampleHeader header;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        header[HeaderFieldAt(number)] = Text(HeaderFieldAt(number));
    }
    return header;
}

void HeaderControls::SetText(HeaderField field, const std::string& text) const {
    QWidget* const control = Of(field);
    if (auto* const date = qobject_cast<MaskEdit*>(control)) {
        date->SetMaskText(text);
    } else if (auto* const box = qobject_cast<QComboBox*>(control)) {
        box->setEditText(QString::fromStdString(text));
    } else {
        auto& edit = *static_cast<QLineEdit*>(control);
        FillEdit(edit, [&] { edit.setText(QString::fromStdString(text)); });
    }
}

}  // namespace qfr
