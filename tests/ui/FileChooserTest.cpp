#include <QFileDialog>
#include <QMessageBox>

#include "platform/Text.h"
#include "platform/qt/QtFileChooser.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

// For a user who types into the dialog, on another filter when one is given.
struct FileChooserTest : testing::Test {
    std::string Chosen(auto ask, const auto& request, const char* keys, int filter = 0) {
        QTimer::singleShot(0, [&] {
            auto& dialog = *qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            WindowUser user;
            user.Face(dialog);
            filters = dialog.nameFilters().join('|').toStdString();
            shown = user.Shown("fileTypeCombo", "fileNameEdit");
            EXPECT_EQ(dialog.directory().path().toStdString(), TextOf(dir.Path()));
            auto& types = user.Get<QComboBox>("fileTypeCombo");
            types.setCurrentIndex(filter > 0 ? filter - 1 : types.currentIndex());
            emit types.activated(types.currentIndex());
            user.Enter("fileNameEdit", keys);
        });
        QtFileChooser chooser(log);
        const auto chosen = (chooser.*ask)(request);
        ended = chosen ? chosen->kind : FileKind::kAny;
        return chosen ? chosen->files.at(0).substr(TextOf(dir.Path()).size()) : "none";
    }

    const TempDir dir;
    MessageLog log;
    std::string filters;  // of the dialog, with their patterns
    std::string shown;    // its filter and file name
    FileKind ended{};     // the kind that an open dialog ended with
};

TEST_F(FileChooserTest, AddsTheExtensionOfTheKindToANameWithoutOne) {
    const std::tuple<SaveKind, std::string, const char*> kinds[] = {
        {SaveKind::kBatch, "|QFR Forms (*.qff)|Form 1", ".qff"},
        {SaveKind::kLaboratoryFile, "|Text Files (*.qff;*.txt)|Form 1", ".txt"},
        {SaveKind::kPdf, "|PDF Files (*.pdf)|Form 1", ".pdf"}};
    for (const auto& [kind, first, ending] : kinds) {
        const SaveRequest request{kind, TextOf(dir.Path()), "Form 1"};
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept\r"), "/kept" + std::string(ending));
        EXPECT_EQ(shown, first);
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept.old\r"), "/kept.old");
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept\33"), "none");
    }
}

TEST_F(FileChooserTest, AsksOnceMoreForAReadOnlyFile) {
    std::filesystem::permissions(dir.Write("kept.qff", ""), std::filesystem::perms::owner_read);
    for (const bool answer : {true, false}) {
        log.answers = {answer};
        QTimer user;
        user.callOnTimeout([this] {
            auto* const active = QApplication::activeModalWidget();
            if (auto* const box = qobject_cast<QMessageBox*>(active)) {
                box->button(QMessageBox::Yes)->click();
            } else if (!log.shown.empty()) {
                static_cast<QDialog*>(active)->reject();
            }
        });
        user.start(50);
        const SaveRequest request{SaveKind::kBatch, TextOf(dir.Path()), ""};
        EXPECT_EQ(Chosen(&QtFileChooser::Save, request, "kept\r"), answer ? "/kept.qff" : "none");
        EXPECT_EQ(log.TakeTitles(), std::vector<std::string>{"Warning"});
    }
}

TEST_F(FileChooserTest, OpensOnTheFilterAndTellsTheOneItEndedWith) {
    dir.Write("kept.x", "");
    for (int filter = 1; filter <= 6; ++filter) {
        const OpenRequest request{static_cast<FileKind>(filter - 1),
                                  TextOf(dir.Path() / "gone" / "too")};
        for (const int end : {filter, 7 - filter}) {
            EXPECT_EQ(Chosen(&QtFileChooser::Open, request, "kept.x\r", end == filter ? 0 : end),
                      "/kept.x");
            EXPECT_EQ(static_cast<int>(ended) + 1, end);
        }
    }
    EXPECT_EQ(filters,
              "Quantitation Files (*.prn) (*.prn)|Calibration Files (*.cal) (*.cal)|"
              "Check Calib. Files (*.check) (*.check)|QFRForm File (*.qff) (*.qff)|"
              "Text Files (*.txt) (*.txt)|All Files (*.*) (*)");
}

}  // namespace
}  // namespace qfr::test
