// Every window on the screens and with the letters that a laboratory may have.
#include <QAction>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>

#include "platform/qt/HelpFile.h"
#include "platform/qt/HelpWindow.h"
#include "platform/qt/PreviewWindow.h"
#include "platform/qt/PrinterSetupDialog.h"
#include "platform/qt/ToldFilesDialog.h"
#include "tests/pdf/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

// Whether what lies outside of the parent can be scrolled to, or is drawn in part on purpose.
bool Scrolls(const QWidget& widget) {
    const QWidget* const parent = widget.parentWidget();
    return qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()) != nullptr ||
           qobject_cast<const QAbstractScrollArea*>(parent) != nullptr;
}

// The least size in which the widget's caption is whole.
QSize Needed(const QWidget& widget) {
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    const bool captioned = qobject_cast<const QAbstractButton*>(&widget) != nullptr;
    if (label != nullptr && label->wordWrap()) {
        return {0, std::min(label->heightForWidth(label->width()), label->sizeHint().height())};
    }
    const QSize given = widget.minimumSize();  // on purpose, where a row has little room
    const QSize hint = captioned || label != nullptr ? widget.minimumSizeHint() : QSize();
    return {given.width() > 0 ? given.width() : hint.width(), hint.height()};
}

void ExpectFits(QWidget& window) {
    SCOPED_TRACE(window.objectName().toStdString() + " " + window.windowTitle().toStdString());
    QTest::qWait(0);
    const QRect screen = window.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(window.frameGeometry()))
        << window.frameGeometry().right() << "," << window.frameGeometry().bottom();
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (widget->window() != &window || !widget->isVisible() ||
            widget->objectName().startsWith("qt_")) {
            continue;
        }
        const std::string name = widget->objectName().toStdString() + " of " +
                                 widget->parentWidget()->objectName().toStdString();
        EXPECT_TRUE(Scrolls(*widget) || widget->parentWidget()->rect().contains(widget->geometry()))
            << name << " is clipped";
        const QSize needed = Needed(*widget);
        EXPECT_TRUE(widget->width() >= needed.width() && widget->height() >= needed.height())
            << name << ": " << widget->width() << " x " << widget->height() << " instead of "
            << needed.width() << " x " << needed.height();
    }
}

void ShowOn(QScreen& screen, QWidget& window) {
    window.hide();
    window.move(screen.geometry().topLeft() + QPoint(60, 60));
    window.show();
    QTest::qWait(0);
    EXPECT_EQ(window.screen(), &screen);
}

// The dialog that the menu command with these keys opens.
void ExpectCommandFits(TQFRForm& form, const char* keys) {
    QTimer::singleShot(0, [] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        ExpectFits(*dialog);
        dialog->reject();
    });
    for (QAction* const action : form.findChildren<QAction*>()) {
        if (action->shortcut() == QKeySequence(keys)) {
            action->trigger();
        }
    }
}

// All windows that the program keeps, and those that it makes when they are needed.
void ExpectAllFit(QScreen& screen) {
    WindowRig rig;
    ShowOn(screen, rig.form);
    ExpectFits(rig.form);
    rig.form.RestoreFile(Example("example.qff"));
    ExpectCommandFits(rig.form, "Ctrl+Shift+P");
    PrinterSetupDialog setup(rig.form.Page().Printer(), rig.memory, &rig.form);
    HelpWindow help(HelpFile::Open(QFR_HELP_FILE));
    PdfSaver saver(rig.chooser, rig.log, rig.memory);
    const PreviewWindow preview({{"Form 6", kLetterPaper, {LetterPage({})}}}, "Form 6",
                                {FormsTypeface(), saver, rig.log, rig.printed, rig.memory},
                                &rig.form);
    const QMessageBox message(QMessageBox::Warning, "Warning", QString("A line.\n").repeated(50),
                              QMessageBox::Ok, &rig.form);
    ShowToldFiles({{"a.prn", std::string(400, 'x')}}, 0, &rig.form);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QDialog*>(window) != nullptr || window == &rig.form || window == &help) {
            ShowOn(screen, *window);
            ExpectFits(*window);
        }
    }
}

// Letters of this size, or, of none, the usual ones.
class Letters {
  public:
    explicit Letters(int points) {
        QFont font = usual_;
        font.setPointSize(points > 0 ? points : font.pointSize());
        QApplication::setFont(font);
    }
    ~Letters() { QApplication::setFont(usual_); }
    Letters(const Letters&) = delete;
    Letters& operator=(const Letters&) = delete;

  private:
    QFont usual_ = QApplication::font();
};

TEST(Fits, ScrollsToTheControlThatHasTheFocusInTheUsualOrder) {
    std::string usual;
    for (const auto& [screen, points] : {std::pair(0, 0), {1, 15}}) {
        const Letters letters(points);
        WindowRig rig;
        rig.form.RestoreFile(Example("example.qff"));
        auto& header = rig.Find<QWidget>("TForm1Header");
        ShowOn(*QApplication::screens()[screen], header);
        EXPECT_EQ(header.findChild<QScrollArea*>("FitArea") != nullptr, points > 0);
        rig.Face(header);
        header.findChild<QWidget*>("ZOVComboBox")->setFocus();
        std::string order;
        for (int i = 0; i < 40; ++i) {
            const QWidget& control = *header.focusWidget();
            EXPECT_TRUE(control.visibleRegion().boundingRect() == control.rect()) << rig.Focus();
            order += rig.Focus() + " ";
            rig.Press(Qt::Key_Tab);
        }
        usual = usual.empty() ? order : usual;
        EXPECT_EQ(order, usual);
        rig.Type("&n");
        EXPECT_EQ(rig.Focus(), "Edit1");
    }
}

TEST(Fits, EveryWindowOnEveryScreen) {
    for (const auto& [screen, points] : {std::pair(0, 0), {1, 0}, {2, 15}}) {
        SCOPED_TRACE(screen);
        const Letters letters(points);
        ExpectAllFit(*QApplication::screens()[screen]);
    }
}

}  // namespace
}  // namespace qfr::test
