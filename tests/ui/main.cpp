#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "platform/qt/ControlNames.h"
#include "platform/qt/FitToScreen.h"
#include "platform/qt/OwnerFocus.h"
#include "platform/qt/PlainTexts.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

// Whatever window a test opens, dialogs of the toolkit and tooltips among them: none of its labels
// guesses whether its text is markup.
class PlainTextCheck : public QObject {
  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (auto* const window = qobject_cast<QWidget*>(watched);
            event->type() == QEvent::Show && window != nullptr && window->isWindow()) {
            QList<QLabel*> labels = window->findChildren<QLabel*>();
            labels << qobject_cast<QLabel*>(window);
            labels.removeAll(nullptr);
            for (const QLabel* const label : labels) {
                label->ensurePolished();  // as it is before it is measured or painted
                EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

// A desk with the screens of kScreens, side by side.
void WriteScreens(const QString& file) {
    QJsonArray screens;
    int left = 0;
    for (const QSize& size : kScreens) {
        screens << QJsonObject{{"name", QString::number(screens.size())},
                               {"x", left},
                               {"y", 0},
                               {"width", size.width()},
                               {"height", size.height()},
                               {"logicalDpi", 96},
                               {"logicalBaseDpi", 96},
                               {"dpr", 1}};
        left += size.width();
    }
    QFile out(file);
    out.open(QIODevice::WriteOnly);
    out.write(QJsonDocument(QJsonObject{{"screens", screens}}).toJson());
}

}  // namespace
}  // namespace qfr::test

int main(int argc, char** argv) {
    // The tests need no screen and leave no trace in the user's settings.
    // By a name without a drive, whose ":" would end it.
    const QTemporaryDir platform("screens-XXXXXX");
    const QString screens = QDir::current().relativeFilePath(platform.filePath("screens.json"));
    qfr::test::WriteScreens(screens);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.toUtf8());
    const QTemporaryDir runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    }
    QStandardPaths::setTestModeEnabled(true);
    static QtMessageHandler usual = nullptr;
    usual = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& where, const QString& text) {
            // Said of every window without a screen.
            if (!text.contains("This plugin does not support")) {
                usual(type, where, text);
            }
        });
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    qfr::NameControls(application);
    qfr::ShowPlainTexts(application);
    qfr::FitToScreen(application);
    qfr::ReturnToOwners(application);
    qfr::test::PlainTextCheck check;
    application.installEventFilter(&check);
    return RUN_ALL_TESTS();
}
