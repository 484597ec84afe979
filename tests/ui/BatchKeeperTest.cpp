// A batch that is not lost: Save, the title, recovery; and windows that come back to their places.
#include <QAction>
#include <QScreen>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QStyle>
#include <QTableView>

#include "app/RecoveryStore.h"
#include "dialogs/EntryGrid.h"
#include "dialogs/TicForm.h"
#include "platform/Text.h"
#include "platform/qt/MaskEdit.h"
#include "platform/qt/WindowPlaces.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

struct KeeperRig : WindowRig {
    // Another program's, when it has ended; "": there is none.
    explicit KeeperRig(const std::string& recovery = "") {
        if (!recovery.empty()) {
            dir.Write("recovery/other.recovery", recovery);
            // It had the number that this one has now.
            dir.Write("recovery/other.recovery.lock",
                      std::to_string(QApplication::applicationPid()) + "\nui_tests\n" +
                          QSysInfo::machineHostName().toStdString() + "\n");
        }
    }
    // The title with its mark.
    std::string Title() {
        form.ShowMainWindow();
        return form.windowTitle().toStdString() + (form.isWindowModified() ? " unsaved" : "");
    }
    // What is kept for recovery.
    std::string Kept() const {
        std::string kept;
        std::error_code none;
        for (const auto& file : fs::directory_iterator(dir.Path() / "recovery", none)) {
            kept += file.path().extension() == ".recovery" ? ReadAll(file.path()) : "";
        }
        return kept;
    }
    bool Keeps(const std::string& text) const {
        return QTest::qWaitFor([&] { return Contains(Kept(), text); }, 60'000);
    }
    void RestoreCopy() {
        ASSERT_TRUE(form.RestoreFile(dir.Write("my.qff", ReadAll(Example("example.qff")))));
    }
};

TEST(BatchKeeper, SavesToTheBatchsOwnFileWithoutAsking) {
    KeeperRig rig;
    EXPECT_EQ(rig.Title(), "QFR Forms");
    rig.RestoreCopy();
    EXPECT_EQ(rig.Title(), "QFR Forms - my.qff[*]");
    const auto change = [&rig](const std::string& text) {
        rig.form.Entries().Tune.SampleNo = text;
        EXPECT_EQ(rig.Title(), "QFR Forms - my.qff[*] unsaved");
    };
    change("First");
    rig.Use("^s");
    EXPECT_EQ(rig.Title(), "QFR Forms - my.qff[*]");
    EXPECT_THAT(rig.Read("my.qff"), testing::HasSubstr("\nFirst;"));
    // Changed by another program meanwhile: No leaves it, Yes replaces it.
    for (const bool replaces : {false, true}) {
        change(replaces ? "Third" : "Second");
        rig.dir.Write("my.qff", "QFRForms, another one");
        rig.log.answers = {replaces};
        rig.Use("^s",
                "my.qff was changed by another program\nsince it was read or written here. "
                "Replace it?");
        EXPECT_TRUE(rig.log.noByDefault);
        EXPECT_EQ(rig.Read("my.qff") != "QFRForms, another one", replaces);
    }
    EXPECT_TRUE(rig.chooser.saved.empty());
    rig.form.Batch().Files.Calib.clear();
    rig.Use("^s", "my.qff cannot be restored: it has\nno calibration report.");
    EXPECT_TRUE(rig.Keeps("Third")) << "the file holds it, but does not give it back";
}

TEST(BatchKeeper, AsksForAFileWhereTheBatchHasNoneOfItsOwn) {
    KeeperRig rig;
    rig.form.Batch().SampleList = {CompleteRecord("ZA1")};
    EXPECT_EQ(rig.Title(), "QFR Forms - Untitled[*] unsaved");
    rig.Use("^s");
    EXPECT_EQ(rig.chooser.saved.at(0).fileName, "");
    const std::string example = rig.dir.Write("example/[*].qff", ReadAll(Example("example.qff")));
    const std::string locked = rig.dir.Write("x/locked.qff", ReadAll(Example("example.qff")));
    fs::permissions(PathOf(locked), fs::perms::owner_read);
    for (const std::string& file : {example, locked}) {
        rig.form.RestoreFile(file);
        rig.Use("^s");
        EXPECT_EQ(rig.chooser.saved.back().fileName, FileNameOnly(file));
        EXPECT_EQ(rig.chooser.saved.back().directory, "/batches");
        rig.chooser.saved.pop_back();
    }
    rig.form.RestoreFile(example);
    EXPECT_EQ(rig.Title(), "QFR Forms - [*][*].qff[*]");
    rig.chooser.answers = {{rig.Path("x/mine.qff")}};
    rig.Use("^s", "File information saved.");
    EXPECT_EQ(rig.Title(), "QFR Forms - mine.qff[*]");
    rig.Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(rig.chooser.saved.back().directory, rig.Path("x"));
    EXPECT_EQ(rig.chooser.saved.back().fileName, "mine.qff");
    EXPECT_EQ(rig.memory.Value(kBatchFolder).toString().toStdString(), rig.Path("x"));
    // Chosen as a batch is, the example leaves its folder as the one of batches.
    rig.form.OpenArguments({example});
    rig.Use("^s");
    EXPECT_EQ(rig.chooser.saved.back().directory, rig.Path("x"));
    EXPECT_EQ(rig.chooser.saved.back().fileName, "[*].qff");
    rig.memory.KeepFolder(kBatchFolder, "");
    rig.Use("^s");
    EXPECT_EQ(rig.chooser.saved.back().directory, rig.memory.UsersFolder({}));
}

// The header dialog is left open; the others are closed, but not before it is kept what they hold.
TEST(BatchKeeper, KeepsWhatIsTypedInAnOpenWindow) {
    using Place = std::tuple<const char*, const char*, const char*>;
    constexpr const char* kWrong = "13/45/2005 10:00";
    const Place places[] = {{"^1", "TForm1Header", "Edit1"},
                            {"^4", "TMBSHeader", "RichEdit1"},
                            {"^h", "HeaderTableDialog", "HeadersTable"},
                            {"^5", "TTuneForm", "SampleEdit"},
                            {"^5", "TTuneForm", "StringGrid1"},
                            {"", "TTICForm", "StringGrid1"}};
    for (const auto& [key, window, control] : places) {
        SCOPED_TRACE(std::string(window) + control);
        std::string kept;
        {
            KeeperRig rig;
            rig.RestoreCopy();
            const auto type = [&, window = window, control = control] {
                rig.Face(rig.Find<QWidget>(window));
                if (key == std::string("^1")) {
                    rig.Get<MaskEdit>("MaskEdit1").SetMaskText(kWrong);
                }
                rig.Get(control).setFocus(Qt::TabFocusReason);
                rig.Type(*key != '\0' ? "4711" : "x\tBenzol 4711 ");
                EXPECT_TRUE(rig.Keeps("4711"));
                kept = rig.Kept();
                if (auto* const dialog =
                        qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                    dialog->reject();
                }
            };
            if (key == std::string("^1")) {
                rig.Type(key);
                type();
            } else {
                QTimer::singleShot(0, type);
                *key != '\0' ? rig.Type(key) : rig.form.EnterTics(1, "ZA101");
            }
        }
        KeeperRig next(kept);
        next.form.RecoverLastBatch();
        EXPECT_EQ(next.Title(), "QFR Forms - my.qff[*] unsaved");
        const std::string batch = SaveBatch(next.form.Batch(), next.form.Entries());
        EXPECT_THAT(batch, testing::HasSubstr(*key != '\0' ? "4711" : ";benzol 4711;"));
        EXPECT_THAT(batch, testing::Not(testing::HasSubstr(kWrong)));
        EXPECT_EQ(next.log.TakeTexts(),
                  *key != '\0'
                      ? std::vector<std::string>()
                      : std::vector<std::string>{"Look at the TICs of VHBLK01: rows lack a cell."});
        EXPECT_TRUE(next.Keeps("4711")) << "a crash may come twice";
        EXPECT_FALSE(next.form.Recovery()) << "it is this program's now";
    }
}

TEST(BatchKeeper, OffersWhatWasGivenUpUntilTheNextSave) {
    KeeperRig rig;
    rig.RestoreCopy();
    EXPECT_FALSE(rig.form.Recovery());
    rig.form.Entries().Tune.SampleNo = "Lost";
    rig.log.answers = {false, false};
    rig.chooser.answers = {{Example("example.qff")}};
    rig.Type("^r");
    EXPECT_TRUE(rig.form.Recovery());
    EXPECT_EQ(rig.Title(), "QFR Forms - example.qff[*]");
    rig.form.RecoverLastBatch();
    EXPECT_EQ(rig.form.Entries().Tune.SampleNo, "Lost");
    EXPECT_FALSE(rig.form.Recovery());

    rig.log.answers = {false};
    rig.Type("^o");
    rig.Face(rig.Find<QWidget>("TFilesDlg"));
    rig.Click("ClearAllButton");
    rig.Click("OkButton");
    rig.Face(rig.form);
    EXPECT_EQ(rig.Title(), "QFR Forms");
    ASSERT_TRUE(rig.form.Recovery());
    EXPECT_EQ(rig.form.Recovery()->Head.Samples, 9U) << "as the status bar counts them";
    rig.form.RecoverLastBatch();
    EXPECT_EQ(rig.Title(), "QFR Forms - my.qff[*] unsaved");
    rig.log.TakeTexts();
    rig.Use("^s");
    EXPECT_EQ(rig.Kept(), "");
    rig.form.RecoverLastBatch();
    EXPECT_EQ(rig.log.TakeTexts(), std::vector<std::string>{"There is no batch to be recovered."});
}

TEST(BatchKeeper, TellsOnceThatItCannotKeepTheBatch) {
    KeeperRig rig;
    rig.dir.Write("recovery", "no folder");
    rig.RestoreCopy();
    const auto told = [&rig] {
        return rig.form.statusBar()->currentMessage().startsWith(
            "What is not saved cannot be kept for recovery: ");
    };
    rig.Type("^1");  // nobody sees the main window
    rig.Face(rig.Find<QWidget>("TForm1Header"));
    rig.Enter("Edit1", "4711");
    EXPECT_TRUE(QTest::qWaitFor([&rig] { return rig.form.isWindowModified(); }, 60'000));
    rig.Click("OkButton");
    EXPECT_TRUE(QTest::qWaitFor(told, 60'000));
    rig.form.Entries().Tune.SampleNo = "x";
    rig.Title();
    EXPECT_FALSE(told());
    EXPECT_TRUE(rig.log.shown.empty());
    // Of another batch, which is not restored as it stands in its file.
    rig.form.Entries().Tune.SampleNo = std::string(500, 'x');
    rig.form.RestoreFile(
        rig.dir.Write("long.qff", SaveBatch(rig.form.Batch(), rig.form.Entries())));
    EXPECT_TRUE(rig.form.isWindowModified());
    EXPECT_TRUE(told());
}

TEST(BatchKeeper, LosesNoBatchWhereItsFileIsNotAsItWasLeft) {
    const TempDir dir;
    const fs::path folder = dir.Path() / "recovery";
    RecoveryStore store(folder);
    const auto kept = [&folder] {
        std::string texts;
        for (const auto& file : fs::directory_iterator(folder)) {
            texts += file.path().extension() == ".recovery" ? ReadAll(file.path()) : "";
        }
        return texts;
    };
    EXPECT_EQ(store.Keep({}, "First"), std::nullopt);
    fs::rename(folder, dir.Path() / "away");
    EXPECT_EQ(store.Keep({}, "First"), std::nullopt);
    EXPECT_THAT(kept(), testing::HasSubstr("First")) << "it was removed";
    // The file cannot be given another name just now.
    fs::rename(folder, dir.Path() / "away2");
    store.SetAside();
    fs::rename(dir.Path() / "away2", folder);
    EXPECT_TRUE(store.Offer());
    EXPECT_EQ(store.Keep({}, "Second"), std::nullopt);
    EXPECT_THAT(kept(), testing::AllOf(testing::HasSubstr("First"), testing::HasSubstr("Second")));
    store.DropOffers();
    EXPECT_THAT(kept(), testing::Not(testing::HasSubstr("First")));
}

TEST(WindowPlaces, ComeBackWithinTheScreens) {
    WindowRig rig;
    const WindowPlaces places(rig.memory);
    const QRect room = rig.form.screen()->availableGeometry();
    const auto opened = [&](const QRect& place) {
        rig.memory.Keep("places/Resizable", place);
        QWidget window;
        window.setObjectName("Resizable");
        window.setGeometry(7, 38, 200, 100);
        window.show();
        return window.geometry();
    };
    const int bar = rig.form.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect usual(7, 38, 200, 100);
    const QSize large = room.size() + QSize(500, 500);
    const QRect largest = room.adjusted(0, bar, -4, 0);  // with room for the window's frame
    const int beyond = QGuiApplication::screens().last()->geometry().right();
    const std::pair<QRect, QRect> cases[] = {
        {{}, usual},
        {{30, 40, 300, 150}, {30, 40, 300, 150}},
        {{room.right() - 160, 40, 300, 150}, {room.right() - 299, 40, 300, 150}},
        {{beyond + 50, 40, 300, 150}, {7, 38, 300, 150}},  // of a screen that is gone
        {{30, -400, 300, 150}, {7, 38, 300, 150}},         // its bar cannot be reached
        {{{30, 40}, large}, largest},
        {{{-9000, 40}, large}, largest}};
    for (const auto& [kept, shown] : cases) {
        EXPECT_EQ(opened(kept), shown) << kept.x() << ' ' << kept.y();
    }
    QStandardItemModel model(2, 3);
    for (const int width : {0, 77}) {
        QMainWindow window;
        window.setObjectName("Parted");
        QTableView table(&window);
        table.setObjectName("Table");
        table.setModel(&model);
        window.show();
        EXPECT_EQ(table.columnWidth(1) == 77, width == 77);
        table.setColumnWidth(1, 77);
        window.close();
    }
    QDialog fixed;
    fixed.setFixedSize(100, 100);
    fixed.setObjectName("Fixed");
    fixed.show();
    fixed.hide();
    EXPECT_FALSE(rig.memory.Value("places/Fixed").isValid());
}

}  // namespace
}  // namespace qfr::test
