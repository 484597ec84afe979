// PDF files as other programs see them.
#include "platform/BoxesNote.h"
#include "tests/pdf/PdfSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;

constexpr char kTitle[] = "Form 1 VBLK01";

std::vector<std::string> LinesOf(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(PdfFile, TextsCanBeFoundAsTheyWereTyped) {
    // Latin, of the typeface's other scripts, and of another font's: what needs one byte, two bytes
    // and a drawn character.
    const std::string text =
        "fi ffl AV (To) \\office 1,1-Dichloroethene \u00e4\u00f6\u00fc \u00b5g/L \u20ac \u03b1 "
        "\u0416 \u2603 \U0001F600";
    const std::string pdf =
        PdfOf({JobOf({TextAt(1, 1, text), TextAt(1, 2, text, 14), TextAt(1, 3, text, 8)})}, kTitle);
    const std::vector<std::string> found = LinesOf(DescribedBy("pdftotext", pdf));
    EXPECT_EQ(std::ranges::count(found, text), 3) << "without ligatures";
    const std::vector<std::string> fonts = LinesOf(DescribedBy("pdffonts", pdf));
    const auto font = [](const char* kind) {
        return MatchesRegex("[A-Z]{6}[+].*Serif.* " + std::string(kind) + " .* yes yes yes .*");
    };
    EXPECT_THAT(fonts, testing::Contains(font("TrueType")));
    EXPECT_THAT(fonts, testing::Contains(font("CID TrueType")));
    EXPECT_LT(pdf.size(), 20000U);
}

TEST(PdfFile, TellsOnceOfCharactersThatNoFontHas) {
    const auto typeface = Typeface::Load();
    for (const char* const known : {"Form 1", "line\nbreak\ttab \u202E", "\u2603"}) {
        typeface->TextWidth(known, 10);
        EXPECT_THAT(typeface->TakeBoxes(), testing::IsEmpty()) << known;
    }
    typeface->TextWidth("\U0010FFFD\U0010FFFC \U0010FFFC", 8);
    const std::vector<char32_t> boxes = typeface->TakeBoxes();
    BoxesNote note;
    EXPECT_EQ(note.About(boxes).value().text,
              "No installed font has the characters U+10FFFD and U+10FFFC.\n"
              "Boxes are printed in their place.");
    EXPECT_GT(typeface->TextWidth("\U0010FFFC", 8), 0);
    EXPECT_FALSE(note.About(typeface->TakeBoxes())) << "the same run";
    EXPECT_TRUE(BoxesNote().About(boxes)) << "another run, as a review is one";
    EXPECT_THAT(typeface->TakeBoxes(), testing::IsEmpty());
}

TEST(PdfFile, ACoveredTextCannotBeFound) {
    const std::string found = DescribedBy(
        "pdftotext", PdfOf({JobOf({TextAt(1, 1, "old"), TextAt(1, 1, "newer"),
                                   TextAt(1, 2, "partly covered"), TextAt(1, 2, "part")})},
                           kTitle));
    EXPECT_THAT(found, Not(HasSubstr("old")));
    EXPECT_THAT(found, AllOf(HasSubstr("newer"), HasSubstr("covered")));
}

TEST(PdfFile, InchesAreInchesOnEveryPaperAndTurnedPage) {
    const TextItem measured = TextAt(0.9, 1, "AVAVAVAV\u03b1");
    const PrintJob upright = JobOf({measured});
    PrintJob turned = JobOf({TextAt(9.5, 1, "turned")}, true);
    turned.pages.push_back(upright.pages.front());
    PrintJob a4 = JobOf({TextAt(0.9, 1, "metric")});
    a4.paper = {"A4", 8.27, 11.69};
    a4.pages[0].width = Pixels(8.27);
    a4.pages[0].height = Pixels(11.69);
    const std::string pdf = PdfOf({turned, a4, upright}, kTitle);
    const std::string info = DescribedBy("pdfinfo -f 1 -l 9", pdf);
    int page = 0;
    for (const char* const size : {"792 x 612", "612 x 792", "595.44 x 841.68", "612 x 792"}) {
        EXPECT_THAT(info, ContainsRegex("Page +" + std::to_string(++page) + " size: +" + size));
    }
    int levelWords = 0;
    for (const Word& word : WordsOf(pdf)) {
        SCOPED_TRACE(word.text);
        EXPECT_NEAR(word.left, word.text == "turned" ? 9.5 : 0.9, 0.003);
        EXPECT_NEAR(word.top, 1, 0.015);
        levelWords += word.right - word.left > word.bottom - word.top ? 1 : 0;
        if (word.text == measured.text) {
            EXPECT_NEAR(word.right - word.left, measured.width / double{kResolution}, 0.003)
                << "as wide as it was measured: not kerned";
        }
    }
    EXPECT_EQ(levelWords, 4);
}

TEST(PdfFile, PagesForAPrinterLieAsThePaperDoes) {
    const PrintJob job = JobOf({TextAt(9, 1, "turned"), RuleBetween(1, 2, 9, 2)}, true);
    std::string reason;
    const std::vector<Picture> lying = Raster(PdfForQueue(job, FormsTypeface(), reason));
    const std::vector<Picture> upright = Raster(PdfOf({job}, kTitle));
    ASSERT_EQ(lying.size(), 1U);
    EXPECT_EQ(StrayDots(upright[0].Turned(), lying[0]), 0);
    EXPECT_TRUE(lying[0].IsInk(300, 1000)) << "the rule";
}

TEST(PdfFile, ListsSeveralJobsByFormAndSample) {
    const auto job = [](const char* form, const char* sample, std::size_t pages) {
        PrintJob made = JobOf({TextAt(1, 1, "text")}, *sample == '\0');
        made.pages.resize(pages, made.pages.front());
        made.form = form;
        made.sample = sample;
        return made;
    };
    std::vector<PrintJob> jobs = {job("Form I", "MW-\x1B\u202E1", 2),
                                  job("Form I", "Gr\u00fcn \u03b1", 1), job("Form II", "", 2),
                                  job("Form\u009B IV", "", 1)};
    jobs[2].pages[0].items.clear();
    const std::string pdf = PdfOf(jobs, "Package");
    EXPECT_EQ(OutlineOf(pdf), "Form I 1 [MW-??1 1 Gr\u00fcn \u03b1 3 ]Form II 5 Form? IV 6 ")
        << "no entry leads to an empty page";
    ReadDocument document(pdf);
    EXPECT_EQ(document->getRoot().getKey("/PageMode").getName(), "/UseOutlines");
}

TEST(PdfFile, ReplacesTheFileUnlessThereIsNoPage) {
    const TempDir directory;
    const std::string file = directory.Write("Form 1 \u00e4.pdf", "an older one");
    PdfFile empty(FormsTypeface());
    EXPECT_EQ(empty.Write("none", file), "There is no page to print.");
    EXPECT_EQ(ReadAll(PathOf(file)), "an older one");
    PdfFile pdf(FormsTypeface());
    pdf.Add(JobOf({}));
    EXPECT_EQ(pdf.Write("Form 1 \x01\u2066\u00e4", file), std::nullopt);
    EXPECT_THAT(DescribedBy("pdfinfo", ReadAll(PathOf(file))),
                ContainsRegex("Title: +Form 1 [?][?]\u00e4\nCreator: +QFR Forms\n"));
}

}  // namespace
}  // namespace qfr::test
