#include "app/MainForm.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStatusBar>

#include "app/AboutBox.h"
#include "app/BatchKeeper.h"
#include "app/BatchReview.h"
#include "app/BatchStatus.h"
#include "app/Desk.h"
#include "app/ExportMenu.h"
#include "app/PrintAll.h"
#include "app/PrintBar.h"
#include "app/ReviewDialog.h"
#include "data/TicRows.h"
#include "dialogs/EntryFormDialog.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/HostSystem.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "platform/qt/FileDrops.h"
#include "platform/qt/LargeWindow.h"
#include "platform/qt/WaitCursor.h"

// The icons are linked in with a library, so they are not registered by themselves.
static void RegisterIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace qfr {

namespace {

constexpr int kHelpTopic = 10;
constexpr QSize kWindowSize(960, 640);
constexpr QSize kWindowFrame(10, 40);
constexpr QSize kLetters(130, 44);  // that it has room for; the status bar takes the width
constexpr int kNoteTime = 8000;     // ms

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QString(":/icons/qfrforms-%1.png").arg(size));
    }
    return icon;
}

void ShowEach(const std::vector<std::optional<Message>>& notes, Messages& messages) {
    for (const std::optional<Message>& note : notes) {
        if (note) {
            messages.Show(*note);
        }
    }
}

}  // namespace

TQFRForm::TQFRForm(const DesktopServices& services)
    : services_(services),
      paths_(services.Settings, *this),
      printer_(services.Metrics, services.Sink),
      page_(printer_,
            [this] {
                const AskingCursor asking;
                return services_.ShowPrinterSetup(printer_);
            }),
      runPrinter_(page_, services.Memory, services.ListPrinters),
      filesDlg_(std::make_unique<TFilesDlg>(*this, *this, *this)),
      form1Header_(std::make_unique<TForm1Header>(*this, *this)),
      ticForm_(std::make_unique<TTICForm>(*this, *this, form1Header_.get())),
      headerTable_(std::make_unique<HeaderTableDialog>(*this, *this, services_.Memory, this)),
      aboutBox_(MakeAboutBox(this)),
      review_(std::make_unique<ReviewDialog>(*this)),
      keeper_(std::make_unique<BatchKeeper>(
          *this, [this](const QString& note) { statusBar()->showMessage(note); })) {
    for (const FormRow& form : kForms) {
        if (form.entry) {
            entryDialogs_[*form.entry] = MakeEntryDialog(*form.entry, *this, *this, this);
        }
    }
    OnCreate();
}

TQFRForm::~TQFRForm() = default;

void TQFRForm::OnCreate() {
    RegisterIcons();
    setObjectName("TQFRForm");
    setWindowFlags(LargeWindowFlags());
    QApplication::setWindowIcon(ProgramIcon());

    AddMenus();
    const auto openBatch = [this](const std::string& file) {
        OfferSave();
        RestoreFile(file);
    };
    desk_ = new Desk(*this, services_,
                     {.LoadFiles = [this] { OpenClick(); },
                      .LoadFolder = [this] { LoadFolderClick(); },
                      .RestoreBatch = [this] { RestoreFilesClick(); },
                      .RecoverBatch = [this] { RecoverLastBatch(); },
                      .OpenBatch = openBatch});
    setCentralWidget(desk_);
    status_ = std::make_unique<BatchStatus>(*statusBar());
    printBar_ = new PrintBar(
        {*this, runPrinter_, services_.Printed, services_.OpenFile, services_.ShowInFolder}, this);
    addToolBar(Qt::BottomToolBarArea, printBar_);
    ShowBatchState();
    aboutBox_->setProperty(kHelpTopicProperty, kHelpTopic);
    qApp->installEventFilter(this);
    new FileDrops(*this, [this](const auto& dropped) { OpenDropped(dropped); });

    const QRect room = screen()->availableGeometry();
    const QFontMetrics metrics = fontMetrics();
    resize(kWindowSize
               .expandedTo({kLetters.width() * metrics.averageCharWidth(),
                            kLetters.height() * metrics.lineSpacing()})
               .boundedTo(room.size() - kWindowFrame));
    const QRect place(QPoint(), size());
    move(place.translated(room.center() - place.center()).topLeft());
}

