// The preview of print jobs: their pages, zoom, paging, search, printing and saving as PDF.
#pragma once

#include <string>
#include <vector>

#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QSpinBox>

#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "platform/PrintLog.h"
#include "platform/pdf/Typeface.h"
#include "platform/qt/PageSearch.h"
#include "platform/qt/PageThumbnails.h"
#include "platform/qt/PageView.h"
#include "platform/qt/PdfSaver.h"
#include "platform/qt/Remembered.h"

namespace qfr {

// What the preview runs on. All outlive it.
struct PreviewServices {
    qfr::Typeface& Typeface;
    PdfSaver& Saver;
    qfr::Messages& Messages;
    PrintLog& Printed;
    Remembered& Memory;
};

// Modal, so that it works above the modal entry dialogs too.
class PreviewWindow : public QDialog {
    Q_OBJECT

  public:
    // `title` is what the jobs are called together. At least one job; none is without pages. The
    // first page that is not empty shows.
    PreviewWindow(std::vector<PrintJob> jobs, const std::string& title,
                  const PreviewServices& services, QWidget* parent);

  protected:
    // Escape closes the search first.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void AddControls();
    void ListForms();
    void Connect();
    void AddKeys();
    void ShowPageNumber(int page);  // from 0; and the form that it belongs to
    void ShowRememberedZoom();
    void ZoomChosen(int index);  // in the list
    void ZoomBy(int steps);      // of the list's percentages
    void Print();
    void SaveAsPdf();
    std::vector<std::string> Titles(std::size_t jobs) const;  // of the first so many

    const std::vector<PrintJob> jobs_;
    std::vector<int> firstPages_;  // of the jobs, from 0
    int pageCount_ = 0;
    const std::string title_;
    const PreviewServices services_;
    PageView* view_;
    PageThumbnails* thumbnails_;
    PageSearch* search_;
    QPushButton* printButton_ = nullptr;
    QPushButton* saveButton_ = nullptr;
    QPushButton* findButton_ = nullptr;
    QPushButton* thumbnailsButton_ = nullptr;
    QPushButton* closeButton_ = nullptr;
    QPushButton* previousButton_ = nullptr;
    QPushButton* nextButton_ = nullptr;
    QSpinBox* pageEdit_;
    QComboBox* zoomCombo_;
    QComboBox* formCombo_;  // a job a line
};

}  // namespace qfr
