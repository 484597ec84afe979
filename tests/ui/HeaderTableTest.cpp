// Edit All Headers, as somebody works in it who knows spreadsheets.
#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>

#include "dialogs/HeaderTableDialog.h"
#include "dialogs/SheetView.h"
#include "platform/qt/WindowPlaces.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

using enum HeaderField;

const std::string kNoFieldEnd =
    "A value cannot hold \";\": typed, it is left out; pasted, it becomes \",\".";

// The table on a blank and three samples without typed values.
struct TableRig : WindowRig {
    TableRig() {
        SampleListType& samples = form.Batch().SampleList.emplace(4);
        form.Batch().Files.LabBlank = "/d/b.prn";
        for (std::size_t i = 0; i < samples.size(); ++i) {
            samples[i].FileName = "/d/" + std::string(1, "bxyz"[i]) + ".prn";
            samples[i].Header[kZovSampleNo] = "Z" + std::to_string(i);
        }
        Open();
    }
    void Open() {
        Face(form);
        Type("^h");
        Face(dialog);
    }
    // Goes to the cell by keys alone.
    void To(int row, HeaderField field) {
        Press(Qt::Key_Home, Qt::ControlModifier);
        for (int i = 0; i < row; ++i) {
            Press(Qt::Key_Down);
        }
        for (int column = 1; column < static_cast<int>(field); ++column) {
            Press(Qt::Key_Right);
        }
    }
    void Extend(Qt::Key key, int times) {
        for (int i = 0; i < times; ++i) {
            Press(key, Qt::ShiftModifier);
        }
    }
    std::string At() {
        const HeaderCell cell = HeaderTable::CellAt(view.currentIndex());
        return std::to_string(cell.Record) + "." + std::to_string(static_cast<int>(cell.Field));
    }
    std::string Column(HeaderField field) {
        std::string text;
        for (const SampleRecord& sample : Samples()) {
            text += sample.Header[field] + "|";
        }
        return text;
    }
    std::string Text(const char* label) { return Get<QLabel>(label).text().toStdString(); }

    HeaderTableDialog& dialog = Find<HeaderTableDialog>("HeaderTableDialog");
    SheetView& view = *dialog.findChild<SheetView*>("HeadersTable");
};

TEST(HeaderTable, IsTypedInLikeASpreadsheet) {
    TableRig rig;
    EXPECT_EQ(rig.At(), "0.1");
    rig.To(0, kLabName);
    rig.Type("A\tB\tC\r");
    EXPECT_EQ(rig.At(), "1.3") << "below where the Tabs began";
    EXPECT_EQ(rig.Column(kLabName) + rig.Column(kLabCode), "A||||C||||");
    rig.Type("D;E");
    EXPECT_EQ(rig.Text("RemarkLabel"), kNoFieldEnd);
    rig.Press(Qt::Key_Down);
    EXPECT_EQ(rig.At() + rig.Samples()[1].Header[kLabName], "2.3DE");
    EXPECT_EQ(rig.Text("RemarkLabel"), kNoFieldEnd) << "for whoever looks at what was entered only";
    rig.Press(Qt::Key_Up);
    rig.Press(Qt::Key_F2);
    rig.Type("x\33");
    EXPECT_EQ(rig.Samples()[1].Header[kLabName], "DE");
    EXPECT_TRUE(rig.dialog.isVisible()) << "Escape leaves the cell only";
    rig.Press(Qt::Key_F2);
    rig.Type("x\r");
    EXPECT_EQ(rig.Samples()[1].Header[kLabName] + rig.Text("RemarkLabel"), "DEx");
    rig.Press(Qt::Key_Up);
    rig.Press(Qt::Key_Delete);
    EXPECT_EQ(rig.Samples()[1].Header[kLabName], "");
    rig.Type("^z");
    EXPECT_EQ(rig.Samples()[1].Header[kLabName], "DEx");

    rig.Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(rig.At(), "3.26");
    rig.Press(Qt::Key_Home);
    rig.Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(rig.At(), "2.26");
    rig.Press(Qt::Key_Down);
    rig.Type("\t");
    EXPECT_EQ(rig.Focus(), "FillDownButton") << "no trap";
    rig.Press(Qt::Key_Delete);
    EXPECT_EQ(rig.Samples()[3].Header[kZovSampleNo], "Z3");
}

