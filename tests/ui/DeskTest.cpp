// The main window's own page: what there is to begin with, and the batch's two tables.
#include <chrono>
#include <optional>

#include <QAccessible>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTableView>
#include <QTreeWidget>

#include "app/SampleTable.h"
#include "app/StartPage.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

struct DeskRig : WindowRig {
    DeskRig() {
        fs::create_directory_symlink(ExampleDir(), dir.Path() / "example");
        form.ShowMainWindow();
    }
    void OpenExample() {
        form.RestoreFile(Path("example/example.qff"));
        EXPECT_EQ(Focus(), "PreviewAllButton");
    }
    QTableView& Table(const char* name) const { return Get<QTableView>(name); }
    // A row, from 0, as it shows.
    std::string Row(const char* table, int row) const {
        const QAbstractItemModel& model = *Table(table).model();
        std::string texts;
        for (int column = 0; column < model.columnCount(); ++column) {
            texts += model.index(row, column).data().toString().toStdString() + "|";
        }
        return texts;
    }
    void Choose(const char* table, int row, int column = 0) const {
        Table(table).setCurrentIndex(Table(table).model()->index(row, column));
        Table(table).setFocus();
    }
    // The window that Enter there opens, with what has the focus in it; it is closed again.
    std::string Opened(const char* table, int row, int column = 0) {
        Choose(table, row, column);
        std::string place;
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, [&] {
            for (QWidget* const opened : QApplication::topLevelWidgets()) {
                if (place.empty() && opened->isVisible() && opened != &form) {
                    Face(*opened);
                    place = opened->objectName().toStdString() + " " + Focus();
                    if (const auto* const sample = opened->findChild<QComboBox*>("ZOVComboBox")) {
                        place += " " + sample->currentText().toStdString();
                    }
                    static_cast<QDialog*>(opened)->reject();
                }
            }
        });
        user.start(5);
        Press(Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !place.empty() && form.isVisible(); })) << place;
        user.stop();
        Face(form);
        return place;
    }
    std::string Status() const { return form.statusBar()->currentMessage().toStdString(); }
};

TEST(Desk, LeadsFromAFreshStartToTheExamplesPreviewWithTwoKeys) {
    WindowRig bare;
    EXPECT_EQ(bare.Focus(), "LoadFilesButton") << "there is no example";
    EXPECT_FALSE(bare.Get("OpenExampleButton").isEnabled());
    DeskRig rig;
    EXPECT_FALSE(rig.Get("RecentTree").isVisible() || rig.Get("RecoverButton").isVisible());
    rig.Get("OpenExampleButton").setFocus();
    rig.Use("\r", "", "PreviewAllButton");
    rig.Use("\r", "", "PreviewAllButton");
    EXPECT_THAT(rig.sink.begun, testing::ElementsAre("Data Package ZA101"));
    EXPECT_EQ(rig.sink.printer, kPreviewIndex);
    EXPECT_EQ(rig.Status(), "Preview All Forms: 18 of 18 jobs shown.");
    EXPECT_TRUE(rig.setups == 0 && !rig.form.Page().PrinterChosen) << "nobody chose a printer";
}

