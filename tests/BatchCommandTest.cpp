#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>

#include "app/BatchCommand.h"
#include "app/BatchFile.h"
#include "app/HeadlessHost.h"
#include "data/TuneRules.h"
#include "forms/SampleChecks.h"
#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

namespace fs = std::filesystem;
using namespace ::testing;

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

// A user in a folder with the reports of a blank and three samples, two of which share their
// number.
class BatchCommand : public testing::Test {
  protected:
    BatchCommand() {
        fs::current_path(dir_.Path());
        Report("blank.prn", "VBLK01");
        Report("b.prn", "S1", 26);
        Report("a.prn", "S2");
        Report("c.prn", "S1");
        dir_.Write("day.cal", "Date Version 4.2\nLibrary\nC:\\T\\VOL.LIB\nCalibration data\n");
        dir_.Write("day.check", "Check Version 4.2\nN;Comp\n");
        EXPECT_EQ(Run("load --blank blank.prn --cal day.cal --check day.check -o day.qff b.prn "
                      "a.prn c.prn"),
                  "[0]");
    }
    ~BatchCommand() override { fs::current_path(before_); }

    void Report(const std::string& file, const std::string& sample, int rows = 1) {
        std::string text =
            "Quantitation Report Version 4.2\nSample ID: " + sample +
            "\nCalibration: C:\\T\\DAY.CAL\nCompound Lib: C:\\T\\VOL.LIB\nCompound#\n";
        for (int i = 0; i < rows; ++i) {
            text += "1;Benzene;5.0;0;0;;71-43-2\n";
        }
        dir_.Write(file, text + "\n");
    }
    // Standard error, exit status and standard output of a command line without the program's name.
    std::string Run(const std::string& commandLine) {
        std::istringstream words(commandLine);
        std::vector<std::string> arguments;
        for (std::string word; words >> word;) {
            arguments.push_back(word);
        }
        std::ostringstream out;
        std::ostringstream err;
        const int code = RunBatchCommand(arguments, out, err, platform_);
        return err.str() + "[" + std::to_string(code) + "]" + out.str();
    }
    // As the batch stores it.
    std::string Stored(const std::string& file) const {
        return LowerCase(TextOf(dir_.Path() / file));
    }
    // The content of the PDF file, which is removed.
    std::string Pdf() const {
        const std::string content = ReadAll("x.pdf");
        fs::remove("x.pdf");
        return content;
    }

    const fs::path before_ = fs::current_path();
    TempDir dir_;
    FakePlatform platform_;
};

TEST_F(BatchCommand, RefusesWrongUsage) {
    const std::pair<std::string, std::string> cases[] = {
        {"sing", ": unknown command sing"},
        {"load a.prn", " load: -o BATCH.qff is missing"},
        {"load -o A.PRN b.prn", " load: A.PRN is the name of a report, not of a batch file"},
        {"load a.prn -o", " load: option -o needs a value"},
        {"load -o b -o=c a.prn", " load: option -o is given twice"},
        {"load --forms 1", " load: unknown option --forms"},
        {"print -o x.pdf", " print: exactly one batch file is to be named"},
        {"print day.qff", " print: exactly one of -o, --output-dir and --printer is needed"},
        {"print day.qff -o x.pdf --printer Lab",
         " print: exactly one of -o, --output-dir and --printer is needed"},
        {"print x.pdf -o day.QFF", " print: day.QFF is not the name of a PDF file"},
        {"print day.qff -o x.pdf --forms 1,3", " print: there is no form \"3\""},
        {"print day.qff -o x.pdf --forms 1,", " print: there is no form \"\""},
        {"show", " show: exactly one batch file is to be named"},
    };
    for (const auto& [commandLine, trouble] : cases) {
        const std::string command = trouble.substr(0, trouble.find(':'));
        EXPECT_EQ(Run(commandLine),
                  "qfrbatch" + trouble + "\nTry \"qfrbatch" + command + " --help\".\n[2]");
    }
    EXPECT_THAT(Run(""), StartsWith("Usage: qfrbatch COMMAND"));
    for (const std::string command : {"", " load", " print", " show"}) {
        const std::string help = Run(command + (command.empty() ? "" : " --nonsense") + " --help");
        EXPECT_THAT(help, StartsWith("[0]Usage: qfrbatch" + command));
        EXPECT_THAT(help, HasSubstr("Exit status:"));
    }
}

