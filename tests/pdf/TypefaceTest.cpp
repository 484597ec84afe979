// What the forms' typeface measures, and which files it is taken from.
#include "tests/pdf/PdfSupport.h"

namespace qfr::test {
namespace {

TEST(Typeface, MeasuresAsTheApprovedPages) {
    Typeface& metrics = FormsTypeface();
    EXPECT_EQ(metrics.TextWidth("a\nb\tc", 10), metrics.TextWidth("a b c", 10));
    TimesMetrics approved;
    for (const int points : {5, 8, 10, 14}) {
        EXPECT_EQ(metrics.TextHeight(points), approved.TextHeight(points));
        for (char character = ' '; character <= '~'; ++character) {
            const std::string text(60, character);  // a unit more or less shows
            EXPECT_EQ(metrics.TextWidth(text, points), approved.TextWidth(text, points)) << text;
        }
        const char name[] = "G\u00e9nie: AVAILABLE, fi To 1,1-VOLATILE (mm)";
        EXPECT_EQ(metrics.TextWidth(name, points), approved.TextWidth(name, points));
    }
}

TEST(Typeface, IsNotTakenFromADamagedFile) {
    const TempDir dir;
    const std::string font = ReadAll(PathOf(FormsTypeface().File().path));
    const auto load = [&dir](const std::string& content) {
        return Typeface::Load(FontFile{dir.Write("font.ttf", content)});
    };
    EXPECT_NE(load(font), nullptr);
    EXPECT_EQ(Typeface::Load(FontFile{dir.Write("none", "") + ".ttf"}), nullptr);
    for (const std::string& content : {std::string(), std::string("no font"), font.substr(0, 5000),
                                       font.substr(0, font.size() - 1000)}) {
        EXPECT_EQ(load(content), nullptr) << content.size();
    }
    for (const char* const table : {"cmap", "glyf", "hmtx", "loca", "maxp"}) {
        std::string damaged = font;
        damaged.replace(damaged.find(table), 4, "gone");
        EXPECT_EQ(load(damaged), nullptr) << table;
    }
    // What is damaged elsewhere makes a document or none; the reading of neither ends the program.
    for (std::size_t step = 1009; step < 21'009; step += 500) {
        std::string damaged = font;
        for (std::size_t at = step; at < damaged.size(); at += step) {
            damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
        }
        if (const auto typeface = load(damaged)) {
            PdfFile pdf(*typeface);
            pdf.Add(JobOf({TextAt(1, 1, "\u03b1 text \u2603")}));
            std::string reason;
            EXPECT_NE(pdf.Content("Form 1", reason).empty(), reason.empty());
        }
    }
}

}  // namespace
}  // namespace qfr::test
