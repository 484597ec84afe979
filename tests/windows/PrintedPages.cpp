// Forms on a printer of the system. printing.sh gives it one and looks at the paper.
#include <cstdlib>
#include <fstream>

#include "app/HeadlessHost.h"
#include "forms/Form5Content.h"
#include "forms/Form6Content.h"
#include "platform/pdf/PdfFile.h"
#include "platform/qt/PrinterQueue.h"
#include "tests/Support.h"

namespace qfr::test {
namespace {

struct PrinterTest : testing::Test {
    CalibratedRun run{7, 30};
    MessageLog messages;
    std::unique_ptr<Typeface> typeface = Typeface::Load();
    HeadlessHost host{{run.host.batch, run.host.entries}, *typeface, messages};

    PrintJob JobOf(void (*driver)(FormHost&)) {
        driver(host);
        return host.CollectJob().value();
    }
};

TEST_F(PrinterTest, PrintsUprightAndTurnedPages) {
    ASSERT_EQ(InstalledPrinters(), std::vector<std::string>{"Lab"});
    PrintJob job = JobOf(Form5IPCClick);
    PrintJob turned = JobOf(Form6CIDClick);
    job.pages.push_back(turned.pages.front());
    job.pages.push_back(job.pages.front());
    PdfFile pdf(*typeface);
    pdf.Add(job);
    EXPECT_EQ(pdf.Write(job.title, "own.pdf"), std::nullopt);
    EXPECT_EQ(PrintOnQueue(job, "Lab", *typeface), std::nullopt);
}

TEST_F(PrinterTest, TellsThatThePrinterIsGone) {
    EXPECT_EQ(PrintOnQueue(JobOf(Form5IPCClick), "Gone", *typeface),
              "The printer is not installed any more.");
}

}  // namespace
}  // namespace qfr::test
