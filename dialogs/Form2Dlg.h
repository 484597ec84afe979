// The recovery ranges dialog of Form II: the ranges file, and the kind of limits to take from it.
#pragma once

#include <cstddef>
#include <memory>

#include <QDialog>

#include "data/Entries.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

class QButtonGroup;

namespace Ui {
class TForm2Dlg;
}

namespace qfr {

class TForm2Dlg : public QDialog {
    Q_OBJECT

  public:
    TForm2Dlg(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
    ~TForm2Dlg() override;

    // Shows the entry and stores what the dialog holds when it closes. True when it closed with OK.
    bool Run(std::size_t headerRecord);

  private:
    void BrowseButtonClick();
    void Button1Click();  // "OK"
    void ShowEntry(const RangesEntry& entry);
    RangesEntry Entry() const;

    FormHost& host_;
    WindowServices& services_;
    std::unique_ptr<Ui::TForm2Dlg> ui_;
    QButtonGroup* kinds_;  // the ids are those of RecoveryLimits
};

}  // namespace qfr
