#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/FileLookup.h"
#include "platform/qt/PdfFile.h"
#include "tests/Support.h"
#include "tests/ui/PdfSupport.h"

namespace qfr {
namespace {

using test::LetterPage;
using test::RuleBetween;
using test::TextAt;

PrintJob JobOf(std::vector<PageItem> items,
               PageOrientation orientation = PageOrientation::kPortrait) {
    JobPage page = LetterPage(orientation);
    page.items = std::move(items);
    return {"Form 1 VBLK01", kLetterPaper, {page}};
}

QByteArray Render(const std::vector<PrintJob>& jobs) {
    FormFonts fonts;
    return RenderPdf(jobs, "Form 1 VBLK01", fonts);
}

TEST(RenderPdf, TextsCanBeFoundWithoutLigatures) {
    const std::string text =
        "fi ffl AV To office 1,1-Dichloroethene \xC3\xA4\xC3\xB6\xC3\xBC \xC2\xB5g/L \xCE\xB1";
    const QString found = test::Poppler("pdftotext", {}, Render({JobOf({TextAt(1, 1, text)})}));
    EXPECT_EQ(found.trimmed().toStdString(), text);
}

TEST(RenderPdf, EmbedsASubsetOfTheOneTypeface) {
    const QByteArray pdf =
        Render({JobOf({TextAt(1, 1, "ten"), TextAt(1, 2, "fourteen", 14), TextAt(1, 3, "8", 8)})});
    const QStringList fonts = test::Poppler("pdffonts", {}, pdf).trimmed().split('\n');
    ASSERT_EQ(fonts.size(), 3) << "two lines of head, one font";
    EXPECT_THAT(fonts[2].toStdString(),
                testing::MatchesRegex(".*Serif.*TrueType.* yes +(no|yes) +yes .*"));
    EXPECT_LT(pdf.size(), 60000);
}

TEST(RenderPdf, InchesAreInches) {
    const QByteArray pdf =
        Render({JobOf({TextAt(0.9, 1.425, "AVAVAVAV"), TextAt(6.75, 10.45, "TQW04.2"),
                       RuleBetween(0.9, 5, 7.85, 5)})});
    const auto words = test::WordsOf(pdf);
    ASSERT_EQ(words.size(), 2U);
    EXPECT_NEAR(words[0].left, 0.9, 0.003);
    EXPECT_NEAR(words[0].top, 1.425, 0.01);
    EXPECT_NEAR(words[1].left, 6.75, 0.003);
    EXPECT_NEAR(words[1].top, 10.45, 0.01);
    const TextItem measured = TextAt(0, 0, "AVAVAVAV");
    EXPECT_NEAR(words[0].right - words[0].left, measured.width / double{kResolution}, 0.003)
        << "as wide as it was measured: not kerned";

    const QImage image = test::Rasterise(pdf, 1, 100);
    EXPECT_EQ(image.size(), QSize(850, 1100));
    EXPECT_LT(qGray(image.pixel(92, 500)), 128);
    EXPECT_LT(qGray(image.pixel(783, 500)), 128);
    EXPECT_EQ(qGray(image.pixel(87, 500)), 255);
    EXPECT_EQ(qGray(image.pixel(788, 500)), 255);
    EXPECT_EQ(qGray(image.pixel(400, 503)), 255);
}

TEST(RenderPdf, ACoveredTextCannotBeFound) {
    const QByteArray pdf = Render({JobOf({TextAt(1, 1, "old"), TextAt(1, 1, "newer"),
                                          TextAt(1, 2, "partly covered"), TextAt(1, 2, "part")})});
    const QString found = test::Poppler("pdftotext", {}, pdf);
    EXPECT_FALSE(found.contains("old")) << found.toStdString();
    EXPECT_TRUE(found.contains("newer")) << found.toStdString();
    EXPECT_TRUE(found.contains("covered")) << found.toStdString();
}

TEST(RenderPdf, PapersAndTurnedPagesMixInOneDocument) {
    const PrintJob upright = JobOf({TextAt(0.9, 1, "upright")});
    PrintJob turned = JobOf({TextAt(9.5, 1, "turned")}, PageOrientation::kLandscape);
    turned.pages.push_back(upright.pages.front());
    PrintJob a4 = JobOf({TextAt(0.9, 1, "metric")});
    a4.paper = {"A4", 8.27, 11.69};
    for (const auto& [jobs, sizes] :
         {std::pair{std::vector{upright, turned, a4},
                    std::vector<std::string>{"612 x 792", "792 x 612", "612 x 792", "595 x 842"}},
          std::pair{std::vector{turned, a4},
                    std::vector<std::string>{"792 x 612", "612 x 792", "595 x 842"}}}) {
        const QByteArray pdf = Render(jobs);
        const std::string info =
            test::Poppler("pdfinfo", {"-f", "1", "-l", "9"}, pdf).toStdString();
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            EXPECT_THAT(info, testing::ContainsRegex("Page +" + std::to_string(i + 1) + " size: +" +
                                                     sizes[i]));
        }
        for (const test::Word& word : test::WordsOf(pdf)) {
            EXPECT_NEAR(word.left, word.text == "turned" ? 9.5 : 0.9, 0.003)
                << word.text.toStdString();
            EXPECT_NEAR(word.top, 1, 0.015) << word.text.toStdString();
            EXPECT_GT(word.right - word.left, word.bottom - word.top)
                << word.text.toStdString() << " does not lie level";
        }
    }
}

TEST(WritePdf, ReplacesTheFileAndNamesTheDocument) {
    const test::TempDir directory;
    const std::string file = directory.Write("Form 1 \xC3\xA4.pdf", "an older one");
    FormFonts fonts;
    EXPECT_EQ(WritePdf({JobOf({TextAt(1, 1, "x")})}, "Form 1 \xC3\xA4", file, fonts), std::nullopt);
    const std::string content = test::ReadAll(PathOf(file));
    const QString info = test::Poppler("pdfinfo", {}, QByteArray::fromStdString(content));
    EXPECT_THAT(info.toStdString(), testing::ContainsRegex("Title: +Form 1 \xC3\xA4\n"));
    EXPECT_THAT(info.toStdString(), testing::ContainsRegex("Creator: +QFR Forms\n"));
}

TEST(WritePdf, SaysWhyItFailedAndLeavesNothing) {
    const test::TempDir directory;
    const std::string kept = directory.Write("kept.pdf", "old");
    FormFonts fonts;
    EXPECT_NE(WritePdf({}, "none", kept, fonts), std::nullopt);
    EXPECT_NE(WritePdf({PrintJob{}}, "none", kept, fonts), std::nullopt);
    EXPECT_EQ(test::ReadAll(PathOf(kept)), "old");
    const PrintJob job = JobOf({TextAt(1, 1, "x")});
    EXPECT_NE(WritePdf({job}, "x", TextOf(directory.Path() / "gone" / "x.pdf"), fonts),
              std::nullopt);
    EXPECT_NE(WritePdf({job}, "x", TextOf(directory.Path()), fonts), std::nullopt);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory.Path()), {}), 1);
}

}  // namespace
}  // namespace qfr
