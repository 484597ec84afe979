// What other programs see in a PDF document, and jobs to make one of.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <regex>

#include "platform/FileLookup.h"
#include "platform/pdf/PdfFile.h"
#include "platform/pdf/Qpdf.h"
#include "platform/pdf/Typeface.h"
#include "tests/Support.h"

namespace qfr::test {

// The forms' typeface, loaded once.
inline Typeface& FormsTypeface() {
    static const std::unique_ptr<Typeface> typeface = Typeface::Load();
    return *typeface;
}

inline std::string PdfOf(const std::vector<PrintJob>& jobs, const std::string& title) {
    PdfFile pdf(FormsTypeface());
    for (const PrintJob& job : jobs) {
        pdf.Add(job);
    }
    std::string reason;
    const std::string content = pdf.Content(title, reason);
    EXPECT_EQ(reason, "");
    return content;
}

// What a program of poppler's or qpdf's writes about the document.
inline std::string DescribedBy(const std::string& program, const std::string& pdf) {
    const TempDir directory;
    const std::string file = directory.Write("document.pdf", pdf);
    const std::string answer = TextOf(directory.Path() / "answer");
    const std::string command = program + " " + file +
                                (program.starts_with("pdftotext") ? " -" : "") + " >" + answer +
                                " 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << command << "\n" << ReadAll(answer);
    return ReadAll(answer);
}

// A document as qpdf reads it, without a warning.
class ReadDocument {
  public:
    explicit ReadDocument(const std::string& pdf) : bytes_(pdf) {
        pdf_.processMemoryFile("document", bytes_.data(), bytes_.size());
    }
    ~ReadDocument() { EXPECT_TRUE(pdf_.getWarnings().empty()); }
    ReadDocument(const ReadDocument&) = delete;
    ReadDocument& operator=(const ReadDocument&) = delete;
    QPDF& operator*() { return pdf_; }
    QPDF* operator->() { return &pdf_; }

  private:
    const std::string bytes_;
    QPDF pdf_;
};

inline std::size_t PagesOf(const std::string& pdf) {
    ReadDocument document(pdf);
    return QPDFPageDocumentHelper(*document).getAllPages().size();
}

// The outline of a document without faults, as "Form I VOA 1 [MW-1 1][MW-2 4]Form II 7 ", each
// entry with its page.
inline std::string OutlineOf(const std::string& pdf) {
    DescribedBy("qpdf --check", pdf);
    ReadDocument document(pdf);
    const auto pages = QPDFPageDocumentHelper(*document).getAllPages();
    const auto entries = [&](const auto& self, auto list) -> std::string {
        std::string text;
        for (QPDFOutlineObjectHelper& entry : list) {
            const auto page = std::ranges::find(
                pages, entry.getDestPage().getObjGen(),
                [](QPDFPageObjectHelper p) { return p.getObjectHandle().getObjGen(); });
            EXPECT_LE(entry.getCount(), 0) << "folded";
            text += entry.getTitle() + " " + std::to_string(page - pages.begin() + 1) + " ";
            text += entry.getKids().empty() ? "" : "[" + self(self, entry.getKids()) + "]";
        }
        return text;
    };
    return entries(entries, QPDFOutlineDocumentHelper(*document).getTopLevelOutlines());
}

// A word and its place on its page, in inches from the page's top-left corner.
struct Word {
    std::string text;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

inline std::vector<Word> WordsOf(const std::string& pdf) {
    static const std::regex kPattern(
        "<word xMin=\"(.*)\" yMin=\"(.*)\" xMax=\"(.*)\" yMax=\"(.*)\">(.*)</word>");
    const std::string described = DescribedBy("pdftotext -bbox", pdf);
    std::vector<Word> words;
    for (std::sregex_iterator match(described.begin(), described.end(), kPattern), end;
         match != end; ++match) {
        const auto inches = [&match](std::size_t group) { return std::stod((*match)[group]) / 72; };
        words.push_back({(*match)[5], inches(1), inches(2), inches(3), inches(4)});
    }
    return words;
}

// A page at 150 dots per inch.
struct Picture {
    int width = 0;
    int height = 0;
    std::string greys;  // row by row

    bool IsInk(int x, int y) const {
        return x >= 0 && x < width && y >= 0 && y < height &&
               static_cast<unsigned char>(greys[static_cast<std::size_t>(y * width + x)]) < 128;
    }
    // With its top along the left edge.
    Picture Turned() const {
        Picture turned{height, width, std::string(greys.size(), '\0')};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                turned.greys[static_cast<std::size_t>((width - 1 - x) * height + y)] =
                    greys[static_cast<std::size_t>(y * width + x)];
            }
        }
        return turned;
    }
};

inline std::vector<Picture> Raster(const std::string& pdf) {
    const std::string all = DescribedBy("pdftoppm -gray -r 150", pdf);
    std::vector<Picture> pages;
    for (std::size_t at = 0; at < all.size();) {
        std::istringstream head(all.substr(at, 64));
        std::string kind;
        Picture page;
        int white = 0;
        head >> kind >> page.width >> page.height >> white;
        at += static_cast<std::size_t>(head.tellg()) + 1;
        page.greys = all.substr(at, static_cast<std::size_t>(page.width * page.height));
        at += page.greys.size();
        pages.push_back(std::move(page));
    }
    return pages;
}

// Dots of either page that have none of the other's within 1/75 inch: drivers and painters round
// places and the thickness of rules to their own dots. A full stop has six dots.
inline int StrayDots(const Picture& page, const Picture& other) {
    const auto strayOf = [](const Picture& dots, const Picture& among) {
        int count = 0;
        for (int dot = 0; dot < dots.width * dots.height; ++dot) {
            const auto [y, x] = std::div(dot, dots.width);
            bool stray = dots.IsInk(x, y);
            for (int near = 0; near < 25 && stray; ++near) {
                stray = !among.IsInk(x + near % 5 - 2, y + near / 5 - 2);
            }
            count += stray ? 1 : 0;
        }
        return count;
    };
    return strayOf(page, other) + strayOf(other, page);
}

inline int Pixels(double inches) {
    return static_cast<int>(inches * kResolution);
}

// A page of US Letter.
inline JobPage LetterPage(std::vector<PageItem> items = {}, bool turned = false) {
    JobPage page{PageOrientation::kPortrait, Pixels(8.5), Pixels(11), std::move(items)};
    if (turned) {
        page.orientation = PageOrientation::kLandscape;
        std::swap(page.width, page.height);
    }
    return page;
}

// A text at inches, its cell as the canvas would measure it.
inline TextItem TextAt(double x, double y, const std::string& text, int points = 10) {
    Typeface& metrics = FormsTypeface();
    return {Pixels(x), Pixels(y), metrics.TextWidth(text, points), metrics.TextHeight(points),
            points,    text};
}

inline RuleItem RuleBetween(double x1, double y1, double x2, double y2, int penWidth = 6) {
    return {Pixels(x1), Pixels(y1), Pixels(x2), Pixels(y2), penWidth};
}

inline PrintJob JobOf(const std::vector<PageItem>& items, bool turned = false) {
    return {"Form 1 VBLK01", kLetterPaper, {LetterPage(items, turned)}};
}

}  // namespace qfr::test
