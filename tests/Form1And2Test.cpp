// Forms I and II: results of the samples, and recoveries of the monitoring compounds.
#include "data/EntryTables.h"
#include "data/RecoveryRanges.h"
#include "forms/Form1TicContent.h"
#include "forms/Form1VoaContent.h"
#include "forms/Form2Content.h"
#include "platform/Numbers.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using namespace ::testing;

TEST(SignificantFigures, AreRoundedAsTheFormsShowThem) {
    const auto two = [](const char* text) { return ToSignificantFigures(text, 2); };
    EXPECT_EQ(Joined({"5.04", "5.05", "12.4", "12.5", "99.5", "9.96", "1", "10", "1000"}, two),
              "5.0|5.1|12|13|100|10|1.0|10|1000");
    EXPECT_EQ(Joined({"123", "125", "1234", "0.53", "0.053", "0.004", "0.95", "0", "0.000"}, two),
              "120|130|1200|0.5|0.1|0.0|1.0|0.00|0.00");
    EXPECT_EQ(Joined({" 5.04 ", "n/a", "", "5.0 J"}, two), "5.0|n/a||5.0 J");
}

// A host with a lab blank and a sample whose report has this many compounds.
struct VoaSheets {
    explicit VoaSheets(std::size_t compounds) {
        std::string report = "QUANTITATION REPORT VERSION 4.2\nCompound#;Name;Conc\n";
        for (std::size_t i = 0; i < compounds; ++i) {
            report += "1;benzene;12.4;;;;71-43-2\n";
        }
        SampleRecord record = CompleteRecord("MW-1", dir.Write("a.prn", report + "\n"));
        record.CompoundCount = static_cast<std::int32_t>(compounds);
        host.batch.SampleList = {record, record};
        host.batch.Files.LabBlank = record.FileName;
    }
    // How many compounds each page of the sample names.
    std::vector<std::size_t> Names() {
        PrintFormIVoa(host, 1);
        std::vector<std::size_t> counts;
        for (const JobPage& page : host.sink.jobs.back().pages) {
            counts.push_back(TextsAt(page, 2.3).size() - 1);
        }
        return counts;
    }
    TempDir dir;
    ScriptedHost host;
};

TEST(Form1Voa, ShowsTwentyFiveCompoundsAPage) {
    EXPECT_THAT(VoaSheets(0).Names(), ElementsAre(0));
    EXPECT_THAT(VoaSheets(25).Names(), ElementsAre(25));
    EXPECT_THAT(VoaSheets(26).Names(), ElementsAre(25, 1));
    EXPECT_THAT(VoaSheets(51).Names(), ElementsAre(25, 25, 1));
}

TEST(Form1Voa, PrintsTheRowsThatWereCountedWithoutABlank) {
    VoaSheets sheets(2);
    sheets.host.batch.BlankHitFlags = {true};
    sheets.host.batch.Files.LabBlank = " ";
    for (const std::size_t sample : {0, 1}) {
        PrintFormIVoa(sheets.host, sample);
        EXPECT_THAT(TextsAt(sheets.host.sink.jobs.back().pages.at(0), 7.3), IsEmpty())
            << "of a blank that is not in the batch";
    }

    (*sheets.host.batch.SampleList)[1].CompoundCount = 1'000;
    EXPECT_EQ(sheets.Names().size(), 40u);
    (*sheets.host.batch.SampleList)[1].CompoundCount = 1'001;
    PrintFormIVoa(sheets.host, 1);
    EXPECT_THAT(sheets.host.messages.TakeTitles(),
                ElementsAre("Quantitation Report Changed", "File Error"));
    EXPECT_EQ(VoaSheets(302).Names().back(), 2u) << "the report's rows, as many as counted";
}

TEST(Form1Voa, SaysHowItsReportDiffersFromTheOneThatWasLoaded) {
    ScriptedHost host;
    const TempDir dir;
    const std::string loaded = ReportText().Text();
    SampleRecord& record = host.batch.SampleList.emplace(1).front();
    ReadSampleHeader(QuantReport::Read(LineReader(loaded)), record);
    const auto told = [&](const std::string& from, const std::string& to) {
        std::string changed = loaded;
        record.FileName = dir.Write("a.prn", changed.replace(changed.find(from), from.size(), to));
        host.BeginRun();
        PrintFormIVoa(host, 0);
        const std::string text = host.messages.shown.empty() ? "\n" : host.messages.TakeTexts()[0];
        return text.substr(text.find('\n'), text.rfind('\n') - text.find('\n'));
    };
    const std::string row = "2;Compound;5.04;;;;1200;71-43-2\n";
    const std::string newFile = "\nLab File ID: NEW.D instead of ABC01.D.";
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"", "", ""},
        {row, row + row, "\nCompound rows: 3 instead of 2."},
        {row, "2;Compound;5.04;;;;71-43-2\n", ""},
        {row, "2;Compound;5.04;;;71-43-2\n", "\nCompound row 2 is cut short."},
        {"Compound#", "Compound", "\nThere is no compound table."},
        {"ABC01.D", "NEW.D", newFile},
        {"ID: VBLK01", "ID: S9", "\nSample ID: S9 instead of VBLK01."}};
    for (const auto& [from, to, difference] : cases) {
        EXPECT_EQ(told(from, to), difference) << from << " became " << to;
    }
    std::string& shown = record.Header[HeaderField::kLabFileId];
    shown = "TYPED.D";
    EXPECT_EQ(told("ABC01.D", "NEW.D"), "");
    shown = "ABC01.D";
    record.TakenIds.reset();  // as after a restore
    EXPECT_EQ(told("ABC01.D", "NEW.D"), "");
    host.batch.SavedAt = std::filesystem::last_write_time(record.FileName);
    PrintFormIVoa(host, 0);
    EXPECT_THAT(host.messages.TakeTexts(), ElementsAre(HasSubstr(newFile)));
    ++*host.batch.SavedAt;
    PrintFormIVoa(host, 0);
    EXPECT_THAT(host.messages.shown, IsEmpty());
}

