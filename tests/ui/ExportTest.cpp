#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

struct ExportRig : WindowRig {
    // Chooses the command, and the place; what is told, and what the status bar says then.
    std::string Export(const char* caption, const std::string& place = "") {
        chooser.answers.clear();
        if (!place.empty()) {
            chooser.answers.push_back({Path(place)});
        }
        form.statusBar()->clearMessage();
        for (QAction* const action : form.menuBar()->findChildren<QAction*>()) {
            if (action->text() == caption) {
                action->trigger();
            }
        }
        std::string told;
        for (const std::string& text : log.TakeTexts()) {
            told += text + "|";
        }
        return told + form.statusBar()->currentMessage().toStdString();
    }
};

constexpr char kCsv[] = "&CSV Tables...";
constexpr char kJson[] = "&JSON Document...";

TEST(ExportValues, WritesWhereTheUserChoosesAndSaysHowItWent) {
    ExportRig rig;
    EXPECT_EQ(rig.Export(kJson), std::string(kSpecifyFiles) + "|");
    rig.form.RestoreFile(Example("example.qff"));
    EXPECT_EQ(rig.Export(kJson) + rig.Export(kCsv), "") << "cancelled";
    EXPECT_EQ(rig.chooser.saved.at(0).kind, SaveKind::kValues);
    EXPECT_EQ(rig.chooser.saved.at(0).directory, "/batches");

    const Entries before = rig.form.Entries();
    const char* const kDone = "Export Values: 18 forms exported.";
    EXPECT_EQ(rig.Export(kJson, "v.json"), kDone);
    EXPECT_THAT(rig.Read("v.json"), testing::HasSubstr("\"sample\": \"ZA103DL\""));
    EXPECT_EQ(rig.Export(kCsv, "new"), kDone);
    EXPECT_THAT(rig.Read("new/form-6.csv"), testing::HasSubstr("\r\n,,levels,2,"));
    EXPECT_EQ(rig.form.Entries(), before);

    // Values of an earlier export are not replaced without a question.
    rig.dir.Write("new/form-6.csv", "old");
    const std::string question = "new already holds exported values.\nReplace them?|";
    rig.log.answers = {false};
    EXPECT_EQ(rig.Export(kCsv, "new"), question);
    EXPECT_TRUE(rig.log.noByDefault);
    EXPECT_EQ(rig.Read("new/form-6.csv"), "old");
    rig.form.Entries().Tune.SampleNo.clear();
    rig.log.answers = {true};
    EXPECT_EQ(rig.Export(kCsv, "new"),
              question +
                  "17 forms exported.\nForm V, instrument performance check, left out: All "
                  "Fields Are Required: Please enter a value.|Export Values: 17 forms "
                  "exported.");
    EXPECT_EQ(rig.Export(kJson, "no/v.json"), "v.json could not be written.|");
}

}  // namespace
}  // namespace qfr::test
