#include "dialogs/EntryFormDialog.h"
#include "dialogs/EntryGrid.h"
#include "dialogs/MBSHeader.h"
#include "platform/Text.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

using testing::Contains;

template <EntryDialog dialog>
using EntryRig = DialogRig<EntryFormDialog, dialog>;

const char* const kDateFormat = "Enter the date/time format as\n MM/DD/YYYY or HH:MI";
const char* const kRequired = "Please enter an appropriate value.";
const char* const kNoValue = "Please enter a value.";
const char* const kNoNumber = "Entry must be a valid real number.";
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
        stored.FileName = "";
        EXPECT_TRUE(rig.Run([&rig, &kNoFile, key = key] {
            rig.Type(key);
            rig.Use("&o", kNoFile, "FileEdit");
            rig.Use("r.txt\r");
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
    const std::string notes = rig.dir.Write("notes.txt", "notes\n");
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
        {{a, b, a}, Qt::Key_End, "yz", {a, b, a}}};
    for (const auto& [before, goTo, pasted, after] : cases) {
        DialogRig<TMBSHeader> rig;
        rig.form.Entries().Comments.Lines = before;
        rig.Run([&rig, goTo = goTo, pasted = pasted] {
            rig.Press(goTo, Qt::ControlModifier);
            rig.Paste(pasted);
            rig.Type("x\r\33");
        });
        EXPECT_EQ(rig.form.Entries().Comments.Lines, after);
    }
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
        rig.Use("BFB01\t\t05162005\tB0516.D\t0830\t", "", "StringGrid1");
        // Back to the second value, to the first one and out of the grid, as Shift+Tab arrives.
        rig.Use("20.1\t44\t");
        for (const char* const typed : {"^a45.2", "", ""}) {
            rig.Press(Qt::Key_Backtab, Qt::ShiftModifier);
            rig.Type(typed);
        }
        EXPECT_EQ(rig.Focus(), "MaskEdit2");
        rig.Use("\t\t\t100\t6.5\t0.4\t80\t6\t98.5\r6.1\t", "", "OkButton");
        rig.Use("\r");
    }));
    EXPECT_EQ(rig.stored,
              (TuneEntry{"BFB01",
                         "GC 2",
                         "B0516.D",
                         "05/16/2005",
                         "08:30",
                         {"20.1", "45.2", "100", "6.5", "0.4", "80", "6", "98.5", "6.1"}}));
}

TEST(TuneForm, HoldsTheUserAtAWrongEntryThatIsLeft) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"SampleEdit", " ", kNoValue},         {"InstrEdit", "\b", kNoValue},
        {"FileEdit", "\b", kNoValue},          {"MaskEdit1", "02302005", kDateFormat},
        {"MaskEdit1", "\b     ", kDateFormat}, {"MaskEdit2", "2570", kDateFormat},
    };
    for (const auto& [control, typed, message] : cases) {
        for (const char* const next : {"MaskEdit1", "FileEdit", "OkButton"}) {
            SCOPED_TRACE(control);
            TuneRig rig;
            EXPECT_FALSE(
                rig.Run([&rig, &next, control = control, typed = typed, message = message] {
                    rig.Enter(control, typed);
                    control == std::string(next) ? rig.Type("\t") : rig.Click(next);
                    rig.Use("", message, control);
                    rig.Click("HelpButton");
                    rig.Use("", kNoHelp, control);
                    rig.Click("CancelButton");
                }));
            rig.Use("");
        }
    }
}

TEST(TuneForm, CancelKeepsWhatWasTypedButNotTheInstrument) {
    TuneRig rig;
    EXPECT_FALSE(rig.Run(1, [&] {
        rig.Use("BFB9\tOther\t1\t", kDateFormat, "MaskEdit1");
        rig.Use("\33");
    }));
    EXPECT_EQ(rig.stored.InjectionDate, "15/16/2005");
    EXPECT_EQ(rig.stored.InstrumentId, "Other");
    EXPECT_FALSE(rig.Run(1, [&] {
        EXPECT_EQ(rig.Shown("SampleEdit", "InstrEdit"), "|BFB9|GC 2");
        // A click beside a value means the value.
        auto& grid = rig.Get<EntryGrid>("StringGrid1");
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                          grid.visualRect(grid.model()->index(4, 1)).center());
        QTest::qWait(0);
        rig.Type("1.9");
        rig.Press(Qt::Key_Down);
        rig.Use("88&c");
    }));
    EXPECT_EQ(rig.stored.Abundances[4], "1.9");
    EXPECT_EQ(rig.stored.Abundances[5], "88");
}

