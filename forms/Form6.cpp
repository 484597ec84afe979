#include <span>
#include <string>
#include <vector>

#include "data/CalibrationTables.h"
#include "forms/Form6Content.h"
#include "forms/FormHost.h"
#include "forms/TableRows.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kLeft = 0.9;
constexpr double kColumnPitch = 0.6;

// Where a level's lab file ID stands; y is the level of its underline.
struct LabFilePlace {
    double x;
    double y;
};
constexpr LabFilePlace kPortraitLabFiles[] = {
    {3.18, 3.19}, {5.41, 3.19}, {1.0, 3.39}, {3.18, 3.39}, {5.41, 3.39}};
constexpr LabFilePlace kLandscapeLabFiles[] = {{1.9, 2.79}, {3.6, 2.79}, {5.3, 2.79}, {7.0, 2.79},
                                               {8.8, 2.79}, {1.9, 2.99}, {3.6, 2.99}, {5.3, 2.99},
                                               {7.0, 2.99}, {8.8, 2.99}};

constexpr double kColumnLines[] = {0.9, 3.4, 4.0, 4.6, 5.2, 5.8,  6.4,
                                   7.0, 7.6, 8.2, 8.8, 9.4, 10.0, 10.6};
constexpr std::size_t kPortraitColumnLines = 9;

struct Form6Layout {
    double rise;   // how much higher than on the portrait page header and heads stand
    double right;  // of the table
    int rowsPerPage;
    double rowsEnd;  // no row starts at or below this level
    std::span<const LabFilePlace> labFiles;
    double labFileWidth;
    double columnAmountsY;
    double meanHeadX;
    double meanBarEnd;
    double rsdHeadX;
    double meanRight;
    double rsdRight;
    std::span<const double> columnLines;
};
constexpr Form6Layout kPortrait{
    .rise = 0,
    .right = 7.6,
    .rowsPerPage = 27,
    .rowsEnd = 9.9,
    .labFiles = kPortraitLabFiles,
    .labFileWidth = 1.3,
    .columnAmountsY = 3.49,
    .meanHeadX = 6.5,
    .meanBarEnd = 6.675,
    .rsdHeadX = 7.1,
    .meanRight = 6.9,
    .rsdRight = 7.5,
    .columnLines = std::span(kColumnLines).first(kPortraitColumnLines),
};
constexpr Form6Layout kLandscape{
    .rise = 0.4,
    .right = 10.6,
    .rowsPerPage = 26,
    .rowsEnd = 8.0,
    .labFiles = kLandscapeLabFiles,
    .labFileWidth = 1.1,
    .columnAmountsY = 3.07,
    .meanHeadX = 9.6,
    .meanBarEnd = 9.75,
    .rsdHeadX = 10.1,
    .meanRight = 9.8,
    .rsdRight = 10.4,
    .columnLines = kColumnLines,
};

// Below the laboratory rows, on the portrait page.
constexpr FieldPlace<Form6Content> kHeaderFields[] = {
    {"Instrument ID:", HeaderField::kInstrumentId, 0.9, 1.975, 2.1},
    {"Calibration Date(s):", &Form6Content::FirstDate, 4.5, 1.975, 0.8},
    {"", &Form6Content::LastDate, 6.7, 1.975, 0.8},
    {"Heated Purge: (Y/N)", HeaderField::kHeatedPurge, 0.9, 2.25, 1.75},
    {"Calibration Time(s):", &Form6Content::FirstTime, 4.5, 2.25, 0.8},
    {"", &Form6Content::LastTime, 6.7, 2.25, 0.8},
    {"Purge Volume:", HeaderField::kPurgeVolume, 0.9, 2.525, 2.05, "(ml)", 3.95,
     UnitLevel::kTextHeightAbove},
    {"GC Column:", HeaderField::kGcColumn, 0.9, 2.8, 1.0},
    {"ID:", HeaderField::kColumnId, 2.85, 2.8, 0.725, "(mm)", 3.95},
    {"Length:", HeaderField::kColumnLength, 4.65, 2.8, 0.8, "(m)", 6.07},
};

void PrintForm6Header(Page& page, double rise, const Form6Content& content) {
    page.PageNo = page.Printer().PageNumber();
    page.PrintNumberLine(
        "6" + Page::FormLetter(page.PageNo) + " - FORM VI VOA-" + std::to_string(page.PageNo),
        "6A - FORM VI VOA-1", 0.7 - rise);
    page.TextOutCentred("VOLATILE ORGANICS INITIAL CALIBRATION DATA", 4.25, 0.85 - rise);
    page.PrintLabRows(content, 1.425 - rise);
    page.PrintFields(content, kHeaderFields, rise);
}