TEST(HeaderTable, TakesCellsFromTheClipboardAndGivesThem) {
    TableRig rig;
    rig.To(0, kLabName);
    rig.Paste("Fair;haven\tC-17\r\n\"two\r\nlines\"\t\r\n");
    EXPECT_EQ(rig.Column(kLabName) + rig.Column(kContract), "Fair,haven|two lines|||C-17||||");
    EXPECT_EQ(rig.view.selectionModel()->selectedIndexes().size(), 4);
    EXPECT_EQ(rig.Text("RemarkLabel"), kNoFieldEnd);
    rig.Type("^c^z");
    EXPECT_EQ(rig.Text("RemarkLabel"), "");
    EXPECT_EQ(rig.Column(kLabName) + rig.Column(kContract), "||||||||") << "one step";
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "Fair,haven\tC-17\ntwo lines\t\n");
    rig.Type("^y^x");
    EXPECT_EQ(rig.Column(kLabName) + rig.Column(kContract), "||||||||");

    rig.To(1, kLabCode);
    rig.Extend(Qt::Key_Down, 2);
    rig.Paste("FHAV");
    EXPECT_EQ(rig.Column(kLabCode), "|FHAV|FHAV|FHAV|");
    rig.To(3, kColumnLength);
    rig.Paste("30\t1\n31");
    EXPECT_EQ(rig.Column(kColumnLength), "|||30|");
    EXPECT_THAT(rig.log.TakeTexts(),
                testing::ElementsAre("The clipboard has more than there is room for from here on.\n"
                                     "Left out at its end: rows: 1, columns: 1."));
    // While a cell is typed in.
    rig.To(0, kCaseNo);
    rig.Press(Qt::Key_F2);
    rig.Paste("1\n2");
    EXPECT_EQ(rig.Column(kCaseNo), "1|2|||");
    rig.Press(Qt::Key_F2);
    rig.Paste(";3");
    EXPECT_EQ(rig.Text("RemarkLabel"), kNoFieldEnd);
    rig.Type("\r");
    EXPECT_EQ(rig.Column(kCaseNo) + rig.Text("RemarkLabel"), "1,3|2|||" + kNoFieldEnd);
}

TEST(HeaderTable, FillsLaboratoryWideValues) {
    TableRig rig;
    rig.To(2, kLabName);
    rig.Paste("Fair\tC\tF\t3\t1\tS");
    rig.Type("^a^e");
    EXPECT_EQ(rig.Column(kLabName) + rig.Column(kSdgNo), "Fair|Fair|Fair|Fair|S|S|S|S|");
    EXPECT_EQ(rig.Column(kLabSampleId), "||||");
    rig.To(1, kSdgNo);
    rig.Type("T\r");
    rig.To(1, kSdgNo);
    rig.Extend(Qt::Key_Down, 2);
    rig.Type("^d");
    EXPECT_EQ(rig.Column(kSdgNo), "S|T|T|T|");
    rig.Type("^z^z^z^z");
    EXPECT_EQ(rig.Column(kLabName) + rig.Column(kSdgNo), "||||||||");
}