void TQFRForm::AddMenus() {
    AddFilesMenu();
    QMenu& forms = *menuBar()->addMenu("&Forms");
    for (const FormRow& form : kForms) {
        AddCommand(forms, form.menuCaption, form.shortcut, [this, &form] { FormClick(form); });
    }
    forms.addSeparator();
    AddCommand(forms, "&Edit All Headers...", "Ctrl+H", [this] { headerTable_->ShowHeaders(); });
    QMenu& reports = *menuBar()->addMenu("&Reports");
    AddCommand(reports, "Select &Printer", "Ctrl+P", [this] { page_.getPrinter(); });
    AddCommand(reports, "Print &All Forms...", "Ctrl+Shift+P", [this] {
        PrintAll(*this, services_.Metrics, services_.Packages);
        ShowPrinted();
    });
    AddCommand(reports, "&Review Batch...", "Ctrl+Shift+R", [this] { ShowReview(); });
    QMenu& values = *reports.addMenu("&Export Values");
    const auto exportAs = [this](ExportFormat format) {
        return [this, format] {
            ExportFromMenu(*this, services_.Metrics, services_.Chooser, format,
                           paths_.StartFolder(FileKind::kBatch), services_.Memory);
        };
    };
    AddCommand(values, "&CSV Tables...", "", exportAs(ExportFormat::kCsv));
    AddCommand(values, "&JSON Document...", "", exportAs(ExportFormat::kJson));
    AddCommand(*menuBar(), "&Help", "F1", [this] { ShowHelp(kHelpTopic); });
    AddCommand(*menuBar(), "&About", "", [this] { aboutBox_->exec(); });
    AddCommand(*menuBar(), "E&xit", "Ctrl+Q", [this] { OnExit(); });
}

void TQFRForm::AddFilesMenu() {
    QMenu& files = *menuBar()->addMenu("&Data Files");
    AddCommand(files, "&Load Files", "Ctrl+O", [this] { OpenClick(); });
    AddCommand(files, "Load &Folder...", "Ctrl+Shift+O", [this] { LoadFolderClick(); });
    AddCommand(files, "Sa&ve", "Ctrl+S", [this] { SaveClick(); });
    AddCommand(files, "&Save Batch", "Ctrl+Shift+S", [this] { Save(); });
    AddCommand(files, "&Restore Batch", "Ctrl+R", [this] { RestoreFilesClick(); });
    AddCommand(files, "Re&cover Last Batch", "", [this] { RecoverLastBatch(); });
    QAction* const recover = files.actions().last();
    connect(&files, &QMenu::aboutToShow, recover,
            [this, recover] { recover->setEnabled(Recovery().has_value()); });
}

void TQFRForm::AddCommand(QWidget& menu, std::string_view caption, std::string_view shortcut,
                          const std::function<void()>& handler) {
    const auto text = [](std::string_view ascii) {
        return QString::fromStdString(std::string(ascii));
    };
    auto* const action = new QAction(text(caption), &menu);
    action->setShortcut(QKeySequence(text(shortcut)));
    action->setMenuRole(QAction::NoRole);
    connect(action, &QAction::triggered, this, handler);
    menu.addAction(action);
}

void TQFRForm::OpenClick() {
    hide();
    filesDlg_->show();
}

void TQFRForm::SaveClick() {
    if (!keeper_->HasFileOfItsOwn()) {
        Save();
        return;
    }
    const std::string file = keeper_->FileName();
    if (const auto question = keeper_->ReplaceQuestion(); !question || AskYesNo(*question)) {
        WriteBatch(file, QString::fromStdString(Visible(FileNameOnly(file))) + " saved.");
    }
}

void TQFRForm::LoadFolderClick() {
    const std::string start = paths_.ReadPath(FileKind::kQuantReport);
    if (const std::optional<std::string> folder = services_.Chooser.Folder(start)) {
        OpenDropped({*folder});
    }
}

void TQFRForm::OpenDropped(const std::vector<std::string>& files) {
    activateWindow();
    if (std::error_code error; files.size() == 1 && EndsWith(files.front(), ".qff") &&
                               !std::filesystem::is_directory(PathOf(files.front()), error)) {
        OfferSave();
        OpenArguments(files);
    } else if (filesDlg_->Propose(files, this)) {
        hide();
        filesDlg_->ShowProposal();
    }
}

TQFRForm::SaveResult TQFRForm::Save() {
    const std::optional<ChosenFiles> chosen = services_.Chooser.Save(
        keeper_->Proposal(paths_.StartFolder(FileKind::kBatch), services_.Memory));
    return chosen ? WriteBatch(chosen->files.front()) : SaveResult::kCancelled;
}

TQFRForm::SaveResult TQFRForm::WriteBatch(const std::string& file, const QString& note) {
    const WaitCursor wait;
    std::string content = SaveBatch(Batch(), entries_);
    if (ReplaceFile(PathOf(file), content, ReadOnlyFile::kIsReplaced)) {
        Show(CouldNotBeWritten(file));
        return SaveResult::kNotWritten;
    }
    const auto warning = RestoreWarning(Batch().Files, content, file);
    keeper_->Saved(file, std::move(content), !warning);
    RememberBatch();
    if (note.isEmpty()) {
        paths_.RememberDir(file, FileKind::kBatch);
        Show({"File information saved.", "", MessageIcon::kInformation});
    } else {
        statusBar()->showMessage(note, kNoteTime);
    }
    if (warning) {
        Show(*warning);
    }
    return SaveResult::kSaved;
}

