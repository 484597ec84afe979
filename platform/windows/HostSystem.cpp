#include "platform/HostSystem.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <sys/stat.h>

// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include "platform/FileLookup.h"
#include "platform/windows/ProgramFolder.h"

namespace qfr {

namespace fs = std::filesystem;

std::vector<std::string> ProgramArguments(int, const char* const*) {
    // Those of main have lost what the system's code page lacks.
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> all(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; all && i < count; ++i) {
        arguments.push_back(TextOf(all.get()[i]));
    }
    return arguments;
}

fs::path ProgramFolder() {
    constexpr std::size_t kLongest = 32768;
    std::wstring program(kLongest, L'\0');
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

std::optional<std::error_code> WriteThrough(const fs::path&, const ContentPieces&) {
    return std::nullopt;
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
    for (int attempt = 1;; ++attempt) {
        if (::MoveFileExW(file.c_str(), other.c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
            return {};
        }
        const DWORD error = ::GetLastError();
        const bool mayEnd = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
                            error == ERROR_ACCESS_DENIED;
        if (!mayEnd || attempt == kAttempts) {
            return {static_cast<int>(error), std::system_category()};
        }
        ::Sleep(kPause);
    }
}

void FlushFolder(const fs::path&) {}

// A window is asked to close, and a command without one is not asked.
struct EndRequests::Listener {};
EndRequests::EndRequests(std::function<void()>) {}
EndRequests::~EndRequests() = default;

}  // namespace qfr
