#include <cstdlib>
#include <cups/cups.h>

#include <QDir>
#include <QImage>

#include "app/HeadlessHost.h"
#include "forms/Form5Content.h"
#include "forms/Form6Content.h"
#include "platform/qt/DesktopSink.h"
#include "platform/qt/PdfFile.h"
#include "tests/ui/PdfSupport.h"
#include "tests/ui/WindowRig.h"

namespace qfr::test {
namespace {

std::vector<QImage> Raster(const std::string& pdf) {
    const QByteArray all = DescribedBy("pdftoppm", {"-gray", "-r", "150"}, pdf);
    const qsizetype size = all.size() / PagesOf(pdf);
    std::vector<QImage> pages;
    for (qsizetype at = 0; at < all.size(); at += size) {
        pages.push_back(QImage::fromData(all.mid(at, size)));
    }
    return pages;
}

// Dots of a page that have none of the other's within 1/75 inch: a printer's driver rounds places
// and the thickness of rules to its own dots.
int StrayDots(const QImage& page, const QImage& other) {
    int count = 0;
    for (int dot = 0; dot < page.width() * page.height(); ++dot) {
        const auto [y, x] = std::div(dot, page.width());
        bool stray = qGray(page.pixel(x, y)) < 128;
        for (int near = 0; near < 25 && stray; ++near) {
            stray = qGray(other.pixel(x + near % 5 - 2, y + near / 5 - 2)) >= 128;
        }
        count += stray ? 1 : 0;
    }
    return count;
}

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
    FormFonts fonts;
    QtTextMetrics metrics{fonts};
    MessageLog messages;
    HeadlessHost host{saved, metrics, messages};
    ChooserScript chooser;
    DesktopSink sink{fonts, chooser, messages};

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
        const auto own = Raster(RenderPdf({job}, job.title, fonts).toStdString());
        Print(kLab, job);
        EXPECT_EQ(PrintInBatch(job, "Lab"), std::pair(0, std::string()));
        EXPECT_EQ(Printed("Lab"), titles += job.title + job.title);
        ASSERT_EQ(tray.entryList(QDir::Files).size(), 2);
        for (const QFileInfo& file : tray.entryInfoList(QDir::Files)) {
            const auto printed = Raster(ReadAll(file.filePath().toStdString()));
            QFile::remove(file.filePath());
            ASSERT_EQ(printed.size(), own.size());
            for (std::size_t i = 0; i < own.size(); ++i) {
                const QImage lying =
                    own[i].transformed(QTransform().rotate(driver == Form6CIDClick ? -90 : 0));
                // A full stop has six dots.
                EXPECT_LE(StrayDots(lying, printed[i]) + StrayDots(printed[i], lying), 5);
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
