#include "data/LoadFiles.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <utility>

#include "data/LabFiles.h"
#include "data/QuantReport.h"
#include "data/ReportFrame.h"
#include "platform/FileLookup.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace {

// What is odd about the reports that are taken, in one message for all of a kind.
class OddReports {
  public:
    void Look(const std::string& file, const QuantReport& report) {
        const std::string name = FileNameOnly(file) + ": ";
        if (!report.UnreadDate.empty()) {
            dates_.push_back(name + report.UnreadDate);
        }
        for (const std::string& value : ChangedValues(report)) {
            values_.push_back(name + value);
        }
        if (report.TextsCut) {
            cut_.push_back(FileNameOnly(file));
        }
    }
    void Tell(Messages& messages) const {
        if (!dates_.empty()) {
            messages.Show(ListMessage(
                "The date could not be read in these reports. Please enter it for Form I.",
                dates_));
        }
        if (!values_.empty()) {
            messages.Show(ListMessage(std::string(kDelimiterTaken), values_));
        }
        if (!cut_.empty()) {
            messages.Show(ListMessage(
                "Of texts of more than 400 characters the first 400 are taken in these reports:",
                cut_));
        }
    }

  private:
    std::vector<std::string> dates_;
    std::vector<std::string> values_;
    std::vector<std::string> cut_;
};

// What would keep a path of a batch file from leading to its file again; empty when nothing would.
std::string_view FaultOf(std::string_view path) {
    constexpr std::string_view kUnreadable = "\uFFFD";  // that the toolkit shows for a byte
    if (!IsUtf8(path) || Contains(path, kUnreadable)) {
        return "a name that is no valid UTF-8";
    }
    if (path.find_first_of(";\r\n") != std::string_view::npos) {
        return "a \";\" or a line break in a name";
    }
    const bool partsFolders = std::filesystem::path::preferred_separator == '\\';
    return !partsFolders && Contains(path, "\\") ? "a \"\\\" in a name" : "";
}

// Why the file, whatever it holds, is not taken: the batch, which keeps paths in lower case, could
// not find it again, or it is too large.
std::optional<Message> TroubleWith(const std::string& file, Reports& reports) {
    if (const std::string_view fault = FaultOf(file); !fault.empty()) {
        return FileErrorMessage(OneLine(TextOf(PathOf(file).filename())) +
                                " has a path that no batch file can hold,\nwith " +
                                std::string(fault) + ". The file will not be processed.");
    }
    if (!reports.IsFoundInLowerCase(file)) {
        return NameIsNotUnique(file);
    }
    if (LineReader::IsTooLarge(PathOf(file))) {
        return OverLimitMessage(FileNameOnly(file), LineReader::kMaxFileSizeText);
    }
    return std::nullopt;
}

// A report that is to enter the batch: absent when it cannot be opened, or after a rejection.
template <typename Report>
struct OfferedReport {
    FileContent<Report> Content;
    std::optional<Message> Rejection;
};

template <typename Report>
OfferedReport<Report> Open(const std::string& file, Reports& reports) {
    if (auto trouble = TroubleWith(file, reports)) {
        return {{}, std::move(trouble)};
    }
    return {reports.Read<Report>(file, ""), std::nullopt};
}

// The files of the selection that the batch accepts, in lower case.
std::vector<std::string> AcceptedReports(Batch& batch, const std::vector<std::string>& selection,
                                         Reports& reports, Messages& messages, BatchOwner& owner) {
    std::vector<std::string> accepted;
    OddReports odd;
    for (const std::string& file : selection) {
        auto [report, rejection] = Open<QuantReport>(file, reports);
        if (report) {
            rejection = CheckReportFrame(ReportKind::kQuantitation, report->Frame,
                                         FileNameOnly(file), batch.Files);
        }
        const bool tooLong = report && !rejection && report->RowCount > kMaxCompoundRows;
        if (tooLong) {
            rejection = FileErrorMessage("File Compound list Error");
        }
        if (!rejection) {
            accepted.push_back(LowerCase(file));
            if (report) {
                odd.Look(file, *report);
            }
            continue;
        }
        owner.Refuse(file, *rejection, messages);
        if (tooLong && owner.ClearsForTooManyRows(file) && batch.Files.QFiles.empty()) {
            ClearBatch(batch, owner);
        }
    }
    odd.Tell(messages);
    return accepted;
}

// Why the calibration report is not taken.
std::optional<Message> RejectionOf(const FileContent<CalibrationReport>& report,
                                   const std::string& baseName, FileSet& files) {
    constexpr auto kKind = ReportKind::kCalibration;
    const std::string expected = LowerCase(Trim(files.CalFile));
    if (expected.empty() || LowerCase(baseName) == expected) {
        if (report && report->TooManyBlocks) {
            return OverLimitMessage(baseName, kMaxCompoundsText);
        }
        return report ? CheckReportFrame(kKind, report->Frame, baseName, files) : std::nullopt;
    }
    if (!report || !HasTitleOf(kKind, report->Frame)) {
        return NotAReportMessage(kKind, baseName);
    }
    return FileErrorMessage(
        "The calibration file name must match the 'Calibration File'\n"
        "shown on the form. Please select the proper calibration\n"
        "file, or select new files.");
}

SampleRecord NewRecord(const Batch& batch, const std::string& fileName, Reports& reports) {
    SampleRecord record;
    record.FileName = LowerCase(fileName);
    if (const auto report = reports.Read<QuantReport>(fileName, batch.Folder)) {
        ReadSampleHeader(*report, record);
    }
    return record;
}

