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
    const std::tuple<int, int, bool, const char*> points[] = {
        {170, 208, true, "the rule beside the cell"},
        {215, 208, false, "the rule under the cell"},
        {110, 405, true, "a rule drawn after the text"},
        {180, 600, true, "the round end of a wide rule"},
        {172, 600, false, "beyond it"},
        {179, 579, false, "its corner"}};
    for (const auto& [x, y, black, what] : points) {
        const int grey = qGray(image.pixel(x, y));
        EXPECT_TRUE(black ? grey < 150 : grey == 255) << what << ": " << grey;
    }
}

}  // namespace
}  // namespace qfr::test
