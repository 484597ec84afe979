// Hands a file over to the desktop's other programs. The names are full paths in UTF-8; false: the
// desktop has no program for it.
#pragma once

#include <filesystem>
#include <string>

namespace qfr {

bool OpenWithDesktop(const std::string& file);
// Shows the file among its neighbours, or where that cannot be had, the folder.
bool ShowInFolder(const std::string& file);

// Asks the system's file manager to do that; false: it cannot. Each system has its way:
// platform/windows starts it, everywhere else BusFileManager.cpp calls it.
bool SelectInFileManager(const std::filesystem::path& file);

}  // namespace qfr
