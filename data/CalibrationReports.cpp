#include "data/CalibrationReports.h"

#include <optional>
#include <utility>

#include "data/OpenedFile.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace {

Message WrongCalibrationMessage() {
    return FileErrorMessage(
        "The calibration file name must match the 'Calibration File'\n"
        "shown on the form. Please select the proper calibration\n"
        "file, or select new files.");
}

bool IsCalTitle(std::string_view line) {
    return BeginsWith(Trim(line), "date");
}

// A heading of the internal standard file; one of the surrogates' recovery is none.
bool IsInternalStandardHeading(std::string_view line) {
    return BeginsWith(line, "surrogate") && LowerCase(CharacterRange(line, 11, 11)) != "r";
}

std::optional<Message> CheckCalHeader(LineReader& report, const std::string& baseName,
                                      FileSet& files, ExpectedNames& expected) {
    const std::string title = report.NextOrEmpty();
    if (!IsCalTitle(title)) {
        return NotAReportMessage(kNoCalibrationFile, baseName);
    }
    if (!EndsWith(TrimRight(title), kReportVersion)) {
        return VersionMessage(baseName);
    }
    while (auto next = report.Next()) {
        const std::string line = Trim(*next);
        if (BeginsWith(line, "calibration data")) {
            return std::nullopt;
        }
        const bool isLibrary = BeginsWith(line, "library");
        if (!isLibrary && !IsInternalStandardHeading(line)) {
            continue;
        }
        const auto named = report.Next();
        if (named && isLibrary && !CheckNamedFile(*named, files.LibFile, expected.Library)) {
            return NamedFileMessage(kLibraryFileListed, baseName, expected.Library);
        }
        if (named && !isLibrary &&
            !CheckNamedFile(*named, files.SurrFile, expected.InternalStandard)) {
            return NamedFileMessage(kInternalStandardFileListed, baseName,
                                    expected.InternalStandard);
        }
    }
    return NotAReportMessage(kNoCalibrationFile, baseName);
}

std::optional<Message> CheckCheckHeader(LineReader& report, const std::string& baseName,
                                        FileSet& files, ExpectedNames& expected) {
    const std::string title = report.NextOrEmpty();
    if (!BeginsWith(title, "check")) {
        return NotAReportMessage(kNoCheckFile, baseName);
    }
    if (!EndsWith(TrimRight(title), kReportVersion)) {
        return VersionMessage(baseName);
    }
    while (const auto line = report.Next()) {
        if (BeginsWith(*line, "n;comp")) {
            return std::nullopt;
        }
        if (BeginsWith(*line, "calib")) {
            if (!CheckNamedFile(*line, files.CalFile, expected.Calibration)) {
                return NamedFileMessage(kCalibrationFileListed, baseName, expected.Calibration);
            }
        } else if (BeginsWith(*line, "compound lib")) {
            if (!CheckNamedFile(*line, files.LibFile, expected.Library)) {
                return NamedFileMessage(kLibraryFileListed, baseName, expected.Library);
            }
        } else if (BeginsWith(*line, "surr")) {
            if (!CheckNamedFile(*line, files.SurrFile, expected.InternalStandard)) {
                return NamedFileMessage(kInternalStandardFileListed, baseName,
                                        expected.InternalStandard);
            }
        }
    }
    return NotAReportMessage(kNoCheckFile, baseName);
}

// Shows the message, if there is one; whether the report is accepted.
bool Accept(const std::optional<Message>& rejection, Messages& messages) {
    if (rejection) {
        messages.Show(*rejection);
    }
    return !rejection;
}

}  // namespace

bool ValidateCalReport(const std::string& fileName, FileSet& files, Messages& messages) {
    ExpectedNames expected = ExpectedNamesOf(files);
    const std::string baseName = FileNameOnly(fileName);
    auto report = OpenFileBeside(fileName, "");
    if (!expected.Calibration.empty() && LowerCase(baseName) != expected.Calibration) {
        const bool isOther = report && IsCalTitle(report->Lines.NextOrEmpty());
        return Accept(
            isOther ? WrongCalibrationMessage() : NotAReportMessage(kNoCalibrationFile, baseName),
            messages);
    }
    if (report && !Accept(CheckCalHeader(report->Lines, baseName, files, expected), messages)) {
        return false;
    }
    if (expected.Calibration.empty()) {
        files.CalFile = LowerCase(baseName);
    }
    return true;
}

bool ValidateCheckReport(const std::string& fileName, FileSet& files, Messages& messages) {
    ExpectedNames expected = ExpectedNamesOf(files);
    auto report = OpenFileBeside(fileName, "");
    return !report ||
           Accept(CheckCheckHeader(report->Lines, FileNameOnly(fileName), files, expected),
                  messages);
}

bool CheckNamedFile(std::string_view line, std::string& name, std::string& expected) {
    std::string named = LowerCase(FileNameOnly(Trim(line)));
    if (name.empty()) {
        name = named;
        expected = std::move(named);
        return true;
    }
    return named == expected;
}

Message FileErrorMessage(std::string text) {
    return {.text = std::move(text), .title = kFileErrorTitle, .icon = MessageIcon::kInformation};
}

Message NotAReportMessage(std::string_view noSuchFile, std::string_view baseName) {
    return FileErrorMessage(std::string(baseName) + std::string(noSuchFile) +
                            std::string(kNotProcessed));
}

Message VersionMessage(std::string_view baseName) {
    return FileErrorMessage("The version # must be 4.2 for " + std::string(baseName) + ".\n" +
                            std::string(kNotProcessed));
}

Message NamedFileMessage(std::string_view fileListed, std::string_view baseName,
                         std::string_view expected) {
    const std::string report(baseName);
    return FileErrorMessage(std::string(fileListed) + report + "\nmust be " +
                            std::string(expected) + ". " + report + " will not be processed.");
}

}  // namespace qfr
