#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QScrollBar>

#include "platform/qt/PreviewWindow.h"
#include "platform/qt/PrinterQueue.h"
#include "tests/pdf/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr {
namespace {

// Printer and title of each job that was sent to a printer.
std::vector<std::string>& SentJobs() {
    static std::vector<std::string> sent;
    return sent;
}

}  // namespace

// In place of the program's own: no window of these tests prints.
std::vector<std::string> InstalledPrinters() {
    return {"Lab", "Stopped"};
}
std::optional<std::string> PrintOnQueue(const PrintJob& job, const std::string& printer,
                                        Typeface& /*typeface*/) {
    SentJobs().push_back(printer + ": " + job.title);
    return printer == "Lab" ? std::nullopt : std::optional<std::string>("It is stopped.");
}
std::string PrintingLibrary() {
    return "";
}

namespace test {
namespace {

using testing::ElementsAre;

class Preview : public testing::Test, protected WindowRig {
  protected:
    Preview() {
        preview_.show();
        Face(preview_);
    }
    // Of its pages, the first one is empty; a text stands on the second and third one.
    static PrintJob Job(const char* title, std::size_t pages) {
        PrintJob job{title, kLetterPaper,
                     std::vector(pages, LetterPage({RuleBetween(1, 1, 2, 1)}))};
        job.pages[0].items.clear();
        for (std::size_t page : {1U, 2U}) {
            if (page < pages) {
                job.pages[page].items = {TextAt(7, 10, "1,4-Difluorobenzene")};
            }
        }
        return job;
    }
    void Choose(const char* list, const char* text) {
        auto& combo = Get<QComboBox>(list);
        combo.setCurrentText(text);
        emit combo.activated(combo.currentIndex());
    }
    // How often the key has to be pressed before this shows.
    int PressesUntil(const char* shown, Qt::Key key, Qt::KeyboardModifiers modifiers) {
        int presses = 0;
        for (; Shown("PageEdit", "FormCombo") != shown && presses < 100; ++presses) {
            Press(key, modifiers);
        }
        return presses;
    }
    // Dots of the view that are neither black nor white nor grey.
    int ColouredDots() {
        const QImage seen = view_.viewport()->grab().toImage();
        int dots = 0;
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                const QColor dot = seen.pixelColor(x, y);
                dots += dot.hsvSaturation() > 40 ? 1 : 0;
            }
        }
        return dots;
    }

    PdfSaver saver_{chooser, log, memory};
    const PreviewServices services_{FormsTypeface(), saver_, log, printed, memory};
    PreviewWindow preview_{
        {Job("Form 5 BFB01", 2), Job("Form 6", 18)}, "Data Package", services_, nullptr};
    PageView& view_ = *preview_.findChild<PageView*>("PageView");
};

TEST_F(Preview, KeysWalkThroughThePagesOfTheJobs) {
    EXPECT_EQ(Shown("PageEdit"), "|2") << "the first one is empty";
    const std::tuple<const char*, bool> zooms[] = {
        {"Fit width", true}, {"Fit page", false}, {"50 %", false}, {"400 %", true}};
    const std::tuple<Qt::Key, Qt::Key, Qt::KeyboardModifiers> keys[] = {
        {Qt::Key_PageDown, Qt::Key_PageUp, {}}, {Qt::Key_Space, Qt::Key_Space, Qt::ShiftModifier}};
    for (const auto& [zoom, tall] : zooms) {
        SCOPED_TRACE(zoom);
        Choose("ZoomCombo", zoom);
        for (const auto& [down, up, modifiers] : keys) {
            Press(Qt::Key_Home);
            const int presses = PressesUntil("|3|Form 6", down, {});
            EXPECT_EQ(presses > 2, tall) << presses;
            EXPECT_EQ(PressesUntil("|1|Form 5 BFB01", up, modifiers) > 2, tall);
        }
        // The last pages of "50 %" cannot scroll to the top, which must not stop the count.
        for (const auto modifier : {Qt::NoModifier, Qt::ControlModifier}) {
            Press(Qt::Key_End, modifier);
            EXPECT_EQ(PressesUntil("|18|Form 6", Qt::Key_PageUp, {}) > 2, tall);
            EXPECT_LT(PressesUntil("|20|Form 6", Qt::Key_PageDown, {}), 100);
            Press(Qt::Key_Home, modifier);
            EXPECT_EQ(Shown("PageEdit", "FormCombo"), "|1|Form 5 BFB01");
        }
        Choose("FormCombo", "Form 6");
        EXPECT_EQ(Shown("PageEdit"), "|3");
        view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->maximum());
        EXPECT_EQ(Shown("PageEdit"), "|20");
        view_.verticalScrollBar()->setValue(0);
    }
}

