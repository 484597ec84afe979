#include <filesystem>
#include <fstream>
#include <sstream>

#include "app/BatchFile.h"
#include "app/batch/BatchCommand.h"
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
        forms.clear();
        for (const PrintJob& job : jobs) {
            forms.push_back(job.form);
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

    bool EndRequested() const override { return --worksFor < 0; }

    mutable int worksFor = 1'000'000;  // questions whether to end
    std::optional<std::string> startFailure;
    std::vector<std::string> printed;
    std::vector<std::string> forms;  // of the jobs of the last file

  private:
    TimesMetrics metrics_;
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
        const std::string header = "Sample ID: " + sample + "\nCalibration: C:\\T\\DAY.CAL\n" +
                                   "Compound Lib: C:\\T\\VOL.LIB\n";
        dir_.Write(file, ReportText{.header = header, .rows = rows}.Text());
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
        return LowerCase(TextOf((dir_.Path() / file).make_preferred()));
    }
    // The transcript of a print command, and the content of x.pdf, which is removed.
    std::string Print(const std::string& arguments) {
        const std::string transcript = Run("print " + arguments);
        const std::string pdf = ReadAll("x.pdf");
        fs::remove("x.pdf");
        return transcript + pdf;
    }

    const fs::path before_ = fs::current_path();
    TempDir dir_;
    FakePlatform platform_;
};

SavedBatch Restored(const std::string& file) {
    return std::get<SavedBatch>(RestoreBatch(*LineReader::Open(PathOf(file)), file));
}

TEST_F(BatchCommand, RefusesWrongUsage) {
    const std::pair<std::string, std::string> cases[] = {
        {"sing", ": unknown command sing"},
        {"load a.prn", " load: -o BATCH.qff is missing"},
        {"load -o A.PRN b.prn", " load: A.PRN is the name of a report, not of a batch file"},
        {"load a.prn -o", " load: option -o needs a value"},
        {"load -o b -o=c a.prn", " load: option -o is given twice"},
        {"load --forms 1", " load: unknown option --forms"},
        {"load -o b -1", " load: unknown option -1"},
        {"load -o b --defaults= a.prn", " load: option --defaults needs a value"},
        {"load -o b --blank --cal day.cal", " load: option --blank needs a value"},
        {"prnt day.qff", ": unknown command prnt; did you mean print?"},
        {"print --form=1", " print: unknown option --form; did you mean --forms?"},
        {"print -output-dir x", " print: unknown option -output-dir; did you mean --output-dir?"},
        {"show --help=1", " show: unknown option --help"},
        {"print -o x.pdf", " print: at least one batch file is to be named"},
        {"print day.qff", " print: exactly one of -o, --output-dir and --printer is needed"},
        {"print x.pdf -o day.QFF", " print: day.QFF is not the name of a PDF file"},
        {"print day.qff -o x.pdf --forms 1,3", " print: there is no form \"3\""},
        {"print day.qff -o x.pdf --forms 1,", " print: there is no form \"\""},
        {"show", " show: at least one batch file is to be named"},
    };
    for (const auto& [commandLine, trouble] : cases) {
        const std::string command = trouble.substr(0, trouble.find(':'));
        EXPECT_EQ(Run(commandLine),
                  "qfrbatch" + trouble + "\nTry \"qfrbatch" + command + " --help\".\n[2]");
    }
    EXPECT_THAT(Run(""), HasSubstr("Exit status:"));
    for (const std::string command : {"", " load", " print", " show"}) {
        EXPECT_THAT(
            Run(command + (command.empty() ? "" : " --nonsense") + " --help"),
            AllOf(StartsWith("[0]"), HasSubstr("Usage: qfrbatch" + command + " [OPTIONS]")));
    }
}

