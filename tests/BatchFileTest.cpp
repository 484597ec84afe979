#include <gmock/gmock.h>

#include "app/BatchFile.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using namespace ::testing;

// A batch in which every value differs from every other one.
SavedBatch FullBatch() {
    SavedBatch saved;
    saved.Batch.Files = {
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
                     {"VSTD050A1",
                      "S1",
                      "05/17/2005 08:01",
                      "05/16/2005",
                      "  /  /    ",
                      {"9.1", "6.2", "12.3"},
                      2,
                      {}}};
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

std::variant<SavedBatch, Message> Restore(const std::string& text) {
    Entries current;
    current.Comments.Lines = {"old"};
    current.Tune.SampleNo = "old";
    current.InitialCalibration.LabFileIds[7] = "old";
    return RestoreBatch(LineReader(text), "/d/x.qff", current);
}

SavedBatch Restored(const std::string& text) {
    const auto result = Restore(text);
    const auto* message = std::get_if<Message>(&result);
    EXPECT_EQ(message, nullptr) << message->text;
    return message ? SavedBatch() : std::get<SavedBatch>(result);
}

// Lines of the full batch's file.
enum Line {
    kNameCount = 6,
    kRecordCount = 11,
    kFirstRecord = 12,
    kSecondTicCount = 17,
    kFlagCount = 23,
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
    EXPECT_EQ(Restored(text), expected);
    EXPECT_EQ(Saved(Restored("\xEF\xBB\xBF" + text)), text);

    expected.Batch.Files.QFiles.assign(150, "/d/a.prn");  // counts of three digits pass for names
    expected.Batch.SampleList->resize(151);
    expected.Batch.BlankHitFlags.assign(301, true);
    EXPECT_EQ(Saved(Restored(Saved(expected))), Saved(expected));

    EXPECT_EQ(SaveBatch({}, {}),
              "QFRForms\n\n\n\n\n0\n\n\n0\n0\n\n"
              ";1;\n;\n;;;  /  /    ;  :  ;;;;;;;;;;\n  /  /       :  ;  /  /       :  ;;;;;;\n"
              ";;;;  /  /       :  ;  /  /       :  ;  /  /       :  ;\n"
              ";;  /  /       :  ;  /  /    ;  /  /    ;;;;-1;\n");
    expected.Entries.Comments.Lines = {};
    EXPECT_THAT(Saved(expected), HasSubstr("\n;\n"));
    expected.Entries.Comments.Lines = {" a ", "", "b\r\nc"};
    EXPECT_THAT(Saved(expected), HasSubstr("\na;;b c;\n")) << "pasted line ends are blanks";
}

TEST(BatchFile, RefusesWhole) {
    const std::string full = Saved(FullBatch());
    const std::pair<std::string, std::string> cases[] = {
        {"", "/d/x.qff is not a\nQFRForm saved file."},
        {"QFRForms \n", "/d/x.qff is not a\nQFRForm saved file."},
        {WithLine(full, 5, ""), " does not exist."},
        {WithLine(full, 7, " \t"), " does not exist."},
        {WithLine(full, 9, ""), " does not exist."},
        {WithLine(full, 10, ""), " does not exist."},
        {WithLine(full, kNameCount, "-1"), "-1 does not read properly."},
        {WithLine(full, kRecordCount, " x1"), "x1 does not read properly."},
        // Of two failing lines the first is reported.
        {WithLine(WithLine(full, kNameCount, "x"), 9, ""), "x does not read properly."},
        // Counts that pass for names at first.
        {WithLine(full, kRecordCount, "99999999999"), "99999999999 does not read properly."},
        {WithLine(full, kSecondTicCount, "-2"), "-2 does not read properly."},
        {WithLine(full, kFlagCount, ""), " does not read properly."},
    };
    for (const auto& [text, expected] : cases) {
        const Message message = std::get<Message>(Restore(text));
        const bool foreign = message.title == "Improper File Type";
        EXPECT_EQ(message.text, expected + (foreign ? "" : "\nRestore will be aborted"));
        EXPECT_TRUE(foreign || message.title == "File Not Found");
        EXPECT_EQ(message.icon, MessageIcon::kInformation);
    }
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
    const std::pair<std::string, std::vector<bool>> flags[] = {
        {"0", {}}, {"2", {true, false}}, {"5", {true, false, true}}, {huge, {true, false, true}}};
    for (const auto& [count, expected] : flags) {
        EXPECT_EQ(Restored(WithLine(full, kFlagCount, count)).Batch.BlankHitFlags, expected);
    }
    const auto rows = [&full](const std::string& count) {
        const SavedBatch saved = Restored(WithLine(full, kFirstRecord, "/d/a.prn;" + count + ";"));
        return std::to_string(saved.Batch.SampleList->front().CompoundCount);
    };
    EXPECT_EQ(Joined({"301", "302", "-1", "x", ""}, rows), "301|301|0|0|0");

    for (std::size_t size = full.find('\n') + 1; size < full.size(); ++size) {
        const auto result = Restore(full.substr(0, size));
        if (const auto* message = std::get_if<Message>(&result)) {
            EXPECT_TRUE(message->text.ends_with("aborted")) << size;
            continue;
        }
        const qfr::Batch& cut = std::get<SavedBatch>(result).Batch;
        EXPECT_LE(cut.Files.QFiles.size(), 2u) << size;
        EXPECT_TRUE(!cut.SampleList || !cut.SampleList->empty()) << size;
    }
    // Cut after the first record's first line.
    const SavedBatch cut = Restored(full.substr(0, full.find(";41;\n") + 5));
    ASSERT_THAT(*cut.Batch.SampleList, SizeIs(1));
    EXPECT_EQ(cut.Batch.SampleList->front().Header[HeaderField::kMatrix], "");
    EXPECT_THAT(cut.Batch.BlankHitFlags, IsEmpty());
    EXPECT_EQ(cut.Entries.Tune.SampleNo, "old");
}

TEST(BatchFile, RestoresEntries) {
    const auto with = [full = Saved(FullBatch())](Line line, const char* text) {
        return Restored(WithLine(full, line, text)).Entries;
    };
    const auto limits = [&with](const char* line) {
        EXPECT_EQ(with(kRanges, line).Ranges.FileName, "f");
        return std::to_string(static_cast<int>(with(kRanges, line).Ranges.Limits));
    };
    // A saved choice of oil comes back as soil.
    EXPECT_EQ(Joined({"f;1;", "f;2;", "f;3;", "f;4;", "f"}, limits), "1|2|2|1|1");
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
    SavedBatch shifted = FullBatch();  // by a delimiter in a value
    shifted.Batch.SampleList->front().Header[HeaderField::kLabName] = "a;b";
    const SampleHeader header = Restored(Saved(shifted)).Batch.SampleList->front().Header;
    EXPECT_EQ(header[HeaderField::kLabName] + header[HeaderField::kContract], "ab");
    EXPECT_EQ(header[HeaderField::kLabCode], "/d/vblk.prn4");
    for (const char* line : {"S", ";;;;;;;;", ";;;;;;;;10;", ";;;;;;;;-7;", ";;;;;;;;x;"}) {
        EXPECT_EQ(with(kSummary, line).StandardSummary.LevelIndex, -1) << line;
    }
}

}  // namespace
}  // namespace qfr::test