TEST_F(Preview, RemembersZoomAndThumbnails) {
    const std::pair<Qt::Key, const char*> zooms[] = {{Qt::Key_0, "|100 %"},
                                                     {Qt::Key_Plus, "|150 %"},
                                                     {Qt::Key_Equal, "|200 %"},
                                                     {Qt::Key_Minus, "|150 %"}};
    for (const auto& [key, zoom] : zooms) {
        Press(key, Qt::ControlModifier);
        EXPECT_EQ(Shown("ZoomCombo"), zoom);
    }
    auto& thumbnails = Get<QListView>("Thumbnails");
    EXPECT_FALSE(thumbnails.isVisible());
    Press(Qt::Key_F9);
    EXPECT_TRUE(thumbnails.isVisible());
    EXPECT_EQ(thumbnails.currentIndex().row(), 1);
    thumbnails.setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(Shown("PageEdit"), "|3");

    PreviewWindow next({Job("Form 6", 1)}, "Form 6", services_, nullptr);
    next.show();
    Face(next);
    EXPECT_EQ(Shown("ZoomCombo"), "|150 %");
    EXPECT_TRUE(Get("Thumbnails").isVisible());
}

TEST_F(Preview, FindsTextsAndMarksThem) {
    EXPECT_EQ(ColouredDots(), 0);
    Type("^fFLUORO");
    const auto found = [&] {
        return Get<QLabel>("FindCount").text().toStdString() + Shown("PageEdit");
    };
    EXPECT_EQ(found(), "1 of 3|2");
    EXPECT_GT(ColouredDots(), 50) << "at the end of the page";
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*> steps[] = {
        {Qt::Key_Return, {}, "2 of 3|4"},
        {Qt::Key_F3, {}, "3 of 3|5"},
        {Qt::Key_F3, {}, "1 of 3|2"},
        {Qt::Key_F3, Qt::ShiftModifier, "3 of 3|5"},
        {Qt::Key_Return, Qt::ShiftModifier, "2 of 3|4"}};
    for (const auto& [key, modifiers, place] : steps) {
        Press(key, modifiers);
        EXPECT_EQ(found(), place);
    }
    Type("x");
    EXPECT_EQ(found(), "Not found|4");
    Type("\b\33");
    EXPECT_FALSE(Get("FindEdit").isVisible());
    EXPECT_EQ(ColouredDots(), 0);
    Type("^f");
    EXPECT_EQ(found(), "|4") << "only opened";
    Type("\r");
    EXPECT_EQ(found(), "2 of 3|4");
    Type("\33\33");
    EXPECT_FALSE(preview_.isVisible());
}

TEST_F(Preview, FoldsItsButtonsIntoAMenu) {
    QMenu& menu = *Get<QPushButton>("MoreButton").menu();
    const auto folded = [&](int width) {
        preview_.resize(width, 400);
        emit menu.aboutToShow();
        std::string captions;
        for (const QAction* const action : menu.actions()) {
            captions +=
                action->text().remove('&').toStdString() + (action->isEnabled() ? "|" : "-");
        }
        return captions;
    };
    EXPECT_EQ(folded(2000), "");
    EXPECT_FALSE(Get("MoreButton").isVisible());
    Press(Qt::Key_Home);
    ASSERT_EQ(folded(0), "Print...|Save as PDF...|Previous-Next|Thumbnails|Find...|Close|");
    EXPECT_TRUE(Get("MoreButton").isVisible());
    menu.actions().at(4)->trigger();
    EXPECT_TRUE(Get("Thumbnails").isVisible());
    EXPECT_LE(preview_.width(), 853);
}

TEST_F(Preview, PrintsAndSavesAllItsForms) {
    SentJobs().clear();
    for (const char* const printer : {"", "Lab", "Stopped"}) {
        QTimer::singleShot(0, [&] {
            auto* const choice = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            choice->findChild<QComboBox*>()->setCurrentText(printer);
            choice->done(*printer ? QDialog::Accepted : QDialog::Rejected);
        });
        Click("PrintButton");
    }
    EXPECT_THAT(SentJobs(),
                ElementsAre("Lab: Form 5 BFB01", "Lab: Form 6", "Stopped: Form 5 BFB01"))
        << "a printer that fails is not tried again";
    EXPECT_THAT(log.TakeTexts(),
                ElementsAre("Form 5 BFB01 could not be printed on Stopped.\nIt is stopped."));
    ASSERT_EQ(printed.Jobs().size(), 1U);
    EXPECT_EQ(PrintedNote(printed.Jobs().at(0)), "2 forms sent to Lab");

    chooser.answers = {{Path("all.pdf")}};
    Click("SaveButton");
    EXPECT_EQ(chooser.saved.at(0).fileName, "Data Package.pdf");
    EXPECT_EQ(PrintedNote(printed.Jobs().at(1)), "2 forms saved as all.pdf");
    const std::string pdf = Read("all.pdf");
    EXPECT_EQ(OutlineOf(pdf), "Form 5 BFB01 2 Form 6 4 ");
    EXPECT_EQ(PagesOf(pdf), 20U);
}

}  // namespace
}  // namespace test
}  // namespace qfr
