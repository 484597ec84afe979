#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/CalibrationTables.h"
#include "forms/Form8Content.h"
#include "forms/FormHost.h"
#include "forms/TableRows.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr std::size_t kStandards = InternalStandardNames.size();
constexpr double kTableTop = 3.0;
constexpr SampleRows kRows{.rowsPerPage = 22,
                           .left = 1.0,
                           .right = 7.6,
                           .numberX = 0.8,
                           .numberDown = 0.0125,
                           .gap = 0.025};

// The columns of an internal standard: area and RT end at their edges, each with its flag after it.
struct StandardColumns {
    std::string_view head;
    double headCentre;
    double areaRight;
    double areaFlag;
    double rtRight;
    double rtFlag;
};
constexpr StandardColumns kColumns[kStandards] = {{"IS1", 2.65, 2.85, 3.0, 3.75, 3.9},
                                                  {"IS2", 4.45, 4.65, 4.8, 5.55, 5.7},
                                                  {"IS3", 6.25, 6.45, 6.6, 7.35, 7.5}};

constexpr std::pair<std::string_view, double> kFootnotes[] = {
    {"IS1 = Chlorobenzene-d5", 8.32},
    {"IS2 = 1,4-Difluorobenzene", 8.49},
    {"IS3 = 1,2-Dichlorobenzene-d4", 8.66},
    {"AREA UPPER LIMIT = 200% (Low-Medium Volatiles) of internal standard area", 8.91},
    {"AREA LOWER LIMIT = 50% (Low-Medium Volatiles) of internal standard area", 9.08},
    {"RT UPPER LIMIT = + 0.50 (Low-Medium Volatiles) minutes of internal standard RT", 9.25},
    {"RT LOWER LIMIT = - 0.50 (Low-Medium Volatiles) minutes of internal standard RT", 9.42},
    {"#  Column used to flag values outside QC limits with an asterisk", 9.67},
};

// The rows of the 12-hour standard.
struct StandardRow {
    std::string_view label;
    std::string StandardISRecord::*area;
    std::string StandardISRecord::*rt;
};
constexpr StandardRow kStandardRows[] = {
    {"12 HOUR STD", &StandardISRecord::Area, &StandardISRecord::RT},
    {"UPPER LIMIT", &StandardISRecord::AreaUpper, &StandardISRecord::RTUpper},
    {"LOWER LIMIT", &StandardISRecord::AreaLower, &StandardISRecord::RTLower},
};

// Below the laboratory rows.
constexpr FieldPlace<Form8Content> kHeaderFields[] = {
    {"GC Column:", HeaderField::kGcColumn, 0.9, 1.975, 1.0},
    {"ID:", HeaderField::kColumnId, 2.85, 1.975, 0.725, "(mm)", 3.95},
    {"Init. Calib. Date(s):", &Form8Content::FirstCalibrationDate, 4.8, 1.975, 0.7},
    {"", &Form8Content::LastCalibrationDate, 6.7, 1.975, 0.7},
    {"ZOV Sample No. (VSTD#####):", &Form8Content::SampleNo, 0.9, 2.25, 1.05},
    {"Date Analyzed:", &Form8Content::DateAnalyzed, 4.8, 2.25, 1.7},
    {"Lab File ID (Standard)", &Form8Content::LabFileId, 0.9, 2.525, 1.6},
    {"Time Analyzed:", &Form8Content::TimeAnalyzed, 4.8, 2.525, 1.7},
    {"Instrument ID:", HeaderField::kInstrumentId, 0.9, 2.8, 2.05},
    {"Heated Purge: (Y/N)", HeaderField::kHeatedPurge, 4.8, 2.8, 1.45},
};

void PrintHeader(Page& page, const Form8Content& content) {
    page.PageNo = page.Printer().PageNumber();
    page.PrintNumberLine("8" + Page::FormLetter(page.PageNo) + " - FORM VIII VOA",
                         "8A - FORM VIII VOA", 0.7);
    page.TextOutCentred("VOLATILE INTERNAL STANDARD AREA AND RETENTION TIME SUMMARY", 4.25, 0.85);
    page.PrintLabRows(content, 1.425);
    page.PrintFields(content, kHeaderFields);
    page.PrintPageFooter();
}

