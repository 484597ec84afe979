#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

#include "app/BatchCommand.h"
#include "app/BatchFile.h"
#include "app/HeadlessHost.h"
#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// Files hold the titles and page counts of their jobs; a file name with "full" in it fails.
class FakePlatform : public BatchPlatform {
  public:
    std::optional<std::string> Start() override { return startFailure; }
    TextMetrics& Metrics() override { return metrics_; }
    std::optional<std::string> WritePdf(const std::vector<PrintJob>& jobs, const std::string& title,
                                        const std::string& fileName) override {
        if (Contains(fileName, "full")) {
            return "No space left on device";
        }
        std::ofstream out(PathOf(fileName));
        out << title << ":";
        for (const PrintJob& job : jobs) {
            out << " [" << job.title << " " << job.pages.size() << "]";
        }
        return std::nullopt;
    }
    std::string FileNameForTitle(const std::string& title) override { return "f-" + title; }
    std::vector<std::string> Printers() override { return {"Office", "Lab"}; }
    std::optional<std::string> PrintOnQueue(const PrintJob& job,
                                            const std::string& printer) override {
        printed.push_back(printer + ": " + job.title);
        return Contains(job.title, "S2") ? std::optional<std::string>("no paper") : std::nullopt;
    }

    std::optional<std::string> startFailure;
    std::vector<std::string> printed;

  private:
    SquareMetrics metrics_;
};

struct Result {
    int code;
    std::string out;
    std::string err;
};

class BatchCommand : public testing::Test {
  protected:
    Result Run(const std::vector<std::string>& arguments) {
        std::ostringstream out;
        std::ostringstream err;
        const int code = RunBatchCommand(arguments, out, err, platform_);
        return {code, out.str(), err.str()};
    }
    std::string Name(const std::string& file) const { return TextOf(dir_.Path() / PathOf(file)); }
    // As the batch stores it.
    std::string Stored(const std::string& file) const { return LowerCase(Name(file)); }

    std::string Report(const std::string& file, const std::string& sample, int rows = 1) {
        std::string text =
            "Quantitation Report Version 4.2\nSample ID: " + sample +
            "\nCalibration: C:\\T\\DAY.CAL\nCompound Lib: C:\\T\\VOL.LIB\nCompound#\n";
        for (int i = 0; i < rows; ++i) {
            text += "1;Benzene;5.0;0;0;;71-43-2\n";
        }
        return dir_.Write(file, text + "\n");
    }
    std::string Cal() {
        return dir_.Write("Day.cal",
                          "Date Version 4.2\nLibrary\nC:\\T\\VOL.LIB\nCalibration data\n");
    }
    std::string Check() { return dir_.Write("Day.check", "Check Version 4.2\nN;Comp\n"); }

    // A batch of a blank and three samples, two of which share their number.
    std::string Batch() {
        const std::string file = Name("day.qff");
        const Result result = Run({"load", "--blank", Report("blank.prn", "VBLK01"), "--cal", Cal(),
                                   "--check", Check(), "-o", file, Report("b.prn", "S1", 26),
                                   Report("a.prn", "S2"), Report("c.prn", "S1")});
        EXPECT_EQ(result.err, "");
        return file;
    }
    std::vector<std::string> FilesIn(const std::string& directory) const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(Name(directory))) {
            names.push_back(TextOf(entry.path().filename()));
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    TempDir dir_;
    FakePlatform platform_;
};

