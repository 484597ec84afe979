#include "tests/CalibratedRun.h"

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

std::string SampleText(const std::string& area, const std::string& rt) {
    std::string text = "----------     Internal Standard Data     ----------\nName;Area;RT\n";
    for (const std::string_view name : InternalStandardNames) {
        text += std::string(name) + ";" + area + ";" + rt + "\n";
    }
    return text;
}

std::vector<std::size_t> CountsEndingAt(const PrintJob& job, double x) {
    std::vector<std::size_t> counts;
    for (const JobPage& page : job.pages) {
        counts.push_back(TextsEndingAt(page, x).size());
    }
    return counts;
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
    for (const std::string_view standard : InternalStandardNames) {
        calibration += Block(std::string(standard), levels, "I");
        check += "0;" + std::string(standard) + ";1;x;50.00;x;x;1;0.0;1000.9;7.25\n";
    }
    FileSet& files = host.batch.Files;
    files.Calib = dir.Write("RUN.CAL", calibration);
    files.CheckCal = dir.Write("RUN.CHECK", check);
    host.batch.SampleList.emplace();
    for (int i = 1; i <= samples; ++i) {
        const std::string name = "S" + Number(i);
        files.QFiles.push_back(dir.Write(name + ".PRN", SampleText("1000.9", "7.25")));
        host.batch.SampleList->push_back(CompleteRecord(name, files.QFiles.back()));
    }
    host.entries.ContinuingCalibration.CriteriaFile = dir.Write(
        "CRITERIA.TXT", "RF Criteria\nCompound-1;0.1;25\ncompound-2; 0.2\ncompound-1;9;99\n");
}

std::vector<std::string> CalibratedRun::Run(void (*driver)(FormHost&), EntryDialog dialog,
                                            bool ok) {
    host.dialogs = {[dialog, ok](EntryDialog shown) {
        EXPECT_EQ(shown, dialog);
        return ok;
    }};
    driver(host);
    std::vector<std::string> titles;
    for (const Message& message : std::exchange(host.messages.shown, {})) {
        titles.push_back(message.title);
    }
    return titles;
}

}  // namespace qfr::test
