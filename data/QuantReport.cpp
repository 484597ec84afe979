#include "data/QuantReport.h"

#include <utility>

#include "data/CalibrationReports.h"
#include "data/OpenedFile.h"
#include "platform/DateTime.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kTableHead = "compound#";

// What follows the label of a header line; empty when the line has no such label.
std::string AfterLastColon(std::string_view line) {
    const std::size_t colon = line.rfind(':');
    return colon == std::string_view::npos ? "" : Trim(line.substr(colon + 1));
}

void ReadAcquisitionLine(std::string_view line, SampleHeader& header) {
    constexpr std::string_view kLabel = "Date:";
    const std::size_t label = line.find(kLabel);
    if (label == std::string_view::npos) {
        return;
    }
    if (const auto when = ParseDateTime(line.substr(label + kLabel.size()))) {
        header[HeaderField::kDateAnalyzed] = FormatDateTime(*when);
    }
}

// "Lab File ID: ABC01.D; Instrument: GCMS2"
void ReadLabFileLine(std::string_view line, SampleHeader& header) {
    const std::string_view first = line.substr(0, line.find(';'));
    const std::size_t idColon = first.find(':');
    header[HeaderField::kLabFileId] =
        idColon == std::string_view::npos ? "" : Trim(first.substr(idColon + 1));

    if (first.size() == line.size()) {
        return;
    }
    const std::string_view last = line.substr(line.rfind(';') + 1);
    const std::size_t colon = last.rfind(':');
    if (LowerCase(CharacterRange(last, 2, 11)) == "instrument" && colon != std::string_view::npos) {
        // The colon and one blank are passed over, whatever stands in the blank's place.
        std::string_view value = last.substr(colon + 1);
        value.remove_prefix(FirstCharacters(value, 1).size());
        header[HeaderField::kInstrumentId] = value;
    }
}

void ReadHeaderLine(std::string_view line, SampleHeader& header) {
    if (BeginsWith(line, "acquis")) {
        ReadAcquisitionLine(line, header);
    } else if (BeginsWith(line, "sample size")) {
        header[HeaderField::kSampleWtVol] = AfterLastColon(line);
    } else if (BeginsWith(line, "client sample")) {
        header[HeaderField::kLabSampleId] = AfterLastColon(line);
    } else if (BeginsWith(line, "sample id:")) {
        header[HeaderField::kZovSampleNo] = AfterLastColon(line);
    } else if (BeginsWith(line, "lab file id")) {
        ReadLabFileLine(line, header);
    }
}

// The next row of the compound table; absent at its end.
std::optional<std::string> NextRow(LineReader& report) {
    auto row = report.Next();
    return row && !Trim(*row).empty() ? row : std::nullopt;
}

// The message of a rejection for a header line that names one of the batch's files or a limit.
std::optional<Message> CheckHeaderLine(const std::string& line, const std::string& baseName,
                                       FileSet& files, ExpectedNames& expected) {
    if (BeginsWith(line, "calib")) {
        if (!CheckNamedFile(line, files.CalFile, expected.Calibration)) {
            return NamedFileMessage(kCalibrationFileListed, baseName, expected.Calibration);
        }
    } else if (BeginsWith(line, "compound lib")) {
        if (!CheckNamedFile(line, files.LibFile, expected.Library)) {
            return NamedFileMessage(kLibraryFileListed, baseName, expected.Library);
        }
    } else if (BeginsWith(line, "inte")) {
        if (!CheckNamedFile(line, files.SurrFile, expected.InternalStandard)) {
            return NamedFileMessage(kInternalStandardFileListed, baseName,
                                    expected.InternalStandard);
        }
    } else if (Contains(line, "Limit:") && !BeginsWith(line, "crq")) {
        return FileErrorMessage(baseName + " must be processed using the CRQL option.\n" +
                                std::string(kNotProcessed));
    }
    return std::nullopt;
}

// Reads to the line after the table head.
std::optional<Message> CheckHeader(LineReader& report, const std::string& baseName, FileSet& files,
                                   ExpectedNames& expected) {
    const std::string title = report.NextOrEmpty();
    if (!BeginsWith(title, "quant")) {
        return NotAReportMessage(kNoQuantitationFile, baseName);
    }
    if (!EndsWith(TrimRight(title), kReportVersion)) {
        return VersionMessage(baseName);
    }
    for (std::optional<std::string> line = title; line; line = report.Next()) {
        if (BeginsWith(*line, kTableHead)) {
            return std::nullopt;
        }
        if (auto message = CheckHeaderLine(*line, baseName, files, expected)) {
            return message;
        }
    }
    return NotAReportMessage(kNoQuantitationFile, baseName);
}

}  // namespace

ExpectedNames ExpectedNamesOf(const FileSet& files) {
    return {.Library = LowerCase(Trim(files.LibFile)),
            .Calibration = LowerCase(Trim(files.CalFile)),
            .InternalStandard = LowerCase(Trim(files.SurrFile))};
}

QuantReportVerdict ValidateQuantReport(const std::string& fileName, FileSet& files,
                                       ExpectedNames& expected, Messages& messages) {
    auto report = OpenFileBeside(fileName, "");
    if (!report) {
        return QuantReportVerdict::kAccepted;
    }
    if (const auto message = CheckHeader(report->Lines, FileNameOnly(fileName), files, expected)) {
        messages.Show(*message);
        return QuantReportVerdict::kRejected;
    }
    for (int rows = 0; NextRow(report->Lines);) {
        if (++rows > kMaxCompoundRows) {
            messages.Show(FileErrorMessage("File Compound list Error"));
            return QuantReportVerdict::kTooManyRows;
        }
    }
    return QuantReportVerdict::kAccepted;
}

void ReadSampleHeader(const std::string& fileName, std::string_view folder, SampleRecord& record) {
    FileFinder finder;
    ReadSampleHeader(fileName, folder, record, finder);
}

void ReadSampleHeader(const std::string& fileName, std::string_view folder, SampleRecord& record,
                      FileFinder& finder) {
    record.FileName = LowerCase(fileName);
    const auto file = finder.FindBeside(fileName, folder);
    auto report = file ? LineReader::Open(*file) : std::nullopt;
    if (!report) {
        return;
    }
    for (auto line = report->Next(); line && !IsCompoundTableHead(*line); line = report->Next()) {
        ReadHeaderLine(Trim(*line), record.Header);
    }
    for (record.CompoundCount = 0; NextRow(*report);) {
        ++record.CompoundCount;
    }
}

std::vector<bool> ReadBlankHits(const std::string& fileName, std::string_view folder) {
    std::vector<bool> hits;
    if (auto report = OpenCompoundTable(fileName, folder)) {
        while (const auto row = NextRow(*report)) {
            hits.push_back(!GetField(*row, 3).starts_with('U') &&
                           !Contains(GetField(*row, 6), "J"));
        }
    }
    return hits;
}

std::optional<LineReader> OpenCompoundTable(const std::string& fileName, std::string_view folder) {
    auto report = OpenFileBeside(fileName, folder);
    if (!report) {
        return std::nullopt;
    }
    for (auto line = report->Lines.Next(); line && !IsCompoundTableHead(*line);) {
        line = report->Lines.Next();
    }
    return std::move(report->Lines);
}

bool IsCompoundTableHead(std::string_view line) {
    return BeginsWith(Trim(line), kTableHead);
}

}  // namespace qfr
