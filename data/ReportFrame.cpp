#include "data/ReportFrame.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::string_view kVersion = "version 4.2";
constexpr std::string_view kNotProcessed = "The file will not be processed.";

// A file that all reports of a batch must share.
struct SharedFile {
    std::string FileSet::*inBatch;
    std::string_view name;  // in messages
};
constexpr SharedFile kSharedFiles[] = {{&FileSet::CalFile, "calibration"},
                                       {&FileSet::LibFile, "library"},
                                       {&FileSet::SurrFile, "internal standard"}};

// How a kind of report begins its lines, lower case.
struct KindOfReport {
    std::string_view name;  // in messages
    std::string_view title;
    std::string_view tableHead;
    std::string_view fileLines[std::size(kSharedFiles)];  // empty: not named
};

const KindOfReport& Describe(ReportKind kind) {
    static constexpr KindOfReport kKinds[] = {
        {"quantitation", "quant", "compound#", {"calib", "compound lib", "inte"}},
        {"calibration", "date", "calibration data", {"", "library", "surrogate"}},
        {"check calibration", "check", "n;comp", {"calib", "compound lib", "surr"}}};
    return kKinds[static_cast<std::size_t>(kind)];
}

// The file of the batch that the line is about; null without one.
std::string FileSet::*FileOf(ReportKind kind, const std::string& line) {
    for (std::size_t i = 0; i < std::size(kSharedFiles); ++i) {
        const std::string_view begin = Describe(kind).fileLines[i];
        // "Surrogate recovery" of a calibration report heads no file.
        if (!begin.empty() && BeginsWith(line, begin) &&
            (begin != "surrogate" || LowerCase(CharacterRange(line, 11, 11)) != "r")) {
            return kSharedFiles[i].inBatch;
        }
    }
    return nullptr;
}

std::optional<Message> CheckStatement(const HeaderStatement& statement, const std::string& baseName,
                                      FileSet& files) {
    if (statement.File == nullptr) {
        return FileErrorMessage(baseName + " must be processed using the CRQL option.\n" +
                                std::string(kNotProcessed));
    }
    std::string& name = files.*statement.File;
    if (name.empty()) {
        name = statement.FileName;
    }
    const std::string expected = LowerCase(Trim(name));
    if (statement.FileName == name || statement.FileName == expected) {
        return std::nullopt;
    }
    const auto* const file = std::ranges::find(kSharedFiles, statement.File, &SharedFile::inBatch);
    return FileErrorMessage("The " + std::string(file->name) + " file listed in " + baseName +
                            "\nmust be " + expected + ". " + baseName + " will not be processed.");
}

}  // namespace

// Library and internal standard file of a calibration report stand on the line below their
// headings, which may be indented.
void FrameReader::Take(const std::string& line) {
    const bool belowHeadings = kind_ == ReportKind::kCalibration;
    const auto add = [&](std::string FileSet::*file) {
        frame_.Statements.push_back({file, LowerCase(FileNameOnly(Trim(line)))});
    };
    if (std::exchange(atTitle_, false)) {
        frame_.Title = line;
    }
    if (frame_.HasTable) {
        return;
    }
    if (announced_ != nullptr) {
        add(std::exchange(announced_, nullptr));
        return;
    }
    const std::string text = belowHeadings ? Trim(line) : line;
    if (BeginsWith(text, Describe(kind_).tableHead)) {
        frame_.HasTable = true;
    } else if (std::string FileSet::*const file = FileOf(kind_, text)) {
        if (belowHeadings) {
            announced_ = file;
        } else {
            add(file);
        }
    } else if (kind_ == ReportKind::kQuantitation && Contains(text, "Limit:") &&
               !BeginsWith(text, "crq")) {
        frame_.Statements.push_back({});
    }
}

bool HasTitleOf(ReportKind kind, const ReportFrame& frame) {
    // Only the title of a calibration report may be indented.
    const bool mayBeIndented = kind == ReportKind::kCalibration;
    return BeginsWith(mayBeIndented ? Trim(frame.Title) : frame.Title, Describe(kind).title);
}

std::optional<Message> CheckReportFrame(ReportKind kind, const ReportFrame& frame,
                                        const std::string& baseName, FileSet& files) {
    if (!HasTitleOf(kind, frame)) {
        return NotAReportMessage(kind, baseName);
    }
    if (!EndsWith(TrimRight(frame.Title), kVersion)) {
        return FileErrorMessage("The version # must be 4.2 for " + baseName + ".\n" +
                                std::string(kNotProcessed));
    }
    for (const HeaderStatement& statement : frame.Statements) {
        if (auto rejection = CheckStatement(statement, baseName, files)) {
            return rejection;
        }
    }
    return frame.HasTable ? std::nullopt : std::optional(NotAReportMessage(kind, baseName));
}

Message FileErrorMessage(std::string text) {
    return {.text = std::move(text), .title = kFileErrorTitle, .icon = MessageIcon::kInformation};
}

Message OverLimitMessage(const std::string& baseName, std::string_view limit) {
    return FileErrorMessage(baseName + " has more than " + std::string(limit) + ".\n" +
                            std::string(kNotProcessed));
}

Message NotAReportMessage(ReportKind kind, const std::string& baseName) {
    return FileErrorMessage(baseName + " does not appear to be a " +
                            std::string(Describe(kind).name) + " file.\n" +
                            std::string(kNotProcessed));
}

}  // namespace qfr