TEST(HeaderTable, WorksOnWhatIsBeingTyped) {
    struct Case {
        const char* command;
        int row;
        int up;  // rows that are selected above it
        const char* column;
        const char* clipboard = "A\nB\nC";
    };
    const Case cases[] = {
        {"&Copy", 1, 0, "A|X|C||", "X\n"}, {"Cu&t", 1, 0, "A||C||", "X\n"},
        {"Fill &Down", 2, 1, "A|X|X||"},   {"Fill E&mpty Cells", 3, 0, "A|B|C|X|"},
        {"Undo Paste", 1, 0, "A|B|C||"},
    };
    for (const auto& [command, row, up, column, clipboard] : cases) {
        SCOPED_TRACE(command);
        TableRig rig;
        rig.To(0, kLabName);
        rig.Paste("A\nB\nC");
        rig.To(row, kLabName);
        rig.Extend(Qt::Key_Up, up);
        rig.Type("X");
        EXPECT_EQ(rig.Column(kLabName), "A|B|C||");
        for (QAction* const action : rig.dialog.findChildren<QAction*>()) {
            if (action->text() == command) {
                action->trigger();
                break;
            }
        }
        EXPECT_EQ(rig.Column(kLabName), column);
        EXPECT_EQ(QApplication::clipboard()->text().toStdString(), clipboard);
    }
    // A menu that is opened tells already what it would undo.
    TableRig rig;
    rig.Type("X");
    emit rig.dialog.findChild<QMenu*>()->aboutToShow();
    EXPECT_EQ(rig.Samples()[0].Header[kZovSampleNo], "X");
}

TEST(HeaderTable, TellsWhatItDoesNotTake) {
    TableRig rig;
    rig.To(1, kDateAnalyzed);
    rig.Type("2/30/2005 9:00");
    Batch copy = rig.form.Batch();
    rig.dialog.StoreInto(copy, rig.form.Entries());
    EXPECT_EQ(copy.SampleList->at(1).Header[kDateAnalyzed], "") << "nor keeps it for recovery";
    rig.Type("\r");
    const std::string fault =
        "Date Analyzed is no date. 02/30/2005 does not exist: February 2005 has 28 days.";
    const std::string refusal = "Z1: \"2/30/2005 9:00\". " + fault;
    EXPECT_EQ(rig.Text("NoteLabel"), "Z2: Date Analyzed is empty.");
    EXPECT_EQ(rig.Text("RemarkLabel"), "Not taken: " + refusal);
    rig.Press(Qt::Key_Up);
    EXPECT_EQ(rig.Text("NoteLabel"), "Z1: " + fault + " It was not taken.");
    EXPECT_EQ(rig.Samples()[1].Header[kDateAnalyzed], "");
    for (const int role : {Qt::AccessibleDescriptionRole, Qt::ToolTipRole}) {
        EXPECT_EQ(rig.view.currentIndex().data(role).toString().toStdString(),
                  fault + " It was not taken.");
    }

    rig.log.answers = {false, true};
    rig.To(0, kLabName);
    rig.Type("\33");
    EXPECT_EQ(rig.At(), "1.15");
    EXPECT_TRUE(rig.dialog.isVisible());
    rig.Type("\33");
    EXPECT_FALSE(rig.dialog.isVisible());
    EXPECT_TRUE(rig.log.noByDefault);
    const std::string question =
        "These values were not taken:\n" + refusal + "\nClose without them?";
    EXPECT_THAT(rig.log.TakeTexts(), testing::ElementsAre(question, question));

    rig.Open();
    EXPECT_EQ(rig.Text("RemarkLabel"), "");
    rig.To(0, kDateReceived);
    rig.Paste("x\ty\nx\ty\nx\ty\nx" + std::string(50, 'x'));
    EXPECT_EQ(rig.Text("RemarkLabel"),
              "7 values were not taken. The first: Z0: \"x\". Date Received is no date.");
    rig.log.answers = {false};
    rig.Type("\33");
    EXPECT_THAT(rig.log.TakeTexts().at(0),
                testing::EndsWith("Z2: \"x\". Date Received is no date.\nand 2 more\n"
                                  "Close without them?"));
    rig.To(0, kDateReceived);
    rig.Extend(Qt::Key_Down, 2);
    rig.Press(Qt::Key_Delete);
    rig.To(0, kDateAnalyzed);
    rig.Extend(Qt::Key_Down, 2);
    rig.Press(Qt::Key_Delete);
    rig.log.answers = {false};
    rig.Type("\33");
    EXPECT_THAT(rig.log.TakeTexts().at(0),
                testing::HasSubstr("Z3: \"" + std::string(40, 'x') + "...\". Date"));
    rig.Type("^z^z^z");
    EXPECT_EQ(rig.Text("CompleteLabel"), "0 of 4 headers complete");
    rig.To(1, kDateAnalyzed);
    EXPECT_EQ(rig.Text("NoteLabel"), "Z1: Date Analyzed is empty.");
    rig.Type("2/28/2005 9:00\r");
    EXPECT_EQ(rig.Samples()[1].Header[kDateAnalyzed], "02/28/2005 09:00");
    rig.Use("&c");
    EXPECT_FALSE(rig.dialog.isVisible());
}

