#include <algorithm>

#include "data/LoadFiles.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr {
namespace {

using Names = std::vector<std::string>;

// A chemist before the Load Files dialog, with a folder of reports.
class LoadFiles : public testing::Test, private BatchOwner {
  protected:
    std::string Report(const std::string& name, int rows = 2) {
        const test::ReportText report{.header = "Client Sample: " + name + "\n", .rows = rows};
        return dir_.Write(name, report.Text());
    }
    bool TakeBlank(const std::string& file) { return TakeLabBlank(batch_, file, log_, *this); }
    bool Add(const Names& files) { return AddQuantReports(batch_, files, log_, *this); }

    static Names BaseNames(const Names& files) {
        Names names;
        std::transform(files.begin(), files.end(), std::back_inserter(names), FileNameOnly);
        return names;
    }
    Names Listed() const { return BaseNames(batch_.Files.QFiles); }
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
    void TypeLabName() {
        for (SampleRecord& record : *batch_.SampleList) {
            record.Header[HeaderField::kLabName] = "Lab";
        }
    }

    test::TempDir dir_;
    test::MessageLog log_;
    Batch batch_;
    int resets_ = 0;

  private:
    void ResetEntryDialogs() override { ++resets_; }
};

TEST_F(LoadFiles, BuildsRecordsFromTheBlankAndTheSortedReports) {
    EXPECT_FALSE(FilesSpecified(batch_));
    BuildSampleList(batch_);
    EXPECT_FALSE(batch_.SampleList);

    EXPECT_TRUE(TakeBlank(Report("VBLK.PRN")));
    EXPECT_EQ(batch_.BlankHitFlags, (std::vector<bool>{true, true}));
    BuildSampleList(batch_);
    EXPECT_EQ(Records(), Names{"-vblk.prn"});

    EXPECT_TRUE(Add({Report("b.prn"), Report("C.PRN"), Report("A.prn"), Report("a.prn")}));
    EXPECT_EQ(Listed(), (Names{"a.prn", "b.prn", "c.prn"}));
    BuildSampleList(batch_);
    EXPECT_EQ(Records(), (Names{"-vblk.prn", "-a.prn", "-b.prn", "-c.prn"}));
    EXPECT_EQ(batch_.SampleList->at(3).Header[HeaderField::kLabSampleId], "C.PRN");
    EXPECT_EQ(batch_.SampleList->at(3).CompoundCount, 2);
}

TEST_F(LoadFiles, KeepsTypedValuesWhenReportsAreAdded) {
    struct Case {
        std::string blank;
        Names first, more, records;
    };
    for (const auto& [blank, first, more, records] : {
             Case{"v.prn",
                  {"b.prn", "d.prn"},
                  {"A.PRN", "c.prn", "e.prn", "b.prn"},
                  {"v.prn", "-a.prn", "b.prn", "-c.prn", "d.prn", "-e.prn"}},
             Case{"", {"b.prn"}, {"a.prn"}, {"-a.prn", "b.prn"}},
             Case{"v.prn", {}, {"x.prn", "a.prn"}, {"v.prn", "-a.prn", "-x.prn"}},
             Case{"v.prn", {"v.prn"}, {"a.prn"}, {"v.prn", "-a.prn", "v.prn"}},
         }) {
        batch_ = {};
        const auto reports = [this](const Names& names) {
            Names files;
            for (const std::string& name : names) {
                files.push_back(Report(name));
            }
            return files;
        };
        if (!blank.empty()) {
            TakeBlank(Report(blank));
        }
        Add(reports(first));
        BuildSampleList(batch_);
        TypeLabName();
        EXPECT_TRUE(Add(reports(more)));
        EXPECT_EQ(Records(), records);
    }
}

TEST_F(LoadFiles, ReplacesTheBlanksRecord) {
    Add({Report("s.prn")});
    BuildSampleList(batch_);
    TypeLabName();
    EXPECT_TRUE(TakeBlank(Report("V1.PRN", 3)));
    EXPECT_EQ(Records(), (Names{"-v1.prn", "s.prn"}));
    EXPECT_EQ(batch_.BlankHitFlags.size(), 3u);
    TypeLabName();
    EXPECT_TRUE(TakeBlank(Report("v1.prn", 1)));
    EXPECT_EQ(Records(), (Names{"v1.prn", "s.prn"})) << "the same blank keeps its record";
    EXPECT_TRUE(TakeBlank(Report("v2.prn", 1)));
    EXPECT_EQ(Records(), (Names{"-v2.prn", "s.prn"}));
    EXPECT_EQ(batch_.BlankHitFlags.size(), 1u);
}

TEST_F(LoadFiles, LeavesRejectedReportsOut) {
    const std::string bad = dir_.Write("bad.prn", "x");
    EXPECT_FALSE(TakeBlank(bad));
    EXPECT_FALSE(Add({bad, bad}));
    EXPECT_EQ(batch_, Batch());
    EXPECT_TRUE(Add({bad, Report("a.prn"), bad}));
    EXPECT_EQ(Listed(), Names{"a.prn"});
    EXPECT_EQ(log_.shown.size(), 5u);
    EXPECT_FALSE(TakeCalReport(batch_, bad, log_));
    EXPECT_FALSE(TakeCheckReport(batch_, bad, log_));
    EXPECT_EQ(batch_.Files.Calib + batch_.Files.CheckCal, "");
    EXPECT_TRUE(TakeCalReport(batch_, "/missing/X.CAL", log_));
    EXPECT_TRUE(TakeCheckReport(batch_, "/missing/X.CHECK", log_));
    EXPECT_EQ(batch_.Files.Calib, "/missing/x.cal");
    EXPECT_EQ(batch_.Files.CheckCal, "/missing/x.check");
    EXPECT_EQ(resets_, 0);
}

TEST_F(LoadFiles, ClearsABatchWithoutReportsForATableThatIsTooLong) {
    const std::string huge = Report("huge.prn", 302);
    TakeBlank(Report("v.prn"));
    BuildSampleList(batch_);
    batch_.Folder = "/batches";
    EXPECT_TRUE(Add({huge, Report("a.prn")})) << "the reports after it still enter";
    EXPECT_EQ(resets_, 1);
    EXPECT_EQ(batch_.Files.LabBlank + batch_.Folder, "");
    EXPECT_EQ(Listed(), Names{"a.prn"});
    EXPECT_FALSE(batch_.SampleList);
    EXPECT_EQ(batch_.BlankHitFlags.size(), 2u) << "the hits stay until the next blank";

    EXPECT_FALSE(TakeBlank(huge));
    EXPECT_EQ(Listed(), Names{"a.prn"}) << "a batch with reports stays";
    EXPECT_EQ(resets_, 1);
}

TEST_F(LoadFiles, DeletesRecordsWithTheirReports) {
    Add({Report("a.prn"), Report("b.prn"), Report("c.prn"), Report("d.prn")});
    DeleteQuantReports(batch_, {3});
    EXPECT_EQ(Listed(), (Names{"a.prn", "b.prn", "c.prn"}));
    TakeBlank(Report("v.prn"));
    BuildSampleList(batch_);
    DeleteQuantReports(batch_, {0, 2});
    EXPECT_EQ(Listed(), Names{"b.prn"});
    EXPECT_EQ(Records(), (Names{"-v.prn", "-b.prn"}));
    DeleteQuantReports(batch_, {0});
    EXPECT_EQ(Records(), Names{"-v.prn"});

    batch_ = {};
    Add({Report("a.prn")});
    BuildSampleList(batch_);
    DeleteQuantReports(batch_, {0});
    EXPECT_FALSE(batch_.SampleList);
}

TEST_F(LoadFiles, ReadsReportsBesideTheRestoredBatch) {
    Report("S1.PRN");
    Report("S2.PRN");
    batch_.Folder = dir_.Path().string();
    batch_.Files.QFiles = {"c:\\gone\\s1.prn", "c:\\gone\\s3.prn"};
    BuildSampleList(batch_);
    EXPECT_EQ(batch_.SampleList->at(0).FileName, "c:\\gone\\s1.prn");
    EXPECT_EQ(batch_.SampleList->at(0).CompoundCount, 2);
    EXPECT_EQ(batch_.SampleList->at(1).CompoundCount, 0) << "no such report anywhere";
}

}  // namespace
}  // namespace qfr
