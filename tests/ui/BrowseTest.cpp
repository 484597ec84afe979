// The Browse buttons of the entry dialogs: where they look, and what they take of which file.
#include "platform/Text.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

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
    void Choose(const char* button, const std::string& file, const std::string& told) {
        chooser.answers = {{file}};
        Click(button);
        Use("", told);
    }
    // How the chooser was opened.
    std::string Opened() {
        const OpenRequest& request = chooser.opened.at(0);
        return std::to_string(request.filter) + request.directory +
               (request.multiSelect ? "+" : "");
    }
};

TEST(Browse, TakesTheIdAndTheDateOfARawDataFileOnly) {
    const std::string lines = "\n6/17/2005 7:30\nc:\\run\\NEW.D\n";
    const std::tuple<const char*, std::string, const char*> files[] = {
        {"notes.d", "NOTES" + lines, "Selected file\nnotes.dnot a DATA FILE."},
        {"cut.d", "DATA FILE\n6/17/2005 7:30", "End of file:\ncut.dreached before expected"},
        {"gone.d", "", "gone.d could not be read."},
        {"good.d", "DATA FILE" + lines, ""}};
    // The form; its entries; what they show before, where "@" is the level's file, and at last.
    const std::tuple<const char*, const char*, QString, QString, const char*> dialogs[] = {
        {"^6", "BrowseButton2", "CalStartMaskEdit CalEndMaskEdit CalFileEdit1 CalFileEdit2",
         "|05/16/2005 09:41|05/16/2005 11:49|VSTD005.D|@",
         "|05/16/2005 09:41|06/17/2005 07:30|VSTD005.D|NEW.D"},
        {"^7", "BrowseButton", "LabFileEdit ZOV_IDEdit InstrEdit MaskEdit1 MaskEdit2 MaskEdit3",
         "|vstd050c.d|vstd050cc|GCMS2|05/18/2005 08:46|05/16/2005 09:41|05/16/2005 11:49",
         "|NEW.D|vstd050cc|GCMS2|06/17/2005 07:30|05/16/2005 09:41|05/16/2005 11:49"},
        {"^8", "BrowseButton", "SampleEdit LabFileEdit MaskEdit1 MaskEdit2 MaskEdit3",
         "|VSTD050CC|VSTD050C.D|05/18/2005 08:46|05/16/2005|05/16/2005",
         "|VSTD050CC|NEW.D|06/17/2005 07:30|05/16/2005|05/16/2005"}};
    for (const auto& dialog : dialogs) {
        BrowseRig rig;
        rig.InDialog(std::get<0>(dialog), [&] {
            const auto& [key, button, entries, before, after] = dialog;
            for (const auto& [name, content, told] : files) {
                const bool there = !content.empty();
                rig.Choose(button, there ? rig.dir.Write(name, content) : rig.Path(name), told);
                std::string shown;
                for (const QString& entry : entries.split(' ')) {
                    shown += rig.Shown(entry.toLatin1().constData());
                }
                EXPECT_EQ(shown, *told ? QString(before).replace('@', name).toStdString() : after)
                    << key << name;
            }
            EXPECT_EQ(rig.Opened(), "6/calibrations");
        });
    }
}

TEST(Browse, EmptiesTheNameOfATextFileForOneThatIsRefused) {
    const std::tuple<const char*, const char*, const char*, const char*, bool> dialogs[] = {
        {"^2", "BrowseButton", "FileEdit", "recovery ranges", true},
        {"^7", "Button1", "LimitEdit", "RF criteria", false}};
    for (const auto& dialog : dialogs) {
        BrowseRig rig;
        rig.InDialog(std::get<0>(dialog), [&] {
            const auto& [key, button, edit, title, asItIs] = dialog;
            const std::string notes = rig.dir.Write("notes.txt", "Notes\n");
            const std::string good = rig.dir.Write("Good.txt", title);
            EXPECT_NE(rig.Shown(edit), "|");
            rig.Choose(button, notes,
                       (asItIs ? notes : "notes.txt") + " is not a " + title +
                           " file.\nPlease select another file.");
            EXPECT_EQ(rig.Shown(edit), "|") << key;
            rig.Choose(button, good, "");
            EXPECT_EQ(rig.Shown(edit), "|" + (asItIs ? good : LowerCase(good)));
            EXPECT_EQ(rig.Opened(), "5/texts");
        });
    }
}

}  // namespace
}  // namespace qfr::test
