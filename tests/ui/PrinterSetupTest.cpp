#include "platform/qt/PrinterSetupDialog.h"
#include "tests/FormSupport.h"
#include "tests/ui/WindowUser.h"

namespace qfr::test {
namespace {

TEST(PrinterSetup, OnlyOkChangesThePrinter) {
    SquareMetrics metrics;
    JobLog sink;
    TPrinter printer(metrics, sink);
    printer.Printers = {"Lab_Laser", "PDF file", "Screen preview"};
    printer.PaperSize = {"Odd", 5, 7};
    // What it shows, and what the user types then.
    const std::pair<const char*, const char*> cases[] = {
        {"|Lab_Laser|Odd (5 x 7 in)|false", "\r"},
        {"|Lab_Laser|Odd (5 x 7 in)|false", "Screen\t\tA4&l\33"},
        {"|Lab_Laser|Odd (5 x 7 in)|false", "Screen&aLegal&l\r"},
        {"|Screen preview|Legal (8.5 x 14 in)|true", "\33"},
    };
    for (const auto& [shown, keys] : cases) {
        PrinterSetupDialog dialog(printer, nullptr);
        WindowUser user;
        dialog.show();
        user.Face(dialog);
        EXPECT_EQ(user.Shown("PrinterCombo", "PaperCombo", "LandscapeButton"), shown);
        user.Type(keys);
        EXPECT_FALSE(dialog.isVisible());
    }
    EXPECT_EQ(printer.PrinterIndex, 2);
    EXPECT_EQ(printer.PaperSize, (Paper{"Legal", 8.5, 14}));
    EXPECT_EQ(printer.PageWidth(), 14 * kResolution) << "turned";
}

}  // namespace
}  // namespace qfr::test
