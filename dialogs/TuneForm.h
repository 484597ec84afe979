// The BFB tune dialog of Form V.
#pragma once

#include <cstddef>
#include <memory>

#include <QDialog>

#include "data/Entries.h"
#include "dialogs/EntryDialogs.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

namespace Ui {
class TTuneForm;
}

namespace qfr {

class TTuneForm : public QDialog {
    Q_OBJECT

  public:
    TTuneForm(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
    ~TTuneForm() override;

    // Shows the entry, its instrument taken from the header of the record at this index in
    // SampleList, and stores what the dialog holds when it closes. True when it closed with OK.
    bool Run(std::size_t headerRecord);

  private:
    void OkButtonClick();
    void ShowEntry(const TuneEntry& entry);
    TuneEntry Entry() const;

    FormHost& host_;
    std::unique_ptr<Ui::TTuneForm> ui_;
    std::unique_ptr<LeaveChecks> checks_;
};

}  // namespace qfr
