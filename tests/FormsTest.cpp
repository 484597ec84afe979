// Forms IV to VIII, of the samples or compounds of one run, and the page they are printed on.
#include <algorithm>

#include "forms/Form4Content.h"
#include "forms/Form5Content.h"
#include "forms/Form6Content.h"
#include "forms/Form7Content.h"
#include "forms/Form8Content.h"
#include "forms/FormContent.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using namespace ::testing;

struct Form {
    void (*driver)(FormHost&);
    EntryDialog dialog;
    bool ofSamples;  // its rows are samples, not compounds
    int levels = 5;
};
const Form kForm4{Form4MBSClick, EntryDialog::kBlankComments, true};
const Form kForm5{Form5IPCClick, EntryDialog::kTune, true};
const Form kForm6{Form6CIDClick, EntryDialog::kInitialCalibration, false};
const Form kTurned{Form6CIDClick, EntryDialog::kInitialCalibration, false, 6};
const Form kForm7{Form7CCDClick, EntryDialog::kContinuingCalibration, false};
const Form kForm8{Form8ARTClick, EntryDialog::kStandardSummary, true};

std::string& Analyzed(ScriptedHost& host, std::size_t sample) {
    return host.batch.SampleList->at(sample).Header[HeaderField::kDateAnalyzed];
}

TEST(Forms, TurnThePageWhenItIsFull) {
    const struct {
        const Form& form;
        int rows;  // samples (with the blank), or compounds
        std::size_t pages;
        const char* said;  // how many pages it says there are
    } cases[] = {{kForm4, 31, 1, "1"},  {kForm4, 32, 2, "2"},  {kForm4, 62, 3, "3"},
                 {kForm5, 21, 1, "1"},  {kForm5, 22, 1, "2"},  {kForm5, 44, 2, "3"},
                 {kForm6, 26, 1, "1"},  {kForm6, 27, 1, "2"},  {kForm6, 28, 2, "2"},
                 {kTurned, 26, 1, "2"}, {kTurned, 27, 2, "2"}, {kForm7, 26, 1, "1"},
                 {kForm7, 27, 1, "2"},  {kForm7, 90, 4, "4"},  {kForm8, 22, 1, "1"},
                 {kForm8, 23, 2, "2"},  {kForm8, 45, 3, "3"},  {kForm5, 23, 2, "2"}};
    for (const auto& [form, rows, pages, said] : cases) {
        CalibratedRun run(form.levels, form.ofSamples ? 1 : rows, form.ofSamples ? rows : 1);
        run.FirstPage(form.driver);
        SCOPED_TRACE(run.host.sink.begun.at(0) + " of " + std::to_string(rows));
        EXPECT_THAT(run.host.dialogs, ElementsAre(form.dialog));
        const std::vector<JobPage>& printed = run.host.sink.jobs.at(0).pages;
        EXPECT_EQ(printed.size(), pages);
        EXPECT_TRUE(HasText(printed.back(), "Page " + std::to_string(pages) + " of " + said));
    }
}

