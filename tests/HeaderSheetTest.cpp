// All headers as one sheet: what is pasted and filled where, and what is refused.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "data/HeaderSheet.h"
#include "data/TabSeparated.h"

namespace qfr::test {
namespace {

using enum HeaderField;

TEST(TabSeparated, TakesAndGivesWhatSpreadsheetsDo) {
    struct Case {
        const char* text;
        CellRows rows;
        const char* formatted;
    };
    const Case cases[] = {
        {"", {}, ""},
        {"a", {{"a"}}, "a\n"},
        {"a\t\r\n\r\n\tb\n", {{"a", ""}, {""}, {"", "b"}}, "a\t\n\n\tb\n"},
        {"\"a\r\nb\"\tc\rd", {{"a\r\nb", "c"}, {"d"}}, "\"a\r\nb\"\tc\nd\n"},
        {"\"say \"\"a\tb\"\"\"\t", {{"say \"a\tb\"", ""}}, "\"say \"\"a\tb\"\"\"\t\n"},
        {"\"\"\tb", {{"", "b"}}, "\tb\n"},
        {"\"a\"b\t5\"\n\"c",
         {{"\"a\"b", "5\""}, {"\"c"}},
         "\"\"\"a\"\"b\"\t\"5\"\"\"\n\"\"\"c\"\n"},
    };
    for (const auto& [text, rows, formatted] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ParseTabSeparated(text), rows);
        EXPECT_EQ(FormatTabSeparated(rows), formatted);
        EXPECT_EQ(ParseTabSeparated(formatted), rows);
    }
}

Batch FourSamples() {
    Batch batch;
    batch.Files.LabBlank = "blank.prn";
    for (const char* const number : {"Z0", "Z1", "Z2", "Z3"}) {
        batch.SampleList = batch.SampleList.value_or(SampleListType());
        batch.SampleList->emplace_back().Header[kZovSampleNo] = number;
    }
    return batch;
}

struct Sheet : testing::Test {
    SampleHeader& Header(std::size_t record) { return batch.SampleList->at(record).Header; }
    static std::vector<HeaderCell> Cells(std::size_t top, HeaderField left, std::size_t bottom,
                                         HeaderField right) {
        std::vector<HeaderCell> cells;
        for (std::size_t record = top; record <= bottom; ++record) {
            for (int n = static_cast<int>(left); n <= static_cast<int>(right); ++n) {
                cells.push_back({record, HeaderFieldAt(n)});
            }
        }
        return cells;
    }
    static std::vector<HeaderCell> Column(HeaderField field) { return Cells(0, field, 3, field); }
    void Enter(std::vector<EnteredCell> cells) { sheet.Redo(sheet.ChangesBy(std::move(cells))); }
    std::string Paste(const char* text, const std::vector<HeaderCell>& selection) {
        const PastedCells pasted = sheet.Paste(ParseTabSeparated(text), selection);
        Enter(pasted.Cells);
        return std::to_string(pasted.RowsLeftOut) + "|" + std::to_string(pasted.ColumnsLeftOut);
    }
    std::string Values(const std::vector<HeaderCell>& cells) {
        std::string text;
        for (const HeaderCell& cell : cells) {
            text += Header(cell.Record)[cell.Field] + "|";
        }
        return text;
    }

