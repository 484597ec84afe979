#include <QAccessible>
#include <QLabel>

#include "tests/ui/WindowRig.h"

namespace qfr::test {

TEST(ControlNames, TellTheControlsOfEveryWindowApart) {
    const WindowRig rig;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        window->setVisible(qobject_cast<QDialog*>(window) != nullptr);
        QStringList once;  // names with descriptions, and mnemonics
        for (QWidget* const control : window->findChildren<QWidget*>()) {
            const auto* const label = qobject_cast<QLabel*>(control);
            const bool shown = window->isVisible() && control->window() == window;
            const QString key = control->property("text").toString().section('&', 1).left(1);
            if (shown && !key.isEmpty() && (label == nullptr || label->buddy() != nullptr)) {
                once << key.toLower();
            }
            if (shown && !control->focusProxy() && (control->focusPolicy() & Qt::TabFocus) != 0) {
                const auto* const told = QAccessible::queryAccessibleInterface(control);
                EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << control;
                once << told->text(QAccessible::Name) + told->text(QAccessible::Description);
            }
        }
        EXPECT_EQ(once.removeDuplicates(), 0) << once.join('|').toStdString();
    }
}

}  // namespace qfr::test
