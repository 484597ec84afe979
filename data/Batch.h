// What is known about one analytical sequence: its report files, one record per sample report, and
// which compounds the lab blank contains. There is one batch per run.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qfr {

// The text as a line of the batch file can hold it: ";" becomes ",", line breaks become blanks.
std::string BatchText(std::string_view text);

// The 26 values of a Form I header, numbered from 1 in the order in which they are entered.
enum class HeaderField {
    kZovSampleNo = 1,
    kLabSampleId,
    kLabName,
    kContract,
    kLabCode,
    kCaseNo,
    kModRefNo,
    kSdgNo,
    kMatrix,
    kSampleWtVol,
    kWtVolUnits,
    kLabFileId,
    kLevel,
    kDateReceived,
    kDateAnalyzed,
    kPercentMoisture,
    kGcColumn,
    kColumnId,  // inner diameter, mm
    kDilutionFactor,
    kSoilExtractVolume,
    kSoilAliquotVolume,
    kPurgeVolume,
    kConcUnits,
    kInstrumentId,
    kHeatedPurge,
    kColumnLength,  // m
};

// The header values of one sample, as text. A new header carries the defaults of a water sample and
// empty texts elsewhere.
class SampleHeader {
  public:
    static constexpr int kCount = 26;

    SampleHeader();
    std::string& operator[](HeaderField field) { return values_[Slot(field)]; }
    const std::string& operator[](HeaderField field) const { return values_[Slot(field)]; }
    // In the order of their numbers.
    std::array<std::string, kCount>& Values() { return values_; }
    const std::array<std::string, kCount>& Values() const { return values_; }
    bool operator==(const SampleHeader&) const = default;

  private:
    static std::size_t Slot(HeaderField field) { return static_cast<std::size_t>(field) - 1; }
    std::array<std::string, kCount> values_;
};

// Field `number`, from 1 to SampleHeader::kCount.
constexpr HeaderField HeaderFieldAt(int number) {
    return static_cast<HeaderField>(number);
}

// The first field that is empty or blank; absent when the header is complete.
std::optional<HeaderField> FirstEmptyField(const SampleHeader& header);
// All of them, in the order of their numbers.
std::vector<HeaderField> EmptyFields(const SampleHeader& header);

// One tentatively identified compound, as typed.
struct TicEntry {
    static constexpr int kCount = 5;
    static constexpr int kRequired = 4;  // the first ones; without a qualifier a row is whole
    // CAS number, compound name, retention time, estimated concentration, qualifier.
    std::array<std::string, kCount> cells;
    bool operator==(const TicEntry&) const = default;
};
using TicListType = std::vector<TicEntry>;
inline constexpr std::int32_t kMaxTics = 1'000;  // of a sample

// What the rows of the TIC entry grid hold: every row in which nothing but the qualifier is empty,
// its cells trimmed and its compound name in lower case. Absent when there is no such row.
std::optional<TicListType> TicListFromRows(const std::vector<TicEntry>& rows);

// The rows, from 1, that hold something but are left out of that list.
std::vector<std::size_t> IncompleteTicRows(const std::vector<TicEntry>& rows);

// The header values that tell which analysis a report is about.
struct AnalysisIds {
    std::string LabFileId;
    std::string ZovSampleNo;
    bool operator==(const AnalysisIds&) const = default;
};

// One quantitation report.
struct SampleRecord {
    std::string FileName;  // full path, lower case
    SampleHeader Header;
    std::int32_t CompoundCount = 0;      // rows of the report's compound table
    std::optional<TicListType> TicList;  // absent until entered
    // As this run took them from the report; absent in a record that was restored.
    std::optional<AnalysisIds> TakenIds;
    bool operator==(const SampleRecord&) const = default;
};

// The files of the batch, under the names of the controls that show them. Report names are full
// paths in lower case; the library, internal standard and calibration names are base names in lower
// case. Empty: not named.
struct FileSet {
    std::string LibFile;
    std::string SurrFile;  // internal standard file
    std::string CalFile;
    std::string LabBlank;
    std::vector<std::string> QFiles;  // sorted, no duplicates
    std::string Calib;                // initial calibration report
    std::string CheckCal;             // continuing calibration report
    bool operator==(const FileSet&) const = default;
};

// What the sample is called in lists: its number, or else its report.
std::string SampleName(const SampleRecord& record);

using SampleListType = std::vector<SampleRecord>;

struct Batch {
    FileSet Files;
    // The lab blank's record first when one is named, then one per entry of QFiles. Absent until it
    // is built; never empty.
    std::optional<SampleListType> SampleList;
    // One per compound row of the lab blank: true when the blank contains the compound. Those of
    // the last lab blank stay when the batch is emptied, so they count only while a lab blank is
    // named.
    std::vector<bool> BlankHitFlags;
    // Folder of the batch file that this batch was restored from (UTF-8), empty otherwise. Reports
    // that are not where their names say are looked for here.
    std::string Folder;
    // When that batch file was written.
    std::optional<std::filesystem::file_time_type> SavedAt;
    bool operator==(const Batch&) const = default;
};

// Milestones of the data entry for the current batch.
struct BatchFlags {
    bool InitCalEntered = false;  // initial calibration entry accepted
    bool ContCalEntered = false;  // continuing calibration entry accepted
    bool Form8DataReady = false;  // Form VIII data assembled for the current file set
    bool operator==(const BatchFlags&) const = default;
};

// In the order in which every form lists them.
inline constexpr std::array<std::string_view, 3> InternalStandardNames = {
    "chlorobenzene-d5", "1,4-difluorobenzene", "1,2-dichlorobenzene-d4"};

// Whether a lab blank or at least one quantitation report is named.
bool FilesSpecified(const Batch& batch);

// Whether the batch has anything that a clear would take: samples, or a report of any kind.
bool IsLoaded(const Batch& batch);

// Whether the batch names a continuing calibration report.
bool CheckReportNamed(const Batch& batch);

// The records of the batch; none where it has no list.
std::span<const SampleRecord> SamplesOf(const Batch& batch);
// Those without the lab blank's: what is counted as samples.
std::span<const SampleRecord> SamplesBesidesBlank(const Batch& batch);

// 1 when the first record of SampleList is the lab blank's, else 0.
std::size_t LabBlankRecords(const Batch& batch);

}  // namespace qfr
