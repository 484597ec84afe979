#include "data/LoadFiles.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using Names = std::vector<std::string>;

// A chemist before the Load Files dialog, with a folder of reports.
class LoadFiles : public testing::Test, public BatchOwner {
  protected:
    std::string Report(const std::string& name, int rows = 2) {
        const ReportText report{.header = "Client Sample: " + name + "\n", .rows = rows};
        return dir_.Write(name, report.Text());
    }
    bool TakeBlank(const std::string& name, int rows = 2) {
        return TakeLabBlank(batch_, Report(name, rows), log_, *this);
    }
    // Reports by name, or files by path.
    bool Add(const Names& names) {
        Names files;
        for (const std::string& name : names) {
            files.push_back(name.starts_with('/') ? name : Report(name));
        }
        return AddQuantReports(batch_, files, log_, *this);
    }
    // The records, by their reports' base names; a dash in front of those whose typed values are
    // lost.
    Names Records() const {
        Names names;
        for (const SampleRecord& record : batch_.SampleList.value_or(SampleListType())) {
            names.push_back((record.Header[HeaderField::kLabName].empty() ? "-" : "") +
                            FileNameOnly(record.FileName));
        }
        return names;
    }
    void BuildAndType() {
        BuildSampleList(batch_);
        for (SampleRecord& record : *batch_.SampleList) {
            record.Header[HeaderField::kLabName] = "Lab";
        }
    }
    void ResetEntryDialogs() override { ++resets_; }

    TempDir dir_;
    MessageLog log_;
    Batch batch_;
    int resets_ = 0;
};

TEST_F(LoadFiles, BuildsRecordsFromTheBlankAndTheSortedReports) {
    EXPECT_FALSE(FilesSpecified(batch_));
    BuildSampleList(batch_);
    EXPECT_FALSE(batch_.SampleList);
    EXPECT_TRUE(TakeBlank("VBLK.PRN") && Add({"b.prn", "C.PRN", "A.prn", "a.prn"}));
    BuildSampleList(batch_);
    EXPECT_EQ(Records(), (Names{"-vblk.prn", "-a.prn", "-b.prn", "-c.prn"}));
    EXPECT_EQ(batch_.SampleList->at(3).Header[HeaderField::kLabSampleId], "C.PRN");
}

TEST_F(LoadFiles, KeepsTypedValuesWhenReportsAreAdded) {
    const struct {
        std::string blank;
        Names first, more, records;
    } cases[] = {
        {"v.prn",
         {"b.prn", "d.prn"},
         {"A.PRN", "c.prn", "e.prn", "b.prn"},
         {"v.prn", "-a.prn", "b.prn", "-c.prn", "d.prn", "-e.prn"}},
        {"", {"b.prn"}, {"a.prn"}, {"-a.prn", "b.prn"}},
        {"v.prn", {}, {"x.prn", "a.prn"}, {"v.prn", "-a.prn", "-x.prn"}},
        {"v.prn", {"v.prn"}, {"a.prn"}, {"v.prn", "-a.prn", "v.prn"}},
    };
    for (const auto& c : cases) {
        batch_ = {};
        EXPECT_TRUE(c.blank.empty() || TakeBlank(c.blank));
        Add(c.first);
        BuildAndType();
        EXPECT_TRUE(Add(c.more));
        EXPECT_EQ(Records(), c.records);
    }
}

TEST_F(LoadFiles, ReplacesTheBlanksRecord) {
    Add({"s.prn"});
    BuildAndType();
    EXPECT_TRUE(TakeBlank("V1.PRN", 3));
    EXPECT_EQ(Records(), (Names{"-v1.prn", "s.prn"}));
    EXPECT_EQ(batch_.BlankHitFlags.size(), 3u);
    BuildAndType();
    EXPECT_TRUE(TakeBlank("v1.prn", 1));
    EXPECT_EQ(Records(), (Names{"v1.prn", "s.prn"})) << "the same blank keeps its record";
    EXPECT_TRUE(TakeBlank("v2.prn"));
    EXPECT_EQ(Records(), (Names{"-v2.prn", "s.prn"}));
}

TEST_F(LoadFiles, LeavesRejectedReportsOut) {
    const std::string bad = dir_.Write("bad.prn", "x");
    EXPECT_FALSE(TakeLabBlank(batch_, bad, log_, *this) || Add({bad, bad}));
    EXPECT_FALSE(TakeCalReport(batch_, bad, log_) || TakeCheckReport(batch_, bad, log_));
    EXPECT_EQ(batch_, Batch());
    EXPECT_TRUE(Add({bad, "a.prn", bad}));
    EXPECT_EQ(batch_.Files.QFiles, Names{LowerCase(Report("a.prn"))});
    EXPECT_EQ(log_.shown.size(), 7u);
    EXPECT_TRUE(TakeCalReport(batch_, "/missing/X.CAL", log_));
    EXPECT_TRUE(TakeCheckReport(batch_, "/missing/X.CHECK", log_));
    EXPECT_EQ(batch_.Files.Calib + batch_.Files.CheckCal, "/missing/x.cal/missing/x.check");
    EXPECT_EQ(resets_, 0);
}

TEST_F(LoadFiles, ClearsABatchWithoutReportsForATableThatIsTooLong) {
    TakeBlank("v.prn");
    BuildSampleList(batch_);
    batch_.Folder = "/batches";
    EXPECT_TRUE(Add({Report("huge.prn", 302), "a.prn"})) << "the reports after it still enter";
    EXPECT_EQ(batch_.Files.LabBlank + batch_.Folder, "");
    EXPECT_FALSE(batch_.SampleList);
    EXPECT_EQ(batch_.BlankHitFlags.size(), 2u) << "the hits stay until the next blank";
    EXPECT_FALSE(TakeBlank("huge.prn", 302));
    EXPECT_EQ(batch_.Files.QFiles.size(), 1u) << "a batch with reports stays";
    EXPECT_EQ(resets_, 1);
}

TEST_F(LoadFiles, DeletesRecordsWithTheirReports) {
    Add({"a.prn", "b.prn", "c.prn", "d.prn"});
    DeleteQuantReports(batch_, {3});
    TakeBlank("v.prn");
    BuildSampleList(batch_);
    DeleteQuantReports(batch_, {0, 2});
    EXPECT_EQ(batch_.Files.QFiles.size(), 1u);
    EXPECT_EQ(Records(), (Names{"-v.prn", "-b.prn"}));
    batch_ = {};
    Add({"a.prn"});
    BuildSampleList(batch_);
    DeleteQuantReports(batch_, {0});
    EXPECT_FALSE(batch_.SampleList);
}

TEST_F(LoadFiles, ReadsReportsBesideTheRestoredBatch) {
    Report("S1.PRN");
    batch_.Folder = dir_.Path().string();
    batch_.Files.QFiles = {"c:\\gone\\s1.prn", "c:\\gone\\s3.prn"};
    BuildSampleList(batch_);
    EXPECT_EQ(batch_.SampleList->at(0).FileName, "c:\\gone\\s1.prn");
    EXPECT_EQ(batch_.SampleList->at(0).CompoundCount, 2);
    EXPECT_EQ(batch_.SampleList->at(1).CompoundCount, 0) << "no such report anywhere";
}

}  // namespace
}  // namespace qfr::test
