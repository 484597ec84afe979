#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/CalibrationEntryRules.h"
#include "data/CalibrationTables.h"
#include "forms/Form7Content.h"
#include "forms/FormHost.h"
#include "forms/TableRows.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kColumnLines[] = {0.9, 4.1, 4.8, 5.5, 6.2, 6.9, 7.6};
constexpr CompoundRows kRows{
    .rowsTop = 3.7,
    .rowsEnd = 9.9,
    .rowsPerPage = 27,
    .left = 0.9,
    .right = 7.6,
    .nameX = 1.0,
    .nameDown = 0.025,
    .nameWidth = 2.5,
    .columnsTop = 3.35,
    .columnLines = kColumnLines,
};

// Below the laboratory rows.
constexpr FieldPlace<Form7Content> kHeaderFields[] = {
    {"Instrument ID:", HeaderField::kInstrumentId, 0.9, 1.975, 2.1},
    {"Calibration Date:", &Form7Content::CalibrationDate, 4.5, 1.975, 0.65},
    {"Time:", &Form7Content::CalibrationTime, 6.4, 1.975, 0.65},
    {"Lab File ID:", &Form7Content::LabFileId, 0.9, 2.25, 2.25},
    {"Init. Calib. Date(s):", &Form7Content::FirstDate, 4.5, 2.25, 0.8},
    {"", &Form7Content::LastDate, 6.7, 2.25, 0.8},
    {"ZOV Sample No. (VSTD#####):", &Form7Content::SampleNo, 0.9, 2.525, 1.1},
    {"Init. Calib. Time(s):", &Form7Content::FirstTime, 4.5, 2.525, 0.8},
    {"", &Form7Content::LastTime, 6.7, 2.525, 0.8},
    {"Heated Purge: (Y/N)", HeaderField::kHeatedPurge, 0.9, 2.8, 0.65},
    {"GC Column:", HeaderField::kGcColumn, 2.95, 2.8, 1.0},
    {"ID:", HeaderField::kColumnId, 4.9, 2.8, 0.5, "(mm)", 5.775},
    {"Length:", HeaderField::kColumnLength, 6.225, 2.8, 0.5, "(m)", 7.35},
    {"Purge Volume:", HeaderField::kPurgeVolume, 0.9, 3.075, 2.05, "(ml)", 4.0,
     UnitLevel::kBelowLine},
};

void PrintHeader(Page& page, const Form7Content& content) {
    page.PageNo = page.Printer().PageNumber();
    page.PrintNumberLine(
        "7" + Page::FormLetter(page.PageNo) + " - FORM VII VOA-" + std::to_string(page.PageNo),
        "7A - FORM VII VOA-1", 0.7);
    page.TextOutCentred("VOLATILE CONTINUING CALIBRATION DATA", 4.25, 0.85);
    page.PrintLabRows(content, 1.425);
    page.PrintFields(content, kHeaderFields);
    page.PrintPageFooter();
}

void PrintHeads(Page& page, const std::string& amount) {
    page.DrawHeadBox(kRows.left, kRows.columnsTop, kRows.right, kRows.rowsTop, kHeavyRulePen);
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
    page.TextOutCentred("MIN", 5.85, 3.362);
    page.TextOutCentred("RF", 5.85, 3.521);
    page.TextOutCentred("%D", 6.55, 3.446);
    page.TextOutCentred("MAX %D", 7.25, 3.446);
}

void PrintCells(Page& page, const Form7Content::Compound& compound, double y) {
    // On purpose: the numbers of the two RF columns reach across the rules to their right.
    page.TextOutRight(compound.MeanRF, 4.9, y + 0.025);
    page.TextOutRight(compound.RF, 5.6, y + 0.025);
    page.TextOutRight(compound.PercentD, 6.8, y + 0.025);
    page.TextOutRight(compound.MinimumRF, 6.1, y + 0.025);
    page.TextOutRight(compound.MaximumPercentD, 7.5, y + 0.025);
}

