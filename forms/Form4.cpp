#include <optional>
#include <string>
#include <vector>

#include "forms/Form4Content.h"
#include "forms/FormDrivers.h"
#include "forms/SampleChecks.h"
#include "forms/SampleRows.h"

namespace qfr {

namespace {

constexpr std::size_t kRowsPerPage = 30;
constexpr double kLeft = 1.75;
constexpr double kRight = 6.75;
constexpr double kTableTop = 3.35;
constexpr double kColumnLines[] = {1.75, 3.0, 4.25, 5.5, 6.75};
constexpr SampleRows kRows{
    .left = kLeft, .right = kRight, .numberX = 1.45, .numberDown = 0.0125, .gap = 0.025};

// Below the laboratory rows.
constexpr FieldPlace<Form4Content> kHeaderFields[] = {
    {"Lab File ID:", HeaderField::kLabFileId, 0.9, 1.975, 2.2},
    {"Lab Sample ID:", HeaderField::kLabSampleId, 4.8, 1.975, 1.7},
    {"Instrument ID:", HeaderField::kInstrumentId, 0.9, 2.25, 2.05},
    {"Matrix: (SOIL/SED/WATER)", HeaderField::kMatrix, 0.9, 2.525, 1.15},
    {"Level: (TRACE/LOW/MED)", HeaderField::kLevel, 0.9, 2.8, 1.2},
    {"GC Column:", HeaderField::kGcColumn, 0.9, 3.075, 1.0},
    {"ID:", HeaderField::kColumnId, 2.85, 3.075, 0.725, "(mm)", 3.95},
    {"Heated Purge: (Y/N)", HeaderField::kHeatedPurge, 4.8, 3.075, 1.45},
    {"Date Analyzed:", &Form4Content::DateAnalyzed, 4.8, 2.525, 1.75},
    {"Time Analyzed:", &Form4Content::TimeAnalyzed, 4.8, 2.8, 1.7},
};

constexpr ColumnHead kHeads[] = {{2.375, "ZOV", "SAMPLE NO."},
                                 {3.625, "LAB", "SAMPLE ID."},
                                 {4.875, "LAB", "FILE ID."},
                                 {6.125, "TIME", "ANALYZED"}};

void PrintHeader(Page& page, const Form4Content& content) {
    const int number = page.Printer().PageNumber();
    page.TextOutInch("4" + Page::FormLetter(number) + " - FORM IV VOA-" + std::to_string(number),
                     3.6, 0.7);
    page.TextOutCentred("VOLATILE METHOD BLANK SUMMARY", 4.25, 0.85);
    page.PrintLabRows(content, 1.425);
    page.PrintFields(content, kHeaderFields);
    page.PageNo = number;
    page.PrintPageFooter();
}

void PrintHeads(Page& page) {
    page.DrawHeadBox(kLeft, kTableTop, kRight, 3.3875 + 2 * page.TextHeightInch(), kRulePen);
    page.PrintColumnHeads(kHeads, 3.3625);
}

void PrintSample(Page& page, const Form4Content::Sample& sample, double y) {
    page.Canvas().Font.Size = 8;
    page.TextOutInch(sample.SampleNo, 1.85, y);
    page.TextOutInch(sample.LabSampleId, 3.1, y);
    page.TextOutInch(sample.LabFileId, 4.35, y);
    page.TextOutInch(sample.Analyzed, 5.6, y);
    page.TextOutInch(sample.Flag, 6.55, y);
    page.Canvas().Font.Size = 10;
}

void PrintComments(Page& page, const std::vector<std::string>& lines, double y) {
    page.TextOutInch("COMMENTS:", 0.9, y + 0.1);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        page.TextOutInch(lines[i], 2.1, y + 0.1 + 0.2 * static_cast<double>(i));
    }
    page.DrawLineInch(2.0, y + 0.25, 7.5, y + 0.25);
    page.DrawLineInch(2.0, y + 0.45, 7.5, y + 0.45);
    page.TextOutInch("*   Sample time is outside acceptance criteria", 0.9, y + 0.5);
}

// Prints the page's rows from `row` on, the first of all being 1, and returns the bottom of the
// table.
double PrintRows(Page& page, const std::vector<Form4Content::Sample>& samples, std::size_t& row) {
    const double h = page.TextHeightInch();
    const std::size_t last = static_cast<std::size_t>(page.PageNo) * kRowsPerPage;
    // On purpose: the rows start above the bottom of the head box.
    double y = 3.375 + 2 * h;
    for (; row <= last; ++row) {
        if (row <= samples.size()) {
            PrintRowNumber(page, kRows, row, y);
            PrintSample(page, samples[row - 1], y + 0.04);
        } else {
            // On purpose: empty rows are numbered one too high.
            PrintRowNumber(page, kRows, row + 1, y);
        }
        EndRow(page, kRows, h, y);
    }
    for (const double x : kColumnLines) {
        page.DrawLineInch(x, y, x, kTableTop);
    }
    return y;
}

// True for the last page.
bool PrintPage(Page& page, const Form4Content& content, std::size_t& row) {
    const auto samples = static_cast<std::int32_t>(content.Samples.size());
    page.PageCount = (samples - 1) / static_cast<std::int32_t>(kRowsPerPage) + 1;
    page.PrintSampleNoBox(content.SampleNo);
    PrintHeader(page, content);
    PrintHeads(page);
    PrintComments(page, content.Comments, PrintRows(page, content.Samples, row));
    return row > content.Samples.size();
}

// When the blank was analyzed; absent after the message that nobody said so.
std::optional<DateTime> BlankTime(FormHost& host) {
    const auto& samples = host.Batch().SampleList;
    const auto time = ParseDateTime((*samples)[0].Header[HeaderField::kDateAnalyzed]);
    if (!time) {
        host.Show(
            {"Please use the Forms|Form 1 menu option to specify\nan analysis date for the "
             "lab blank.",
             "Analysis Date Not Specified"});
    }
    return time;
}

}  // namespace

void Form4MBSClick(FormHost& host) {
    if (!LabBlankSpecified(host)) {
        return;
    }
    const auto& samples = host.Batch().SampleList;
    // Files that were named but not loaded yet are for the preconditions to report.
    const std::optional<DateTime> blankTime = samples ? BlankTime(host) : std::nullopt;
    if (samples && !blankTime) {
        return;
    }
    if (!CheckAndAsk(host, "Form 4", EntryDialog::kBlankComments) ||
        !AnalysisDatesReadable(host, 1)) {
        return;
    }
    const Form4Content content = BuildForm4Content(*samples, *blankTime, host.Entries().Comments);
    std::size_t row = 1;
    host.Page().PrintDocument("Form 4 " + content.SampleNo,
                              [&](Page& page) { return PrintPage(page, content, row); });
}

}  // namespace qfr