TEST_F(BatchCommand, LoadsABatchThatRestores) {
    dir_.Write("Defaults.txt", "Lab\nC#1\n\nCase 7\n");
    Report("Sub/Z.PRN", "Z");
    EXPECT_EQ(Run("load -o x.qff --defaults Defaults.txt --check day.check --cal day.cal --blank "
                  "blank.prn Sub/../Sub/Z.PRN a.prn ./a.prn"),
              "[0]");
    const auto restored = RestoreBatch(*LineReader::Open("x.qff"), "x.qff", {});
    const qfr::Batch& batch = std::get<SavedBatch>(restored).Batch;
    EXPECT_EQ(batch.Files, (FileSet{"vol.lib",
                                    "",
                                    "day.cal",
                                    Stored("blank.prn"),
                                    {Stored("a.prn"), Stored("sub/z.prn")},
                                    Stored("day.cal"),
                                    Stored("day.check")}));
    EXPECT_THAT(batch.BlankHitFlags, ElementsAre(true));
    SampleHeader header;
    header[HeaderField::kZovSampleNo] = "Z";
    header[HeaderField::kLabName] = "Lab";
    header[HeaderField::kContract] = "C#1";
    header[HeaderField::kCaseNo] = "Case 7";
    header[HeaderField::kDateReceived] = "  /  /       :  ";
    EXPECT_EQ(batch.SampleList->at(2).Header, header);
}

TEST_F(BatchCommand, LoadsTheRestOfRejectedFiles) {
    dir_.Write("old.prn", "Quantitation Report Version 4.1\n");
    dir_.Write("a;b.prn", "Quantitation Report Version 4.1\n");
    fs::create_directory("folder");
    EXPECT_EQ(Run("load --cal day.cal a.prn no.prn old.prn folder -o x.qff --check old.prn"),
              "qfrbatch: no.prn could not be found\n"
              "qfrbatch: folder could not be read\n"
              "File Error: The version # must be 4.2 for old.prn. The file will not be processed.\n"
              "File Error: old.prn does not appear to be a check calibration file. The file will "
              "not be processed.\n"
              "qfrbatch: x.qff has no lab blank and cannot be restored\n"
              "qfrbatch: x.qff has no check report and cannot be restored\n[1]");
    EXPECT_THAT(ReadAll("x.qff"), HasSubstr("\n1\n" + Stored("a.prn") + "\n"));
    EXPECT_EQ(Run("load -o x.qff a;b.prn"),
              "qfrbatch: a;b.prn has a path that no batch file can hold\n"
              "qfrbatch: x.qff has no lab blank and cannot be restored\n"
              "qfrbatch: x.qff has no calibration report and cannot be restored\n"
              "qfrbatch: x.qff has no check report and cannot be restored\n[1]");
    EXPECT_THAT(Run("load -o no/x.qff a.prn"),
                StartsWith("File Error: x.qff could not be written.\nqfrbatch: "));
}

