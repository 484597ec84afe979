// Printers, their setup, PDF files, and the dialogs that choose files, as the desktop has them; and
// pages as they are painted on all of them.
#include <gmock/gmock.h>

#include <QFileDialog>
#include <QImage>
#include <QMessageBox>

#include "platform/Text.h"
#include "platform/qt/DesktopSink.h"
#include "platform/qt/PagePainter.h"
#include "platform/qt/PdfFile.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/PrinterSetupDialog.h"
#include "platform/qt/QtFileChooser.h"
#include "tests/ui/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

class DesktopSinkTest : public testing::Test, protected WindowRig {
  protected:
    DesktopSink desktop_{fonts, chooser, log};
    const int pdf_ = static_cast<int>(InstalledPrinters().size());
    const PrintJob job_{"Form 1 VBLK01", kLetterPaper, {LetterPage()}};
};

TEST_F(DesktopSinkTest, APdfJobAsksForItsFileFirst) {
    EXPECT_EQ(desktop_.Printers().rbegin()[1], "PDF file");
    EXPECT_FALSE(desktop_.BeginJob(pdf_, job_.title)) << "cancelled";
    EXPECT_EQ(chooser.saved[0].kind, SaveKind::kPdf);
    EXPECT_EQ(chooser.saved[0].fileName, "Form 1 VBLK01.pdf");
    desktop_.BeginJob(pdf_, ".a/b\x1B\u202E?.");
    EXPECT_EQ(chooser.saved[1].fileName,
              "a-b??"
              "-.pdf");

    chooser.answers = {{Path("one.pdf")}, {Path("gone/two.pdf")}};
    ASSERT_TRUE(desktop_.BeginJob(pdf_, job_.title));
    EXPECT_FALSE(std::filesystem::exists(Path("one.pdf"))) << "not before it is whole";
    desktop_.TakeJob(pdf_, job_);
    EXPECT_EQ(PagesOf(Read("one.pdf")), 1);

    ASSERT_TRUE(desktop_.BeginJob(pdf_, "Form 2"));
    EXPECT_EQ(chooser.saved.back().directory, TextOf(dir.Path())) << "the last one used";
    desktop_.TakeJob(pdf_, job_);
    EXPECT_THAT(log.TakeTexts(), testing::ElementsAre("two.pdf could not be written."));
}

TEST_F(DesktopSinkTest, JoinsAPackageWhenItIsFinished) {
    EXPECT_EQ(desktop_.BeginPackage(pdf_, "Package"), nullptr) << "cancelled";
    for (const bool finished : {false, true}) {
        chooser.answers = {{Path("all.pdf")}};
        const auto package = desktop_.BeginPackage(pdf_, "Package");
        EXPECT_FALSE(package->Take(job_) || package->Take(job_));
        if (finished) {
            package->Finish();
        }
        EXPECT_EQ(package->Printed(), finished ? 2U : 0U);
        EXPECT_EQ(std::filesystem::exists(Path("all.pdf")), finished);
    }
    EXPECT_EQ(PagesOf(Read("all.pdf")), 2);
}

TEST(PrinterSetup, GivesThePrinterWhatIsChosen) {
    using Choice = std::pair<Paper, const char*>;
    const Choice letter{kLetterPaper, "Letter (8.5 x 11 in)"};
    const Choice a4{{"A4", 8.27, 11.69}, "A4 (8.27 x 11.69 in)"};
    const Choice label{{"Label", 4, 6}, "Label (4 x 6 in)"};  // in no list
    const std::tuple<Choice, Choice, bool> cases[] = {
        {letter, a4, true}, {label, label, true}, {label, letter, true}, {a4, letter, false}};
    TimesMetrics metrics;
    JobLog sink;
    for (const auto& [before, chosen, accepted] : cases) {
        TPrinter printer(metrics, sink);
        printer.Printers = {"Lab", "PDF file", "Screen preview"};
        printer.PrinterIndex = 1;
        printer.PaperSize = before.first;
        PrinterSetupDialog dialog(printer, nullptr);
        dialog.show();
        WindowUser user;
        user.Face(dialog);
        EXPECT_EQ(user.Shown("PrinterCombo", "PaperCombo"),
                  "|PDF file|" + std::string(before.second));
        user.Press(Qt::Key_Down);
        user.Get<QComboBox>("PaperCombo").setCurrentText(chosen.second);
        user.Click(accepted ? "OkButton" : "CancelButton");
        EXPECT_EQ(printer.PaperSize, accepted ? chosen.first : before.first);
        EXPECT_EQ(printer.PrinterIndex, accepted ? 2 : 1);
    }
}

