// Printers, their setup, PDF files, and the dialogs that choose files, as the desktop has them; and
// pages as they are painted on all of them.
#include <gmock/gmock.h>

#include <QDesktopServices>
#include <QFileDialog>
#include <QImage>
#include <QMessageBox>
#include <QTextBrowser>

#include "platform/Text.h"
#include "platform/qt/DesktopSink.h"
#include "platform/qt/FileOpener.h"
#include "platform/qt/PagePainter.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/PrinterSetupDialog.h"
#include "platform/qt/QtFileChooser.h"
#include "platform/qt/QtMessages.h"
#include "tests/pdf/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

class DesktopSinkTest : public testing::Test, protected WindowRig {
  protected:
    DesktopSink desktop_{FormsTypeface(), chooser, log, printed, memory};
    const int pdf_ = static_cast<int>(InstalledPrinters().size());
    const PrintJob job_{"Form 1 VBLK01", kLetterPaper, {LetterPage()}};
};

TEST_F(DesktopSinkTest, APdfJobAsksForItsFileFirst) {
    EXPECT_EQ(desktop_.Printers().rbegin()[1], "PDF file");
    EXPECT_FALSE(desktop_.BeginJob(pdf_, job_.title)) << "cancelled";
    EXPECT_EQ(chooser.saved[0].kind, SaveKind::kPdf);
    memory.KeepFolder(kBatchFolder, Path("gone"));
    EXPECT_EQ(chooser.saved[0].fileName, "Form 1 VBLK01.pdf");
    desktop_.BeginJob(pdf_, ".a/b\x1B\u202E?.");
    EXPECT_EQ(chooser.saved[1].fileName,
              "a-b??"
              "-.pdf");

    chooser.answers = {{Path("one.pdf")}, {Path("gone/two.pdf")}};
    ASSERT_TRUE(desktop_.BeginJob(pdf_, job_.title));
    EXPECT_FALSE(std::filesystem::exists(Path("one.pdf"))) << "not before it is whole";
    desktop_.TakeJob(pdf_, job_);
    EXPECT_EQ(PagesOf(Read("one.pdf")), 1U);
    EXPECT_EQ(PrintedNote(printed.Jobs().at(0)), "Form 1 VBLK01 saved as one.pdf");

    ASSERT_TRUE(desktop_.BeginJob(pdf_, "Form 2"));
    EXPECT_EQ(chooser.saved.back().directory, TextOf(dir.Path())) << "the last one used";
    desktop_.TakeJob(pdf_, job_);
    EXPECT_THAT(log.TakeTexts(), testing::ElementsAre("two.pdf could not be written."));
    EXPECT_EQ(printed.Jobs().size(), 1U) << "what was not written is not printed";
}

TEST_F(DesktopSinkTest, NotesWhatAPrinterGotAndNotWhatIsOnlySeen) {
    for (const auto& [printer, notes] : {std::pair(0, 1U), {1, 1U}, {pdf_ + 1, 1U}}) {
        QTimer::singleShot(0, [] {
            if (auto* const preview = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                preview->reject();
            }
        });
        const auto package = desktop_.BeginPackage(printer, "Package");
        EXPECT_EQ(package->Take(job_).has_value(), printer == 1);
        if (printer != 0) {  // there, what was printed stays printed
            package->Finish();
        }
        EXPECT_EQ(package->IsOnlyShown(), printer > pdf_);
        EXPECT_EQ(printed.Jobs().size() + (printer == 0 ? 1U : 0U), notes);
    }
    EXPECT_EQ(PrintedNote(printed.Jobs().at(0)), "Form 1 VBLK01 sent to Lab");
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
    EXPECT_EQ(PagesOf(Read("all.pdf")), 2U);
}

TEST_F(DesktopSinkTest, TellsOfCharactersThatNoFontHas) {
    chooser.answers = {{Path("odd.pdf")}};
    ASSERT_TRUE(desktop_.BeginJob(pdf_, job_.title));
    desktop_.TakeJob(pdf_, JobOf({TextAt(1, 1, "\U0010FFFB")}));
    EXPECT_THAT(log.TakeTexts(),
                testing::ElementsAre("No installed font has the character U+10FFFB.\n"
                                     "A box is printed in its place."));
}

