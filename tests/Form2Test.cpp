// Monitoring compound recoveries: their ranges, the sections of the reports, and Form II.
#include "data/EntryTables.h"
#include "data/RecoveryRanges.h"
#include "forms/Form2Content.h"
#include "platform/Numbers.h"
#include "tests/FormSupport.h"

namespace qfr::test {
namespace {

using namespace ::testing;
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
        return fault ? fault->Message.text.substr(0, 38) : entries.Ranges.FileName.substr(0, 1);
    };
    EXPECT_EQ(Joined({1000, 1001}, browse), "/|r.txt has more than 1,000 recovery ran");
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

// Of four samples the report of the first is gone and that of the third has no such section.
TEST(Form2, NamesNoCompoundsWithoutTheFirstReport) {
    Recoveries form(4, 2);
    SampleListType& samples = *form.host.batch.SampleList;
    samples[0].FileName = "c:\\gone.prn";
    samples[2].FileName = form.dir.Write("bad.prn", "nothing\n");
    samples[1].Header[HeaderField::kZovSampleNo] = "S2";
    samples[3].Header[HeaderField::kZovSampleNo] = "S4";
    samples[1].CompoundCount = 1;
    const JobPage& page = form.Pages().at(1);
    EXPECT_THAT(
        form.host.messages.TakeTexts(),
        ElementsAre(HasSubstr("There is no compound table."), "Did not find keyword, volatile",
                    "Form 2 lacks samples of the batch.\nThe report could not be opened: S "
                    "(gone.prn).\nFrom bad.prn on, which has no volatile section: S, S4."));
    EXPECT_THAT(TextsAt(page, 1.0),
                ElementsAre("S2", "VMC1 = ", "VMC2 = ", StartsWith("#"), StartsWith("*")));
    EXPECT_TRUE(HasText(page, "101") && HasText(page, "102"));
    samples[1].FileName = samples[0].FileName;
    Form2MCRClick(form.host);
    EXPECT_EQ(form.host.sink.jobs.at(1).pages.size(), 3U) << "no report, and still a page of heads";
}

TEST(Form2, WithoutRangesNothingPrints) {
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
