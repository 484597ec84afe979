// Takes the desktop program's print jobs to the chosen printer, to a PDF file or to the preview.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/FileChooser.h"
#include "platform/JobSink.h"
#include "platform/Messages.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

inline const std::string kPdfPrinter = "PDF file";
inline const std::string kPreviewPrinter = "Screen preview";

class DesktopSink : public JobSink {
  public:
    DesktopSink(FormFonts& fonts, FileChooser& chooser, Messages& messages)
        : fonts_(fonts), chooser_(chooser), messages_(messages) {}

    // Installed printers, then "PDF file", then "Screen preview". Indexes of the jobs refer to it.
    const std::vector<std::string>& Printers();
    // The window that preview windows belong to.
    void SetParent(QWidget* parent) { parent_ = parent; }

    bool BeginJob(int printerIndex, const std::string& title) override;
    void TakeJob(int printerIndex, PrintJob job) override;

  private:
    FormFonts& fonts_;
    FileChooser& chooser_;
    Messages& messages_;
    QPointer<QWidget> parent_;
    std::vector<std::string> printers_;
    std::string pdfFile_;       // of the job being recorded
    std::string pdfDirectory_;  // last used
};

// A title as a file name: without the characters that file systems refuse.
std::string FileNameForTitle(const std::string& title);

}  // namespace qfr
