#include "forms/Form7.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/CalibrationTables.h"
#include "data/CheckReport.h"
#include "data/CriteriaFile.h"
#include "data/OpenedFile.h"
#include "forms/CompoundRows.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr int kRowsPerPage = 27;
constexpr double kLeft = 0.9;
constexpr double kRight = 7.6;
constexpr double kTableTop = 3.35;
constexpr double kRowsTop = 3.7;
constexpr double kColumnLines[] = {0.9, 4.1, 4.8, 5.5, 6.2, 6.9, 7.6};
constexpr CompoundRows kRows{
    .rowsTop = kRowsTop,
    .rowsEnd = 9.9,
    .rowsPerPage = kRowsPerPage,
    .left = kLeft,
    .right = kRight,
    .nameX = 1.0,
    .nameDown = 0.025,
    .nameWidth = 2.5,
    .columnsTop = kTableTop,
    .columnLines = kColumnLines,
};

// The heads that are centred in the usual way.
struct HeadPlace {
    std::string_view text;
    double centre;
    double y;
};
constexpr HeadPlace kHeads[] = {
    {"MIN", 5.85, 3.362}, {"RF", 5.85, 3.521}, {"%D", 6.55, 3.446}, {"MAX %D", 7.25, 3.446}};

// What the form shows, as read from its files.
struct Form7Data {
    std::vector<CalibrationRecord> checkTable;
    std::vector<RFCriterion> criteria;
};
using CriteriaByName = std::unordered_map<std::string_view, const RFCriterion*>;

void PrintHeader(Page& page, const SampleHeader& header, const ContinuingCalibrationEntry& entry) {
    page.PageNo = page.Printer().PageNumber();
    page.PrintNumberLine(
        "7" + Page::FormLetter(page.PageNo) + " - FORM VII VOA-" + std::to_string(page.PageNo),
        "7A - FORM VII VOA-1", 0.7);
    page.TextOutCentred("VOLATILE CONTINUING CALIBRATION DATA", 4.25, 0.85);
    page.PrintLabRows(header, 1.425);
    const auto date = [](std::string_view text) { return CharacterRange(text, 1, 10); };
    const auto time = [](std::string_view text) { return CharacterRange(text, 12, 16); };
    page.PrintFields({
        {"Instrument ID:", header[HeaderField::kInstrumentId], 0.9, 1.975, 2.1},
        {"Calibration Date:", date(entry.AnalysisDateTime), 4.5, 1.975, 0.65},
        {"Time:", time(entry.AnalysisDateTime), 6.4, 1.975, 0.65},
        {"Lab File ID:", entry.LabFileId, 0.9, 2.25, 2.25},
        {"Init. Calib. Date(s):", date(entry.FirstStandard), 4.5, 2.25, 0.8},
        {"", date(entry.LastStandard), 6.7, 2.25, 0.8},
        {"ZOV Sample No. (VSTD#####):", entry.SampleNo, 0.9, 2.525, 1.1},
        {"Init. Calib. Time(s):", time(entry.FirstStandard), 4.5, 2.525, 0.8},
        {"", time(entry.LastStandard), 6.7, 2.525, 0.8},
        {"Heated Purge: (Y/N)", header[HeaderField::kHeatedPurge], 0.9, 2.8, 0.65},
        {"GC Column:", header[HeaderField::kGcColumn], 2.95, 2.8, 1.0},
        {"ID:", header[HeaderField::kColumnId], 4.9, 2.8, 0.5},
        {"Length:", header[HeaderField::kColumnLength], 6.225, 2.8, 0.5},
        {"Purge Volume:", header[HeaderField::kPurgeVolume], 0.9, 3.075, 2.05},
    });
    const double h = page.FontHeightInch();
    page.TextOutInch("(mm)", 5.775, 2.8 + h);
    page.TextOutInch("(m)", 7.35, 2.8 + h);
    // On purpose: below its underline, unlike the other units.
    page.TextOutInch("(ml)", 4.0, 3.075 - h);
    page.PrintPageFooter();
}

void PrintHeads(Page& page, const std::string& amount) {
    page.DrawHeadBox(kLeft, kTableTop, kRight, kRowsTop, kHeavyRulePen);
    page.TextOutInch("COMPOUND", 1.0, 3.446);
    // On purpose: the two RF columns are centred with the vertical scale.
    const auto width = [&page](std::string_view text) {
        return static_cast<double>(page.Canvas().TextWidth(text)) / page.VertScale;
    };
    const double mean = 4.45 - width("RF") * 0.5;
    page.TextOutInch("RF", mean, 3.446);
    page.DrawLineInch(mean, 3.436, mean + width("RF"), 3.436);
    const double standard = 5.15 - width("RF____") * 0.5;
    page.TextOutInch("RF____", standard, 3.446);
    page.TextOutInch(amount, standard + page.TextWidthInch("RF__") - width(amount) * 0.5, 3.415);
    for (const HeadPlace& head : kHeads) {
        page.TextOutCentred(head.text, head.centre, head.y);
    }
}

