#include "platform/FileReplace.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <random>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <io.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

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
    for (int i = 0; i < kMaxLinks; ++i) {
        std::error_code ignored;
        if (!fs::is_symlink(fs::symlink_status(path, ignored))) {
            return path;
        }
        path = path.parent_path() / fs::read_symlink(path, error);
        if (error) {
            return path;
        }
    }
    error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    return path;
}

#ifdef _WIN32

std::error_code WriteNewFile(const fs::path& file, const fs::path&, std::string_view content) {
    std::FILE* const out = ::_wfopen(file.c_str(), L"wbx");
    if (out == nullptr) {
        return {errno, std::generic_category()};
    }
    const bool whole = std::fwrite(content.data(), 1, content.size(), out) == content.size() &&
                       std::fflush(out) == 0 && ::_commit(::_fileno(out)) == 0;
    const bool closed = std::fclose(out) == 0;
    return whole && closed ? std::error_code() : std::make_error_code(std::errc::io_error);
}

void FlushFolder(const fs::path&) {}

#else

std::error_code LastError() {
    return {errno, std::generic_category()};
}

class Descriptor {
  public:
    explicit Descriptor(int value) : value_(value) {}
    ~Descriptor() {
        if (value_ >= 0) {
            ::close(value_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Value() const { return value_; }
    // Some file systems report a full disk only here.
    int Close() { return ::close(std::exchange(value_, -1)); }

  private:
    int value_;
};

std::error_code WriteNewFile(const fs::path& file, const fs::path& replaced,
                             std::string_view content) {
    struct stat old {};
    const bool replaces = ::stat(replaced.c_str(), &old) == 0;
    constexpr mode_t kPermissions = 0777;
    Descriptor out(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                          replaces ? S_IRUSR | S_IWUSR : 0666));
    if (out.Value() < 0) {
        return LastError();
    }
    if (replaces) {
        // The owner can be kept only by those who may give files away; the others own the new file.
        if (::fchown(out.Value(), old.st_uid, old.st_gid) != 0) {
            errno = 0;
        }
        if (::fchmod(out.Value(), old.st_mode & kPermissions) != 0) {
            return LastError();
        }
    }
    while (!content.empty()) {
        const ssize_t written = ::write(out.Value(), content.data(), content.size());
        if (written < 0 && errno != EINTR) {
            return LastError();
        }
        content.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    // EINVAL: a file system that cannot flush a single file.
    if ((::fsync(out.Value()) != 0 && errno != EINVAL) || out.Close() != 0) {
        return LastError();
    }
    return {};
}

// Makes the rename last. The file is whole either way, so a file system that cannot do it is no
// failure.
void FlushFolder(const fs::path& folder) {
    const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.Value() >= 0) {
        ::fsync(directory.Value());
    }
}

#endif

}  // namespace

std::optional<std::string> ReplaceFile(const fs::path& target, std::string_view content) {
    std::error_code error;
    const fs::path file = LinkTarget(target, error);
    if (error) {
        return error.message();
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
