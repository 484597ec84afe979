#include "review/FindingsList.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/Text.h"

namespace qfr {

namespace {

// Inches.
constexpr double kLeft = 0.9;
constexpr double kRight = 7.75;
constexpr double kIndent = 0.25;  // of a line that goes on
constexpr double kHeadingY = 0.7;
constexpr double kTop = 1.1;
constexpr double kLineHeight = 0.2;
constexpr std::size_t kLinesOnPage = 46;

struct Row {
    std::string Text;
    double X = kLeft;
};

struct RowsOnPages {
    std::string Heading;
    std::vector<Row> Rows;
};

// As much of the text as fits the width: whole words, or the characters of a word that is wider.
std::string_view Fitting(Page& page, std::string_view text, double width) {
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t wordEnd = std::min(text.find(' ', end + 1), text.size());
        if (page.TextWidthInch(text.substr(0, wordEnd)) > width) {
            break;
        }
        end = wordEnd;
    }
    for (std::string_view rest = text; end == 0 && !rest.empty();) {
        std::string_view next = rest;
        TakeCharacter(next);
        const std::string_view head = text.substr(0, text.size() - next.size());
        if (page.TextWidthInch(head) > width) {
            return text.substr(0, std::max<std::size_t>(text.size() - rest.size(), 1));
        }
        rest = next;
    }
    return text.substr(0, end);
}

void AddRows(Page& page, std::string_view line, std::vector<Row>& rows) {
    double x = kLeft;
    while (!line.empty()) {
        const std::string_view piece = Fitting(page, line, kRight - x);
        rows.push_back({std::string(piece), x});
        line.remove_prefix(piece.size());
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        x = kLeft + kIndent;
    }
}

bool PrintPage(Page& page, const RowsOnPages& list, std::size_t& row) {
    page.SetupPage();
    const std::size_t pages =
        std::max<std::size_t>((list.Rows.size() + kLinesOnPage - 1) / kLinesOnPage, 1);
    page.TextOutInch(list.Heading, kLeft, kHeadingY);
    page.TextOutRight(
        "Page " + std::to_string(page.Printer().PageNumber()) + " of " + std::to_string(pages),
        kRight, kHeadingY);
    page.DrawLineInch(kLeft, kTop - 0.1, kRight, kTop - 0.1);
    double y = kTop;
    for (const std::size_t end = std::min(row + kLinesOnPage, list.Rows.size()); row < end; ++row) {
        page.TextOutInch(list.Rows[row].Text, list.Rows[row].X, y);
        y += kLineHeight;
    }
    return row == list.Rows.size();
}

}  // namespace

void PrintFindings(Page& page, const std::string& heading, const std::vector<std::string>& lines) {
    if (!page.testPrinter()) {
        return;
    }
    page.SetupPage();
    RowsOnPages list{std::string(Fitting(page, heading, kRight - kLeft - 1)), {}};
    for (const std::string& line : lines) {
        AddRows(page, OneLine(line), list.Rows);
    }
    page.PrintDocument("Review", list, PrintPage);
}

}  // namespace qfr