PrintJob PrintTics(std::size_t count) {
    ScriptedHost host;
    host.batch.SampleList = {CompleteRecord("MW-1")};
    PrintFormITic(host, 0);
    EXPECT_THAT(host.messages.TakeTitles(), ElementsAre("TIC Compounds Not Entered"));
    TicListType& tics = host.batch.SampleList->front().TicList.emplace();
    for (std::size_t i = 1; i <= count; ++i) {
        tics.push_back({{"c", "tic" + std::to_string(i), "1", "9", "N"}});
    }
    PrintFormITic(host, 0);
    EXPECT_THAT(host.sink.begun, ElementsAre("Form 1 TIC MW-1"));
    return host.sink.jobs.at(0);
}

TEST(Form1Tic, FullPagesAreFollowedByOneMore) {
    const std::pair<std::size_t, std::size_t> cases[] = {{0, 1},  {12, 1}, {29, 1},
                                                         {30, 2}, {31, 2}, {60, 3}};
    for (const auto& [tics, pages] : cases) {
        EXPECT_EQ(PrintTics(tics).pages.size(), pages) << tics;
    }
}

// The number of the twelfth sheet below reaches beyond the overlay's own text.
TEST(Form1Tic, TwoDigitNumberOfTheSheetBelowIsCovered) {
    const TextItem* number = nullptr;
    bool covered = false;
    const JobPage page = PrintTics(331).pages.at(11);
    for (const PageItem& item : page.items) {
        const auto* text = std::get_if<TextItem>(&item);
        if (text && text->text.ends_with("FORM I VOA-12")) {
            number = text;
        }
        covered =
            covered || (text && number && text->text.starts_with("  ") && text->y == number->y &&
                        text->x + text->width >= number->x + number->width);
    }
    EXPECT_TRUE(covered);
}

using Texts = std::vector<std::string>;

constexpr char kTwo[] =
    "RECOVERY RANGES of May\r\n 2 \n Toluene-d8 ;80;120.5;70;130;60; 140 \nBromo;1;2;3;4;5;6";

TEST(RecoveryRanges, TakeTheChosenKindOnly) {
    const auto load = [](const std::string& content, RecoveryLimits limits) {
        const auto file = RecoveryRangesFile::Read(LineReader(content));
        std::string text;
        for (const RecoveryRange& range : file.Of(limits).value()) {
            text += range.Name + " " + FormatShortest(range.Low) + "-" +
                    FormatShortest(range.High) + " ";
        }
        return text;
    };
    EXPECT_EQ(load(kTwo, RecoveryLimits::kWater), "Toluene-d8 80-120.5 Bromo 1-2 ");
    EXPECT_EQ(load(kTwo, RecoveryLimits::kSoil), "Toluene-d8 70-130 Bromo 3-4 ");
    EXPECT_EQ(load(kTwo, RecoveryLimits::kOil), "Toluene-d8 60-140 Bromo 5-6 ");
    EXPECT_EQ(load("t\n1\na;1;2;x\nb", RecoveryLimits::kWater), "a 1-2 ");
    EXPECT_EQ(load("t\n0\n", RecoveryLimits::kOil), "");
    const std::string row = "a;1;2;3;4;5;6\n";
    for (const std::string& rest :
         {std::string(), "many\n" + row, "-1\n" + row, "99999999999\n" + row, "2147483647\n" + row,
          "2\n" + row, std::string("1\na;1;2;3;4;5\n"), std::string("1\na;1;2;x;4;5;6\n"),
          std::string("1\na;1;2;3;4;5;6;\n"), std::string("1\na\0;\0;2;3;4;5;6\n", 17)}) {
        LineReader file("recovery ranges\n" + rest);
        EXPECT_FALSE(RecoveryRangesFile::Read(std::move(file)).Of(RecoveryLimits::kOil)) << rest;
    }
    const TempDir dir;
    Entries entries;
    MessageLog log;
    const auto browse = [&](int ranges) {
        std::string text = "recovery ranges\n" + std::to_string(ranges) + "\n";
        for (int i = 0; i < ranges; ++i) {
            text += "a;1;2\n";
        }
        const auto fault = BrowseRangesFile(entries, 0, dir.Write("r.txt", text), log);
        const bool isTaken = !entries.Ranges.FileName.empty();
        return fault ? fault->Message.text.substr(0, 38) : std::string(isTaken ? "taken" : "");
    };
    EXPECT_EQ(Joined({1000, 1001}, browse), "taken|r.txt has more than 1,000 recovery ran");
}