void PrintCells(Page& page, const CalibrationRecord& record, const CriteriaByName& criteria,
                double y) {
    // On purpose: the numbers of the two RF columns reach across the rules to their right.
    page.TextOutRight(RoundToWhole(record.RF[kCheckMeanRF]), 4.9, y + 0.025);
    page.TextOutRight(RoundToWhole(record.RF[kCheckRF]), 5.6, y + 0.025);
    page.TextOutRight(record.Amount[kCheckPercentD], 6.8, y + 0.025);
    if (const auto limits = criteria.find(record.Name); limits != criteria.end()) {
        page.TextOutRight(limits->second->MinimumRF, 6.1, y + 0.025);
        page.TextOutRight(limits->second->MaximumPercentD, 7.5, y + 0.025);
    }
}

void PrintPages(FormHost& host, const SampleHeader& header, const Form7Data& data) {
    CriteriaByName criteria;
    for (const RFCriterion& criterion : data.criteria) {
        criteria.emplace(criterion.Name, &criterion);  // the first of a name counts
    }
    const ContinuingCalibrationEntry& entry = host.Entries().ContinuingCalibration;
    Page& page = host.Page();
    TPrinter& printer = page.Printer();
    page.testPrinter();
    printer.Title = "Form 7 " + Trim(entry.SampleNo);
    printer.BeginDoc();
    // On purpose: never rounded up, so that a full last page is counted one page too many.
    page.PageCount = host.Calibration().RFRowCount / kRowsPerPage + 1;
    std::size_t row = 0;
    for (bool done = false; !done;) {
        PrintHeader(page, header, entry);
        PrintHeads(page, host.Calibration().LevelAmount[kCheckAmount]);
        const std::vector<CalibrationRecord>& table = data.checkTable;
        PrintCompoundRows(page, kRows, table.size(), row, [&](std::size_t compound, double y) {
            PrintCells(page, table[compound], criteria, y);
            return table[compound].Name;
        });
        done = row == table.size();
        if (!done) {
            printer.NewPage();
        }
    }
    printer.EndDoc();
}

// Opened twice in a job; absent after the message, which is the same both times.
std::optional<OpenedFile> OpenCheckReport(FormHost& host) {
    const Batch& batch = host.Batch();
    auto report = OpenFileBeside(Trim(batch.Files.CheckCal), batch.Folder);
    if (!report) {
        host.Show(
            {"Please use Data Files|Load Files menu option to verify\na continuing calibration "
             "file.",
             kCalibrationNotOpenedTitle});
    }
    return report;
}

// The tables of the form; absent after the message that says what is missing.
std::optional<Form7Data> ReadData(FormHost& host, LineReader& calibration) {
    CalibrationTables& tables = host.Calibration();
    auto rfTable = BuildRFTable(calibration, tables.LevelCount, host);
    if (!rfTable) {
        return std::nullopt;
    }
    tables.RFRowCount = static_cast<int>(rfTable->size());
    auto check = OpenCheckReport(host);
    if (!check) {
        return std::nullopt;
    }
    Form7Data data;
    data.checkTable = ReadCheckTable(check->Lines, *rfTable);
    tables.LevelAmount[kCheckAmount] = ChooseLevelAmount(data.checkTable, kCheckAmount);
    auto criteria = OpenFileBeside(Trim(host.Entries().ContinuingCalibration.CriteriaFile),
                                   host.Batch().Folder);
    if (!criteria) {
        host.Show({"Please select another continuing \ncalibration RF limits file.",
                   "File Could Not Be Opened"});
        return std::nullopt;
    }
    data.criteria = ReadCriteriaTable(criteria->Lines);
    return data;
}

}  // namespace

void Form7CCDClick(FormHost& host) {
    const Batch& batch = host.Batch();
    const std::string calibrationName = Trim(batch.Files.Calib);
    if (Trim(batch.Files.CheckCal).empty() || calibrationName.empty()) {
        host.Show(
            {"Please use Data Files|Load Files menu option to specify\nan initial calibration "
             "file and a continuing\ncalibration file.",
             kCalibrationNotSpecifiedTitle});
        return;
    }
    auto check = OpenCheckReport(host);
    if (!check) {
        return;
    }
    ReadCheckStandardInfo(check->Lines, check->Folder, host.Entries().ContinuingCalibration);
    auto calibration = OpenFileBeside(calibrationName, batch.Folder);
    if (!calibration) {
        host.Show(
            {"Please use Data Files|Load Files menu option to specify\nan initial calibration "
             "file.  Print Form 6\nbefore 7 to obtain calibration times",
             kCalibrationNotOpenedTitle});
        return;
    }
    // On purpose: the raw data files of the initial calibration are not read here. Its dates are
    // those that Form VI left or that the user typed, even when there are none yet.
    const std::optional<std::size_t> record = CheckFormPreconditions(host, "Form 7");
    if (!record || !host.ShowEntryDialog(EntryDialog::kContinuingCalibration, *record)) {
        return;
    }
    if (const auto data = ReadData(host, calibration->Lines)) {
        PrintPages(host, (*batch.SampleList)[*record].Header, *data);
    }
}

}  // namespace qfr
