// What the files of a folder are to a batch.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

#include "data/FolderSort.h"
#include "data/LoadFiles.h"
#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

// What stands below the rows of a report.
constexpr const char* kEndOfReport =
    "\nVolatile Monitoring Compound Recovery\nN;Compound;% Recovery\n1;Toluene-d8;99.6\n\n"
    "----------     Internal Standard Data     ----------\nInternal Standard;Area;RT\n"
    "1,4-Difluorobenzene;1633505.0;6.03\nChlorobenzene-d5;1308436.0;8.84\n"
    "1,2-Dichlorobenzene-d4;676646.0;11.84\n";
constexpr const char* kCalibration =
    "Date: 5/16/2005 Initial Calibration  Version 4.2\nCalibration Data\n\n\n"
    "Toluene;5.00;7.2;1.2;1438.93;98;1637691;1;108-88-3\nAverage RF\nA\n"
    "Styrene;5.00;9.3;1.2;1438.93;98;1637691;1;100-42-5\nAverage RF\nA\n"
    "1,4-Difluorobenzene;50.00;6.0;1.0;1000.00;114;1527251;1;\nAverage RF\nI\n"
    "Chlorobenzene-d5;50.00;8.8;1.0;1000.00;117;1110989;1;\nAverage RF\nI\n"
    "1,2-Dichlorobenzene-d4;50.00;11.8;1.0;1000.00;152;610080;1;\nAverage RF\nI\n";
constexpr const char* kCheckTable =
    "\nN;Compound\n-\n1;Toluene;1438.93;A;50.00;51.80;103.6;1490.87;3.6;1637691.0;7.21\n"
    "2;1,4-Difluorobenzene;1000.00;I;50.00;50.00;100.0;1000.00;0.0;1470434.0;6.01\n"
    "3;Chlorobenzene-d5;1000.00;I;50.00;50.00;100.0;1000.00;0.0;1098483.0;8.84\n"
    "4;1,2-Dichlorobenzene-d4;1000.00;I;50.00;50.00;100.0;1000.00;0.0;652545.0;11.82\n";

// The file's text, from what a test says of it: the sample ID, client sample and calibration of a
// quantitation report, with "/" between; "@cal"; "@check" and its calibration; "#" and any text.
std::string TextFor(const std::string& what) {
    if (what.starts_with('#')) {
        return what.substr(1);
    }
    if (what == "@cal") {
        return kCalibration;
    }
    if (BeginsWith(what, "@check")) {
        return "Check Calibration  Tallyworks Version 4.2\nCalibration File: C:\\" +
               what.substr(7) + kCheckTable;
    }
    std::vector<std::string> parts;
    std::istringstream rest(what);
    for (std::string part; std::getline(rest, part, '/');) {
        parts.push_back(part);
    }
    parts.resize(3);
    return ReportText{.header = "Sample ID: " + parts[0] + "\nClient Sample: " + parts[1] +
                                "\nCalibration File: C:\\" +
                                (parts[2].empty() ? "Day1.CAL" : parts[2]) + "\n",
                      .rows = what == "long" ? 302 : 2,
                      .afterRows = kEndOfReport}
        .Text();
}

// Writes files: "name=what", with ";" between.
void WriteFiles(const TempDir& dir, const std::string& files) {
    std::istringstream rest(files);
    for (std::string file; std::getline(rest, file, ';');) {
        const std::size_t sign = file.find('=');
        dir.Write(file.substr(0, sign), TextFor(file.substr(sign + 1)));
    }
}

// The base names of what is proposed, in the batch's order, and of what is told.
std::string Summary(const BatchProposal& proposal) {
    const FileSet& files = proposal.Batch.Files;
    std::string text = FileNameOnly(files.LabBlank) + ":";
    for (const std::string& file : files.QFiles) {
        text += FileNameOnly(file) + " ";
    }
    text += "|" + FileNameOnly(files.Calib) + "|" + FileNameOnly(files.CheckCal) + "|";
    std::vector<std::string> told;
    for (const ToldFile& file : proposal.Told) {
        told.push_back(FileNameOnly(file.File));
    }
    std::ranges::sort(told);
    for (const std::string& name : told) {
        text += name + " ";
    }
    return text + std::to_string(proposal.Others);
}

