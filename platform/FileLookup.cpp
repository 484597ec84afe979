#include "platform/FileLookup.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <system_error>
#include <utility>

#include "platform/HostSystem.h"
#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

// A lookup asks at most this many directories for their names, whatever links they hold.
constexpr int kMaxQuestions = 64;

bool Exists(const fs::path& path) {
    std::error_code error;
    return fs::exists(path, error);
}

}  // namespace

// Where names are of wide characters, not every text is a name, nor every name a text.
fs::path PathOf(std::string_view utf8) {
    try {
        return {std::u8string(utf8.begin(), utf8.end())};
    } catch (const std::system_error&) {
        return {};
    }
}

std::string TextOf(const fs::path& path) {
    try {
        const std::u8string text = path.u8string();
        return {text.begin(), text.end()};
    } catch (const std::system_error&) {
        return {};
    }
}

const FileFinder::Listing& FileFinder::ListingOf(const fs::path& folder) {
    const auto [known, isNew] = listings_.try_emplace(folder);
    Listing& listing = known->second;
    if (isNew) {
        std::error_code error;
        fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            std::string name = TextOf(entry->path().filename());
            listing.emplace_back(LowerCase(name), std::move(name));
        }
        std::sort(listing.begin(), listing.end());
    }
    return listing;
}

std::optional<fs::path> FileFinder::FindBelow(const fs::path& folder,
                                              std::span<const std::string> components) {
    if (components.empty()) {
        return folder;
    }
    const std::string& name = components.front();
    const auto rest = components.subspan(1);
    const fs::path asItStands = folder / PathOf(name);
    if (Exists(asItStands)) {
        auto found = FindBelow(asItStands, rest);
        if (found || foundSeveral_) {
            return found;
        }
    }
    if (++questions_ > kMaxQuestions) {
        return std::nullopt;
    }
    const Listing& listing = ListingOf(folder);
    const std::string wanted = LowerCase(name);
    auto entry = std::lower_bound(listing.begin(), listing.end(), std::pair(wanted, std::string()));
    std::optional<fs::path> found;
    for (; entry != listing.end() && entry->first == wanted; ++entry) {
        if (entry->second != name) {
            auto next = FindBelow(folder / PathOf(entry->second), rest);
            foundSeveral_ = foundSeveral_ || (found && next);
            found = found ? found : std::move(next);
        }
    }
    return foundSeveral_ ? std::nullopt : found;
}

std::optional<fs::path> FileFinder::Find(std::string_view name) {
    foundSeveral_ = false;
    // The system would take a name with a NUL for what stands before it.
    if (name.empty() || name.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    if (const auto known = found_.find(std::string(name)); known != found_.end()) {
        return known->second;
    }
    if (fs::path path = PathOf(name); Exists(path)) {
        return path;
    }
    std::string separated(name);
    std::replace(separated.begin(), separated.end(), '\\', '/');
    const std::size_t baseName = separated.rfind('/') + 1;  // npos + 1 is 0
    const auto findAll = [this](const std::string& text) {
        const fs::path path = PathOf(text);
        const fs::path root = RootOf(path);
        std::vector<std::string> components;
        for (const fs::path& component :
             fs::path(path.native().substr(root.native().size())).relative_path()) {
            components.push_back(TextOf(component));
        }
        questions_ = 0;
        return FindBelow(root, components);
    };
    // Reports stand side by side, so each folder is looked for once.
    const auto [known, isNew] = folders_.try_emplace(separated.substr(0, baseName));
    FoundFolder& found = known->second;
    if (isNew) {
        found.folder = findAll(known->first);
        found.several = std::exchange(foundSeveral_, false);
    }
    if (found.folder) {
        questions_ = 0;
        auto file = FindBelow(*found.folder, std::array{separated.substr(baseName)});
        if (file) {
            found_.emplace(name, *file);
        }
        if (file || foundSeveral_) {
            return file;
        }
    } else if (!found.several) {
        return std::nullopt;
    }
    return findAll(separated);
}

std::optional<fs::path> FileFinder::FindBeside(std::string_view name, std::string_view folder) {
    auto found = Find(name);
    if (found || foundSeveral_) {
        return found;
    }
    const std::string baseName = FileNameOnly(name);
    if (folder.empty() || baseName.empty()) {
        return std::nullopt;
    }
    questions_ = 0;
    return FindBelow(PathOf(folder), std::vector{baseName});
}

namespace {

// Windows takes such names for devices, whatever extension they have.
bool NamesDevice(std::string_view name) {
    static constexpr std::string_view kDevices[] = {"con", "prn", "aux", "nul"};
    static constexpr std::string_view kNumbered[] = {"com", "lpt"};
    const std::string stem = LowerCase(Trim(name.substr(0, name.find('.'))));
    return std::ranges::find(kDevices, stem) != std::end(kDevices) ||
           (stem.size() == 4 && std::isdigit(static_cast<unsigned char>(stem[3])) != 0 &&
            std::ranges::find(kNumbered, stem.substr(0, 3)) != std::end(kNumbered));
}

}  // namespace

std::string FileNameForTitle(const std::string& title) {
    static constexpr std::string_view kRefused = "\\/:*?\"<>|";
    constexpr std::size_t kMaxCharacters = 60;  // of four bytes, with room for an extension
    std::string name(FirstCharacters(Trim(title), kMaxCharacters));
    std::ranges::replace_if(
        name, [](char c) { return kRefused.find(c) != std::string_view::npos; }, '-');
    name = Visible(name);
    if (fs::path::preferred_separator == '\\') {
        std::ranges::replace(name, '?', '-');
    }
    // Windows drops blanks and dots at the end, and a leading dot hides a file elsewhere.
    name.erase(name.find_last_not_of(" .") + 1);
    name.erase(0, name.find_first_not_of(" ."));
    return name.empty() ? "Form" : NamesDevice(name) ? "Form " + name : name;
}

std::optional<fs::path> FindFile(std::string_view name) {
    return FileFinder().Find(name);
}

}  // namespace qfr
