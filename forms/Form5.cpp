#include <optional>
#include <string_view>

#include "data/EntryChecks.h"
#include "data/TuneRules.h"
#include "forms/Form5Content.h"
#include "forms/FormHost.h"
#include "forms/TableRows.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kIonsTop = 2.8;
constexpr double kIonsLeft = 0.9;
constexpr double kIonsRight = 7.6;
constexpr double kIonColumnLines[] = {0.9, 1.5, 5.25, 7.6};
constexpr double kSampleColumnLines[] = {1.25, 2.5, 3.75, 5.0, 6.25, 7.25};
constexpr SampleRows kRows{.rowsPerPage = 22,
                           .left = 1.25,
                           .right = 7.25,
                           .numberX = 1.05,
                           .numberDown = 0.0125,
                           .gap = 0.025};

// Below the laboratory rows.
constexpr FieldPlace<Form5Content> kHeaderFields[] = {
    {"Lab File ID:", &Form5Content::LabFileId, 0.9, 2.075, 2.2},
    {"BFB Injection Date:", &Form5Content::InjectionDate, 4.8, 2.075, 1.5},
    {"Instrument ID:", HeaderField::kInstrumentId, 0.9, 2.35, 2.05},
    {"BFB Injection Time:", &Form5Content::InjectionTime, 4.8, 2.35, 1.5},
    {"GC Column:", HeaderField::kGcColumn, 0.9, 2.625, 1.0},
    {"ID:", HeaderField::kColumnId, 2.85, 2.625, 0.725, "(mm)", 3.95},
};

constexpr ColumnHead kSampleHeads[] = {{1.875, "ZOV", "SAMPLE NO."},
                                       {3.125, "LAB", "SAMPLE ID."},
                                       {4.375, "LAB", "FILE ID."},
                                       {5.625, "DATE", "ANALYZED"},
                                       {6.75, "TIME", "ANALYZED"}};

// Of the ions' values in parentheses, in the order of kTuneIons; a blank: a plain value.
constexpr std::string_view kFootnotes = "    1 112";

double HeadHeight(Page& page) {
    return 2 * page.TextHeightInch() + 0.0375;
}

void PrintForm5Header(Page& page, const Form5Content& content) {
    const int number = page.Printer().PageNumber();
    page.TextOutInch("5" + Page::FormLetter(number) + " - FORM V VOA-" + std::to_string(number),
                     3.6, 0.7);
    page.TextOutCentred("VOLATILE ORGANIC INSTRUMENT", 4.25, 0.85);
    page.TextOutCentred("PERFORMANCE CHECK", 4.25, 1.0);
    page.TextOutCentred("BROMOFLUOROBENZENE (BFB)", 4.25, 1.15);
    page.PrintLabRows(content, 1.525);
    page.PrintFields(content, kHeaderFields);
    page.TextOutInch("*   Value is outside acceptance criteria", 1.0, 9.6);
    page.PageNo = number;
    page.PrintPageFooter();
}

void PrintIonHeads(Page& page) {
    const double h = page.TextHeightInch();
    page.DrawHeadBox(kIonsLeft, kIonsTop, kIonsRight, kIonsTop + HeadHeight(page), kHeavyRulePen);
    const double y = 2.8125;
    page.TextOutCentred("m/e", 1.2, y + h);
    page.TextOutInch("ION ABUNDANCE CRITERIA", 1.6, y + h);
    // On purpose: centred by the width of a text with a blank that is not printed.
    page.TextOutInch("%RELATIVE", 6.475 - page.TextWidthInch("% RELATIVE") * 0.5, y);
    page.TextOutCentred("ABUNDANCE", 6.475, y + h);
}

void PrintIonValue(Page& page, char footnote, const Form5Content::Abundance& abundance, double y) {
    const double right = 7.4;
    const std::string value = abundance.Percent + (abundance.Flag.empty() ? "    " : "  *");
    const std::string tail = "   )";
    if (footnote == ' ') {
        // Its digits stand above those of the values in parentheses.
        page.TextOutInch(value, right - page.TextWidthInch(value + tail + "1"), y);
    } else {
        page.TextOutRight("(       " + value + tail + footnote, right, y);
    }
}

