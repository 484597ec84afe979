#include "platform/qt/HelpFile.h"

#include <algorithm>
#include <array>
#include <chm_lib.h>
#include <fstream>

#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QtEndian>

namespace qfr {

namespace {

constexpr std::uintmax_t kMostBytes = 64 << 20;
constexpr LONGUINT64 kMostBytesOfOne = 8 << 20;
constexpr int kMostDepth = 10;

const QString kContentsFile = "QFRHelp.hhc";

// Where the file's head holds its signature and the file's length.
constexpr std::string_view kSignature = "ITSF";
constexpr std::size_t kLengthAt = 0x68;

// A file that was not written to its end would send libchm beyond it.
bool IsWhole(const std::filesystem::path& path) {
    std::error_code error;
    const std::uintmax_t length = std::filesystem::file_size(path, error);
    if (error || length > kMostBytes) {
        return false;
    }
    std::array<char, kLengthAt + sizeof(std::uint64_t)> head{};
    std::ifstream file(path, std::ios::binary);
    return file.read(head.data(), head.size()) &&
           std::string_view(head.data(), kSignature.size()) == kSignature &&
           qFromLittleEndian<std::uint64_t>(head.data() + kLengthAt) == length;
}

}  // namespace

void HelpFile::Close::operator()(chmFile* file) const {
    chm_close(file);
}

std::unique_ptr<HelpFile> HelpFile::Open(const std::filesystem::path& file) {
    chmFile* const opened = IsWhole(file) ? chm_open(file.c_str()) : nullptr;
    if (opened == nullptr) {
        return nullptr;
    }
    std::unique_ptr<HelpFile> help(new HelpFile(opened));
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