TEST_F(BatchCommand, RefusesWrongUsage) {
    const std::string batch = Batch();
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"sing"}, "qfrbatch: unknown command sing"},
        {{"load", "a.prn"}, "qfrbatch load: -o BATCH.qff is missing"},
        {{"load", "-o", "b.qff"}, "qfrbatch load: no report is named"},
        {{"load", "-o", "A.PRN", "b.prn"},
         "qfrbatch load: A.PRN is the name of a report, not of a batch file"},
        {{"load", "a.prn", "-o"}, "qfrbatch load: option -o needs a value"},
        {{"load", "-o", "b", "-o=c", "a.prn"}, "qfrbatch load: option -o is given twice"},
        {{"load", "--forms", "1"}, "qfrbatch load: unknown option --forms"},
        {{"print", "-o", "x.pdf"}, "qfrbatch print: exactly one batch file is to be named"},
        {{"print", batch},
         "qfrbatch print: exactly one of -o, --output-dir and --printer is needed"},
        {{"print", batch, "-o", "x.pdf", "--printer", "Lab"},
         "qfrbatch print: exactly one of -o, --output-dir and --printer is needed"},
        {{"print", "x.pdf", "-o", "day.QFF"},
         "qfrbatch print: day.QFF is not the name of a PDF file"},
        {{"print", batch, "-o", "x.pdf", "--forms", "1,3"},
         "qfrbatch print: there is no form \"3\""},
        {{"print", batch, "-o", "x.pdf", "--forms", "1,"}, "qfrbatch print: there is no form \"\""},
        {{"show"}, "qfrbatch show: exactly one batch file is to be named"},
    };
    for (const auto& [arguments, expected] : cases) {
        const Result result = Run(arguments);
        EXPECT_EQ(result.code, 2) << expected;
        EXPECT_THAT(result.err, StartsWith(expected + "\nTry \"qfrbatch "));
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(Run({}).code, 2);
    EXPECT_FALSE(fs::exists("x.pdf"));
}

TEST_F(BatchCommand, ExplainsItself) {
    for (const std::string command : {"", "load", "print", "show"}) {
        const Result result =
            Run(command.empty() ? std::vector<std::string>{"--help"}
                                : std::vector<std::string>{command, "--nonsense", "--help"});
        EXPECT_EQ(result.code, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_THAT(result.out, StartsWith("Usage: qfrbatch " + command));
        EXPECT_THAT(result.out, HasSubstr("Exit status:"));
    }
}

TEST_F(BatchCommand, LoadsABatchThatRestores) {
    const std::string defaults = dir_.Write("Defaults.txt", "Lab\nC#1\n\nCase 7\n");
    fs::create_directory(dir_.Path() / "Sub");
    Report("Sub/Z.PRN", "Z");
    const Result result = Run({"load", "-o", Name("x.qff"), "--defaults", defaults, "--check",
                               Check(), "--cal", Cal(), "--blank", Report("Blank.prn", "B"),
                               Name("Sub/../Sub/Z.PRN"), Report("a.prn", "A"), Name("a.prn")});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out + result.err, "");

    const auto restored = RestoreBatch(*LineReader::Open(Name("x.qff")), Name("x.qff"), {});
    const qfr::Batch& batch = std::get<SavedBatch>(restored).Batch;
    EXPECT_EQ(batch.Files, (FileSet{"vol.lib",
                                    "",
                                    "day.cal",
                                    Stored("blank.prn"),
                                    {Stored("a.prn"), Stored("sub/z.prn")},
                                    Stored("day.cal"),
                                    Stored("day.check")}));
    EXPECT_THAT(batch.BlankHitFlags, ElementsAre(true));
    ASSERT_EQ(batch.SampleList->size(), 3u);
    const SampleHeader& header = (*batch.SampleList)[2].Header;
    EXPECT_EQ(header[HeaderField::kZovSampleNo], "Z");
    EXPECT_EQ(header[HeaderField::kLabName], "Lab");
    EXPECT_EQ(header[HeaderField::kLabCode], "");
    EXPECT_EQ(header[HeaderField::kCaseNo], "Case 7");
    EXPECT_EQ(header[HeaderField::kSoilAliquotVolume], "N/A");
    EXPECT_EQ(header[HeaderField::kDateReceived], "  /  /       :  ");
}

