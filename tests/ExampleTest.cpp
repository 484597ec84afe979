// The example batch is what a new user meets first, so it must be whole: accepted by every check,
// and complete enough for all eight forms.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "app/BatchFile.h"
#include "data/LoadFiles.h"
#include "data/QuantReport.h"
#include "platform/DateTime.h"
#include "platform/FileLookup.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;

class NoDialogs : public BatchOwner {
  public:
    void ResetEntryDialogs() override { ADD_FAILURE() << "the batch was cleared"; }
};

std::string Example(std::string_view name) {
    return TextOf(ExampleDir() / PathOf(name));
}

SavedBatch Restored() {
    auto file = LineReader::Open(ExampleDir() / "example.qff");
    EXPECT_TRUE(file.has_value());
    auto result = RestoreBatch(*file, "example.qff", Entries{});
    EXPECT_TRUE(std::holds_alternative<SavedBatch>(result)) << std::get<Message>(result).text;
    SavedBatch saved = std::get<SavedBatch>(std::move(result));
    saved.Batch.Folder = TextOf(ExampleDir());
    return saved;
}

std::string BaseName(std::string_view path) {
    return LowerCase(FileNameOnly(path));
}

TEST(Example, ItsReportsLoadWithoutAMessageAndGiveTheSavedBatch) {
    std::vector<std::string> reports;
    for (const auto& entry : fs::directory_iterator(ExampleDir())) {
        std::string name = TextOf(entry.path());
        if (EndsWith(name, ".prn") && BaseName(name) != "vblk01.prn") {
            reports.push_back(name);
        }
    }
    MessageLog messages;
    NoDialogs owner;
    Batch loaded;
    EXPECT_TRUE(TakeLabBlank(loaded, Example("VBLK01.PRN"), messages, owner));
    EXPECT_TRUE(AddQuantReports(loaded, reports, messages, owner));
    EXPECT_TRUE(TakeCalReport(loaded, Example("VOA0516.CAL"), messages));
    EXPECT_TRUE(TakeCheckReport(loaded, Example("VSTD050C.CHECK"), messages));
    BuildSampleList(loaded);
    EXPECT_EQ(messages.TakeTexts(), std::vector<std::string>{});

    const Batch saved = Restored().Batch;
    EXPECT_EQ(loaded.Files.LibFile, saved.Files.LibFile);
    EXPECT_EQ(loaded.Files.SurrFile, saved.Files.SurrFile);
    EXPECT_EQ(loaded.Files.CalFile, saved.Files.CalFile);
    EXPECT_EQ(BaseName(saved.Files.Calib), saved.Files.CalFile);
    EXPECT_EQ(BaseName(loaded.Files.CheckCal), BaseName(saved.Files.CheckCal));
    EXPECT_EQ(loaded.BlankHitFlags, saved.BlankHitFlags);
    ASSERT_EQ(loaded.SampleList->size(), saved.SampleList->size());
    for (std::size_t i = 0; i < saved.SampleList->size(); ++i) {
        const SampleRecord& record = loaded.SampleList->at(i);
        const SampleRecord& typed = saved.SampleList->at(i);
        SCOPED_TRACE(typed.FileName);
        EXPECT_EQ(BaseName(record.FileName), BaseName(typed.FileName));
        EXPECT_EQ(record.CompoundCount, typed.CompoundCount);
        for (HeaderField field :
             {HeaderField::kZovSampleNo, HeaderField::kLabSampleId, HeaderField::kSampleWtVol,
              HeaderField::kLabFileId, HeaderField::kDateAnalyzed, HeaderField::kInstrumentId}) {
            EXPECT_EQ(record.Header[field], typed.Header[field]);
        }
    }
}

TEST(Example, EveryHeaderIsComplete) {
    const Batch batch = Restored().Batch;
    EXPECT_GE(batch.SampleList->size(), 7U);
    for (const SampleRecord& record : *batch.SampleList) {
        EXPECT_GE(record.CompoundCount, 48) << record.FileName;
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            EXPECT_NE(Trim(record.Header[HeaderFieldAt(number)]), "")
                << record.FileName << " value " << number;
        }
    }
    auto withTics = std::count_if(batch.SampleList->begin(), batch.SampleList->end(),
                                  [](const SampleRecord& r) { return r.TicList.has_value(); });
    EXPECT_GE(withTics, 2);
}

TEST(Example, EveryNamedFileIsFoundBesideTheBatchFile) {
    const SavedBatch saved = Restored();
    std::vector<std::string> names = saved.Batch.Files.QFiles;
    names.insert(names.end(),
                 {saved.Batch.Files.LabBlank, saved.Batch.Files.Calib, saved.Batch.Files.CheckCal,
                  saved.Entries.Ranges.FileName, saved.Entries.ContinuingCalibration.CriteriaFile});
    for (const std::string& id : saved.Entries.InitialCalibration.LabFileIds) {
        if (!id.empty()) {
            names.push_back(id);
        }
    }
    names.push_back(saved.Entries.ContinuingCalibration.LabFileId);
    for (const std::string& name : names) {
        EXPECT_TRUE(FindFileBeside(name, saved.Batch.Folder).has_value()) << name;
    }
}

TEST(Example, SavingItAgainGivesTheSameFile) {
    const SavedBatch saved = Restored();
    EXPECT_EQ(SaveBatch(saved.Batch, saved.Entries), ReadAll(ExampleDir() / "example.qff"));
}

// The dilution was injected late on purpose, so that Forms IV and V have something to mark.
TEST(Example, OnlyTheDilutionIsAnalyzedAfterTwelveHours) {
    const SavedBatch saved = Restored();
    const auto tune =
        ParseDateTime(saved.Entries.Tune.InjectionDate + " " + saved.Entries.Tune.InjectionTime);
    const SampleListType& samples = *saved.Batch.SampleList;
    const auto blank = ParseDateTime(samples.front().Header[HeaderField::kDateAnalyzed]);
    const auto first = ParseDateTime(saved.Entries.InitialCalibration.FirstStandard);
    const auto last = ParseDateTime(saved.Entries.InitialCalibration.LastStandard);
    const auto check = ParseDateTime(saved.Entries.ContinuingCalibration.AnalysisDateTime);
    ASSERT_TRUE(tune && blank && first && last && check);
    EXPECT_LT(*first, *last);
    EXPECT_LT(*last, *tune);
    EXPECT_LT(*tune, *check);
    EXPECT_LT(*check, *blank);
    std::vector<std::string> late;
    for (const SampleRecord& record : samples) {
        const auto analyzed = ParseDateTime(record.Header[HeaderField::kDateAnalyzed]);
        ASSERT_TRUE(analyzed.has_value()) << record.FileName;
        EXPECT_GE(*analyzed, *blank) << record.FileName;
        const bool afterTune = analyzed->seconds > tune->seconds + kTwelveHours;
        EXPECT_EQ(afterTune, analyzed->seconds > blank->seconds + kTwelveHours);
        if (afterTune) {
            late.push_back(record.Header[HeaderField::kZovSampleNo]);
        }
    }
    EXPECT_EQ(late, std::vector<std::string>{"ZA103DL"});
}

}  // namespace
}  // namespace qfr::test
