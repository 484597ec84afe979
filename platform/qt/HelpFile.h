// A compiled help file (*.chm), read with libchm.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include <QByteArray>
#include <QString>

struct chmFile;

namespace qfr {

// A line of the help's contents.
struct HelpChapter {
    QString title;
    QString page;  // as HelpFile::Read takes it
    int depth;     // from 0
};

class HelpFile {
  public:
    // Absent when the file is not there, is cut short, or holds no contents. A help file has at
    // most 64 MB, and what it holds at most 8 MB each.
    static std::unique_ptr<HelpFile> Open(const std::filesystem::path& file);

    // What stands in the file under this path, "pictures/form1.png" for instance; absent when
    // nothing does, when it has more than 8 MB, or when it cannot be read.
    std::optional<QByteArray> Read(const QString& path) const;

    // In the order of the contents; never empty.
    const std::vector<HelpChapter>& Contents() const { return contents_; }

  private:
    explicit HelpFile(std::shared_ptr<chmFile> file) : file_(std::move(file)) {}
    void ReadContents();

    std::shared_ptr<chmFile> file_;
    std::vector<HelpChapter> contents_;
};

}  // namespace qfr
