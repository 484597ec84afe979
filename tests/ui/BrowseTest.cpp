// The Browse buttons of the entry dialogs: where they look, and what they take of which file.
#include "platform/Text.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;

struct BrowseRig : WindowRig {
    BrowseRig() { form.RestoreFile(Example("example.qff")); }
    // Opens the form's dialog by its key, for a user who cancels it in the end.
    void InDialog(const char* key, const std::function<void()>& user) {
        Face(form);
        QTimer::singleShot(0, [&] {
            Face(*QApplication::activeModalWidget());
            user();
            Type("\33");
        });
        Type(key);
    }
    // Chooses the file. What is told of it; the chooser stood on the filter in the directory.
    std::string Choose(const char* button, const std::string& file, int filter,
                       const std::string& directory) {
        chooser.answers = {{file}};
        Click(button);
        EXPECT_EQ(chooser.opened.back().filter, filter);
        EXPECT_EQ(chooser.opened.back().directory, directory);
        EXPECT_FALSE(chooser.opened.back().multiSelect);
        const std::vector<std::string> told = log.TakeTexts();
        return told.empty() ? "" : told.at(0);
    }
};

TEST(Browse, TakesTheIdAndTheDateOfARawDataFileAndNothingOfAnother) {
    const struct {
        const char* key;
        const char* button;
        std::vector<const char*> controls;
        std::string before;
        std::string after;
    } dialogs[] = {
        {"^6",
         "BrowseButton2",
         {"CalStartMaskEdit", "CalEndMaskEdit", "CalFileEdit1", "CalFileEdit2", "CalFileEdit3"},
         "|05/16/2005 09:41|05/16/2005 11:49|VSTD005.D|VSTD020.D|VSTD050.D",
         "|05/16/2005 09:41|06/17/2005 07:30|VSTD005.D|NEW.D|VSTD050.D"},
        {"^7",
         "BrowseButton",
         {"LabFileEdit", "ZOV_IDEdit", "InstrEdit", "MaskEdit1", "MaskEdit2", "MaskEdit3"},
         "|vstd050c.d|vstd050cc|GCMS2|05/18/2005 08:46|05/16/2005 09:41|05/16/2005 11:49",
         "|NEW.D|vstd050cc|GCMS2|06/17/2005 07:30|05/16/2005 09:41|05/16/2005 11:49"},
        {"^8",
         "BrowseButton",
         {"SampleEdit", "LabFileEdit", "MaskEdit1", "MaskEdit2", "MaskEdit3", "RTEdit1"},
         "|VSTD050CC|VSTD050C.D|05/18/2005 08:46|05/16/2005|05/16/2005|8.84",
         "|VSTD050CC|NEW.D|06/17/2005 07:30|05/16/2005|05/16/2005|8.84"}};
    for (const auto& [key, button, controls, before, after] : dialogs) {
        SCOPED_TRACE(key);
        BrowseRig rig;
        const std::string lines = "\n6/17/2005 7:30\nc:\\run\\NEW.D\n";
        const std::pair<std::string, std::string> refused[] = {
            {rig.dir.Write("notes.d", "NOTES" + lines), "Selected file\nnotes.dnot a DATA FILE."},
            {rig.dir.Write("cut.d", "DATA FILE\n6/17/2005 7:30"),
             "End of file:\ncut.dreached before expected"},
            {rig.Path("gone.d"), "gone.d could not be read."}};
        rig.InDialog(key,
                     [&, &controls = controls, &button = button, &before = before, &after = after] {
                         const auto shown = [&] {
                             std::string texts;
                             for (const char* const control : controls) {
                                 texts += rig.Shown(control);
                             }
                             return texts;
                         };
                         EXPECT_EQ(shown(), before);
                         for (const auto& [file, told] : refused) {
                             EXPECT_EQ(rig.Choose(button, file, 6, "/calibrations"), told);
                             EXPECT_EQ(shown(), before) << told;
                         }
                         const std::string good = rig.dir.Write("good.d", "DATA FILE" + lines);
                         EXPECT_EQ(rig.Choose(button, good, 6, "/calibrations"), "");
                         EXPECT_EQ(shown(), after);
                         rig.Click(button);
                         EXPECT_EQ(shown(), after) << "cancelled";
                     });
    }
}

TEST(Browse, EmptiesTheNameOfATextFileForOneThatIsRefused) {
    BrowseRig rig;
    const std::string notes = rig.dir.Write("notes.txt", "Notes\n");
    const std::string other = "\nPlease select another file.";
    const std::tuple<const char*, const char*, const char*, const char*, std::string, std::string>
        dialogs[] = {
            {"^2", "BrowseButton", "FileEdit", "Recovery Ranges\n",
             notes + " is not a recovery ranges file." + other, rig.Path("Good.txt")},
            {"^7", "Button1", "LimitEdit", "RF Criteria\n",
             "notes.txt is not a RF criteria file." + other, LowerCase(rig.Path("Good.txt"))}};
    for (const auto& [key, button, edit, content, told, entered] : dialogs) {
        rig.dir.Write("QFRpaths.txt", "/reports\n/calibrations\n/texts\n/batches\n");
        const std::string good = rig.dir.Write("Good.txt", content);
        rig.InDialog(key, [&, &button = button, &edit = edit, &told = told, &entered = entered] {
            const std::string folder = TextOf(rig.dir.Path());
            EXPECT_NE(rig.Shown(edit), "|");
            EXPECT_EQ(rig.Choose(button, notes, 5, "/texts"), told);
            EXPECT_EQ(rig.Shown(edit), "|");
            EXPECT_EQ(rig.Choose(button, good, 5, folder), "");
            EXPECT_EQ(rig.Shown(edit), "|" + entered);
            rig.Click(button);
            EXPECT_EQ(rig.Shown(edit), "|" + entered) << "cancelled";
        });
    }
}

}  // namespace
}  // namespace qfr::test
