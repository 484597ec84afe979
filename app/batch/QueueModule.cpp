#include "app/batch/Modules.h"
#include "platform/posix/Cups.h"

namespace qfr {

namespace {

class Module : public QueueModule {
  public:
    std::vector<std::string> Printers() override { return CupsQueues(); }
    std::optional<std::string> Print(const PrintJob& job, const std::string& pdf,
                                     const std::string& printer) override {
        return PrintWithCups({job.title, job.paper, pdf}, printer);
    }
};

}  // namespace

}  // namespace qfr

extern "C" [[gnu::visibility("default")]] qfr::QueueModule* QfrQueueModule() {
    return std::make_unique<qfr::Module>().release();
}
