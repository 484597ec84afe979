// The rules of the Load Files dialog that keep a batch in step with its files. The dialog calls
// them with what the user chose, the companion command with its arguments.
#pragma once

#include <string>
#include <vector>

#include "data/Batch.h"
#include "data/Reports.h"
#include "platform/Messages.h"

namespace qfr {

// What the batch asks of the rooms above when it is emptied: the entry dialogs go back to their
// initial contents.
class BatchOwner {
  public:
    virtual ~BatchOwner() = default;
    virtual void ResetEntryDialogs() = 0;
    // A report, given by its path, has more rows than a batch takes. Whether a batch without
    // reports is cleared for that.
    virtual bool ClearsForTooManyRows(const std::string& /*fileName*/) { return true; }
    // A file, given by its path, is not taken.
    virtual void Refuse(const std::string& /*fileName*/, const Message& why, Messages& messages) {
        messages.Show(why);
    }
};

// Takes reports into the batch: full paths as chosen (UTF-8, any case), at least one, of which only
// AddQuantReports takes more than the first. Returns whether anything was taken. A file that cannot
// be opened is taken, but for a calibration report whose name is not the batch's calibration file,
// and for one whose path the batch could not keep; why another one is refused is shown, as is what
// is odd about those that are taken. The first
// report taken decides the names of the library, internal standard and calibration files, also when
// it is refused at a later line.
using TakeReports = bool(Batch& batch, const std::vector<std::string>& fileNames, Reports& reports,
                         Messages& messages, BatchOwner& owner);
TakeReports TakeLabBlank, AddQuantReports, TakeCalReport, TakeCheckReport;

// Builds SampleList from the named reports; it stays absent when none is named. The record of a
// report that cannot be opened keeps its defaults.
void BuildSampleList(Batch& batch, Reports& reports);

// Removes the entries at these positions of QFiles (from 0, ascending) and their records. A
// SampleList that loses its last record becomes absent.
void DeleteQuantReports(Batch& batch, const std::vector<std::size_t>& positions);

// Empties the file set and the sample list and resets the entry dialogs; BlankHitFlags stay.
void ClearBatch(Batch& batch, BatchOwner& owner);

}  // namespace qfr
