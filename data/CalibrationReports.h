// What the Load Files dialog checks of an initial calibration report (*.cal) and of a continuing
// calibration report (*.check) of Tallyworks 4.2: kind, version and the files that they name.
#pragma once

#include <string>
#include <string_view>

#include "data/QuantReport.h"

namespace qfr {

// How the title of every report ends, lower case.
inline constexpr std::string_view kReportVersion = "version 4.2";

// Both show the message of a rejection and return false; a file that cannot be opened is accepted,
// but for a *.cal whose name is not the batch's calibration file. An empty name in `files` takes
// the report's, also when the report is rejected at a later line.
bool ValidateCalReport(const std::string& fileName, FileSet& files, Messages& messages);
bool ValidateCheckReport(const std::string& fileName, FileSet& files, Messages& messages);

// The check that all reports share: `line` ends with the path of a named file. An empty `name`
// takes its base name, lower-cased, and `expected` with it; otherwise it must equal `expected`.
bool CheckNamedFile(std::string_view line, std::string& name, std::string& expected);

// What the messages of a rejection say of a report's kind, and of the file that it lists.
inline constexpr std::string_view kNoQuantitationFile =
    " does not appear to be a quantitation file.\n";
inline constexpr std::string_view kNoCalibrationFile =
    " does not appear to be a calibration file.\n";
inline constexpr std::string_view kNoCheckFile =
    " does not appear to be a check calibration file.\n";
inline constexpr std::string_view kCalibrationFileListed = "The calibration file listed in ";
inline constexpr std::string_view kLibraryFileListed = "The library file listed in ";
inline constexpr std::string_view kInternalStandardFileListed =
    "The internal standard file listed in ";
inline constexpr std::string_view kNotProcessed = "The file will not be processed.";

// The messages that all kinds of report share; titled "File Error".
Message FileErrorMessage(std::string text);
Message NotAReportMessage(std::string_view noSuchFile, std::string_view baseName);
Message VersionMessage(std::string_view baseName);
Message NamedFileMessage(std::string_view fileListed, std::string_view baseName,
                         std::string_view expected);

}  // namespace qfr
