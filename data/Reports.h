// The one place that opens the files which a batch names. A run (one form, or many forms with one
// command) reads each of them once, however many forms use it, and lists each folder once; only
// what has changed before a later job of the run is read anew. Same size and same time count as
// unchanged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "data/CalibrationReport.h"
#include "data/CheckReport.h"
#include "data/CriteriaFile.h"
#include "data/QuantReport.h"
#include "data/RawDataFile.h"
#include "data/RecoveryRanges.h"
#include "platform/FileLookup.h"
#include "platform/Messages.h"

namespace qfr {

// What was read of a file, and where the files that it names are looked for as well (UTF-8). Test
// it before use: it is empty when there is no such file or it cannot be read.
template <typename Content>
class FileContent {
  public:
    FileContent() = default;
    FileContent(std::shared_ptr<const Content> content, std::string folder,
                std::filesystem::file_time_type written)
        : Folder(std::move(folder)), Written(written), content_(std::move(content)) {}
    explicit operator bool() const { return content_ != nullptr; }
    const Content& operator*() const { return *content_; }
    const Content* operator->() const { return content_.get(); }

    std::string Folder;
    std::filesystem::file_time_type Written;  // when the file was changed last

  private:
    std::shared_ptr<const Content> content_;
};

class Reports {
  public:
    Reports() = default;
    // Tells, once in each job, that a file is not read because its name stands for several, or
    // because it is too large.
    explicit Reports(Messages& messages) : messages_(&messages) {}

    // The file of that name, else the one of its base name in `folder`, which is that of the file
    // or batch that names it (UTF-8, empty: none). `Content` is one of the files listed below.
    template <typename Content>
    FileContent<Content> Read(std::string_view name, std::string_view folder);

    // A job of the run begins: it sees the files that have changed on disk since they were read.
    void BeginJob();

    // Whether the file, as it is chosen, is the one that its name in lower case leads to. A file
    // that is not there is taken for one.
    bool IsFoundInLowerCase(std::string_view file);

  private:
    struct Stamp {
        std::filesystem::file_time_type written;
        std::uintmax_t size = 0;
        bool operator==(const Stamp&) const = default;
    };
    template <typename Content>
    struct Known {
        Stamp stamp;
        std::size_t checkedIn = 0;  // the job that last looked at the file on disk
        FileContent<Content> content;
    };
    template <typename Content>
    using Files = std::unordered_map<std::filesystem::path::string_type, Known<Content>>;

    void Tell(std::string_view name, const Message& message);

    // Absent when it is no file.
    static std::optional<Stamp> StampOf(const std::filesystem::path& path);

    Messages* messages_ = nullptr;
    std::set<std::string, std::less<>> told_;  // names of files that the user was told of
    FileFinder finder_;
    std::size_t job_ = 0;
    std::tuple<Files<QuantReport>, Files<CalibrationReport>, Files<CheckReport>, Files<RawDataFile>,
               Files<RecoveryRangesFile>, Files<CriteriaFile>>
        files_;
};

}  // namespace qfr