BatchProposal Propose(const Batch& batch, const std::vector<std::string>& names) {
    return ProposeBatch(batch, names, [](std::size_t, std::size_t) { return true; }).value();
}

TEST(FolderSort, TellsWhatEachFileIs) {
    const std::pair<const char*, const char*> cases[] = {
        {"B.PRN=VBLK01;S2.prn=Z2;S1.PRN=Z1;DAY1.CAL=@cal;C.Check=@check DAY1.cal;"
         "notes.txt=#Date of the run;.S1.prn=#x;a.d=#DATA FILE",
         "b.prn:s1.prn s2.prn |day1.cal|c.check|2"},
        // By content, under other names.
        {"b.txt=MB-3;s.check=Z1;c.prn=@check DAY1.cal;day1.cal=@cal",
         "b.txt:s.check |day1.cal|c.prn|0"},
        {"1.prn=VHBLK01;2.prn=FB1;3.prn=Trip Blank;4.prn=MBX", ":1.prn 2.prn 3.prn 4.prn |||0"},
        // Sample ID, client sample, file name: in this order.
        {"1.prn=Z1/MB-3;2.prn=vblk", "2.prn:1.prn |||0"},
        {"1.prn=Z1/Method Blank;vblk.prn=Z2", "1.prn:vblk.prn |||0"},
        {"1.prn=Z1;VBLK2.prn=Z2", "vblk2.prn:1.prn |||0"},
        {"1.prn=Blk2;2.prn=Blank;3.prn=Z1", "1.prn:2.prn 3.prn |||2.prn 0"},
        // The majority's calibration.
        {"1.prn=VBLK1//old.cal;2.prn=Z1;3.prn=Z2;4.prn=VBLK2;DAY1.CAL=@cal;a.cal=@cal;"
         "a.check=@check old.cal;b.check=@check DAY1.CAL",
         "4.prn:2.prn 3.prn |day1.cal|b.check|1.prn a.cal a.check 0"},
        {"1.prn=Z1;2.prn=#Quantitation Report Version 4.2;3.prn=#;4.cal=#x;5.prn=long;"
         "6.prn=#Quantitation Report Version 4.1",
         ":1.prn |||2.prn 3.prn 4.cal 5.prn 6.prn 0"},
        {"1.prn=VSTD050;BFB1.prn=;2.prn=Z1", ":2.prn |||1.prn BFB1.prn 0"},
        {"a.txt=#a", ":|||1"}};
    for (const auto& [files, expected] : cases) {
        const TempDir dir;
        WriteFiles(dir, files);
        std::filesystem::create_directory(dir.Path() / "sub.prn");
        const BatchProposal proposal = Propose({}, {TextOf(dir.Path())});
        EXPECT_EQ(Summary(proposal), expected) << files;
        EXPECT_EQ(proposal.IsEmpty(), expected == std::string(":|||1")) << files;
        EXPECT_EQ(SamplesOf(proposal.Batch).size(),
                  proposal.QFiles.size() + (proposal.LabBlank.empty() ? 0 : 1))
            << files;
    }
}

TEST(FolderSort, AddsToALoadedBatchAndKeepsWhatItHas) {
    const TempDir dir;
    // The first is loaded as a sample, the second as the blank.
    WriteFiles(dir, "S1.PRN=VBLK9;Blank.PRN=Z0;A.PRN=VBLK1;S2.PRN=Z2//other.cal;notes.txt=#x");
    const std::string sample = TextOf(dir.Path() / "S1.PRN");
    const std::string more = TextOf(dir.Path() / "notes.txt");
    Batch batch;
    batch.Files.CalFile = "day1.cal";
    batch.Files.LabBlank = LowerCase(TextOf(dir.Path() / "Blank.PRN"));
    batch.Files.QFiles = {LowerCase(sample)};
    batch.Files.CheckCal = "c.check";
    Reports reports;
    BuildSampleList(batch, reports);
    batch.SampleList->at(1).Header[HeaderField::kLabName] = "Lab";
    const Batch before = batch;
    const BatchProposal proposal = Propose(batch, {sample, TextOf(dir.Path()) + "/.", more});
    EXPECT_EQ(Summary(proposal), "blank.prn:a.prn s1.prn ||c.check|A.PRN S2.PRN notes.txt 0");
    EXPECT_EQ(proposal.Batch.SampleList->at(2).Header[HeaderField::kLabName], "Lab");
    EXPECT_EQ(batch, before);
}

