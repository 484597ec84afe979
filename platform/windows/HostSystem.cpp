#include "platform/HostSystem.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <mutex>
#include <string_view>
#include <sys/stat.h>
#include <utility>

// clang-format off
#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>
// clang-format on

#include "platform/FileLookup.h"
#include "platform/windows/ProgramFolder.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestPath = 32768;
constexpr std::wstring_view kSeparators = L"/\\";

// The files that a pattern in the last part of a path matches, without regard to case, sorted.
std::vector<fs::path> Matches(const fs::path& pattern) {
    std::vector<fs::path> files;
    WIN32_FIND_DATAW found{};
    HANDLE const search = ::FindFirstFileW(pattern.c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            // The system also matches the short names that it gives to long ones.
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
                ::PathMatchSpecW(found.cFileName, pattern.filename().c_str()) != 0) {
                files.push_back(pattern.parent_path() / found.cFileName);
            }
        } while (::FindNextFileW(search, &found) != 0);
        ::FindClose(search);
    }
    std::ranges::sort(files);
    return files;
}

// "NUL", "COM1" and the like, in whatever folder they are thought to be.
bool IsDevice(const fs::path& file) {
    return FullPathOf(file).native().starts_with(L"\\\\.\\");
}

std::error_code SystemError(DWORD error) {
    return {static_cast<int>(error), std::system_category()};
}

}  // namespace

std::vector<std::string> ProgramArguments(int, const char* const*) {
    // Those of main have lost what the system's code page lacks.
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> all(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; all && i < count; ++i) {
        const std::wstring_view argument = all.get()[i];
        const auto files = argument.find_first_of(L"*?") == std::wstring_view::npos
                               ? std::vector<fs::path>()
                               : Matches(argument);
        for (const fs::path& file : files) {
            arguments.push_back(TextOf(file));
        }
        if (files.empty()) {
            arguments.push_back(TextOf(argument));
        }
    }
    return arguments;
}