TEST(Forms, SayWhatIsMissingAndPrintNothing) {
    constexpr char kGone[] = "c:\\gone\\it.x";
    const auto refusal = [](const Form& form, std::string FileSet::*file, const char* name) {
        CalibratedRun run(1, 1, 2);
        run.host.ok = false;
        EXPECT_THAT(run.Run(form.driver), IsEmpty()) << "cancelled";
        run.host.ok = true;
        run.host.batch.Files.*file = name;
        const std::vector<std::string> titles = run.Run(form.driver);
        EXPECT_THAT(run.host.sink.begun, IsEmpty());
        EXPECT_THAT(titles, SizeIs(1));
        return titles.empty() ? "" : titles.front();
    };
    EXPECT_EQ(refusal(kForm4, &FileSet::LabBlank, " "), "Lab Blank Not Specified");
    EXPECT_EQ(refusal(kForm5, &FileSet::LabBlank, " "), "Lab Blank Not Specified");
    EXPECT_EQ(refusal(kForm6, &FileSet::Calib, " "), "Calibration File Not Specified");
    EXPECT_EQ(refusal(kForm7, &FileSet::Calib, " "), "Calibration File Not Specified");
    EXPECT_EQ(refusal(kForm7, &FileSet::CheckCal, " "), "Calibration File Not Specified");
    for (const Form* form : {&kForm6, &kForm7, &kForm8}) {
        EXPECT_EQ(refusal(*form, &FileSet::Calib, kGone), "Calibration File Could Not Be Opened");
    }
    for (const Form* form : {&kForm7, &kForm8}) {
        EXPECT_EQ(refusal(*form, &FileSet::CheckCal, kGone),
                  "Calibration File Could Not Be Opened");
    }
    CalibratedRun run(1, 1, 2);
    ScriptedHost& host = run.host;
    host.entries.ContinuingCalibration.CriteriaFile = kGone;
    EXPECT_THAT(run.Run(Form7CCDClick), ElementsAre("File Could Not Be Opened"));
    host.entries.ContinuingCalibration.CriteriaFile = run.dir.Write("OTHER.TXT", " RF Criteria\n");
    EXPECT_THAT(run.Run(Form7CCDClick), ElementsAre("Incorrect File Type"));
    Analyzed(host, 1) = "13/32/2005 10:00";
    EXPECT_THAT(run.Run(Form4MBSClick), ElementsAre("Incorrect Time Format"));
    Analyzed(host, 0) = " ";
    EXPECT_THAT(run.Run(Form4MBSClick), ElementsAre("Analysis Date Not Specified"));
    Analyzed(host, 0) = "soon";
    host.messages.shown.clear();
    Form5IPCClick(host);
    EXPECT_THAT(host.messages.TakeTexts(),
                ElementsAre("The analysis date of sample S1,\nsoon, is not a date and time."));
    host.entries.Tune.InjectionDate = "8:00";
    EXPECT_THAT(run.Run(Form5IPCClick), ElementsAre("Incorrect Time Format"));
    for (SampleRecord& record : *host.batch.SampleList) {
        record.FileName = kGone;
    }
    EXPECT_THAT(run.Run(Form8ARTClick), ElementsAre("File Not Found", "File Not Found"));
    host.batch.Files.CheckCal = host.batch.Files.Calib = "";
    EXPECT_THAT(run.Run(Form8ARTClick), ElementsAre("Calibration File Not Specified"));
    host.batch.Files.LabBlank = "";
    host.batch.Files.QFiles.clear();
    EXPECT_THAT(run.Run(Form8ARTClick), ElementsAre("Required Files Missing"));
    EXPECT_THAT(host.sink.begun, IsEmpty());
    EXPECT_FALSE(host.flags.Form8DataReady);
}

TEST(Forms, TellWhatADamagedReportLacksAndPrint) {
    const auto told = [](const Form& form, const char* file, const std::string& from,
                         const std::string& to, bool checked = true) {
        CalibratedRun run(2, from.empty() ? 0 : 3, 2);
        std::string text = ReadAll(run.dir.Path() / file);
        run.dir.Write(file, text.replace(text.find(from), from.size(), to));
        run.host.entries.StandardSummary.Levels = {"10"};
        run.host.entries.StandardSummary.LevelIndex = 0;
        run.host.entries.StandardSummary.RetentionTimes = {"7", "6", "8"};
        run.host.batch.Files.CheckCal.resize(checked ? run.host.batch.Files.CheckCal.size() : 0);
        form.driver(run.host);
        EXPECT_EQ(run.host.sink.jobs.size(), 1U);
        EXPECT_LE(run.host.messages.shown.size(), 1U);
        return run.host.messages.shown.size() == 1 ? run.host.messages.TakeTexts()[0] : "";
    };
    constexpr char kCal[] = "RUN.CAL";
    constexpr char kCheck[] = "RUN.CHECK";
    const auto none = StartsWith("RUN.CAL has no compound blocks.\n");
    EXPECT_THAT(told(kForm6, kCal, "", ""), none);
    EXPECT_THAT(told(kForm7, kCal, "", ""), none);
    EXPECT_EQ(told(kForm8, kCal, "", ""), "") << "it prints nothing of them";
    const auto behind = StartsWith("RUN.CAL has text behind its compounds that is not read.\n");
    EXPECT_THAT(told(kForm8, kCal, "A\nCompound-3", "X\nCompound-3", false), behind);
    EXPECT_THAT(told(kForm7, kCheck, "2;Compound-2;", "2;Compound-9;"),
                HasSubstr(" in their order.\nRow 2: compound-9 instead of compound-2.\n"));
    const std::string values = "Form VIII lacks internal standard values of\n";
    EXPECT_EQ(told(kForm8, kCheck, "1,4-difluorobenzene", "other"),
              values + "the 12 hour standard (1,4-difluorobenzene).");
    EXPECT_EQ(told(kForm8, "S2.PRN", "d5;1000.9;7.25", "d5;1000.9;"),
              values + "S2 (chlorobenzene-d5).");
    EXPECT_EQ(told(kForm8, "S1.PRN", "Internal", "other"), values + "S1.");
}

