// The companion command as a program.
#include <filesystem>
#include <iostream>
#include <system_error>

#include "app/QtBatchPlatform.h"
#include "platform/FileReplace.h"
#include "platform/HostSystem.h"

int main(int argc, char** argv) {
    std::ios_base::sync_with_stdio(false);
    qfr::QtBatchPlatform platform;
    const qfr::EndRequests endRequests([&platform] { platform.RequestEnd(); });
    std::error_code failed;
    if (const auto folder = std::filesystem::temp_directory_path(failed); !failed) {
        qfr::RemoveLeftovers(folder);
    }
    return qfr::RunBatchCommand(qfr::ProgramArguments(argc, argv), std::cout, std::cerr, platform);
}