// True for the last page.
bool PrintPage(Page& page, const Form7Content& content, std::size_t& row) {
    const std::vector<Form7Content::Compound>& compounds = content.Compounds;
    // On purpose: never rounded up, so that a full last page is counted one page too many.
    page.PageCount = static_cast<std::int32_t>(compounds.size()) / kRows.rowsPerPage + 1;
    PrintHeader(page, content);
    PrintHeads(page, content.Amount);
    PrintCompoundRows(page, kRows, compounds.size(), row, [&](std::size_t i, double y) {
        PrintCells(page, compounds[i], y);
        return compounds[i].Name;
    });
    return row == compounds.size();
}

// The form's content from its files; absent after the message that says what is missing.
std::optional<Form7Content> ReadContent(FormHost& host, const SampleHeader& header,
                                        const CalibrationReport& calibration,
                                        const CheckReport& check) {
    const ContinuingCalibrationEntry& entry = host.Entries().ContinuingCalibration;
    const auto rfTable = BuildRFTable(calibration, host.LevelCount(), host);
    if (!rfTable) {
        return std::nullopt;
    }
    const auto criteria =
        host.Reports().Read<CriteriaFile>(Trim(entry.CriteriaFile), host.Batch().Folder);
    if (!criteria) {
        host.Show({"Please select another continuing \ncalibration RF limits file.",
                   "File Could Not Be Opened"});
        return std::nullopt;
    }
    if (!criteria->HasTitle) {
        host.Show(NotACriteriaFile(Trim(entry.CriteriaFile)));
        return std::nullopt;
    }
    TellOfDamage(calibration, host.Batch().Files.Calib, host);
    TellOfOtherRows(check, *rfTable, host.Batch().Files.CheckCal, host);
    if (criteria->TextsCut) {
        host.Show(TextsWereCut(entry.CriteriaFile));
    }
    return BuildForm7Content(header, *rfTable, check, criteria->Criteria, entry);
}

}  // namespace

std::optional<Form7Content> PrepareForm7(FormHost& host) {
    const Batch& batch = host.Batch();
    const std::string calibrationName = Trim(batch.Files.Calib);
    const std::string checkName = Trim(batch.Files.CheckCal);
    if (checkName.empty() || calibrationName.empty()) {
        host.Show(
            {"Please use Data Files|Load Files menu option to specify\nan initial calibration "
             "file and a continuing\ncalibration file.",
             kCalibrationNotSpecifiedTitle});
        return std::nullopt;
    }
    const auto openCheck = [&host, &checkName](bool onceMore) {
        return OpenCalibration<CheckReport>(host, checkName,
                                            "Please use Data Files|Load Files menu option to "
                                            "verify\na continuing calibration file.",
                                            onceMore);
    };
    const auto standardCheck = openCheck(false);
    if (!standardCheck) {
        return std::nullopt;
    }
    ReadCheckStandardInfo(standardCheck, host.Reports(), host.Entries().ContinuingCalibration);
    const auto calibration = OpenCalibration<CalibrationReport>(
        host, calibrationName,
        "Please use Data Files|Load Files menu option to specify\nan initial calibration "
        "file.  Print Form 6\nbefore 7 to obtain calibration times");
    if (!calibration) {
        return std::nullopt;
    }
    // On purpose: the raw data files of the initial calibration are not read here. Its dates are
    // those that Form VI left or that the user typed, even when there are none yet.
    const auto record = CheckAndAsk(host, "Form 7", EntryDialog::kContinuingCalibration);
    // The dialog may have asked to recreate the report.
    const auto check = record ? openCheck(true) : FileContent<CheckReport>();
    if (!check) {
        return std::nullopt;
    }
    return ReadContent(host, (*batch.SampleList)[*record].Header, *calibration, *check);
}

void Form7CCDClick(FormHost& host) {
    if (const auto content = PrepareForm7(host)) {
        host.Page().PrintDocument("Form 7 " + Trim(content->SampleNo), *content, PrintPage);
    }
}

}  // namespace qfr
