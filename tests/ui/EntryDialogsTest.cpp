#include <QLabel>
#include <QPlainTextEdit>

#include "dialogs/EntryFormDialog.h"
#include "dialogs/EntryGrid.h"
#include "dialogs/MBSHeader.h"
#include "dialogs/TicForm.h"
#include "platform/DateTime.h"
#include "platform/Text.h"
#include "platform/qt/MaskEdit.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

template <EntryDialog dialog>
using EntryRig = DialogRig<EntryFormDialog, dialog>;

const char* const kDateFormat = "Enter the date/time format as\n MM/DD/YYYY or HH:MI";
const char* const kRequired = "Please enter an appropriate value.";
const char* const kNoValue = "Please enter a value.";
const char* const kNoHelp = "The help file QFRHelp.chm could not be found.";

TEST(Form2Dlg, TakesKindAndFileByKeyboardAlone) {
    const std::tuple<const char*, const char*, RecoveryLimits> cases[] = {
        {"&s", "RadioButton2", RecoveryLimits::kSoil},
        {"&i", "RadioButton3", RecoveryLimits::kOil},
        {"&w", "RadioButton1", RecoveryLimits::kWater}};
    const char* const kNoFile = "Please select a file for ranges.";
    EntryRig<EntryDialog::kRecoveryRanges> rig;
    RangesEntry& stored = rig.form.Entries().Ranges;
    for (const auto& [key, button, limits] : cases) {
        stored.FileName = "  ";
        EXPECT_TRUE(rig.Run([&rig, &kNoFile, key = key] {
            rig.Type(key);
            rig.Use("&o", kNoFile, "FileEdit");
            rig.Use("^ar.txt\r");
        }));
        EXPECT_EQ(stored, (RangesEntry{"r.txt", limits}));
        EXPECT_FALSE(rig.Run([&rig, button = button] {
            EXPECT_EQ(rig.Focus() + rig.Shown(button), button + std::string("|true"));
            rig.Use("&rtyped\33");
        }));
        EXPECT_EQ(stored, (RangesEntry{"typed", limits}));
    }
}

TEST(Form2Dlg, EmptiesItsFileForOneThatIsRefused) {
    EntryRig<EntryDialog::kRecoveryRanges> rig;
    rig.form.Entries().Ranges.FileName = "typed";
    const std::string notes = rig.dir.Write("notes.txt", "recovery range\n");
    const std::string good = rig.dir.Write("Good.txt", "Recovery Ranges of May\n");
    rig.chooser.answers = {{notes}, {good}};
    rig.Run([&] {
        rig.Click("BrowseButton");
        const char* const kRefused = " is not a recovery ranges file.\nPlease select another file.";
        rig.Use("", notes + kRefused, "FileEdit");
        EXPECT_EQ(rig.Shown("FileEdit"), "|");
        rig.Click("BrowseButton");
        EXPECT_EQ(rig.Shown("FileEdit"), "|" + good);
        rig.Use("\33");
    });
    EXPECT_EQ(rig.chooser.opened[0].kind, FileKind::kText);
    EXPECT_EQ(rig.chooser.opened[0].directory, "/texts");
}

TEST(MBSHeader, HasRoomFor256Characters) {
    const std::string a(100, 'a');
    const std::string b(155, 'b');
    using Lines = std::vector<std::string>;
    const std::tuple<Lines, Qt::Key, std::string, Lines> cases[] = {
        {{a, b}, Qt::Key_End, "yz", {a, b}},
        {{a, b}, Qt::Key_Home, "y\nz", {a, b}},
        {{"Note: "}, Qt::Key_End, a + "\n" + b, {"Note: " + a, b.substr(6)}},
        {{a, b, a}, Qt::Key_End, "yz", {a, b, a}},
        {{}, Qt::Key_End, ";c\nd", {",c", "dx", ""}}};
    for (const auto& [before, goTo, pasted, after] : cases) {
        DialogRig<TMBSHeader> rig;
        rig.form.Entries().Comments.Lines = before;
        rig.Run([&rig, goTo = goTo, pasted = pasted] {
            rig.Press(goTo, Qt::ControlModifier);
            rig.Paste(pasted);
            rig.Type("x;");
            EXPECT_THAT(rig.Get<QLabel>("RoomLabel").text().toStdString(),
                        testing::HasSubstr("A value cannot hold \";\""));
            rig.Type("\r\33");
        });
        EXPECT_EQ(rig.form.Entries().Comments.Lines, after);
    }
}

