// Raw data files of the instrument. The program reads the first three lines: a title that begins
// "DATA FILE", the date and time of the acquisition, and the path of the data file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/DateTime.h"
#include "platform/LineReader.h"

namespace qfr {

// Longer lines of reports and raw data files are cut here (characters).
inline constexpr std::size_t kMaxTextLine = 1023;

// The next line without what is beyond kMaxTextLine; empty at the end of the file.
std::string ReadTextLine(LineReader& file);

struct RawDataFile {
    std::string Title;
    std::optional<DateTime> Acquired;  // absent when the second line is no date and time
    std::string LabFileId;             // the third line's file name, without its path
    bool Whole = false;                // all three lines are there; missing ones are empty

    // Whether the title marks a raw data file, in any case.
    bool HasTitle() const;
};

// The file of that name, or of its base name in `folder`. Absent when it cannot be opened. What is
// beyond `maxLine` characters of a line is dropped.
std::optional<RawDataFile> ReadRawDataFile(std::string_view name, std::string_view folder,
                                           std::size_t maxLine = kMaxTextLine);

}  // namespace qfr
