// The Load Files dialog, where a batch is put together. It holds the batch for the whole run.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QDialog>

#include "data/Batch.h"
#include "data/FolderSort.h"
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

    // Sorts files and folders into a proposal, with what it shows meanwhile above that window. A
    // message tells when nothing is found. False then, and when the user cancels.
    bool Propose(const std::vector<std::string>& names, QWidget* above);
    // Shows it in the dialog. It is taken with OK; until then the batch stays as it is.
    void ShowProposal();

    // Escape and the window manager's close: but for a proposal, the dialog has no Cancel.
    void reject() override;

  private:
    // What the dialog shows and changes.
    qfr::Batch& Shown() { return proposal_ ? proposal_->Batch : batch_; }
    void ShowProposalRow();
    void OpenFiles(FileKind kind, TakeReports& take);
    // Quantitation reports as if they had been chosen with "Add Files"; all else is sorted.
    void TakeDropped(const std::vector<std::string>& files);
    void Take(TakeReports& take, const std::vector<std::string>& files);
    void Leave();
    void OkButtonClick();
    void CancelButtonClick();
    void DeleteButtonClick();
    void ClearAllButtonClick();
    void Button1Click();

    FilesDlgOwner& owner_;
    WindowServices& services_;
    Messages& messages_;
    qfr::Batch batch_;
    std::optional<BatchProposal> proposal_;
    bool hasNews_ = false;  // that nobody has been told of yet
    std::unique_ptr<Ui::TFilesDlg> ui_;
};

}  // namespace qfr
