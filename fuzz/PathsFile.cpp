// The file of directories last used.
#include "app/PathsFile.h"

#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("QFRpaths.txt");
    laboratory.Put(data, size);

    qfr::fuzz::Silence silence;
    const qfr::SettingsDir settings(laboratory.Directory(), laboratory.Directory());
    qfr::PathsFile paths(settings, silence);
    for (int slot = 1; slot <= 4; ++slot) {
        paths.RememberDir(paths.ReadPath(slot) + "/a.prn", qfr::FileKind::kQuantReport);
    }
    return 0;
}