// Returns the bottom of the table.
double PrintIonAbundanceTable(Page& page, const Form5Content::AbundanceList& values) {
    PrintIonHeads(page);
    const double h = page.TextHeightInch();
    const double gap = 0.0125;
    double y = 2.85 + 2 * h;
    for (std::size_t i = 0; i < values.size(); ++i) {
        y += i == 0 ? 0 : gap;
        // The masses end below each other.
        page.TextOutInch(kTuneIons[i].Mass, kTuneIons[i].Mass.size() < 3 ? 1.25 : 1.15, y);
        page.TextOutInch(kTuneIons[i].FormCriterion(), 1.6, y);
        PrintIonValue(page, kFootnotes[i], values[i], y);
        y += h + gap;
        page.DrawLineInch(kIonsLeft, y, kIonsRight, y);
    }
    page.DrawColumnLines(kIonColumnLines, y, kIonsTop);
    page.TextOutInch("1 - Value is %mass 174", 0.9, y + 0.075);
    page.TextOutInch("2 - Value is %mass 176", 3.6, y + 0.075);
    return y;
}

// Returns the level where the rows start.
double PrintSampleHeads(Page& page, double top) {
    const double bottom = top + HeadHeight(page);
    page.DrawLineInch(kRows.left, top, kRows.right, top);
    page.LineToInch(kRows.right, bottom);
    page.Canvas().Pen.Width = kHeavyRulePen;
    page.LineToInch(kRows.left, bottom);
    page.Canvas().Pen.Width = kRulePen;
    // Taken from the pen, so that the rows start on a whole pixel.
    const double rowsTop = static_cast<double>(page.Canvas().PenPos().y) / page.VertScale;
    page.PrintColumnHeads(kSampleHeads, top + 0.0125);
    return rowsTop;
}

void PrintSample(Page& page, const ListedSample& sample, double y) {
    const double textY = y + 0.0225;
    page.TextOutInch(sample.SampleNo, 1.35, textY);
    page.TextOutInch(sample.LabSampleId, 2.6, textY);
    page.TextOutInch(sample.LabFileId, 3.85, textY);
    page.TextOutInch(sample.DateAnalyzed, 5.1, textY);
    page.TextOutInch(sample.TimeAnalyzed, 6.35, textY);
    page.TextOutInch(sample.Flag, 7.05, y + 0.04);
}

// True for the last page.
bool PrintPage(Page& page, const Form5Content& content, std::size_t& row) {
    const std::vector<ListedSample>& samples = content.Samples;
    // On purpose: 22 samples fill one page that says "of 2".
    page.PageCount = static_cast<std::int32_t>(samples.size() / kRows.rowsPerPage + 1);
    page.PrintSampleNoBox(content.SampleNo);
    PrintForm5Header(page, content);
    const double ionsBottom = PrintIonAbundanceTable(page, content.Abundances);
    const double rowsTop = PrintSampleHeads(page, ionsBottom + 0.25);
    const double top = rowsTop - HeadHeight(page);
    const double bottom =
        PrintSampleRows(page, kRows, samples.size(), row, rowsTop,
                        [&](std::size_t i, double y) { PrintSample(page, samples[i], y); });
    page.DrawColumnLines(kSampleColumnLines, bottom, top);
    return row >= samples.size();
}

}  // namespace

std::optional<Form5Content> PrepareForm5(FormHost& host) {
    if (!LabBlankSpecified(host)) {
        return std::nullopt;
    }
    const auto record = CheckAndAsk(host, "Form 5", EntryDialog::kTune);
    if (!record) {
        return std::nullopt;
    }
    const TuneEntry& tune = host.Entries().Tune;
    const std::optional<DateTime> injection = InjectionDateTime(tune);
    if (!injection) {
        host.Show(DateTimeFormatMessage());
        return std::nullopt;
    }
    if (!AnalysisDatesReadable(host, 0)) {
        return std::nullopt;
    }
    return BuildForm5Content(*host.Batch().SampleList, *record, tune, *injection);
}

void Form5IPCClick(FormHost& host) {
    if (const auto content = PrepareForm5(host)) {
        host.Page().PrintDocument("Form 5 " + content->SampleNo, *content, PrintPage);
    }
}

}  // namespace qfr
