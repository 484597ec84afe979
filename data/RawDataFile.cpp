#include "data/RawDataFile.h"

#include "platform/Text.h"

namespace qfr {

std::string ReadTextLine(LineReader& file) {
    return std::string(FirstCharacters(file.NextOrEmpty(), kMaxTextLine));
}

bool RawDataFile::HasTitle() const {
    return BeginsWith(Title, "data file");
}

std::optional<DateTime> RawDataFile::Acquired(std::size_t maxLine) const {
    return ParseDateTime(FirstCharacters(AcquiredLine, maxLine));
}

std::string RawDataFile::LabFileId(std::size_t maxLine) const {
    return FileNameOnly(FirstCharacters(PathLine, maxLine));
}

RawDataFile RawDataFile::Read(LineReader file) {
    RawDataFile data;
    data.Title = ReadTextLine(file);
    data.AcquiredLine = ReadTextLine(file);
    data.Whole = !file.AtEnd();
    data.PathLine = ReadTextLine(file);
    return data;
}

}  // namespace qfr
