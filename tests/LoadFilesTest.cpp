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
        return TakeLabBlank(batch_, {Report(name, rows)}, NewRun(), log_, *this);
    }
    // Reports by name, or files by path.
    bool Add(const Names& names) {
        Names files;
        for (const std::string& name : names) {
            files.push_back(std::filesystem::path(name).is_absolute() ? name : Report(name));
        }
        return AddQuantReports(batch_, files, NewRun(), log_, *this);
    }
    // The records, by their reports' base names; a dash in front of those whose typed values are
    // lost.
    std::string Records() const {
        std::string names;
        for (const SampleRecord& record : batch_.SampleList.value_or(SampleListType())) {
            names += (record.Header[HeaderField::kLabName].empty() ? "-" : "") +
                     FileNameOnly(record.FileName) + " ";
        }
        return names;
    }
    void BuildAndType() {
        BuildSampleList(batch_, NewRun());
        for (SampleRecord& record : *batch_.SampleList) {
            record.Header[HeaderField::kLabName] = "Lab";
        }
    }
    void ResetEntryDialogs() override { ++resets_; }
    bool ClearsForTooManyRows(const std::string& /*fileName*/) override { return clears_; }

    TempDir dir_;
    MessageLog log_;
    // Every command reads anew.
    Reports& NewRun() { return reports_ = {}; }
    Batch batch_;
    Reports reports_;
    int resets_ = 0;
    bool clears_ = true;
};

TEST_F(LoadFiles, BuildsRecordsFromTheBlankAndTheSortedReports) {
    EXPECT_FALSE(FilesSpecified(batch_));
    BuildSampleList(batch_, NewRun());
    EXPECT_FALSE(batch_.SampleList);
    EXPECT_TRUE(TakeBlank("VBLK") && Add({"b", "C", "A", "a"}));
    BuildSampleList(batch_, NewRun());
    EXPECT_EQ(Records(), "-vblk -a -b -c ");
    EXPECT_EQ(batch_.SampleList->at(3).Header[HeaderField::kLabSampleId], "C");

    batch_.Folder = dir_.Path().string();  // as after restoring a batch that was moved
    batch_.Files.QFiles = {"c:\\gone\\c", "c:\\gone\\s3"};
    BuildSampleList(batch_, NewRun());
    EXPECT_EQ(batch_.SampleList->at(1).FileName, "c:\\gone\\c");
    EXPECT_EQ(batch_.SampleList->at(1).CompoundCount, 2);
    const SampleRecord none{"c:\\gone\\s3", {}, 0, {}, {}};
    EXPECT_EQ(batch_.SampleList->at(2), none) << "no such report anywhere";
}

TEST_F(LoadFiles, KeepsTypedValuesWhenReportsAreAdded) {
    const auto records = [this](const std::string& blank, const Names& first, const Names& more) {
        batch_ = {};
        EXPECT_TRUE(blank.empty() || TakeBlank(blank));
        Add(first);
        BuildAndType();
        EXPECT_TRUE(Add(more));
        return Records();
    };
    EXPECT_EQ(records("v", {"b", "d"}, {"A", "c", "e", "b"}), "v -a b -c d -e ");
    EXPECT_EQ(records("", {"b"}, {"a"}), "-a b ");
    EXPECT_EQ(records("v", {}, {"x", "a"}), "v -a -x ");
    EXPECT_EQ(records("v", {"v"}, {"a"}), "v -a v ");
}

TEST_F(LoadFiles, ReplacesTheBlanksRecord) {
    Add({"s"});
    BuildAndType();
    EXPECT_TRUE(TakeBlank("V1", 3));
    EXPECT_EQ(Records(), "-v1 s ");
    EXPECT_EQ(batch_.BlankHitFlags.size(), 3u);
    BuildAndType();
    EXPECT_TRUE(TakeBlank("v1", 1));
    EXPECT_EQ(Records(), "v1 s ") << "the same blank keeps its record";
    EXPECT_TRUE(TakeBlank("v2"));
    EXPECT_EQ(Records(), "-v2 s ");
}

TEST_F(LoadFiles, ClearsABatchWithoutReportsForATableThatIsTooLong) {
    TakeBlank("v");
    BuildSampleList(batch_, NewRun());
    batch_.Folder = "/batches";
    EXPECT_TRUE(Add({Report("huge", 302), "a"})) << "the reports after it still enter";
    EXPECT_EQ(batch_.Files.LabBlank + batch_.Folder, "");
    EXPECT_FALSE(batch_.SampleList);
    EXPECT_EQ(batch_.BlankHitFlags.size(), 2u) << "the hits stay until the next blank";
    EXPECT_FALSE(TakeBlank("huge", 302));
    EXPECT_EQ(batch_.Files.QFiles.size(), 1u) << "a batch with reports stays";
    EXPECT_EQ(resets_, 1);
    batch_ = {};
    clears_ = false;
    TakeBlank("v");
    EXPECT_FALSE(Add({Report("huge", 302)}));
    EXPECT_EQ(FileNameOnly(batch_.Files.LabBlank), "v") << "where nobody has it cleared";
}

