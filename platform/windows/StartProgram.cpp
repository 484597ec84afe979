#include "platform/windows/StartProgram.h"

#include <windows.h>

namespace qfr {

bool StartProgram(std::wstring commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &started) == 0) {
        return false;
    }
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return true;
}

std::wstring Quoted(const std::wstring& argument) {
    return L'"' + argument + L'"';
}

}  // namespace qfr