void TQFRForm::OfferSave() {
    keeper_->Check();  // what follows may lose the batch
    if (!Batch().SampleList ||
        !AskYesNo({"There is file information which may\nneed to be saved. Save it now?", "Warning",
                   MessageIcon::kWarning})) {
        return;
    }
    // What follows would lose the batch; only Cancel in the save dialog gives it up.
    while (Save() == SaveResult::kNotWritten) {
    }
}

void TQFRForm::RestoreFilesClick() {
    OfferSave();
    if (const std::optional<ChosenFiles> chosen = ChooseFiles(FileKind::kBatch, false)) {
        RestoreFile(chosen->files.front());
    }
}

void TQFRForm::OpenArguments(const std::vector<std::string>& arguments) {
    if (arguments.empty()) {
        return;
    }
    if (arguments.size() > 1) {
        Show({"Only one batch can be opened at a time.", "QFR Forms"});
        return;
    }
    // Wherever the program was started, the file's folder is known from now on.
    const std::string file = TextOf(FullPathOf(PathOf(arguments.front())));
    if (RestoreFile(file)) {
        paths_.RememberDir(file, FileKind::kBatch);
    }
}

bool TQFRForm::RestoreFile(const std::string& fileName) {
    const WaitCursor wait;
    if (LineReader::IsTooLarge(PathOf(fileName))) {
        Show(OverLimitMessage(FileNameOnly(fileName), LineReader::kMaxFileSizeText));
        return false;
    }
    std::optional<LineReader> file = LineReader::Open(PathOf(fileName));
    // A file that cannot be read is treated as one that holds nothing.
    auto restored = RestoreBatch(file ? std::move(*file) : LineReader(""), fileName);
    if (const auto* const refusal = std::get_if<Message>(&restored)) {
        Show(*refusal);
        return false;
    }
    auto& saved = std::get<SavedBatch>(restored);
    const bool asSaved = !saved.TextsNote && !saved.LimitsNote;
    const std::vector notes = {saved.TextsNote, saved.LimitsNote};
    TakeBatch(std::move(saved));
    keeper_->Restored(fileName, asSaved);
    RememberBatch();
    desk_->BeginBatch();
    printBar_->Forget();
    ShowBatchState();
    ShowEach(notes, *this);
    return true;
}

void TQFRForm::RememberBatch() {
    if (keeper_->HasFileOfItsOwn()) {
        services_.Memory.KeepFolder(kBatchFolder, FolderOnly(BatchFileName()));
    }
    desk_->RememberBatch(BatchFileName());
    services_.NoteFile(BatchFileName());
}

void TQFRForm::TakeBatch(SavedBatch saved) {
    Batch() = std::move(saved.Batch);
    entries_ = std::move(saved.Entries);
    flags_ = saved.Flags;
    form1Header_->Reset();
    filesDlg_->ShowFileSet();
}

const std::string& TQFRForm::BatchFileName() const {
    return keeper_->FileName();
}

std::optional<RecoveryOffer> TQFRForm::Recovery() const {
    return keeper_->Offer();
}

void TQFRForm::RecoverLastBatch() {
    const std::optional<RecoveryOffer> offer = Recovery();
    if (!offer) {
        Show({"There is no batch to be recovered.", "QFR Forms"});
        return;
    }
    // Now, because a save ends the offer.
    auto read = keeper_->Read(*offer);
    if (const auto* const refusal = std::get_if<Message>(&read)) {
        Show(*refusal);
        return;
    }
    OfferSave();
    const WaitCursor wait;
    auto& recovered = std::get<RecoveredBatch>(read);
    const std::vector notes = {recovered.Saved.TextsNote,
                               IncompleteTicsNote(recovered.Saved.Batch)};
    TakeBatch(std::move(recovered.Saved));
    keeper_->Recovered(*offer);
    desk_->BeginBatch();
    ShowBatchState();
    ShowEach(notes, *this);
}

void TQFRForm::FormClick(const FormRow& form, std::size_t record) {
    if (form.printBatch != nullptr) {
        const WaitCursor wait;
        BeginRun();
        form.printBatch(*this);
        ShowBatchState();
    } else if (FilesSpecified(Batch())) {
        hide();
        form1Header_->Open(form.onlyWithTics ? kFormITic : kFormIVoa, record);
    } else {
        Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
    }
}

std::vector<Finding> TQFRForm::Review() {
    const WaitCursor wait;
    return ReviewAsPrinted({Batch(), Entries(), Flags()}, LevelCount(), services_.Metrics, {});
}