TEST(HeaderTable, OffersChoicesAndFollowsTheMatrix) {
    TableRig rig;
    rig.To(1, kMatrix);
    rig.Type("so\r");
    EXPECT_EQ(rig.Column(kMatrix), "WATER|SOIL|WATER|WATER|");
    EXPECT_EQ(rig.Column(kPercentMoisture), "N/A|0|N/A|N/A|");
    rig.Press(Qt::Key_F2);
    rig.Press(Qt::Key_Up);
    rig.Type("\t");
    EXPECT_EQ(rig.Samples()[2].Header[kMatrix], "SED");
    rig.Press(Qt::Key_Left);
    rig.Press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
    rig.Type("\33^z^z");
    EXPECT_EQ(rig.Column(kMatrix) + rig.Column(kPercentMoisture),
              "WATER|WATER|WATER|WATER|N/A|N/A|N/A|N/A|");
    EXPECT_EQ(rig.At(), "1.9") << "where it was undone";
}

TEST(HeaderTable, CountsCompleteHeadersAndFinds) {
    TableRig rig;
    std::string all = "ZA1";
    for (int number = 2; number <= SampleHeader::kCount; ++number) {
        all += "\t";
        all += number == 14 || number == 15 ? ":" : std::to_string(number);
    }
    rig.To(3, kZovSampleNo);
    EXPECT_EQ(rig.Text("CompleteLabel"), "0 of 4 headers complete");
    rig.Paste(all);
    EXPECT_EQ(rig.Text("CompleteLabel"), "1 of 4 headers complete");
    EXPECT_EQ(rig.Samples()[3].Header[kDateReceived], "  /  /       :  ");

    rig.To(0, kZovSampleNo);
    rig.Type("^f");
    EXPECT_EQ(rig.Focus(), "FindEdit");
    rig.Type("za1");
    const auto found = [&rig] { return rig.At() + " " + rig.Text("FindCount"); };
    EXPECT_EQ(found(), "3.1 1 of 1");
    rig.Enter("FindEdit", "2");
    EXPECT_EQ(found(), "3.2 2 of 10") << "behind Z2";
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*> steps[] = {
        {Qt::Key_Return, {}, "3.12 3 of 10"},
        {Qt::Key_Return, Qt::ShiftModifier, "3.2 2 of 10"},
        {Qt::Key_F3, Qt::ShiftModifier, "2.1 1 of 10"},
        {Qt::Key_F3, Qt::ShiftModifier, "3.26 10 of 10"},
        {Qt::Key_X, Qt::AltModifier, "2.1 1 of 10"},
        {Qt::Key_F3, {}, "3.2 2 of 10"}};
    for (const auto& [key, modifiers, place] : steps) {
        rig.Press(key, modifiers);
        QTest::qWait(modifiers == Qt::AltModifier ? 150 : 0);
        EXPECT_EQ(found(), place);
    }
    rig.Enter("FindEdit", "nowhere\r");
    EXPECT_EQ(rig.Text("FindCount"), "Not found");
    rig.Type("\33");
    EXPECT_EQ(rig.Focus(), "HeadersTable");
    EXPECT_TRUE(rig.dialog.isVisible());
    // From wherever the cursor is, in what the cells hold by now.
    rig.To(1, kZovSampleNo);
    rig.Type("Z22\r^f2");
    EXPECT_EQ(found(), "2.1 2 of 11");
    for (const char* const key : {"F3", "Return"}) {
        rig.Type("\33");
        rig.To(0, kZovSampleNo);
        rig.Type(key == std::string("F3") ? "" : "^f");
        EXPECT_EQ(rig.At(), "0.1") << "only opened";
        rig.Press(key == std::string("F3") ? Qt::Key_F3 : Qt::Key_Return);
        EXPECT_EQ(found(), "1.1 1 of 11") << key;
    }
}

