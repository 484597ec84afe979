#include <array>
#include <string>
#include <system_error>
#include <windows.h>

#include "platform/qt/HelpTopics.h"
#include "platform/qt/HelpViewer.h"
#include "platform/windows/StartProgram.h"

namespace qfr {

namespace {

std::filesystem::path WindowsFolder() {
    std::array<wchar_t, MAX_PATH> folder{};
    GetWindowsDirectoryW(folder.data(), MAX_PATH);
    return folder.data();
}

}  // namespace

bool OpenSystemHelp(const std::filesystem::path& file, int topic) {
    const std::filesystem::path viewer = WindowsFolder() / L"hh.exe";
    std::error_code error;
    if (!std::filesystem::is_regular_file(viewer, error) ||
        !std::filesystem::is_regular_file(file, error)) {
        return false;
    }
    std::filesystem::path name = file;
    const std::string_view page = HelpPageOf(topic);
    return StartProgram(
        Quoted(viewer.wstring()) + L' ' +
        Quoted(name.make_preferred().wstring() + L"::/" + std::wstring(page.begin(), page.end())));
}

}  // namespace qfr
