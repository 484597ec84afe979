// The entry dialogs that are their tables: each shows the fields of its table in the controls that
// the table names, and yields them back.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include <QDialog>

#include "data/EntryTables.h"
#include "dialogs/EntryDialogs.h"
#include "forms/FormHost.h"
#include "forms/FormList.h"
#include "platform/WindowServices.h"

namespace qfr {

// What such a dialog has besides its entries; its Cancel is always "CancelButton".
struct EntryDialogParts {
    EntryDialog dialog;
    void (*setUp)(QDialog& dialog);  // its design
    int helpTopic;
    const char* firstFocus = nullptr;  // null: Prepare sets it
    const char* okButton = "OkButton";
    const char* helpButton = "HelpButton";
    // A click on Help leaves the entry, and may leave a wrong one; otherwise it leaves none, so
    // that a wrong one does not stand in its way.
    bool helpTakesFocus = false;
};

class EntryFormDialog : public EntryWindow {
  public:
    EntryFormDialog(const EntryDialogParts& parts, FormHost& host, WindowServices& services,
                    QWidget* parent);

    bool Run(std::size_t headerRecord) override;

  protected:
    // What the dialog offers for the entries that are about to show.
    virtual void Prepare() {}

    FormHost& Host() { return host_; }
    template <typename Control>
    Control& Get(const std::string& name) const {
        return *findChild<Control*>(QString::fromStdString(name));
    }

  private:
    void AddField(const EntryField& field);
    std::optional<EntryFault> Leave(const QWidget& control);
    void BrowseClick(const EntryField& field, std::size_t item);
    void OkClick();
    void ShowEntries();
    void StoreEntries();
    void FinishEditing();

    const EntryDialogParts parts_;
    FormHost& host_;
    WindowServices& services_;
    const FormEntry& entry_;
    LeaveChecks checks_;
};

// The recovery ranges of Form II: their file, and the kind of limits to take from it.
struct TForm2Dlg : EntryFormDialog {
    TForm2Dlg(FormHost& host, WindowServices& services, QWidget* parent = nullptr);

  protected:
    // The focus is on the chosen kind.
    void Prepare() override;
};

// The BFB tune of Form V.
struct TTuneForm : EntryFormDialog {
    TTuneForm(FormHost& host, WindowServices& services, QWidget* parent = nullptr);
};

// The initial calibration of Form VI.
struct TInitCalInput : EntryFormDialog {
    TInitCalInput(FormHost& host, WindowServices& services, QWidget* parent = nullptr);

  protected:
    // The levels of the calibration that is being printed.
    void Prepare() override;
};

// The continuing calibration of Form VII.
struct TChkCalForm : EntryFormDialog {
    TChkCalForm(FormHost& host, WindowServices& services, QWidget* parent = nullptr);

  protected:
    // A click on LimitEdit chooses its file.
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// The internal standard summary of Form VIII.
struct TARTSummForm : EntryFormDialog {
    TARTSummForm(FormHost& host, WindowServices& services, QWidget* parent = nullptr);

  protected:
    // The levels of the calibration report.
    void Prepare() override;
};

std::unique_ptr<EntryWindow> MakeEntryDialog(EntryDialog dialog, FormHost& host,
                                             WindowServices& services, QWidget* parent);

}  // namespace qfr
