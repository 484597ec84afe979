#include <gmock/gmock.h>

#include "app/BatchFile.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// A batch in which every value differs from every other one.
SavedBatch FullBatch() {
    SavedBatch saved;
    FileSet& files = saved.Batch.Files;
    files = {
        "vol.lib",     "std.is",       "day1.cal", "/d/vblk.prn", {"/d/a.prn", "/d/gelöst.prn"},
        "/d/day1.cal", "/d/day1.check"};
    SampleListType& samples = saved.Batch.SampleList.emplace();
    for (const char* name : {"/d/vblk.prn", "/d/a.prn", "/d/gelöst.prn"}) {
        SampleRecord& record = samples.emplace_back();
        record.FileName = name;
        record.CompoundCount = static_cast<int>(samples.size()) + 40;
        for (int i = 1; i <= SampleHeader::kCount; ++i) {
            record.Header[HeaderFieldAt(i)] = name + std::to_string(i);
        }
    }
    samples[1].TicList = {{{"1-2-3", "Unknown", "4.5", "6", "J"}}, {{"", "", "", "", ""}}};
    saved.Batch.BlankHitFlags = {true, false, true};
    saved.Entries = {{"/d/ranges.txt", RecoveryLimits::kSoil},
                     {{"Blank was", "", "clean"}},
                     {"BFB01",
                      "GC1",
                      "B1.D",
                      "05/16/2005",
                      "08:15",
                      {"1", "2", "3", "4", "5", "6", "7", "8", "9"}},
                     {"05/16/2005 09:00", "05/16/2005 12:00", {"I1", "I2", "I3", "I4", "I5"}},
                     {"VSTD050", "C1", "/d/crit.txt", "GC1", "05/17/2005 08:00",
                      "  /  /       :  ", "05/16/2005 12:01"},
                     {}};
    StandardSummaryEntry& summary = saved.Entries.StandardSummary;
    summary.SampleNo = "VSTD050A1";
    summary.LabFileId = "S1";
    summary.AnalysisDateTime = "05/17/2005 08:01";
    summary.FirstCalibrationDate = "05/16/2005";
    summary.RetentionTimes = {"9.1", "6.2", "12.3"};
    summary.LevelIndex = 2;
    return saved;
}

// Replaces line `number` (from 1) of the text.
std::string WithLine(std::string text, int number, const std::string& line) {
    std::size_t start = 0;
    for (int i = 1; i < number; ++i) {
        start = text.find('\n', start) + 1;
    }
    return text.replace(start, text.find('\n', start) - start, line);
}

std::string Saved(const SavedBatch& saved) {
    return SaveBatch(saved.Batch, saved.Entries);
}

std::variant<SavedBatch, Message> Restore(const std::string& text, const Entries& current = {}) {
    return RestoreBatch(LineReader(text), "/d/x.qff", current);
}

SavedBatch Restored(const std::string& text, const Entries& current = {}) {
    auto result = Restore(text, current);
    const auto* message = std::get_if<Message>(&result);
    EXPECT_EQ(message, nullptr) << message->text;
    return message ? SavedBatch() : std::get<SavedBatch>(result);
}

// Lines of the full batch's file.
enum Line {
    kNameCount = 6,
    kRecordCount = 11,
    kFirstRecord = 12,
    kFirstHeader = 13,
    kSecondTicCount = 17,
    kFlagCount = 23,
    kFlags = 24,
    kRanges = 25,
    kComments = 26,
    kTune = 27,
    kInitial = 28,
    kSummary = 30
};

TEST(BatchFile, RestoresWhatWasSaved) {
    SavedBatch expected = FullBatch();
    const std::string text = Saved(expected);
    expected.Batch.Folder = "/d";
    for (const std::string& file : {text, std::string("\xEF\xBB\xBF") + text}) {
        EXPECT_EQ(Restored(file), expected);
    }
    EXPECT_EQ(Saved(Restored(text)), text);
}

TEST(BatchFile, SavesTheStateAfterStartUp) {
    const std::string text = SaveBatch({}, {});
    EXPECT_EQ(text,
              "QFRForms\n\n\n\n\n0\n\n\n0\n0\n\n"
              ";1;\n;\n;;;  /  /    ;  :  ;;;;;;;;;;\n  /  /       :  ;  /  /       :  ;;;;;;\n"
              ";;;;  /  /       :  ;  /  /       :  ;  /  /       :  ;\n"
              ";;  /  /       :  ;  /  /    ;  /  /    ;;;;-1;\n");
}

