#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "platform/qt/ControlNames.h"

int main(int argc, char** argv) {
    // The tests need no screen and leave no trace in the user's settings.
    qputenv("QT_QPA_PLATFORM", "offscreen");
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
    return RUN_ALL_TESTS();
}
