#include "tests/Support.h"

namespace qfr::test {
namespace {

TEST(PrintPackage, RunsOnACopyInOrderAndListsWhatIsRefused) {
    CalibratedRun run(1, 1, 2);
    ScriptedHost& host = run.host;
    host.batch.SampleList->back().TicList.emplace(1);
    host.printer.PaperSize.name = "A4";
    host.entries.Tune.InstrumentId.clear();  // as the sample's header has it
    // Without the file, only an entry that the user accepted before is left as it is.
    std::filesystem::remove(run.dir.Path() / "STD1.D");
    host.entries.InitialCalibration = {"05/16/2005 01:00", "05/16/2005 01:00", {"TYPED.D"}};
    host.flags.InitCalEntered = true;
    const Entries before = host.entries;

    JobLog sink;
    const std::string notes = run.PrintAll(sink);
    std::string told;
    for (const PrintJob& job : sink.jobs) {
        EXPECT_EQ(job.paper.name, "A4");
        told += job.title + "=" + job.form.substr(0, job.form.find(',')) + "/" + job.sample + "|";
    }
    EXPECT_EQ(told + notes,
              "Form 1 S1=Form I VOA/S1|Form 1 S2=Form I VOA/S2|Form 1 TIC S2=Form I VOA-TIC/S2|"
              "Form 4 S1=Form IV/|Form 5 BFB01=Form V/|Form 6=Form VI/|"
              "2: No File Specified: Please select a file for ranges."
              "7: Required Input Missing: Please enter an appropriate value."
              "8: Required Input Missing: Please enter an appropriate value.");
    EXPECT_EQ(host.entries, before);
    EXPECT_TRUE(host.dialogs.empty() && host.messages.shown.empty() && host.sink.begun.empty());
}

TEST(PrintPackage, PrintsAFormTheSameAloneAndAmongOthers) {
    CalibratedRun run(2, 1, 2);
    ContinuingCalibrationEntry& continuing = run.host.entries.ContinuingCalibration;
    continuing.SampleNo = "VSTD010";
    continuing.InstrumentId = "MS";
    StandardSummaryEntry& summary = run.host.entries.StandardSummary;
    summary.SampleNo = "VSTD020A";
    summary.LabFileId = "CHK.D";
    summary.AnalysisDateTime = "05/18/2005 08:46";
    run.host.batch.SampleList->front().CompoundCount = 1;
    run.host.entries.Comments.Lines = {"", "", "no room"};
    JobLog together;
    EXPECT_THAT(run.PrintAll(together),
                testing::AllOf(testing::HasSubstr("1 did: Quantitation Report Changed: S1.PRN"),
                               testing::HasSubstr("4 did: Comments Too Long: "),
                               testing::HasSubstr("8 did: Quantitation Report Changed: S1.PRN")));
    JobLog alone;
    for (const FormRow& form : kForms) {
        run.PrintAll(alone, form.name);
    }
    EXPECT_EQ(together.jobs.size(), 7U);
    EXPECT_EQ(together.jobs.back().title, "Form 8 VSTD010");
    EXPECT_TRUE(together.jobs == alone.jobs);
}

}  // namespace
}  // namespace qfr::test
