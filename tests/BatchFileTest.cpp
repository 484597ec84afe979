#include "app/BatchFile.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using namespace ::testing;

// A batch file in which every value differs from every other one of its kind.
std::string FullText() {
    return ReadAll(TestData("full/full.qff"));
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
    return RestoreBatch(LineReader(text), "/d/x.qff");
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
    SavedBatch batch = Restored("\xEF\xBB\xBF" + FullText());
    EXPECT_EQ(Saved(batch), FullText());
    EXPECT_EQ(batch.Batch.Folder, std::filesystem::absolute("/d").string());
    batch.Batch.Files.QFiles.assign(150, "/d/a.prn");  // counts of three digits pass for names
    batch.Batch.SampleList->resize(151);
    batch.Batch.BlankHitFlags.assign(301, true);
    EXPECT_EQ(Saved(Restored(Saved(batch))), Saved(batch));
    EXPECT_EQ(SaveBatch({}, {}),
              "QFRForms\n\n\n\n\n0\n\n\n0\n0\n\n"
              ";1;\n;\n;;;  /  /    ;  :  ;;;;;;;;;;\n  /  /       :  ;  /  /       :  ;;;;;;\n"
              ";;;;  /  /       :  ;  /  /       :  ;  /  /       :  ;\n"
              ";;  /  /       :  ;  /  /    ;  /  /    ;;;;-1;\n");
    batch.Entries.Comments.Lines = {};
    EXPECT_THAT(Saved(batch), HasSubstr("\n;\n"));
    batch.Entries.Comments.Lines = {" a ", "", " b\r\nc "};
    EXPECT_THAT(Saved(batch), HasSubstr("\na;;b c;\n")) << "pasted line ends are blanks";
}

TEST(BatchFile, RefusesWhole) {
    const std::string full = FullText();
    const auto refusal = [&full](int line, const std::string& text) {
        const Message message = std::get<Message>(Restore(WithLine(full, line, text)));
        EXPECT_EQ(message.title, line == 1 ? "Improper File Type" : "File Not Found");
        EXPECT_TRUE(line == 1 || message.text.ends_with("\nRestore will be aborted"));
        return message.text.substr(0, message.text.find("\nRestore"));
    };
    EXPECT_EQ(refusal(1, "QFRForms "), "/d/x.qff is not a\nQFRForm saved file.");
    for (const int name : {5, 7, 9, 10}) {
        EXPECT_EQ(refusal(name, " \t"), " does not exist.");
    }
    EXPECT_EQ(refusal(kNameCount, "-1"), "-1 does not read properly.");
    EXPECT_EQ(refusal(7, "ab"), "ab does not read properly.") << "too short for a name";
    EXPECT_THAT(Restored(WithLine(full, 7, "a.b")).Batch.Files.QFiles, testing::Contains("a.b"));
    EXPECT_EQ(refusal(kRecordCount, " x1"), "x1 does not read properly.");
    // Of two failing lines the first is reported, and counts may pass for names at first.
    EXPECT_EQ(refusal(kNameCount, "x\n\n"), "x does not read properly.");
    EXPECT_EQ(refusal(kRecordCount, "99999999999"), "99999999999 does not read properly.");
    EXPECT_EQ(refusal(kSecondTicCount, "-2"), "-2 does not read properly.");
    EXPECT_EQ(refusal(kFlagCount, ""), " does not read properly.");
}

TEST(BatchFile, TakesNoMoreThanTheFileHolds) {
    const std::string full = FullText();
    // Every line after the count is a name then.
    EXPECT_THAT(Restored(WithLine(full, kNameCount, "10000")).Batch.Files.QFiles, SizeIs(24));
    const std::string samplesOnly = full.substr(0, full.find("3\n1;0;1;\n"));
    EXPECT_EQ(Restored(WithLine(samplesOnly, kRecordCount, "10000")).Batch.SampleList,
              Restored(full).Batch.SampleList);
    EXPECT_THAT(*(*Restored(WithLine(full, kSecondTicCount, "1000")).Batch.SampleList)[1].TicList,
                SizeIs(13));
    const auto flags = [&full](const std::string& count) {
        return Restored(WithLine(full, kFlagCount, count)).Batch.BlankHitFlags;
    };
    EXPECT_THAT(flags("2"), ElementsAre(true, false));
    EXPECT_THAT(flags("5"), ElementsAre(true, false, true, false, false));
    EXPECT_EQ(flags("100000").size() + flags("2147483647").size(), 200000u);
    const auto rows = [&full](const std::string& count) {
        const SavedBatch saved = Restored(WithLine(full, kFirstRecord, "/d/a.prn;" + count + ";"));
        return std::to_string(saved.Batch.SampleList->front().CompoundCount);
    };
    EXPECT_EQ(Joined({"301", "302", "-1", "x", ""}, rows), "301|302|0|0|0");

    // Cut after the first record's first line.
    const SavedBatch cut = Restored(full.substr(0, full.find(";11;\n") + 5));
    ASSERT_THAT(*cut.Batch.SampleList, SizeIs(1));
    EXPECT_EQ(cut.Batch.SampleList->front().Header[HeaderField::kMatrix], "");
    EXPECT_THAT(cut.Batch.BlankHitFlags, IsEmpty());
    EXPECT_EQ(cut.Entries, Entries());
}

