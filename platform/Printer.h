// The printing interface that the forms draw on. It records a PrintJob and hands it over when it is
// whole; nothing reaches a device before that.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/JobSink.h"
#include "platform/PrintJob.h"

namespace qfr {

// What a program says, before it stops, where the typeface of the forms is not installed. No other
// one takes its place: widths and row heights would differ from the agency's forms.
inline constexpr std::string_view kNoTypeface =
    "The typeface Liberation Serif (or Times New Roman) is not installed.";

// The one service that drawing needs from outside: how large a text is in the forms' typeface.
class TextMetrics {
  public:
    virtual ~TextMetrics() = default;
    // Sum of the advance widths of the characters at `points` points, rounded to whole pixels at
    // kResolution. No kerning, no ligatures.
    virtual int TextWidth(std::string_view utf8, int points) = 0;
    // Ascent plus descent at `points` points, in whole pixels at kResolution.
    virtual int TextHeight(int points) = 0;
    // The characters of the texts measured since the last call that no installed font has, each
    // once.
    virtual std::vector<char32_t> TakeBoxes() { return {}; }
};

struct TFont {
    int Size = 10;  // points
    // Pixels, negative for a font that is given in points, as the platform has it.
    int Height() const;
};

struct TPen {
    int Width = 1;  // pixels
};

struct TPoint {
    int x = 0;  // pixels from the left edge of the paper
    int y = 0;  // pixels from its top edge
    bool operator==(const TPoint&) const = default;
};

// The page being drawn. Outside a document everything can be measured and nothing is recorded.
class TCanvas {
  public:
    explicit TCanvas(TextMetrics& metrics) : metrics_(metrics) {}

    TFont Font;
    TPen Pen;

    void MoveTo(int x, int y);
    // Draws from the pen position and leaves the pen at (x, y).
    void LineTo(int x, int y);
    // Writes on an opaque white cell with its top-left corner at (x, y); the pen is left at the end
    // of the text, at its top.
    void TextOut(int x, int y, std::string_view text);
    int TextWidth(std::string_view text) const;   // pixels
    int TextHeight(std::string_view text) const;  // pixels, the same for every text
    TPoint PenPos() const { return penPos_; }

  private:
    friend class TPrinter;
    TextMetrics& metrics_;
    TPoint penPos_;
    JobPage* page_ = nullptr;
};

class TPrinter {
  public:
    TPrinter(TextMetrics& metrics, JobSink& sink) : canvas_(metrics), sink_(sink) {}
    TPrinter(const TPrinter&) = delete;
    TPrinter& operator=(const TPrinter&) = delete;

    // What can be printed on, in the order of the printer setup: installed printers, the default
    // one first, then "PDF file", then "Screen preview".
    std::vector<std::string> Printers;
    int PrinterIndex = 0;  // into Printers, from 0
    Paper PaperSize = kLetterPaper;
    PageOrientation Orientation = PageOrientation::kPortrait;
    // Of the next job: the form and the sample.
    std::string Title;

    TCanvas& Canvas() { return canvas_; }
    // Full page in pixels, as turned; no margins are taken off.
    int PageWidth() const;
    int PageHeight() const;
    // Of the page being drawn, from 1; 0 outside a document.
    int PageNumber() const { return static_cast<int>(job_.pages.size()); }

    // Starts a document on its first page. When the sink gives the job up, drawing goes on and
    // EndDoc drops it.
    void BeginDoc();
    void NewPage();
    void EndDoc();

  private:
    TCanvas canvas_;
    JobSink& sink_;
    PrintJob job_;
    bool printing_ = false;
    bool givenUp_ = false;
};

}  // namespace qfr
