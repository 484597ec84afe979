// What the files of a folder are to a batch.
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>

#include "data/FolderSort.h"
#include "data/LoadFiles.h"
#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

using Files = std::vector<std::pair<std::string, std::string>>;

std::string Report(const std::string& id, const std::string& client = "C-17",
                   const std::string& cal = "Day1.CAL", int rows = 2) {
    return ReportText{.header = "Sample ID: " + id + "\nClient Sample: " + client +
                                "\nCalibration File: C:\\" + cal + "\nCRQL Limit: 10\n",
                      .rows = rows}
        .Text();
}
std::string Check(const std::string& cal) {
    return "Check Calibration  Tallyworks Version 4.2\nCalibration File: C:\\" + cal +
           "\nN;Compound\n\n";
}
const std::string kCal = "Date: 5/16/2005 Initial Calibration  Version 4.2\nCalibration Data\n";

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
    const std::tuple<const char*, Files, const char*> cases[] = {
        {"everything",
         {{"B.PRN", Report("VBLK01")},
          {"S2.prn", Report("Z2")},
          {"S1.PRN", Report("Z1")},
          {"DAY1.CAL", kCal},
          {"C.Check", Check("DAY1.cal")},
          {"notes.txt", "Date of the run\n"},
          {".S1.prn", "x"},
          {"a.d", "DATA FILE\n"}},
         "b.prn:s1.prn s2.prn |day1.cal|c.check|2"},
        {"by content under other names",
         {{"b.txt", Report("MB-3")},
          {"s.check", Report("Z1")},
          {"c.prn", Check("DAY1.cal")},
          {"day1.cal", "  " + kCal}},
         "b.txt:s.check |day1.cal|c.prn|0"},
        {"no blank of the method",
         {{"1.prn", Report("VHBLK01")},
          {"2.prn", Report("FB1")},
          {"3.prn", Report("Trip Blank")},
          {"4.prn", Report("MBX")}},
         ":1.prn 2.prn 3.prn 4.prn |||0"},
        {"sample ID before client sample",
         {{"1.prn", Report("Z1", "MB-3")}, {"2.prn", Report("vblk")}},
         "2.prn:1.prn |||0"},
        {"client sample",
         {{"1.prn", Report("Z1", "Method Blank")}, {"vblk.prn", Report("Z2")}},
         "1.prn:vblk.prn |||0"},
        {"file name last",
         {{"1.prn", Report("Z1")}, {"VBLK2.prn", Report("Z2")}},
         "vblk2.prn:1.prn |||0"},
        {"two blanks",
         {{"1.prn", Report("Blk2")}, {"2.prn", Report("Blank")}, {"3.prn", Report("Z1")}},
         "1.prn:2.prn 3.prn |||2.prn 0"},
        {"the majority's calibration",
         {{"1.prn", Report("VBLK1", "", "old.cal")},
          {"2.prn", Report("Z1")},
          {"3.prn", Report("Z2")},
          {"4.prn", Report("VBLK2")},
          {"DAY1.CAL", kCal},
          {"a.cal", kCal},
          {"a.check", Check("old.cal")},
          {"b.check", Check("DAY1.CAL")}},
         "4.prn:2.prn 3.prn |day1.cal|b.check|1.prn a.cal a.check 0"},
        {"damaged ones",
         {{"1.prn", Report("Z1")},
          {"2.prn", Report("Z2").substr(0, 80)},
          {"3.prn", ""},
          {"4.cal", "x"},
          {"5.prn", Report("Z5", "", "Day1.CAL", 302)},
          {"6.prn", "Quantitation Report Version 4.1\nCompound#\n"}},
         ":1.prn |||2.prn 3.prn 4.cal 5.prn 6.prn 0"},
        {"standards",
         {{"1.prn", Report("VSTD050")}, {"BFB1.prn", Report("")}, {"2.prn", Report("Z1")}},
         ":2.prn |||1.prn BFB1.prn 0"},
        {"nothing", {{"a.txt", "a"}}, ":|||1"}};
    for (const auto& [what, files, expected] : cases) {
        const TempDir dir;
        for (const auto& [name, content] : files) {
            dir.Write(name, content);
        }
        std::filesystem::create_directory(dir.Path() / "sub.prn");
        const BatchProposal proposal = Propose({}, {TextOf(dir.Path())});
        EXPECT_EQ(Summary(proposal), expected) << what;
        EXPECT_EQ(proposal.IsEmpty(), expected == std::string(":|||1")) << what;
        EXPECT_EQ(SamplesOf(proposal.Batch).size(),
                  proposal.QFiles.size() + (proposal.LabBlank.empty() ? 0 : 1))
            << what;
    }
}

TEST(FolderSort, AddsToALoadedBatchAndKeepsWhatItHas) {
    const TempDir dir;
    const std::string sample = dir.Write("S1.PRN", Report("VBLK9"));  // loaded as a sample
    dir.Write("Blank.PRN", Report("Z0"));                             // and this as the blank
    dir.Write("A.PRN", Report("VBLK1"));
    dir.Write("S2.PRN", Report("Z2", "", "other.cal"));
    const std::string more = dir.Write("notes.txt", "no report");
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

TEST(FolderSort, LooksAtSoManyFilesAndStopsWhenAsked) {
    const TempDir dir;
    for (std::size_t i = 0; i <= kMaxSortedFiles; ++i) {
        dir.Write("n" + std::to_string(i), "");
    }
    const std::vector<std::string> folder = {TextOf(dir.Path())};
    const BatchProposal all = Propose({}, folder);
    EXPECT_EQ(all.Others, kMaxSortedFiles);
    EXPECT_EQ(all.Told.size(), 1U);
    std::size_t looked = 0;
    const auto given = ProposeBatch({}, folder, [&](std::size_t file, std::size_t) {
        looked = file;
        return file < 3;
    });
    EXPECT_TRUE(!given && looked == 3);
    EXPECT_EQ(Propose({}, {"/no/such.prn"}).Told.at(0).What, "such.prn could not be read.");
}

}  // namespace
}  // namespace qfr::test