    Batch batch = FourSamples();
    HeaderSheet sheet{batch};
};

TEST_F(Sheet, PutsABlockWhereThereIsPlaceForIt) {
    const auto all = Cells(0, kLabName, 3, kContract);
    struct Case {
        const char* text;
        std::vector<HeaderCell> selection;
        const char* values;
        const char* leftOut = "0|0";
    };
    const Case cases[] = {
        {"a", Cells(1, kLabName, 2, kContract), "||a|a|a|a|||"},
        {"a\tb\nc", Cells(1, kLabName, 1, kLabName), "||a|b|c||||"},
        {"a\tb", Column(kLabName), "a|b|a|b|a|b|a|b|"},
        {"a\nb", Cells(0, kLabName, 3, kContract), "a|a|b|b|a|a|b|b|"},
        {"a\nb", Cells(0, kLabName, 2, kLabName), "a||b||||||"},
        {"a\nb\nc\n", Cells(2, kContract, 2, kContract), "|||||a||b|", "1|0"},
        {"", Column(kLabName), "||||||||"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.text);
        EXPECT_EQ(Paste(each.text, each.selection), each.leftOut);
        EXPECT_EQ(Values(all), each.values);
        Enter(HeaderSheet::Clear(all));
    }
    EXPECT_EQ(Paste("30\t31", Cells(0, kColumnLength, 0, kColumnLength)), "0|1");
}

TEST_F(Sheet, FillsDownAndFillsTheEmptyOnes) {
    Header(1)[kLabName] = "A";
    Header(3)[kLabName] = "B";
    Enter(sheet.FillEmpty(Cells(2, kZovSampleNo, 2, kLabName)));
    EXPECT_EQ(Values(Column(kLabName)), "A|A|A|B|") << "of the whole column";
    Enter(sheet.FillDown(Cells(2, kLabName, 2, kLabName)));
    Enter(sheet.FillDown(Cells(0, kLabName, 0, kLabName)));
    EXPECT_EQ(Values(Column(kLabName)), "A|A|A|B|");
    Enter(sheet.FillDown(Cells(1, kLabName, 3, kLabName)));
    EXPECT_EQ(Values(Column(kLabName)), "A|A|A|A|");

    Header(1)[kMatrix] = "";
    Header(1)[kPercentMoisture] = "12";
    Header(1)[kSoilAliquotVolume] = "";
    Enter(sheet.FillEmpty(Column(kMatrix)));
    EXPECT_EQ(Header(1)[kMatrix] + Header(1)[kPercentMoisture] + Header(1)[kSoilAliquotVolume],
              "WATER12N/A");

    Header(0)[kDateReceived] = "  /  /       :  ";
    Header(2)[kDateReceived] = "05/18/2005 10:00";
    Enter({{{3, kDateReceived}, "32/1"}});
    Enter(sheet.FillEmpty(Column(kDateReceived)));
    EXPECT_EQ(Values(Column(kDateReceived)), "  /  /       :  |05/18/2005 10:00|05/18/2005 10:00||")
        << "neither one left open nor one refused is a value to fill in or over";
    Header(0)[kDateReceived] = "";
    Enter(sheet.FillEmpty(Column(kDateReceived)));
    EXPECT_EQ(Header(0)[kDateReceived], "  /  /       :  ") << "of the lab blank";
    Header(0)[kDateAnalyzed] = "05/18/2005 10:00";
    Enter(sheet.FillEmpty(Column(kDateAnalyzed)));
    EXPECT_EQ(Values(Column(kDateAnalyzed)), "05/18/2005 10:00||||") << "a report's own";
}

TEST_F(Sheet, KeepsRefusedValuesOutAndMatrixRulesIn) {
    Header(1)[kDateAnalyzed] = "05/18/2005 10:00";
    const auto changes = sheet.ChangesBy(
        {{{1, kPercentMoisture}, "12"}, {{1, kMatrix}, "SOIL"}, {{1, kDateAnalyzed}, "5/32/2005"}});
    EXPECT_EQ(changes.size(), 5U);
    sheet.Redo(changes);
    EXPECT_EQ(Values(Cells(1, kDateAnalyzed, 1, kPercentMoisture)), "05/18/2005 10:00|12|");
    EXPECT_EQ(Header(1)[kSoilExtractVolume] + Header(1)[kSoilAliquotVolume], "00");
    EXPECT_EQ(sheet.Shown({1, kDateAnalyzed}), "5/32/2005");
    EXPECT_EQ(
        sheet.NoteOf({1, kDateAnalyzed}).Text,
        "Date Analyzed is no date. 05/32/2005 does not exist: May 2005 has 31 days. It was not "
        "taken; the header has 05/18/2005 10:00.");
    EXPECT_TRUE(
        sheet.ChangesBy({{{1, kDateAnalyzed}, "5/32/2005"}, {{1, kMatrix}, "SOIL"}}).empty());

    sheet.Undo(changes);
    EXPECT_EQ(Values(Cells(1, kSoilExtractVolume, 1, kSoilAliquotVolume)), "N/A|N/A|");
    EXPECT_EQ(sheet.Shown({1, kDateAnalyzed}), "05/18/2005 10:00");
    EXPECT_TRUE(sheet.Refused().empty());
}

TEST_F(Sheet, TellsWhatIsToBeLookedAt) {
    Enter({{{0, kZovSampleNo}, "z1"},
           {{1, kZovSampleNo}, "Z1 "},
           {{2, kLabName}, "lab"},
           {{2, kLevel}, "MEDIUM"},
           {{0, kDateReceived}, ":"},
           {{1, kDateReceived}, ":"},
           {{2, kDateReceived}, " "},
           {{3, kZovSampleNo}, " "}});
    struct Case {
        HeaderCell cell;
        HeaderMark mark;
        const char* text = "";
    };
    const Case cases[] = {
        {{0, kZovSampleNo}, HeaderMark::kDoubtful, "Another sample has this ZOV Sample No., too."},
        {{3, kZovSampleNo}, HeaderMark::kEmpty, "ZOV Sample No. is empty."},
        {{2, kLabName},
         HeaderMark::kDoubtful,
         "Lab Name is \"Lab\", as the dialog has it at first."},
        {{2, kLevel}, HeaderMark::kDoubtful, "Level is \"MEDIUM\", none of TRACE, LOW and MED."},
        {{0, kDateReceived}, HeaderMark::kNone},
        {{1, kDateReceived}, HeaderMark::kDoubtful, "Date Received is left open."},
        {{2, kDateReceived}, HeaderMark::kEmpty, "Date Received is empty."},
        {{1, kDateAnalyzed}, HeaderMark::kEmpty, "Date Analyzed is empty."},
        {{1, kMatrix}, HeaderMark::kNone},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.text);
        EXPECT_EQ(sheet.NoteOf(each.cell).Mark, each.mark);
        EXPECT_EQ(sheet.NoteOf(each.cell).Text, each.text);
    }
    EXPECT_EQ(sheet.Shown({0, kDateReceived}), "__/__/____ __:__");
    EXPECT_EQ(sheet.Copy(Cells(0, kLevel, 0, kDateReceived)), CellRows({{"LOW", ""}}));
}

TEST_F(Sheet, FindsWhatItsCellsShow) {
    Header(0)[kLabName] = "Fair";
    Header(3)[kZovSampleNo] = "AFAIR";
    Enter({{{2, kDateAnalyzed}, "fair"}});
    EXPECT_THAT(sheet.Find("faIr"),
                testing::ElementsAre(HeaderCell{0, kLabName}, HeaderCell{2, kDateAnalyzed},
                                     HeaderCell{3, kZovSampleNo}));
    EXPECT_TRUE(sheet.Find("none").empty() && sheet.Find(" ").empty());
}

}  // namespace
}  // namespace qfr::test