TEST(MBSHeader, ShowsAndAsksAboutWhatTheFormHasNoRoomFor) {
    DialogRig<TMBSHeader> rig;
    rig.form.Entries().Comments.Lines = {"one", std::string(91, 'b'), "three"};
    rig.log.answers = {false, true};
    EXPECT_TRUE(rig.Run([&] {
        const std::string asked =
            "The two lines for comments on Form IV have no room for this:\nThe end of line 2: " +
            std::string(14, 'b') + "\nLine 3: three\nPrint the form all the same?";
        EXPECT_EQ(rig.Get<QLabel>("RoomLabel").text().toStdString(),
                  "Two lines print, each 5.4 inches long. Used: 0.2 and 6.3 inches.\n"
                  "What is struck out has no room on the form.");
        EXPECT_EQ(rig.Get<QPlainTextEdit>("RichEdit1").extraSelections().size(), 2);
        rig.Use("\t\r", asked, "RichEdit1");
        rig.Use("\t\r", asked);
    }));
}

struct TuneRig : EntryRig<EntryDialog::kTune> {
    TuneRig() {
        form.Batch().SampleList.emplace(2)[1].Header[HeaderField::kInstrumentId] = "GC 2";
        stored = {"BFB01", "", "B0516.D", "05/16/2005", "08:30", {}};
        stored.Abundances.fill("20");
    }

    TuneEntry& stored = form.Entries().Tune;
};

TEST(TuneForm, IsFilledByKeyboardAlone) {
    TuneRig rig;
    rig.stored = {};
    EXPECT_TRUE(rig.Run(1, [&] {
        const auto told = [&rig] { return !rig.Get<QLabel>("EntryNote").text().isEmpty(); };
        rig.Use("BF;B01\t");
        EXPECT_TRUE(told());
        rig.Use("\t05162005\tB0516.D\t0830\t", "", "StringGrid1");
        EXPECT_FALSE(told());
        // Back to the second value, to the first one and out of the grid, as Shift+Tab arrives.
        rig.Use("20;.1\t");
        EXPECT_TRUE(told());
        rig.Use("44\t");
        EXPECT_FALSE(told());
        for (const char* const typed : {"^a45.2", "", ""}) {
            rig.Press(Qt::Key_Backtab, Qt::ShiftModifier);
            rig.Type(typed);
        }
        EXPECT_EQ(rig.Focus(), "MaskEdit2");
        rig.Use("\t\t\t100\t6.5\t0.4\t80\t6\t98.5\r6.1\t", "", "PrintToCombo");
        rig.Use("\t", "", "OkButton");
        rig.Use("\r");
    }));
    EXPECT_THAT(rig.stored.Abundances, testing::ElementsAre("20.1", "45.2", "100", "6.5", "0.4",
                                                            "80", "6", "98.5", "6.1"));
    rig.stored.Abundances = {};
    EXPECT_EQ(rig.stored, (TuneEntry{"BFB01", "GC 2", "B0516.D", "05/16/2005", "08:30", {}}));
}

TEST(TuneForm, SaysOfEachAbundanceWhetherItIsInRange) {
    // The row, from 0; what is typed; what is said while it is.
    const std::tuple<int, const char*, const char*> cases[] = {
        {0, "15", "In range: 15.0 - 40.0% of mass 95"},
        {0, "14.9", "Out of range: 15.0 - 40.0% of mass 95"},
        {1, "1,5", "Not a number"},
        {2, "99",
         "The base peak is 100% by definition. Form V prints any other value without a flag."},
        {1, "\b", ""},
        {4, "2.0",
         "The criterion is \"Less than 2.0% of mass 174\", and this is the limit itself. Form V "
         "prints it without a flag."},
        {7, "78.4",
         "Out of range: 95.0 - 101.0% of mass 174. It is 98.0% of mass 174: typed relative to "
         "mass 95?"}};
    TuneRig rig;
    rig.stored.Abundances[5] = "80";
    rig.Run(1, [&] {
        auto& grid = rig.Get<EntryGrid>("StringGrid1");
        for (const auto& [row, typed, said] : cases) {
            grid.setFocus();
            grid.setCurrentCell(row, 2);
            rig.Type("^a");
            rig.Type(typed);
            EXPECT_EQ(QApplication::focusWidget()->accessibleDescription(), said) << typed;
            EXPECT_EQ(grid.item(row, 2)->data(Qt::AccessibleDescriptionRole).toString(), said);
        }
        rig.Type("\33\33");
    });
}

