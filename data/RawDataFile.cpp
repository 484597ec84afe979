#include "data/RawDataFile.h"

#include "data/OpenedFile.h"
#include "platform/Text.h"

namespace qfr {

std::string ReadTextLine(LineReader& file) {
    return std::string(FirstCharacters(file.NextOrEmpty(), kMaxTextLine));
}

bool RawDataFile::HasTitle() const {
    return BeginsWith(Title, "data file");
}

std::optional<RawDataFile> ReadRawDataFile(std::string_view name, std::string_view folder,
                                           std::size_t maxLine) {
    auto file = OpenFileBeside(name, folder);
    if (!file) {
        return std::nullopt;
    }
    const auto title = file->Lines.Next();
    const auto acquired = file->Lines.Next();
    const auto path = file->Lines.Next();
    const auto cut = [maxLine](const std::optional<std::string>& line) {
        return std::string(FirstCharacters(line ? *line : std::string_view(), maxLine));
    };
    RawDataFile data;
    data.Title = cut(title);
    data.Acquired = ParseDateTime(cut(acquired));
    data.LabFileId = FileNameOnly(cut(path));
    data.Whole = path.has_value();
    return data;
}

}  // namespace qfr
