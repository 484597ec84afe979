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

void FoldingRow::LetFold(std::vector<QPushButton*> buttons) {
    buttons_ = std::move(buttons);
    more_ = AddButton(row_, "&More", "MoreButton");
    auto* const menu = new QMenu(more_);
    more_->setMenu(menu);
    more_->setMinimumWidth(more_->sizeHint().width());  // with the menu's arrow
    more_->hide();
    connect(menu, &QMenu::aboutToShow, this, &FoldingRow::FillMenu);
}

QSize FoldingRow::minimumSizeHint() const {
    return {WidthWithout(buttons_.size()), row_->minimumSize().height()};
}

bool FoldingRow::IsFolded(const QPushButton* button, std::size_t folded) const {
    const auto end = buttons_.begin() + static_cast<std::ptrdiff_t>(folded);
    return std::find(buttons_.begin(), end, button) != end;
}

int FoldingRow::WidthWithout(std::size_t folded) const {
    int width = 0;
    for (int i = 0; i < row_->count(); ++i) {
        const QWidget* const control = row_->itemAt(i)->widget();
        const auto* const button = qobject_cast<const QPushButton*>(control);
        const bool gone = button == more_ ? folded == 0 : IsFolded(button, folded);
        const bool folds =
            button != nullptr && (button == more_ || IsFolded(button, buttons_.size()));
        if (control == nullptr || gone || (!folds && control->isHidden())) {
            continue;
        }
        width += row_->spacing() + NarrowestOf(*control);
    }
    return width;
}

void FoldingRow::Fit() {
    if (more_ == nullptr) {
        return;
    }
    std::size_t folded = 0;
    while (folded < buttons_.size() && WidthWithout(folded) > width()) {
        ++folded;
    }
    // Shown before others hide, so that the focus can stay in the row.
    more_->setVisible(folded > 0);
    for (QPushButton* const button : buttons_) {
        button->setVisible(!IsFolded(button, folded));
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

void FoldingRow::FillMenu() {
    more_->menu()->clear();
    for (QPushButton* const button : buttons_) {
        if (button->isHidden()) {
            QAction* const action =
                more_->menu()->addAction(button->text(), button, &QPushButton::click);
            action->setEnabled(button->isEnabled());
            action->setCheckable(button->isCheckable());
            action->setChecked(button->isChecked());
        }
    }
}

}  // namespace qfr
