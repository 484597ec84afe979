#include "app/batch/Modules.h"
#include "platform/pdf/PdfFile.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

namespace {

class Module : public PdfModule {
  public:
    explicit Module(std::unique_ptr<Typeface> typeface) : typeface_(std::move(typeface)) {}

    TextMetrics& Metrics() override { return *typeface_; }
    std::unique_ptr<PdfWriter> NewPdf() override { return std::make_unique<PdfFile>(*typeface_); }
    std::string PdfForQueue(const PrintJob& job, std::string& reason) override {
        return qfr::PdfForQueue(job, *typeface_, reason);
    }

  private:
    std::unique_ptr<Typeface> typeface_;
};

}  // namespace

}  // namespace qfr

extern "C" [[gnu::visibility("default")]] qfr::PdfModule* QfrPdfModule() {
    auto typeface = qfr::Typeface::Load();
    return typeface ? std::make_unique<qfr::Module>(std::move(typeface)).release() : nullptr;
}
