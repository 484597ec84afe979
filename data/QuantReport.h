// Quantitation reports (*.prn) of Tallyworks 4.2: title, labelled header lines, a compound table
// that starts at "compound#" and ends at the first blank line, the recoveries of the monitoring
// compounds below "volatile", and the peaks below "internal standard data".
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/Batch.h"
#include "data/ReportFrame.h"
#include "platform/LineReader.h"

namespace qfr {

// A report carries at most this many compound rows when it enters a batch.
inline constexpr std::int32_t kMaxCompoundRows = 301;
// A batch file may count more for it, of which no more than these are read and printed.
inline constexpr std::int32_t kMaxPrintedRows = 1'000;
inline constexpr std::size_t kMaxMonitoringCompounds = 21;

// One row of the compound table, as written: but for the CAS number, blanks around a text stay.
struct CompoundRow {
    std::string Name;
    std::string Concentration;  // begins with "U" when the compound was not detected
    std::string Qualifier;
    std::string CasNumber;
    bool Found = false;  // detected, and not an estimate
    bool Whole = false;  // has as many fields as a row needs, and not only its first ones
};

struct MonitoringCompound {
    std::string Name;      // lower case
    std::string Recovery;  // percent, as written
};

struct PeakData {
    std::string Area;           // counts, decimals cut off
    std::string RetentionTime;  // minutes, as written
};
// Slots as in InternalStandardNames. A standard that the report lacks is empty.
using InternalStandardPeaks = std::array<PeakData, InternalStandardNames.size()>;

// Finds the first line of each internal standard among the lines of a report.
class StandardLines {
  public:
    // `nameField`: the field of a line that gives its name, from 1.
    explicit StandardLines(int nameField) : nameField_(nameField) {}
    // Which standard's line this is; absent for every other line.
    std::optional<std::size_t> Take(const std::string& line);

  private:
    int nameField_;
    std::array<bool, InternalStandardNames.size()> found_{};
};

struct QuantReport {
    ReportFrame Frame;

    // The header; what it lacks is empty.
    std::string Acquired;    // "mm/dd/yyyy hh:nn"
    std::string UnreadDate;  // as written, where it cannot be read as a date and time
    std::string SampleSize;
    std::string ClientSample;
    std::string SampleId;
    std::string LabFileId;
    std::string Instrument;

    std::vector<CompoundRow> Rows;  // the first kMaxPrintedRows
    std::int32_t RowCount = 0;      // of the table
    // The first kMaxMonitoringCompounds; absent when the report has no such section.
    std::optional<std::vector<MonitoringCompound>> Monitoring;
    InternalStandardPeaks InternalStandards;
    bool TextsCut = false;  // it holds texts longer than kMaxPrintedText

    static QuantReport Read(LineReader file);
};

// Areas are reported with decimals that nobody counts.
std::string WholeCounts(const std::string& area);

// Fills a new record from the report; its values are as BatchText makes them.
void ReadSampleHeader(const QuantReport& report, SampleRecord& record);
// The values of the report's header that BatchText changes.
std::vector<std::string> ChangedValues(const QuantReport& report);

// Which compounds the lab blank contains, one flag per compound row.
std::vector<bool> ReadBlankHits(const QuantReport& blank);

}  // namespace qfr