TEST(Desk, OffersTheBatchesOfLate) {
    DeskRig rig;
    rig.form.RestoreFile(rig.dir.Write("gone.qff", ReadAll(Example("example.qff"))));
    rig.OpenExample();
    rig.chooser.answers = {{rig.Path("saved.qff")}};
    for (QAction* const command : rig.form.findChildren<QAction*>()) {
        if (command->text() == "&Save Batch") {
            command->trigger();
        }
    }
    EXPECT_THAT(rig.log.TakeTexts(), testing::ElementsAre("File information saved."));
    fs::remove(rig.dir.Path() / "gone.qff");
    rig.form.Batch() = {};
    rig.form.ShowMainWindow();
    EXPECT_EQ(rig.Focus(), "RecentTree");
    const auto& tree = rig.Get<QTreeWidget>("RecentTree");
    ASSERT_EQ(tree.topLevelItemCount(), 3) << "at once";
    const auto isKnown = [&] { return tree.findItems("...", Qt::MatchExactly, 1).empty(); };
    ASSERT_TRUE(QTest::qWaitFor(isKnown));
    std::string shown;
    for (int row = 0; row < tree.topLevelItemCount(); ++row) {
        const QTreeWidgetItem& item = *tree.topLevelItem(row);
        EXPECT_THAT(rig.Path("x"),
                    testing::StartsWith(tree.topLevelItem(0)->text(2).toStdString()));
        shown += item.text(0).toStdString() + (item.text(1) == "is missing" ? " missing|" : "|");
    }
    EXPECT_EQ(shown, "saved.qff|example.qff|gone.qff missing|");

    rig.Press(Qt::Key_End);
    rig.Use("\r", "gone.qff is no longer in\n" + TextOf(rig.dir.Path()) + ".", "RecentTree");
    rig.Press(Qt::Key_Delete);
    EXPECT_EQ(tree.topLevelItemCount(), 2);
    rig.Use("\r", "", "PreviewAllButton");
    EXPECT_EQ(rig.form.Batch().Folder, TextOf(rig.dir.Path() / "example"));
    EXPECT_EQ(RecentBatches(rig.memory).front(), rig.Path("example/example.qff"));
    EXPECT_EQ(rig.noted, rig.Path("example/example.qff"));
}

TEST(Desk, OffersWhatThereIsACommandFor) {
    WindowRig rig;
    std::string done;
    StartPage page(
        {.LoadFolder = [&] { done += "folder "; }, .RecoverBatch = [&] { done += "recover "; }},
        rig.log, rig.memory, "");
    page.show();
    rig.Face(page);
    EXPECT_FALSE(rig.Get("RecoverButton").isVisible());
    page.SetRecovery("3 samples, 10:15");
    page.FocusFirst();
    rig.Use("\r&o", "", "RecoverButton");
    EXPECT_EQ(done, "recover folder ");
    EXPECT_EQ(rig.Get("RecoverButton").accessibleDescription(), "3 samples, 10:15");
}

TEST(Desk, OpensABatchOfLateOnlyOnceItsShareHasAnswered) {
    WindowRig rig;
    const std::string file = rig.dir.Write("a.qff", "");
    RememberBatch(rig.memory, file);
    std::string opened;
    StartPage page({.OpenBatch = [&](const std::string& batch) { opened = batch; }}, rig.log,
                   rig.memory, "");
    auto& tree = *page.findChild<QTreeWidget*>("RecentTree");
    QTest::keyClick(&tree, Qt::Key_Return);  // nothing that is found meanwhile has come yet
    EXPECT_EQ(opened, "");
    EXPECT_THAT(rig.log.TakeTexts(),
                testing::ElementsAre(testing::StartsWith("a.qff is still being looked for in\n")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tree.topLevelItem(0)->text(1) != "..."; }));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(opened, file);
}

