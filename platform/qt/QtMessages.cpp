#include "platform/qt/QtMessages.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>

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

// Where nothing is meant by default, a question is answered by one of its buttons; Escape and the
// close box are no answer.
class QuestionBox : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!event->matches(QKeySequence::Cancel)) {
            QMessageBox::keyPressEvent(event);
        }
    }
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

template <typename Box>
QMessageBox::StandardButton Ask(const Message& message, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton byDefault = QMessageBox::NoButton) {
    const AskingCursor asking;
    Box box(IconOf(message.icon), QString(), QString::fromStdString(message.text), buttons,
            QApplication::activeWindow());
    box.setDefaultButton(byDefault);
    // A file name in the text may look like markup.
    box.setTextFormat(Qt::PlainText);
    // The toolkit puts the program's name in the place of an empty title.
    box.setWindowTitle(message.title.empty() ? QStringLiteral(" ")
                                             : QString::fromStdString(message.title));
    // The text may be narrower than the title and the buttons of the title bar.
    if (auto* const grid = qobject_cast<QGridLayout*>(box.layout())) {
        const int width = box.fontMetrics().horizontalAdvance(box.windowTitle()) + kTitleBarButtons;
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

}  // namespace

void QtMessages::Show(const Message& message) {
    Ask<QMessageBox>(message, QMessageBox::Ok | (message.offerCancel ? QMessageBox::Cancel
                                                                     : QMessageBox::NoButton));
}

bool QtMessages::AskYesNo(const Message& question) {
    constexpr QMessageBox::StandardButtons kAnswers = QMessageBox::Yes | QMessageBox::No;
    const auto answer = question.noByDefault ? Ask<QMessageBox>(question, kAnswers, QMessageBox::No)
                                             : Ask<QuestionBox>(question, kAnswers);
    return answer == QMessageBox::Yes;
}

}  // namespace qfr
