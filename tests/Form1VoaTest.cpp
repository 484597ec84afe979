#include <gmock/gmock.h>

#include "forms/Form1Voa.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(SignificantFigures, RoundsAsTheFormsShow) {
    const struct {
        const char* text;
        const char* printed;
    } cases[] = {
        {"5.04", "5.0"}, {"5.05", "5.1"},    {"12.4", "12"},    {"12.5", "13"},    {"99.5", "100"},
        {"123", "120"},  {"1234", "1200"},   {"125", "130"},    {"10", "10"},      {"1000", "1000"},
        {"9.96", "10"},  {"1", "1.0"},       {"0.53", "0.5"},   {"0.053", "0.1"},  {"0.004", "0.0"},
        {"0.95", "1.0"}, {"0", "0.00"},      {"0.000", "0.00"}, {" 5.04 ", "5.0"}, {"n/a", "n/a"},
        {"", ""},        {"5.0 J", "5.0 J"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ToSignificantFigures(c.text, 2), c.printed) << c.text;
    }
}

TEST(VoaRow, TakesTheReportsRowApart) {
    const struct {
        const char* line;
        bool inBlank;
        VoaRow row;
    } cases[] = {
        {"1; benzene ;12.4;x;y;J;z; 71-43-2 ", false, {"71-43-2", " benzene ", "12", "J"}},
        {"1;benzene;12.4;x;y;;71-43-2", true, {"71-43-2", "benzene", "12", "B"}},
        {"1;benzene;12.4;x;y;E;71-43-2", true, {"71-43-2", "benzene", "12", "EB"}},
        {"1;benzene;U;x;y;J;71-43-2", true, {"71-43-2", "benzene", "", "U"}},
        {"1;benzene;U5.04;x;y;;71-43-2", false, {"71-43-2", "benzene", "5.0", "U"}},
        {"1;benzene;UU;x;y;;71-43-2", false, {"71-43-2", "benzene", "", "U"}},
        {"1;benzene;12.4", false, {"12.4", "benzene", "12", ""}},
        {"", false, {"", "", "", ""}},
    };
    for (const auto& c : cases) {
        LineReader report{std::string(c.line) + "\n"};
        const VoaRow row = ReadVoaRow(report, c.inBlank);
        EXPECT_EQ(row.CasNumber, c.row.CasNumber) << c.line;
        EXPECT_EQ(row.Compound, c.row.Compound) << c.line;
        EXPECT_EQ(row.Concentration, c.row.Concentration) << c.line;
        EXPECT_EQ(row.Qualifier, c.row.Qualifier) << c.line;
    }
}

// A host with a lab blank and a sample whose report has these compound names.
struct VoaSheets {
    explicit VoaSheets(const std::vector<std::string>& names) {
        std::string report = "QUANTITATION REPORT VERSION 4.2\nCompound#;Name;Conc\n";
        for (const std::string& name : names) {
            report += "1;" + name + ";12.4;;;;71-43-2\n";
        }
        report += "\n";
        for (const char* sample : {"VBLK01", "MW-1"}) {
            SampleRecord record =
                CompleteRecord(sample, dir.Write(std::string(sample) + ".prn", report));
            record.CompoundCount = static_cast<std::int32_t>(names.size());
            samples.push_back(record);
        }
        host.batch.SampleList = samples;
    }
    TempDir dir;
    SampleListType samples;
    ScriptedHost host;
};

TEST(Form1Voa, EveryPageHasTwentyFiveRuledRows) {
    const struct {
        std::size_t compounds;
        std::vector<std::size_t> rowsOnPages;
    } cases[] = {{0, {0}}, {1, {1}}, {25, {25}}, {26, {25, 1}}, {51, {25, 25, 1}}};
    for (const auto& c : cases) {
        VoaSheets sheets(std::vector<std::string>(c.compounds, "benzene"));
        PrintFormIVoa(sheets.host, 1);
        const PrintJob& job = sheets.host.sink.jobs.at(0);
        EXPECT_EQ(job.title, "Form 1 MW-1");
        ASSERT_EQ(job.pages.size(), c.rowsOnPages.size()) << c.compounds;
        for (std::size_t i = 0; i < job.pages.size(); ++i) {
            const JobPage& page = job.pages[i];
            EXPECT_EQ(TextsAt(page, 2.3).size(), c.rowsOnPages[i] + 1) << "names and their head";
            // One more for the top of the head box.
            EXPECT_EQ(RulesAcross(page, 0.9, 7.8).size(), 26U);
            EXPECT_TRUE(HasText(page, i == 0   ? "1A - FORM I VOA-1"
                                      : i == 1 ? "1B - FORM I VOA-2"
                                               : "1C - FORM I VOA-3"));
            EXPECT_EQ(FindText(page, "MW-1").size, 14);
        }
    }
}

TEST(Form1Voa, TallRowsEndThePageAtItsFoot) {
    // 43 characters in two lines; each row is 2 x (83/600 + 0.025) + 0.025 inch high.
    VoaSheets sheets(std::vector<std::string>(24, "1,1,2-trichloro-1,2,2-trifluoro-octylethane"));
    PrintFormIVoa(sheets.host, 1);
    const PrintJob& job = sheets.host.sink.jobs.at(0);
    ASSERT_EQ(job.pages.size(), 2U);
    EXPECT_EQ(TextsAt(job.pages[0], 1.0).size(), 1U + 17U);
    EXPECT_EQ(TextsAt(job.pages[1], 1.0).size(), 1U + 7U);
}

TEST(Form1Voa, MarksBlankHitsOfSamplesOnly) {
    VoaSheets sheets({"benzene", "toluene"});
    sheets.host.batch.BlankHitFlags = {true};
    PrintFormIVoa(sheets.host, 0);
    PrintFormIVoa(sheets.host, 1);
    EXPECT_THAT(TextsAt(sheets.host.sink.jobs.at(0).pages.at(0), 7.3), IsEmpty());
    EXPECT_THAT(TextsAt(sheets.host.sink.jobs.at(1).pages.at(0), 7.3), ElementsAre("B"));
}

TEST(Form1Voa, AMissingReportIsNamedAndNothingPrints) {
    VoaSheets sheets({"benzene"});
    (*sheets.host.batch.SampleList)[1].FileName = "c:\\gone\\mw-1.x";
    PrintFormIVoa(sheets.host, 1);
    EXPECT_TRUE(sheets.host.sink.begun.empty());
    ASSERT_EQ(sheets.host.messages.shown.size(), 1U);
    EXPECT_EQ(sheets.host.messages.shown[0].text,
              "c:\\gone\\mw-1.x\ncould not be found.  Use Data Files|Load Files menu option\nto "
              "relocate file");
    EXPECT_EQ(sheets.host.messages.shown[0].title, "File Not Found");
}

TEST(Form1Voa, AReportWithFewerRowsThanCountedPrintsEmptyRows) {
    VoaSheets sheets({"benzene"});
    (*sheets.host.batch.SampleList)[1].CompoundCount = 2;
    PrintFormIVoa(sheets.host, 1);
    const JobPage& page = sheets.host.sink.jobs.at(0).pages.at(0);
    EXPECT_EQ(RulesAcross(page, 0.9, 7.8).size(), 26U);
    EXPECT_THAT(TextsAt(page, 2.3), ElementsAre("COMPOUND", "benzene"));
}

}  // namespace
}  // namespace qfr::test