TEST(RecoveryFlag, MarksWhatIsOutsideTheFirstMatchingRange) {
    const std::vector<RecoveryRange> ranges = {{" D8", 80, 120}, {"d8", 0, 1}, {"", 0, 1}};
    const auto flag = [&](const char* recovery) {
        return RecoveryFlag(FindRange(ranges, "D8 "), recovery);
    };
    EXPECT_EQ(Joined({"79.9", "80", "120", "120.1", "n/a", ""}, flag), "*|||*||");
    EXPECT_FALSE(FindRange(ranges, "d6") || FindRange(ranges, ""));
    EXPECT_EQ(RecoveryFlag(nullptr, "500"), "");
}

TEST(MonitoringCompounds, AreReadFromTheirSection) {
    const auto read = [](const std::string& text) {
        std::string compounds;
        const QuantReport report = QuantReport::Read(LineReader(text));
        for (const MonitoringCompound& compound : report.Monitoring.value()) {
            compounds += compound.Name + "=" + compound.Recovery + "|";
        }
        return compounds;
    };
    EXPECT_EQ(
        read("x\nVOLATILE compounds\r\nheads;a;b\n1; D8 ;99.5;z\nno fields\n2;b;-3.7\n \n3;c;1\n"),
        "d8=99.5|b=-3.7|");
    EXPECT_EQ(read("volatile\nheads\n1;a; n/a ;\n2;b\n;;\n"), "a=n/a|b=|=|");
    EXPECT_EQ(read("volatile"), "");
    std::string endless = "volatile\nheads\n";
    for (int i = 0; i < 100; ++i) {
        endless += "1;a;5\n";
    }
    EXPECT_EQ(read(endless).size(), 21 * std::string_view("a=5|").size());
    EXPECT_FALSE(QuantReport::Read(LineReader(" volatile\n")).Monitoring);
}

// A batch whose reports list compounds c1, c2, ... with recoveries 101, 102, ...
struct Recoveries {
    Recoveries(std::size_t samples, int compounds) {
        std::string report = "volatile\nheads\n";
        for (int i = 1; i <= compounds; ++i) {
            report += "1;C" + std::to_string(i) + ";" + std::to_string(100 + i) + ";\n";
        }
        host.batch.SampleList.emplace(samples, CompleteRecord("S", dir.Write("r.prn", report)));
        host.entries.Ranges.FileName =
            dir.Write("Ranges.txt", "recovery ranges\n2\nc2;82.5;101\nc8;80;108\n");
    }
    const std::vector<JobPage>& Pages() {
        Form2MCRClick(host);
        return host.sink.jobs.at(0).pages;
    }
    TempDir dir;
    ScriptedHost host;
};

TEST(Form2, PagesOfSamplesAndOfCompounds) {
    // Letter and number of each page, "-" for an empty one, and the footer of the first other one.
    const auto pages = [](std::size_t samples, int compounds) {
        Recoveries form(samples, compounds);
        std::string summary;
        for (const JobPage& page : form.Pages()) {
            const Texts lines = TextsAt(page, 3.6);
            summary += lines.empty() ? "- " : lines[0].substr(1, 1) + lines[0].substr(17) + " ";
        }
        return summary + TextsAt(form.Pages().at(1), 0.9).back();
    };
    EXPECT_EQ(pages(1, 0), "- A1 - Page 1 of 1");
    EXPECT_EQ(pages(30, 7), "- A1 - Page 1 of 2");
    EXPECT_EQ(pages(61, 1), "- A1 A2 A3 - Page 1 of 3");
    EXPECT_EQ(pages(31, 8), "- A1 A2 - B1 B2 - Page 1 of 2");
    EXPECT_EQ(pages(1, 15), "- A1 - B1 - C1 - Page 1 of 1");
    EXPECT_EQ(pages(1, 22), "- A1 - B1 - C1 - Page 1 of 1");
}

TEST(Form2, PrintsItsHeadsWithoutReportsAndNothingWithoutRanges) {
    Recoveries lost(1, 2);
    lost.host.batch.SampleList->front().FileName = "c:\\gone.prn";
    EXPECT_EQ(lost.Pages().size(), 3U);
    Recoveries form(2, 2);
    form.host.ok = false;
    Form2MCRClick(form.host);
    form.host.ok = true;
    form.host.entries.Ranges.FileName = "c:\\gone.txt";
    Form2MCRClick(form.host);
    EXPECT_THAT(form.host.messages.TakeTitles(), ElementsAre("Incorrect File Type"));
    EXPECT_THAT(form.host.sink.begun, IsEmpty());
}

}  // namespace
}  // namespace qfr::test
