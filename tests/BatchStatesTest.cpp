// What the main window says of a batch without showing it, and the batches that it remembers.
#include "app/BatchStates.h"
#include "app/RecentBatches.h"
#include "platform/FileLookup.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

SavedBatch ExampleBatch() {
    const std::string file = TextOf(ExampleDir() / "example.qff");
    return std::get<SavedBatch>(RestoreBatch(*LineReader::Open(PathOf(file)), file));
}

BatchStates LookedThrough(const SavedBatch& saved) {
    TimesMetrics metrics;
    LookThrough look(saved, 0, metrics);
    while (look.Step()) {
    }
    return look.Take();
}

// Of the forms that are not ready, after their names.
std::string Lacking(const BatchStates& states) {
    std::string texts;
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        EXPECT_EQ(states.Forms[i].Ready, states.Forms[i].Text == "Ready");
        if (!states.Forms[i].Ready) {
            texts += std::string(kForms[i].name) + ": " + states.Forms[i].Text + "|";
        }
    }
    return texts;
}

TEST(BatchStates, SayInOneLineWhatEachFormLacks) {
    const std::tuple<std::function<void(SavedBatch&)>, std::string> cases[] = {
        {[](SavedBatch&) {}, ""},
        {[](SavedBatch& saved) { saved.Entries.Tune.SampleNo.clear(); },
         "5: BFB tune (Form V), Sample no.: Please enter a value.|"},
        {[](SavedBatch& saved) {
             saved.Batch.SampleList->at(4).Header[HeaderField::kLabName] = "";
         },
         "1: Incomplete headers: 1 of 10|"},
        {[](SavedBatch& saved) {
             for (SampleRecord& sample : *saved.Batch.SampleList) {
                 sample.TicList.reset();
             }
         },
         "tic: No sample has TICs.|"},
        {[](SavedBatch& saved) { saved.Batch.SampleList->at(4).FileName = "/gone.prn"; },
         "1: 1 of 10: /gone.prn could not be found.  Use Data Files|Load Files menu option to "
         "relocate file|8: Load Files, Quant. Files: /gone.prn could not be found.  Use Data "
         "Files|Load Files menu option to relocate file|"},
    };
    for (const auto& [change, lacking] : cases) {
        SavedBatch saved = ExampleBatch();
        change(saved);
        EXPECT_EQ(Lacking(LookedThrough(saved)), lacking);
    }
    SavedBatch unfinished = ExampleBatch();
    for (SampleRecord& sample : *unfinished.Batch.SampleList) {
        sample.Header[HeaderField::kContract] = " ";
    }
    EXPECT_THAT(Lacking(LookedThrough(unfinished)),
                testing::StartsWith("1: Incomplete headers: 10 of 10|tic: Incomplete headers: 2 of "
                                    "2|2: Form 1 Header, Contract: Header information is not "
                                    "complete for Form 2. Go to Form1 "));
    EXPECT_THAT(Lacking(LookedThrough({})),
                testing::HasSubstr("|tic: No sample has TICs.|2: Load Files, Quant. Files: Please "
                                   "use Data Files|Load Files menu selections to specify files.|4: "
                                   "Load Files, Lab Blank: "));
}

TEST(BatchStates, AreFoundOutInSmallStepsOnABatchOfTheirOwn) {
    TimesMetrics metrics;
    auto saved = std::make_unique<SavedBatch>(ExampleBatch());
    LookThrough example(*saved, 0, metrics);
    saved->Entries.Tune.SampleNo.clear();
    LookThrough changed(*saved, 0, metrics);
    const std::size_t least = SamplesOf(saved->Batch).size() + ReviewRules().size() +
                              PlanWholePackage(saved->Batch).size();
    saved.reset();
    std::size_t steps = 0;
    while (example.Step()) {
        changed.Step();
        ++steps;
    }
    EXPECT_FALSE(changed.Step() || example.Step());
    EXPECT_GE(steps, least);
    EXPECT_EQ(Lacking(example.Take()) + Lacking(changed.Take()),
              "5: BFB tune (Form V), Sample no.: Please enter a value.|");
}

TEST(BatchStates, CountTheFindingsOfEachSample) {
    SavedBatch saved = ExampleBatch();
    saved.Batch.SampleList->at(3).Header[HeaderField::kConcUnits] = "ug/kg";
    std::string texts;
    for (const FindingCount& count : LookedThrough(saved).Samples) {
        texts += FindingText(count) + "|";
    }
    EXPECT_EQ(texts,
              "none|none|none|1 error, 1 warning|none|4 warnings|2 warnings|4 warnings|none|none|");
    EXPECT_EQ(FindingText({2, 1}), "2 errors, 1 warning");
}

TEST(BatchStates, KnowTheFormsOfPrintedJobsByTheirTitles) {
    const SavedBatch saved = ExampleBatch();
    TimesMetrics metrics;
    KeptMessages messages;
    HeadlessHost host(saved, metrics, messages);
    std::vector<PrintedJobs> printed(2);
    printed[0].Titles = {"REVIEW", "Form 44"};
    for (const PackageWork& work : PlanWholePackage(saved.Batch)) {
        printed[1].Titles.push_back(PrintWork(host, work)->title);
        printed[0].Titles.push_back(printed[1].Titles.back());
    }
    std::string counts;
    for (const FormRow& form : kForms) {
        const FormPrinted found = PrintedOf(form, printed);
        EXPECT_EQ(found.Last, &printed[1]) << form.name;
        EXPECT_EQ(PrintedOf(form, std::span(printed).first(1)).Jobs, found.Jobs) << form.name;
        EXPECT_EQ(PrintedOf(form, {}).Last, nullptr);
        counts += std::to_string(found.Jobs) + " ";
    }
    EXPECT_EQ(counts, "10 2 1 1 1 1 1 1 ");
}

TEST(RecentBatches, AreTheLastEightEachOnce) {
    const TempDir dir;
    const std::string kept = dir.Write("kept.qff", "");
    fs::create_directory(dir.Path() / "link");
    fs::create_hard_link(PathOf(kept), dir.Path() / "link" / "kept.qff");
    const auto gone = [&dir](int number) {
        return TextOf(dir.Path() / (std::to_string(number) + ".qff"));
    };
    std::vector<std::string> recent = {"", kept};
    for (int i = 1; i <= 7; ++i) {
        recent = WithRecentBatch(recent, gone(i));
    }
    EXPECT_EQ(recent.size(), kRecentBatches);
    EXPECT_EQ(recent.back(), kept);
    recent = WithRecentBatch(recent, TextOf(dir.Path() / "." / "x" / ".." / "3.qff"));
    EXPECT_EQ(recent[0] + recent[1] + recent.back(), gone(3) + gone(7) + kept);
    recent = WithRecentBatch(recent, TextOf(dir.Path() / "link" / "kept.qff"));
    EXPECT_EQ(recent.size(), kRecentBatches) << "the same file";
    EXPECT_EQ(recent[1], gone(3));
    EXPECT_EQ(WithRecentBatch(recent, gone(9)).back(), gone(2));
    EXPECT_EQ(WithRecentBatch({}, "a.qff").front(), TextOf(fs::current_path() / "a.qff"));
}

}  // namespace
}  // namespace qfr::test
