// The preview of a print job: its pages, zoom, paging, printing and saving as PDF.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QSpinBox>

#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "platform/qt/PageView.h"
#include "platform/qt/PdfSaver.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

// Modal, so that it works above the modal entry dialogs too.
class PreviewWindow : public QDialog {
    Q_OBJECT

  public:
    PreviewWindow(PrintJob job, FormFonts& fonts, PdfSaver& pdfSaver, Messages& messages,
                  QWidget* parent);

  private:
    void AddKeys();
    void ShowPageNumber(int page);  // from 0
    void ZoomChosen(int index);     // in the list
    void ZoomBy(int steps);         // of the list's percentages
    void Print();
    void SaveAsPdf();

    const PrintJob job_;
    FormFonts& fonts_;
    PdfSaver& pdfSaver_;
    Messages& messages_;
    PageView* view_;
    QPushButton* previousButton_;
    QPushButton* nextButton_;
    QSpinBox* pageEdit_;
    QComboBox* zoomCombo_;
};

}  // namespace qfr