TEST(Desk, ShowsHowFarSamplesAndFormsAre) {
    DeskRig rig;
    rig.OpenExample();
    EXPECT_EQ(rig.Row("SamplesTable", 6),
              "7|ZA104|F0505118-04|za104.prn|05/18/2005 12:14|26 of 26|8|...|");
    EXPECT_EQ(rig.Row("FormsTable", 2), "Form II, monitoring compound recovery|...|||");
    const auto isKnown = [&] { return !rig.Row("FormsTable", 2).ends_with("...|||"); };
    ASSERT_TRUE(QTest::qWaitFor(isKnown));
    EXPECT_THAT(rig.Row("SamplesTable", 6), testing::EndsWith("|2 warnings|"));
    EXPECT_EQ(rig.Row("FormsTable", 2), "Form II, monitoring compound recovery|Ready|||");

    rig.printed.Note({{"Form 2", "Form 1 ZA101", "Form 1 ZA102"}, "/d/all.pdf", true, 0});
    rig.Samples()[4].Header[HeaderField::kLabName] = "";
    rig.Samples()[4].TicList.emplace(3);
    rig.form.Entries().Tune.SampleNo = "";
    rig.form.ShowMainWindow();
    EXPECT_THAT(rig.Row("SamplesTable", 4), testing::HasSubstr("|25 of 26|3|"));
    EXPECT_THAT(rig.Row("FormsTable", 0), testing::HasSubstr("|Ready|2 of 10, 01/01/1970 "));
    ASSERT_TRUE(QTest::qWaitFor([&] { return Contains(rig.Row("FormsTable", 4), "Please"); }));
    EXPECT_THAT(rig.Row("FormsTable", 0), testing::EndsWith("|all.pdf|"));
    EXPECT_THAT(rig.Row("FormsTable", 0), testing::HasSubstr("Incomplete headers: 1 of 10"));

    rig.Samples()[4].FileName = "/other.prn";
    rig.form.ShowMainWindow();
    EXPECT_THAT(rig.Row("SamplesTable", 3), testing::EndsWith("|...|")) << "other samples";
    rig.OpenExample();
    EXPECT_THAT(rig.Row("FormsTable", 0), testing::EndsWith("|...|||")) << "another batch";
}

// Acts in the middle of a look through, of which a form takes its time.
struct InterruptedRig : DeskRig {
    bool LookAndAct(milliseconds time, const std::function<void()>& act) {
        bool acted = false;
        metrics.onMeasure = [&, time] {
            QTest::qSleep(static_cast<int>(time.count()));
            QTimer::singleShot(0, &form, [&] {
                EXPECT_THAT(Row("FormsTable", 0), testing::HasSubstr("|...|"));
                act();
                acted = true;
            });
        };
        OpenExample();
        return QTest::qWaitFor([&] { return acted; });
    }
    // Of the first form, when it is known again.
    std::string State() const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !Contains(Row("FormsTable", 0), "|...|"); }));
        return Row("FormsTable", 0);
    }
};

TEST(Desk, StartsItsLookThroughAnewWhenTheBatchChanges) {
    for (const bool isTold : {false, true}) {
        InterruptedRig rig;
        EXPECT_TRUE(rig.LookAndAct(milliseconds(30), [&] {
            rig.Samples()[4].Header[HeaderField::kLabName] = "";
            if (isTold) {
                rig.form.ShowMainWindow();
            }
        }));
        EXPECT_THAT(rig.State(), testing::HasSubstr("|Incomplete headers: 1 of 10|"));
    }
}

TEST(Desk, RestsItsLookThroughWhileADialogIsOpenAndEndsItWithTheProgram) {
    std::optional<InterruptedRig> rig(std::in_place);
    int measured = 0;
    const std::function<void()> count = [&] {
        ++measured;
        rig->metrics.onMeasure = count;
    };
    EXPECT_TRUE(rig->LookAndAct(milliseconds(600), [&] {
        EXPECT_TRUE(rig->Get("LookingLabel").isVisible());
        QDialog dialog(&rig->form);
        QTimer::singleShot(300, &dialog, &QDialog::reject);
        count();
        dialog.exec();
    }));
    EXPECT_EQ(measured, 1);
    EXPECT_THAT(rig->State(), testing::HasSubstr("|Ready|"));
    EXPECT_GT(measured, 1);
    EXPECT_FALSE(rig->Get("LookingLabel").isVisible());
    EXPECT_TRUE(rig->LookAndAct(milliseconds(30), [] {}));
    rig.reset();
}

