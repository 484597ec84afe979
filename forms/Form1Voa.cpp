#include "forms/Form1Voa.h"

#include <array>
#include <cmath>
#include <optional>

#include "data/OpenedFile.h"
#include "data/QuantReport.h"
#include "forms/CompoundRows.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kTableTop = 3.9;
constexpr double kRowsTop = 4.25;
constexpr double kLeft = 0.9;
constexpr double kRight = 7.8;
constexpr double kColumnLines[] = {0.9, 2.2, 5.0, 7.2, 7.8};
constexpr CompoundRows kRows{
    .rowsTop = kRowsTop,
    .rowsEnd = 9.9,
    .rowsPerPage = 25,
    .left = kLeft,
    .right = kRight,
    .nameX = 2.3,
    .nameDown = 0.025,
    .nameWidth = 2.6,
    .columnsTop = kTableTop,
    .columnLines = kColumnLines,
};

constexpr FieldPlace kHeaderFields[] = {
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
    {"ID:", HeaderField::kColumnId, 2.85, 3.15, 0.725},
    {"Dilution Factor:", HeaderField::kDilutionFactor, 4.8, 3.15, 1.675},
    {"Soil Extract Volume:", HeaderField::kSoilExtractVolume, 0.9, 3.425, 1.7},
    {"Soil Aliquot Volume:", HeaderField::kSoilAliquotVolume, 4.8, 3.425, 1.0},
    {"Purge Volume:", HeaderField::kPurgeVolume, 0.9, 3.7, 2.05},
};

struct UnitPlace {
    std::string_view unit;
    double x;
    double level;  // of the underline that the unit stands beside
};
constexpr UnitPlace kHeaderUnits[] = {
    {"(mm)", 3.95, 3.15}, {"(uL)", 3.95, 3.425}, {"(uL)", 7.2, 3.425}, {"(mL)", 3.95, 3.7}};

void PrintTableHead(Page& page, const SampleHeader& header) {
    page.DrawHeadBox(kLeft, kTableTop, kRight, kRowsTop, kHeavyRulePen);

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

// Prints one page of rows, starting at `row`; true when the last compound was printed.
bool PrintPageBody(Page& page, const Batch& batch, std::size_t record, LineReader& report,
                   std::size_t& row) {
    const auto rows = static_cast<std::size_t>((*batch.SampleList)[record].CompoundCount);
    const auto printCells = [&](std::size_t compound, double y) {
        const bool inBlank =
            record != 0 && compound < batch.BlankHitFlags.size() && batch.BlankHitFlags[compound];
        const VoaRow cells = ReadVoaRow(report, inBlank);
        PrintCells(page, cells, y);
        return cells.Compound;
    };
    const double y = PrintCompoundRows(page, kRows, rows, row, printCells);
    page.TextOutInch(
        "Qualifier X = raw area counts less than raw area counts of minimum calibration standard.",
        0.9, y + 0.25);
    page.TextOutInch(
        "Qualifier E = raw area counts greater than raw area counts of maximum calibration "
        "standard.",
        0.9, y + 0.456);
    return row >= rows;
}

}  // namespace

void PrintFormIVoa(FormHost& host, std::size_t record) {
    const Batch& batch = host.Batch();
    const SampleRecord& sample = (*batch.SampleList)[record];
    std::optional<LineReader> report = OpenCompoundTable(sample.FileName, batch.Folder);
    if (!report) {
        host.Show(ReportNotFound(sample.FileName));
        return;
    }
    Page& page = host.Page();
    TPrinter& printer = page.Printer();
    printer.Title = "Form 1 " + sample.Header[HeaderField::kZovSampleNo];
    printer.BeginDoc();
    std::size_t row = 0;
    for (bool done = false; !done;) {
        page.PrintSampleNoBox(sample.Header[HeaderField::kZovSampleNo]);
        PrintFormIVoaHeader(page, sample.Header);
        PrintTableHead(page, sample.Header);
        done = PrintPageBody(page, batch, record, *report, row);
        if (!done) {
            printer.NewPage();
        }
    }
    printer.EndDoc();
}

void PrintFormIVoaHeader(Page& page, const SampleHeader& header) {
    const int number = page.Printer().PageNumber();
    page.TextOutInch("1" + Page::FormLetter(number) + " - FORM I VOA-" + std::to_string(number),
                     3.6, 0.7);
    page.TextOutInch(kDataSheetTitle, 2.8, 0.85);
    page.PrintLabRows(header, 1.425);
    page.PrintFields(header, kHeaderFields);
    for (const UnitPlace& place : kHeaderUnits) {
        page.TextOutInch(place.unit, place.x, place.level + page.FontHeightInch());
    }
    page.PrintStatementOfWork();
}

VoaRow ReadVoaRow(LineReader& report, bool inBlank) {
    const auto take = [](std::string_view& rest) {
        return std::string(FirstCharacters(TakeField(rest), kMaxCellLength));
    };
    const std::string line = report.NextOrEmpty();
    std::string_view rest = line;
    VoaRow row;
    TakeField(rest);
    row.Compound = take(rest);
    row.Concentration = take(rest);
    TakeField(rest);
    TakeField(rest);
    if (row.Concentration.starts_with('U')) {
        row.Concentration.erase(0, 1);
        row.Qualifier = "U";
    }
    row.Concentration = ToSignificantFigures(row.Concentration, 2);
    if (row.Concentration.starts_with('U')) {
        row.Concentration.clear();
    }
    if (row.Qualifier != "U") {
        row.Qualifier = take(rest);
        if (inBlank) {
            row.Qualifier += 'B';
        }
    }
    std::string_view casNumber = std::string_view(line).substr(line.rfind(';') + 1);
    row.CasNumber = FirstCharacters(Trim(casNumber), kMaxCellLength);
    return row;
}

std::string ToSignificantFigures(std::string_view text, int n) {
    const std::optional<double> number = ParseNumber(text);
    if (!number) {
        return std::string(text);
    }
    if (*number == 0) {
        return "0.00";
    }
    double value = *number;
    int exponent = 0;
    for (double digits = std::trunc(std::log10(value)); digits != n - 1;
         digits = std::trunc(std::log10(value))) {
        if (digits > 1) {
            value *= 0.1;
            ++exponent;
        } else {
            // On purpose: one decimal at the most, so that small values lose their second figure.
            value *= 10;
            --exponent;
            if (exponent == -1) {
                break;
            }
        }
    }
    double whole = 0;
    if (std::modf(value, &whole) >= 0.5) {
        whole += 1;
    }
    std::string result = FormatGeneral(whole * std::pow(10.0, exponent));
    if (result.size() == static_cast<std::size_t>(n) - 1) {
        result += ".0";
    }
    return result;
}

}  // namespace qfr
