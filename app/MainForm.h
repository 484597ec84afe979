// The main window: its menu starts everything that the program does.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QMainWindow>

#include "app/BatchFile.h"
#include "app/PathsFile.h"
#include "app/Recovery.h"
#include "app/RunPrinter.h"
#include "data/FilesDlg.h"
#include "dialogs/EntryDialogs.h"
#include "dialogs/Form1Header.h"
#include "dialogs/HeaderTableDialog.h"
#include "dialogs/TicForm.h"
#include "forms/FormHost.h"
#include "forms/FormList.h"
#include "platform/JobSink.h"
#include "platform/PrintLog.h"
#include "platform/Printer.h"
#include "platform/SettingsDir.h"
#include "platform/WindowServices.h"
#include "platform/qt/Remembered.h"
#include "review/Review.h"

namespace qfr {

// What the windows run on. All outlive the main window.
struct DesktopServices {
    qfr::Messages& Messages;
    FileChooser& Chooser;
    TextMetrics& Metrics;
    JobSink& Sink;
    PackageSink& Packages;
    const SettingsDir& Settings;
    Remembered& Memory;
    PrintLog& Printed;
    // Fills the printer's list, which may take its time the first time.
    std::function<void(TPrinter&)> ListPrinters;
    // Lets the user change printer and paper; fills the printer's list first. False: he cancelled.
    std::function<bool(TPrinter&)> ShowPrinterSetup;
    // Ends the program.
    std::function<void()> Quit;
    // Opens the help file at a context number; false when there is no such file.
    std::function<bool(int topic)> OpenHelp;
    // Hand a file over to the desktop's other programs; false: there is none for it.
    std::function<bool(const std::string& file)> OpenFile;
    std::function<bool(const std::string& file)> ShowInFolder;
    // Tells the desktop of a file that the user works on.
    std::function<void(const std::string& file)> NoteFile;
};

class BatchKeeper;
class BatchStatus;
class Desk;
class PrintBar;
class ReviewDialog;

class TQFRForm : public QMainWindow, public FormHost, public FilesDlgOwner, public WindowServices {
    Q_OBJECT

  public:
    explicit TQFRForm(const DesktopServices& services);
    ~TQFRForm() override;

    // Opens what the program was started with: a single name (UTF-8) is that of a saved batch,
    // which is restored as if Restore Batch had chosen it; more than one are reported.
    void OpenArguments(const std::vector<std::string>& arguments);

    // Shows in the Load Files dialog what a folder of the user's choice holds for the batch.
    void LoadFolderClick();
    // The same of files and folders, full paths. A batch file alone is restored, as if Restore
    // Batch had chosen it.
    void OpenDropped(const std::vector<std::string>& files);

    // Replaces the batch by a saved one; a file that cannot be restored changes nothing, is
    // reported, and the result is false.
    bool RestoreFile(const std::string& fileName);

    // What a reviewer would flag if the batch were printed now.
    std::vector<Finding> Review();
    // Shows those findings; without a batch, only a message.
    void ShowReview();
    // Opens the window where a finding is mended, with the focus there. `record`: the sample that
    // it is about, as an index of SampleList; absent for the whole batch.
    void GoTo(const MendPlace& place, std::optional<std::size_t> record);

    // Of the batch's file, full path (UTF-8); empty: it has none.
    const std::string& BatchFileName() const;
    // Replaces the batch by the one that was lost last, after offering to save this one. Without
    // any, only a message.
    void RecoverLastBatch();
    // What that would bring back; absent without any.
    std::optional<RecoveryOffer> Recovery() const;

    // Shows what was printed of the batch by now.
    void ShowPrinted();
    // Forms | the form. One that prints for each sample begins with this one, an index of
    // SampleList.
    void FormClick(const FormRow& form, std::size_t record = 0);

    // FormHost
    void Show(const Message& message) override;
    bool AskYesNo(const Message& question) override;
    qfr::Page& Page() override { return page_; }
    qfr::Batch& Batch() override { return filesDlg_->Batch(); }
    qfr::Entries& Entries() override { return entries_; }
    BatchFlags& Flags() override { return flags_; }
    bool ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) override;
    void SetPendingFocus(HeaderField field) override { form1Header_->SetPendingFocus(field); }

    // FilesDlgOwner
    void ResetEntryDialogs() override;
    void OfferSave() override;

    // WindowServices
    std::optional<ChosenFiles> ChooseFiles(FileKind kind, bool multiSelect) override;
    void RememberChoice(const ChosenFiles& chosen) override;
    std::optional<std::string> ChooseLaboratoryFile() override;
    const SettingsDir& Settings() const override { return services_.Settings; }
    void EnterTics(std::size_t record, const std::string& sampleNo) override;
    void ShowHelp(int topic) override;
    void ShowMainWindow() override;
    PrinterChoice& Printers() override { return runPrinter_; }

  protected:
    // The close box and the system menu.
    void closeEvent(QCloseEvent* event) override;
    // F1 in the windows that name their help topic.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class SaveResult { kSaved, kCancelled, kNotWritten };

    void OnCreate();
    void AddMenus();
    void AddCommand(QWidget& menu, std::string_view caption, std::string_view shortcut,
                    const std::function<void()>& handler);
    void OpenClick();
    void RestoreFilesClick();
    void OnExit();

    void AddFilesMenu();
    void SaveClick();
    // By way of the save dialog.
    SaveResult Save();
    // Without a note: the user has chosen the file just now.
    SaveResult WriteBatch(const std::string& file, const QString& note = {});
    void TakeBatch(SavedBatch saved);
    void RememberBatch();
    void ShowBatchState();

    DesktopServices services_;
    PathsFile paths_;
    TPrinter printer_;
    qfr::Page page_;
    RunPrinter runPrinter_;
    BatchFlags flags_;
    qfr::Entries entries_;
    Desk* desk_ = nullptr;
    std::unique_ptr<BatchStatus> status_;
    PrintBar* printBar_ = nullptr;
    bool exiting_ = false;

    // Windows of their own: this one hides while they show.
    std::unique_ptr<TFilesDlg> filesDlg_;
    std::unique_ptr<TForm1Header> form1Header_;

    // Dialogs above this one or above the Form 1 header.
    std::unique_ptr<TTICForm> ticForm_;
    std::map<EntryDialog, std::unique_ptr<EntryWindow>> entryDialogs_;
    std::unique_ptr<HeaderTableDialog> headerTable_;
    bool mending_ = false;  // an entry dialog is not opened for printing
    std::unique_ptr<QDialog> aboutBox_;
    std::unique_ptr<ReviewDialog> review_;
    std::unique_ptr<BatchKeeper> keeper_;
};

}  // namespace qfr
