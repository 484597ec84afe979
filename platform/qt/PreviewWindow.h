// The preview of print jobs: their pages, zoom, paging, printing and saving as PDF.
#pragma once

#include <string>
#include <vector>

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QSpinBox>

#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "platform/qt/PageView.h"
#include "platform/qt/PdfSaver.h"

namespace qfr {

// Modal, so that it works above the modal entry dialogs too.
class PreviewWindow : public QDialog {
    Q_OBJECT

  public:
    // `title` is what the jobs are called together. At least one job; none is without pages.
    PreviewWindow(std::vector<PrintJob> jobs, const std::string& title, Typeface& typeface,
                  PdfSaver& pdfSaver, Messages& messages, QWidget* parent);

  private:
    void AddKeys();
    void ShowPageNumber(int page);  // from 0; and the form that it belongs to
    void ZoomChosen(int index);     // in the list
    void ZoomBy(int steps);         // of the list's percentages
    void Print();
    void SaveAsPdf();

    const std::vector<PrintJob> jobs_;
    std::vector<int> firstPages_;  // of the jobs, from 0
    int pageCount_ = 0;
    const std::string title_;
    Typeface& typeface_;
    PdfSaver& pdfSaver_;
    Messages& messages_;
    PageView* view_;
    QPushButton* previousButton_;
    QPushButton* nextButton_;
    QSpinBox* pageEdit_;
    QComboBox* zoomCombo_;
    QComboBox* formCombo_;  // a job a line
};

}  // namespace qfr
