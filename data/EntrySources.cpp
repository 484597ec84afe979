#include "data/EntrySources.h"

#include <algorithm>
#include <array>

#include "data/CalibrationTables.h"
#include "platform/Text.h"

namespace qfr {

namespace {

class Sources {
  public:
    // Nothing gives an empty text.
    void Add(const char* control, const std::string& text, const std::string& note) {
        if (!IsUnfilled(text)) {
            all_.push_back({control, Trim(text), note});
        }
    }
    void AddAlways(const char* control, const std::string& note) {
        all_.push_back({control, std::nullopt, note});
    }
    void AddStandard(const FileContent<RawDataFile>& data, const std::string& note) {
        if (!data || !data->HasTitle()) {
            return;
        }
        Add("LabFileEdit", data->LabFileId(), note);
        if (const auto acquired = data->Acquired()) {
            Add("MaskEdit1", FormatDateTime(*acquired), note);
        }
    }
    void AddDates(const std::string& first, const std::string& last, const std::string& note) {
        Add("MaskEdit2", CharacterRange(first, 1, 10), "first " + note);
        Add("MaskEdit3", CharacterRange(last, 1, 10), "last " + note);
    }
    std::vector<EntrySource> Take() { return std::move(all_); }

  private:
    std::vector<EntrySource> all_;
};

void AddCheckReport(Sources& sources, const Batch& batch, Reports& reports) {
    const std::string name = Trim(batch.Files.CheckCal);
    const auto report = reports.Read<CheckReport>(name, batch.Folder);
    if (name.empty() || !report) {
        return;
    }
    const std::string note = "from check report " + FileNameOnly(name);
    sources.AddStandard(reports.Read<RawDataFile>(report->StandardFile, report.Folder), note);
    for (const char* const control : {"RTEdit1", "RTEdit2", "RTEdit3"}) {
        sources.AddAlways(control, note + "; these do not print");
    }
}

void AddCalibrationReport(Sources& sources, const Batch& batch, Reports& reports, int levelCount) {
    const std::string name = Trim(batch.Files.Calib);
    const auto report = reports.Read<CalibrationReport>(name, batch.Folder);
    if (name.empty() || !report) {
        return;
    }
    const std::string note = "from calibration report " + FileNameOnly(name);
    InitialCalibrationEntry dates;
    KeptMessages told;  // by the forms themselves
    ReadCalibrationDataFiles(report, reports, false, dates, told);
    sources.AddDates(dates.FirstStandard, dates.LastStandard, note);
    const auto levels =
        std::min(static_cast<std::size_t>(std::max(levelCount, 0)), report->DataFiles.size());
    for (std::size_t level = 0; level < levels; ++level) {
        sources.AddStandard(reports.Read<RawDataFile>(report->DataFiles[level], report.Folder),
                            note);
    }
    sources.AddAlways("ConcCombo", "levels from calibration report " + FileNameOnly(name));
}

}  // namespace

bool EntrySource::Gives(const std::string& text) const {
    return !Text || LowerCase(Trim(text)) == LowerCase(*Text);
}

std::vector<EntrySource> SourcesOfStandardSummary(const Entries& entries, const Batch& batch,
                                                  Reports& reports, int levelCount) {
    Sources sources;
    AddCheckReport(sources, batch, reports);
    AddCalibrationReport(sources, batch, reports, levelCount);
    const InitialCalibrationEntry& initial = entries.InitialCalibration;
    const ContinuingCalibrationEntry& continuing = entries.ContinuingCalibration;
    sources.AddDates(initial.FirstStandard, initial.LastStandard, "from the entry of Form VI");
    const std::string form7 = "from the entry of Form VII";
    sources.AddDates(continuing.FirstStandard, continuing.LastStandard, form7);
    sources.Add("SampleEdit", continuing.SampleNo, form7);
    sources.Add("LabFileEdit", continuing.LabFileId, form7);
    sources.Add("MaskEdit1", continuing.AnalysisDateTime, form7);
    return sources.Take();
}

}  // namespace qfr
