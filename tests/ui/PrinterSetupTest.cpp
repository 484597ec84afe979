#include "platform/qt/PrinterSetupDialog.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

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

}  // namespace
}  // namespace qfr::test
