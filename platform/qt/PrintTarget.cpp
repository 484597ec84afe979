#include "platform/qt/PrintTarget.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QWheelEvent>

#include "platform/Text.h"
#include "platform/qt/ControlRow.h"
#include "platform/qt/ShownText.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

const char* const kName = "PrintToCombo";
const char* const kCaption = "&Print to:";
constexpr int kLetters = 12;  // of a printer's name
constexpr int kSpace = 6;     // pixels, after the label

bool GoesThroughList(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return !event.text().isEmpty() && event.text().front().isPrint();
    }
}

}  // namespace

PrintTarget::PrintTarget(PrinterChoice& printers, QWidget* parent)
    : QComboBox(parent), printers_(printers) {
    setObjectName(kName);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kLetters);
    setFocusPolicy(Qt::StrongFocus);
    connect(&printers_, &PrinterChoice::Changed, this, &PrintTarget::ShowChoice);
    connect(this, &QComboBox::activated, this, [this](int index) {
        const int first = printers_.Chosen() ? 0 : 1;
        if (index >= first) {
            printers_.Choose(index - first);
        }
    });
    ShowChoice();
}

PrintTarget* PrintTarget::PutInto(QHBoxLayout& row, PrinterChoice& printers) {
    auto* const target = new PrintTarget(printers);
    AddControl(&row, kCaption, target, kName);
    return target;
}

void PrintTarget::TabBefore(QWidget& button) {
    QWidget* before = button.previousInFocusChain();
    while (before->focusPolicy() == Qt::NoFocus) {
        before = before->previousInFocusChain();
    }
    setTabOrder(before, this);
}

void PrintTarget::PutBefore(QPushButton& printButton, PrinterChoice& printers) {
    if (auto* const buttons = printButton.window()->findChild<QHBoxLayout*>("Buttons")) {
        auto* const row = new QHBoxLayout;
        row->setSpacing(kSpace);
        PrintTarget* const target = PutInto(*row, printers);
        buttons->insertLayout(0, row);
        target->TabBefore(printButton);
    }
}

void PrintTarget::PutBelow(QGridLayout& fields, int labelColumn, QPushButton& firstButton,
                           PrinterChoice& printers) {
    const int last = fields.rowCount() - 1;
    const bool free = fields.itemAtPosition(last, labelColumn) == nullptr;
    auto* const target = new PrintTarget(printers);
    auto* const label = new QLabel(QString(kCaption).remove('&'));
    label->setBuddy(target);
    fields.addWidget(label, free ? last : last + 1, labelColumn);
    fields.addWidget(target, free ? last : last + 1, labelColumn + 1);
    target->TabBefore(firstButton);
}

void PrintTarget::ShowChoice() {
    const std::optional<int> chosen = printers_.Chosen();
    QStringList names;
    if (!chosen) {
        names << "Ask first";
    }
    for (const std::string& name : printers_.Known()) {
        names << Shown(name);
    }
    QStringList shown;
    for (int item = 0; item < count(); ++item) {
        shown << itemText(item);
    }
    if (names != shown) {
        clear();
        addItems(names);
    }
    setCurrentIndex(chosen.value_or(0));
    setToolTip(currentText());
}

void PrintTarget::ShowAll() {
    const WaitCursor wait;
    printers_.All();
    ShowChoice();
}

void PrintTarget::showPopup() {
    ShowAll();
    QComboBox::showPopup();
}

void PrintTarget::keyPressEvent(QKeyEvent* event) {
    if (GoesThroughList(*event)) {
        ShowAll();
    }
    QComboBox::keyPressEvent(event);
}

void PrintTarget::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace qfr
