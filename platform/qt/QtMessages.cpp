#include "platform/qt/QtMessages.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>

#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kTitleBarButtons = 160;  // pixels

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::kInformation:
            return QMessageBox::Information;
        case MessageIcon::kWarning:
            return QMessageBox::Warning;
        case MessageIcon::kNone:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton Ask(const Message& message, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton escape) {
    const AskingCursor asking;
    QMessageBox box(IconOf(message.icon), QString(), QString::fromStdString(message.text), buttons,
                    QApplication::activeWindow());
    // A file name in the text may look like markup.
    box.setTextFormat(Qt::PlainText);
    // The toolkit puts the program's name in the place of an empty title.
    box.setWindowTitle(message.title.empty() ? QStringLiteral(" ")
                                             : QString::fromStdString(message.title));
    box.setEscapeButton(escape);
    // The text may be narrower than the title and the buttons of the title bar.
    if (auto* const grid = qobject_cast<QGridLayout*>(box.layout())) {
        const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + kTitleBarButtons;
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

void QtMessages::Show(const Message& message) {
    if (message.offerCancel) {
        Ask(message, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel);
    } else {
        Ask(message, QMessageBox::Ok, QMessageBox::Ok);
    }
}

bool QtMessages::AskYesNo(const Message& question) {
    return Ask(question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace qfr
