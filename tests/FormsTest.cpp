// Forms IV to VIII, which list the samples or the compounds of one run.
#include <algorithm>
#include <cmath>

#include "forms/Form4.h"
#include "forms/Form5.h"
#include "forms/Form6.h"
#include "forms/Form7.h"
#include "forms/Form8.h"
#include "forms/SampleChecks.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;

struct Form {
    void (*driver)(FormHost&);
    EntryDialog dialog;
    std::string line;  // at its head, without the page's letter and number
    double column;     // a text in each filled row ends here, or begins here, inches
    double numbers;    // where its row numbers stand, 0 without any
    std::size_t perPage;
};
constexpr auto kSix = EntryDialog::kInitialCalibration;
constexpr auto kSeven = EntryDialog::kContinuingCalibration;
constexpr auto kEight = EntryDialog::kStandardSummary;
const Form kForm4{Form4MBSClick, EntryDialog::kBlankComments, "4 - FORM IV VOA-", 1.85, 1.45, 30};
const Form kForm5{Form5IPCClick, EntryDialog::kTune, "5 - FORM V VOA-", 1.35, 1.05, 22};
const Form kForm6{Form6CIDClick, kSix, "6 - FORM VI VOA-", 6.9, 0, 0};
const Form kTurned{Form6CIDClick, kSix, "6 - FORM VI VOA-", 9.8, 0, 0};
const Form kForm7{Form7CCDClick, kSeven, "7 - FORM VII VOA-", 5.6, 0, 0};
const Form kForm8{Form8ARTClick, kEight, "8 - FORM VIII VOA", 1.1, 0.8, 22};

std::string& Analyzed(ScriptedHost& host, std::size_t sample) {
    return host.batch.SampleList->at(sample).Header[HeaderField::kDateAnalyzed];
}

