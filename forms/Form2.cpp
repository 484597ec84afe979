#include <algorithm>
#include <string>
#include <vector>

#include "forms/Form2Content.h"
#include "forms/FormHost.h"
#include "forms/TableRows.h"

namespace qfr {

namespace {

constexpr std::size_t kColumnsPerPage = 7;
constexpr double kTableTop = 2.2;
constexpr double kRowsTop = 2.2375;  // and two lines of heads
constexpr double kColumnWidth = 0.8;
constexpr double kColumnLines[] = {0.9, 2.0, 2.8, 3.6, 4.4, 5.2, 6.0, 6.8, 7.6};
constexpr SampleRows kRows{.rowsPerPage = 30,
                           .left = 0.9,
                           .right = 7.6,
                           .numberX = 0.65,
                           .numberDown = 0.025,
                           .gap = 0.05};

std::size_t FirstCompound(const Page& page) {
    return (page.FormLetterIndex - std::size_t{1}) * kColumnsPerPage;
}

double ColumnX(double x, std::size_t column) {
    return x + kColumnWidth * static_cast<double>(column);
}

constexpr FieldPlace<Form2Content> kHeaderFields[] = {
    {"Level: (TRACE/MED/LOW)", HeaderField::kLevel, 0.9, 1.975, 1.25},
};

void PrintHeader(Page& page, const Form2Content& content) {
    page.TextOutInch("2" + Page::FormLetter(page.FormLetterIndex) + " - FORM II VOA-" +
                         std::to_string(page.PageNo),
                     3.6, 0.7);
    page.TextOutCentred("VOLATILE MONITORING COMPOUND RECOVERY", 4.25, 0.85);
    page.PrintLabRows(content, 1.425);
    page.PrintFields(content, kHeaderFields);
    page.PrintPageFooter();
}

void PrintHeads(Page& page) {
    const double h = page.TextHeightInch();
    page.DrawHeadBox(kRows.left, kTableTop, kRows.right, kRowsTop + 2 * h, kHeavyRulePen);
    page.TextOutCentred("ZOV", 1.45, 2.2125);
    page.TextOutCentred("SAMPLE NO.", 1.45, 2.225 + h);
    // On purpose: all seven heads, also where the batch has fewer compounds.
    for (std::size_t k = 0; k < kColumnsPerPage; ++k) {
        const double y = 2.2192 + h / 2;
        page.TextOutInch(CompoundNumber(FirstCompound(page) + k), ColumnX(2.05, k), y);
        page.TextOutInch("#", ColumnX(2.65, k), y);
    }
}

void PrintSample(Page& page, const Form2Content::Sample& sample, double y) {
    page.Canvas().Font.Size = 8;
    page.TextOutInch(sample.SampleNo, 1.0, y);
    const std::size_t first = FirstCompound(page);
    const std::size_t count = sample.Recoveries.size();
    for (std::size_t k = 0; k < kColumnsPerPage && first + k < count; ++k) {
        const Form2Content::Recovery& recovery = sample.Recoveries[first + k];
        page.TextOutRight(recovery.Percent, ColumnX(2.45, k), y);
        page.TextOutInch(recovery.Flag, ColumnX(2.65, k), y);
    }
    page.Canvas().Font.Size = 10;
}

// Returns the bottom of the table.
double PrintRows(Page& page, const std::vector<Form2Content::Sample>& samples) {
    std::size_t row = (static_cast<std::size_t>(page.PageNo) - 1) * kRows.rowsPerPage;
    const double bottom =
        PrintSampleRows(page, kRows, samples.size(), row, kRowsTop + 2 * page.TextHeightInch(),
                        [&](std::size_t i, double y) { PrintSample(page, samples[i], y + 0.04); });
    page.DrawColumnLines(kColumnLines, bottom, kTableTop);
    return bottom;
}

void PrintLegend(Page& page, const std::vector<Form2Content::Compound>& compounds, double y) {
    page.Canvas().Font.Size = 8;
    const double h = page.TextHeightInch() + 0.005;
    const std::string_view limits = "QC LIMITS";
    page.PrintLabelledField("", limits, 5.9, y, page.TextWidthInch(limits));
    y += 0.012;
    const std::size_t first = FirstCompound(page);
    const std::size_t last = std::min(first + kColumnsPerPage, compounds.size());
    for (std::size_t i = first; i < last; ++i) {
        page.TextOutInch(compounds[i].Number + " = " + compounds[i].Name, 1.0, y);
        page.TextOutInch(compounds[i].Limits, 6.1, y);
        y += h;
    }
    y += h;
    page.TextOutInch("#  Column to be used to flag recovery values", 1.0, y);
    y += h;
    page.TextOutInch("*  Values outside of contract required QC limits", 1.0, y);
    page.Canvas().Font.Size = 10;
}

// Prints page `index`, from 0, of the job; true for the last one.
bool PrintPage(Page& page, const Form2Content& content, std::size_t& index) {
    const std::size_t compounds = std::max<std::size_t>(content.Compounds.size(), 1);
    const std::size_t letters = (compounds - 1) / kColumnsPerPage + 1;
    const std::size_t pages = (content.SampleCount - 1) / kRows.rowsPerPage + 1;
    // On purpose: the job opens with an empty page, and the pages of each letter are followed by
    // one.
    const std::size_t pagesOfLetter = pages + 1;
    if (const std::size_t number = index % pagesOfLetter; number != 0) {
        page.FormLetterIndex = static_cast<std::uint8_t>(index / pagesOfLetter + 1);
        page.PageNo = static_cast<std::int32_t>(number);
        // On purpose: 30 samples fill one page that says "of 2".
        page.PageCount = static_cast<std::int32_t>(content.SampleCount / kRows.rowsPerPage + 1);
        PrintHeader(page, content);
        PrintHeads(page);
        PrintLegend(page, content.Compounds, PrintRows(page, content.Samples) + 0.25);
    }
    return index++ == letters * pagesOfLetter;
}

}  // namespace

std::optional<Form2Content> PrepareForm2(FormHost& host) {
    const auto record = CheckAndAsk(host, "Form 2", EntryDialog::kRecoveryRanges);
    if (!record) {
        return std::nullopt;
    }
    return BuildForm2Content(host.Batch(), *record, host.Entries().Ranges, host.Reports(), host);
}

void Form2MCRClick(FormHost& host) {
    if (const auto content = PrepareForm2(host)) {
        host.Page().PrintDocument("Form 2", *content, PrintPage);
    }
}

}  // namespace qfr