// For a user who types into the dialog, on another filter when one is given.
struct FileChooserTest : testing::Test {
    std::string Chosen(auto ask, const auto& request, const char* keys, int filter = 0) {
        QTimer::singleShot(0, [&] {
            auto& dialog = *qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            WindowUser user;
            user.Face(dialog);
            filters = dialog.nameFilters().join('|').toStdString();
            shown = user.Shown("fileTypeCombo", "fileNameEdit");
            EXPECT_EQ(dialog.directory().path().toStdString(), TextOf(dir.Path()));
            auto& types = user.Get<QComboBox>("fileTypeCombo");
            types.setCurrentIndex(filter > 0 ? filter - 1 : types.currentIndex());
            emit types.activated(types.currentIndex());
            user.Enter("fileNameEdit", keys);
        });
        QtFileChooser chooser(log);
        const auto chosen = (chooser.*ask)(request);
        ended = chosen ? chosen->kind : FileKind::kAny;
        return chosen ? chosen->files.at(0).substr(TextOf(dir.Path()).size()) : "none";
    }

    const TempDir dir;
    MessageLog log;
    std::string filters;  // of the dialog, with their patterns
    std::string shown;    // its filter and file name
    FileKind ended{};     // the kind that an open dialog ended with
};

TEST_F(FileChooserTest, AddsTheExtensionOfTheKindToANameWithoutOne) {
    const std::tuple<SaveKind, std::string, const char*> kinds[] = {
        {SaveKind::kBatch, "|QFR Forms (*.qff)|Form 1", ".qff"},
        {SaveKind::kLaboratoryFile, "|Text Files (*.qff;*.txt)|Form 1", ".txt"},
        {SaveKind::kPdf, "|PDF Files (*.pdf)|Form 1", ".pdf"},
        {SaveKind::kValues, "|JSON Documents (*.json)|Form 1", ".json"}};
    for (const auto& [kind, first, ending] : kinds) {
        const SaveRequest request{kind, TextOf(dir.Path()), "Form 1"};
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept\r"), "/kept" + std::string(ending));
        EXPECT_EQ(shown, first);
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept.old\r"), "/kept.old");
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept\33"), "none");
    }
}

TEST_F(FileChooserTest, AsksOnceMoreForAReadOnlyFile) {
    std::filesystem::permissions(dir.Write("kept.qff", ""), std::filesystem::perms::owner_read);
    for (const bool answer : {true, false}) {
        log.answers = {answer};
        QTimer user;
        user.callOnTimeout([this] {
            auto* const active = QApplication::activeModalWidget();
            if (auto* const box = qobject_cast<QMessageBox*>(active)) {
                box->button(QMessageBox::Yes)->click();
            } else if (!log.shown.empty()) {
                static_cast<QDialog*>(active)->reject();
            }
        });
        user.start(50);
        const SaveRequest request{SaveKind::kBatch, TextOf(dir.Path()), ""};
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept\r"), answer ? "/kept.qff" : "none");
        EXPECT_EQ(log.TakeTitles(), std::vector<std::string>{"Warning"});
    }
}

TEST_F(FileChooserTest, OpensOnTheFilterAndTellsTheOneItEndedWith) {
    dir.Write("kept.x", "");
    for (int filter = 1; filter <= 6; ++filter) {
        const OpenRequest request{static_cast<FileKind>(filter - 1),
                                  TextOf(dir.Path() / "gone" / "too")};
        for (const int end : {filter, 7 - filter}) {
            EXPECT_EQ(Chosen(&QtFileChooser::Open, request, "kept.x\r", end == filter ? 0 : end),
                      "/kept.x");
            EXPECT_EQ(static_cast<int>(ended) + 1, end);
        }
    }
    EXPECT_EQ(filters,
              "Quantitation Files (*.prn) (*.prn)|Calibration Files (*.cal) (*.cal)|"
              "Check Calib. Files (*.check) (*.check)|QFRForm File (*.qff) (*.qff)|"
              "Text Files (*.txt) (*.txt)|All Files (*.*) (*)");
}

TEST_F(FileChooserTest, TakesAFolderThatIsThere) {
    std::filesystem::create_directory(dir.Path() / "tables");
    for (const auto& [keys, folder] : {std::pair("tables\r", TextOf(dir.Path() / "tables")),
                                       std::pair("tables\33", std::string())}) {
        QTimer::singleShot(0, [keys = keys] {
            WindowUser user;
            user.Face(*QApplication::activeModalWidget());
            user.Enter("fileNameEdit", keys);
        });
        EXPECT_EQ(QtFileChooser(log).Folder(TextOf(dir.Path())).value_or(""), folder);
    }
}

using namespace ::testing;

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
