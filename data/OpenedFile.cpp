#include "data/OpenedFile.h"

#include <utility>

namespace qfr {

std::optional<OpenedFile> OpenFileBeside(std::string_view name, std::string_view folder) {
    FileFinder finder;
    return OpenFileBeside(name, folder, finder);
}

std::optional<OpenedFile> OpenFileBeside(std::string_view name, std::string_view folder,
                                         FileFinder& finder) {
    const auto file = finder.FindBeside(name, folder);
    auto lines = file ? LineReader::Open(*file) : std::nullopt;
    if (!lines) {
        return std::nullopt;
    }
    return OpenedFile{std::move(*lines), TextOf(file->parent_path())};
}

Message ReportNotFound(std::string_view fileName) {
    return {std::string(fileName) +
                "\ncould not be found.  Use Data Files|Load Files menu option\nto relocate file",
            kFileNotFoundTitle};
}

}  // namespace qfr
