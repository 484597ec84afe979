// A print job is data: what each page shows, in the order in which it was drawn. A sink replays it
// on a printer, into a PDF file or into the preview; tests compare it.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace qfr {

enum class PageOrientation { kPortrait, kLandscape };

struct Paper {
    std::string name;   // as the printer setup lists it
    double width = 0;   // inches, portrait
    double height = 0;  // inches, portrait
    bool operator==(const Paper&) const = default;
};
inline const Paper kLetterPaper{"Letter", 8.5, 11.0};

// Dots per inch of every recorded job. Sinks scale to their device.
inline constexpr int kResolution = 600;
inline constexpr double kPointsPerInch = 72;

// No item lies farther from the page's corner, in pixels, so that sinks may add up what they hold.
inline constexpr int kFarthest = 1'000'000;

// A text and the white cell that it paints first. (x, y) is the cell's top-left corner, in pixels.
struct TextItem {
    int x = 0;
    int y = 0;
    int width = 0;   // of the cell, pixels
    int height = 0;  // of the cell, pixels
    int size = 10;   // font size, points
    std::string text;
    bool operator==(const TextItem&) const = default;
};

// A straight line, round-capped, between two points in pixels.
struct RuleItem {
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
    int penWidth = 1;  // pixels
    bool operator==(const RuleItem&) const = default;
};

using PageItem = std::variant<TextItem, RuleItem>;

struct JobPage {
    PageOrientation orientation = PageOrientation::kPortrait;
    int width = 0;   // pixels, as turned
    int height = 0;  // pixels, as turned
    std::vector<PageItem> items;
    bool operator==(const JobPage&) const = default;
};

struct PrintJob {
    std::string title;  // form and sample, for queues, preview and the proposed file name
    Paper paper = kLetterPaper;
    std::vector<JobPage> pages;
    // Where the job stands among others; both are empty for a job of its own.
    std::string form = {};
    std::string sample = {};  // empty for a form that is printed once for the batch
    bool operator==(const PrintJob&) const = default;
};

}  // namespace qfr
