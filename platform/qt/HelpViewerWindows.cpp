#include <QDir>
#include <QProcess>

#include "platform/qt/HelpTopics.h"
#include "platform/qt/HelpViewer.h"

namespace qfr {

bool HelpViewer::Open(int topic) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file_, error)) {
        return false;
    }
    const QString file = QDir::toNativeSeparators(QString::fromStdWString(file_.wstring()));
    const std::string_view page = HelpPageOf(topic);
    return QProcess::startDetached(
        "hh.exe",
        {file + "::/" + QString::fromLatin1(page.data(), static_cast<qsizetype>(page.size()))});
}

std::string_view HelpViewer::Library() {
    return {};
}

}  // namespace qfr
