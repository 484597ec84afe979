#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScrollBar>
#include <QTest>

#include "platform/FileLookup.h"
#include "platform/qt/PreviewWindow.h"
#include "tests/ui/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr {
namespace {

class Preview : public testing::Test {
  protected:
    // Page n shows a black spot n quarters of an inch from the left.
    void Open(int pages) {
        PrintJob job{"Form 1 VBLK01", kLetterPaper, {}};
        for (int i = 1; i <= pages; ++i) {
            job.pages.push_back(test::LetterPage());
            const double x = (i % 30) * 0.25;
            job.pages.back().items.emplace_back(
                test::RuleBetween(x - 0.02, 0.5, x + 0.02, 0.5, 100));
        }
        window_ = std::make_unique<PreviewWindow>(job, fonts_, saver_, messages_, nullptr);
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        view_ = window_->findChild<PageView*>("PageView");
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window_->focusWidget(), key, modifiers);
    }
    void ChooseZoom(const QString& text) {
        auto* const combo = window_->findChild<QComboBox*>("ZoomCombo");
        ASSERT_GE(combo->findText(text), 0);
        combo->setFocus();
        combo->setCurrentIndex(combo->findText(text));
        emit combo->activated(combo->currentIndex());
    }
    QString PageText() { return window_->findChild<QSpinBox*>("PageEdit")->text(); }

    FormFonts fonts_;
    test::ChooserScript chooser_;
    test::MessageLog messages_;
    PdfSaver saver_{fonts_, chooser_, messages_};
    std::unique_ptr<PreviewWindow> window_;
    PageView* view_ = nullptr;
};

TEST_F(Preview, KeysPageThroughTheJob) {
    Open(7);
    EXPECT_THAT(window_->windowTitle().toStdString(), testing::HasSubstr("Form 1 VBLK01"));
    EXPECT_EQ(PageText(), "1 of 7");
    const struct {
        Qt::Key key;
        const char* text;
    } steps[] = {
        {Qt::Key_PageUp, "1 of 7"}, {Qt::Key_PageDown, "2 of 7"}, {Qt::Key_PageDown, "3 of 7"},
        {Qt::Key_PageUp, "2 of 7"}, {Qt::Key_End, "7 of 7"},      {Qt::Key_PageDown, "7 of 7"},
        {Qt::Key_PageUp, "6 of 7"}, {Qt::Key_Home, "1 of 7"},
    };
    // The last pages of "50 %" cannot scroll to the top, which must not stop the count.
    for (const char* zoom : {"Fit width", "Fit page", "50 %", "400 %"}) {
        ChooseZoom(zoom);
        for (const auto& step : steps) {
            Press(step.key);
            EXPECT_EQ(PageText(), step.text) << zoom;
        }
    }
}

TEST_F(Preview, ShowsTheChosenPageAtTheTop) {
    Open(20);
    window_->findChild<QSpinBox*>("PageEdit")->setValue(12);
    ASSERT_EQ(view_->CurrentPage(), 11);
    const QImage seen = view_->viewport()->grab().toImage();
    const int paperTop = 6;  // half of the gap between two pages
    const double dots = view_->Percent() / 100 * view_->logicalDpiX();
    const double left = (seen.width() - 8.5 * dots) / 2;
    const QPoint spot(static_cast<int>(left + 3 * dots), static_cast<int>(paperTop + 0.5 * dots));
    EXPECT_LT(qGray(seen.pixel(spot)), 50);
    EXPECT_EQ(qGray(seen.pixel(spot + QPoint(static_cast<int>(0.25 * dots), 0))), 255);
}

TEST_F(Preview, ScrollingCountsThePages) {
    Open(30);
    view_->verticalScrollBar()->setValue(view_->verticalScrollBar()->maximum());
    EXPECT_EQ(PageText(), "30 of 30");
    view_->verticalScrollBar()->setValue(0);
    EXPECT_EQ(PageText(), "1 of 30");
}

TEST_F(Preview, ZoomsByListAndKeys) {
    Open(3);
    const auto fitted = view_->Percent();
    EXPECT_EQ(view_->horizontalScrollBar()->maximum(), 0) << "fits the width";
    window_->resize(window_->width() - 150, window_->height());
    QTest::qWait(1);
    EXPECT_LT(view_->Percent(), fitted) << "and follows the window";
    ChooseZoom("Fit page");
    EXPECT_LE(view_->Percent() / 100 * view_->logicalDpiX() * 11, view_->viewport()->height());
    ChooseZoom("150 %");
    EXPECT_NEAR(view_->Percent(), 150, 0.01);
    Press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(view_->Percent(), 200, 0.01);
    Press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_NEAR(view_->Percent(), 100, 0.01);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(view_->Percent(), 75, 0.01);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    Press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(view_->Percent(), 50, 0.01);
    EXPECT_EQ(window_->findChild<QComboBox*>("ZoomCombo")->currentText(), "50 %");
    for (int i = 0; i < 10; ++i) {
        Press(Qt::Key_Plus, Qt::ControlModifier);
    }
    EXPECT_NEAR(view_->Percent(), 400, 0.01);
}

TEST_F(Preview, SavesTheJobAsPdf) {
    Open(3);
    const test::TempDir directory;
    chooser_.answers = {{TextOf(directory.Path() / "saved.pdf")}};
    QTest::mouseClick(window_->findChild<QPushButton*>("SaveButton"), Qt::LeftButton);
    const std::string pdf = test::ReadAll(directory.Path() / "saved.pdf");
    EXPECT_TRUE(test::Poppler("pdfinfo", {}, QByteArray::fromStdString(pdf))
                    .contains(QRegularExpression("Pages: +3\n")));
    chooser_.answers = {{TextOf(directory.Path() / "gone" / "saved.pdf")}};
    QTest::mouseClick(window_->findChild<QPushButton*>("SaveButton"), Qt::LeftButton);
    EXPECT_THAT(messages_.TakeTexts(), testing::ElementsAre("saved.pdf could not be written."));
}

}  // namespace
}  // namespace qfr
