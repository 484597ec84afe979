// The initial calibration dialog of Form VI.
#pragma once

#include <cstddef>
#include <memory>

#include <QDialog>

#include "data/Entries.h"
#include "dialogs/EntryDialogs.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

namespace Ui {
class TInitCalInput;
}

namespace qfr {

class TInitCalInput : public QDialog {
    Q_OBJECT

  public:
    TInitCalInput(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
    ~TInitCalInput() override;

    // Shows the entry for the levels of the calibration that is being printed, and stores what the
    // dialog holds when it closes. True when it closed with OK.
    bool Run(std::size_t headerRecord);

  private:
    void OnBrowseClick(std::size_t level);
    void OkButtonClick();
    void ShowEntry(const InitialCalibrationEntry& entry);
    InitialCalibrationEntry Entry() const;
    // The controls of a level, from 0.
    template <typename Control>
    Control& OfLevel(const char* name, std::size_t level) const;

    FormHost& host_;
    WindowServices& services_;
    std::unique_ptr<Ui::TInitCalInput> ui_;
    std::unique_ptr<LeaveChecks> checks_;
};

}  // namespace qfr
