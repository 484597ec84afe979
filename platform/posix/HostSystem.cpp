#include "platform/HostSystem.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace qfr {

namespace fs = std::filesystem;

namespace {

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

}  // namespace

std::vector<std::string> ProgramArguments(int argc, const char* const* argv) {
    return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool IsWritable(const fs::path& folder) {
    std::error_code error;
    return fs::is_directory(folder, error) &&
           ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

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
        // A share that shows all files as somebody else's has the same permissions for all of them,
        // and refuses to set any.
        [[maybe_unused]] const bool ownerKept = ::fchown(out.Value(), old.st_uid, old.st_gid) == 0;
        [[maybe_unused]] const bool permissionsKept =
            ::fchmod(out.Value(), old.st_mode & kPermissions) == 0;
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

void FlushFolder(const fs::path& folder) {
    const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.Value() >= 0) {
        ::fsync(directory.Value());
    }
}

}  // namespace qfr
