#include "forms/Page.h"

#include "platform/Text.h"

namespace qfr {

namespace {

constexpr double kFooterY = 10.45;

// The drawing calls take their coordinates in single precision; the product is cut, not rounded.
int Pixel(double inches, std::int32_t scale) {
    return static_cast<int>(static_cast<double>(static_cast<float>(inches)) * scale);
}

}  // namespace

void Page::SetupPage() {
    HorzScale = static_cast<std::int32_t>(printer_.PageWidth() * 0.11764705882352941);
    VertScale = static_cast<std::int32_t>(printer_.PageHeight() * 0.09090909090909091);
    Canvas().Pen.Width = kRulePen;
    Canvas().Font.Size = 10;
}

bool Page::getPrinter() {
    const bool accepted = showPrinterSetup_();
    ChoosePrinter(printer_.PrinterIndex);
    return accepted;
}

bool Page::testPrinter() {
    if (!ChosenPrinter() && !getPrinter()) {
        PrinterChosen = false;
        TellOfChoice();
    }
    return PrinterChosen;
}

void Page::ChoosePrinter(std::int32_t index) {
    printer_.PrinterIndex = index;
    SetupPage();
    PrinterChosen = true;
    ChosenPrinterIndex = index;
    TellOfChoice();
}

std::optional<std::int32_t> Page::ChosenPrinter() const {
    const bool chosen = PrinterChosen && printer_.PrinterIndex == ChosenPrinterIndex;
    return chosen ? std::optional(ChosenPrinterIndex) : std::nullopt;
}

void Page::TellOfChoice() const {
    if (OnPrinterChoice) {
        OnPrinterChoice();
    }
}

void Page::MoveToInch(double x, double y) {
    Canvas().MoveTo(Pixel(x, HorzScale), Pixel(y, VertScale));
}

void Page::LineToInch(double x, double y) {
    Canvas().LineTo(Pixel(x, HorzScale), Pixel(y, VertScale));
}

void Page::DrawLineInch(double x1, double y1, double x2, double y2) {
    MoveToInch(x1, y1);
    LineToInch(x2, y2);
}

void Page::TextOutInch(std::string_view text, double x, double y) {
    Canvas().TextOut(Pixel(x, HorzScale), Pixel(y, VertScale), text);
}

void Page::TextOutRight(std::string_view text, double x, double y) {
    TextOutInch(text, x - TextWidthInch(text), y);
}

void Page::TextOutCentred(std::string_view text, double x, double y) {
    TextOutInch(text, x - TextWidthInch(text) * 0.5, y);
}

void Page::DrawHeadBox(double left, double top, double right, double bottom, int bottomPen) {
    DrawLineInch(left, top, right, top);
    LineToInch(right, bottom);
    Canvas().Pen.Width = bottomPen;
    LineToInch(left, bottom);
    Canvas().Pen.Width = kRulePen;
    LineToInch(left, top);
}

void Page::PrintColumnHeads(std::span<const ColumnHead> heads, double y) {
    const double h = TextHeightInch();
    for (const ColumnHead& head : heads) {
        TextOutCentred(head.first, head.centre, y);
        TextOutCentred(head.second, head.centre, y + h);
    }
}

void Page::DrawColumnLines(std::span<const double> lines, double y1, double y2) {
    for (const double x : lines) {
        DrawLineInch(x, y1, x, y2);
    }
}

double Page::TextWidthInch(std::string_view text) {
    return static_cast<double>(Canvas().TextWidth(text)) / HorzScale;
}

double Page::TextHeightInch() {
    return static_cast<double>(Canvas().TextHeight("I")) / VertScale;
}

double Page::FontHeightInch() {
    return static_cast<double>(Canvas().Font.Height()) / VertScale;
}

void Page::PrintLabelledField(std::string_view label, std::string_view value, double x, double y,
                              double width) {
    const auto penX = [this] { return static_cast<double>(Canvas().PenPos().x) / HorzScale; };
    const double h = FontHeightInch();
    TextOutInch(label, x, y + h);
    MoveToInch(penX() + 0.1, y);
    LineToInch(penX() + width, y);
    const double centre = penX() - width * 0.5;
    TextOutCentred(value, centre, h + y - 0.05);
}

void Page::PrintSampleNoBox(std::string_view sampleName) {
    TextOutInch("ZOV SAMPLE NO.", 6.55, 0.65);
    DrawLineInch(6.2, 0.85, 7.85, 0.85);
    LineToInch(7.85, 1.2);
    LineToInch(6.2, 1.2);
    LineToInch(6.2, 0.85);
    // Large, but in the regular style: the forms have always shown it so.
    Canvas().Font.Size = 14;
    TextOutCentred(sampleName, 7.025, 1.025 - TextHeightInch() * 0.5);
    Canvas().Font.Size = 10;
}

void Page::SplitAtHyphens(std::string_view text, std::vector<std::string>& lines, double width) {
    while (TextWidthInch(text) >= width) {
        std::size_t head = 0;
        for (std::size_t hyphen = text.find('-'); hyphen != std::string_view::npos;
             hyphen = text.find('-', head)) {
            if (TextWidthInch(text.substr(0, hyphen + 1)) >= width) {
                break;
            }
            head = hyphen + 1;
        }
        if (head == 0) {
            break;
        }
        lines.emplace_back(text.substr(0, head));
        text.remove_prefix(head);
    }
    lines.emplace_back(text);
}

void Page::PrintLabRows(const FormContent& content, double y1) {
    constexpr FieldPlace<FormContent> kRows[] = {
        {"Lab Name:", HeaderField::kLabName, 0.9, 0, 2.3},
        {"Contract:", HeaderField::kContract, 4.8, 0, 2.1},
        {"Lab Code:", HeaderField::kLabCode, 0.9, 0.275, 0.575},
        {"Case No.:", HeaderField::kCaseNo, 2.45, 0.275, 0.5},
        {"Mod. Ref No.:", HeaderField::kModRefNo, 3.9, 0.275, 0.7},
        {"SDG No.:", HeaderField::kSdgNo, 5.8, 0.275, 1.05},
    };
    PrintFields(content, kRows, -y1);
}

void Page::PrintNumberLine(std::string_view line, std::string_view firstPage, double y) {
    TextOutInch(line, 4.25 - TextWidthInch(firstPage) * 0.5, y);
}

void Page::PrintPageFooter() {
    PrintPageNumber(kFooterY);
    PrintStatementOfWork();
}

void Page::PrintPageNumber(double y) {
    TextOutInch("Page " + std::to_string(PageNo) + " of " + std::to_string(PageCount), 0.9, y);
}

void Page::PrintStatementOfWork() {
    TextOutInch("TQW04.2 (5/2005)", 6.75, kFooterY);
}

std::string Page::FormLetter(int index) {
    return ToUtf8(std::string(1, static_cast<char>(64 + index)));
}

void Page::PrintUnit(std::string_view unit, double x, double y, UnitLevel level) {
    const double up = level == UnitLevel::kTextHeightAbove ? -TextHeightInch() : FontHeightInch();
    TextOutInch(unit, x, level == UnitLevel::kBelowLine ? y - up : y + up);
}

}  // namespace qfr
