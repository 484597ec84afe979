#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "forms/Form4Content.h"
#include "forms/FormHost.h"
#include "forms/TableRows.h"
#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kTableTop = 3.35;
constexpr double kCommentsLeft = 2.1;
constexpr double kCommentsRight = kCommentsLeft + kCommentLineLength;
constexpr double kColumnLines[] = {1.75, 3.0, 4.25, 5.5, 6.75};
// On purpose: the empty rows are numbered one too high.
constexpr SampleRows kRows{.rowsPerPage = 30,
                           .left = 1.75,
                           .right = 6.75,
                           .numberX = 1.45,
                           .numberDown = 0.0125,
                           .gap = 0.025,
                           .emptyRowsAhead = 1};

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
    page.DrawHeadBox(kRows.left, kTableTop, kRows.right, 3.3875 + 2 * page.TextHeightInch(),
                     kRulePen);
    page.PrintColumnHeads(kHeads, 3.3625);
}

void PrintSample(Page& page, const ListedSample& sample, double y) {
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
        page.TextOutInch(lines[i], kCommentsLeft, y + 0.1 + 0.2 * static_cast<double>(i));
    }
    page.DrawLineInch(2.0, y + 0.25, kCommentsRight, y + 0.25);
    page.DrawLineInch(2.0, y + 0.45, kCommentsRight, y + 0.45);
    page.TextOutInch("*   Sample time is outside acceptance criteria", 0.9, y + 0.5);
}

// True for the last page.
bool PrintPage(Page& page, const Form4Content& content, std::size_t& row) {
    const std::vector<ListedSample>& samples = content.Samples;
    page.PageCount = (static_cast<std::int32_t>(samples.size()) - 1) /
                         static_cast<std::int32_t>(kRows.rowsPerPage) +
                     1;
    page.PrintSampleNoBox(content.SampleNo);
    PrintHeader(page, content);
    PrintHeads(page);
    // On purpose: the rows start above the bottom of the head box.
    const double rowsTop = 3.375 + 2 * page.TextHeightInch();
    const double bottom =
        PrintSampleRows(page, kRows, samples.size(), row, rowsTop,
                        [&](std::size_t i, double y) { PrintSample(page, samples[i], y + 0.04); });
    page.DrawColumnLines(kColumnLines, bottom, kTableTop);
    PrintComments(page, content.Comments, bottom);
    return row >= samples.size();
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

double CommentLengthInch(Page& page, std::string_view text) {
    page.SetupPage();  // before the first job there are no scales yet
    return page.TextWidthInch(text);
}

std::vector<std::size_t> CommentsOnForm(Page& page, const std::vector<std::string>& lines) {
    std::vector<std::size_t> lengths(lines.size(), 0);
    for (std::size_t i = 0; i < std::min(lines.size(), kCommentLines); ++i) {
        const std::string& line = lines[i];
        // Characters: so many fit, and so many do not.
        std::size_t fits = 0;
        std::size_t tooMany = line.size() + 1;
        while (tooMany - fits > 1) {
            const std::size_t middle = fits + (tooMany - fits) / 2;
            const bool room =
                CommentLengthInch(page, FirstCharacters(line, middle)) <= kCommentLineLength;
            (room ? fits : tooMany) = middle;
        }
        lengths[i] = FirstCharacters(line, fits).size();
    }
    return lengths;
}

std::optional<Message> CommentsNotPrinted(Page& page, const std::vector<std::string>& lines) {
    constexpr std::size_t kShown = 60;  // characters
    const std::vector<std::size_t> lengths = CommentsOnForm(page, lines);
    std::string rest;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string text = Trim(std::string_view(lines[i]).substr(lengths[i]));
        const std::string_view shown = FirstCharacters(text, kShown);
        if (!text.empty()) {
            rest.append(i < kCommentLines ? "\nThe end of line " : "\nLine ")
                .append(std::to_string(i + 1))
                .append(": ")
                .append(shown);
            rest += shown.size() < text.size() ? "..." : "";
        }
    }
    if (rest.empty()) {
        return std::nullopt;
    }
    return Message{"The two lines for comments on Form IV have no room for this:" + rest,
                   "Comments Too Long"};
}

std::optional<Form4Content> PrepareForm4(FormHost& host) {
    if (!LabBlankSpecified(host)) {
        return std::nullopt;
    }
    const auto& samples = host.Batch().SampleList;
    // Files that were named but not loaded yet are for the preconditions to report.
    const std::optional<DateTime> blankTime = samples ? BlankTime(host) : std::nullopt;
    if (samples && !blankTime) {
        return std::nullopt;
    }
    if (!CheckAndAsk(host, "Form 4", EntryDialog::kBlankComments) ||
        !AnalysisDatesReadable(host, 1)) {
        return std::nullopt;
    }
    return BuildForm4Content(*samples, *blankTime, host.Entries().Comments);
}

void Form4MBSClick(FormHost& host) {
    if (const auto content = PrepareForm4(host)) {
        host.Page().PrintDocument("Form 4 " + content->SampleNo, *content, PrintPage);
    }
}

}  // namespace qfr
