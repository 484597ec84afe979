#include <gmock/gmock.h>

#include "forms/Form7.h"
#include "tests/CalibratedRun.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr EntryDialog kDialog = EntryDialog::kContinuingCalibration;

// A compound whose name wraps, one of which the check report knows no numbers, and one that it
// lacks.
TEST(Form7, ShowsEachCompoundWithItsLimits) {
    CalibratedRun run(3, 4);
    std::string& check = run.check;
    check.replace(check.find("Compound-2"), 15, "1,1,2-trichloro-1,2,2-trifluoro-octylethane;n/a");
    check.resize(check.find("4;Compound-4"));
    run.dir.Write("RUN.CHECK", check);
    run.host.entries.ContinuingCalibration.SampleNo = "VSTD050 ";
    run.host.entries.InitialCalibration.FirstStandard = "typed";
    EXPECT_THAT(run.Run(Form7CCDClick, kDialog), IsEmpty());
    const PrintJob& job = run.host.sink.jobs.at(0);
    EXPECT_EQ(job.title, "Form 7 VSTD050");
    const JobPage& page = job.pages.at(0);
    EXPECT_THAT(TextsAt(page, 1.0),
                ElementsAre("COMPOUND", "compound-1", "1,1,2-trichloro-1,2,2-trifluoro-",
                            "octylethane", "compound-3"));
    EXPECT_THAT(TextsEndingAt(page, 4.9), ElementsAre("13", "n/a", "13"));
    EXPECT_THAT(TextsEndingAt(page, 5.6), ElementsAre("11", "11", "11"));
    EXPECT_THAT(TextsEndingAt(page, 6.1), ElementsAre("0.1"));
    EXPECT_THAT(TextsEndingAt(page, 6.8), ElementsAre("-8.8", "-8.8", "-8.8"));
    EXPECT_THAT(TextsEndingAt(page, 7.5), ElementsAre("25"));
    EXPECT_NEAR(FindText(page, "50").y, 3.415 * 600, 1) << "amount in the head";
    // The standard's own entries come from its raw data file, those of Form VI are not fetched.
    EXPECT_TRUE(HasText(page, "CHK.D") && HasText(page, "05/18/2005") && HasText(page, "08:46"));
    EXPECT_EQ(run.host.entries.InitialCalibration.FirstStandard, "typed");
}

TEST(Form7, PagesHoldTwentySevenRows) {
    const struct {
        int compounds;
        std::vector<std::size_t> rows;
        const char* lastFooter;
    } cases[] = {{0, {0}, "Page 1 of 1"},
                 {26, {26}, "Page 1 of 1"},
                 {27, {27}, "Page 1 of 2"},
                 {28, {27, 1}, "Page 2 of 2"},
                 {90, {27, 27, 27, 9}, "Page 4 of 4"}};
    for (const auto& c : cases) {
        CalibratedRun run(1, c.compounds);
        EXPECT_THAT(run.Run(Form7CCDClick, kDialog), IsEmpty());
        const PrintJob& job = run.host.sink.jobs.at(0);
        EXPECT_EQ(CountsEndingAt(job, 5.6), c.rows);
        EXPECT_EQ(RulesAcross(job.pages.back(), 0.9, 7.6).size(), 28U);
        EXPECT_TRUE(HasText(job.pages.back(), c.lastFooter)) << c.compounds;
        EXPECT_EQ(HasText(job.pages.back(), "7B - FORM VII VOA-2"), c.rows.size() == 2);
    }
}

TEST(Form7, RefusesWhatItCannotPrint) {
    CalibratedRun run(1, 1);
    run.host.entries.ContinuingCalibration.CriteriaFile = "/gone";
    EXPECT_THAT(run.Run(Form7CCDClick, kDialog), ElementsAre("File Could Not Be Opened"));
    for (std::string FileSet::*file : {&FileSet::Calib, &FileSet::CheckCal}) {
        run.host.batch.Files.*file = "/gone";
        EXPECT_THAT(run.Run(Form7CCDClick, kDialog),
                    ElementsAre("Calibration File Could Not Be Opened"));
    }
    run.host.batch.Files.Calib = " ";
    EXPECT_THAT(run.Run(Form7CCDClick, kDialog), ElementsAre("Calibration File Not Specified"));
    EXPECT_THAT(run.host.sink.begun, IsEmpty());
}

}  // namespace
}  // namespace qfr::test
