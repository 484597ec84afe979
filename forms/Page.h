// The page that the forms draw on, in inches from the top-left corner of the paper, and the pieces
// of the page that they share. The paper is always treated as 8.5 by 11 inches; a coordinate is
// taken in single precision and truncated to the pixel above and to the left of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/FormContent.h"
#include "platform/Printer.h"

namespace qfr {

inline constexpr int kRulePen = 6;        // pixels
inline constexpr int kHeavyRulePen = 12;  // pixels, under the heads of tables

// Where the text of a field comes from: a value of the header, or a text of the form's own.
template <typename Content>
class FieldText {
  public:
    constexpr FieldText(HeaderField field) : field_(field) {}
    constexpr FieldText(std::string Content::*text) : text_(text) {}
    const std::string& In(const Content& content) const {
        return text_ == nullptr ? content.Header[field_] : content.*text_;
    }

  private:
    HeaderField field_ = HeaderField::kZovSampleNo;
    std::string Content::*text_ = nullptr;
};

// Where a unit stands: on the level of its underline, or where the form has it by mistake.
enum class UnitLevel { kOnLine, kTextHeightAbove, kBelowLine };

// One underlined field of a page header, and its unit if it has one. y is the level of the
// underline; all in inches.
template <typename Content>
struct FieldPlace {
    std::string_view label;
    FieldText<Content> text;
    double x;
    double y;
    double width;
    std::string_view unit = {};
    double unitX = 0;
    UnitLevel unitLevel = UnitLevel::kOnLine;
};

// A column head of two lines, both centred on the same x (inches).
struct ColumnHead {
    double centre;
    std::string_view first;
    std::string_view second;
};

class Page {
  public:
    // `showPrinterSetup` lets the user change printer and paper; false: he cancelled it.
    Page(TPrinter& printer, std::function<bool()> showPrinterSetup)
        : printer_(printer), showPrinterSetup_(std::move(showPrinterSetup)) {}

    std::int32_t HorzScale = 0;  // pixels per inch across the page
    std::int32_t VertScale = 0;  // pixels per inch down the page
    bool PrinterChosen = false;
    std::int32_t ChosenPrinterIndex = 0;
    std::uint8_t FormLetterIndex = 0;  // from 1; prints as "A", "B", ...
    std::int32_t PageNo = 0;           // from 1, of the forms that number their own pages
    std::int32_t PageCount = 0;

    TPrinter& Printer() { return printer_; }
    TCanvas& Canvas() { return printer_.Canvas(); }

    // Takes the scales from the printer's page and sets the forms' pen and font.
    void SetupPage();
    // Shows the printer setup. False: the user cancelled it; the printer of before then counts as
    // chosen.
    bool getPrinter();
    // Makes sure that a printer was chosen. False: the user cancelled the setup that this took, so
    // that nothing is to be printed; the next job asks again.
    bool testPrinter();
    // As if the printer at this index of the printer's list had been chosen in the printer setup.
    void ChoosePrinter(std::int32_t index);
    // The chosen printer's index; absent while a job would ask for one.
    std::optional<std::int32_t> ChosenPrinter() const;
    // Hears that a printer was chosen, or asked for in vain.
    std::function<void()> OnPrinterChoice;

    void MoveToInch(double x, double y);
    void LineToInch(double x, double y);
    void DrawLineInch(double x1, double y1, double x2, double y2);
    // The top-left corner of the text is at (x, y).
    void TextOutInch(std::string_view text, double x, double y);
    // The text's right end is at x.
    void TextOutRight(std::string_view text, double x, double y);
    void TextOutCentred(std::string_view text, double x, double y);

    // The box around the heads of a table, clockwise from its top left corner.
    void DrawHeadBox(double left, double top, double right, double bottom, int bottomPen);
    // The first lines of the heads are at y, the second lines one text height below.
    void PrintColumnHeads(std::span<const ColumnHead> heads, double y);
    // From one level to the other.
    void DrawColumnLines(std::span<const double> lines, double y1, double y2);

    // Sizes in inches, in the current font.
    double TextWidthInch(std::string_view text);
    double TextHeightInch();  // of "I", as of every text
    double FontHeightInch();  // negative: the font is given in points

    // Label, underline of `width` inches from 0.1 inch after it, value centred over the underline.
    void PrintLabelledField(std::string_view label, std::string_view value, double x, double y,
                            double width);
    // The fields in their order, `rise` inches higher than their places, then their units.
    template <typename Content, std::size_t N>
    void PrintFields(const Content& content, const FieldPlace<Content> (&places)[N],
                     double rise = 0) {
        for (const FieldPlace<Content>& place : places) {
            PrintLabelledField(place.label, place.text.In(content), place.x, place.y - rise,
                               place.width);
        }
        for (const FieldPlace<Content>& place : places) {
            if (!place.unit.empty()) {
                PrintUnit(place.unit, place.unitX, place.y - rise, place.unitLevel);
            }
        }
    }

    void PrintSampleNoBox(std::string_view sampleName);
    // Breaks a name after hyphens into lines narrower than `width` inches and appends them; a piece
    // that cannot be broken makes one line with all that follows it.
    void SplitAtHyphens(std::string_view text, std::vector<std::string>& lines, double width);
    // The two laboratory rows; y1 is the level of the first.
    void PrintLabRows(const FormContent& content, double y1);
    // The form number line of a page, where the first page's (`firstPage`) is centred: so every
    // page's starts at the same place.
    void PrintNumberLine(std::string_view line, std::string_view firstPage, double y);
    // "Page n of m" from PageNo and PageCount, and the statement of work's line.
    void PrintPageFooter();
    void PrintPageNumber(double y);
    void PrintStatementOfWork();

    // The letter of a form number line: 1 is "A".
    static std::string FormLetter(int index);

    // One print job: makes sure that there is a printer, and prints page after page until
    // `printPage` says that one was the last; it moves `row` (from 0) behind the rows that it
    // printed. Turned paper is landscape; every other form is portrait, and so is the printer at
    // the end.
    template <typename Content>
    void PrintDocument(const std::string& title, const Content& content,
                       bool (*printPage)(Page& page, const Content& content, std::size_t& row),
                       bool turned = false) {
        if (!testPrinter()) {
            return;
        }
        printer_.Orientation = turned ? PageOrientation::kLandscape : PageOrientation::kPortrait;
        printer_.Title = title;
        printer_.BeginDoc();
        for (std::size_t row = 0; !printPage(*this, content, row);) {
            printer_.NewPage();
        }
        printer_.EndDoc();
        printer_.Orientation = PageOrientation::kPortrait;
    }

  private:
    void TellOfChoice() const;
    void PrintUnit(std::string_view unit, double x, double y, UnitLevel level);

    TPrinter& printer_;
    std::function<bool()> showPrinterSetup_;
};

}  // namespace qfr
