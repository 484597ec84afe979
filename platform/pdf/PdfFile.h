// PDF output: US Letter or the job's paper, full page, searchable text, for the archive (PDF/A-2u).
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/FileReplace.h"
#include "platform/JobSink.h"
#include "platform/PrintJob.h"
#include "platform/pdf/PageContent.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

// One document, job by job. Of a job that has been added only its compressed pages are kept.
class PdfFile : public PdfWriter {
  public:
    explicit PdfFile(Typeface& typeface, Landscape landscape = Landscape::kUpright);
    ~PdfFile() override;
    PdfFile(const PdfFile&) = delete;
    PdfFile& operator=(const PdfFile&) = delete;

    void Add(const PrintJob& job) override;
    bool HasPages() const override;

    // The whole document, once; nothing can be added behind it. Of several jobs it has an outline,
    // form, then sample, each leading to its first page that shows something. Empty after a
    // failure, whose reason is in `reason`.
    std::string Content(const std::string& title, std::string& reason);
    std::optional<std::string> Write(const std::string& title, const std::string& fileName,
                                     ReadOnlyFile readOnly = ReadOnlyFile::kStays) override;

  private:
    struct Document;
    std::unique_ptr<Document> document_;
};

// A job as its pages lie on the paper in a printer. Empty after a failure, whose reason is in
// `reason`.
std::string PdfForQueue(const PrintJob& job, Typeface& typeface, std::string& reason);

// Names and versions of the libraries that make the file.
std::string PdfLibraries();

}  // namespace qfr
