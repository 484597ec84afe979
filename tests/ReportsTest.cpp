// The three kinds of Tallyworks reports: what the batch takes of them, and what it refuses.
#include "data/LoadFiles.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

const FileSet kDay1Files = {"voa.lib", "voa.ist", "day1.cal", "", {}, "", ""};

const std::string kQuant = ReportText().Text();
const std::string kCal =
    "Date: 05/16/2005 Calibration Version 4.2\nLibrary File:\nC:\\lib\\VOA.LIB\n"
    "Surrogate Recovery:\nnone\nSurrogate/Internal Standard File:\nC:\\lib\\VOA.IST\n"
    "Calibration Data: name\n";
const std::string kCheck =
    "Check Calibration Version 4.2 \nCalibration File: C:\\cal\\DAY1.CAL\n"
    "Compound Library: C:\\lib\\VOA.LIB\nSurrogate File: C:\\lib\\VOA.IST\nN;Comp;RF\n";

struct Kind {
    std::string name;
    std::string what;
    std::string content;
    std::string tableHead;
};
const Kind kKinds[] = {{"Sample.PRN", "quantitation", kQuant, "Compound#"},
                       {"Day1.Cal", "calibration", kCal, "Calibration Data"},
                       {"S.Check", "check calibration", kCheck, "N;Comp"}};

struct NoOwner : BatchOwner {
    void ResetEntryDialogs() override {}
};

// Whether a batch of these files takes the report; `files` then has the names that it took over.
bool Validate(const std::string& file, FileSet& files, Messages& messages) {
    Batch batch;
    batch.Files = files;
    Reports reports;
    NoOwner owner;
    TakeReports& take = EndsWith(file, ".prn")   ? AddQuantReports
                        : EndsWith(file, ".cal") ? TakeCalReport
                                                 : TakeCheckReport;
    const bool taken = take(batch, {file}, reports, messages, owner);
    for (const auto name : {&FileSet::LibFile, &FileSet::SurrFile, &FileSet::CalFile}) {
        files.*name = batch.Files.*name;
    }
    return taken;
}

// The message of a rejection; empty when the report is accepted.
std::string Rejection(const std::string& name, std::string_view content, FileSet& files) {
    const TempDir dir;
    MessageLog log;
    const bool accepted = Validate(dir.Write(name, content), files, log);
    EXPECT_EQ(log.shown.size(), accepted ? 0u : 1u);
    log.shown.resize(1, {"", "File Error", MessageIcon::kInformation});
    EXPECT_EQ(log.shown[0].title, "File Error");
    EXPECT_EQ(log.shown[0].icon, MessageIcon::kInformation);
    return log.shown[0].text;
}

SampleRecord ReadHeader(std::string_view content) {
    SampleRecord record;
    ReadSampleHeader(QuantReport::Read(LineReader(std::string(content))), record);
    return record;
}

// The same for a valid report of that name with `from` replaced, in the batch of its files.
std::string Rejection(const std::string& name, const std::string& from, const std::string& to) {
    std::string text = name == "S.Check" ? kCheck : name == "Sample.PRN" ? kQuant : kCal;
    text.replace(text.find(from), from.size(), to);
    FileSet files = kDay1Files;
    const std::string message = Rejection(name, text, files);
    EXPECT_EQ(files, kDay1Files);
    return message;
}