std::string WhatIsTold(const BatchProposal& proposal) {
    std::string text;
    for (const ToldFile& told : proposal.Told) {
        text += FileNameOnly(told.File) + ": " + told.What + "|";
    }
    return text;
}

TEST(FolderSort, TellsOfReportsThatAreCutShort) {
    const std::string cut = "It looks cut short, without the ";
    const std::tuple<std::string, const char*, std::string> cases[] = {
        {"Z1", "1,2-Dichloro", cut + "internal standard 1,2-dichlorobenzene-d4."},
        {"Z1", "------", cut + "internal standards."},
        {"Z1", "Volatile", cut + "monitoring compounds and the internal standards."},
        {"Z1", "N;Comp", cut + "monitoring compounds and the internal standards."},
        {"Z1", "5.04;;;;1200;71-43-2\n\n",
         cut + "end of row 2, the monitoring compounds and the internal standards."},
        {"Z1", "1;Compound",
         cut + "compounds, the monitoring compounds and the internal standards."},
        {"Z1", "Compound#", "file does not appear to be a quantitation file. The file will not be"},
        {"@cal", "Chloro", cut + "internal standards chlorobenzene-d5 and 1,2-dichlorobenzene-d4."},
        {"@cal", "7.2;", cut + "compounds and the internal standards."},
        {"@cal", "9.3;", cut + "end of a compound and the internal standards."},
        {"@cal", "Calibration Data", "file does not appear to be a calibration file."},
        {"@check Day1.CAL", "1;Tol", cut + "compounds and the internal standards."},
        {"@check Day1.CAL", "2;1,4", cut + "internal standards."},
        {"@check Day1.CAL", "N;Comp", "file does not appear to be a check calibration file."},
    };
    for (const auto& [what, end, told] : cases) {
        const TempDir dir;
        const std::string whole = TextFor(what);
        const std::string file = dir.Write("file", whole);
        EXPECT_EQ(WhatIsTold(Propose({}, {file})), "") << what;
        dir.Write("file", whole.substr(0, whole.find(end)));
        const BatchProposal proposal = Propose({}, {file});
        EXPECT_THAT(WhatIsTold(proposal), testing::StartsWith("file: " + told)) << end;
        EXPECT_EQ(proposal.IsEmpty(), !told.starts_with(cut)) << end;
    }
}

TEST(FolderSort, TellsOfSeveralReportsOfOneSample) {
    const std::string why = ". It is proposed all the same: delete the one that is not meant.|";
    const TempDir dir;
    WriteFiles(dir, "1.prn=Z1;2.PRN=z1;3.prn=Z2;4.prn=Z1;5.prn=;6.prn=");
    const BatchProposal proposal = Propose({}, {TextOf(dir.Path())});
    EXPECT_EQ(proposal.QFiles.size(), 6U);
    EXPECT_EQ(WhatIsTold(proposal), "2.PRN: It is of sample z1, as is 1.prn" + why +
                                        "4.prn: It is of sample Z1, as is 1.prn" + why);
    // What is loaded was there first.
    Batch batch = proposal.Batch;
    DeleteQuantReports(batch, {0, 1, 2});
    EXPECT_EQ(WhatIsTold(Propose(batch, {TextOf(dir.Path())})),
              "1.prn: It is of sample Z1, as is 4.prn" + why +
                  "2.PRN: It is of sample z1, as is 4.prn" + why);
}

TEST(FolderSort, LooksAtSoManyFilesAndStopsWhenAsked) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i <= kMaxSortedFiles; ++i) {
        names.push_back("/no/such" + std::to_string(i));
    }
    const BatchProposal all = Propose({}, names);
    EXPECT_EQ(all.Told.size(), kMaxSortedFiles + 1) << "each, but one for the one too many";
    EXPECT_THAT(all.Told.at(0).What, testing::EndsWith("not looked at: such9999"));
    std::size_t looked = 0;
    const auto given = ProposeBatch({}, names, [&](std::size_t file, std::size_t) {
        looked = file;
        return file < 3;
    });
    EXPECT_TRUE(!given && looked == 3);
    EXPECT_EQ(Propose({}, {"/no/such.prn"}).Told.at(0).What, "such.prn could not be read.");
}

}  // namespace
}  // namespace qfr::test
