// The Form 1 header dialog: the 26 header values of each sample. It serves Form I VOA and Form I
// TIC.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <QDialog>

#include "data/Batch.h"
#include "dialogs/DateGuard.h"
#include "dialogs/HeaderControls.h"
#include "dialogs/HoldsEntries.h"
#include "forms/FormHost.h"
#include "platform/WindowServices.h"

class QAbstractButton;
class QComboBox;

namespace Ui {
class TForm1Header;
}

namespace qfr {

// The modes of the dialog.
inline constexpr int kFormIVoa = 0;
inline constexpr int kFormITic = 1;

class TForm1Header : public QDialog, public HoldsEntries {
    Q_OBJECT

  public:
    TForm1Header(FormHost& host, WindowServices& services);
    ~TForm1Header() override;

    // Shows the dialog on a record: the first one, or as if it were chosen then.
    void Open(int mode, std::size_t record = 0);
    // Empties every value and the file selector, for a batch that is cleared.
    void Reset();
    // The field that has the focus when the dialog is next shown.
    void SetPendingFocus(HeaderField field);
    void StoreInto(Batch& batch, Entries& entries) const override;

    // Escape and the close box.
    void reject() override { OkButtonClick(); }

  protected:
    // Entering and leaving the controls.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void OnShow(std::size_t record);
    void OnSelect(int record);
    void ShowRecord(std::size_t record);
    void SelectInDropDowns(std::size_t record);
    void OnChange(QComboBox* box, const QString& text);
    void SetUpSteps();
    // The sample before (-1) or after (1) the one shown.
    void Step(int by);
    void ShowPlace();

    // What typing in a drop-down has made of the number that it stands for.
    void NoteRename(QComboBox* box);
    void ShowRename();
    // Another sample that has the typed number.
    std::optional<int> Namesake() const;
    void UndoRenameClick();
    void GoToClick();

    void ComboBox2Change();

    SampleRecord* Record();
    void LoadRecord();
    // The value of a control, if it is one of a header value.
    void Save(QWidget* control);
    void SaveAll();
    void Store(QWidget* control);
    void MarkRecord(std::size_t record);

    bool DateRefused();
    bool IsOpenDate(const QWidget* control) const;

    void EnterButtonClick();  // "Enter TICs"
    void Button1Click();      // "Save  "
    void Button2Click();      // "Load "
    void Button3Click();      // "Save as Default"
    void Button4Click();      // "Read Default"
    void Button5Click();      // "Help"
    void PrintButtonClick();  // "Print Form"
    void OkButtonClick();     // "Exit"

    void Connect(QAbstractButton* button, void (TForm1Header::*handler)());
    // Of the file of that name. False: it could not be read.
    bool TakeTexts(std::span<const HeaderField> fields,
                   std::optional<std::vector<std::string>> texts, const std::string& fileName);

    FormHost& host_;
    WindowServices& services_;
    std::unique_ptr<Ui::TForm1Header> ui_;
    std::size_t currentRecord_ = 0;
    QWidget* pendingFocus_ = nullptr;
    HeaderControls controls_;
    DateGuard guard_;
    struct Rename {
        std::size_t Record = 0;
        HeaderField Field = HeaderField::kZovSampleNo;
        std::string Before;
        std::string After;
    };
    std::optional<Rename> rename_;
    bool loading_ = false;  // the program, not the user, is changing the controls
};

}  // namespace qfr