fs::path ProgramFolder() {
    std::wstring program(kLongestPath, L'\0');
    program.resize(
        ::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    return fs::path(program).parent_path();
}

PlainOutput::PlainOutput() : before_(::GetConsoleOutputCP()) {
    ::_setmode(1, _O_BINARY);
    ::_setmode(2, _O_BINARY);
    ::SetConsoleOutputCP(CP_UTF8);
}

// The prompt outlives the program.
PlainOutput::~PlainOutput() {
    ::SetConsoleOutputCP(before_);
}

ModuleFunction FindInModule(const std::string& module, const char* function, std::string& reason) {
    const fs::path file = ProgramFolder() / (module + ".dll");
    HMODULE const loaded = ::LoadLibraryW(file.c_str());
    const FARPROC found = loaded != nullptr ? ::GetProcAddress(loaded, function) : nullptr;
    if (found == nullptr) {
        reason = TextOf(file) + " could not be loaded.";
    }
    return reinterpret_cast<ModuleFunction>(found);
}

// The library takes the server of "\\server\share" for a folder of the current drive.
fs::path FullPathOf(const fs::path& file) {
    std::wstring full(kLongestPath, L'\0');
    const DWORD size =
        ::GetFullPathNameW(file.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    full.resize(size < full.size() ? size : 0);
    return full;
}

fs::path RootOf(const fs::path& path) {
    const std::wstring_view name = path.native();
    const auto isSeparator = [](wchar_t c) { return kSeparators.find(c) != kSeparators.npos; };
    if (name.size() < 2 || !isSeparator(name[0]) || !isSeparator(name[1])) {
        return path.root_path();
    }
    const std::size_t share = name.find_first_of(kSeparators, 2);
    const std::size_t end = share == name.npos ? share : name.find_first_of(kSeparators, share + 1);
    return name.substr(0, end == name.npos ? end : end + 1);
}

bool IsWritable(const fs::path& folder) {
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        return false;
    }
    // Access lists decide, and only an attempt tells.
    const fs::path probe = folder / "qfr-probe.tmp";
    const bool written =
        !WriteNewFile(probe, fs::path(), [](const PutPiece&) { return std::error_code(); });
    fs::remove(probe, error);
    return written;
}

bool IsUsersOwn(const fs::path&) {
    return true;
}

bool IsReadOnly(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return fs::is_regular_file(status) &&
           (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

bool MayFollow(const fs::path&) {
    return true;
}

// Forms that went to a device would be lost there, or wait for one that is not plugged in.
std::optional<std::error_code> WriteThrough(const fs::path& device, const ContentPieces&) {
    return IsDevice(device) ? std::optional(SystemError(ERROR_INVALID_NAME)) : std::nullopt;
}

std::error_code WriteNewFile(const fs::path& file, const fs::path&, const ContentPieces& content) {
    const int out =
        ::_wopen(file.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
    if (out < 0) {
        return {errno, std::generic_category()};
    }
    std::error_code error = content([out](std::string_view piece) {
        while (!piece.empty()) {
            constexpr std::size_t kAtOnce = 1 << 20;
            const int written =
                ::_write(out, piece.data(), static_cast<unsigned>(std::min(piece.size(), kAtOnce)));
            if (written <= 0) {
                return std::error_code(errno, std::generic_category());
            }
            piece.remove_prefix(static_cast<std::size_t>(written));
        }
        return std::error_code();
    });
    if (!error && ::_commit(out) != 0) {
        error.assign(errno, std::generic_category());
    }
    return ::_close(out) == 0 || error ? error : std::make_error_code(std::errc::io_error);
}

std::error_code MoveOver(const fs::path& file, const fs::path& other) {
    constexpr int kAttempts = 20;
    constexpr DWORD kPause = 50;  // ms
    // Who replaces a read-only file has asked; the system refuses nevertheless.
    const DWORD attributes = ::GetFileAttributesW(other.c_str());
    const bool readOnly =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly) {
        ::SetFileAttributesW(other.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    for (int attempt = 1;; ++attempt) {
        if (::MoveFileExW(file.c_str(), other.c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
            if (readOnly) {
                ::SetFileAttributesW(other.c_str(), attributes);
            }
            return {};
        }
        const DWORD error = ::GetLastError();
        const bool mayEnd = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
                            error == ERROR_ACCESS_DENIED;
        if (!mayEnd || attempt == kAttempts) {
            if (readOnly) {
                ::SetFileAttributesW(other.c_str(), attributes);
            }
            return SystemError(error);
        }
        ::Sleep(kPause);
    }
}

void FlushFolder(const fs::path&) {}

void NoteRecentFile(const fs::path& file) {
    ::SHAddToRecentDocs(SHARD_PATHW, FullPathOf(file).c_str());
}

struct EndRequests::Listener {
    std::function<void()> onRequest;
    bool asked = false;

    // The system knows plain functions only, which it calls on a thread that it makes.
    inline static std::mutex mutex;
    inline static Listener* current = nullptr;
    static BOOL WINAPI TakeEvent(DWORD event) {
        const bool closes = event == CTRL_CLOSE_EVENT || event == CTRL_SHUTDOWN_EVENT;
        // A user who logs off may be another one.
        if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT && !closes) {
            return FALSE;
        }
        {
            const std::lock_guard lock(mutex);
            // Who asks again does not want to wait.
            if (current == nullptr || std::exchange(current->asked, true)) {
                return FALSE;
            }
            current->onRequest();
        }
        if (closes) {
            ::Sleep(INFINITE);  // the system ends the program when this returns
        }
        return TRUE;
    }
};

EndRequests::EndRequests(std::function<void()> onRequest)
    : listener_(std::make_unique<Listener>()) {
    listener_->onRequest = std::move(onRequest);
    {
        const std::lock_guard lock(Listener::mutex);
        Listener::current = listener_.get();
    }
    // It stays with the system, which lets none go while one of them waits.
    static const BOOL isKnown = ::SetConsoleCtrlHandler(Listener::TakeEvent, TRUE);
    static_cast<void>(isKnown);
}

EndRequests::~EndRequests() {
    const std::lock_guard lock(Listener::mutex);
    Listener::current = nullptr;
}

}  // namespace qfr
