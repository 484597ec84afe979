#include "platform/qt/ControlNames.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

namespace qfr {

namespace {

// The toolkit's own, on X11, is named by its choice and has no other place for a name.
class DropDown : public QAccessibleWidget {
  public:
    explicit DropDown(QComboBox& box) : QAccessibleWidget(&box, QAccessible::ComboBox), box_(box) {}

    QString text(QAccessible::Text kind) const override {
        const bool choice =
            kind == QAccessible::Value || (kind == QAccessible::Description && DescribedByChoice());
        return choice ? box_.currentText() : QAccessibleWidget::text(kind);
    }

    // The list, and the entry if there is one.
    int childCount() const override { return box_.isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        return QAccessible::queryAccessibleInterface(ChildWidget(index));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == box_.view()) {
            return 0;
        }
        return box_.isEditable() && child->object() == box_.lineEdit() ? 1 : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return box_.isEditable() && child(1)->rect().contains(x, y) ? child(1) : nullptr;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString& action) override {
        if (!actionNames().contains(action)) {
            QAccessibleWidget::doAction(action);
        } else if (box_.view()->isVisible()) {
            box_.hidePopup();
        } else {
            box_.showPopup();
        }
    }

  private:
    bool DescribedByChoice() const {
        return !box_.isEditable() && box_.accessibleDescription().isEmpty();
    }
    QWidget* ChildWidget(int index) const {
        return index == 0 ? static_cast<QWidget*>(box_.view()) : box_.lineEdit();
    }

    QComboBox& box_;
};

// The toolkit asks for each class of an object, the derived ones first, and owns what it gets.
QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    if (auto* const box = qobject_cast<QComboBox*>(object)) {
        QObject::connect(box, &QComboBox::currentTextChanged, box, [box] {
            QAccessibleEvent changed(box, QAccessible::DescriptionChanged);
            QAccessible::updateAccessibility(&changed);
        });
        return new DropDown(*box);
    }
    // A window of no class of its own would be taken for a group of controls.
    if (auto* const widget = qobject_cast<QWidget*>(object);
        widget != nullptr && widget->isWindow() && className == "QWidget") {
        return new QAccessibleWidget(widget, QAccessible::Window);
    }
    return nullptr;
}

// Without the mark of the mnemonic, as one line.
QString Caption(const QLabel& label) {
    QString caption = label.text();
    caption.replace(u'\n', u' ');
    return caption.remove(u'&').trimmed();
}

void NameByLabels(const QWidget& window) {
    for (const QLabel* const label : window.findChildren<QLabel*>()) {
        QWidget* const control = label->buddy();
        if (control != nullptr && control->accessibleName().isEmpty()) {
            control->setAccessibleName(Caption(*label));
        }
    }
    for (const QComboBox* const box : window.findChildren<QComboBox*>()) {
        if (box->isEditable()) {
            box->lineEdit()->setAccessibleName(box->accessibleName());
        }
    }
}

// In a plain row, a space or a control between the two keeps them apart.
bool IsBeside(const QWidget& field, const QWidget& button) {
    for (const QLayout* const layout : button.parentWidget()->findChildren<QLayout*>()) {
        const int place = layout->indexOf(&button);
        if (place >= 0 && layout->indexOf(&field) >= 0) {
            return qobject_cast<const QBoxLayout*>(layout) == nullptr ||
                   layout->indexOf(&field) == place - 1;
        }
    }
    return false;
}

void DescribeButtonsByFields(const QWidget& window) {
    for (QPushButton* const button : window.findChildren<QPushButton*>()) {
        const QWidget* const field = button->previousInFocusChain();
        if (button->accessibleDescription().isEmpty() && IsBeside(*field, *button) &&
            qobject_cast<const QPushButton*>(field) == nullptr) {
            button->setAccessibleDescription(field->accessibleName());
        }
    }
}

class ControlNamer : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            if (const auto& window = *static_cast<QWidget*>(watched); window.isWindow()) {
                NameByLabels(window);
                DescribeButtonsByFields(window);
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace

void NameControls(QApplication& application) {
    QAccessible::installFactory(MakeInterface);
    application.installEventFilter(new ControlNamer(&application));
}

}  // namespace qfr
