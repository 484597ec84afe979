// Recovery files: what comes back from them, and which of them are offered.
#include <ctime>

#include "app/Recovery.h"
#include "platform/FileLookup.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using namespace ::testing;

constexpr std::time_t kNow = 1'116'424'800;  // 05/18/2005
constexpr std::time_t kDay = 24 * 3600;

SavedBatch FullBatch() {
    const fs::path file = TestData("full/full.qff");
    return std::get<SavedBatch>(RestoreBatch(LineReader::Open(file).value(), TextOf(file)));
}

struct Recovery : testing::Test {
    std::string Write(const std::string& name, const SavedBatch& saved,
                      std::time_t writtenAt = kNow) const {
        const fs::path file = folder / name;
        RecoveryHead head = RecoveryHeadOf(saved.Batch, saved.Entries);
        head.WrittenAt = writtenAt;
        head.BatchFile = "/d/monday; early.qff";
        head.Stamp = FileStamp{17, -4};
        EXPECT_EQ(WriteRecovery(file, head, SaveBatch(saved.Batch, saved.Entries)), std::nullopt);
        return TextOf(file);
    }

    const TempDir dir;
    const fs::path folder = dir.Path() / "new" / "recovery";
};

TEST_F(Recovery, BringsBackWhatABatchFileLacksToo) {
    const SavedBatch full = FullBatch();
    SavedBatch early = full;  // nothing but samples so far, more than a count of two digits
    early.Batch.Files = {};
    early.Batch.SampleList->resize(120, CompleteRecord("ZA120"));
    SavedBatch oil = full;
    oil.Batch.Files.CheckCal.clear();
    oil.Entries.Ranges.Limits = RecoveryLimits::kOil;
    oil.Entries.InitialCalibration.LabFileIds.back() = "VSTD200.D";
    SavedBatch blank = full;
    blank.Batch.Files.LabBlank = "a1.prn";
    blank.Batch.Files.QFiles.clear();
    blank.Batch.SampleList->resize(1);
    const std::pair<SavedBatch, const char*> cases[] = {
        {blank, "lab blank /d/vblk.prn1, no samples yet, as of"},
        {full, "2 samples, /d/a.prn1 to /d/gelöst.prn1, as of"},
        {early, "120 samples, /d/vblk.prn1 to ZA120, as of"},
        {oil, "2 samples"}};
    for (const auto& [saved, samples] : cases) {
        const fs::path file = PathOf(Write("a.recovery", saved));
        const auto read = ReadRecovery(file);
        ASSERT_TRUE(std::holds_alternative<RecoveredBatch>(read)) << samples;
        const auto& [recovered, head] = std::get<RecoveredBatch>(read);
        EXPECT_EQ(SaveBatch(recovered.Batch, recovered.Entries),
                  SaveBatch(saved.Batch, saved.Entries));
        EXPECT_EQ(recovered.Entries.Ranges, saved.Entries.Ranges);
        EXPECT_EQ(recovered.Entries.InitialCalibration, saved.Entries.InitialCalibration);
        EXPECT_FALSE(recovered.LimitsNote);
        EXPECT_EQ(recovered.Batch.Folder, saved.Batch.Folder);
        EXPECT_EQ(head.BatchFile, "/d/monday; early.qff");
        EXPECT_EQ(head.Stamp, (FileStamp{17, -4}));
        EXPECT_THAT(OfferText({file, head}),
                    StartsWith("monday; early.qff: " + std::string(samples)));
    }
}

TEST_F(Recovery, TellsOfADamagedFileInsteadOfHalfABatch) {
    const std::string whole = ReadAll(PathOf(Write("a.recovery", FullBatch())));
    std::string changed = whole;
    changed.replace(changed.rfind("9"), 1, "8");
    for (const std::string& text :
         {std::string(), whole.substr(0, whole.size() - 1), whole + "\n", changed,
          whole.substr(0, 40), "\n" + whole, whole.substr(whole.find("QFRForms\n"))}) {
        const auto read = ReadRecovery(PathOf(dir.Write("b.recovery", text)));
        ASSERT_TRUE(std::holds_alternative<Message>(read)) << text.size();
        EXPECT_THAT(std::get<Message>(read).text, HasSubstr("b.recovery"));
    }
    EXPECT_TRUE(std::holds_alternative<Message>(ReadRecovery(dir.Path() / "none.recovery")));
}

TEST_F(Recovery, OffersTheNewestThatNobodyWritesForAWeek) {
    const SavedBatch full = FullBatch();
    Write("week.recovery", full, kNow - 7 * kDay);
    Write("old.recovery", full, kNow - 7 * kDay - 1);
    Write("new.recovery", full, kNow - 60);
    Write("ahead.recovery", full, kNow + kDay);  // the clock was set back
    Write("running.recovery", full, kNow);
    Write("running-old.recovery", full, kNow - 8 * kDay);
    Write("other.txt", full, kNow);
    dir.Write("new/recovery/damaged.recovery", "QFRForms recovery 1\n");
    Write("far-old.recovery", full, kNow + 3 * kDay);
    Write("far.recovery", full, kNow + 2 * kDay);
    dir.Write("new/recovery/new.recovery.damaged", "");
    dir.Write("new/recovery/gone.recovery", "");
    dir.Write("new/recovery/gone.recovery.damaged", "");
    const auto clockNow = fs::file_time_type::clock::now();
    fs::last_write_time(folder / "far.recovery", clockNow + std::chrono::hours(24 * 8));
    for (const char* const name : {"gone.recovery", "gone.recovery.damaged", "far-old.recovery"}) {
        fs::last_write_time(folder / name, clockNow - std::chrono::hours(24 * 8));
    }
    const auto stillWritten = [](const fs::path& file) {
        return TextOf(file.filename()).starts_with("running");
    };
    std::string offered;
    for (const RecoveryOffer& offer : RecoveryOffers(folder, kNow, stillWritten)) {
        offered += TextOf(offer.File.stem()) + "|";
    }
    EXPECT_EQ(offered, "far-old|far|ahead|new|week|");
    RemoveExpiredRecoveries(folder, kNow, stillWritten);
    std::vector<std::string> left;
    for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
        left.push_back(TextOf(file.path().stem()));
    }
    EXPECT_THAT(left, UnorderedElementsAre("week", "new", "ahead", "far", "new.recovery", "running",
                                           "running-old", "other", "damaged"));
    EXPECT_LE(fs::last_write_time(folder / "far.recovery"), clockNow + std::chrono::hours(24))
        << "its week has begun";
    EXPECT_THAT(RecoveryOffers(dir.Path() / "none", kNow, stillWritten), IsEmpty());
}

}  // namespace
}  // namespace qfr::test
