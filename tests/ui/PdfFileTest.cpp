// Pages as they are painted and as they stand in PDF files.
#include <gmock/gmock.h>

#include <QImage>

#include "platform/qt/PagePainter.h"
#include "platform/qt/PdfFile.h"
#include "tests/ui/PdfSupport.h"

namespace qfr::test {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

PrintJob JobOf(const std::vector<PageItem>& items, bool turned = false) {
    return {"Form 1 VBLK01", kLetterPaper, {LetterPage(items, turned)}};
}

std::string Render(const std::vector<PrintJob>& jobs) {
    FormFonts fonts;
    return RenderPdf(jobs, "Form 1 VBLK01", fonts).toStdString();
}

TEST(RenderPdf, TextsCanBeFoundInASubsetOfTheOneTypeface) {
    const std::string text =
        "fi ffl AV To office 1,1-Dichloroethene \xC3\xA4\xC3\xB6\xC3\xBC \xC2\xB5g/L \xCE\xB1";
    const std::string pdf =
        Render({JobOf({TextAt(1, 1, text), TextAt(1, 2, text, 14), TextAt(1, 3, text, 8)})});
    const QList<QByteArray> found = DescribedBy("pdftotext", {}, pdf).split('\n');
    EXPECT_EQ(found.count(QByteArray::fromStdString(text)), 3) << "without ligatures";
    const QList<QByteArray> fonts = DescribedBy("pdffonts", {}, pdf).trimmed().split('\n');
    ASSERT_EQ(fonts.size(), 3) << "two lines of head, one font";
    EXPECT_THAT(fonts[2].toStdString(),
                testing::MatchesRegex(".*Serif.*TrueType.* yes +(no|yes) +yes .*"));
    EXPECT_LT(pdf.size(), 60000U);
}

TEST(RenderPdf, ACoveredTextCannotBeFound) {
    const std::string pdf = Render({JobOf({TextAt(1, 1, "old"), TextAt(1, 1, "newer"),
                                           TextAt(1, 2, "partly covered"), TextAt(1, 2, "part")})});
    const std::string found = DescribedBy("pdftotext", {}, pdf).toStdString();
    EXPECT_THAT(found, testing::Not(HasSubstr("old")));
    EXPECT_THAT(found, testing::AllOf(HasSubstr("newer"), HasSubstr("covered")));
}

TEST(RenderPdf, InchesAreInchesOnEveryPaperAndTurnedPage) {
    const TextItem measured = TextAt(0.9, 1, "AVAVAVAV");
    const PrintJob upright = JobOf({measured});
    PrintJob turned = JobOf({TextAt(9.5, 1, "turned")}, true);
    turned.pages.push_back(upright.pages.front());
    PrintJob a4 = JobOf({TextAt(0.9, 1, "metric")});
    a4.paper = {"A4", 8.27, 11.69};
    const std::string pdf = Render({turned, a4, upright});
    const std::string info = DescribedBy("pdfinfo", {"-f", "1", "-l", "9"}, pdf).toStdString();
    int page = 0;
    for (const char* const size : {"792 x 612", "612 x 792", "595 x 842", "612 x 792"}) {
        EXPECT_THAT(info, ContainsRegex("Page +" + std::to_string(++page) + " size: +" + size));
    }
    for (const Word& word : WordsOf(pdf)) {
        SCOPED_TRACE(word.text);
        EXPECT_NEAR(word.left, word.text == "turned" ? 9.5 : 0.9, 0.003);
        EXPECT_NEAR(word.top, 1, 0.015);
        EXPECT_GT(word.right - word.left, word.bottom - word.top) << "does not lie level";
        if (word.text == measured.text) {
            EXPECT_NEAR(word.right - word.left, measured.width / double{kResolution}, 0.003)
                << "as wide as it was measured: not kerned";
        }
    }
}

TEST(WritePdf, ListsSeveralJobsByFormAndSample) {
    const TempDir directory;
    const std::string file = directory.Write("package.pdf", "");
    FormFonts fonts;
    const auto job = [](const char* form, const char* sample, std::size_t pages) {
        PrintJob made = JobOf({TextAt(1, 1, "text")}, *sample == '\0');
        made.pages.resize(pages, made.pages.front());
        made.form = form;
        made.sample = sample;
        return made;
    };
    std::vector<PrintJob> jobs = {job("Form I", "MW-\x1B\u202E1", 2),
                                  job("Form I", "Gr\xC3\xBCn \xCE\xB1", 1), job("Form II", "", 2),
                                  job("Form\u009B IV", "", 1)};
    jobs[2].pages[0].items.clear();
    ASSERT_EQ(WritePdf(jobs, "Package", file, fonts), std::nullopt);
    const std::string pdf = ReadAll(PathOf(file));
    EXPECT_EQ(OutlineOf(pdf), "Form I 1 [MW-??1 1 Gr\xC3\xBCn \xCE\xB1 3 ]Form II 5 Form? IV 6 ")
        << "no entry leads to an empty page";
    EXPECT_THAT(pdf, HasSubstr("/PageMode /UseOutlines"));
}

TEST(WritePdf, ReplacesTheFileUnlessThereIsNoPage) {
    const TempDir directory;
    const std::string file = directory.Write("Form 1 \xC3\xA4.pdf", "an older one");
    FormFonts fonts;
    EXPECT_NE(WritePdf({}, "none", file, fonts), std::nullopt);
    EXPECT_EQ(ReadAll(PathOf(file)), "an older one");
    EXPECT_EQ(WritePdf({JobOf({})}, "Form 1 \x01\u2066\xC3\xA4", file, fonts), std::nullopt);
    const std::string info = DescribedBy("pdfinfo", {}, ReadAll(PathOf(file))).toStdString();
    EXPECT_THAT(info, ContainsRegex("Title: +Form 1 \\?\\?\xC3\xA4\nCreator: +QFR Forms\n"));
}

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
