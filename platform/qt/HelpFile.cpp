#include "platform/qt/HelpFile.h"

#include <algorithm>
#include <chm_lib.h>

#include <QCryptographicHash>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>

#include "platform/qt/HelpTopics.h"

namespace qfr {

namespace {

constexpr LONGUINT64 kMostBytesOfOne = 8 << 20;
constexpr int kMostDepth = 10;

const QString kContentsFile = "QFRHelp.hhc";

// libchm does not survive every damaged file, so it reads none but the one built with the program.
bool IsOurs(const std::filesystem::path& path) {
    QFile file(path);
    QCryptographicHash digest(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && digest.addData(&file) &&
           digest.result().toHex() == QByteArrayView(HelpDigest());
}

}  // namespace

std::unique_ptr<HelpFile> HelpFile::Open(const std::filesystem::path& file) {
    chmFile* const opened = IsOurs(file) ? chm_open(file.string().c_str()) : nullptr;
    if (opened == nullptr) {
        return nullptr;
    }
    std::unique_ptr<HelpFile> help(new HelpFile({opened, chm_close}));
    help->ReadContents();
    return help->contents_.empty() ? nullptr : std::move(help);
}

std::optional<QByteArray> HelpFile::Read(const QString& path) const {
    chmUnitInfo found{};
    const QByteArray name = '/' + path.toUtf8();
    if (name.size() > CHM_MAX_PATHLEN ||
        chm_resolve_object(file_.get(), name.constData(), &found) != CHM_RESOLVE_SUCCESS ||
        found.length > kMostBytesOfOne) {
        return std::nullopt;
    }
    QByteArray bytes(static_cast<qsizetype>(found.length), '\0');
    const LONGINT64 read =
        chm_retrieve_object(file_.get(), &found, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                            static_cast<LONGINT64>(found.length));
    if (read != bytes.size()) {
        return std::nullopt;
    }
    return bytes;
}

void HelpFile::ReadContents() {
    // Lists within lists of objects, each with a name and a page.
    static const QRegularExpression parts(
        R"re(<(?<list>/?ul)\b|<param\s+name="(?<key>name|local)"\s+value="(?<value>[^"]*)")re",
        QRegularExpression::CaseInsensitiveOption);
    const QString source = QString::fromUtf8(Read(kContentsFile).value_or(QByteArray()));
    int depth = -1;
    QString title;
    for (auto part = parts.globalMatch(source); part.hasNext();) {
        const QRegularExpressionMatch match = part.next();
        const QString value =
            QTextDocumentFragment::fromHtml(match.captured("value")).toPlainText();
        if (!match.captured("list").isEmpty()) {
            depth += match.captured("list").startsWith('/') ? -1 : 1;
        } else if (match.captured("key").compare("name", Qt::CaseInsensitive) == 0) {
            title = value;
        } else {
            contents_.push_back({title, value, std::clamp(depth, 0, kMostDepth)});
        }
    }
}

}  // namespace qfr
