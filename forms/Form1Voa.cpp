#include "forms/Form1Voa.h"

#include "forms/Form1VoaContent.h"
#include "forms/FormHost.h"
#include "forms/TableRows.h"

namespace qfr {

namespace {

constexpr double kColumnLines[] = {0.9, 2.2, 5.0, 7.2, 7.8};
constexpr CompoundRows kRows{
    .rowsTop = 4.25,
    .rowsEnd = 9.9,
    .rowsPerPage = 25,
    .left = 0.9,
    .right = 7.8,
    .nameX = 2.3,
    .nameDown = 0.025,
    .nameWidth = 2.6,
    .columnsTop = 3.9,
    .columnLines = kColumnLines,
};

constexpr FieldPlace<FormContent> kHeaderFields[] = {
    {"Matrix: (SOIL/SED/WATER)", HeaderField::kMatrix, 0.9, 2.025, 1.225},
    {"Lab Sample ID:", HeaderField::kLabSampleId, 4.8, 2.025, 1.7},
    {"Sample wt/vol:", HeaderField::kSampleWtVol, 0.9, 2.3, 0.725},
    {"(g/mL)", HeaderField::kWtVolUnits, 2.75, 2.3, 0.65},
    {"Lab File ID:", HeaderField::kLabFileId, 4.8, 2.3, 1.9},
    {"Level: (TRACE/LOW/MED)", HeaderField::kLevel, 0.9, 2.575, 1.25},
    {"Date Received:", HeaderField::kDateReceived, 4.8, 2.575, 1.75},
    {"% Moisture: not dec.", HeaderField::kPercentMoisture, 0.9, 2.85, 1.725},
    {"Date Analyzed:", HeaderField::kDateAnalyzed, 4.8, 2.85, 1.7},
    {"GC Column:", HeaderField::kGcColumn, 0.9, 3.15, 1.0},
    {"ID:", HeaderField::kColumnId, 2.85, 3.15, 0.725, "(mm)", 3.95},
    {"Dilution Factor:", HeaderField::kDilutionFactor, 4.8, 3.15, 1.675},
    {"Soil Extract Volume:", HeaderField::kSoilExtractVolume, 0.9, 3.425, 1.7, "(uL)", 3.95},
    {"Soil Aliquot Volume:", HeaderField::kSoilAliquotVolume, 4.8, 3.425, 1.0, "(uL)", 7.2},
    kPurgeVolume,
};

void PrintTableHead(Page& page, const SampleHeader& header) {
    page.DrawHeadBox(kRows.left, kRows.columnsTop, kRows.right, kRows.rowsTop, kHeavyRulePen);
    const double middle = 4.075;
    const double h = page.FontHeightInch();
    page.TextOutInch("CAS NO.", 1.0, middle + h * 0.5);
    page.TextOutInch("COMPOUND", 2.3, middle + h * 0.5);
    // On purpose: measured with the horizontal scale and the full font height, a line above the
    // rest.
    page.TextOutInch("CONCENTRATION", 5.1,
                     middle + static_cast<double>(page.Canvas().Font.Height()) / page.HorzScale);
    page.PrintLabelledField("Units: (ug/L or ug/kg)", header[HeaderField::kConcUnits], 5.1,
                            middle - h, 0.6);
    page.TextOutCentred("Q", 7.5, middle + h * 0.5);
}

void PrintCells(Page& page, const VoaRow& row, double y) {
    page.TextOutInch(row.CasNumber, 1.0, y + 0.025);
    // On purpose: right-aligned with the vertical scale.
    page.TextOutInch(
        row.Concentration,
        6.3 - static_cast<double>(page.Canvas().TextWidth(row.Concentration)) / page.VertScale,
        y + 0.025);
    page.TextOutInch(row.Qualifier, 7.3, y + 0.025);
}

// True for the last page.
bool PrintPage(Page& page, const Form1VoaContent& content, std::size_t& row) {
    const std::vector<VoaRow>& rows = content.Rows;
    page.PrintSampleNoBox(content.SampleNo);
    PrintFormIVoaHeader(page, content);
    PrintTableHead(page, content.Header);
    const double y =
        PrintCompoundRows(page, kRows, rows.size(), row, [&](std::size_t compound, double top) {
            PrintCells(page, rows[compound], top);
            return rows[compound].Compound;
        });
    page.TextOutInch(
        "Qualifier X = raw area counts less than raw area counts of minimum calibration standard.",
        0.9, y + 0.25);
    page.TextOutInch(
        "Qualifier E = raw area counts greater than raw area counts of maximum calibration "
        "standard.",
        0.9, y + 0.456);
    return row >= rows.size();
}

}  // namespace

std::optional<Form1VoaContent> PrepareForm1Voa(FormHost& host, std::size_t record) {
    return BuildForm1VoaContent(host.Batch(), record, host.Reports(), host);
}

void PrintFormIVoa(FormHost& host, std::size_t record) {
    if (const auto content = PrepareForm1Voa(host, record)) {
        host.Page().PrintDocument("Form 1 " + content->SampleNo, *content, PrintPage);
    }
}

void PrintFormIVoaHeader(Page& page, const FormContent& content) {
    const int number = page.Printer().PageNumber();
    page.TextOutInch("1" + Page::FormLetter(number) + " - FORM I VOA-" + std::to_string(number),
                     3.6, 0.7);
    page.TextOutInch(kDataSheetTitle, 2.8, 0.85);
    page.PrintLabRows(content, 1.425);
    page.PrintFields(content, kHeaderFields);
    page.PrintStatementOfWork();
}

}  // namespace qfr
