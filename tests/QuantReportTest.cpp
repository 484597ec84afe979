#include "data/QuantReport.h"
#include "tests/Support.h"

namespace qfr {
namespace {

using test::MessageLog;
using test::ReportText;
using test::TempDir;
using Verdict = QuantReportVerdict;

const FileSet kDay1Files = test::NamedFiles("voa.lib", "voa.ist", "day1.cal");

const std::string kNotAReport =
    "Sample.PRN does not appear to be a quantitation file.\nThe file will not be processed.";
const std::string kTooManyRows = "File Compound list Error";

struct Checked {
    Verdict verdict;
    std::vector<std::string> texts;
    FileSet files;
};

Checked Check(std::string_view content, FileSet files = {}) {
    const TempDir dir;
    MessageLog log;
    ExpectedNames expected = ExpectedNamesOf(files);
    const Verdict verdict =
        ValidateQuantReport(dir.Write("Sample.PRN", content), files, expected, log);
    for (const Message& message : log.shown) {
        EXPECT_EQ(message.title, "File Error");
        EXPECT_EQ(message.icon, MessageIcon::kInformation);
    }
    return {verdict, log.TakeTexts(), files};
}

SampleRecord ReadHeader(std::string_view content) {
    const TempDir dir;
    SampleRecord record;
    ReadSampleHeader(dir.Write("sample.prn", content), "", record);
    return record;
}

TEST(QuantReport, AcceptsAReportAndLearnsTheFilesOfTheBatch) {
    for (const FileSet& files : {FileSet{}, kDay1Files}) {
        const Checked checked = Check(ReportText().Text(), files);
        EXPECT_EQ(checked.verdict, Verdict::kAccepted);
        EXPECT_TRUE(checked.texts.empty());
        EXPECT_EQ(checked.files, kDay1Files);
    }
}

TEST(QuantReport, RejectsForeignReportsWithTheirReason) {
    const std::string version =
        "The version # must be 4.2 for Sample.PRN.\nThe file will not be processed.";
    const std::string limit =
        "Sample.PRN must be processed using the CRQL option.\nThe file will not be processed.";
    const std::string accepted;
    struct Case {
        std::string title, headerLine, message;
    };
    for (const auto& [title, headerLine, message] : {
             Case{"quantitation report version 4.2 \t", "", accepted},
             Case{"Quantitation Report Version 4.1", "", version},
             Case{"Quant", "", version},
             Case{" Quant Version 4.2", "", kNotAReport},
             Case{"Date Version 4.2", "", kNotAReport},
             Case{"", "", kNotAReport},
             Case{"Quant Version 4.2", "MDL Limit: 1", limit},
             Case{"Quant Version 4.2", "mdl limit: 1", accepted},
             Case{"Quant Version 4.2", "crql Limit: 1", accepted},
             Case{"Quant Version 4.2", " CRQL Limit: 1", limit},
             Case{"Quant Limit: 1 Version 4.2", "", limit},
             Case{"Quant Version 4.2", "Calibration: D:\\other\\Day1.Cal \t", accepted},
             Case{"Quant Version 4.2", "Calibration: /other/day1.cal", accepted},
             Case{"Quant Version 4.2", "CALIB C:\\cal\\day2.cal",
                  "The calibration file listed in Sample.PRN\n"
                  "must be day1.cal. Sample.PRN will not be processed."},
             Case{"Quant Version 4.2", "Compound Lib: C:\\new.lib",
                  "The library file listed in Sample.PRN\n"
                  "must be voa.lib. Sample.PRN will not be processed."},
             Case{"Quant Version 4.2", "Integration: C:\\new.ist",
                  "The internal standard file listed in Sample.PRN\n"
                  "must be voa.ist. Sample.PRN will not be processed."},
         }) {
        ReportText report{.title = title};
        report.header = headerLine + "\n" + report.header;
        const Checked checked = Check(report.Text(), kDay1Files);
        EXPECT_EQ(checked.texts, message == accepted ? std::vector<std::string>{}
                                                     : std::vector<std::string>{message});
        EXPECT_EQ(checked.verdict, message == accepted ? Verdict::kAccepted : Verdict::kRejected);
    }
}

TEST(QuantReport, KeepsTheNamesThatARejectedReportBrought) {
    const ReportText report{.header =
                                "Calibration: C:\\DAY1.CAL\nMDL Limit: 1\n"
                                "Compound lib: C:\\voa.lib\n"};
    const Checked checked = Check(report.Text());
    EXPECT_EQ(checked.verdict, Verdict::kRejected);
    EXPECT_EQ(checked.files, test::NamedFiles("", "", "day1.cal"));
}

TEST(QuantReport, CountsRowsAndTakesAtMost301) {
    struct Case {
        int rows;
        Verdict verdict;
    };
    for (const auto& [rows, verdict] :
         {Case{0, Verdict::kAccepted}, Case{301, Verdict::kAccepted},
          Case{302, Verdict::kTooManyRows}, Case{100'000, Verdict::kTooManyRows}}) {
        for (const std::string afterRows : {"", " \t\nSection\n"}) {
            const std::string text = ReportText{.rows = rows, .afterRows = afterRows}.Text();
            const Checked checked = Check(text);
            EXPECT_EQ(checked.verdict, verdict) << rows;
            EXPECT_EQ(checked.texts, verdict == Verdict::kAccepted
                                         ? std::vector<std::string>{}
                                         : std::vector<std::string>{kTooManyRows});
            EXPECT_EQ(ReadHeader(text).CompoundCount, rows);
        }
    }
}

TEST(QuantReport, AcceptsWhatCannotBeOpenedAndReadsNothingFromIt) {
    const TempDir dir;
    const std::string secret = dir.Write("secret.prn", ReportText().Text());
    std::filesystem::permissions(secret, std::filesystem::perms::none);
    const std::string folder = std::filesystem::path(dir.Write("folder.prn/x", "")).parent_path();
    const test::OrdinaryUser user;
    for (const std::string& file : {secret, folder, folder + "/Missing.PRN"}) {
        FileSet files;
        ExpectedNames expected;
        MessageLog log;
        EXPECT_EQ(ValidateQuantReport(file, files, expected, log), Verdict::kAccepted);
        EXPECT_TRUE(log.shown.empty());
        SampleRecord record;
        ReadSampleHeader(file, "", record);
        EXPECT_EQ(record.Header, SampleHeader());
        EXPECT_TRUE(record.FileName.ends_with(".prn"));
        EXPECT_FALSE(OpenCompoundTable(file, ""));
        EXPECT_TRUE(ReadBlankHits(file, "").empty());
    }
}

TEST(QuantReport, StandsACutAnywhereAndStrayBytes) {
    const std::string text = ReportText().Text();
    const std::size_t head = text.find("Compound#");
    for (std::size_t end = 0; end < text.size(); end += 3) {
        const std::string cut = text.substr(0, end);
        const Checked checked = Check(cut);
        ASSERT_EQ(checked.verdict == Verdict::kAccepted, end >= head + 9) << cut;
        ASSERT_EQ(checked.texts.size(), checked.verdict == Verdict::kAccepted ? 0u : 1u);
        ASSERT_LE(ReadHeader(cut).CompoundCount, 2);
        for (const char stray : {'\0', '\xFF'}) {
            std::string spoilt = text;
            spoilt[end] = stray;
            ASSERT_LE(Check(spoilt).texts.size(), 1u);
            ASSERT_LE(ReadHeader(spoilt).CompoundCount, 3);
        }
    }
    const std::string endless = "Quant " + test::EndlessLine() + " version 4.2\n";
    EXPECT_EQ(Check(endless).texts,
              std::vector<std::string>{"The version # must be 4.2 for Sample.PRN.\n"
                                       "The file will not be processed."});
}

TEST(QuantReport, ReadsTheHeaderOfASample) {
    for (const std::string& text : {ReportText().Text(), test::WithCrLf(ReportText().Text())}) {
        const SampleRecord record = ReadHeader(text);
        SampleHeader expected;
        expected[HeaderField::kDateAnalyzed] = "05/12/2005 14:05";
        expected[HeaderField::kSampleWtVol] = "5.0";
        expected[HeaderField::kLabSampleId] = "C-17";
        expected[HeaderField::kZovSampleNo] = "VBLK01";
        expected[HeaderField::kLabFileId] = "ABC01.D";
        expected[HeaderField::kInstrumentId] = "GCMS2";
        EXPECT_EQ(record.Header, expected);
        EXPECT_EQ(record.CompoundCount, 2);
    }
}

TEST(QuantReport, ReadsHeaderLinesAsTheLaboratoryWritesThem) {
    struct Case {
        std::string line;
        HeaderField field;
        std::string value;
    };
    for (const auto& [line, field, value] : {
             Case{"  ACQUIS. Date:  1/2/05 ", HeaderField::kDateAnalyzed, "01/02/2005 00:00"},
             Case{"Acquisition Date: yesterday", HeaderField::kDateAnalyzed, ""},
             Case{"Acquisition Date:", HeaderField::kDateAnalyzed, ""},
             Case{"Acquisition date: 1/2/05", HeaderField::kDateAnalyzed, ""},
             Case{"Sample Size (mL): 5.0 : 25.0 ", HeaderField::kSampleWtVol, "25.0"},
             Case{"Sample Size", HeaderField::kSampleWtVol, ""},
             Case{"Client Sample: M\xFCller", HeaderField::kLabSampleId, "Müller"},
             Case{"Client Sample: Müller", HeaderField::kLabSampleId, "Müller"},
             Case{"sample ID: A:B", HeaderField::kZovSampleNo, "B"},
             Case{"Sample ID VBLK01", HeaderField::kZovSampleNo, ""},
             Case{"Lab File ID: A:1.D ; x", HeaderField::kLabFileId, "A:1.D"},
             Case{"Lab File ID: ABC01.D", HeaderField::kLabFileId, "ABC01.D"},
             Case{"Lab File ID; x: y", HeaderField::kLabFileId, ""},
             Case{"Lab File ID: A; Instrument: MS 2", HeaderField::kInstrumentId, "MS 2"},
             Case{"Lab File ID: A; x; INSTRUMENT no: MS", HeaderField::kInstrumentId, "MS"},
             Case{"Lab File ID: A;  Instrument: MS", HeaderField::kInstrumentId, ""},
             Case{"Lab File ID: A; Instrument", HeaderField::kInstrumentId, ""},
             Case{"Lab File ID: A; Instrument:", HeaderField::kInstrumentId, ""},
             Case{"Lab File ID: A; Instrument:éMS", HeaderField::kInstrumentId, "MS"},
             Case{"Compound#", HeaderField::kLabSampleId, ""},
         }) {
        const SampleRecord record =
            ReadHeader(ReportText{.header = line + "\nClient\n", .rows = 0}.Text());
        EXPECT_EQ(record.Header[field], value) << line;
    }
}

TEST(QuantReport, FindsWhatTheBlankContains) {
    const TempDir dir;
    const ReportText report{.rows = 0,
                            .afterRows =
                                "1;a;12.3;;;;\n"
                                "2;b;12.3;;;EJ;\n"
                                "3;c;U;;;;\n"
                                "4;d; U5.0;;;;\n"
                                "5;e;12.3;;;E;\n"
                                "6;f;u5.0;;;j;\n"
                                "7;g;12.3J\n"
                                "\n"
                                "8;h;12.3;;;;\n"};
    dir.Write("VBLK01.PRN", report.Text());
    EXPECT_EQ(ReadBlankHits("c:\\moved\\vblk01.prn", dir.Path().string()),
              (std::vector<bool>{true, false, false, false, true, true, false}));
}

TEST(QuantReport, OpensTheCompoundTable) {
    const TempDir dir;
    auto table = OpenCompoundTable(dir.Write("a.prn", ReportText().Text()), "");
    ASSERT_TRUE(table);
    EXPECT_TRUE(table->NextOrEmpty().starts_with("1;"));
    auto none = OpenCompoundTable(dir.Write("b.prn", "Quant\nSample ID: 1\n"), "");
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->AtEnd());
}

}  // namespace
}  // namespace qfr
