// The internal standard summary dialog of Form VIII.
#pragma once

#include <cstddef>
#include <memory>

#include <QDialog>

#include "data/Entries.h"
#include "dialogs/EntryDialogs.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

namespace Ui {
class TARTSummForm;
}

namespace qfr {

class TARTSummForm : public QDialog {
    Q_OBJECT

  public:
    TARTSummForm(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
    ~TARTSummForm() override;

    // Shows the entry with the levels of the calibration report, and stores what the dialog holds
    // when it closes. True when it closed with OK.
    bool Run(std::size_t headerRecord);

  private:
    std::optional<EntryFault> LeaveSampleEdit();
    void BrowseButtonClick();
    void OkButtonClick();
    void ShowEntry(const StandardSummaryEntry& entry);
    StandardSummaryEntry Entry() const;

    FormHost& host_;
    WindowServices& services_;
    std::unique_ptr<Ui::TARTSummForm> ui_;
    std::unique_ptr<LeaveChecks> checks_;
};

}  // namespace qfr