// Gives each listed report its record: old records stay in their order, and an entry that is not
// next among them gets a new record in front of that one.
void BringSampleListIntoStep(Batch& batch, Reports& reports) {
    SampleListType old = std::exchange(*batch.SampleList, {});
    SampleListType& list = *batch.SampleList;
    list.reserve(old.size() + batch.Files.QFiles.size());
    const auto firstReport =
        old.begin() + static_cast<std::ptrdiff_t>(std::min(LabBlankRecords(batch), old.size()));
    std::move(old.begin(), firstReport, std::back_inserter(list));
    auto next = firstReport;
    for (const std::string& file : batch.Files.QFiles) {
        if (next != old.end() && LowerCase(file) == next->FileName) {
            list.push_back(std::move(*next++));
        } else {
            list.push_back(NewRecord(batch, file, reports));
        }
    }
    std::move(next, old.end(), std::back_inserter(list));
}

// Removes the elements at these ascending positions, which count from the element at `first`; those
// beyond the end are not there to remove.
template <typename Element>
void RemoveAt(std::vector<Element>& elements, const std::vector<std::size_t>& positions,
              std::size_t first) {
    std::size_t place = 0;
    std::erase_if(elements, [&](const Element&) {
        const std::size_t current = place++;
        return current >= first && std::ranges::binary_search(positions, current - first);
    });
}

}  // namespace

bool TakeLabBlank(Batch& batch, const std::vector<std::string>& fileNames, Reports& reports,
                  Messages& messages, BatchOwner& owner) {
    const auto accepted = AcceptedReports(batch, fileNames, reports, messages, owner);
    if (accepted.empty()) {
        return false;
    }
    const std::size_t oldBlankRecords = LabBlankRecords(batch);
    batch.Files.LabBlank = accepted.front();
    if (batch.SampleList && batch.SampleList->front().FileName != batch.Files.LabBlank) {
        SampleListType& list = *batch.SampleList;
        list.erase(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(oldBlankRecords));
        list.insert(list.begin(), NewRecord(batch, batch.Files.LabBlank, reports));
    }
    const auto blank = reports.Read<QuantReport>(batch.Files.LabBlank, batch.Folder);
    batch.BlankHitFlags = blank ? ReadBlankHits(*blank) : std::vector<bool>();
    return true;
}

bool AddQuantReports(Batch& batch, const std::vector<std::string>& fileNames, Reports& reports,
                     Messages& messages, BatchOwner& owner) {
    std::vector<std::string> accepted = AcceptedReports(batch, fileNames, reports, messages, owner);
    if (accepted.empty()) {
        return false;
    }
    std::vector<std::string>& list = batch.Files.QFiles;
    list.insert(list.end(), std::make_move_iterator(accepted.begin()),
                std::make_move_iterator(accepted.end()));
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
    if (batch.SampleList) {
        BringSampleListIntoStep(batch, reports);
    }
    return true;
}

bool TakeCalReport(Batch& batch, const std::vector<std::string>& fileNames, Reports& reports,
                   Messages& messages, BatchOwner& owner) {
    const std::string& fileName = fileNames.front();
    auto [report, rejection] = Open<CalibrationReport>(fileName, reports);
    if (!rejection) {
        rejection = RejectionOf(report, FileNameOnly(fileName), batch.Files);
    }
    if (rejection) {
        owner.Refuse(fileName, *rejection, messages);
        return false;
    }
    if (report && report->TextsCut) {
        messages.Show(TextsWereCut(fileName));
    }
    if (Trim(batch.Files.CalFile).empty()) {
        batch.Files.CalFile = LowerCase(FileNameOnly(fileName));
    }
    batch.Files.Calib = LowerCase(fileName);
    return true;
}

bool TakeCheckReport(Batch& batch, const std::vector<std::string>& fileNames, Reports& reports,
                     Messages& messages, BatchOwner& owner) {
    const std::string& fileName = fileNames.front();
    auto [report, rejection] = Open<CheckReport>(fileName, reports);
    if (report) {
        rejection = CheckReportFrame(ReportKind::kCheck, report->Frame, FileNameOnly(fileName),
                                     batch.Files);
    }
    if (rejection) {
        owner.Refuse(fileName, *rejection, messages);
        return false;
    }
    if (report && report->TextsCut) {
        messages.Show(TextsWereCut(fileName));
    }
    batch.Files.CheckCal = LowerCase(fileName);
    return true;
}

void BuildSampleList(Batch& batch, Reports& reports) {
    batch.SampleList.reset();
    if (!FilesSpecified(batch)) {
        return;
    }
    batch.SampleList.emplace();
    if (LabBlankRecords(batch) > 0) {
        batch.SampleList->push_back(NewRecord(batch, batch.Files.LabBlank, reports));
    }
    BringSampleListIntoStep(batch, reports);
}

void DeleteQuantReports(Batch& batch, const std::vector<std::size_t>& positions) {
    RemoveAt(batch.Files.QFiles, positions, 0);
    if (batch.SampleList) {
        RemoveAt(*batch.SampleList, positions, LabBlankRecords(batch));
        if (batch.SampleList->empty()) {
            batch.SampleList.reset();
        }
    }
}

void ClearBatch(Batch& batch, BatchOwner& owner) {
    batch.Files = {};
    batch.SampleList.reset();
    batch.Folder.clear();
    batch.SavedAt.reset();
    owner.ResetEntryDialogs();
}

}  // namespace qfr
