#include "platform/FileLookup.h"

#include <algorithm>
#include <span>
#include <system_error>
#include <vector>

#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

// A lookup reads at most this many directories, whatever links they hold.
constexpr int kMaxScans = 64;

bool Exists(const fs::path& path) {
    std::error_code error;
    return fs::exists(path, error);
}

std::string UpperAscii(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return upper;
}

class Search {
  public:
    // The file that the components name below `folder` (empty: the current directory).
    std::optional<fs::path> Find(const fs::path& folder, std::span<const std::string> components) {
        if (components.empty()) {
            return folder;
        }
        const std::string& name = components.front();
        const auto rest = components.subspan(1);
        // Instruments name their files in capitals; trying those first spares the scan of a folder
        // with a thousand reports.
        const std::vector<std::string> likely = {name, UpperAscii(name)};
        for (const std::string& candidate : likely) {
            const fs::path path = folder / PathOf(candidate);
            if (Exists(path)) {
                if (auto found = Find(path, rest)) {
                    return found;
                }
            }
        }
        for (const std::string& candidate : NamesLike(folder, name)) {
            if (std::find(likely.begin(), likely.end(), candidate) == likely.end()) {
                if (auto found = Find(folder / PathOf(candidate), rest)) {
                    return found;
                }
            }
        }
        return std::nullopt;
    }

  private:
    // Names in the folder that differ from this one in case only, sorted.
    std::vector<std::string> NamesLike(const fs::path& folder, std::string_view name) {
        std::vector<std::string> names;
        if (scans_ == kMaxScans) {
            return names;
        }
        ++scans_;
        const std::string wanted = LowerCase(name);
        std::error_code error;
        fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            std::string candidate = TextOf(entry->path().filename());
            if (candidate.size() == wanted.size() && LowerCase(candidate) == wanted) {
                names.push_back(std::move(candidate));
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    int scans_ = 0;
};

}  // namespace

fs::path PathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::optional<fs::path> FindFile(std::string_view name) {
    // The system would take such a name for what stands before the NUL.
    if (name.empty() || Contains(name, std::string_view("\0", 1))) {
        return std::nullopt;
    }
    if (fs::path path = PathOf(name); Exists(path)) {
        return path;
    }
    std::string separated(name);
    std::replace(separated.begin(), separated.end(), '\\', '/');
    const fs::path path = PathOf(separated);
    std::vector<std::string> components;
    for (const fs::path& component : path.relative_path()) {
        components.push_back(TextOf(component));
    }
    return Search().Find(path.root_path(), components);
}

std::optional<fs::path> FindFileBeside(std::string_view name, std::string_view folder) {
    if (auto found = FindFile(name)) {
        return found;
    }
    const std::string baseName = FileNameOnly(name);
    if (folder.empty() || baseName.empty()) {
        return std::nullopt;
    }
    return Search().Find(PathOf(folder), std::vector<std::string>{baseName});
}

}  // namespace qfr
