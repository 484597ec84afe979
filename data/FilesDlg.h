// The Load Files dialog, where a batch is put together. It holds the batch for the whole run.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QDialog>

#include "data/Batch.h"
#include "data/LoadFiles.h"
#include "platform/Messages.h"
#include "platform/WindowServices.h"

namespace Ui {
class TFilesDlg;
}

namespace qfr {

// What the dialog asks of the main window.
class FilesDlgOwner : public BatchOwner {
  public:
    virtual BatchFlags& Flags() = 0;
    // Offers to save the batch when there is one.
    virtual void OfferSave() = 0;
};

class TFilesDlg : public QDialog {
    Q_OBJECT

  public:
    TFilesDlg(FilesDlgOwner& owner, WindowServices& services, Messages& messages);
    ~TFilesDlg() override;

    qfr::Batch& Batch() { return batch_; }
    // Shows what the batch holds after it was replaced from outside.
    void ShowFileSet();
    // Shows the dialog with the focus in a control, and the report of a record of SampleList chosen
    // in the list of reports.
    void OpenAt(const std::string& control, std::optional<std::size_t> record);

    // Escape and the window manager's close: the dialog has no Cancel.
    void reject() override { OkButtonClick(); }

  protected:
    // Reports that are dragged onto QFilesList.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void OpenFiles(FileKind kind, TakeReports& take);
    // As if they had been chosen with "Add Files".
    void AddDropped(const std::vector<std::string>& reports);
    void Take(TakeReports& take, const std::vector<std::string>& files);
    void OkButtonClick();
    void DeleteButtonClick();
    void ClearAllButtonClick();
    void Button1Click();

    FilesDlgOwner& owner_;
    WindowServices& services_;
    Messages& messages_;
    qfr::Batch batch_;
    std::unique_ptr<Ui::TFilesDlg> ui_;
};

}  // namespace qfr
