#include <cmath>
#include <gtest/gtest.h>

#include <QImage>

#include "platform/qt/PagePainter.h"
#include "tests/ui/PdfSupport.h"

namespace qfr {
namespace {

using test::LetterPage;
using test::RuleBetween;
using test::TextAt;

// The page at 100 dots per inch, so that 1 inch is at 100.
QImage Paint(const JobPage& page) {
    constexpr int kDots = 100;
    QImage image(page.width * kDots / kResolution, page.height * kDots / kResolution,
                 QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(double{kDots} / kResolution, double{kDots} / kResolution);
    FormFonts fonts;
    PaintPage(painter, page, fonts);
    return image;
}

int Darkest(const QImage& image, const QRect& where) {
    int darkest = 255;
    for (int y = where.top(); y <= where.bottom(); ++y) {
        for (int x = where.left(); x <= where.right(); ++x) {
            darkest = std::min(darkest, qGray(image.pixel(x, y)));
        }
    }
    return darkest;
}

TEST(TextMetrics, AreThoseOfTheTypeface) {
    ASSERT_FALSE(FormTypeface().empty()) << kNoTypeface;
    FormFonts fonts;
    QtTextMetrics metrics(fonts);
    // Digits are half an em wide, an em is 83.33 pixels at 10 points.
    EXPECT_EQ(metrics.TextWidth("0123456789", 10), 417);
    EXPECT_EQ(metrics.TextWidth("0123456789", 14), 583);
    EXPECT_EQ(metrics.TextWidth("", 10), 0);
    EXPECT_EQ(metrics.TextHeight(10), 92);
    EXPECT_EQ(metrics.TextHeight(8), 73);
    EXPECT_EQ(metrics.TextWidth("a\nb\tc", 10), metrics.TextWidth("a b c", 10));
}

TEST(TextMetrics, AddUpTheSingleCharacters) {
    FormFonts fonts;
    for (const std::string text :
         {"AVAToWa", "office ffl", "\xC3\xA4\xC2\xB5\xCE\xB1\xE2\x82\xAC"}) {
        double sum = 0;
        for (const QChar c : QString::fromStdString(text)) {
            sum += fonts.At(10).Width(QString(c).toStdString());
        }
        EXPECT_NEAR(fonts.At(10).Width(text), sum, 1e-6) << text;
        EXPECT_GT(sum, 0) << text;
    }
}

TEST(PaintPage, ATextsCellHidesWhatLiesUnderIt) {
    JobPage page = LetterPage();
    page.items.emplace_back(RuleBetween(1, 2.08, 5, 2.08));
    page.items.emplace_back(TextAt(2, 2, "          "));
    page.items.emplace_back(TextAt(1, 4, "MMMM"));
    page.items.emplace_back(RuleBetween(1, 4.05, 3, 4.05));
    const QImage image = Paint(page);
    EXPECT_LT(Darkest(image, {150, 205, 40, 6}), 150) << "the rule beside the cell";
    EXPECT_EQ(Darkest(image, {202, 202, 28, 10}), 255) << "the rule under the cell";
    EXPECT_LT(Darkest(image, {110, 405, 1, 1}), 100) << "a rule drawn after the text";
}

TEST(PaintPage, RulesHaveRoundEnds) {
    JobPage page = LetterPage();
    page.items.emplace_back(RuleBetween(2, 2, 4, 2, kResolution / 2));
    const QImage image = Paint(page);
    EXPECT_LT(qGray(image.pixel(180, 200)), 10) << "a quarter inch of cap";
    EXPECT_EQ(qGray(image.pixel(172, 200)), 255);
    EXPECT_EQ(qGray(image.pixel(179, 179)), 255) << "its corner";
    EXPECT_LT(qGray(image.pixel(300, 180)), 10);
}

}  // namespace
}  // namespace qfr