TEST_F(BatchCommand, LoadsTheRestOfRejectedFiles) {
    const std::string old = dir_.Write("old.prn", "Quantitation Report Version 4.1\n");
    const Result result = Run({"load", "--cal", Cal(), Report("a.prn", "A"), Name("no.prn"), old,
                               TextOf(dir_.Path()), "-o", Name("x.qff"), "--check", old});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err,
              "qfrbatch: " + Name("no.prn") + " could not be found\n" +
                  "qfrbatch: " + TextOf(dir_.Path()) + " could not be read\n" +
                  "File Error: The version # must be 4.2 for old.prn. The file will not be "
                  "processed.\n"
                  "File Error: old.prn does not appear to be a check calibration file. The file "
                  "will not be processed.\n" +
                  "qfrbatch: " + Name("x.qff") + " has no lab blank and cannot be restored\n" +
                  "qfrbatch: " + Name("x.qff") + " has no check report and cannot be restored\n");
    EXPECT_THAT(ReadAll(Name("x.qff")), HasSubstr("\n1\n" + Stored("a.prn") + "\n"));
}

TEST_F(BatchCommand, KeepsTheOldBatchWhenNothingReplacesIt) {
    const std::string target = dir_.Write("x.qff", "old");
    const Result nothing = Run({"load", "-o", target, dir_.Write("a;b.prn", "Quant")});
    EXPECT_EQ(nothing.code, 1);
    EXPECT_THAT(nothing.err, HasSubstr("a;b.prn has a path that no batch file can hold\n"));
    EXPECT_THAT(nothing.err, HasSubstr("no report was accepted; " + target + " is not written\n"));
    EXPECT_EQ(ReadAll(target), "old");

    const Result failed = Run({"load", "-o", Name("no/x.qff"), Report("a.prn", "A")});
    EXPECT_EQ(failed.code, 1);
    EXPECT_THAT(failed.err, StartsWith("File Error: x.qff could not be written.\nqfrbatch: "));
}

TEST_F(BatchCommand, PrintsEverySampleInOrder) {
    const std::string batch = Batch();
    const Result result = Run({"print", batch, "--forms", "1", "-o", Name("x.pdf")});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.out + result.err, "");
    EXPECT_EQ(ReadAll(Name("x.pdf")),
              "day: [Form 1 VBLK01 1] [Form 1 S2 1] [Form 1 S1 2] [Form 1 S1 1]");
}

TEST_F(BatchCommand, PrintsChosenSamples) {
    const std::string batch = Batch();
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{"--sample", "vblk01"}, "Form 1 VBLK01: [Form 1 VBLK01 1]"},
        {{"--sample=S1"}, "day: [Form 1 S1 2] [Form 1 S1 1]"},
        {{"--sample", "C.PRN", "--sample", "S2"}, "day: [Form 1 S2 1] [Form 1 S1 1]"},
        {{"--sample", "a.prn", "VBLK01"}, "day: [Form 1 VBLK01 1] [Form 1 S2 1]"},
    };
    for (const auto& [choice, expected] : cases) {
        std::vector<std::string> arguments = {"print", batch, "--forms=1", "-o", Name("x.pdf")};
        arguments.insert(arguments.end(), choice.begin(), choice.end());
        EXPECT_EQ(Run(arguments).code, 0);
        EXPECT_EQ(ReadAll(Name("x.pdf")), expected);
    }
    const Result unknown = Run({"print", batch, "-o", Name("y.pdf"), "--sample", "S1", "S9"});
    EXPECT_EQ(unknown.code, 2);
    EXPECT_EQ(unknown.err, "qfrbatch: the batch has no sample \"S9\"\n");
    EXPECT_FALSE(fs::exists(Name("y.pdf")));
}

TEST_F(BatchCommand, PrintsOneFileForEachJob) {
    const Result result = Run({"print", Batch(), "--forms", "1", "--output-dir", Name("new/pdf")});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(FilesIn("new/pdf"), ElementsAre("f-Form 1 S1 (2).pdf", "f-Form 1 S1.pdf",
                                                "f-Form 1 S2.pdf", "f-Form 1 VBLK01.pdf"));
    EXPECT_EQ(ReadAll(Name("new/pdf/f-Form 1 S1 (2).pdf")), "Form 1 S1: [Form 1 S1 1]");
    const Result inTheWay =
        Run({"print", Name("day.qff"), "--forms", "1", "--output-dir", Name("a.prn")});
    EXPECT_EQ(inTheWay.code, 1);
    EXPECT_THAT(inTheWay.err, StartsWith("File Error: a.prn could not be written.\n"));
}