TEST(HeaderTable, KeepsTheFirstColumnInSight) {
    TableRig rig;
    rig.dialog.resize(600, 400);
    QTest::qWait(0);
    rig.Press(Qt::Key_End);
    EXPECT_GT(rig.view.horizontalScrollBar()->value(), 0);
    const QRect first = rig.view.visualRect(rig.view.model()->index(2, 0));
    EXPECT_EQ(first.left(), 0);
    QTest::mouseClick(rig.view.viewport(), Qt::LeftButton, {}, first.center());
    EXPECT_EQ(rig.At(), "2.1");
    rig.Type("N\r");
    EXPECT_EQ(rig.Samples()[2].Header[kZovSampleNo], "N");
    EXPECT_GT(rig.view.horizontalScrollBar()->value(), 0) << "no need to scroll";
    rig.To(2, kMatrix);
    rig.Press(Qt::Key_End);
    for (int i = 0; i < 20; ++i) {
        rig.Press(Qt::Key_Left);
        EXPECT_GE(rig.view.visualRect(rig.view.currentIndex()).left(), first.width());
    }
    QTest::mouseClick(rig.view.horizontalHeader()->viewport(), Qt::LeftButton, {}, {20, 10});
    EXPECT_EQ(rig.At(), "0.1") << "its head, too";
    // A selection that goes on under the first column.
    rig.To(2, kMatrix);
    rig.Extend(Qt::Key_End, 1);
    rig.Extend(Qt::Key_Left, 2);
    EXPECT_EQ(rig.view.selectionModel()->selectedIndexes().size(), 16);
}

TEST(HeaderTable, AsksForFilesAndHelps) {
    WindowRig().Use("^h", "Please use Data Files|Load Files menu selections\nto specify files.");
    TableRig table;
    table.Press(Qt::Key_F1);
    EXPECT_THAT(table.topics, testing::ElementsAre(kHeadersHelpTopic));
}

TEST(HeaderTable, ItsColumnsFollowTheirValuesUnlessTheyAreResized) {
    TableRig rig;
    const WindowPlaces places(rig.memory);
    const auto isWhole = [&](HeaderField field) {
        const QModelIndex cell = rig.view.model()->index(0, static_cast<int>(field) - 1);
        return rig.view.columnWidth(cell.column()) >= rig.view.sizeHintForIndex(cell).width();
    };
    rig.To(0, kLabName);
    rig.Paste("Fairhaven Analytical Inc.\tTQW-05-0417 of Fairhaven");
    EXPECT_TRUE(isWhole(kLabName) && isWhole(kContract));
    rig.To(0, kSdgNo);
    rig.Paste(std::string(80, 'W'));
    EXPECT_FALSE(isWhole(kSdgNo)) << "there is a limit";

    rig.view.setColumnWidth(2, 77);
    rig.Type("\33");
    rig.Samples()[0].Header[kContract] = "";
    rig.Samples()[0].Header[kLabCode] = "FAIRHAVEN-0417-1284";
    const int before = rig.view.columnWidth(3);
    rig.Open();
    EXPECT_EQ(rig.view.columnWidth(2), 77);
    EXPECT_LT(rig.view.columnWidth(3), before);
    EXPECT_TRUE(isWhole(kLabCode));
    HeaderTableDialog next(rig.form, rig.form, rig.memory, nullptr);
    EXPECT_EQ(next.findChild<SheetView*>()->columnWidth(2), 77);
}

}  // namespace
}  // namespace qfr::test
