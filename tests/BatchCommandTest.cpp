#include <filesystem>
#include <fstream>
#include <set>
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

// The file holds the titles and page counts of its jobs; a file name with "full" in it fails.
class FakePdf : public PdfWriter {
  public:
    explicit FakePdf(std::vector<std::string>& forms) : forms_(forms) { forms_.clear(); }
    void Add(const PrintJob& job) override {
        forms_.push_back(job.form);
        content_ += " [" + job.title + " " + std::to_string(job.pages.size()) + "]";
    }
    bool HasPages() const override { return !content_.empty(); }
    std::optional<std::string> Write(const std::string& title, const std::string& fileName,
                                     ReadOnlyFile /*readOnly*/) override {
        if (Contains(fileName, "full")) {
            return "No space left on device";
        }
        std::ofstream(PathOf(fileName)) << title << ":" << content_;
        return std::nullopt;
    }

  private:
    std::vector<std::string>& forms_;
    std::string content_;
};

class FakePlatform : public BatchPlatform {
  public:
    std::optional<std::string> Start() override { return startFailure; }
    TextMetrics& Metrics() override { return metrics_; }
    std::unique_ptr<PdfWriter> NewPdf() override { return std::make_unique<FakePdf>(forms); }
    std::vector<std::string> Printers(std::string& /*reason*/) override {
        return {"Office", "Lab"};
    }
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
    // The same with the jobs that were printed, and what x.pdf and the files of the folder "new"
    // hold, which are removed.
    std::string Transcript(const std::string& commandLine) {
        std::string transcript = Run(commandLine);
        transcript += ReadAll("x.pdf");
        for (const std::string& job : std::exchange(platform_.printed, {})) {
            transcript += "\n" + job;
        }
        std::set<fs::path> files;
        if (fs::exists("new")) {
            files.insert(fs::recursive_directory_iterator("new"), {});
        }
        for (const fs::path& file : files) {
            transcript += "\n" + file.generic_string() + " " + ReadAll(file);
        }
        fs::remove("x.pdf");
        fs::remove_all("new");
        return transcript;
    }
    std::string Print(const std::string& arguments) { return Transcript("print " + arguments); }

    const fs::path before_ = fs::current_path();
    TempDir dir_;
    FakePlatform platform_;
};

SavedBatch Restored(const std::string& file) {
    return std::get<SavedBatch>(RestoreBatch(*LineReader::Open(PathOf(file)), file));
}

// The answers to command lines that somebody has approved, each below its command line.
TEST_F(BatchCommand, AnswersAsApproved) {
    Report("t.prn", "T1");
    Report("huge.prn", "H", 302);
    dir_.Write("old.prn", "Quantitation Report Version 4.1\n");
    dir_.Write("a;b.prn", "");
    dir_.Write("short.txt", std::string(12, '\n'));
    dir_.Write("semicolon.txt", "Lab; Inc." + std::string(13, '\n'));
    dir_.Write("limits.txt", "# ours\nmin-levels = 0\n");
    dir_.Write("empty.qff", "QFRForms\n\n\n\n/b.prn\n0\n/d.cal\n/d.check\n0\n0\n\n;1;\n");
    const auto odd = [this](const std::string& name, const std::string& header) {
        dir_.Write(name, ReportText{.header = header}.Text());
    };
    odd("odd1.prn", "Acquisition Date: 18-May-2005 23:59\nSample ID: S;1\n");
    odd("odd2.prn", "Acquisition Date:\nSample Size: 5;0\n");
    odd("odd3.prn", "Acquisition Date: 18/05/2005\n");
    odd("full.prn", "Client Sample: " + std::string(400, 'x') + "\n");
    odd("long.prn", "Client Sample: " + std::string(401, 'y') + "\n");
    fs::create_directories("folder/d");
    dir_.Write("huge.txt", "");
    fs::resize_file("huge.txt", LineReader::kMaxFileSize + 1);
    const std::string before = ReadAll("day.qff");
    std::string oil = before;
    dir_.Write("oil.qff", oil.replace(oil.find("\n;1;\n"), 5, "\n;3;\n"));
    const std::string approved = ReadAll(TestData("commands.txt"));
    std::istringstream lines(approved);
    std::string answers;
    for (std::string line; std::getline(lines, line);) {
        answers += line.starts_with("$ ") ? line + "\n" + Transcript(line.substr(2)) + "\n" : "";
    }
    EXPECT_EQ(answers, approved);
    EXPECT_TRUE(fs::exists("--cal") && ReadAll("day.qff") == before);
    EXPECT_THAT(ReadAll("rest.qff"), HasSubstr("\n1\n" + Stored("a.prn") + "\n"));
    EXPECT_EQ(Restored("comma.qff").Batch.SampleList->at(0).Header[HeaderField::kLabName],
              "Lab, Inc.");
    EXPECT_THAT(ReadAll("odd.qff"), AllOf(HasSubstr("\nS,1;"), HasSubstr(std::string(400, 'x')),
                                          HasSubstr(";" + std::string(400, 'y') + ";")));
    EXPECT_THAT(Run("load -o no/x.qff a.prn"),
                StartsWith("File Error: x.qff could not be written.\nqfrbatch: "));
    dir_.Write("taken", "");
    std::error_code noLinks;  // Windows has them for some users only
    fs::create_directory_symlink("loop", "loop", noLinks);
    if (!noLinks) {
        EXPECT_THAT(Run("export oil.qff --format csv -o loop"),
                    HasSubstr("loop could not be written.\n"));
    }
    EXPECT_THAT(Run("export oil.qff --format csv -o taken"),
                AllOf(HasSubstr(" oil limits "), HasSubstr("taken could not be written.\n")));
    EXPECT_THAT(Print("day.qff --forms 1 --output-dir a.prn"),
                StartsWith("File Error: a.prn could not be written.\n"));
}