TEST_F(BatchCommand, TakesOptionsAndFilesInAnyOrder) {
    for (const std::string arguments : {
             "day.qff --forms 1 --sample S2 -o x.pdf",
             "--sample=S2 -o=x.pdf --forms=1 day.qff",
             "--sample S2 --forms 1 -o x.pdf -- day.qff",
             "--forms 1 -o x.pdf --sample S2 day.qff a.prn",
             "--forms 1 -o x.pdf --sample S2 -- day.qff a.prn",
         }) {
        EXPECT_EQ(Print(arguments), "[0]Form 1 S2: [Form 1 S2 1]") << arguments;
    }
    const std::pair<std::string, std::string> missing[] = {
        {"load - -o x.qff ++ [a,b] show {} /o -- -a --cal --", "- ++ [a,b] show {} /o -a --cal --"},
        {"load --blank -x -o=--cal --cal --o=c --check --", "-x --o=c --"},
        {"show -- {}", "{}"},
    };
    for (const auto& [commandLine, names] : missing) {
        std::string found;
        std::istringstream lines(Run(commandLine));
        for (std::string line; std::getline(lines, line) && EndsWith(line, " found");) {
            const std::string name = line.substr(10);
            found += (found.empty() ? "" : " ") + name.substr(0, name.find(' '));
        }
        EXPECT_EQ(found, names) << commandLine;
    }
    EXPECT_THAT(Run("load -o=--cal a.prn"), HasSubstr(": --cal has no lab blank"));
    EXPECT_TRUE(fs::exists("--cal"));
}

TEST_F(BatchCommand, TakesSeveralBatches) {
    Report("t.prn", "T1");
    EXPECT_EQ(Run("load --blank blank.prn --cal day.cal --check day.check -o two.qff t.prn"),
              "[0]");
    fs::create_directory("d");
    fs::copy_file("two.qff", "d/two.qff");
    const std::string gone = "qfrbatch: no.qff could not be found\n[2]";
    EXPECT_EQ(Print("two.qff no.qff day.qff --forms 1 -o x.pdf --sample S2 T1"),
              gone + "two, day: [Form 1 T1 1] [Form 1 S2 1]");
    EXPECT_THAT(platform_.forms, ElementsAre("two: Form I VOA", "day: Form I VOA"));
    EXPECT_EQ(Print("day.qff -o x.pdf two.qff --sample S2 S9"),
              "qfrbatch: the batches have no sample \"S9\"\n[2]");
    EXPECT_EQ(Print("no.qff a.prn -o x.pdf --sample S2"),
              "qfrbatch: no.qff could not be found\n"
              "a.prn: Improper File Type: a.prn is not a QFRForm saved file.\n[2]");

    EXPECT_EQ(Print("day.qff two.qff d/two.qff --forms 1 --sample S2 T1 --output-dir new"), "[0]");
    for (const std::string file : {"day/f-Form 1 S2", "two/f-Form 1 T1", "two (2)/f-Form 1 T1"}) {
        EXPECT_TRUE(fs::exists("new/" + file + ".pdf")) << file;
    }
    EXPECT_EQ(Print("two.qff day.qff --printer Lab --forms 1 --sample T1 S2"),
              "qfrbatch: Form 1 S2 could not be printed: no paper\n[1]");
    EXPECT_THAT(platform_.printed, ElementsAre("Lab: Form 1 T1", "Lab: Form 1 S2"));
    fs::remove("t.prn");
    EXPECT_THAT(Print("day.qff two.qff --forms 1 -o x.pdf --sample T1 S2"),
                AllOf(StartsWith("two.qff: File Not Found: "),
                      testing::EndsWith("[1]Form 1 S2: [Form 1 S2 1]")));

    EXPECT_THAT(Run("show day.qff"), StartsWith("[0]Sample 1 of 4 (lab blank)\n"));
    EXPECT_THAT(Run("show day.qff no.qff two.qff"),
                AllOf(StartsWith(gone + "Batch file day.qff\n\nSample 1 of 4 (lab blank)\n"),
                      HasSubstr("\n\nBatch file two.qff\n\nSample 1 of 2 (lab blank)\n")));
}