TEST(BatchFile, HasLimits) {
    const std::string full = FullText();
    const auto refusal = [](const std::string& text) {
        const auto restored = Restore(text);
        const auto* const message = std::get_if<Message>(&restored);
        return message ? message->text.substr(0, message->text.find('\n')) : "";
    };
    EXPECT_EQ(refusal(WithLine(full, kNameCount, "10001")), "x.qff has more than 10,000 reports.");
    EXPECT_EQ(refusal(WithLine(full, kRecordCount, "10001")),
              "x.qff has more than 10,000 reports.");
    SavedBatch batch = Restored(full);
    SampleListType& samples = *batch.Batch.SampleList;
    samples[1].TicList = TicListType(1000);
    samples.resize(102, samples[1]);
    EXPECT_EQ(refusal(Saved(batch)), "") << "a hundred samples with 1,000 TICs";
    samples[2].TicList = TicListType(1);
    EXPECT_EQ(refusal(Saved(batch)), "x.qff has more than 100,000 TICs.");
    batch = Restored(full);
    (*batch.Batch.SampleList)[1].TicList = TicListType(1001);
    EXPECT_EQ(refusal(Saved(batch)), "x.qff has more than 1,000 TICs in a sample.");
    EXPECT_EQ(refusal(WithLine(full, kComments, std::string(10'000, ';'))), "");
    EXPECT_EQ(refusal(WithLine(full, kComments, std::string(10'001, ';'))),
              "x.qff has more than 10,000 comment lines.");

    const auto tune = [&full](std::size_t characters) {
        const SavedBatch saved = Restored(WithLine(full, kTune, std::string(characters, 'x')));
        return std::to_string(saved.Entries.Tune.SampleNo.size()) +
               (saved.TextsNote ? saved.TextsNote->text.substr(0, 12) : "");
    };
    EXPECT_EQ(Joined({400u, 401u}, tune), "400|400x.qff holds ");
    EXPECT_EQ(Restored(WithLine(full, kComments, std::string(401, 'x'))).TextsNote, std::nullopt);
}

TEST(BatchFile, RestoresEntries) {
    const auto with = [full = FullText()](Line line, const char* text) {
        return Restored(WithLine(full, line, text)).Entries;
    };
    const auto limits = [&with](const char* line) {
        EXPECT_EQ(with(kRanges, line).Ranges.FileName, "f");
        return std::to_string(static_cast<int>(with(kRanges, line).Ranges.Limits));
    };
    // A saved choice of oil comes back as soil.
    EXPECT_EQ(Joined({"f;1;", "f;2;", "f;3;", "f;4;", "f"}, limits), "1|2|2|1|1");
    EXPECT_THAT(with(kComments, ";").Comments.Lines, ElementsAre(""));
    EXPECT_EQ(with(kTune, " ").Tune, TuneEntry()) << "an empty line is an initial dialog";
    TuneEntry fresh;
    fresh.SampleNo = "new";
    EXPECT_EQ(with(kTune, "new").Tune, fresh);
    const InitialCalibrationEntry initial =
        with(kInitial, "  /  /       :  ;05/16/2005 12:00;A;").InitialCalibration;
    EXPECT_EQ(initial.FirstStandard, "  /  /       :  ");
    EXPECT_THAT(initial.LabFileIds, ElementsAre("A", "", "", "", "", "", "", "", "", ""));
    const auto level = [&with](const std::string& saved) {
        const std::string line = "VSTD050;;;;;;;;" + saved;
        return std::to_string(with(kSummary, line.c_str()).StandardSummary.LevelIndex);
    };
    EXPECT_EQ(Joined<std::string>({"0;", "9;", "", "-1;", "-7;", "10;", "x;"}, level),
              "0|9|-1|-1|-1|-1|-1");
}

TEST(BatchFile, RestoresReportsInOrderWithTheirRecords) {
    SavedBatch batch = Restored(FullText());
    const std::string sorted = Saved(batch);
    std::ranges::reverse(batch.Batch.Files.QFiles);
    std::reverse(batch.Batch.SampleList->begin() + 1, batch.Batch.SampleList->end());
    EXPECT_EQ(Saved(Restored(Saved(batch))), sorted);
    batch.Batch.SampleList->insert(batch.Batch.SampleList->begin() + 1,
                                   {"/d/0.prn", {}, 0, {}, {}});
    const SampleListType records = *Restored(Saved(batch)).Batch.SampleList;
    EXPECT_EQ(records.at(0).FileName + records.at(1).FileName + records.at(3).FileName,
              "/d/vblk.prn/d/a.prn/d/0.prn");
}

TEST(BatchFile, TellsWhatWasAcceptedAndWhatChanges) {
    const auto entered = [full = FullText()](const char* line) {
        return Restored(WithLine(full, kInitial, line)).Flags.InitCalEntered ? "1" : "0";
    };
    EXPECT_EQ(Joined({"05/16/2005 09:00;05/16/2005 12:00;;;C;;;",
                      "05/16/2005 09:00;05/16/2005 12:00;;; ;;;",
                      "05/16/2005 09:00;  /  /       :  ;A;;;;;",
                      "  /  /       :  ;05/16/2005 12:00;A;;;;;", ""},
                     entered),
              "1|0|0|0|0");
    const auto note = [full = FullText()](const char* line) {
        const auto message = Restored(WithLine(full, kRanges, line)).LimitsNote;
        return message ? message->text : "none";
    };
    EXPECT_EQ(Joined({"f;2;", "f;4;", "", "f;3;"}, note),
              "none|none|none|x.qff was saved with oil limits for Form II.\n"
              "They come back as soil limits. Please check the choice.");
}

}  // namespace
}  // namespace qfr::test
