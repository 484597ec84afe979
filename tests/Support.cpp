#include "tests/Support.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

#include "app/BatchFile.h"
#include "forms/FormList.h"
#include "platform/FileLookup.h"
#include "platform/LineReader.h"
#include "platform/PrintJob.h"

namespace qfr::test {

namespace fs = std::filesystem;

namespace {

// Of Times New Roman and Liberation Serif, in units of which an em has 2048; advance widths from
// " " to "~".
constexpr int kUnitsPerEm = 2048;
constexpr int kAscent = 1825;
constexpr int kDescent = 443;
constexpr int kAdvances[] = {
    512,  682,  836,  1024, 1024, 1706, 1593, 369,  682,  682,  1024, 1155, 512,  682,  512,  569,
    1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 1024, 569,  569,  1155, 1155, 1155, 909,
    1886, 1479, 1366, 1366, 1479, 1251, 1139, 1479, 1479, 682,  797,  1479, 1251, 1821, 1479, 1479,
    1139, 1479, 1366, 1139, 1251, 1479, 1479, 1933, 1479, 1479, 1251, 682,  569,  682,  961,  1024,
    682,  909,  1024, 909,  1024, 909,  682,  1024, 1024, 569,  569,  1024, 569,  1593, 1024, 1024,
    1024, 1024, 682,  797,  569,  1024, 1024, 1479, 1024, 1024, 909,  983,  410,  983,  1108};

double PixelsPerUnit(int points) {
    return points * kResolution / 72.0 / kUnitsPerEm;
}

std::string Number(int value) {
    return std::to_string(value);
}

std::string Block(const std::string& name, int levels, const char* kind) {
    std::string line = name;
    for (int k = 1; k <= levels; ++k) {
        line += ";" + Number(10 * k) + ".00;1.5;0.3;" + Number(8 + 2 * k) + ".4;85;" +
                Number(1000 * k) + ".9";
    }
    return line + ";1111111111;CAS\nline 2\n" + kind + "\n";
}

}  // namespace

bool MessageLog::AskYesNo(const Message& question) {
    shown.push_back(question);
    noByDefault = question.noByDefault;
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected question: " << question.text;
        return false;
    }
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

std::vector<std::string> MessageLog::Take(std::string Message::*part) {
    std::vector<std::string> parts;
    for (const Message& message : std::exchange(shown, {})) {
        parts.push_back(message.*part);
    }
    return parts;
}

TempDir::TempDir() {
    do {
        path_ = fs::temp_directory_path() / ("qfr-test-" + std::to_string(std::random_device()()));
    } while (!fs::create_directory(path_));
    fs::permissions(path_, fs::perms(0755));
}

TempDir::~TempDir() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempDir::Write(std::string_view name, std::string_view content) const {
    fs::path file = path_ / PathOf(name);
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
    return TextOf(file);
}

std::string ReportText::Text() const {
    std::string text = "QUANTITATION REPORT  Tallyworks Version 4.2\n" + header +
                       "Compound#;Name;Conc;;;Q;Area;CAS\n";
    for (int row = 1; row <= rows; ++row) {
        text += std::to_string(row) + ";Compound;5.04;;;;1200;71-43-2\n";
    }
    return text + afterRows;
}

std::string EndlessLine() {
    std::string line;
    line.resize(50'000'000, 'x');
    return line;
}

std::string ReadAll(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

fs::path ExampleDir() {
    return fs::path(QFR_SOURCE_DIR) / "example";
}

fs::path TestData(std::string_view name) {
    return fs::path(QFR_SOURCE_DIR) / "tests/data" / name;
}

int TimesMetrics::TextWidth(std::string_view utf8, int points) {
    constexpr std::string_view kAccented = "\u00e9";
    int units = 0;
    while (!utf8.empty()) {
        const bool accented = utf8.starts_with(kAccented);
        const auto index = static_cast<std::size_t>(accented ? 'e' : utf8.front()) - ' ';
        if (index >= std::size(kAdvances)) {
            ADD_FAILURE() << "the typeface lacks a character: " << utf8;
            break;
        }
        units += kAdvances[index];
        utf8.remove_prefix(accented ? kAccented.size() : 1);
    }
    return static_cast<int>(std::lround(units * PixelsPerUnit(points)));
}

int TimesMetrics::TextHeight(int points) {
    return static_cast<int>(std::lround(kAscent * PixelsPerUnit(points)) +
                            std::lround(kDescent * PixelsPerUnit(points)));
}

std::vector<ApprovedBatch> ApprovedBatches() {
    return {{"example", ExampleDir() / "example.qff", 4},
            {"wrapped", TestData("wrapped/wrapped.qff"), 4},
            {"landscape", TestData("landscape/landscape.qff"), 3, true},
            {"damaged", TestData("damaged/damaged.qff"), 4}};
}

void PrintApproved(const ApprovedBatch& batch, TextMetrics& metrics,
                   const std::function<void(const FormRow& form, const std::optional<PrintJob>& job,
                                            const std::vector<Message>& messages)>& take) {
    SavedBatch saved = std::get<SavedBatch>(
        RestoreBatch(LineReader::Open(batch.file).value(), TextOf(batch.file)));
    if (batch.uncheckedCalibration) {
        saved.Batch.Files.CheckCal.clear();
    }
    PackageChoice choice{.samples = std::vector<bool>(batch.samples, true)};
    choice.forms.assign(kForms.size(), true);
    const std::vector<PackageWork> works = PlanPackage(saved.Batch, choice);
    MessageLog messages;
    HeadlessHost host(std::move(saved), metrics, messages);
    for (const PackageWork& work : works) {
        const auto job = PrintWork(host, work);
        take(*work.form, job, std::exchange(messages.shown, {}));
    }
}

ScriptedHost::ScriptedHost() {
    printer.Printers = {"PDF file"};
    page.testPrinter();
}

SampleRecord CompleteRecord(const std::string& sampleNo, const std::string& fileName) {
    SampleRecord record;
    record.FileName = fileName;
    for (int number = 1; number <= SampleHeader::kCount; ++number) {
        std::string& value = record.Header[HeaderFieldAt(number)];
        value = value.empty() ? "v" + std::to_string(number) : value;
    }
    record.Header[HeaderField::kZovSampleNo] = sampleNo;
    return record;
}

bool HasText(const JobPage& page, std::string_view text) {
    return std::ranges::any_of(page.items, [text](const PageItem& item) {
        const auto* found = std::get_if<TextItem>(&item);
        return found != nullptr && found->text == text;
    });
}

std::vector<std::string> TextsAt(const JobPage& page, double x) {
    std::vector<std::string> texts;
    for (const PageItem& item : page.items) {
        const auto* found = std::get_if<TextItem>(&item);
        if (found != nullptr && std::abs(found->x - x * kResolution) <= 1.5) {
            texts.push_back(found->text);
        }
    }
    return texts;
}

CalibratedRun::CalibratedRun(int levels, int compounds, int samples) {
    calibration = levels == 0 ? "Date\nNo data files" : "Date\nData File(s):\n";
    for (int k = 1; k <= levels; ++k) {
        const std::string name = "STD" + Number(k) + ".D";
        dir.Write(name, "DATA FILE\n05/16/2005 " + Number(k) + ":00\nC:\\RUN\\" + name + "\n");
        calibration += "C:\\RUN\\" + name + ";";
    }
    calibration += "\n\nCalibration Data\n\n";
    check = "Check\n\n\n\n\nData File: C:\\RUN\\CHK.D\n\nN;Compound\n------\n";
    dir.Write("CHK.D", "DATA FILE\n05/18/2005 8:46 AM\nC:\\RUN\\CHK.D\n");
    for (int i = 1; i <= compounds; ++i) {
        const std::string name = "Compound-" + Number(i);
        calibration += Block(name, levels, "A");
        check += Number(i) + ";" + name + ";12.5;x;50.00;x;x;11.4;-8.8;77.0;1.5\n";
    }
    std::string sample = "----------     Internal Standard Data     ----------\nName;Area;RT\n";
    for (const std::string_view standard : InternalStandardNames) {
        sample += std::string(standard) + ";1000.9;7.25\n";
        calibration += Block(std::string(standard), levels, "I");
        check += "0;" + std::string(standard) + ";1;x;50.00;x;x;1;0.0;1000.9;7.25\n";
    }
    FileSet& files = host.batch.Files;
    files.Calib = dir.Write("RUN.CAL", calibration);
    files.CheckCal = dir.Write("RUN.CHECK", check);
    files.LabBlank = "c:\\run\\s1.prn";
    host.batch.SampleList.emplace();
    for (int i = 1; i <= samples; ++i) {
        const std::string name = "S" + Number(i);
        files.QFiles.push_back(dir.Write(name + ".PRN", sample));
        host.batch.SampleList->push_back(CompleteRecord(name, files.QFiles.back()));
        host.batch.SampleList->back().Header[HeaderField::kDateAnalyzed] =
            i == 1 ? "05/18/2005 09:00" : "05/18/2005 21:01";
    }
    host.entries.Tune = {"BFB01", "typed",
                         "BFB.D", "05/18/2005",
                         " 8:00", {"18.1", "81", "100", "6.6", "2.01", "75", "7.1", "97.5", "6.7"}};
    host.entries.ContinuingCalibration.CriteriaFile = dir.Write(
        "CRITERIA.TXT", "RF Criteria\nCompound-1;0.1;25\ncompound-2; 0.2\ncompound-1;9;99\n");
}

std::string CalibratedRun::PrintAll(JobLog& sink, std::string_view only) {
    PackageChoice choice{.samples = std::vector<bool>(host.batch.SampleList->size(), true)};
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        choice.forms[i] = only.empty() || kForms[i].name == only;
    }
    const std::vector<PackageWork> works = PlanPackage(host.batch, choice);
    const auto package = sink.BeginPackage(0, "Package");
    const auto goesOn = [](std::size_t) { return true; };
    std::string notes;
    const auto outcome = PrintPackage(host, host.metrics, works, *package, goesOn);
    for (const PackageNote& note : outcome.notes) {
        notes += std::string(note.work->form->name) + (note.printed ? " did: " : ": ") + note.text;
    }
    return notes;
}

std::vector<std::string> CalibratedRun::Run(void (*driver)(FormHost&)) {
    driver(host);
    return host.messages.TakeTitles();
}

const JobPage& CalibratedRun::FirstPage(void (*driver)(FormHost&)) {
    EXPECT_EQ(Run(driver), std::vector<std::string>());
    return host.sink.jobs.at(0).pages.at(0);
}

}  // namespace qfr::test
