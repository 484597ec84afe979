#include <QLabel>
#include <QPlainTextEdit>

#include "dialogs/EntryFormDialog.h"
#include "dialogs/MBSHeader.h"
#include "platform/Text.h"
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
        {{a, b, a}, Qt::Key_End, "yz", {a, b, a}},
        {{}, Qt::Key_End, ";c\nd", {",c", "dx", ""}}};
    for (const auto& [before, goTo, pasted, after] : cases) {
        DialogRig<TMBSHeader> rig;
        rig.form.Entries().Comments.Lines = before;
        rig.Run([&rig, goTo = goTo, pasted = pasted] {
            rig.Press(goTo, Qt::ControlModifier);
            rig.Paste(pasted);
            rig.Type("x;\r\33");
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
            "The two lines for comments on Form 4 have no room for this:\nThe end of line 2: " +
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
        rig.Use("BF;B01\t\t05162005\tB0516.D\t0830\t", "", "StringGrid1");
        // Back to the second value, to the first one and out of the grid, as Shift+Tab arrives.
        rig.Use("20;.1\t44\t");
        for (const char* const typed : {"^a45.2", "", ""}) {
            rig.Press(Qt::Key_Backtab, Qt::ShiftModifier);
            rig.Type(typed);
        }
        EXPECT_EQ(rig.Focus(), "MaskEdit2");
        rig.Use("\t\t\t100\t6.5\t0.4\t80\t6\t98.5\r6.1\t", "", "OkButton");
        rig.Use("\r");
    }));
    EXPECT_THAT(rig.stored.Abundances, testing::ElementsAre("20.1", "45.2", "100", "6.5", "0.4",
                                                            "80", "6", "98.5", "6.1"));
    rig.stored.Abundances = {};
    EXPECT_EQ(rig.stored, (TuneEntry{"BFB01", "GC 2", "B0516.D", "05/16/2005", "08:30", {}}));
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
    const std::string good = rig.dir.Write("criteria.txt", "RF criteria\n");
    rig.chooser.answers = {{good}};
    EXPECT_FALSE(rig.Run([&] {
        EXPECT_EQ(rig.Shown("ZOV_IDEdit"), "|vstd050cc");
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

}  // namespace
}  // namespace qfr::test
