// What the entry dialogs of Forms VI, VII and VIII do with their entries besides what their tables
// say: when they are shown, when an entry is left, for Browse, and for OK. A dialog calls these
// with what it shows; the companion command calls Show... and Accept... on the saved entries.
// Faults name the control to focus, and nothing is taken over while there is one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "data/Batch.h"
#include "data/Entries.h"
#include "data/EntryChecks.h"
#include "data/Reports.h"
#include "platform/Messages.h"

namespace qfr {

// --- TInitCalInput, "Initial Calibration Data" ---

// Takes over the dates that are known from the continuing calibration entry.
void ShowInitialCalibration(Entries& entries);

// Browse of the level (from 0) with the chosen raw data file: its lab file ID, and its date where
// it widens the range of dates. The lab file ID shows the chosen name even when the file is
// refused.
BrowseAction BrowseLevelFile;

// OK: the dates, and a lab file ID for each level. Hands the dates on to the entries of Forms VII
// and VIII and sets InitCalEntered.
std::optional<EntryFault> AcceptInitialCalibration(Entries& entries, int levelCount,
                                                   BatchFlags& flags);

// --- TChkCalForm, "Continuing Calibration Data Input" ---

// Takes over what was typed for Forms VI and VIII, after a look at the continuing calibration
// report, and, where there is no instrument, that of the header at `headerRecord` of the samples.
void ShowContinuingCalibration(Entries& entries, const Batch& batch, std::size_t headerRecord,
                               Reports& reports, Messages& messages);

// Browse of the RF criteria file. A file of another kind empties the entry.
BrowseAction BrowseCriteriaFile;

// Browse of the standard's raw data file: its lab file ID and its date.
BrowseAction BrowseContinuingStandard;

// What is said of a file that is no RF criteria file.
Message NotACriteriaFile(std::string_view fileName);

// OK: four entries are required, then the dates, then an RF criteria file that, where there is one,
// has its title. Sets ContCalEntered.
std::optional<EntryFault> AcceptContinuingCalibration(const Entries& entries, const Batch& batch,
                                                      Reports& reports, BatchFlags& flags);

// --- TARTSummForm, "Internal Standard Summary Input" ---

// Takes over what was typed for Forms VI and VII, and fills the levels from the calibration report
// that the batch names (`levelCount` of them). A level chosen before stays chosen. False after the
// message that the report's response factors cannot be read: the dialog is then not shown, and the
// job is dropped.
bool ShowStandardSummary(Entries& entries, const Batch& batch, Reports& reports, int levelCount,
                         Messages& messages);

// What is wrong with a sample number that is not of the form VSTD***##; nothing with an empty one.
std::optional<Message> CheckStandardSampleNo(const std::string& sampleNo);

// Leaving SampleEdit: the sample number names the level, whose raw data file gives lab file ID and
// date; with a continuing calibration report named it is the file that this one names, and gives
// only what is empty. A level that the calibration report has not is a fault. A number that has
// been left before takes nothing over again.
std::optional<EntryFault> LeaveStandardSampleNo(Entries& entries, const Batch& batch,
                                                Reports& reports, Messages& messages);

// Browse of the standard's raw data file: its lab file ID and its date.
BrowseAction BrowseSummaryStandard;

// What is wrong with a retention time that is no number.
std::optional<Message> CheckRetentionTime(const std::string& text);

// OK: the sample number as when it is left, the required entries, then retention times and dates.
std::optional<EntryFault> AcceptStandardSummary(Entries& entries, const Batch& batch,
                                                Reports& reports, Messages& messages);

// The text of ConcCombo: the amount of the chosen level, empty when there is none.
std::string ConcentrationText(const StandardSummaryEntry& entry);

}  // namespace qfr
