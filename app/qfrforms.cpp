// The desktop program.
#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>

#include "app/MainForm.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/HostSystem.h"
#include "platform/PrintLog.h"
#include "platform/SettingsDir.h"
#include "platform/pdf/Typeface.h"
#include "platform/qt/ControlNames.h"
#include "platform/qt/DesktopSink.h"
#include "platform/qt/FileOpener.h"
#include "platform/qt/FitToScreen.h"
#include "platform/qt/FrameStyle.h"
#include "platform/qt/HelpViewer.h"
#include "platform/qt/OwnerFocus.h"
#include "platform/qt/PlainTexts.h"
#include "platform/qt/PrinterSetupDialog.h"
#include "platform/qt/QtFileChooser.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/Remembered.h"
#include "platform/qt/ToolkitSettings.h"
#include "platform/qt/WindowPlaces.h"

int main(int argc, char** argv) {
    const qfr::EndRequests endRequests([] {
        if (auto* const running = QCoreApplication::instance()) {
            QMetaObject::invokeMethod(
                running, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
        }
    });
    // There are no options: the toolkit gets the program's name only.
    int count = 1;
    char* names[] = {argv[0], nullptr};
    QApplication application(count, names);
    QApplication::setApplicationName("QFR Forms");
    QApplication::setDesktopFileName("qfrforms");
    QApplication::setStyle(new qfr::FrameStyle);  // the toolkit owns it
    qfr::NameControls(application);
    qfr::ShowPlainTexts(application);
    qfr::FitToScreen(application);
    qfr::ReturnToOwners(application);
    // The main window hides while another one takes its place; only its exit sequence ends the run.
    QApplication::setQuitOnLastWindowClosed(false);

    const auto directory = [](const QString& name) { return qfr::PathOf(name.toStdString()); };
    const qfr::SettingsDir settings(
        directory(QApplication::applicationDirPath()),
        directory(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)));
    for (const QString& folder :
         {QDir::tempPath(), QApplication::applicationDirPath(),
          QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)}) {
        qfr::RemoveLeftovers(directory(folder));
    }
    const qfr::ToolkitSettings toolkitSettings;

    qfr::QtMessages messages;
    const auto typeface = qfr::Typeface::Load();
    if (!typeface) {
        messages.Show({std::string(qfr::kNoTypeface), "QFR Forms", qfr::MessageIcon::kWarning});
        return 1;
    }
    qfr::QtFileChooser chooser(messages);
    qfr::Remembered memory(settings);
    qfr::PrintLog printed;
    const qfr::WindowPlaces places(memory);
    qfr::DesktopSink sink(*typeface, chooser, messages, printed, memory);
    qfr::HelpViewer help(qfr::PathOf(settings.ProgramDir() + "QFRHelp.chm"));

    qfr::TQFRForm mainWindow({
        .Messages = messages,
        .Chooser = chooser,
        .Metrics = *typeface,
        .Sink = sink,
        .Packages = sink,
        .Settings = settings,
        .Memory = memory,
        .Printed = printed,
        .ListPrinters = [&sink](qfr::TPrinter& printer) { printer.Printers = sink.Printers(); },
        .ShowPrinterSetup =
            [&sink, &memory](qfr::TPrinter& printer) {
                printer.Printers = sink.Printers();
                return qfr::PrinterSetupDialog(printer, memory, QApplication::activeWindow())
                           .exec() == QDialog::Accepted;
            },
        .Quit = [] { QCoreApplication::exit(0); },
        .OpenHelp = [&help](int topic) { return help.Open(topic); },
        .OpenFile = qfr::OpenWithDesktop,
        .ShowInFolder = qfr::ShowInFolder,
        .NoteFile = [](const std::string& file) { qfr::NoteRecentFile(qfr::PathOf(file)); },
    });
    mainWindow.show();
    // With the window in sight, where messages about the file belong.
    QTimer::singleShot(0, &mainWindow,
                       [&] { mainWindow.OpenArguments(qfr::ProgramArguments(argc, argv)); });
    return QApplication::exec();
}