TEST_F(BatchCommand, PrintsOnAPrinter) {
    const std::string batch = Batch();
    const Result unknown = Run({"print", batch, "--printer", "lab"});
    EXPECT_EQ(unknown.code, 2);
    EXPECT_EQ(unknown.err, "qfrbatch: there is no printer \"lab\"; there is Office, Lab\n");
    const Result result = Run({"print", batch, "--forms", "1", "--printer", "Lab"});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err, "qfrbatch: Form 1 S2 could not be printed: no paper\n");
    EXPECT_THAT(platform_.printed, ElementsAre("Lab: Form 1 VBLK01", "Lab: Form 1 S2",
                                               "Lab: Form 1 S1", "Lab: Form 1 S1"));
}

TEST_F(BatchCommand, GoesOnAfterARefusedForm) {
    const std::string batch = Batch();
    fs::remove(Name("a.prn"));
    const std::string refusal =
        "File Not Found: " + Stored("a.prn") +
        " could not be found.  Use Data Files|Load Files menu option to relocate file\n";
    const Result others = Run({"print", batch, "--forms", "1", "-o", Name("x.pdf")});
    EXPECT_EQ(others.code, 1);
    EXPECT_EQ(others.err, refusal);
    EXPECT_EQ(ReadAll(Name("x.pdf")), "day: [Form 1 VBLK01 1] [Form 1 S1 2] [Form 1 S1 1]");

    const Result none =
        Run({"print", batch, "-o", Name("y.pdf"), "--forms", "1", "--sample", "S2"});
    EXPECT_EQ(none.code, 1);
    EXPECT_EQ(none.err, refusal);
    EXPECT_FALSE(fs::exists(Name("y.pdf")));
}

TEST_F(BatchCommand, SaysWhyNothingIsPrinted) {
    const std::string batch = Batch();
    const std::string text = ReadAll(batch);
    const std::string empty =
        dir_.Write("empty.qff", "QFRForms\n\n\n\n/b.prn\n0\n/d.cal\n/d.check\n0\n0\n\n;1;\n");
    const struct {
        std::vector<std::string> arguments;
        int code;
        std::string err;
    } cases[] = {
        {{"print", Name("no.qff"), "-o", Name("x.pdf")},
         2,
         "qfrbatch: " + Name("no.qff") + " could not be found\n"},
        {{"print", Name("a.prn"), "-o", Name("x.pdf")},
         2,
         "Improper File Type: " + Name("a.prn") + " is not a QFRForm saved file.\n"},
        {{"show", dir_.Write("cut.qff", text.substr(0, 9) + "\n\n\n\n")},
         2,
         "File Not Found:  does not exist. Restore will be aborted\n"},
        {{"print", empty, "--forms", "1", "-o", Name("x.pdf")},
         1,
         "File Not Specified: Please use Data Files|Load Files menu selections to specify "
         "files.\n"},
        {{"print", batch, "--forms", "1", "-o", Name("full.pdf")},
         1,
         "File Error: full.pdf could not be written.\nqfrbatch: No space left on device\n"},
    };
    for (const auto& c : cases) {
        const Result result = Run(c.arguments);
        EXPECT_EQ(result.code, c.code) << c.err;
        EXPECT_EQ(result.err, c.err);
    }
    platform_.startFailure = "no typeface";
    const Result unable = Run({"print", batch, "-o", Name("x.pdf")});
    EXPECT_EQ(unable.code, 1);
    EXPECT_EQ(unable.err, "qfrbatch: no typeface\n");
    EXPECT_FALSE(fs::exists(Name("x.pdf")));
}

