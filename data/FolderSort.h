// What the files of a folder, or files that were dropped, are to a batch: its lab blank, its
// samples, its calibration and its check report. It is proposed only; no batch changes.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/Batch.h"
#include "data/FoundFiles.h"
#include "platform/Messages.h"

namespace qfr {

struct BatchProposal {
    // With what was found, which came to it as it would through the Load Files dialog: reports are
    // added, the others take the places of those it has. Its SampleList is built.
    qfr::Batch Batch;
    std::vector<ToldFile> Told;
    std::vector<Message> Notes;  // what is odd about reports that are proposed
    // Full paths as they stand on disk, of what the batch does not have yet; empty: none.
    std::string LabBlank;
    std::vector<std::string> QFiles;
    std::string Calib;
    std::string CheckCal;
    std::size_t Loaded = 0;  // files that the batch has already
    std::size_t Others = 0;  // files of a folder that are no reports

    bool IsEmpty() const {
        return LabBlank.empty() && QFiles.empty() && Calib.empty() && CheckCal.empty();
    }
};

// Comes before each of `count` files, from 0, and once at the end; false gives up.
using SortProgress = std::function<bool(std::size_t file, std::size_t count)>;

// Sorts the files, and those of the folders, among these full paths; the first kMaxSortedFiles. Of
// a file that is no report only the first line is read; a report, of up to LineReader::kMaxFileSize
// bytes, is read once. What a file is its first line tells, and where that tells nothing, its
// extension. Which report is the lab blank's its sample ID
// or client sample tells, as "VBLK01", "MB-3" or "Method Blank", or, where none does, its file's
// name. Where reports name different calibrations or libraries, the batch decides, and when it is
// empty, the majority. What the batch already holds keeps its place. Absent when given up.
std::optional<BatchProposal> ProposeBatch(const Batch& batch, const std::vector<std::string>& names,
                                          const SortProgress& progress);

}  // namespace qfr
