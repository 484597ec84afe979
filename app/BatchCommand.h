// The companion command: loads, prints and shows batches without a display. Its options select work
// and never change a page.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/PrintJob.h"
#include "platform/TextMetrics.h"

namespace qfr {

// What the command needs of the system for printing; nothing else of it may need a window system.
// Texts are UTF-8. A result is the reason of a failure, absent on success.
class BatchPlatform {
  public:
    virtual ~BatchPlatform() = default;
    // Comes before everything else, once; nothing can be printed after a failure.
    virtual std::optional<std::string> Start() = 0;
    virtual TextMetrics& Metrics() = 0;
    // Writes the jobs' pages, in order, as one PDF file; the file is there whole or not at all.
    virtual std::optional<std::string> WritePdf(const std::vector<PrintJob>& jobs,
                                                const std::string& title,
                                                const std::string& fileName) = 0;
    // A job's title as a file name without an extension.
    virtual std::string FileNameForTitle(const std::string& title) = 0;
    virtual std::vector<std::string> Printers() = 0;
    virtual std::optional<std::string> PrintOnQueue(const PrintJob& job,
                                                    const std::string& printer) = 0;
};

// Runs the command with its arguments (UTF-8, without the program's name) and returns its exit
// code: 0 when all was done, 1 when something was left out, 2 for wrong usage or an unusable batch.
int RunBatchCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                    BatchPlatform& platform);

}  // namespace qfr