TEST_F(LoadFiles, TellsWhatIsOddAboutReportsThatAreTaken) {
    const auto write = [this](const std::string& name, const std::string& header) {
        return dir_.Write(name, ReportText{.header = header}.Text());
    };
    const std::string id = "Sample ID: ";
    EXPECT_TRUE(Add({write("a.prn", "Acquisition Date: 18-May-2005 23:59\n" + id + "S;1\n"),
                     write("b.prn", "Acquisition Date:\nSample Size: 5;0\n"),
                     write("c.prn", "Acquisition Date: 18/05/2005\n"),
                     write("d.prn", "Client Sample: " + std::string(400, 'x') + "\n"),
                     write("e.prn", "Client Sample: " + std::string(401, 'x') + "\n")}));
    EXPECT_THAT(log_.TakeTexts(),
                testing::ElementsAre(
                    "e.prn holds a text of more than 400 characters.\nOf such a text the first 400 "
                    "are taken.",
                    "The date could not be read in these reports. Please enter it for Form 1.\n"
                    "a.prn: 18-May-2005 23:59\nc.prn: 18/05/2005",
                    "A \";\" cannot be kept in a batch. It is taken as \",\" in these values:\n"
                    "a.prn: S;1\nb.prn: 5;0"));
    BuildSampleList(batch_, NewRun());
    EXPECT_EQ(batch_.SampleList->at(0).Header[HeaderField::kZovSampleNo], "S,1");
    EXPECT_EQ(batch_.SampleList->at(4).Header[HeaderField::kLabSampleId].size(), 400u);
    std::string rows = ReportText{.rows = 1}.Text();
    rows.replace(rows.find("Compound;"), 8, std::string(401, 'x'));
    EXPECT_TRUE(Add({dir_.Write("f.prn", rows)}));
    EXPECT_THAT(log_.TakeTitles(), testing::ElementsAre("Warning"));
}

TEST_F(LoadFiles, RefusesWhatIsTooLarge) {
    const std::string large = dir_.Write("Large.CAL", "Date");
    std::filesystem::resize_file(large, LineReader::kMaxFileSize + 1);
    for (TakeReports* const take :
         {TakeLabBlank, AddQuantReports, TakeCalReport, TakeCheckReport}) {
        EXPECT_FALSE(take(batch_, {large}, NewRun(), log_, *this));
        EXPECT_THAT(log_.TakeTexts(),
                    testing::ElementsAre(
                        "Large.CAL has more than 64 MB.\nThe file will not be processed."));
    }
    const auto take = [this](int compounds, std::size_t letters) {
        std::string report = "Date Version 4.2\nCalibration Data\n\n\n";
        for (int i = 0; i < compounds; ++i) {
            report += std::string(letters, 'x') + "\n\nA\n";
        }
        batch_ = {};
        TakeCalReport(batch_, {dir_.Write("a.cal", report)}, NewRun(), log_, *this);
        const auto texts = log_.TakeTexts();
        return (batch_.Files.Calib.empty() ? "refused: " : "taken: ") +
               (texts.empty() ? "" : texts.front().substr(0, texts.front().find('\n')));
    };
    EXPECT_EQ(take(2000, 400), "taken: ");
    EXPECT_EQ(take(2001, 1), "refused: a.cal has more than 2,000 compounds.");
    EXPECT_EQ(take(1, 401), "taken: a.cal holds a text of more than 400 characters.");
}

TEST_F(LoadFiles, DeletesRecordsWithTheirReports) {
    Add({"a", "b", "c", "d"});
    DeleteQuantReports(batch_, {3});
    TakeBlank("v");
    BuildSampleList(batch_, NewRun());
    DeleteQuantReports(batch_, {0, 2});
    EXPECT_EQ(batch_.Files.QFiles.size(), 1u);
    EXPECT_EQ(Records(), "-v -b ");
    batch_ = {};
    Add({"a"});
    BuildSampleList(batch_, NewRun());
    DeleteQuantReports(batch_, {0});
    EXPECT_FALSE(batch_.SampleList);
}

}  // namespace
}  // namespace qfr::test