TEST(TuneForm, TakesWhatIsTypedRightAfterAClickIntoTheClickedCell) {
    TuneRig rig;
    rig.stored.Abundances[3] = "6.7";  // begins as what is typed
    EXPECT_FALSE(rig.Run(1, [&] {
        auto& grid = rig.Get<EntryGrid>("StringGrid1");
        const QPoint place = grid.visualRect(grid.currentIndex()).center();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
        rig.Type("60\t\33\33");
    }));
    EXPECT_EQ(rig.stored.Abundances[0], "60");
    EXPECT_EQ(rig.stored.Abundances[3], "6.7");
}

TEST(TuneForm, HoldsTheUserAtAWrongEntryThatIsLeft) {
    for (const char* const next : {"\t", "MaskEdit1", "OkButton"}) {
        SCOPED_TRACE(next);
        TuneRig rig;
        EXPECT_FALSE(rig.Run([&] {
            rig.Enter("FileEdit", "\b");
            *next == '\t' ? rig.Type(next) : rig.Click(next);
            rig.Use("", kNoValue, "FileEdit");
            rig.Click("HelpButton");
            rig.Use("", kNoHelp, "FileEdit");
            rig.Click("CancelButton");
        }));
        rig.Use("");
    }
}

TEST(TuneForm, CancelKeepsWhatWasTypedButNotTheInstrument) {
    TuneRig rig;
    EXPECT_FALSE(rig.Run(1, [&] {
        rig.Use("BFB9\tOther\t1\t", kDateFormat, "MaskEdit1");
        const QString note = "15/16/2005 does not exist: a year has the months 1 to 12.";
        EXPECT_EQ(rig.Get<QLabel>("EntryNote").text(), note);
        EXPECT_EQ(rig.Get("MaskEdit1").accessibleDescription(), note);
        rig.Use("\33");
    }));
    EXPECT_EQ(rig.stored.InjectionDate, "15/16/2005");
    EXPECT_EQ(rig.stored.InstrumentId, "Other");
    EXPECT_FALSE(rig.Run(1, [&] {
        EXPECT_EQ(rig.Shown("SampleEdit", "InstrEdit"), "|BFB9|GC 2");
        rig.Use("\33");
    }));
}

TEST(InitCalInput, ShowsTheLevelsAndAsksForTheirFiles) {
    EntryRig<EntryDialog::kInitialCalibration> rig;
    rig.form.Entries().ContinuingCalibration.FirstStandard = "05/16/2005 09:41";
    rig.form.LevelCount() = 2;
    EXPECT_TRUE(rig.Run([&] {
        EXPECT_TRUE(rig.Get("CalFileEdit2").isVisible());
        EXPECT_FALSE(rig.Get("CalFileEdit3").isVisible() || rig.Get("BrowseButton3").isVisible());
        EXPECT_EQ(rig.Shown("CalStartMaskEdit"), "|05/16/2005 09:41");
        rig.Use("&l051620051149\t");
        rig.Use("\r", kRequired, "CalFileEdit1");
        rig.Use("EARLY.D\t\tlate.d\r");
    }));
    EXPECT_EQ(rig.form.Entries().InitialCalibration.LabFileIds[1], "late.d");
}