TEST_F(BatchCommand, LoadsABatchThatRestores) {
    dir_.Write("Defaults.txt", "Lab\nC#1\n\nCase 7\n\n\n\n\n\n\nonly for soil\n\n\n");
    Report("Sub/Z.PRN", "Z");
    EXPECT_EQ(Run("load -o x.qff --defaults Defaults.txt --check day.check --cal day.cal --blank "
                  "blank.prn Sub/../Sub/Z.PRN a.prn ./a.prn"),
              "[0]");
    const qfr::Batch batch = Restored("x.qff").Batch;
    EXPECT_EQ(batch.Files.LibFile + batch.Files.SurrFile + batch.Files.CalFile, "vol.libday.cal");
    EXPECT_EQ(batch.Files.LabBlank, Stored("blank.prn"));
    EXPECT_THAT(batch.Files.QFiles, ElementsAre(Stored("a.prn"), Stored("sub/z.prn")));
    EXPECT_EQ(batch.Files.Calib + batch.Files.CheckCal, Stored("day.cal") + Stored("day.check"));
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
    dir_.Write("short.txt", std::string(12, '\n'));
    fs::create_directory("folder");
    EXPECT_EQ(Run("load --cal day.cal a.prn no.prn old.prn folder -o x.qff --check old.prn "
                  "--defaults short.txt"),
              "qfrbatch: no.prn could not be found\n"
              "qfrbatch: folder could not be read\n"
              "File Error: The version # must be 4.2 for old.prn. The file will not be processed.\n"
              "File Error: old.prn does not appear to be a check calibration file. The file will "
              "not be processed.\n"
              "FileError: Can't perform one of the following file operations: Open, Seek, Read, "
              "Close\n"
              "qfrbatch: x.qff has no lab blank and cannot be restored\n"
              "qfrbatch: x.qff has no check report and cannot be restored\n[1]");
    EXPECT_THAT(ReadAll("x.qff"), HasSubstr("\n1\n" + Stored("a.prn") + "\n"));
    EXPECT_EQ(Run("load -o x.qff a;b.prn"),
              "qfrbatch: a;b.prn has a path that no batch file can hold\n"
              "qfrbatch: no report was accepted; x.qff is not written\n[1]");
    EXPECT_THAT(
        Run("load --blank blank.prn --cal day.cal --check day.check -o x.qff a.prn old.prn"),
        testing::EndsWith("not be processed.\n[1]"));
    EXPECT_THAT(Run("load -o no/x.qff a.prn"),
                StartsWith("File Error: x.qff could not be written.\nqfrbatch: "));
}

TEST_F(BatchCommand, LoadsNothingOverABatchThatRestores) {
    const std::string before = ReadAll("day.qff");
    dir_.Write("huge.txt", "");
    EXPECT_EQ(Run("load --blank blank.prn --check day.check -o day.qff a.prn"),
              "qfrbatch: the new batch has no calibration report and cannot be restored\n"
              "qfrbatch: day.qff can be restored and is not replaced\n[1]");
    fs::resize_file("huge.txt", LineReader::kMaxFileSize + 1);
    EXPECT_EQ(Run("show huge.txt"), "qfrbatch: huge.txt has more than 64 MB\n[2]");
    EXPECT_THAT(Run("load -o x.qff a.prn --defaults huge.txt"),
                StartsWith("File Error: huge.txt has more than 64 MB. "));
    EXPECT_EQ(Run("load -o day.qff"),
              "qfrbatch: no report was accepted; day.qff is not written\n[1]");
    EXPECT_EQ(ReadAll("day.qff"), before);
    EXPECT_EQ(Run("load -o new.qff no.prn").substr(0, 40),
              "qfrbatch: no.prn could not be found\nqfrb");
    EXPECT_FALSE(fs::exists("new.qff"));
}

TEST_F(BatchCommand, LeavesOutAndTellsWhatReportsHold) {
    Report("huge.prn", "H", 302);
    dir_.Write("odd.prn", ReportText{.header = "Acquisition Date: 18-May-2005\n"}.Text());
    dir_.Write("Defaults.txt", "Lab; Inc." + std::string(13, '\n'));
    EXPECT_EQ(Run("load --blank blank.prn --cal day.cal --check day.check -o x.qff --defaults "
                  "Defaults.txt huge.prn odd.prn"),
              "File Error: File Compound list Error\n"
              "qfrbatch: huge.prn has more than 301 compound rows and is left out\n"
              "Warning: The date could not be read in these reports. Please enter it for Form 1. "
              "odd.prn: 18-May-2005\n"
              "Warning: A \";\" cannot be kept in a batch. It is taken as \",\" in these values: "
              "Defaults.txt: Lab; Inc.\n[1]");
    const qfr::Batch batch = Restored("x.qff").Batch;
    EXPECT_THAT(batch.Files.QFiles, ElementsAre(Stored("odd.prn")));
    EXPECT_EQ(batch.SampleList->at(0).Header[HeaderField::kLabName], "Lab, Inc.");
    EXPECT_EQ(Run("load --blank huge.prn --cal day.cal --check day.check -o y.qff a.prn").back(),
              ']');
    EXPECT_THAT(Restored("x.qff").Batch.Files.Calib, Stored("day.cal"));
}

