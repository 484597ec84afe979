// Every file named by the batch or by a report is opened through this lookup: names are kept in
// lower case and with Windows separators, the files on disk are not.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qfr {

// UTF-8 text and paths, both ways; empty when the one has no form as the other.
std::filesystem::path PathOf(std::string_view utf8);
std::string TextOf(const std::filesystem::path& path);

// A job's title as a file name without extension: without the characters that file systems refuse.
std::string FileNameForTitle(const std::string& title);

// The file (or directory) of that name: as it stands, else with "\" taken as a separator and each
// component matched without regard to case. Absent when there is none, or more than one.
std::optional<std::filesystem::path> FindFile(std::string_view name);

// The same lookup for many files in a row, as when a batch is read: each folder is listed once. It
// does not see what changes on disk meanwhile, so it lives as long as one command.
class FileFinder {
  public:
    std::optional<std::filesystem::path> Find(std::string_view name);
    // When there is none, the file of the same base name in `folder` (UTF-8; empty: no folder),
    // which is that of the file that names this one.
    std::optional<std::filesystem::path> FindBeside(std::string_view name, std::string_view folder);

    // Whether the last lookup has found several files whose names differ from the wanted one in
    // nothing but case, and therefore none.
    bool FoundSeveral() const { return foundSeveral_; }

  private:
    // Lower-cased names with the names themselves, sorted.
    using Listing = std::vector<std::pair<std::string, std::string>>;

    struct FoundFolder {
        std::optional<std::filesystem::path> folder;
        bool several = false;
    };

    const Listing& ListingOf(const std::filesystem::path& folder);
    // The file that the components name below `folder` (empty: the current directory).
    std::optional<std::filesystem::path> FindBelow(const std::filesystem::path& folder,
                                                   std::span<const std::string> components);

    std::map<std::filesystem::path, Listing> listings_;
    // The folders of files that were looked for, as they were named.
    std::unordered_map<std::string, FoundFolder> folders_;
    // Names that do not stand so on disk, with the files that they have led to.
    std::unordered_map<std::string, std::filesystem::path> found_;
    int questions_ = 0;
    bool foundSeveral_ = false;
};

}  // namespace qfr