TEST(BatchFile, RefusesWhole) {
    const std::string aborted = "\nRestore will be aborted";
    const std::string notExist = " does not exist." + aborted;
    const std::string notProper = " does not read properly." + aborted;
    const std::string full = Saved(FullBatch());
    const struct {
        std::string text;
        std::string message;
        std::string title;
    } cases[] = {
        {"", "/d/x.qff is not a\nQFRForm saved file.", "Improper File Type"},
        {"QFRForms \n", "/d/x.qff is not a\nQFRForm saved file.", "Improper File Type"},
        {WithLine(full, 5, ""), notExist, "File Not Found"},
        {WithLine(full, 7, " \t"), notExist, "File Not Found"},
        {WithLine(full, 9, ""), notExist, "File Not Found"},
        {WithLine(full, 10, ""), notExist, "File Not Found"},
        {SaveBatch({}, {}), notExist, "File Not Found"},
        {WithLine(full, kNameCount, "-1"), "-1" + notProper, "File Not Found"},
        {WithLine(full, kRecordCount, " x1"), "x1" + notProper, "File Not Found"},
        // Of two failing lines the first is reported.
        {WithLine(WithLine(full, kNameCount, "x"), 9, ""), "x" + notProper, "File Not Found"},
        // Counts that pass for names at first.
        {WithLine(full, kRecordCount, "99999999999"), "99999999999" + notProper, "File Not Found"},
        {WithLine(full, kFirstRecord, "/d/a.prn;x;"), "x" + notProper, "File Not Found"},
        {WithLine(full, kSecondTicCount, "-2"), "-2" + notProper, "File Not Found"},
        {WithLine(full, kFlagCount, ""), notProper, "File Not Found"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.substr(0, 300));
        const auto result = Restore(c.text);
        const auto* message = std::get_if<Message>(&result);
        ASSERT_NE(message, nullptr);
        EXPECT_EQ(message->text, c.message);
        EXPECT_EQ(message->title, c.title);
        EXPECT_EQ(message->icon, MessageIcon::kInformation);
    }
}

TEST(BatchFile, TakesCountsOfThreeDigitsForNames) {
    SavedBatch large = FullBatch();
    large.Batch.Files.QFiles.assign(150, "/d/a.prn");
    large.Batch.SampleList->resize(151);
    large.Batch.BlankHitFlags.assign(301, true);
    const std::string text = Saved(large);
    EXPECT_EQ(Saved(Restored(text)), text);
}

TEST(BatchFile, TakesNoMoreThanTheFileHolds) {
    const std::string full = Saved(FullBatch());
    const std::string huge = "2147483647";
    // Every line after the count is a name then.
    EXPECT_THAT(Restored(WithLine(full, kNameCount, huge)).Batch.Files.QFiles, SizeIs(24));
    const std::string samplesOnly = full.substr(0, full.find("3\n1;0;1;\n"));
    EXPECT_EQ(Restored(WithLine(samplesOnly, kRecordCount, huge)).Batch.SampleList,
              FullBatch().Batch.SampleList);
    EXPECT_THAT(*(*Restored(WithLine(full, kSecondTicCount, huge)).Batch.SampleList)[1].TicList,
                SizeIs(13));
    const std::pair<const char*, std::vector<bool>> flags[] = {{"0", {}},
                                                               {"2", {true, false}},
                                                               {"5", {true, false, true}},
                                                               {"2147483647", {true, false, true}}};
    for (const auto& [count, expected] : flags) {
        EXPECT_EQ(Restored(WithLine(full, kFlagCount, count)).Batch.BlankHitFlags, expected);
    }
    EXPECT_EQ(Restored(WithLine(full, kFirstRecord, "/d/a.prn;" + huge + ";"))
                  .Batch.SampleList->front()
                  .CompoundCount,
              301);
}

