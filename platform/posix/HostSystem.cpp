#include "platform/HostSystem.h"

#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
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

std::error_code WriteAll(const Descriptor& out, const ContentPieces& content) {
    return content([&out](std::string_view piece) {
        while (!piece.empty()) {
            const ssize_t written = ::write(out.Value(), piece.data(), piece.size());
            if (written < 0 && errno != EINTR) {
                return LastError();
            }
            piece.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
        }
        return std::error_code();
    });
}

// The program's own open file that the name, or a link behind it, stands for; absent without one.
std::optional<int> OwnOpenFile(fs::path name) {
    constexpr int kMaxLinks = 40;
    std::error_code error;
    const fs::path openFiles = fs::canonical("/dev/fd", error);
    for (int i = 0; i < kMaxLinks && !error; ++i) {
        const fs::path folder =
            fs::canonical(name.has_parent_path() ? name.parent_path() : ".", error);
        const std::string last = name.filename().string();
        int number = 0;
        const auto [end, trouble] = std::from_chars(last.data(), last.data() + last.size(), number);
        if (!error && folder == openFiles && trouble == std::errc() && *end == '\0') {
            return number;
        }
        name = folder / fs::read_symlink(name, error);
    }
    return std::nullopt;
}

}  // namespace

std::vector<std::string> ProgramArguments(int argc, const char* const* argv) {
    return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

PlainOutput::PlainOutput() = default;
PlainOutput::~PlainOutput() = default;

ModuleFunction FindInModule(const std::string& module, const char* function, std::string& reason) {
    std::error_code error;
    const fs::path file =
        fs::read_symlink("/proc/self/exe", error).parent_path() / (module + ".so");
    void* const loaded = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const found = loaded != nullptr ? ::dlsym(loaded, function) : nullptr;
    if (found == nullptr) {
        const char* const text = ::dlerror();
        reason = text != nullptr ? text : file.string() + " could not be loaded.";
    }
    return reinterpret_cast<ModuleFunction>(found);
}

fs::path FullPathOf(const fs::path& file) {
    std::error_code error;
    const fs::path full = fs::absolute(file, error);
    return error ? fs::path() : full.lexically_normal();
}

fs::path RootOf(const fs::path& path) {
    return path.root_path();
}

bool IsWritable(const fs::path& folder) {
    std::error_code error;
    return fs::is_directory(folder, error) &&
           ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

bool IsUsersOwn(const fs::path& file) {
    struct stat found {};
    return ::lstat(file.c_str(), &found) == 0 && found.st_uid == ::geteuid();
}

bool IsReadOnly(const fs::path& file) {
    constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    struct stat found {};
    // An administrator may write all files, and means to keep what nobody is to write.
    return ::stat(file.c_str(), &found) == 0 && S_ISREG(found.st_mode) &&
           ((found.st_mode & kAnyWrite) == 0 ||
            (::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) != 0 && errno == EACCES));
}

bool MayFollow(const fs::path& link) {
    const fs::path folder = link.has_parent_path() ? link.parent_path() : ".";
    struct stat found {};
    struct stat above {};
    return ::lstat(link.c_str(), &found) == 0 && ::stat(folder.c_str(), &above) == 0 &&
           ((above.st_mode & S_ISVTX) == 0 || found.st_uid == ::geteuid());
}

std::optional<std::error_code> WriteThrough(const fs::path& device, const ContentPieces& content) {
    struct stat found {};
    const std::optional<int> own = OwnOpenFile(device);
    if (!own && (::lstat(device.c_str(), &found) != 0 ||
                 !(S_ISCHR(found.st_mode) || S_ISBLK(found.st_mode)))) {
        return std::nullopt;
    }
    Descriptor out(own ? ::dup(*own) : ::open(device.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
    const std::error_code error = out.Value() < 0 ? LastError() : WriteAll(out, content);
    return error || out.Close() == 0 ? error : LastError();
}

std::error_code WriteNewFile(const fs::path& file, const fs::path& replaced,
                             const ContentPieces& content) {
    struct stat old {};
    const bool replaces = ::stat(replaced.c_str(), &old) == 0;
    constexpr mode_t kPermissions = 0777;
    Descriptor out(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                          replaces ? S_IRUSR | S_IWUSR : 0666));
    if (out.Value() < 0) {
        return LastError();
    }
    if (replaces) {
        // The owner can be kept only by those who may give files away; the others own the new file,
        // and share it with the same group. A share that shows all files as somebody else's has the
        // same permissions for all of them, and refuses to set any.
        constexpr auto kSame = static_cast<uid_t>(-1);
        [[maybe_unused]] const bool groupKept = ::fchown(out.Value(), kSame, old.st_gid) == 0;
        [[maybe_unused]] const bool ownerKept = ::fchown(out.Value(), old.st_uid, kSame) == 0;
        [[maybe_unused]] const bool permissionsKept =
            ::fchmod(out.Value(), old.st_mode & kPermissions) == 0;
    }
    if (const auto error = WriteAll(out, content)) {
        return error;
    }
    // EINVAL: a file system that cannot flush a single file.
    if ((::fsync(out.Value()) != 0 && errno != EINVAL) || out.Close() != 0) {
        return LastError();
    }
    return {};
}

std::error_code MoveOver(const fs::path& file, const fs::path& other) {
    std::error_code error;
    fs::rename(file, other, error);
    return error;
}

void FlushFolder(const fs::path& folder) {
    const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.Value() >= 0) {
        ::fsync(directory.Value());
    }
}

// Each desktop keeps a list of its own.
void NoteRecentFile(const fs::path&) {}

struct EndRequests::Listener {
    sigset_t signals{};
    std::atomic<bool> done = false;
    std::thread thread;
};

EndRequests::EndRequests(std::function<void()> onRequest)
    : listener_(std::make_unique<Listener>()) {
    // A file that reaches the user's limit is a failed one, and not the program's end.
    ::signal(SIGXFSZ, SIG_IGN);
    Listener& listener = *listener_;
    ::sigemptyset(&listener.signals);
    ::sigaddset(&listener.signals, SIGTERM);
    // Threads inherit this, so that no other one is interrupted.
    ::pthread_sigmask(SIG_BLOCK, &listener.signals, nullptr);
    listener.thread = std::thread([&listener, onRequest = std::move(onRequest)] {
        int signal = 0;
        while (::sigwait(&listener.signals, &signal) == 0 && !listener.done) {
            onRequest();
        }
    });
}

EndRequests::~EndRequests() {
    listener_->done = true;
    // Only the thread that waits for it gets it.
    ::kill(::getpid(), SIGTERM);
    listener_->thread.join();
    ::pthread_sigmask(SIG_UNBLOCK, &listener_->signals, nullptr);
}

}  // namespace qfr
