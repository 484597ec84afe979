#include <QImage>

#include "platform/qt/PagePainter.h"
#include "tests/ui/PdfSupport.h"

namespace qfr::test {
namespace {

TEST(TextMetrics, AreThoseOfTheTypeface) {
    ASSERT_FALSE(FormTypeface().empty()) << kNoTypeface;
    FormFonts fonts;
    QtTextMetrics metrics(fonts);
    EXPECT_EQ(metrics.TextWidth("a\nb\tc", 10), metrics.TextWidth("a b c", 10));
    // What the approved pages are measured with.
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

TEST(PaintPage, CoversInTheOrderOfTheItems) {
    const JobPage page =
        LetterPage({RuleBetween(1, 2.08, 5, 2.08), TextAt(2, 2, "          "), TextAt(1, 4, "MMMM"),
                    RuleBetween(1, 4.05, 3, 4.05), RuleBetween(2, 6, 4, 6, kResolution / 2)});
    // At 100 dots per inch.
    QImage image(850, 1100, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(100.0 / kResolution, 100.0 / kResolution);
    FormFonts fonts;
    PaintPage(painter, page, fonts);
    const auto grey = [&image](int x, int y) { return qGray(image.pixel(x, y)); };
    EXPECT_LT(grey(170, 208), 150) << "the rule beside the cell";
    EXPECT_EQ(grey(215, 208), 255) << "the rule under the cell";
    EXPECT_LT(grey(110, 405), 150) << "a rule drawn after the text";
    EXPECT_LT(grey(180, 600), 150) << "the round end of a wide rule";
    EXPECT_EQ(grey(179, 579), 255) << "its corner";
}

}  // namespace
}  // namespace qfr::test
