#include "data/FoundFiles.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/FileLookup.h"
#include "platform/HostSystem.h"
#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

void List(const std::string& folder, std::vector<FoundFile>& files, std::vector<ToldFile>& told) {
    std::error_code error;
    for (fs::directory_iterator entry(FullPathOf(PathOf(folder)), error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code unknown;
        const std::string path = TextOf(entry->path());
        if (!FileNameOnly(path).starts_with('.') && !entry->is_directory(unknown)) {
            files.push_back({path, false});
        }
    }
    if (error) {
        told.push_back({folder, CouldNotBeRead(folder).text});
    }
}

}  // namespace

std::vector<FoundFile> FindFiles(const std::vector<std::string>& names,
                                 std::vector<ToldFile>& told) {
    std::vector<FoundFile> files;
    for (const std::string& name : names) {
        std::error_code error;
        if (fs::is_directory(PathOf(name), error)) {
            List(name, files, told);
        } else {
            files.push_back({name, true});
        }
    }
    std::ranges::sort(files, {}, [](const FoundFile& file) {
        return std::pair(std::string_view(file.Path), !file.Named);
    });
    const auto same = [](const FoundFile& one, const FoundFile& other) {
        return one.Path == other.Path;
    };
    files.erase(std::unique(files.begin(), files.end(), same), files.end());
    if (files.size() > kMaxSortedFiles) {
        told.push_back({FolderOnly(files[kMaxSortedFiles].Path),
                        "There are more than 10,000 files. This one and those behind it are not "
                        "looked at: " +
                            FileNameOnly(files[kMaxSortedFiles].Path)});
        files.resize(kMaxSortedFiles);
    }
    return files;
}

}  // namespace qfr
