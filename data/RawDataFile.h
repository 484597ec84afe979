// Raw data files of the instrument. The program reads the first three lines: a title that begins
// "DATA FILE", the date and time of the acquisition, and the path of the data file.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/DateTime.h"
#include "platform/LineReader.h"

namespace qfr {

// Longer lines of calibration reports, check reports and raw data files are cut here (characters).
inline constexpr std::size_t kMaxTextLine = 1023;

// The next line without what is beyond kMaxTextLine; empty at the end of the file.
std::string ReadTextLine(LineReader& file);

struct RawDataFile {
    std::string Title;
    std::string AcquiredLine;
    std::string PathLine;
    bool Whole = false;  // all three lines are there; missing ones are empty

    // Whether the title marks a raw data file, in any case.
    bool HasTitle() const;
    // Absent when the second line is no date and time. What is beyond `maxLine` characters of a
    // line does not count.
    std::optional<DateTime> Acquired(std::size_t maxLine = kMaxTextLine) const;
    // The third line's file name, without its path.
    std::string LabFileId(std::size_t maxLine = kMaxTextLine) const;

    static RawDataFile Read(LineReader file);
};

// The lines that are read; behind them lie the instrument's own data.
inline constexpr int kRawDataLines = 3;

}  // namespace qfr
