#include "forms/Form2.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "data/MonitoringRecoveries.h"
#include "data/RecoveryRanges.h"
#include "forms/SampleRows.h"
#include "platform/Numbers.h"

namespace qfr {

namespace {

constexpr std::size_t kRowsPerPage = 30;
constexpr std::size_t kColumnsPerPage = 7;
constexpr double kLeft = 0.9;
constexpr double kRight = 7.6;
constexpr double kTableTop = 2.2;
constexpr double kRowsTop = 2.2375;  // and two lines of heads
constexpr double kFirstColumn = 2.0;
constexpr double kColumnWidth = 0.8;
constexpr SampleRows kRows{
    .left = kLeft, .right = kRight, .numberX = 0.65, .numberDown = 0.025, .gap = 0.05};

// What one print job shows.
struct RecoveryTable {
    std::size_t sampleCount = 0;
    std::vector<MonitoringRecoveries> records;  // of the samples whose report was there
    std::vector<RecoveryRange> ranges;

    // All records are taken to list the compounds of the first.
    std::size_t CompoundCount() const {
        return records.empty() ? 0 : records.front().Recoveries.size();
    }
    std::string Name(std::size_t compound) const {
        const auto& names = records.front().Names;
        return compound < names.size() ? names[compound] : std::string();
    }
};

std::size_t FirstCompound(const Page& page) {
    return (page.FormLetterIndex - std::size_t{1}) * kColumnsPerPage;
}

double ColumnX(double x, std::size_t column) {
    return x + kColumnWidth * static_cast<double>(column);
}

std::string CompoundNumber(std::size_t compound) {
    return "VMC" + std::to_string(compound + 1);
}

void PrintHeader(Page& page, const SampleHeader& header) {
    page.TextOutInch("2" + Page::FormLetter(page.FormLetterIndex) + " - FORM II VOA-" +
                         std::to_string(page.PageNo),
                     3.6, 0.7);
    page.TextOutCentred("VOLATILE MONITORING COMPOUND RECOVERY", 4.25, 0.85);
    page.PrintLabRows(header, 1.425);
    page.PrintLabelledField("Level: (TRACE/MED/LOW)", header[HeaderField::kLevel], 0.9, 1.975,
                            1.25);
    page.PrintPageFooter();
}

void PrintHeads(Page& page) {
    const double h = page.TextHeightInch();
    page.DrawHeadBox(kLeft, kTableTop, kRight, kRowsTop + 2 * h, kHeavyRulePen);
    page.TextOutCentred("ZOV", 1.45, 2.2125);
    page.TextOutCentred("SAMPLE NO.", 1.45, 2.225 + h);
    // On purpose: all seven heads, also where the batch has fewer compounds.
    for (std::size_t k = 0; k < kColumnsPerPage; ++k) {
        const double y = 2.2192 + h / 2;
        page.TextOutInch(CompoundNumber(FirstCompound(page) + k), ColumnX(2.05, k), y);
        page.TextOutInch("#", ColumnX(2.65, k), y);
    }
}

void PrintSample(Page& page, const RecoveryTable& table, const MonitoringRecoveries& record,
                 double y) {
    page.Canvas().Font.Size = 8;
    page.TextOutInch(record.SampleNo, 1.0, y);
    const std::size_t first = FirstCompound(page);
    const std::size_t count = record.Recoveries.size();
    for (std::size_t k = 0; k < kColumnsPerPage && first + k < count; ++k) {
        const std::string& recovery = record.Recoveries[first + k];
        page.TextOutRight(recovery, ColumnX(2.45, k), y);
        page.TextOutInch(RecoveryFlag(table.Name(first + k), recovery, table.ranges),
                         ColumnX(2.65, k), y);
    }
    page.Canvas().Font.Size = 10;
}

// Prints the page's rows from `row` on and returns the bottom of the table.
double PrintRows(Page& page, const RecoveryTable& table, std::size_t& row) {
    const double h = page.TextHeightInch();
    const std::size_t end = static_cast<std::size_t>(page.PageNo) * kRowsPerPage;
    double y = kRowsTop + 2 * h;
    for (; row < end; ++row) {
        PrintRowNumber(page, kRows, row + 1, y);
        if (row < table.records.size()) {
            PrintSample(page, table, table.records[row], y + 0.04);
        }
        EndRow(page, kRows, h, y);
    }
    page.DrawLineInch(kLeft, y, kLeft, kTableTop);
    for (std::size_t k = 0; k <= kColumnsPerPage; ++k) {
        page.DrawLineInch(ColumnX(kFirstColumn, k), y, ColumnX(kFirstColumn, k), kTableTop);
    }
    return y;
}

std::string LimitsText(const RecoveryRange* range) {
    return range == nullptr
               ? std::string()
               : "(" + FormatShortest(range->Low) + "-" + FormatShortest(range->High) + ")";
}

void PrintLegend(Page& page, const RecoveryTable& table, double y) {
    page.Canvas().Font.Size = 8;
    const double h = page.TextHeightInch() + 0.005;
    const std::string_view limits = "QC LIMITS";
    page.PrintLabelledField("", limits, 5.9, y, page.TextWidthInch(limits));
    y += 0.012;
    const std::size_t first = FirstCompound(page);
    const std::size_t last = std::min(first + kColumnsPerPage, table.CompoundCount());
    for (std::size_t compound = first; compound < last; ++compound) {
        const std::string name = table.Name(compound);
        page.TextOutInch(CompoundNumber(compound) + " = " + name, 1.0, y);
        page.TextOutInch(LimitsText(FindRange(table.ranges, name)), 6.1, y);
        y += h;
    }
    y += h;
    page.TextOutInch("#  Column to be used to flag recovery values", 1.0, y);
    y += h;
    page.TextOutInch("*  Values outside of contract required QC limits", 1.0, y);
    page.Canvas().Font.Size = 10;
}

// All pages of the compounds whose columns stand side by side.
void PrintColumnPage(Page& page, const RecoveryTable& table, const SampleHeader& header) {
    page.PageNo = 1;
    // On purpose: 30 samples fill one page that says "of 2".
    page.PageCount = static_cast<std::int32_t>(table.sampleCount / kRowsPerPage + 1);
    for (std::size_t row = 0; row < table.sampleCount;) {
        PrintHeader(page, header);
        PrintHeads(page);
        const double bottom = PrintRows(page, table, row);
        PrintLegend(page, table, bottom + 0.25);
        // On purpose: the last page, too, is followed by a page break.
        page.Printer().NewPage();
        ++page.PageNo;
    }
}

}  // namespace

void Form2MCRClick(FormHost& host) {
    const std::optional<std::size_t> headerRecord = CheckFormPreconditions(host, "Form 2");
    if (!headerRecord || !host.ShowEntryDialog(EntryDialog::kRecoveryRanges, *headerRecord)) {
        return;
    }
    const Batch& batch = host.Batch();
    const RangesEntry& entry = host.Entries().Ranges;
    auto ranges = LoadRecoveryRanges(entry.FileName, batch.Folder, entry.Limits, host);
    if (!ranges) {
        return;
    }
    const RecoveryTable table{batch.SampleList->size(), LoadMonitoringRecoveries(batch, host),
                              *std::move(ranges)};
    const SampleHeader& header = (*batch.SampleList)[*headerRecord].Header;
    Page& page = host.Page();
    TPrinter& printer = page.Printer();
    page.testPrinter();
    printer.Title = "Form 2";
    printer.BeginDoc();
    // On purpose: the job opens with an empty page.
    printer.NewPage();
    const std::size_t compounds = std::max<std::size_t>(table.CompoundCount(), 1);
    const std::size_t columnPages = (compounds - 1) / kColumnsPerPage + 1;
    for (std::size_t columnPage = 1; columnPage <= columnPages; ++columnPage) {
        page.FormLetterIndex = static_cast<std::uint8_t>(columnPage);
        PrintColumnPage(page, table, header);
        if (columnPage < columnPages) {
            printer.NewPage();
        }
    }
    printer.EndDoc();
}

}  // namespace qfr
