#include "platform/qt/FileOpener.h"
#include "platform/windows/StartProgram.h"

namespace qfr {

bool SelectInFileManager(const std::filesystem::path& file) {
    std::filesystem::path name = file;
    return StartProgram(L"explorer.exe /select, " + Quoted(name.make_preferred().wstring()));
}

}  // namespace qfr