TEST(Desk, LeadsToTheEntries) {
    DeskRig rig;
    rig.OpenExample();
    rig.Samples()[4].Header[HeaderField::kCaseNo] = "";
    rig.Table("SamplesTable").sortByColumn(SampleTable::kNumber, Qt::DescendingOrder);
    const std::tuple<const char*, int, int, const char*> places[] = {
        {"SamplesTable", 5, SampleTable::kSampleNo, "TForm1Header Edit5 ZA103"},
        {"SamplesTable", 0, SampleTable::kReport, "TForm1Header ZOVComboBox ZA107"},
        {"SamplesTable", 5, SampleTable::kTics, "TTICForm StringGrid1"},
        {"SamplesTable", 5, SampleTable::kFindings, "ReviewDialog FindingsTable"},
        {"FormsTable", 0, 0, "TForm1Header Edit1 ZA103"},
        {"FormsTable", 3, 1, "TMBSHeader RichEdit1"},
        {"FormsTable", 4, 0, "TTuneForm SampleEdit"},
    };
    for (const auto& [table, row, column, place] : places) {
        EXPECT_EQ(rig.Opened(table, row, column), place);
    }
    EXPECT_TRUE(rig.sink.begun.empty() && rig.log.shown.empty());
}

TEST(Desk, PrintsAFormOrTheSheetsOfASample) {
    DeskRig rig;
    rig.OpenExample();
    rig.Choose("FormsTable", 3);
    rig.Type("&m");
    EXPECT_EQ(rig.Status(), "Print Form: 1 of 1 job printed.");
    EXPECT_EQ(rig.sink.jobs.at(0).title, "Form 4 VBLK01");
    rig.sink.jobs.clear();
    rig.Choose("SamplesTable", 6);
    rig.Type("&s");
    EXPECT_EQ(rig.Status(), "Print Sample's Sheets: 2 of 2 jobs printed.");
    EXPECT_THAT(rig.sink.begun, testing::ElementsAre("Form 4", "Form 1 ZA104"));
    std::string titles;
    for (const PrintJob& job : rig.sink.jobs) {
        titles += job.title + "|";
    }
    EXPECT_EQ(titles, "Form 1 ZA104|Form 1 TIC ZA104|");
    EXPECT_EQ(rig.setups, 1);

    for (SampleRecord& sample : rig.Samples()) {
        sample.TicList.reset();
    }
    rig.Choose("FormsTable", 1);
    rig.Use("&m", "No sample has TICs.");
    rig.chooses = false;
    rig.form.Page().PrinterChosen = false;
    rig.Choose("FormsTable", 0);
    rig.Use("&m");
    EXPECT_EQ(rig.sink.begun.size(), 2U) << "the printer setup was cancelled";
}

TEST(Desk, CanBeUsedWithoutAMouse) {
    DeskRig rig;
    rig.memory.Keep("batches/recent", QStringList{"/a.qff"});
    for (const bool loaded : {false, true}) {
        if (loaded) {
            rig.OpenExample();
        } else {
            rig.form.ShowMainWindow();
        }
        QStringList once;  // mnemonics and names
        for (const QAction* const action : rig.form.menuBar()->actions()) {
            once << action->text().section('&', 1).left(1).toLower();
        }
        for (QWidget* const control : rig.form.centralWidget()->findChildren<QWidget*>()) {
            const QString key = control->property("text").toString().section('&', 1).left(1);
            if (control->isVisible() && !key.isEmpty()) {
                once << key.toLower();
            }
            if (control->isVisible() && (control->focusPolicy() & Qt::TabFocus) != 0 &&
                !control->focusProxy()) {
                const auto* const told = QAccessible::queryAccessibleInterface(control);
                EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << control;
                once << told->text(QAccessible::Name);
            }
        }
        EXPECT_EQ(once.removeDuplicates(), 0) << once.join('|').toStdString();
        rig.Press(Qt::Key_F1);
        EXPECT_EQ(rig.topics.back(), 10);
        rig.log.TakeTexts();
    }
}

}  // namespace
}  // namespace qfr::test
