#include "data/LoadFiles.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "data/CalibrationReports.h"
#include "data/QuantReport.h"
#include "platform/Text.h"

namespace qfr {

namespace {

// The files of the selection that the batch accepts, in lower case.
std::vector<std::string> AcceptedReports(Batch& batch, const std::vector<std::string>& selection,
                                         Messages& messages, BatchOwner& owner) {
    std::vector<std::string> accepted;
    ExpectedNames expected = ExpectedNamesOf(batch.Files);
    for (const std::string& file : selection) {
        switch (ValidateQuantReport(file, batch.Files, expected, messages)) {
            case QuantReportVerdict::kAccepted:
                accepted.push_back(LowerCase(file));
                break;
            case QuantReportVerdict::kTooManyRows:
                if (batch.Files.QFiles.empty()) {
                    ClearBatch(batch, owner);
                }
                break;
            case QuantReportVerdict::kRejected:
                break;
        }
    }
    return accepted;
}

SampleRecord NewRecord(const Batch& batch, const std::string& fileName, FileFinder& finder) {
    SampleRecord record;
    ReadSampleHeader(fileName, batch.Folder, record, finder);
    return record;
}

// Gives each listed report its record: old records stay in their order, and an entry that is not
// next among them gets a new record in front of that one.
void BringSampleListIntoStep(Batch& batch) {
    SampleListType old = std::exchange(*batch.SampleList, {});
    SampleListType& list = *batch.SampleList;
    list.reserve(old.size() + batch.Files.QFiles.size());
    const auto firstReport =
        old.begin() + static_cast<std::ptrdiff_t>(std::min(LabBlankRecords(batch), old.size()));
    std::move(old.begin(), firstReport, std::back_inserter(list));
    auto next = firstReport;
    FileFinder finder;
    for (const std::string& file : batch.Files.QFiles) {
        if (next != old.end() && LowerCase(file) == next->FileName) {
            list.push_back(std::move(*next++));
        } else {
            list.push_back(NewRecord(batch, file, finder));
        }
    }
    std::move(next, old.end(), std::back_inserter(list));
}

// Removes the elements at these ascending positions; those beyond the end are not there to remove.
template <typename Element>
void RemoveAt(std::vector<Element>& elements, const std::vector<std::size_t>& positions,
              std::size_t offset) {
    auto removed = positions.begin();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (removed != positions.end() && i == *removed + offset) {
            ++removed;
        } else {
            if (kept != i) {
                elements[kept] = std::move(elements[i]);
            }
            ++kept;
        }
    }
    elements.resize(kept);
}

}  // namespace

bool TakeLabBlank(Batch& batch, const std::string& fileName, Messages& messages,
                  BatchOwner& owner) {
    const std::vector<std::string> accepted = AcceptedReports(batch, {fileName}, messages, owner);
    if (accepted.empty()) {
        return false;
    }
    const std::size_t oldBlankRecords = LabBlankRecords(batch);
    batch.Files.LabBlank = accepted.front();
    if (batch.SampleList && batch.SampleList->front().FileName != batch.Files.LabBlank) {
        SampleListType& list = *batch.SampleList;
        list.erase(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(oldBlankRecords));
        FileFinder finder;
        list.insert(list.begin(), NewRecord(batch, batch.Files.LabBlank, finder));
    }
    batch.BlankHitFlags = ReadBlankHits(batch.Files.LabBlank, batch.Folder);
    return true;
}

bool AddQuantReports(Batch& batch, const std::vector<std::string>& fileNames, Messages& messages,
                     BatchOwner& owner) {
    std::vector<std::string> accepted = AcceptedReports(batch, fileNames, messages, owner);
    if (accepted.empty()) {
        return false;
    }
    std::vector<std::string>& list = batch.Files.QFiles;
    list.insert(list.end(), std::make_move_iterator(accepted.begin()),
                std::make_move_iterator(accepted.end()));
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
    if (batch.SampleList) {
        BringSampleListIntoStep(batch);
    }
    return true;
}

bool TakeCalReport(Batch& batch, const std::string& fileName, Messages& messages) {
    if (!ValidateCalReport(fileName, batch.Files, messages)) {
        return false;
    }
    batch.Files.Calib = LowerCase(fileName);
    return true;
}

bool TakeCheckReport(Batch& batch, const std::string& fileName, Messages& messages) {
    if (!ValidateCheckReport(fileName, batch.Files, messages)) {
        return false;
    }
    batch.Files.CheckCal = LowerCase(fileName);
    return true;
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
    owner.ResetEntryDialogs();
}

}  // namespace qfr
