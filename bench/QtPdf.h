// A yardstick: recorded jobs painted on a QPdfWriter. Needs a QGuiApplication.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <QByteArray>
#include <QRawFont>

#include "platform/PrintJob.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

class QtPdf {
  public:
    // The typeface outlives this; its glyphs are those of the font that Qt finds.
    explicit QtPdf(Typeface& typeface);

    // All pages as one document, without an outline; empty after a failure.
    QByteArray Document(const std::vector<PrintJob>& jobs);

  private:
    const QRawFont& FontAt(int points);

    Typeface& typeface_;
    QRawFont font_;
    std::map<int, QRawFont> sizes_;  // kept from document to document
};

}  // namespace qfr
