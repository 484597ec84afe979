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
    static PrintJob Job(const char* title, std::size_t pages) {
        return {title, kLetterPaper, std::vector(pages, LetterPage({RuleBetween(1, 1, 2, 1)}))};
    }
    void Choose(const char* list, const char* text) {
        auto& combo = Get<QComboBox>(list);
        combo.setCurrentText(text);
        emit combo.activated(combo.currentIndex());
    }

    PdfSaver saver_{chooser, log, memory};
    PreviewWindow preview_{{Job("Form 5 BFB01", 2), Job("Form 6", 18)},
                           "Data Package",
                           FormsTypeface(),
                           saver_,
                           log,
                           nullptr};
    PageView& view_ = *preview_.findChild<PageView*>("PageView");
};

TEST_F(Preview, KeysPageThroughTheJobs) {
    const std::pair<Qt::Key, const char*> steps[] = {
        {Qt::Key_PageDown, "|2|Form 5 BFB01"}, {Qt::Key_PageDown, "|3|Form 6"},
        {Qt::Key_End, "|20|Form 6"},           {Qt::Key_PageDown, "|20|Form 6"},
        {Qt::Key_PageUp, "|19|Form 6"},        {Qt::Key_Home, "|1|Form 5 BFB01"},
    };
    // The last pages of "50 %" cannot scroll to the top, which must not stop the count.
    for (const char* zoom : {"Fit width", "Fit page", "50 %", "400 %"}) {
        Choose("ZoomCombo", zoom);
        for (const auto& [key, page] : steps) {
            Press(key);
            EXPECT_EQ(Shown("PageEdit", "FormCombo"), page) << zoom;
        }
        Choose("FormCombo", "Form 6");
        EXPECT_EQ(Shown("PageEdit"), "|3") << zoom;
        view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->maximum());
        EXPECT_EQ(Shown("PageEdit"), "|20") << zoom;
        view_.verticalScrollBar()->setValue(0);
    }
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

    chooser.answers = {{Path("all.pdf")}};
    Click("SaveButton");
    EXPECT_EQ(chooser.saved.at(0).fileName, "Data Package.pdf");
    const std::string pdf = Read("all.pdf");
    EXPECT_EQ(OutlineOf(pdf), "Form 5 BFB01 1 Form 6 3 ");
    EXPECT_EQ(PagesOf(pdf), 20U);
}

}  // namespace
}  // namespace test
}  // namespace qfr
