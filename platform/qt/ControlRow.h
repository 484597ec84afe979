// Rows of controls above and below what a window shows.
#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace qfr {

inline QPushButton* AddButton(QHBoxLayout* row, const QString& caption, const char* name) {
    auto* const button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    // The style would rather have all buttons wide than the last one on a small screen.
    constexpr int kAroundText = 20;  // pixels
    button->setMinimumWidth(button->fontMetrics().horizontalAdvance(caption) + kAroundText);
    row->addWidget(button);
    return button;
}

// The control after the label that names it.
inline void AddControl(QHBoxLayout* row, const QString& caption, QWidget* control,
                       const char* name) {
    auto* const label = new QLabel(caption);
    label->setBuddy(control);
    control->setObjectName(name);
    row->addWidget(label);
    row->addWidget(control);
}

}  // namespace qfr
