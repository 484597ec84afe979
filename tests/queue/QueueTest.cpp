#include <cstdlib>
#include <cups/cups.h>

#include <QDir>
#include <QProcess>

#include "app/HeadlessHost.h"
#include "forms/Form5Content.h"
#include "forms/Form6Content.h"
#include "platform/qt/DesktopSink.h"
#include "tests/pdf/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

// Titles of what the queue printed so far, when it has nothing more to print.
std::string Printed(const std::string& queue) {
    const std::string wait =
        "timeout 20 sh -c 'while lpstat -o " + queue + " | grep -q .; do :; done'";
    EXPECT_EQ(std::system(wait.c_str()), 0);
    cups_job_t* jobs = nullptr;
    const int count = cupsGetJobs(&jobs, queue.c_str(), 0, CUPS_WHICHJOBS_ALL);
    std::string titles;
    for (int i = 0; i < count; ++i) {
        titles += jobs[i].state == IPP_JSTATE_COMPLETED ? jobs[i].title : "failed";
    }
    cupsFreeJobs(count, jobs);
    return titles;
}

// Runs beside the print daemon of with-cups.sh.
struct QueueTest : testing::Test {
    enum Queues { kLab, kSpare };

    // Exit code and messages of qfrbatch.
    std::pair<int, std::string> PrintInBatch(const PrintJob& job, const char* queue) const {
        QProcess program;
        program.start(qEnvironmentVariable("QFR_BATCH"),
                      {"print", batch.c_str(), "--forms", job.title.substr(5, 1).c_str(),
                       "--printer", queue});
        EXPECT_TRUE(program.waitForFinished());
        return {program.exitCode(), program.readAllStandardError().toStdString()};
    }

    CalibratedRun run{7, 30};
    SavedBatch saved{run.host.batch, run.host.entries};
    std::string batch = run.dir.Write("run.qff", SaveBatch(saved.Batch, saved.Entries));
    MessageLog messages;
    HeadlessHost host{saved, FormsTypeface(), messages};
    ChooserScript chooser;
    SettingsDir settings{run.dir.Path(), run.dir.Path()};
    Remembered memory{settings};
    PrintLog noted;
    DesktopSink sink{FormsTypeface(), chooser, messages, noted, memory};

    void Print(int printer, const PrintJob& job) {
        EXPECT_TRUE(sink.BeginJob(printer, job.title));
        sink.TakeJob(printer, job);
    }
};

TEST_F(QueueTest, PagesLieOnThePaperAsTheirPdfFileShowsThem) {
    const QDir tray(qEnvironmentVariable("QFR_PRINTED"));
    std::string titles;
    for (auto* const driver : {Form5IPCClick, Form6CIDClick}) {
        driver(host);
        const PrintJob job = host.CollectJob().value();
        const auto own = Raster(PdfOf({job}, job.title));
        Print(kLab, job);
        EXPECT_EQ(PrintInBatch(job, "Lab"), std::pair(0, std::string()));
        EXPECT_EQ(Printed("Lab"), titles += job.title + job.title);
        ASSERT_EQ(tray.entryList(QDir::Files).size(), 2);
        for (const QFileInfo& file : tray.entryInfoList(QDir::Files)) {
            const auto printed = Raster(ReadAll(file.filePath().toStdString()));
            QFile::remove(file.filePath());
            ASSERT_EQ(printed.size(), own.size());
            for (std::size_t i = 0; i < own.size(); ++i) {
                const Picture lying = driver == Form6CIDClick ? own[i].Turned() : own[i];
                EXPECT_LE(StrayDots(lying, printed[i]), 5);
            }
        }
    }
}

TEST_F(QueueTest, TellsWhatAQueueRefusesAndLeavesNothingInIt) {
    constexpr const char* kFaults[][4] = {
        {"cupsdisable Spare", "The printer is stopped.", "is stopped", "cupsenable Spare"},
        {"cupsreject Spare", "The printer takes no jobs.", "takes no jobs", "cupsaccept Spare"},
        {"lpadmin -x Spare", "The printer is not installed any more.", "there is no printer", ""},
        {"kill -9 $QFR_DAEMON; sleep 0.3", "The print service does not answer.", "none is", ""},
    };
    Form5IPCClick(host);
    const PrintJob job = host.CollectJob().value();
    for (std::string titles; const auto& [cause, reason, batchSays, cure] : kFaults) {
        EXPECT_EQ(std::system(cause), 0);
        Print(kSpare, job);
        EXPECT_EQ(messages.TakeTexts().at(0),
                  job.title + " could not be printed on Spare.\n" + reason);
        EXPECT_THAT(PrintInBatch(job, "Spare"),
                    testing::Pair(*cure ? 1 : 2, testing::HasSubstr(batchSays)));
        if (*cure) {
            EXPECT_EQ(std::system(cure), 0);
            EXPECT_EQ(Printed("Spare"), titles) << cause;
            Print(kSpare, job);
            EXPECT_EQ(Printed("Spare"), titles += job.title) << cure;
        }
    }
}

}  // namespace
}  // namespace qfr::test