TEST_F(BatchCommand, PrintsWhatIsAskedFor) {
    const std::string all = "day: [Form 1 VBLK01 1] [Form 1 S2 1] [Form 1 S1 2] [Form 1 S1 1]";
    const struct {
        std::string commandLine;
        std::string transcript;
        std::string pdf;
    } cases[] = {
        {"day.qff --forms 1 -o x.pdf", "[0]", all},
        {"day.qff --forms 1 -o x.pdf --sample vblk01", "[0]", "Form 1 VBLK01: [Form 1 VBLK01 1]"},
        {"day.qff --forms 1 --sample=S1 -o x.pdf", "[0]", "day: [Form 1 S1 2] [Form 1 S1 1]"},
        {"day.qff --forms 1 -o x.pdf --sample C.PRN --sample S2", "[0]",
         "day: [Form 1 S2 1] [Form 1 S1 1]"},
        {"day.qff --forms 1 -o x.pdf --sample a.prn VBLK01", "[0]",
         "day: [Form 1 VBLK01 1] [Form 1 S2 1]"},
        {"day.qff -o x.pdf --sample S1 S9", "qfrbatch: the batch has no sample \"S9\"\n[2]", ""},
        {"day.qff --forms TIC,1 --sample S2 -o x.pdf",
         "TIC Compounds Not Entered: There are no TIC compounds listed for this sample.\n[1]",
         "Form 1 S2: [Form 1 S2 1]"},
        {"day.qff --printer lab",
         "qfrbatch: there is no printer \"lab\"; there is Office, Lab\n[2]", ""},
        {"day.qff --forms 1 --printer Lab",
         "qfrbatch: Form 1 S2 could not be printed: no paper\n[1]", ""},
        {"day.qff --forms 1 -o full.pdf",
         "File Error: full.pdf could not be written.\nqfrbatch: No space left on device\n[1]", ""},
        {"no.qff -o x.pdf", "qfrbatch: no.qff could not be found\n[2]", ""},
        {"a.prn -o x.pdf", "Improper File Type: a.prn is not a QFRForm saved file.\n[2]", ""},
        {"cut.qff -o x.pdf", "File Not Found:  does not exist. Restore will be aborted\n[2]", ""},
        {"empty.qff --forms 1 -o x.pdf",
         "Files Not Specified: Please use Data Files|Load Files menu selections to specify "
         "files.\n[1]",
         ""},
    };
    dir_.Write("empty.qff", "QFRForms\n\n\n\n/b.prn\n0\n/d.cal\n/d.check\n0\n0\n\n;1;\n");
    dir_.Write("cut.qff", "QFRForms\n\n\n\n\n");
    for (const auto& c : cases) {
        EXPECT_EQ(Run("print " + c.commandLine), c.transcript);
        EXPECT_EQ(Pdf(), c.pdf) << c.commandLine;
    }
    EXPECT_THAT(platform_.printed, ElementsAre("Lab: Form 1 VBLK01", "Lab: Form 1 S2",
                                               "Lab: Form 1 S1", "Lab: Form 1 S1"));
    EXPECT_THAT(Run("print day.qff -o x.pdf --sample S2"), Not(HasSubstr("TIC")));

    fs::remove("a.prn");
    const std::string refusal =
        "File Not Found: " + Stored("a.prn") +
        " could not be found.  Use Data Files|Load Files menu option to relocate file\n[1]";
    EXPECT_EQ(Run("print day.qff --forms 1 -o x.pdf"), refusal);
    EXPECT_EQ(Pdf(), "day: [Form 1 VBLK01 1] [Form 1 S1 2] [Form 1 S1 1]") << "all but that one";
    EXPECT_EQ(Run("print day.qff --forms 1 -o y.pdf --sample S2"), refusal);
    EXPECT_FALSE(fs::exists("y.pdf"));
    platform_.startFailure = "no typeface";
    EXPECT_EQ(Run("print day.qff -o x.pdf"), "qfrbatch: no typeface\n[1]");
}

TEST_F(BatchCommand, PrintsOneFileForEachJob) {
    EXPECT_EQ(Run("print day.qff --forms 1 --output-dir new/pdf"), "[0]");
    for (const char* name : {"VBLK01", "S1", "S2"}) {
        EXPECT_TRUE(fs::exists("new/pdf/f-Form 1 " + std::string(name) + ".pdf"));
    }
    EXPECT_EQ(ReadAll("new/pdf/f-Form 1 S1 (2).pdf"), "Form 1 S1: [Form 1 S1 1]");
    EXPECT_THAT(Run("print day.qff --forms 1 --output-dir a.prn"),
                StartsWith("File Error: a.prn could not be written.\n"));
}

TEST_F(BatchCommand, ShowsABatchAsText) {
    const std::string text = Run("show day.qff");
    EXPECT_THAT(text, StartsWith("[0]Sample 1 of 4 (lab blank)\n  Report:               " +
                                 Stored("blank.prn") +
                                 "\n  Compounds:            1\n  ZOV sample no.:       VBLK01\n"
                                 "  Lab sample ID:\n"));
    for (const std::string& part : std::vector<std::string>{
             "\n\nSample 4 of 4\n", "\n\nFiles\n", "  Quantitation 3:       " + Stored("c.prn"),
             "  Blank hits, rows:     1\n", "\n\nBFB tune (Form V)\n  Sample no.:\n"}) {
        EXPECT_THAT(text, HasSubstr(part));
    }
    EXPECT_THAT(text, Not(HasSubstr(" \n")));
    std::ostringstream broken;
    broken.setstate(std::ios::badbit);
    std::ostringstream err;
    EXPECT_EQ(RunBatchCommand({"show", "day.qff"}, broken, err, platform_), 1);
    EXPECT_EQ(err.str(), "qfrbatch: standard output could not be written\n");
}

