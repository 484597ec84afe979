#include <gmock/gmock.h>

#include "forms/Form5.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;

TEST(FlagTuneValues, MarksOneStepBeyondEitherEnd) {
    using Values = std::array<std::string, TuneEntry::kIons>;
    TuneEntry tune;
    for (const Values& inside :
         {Values{"15.0", "30.0", "0", "5.0", "-1", "50.0", "5.0", "95.0", "5.0"},
          Values{"40.0", "80.0", "1e9", "9.0", "2.0", "120.0", "9.0", "101.0", "9.0"}}) {
        tune.Abundances = inside;
        for (const std::string& value : FlagTuneValues(tune)) {
            EXPECT_TRUE(value.ends_with("    ")) << value;
        }
    }
    for (const Values& outside :
         {Values{"14.99", "29.99", "", "4.99", "2.01", "49.99", "4.99", "94.99", "4.99"},
          Values{"40.01", "80.01", "", "9.01", "2.01", "120.01", "9.01", "101.01", "9.01"}}) {
        tune.Abundances = outside;
        const Values flagged = FlagTuneValues(tune);
        for (std::size_t i = 0; i < flagged.size(); ++i) {
            EXPECT_EQ(flagged[i], i == 2 ? "    " : outside[i] + "  *");
        }
    }
}

// A tune injected at 08:00 on 5/18/2005 and samples with this analysis date.
struct TuneForm {
    explicit TuneForm(std::size_t samples, const std::string& date = "05/18/2005 08:01:15 PM") {
        host.batch.Files.LabBlank = "c:\\lab\\vblk01.prn";
        host.batch.SampleList.emplace(samples, CompleteRecord("S"));
        for (SampleRecord& record : *host.batch.SampleList) {
            record.Header[HeaderField::kDateAnalyzed] = date;
        }
        host.entries.Tune = {
            "BFB01",   "typed",
            "BFB01.D", "05/18/2005",
            " 8:00",   {"18.1", "81", "100", "6.6", "2.01", "75", "7.1", "97.5", "6.7"}};
    }
    void Print(bool ok = true) {
        host.dialogs.emplace_back([ok](EntryDialog) { return ok; });
        Form5IPCClick(host);
    }
    ScriptedHost host;
};

TEST(Form5, TwentyTwoRowsAPageAndAPageCountOfItsOwn) {
    const struct {
        std::size_t samples;
        const char* lastLine;
        const char* footer;
    } cases[] = {
        {1, "5A - FORM V VOA-1", "Page 1 of 1"},  {21, "5A - FORM V VOA-1", "Page 1 of 1"},
        {22, "5A - FORM V VOA-1", "Page 1 of 2"}, {23, "5B - FORM V VOA-2", "Page 2 of 2"},
        {44, "5B - FORM V VOA-2", "Page 2 of 3"}, {61, "5C - FORM V VOA-3", "Page 3 of 3"}};
    for (const auto& c : cases) {
        TuneForm form(c.samples);
        form.Print();
        const PrintJob& job = form.host.sink.jobs.at(0);
        std::size_t row = 0;
        std::size_t filled = 0;
        for (const JobPage& page : job.pages) {
            std::vector<std::string> numbers;
            for (int i = 0; i < 22; ++i) {
                numbers.push_back(std::to_string(++row));
            }
            EXPECT_EQ(TextsAt(page, 1.05), numbers);
            EXPECT_EQ(RulesAcross(page, 1.25, 7.25).size(), 23U) << "the rows and their box's top";
            EXPECT_EQ(FindText(page, "BFB01").size, 14);
            filled += TextsAt(page, 1.35).size();
        }
        EXPECT_EQ(filled, c.samples);
        EXPECT_TRUE(HasText(job.pages.back(), c.lastLine)) << c.samples;
        EXPECT_TRUE(HasText(job.pages.back(), c.footer)) << c.samples;
    }
}

TEST(Form5, ShowsTheTuneAndWhatItDoesNotCover) {
    TuneForm form(1);
    form.Print();
    EXPECT_EQ(form.host.sink.begun, std::vector<std::string>{"Form 5 BFB01"});
    const JobPage& page = form.host.sink.jobs.at(0).pages.at(0);
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

TEST(Form5, SaysWhatIsWrongAndPrintsNothing) {
    TuneForm badSample(2, "soon");
    badSample.Print();
    TuneForm badTune(1);
    badTune.host.entries.Tune.InjectionDate = "8:00";
    badTune.Print();
    for (TuneForm* form : {&badSample, &badTune}) {
        EXPECT_EQ(form->host.messages.shown.at(0).title, "Incorrect Time Format");
        form->Print(false);
        form->host.batch.Files.LabBlank.clear();
        Form5IPCClick(form->host);
        EXPECT_EQ(form->host.messages.shown.at(1).title, "Lab Blank Not Specified");
        EXPECT_TRUE(form->host.sink.begun.empty());
    }
}

}  // namespace
}  // namespace qfr::test