TEST_F(BatchCommand, PrintsWhatIsAskedFor) {
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf"),
              "[0]day: [Form 1 VBLK01 1] [Form 1 S2 1] [Form 1 S1 2] [Form 1 S1 1]");
    const std::string form1 = "day.qff --forms 1 -o x.pdf --sample";
    EXPECT_EQ(Print(form1 + " vblk01"), "[0]Form 1 VBLK01: [Form 1 VBLK01 1]");
    EXPECT_EQ(Print(form1 + "=S1"), "[0]day: [Form 1 S1 2] [Form 1 S1 1]");
    EXPECT_EQ(Print(form1 + " C.PRN --sample S2"), "[0]day: [Form 1 S2 1] [Form 1 S1 1]");
    EXPECT_EQ(Print(form1 + " a.prn VBLK01"), "[0]day: [Form 1 VBLK01 1] [Form 1 S2 1]");
    EXPECT_EQ(Print(form1 + " S1 S9"), "qfrbatch: the batch has no sample \"S9\"\n[2]");
    EXPECT_EQ(Print("day.qff --forms TIC,1 --sample S2 -o x.pdf"),
              "TIC Compounds Not Entered: There are no TIC compounds listed for this sample.\n"
              "[1]Form 1 S2: [Form 1 S2 1]");
    EXPECT_THAT(Print("day.qff -o x.pdf --sample S2"), Not(HasSubstr("TIC")));

    EXPECT_EQ(Print("day.qff --printer lab"),
              "qfrbatch: there is no printer \"lab\"; there is Office, Lab\n[2]");
    EXPECT_EQ(Print("day.qff --forms 1 --printer Lab"),
              "qfrbatch: Form 1 S2 could not be printed: no paper\n[1]");
    EXPECT_THAT(platform_.printed, ElementsAre("Lab: Form 1 VBLK01", "Lab: Form 1 S2",
                                               "Lab: Form 1 S1", "Lab: Form 1 S1"));

    EXPECT_EQ(Print("day.qff --forms 1 --output-dir new/pdf"), "[0]");
    for (const std::string name : {"VBLK01", "S2", "S1"}) {
        EXPECT_THAT(ReadAll("new/pdf/f-Form 1 " + name + ".pdf"), StartsWith("Form 1 " + name));
    }
    EXPECT_EQ(ReadAll("new/pdf/f-Form 1 S1 (2).pdf"), "Form 1 S1: [Form 1 S1 1]");
    EXPECT_THAT(Print("day.qff --forms 1 --output-dir a.prn"),
                StartsWith("File Error: a.prn could not be written.\n"));
}

TEST_F(BatchCommand, ShowsEveryValueUnderItsName) {
    EXPECT_EQ(Run("show " + TestData("full/full.qff").string()),
              "[0]" + ReadAll(TestData("full/shown.txt")));
    EXPECT_THAT(Run("show day.qff"),
                HasSubstr("\n\nSample 2 of 4\n  Report:               " + Stored("a.prn")));
}

TEST_F(BatchCommand, PrintsACalibrationThatWasKeptWithoutItsRawDataFiles) {
    for (const std::string file : {"example.qff", "VOA0516.CAL"}) {
        fs::copy_file(ExampleDir() / file, file);
    }
    EXPECT_THAT(Print("example.qff --forms 6 -o x.pdf"), StartsWith("[0]Form 6: "));
}

TEST_F(BatchCommand, ExitsOneForAFormThatPrintsWithAWarning) {
    std::string report = ReadAll("a.prn");
    dir_.Write("a.prn", report.replace(report.find("Compound;"), 8, std::string(401, 'x')));
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf --sample S2"),
              "Warning: a.prn holds a text of more than 400 characters. Of such a text the first "
              "400 are taken.\n[1]Form 1 S2: [Form 1 S2 1]");
}

