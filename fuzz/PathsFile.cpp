// The file of directories last used.
#include "app/PathsFile.h"

#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("QFRpaths.txt");
    laboratory.Put(data, size);

    qfr::fuzz::Silence silence;
    const qfr::SettingsDir settings(laboratory.Directory(), laboratory.Directory());
    qfr::PathsFile paths(settings, silence);
    for (const qfr::FileKindRow& row : qfr::kFileKinds) {
        paths.RememberDir(paths.ReadPath(row.kind) + "/a.prn", qfr::FileKind::kQuantReport);
    }
    return 0;
}