TEST(Reports, AreRejectedWithTheirReason) {
    const std::string notProcessed = "\nThe file will not be processed.";
    const std::array<std::string, 4> named[] = {
        {"calibration", "Calibration File: C:\\cal\\DAY1", "CALIB x", "day1.cal"},
        {"library", "VOA.LIB", "NEW.LIB", "voa.lib"},
        {"internal standard", "VOA.IST", "NEW.IST", "voa.ist"}};
    for (const Kind& kind : kKinds) {
        EXPECT_EQ(Rejection(kind.name, "", ""), "");
        EXPECT_EQ(Rejection(kind.name, "4.2", "4.20"),
                  "The version # must be 4.2 for " + kind.name + "." + notProcessed);
        EXPECT_EQ(Rejection(kind.name, kind.content.substr(0, 4), " Other"),
                  kind.name + " does not appear to be a " + kind.what + " file." + notProcessed);
        for (const auto& [what, from, to, expected] : named) {
            if (kind.content.find(from) != std::string::npos) {
                EXPECT_EQ(Rejection(kind.name, from, to),
                          "The " + what + " file listed in " + kind.name + "\nmust be " + expected +
                              ". " + kind.name + " will not be processed.");
            }
        }
    }
    EXPECT_EQ(
        Rejection("Day2.Cal", "", ""),
        "The calibration file name must match the 'Calibration File'\n"
        "shown on the form. Please select the proper calibration\nfile, or select new files.");
    EXPECT_EQ(Rejection("Day2.Cal", "Date", "Check"),
              "Day2.Cal does not appear to be a calibration file." + notProcessed);
    const std::string title = "QUANTITATION REPORT  Tallyworks";
    const std::string limit = "Sample.PRN must be processed using the CRQL option." + notProcessed;
    EXPECT_EQ(Rejection("Sample.PRN", "CRQL", "MDL"), limit);
    EXPECT_EQ(Rejection("Sample.PRN", "CRQL", " CRQL"), limit);
    EXPECT_EQ(Rejection("Sample.PRN", title, "quant Limit: 1"), limit);
    EXPECT_EQ(Rejection("Sample.PRN", title, title + EndlessLine()).substr(0, 13), "The version #");
    EXPECT_NE(Rejection("Sample.PRN", "Internal Standards: C:\\lib\\VOA", "Integration: x"), "");
    EXPECT_EQ(Rejection("Sample.PRN", "Version 4.2", "version 4.2 \t"), "");
    EXPECT_EQ(Rejection("Sample.PRN", "CRQL Limit", "mdl limit"), "");
    EXPECT_EQ(Rejection("Sample.PRN", "CRQL", "crql"), "");
    EXPECT_EQ(Rejection("Sample.PRN", "C:\\cal\\DAY1.CAL", "/other/Day1.Cal \t"), "");
    EXPECT_EQ(Rejection("Day1.Cal", "Date", "  DATE"), "");
    EXPECT_EQ(Rejection("S.Check", "N;Comp", "n;COMPOUND"), "");
}

TEST(Reports, TellAnEmptyBatchItsFilesAndMustReachTheirTable) {
    for (const Kind& kind : kKinds) {
        FileSet files;
        EXPECT_EQ(Rejection(kind.name, kind.content, files), "");
        EXPECT_EQ(files, kDay1Files);
        files = {"", "other.ist", "", "", {}, "", ""};
        EXPECT_NE(Rejection(kind.name, kind.content, files), "");
        EXPECT_EQ(files.LibFile, "voa.lib") << "kept from a report that is rejected later";
        EXPECT_EQ(files.CalFile, kind.name == "Day1.Cal" ? "" : "day1.cal");
        const std::size_t tableHead = kind.content.find(kind.tableHead) + kind.tableHead.size();
        for (std::size_t end = 0; end < kind.content.size(); ++end) {
            const std::string cut = kind.content.substr(0, end);
            ASSERT_EQ(Rejection(kind.name, cut, files = {}).empty(), end >= tableHead) << cut;
        }
    }
}

TEST(Reports, AreAcceptedWhenTheyCannotBeOpened) {
    const TempDir dir;
    FileSet files = kDay1Files;
    MessageLog log;
    const std::string inFolder = dir.Write("Folder.PRN/x", "");
    EXPECT_TRUE(Validate(inFolder.substr(0, inFolder.size() - 2), files, log));
    EXPECT_TRUE(Validate("/no/Day1.Cal", files, log) && Validate("/no/S.Check", files, log));
    EXPECT_TRUE(log.shown.empty());
    EXPECT_FALSE(Validate("/no/Day2.Cal", files, log));
    EXPECT_EQ(files, kDay1Files);
}

TEST(QuantReport, CountsRowsAndTakesAtMost301) {
    for (const int rows : {0, 301, 302}) {
        for (const std::string afterRows : {"", " \t\nSection\n"}) {
            const std::string text = ReportText{.rows = rows, .afterRows = afterRows}.Text();
            FileSet files;
            EXPECT_EQ(Rejection("a.prn", text, files),
                      rows == 302 ? "File Compound list Error" : "");
            EXPECT_EQ(ReadHeader(text).CompoundCount, rows);
        }
    }
}