void TQFRForm::ShowReview() {
    if (FilesSpecified(Batch())) {
        review_->ShowFindings();
    } else {
        Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
    }
}

void TQFRForm::GoTo(const MendPlace& place, std::optional<std::size_t> record) {
    const std::span<const SampleRecord> samples = SamplesOf(Batch());
    switch (place.Window) {
        case MendWindow::kLoadFiles:
            hide();
            filesDlg_->OpenAt(place.Control, record);
            return;
        case MendWindow::kForm1Header:
            hide();
            form1Header_->SetPendingFocus(*place.Field);
            form1Header_->Open(kFormIVoa, record.value_or(0));
            return;
        case MendWindow::kTics:
            if (record && *record < samples.size()) {
                ticForm_->Run(*record, samples[*record].Header[HeaderField::kZovSampleNo],
                              std::max(place.Row, 1));
            }
            break;
        case MendWindow::kEntry: {
            // The form asks what it always asks before its dialog; it is not printed.
            const QScopedValueRollback mending(mending_, true);
            entryDialogs_.at(*place.Dialog)->SetPendingFocus(place.Control, place.Row);
            BeginRun();
            FormOf(*place.Dialog).prepare(*this, 0);
            // Where the form has refused before, the next opening is not the review's.
            entryDialogs_.at(*place.Dialog)->SetPendingFocus("", 0);
            break;
        }
    }
    ShowMainWindow();
}

void TQFRForm::OnExit() {
    // The toolkit closes the windows once more when it ends.
    if (std::exchange(exiting_, true)) {
        return;
    }
    OfferSave();
    services_.Quit();
}

void TQFRForm::closeEvent(QCloseEvent* event) {
    OnExit();
    event->accept();
}

bool TQFRForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched->isWidgetType() &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents)) {
        const QVariant topic =
            static_cast<QWidget*>(watched)->window()->property(kHelpTopicProperty);
        if (topic.isValid()) {
            ShowHelp(topic.toInt());
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void TQFRForm::Show(const Message& message) {
    const AskingCursor asking;
    services_.Messages.Show(message);
}

bool TQFRForm::AskYesNo(const Message& question) {
    const AskingCursor asking;
    return services_.Messages.AskYesNo(question);
}

bool TQFRForm::ShowEntryDialog(EntryDialog dialog, std::size_t headerRecord) {
    const AskingCursor asking;
    const bool accepted = entryDialogs_.at(dialog)->Run(headerRecord);
    // While it was open, files may have been mended.
    BeginRun();
    return accepted && !mending_;
}

void TQFRForm::EnterTics(std::size_t record, const std::string& sampleNo) {
    ticForm_->Run(record, sampleNo);
}

void TQFRForm::ResetEntryDialogs() {
    desk_->BeginBatch();
    form1Header_->Reset();
    printBar_->Forget();
    // The tune's sample, instrument and injection stay: only its abundances belong to the batch.
    const TuneEntry tune = std::exchange(entries_, {}).Tune;
    entries_.Tune = tune;
    entries_.Tune.Abundances = {};
    keeper_->Cleared();
}

std::optional<ChosenFiles> TQFRForm::ChooseFiles(FileKind kind, bool multiSelect) {
    std::optional<ChosenFiles> chosen =
        services_.Chooser.Open({kind, paths_.StartFolder(kind), multiSelect});
    if (chosen) {
        RememberChoice(*chosen);
    }
    return chosen;
}

void TQFRForm::RememberChoice(const ChosenFiles& chosen) {
    paths_.RememberDir(chosen.files.front(), chosen.kind);
}

std::optional<std::string> TQFRForm::ChooseLaboratoryFile() {
    const std::optional<ChosenFiles> chosen =
        services_.Chooser.Save({SaveKind::kLaboratoryFile, paths_.ReadPath(FileKind::kText), ""});
    if (!chosen) {
        return std::nullopt;
    }
    paths_.RememberDir(chosen->files.front(), FileKind::kText);
    return chosen->files.front();
}

void TQFRForm::ShowHelp(int topic) {
    if (!services_.OpenHelp || !services_.OpenHelp(topic)) {
        Show({"The help file QFRHelp.chm could not be found.", "Help"});
    }
}

void TQFRForm::ShowMainWindow() {
    ShowBatchState();
    show();
    activateWindow();  // it belongs to none of the windows that it has hidden for
    review_->ComeBack();
}

void TQFRForm::ShowPrinted() {
    printBar_->ShowPrinted();
    desk_->Refresh();
}

void TQFRForm::ShowBatchState() {
    const qfr::Batch& batch = filesDlg_->Batch();
    status_->Show(batch);
    printBar_->setVisible(IsLoaded(batch));
    keeper_->Check();
    ShowPrinted();
}

}  // namespace qfr
