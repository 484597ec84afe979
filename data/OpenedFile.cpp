#include "data/OpenedFile.h"

#include <utility>

#include "platform/FileLookup.h"

namespace qfr {

std::optional<OpenedFile> OpenFileBeside(std::string_view name, std::string_view folder) {
    const auto file = FindFileBeside(name, folder);
    auto lines = file ? LineReader::Open(*file) : std::nullopt;
    if (!lines) {
        return std::nullopt;
    }
    return OpenedFile{std::move(*lines), TextOf(file->parent_path())};
}

}  // namespace qfr