TEST(Forms, TurnThePageWhenItIsFull) {
    const struct {
        const Form& form;
        int rows;           // samples (with the blank), or compounds
        std::string pages;  // filled rows of each page, and how many pages it says there are
    } cases[] = {
        {kForm4, 1, "0 of 1"},       {kForm4, 4, "3 of 1"},        {kForm4, 31, "30 of 1"},
        {kForm4, 32, "30 1 of 2"},   {kForm4, 62, "30 30 1 of 3"}, {kForm5, 1, "1 of 1"},
        {kForm5, 21, "21 of 1"},     {kForm5, 22, "22 of 2"},      {kForm5, 23, "22 1 of 2"},
        {kForm5, 44, "22 22 of 3"},  {kForm6, 0, "0 of 1"},        {kForm6, 26, "26 of 1"},
        {kForm6, 27, "27 of 2"},     {kForm6, 28, "27 1 of 2"},    {kTurned, 25, "25 of 1"},
        {kTurned, 26, "26 of 2"},    {kTurned, 27, "26 1 of 2"},   {kForm7, 0, "0 of 1"},
        {kForm7, 26, "26 of 1"},     {kForm7, 27, "27 of 2"},      {kForm7, 90, "27 27 27 9 of 4"},
        {kForm8, 1, "1 of 1"},       {kForm8, 22, "22 of 1"},      {kForm8, 23, "22 1 of 2"},
        {kForm8, 45, "22 22 1 of 3"}};
    for (const auto& [form, rows, expected] : cases) {
        SCOPED_TRACE(form.line + std::to_string(rows));
        const bool ofSamples = form.numbers != 0;
        CalibratedRun run(&form == &kTurned ? 6 : 5, ofSamples ? 1 : rows, ofSamples ? rows : 1);
        run.FirstPage(form.driver);
        EXPECT_THAT(run.host.dialogs, ElementsAre(form.dialog));
        const std::vector<JobPage>& pages = run.host.sink.jobs.at(0).pages;
        const std::string count = expected.substr(expected.find("of"));
        std::string summary;
        for (std::size_t i = 0; i < pages.size(); ++i) {
            const JobPage& page = pages[i];
            const std::string number = std::to_string(i + 1);
            std::string line = form.line;
            line.insert(1, 1, static_cast<char>('A' + i));
            EXPECT_TRUE(HasText(page, line + (&form == &kForm8 ? "" : number)));
            EXPECT_TRUE(HasText(page, "Page " + number + " " + count));
            const auto column = ofSamples ? TextsAt : TextsEndingAt;
            const std::size_t filled = column(page, form.column).size();
            summary += std::to_string(filled) + " ";
            std::vector<std::string> numbers;
            for (std::size_t row = 1; row <= form.perPage; ++row) {
                // Form IV numbers its empty rows one too high.
                const std::size_t raised = &form == &kForm4 && row > filled ? 1 : 0;
                numbers.push_back(std::to_string(form.perPage * i + row + raised));
            }
            EXPECT_EQ(ofSamples ? TextsAt(page, form.numbers) : numbers, numbers);
        }
        EXPECT_EQ(summary + count, expected);
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

TEST(TwelveHourFlag, MarksOneMinuteBeyondEitherEnd) {
    const auto flag = [start = ParseDateTime("05/18/2005 09:00").value()](const char* analyzed) {
        return TwelveHourFlag(analyzed, start);
    };
    EXPECT_EQ(Joined({"05/18/2005 08:59", "05/18/2005 09:00", "05/18/2005 21:00",
                      "05/18/2005 21:01", "  /  /       :  ", ""},
                     flag),
              "*|||*||");
}

TEST(Form4, ShowsTheBlankItsSamplesAndTwoCommentLines) {
    CalibratedRun run(1, 1, 32);
    Analyzed(run.host, 31) = kEmptyDateTimeMask;
    run.host.entries.Comments.Lines = {"one", "two", "three"};
    const JobPage& first = run.FirstPage(Form4MBSClick);
    EXPECT_THAT(run.host.sink.begun, ElementsAre("Form 4 S1"));
    EXPECT_TRUE(HasText(first, "05/18/2005 21:01") && HasText(first, "*"));
    const JobPage& last = run.host.sink.jobs.at(0).pages.at(1);
    EXPECT_TRUE(TextsAt(last, 5.6).empty() && !HasText(last, "*"));
    EXPECT_TRUE(HasText(last, "05/18/2005") && HasText(last, "09:00"));
    EXPECT_THAT(TextsAt(last, 2.1), ElementsAre("one", "two"));
    // Rows are as high as ten points, which are 83 pixels, and 0.025 inch.
    const double bottom = RulesAcross(last, 1.75, 6.75).back();
    EXPECT_NEAR(bottom, 3.375 + 32 * 83 / 600.0 + 30 * 0.025, 0.003);
    EXPECT_NEAR(FindText(last, "two").y / 600.0, bottom + 0.3, 0.003);
}

TEST(Form5, MarksTuneValuesOneStepBeyondEitherEnd) {
    using Values = std::array<std::string, TuneEntry::kIons>;
    const auto count = [](const Values& values, const char* end) {
        TuneEntry tune;
        tune.Abundances = values;
        const Values flagged = FlagTuneValues(tune);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_TRUE(flagged[i] == values[i] + "    " || flagged[i] == values[i] + "  *");
        }
        return std::count_if(flagged.begin(), flagged.end(),
                             [=](const auto& f) { return f.ends_with(end); });
    };
    EXPECT_EQ(count({"15.0", "30.0", "0", "5.0", "-1", "50.0", "5.0", "95.0", "5.0"}, " "), 9);
    EXPECT_EQ(count({"40.0", "80.0", "1e9", "9.0", "2.0", "120.0", "9.0", "101.0", "9.0"}, " "), 9);
    // No limits hold for mass 95 itself.
    EXPECT_EQ(count({"14.99", "29.99", "", "4.99", "2.01", "49.99", "4.99", "94.99", "4.99"}, "*"),
              8);
    EXPECT_EQ(
        count({"40.01", "80.01", "", "9.01", "2.01", "120.01", "9.01", "101.01", "9.01"}, "*"), 8);
}

TEST(Form5, ShowsTheTuneAndWhatItDoesNotCover) {
    CalibratedRun run(1, 1);
    Analyzed(run.host, 0) = "05/18/2005 08:01:15 PM";
    const JobPage& page = run.FirstPage(Form5IPCClick);
    EXPECT_THAT(run.host.sink.begun, ElementsAre("Form 5 BFB01"));
    EXPECT_EQ(FindText(page, "BFB01").size, 14);
    EXPECT_THAT(TextsEndingAt(page, 7.4),
                ElementsAre("(       2.01  *   )1", "(       7.1       )1", "(       97.5       )1",
                            "(       6.7       )2"));
    EXPECT_NEAR(FindText(page, "18.1    ").x, FindText(page, "(       97.5       )1").x + 8 * 41.67,
                2)
        << "behind the bracket and its seven blanks";
    EXPECT_THAT(TextsAt(page, 5.1), ElementsAre("05/18/2005"));
    EXPECT_THAT(TextsAt(page, 6.35), ElementsAre("08:01:15 PM"));
    EXPECT_THAT(TextsAt(page, 7.05), ElementsAre("*"));
    EXPECT_TRUE(HasText(page, "50.0 - 120% of mass 95"));
    EXPECT_TRUE(HasText(page, "95 - 101% of mass 174"));
    EXPECT_TRUE(HasText(page, "v24") && !HasText(page, "typed")) << "the header's instrument";
    // The head box's bottom is drawn from right to left.
    const std::vector<double> rules = RulesAcross(page, 0.9, 7.6);
    ASSERT_EQ(rules.size(), 10U);
    EXPECT_NEAR(rules[2] - rules[1], 83 / 600.0 + 0.025, 0.003);
    EXPECT_NEAR(RulesAcross(page, 1.25, 7.25).front() - rules.back(), 0.25, 0.003);
}

TEST(Form6, MoreThanFiveLevelsTurnThePage) {
    for (const int levels : {0, 1, 5, 6, 10}) {
        CalibratedRun run(levels, 1);
        // What an earlier calibration of more levels left behind.
        run.host.Calibration().LevelAmount.fill("old");
        run.host.entries.InitialCalibration.LabFileIds.fill("OLD.D");
        const JobPage& page = run.FirstPage(Form6CIDClick);
        const bool turned = levels > 5;
        EXPECT_EQ(page.orientation == PageOrientation::kLandscape, turned);
        // A turned page is too low for 26 empty rows.
        EXPECT_EQ(RulesAcross(page, 0.9, turned ? 10.6 : 7.6).size(), turned ? 25U : 29U);
        EXPECT_EQ(HasText(page, "modification of TQW04.2 (5/2005)"), turned);
        EXPECT_NEAR(FindText(page, "Page 1 of 1").y, (turned ? 8.15 : 10.45) * 600, 1);
        EXPECT_TRUE(HasText(page, "compound-1") && !HasText(page, "old") &&
                    !HasText(page, "OLD.D"));
        for (int k = 1; k <= 10; ++k) {
            EXPECT_EQ(HasText(page, std::to_string(10 * k)), k <= levels) << levels << " " << k;
            EXPECT_EQ(HasText(page, "STD" + std::to_string(k) + ".D"), k <= levels);
            if (k <= levels) {
                EXPECT_THAT(TextsEndingAt(page, 3.3 + 0.6 * k),
                            Contains(std::to_string(8 + 2 * k)));
            }
        }
        if (levels > 0) {
            // Population deviation of n factors from 10 in steps of 2, relative to their mean.
            EXPECT_NEAR(std::stod(TextsEndingAt(page, turned ? 10.4 : 7.5).at(0)),
                        100 * std::sqrt((levels * levels - 1) / 3.0) / (9 + levels), 0.005);
        }
    }
    CalibratedRun bad(6, 1);
    bad.dir.Write("RUN.CAL", bad.calibration.replace(bad.calibration.find("12.4"), 4, "1x.4"));
    EXPECT_THAT(bad.Run(Form6CIDClick), ElementsAre("Calibration File Error"));
    EXPECT_THAT(bad.host.sink.jobs, IsEmpty()) << "the job is dropped";
    EXPECT_EQ(bad.host.printer.Orientation, PageOrientation::kPortrait);
}

// A compound whose name wraps, one of which the check report knows no numbers, and one that it
// lacks.
TEST(Form7, ShowsEachCompoundWithItsLimits) {
    CalibratedRun run(3, 4);
    std::string& check = run.check;
    check.replace(check.find("Compound-2"), 15, "1,1,2-trichloro-1,2,2-trifluoro-octylethane;n/a");
    check.replace(check.find("Compound-3"), 10, " COMPOUND-3 ");
    check.replace(check.find("N;Com"), 5, "  n;COM");
    check.resize(check.find("4;Compound-4"));
    run.dir.Write("RUN.CHECK", check);
    run.host.entries.ContinuingCalibration.SampleNo = "VSTD050 ";
    run.host.entries.InitialCalibration.FirstStandard = "typed";
    const JobPage& page = run.FirstPage(Form7CCDClick);
    EXPECT_THAT(run.host.sink.begun, ElementsAre("Form 7 VSTD050"));
    EXPECT_THAT(TextsAt(page, 1.0),
                ElementsAre("COMPOUND", "compound-1", "1,1,2-trichloro-1,2,2-trifluoro-",
                            "octylethane", "compound-3"));
    EXPECT_THAT(TextsEndingAt(page, 4.9), ElementsAre("13", "n/a", "13"));
    EXPECT_THAT(TextsEndingAt(page, 5.6), ElementsAre("11", "11", "11"));
    EXPECT_THAT(TextsEndingAt(page, 6.1), ElementsAre("0.1"));
    EXPECT_THAT(TextsEndingAt(page, 6.8), ElementsAre("-8.8", "-8.8", "-8.8"));
    EXPECT_THAT(TextsEndingAt(page, 7.5), ElementsAre("25"));
    EXPECT_EQ(RulesAcross(page, 0.9, 7.6).size(), 28U);
    EXPECT_NEAR(FindText(page, "50").y, 3.415 * 600, 1) << "amount in the head";
    // The standard's own entries come from its raw data file, those of Form VI are not fetched.
    EXPECT_TRUE(HasText(page, "CHK.D") && HasText(page, "05/18/2005") && HasText(page, "08:46"));
    EXPECT_EQ(run.host.entries.InitialCalibration.FirstStandard, "typed");
}

// The standard's 1000 counts and 7.25 minutes give 2000 and 500, 7.75 and 6.75.
TEST(Form8, FlagsWhatIsBeyondTheStandardsWindow) {
    const auto expectFlag = [](const char* flag, const char* area, const char* rt,
                               const char* printedArea) {
        CalibratedRun run(1, 1);
        run.dir.Write("S1.PRN", SampleText(area, rt));
        const JobPage& page = run.FirstPage(Form8ARTClick);
        EXPECT_TRUE(run.host.flags.Form8DataReady);
        EXPECT_EQ(RulesAcross(page, 1.0, 7.6).size(), 27U);
        for (const double x : {2.85, 4.65, 6.45}) {
            EXPECT_THAT(TextsEndingAt(page, x),
                        ElementsAre("AREA", "1000", "2000", "500", printedArea));
            EXPECT_THAT(TextsEndingAt(page, x + 0.9),
                        ElementsAre("RT", "7.25", "7.75", "6.75", rt));
            EXPECT_EQ(TextsAt(page, x + 0.15).back(), flag) << area;
            EXPECT_EQ(TextsAt(page, x + 1.05).back(), flag) << rt;
        }
    };
    expectFlag("#", "500.0", "6.75", "500");
    expectFlag("*", "499.9", "6.74", "499");
    expectFlag("#", "2000.9", "7.75", "2000");
    expectFlag("*", "2001", "7.76", "2001");
    expectFlag("#", "n/a", "late", "n/a");
}

TEST(Form8, WithoutCheckReportALevelOfTheCalibrationIsTheStandard) {
    CalibratedRun run(3, 1);
    StandardSummaryEntry& entry = run.host.entries.StandardSummary;
    run.host.batch.Files.CheckCal.clear();
    entry.RetentionTimes = {"7.255", "6", "late"};
    entry.LevelIndex = 0;
    entry.Levels = {"left over"};
    run.host.Calibration().LevelAmount = {"10", "20", "30", "left over"};
    Form8ARTClick(run.host);
    EXPECT_THAT(run.host.messages.TakeTexts(),
                ElementsAre("A left over ug/L concentration was not found. Return to\nForm 8 entry "
                            "to enter the appropriate concentration."));
    entry.Levels = {"20"};
    const JobPage& page = run.FirstPage(Form8ARTClick);
    EXPECT_THAT(TextsEndingAt(page, 2.85), ElementsAre("AREA", "2000", "4000", "1000", "1000"));
    EXPECT_THAT(TextsEndingAt(page, 3.75), ElementsAre("RT", "7.25", "7.75", "6.75", "7.25"));
    EXPECT_THAT(TextsEndingAt(page, 5.55), ElementsAre("RT", "6.00", "6.50", "5.50", "7.25"));
    EXPECT_THAT(TextsEndingAt(page, 7.35), ElementsAre("RT", "late", "7.25"));
}

}  // namespace
}  // namespace qfr::test