TEST(InitCalInput, ShowsTheLevelsAndHandsTheDatesOn) {
    EntryRig<EntryDialog::kInitialCalibration> rig;
    Entries& entries = rig.form.Entries();
    entries.ContinuingCalibration.FirstStandard = "05/16/2005 09:41";
    rig.form.LevelCount() = 2;
    rig.chooser.answers = {
        {rig.dir.Write("early.d", "DATA FILE\n5/15/2005 7:30\nc:\\data\\EARLY.D\n")},
        {rig.dir.Write("other.d", "data file\n5/14/2005 7:30\nc:\\data\\OTHER.D\n")}};
    EXPECT_TRUE(rig.Run([&] {
        EXPECT_TRUE(rig.Get("CalFileEdit2").isVisible());
        EXPECT_FALSE(rig.Get("CalFileEdit3").isVisible() || rig.Get("BrowseButton3").isVisible());
        EXPECT_EQ(rig.Shown("CalStartMaskEdit"), "|05/16/2005 09:41");
        rig.Use("&l051620059941\t", kDateFormat, "CalEndMaskEdit");
        rig.Use("051620051149\t");
        rig.Use("\r", kRequired, "CalFileEdit1");
        rig.Click("BrowseButton1");
        EXPECT_EQ(rig.Shown("CalStartMaskEdit", "CalEndMaskEdit"),
                  "|05/15/2005 07:30|05/16/2005 11:49");
        rig.Click("BrowseButton2");
        rig.Use("\r", "Selected file\nother.dnot a DATA FILE.");
    }));
    EXPECT_THAT(entries.InitialCalibration.LabFileIds,
                testing::AllOf(Contains("EARLY.D"), Contains("other.d")));
    EXPECT_EQ(entries.ContinuingCalibration.FirstStandard, "05/15/2005 07:30");
    EXPECT_EQ(entries.StandardSummary.LastCalibrationDate, "05/16/2005");
    EXPECT_TRUE(rig.form.Flags().InitCalEntered);
}

TEST(ChkCalForm, AsksForWhatIsMissingAndKeepsWhatWasTyped) {
    EntryRig<EntryDialog::kContinuingCalibration> rig;
    Entries& entries = rig.form.Entries();
    entries.StandardSummary.SampleNo = "VSTD050CC";
    const std::string good = rig.dir.Write("criteria.txt", "RF criteria\n");
    rig.chooser.answers = {{rig.dir.Write("other.txt", " rf criteria\n")}, {good}};
    EXPECT_FALSE(rig.Run([&] {
        EXPECT_EQ(rig.Shown("ZOV_IDEdit"), "|vstd050cc");
        rig.Use("vstd050c.d\r", kRequired, "LimitEdit");
        rig.Type("old");
        rig.Click("LimitEdit");
        rig.Use("", "other.txt is not a RF criteria file.\nPlease select another file.");
        EXPECT_EQ(rig.Shown("LimitEdit"), "|");
        rig.Use("&w");
        EXPECT_EQ(rig.Shown("LimitEdit"), "|" + LowerCase(good));
        rig.Use("\33");
    }));
    EXPECT_EQ(rig.chooser.opened[0].kind, FileKind::kText);
    EXPECT_EQ(rig.chooser.opened[0].directory, "/texts");
    EXPECT_EQ(entries.ContinuingCalibration.LabFileId, "vstd050c.d");
    EXPECT_FALSE(rig.form.Flags().ContCalEntered);
    EXPECT_TRUE(rig.Run([&] {
        rig.Use("&iGCMS2\t023020050900\t", kDateFormat, "MaskEdit1");
        rig.Use("051820050846\t\r");
    }));
    EXPECT_TRUE(rig.form.Flags().ContCalEntered);
    EXPECT_EQ(entries.ContinuingCalibration.AnalysisDateTime, "05/18/2005 08:46");
}

TEST(ARTSummForm, TheSampleNumberChoosesTheLevel) {
    EntryRig<EntryDialog::kStandardSummary> rig;
    rig.form.Batch().Files.Calib = Example("VOA0516.CAL");
    rig.form.LevelCount() = 5;
    EXPECT_TRUE(rig.Run([&] {
        rig.Use("&zVSTD050A1\t");
        EXPECT_EQ(rig.Shown("ConcCombo", "LabFileEdit"), "|50|VSTD050.D");
        rig.Use("\r", kRequired, "RTEdit1");
        rig.Use("8.84\t6.01\t11.82\t\r");
    }));
    EXPECT_EQ(rig.form.Entries().StandardSummary.LevelIndex, 2);
}

}  // namespace
}  // namespace qfr::test
