// The companion command as a program.
#include <iostream>

#include "app/QtBatchPlatform.h"
#include "platform/HostSystem.h"

int main(int argc, char** argv) {
    std::ios_base::sync_with_stdio(false);
    qfr::QtBatchPlatform platform;
    return qfr::RunBatchCommand(qfr::ProgramArguments(argc, argv), std::cout, std::cerr, platform);
}