TEST_F(BatchCommand, ShowsABatchAsText) {
    const Result result = Run({"show", Batch()});
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(
        result.out,
        StartsWith("Sample 1 of 4 (lab blank)\n  Report:               " + Stored("blank.prn") +
                   "\n  Compounds:            1\n  ZOV sample no.:       VBLK01\n"
                   "  Lab sample ID:\n"));
    for (const std::string& part : std::vector<std::string>{
             "\n\nSample 4 of 4\n", "\n\nFiles\n", "  Quantitation 3:       " + Stored("c.prn"),
             "  Blank hits, rows:     1\n", "\n\nBFB tune (Form V)\n  Sample no.:\n"}) {
        EXPECT_THAT(result.out, HasSubstr(part));
    }
    EXPECT_THAT(result.out, Not(HasSubstr(" \n")));

    std::ostringstream broken;
    broken.setstate(std::ios::badbit);
    std::ostringstream err;
    EXPECT_EQ(RunBatchCommand({"show", Name("day.qff")}, broken, err, platform_), 1);
    EXPECT_EQ(err.str(), "qfrbatch: standard output could not be written\n");
}

TEST_F(BatchCommand, AsksForTicSheetsOnlyWhereThereAreTics) {
    const std::string batch = Batch();
    const Result all = Run({"print", batch, "-o", Name("x.pdf"), "--sample", "S2"});
    EXPECT_EQ(all.code, 1);
    EXPECT_THAT(all.err, Not(HasSubstr("TIC")));
    EXPECT_EQ(ReadAll(Name("x.pdf")), "Form 1 S2: [Form 1 S2 1]");
    const Result asked =
        Run({"print", batch, "-o", Name("y.pdf"), "--forms", " TIC,1", "--sample", "S2"});
    EXPECT_EQ(asked.code, 1);
    EXPECT_EQ(asked.err,
              "TIC Compounds Not Entered: There are no TIC compounds listed for this sample.\n");
    EXPECT_EQ(ReadAll(Name("y.pdf")), "Form 1 S2: [Form 1 S2 1]");
}

TEST(HeadlessHost, AnswersDialogsByTheirRules) {
    SquareMetrics metrics;
    std::ostringstream err;
    SavedBatch saved;
    saved.Batch.SampleList.emplace(2)[1].Header[HeaderField::kInstrumentId] = "GC2";
    saved.Entries.Tune.SampleNo = "BFB";
    saved.Entries.InitialCalibration.FirstStandard = "05/16/2005 09:41";
    HeadlessHost host(saved, metrics, err, EntryDialogRules());

    EXPECT_TRUE(host.ShowEntryDialog(EntryDialog::kBlankComments, 1));
    EXPECT_TRUE(host.ShowEntryDialog(EntryDialog::kInitialCalibration, 1));
    EXPECT_TRUE(host.Flags().InitCalEntered);
    EXPECT_EQ(host.Entries().ContinuingCalibration.FirstStandard, "05/16/2005 09:41");
    EXPECT_EQ(err.str(), "");

    const std::string required = "Required Input Missing: Please enter an appropriate value.\n";
    const std::pair<EntryDialog, std::string> refused[] = {
        {EntryDialog::kRecoveryRanges, "No File Specified: Please select a file for ranges.\n"},
        {EntryDialog::kTune,
         "Incorrect Time Format: Enter the date/time format as  MM/DD/YYYY or HH:MI\n"},
        {EntryDialog::kContinuingCalibration, required},
        {EntryDialog::kStandardSummary, required},
    };
    for (const auto& [dialog, message] : refused) {
        err.str("");
        EXPECT_FALSE(host.ShowEntryDialog(dialog, 1));
        EXPECT_EQ(err.str(), message);
    }
    EXPECT_EQ(host.Entries().Tune.InstrumentId, "GC2");
    EXPECT_FALSE(host.Flags().ContCalEntered);

    err.str("");
    EXPECT_FALSE(host.AskYesNo({"Save it\nnow?", ""}));
    EXPECT_EQ(err.str(), "Save it now?\n");
}

}  // namespace
}  // namespace qfr::test