TEST(TwelveHourFlag, MarksOneMinuteBeyondEitherEnd) {
    const auto flag = [start = ParseDateTime("05/18/2005 09:00").value()](const char* analyzed) {
        return TwelveHourFlag(analyzed, start);
    };
    EXPECT_EQ(Joined({"05/18/2005 08:59", "05/18/2005 09:00", "05/18/2005 21:00",
                      "05/18/2005 21:01", "  /  /       :  ", ""},
                     flag),
              "*|||*||");
}

TEST(Form5, MarksTuneValuesOneStepBeyondEitherEnd) {
    using Values = std::array<std::string, TuneEntry::kIons>;
    const auto count = [](const Values& values, const char* flag) {
        TuneEntry tune;
        tune.Abundances = values;
        const auto flagged = FlagTuneValues(tune);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_EQ(flagged[i].Percent, values[i]);
        }
        return std::ranges::count(flagged, flag, &Form5Content::Abundance::Flag);
    };
    EXPECT_EQ(count({"15.0", "30.0", "0", "5.0", "-1", "50.0", "5.0", "95.0", "5.0"}, ""), 9);
    EXPECT_EQ(count({"40.0", "80.0", "1e9", "9.0", "2.0", "120.0", "9.0", "101.0", "9.0"}, ""), 9);
    // No limits hold for mass 95 itself.
    EXPECT_EQ(count({"14.99", "29.99", "", "4.99", "2.01", "49.99", "4.99", "94.99", "4.99"}, "*"),
              8);
    EXPECT_EQ(
        count({"40.01", "80.01", "", "9.01", "2.01", "120.01", "9.01", "101.01", "9.01"}, "*"), 8);
}

TEST(Form4, SaysWhatItsCommentLinesHaveNoRoomFor) {
    const std::string full(77, 'b');  // 5.4 inches hold them, and not one more
    using Lines = std::vector<std::string>;
    const std::pair<Lines, std::string> cases[] = {
        {{}, ""},
        {{full, full, " ", ""}, ""},
        {{full + "b"}, "\nThe end of line 1: b"},
        {{"", full + "\u00e9"}, "\nThe end of line 2: \u00e9"},
        {{"1", "2", "", full}, "\nLine 4: " + full.substr(0, 60) + "..."}};
    ScriptedHost host;
    for (const auto& [lines, rest] : cases) {
        const auto message = CommentsNotPrinted(host.page, lines);
        EXPECT_EQ(message ? message->text.substr(message->text.find(':') + 1) : "", rest);
    }
}

TEST(Form6, MoreThanFiveLevelsTurnThePage) {
    for (const int levels : {0, 1, 5, 6, 10}) {
        CalibratedRun run(levels, 1);
        // What an earlier calibration of more levels left behind.
        run.host.entries.InitialCalibration.LabFileIds.fill("OLD.D");
        run.host.printer.Orientation = PageOrientation::kLandscape;  // no form's choice
        const JobPage& page = run.FirstPage(Form6CIDClick);
        EXPECT_EQ(page.orientation == PageOrientation::kLandscape, levels > 5);
        EXPECT_FALSE(HasText(page, "old") || HasText(page, "OLD.D"));
        EXPECT_EQ(HasText(page, "STD10.D") && HasText(page, "28"), levels == 10);
    }
    CalibratedRun bad(6, 1);
    bad.dir.Write("RUN.CAL", bad.calibration.replace(bad.calibration.find("12.4"), 4, "1x.4"));
    EXPECT_THAT(bad.Run(Form6CIDClick), ElementsAre("Calibration File Error"));
    EXPECT_THAT(bad.host.sink.jobs, IsEmpty()) << "the job is dropped";
    EXPECT_EQ(bad.host.printer.Orientation, PageOrientation::kPortrait);
    CalibratedRun cancelled(1, 1);
    cancelled.host.page.PrinterChosen = cancelled.host.chooses = false;
    EXPECT_THAT(cancelled.Run(Form6CIDClick), IsEmpty());
    EXPECT_THAT(cancelled.host.sink.begun, IsEmpty()) << "with the printer setup";
}

