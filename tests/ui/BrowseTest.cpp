#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

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
         "|vstd050cc|vstd050c.d|05/18/2005 08:46|05/16/2005|05/16/2005",
         "|vstd050cc|NEW.D|06/17/2005 07:30|05/16/2005|05/16/2005"}};
    for (const auto& dialog : dialogs) {
        WindowRig rig;
        rig.form.RestoreFile(Example("example.qff"));
        QTimer::singleShot(0, [&] {
            const auto& [key, button, entries, before, after] = dialog;
            rig.Face(*QApplication::activeModalWidget());
            for (const auto& [name, content, told] : files) {
                const bool there = !content.empty();
                rig.chooser.answers = {{there ? rig.dir.Write(name, content) : rig.Path(name)}};
                rig.Click(button);
                rig.Use("", told);
                std::string shown;
                for (const QString& entry : entries.split(' ')) {
                    shown += rig.Shown(entry.toLatin1().constData());
                }
                EXPECT_EQ(shown, *told ? QString(before).replace('@', name).toStdString() : after)
                    << key << name;
            }
            rig.Type("\33");
        });
        rig.Type(std::get<0>(dialog));
        EXPECT_EQ(rig.chooser.opened.at(0).kind, FileKind::kAny);
        EXPECT_EQ(rig.chooser.opened.at(0).directory, "/calibrations");
        EXPECT_FALSE(rig.chooser.opened.at(0).multiSelect);
    }
}

}  // namespace
}  // namespace qfr::test
