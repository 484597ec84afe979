#include <gmock/gmock.h>

#include "forms/Form8.h"
#include "tests/CalibratedRun.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr EntryDialog kDialog = EntryDialog::kStandardSummary;

// The standard's 1000 counts and 7.25 minutes give 2000 and 500, 7.75 and 6.75.
TEST(Form8, FlagsWhatIsBeyondTheStandardsWindow) {
    const struct {
        const char* area;
        const char* rt;
        const char* printedArea;
        bool flagged;
    } cases[] = {{"500.0", "6.75", "500", false},
                 {"499.9", "6.74", "499", true},
                 {"2000.9", "7.75", "2000", false},
                 {"2001", "7.76", "2001", true},
                 {"n/a", "late", "n/a", false}};
    for (const auto& c : cases) {
        CalibratedRun run(1, 1);
        run.dir.Write("S1.PRN", SampleText(c.area, c.rt));
        EXPECT_THAT(run.Run(Form8ARTClick, kDialog), IsEmpty());
        EXPECT_TRUE(run.host.flags.Form8DataReady);
        const JobPage& page = run.host.sink.jobs.at(0).pages.at(0);
        for (const double x : {2.85, 4.65, 6.45}) {
            EXPECT_THAT(TextsEndingAt(page, x),
                        ElementsAre("AREA", "1000", "2000", "500", c.printedArea));
            EXPECT_THAT(TextsEndingAt(page, x + 0.9),
                        ElementsAre("RT", "7.25", "7.75", "6.75", c.rt));
            for (const double flag : {x + 0.15, x + 1.05}) {
                const auto texts = TextsAt(page, flag);
                EXPECT_EQ(texts.back(), c.flagged ? "*" : "#") << c.area << " " << c.rt;
            }
        }
    }
}

TEST(Form8, PagesHoldTwentyTwoNumberedRows) {
    const struct {
        int samples;
        std::size_t pages;
        std::size_t onLast;
        const char* footer;
    } cases[] = {{1, 1, 1, "Page 1 of 1"},
                 {22, 1, 22, "Page 1 of 1"},
                 {23, 2, 1, "Page 2 of 2"},
                 {45, 3, 1, "Page 3 of 3"}};
    for (const auto& c : cases) {
        CalibratedRun run(1, 1, c.samples);
        EXPECT_THAT(run.Run(Form8ARTClick, kDialog), IsEmpty());
        const PrintJob& job = run.host.sink.jobs.at(0);
        EXPECT_EQ(job.pages.size(), c.pages);
        EXPECT_EQ(TextsAt(job.pages.back(), 1.1).size(), c.onLast);
        const auto numbers = TextsAt(job.pages.back(), 0.8);
        ASSERT_EQ(numbers.size(), 22U);
        EXPECT_EQ(numbers.back(), std::to_string(22 * c.pages));
        EXPECT_TRUE(HasText(job.pages.back(), c.footer));
        EXPECT_EQ(HasText(job.pages.back(), "8B - FORM VIII VOA"), c.pages == 2);
    }
}

TEST(Form8, WithoutCheckReportALevelOfTheCalibrationIsTheStandard) {
    CalibratedRun run(3, 1);
    StandardSummaryEntry& entry = run.host.entries.StandardSummary;
    run.host.batch.Files.CheckCal.clear();
    EXPECT_THAT(run.Run(Form8ARTClick, kDialog), ElementsAre("Concentration Not Found"));
    entry.RetentionTimes = {"7.3", "6", "late"};
    entry.LevelIndex = 0;
    entry.Levels = {"20"};
    run.host.Calibration().LevelAmount = {"10", "20", "30"};
    EXPECT_THAT(run.Run(Form8ARTClick, kDialog), IsEmpty());
    const JobPage& page = run.host.sink.jobs.at(0).pages.at(0);
    EXPECT_THAT(TextsEndingAt(page, 2.85), ElementsAre("AREA", "2000", "4000", "1000", "1000"));
    EXPECT_THAT(TextsEndingAt(page, 3.75), ElementsAre("RT", "7.30", "7.80", "6.80", "7.25"));
    EXPECT_THAT(TextsEndingAt(page, 7.35), ElementsAre("RT", "late", "7.25"));
}

TEST(Form8, RefusesWhatItCannotPrint) {
    CalibratedRun run(1, 1, 2);
    FileSet& files = run.host.batch.Files;
    for (SampleRecord& record : *run.host.batch.SampleList) {
        record.FileName = "c:\\gone\\s.x";
    }
    EXPECT_THAT(run.Run(Form8ARTClick, kDialog), ElementsAre("File Not Found", "File Not Found"));
    files.CheckCal = "/gone";
    EXPECT_THAT(run.Run(Form8ARTClick, kDialog),
                ElementsAre("Calibration File Could Not Be Opened"));
    files.CheckCal = files.Calib = " ";
    EXPECT_THAT(run.Run(Form8ARTClick, kDialog), ElementsAre("Calibration File Not Specified"));
    files.QFiles.clear();
    EXPECT_THAT(run.Run(Form8ARTClick, kDialog), ElementsAre("Required Files Missing"));
    EXPECT_THAT(run.host.sink.begun, IsEmpty());
    EXPECT_FALSE(run.host.flags.Form8DataReady);
}

}  // namespace
}  // namespace qfr::test
