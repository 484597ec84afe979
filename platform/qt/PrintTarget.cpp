#include "platform/qt/PrintTarget.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QWheelEvent>

#include "platform/Text.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kLetters = 14;  // of a printer's name
constexpr int kSpace = 12;    // pixels, before the next control of the row

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
    setObjectName("PrintToCombo");
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

void PrintTarget::Insert(QHBoxLayout& row, int place, const QString& caption,
                         PrinterChoice& printers, QPushButton& printButton) {
    auto* const label = new QLabel(caption);
    auto* const target = new PrintTarget(printers);
    label->setBuddy(target);
    row.insertWidget(place, label);
    row.insertWidget(place + 1, target);
    // The next control has nothing to do with it.
    row.insertSpacing(place + 2, kSpace);
    setTabOrder(&printButton, target);
}

void PrintTarget::PutBefore(QPushButton& printButton, const QString& caption,
                            PrinterChoice& printers) {
    if (auto* const row = printButton.window()->findChild<QHBoxLayout*>("Buttons")) {
        Insert(*row, 0, caption, printers, printButton);
    }
}

void PrintTarget::ShowChoice() {
    const std::optional<int> chosen = printers_.Chosen();
    QStringList names;
    if (!chosen) {
        names << "Ask when printing";
    }
    for (const std::string& name : printers_.Known()) {
        names << QString::fromStdString(Visible(name));
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