TEST(ChkCalForm, AsksForItsCriteriaAndBrowsesOnAClick) {
    EntryRig<EntryDialog::kContinuingCalibration> rig;
    rig.form.Entries().StandardSummary.SampleNo = "VSTD050CC";
    rig.form.Batch().SampleList.emplace(1)[0].Header[HeaderField::kInstrumentId] = "GC 2";
    const std::string good = rig.dir.Write("criteria.txt", "RF criteria\n");
    rig.chooser.answers = {{good}};
    EXPECT_FALSE(rig.Run([&] {
        EXPECT_EQ(rig.Shown("ZOV_IDEdit", "InstrEdit"), "|vstd050cc|GC 2");
        rig.Use("vstd050c.d\r", kRequired, "LimitEdit");
        rig.Click("LimitEdit");
        EXPECT_EQ(rig.Shown("LimitEdit"), "|" + LowerCase(good));
        rig.Use("\33");
    }));
}

TEST(ARTSummForm, TheSampleNumberChoosesTheLevel) {
    EntryRig<EntryDialog::kStandardSummary> rig;
    rig.form.Batch().Files.Calib = Example("VOA0516.CAL");
    rig.form.LevelCount() = 5;
    EXPECT_TRUE(rig.Run([&] {
        const char* const kNotFound =
            "A calibration concentration of 99 was not found.\nPlease re-enter the sample ID with "
            "a calibration concentration.";
        rig.Use("&zVSTD099A1\r", kNotFound, "SampleEdit");
        rig.Use("\t", kNotFound, "SampleEdit");
        rig.Use("VSTD050A1\r", kRequired, "RTEdit1");
        EXPECT_EQ(rig.Shown("ConcCombo", "LabFileEdit"), "|50|VSTD050.D");
        rig.Use("late\t", "Please enter the retention time in minutes, as 8.84.", "RTEdit1");
        rig.Use("8.84\t6.01\t11.82\t\r");
    }));
    EXPECT_EQ(rig.form.Entries().StandardSummary.LevelIndex, 2);
}

TEST(ARTSummForm, SaysWhichReportGivesAnEntry) {
    WindowRig rig;
    rig.form.RestoreFile(Example("example.qff"));
    QTimer::singleShot(0, [&] {
        rig.Face(*QApplication::activeModalWidget());
        const auto said = [&rig](const char* name) {
            return rig.Get<QLabel>(name).text().toStdString();
        };
        EXPECT_EQ(said("LabFileEditSource"), "from check report vstd050c.check");
        EXPECT_EQ(said("MaskEdit1Source"), "from check report vstd050c.check");
        EXPECT_EQ(said("MaskEdit2Source"), "first from calibration report voa0516.cal");
        EXPECT_EQ(said("SampleEditSource"), "from the entry of Form VII");
        EXPECT_EQ(rig.Get("LabFileEdit").accessibleDescription(),
                  "from check report vstd050c.check");
        rig.Enter("LabFileEdit", "vstd005.d");
        EXPECT_EQ(said("LabFileEditSource"), "from calibration report voa0516.cal");
        rig.Type("x");
        EXPECT_EQ(said("LabFileEditSource"), "");
        rig.Type("\33");
    });
    rig.Type("^8");
}

TEST(ARTSummForm, KeepsWhatItFillsSelected) {
    EntryRig<EntryDialog::kStandardSummary> rig;
    rig.form.Batch().Files.Calib = Example("VOA0516.CAL");
    rig.form.LevelCount() = 5;
    rig.Run([&] {
        rig.Type("&zVSTD050A1\t");  // fills the entry that it goes to
        EXPECT_EQ(rig.Shown("LabFileEdit"), "|VSTD050.D");
        rig.Type("mine.d");
        EXPECT_EQ(rig.Shown("LabFileEdit"), "|mine.d");
        rig.Type("\33");
    });
}

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

const char* const kDateTimeMask = "!99/99/9999 99:99;1;_";
const char* const kDateMask = "!90/90/0000;1;_";
const char* const kTimeMask = "!90:00;1;_";

