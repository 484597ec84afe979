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

// The messages that all kinds of report share; titled "File Error".
Message FileErrorMessage(std::string text);
Message NotAReportMessage(std::string_view kind, std::string_view baseName);
Message VersionMessage(std::string_view baseName);
Message NamedFileMessage(std::string_view kind, std::string_view baseName,
                         std::string_view expected);

}  // namespace qfr