// Head box, the standard's rows and the footnotes. Returns where the samples' rows start.
double PrintStandard(Page& page, const StandardISTable& standard) {
    const double h = page.TextHeightInch();
    double y = kTableTop + 0.0375 + 2 * h;
    page.DrawHeadBox(kRows.left, kTableTop, kRows.right, y, kRulePen);
    const double firstLine = kTableTop + 0.0125;
    for (const StandardColumns& columns : kColumns) {
        page.TextOutCentred(columns.head, columns.headCentre, firstLine);
        page.TextOutRight("AREA", columns.areaRight, firstLine + h);
        page.TextOutInch("#", columns.areaFlag, firstLine + h);
        page.TextOutRight("RT", columns.rtRight, firstLine + h);
        page.TextOutInch("#", columns.rtFlag, firstLine + h);
    }
    for (const StandardRow& row : kStandardRows) {
        page.TextOutInch(row.label, 1.05, y + 0.015);
        for (std::size_t i = 0; i < kStandards; ++i) {
            page.TextOutRight(standard[i].*row.area, kColumns[i].areaRight, y + 0.015);
            page.TextOutRight(standard[i].*row.rt, kColumns[i].rtRight, y + 0.015);
        }
        EndRow(page, kRows, y);
    }
    page.TextOutInch("ZOV SAMPLE NO.", 1.05, y + 0.015);
    EndRow(page, kRows, y);
    for (const auto& [text, footnoteY] : kFootnotes) {
        page.TextOutInch(text, 0.9, footnoteY);
    }
    return y;
}

void PrintSample(Page& page, const Form8Content::Sample& sample, double y) {
    page.TextOutInch(sample.SampleNo, 1.1, y);
    for (std::size_t i = 0; i < kStandards; ++i) {
        const StandardColumns& columns = kColumns[i];
        const Form8Content::Peak& peak = sample.Peaks[i];
        page.TextOutRight(peak.Area, columns.areaRight, y);
        page.TextOutInch(peak.AreaFlag, columns.areaFlag, y);
        page.TextOutRight(peak.RT, columns.rtRight, y);
        page.TextOutInch(peak.RTFlag, columns.rtFlag, y);
    }
}

// True for the last page.
bool PrintPage(Page& page, const Form8Content& content, std::size_t& row) {
    const std::vector<Form8Content::Sample>& samples = content.Samples;
    page.PageCount = static_cast<std::int32_t>((samples.size() - 1) / kRows.rowsPerPage + 1);
    PrintHeader(page, content);
    const double rowsTop = PrintStandard(page, content.Standard);
    PrintSampleRows(page, kRows, samples.size(), row, rowsTop,
                    [&](std::size_t i, double y) { PrintSample(page, samples[i], y + 0.0125); });
    return row >= samples.size();
}

constexpr char kNotOpened[] =
    "Please use Data Files|Load menu option to specify a\ncalibration or continuing calibration "
    "file.";

}  // namespace

std::optional<Form8Content> PrepareForm8(FormHost& host) {
    const Batch& batch = host.Batch();
    if (!FilesSpecified(batch)) {
        host.Show(
            {"Please use the Data Files|Load menu options to specify\na lab blank and "
             "quantitation files.",
             "Required Files Missing"});
        return std::nullopt;
    }
    const std::string calibrationName = Trim(batch.Files.Calib);
    const std::string checkName = Trim(batch.Files.CheckCal);
    if (calibrationName.empty() && checkName.empty()) {
        host.Show(
            {"Please use Data Files|Load menu option to specify\nan initial calibration file "
             "and a continuing\ncalibration file.",
             kCalibrationNotSpecifiedTitle});
        return std::nullopt;
    }
    Reports& reports = host.Reports();
    FileContent<CalibrationReport> calibration;
    if (!calibrationName.empty()) {
        calibration = OpenCalibration<CalibrationReport>(host, calibrationName, kNotOpened);
        if (!calibration) {
            return std::nullopt;
        }
        host.LevelCount() =
            ReadCalibrationDataFiles(calibration, reports, host.Flags().InitCalEntered,
                                     host.Entries().InitialCalibration, host);
    }
    FileContent<CheckReport> check;
    if (!checkName.empty()) {
        check = OpenCalibration<CheckReport>(host, checkName, kNotOpened);
        if (!check) {
            return std::nullopt;
        }
    }
    const auto record = CheckAndAsk(host, "Form 8", EntryDialog::kStandardSummary);
    if (!record) {
        return std::nullopt;
    }
    auto content = BuildForm8Content(batch, *record, check ? &*check : nullptr,
                                     calibration ? &*calibration : nullptr, host.LevelCount(),
                                     host.Entries().StandardSummary, reports, host);
    if (!content) {
        return std::nullopt;
    }
    if (!check) {
        TellOfDamage(*calibration, calibrationName, host);
    }
    host.Flags().Form8DataReady = true;
    return content;
}

void Form8ARTClick(FormHost& host) {
    if (const auto content = PrepareForm8(host)) {
        host.Page().PrintDocument("Form 8 " + content->SampleNo, *content, PrintPage);
    }
}

}  // namespace qfr