TEST(MaskEdit, TakesTextsAndGivesThemBackAsLongAsTheMask) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {kDateTimeMask, "/  /       :", "  /  /       :  "},
        {kDateTimeMask, "1 /2 /2005 9 :05", " 1/ 2/2005  9:05"},
        {kDateTimeMask, "1/2/2005 9:05", "01/02/2005 09:05"},
        {kDateTimeMask, "1/2/05 2:05:30 PM", "01/02/2005 14:05"},
        {kDateTimeMask, "1/2/2005", "01/02/2005   :  "},
        {kDateTimeMask, "9:05", "  /  /      9:05"},
        {kDateMask, "5/12/2005 10:00", "05/12/2005"},
        {kTimeMask, "9:05 PM", "21:05"},
        {kTimeMask, "nonsense", "  :  "},
    };
    for (const auto& [mask, given, text] : cases) {
        MaskEdit edit;
        edit.SetMask(mask);
        edit.SetMaskText("12/31/1999 23:59");
        edit.SetMaskText(given);
        EXPECT_EQ(edit.MaskText(), text) << "from " << given;
    }
}

TEST(MaskEdit, IsTypedInPastedIntoAndErased) {
    MaskEdit edit;
    edit.SetMask(kDateTimeMask);
    edit.show();
    WindowUser user;
    user.Face(edit);
    for (const char* typed :
         {"010220050905", "01/02/2005 09:05", "1/2/2005 9:05", " 1 220050905", "1/2/05  09:05"}) {
        user.Type("^a\b");
        user.Type(typed);
        EXPECT_EQ(ParseDateTime(edit.MaskText()), ParseDateTime("01/02/2005 09:05"))
            << typed << " became " << edit.MaskText();
    }
    user.Type("^a\b");
    user.Paste("  01/02/2005 09:05\n");
    EXPECT_EQ(edit.MaskText(), "01/02/2005 09:05");
    user.Press(Qt::Key_Delete);
    user.Press(Qt::Key_End);
    user.Type("\b");
    EXPECT_EQ(edit.MaskText(), " 1/02/2005 09: 0");
    user.Type("^a\b");
    EXPECT_EQ(edit.MaskText(), kEmptyDateTimeMask);
}

TicEntry Tic(const std::string& name) {
    return {{"71-43-2", name, "10.25", "12", ""}};
}

struct TicRig : DialogRig<TTICForm> {
    TicRig() { form.Batch().SampleList.emplace(2); }

    EntryGrid& Grid() { return Get<EntryGrid>("StringGrid1"); }
    std::optional<TicListType>& List(std::size_t sample) { return Samples().at(sample).TicList; }
};

TEST(TicForm, StoresCompleteRowsTypedFromCellToCellUnlessCancelled) {
    TicRig rig;
    EXPECT_TRUE(rig.Run(1, [&] {
        EXPECT_EQ(rig.Shown("ZOVEdit"), "|ZA101");
        rig.Type("71-43-2\t Benzene \t10.25\t12\tJN\t");
        rig.Type("100-41-4\tNo Time\t\t12\tJ\t");
        rig.Type("108-88-3\tTOLUENE\t11\t7");
        rig.log.answers = {false, true};
        const char* const kAsked =
            "Row 2 will not be kept, because a cell is missing.\nClose the list without it?";
        rig.Use("&o", kAsked, "StringGrid1");
        EXPECT_TRUE(rig.log.noByDefault);
        EXPECT_EQ(rig.Grid().currentRow() * 10 + rig.Grid().currentColumn(), 12);
        rig.Use("&o", kAsked);
    }));
    const TicListType stored = {{{"71-43-2", "benzene", "10.25", "12", "JN"}},
                                {{"108-88-3", "toluene", "11", "7", ""}}};
    EXPECT_EQ(rig.List(1), stored);
    EXPECT_FALSE(rig.Run(1, [&] {
        rig.Type("1-1-1\tPhenol\t1\t2\t\t108-88-3\tToluene\t3\t4\t");
        rig.Type("\33\33");  // the first Escape leaves the cell
    }));
    EXPECT_EQ(rig.List(1), stored);
    EXPECT_TRUE(rig.Run(0, [&] { rig.Type("&o"); }));
    EXPECT_EQ(rig.List(0), std::nullopt) << "what was typed is no other sample's";
}

TEST(TicForm, EndsWithTheProgramWhileACellIsTypedIn) {
    TicRig rig;
    auto dialog = std::make_unique<TTICForm>(rig.form, rig.form);
    dialog->show();
    rig.Face(*dialog);
    rig.Grid().setFocus(Qt::TabFocusReason);
    rig.Grid().setCurrentCell(0, 1);
    rig.Type("x");
    dialog.reset();
    rig.Face(rig.form);
}

