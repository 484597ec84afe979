#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include "platform/qt/HelpTopics.h"
#include "platform/qt/HelpViewer.h"

namespace qfr {

bool OpenSystemHelp(const std::filesystem::path& file, int topic) {
    const QString viewer = qEnvironmentVariable("WINDIR") + "/hh.exe";
    std::error_code error;
    if (!QFileInfo(viewer).isFile() || !std::filesystem::is_regular_file(file, error)) {
        return false;
    }
    const QString name = QDir::toNativeSeparators(QString::fromStdWString(file.wstring()));
    const std::string_view page = HelpPageOf(topic);
    return QProcess::startDetached(
        viewer,
        {name + "::/" + QString::fromLatin1(page.data(), static_cast<qsizetype>(page.size()))});
}

}  // namespace qfr