TEST_F(BatchCommand, TellsOfOilLimitsBeforeFormII) {
    std::string batch = ReadAll("day.qff");
    batch.replace(batch.find("\n;1;\n"), 5, "\n;3;\n");
    dir_.Write("oil.qff", batch);
    EXPECT_EQ(Print("oil.qff --forms 1 -o x.pdf --sample S2"), "[0]Form 1 S2: [Form 1 S2 1]");
    EXPECT_THAT(Print("oil.qff --forms 2 -o x.pdf"),
                StartsWith("Warning: oil.qff was saved with oil limits for Form 2. They come back "
                           "as soil limits. Please check the choice.\n"));
}

TEST_F(BatchCommand, SaysWhatItCannotPrint) {
    dir_.Write("empty.qff", "QFRForms\n\n\n\n/b.prn\n0\n/d.cal\n/d.check\n0\n0\n\n;1;\n");
    EXPECT_EQ(Print("day.qff --forms 1 -o full.pdf"),
              "File Error: full.pdf could not be written.\nqfrbatch: No space left on device\n[1]");
    EXPECT_EQ(Print("empty.qff --forms 1 -o x.pdf"),
              "Files Not Specified: Please use Data Files|Load Files menu selections to specify "
              "files.\n[1]");
    Report("a.prn", "S3", 2);
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf --sample S2"),
              "Quantitation Report Changed: a.prn is damaged, or has changed since it was loaded. "
              "Compound rows: 2 instead of 1. Sample ID: S3 instead of S2. "
              "Please use Data Files|Load Files menu option to load it again.\n"
              "[1]Form 1 S2: [Form 1 S2 1]");
    fs::remove("a.prn");
    const std::string refusal =
        "File Not Found: " + Stored("a.prn") +
        " could not be found.  Use Data Files|Load Files menu option to relocate file\n[1]";
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf"),
              refusal + "day: [Form 1 VBLK01 1] [Form 1 S1 2] [Form 1 S1 1]");
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf --sample S2"), refusal);
    platform_.startFailure = "no typeface";
    EXPECT_EQ(Print("day.qff -o x.pdf"), "qfrbatch: no typeface\n[1]");
}

TEST_F(BatchCommand, ShowsNoControlCharacters) {
    if (fs::path::preferred_separator == '\\') {
        GTEST_SKIP() << "no file can be named so";
    }
    const std::string steered = "S\x1B[2J\u202E\u009B";
    Report(steered + ".prn", steered);
    EXPECT_EQ(Run("load --blank " + steered +
                  ".prn --cal day.cal --check day.check no\x1B.prn -o " + steered + ".qff"),
              "qfrbatch: no?.prn could not be found\n[1]");
    EXPECT_THAT(Run("load --\x1B"), HasSubstr(" --?\n"));
    EXPECT_THAT(Run("show " + steered + ".qff day.qff " + steered),
                AllOf(HasSubstr("/s?[2j??.prn\n"), HasSubstr("Batch file S?[2J??.qff\n"),
                      StartsWith("qfrbatch: S?[2J?? could not be found\n")));
    fs::copy_file("day.qff", steered + ".qff", fs::copy_options::overwrite_existing);
    Print("day.qff " + steered + ".qff --forms 1 --sample S1 --output-dir new");
    EXPECT_TRUE(fs::exists("new/S?[2J??"));
}

TEST_F(BatchCommand, EndsBetweenTwoJobsWhenItIsAskedTo) {
    const std::string ended = "qfrbatch: ended before all was done\n[1]";
    platform_.worksFor = 1;
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf"), ended);
    platform_.worksFor = 4 + 1 + 2;  // the jobs, the folder, and two files
    EXPECT_EQ(Print("day.qff --forms 1 --output-dir new"), ended);
    EXPECT_EQ(std::distance(fs::directory_iterator("new"), {}), 2);
    platform_.worksFor = 0;
    EXPECT_EQ(Run("load -o x.qff a.prn"), ended);
    EXPECT_FALSE(fs::exists("x.qff"));
}

}  // namespace
}  // namespace qfr::test
