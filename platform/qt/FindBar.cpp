#include "platform/qt/FindBar.h"

#include <QGuiApplication>

#include "platform/Text.h"
#include "platform/qt/ControlRow.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kLetters = 12;  // of what is looked for, on a small screen

}  // namespace

FindBar::FindBar(QWidget* parent) : QWidget(parent), edit_(new QLineEdit), count_(new QLabel) {
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    AddControl(row, "F&ind:", edit_, "FindEdit");
    edit_->setMinimumWidth(kLetters * fontMetrics().averageCharWidth());
    edit_->setMaxLength(static_cast<int>(kMaxPrintedText));
    QPushButton* const previous = AddButton(row, "Find Pre&vious", "FindPreviousButton");
    QPushButton* const next = AddButton(row, "Find Ne&xt", "FindNextButton");
    count_->setObjectName("FindCount");
    row->addWidget(count_, 1);
    QPushButton* const close = AddButton(row, "C&lose Find", "FindCloseButton");
    connect(edit_, &QLineEdit::textChanged, this, [this] { Find(0); });
    connect(edit_, &QLineEdit::returnPressed, this, [this] {
        GoOn((QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
    });
    connect(previous, &QPushButton::clicked, this, [this] { GoOn(-1); });
    connect(next, &QPushButton::clicked, this, [this] { GoOn(1); });
    connect(close, &QPushButton::clicked, this, &FindBar::Close);
    hide();
}

void FindBar::Open() {
    if (isHidden()) {
        show();
        Tell("");  // of what was found when it was open before
    }
    edit_->setFocus();
    edit_->selectAll();
}

void FindBar::Close() {
    hide();
    Leave();
}

void FindBar::GoOn(int by) {
    if (isHidden()) {
        Open();
    }
    Find(by);
}

void FindBar::Find(int by) {
    const WaitCursor wait;
    const auto [count, place] = Look(edit_->text().toStdString(), by);
    QString told;
    if (count > 0) {
        told = QString("%1 of %2").arg(place + 1).arg(count);
    } else if (!edit_->text().trimmed().isEmpty()) {
        told = "Not found";
    }
    Tell(told);
}

void FindBar::Tell(const QString& told) {
    count_->setText(told);
    edit_->setAccessibleDescription(told);
}

}  // namespace qfr
