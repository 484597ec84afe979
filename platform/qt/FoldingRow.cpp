#include "platform/qt/FoldingRow.h"

#include <algorithm>

#include <QEvent>
#include <QMenu>

#include "platform/qt/ControlRow.h"

namespace qfr {

namespace {

// As the layout has it, also while the control hides.
int NarrowestOf(const QWidget& control) {
    const bool shrinks = (control.sizePolicy().horizontalPolicy() & QSizePolicy::ShrinkFlag) != 0;
    const QSize usual = shrinks ? control.minimumSizeHint() : control.sizeHint();
    return control.minimumWidth() > 0 ? control.minimumWidth() : usual.width();
}

}  // namespace

FoldingRow::FoldingRow(QWidget* parent) : QWidget(parent), row_(new QHBoxLayout(this)) {
    row_->setContentsMargins({});
}

void FoldingRow::LetFold(std::vector<Group> groups) {
    groups_ = std::move(groups);
    more_ = AddButton(row_, "&More", "MoreButton");
    auto* const menu = new QMenu(more_);
    more_->setMenu(menu);
    more_->setMinimumWidth(more_->sizeHint().width());  // with the menu's arrow
    more_->hide();
    connect(menu, &QMenu::aboutToShow, this, &FoldingRow::FillMenu);
}

QSize FoldingRow::minimumSizeHint() const {
    return {WidthWithout(groups_.size()), row_->minimumSize().height()};
}

bool FoldingRow::IsAmong(std::size_t groups, const QPushButton* button) const {
    return std::any_of(
        groups_.begin(), groups_.begin() + static_cast<std::ptrdiff_t>(groups),
        [button](const Group& group) { return std::ranges::find(group, button) != group.end(); });
}

int FoldingRow::WidthWithout(std::size_t folded) const {
    int width = 0;
    for (int i = 0; i < row_->count(); ++i) {
        const QWidget* const control = row_->itemAt(i)->widget();
        if (control == nullptr) {
            continue;
        }
        const auto* const button = qobject_cast<const QPushButton*>(control);
        bool there = !control->isHidden();
        if (button == more_) {
            there = folded > 0;
        } else if (IsAmong(groups_.size(), button)) {
            there = !IsAmong(folded, button);
        }
        width += there ? row_->spacing() + NarrowestOf(*control) : 0;
    }
    return width;
}

void FoldingRow::Fit() {
    if (more_ == nullptr) {
        return;
    }
    std::size_t folded = 0;
    while (folded < groups_.size() && WidthWithout(folded) > width()) {
        ++folded;
    }
    // Shown before others hide, so that the focus can stay in the row.
    more_->setVisible(folded > 0);
    for (std::size_t i = 0; i < groups_.size(); ++i) {
        for (QPushButton* const button : groups_[i]) {
            button->setVisible(i >= folded);
        }
    }
}

void FoldingRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit();
}

void FoldingRow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Fit();
    }
}

// In the order of the row, whatever folds first.
void FoldingRow::FillMenu() {
    more_->menu()->clear();
    for (int i = 0; i < row_->count(); ++i) {
        auto* const button = qobject_cast<QPushButton*>(row_->itemAt(i)->widget());
        if (button != nullptr && button->isHidden() && IsAmong(groups_.size(), button)) {
            QAction* const action =
                more_->menu()->addAction(button->text(), button, &QPushButton::click);
            action->setEnabled(button->isEnabled());
            action->setCheckable(button->isCheckable());
            action->setChecked(button->isChecked());
        }
    }
}

}  // namespace qfr