TEST(QuantReport, GivesTheHeaderOfASample) {
    const SampleHeader whole = ReadHeader(kQuant).Header;
    EXPECT_EQ(whole[HeaderField::kDateAnalyzed] + whole[HeaderField::kSampleWtVol],
              "05/12/2005 14:055.0");
    EXPECT_EQ(whole[HeaderField::kLabSampleId] + whole[HeaderField::kZovSampleNo], "C-17VBLK01");
    EXPECT_EQ(whole[HeaderField::kLabFileId] + whole[HeaderField::kInstrumentId], "ABC01.DGCMS2");
    using enum HeaderField;
    const std::tuple<const char*, const char*, HeaderField, const char*> cases[] = {
        {"an abbreviation, a short date", "  ACQUIS. Date:  1/2/05 ", kDateAnalyzed,
         "01/02/2005 00:00"},
        {"no date", "Acquisition Date: yesterday", kDateAnalyzed, ""},
        {"another case", "Acquisition date: 1/2/05", kDateAnalyzed, ""},
        {"behind the last colon", "Sample Size (mL): 5.0 : 25.0 ", kSampleWtVol, "25.0"},
        {"no colon", "Sample Size", kSampleWtVol, ""},
        {"a label that goes on, Windows-1252", "Client Sample: M\xFCller", kLabSampleId, "Müller"},
        {"below the compound table's head", " COMPOUND#\nClient Sample: x", kLabSampleId, ""},
        {"behind the last colon, any case", "sample ID: A:B", kZovSampleNo, "B"},
        {"another label", "Sample ID VBLK01: x", kZovSampleNo, ""},
        {"up to the semicolon", "Lab File ID: A:1.D ; x", kLabFileId, "A:1.D"},
        {"no semicolon", "Lab File ID: ABC01.D", kLabFileId, "ABC01.D"},
        {"a semicolon before the colon", "Lab File ID; x: y", kLabFileId, ""},
        {"behind the last colon", "Lab File ID: A; x; INSTRUMENT: x: MS 2", kInstrumentId, "MS 2"},
        {"two blanks before it", "Lab File ID: A;  Instrument: MS", kInstrumentId, ""},
        {"no colon", "Lab File ID: A; Instrument", kInstrumentId, ""},
        {"nothing behind it", "Lab File ID: A; Instrument:", kInstrumentId, ""},
        {"a letter in the blank's place", "Lab File ID: A; Instrument:éMS", kInstrumentId, "MS"}};
    for (const auto& [what, line, field, value] : cases) {
        EXPECT_EQ(ReadHeader(line).Header[field], value) << what << ": " << line;
    }
}

TEST(QuantReport, TellsWhatTheBlankContains) {
    const ReportText report{.rows = 0,
                            .afterRows =
                                "1;a;12.3;;;;\n2;b;12.3;;;EJ;\n3;c;U;;;;\n4;d; U5.0;;;;\n"
                                "5;e;12.3;;;E;\n6;f;u5.0;;;j;\n7;g;12.3J\n\n8;h;12.3;;;;\n"};
    EXPECT_EQ(ReadBlankHits(QuantReport::Read(LineReader(report.Text()))),
              (std::vector<bool>{true, false, false, false, true, true, false}));
    EXPECT_TRUE(ReadBlankHits(QuantReport::Read(LineReader("Quant\n1;a;12.3\n"))).empty());
}

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

TEST_F(LoadFiles, RefusesWhatIsTooLarge) {
    const std::string large = dir_.Write("Large.CAL", "Date");
    std::filesystem::resize_file(large, LineReader::kMaxFileSize + 1);
    const auto told =
        testing::ElementsAre("Large.CAL has more than 64 MB.\nThe file will not be processed.");
    for (TakeReports* const take :
         {TakeLabBlank, AddQuantReports, TakeCalReport, TakeCheckReport}) {
        EXPECT_FALSE(take(batch_, {large}, NewRun(), log_, *this));
        EXPECT_THAT(log_.TakeTexts(), told);
    }
    Reports ofABatch(log_);
    EXPECT_FALSE(ofABatch.Read<CalibrationReport>(large, ""));
    EXPECT_FALSE(ofABatch.Read<CalibrationReport>(large, ""));
    EXPECT_THAT(log_.TakeTexts(), told) << "once";
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
