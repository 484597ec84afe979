#include <QFileDialog>

#include "platform/Text.h"
#include "platform/qt/QtFileChooser.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

struct FileChooserTest : testing::Test {
    // Runs the chooser for a user who types, on another filter when one is given.
    std::string Chosen(const std::function<std::optional<ChosenFiles>()>& ask, const char* keys,
                       int filter = 0) {
        QTimer::singleShot(0, [&] {
            auto& dialog = *qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            WindowUser user;
            user.Face(dialog);
            auto& types = user.Get<QComboBox>("fileTypeCombo");
            filters = dialog.nameFilters().join('|').toStdString();
            shown = types.currentText().toStdString();
            directory = dialog.directory().path().toStdString();
            proposed = user.Get<QLineEdit>("fileNameEdit").text().toStdString();
            if (filter > 0) {
                types.setCurrentIndex(filter - 1);
                emit types.activated(filter - 1);
            }
            user.Enter("fileNameEdit", keys);
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        const std::optional<ChosenFiles> chosen = ask();
        return chosen ? FileNameOnly(chosen->files.at(0)) + " " + std::to_string(chosen->filter)
                      : "none";
    }

    const TempDir dir;
    QtFileChooser chooser;
    std::string filters;
    std::string shown;
    std::string directory;
    std::string proposed;
};

TEST_F(FileChooserTest, AddsTheExtensionOfTheKindToANameWithoutOne) {
    const std::string batches =
        "QFR Forms (*.qff) (*.qff)|Text Files (*.qff;*.txt) (*.qff *.txt)|All Files (*.*) (*)";
    const std::tuple<SaveKind, std::string, const char*, const char*, int> kinds[] = {
        {SaveKind::kBatch, batches, "QFR Forms (*.qff)", ".qff", 1},
        {SaveKind::kLaboratoryFile, batches, "Text Files (*.qff;*.txt)", ".txt", 2},
        {SaveKind::kPdf, "PDF Files (*.pdf) (*.pdf)|All Files (*.*) (*)", "PDF Files (*.pdf)",
         ".pdf", 1}};
    for (const auto& [kind, all, first, extension, filter] : kinds) {
        const SaveRequest request{kind, TextOf(dir.Path()), "Form 1"};
        const auto save = [&] { return chooser.Save(request); };
        const std::string ends = " " + std::to_string(filter);
        EXPECT_EQ(Chosen(save, "kept\r"), "kept" + std::string(extension) + ends);
        EXPECT_EQ(filters, all);
        EXPECT_EQ(shown, first);
        EXPECT_EQ(proposed, "Form 1");
        EXPECT_EQ(directory, TextOf(dir.Path()));
        EXPECT_EQ(Chosen(save, "kept.old\r"), "kept.old" + ends);
        EXPECT_EQ(Chosen(save, "kept.qff\r"), "kept.qff" + ends);
        EXPECT_EQ(Chosen(save, "kept\33"), "none");
    }
}

TEST_F(FileChooserTest, OpensOnTheFilterAndTellsTheOneItEndedWith) {
    const char* const kNames[] = {"Quantitation Files (*.prn)",   "Calibration Files (*.cal)",
                                  "Check Calib. Files (*.check)", "QFRForm File (*.qff)",
                                  "Text Files (*.txt)",           "All Files (*.*)"};
    dir.Write("kept.x", "");
    for (int filter = 1; filter <= 6; ++filter) {
        const OpenRequest request{filter, TextOf(dir.Path() / "gone" / "too")};
        const auto open = [&] { return chooser.Open(request); };
        EXPECT_EQ(Chosen(open, "kept.x\r"), "kept.x " + std::to_string(filter));
        EXPECT_EQ(shown, kNames[filter - 1]);
        EXPECT_EQ(directory, TextOf(dir.Path())) << "the nearest one that is there";
        EXPECT_EQ(Chosen(open, "kept.x\r", 7 - filter), "kept.x " + std::to_string(7 - filter));
    }
    EXPECT_EQ(filters,
              "Quantitation Files (*.prn) (*.prn)|Calibration Files (*.cal) (*.cal)|"
              "Check Calib. Files (*.check) (*.check)|QFRForm File (*.qff) (*.qff)|"
              "Text Files (*.txt) (*.txt)|All Files (*.*) (*)");
}

}  // namespace
}  // namespace qfr::test