TEST(BatchFile, LeavesWhatIsCutOffEmpty) {
    const SavedBatch whole = FullBatch();
    const std::string full = Saved(whole);
    const std::size_t firstName = full.find('\n') + 1;
    for (std::size_t size = firstName; size < full.size(); ++size) {
        SCOPED_TRACE(size);
        const auto result = Restore(full.substr(0, size));
        if (const auto* message = std::get_if<Message>(&result)) {
            EXPECT_TRUE(message->text.ends_with("aborted"));
            continue;
        }
        const SavedBatch& cut = std::get<SavedBatch>(result);
        EXPECT_TRUE(whole.Batch.Files.LibFile.starts_with(cut.Batch.Files.LibFile));
        EXPECT_LE(cut.Batch.Files.QFiles.size(), 2u);
        EXPECT_TRUE(!cut.Batch.SampleList || !cut.Batch.SampleList->empty());
        const bool entriesReached = size > full.find("/d/ranges");
        EXPECT_EQ(cut.Entries == Entries(), !entriesReached);
    }
    // Cut after the first record's first line.
    const SavedBatch cut = Restored(full.substr(0, full.find(";41;\n") + 5));
    ASSERT_THAT(*cut.Batch.SampleList, SizeIs(1));
    EXPECT_EQ(cut.Batch.SampleList->front().Header[HeaderField::kMatrix], "");
    EXPECT_THAT(cut.Batch.BlankHitFlags, IsEmpty());
}

TEST(BatchFile, ShiftsTheValuesAfterADelimiterInAValue) {
    SavedBatch saved = FullBatch();
    saved.Batch.SampleList->front().Header[HeaderField::kLabName] = "a;b";
    const SampleHeader header = Restored(Saved(saved)).Batch.SampleList->front().Header;
    EXPECT_EQ(header[HeaderField::kLabName], "a");
    EXPECT_EQ(header[HeaderField::kContract], "b");
    EXPECT_EQ(header[HeaderField::kLabCode], "/d/vblk.prn4");
}

TEST(BatchFile, RestoresEntries) {
    const std::string full = Saved(FullBatch());
    const auto with = [&](Line line, const char* text) {
        Entries current;
        current.Comments.Lines = {"old"};
        current.Tune.SampleNo = "old";
        current.InitialCalibration.LabFileIds[7] = "old";
        return Restored(WithLine(full, line, text), current).Entries;
    };
    const std::pair<const char*, RecoveryLimits> limits[] = {{"f;1;", RecoveryLimits::kWater},
                                                             {"f;2;", RecoveryLimits::kSoil},
                                                             {"f;3;", RecoveryLimits::kSoil},
                                                             {"f;4;", RecoveryLimits::kWater},
                                                             {"f", RecoveryLimits::kWater}};
    for (const auto& [line, expected] : limits) {
        EXPECT_EQ(with(kRanges, line).Ranges, (RangesEntry{"f", expected})) << line;
    }
    EXPECT_THAT(with(kComments, " ").Comments.Lines, ElementsAre("old"));
    EXPECT_THAT(with(kComments, ";").Comments.Lines, ElementsAre(""));
    EXPECT_EQ(with(kTune, "").Tune.SampleNo, "old");
    TuneEntry fresh;
    fresh.SampleNo = "new";
    EXPECT_EQ(with(kTune, "new").Tune, fresh);
    const InitialCalibrationEntry initial =
        with(kInitial, "  /  /       :  ;05/16/2005 12:00;A;").InitialCalibration;
    EXPECT_EQ(initial.FirstStandard, "  /  /       :  ");
    EXPECT_THAT(initial.LabFileIds, ElementsAre("A", "", "", "", "", "", "", "", "", ""));
    for (const char* line : {"S", ";;;;;;;;", ";;;;;;;;10;", ";;;;;;;;-7;", ";;;;;;;;x;"}) {
        EXPECT_EQ(with(kSummary, line).StandardSummary.LevelIndex, -1) << line;
    }
}

TEST(BatchFile, SavesCommentsTrimmedAndNeverAsAnEmptyLine) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{}, "\n;\n"}, {{""}, "\n;\n"}, {{" a ", "", "b"}, "\na;;b;\n"}};
    for (const auto& [lines, expected] : cases) {
        SavedBatch saved = FullBatch();
        saved.Entries.Comments.Lines = lines;
        EXPECT_THAT(Saved(saved), testing::HasSubstr(expected));
    }
}

}  // namespace
}  // namespace qfr::test