// The example is what a new user meets first: it loads and prints without a message, and its
// dilution was injected late on purpose, so that Forms IV and V have something to mark.
TEST_F(BatchCommand, TheExampleIsWhole) {
    const std::string folder = TextOf(ExampleDir()) + "/";
    std::string load = "load -o x.qff --blank " + folder + "VBLK01.PRN --cal " + folder +
                       "VOA0516.CAL --check " + folder + "VSTD050C.CHECK";
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = TextOf(entry.path());
        load += EndsWith(name, ".prn") && !EndsWith(name, "vblk01.prn") ? " " + name : "";
    }
    EXPECT_EQ(Run(load), "[0]");
    const auto restore = [](const std::string& file) {
        return std::get<SavedBatch>(RestoreBatch(*LineReader::Open(PathOf(file)), file, {}));
    };
    const qfr::Batch loaded = restore("x.qff").Batch;
    const SavedBatch saved = restore(folder + "example.qff");
    EXPECT_EQ(SaveBatch(saved.Batch, saved.Entries), ReadAll(folder + "example.qff"));
    EXPECT_EQ(loaded.Files.LibFile, saved.Batch.Files.LibFile);
    EXPECT_EQ(loaded.Files.SurrFile, saved.Batch.Files.SurrFile);
    EXPECT_EQ(loaded.Files.CalFile, saved.Batch.Files.CalFile);
    EXPECT_EQ(loaded.BlankHitFlags, saved.Batch.BlankHitFlags);
    const DateTime tune = InjectionDateTime(saved.Entries.Tune).value();
    ASSERT_EQ(loaded.SampleList->size(), saved.Batch.SampleList->size());
    for (std::size_t i = 0; i < loaded.SampleList->size(); ++i) {
        const SampleRecord& record = loaded.SampleList->at(i);
        const SampleRecord& typed = saved.Batch.SampleList->at(i);
        EXPECT_EQ(FileNameOnly(record.FileName), FileNameOnly(typed.FileName));
        EXPECT_EQ(record.CompoundCount, typed.CompoundCount);
        EXPECT_EQ(TwelveHourFlag(typed.Header[HeaderField::kDateAnalyzed], tune),
                  typed.Header[HeaderField::kZovSampleNo] == "ZA103DL" ? "*" : "");
        for (const HeaderField field :
             {HeaderField::kZovSampleNo, HeaderField::kLabSampleId, HeaderField::kSampleWtVol,
              HeaderField::kLabFileId, HeaderField::kDateAnalyzed, HeaderField::kInstrumentId}) {
            EXPECT_EQ(record.Header[field], typed.Header[field]) << record.FileName;
        }
    }
    EXPECT_EQ(Run("print " + folder + "example.qff -o x.pdf"), "[0]");
    const std::string pdf = Pdf();
    for (const char* form : {"1 TIC ", "1 ", "2 ", "4 ", "5 ", "6 ", "7 ", "8 "}) {
        EXPECT_THAT(pdf, HasSubstr("[Form " + std::string(form)));
    }
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
    const std::string required = "Required Input Missing: Please enter an appropriate value.\n";
    const std::pair<EntryDialog, std::string> refused[] = {
        {EntryDialog::kRecoveryRanges, "No File Specified: Please select a file for ranges.\n"},
        {EntryDialog::kTune,
         "Incorrect Time Format: Enter the date/time format as  MM/DD/YYYY or HH:MI\n"},
        {EntryDialog::kContinuingCalibration, required},
        {EntryDialog::kStandardSummary, required},
    };
    for (const auto& [dialog, message] : refused) {
        EXPECT_FALSE(host.ShowEntryDialog(dialog, 1));
        EXPECT_EQ(err.str(), message);
        err.str("");
    }
    EXPECT_EQ(host.Entries().Tune.InstrumentId, "GC2");
    EXPECT_FALSE(host.Flags().ContCalEntered);
    EXPECT_FALSE(host.AskYesNo({"Save it\nnow?", ""}));
    EXPECT_EQ(err.str(), "Save it now?\n");
}

}  // namespace
}  // namespace qfr::test
