#include "platform/qt/PrinterSetupDialog.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

TEST(PrinterSetup, GivesThePrinterWhatIsChosen) {
    const Paper label{"Label", 4, 6};
    const Paper metric{"A4", 8.27, 11.69};
    const char* const kLetter = "Letter (8.5 x 11 in)";
    const struct {
        const char* what;
        Paper before;
        const char* shown;
        const char* chosen;
        const char* button;
        Paper after;
    } cases[] = {
        {"another paper", kLetterPaper, kLetter, "A4 (8.27 x 11.69 in)", "OkButton", metric},
        {"Letter again", metric, "A4 (8.27 x 11.69 in)", kLetter, "OkButton", kLetterPaper},
        {"the last one of the list", metric, "A4 (8.27 x 11.69 in)", "A3 (11.69 x 16.54 in)",
         "OkButton", Paper{"A3", 11.69, 16.54}},
        {"a paper that is in no list", label, "Label (4 x 6 in)", "", "OkButton", label},
        {"Letter instead of it", label, "Label (4 x 6 in)", kLetter, "OkButton", kLetterPaper},
        {"nothing after Cancel", metric, "A4 (8.27 x 11.69 in)", kLetter, "CancelButton", metric}};
    SquareMetrics metrics;
    JobLog sink;
    for (const auto& [what, before, shown, chosen, button, after] : cases) {
        SCOPED_TRACE(what);
        const bool taken = button == std::string("OkButton");
        TPrinter printer(metrics, sink);
        printer.Printers = {"Lab", "PDF file", "Screen preview"};
        printer.PrinterIndex = 1;
        printer.PaperSize = before;
        PrinterSetupDialog dialog(printer, nullptr);
        dialog.show();
        WindowUser user;
        user.Face(dialog);
        EXPECT_EQ(user.Shown("PrinterCombo", "PaperCombo", "PortraitButton"),
                  "|PDF file|" + std::string(shown) + "|true");
        user.Type("&p");
        user.Press(Qt::Key_Down);
        user.Get<QComboBox>("PaperCombo").setCurrentText(*chosen ? chosen : shown);
        user.Type("&l");
        user.Click(button);
        EXPECT_EQ(printer.PaperSize, after);
        EXPECT_EQ(printer.PrinterIndex, taken ? 2 : 1);
        EXPECT_EQ(printer.Orientation == PageOrientation::kLandscape, taken);
    }
}

}  // namespace
}  // namespace qfr::test
