#include <gtest/gtest.h>

#include <QTest>

#include "platform/qt/PrinterSetupDialog.h"
#include "tests/ui/WindowRig.h"

namespace qfr {
namespace {

class PrinterSetup : public testing::Test {
  protected:
    PrinterSetup() : printer_(metrics_, sink_) {
        printer_.Printers = {"Lab_Laser", "PDF file", "Screen preview"};
        printer_.PrinterIndex = 1;
    }

    test::SquareMetrics metrics_;
    test::JobLog sink_;
    TPrinter printer_;
};

template <typename T>
T* Find(QWidget& window, const char* name) {
    T* const found = window.findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
}

TEST_F(PrinterSetup, ShowsTheChoiceThatHolds) {
    printer_.PaperSize = {"Odd", 5, 7};
    printer_.Orientation = PageOrientation::kLandscape;
    PrinterSetupDialog dialog(printer_, nullptr);
    EXPECT_EQ(dialog.windowTitle(), "Printer Setup");
    EXPECT_EQ(Find<QComboBox>(dialog, "PrinterCombo")->currentText(), "PDF file");
    EXPECT_EQ(Find<QComboBox>(dialog, "PrinterCombo")->count(), 3);
    EXPECT_TRUE(Find<QComboBox>(dialog, "PaperCombo")->currentText().startsWith("Odd"));
    EXPECT_TRUE(Find<QComboBox>(dialog, "PaperCombo")->itemText(0).startsWith("Letter"));
    EXPECT_TRUE(Find<QRadioButton>(dialog, "LandscapeButton")->isChecked());
    dialog.accept();
    EXPECT_EQ(printer_.PaperSize, (Paper{"Odd", 5, 7}));
    EXPECT_EQ(printer_.PrinterIndex, 1);
}

TEST_F(PrinterSetup, OkChangesThePrinterByKeysAlone) {
    PrinterSetupDialog dialog(printer_, nullptr);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);
    QTest::keyClicks(dialog.focusWidget(), "Legal");
    QTest::keyClick(&dialog, Qt::Key_L, Qt::AltModifier);
    auto* const landscape = Find<QRadioButton>(dialog, "LandscapeButton");
    EXPECT_TRUE(QTest::qWaitFor([&] { return landscape->isChecked(); }));
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(printer_.PrinterIndex, 2);
    EXPECT_EQ(printer_.PaperSize, (Paper{"Legal", 8.5, 14}));
    EXPECT_EQ(printer_.Orientation, PageOrientation::kLandscape);
    EXPECT_EQ(printer_.PageWidth(), 14 * kResolution);
}

TEST_F(PrinterSetup, CancelLeavesThePrinterAsItWas) {
    PrinterSetupDialog dialog(printer_, nullptr);
    dialog.show();
    Find<QComboBox>(dialog, "PrinterCombo")->setCurrentIndex(0);
    Find<QComboBox>(dialog, "PaperCombo")->setCurrentIndex(2);
    Find<QRadioButton>(dialog, "LandscapeButton")->click();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(printer_.PrinterIndex, 1);
    EXPECT_EQ(printer_.PaperSize, kLetterPaper);
    EXPECT_EQ(printer_.Orientation, PageOrientation::kPortrait);
}

}  // namespace
}  // namespace qfr
