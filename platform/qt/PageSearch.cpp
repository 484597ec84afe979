#include "platform/qt/PageSearch.h"

#include <algorithm>

#include <QGuiApplication>

#include "platform/Text.h"
#include "platform/qt/ControlRow.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kLetters = 12;  // of what is looked for, on a small screen

}  // namespace

PageSearch::PageSearch(PageView& view, QWidget* parent)
    : QWidget(parent), view_(view), edit_(new QLineEdit), count_(new QLabel) {
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
    connect(edit_, &QLineEdit::textChanged, this, &PageSearch::Find);
    connect(edit_, &QLineEdit::returnPressed, this, [this] {
        GoOn((QGuiApplication::keyboardModifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
    });
    connect(previous, &QPushButton::clicked, this, [this] { GoOn(-1); });
    connect(next, &QPushButton::clicked, this, [this] { GoOn(1); });
    connect(close, &QPushButton::clicked, this, &PageSearch::Close);
    hide();
}

void PageSearch::Open() {
    if (isHidden()) {
        show();
        Find();
    }
    edit_->setFocus();
    edit_->selectAll();
}

void PageSearch::Close() {
    hide();
    found_.clear();
    view_.ShowFound({});
    view_.setFocus();
}

void PageSearch::Find() {
    const WaitCursor wait;
    found_ = FindText(view_.Pages(), edit_->text().toStdString());
    // The first one from the page in sight on.
    const auto from = std::ranges::lower_bound(
        found_, static_cast<std::size_t>(view_.CurrentPage()), {}, &FoundText::Page);
    place_ = from == found_.end() ? 0 : static_cast<std::size_t>(from - found_.begin());
    view_.ShowFound(found_);
    ShowPlace();
}

void PageSearch::GoOn(int places) {
    if (isHidden()) {
        Open();
    } else if (!found_.empty()) {
        const auto count = static_cast<std::ptrdiff_t>(found_.size());
        const auto at = (static_cast<std::ptrdiff_t>(place_) + places + count) % count;
        place_ = static_cast<std::size_t>(at);
        ShowPlace();
    }
}

void PageSearch::ShowPlace() {
    QString count;
    if (!found_.empty()) {
        count = QString("%1 of %2").arg(place_ + 1).arg(found_.size());
        view_.GoToFound(place_);
    } else if (!edit_->text().trimmed().isEmpty()) {
        count = "Not found";
    }
    count_->setText(count);
    edit_->setAccessibleDescription(count);
}

}  // namespace qfr