TEST(Form8, WithoutCheckReportALevelOfTheCalibrationIsTheStandard) {
    CalibratedRun run(3, 1);
    StandardSummaryEntry& entry = run.host.entries.StandardSummary;
    run.host.batch.Files.CheckCal.clear();
    entry.RetentionTimes = {"7.255", "6", "late"};
    entry.LevelIndex = 0;
    entry.Levels = {"left over"};
    Form8ARTClick(run.host);
    EXPECT_THAT(run.host.messages.TakeTexts(),
                ElementsAre("A left over ug/L concentration was not found. Return to\nForm 8 entry "
                            "to enter the appropriate concentration."));
    entry.Levels = {"20"};
    EXPECT_TRUE(HasText(run.FirstPage(Form8ARTClick), "late"));
    EXPECT_TRUE(run.host.flags.Form8DataReady);
}

TEST(Page, ScalesFollowThePaper) {
    ScriptedHost host;
    const auto scales = [&host](const Paper& paper) {
        host.printer.PaperSize = paper;
        host.page.SetupPage();
        return std::to_string(host.page.HorzScale) + " x " + std::to_string(host.page.VertScale);
    };
    EXPECT_EQ(scales({"A4", 8.27, 11.69}), "583 x 637");
    host.printer.Orientation = PageOrientation::kLandscape;
    EXPECT_EQ(scales({"A4", 8.27, 11.69}), "825 x 451");
}

TEST(Page, AsksForThePrinterOnceAndAgainWhenItChanged) {
    ScriptedHost host;
    EXPECT_TRUE(host.page.testPrinter());
    EXPECT_EQ(host.printerSetups, 1);
    host.printer.PrinterIndex = 2;
    host.chooses = false;
    EXPECT_FALSE(host.page.testPrinter() || host.page.testPrinter());
    EXPECT_EQ(host.printerSetups, 3) << "cancelled, it comes up again";
    host.chooses = true;
    EXPECT_TRUE(host.page.testPrinter() && host.page.testPrinter());
    EXPECT_EQ(host.printerSetups, 4);
}

TEST(Page, SplitsNamesAfterHyphensOnly) {
    ScriptedHost host;
    const auto split = [&host](const std::string& name, double width = 2.6) {
        std::vector<std::string> lines;
        host.page.SplitAtHyphens(name, lines, width);
        return lines;
    };
    // 2.6 inches hold 37 letters b and not 38.
    EXPECT_THAT(split("1,1,2-trichloro-1,2,2-trifluoroethane-by-gas-chromatography"),
                ElementsAre("1,1,2-trichloro-1,2,2-trifluoroethane-by-gas-", "chromatography"));
    const std::string tail(50, 'b');
    EXPECT_THAT(split("head-" + tail), ElementsAre("head-", tail));
    // Nothing to break at: one line, and the program goes on.
    for (const std::string& name :
         {std::string(), "b-" + std::string(35, 'b'), tail, tail + "-tail", std::string(8, '-')}) {
        EXPECT_THAT(split(name), ElementsAre(name));
    }
    const double asWide = host.page.TextWidthInch("ab-cd");
    EXPECT_THAT(split("ab-cd", asWide), ElementsAre("ab-", "cd"));
}

TEST(Page, DropsAJobThatTheUserGaveUp) {
    ScriptedHost host;
    host.sink.accept = false;
    host.printer.BeginDoc();
    host.page.TextOutInch("lost", 1, 1);
    host.printer.EndDoc();
    EXPECT_TRUE(host.sink.jobs.empty());
    host.sink.accept = true;
    host.printer.BeginDoc();
    host.printer.EndDoc();
    host.printer.EndDoc();
    ASSERT_EQ(host.sink.jobs.size(), 1U);
    EXPECT_TRUE(host.sink.jobs[0].pages.at(0).items.empty());
}

TEST(FormPreconditions, FirstCompleteHeaderWinsAndTheFirstGapIsNoted) {
    ScriptedHost host;
    host.batch.SampleList = SampleListType{CompleteRecord("A"), CompleteRecord("B")};
    (*host.batch.SampleList)[0].Header[HeaderField::kCaseNo] = "  ";
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), 1U);
    EXPECT_EQ(host.pendingFocus, HeaderField::kCaseNo);
    (*host.batch.SampleList)[1].Header[HeaderField::kColumnLength] = "";
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), std::nullopt);
    EXPECT_EQ(host.pendingFocus, HeaderField::kColumnLength);
    host.batch.SampleList.reset();
    EXPECT_EQ(CheckFormPreconditions(host, "Form 4"), std::nullopt);
    EXPECT_THAT(host.messages.TakeTexts(),
                ElementsAre("Header information is not complete for Form 4.\nGo to Form1 and enter "
                            "header information for at\nleast one quantitation file. Then return "
                            "and print\n Form 4.",
                            "Please use Data Files|Load Files menu selections\nto specify files."));
}

}  // namespace
}  // namespace qfr::test
