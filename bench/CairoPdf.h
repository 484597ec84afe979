// A yardstick: recorded jobs painted with cairo, their texts with cairo_show_glyphs, which takes a
// tenth less time than cairo_show_text.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/PrintJob.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

class CairoPdf {
  public:
    // The typeface outlives this; its glyphs are those of the file that cairo takes.
    explicit CairoPdf(Typeface& typeface);
    ~CairoPdf();
    CairoPdf(const CairoPdf&) = delete;
    CairoPdf& operator=(const CairoPdf&) = delete;

    // All pages as one document, without an outline; empty after a failure.
    std::string Document(const std::vector<PrintJob>& jobs);

  private:
    struct Fonts;
    Typeface& typeface_;
    std::unique_ptr<Fonts> fonts_;
};

}  // namespace qfr
