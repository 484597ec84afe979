#include "platform/FileReplace.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <random>
#include <system_error>

#include "platform/FileLookup.h"
#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

// Short, so that it fits wherever the target's own name does, and not to be guessed by others who
// may write to the folder.
std::string TemporaryName() {
    std::random_device random;
    std::array<char, 40> name{};
    std::snprintf(name.data(), name.size(), ".qfr-%08x%08x.tmp", static_cast<unsigned>(random()),
                  static_cast<unsigned>(random()));
    return name.data();
}

// The file that a link stands for, so that the link itself survives; it need not exist.
fs::path LinkTarget(fs::path path, std::error_code& error) {
    constexpr int kMaxLinks = 40;
    for (int i = 0; i < kMaxLinks && !error; ++i) {
        std::error_code ignored;
        if (!fs::is_symlink(fs::symlink_status(path, ignored))) {
            return path;
        }
        if (!MayFollow(path)) {
            error = std::make_error_code(std::errc::permission_denied);
            return path;
        }
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    error = error ? error : std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return path;
}

// One file on its way to its target. What has not taken its place goes with this.
class Replacement {
  public:
    Replacement() = default;
    ~Replacement() {
        if (!temporary_.empty()) {
            std::error_code ignored;
            fs::remove(temporary_, ignored);
        }
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    // To the disk, beside the target; a device is written to at once. The reason of a failure.
    std::optional<std::string> Write(const fs::path& target, const ContentPieces& content,
                                     ReadOnlyFile readOnly);
    std::optional<std::string> TakePlace();

  private:
    fs::path Folder() const { return file_.has_parent_path() ? file_.parent_path() : "."; }

    fs::path file_;
    fs::path temporary_;  // empty: there is none
};

std::optional<std::string> Replacement::Write(const fs::path& target, const ContentPieces& content,
                                              ReadOnlyFile readOnly) {
    std::error_code error;
    std::optional<std::error_code> written = WriteThrough(target, content);
    file_ = written ? target : LinkTarget(target, error);
    if (!written && !error) {
        written = WriteThrough(file_, content);
    }
    error = written.value_or(error);
    if (written || error) {
        return error ? std::optional(error.message()) : std::nullopt;
    }
    if (readOnly == ReadOnlyFile::kStays && IsReadOnly(file_)) {
        return "The file is read-only.";
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(file_, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        // A rename would put a plain file in the place of a device.
        const auto reason = fs::is_directory(status) ? std::errc::is_a_directory
                                                     : std::errc::operation_not_supported;
        return std::make_error_code(reason).message();
    }
    temporary_ = Folder() / TemporaryName();
    error = WriteNewFile(temporary_, file_, content);
    return error ? std::optional(error.message()) : std::nullopt;
}

ContentPieces Whole(std::string_view content) {
    return [content](const PutPiece& put) { return put(content); };
}

std::optional<std::string> Replacement::TakePlace() {
    if (temporary_.empty()) {
        return std::nullopt;
    }
    if (const std::error_code error = MoveOver(temporary_, file_)) {
        return error.message();
    }
    temporary_.clear();
    FlushFolder(Folder());
    return std::nullopt;
}

}  // namespace

void RemoveLeftovers(const fs::path& folder) {
    constexpr auto kDay = std::chrono::hours(24);
    const auto now = fs::file_time_type::clock::now();
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error);
         !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const fs::path& file = entry->path();
        const std::string name = TextOf(file.filename());
        std::error_code ignored;
        if (name.starts_with(".qfr-") && name.ends_with(".tmp") && IsUsersOwn(file) &&
            !entry->is_symlink(ignored) && now - entry->last_write_time(ignored) > kDay) {
            fs::remove_all(file, ignored);
        }
    }
}

bool AgreesToReplace(const fs::path& target, Messages& messages) {
    return !IsReadOnly(target) || messages.AskYesNo(RiskyQuestion(FileNameOnly(TextOf(target)) +
                                                                  " is read-only.\nReplace it?"));
}

std::optional<std::string> ReplaceFile(const fs::path& target, std::string_view content,
                                       ReadOnlyFile readOnly) {
    return ReplaceFile(target, Whole(content), readOnly);
}

std::optional<std::string> ReplaceFile(const fs::path& target, const ContentPieces& content,
                                       ReadOnlyFile readOnly) {
    Replacement replacement;
    const auto failure = replacement.Write(target, content, readOnly);
    return failure ? failure : replacement.TakePlace();
}

std::optional<WriteFailure> ReplaceFiles(const std::vector<NewFile>& files, ReadOnlyFile readOnly) {
    std::vector<Replacement> replacements(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (auto failure =
                replacements[i].Write(files[i].Target, Whole(files[i].Content), readOnly)) {
            return WriteFailure{files[i].Target, *std::move(failure)};
        }
    }
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (auto failure = replacements[i].TakePlace()) {
            return WriteFailure{files[i].Target, *std::move(failure)};
        }
    }
    return std::nullopt;
}

}  // namespace qfr
