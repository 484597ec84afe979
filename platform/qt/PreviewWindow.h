// The preview of a print job: its pages, zoom, paging, printing and saving as PDF.
#pragma once

#include <QDialog>

#include "platform/FileChooser.h"
#include "platform/Messages.h"
#include "platform/PrintJob.h"
#include "platform/qt/QtTextMetrics.h"

namespace qfr {

// Modal, so that it works above the modal entry dialogs too.
class PreviewWindow : public QDialog {
    Q_OBJECT

  public:
    PreviewWindow(PrintJob job, FormFonts& fonts, FileChooser& chooser, Messages& messages,
                  QWidget* parent);
};

}  // namespace qfr
