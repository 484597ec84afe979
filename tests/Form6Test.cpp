#include <cmath>
#include <gmock/gmock.h>

#include "forms/Form6.h"
#include "tests/CalibratedRun.h"

namespace qfr::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr EntryDialog kDialog = EntryDialog::kInitialCalibration;

TEST(Form6, MoreThanFiveLevelsTurnThePage) {
    for (const int levels : {1, 3, 5, 6, 10}) {
        CalibratedRun run(levels, 1);
        // What an earlier calibration of more levels left behind.
        run.host.Calibration().LevelAmount.fill("old");
        run.host.entries.InitialCalibration.LabFileIds.fill("OLD.D");
        EXPECT_THAT(run.Run(Form6CIDClick, kDialog), IsEmpty());
        const JobPage& page = run.host.sink.jobs.at(0).pages.at(0);
        const bool turned = levels > 5;
        EXPECT_EQ(page.orientation == PageOrientation::kLandscape, turned);
        // A turned page is too low for 26 empty rows.
        EXPECT_EQ(RulesAcross(page, 0.9, turned ? 10.6 : 7.6).size(), turned ? 25U : 29U);
        EXPECT_EQ(HasText(page, "modification of TQW04.2 (5/2005)"), turned);
        EXPECT_NEAR(FindText(page, "Page 1 of 1").y, (turned ? 8.15 : 10.45) * 600, 1);
        for (int k = 1; k <= 10; ++k) {
            EXPECT_EQ(HasText(page, std::to_string(10 * k)), k <= levels) << levels << " " << k;
            EXPECT_EQ(HasText(page, "STD" + std::to_string(k) + ".D"), k <= levels);
            if (k <= levels) {
                EXPECT_THAT(TextsEndingAt(page, 3.3 + 0.6 * k),
                            Contains(std::to_string(8 + 2 * k)));
            }
        }
        EXPECT_FALSE(HasText(page, "old") || HasText(page, "OLD.D"));
        // Mean and population deviation of n factors from 10 in steps of 2.
        EXPECT_THAT(TextsEndingAt(page, turned ? 9.8 : 6.9),
                    ElementsAre(std::to_string(9 + levels)));
        EXPECT_NEAR(std::stod(TextsEndingAt(page, turned ? 10.4 : 7.5).at(0)),
                    100 * std::sqrt((levels * levels - 1) / 3.0) / (9 + levels), 0.005);
    }
}

TEST(Form6, PagesHoldTwentySevenRowsOrTwentySixTurned) {
    const struct {
        int levels;
        int compounds;
        std::vector<std::size_t> rows;
        const char* lastFooter;
    } cases[] = {{5, 26, {26}, "Page 1 of 1"},    {5, 27, {27}, "Page 1 of 2"},
                 {5, 28, {27, 1}, "Page 2 of 2"}, {5, 90, {27, 27, 27, 9}, "Page 4 of 4"},
                 {6, 26, {26}, "Page 1 of 2"},    {6, 27, {26, 1}, "Page 2 of 2"},
                 {1, 0, {0}, "Page 1 of 1"},      {0, 1, {0}, "Page 1 of 1"}};
    for (const auto& c : cases) {
        CalibratedRun run(c.levels, c.compounds);
        EXPECT_THAT(run.Run(Form6CIDClick, kDialog), IsEmpty());
        const PrintJob& job = run.host.sink.jobs.at(0);
        EXPECT_EQ(CountsEndingAt(job, c.levels > 5 ? 9.8 : 6.9), c.rows) << c.compounds;
        EXPECT_TRUE(HasText(job.pages.back(), c.lastFooter)) << c.compounds;
        EXPECT_EQ(HasText(job.pages.back(), "6B - FORM VI VOA-2"), c.rows.size() == 2);
        EXPECT_EQ(HasText(job.pages.back(), "compound-" + std::to_string(c.compounds)),
                  c.compounds > 0);
    }
}

TEST(Form6, WhatCannotBePrintedIsDropped) {
    CalibratedRun run(6, 1);
    run.dir.Write("RUN.CAL", run.calibration.replace(run.calibration.find("12.4"), 4, "1x.4"));
    EXPECT_THAT(run.Run(Form6CIDClick, kDialog), ElementsAre("Calibration File Error"));
    EXPECT_EQ(run.host.printer.Orientation, PageOrientation::kPortrait);
    EXPECT_THAT(run.Run(Form6CIDClick, kDialog, false), IsEmpty());
    run.host.batch.Files.Calib = "c:\\gone\\gone.cal";
    EXPECT_THAT(run.Run(Form6CIDClick, kDialog),
                ElementsAre("Calibration File Could Not Be Opened"));
    run.host.batch.Files.Calib = " ";
    EXPECT_THAT(run.Run(Form6CIDClick, kDialog), ElementsAre("Calibration File Not Specified"));
    EXPECT_THAT(run.host.sink.jobs, IsEmpty());
    EXPECT_EQ(run.host.sink.begun.size(), 1U);
}

}  // namespace
}  // namespace qfr::test
