// The continuing calibration dialog of Form VII.
#pragma once

#include <cstddef>
#include <memory>

#include <QDialog>

#include "data/Entries.h"
#include "dialogs/EntryDialogs.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

namespace Ui {
class TChkCalForm;
}

namespace qfr {

class TChkCalForm : public QDialog {
    Q_OBJECT

  public:
    TChkCalForm(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
    ~TChkCalForm() override;

    // Shows the entry and stores what the dialog holds when it closes. True when it closed with OK.
    bool Run(std::size_t headerRecord);

  protected:
    // A click on LimitEdit chooses its file.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BrowseButtonClick();
    void Button1Click();
    void OkButtonClick();
    void ShowEntry(const ContinuingCalibrationEntry& entry);
    ContinuingCalibrationEntry Entry() const;

    FormHost& host_;
    WindowServices& services_;
    std::unique_ptr<Ui::TChkCalForm> ui_;
    std::unique_ptr<LeaveChecks> checks_;
};

}  // namespace qfr