TEST(FileOpener, HandsOverTheFileThatTheNameSays) {
    struct Desktop : QTextBrowser {  // which is asked to open URLs
        QVariant loadResource(int, const QUrl&) override { return "opened"; }
    } desktop;
    QDesktopServices::setUrlHandler("file", &desktop, "setSource");
    for (const char* const file : {"/no such folder/50%25 #1?.pdf", "/\u00e9/\u65e5.pdf"}) {
        EXPECT_TRUE(OpenWithDesktop(file));
        EXPECT_EQ(desktop.source().toLocalFile().toStdString(), file);
    }
    QDesktopServices::unsetUrlHandler("file");
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
        const TempDir dir;
        Remembered memory{SettingsDir(dir.Path(), dir.Path())};
        PrinterSetupDialog dialog(printer, memory, nullptr);
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

TEST(PrinterSetup, ProposesTheChoiceOfTheRunBefore) {
    const TempDir dir;
    Remembered memory{SettingsDir(dir.Path(), dir.Path())};
    TimesMetrics metrics;
    JobLog sink;
    // The printers of a run, what is shown first, and what is then chosen.
    const std::tuple<std::vector<std::string>, const char*, const char*> runs[] = {
        {{"Lab", "PDF file"}, "|Lab|Letter (8.5 x 11 in)", "PDF file"},
        {{"Lab", "Office", "PDF file"}, "|PDF file|A4 (8.27 x 11.69 in)", "Office"},
        {{"Lab", "PDF file"}, "|Lab|A4 (8.27 x 11.69 in)", "Lab"}};
    for (const auto& [printers, shown, chosen] : runs) {
        TPrinter printer(metrics, sink);
        printer.Printers = printers;
        PrinterSetupDialog dialog(printer, memory, nullptr);
        EXPECT_EQ(printer.PrinterIndex, 0) << "nothing is taken silently";
        WindowUser user;
        user.window = &dialog;
        EXPECT_EQ(user.Shown("PrinterCombo", "PaperCombo"), shown);
        user.Get<QComboBox>("PrinterCombo").setCurrentText(chosen);
        user.Get<QComboBox>("PaperCombo").setCurrentIndex(4);
        dialog.accept();
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

TEST(PaintPage, CoversInTheOrderOfTheItems) {
    const JobPage page =
        LetterPage({RuleBetween(1, 2.08, 5, 2.08), TextAt(2, 2, "          "), TextAt(1, 4, "MMMM"),
                    RuleBetween(1, 4.05, 3, 4.05), RuleBetween(2, 6, 4, 6, kResolution / 2)});
    // At 100 dots per inch.
    QImage image(850, 1100, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(100.0 / kResolution, 100.0 / kResolution);
    PagePainter(FormsTypeface()).Paint(painter, page);
    const auto grey = [&image](int x, int y) { return qGray(image.pixel(x, y)); };
    EXPECT_LT(grey(170, 208), 150) << "the rule beside the cell";
    EXPECT_EQ(grey(215, 208), 255) << "the rule under the cell";
    EXPECT_LT(grey(110, 405), 150) << "a rule drawn after the text";
    EXPECT_LT(grey(180, 600), 150) << "the round end of a wide rule";
    EXPECT_EQ(grey(179, 579), 255) << "its corner";
}

// At 150 dots per inch.
Picture Painted(const JobPage& page, PagePainter& pages) {
    constexpr double kScale = 150.0 / kResolution;
    QImage image(qRound(page.width * kScale), qRound(page.height * kScale),
                 QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(kScale, kScale);
    pages.Paint(painter, page);
    Picture picture{image.width(), image.height(), {}};
    for (int y = 0; y < image.height(); ++y) {
        picture.greys.append(reinterpret_cast<const char*>(image.constScanLine(y)),
                             static_cast<std::size_t>(image.width()));
    }
    return picture;
}

TEST(PaintPage, ShowsWhatThePdfFileShows) {
    PagePainter pages(FormsTypeface());
    const auto compare = [&](const PrintJob& job) {
        SCOPED_TRACE(job.title);
        const std::vector<Picture> printed = Raster(PdfOf({job}, job.title));
        ASSERT_EQ(printed.size(), job.pages.size());
        for (std::size_t i = 0; i < printed.size(); ++i) {
            EXPECT_LE(StrayDots(printed[i], Painted(job.pages[i], pages)), 5) << "page " << i + 1;
        }
    };
    for (const ApprovedBatch& batch : ApprovedBatches()) {
        PrintApproved(batch, FormsTypeface(), [&](const auto&, const auto& job, const auto&) {
            if (job) {
                compare(*job);
            }
        });
    }
    // What no approved page has: characters of the typeface's other scripts and of another font,
    // boxes, and a text on white over another one.
    compare(JobOf({TextAt(1, 1, "\u0416\u03b1 \u2600 \U0010FFFC end", 14), TextAt(1, 2, "MMMMMM"),
                   TextAt(1.2, 2.02, "over"), RuleBetween(1, 3, 2, 3.5, 60)}));
    EXPECT_FALSE(FormsTypeface().TakeBoxes().empty());
}

TEST(QtMessages, TakeEscapeForNoOnlyWhereNoIsTheDefault) {
    // The key; whether No is the default; whether the key answers; the answer, or else that of Yes.
    const std::tuple<Qt::Key, bool, bool, bool> cases[] = {{Qt::Key_Escape, false, false, true},
                                                           {Qt::Key_Escape, true, true, false},
                                                           {Qt::Key_Return, true, true, false}};
    for (const auto& [key, noByDefault, answers, answer] : cases) {
        Message question{"Close?", "Warning"};
        question.noByDefault = noByDefault;
        bool answered = false;
        QTimer::singleShot(0, [&, pressed = key] {
            auto& box = *static_cast<QMessageBox*>(QApplication::activeModalWidget());
            QTest::keyClick(&box, pressed);
            answered = !box.isVisible();
            answered ? void() : box.button(QMessageBox::Yes)->click();
        });
        EXPECT_EQ(QtMessages().AskYesNo(question), answer);
        EXPECT_EQ(answered, answers);
    }
}

// While no window is active, or another one.
TEST(OwnerFocus, ComesBackFromADialogThatCloses) {
    WindowUser user;
    QWidget owner;
    QWidget other;
    QDialog dialog(&owner);
    for (QWidget* const each : {&owner, static_cast<QWidget*>(&dialog), &other}) {
        each->show();
        user.Face(*each);
    }
    dialog.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &owner; }));
}

}  // namespace
}  // namespace qfr::test
