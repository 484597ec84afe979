#include <cmath>
#include <string>
#include <string_view>

#include "forms/Form1TicContent.h"
#include "forms/Form1Voa.h"
#include "forms/FormHost.h"

namespace qfr {

namespace {

constexpr std::size_t kSlotsPerPage = 30;
constexpr double kTableTop = 3.9;
constexpr double kHeadBottom = 4.125;
// On purpose: the first row starts above the bottom of the head box.
constexpr double kRowsTop = 4.1;
constexpr double kRowPitch = 0.181;
constexpr double kLeft = 0.9;
constexpr double kRight = 7.8;
constexpr double kColumnLines[] = {0.9, 2.2, 5.2, 6.0, 7.2, 7.8};

constexpr double kNumberLineY = 0.7;
constexpr double kValueRaise = 0.05;  // of a value above its label

constexpr std::string_view kAlkanesNumber = "E966796";

// Covers what stands between two places of a line of text with a white cell.
void Whiten(Page& page, double left, double right, double y) {
    const std::string blanks(100, ' ');  // measured together: a single blank's width is rounded
    const double blank = page.TextWidthInch(blanks) / static_cast<double>(blanks.size());
    page.TextOutInch(std::string(static_cast<std::size_t>(std::ceil((right - left) / blank)), ' '),
                     left, y);
}

// The overlay's own texts leave bits of Form I VOA's showing: the end of a two-digit page's number,
// the underline and the upper edge of the purge volume, the last stroke of its unit. They are
// covered first.
void WhitenFormIVoaTexts(Page& page, const SampleHeader& header) {
    const std::string number = std::to_string(page.Printer().PageNumber());
    // As wide as with any letter.
    Whiten(page, 3.6, 3.6 + page.TextWidthInch("1W - FORM I VOA-" + number), kNumberLineY);

    const double labelY = kPurgeVolume.y + page.FontHeightInch();
    Whiten(page, kPurgeVolume.x, kPurgeVolume.unitX + page.TextWidthInch(kPurgeVolume.unit),
           labelY);
    const double centre =
        kPurgeVolume.x + page.TextWidthInch(kPurgeVolume.label) + 0.1 + kPurgeVolume.width * 0.5;
    // Two hundredths more, because pixels are cut at both ends.
    const double half = page.TextWidthInch(header[HeaderField::kPurgeVolume]) * 0.5 + 0.01;
    Whiten(page, centre - half, centre + half, labelY - kValueRaise);
}

void PrintHeaderOverlay(Page& page, const SampleHeader& header) {
    WhitenFormIVoaTexts(page, header);
    page.TextOutInch("1J - FORM I VOA-TIC", 3.5, kNumberLineY);
    page.TextOutInch(kDataSheetTitle, 2.8, 0.85);
    page.TextOutInch("TENTATIVELY IDENTIFIED COMPOUNDS", 3.05, 1.0);
    page.PrintLabelledField("Concentration Units: (ug/L or ug/kg) ",
                            header[HeaderField::kConcUnits], 0.9, kPurgeVolume.y, 0.3);
    page.TextOutInch("        ", kPurgeVolume.unitX, kPurgeVolume.y + page.FontHeightInch());
    page.PrintLabelledField(kPurgeVolume.label, header[HeaderField::kPurgeVolume], 4.8,
                            kPurgeVolume.y, 1.35);
    page.TextOutInch(kPurgeVolume.unit, 7.2, kPurgeVolume.y + page.FontHeightInch());
}

void PrintTableHead(Page& page) {
    page.DrawHeadBox(kLeft, kTableTop, kRight, kHeadBottom, kHeavyRulePen);
    const double middle = 4.0125;
    const double y = middle + page.FontHeightInch() * 0.5;
    page.TextOutInch("CAS NO.", 1.0, y);
    page.TextOutInch("COMPOUND", 2.3, y);
    // On purpose: measured with the horizontal scale.
    page.TextOutInch("RT", 5.5, middle + page.Canvas().Font.Height() * 0.5 / page.HorzScale);
    page.TextOutInch("EST. CONC.", 6.1, y);
    page.TextOutCentred("Q", 7.5, y);
}

void PrintEntry(Page& page, const TicEntry& entry, double y) {
    const auto& [casNumber, compound, retentionTime, concentration, qualifier] = entry.cells;
    page.TextOutInch(casNumber, 1.0, y);
    page.TextOutInch(compound, 2.3, y);
    page.TextOutRight(retentionTime, 5.7, y);
    page.TextOutCentred(concentration, 6.6, y);
    page.TextOutCentred(qualifier, 7.5, y);
}

void EndRow(Page& page, double& y) {
    y += kRowPitch;
    page.DrawLineInch(kLeft, y, kRight, y);
}

// The row and the footnote below the slots; y is the bottom of the row.
void PrintAlkanesRow(Page& page, double y) {
    page.Canvas().Font.Size = 8;
    const double textY = y - page.TextHeightInch() - 0.01;
    page.TextOutInch(kAlkanesNumber, 1.0, textY);
    page.TextOutInch("Total Alkanes", 2.3, textY);
    page.TextOutInch("N/A", 5.3, textY);
    page.TextOutInch("ZOV - designated Registry Number.", 1.1, y + 0.02);
    const double superscriptX = 1.0 + page.TextWidthInch(kAlkanesNumber) + 0.01;
    page.Canvas().Font.Size = 5;
    page.TextOutInch("1", superscriptX, y - 0.171);
    page.TextOutInch("1", 1.0, y + 0.02);
    page.Canvas().Font.Size = 10;
}

// Prints one page of slots; true when a slot found no entry left.
bool PrintPageBody(Page& page, const TicListType& entries, std::size_t& entry) {
    bool done = false;
    double y = kRowsTop;
    for (std::size_t slot = 0; slot < kSlotsPerPage; ++slot) {
        if (entry < entries.size()) {
            page.Canvas().Font.Size = 10;
            page.TextOutInch(std::to_string(slot + 1), 0.65, y + 0.04);
            page.Canvas().Font.Size = 8;
            // On purpose: taken by slot, so that every further page repeats the first entries.
            PrintEntry(page, entries[slot], y + 0.04);
            ++entry;
        } else {
            // On purpose: a list that just fills its last page prints one more, empty page.
            done = true;
        }
        EndRow(page, y);
    }
    EndRow(page, y);
    page.DrawColumnLines(kColumnLines, kTableTop, y);
    PrintAlkanesRow(page, y);
    return done;
}

// True for the last page.
bool PrintPage(Page& page, const Form1TicContent& content, std::size_t& entry) {
    page.PrintSampleNoBox(content.SampleNo);
    PrintFormIVoaHeader(page, content);
    PrintHeaderOverlay(page, content.Header);
    PrintTableHead(page);
    return PrintPageBody(page, content.Entries, entry);
}

}  // namespace

std::optional<Form1TicContent> PrepareForm1Tic(FormHost& host, std::size_t record) {
    const SampleRecord& sample = (*host.Batch().SampleList)[record];
    if (!sample.TicList) {
        host.Show(
            {"There are no TIC compounds listed\nfor this sample.", "TIC Compounds Not Entered"});
        return std::nullopt;
    }
    return BuildForm1TicContent(sample);
}

void PrintFormITic(FormHost& host, std::size_t record) {
    if (const auto content = PrepareForm1Tic(host, record)) {
        host.Page().SetupPage();
        host.Page().PrintDocument("Form 1 TIC " + content->SampleNo, *content, PrintPage);
    }
}

}  // namespace qfr
