#include <QScrollBar>

#include "platform/qt/PreviewWindow.h"
#include "tests/ui/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

class Preview : public testing::Test, protected WindowUser {
  protected:
    Preview() {
        preview_.show();
        Face(preview_);
    }
    static PrintJob Job() {
        PrintJob job{"Form 1 VBLK01", kLetterPaper, {}};
        job.pages.resize(20, LetterPage());
        return job;
    }
    void ChooseZoom(const char* text) {
        auto& combo = Get<QComboBox>("ZoomCombo");
        combo.setCurrentText(text);
        emit combo.activated(combo.currentIndex());
    }

    FormFonts fonts_;
    ChooserScript chooser_;
    MessageLog messages_;
    PdfSaver saver_{fonts_, chooser_, messages_};
    PreviewWindow preview_{{Job()}, "Form 1 VBLK01", fonts_, saver_, messages_, nullptr};
    PageView& view_ = *preview_.findChild<PageView*>("PageView");
};

TEST_F(Preview, KeysPageThroughTheJob) {
    const std::pair<Qt::Key, const char*> steps[] = {
        {Qt::Key_PageUp, "|1"},  {Qt::Key_PageDown, "|2"}, {Qt::Key_PageDown, "|3"},
        {Qt::Key_PageUp, "|2"},  {Qt::Key_End, "|20"},     {Qt::Key_PageDown, "|20"},
        {Qt::Key_PageUp, "|19"}, {Qt::Key_Home, "|1"},
    };
    // The last pages of "50 %" cannot scroll to the top, which must not stop the count.
    for (const char* zoom : {"Fit width", "Fit page", "50 %", "400 %"}) {
        ChooseZoom(zoom);
        for (const auto& [key, page] : steps) {
            Press(key);
            EXPECT_EQ(Shown("PageEdit"), page) << zoom;
        }
        view_.verticalScrollBar()->setValue(view_.verticalScrollBar()->maximum());
        EXPECT_EQ(Shown("PageEdit"), "|20") << zoom;
        view_.verticalScrollBar()->setValue(0);
    }
}

}  // namespace
}  // namespace qfr::test