TEST_F(BatchCommand, Helps) {
    EXPECT_THAT(Run(""), HasSubstr("Exit status:"));
    for (const std::string command : {"", " load", " print", " show", " check", " export"}) {
        EXPECT_THAT(
            Run(command + (command.empty() ? "" : " --nonsense") + " --help"),
            AllOf(StartsWith("[0]"), HasSubstr("Usage: qfrbatch" + command + " [OPTIONS]")));
    }
}

TEST_F(BatchCommand, WritesFindingsAsJson) {
    EXPECT_THAT(Run("check day.qff --format json"),
                AllOf(StartsWith("[1]{\n  \"batches\": [\n    {\n      \"batch\": \"day.qff\",\n"),
                      HasSubstr(R"(        {
          "rule": "header.sample-twice",
          "severity": "error",
          "form": "1",
          "samples": [
            "S1"
          ],
          "subject": "",
          "sentence": "c.prn has the sample number of b.prn.",
          "why": "Samples are told from each other by their number alone.",
          "mend": {
            "where": "Form 1 Header, ZOV Sample No.",
            "control": "ZOVComboBox",
            "row": 0
          }
        },)")));
    platform_.startFailure = "no typeface";
    EXPECT_EQ(Run("check day.qff"), "qfrbatch: no typeface\n[2]");
}

TEST_F(BatchCommand, NamesTheBatchOfSeveral) {
    Report("t.prn", "T1");
    Run("load --blank blank.prn --cal day.cal --check day.check -o two.qff t.prn");
    Print("two.qff day.qff --forms 1 -o x.pdf --sample S2 T1");
    EXPECT_THAT(platform_.forms, ElementsAre("two: Form I VOA", "day: Form I VOA"));
    EXPECT_THAT(Run("show day.qff two.qff"),
                AllOf(StartsWith("[0]Batch file day.qff\n\nSample 1 of 4 (lab blank)\n"),
                      HasSubstr("\n\nBatch file two.qff\n\nSample 1 of 2 (lab blank)\n")));
    fs::remove("t.prn");
    EXPECT_THAT(Print("day.qff two.qff --forms 1 -o x.pdf --sample T1 S2"),
                AllOf(StartsWith("two.qff: File Not Found: "),
                      testing::EndsWith("[1]Form 1 S2: [Form 1 S2 1]")));
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

TEST_F(BatchCommand, ShowsEveryValueUnderItsName) {
    EXPECT_EQ(Run("show " + TestData("full/full.qff").string()),
              "[0]" + ReadAll(TestData("full/shown.txt")));
}

TEST_F(BatchCommand, SaysWhatItCannotPrint) {
    Report("a.prn", "S3", 2);
    EXPECT_THAT(Print("day.qff --forms 1 -o x.pdf --sample S2"),
                AllOf(HasSubstr("Compound rows: 2 instead of 1. Sample ID: S3 instead of S2. "),
                      testing::EndsWith("\n[1]Form 1 S2: [Form 1 S2 1]")));
    fs::remove("a.prn");
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf"),
              "File Not Found: " + Stored("a.prn") +
                  " could not be found.  Use Data Files|Load Files menu option to relocate file\n"
                  "[1]day: [Form 1 VBLK01 1] [Form 1 S1 2] [Form 1 S1 1]");
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
    Run("print day.qff " + steered + ".qff --forms 1 --sample S1 --output-dir new");
    EXPECT_TRUE(fs::exists("new/S?[2J??"));
}

TEST_F(BatchCommand, EndsBetweenTwoJobsWhenItIsAskedTo) {
    const std::string ended = "qfrbatch: ended before all was done\n[1]";
    platform_.worksFor = 1;
    EXPECT_EQ(Print("day.qff --forms 1 -o x.pdf"), ended);
    platform_.worksFor = 1;
    EXPECT_THAT(Run("export day.qff --format csv -o new"), testing::EndsWith(ended));
    EXPECT_FALSE(fs::exists("new"));
    platform_.worksFor = 2;  // files
    EXPECT_EQ(Run("print day.qff --forms 1 --output-dir new"), ended);
    EXPECT_EQ(std::distance(fs::directory_iterator("new"), {}), 2);
    platform_.worksFor = 0;
    EXPECT_EQ(Run("load -o x.qff a.prn"), ended);
    EXPECT_FALSE(fs::exists("x.qff"));
}

}  // namespace
}  // namespace qfr::test
