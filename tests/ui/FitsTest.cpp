// Every window on the screens and with the letters that a laboratory may have.
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>

#include "data/ToldFilesDialog.h"
#include "platform/qt/HelpFile.h"
#include "platform/qt/HelpWindow.h"
#include "platform/qt/PreviewWindow.h"
#include "platform/qt/PrinterSetupDialog.h"
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
    return captioned || label != nullptr ? widget.minimumSizeHint() : QSize();
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

// All windows that the program keeps, and those that it makes when they are needed.
void ExpectAllFit(QScreen& screen) {
    WindowRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    rig.form.move(screen.geometry().topLeft() + QPoint(40, 40));
    QTest::qWait(0);
    EXPECT_EQ(rig.form.screen(), &screen);
    PrinterSetupDialog setup(rig.form.Page().Printer(), &rig.form);
    HelpWindow help(HelpFile::Open(QFR_HELP_FILE));
    PdfSaver saver(rig.chooser, rig.log);
    const PreviewWindow preview({{"Form 6", kLetterPaper, {LetterPage({})}}}, "Form 6",
                                FormsTypeface(), saver, rig.log, &rig.form);
    ShowToldFiles({{"a.prn", std::string(400, 'x')}}, 0, &rig.form);
    ExpectFits(rig.form);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        const bool dialog = qobject_cast<QDialog*>(window) != nullptr;
        if (!dialog) {
            continue;
        }
        window->move(screen.geometry().topLeft() + QPoint(40, 40));
        window->show();
        ExpectFits(*window);
        window->close();
    }
}

TEST(Fits, EveryWindowOnEveryScreen) {
    const QFont usual = QApplication::font();
    const std::pair<qsizetype, double> cases[] = {{0, 0}, {1, 0}, {2, 15}};
    for (const auto& [screen, points] : cases) {
        SCOPED_TRACE(screen);
        QFont font = usual;
        font.setPointSizeF(points > 0 ? points : usual.pointSizeF());
        QApplication::setFont(font);
        ExpectAllFit(*QApplication::screens()[screen]);
    }
    QApplication::setFont(usual);
}

}  // namespace
}  // namespace qfr::test
