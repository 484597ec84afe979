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
    return !IsReadOnly(target) ||
           messages.AskYesNo({FileNameOnly(TextOf(target)) + " is read-only.\nReplace it?",
                              "Warning", MessageIcon::kWarning});
}

std::optional<std::string> ReplaceFile(const fs::path& target, std::string_view content,
                                       ReadOnlyFile readOnly) {
    return ReplaceFile(
        target, [content](const PutPiece& put) { return put(content); }, readOnly);
}

std::optional<std::string> ReplaceFile(const fs::path& target, const ContentPieces& content,
                                       ReadOnlyFile readOnly) {
    std::error_code error;
    std::optional<std::error_code> written = WriteThrough(target, content);
    const fs::path file = written ? target : LinkTarget(target, error);
    if (!written && !error) {
        written = WriteThrough(file, content);
    }
    error = written.value_or(error);
    if (written || error) {
        return error ? std::optional(error.message()) : std::nullopt;
    }
    if (readOnly == ReadOnlyFile::kStays && IsReadOnly(file)) {
        return "The file is read-only.";
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(file, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        // A rename would put a plain file in the place of a device.
        const auto reason = fs::is_directory(status) ? std::errc::is_a_directory
                                                     : std::errc::operation_not_supported;
        return std::make_error_code(reason).message();
    }
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const fs::path temporary = folder / TemporaryName();
    error = WriteNewFile(temporary, file, content);
    if (!error) {
        fs::rename(temporary, file, error);
    }
    if (error) {
        fs::remove(temporary, ignored);
        return error.message();
    }
    FlushFolder(folder);
    return std::nullopt;
}

}  // namespace qfr