TEST(TicForm, DeletesAndAddsRows) {
    TicRig rig;
    rig.List(0) = TicListType{Tic("a"), Tic("b"), Tic("c")};
    EXPECT_TRUE(rig.Run([&] {
        rig.Press(Qt::Key_Down);
        rig.Type("&d");
        rig.Type("&a");
        EXPECT_EQ(rig.Grid().rowCount(), 30);
        rig.Grid().setCurrentCell(29, 0);
        rig.Use("5-5-5\tLast\t1\t2\t\t", "", "AddButton");
        rig.Type("&d&o");
    }));
    EXPECT_EQ(rig.List(0), (TicListType{Tic("a"), Tic("c")}));
}

TEST(TicForm, BringsBackWhatWasDeletedPastedOverTypedOrLeftOut) {
    TicRig rig;
    rig.List(0) = TicListType{Tic("a"), Tic("b")};
    const auto names = [&rig] {
        return rig.Grid().Cell(0, 1) + "|" + rig.Grid().Cell(1, 1) + "|" + rig.Grid().Cell(2, 1);
    };
    EXPECT_TRUE(rig.Run([&] {
        EXPECT_FALSE(rig.Get("UndoButton").isEnabled());
        rig.Type("&d");
        EXPECT_EQ(names(), "b||");
        EXPECT_EQ(rig.Get("UndoButton").accessibleDescription(), "Takes back: Delete Row");
        rig.Type("^z");
        EXPECT_EQ(names(), "a|b|");
        rig.Type("\tlost");
        EXPECT_TRUE(rig.Get("UndoButton").isEnabled());
        rig.Click("UndoButton");
        EXPECT_EQ(names(), "a|b|") << "what is being typed";
        rig.Grid().setCurrentCell(0, 0);
        rig.Paste("1\tx\n2\ty\n");
        EXPECT_EQ(names(), "x|y|");
        rig.Type("^z");
        EXPECT_EQ(names(), "a|b|");
        rig.Grid().setCurrentCell(2, 1);
        rig.Type("no number");
        rig.log.answers = {true};
        rig.Type("&o");
    }));
    EXPECT_EQ(rig.List(0)->size(), 2U);
    rig.Run(1, [&] { rig.Type("\33\33"); });
    EXPECT_FALSE(rig.Run([&] {
        EXPECT_EQ(names(), "a|b|");
        rig.Type("&u");
        EXPECT_EQ(names(), "a|b|no number");
        rig.Type("\33\33");
    }));
}

TEST(TicForm, KeepsNoMoreThanABatchMayHave) {
    TicRig rig;
    rig.List(0) = TicListType(1000, Tic("a"));
    EXPECT_TRUE(rig.Run([&] { rig.Type("&o"); }));
    rig.List(0)->push_back(Tic("b"));
    EXPECT_FALSE(rig.Run([&] {
        rig.Use("&o", "No more than 1,000 TICs can be kept for a sample.");
        rig.dialog.reject();
    }));
}

TEST(TicForm, PastesRowsOfASpreadsheet) {
    TicRig rig;
    std::string many;
    for (int i = 0; i < 40; ++i) {
        many += "71-43-2\tBenzene\t10.25\t12\t\r\n";
    }
    EXPECT_TRUE(rig.Run([&] {
        rig.Paste(many);
        EXPECT_EQ(rig.Grid().rowCount(), 40);
        rig.Type("\ttyped before");
        rig.Paste("Phen;ol\t9\nCumene\t8\t7\tX\tbeyond the grid\n");
        EXPECT_NE(rig.Get<QLabel>("EntryNote").text(), "");
        rig.Type("\t1;");
        rig.Paste("1;");
        rig.Type("&o");
    }));
    const TicListType& list = rig.List(0).value();
    ASSERT_EQ(list.size(), 40U);
    EXPECT_EQ(list[0], (TicEntry{{"71-43-2", "phen,ol", "11,", "12", ""}}));
    EXPECT_EQ(list[1], (TicEntry{{"71-43-2", "cumene", "8", "7", "X"}}));
    EXPECT_EQ(list[39], Tic("benzene"));
}

}  // namespace
}  // namespace qfr::test
