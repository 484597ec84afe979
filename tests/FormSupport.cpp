#include "tests/FormSupport.h"

#include <algorithm>
#include <cstdlib>

namespace qfr::test {

namespace {

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