void PrintForm6Heads(Page& page, const Form6Layout& layout,
                     std::vector<Form6Content::Level> levels) {
    const double rise = layout.rise;
    const double right = layout.right;
    const double amountCentre = page.TextWidthInch("RF____RF") * 0.5;
    // The page has columns for more.
    levels.resize(layout.labFiles.size());
    page.DrawHeadBox(kLeft, 3.0 - rise, right, 3.46 - rise, kRulePen);
    page.TextOutInch("LAB FILE ID:", 1.0, 3.05 - rise);
    for (std::size_t k = 0; k < levels.size(); ++k) {
        const LabFilePlace& place = layout.labFiles[k];
        page.PrintLabelledField("RF____ = ", levels[k].LabFileId, place.x, place.y,
                                layout.labFileWidth);
        page.TextOutCentred(levels[k].Amount, place.x + amountCentre,
                            place.y - 0.01 - page.TextHeightInch());
    }

    page.DrawLineInch(right, 3.46 - rise, right, 3.71 - rise);
    page.Canvas().Pen.Width = kHeavyRulePen;
    page.DrawLineInch(kLeft, 3.71 - rise, right, 3.71 - rise);
    page.Canvas().Pen.Width = kRulePen;
    page.DrawLineInch(kLeft, 3.46 - rise, kLeft, 3.71 - rise);
    page.TextOutInch("COMPOUND", 1.0, 3.52 - rise);
    for (std::size_t k = 0; k < levels.size(); ++k) {
        const double x = 3.425 + kColumnPitch * static_cast<double>(k);
        page.TextOutInch("RF____", x, 3.52 - rise);
        page.TextOutCentred(levels[k].Amount, x + amountCentre, layout.columnAmountsY);
    }
    page.TextOutInch("RF", layout.meanHeadX, 3.52 - rise);
    page.DrawLineInch(layout.meanHeadX, 3.53 - rise, layout.meanBarEnd, 3.53 - rise);
    page.TextOutInch("%RSD", layout.rsdHeadX, 3.52 - rise);
}

void PrintCells(Page& page, const Form6Layout& layout, const CalibrationRecord& record, double y) {
    for (std::size_t k = 0; k < layout.labFiles.size(); ++k) {
        page.TextOutRight(record.RF[k], 3.9 + kColumnPitch * static_cast<double>(k), y + 0.025);
    }
    page.TextOutRight(record.MeanRF, layout.meanRight, y + 0.025);
    page.TextOutRight(record.RSD, layout.rsdRight, y + 0.025);
}

// Prints one page of rows from `row` on.
void PrintForm6Rows(Page& page, const Form6Layout& layout,
                    const std::vector<CalibrationRecord>& table, std::size_t& row) {
    const CompoundRows rows{
        .rowsTop = 3.71 - layout.rise,
        .rowsEnd = layout.rowsEnd,
        .rowsPerPage = layout.rowsPerPage,
        .left = kLeft,
        .right = layout.right,
        .nameX = 1.0,
        .nameDown = 0.0125,
        .nameWidth = 2.5,
        .columnsTop = 3.46 - layout.rise,
        .columnLines = layout.columnLines,
    };
    page.Canvas().Font.Size = 8;
    PrintCompoundRows(page, rows, table.size(), row, [&](std::size_t compound, double y) {
        PrintCells(page, layout, table[compound], y);
        return table[compound].Name;
    });
    page.Canvas().Font.Size = 10;
}

bool IsLandscape(const Form6Content& content) {
    return content.Levels.size() > std::size(kPortraitLabFiles);
}

// True for the last page.
bool PrintPage(Page& page, const Form6Content& content, std::size_t& row) {
    const bool landscape = IsLandscape(content);
    const Form6Layout& layout = landscape ? kLandscape : kPortrait;
    // On purpose: never rounded up, so that a full last page is counted one page too many.
    page.PageCount = static_cast<std::int32_t>(content.Compounds.size()) / layout.rowsPerPage + 1;
    PrintForm6Header(page, layout.rise, content);
    if (landscape) {
        page.PrintPageNumber(8.15);
        page.TextOutInch("modification of TQW04.2 (5/2005)", 8.0, 8.15);
    } else {
        page.PrintPageFooter();
    }
    PrintForm6Heads(page, layout, content.Levels);
    PrintForm6Rows(page, layout, content.Compounds, row);
    return row == content.Compounds.size();
}

}  // namespace

std::optional<Form6Content> PrepareForm6(FormHost& host) {
    const Batch& batch = host.Batch();
    const std::string name = Trim(batch.Files.Calib);
    if (name.empty()) {
        host.Show({"Please use Data Files|Load Files menu option and specify a calibration file.",
                   kCalibrationNotSpecifiedTitle});
        return std::nullopt;
    }
    const auto report = OpenCalibration<CalibrationReport>(
        host, name,
        "Please use Data Files|Load Files menu option and verify the calibration file.");
    if (!report) {
        return std::nullopt;
    }
    InitialCalibrationEntry& entry = host.Entries().InitialCalibration;
    host.LevelCount() =
        ReadCalibrationDataFiles(report, host.Reports(), host.Flags().InitCalEntered, entry, host);
    const auto record = CheckAndAsk(host, "Form 6", EntryDialog::kInitialCalibration);
    if (!record) {
        return std::nullopt;
    }
    auto content = BuildForm6Content((*batch.SampleList)[*record].Header, *report,
                                     host.LevelCount(), entry, host);
    if (!content) {
        return std::nullopt;
    }
    TellOfDamage(*report, name, host);
    return content;
}

void Form6CIDClick(FormHost& host) {
    if (const auto content = PrepareForm6(host)) {
        host.Page().PrintDocument("Form 6", *content, PrintPage, IsLandscape(*content));
    }
}

}  // namespace qfr
