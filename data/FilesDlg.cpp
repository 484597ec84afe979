#include "data/FilesDlg.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include <QProgressDialog>
#include <QShortcut>

#include "platform/FileLookup.h"
#include "platform/Text.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/FileDrops.h"
#include "platform/qt/Tables.h"
#include "platform/qt/ToldFilesDialog.h"
#include "platform/qt/WaitCursor.h"
#include "ui_FilesDlg.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 105;
constexpr int kProgressDelay = 500;     // ms, until a sort shows that it goes on
constexpr QSize kDialogSize(598, 456);  // at 100 %; larger where the fonts need it:
constexpr int kLettersAcross = 80;
constexpr int kLinesDown = 28;

bool IsQuantReport(const std::string& file) {
    const std::string_view patterns = RowOf(FileKind::kQuantReport).filter.Patterns();
    std::error_code error;
    // A name that is no text is that of no file here; it is refused by a message.
    return EndsWith(file, patterns.substr(1)) &&
           (std::filesystem::is_regular_file(PathOf(file), error) || Contains(file, "\uFFFD"));
}

// The refusals of a proposal cost nothing that is loaded.
class ProposalOwner : public BatchOwner {
  public:
    void ResetEntryDialogs() override {}
    bool ClearsForTooManyRows(const std::string& /*fileName*/) override { return false; }
};

// Shows the files going by until they are sorted or the user cancels.
std::optional<BatchProposal> SortWithProgress(const Batch& batch,
                                              const std::vector<std::string>& names,
                                              QWidget* above) {
    QProgressDialog progress("Looking at the files...", "&Cancel", 0, 0, above);
    progress.setObjectName("LoadFolderProgress");
    progress.setWindowTitle("Load Folder");
    progress.setProperty(kHelpTopicProperty, kHelpTopic);
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(kProgressDelay);
    progress.setAutoReset(false);
    progress.setAutoClose(false);
    std::optional<WaitCursor> wait(std::in_place);
    return ProposeBatch(batch, names, [&](std::size_t file, std::size_t count) {
        progress.setMaximum(static_cast<int>(count));
        progress.setValue(static_cast<int>(file));
        if (progress.isVisible()) {
            wait.reset();
        }
        return !progress.wasCanceled();
    });
}

// What the proposal does to the batch, in a sentence.
QString Summary(const Batch& batch, const Batch& proposed) {
    std::vector<std::string> found;
    const FileSet& files = batch.Files;
    const auto add = [&](std::string FileSet::*file, const char* what) {
        const std::string& old = files.*file;
        if (!(proposed.Files.*file).empty() && proposed.Files.*file != old) {
            found.push_back(what + (old.empty() ? "" : " in place of " + FileNameOnly(old)));
        }
    };
    add(&FileSet::LabBlank, "the lab blank");
    const auto isNew = [&](const std::string& file) {
        return !std::ranges::binary_search(files.QFiles, file);
    };
    if (const auto samples = std::ranges::count_if(proposed.Files.QFiles, isNew); samples > 0) {
        found.push_back(Counted(static_cast<std::size_t>(samples), "sample"));
    }
    add(&FileSet::Calib, "the calibration report");
    add(&FileSet::CheckCal, "the check report");
    const std::string what = found.empty() ? "nothing" : Enumerated(found);
    return QString::fromStdString(
        Visible((IsLoaded(batch) ? "Added to the loaded batch: " : "Found: ") + what) +
        ". OK takes what shows here, Cancel leaves the batch as it was.");
}

// What was told of an earlier proposal, and what there is to tell of one that builds on it.
std::vector<ToldFile> Joined(std::vector<ToldFile> told, const std::vector<ToldFile>& more) {
    for (const ToldFile& file : more) {
        if (std::ranges::find(told, file) == told.end()) {
            told.push_back(file);
        }
    }
    return told;
}

// Paths are told apart by their ends.
void ShowPath(QLineEdit* edit, const std::string& path) {
    const QString text = QString::fromStdString(path);
    if (edit->text() != text) {
        edit->setText(text);
    }
    edit->setToolTip(text);
}

}  // namespace

TFilesDlg::TFilesDlg(FilesDlgOwner& owner, WindowServices& services, Messages& messages)
    : owner_(owner),
      services_(services),
      messages_(messages),
      ui_(std::make_unique<Ui::TFilesDlg>()) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    ui_->setupUi(this);
    ensurePolished();
    const QSize forLetters(kLettersAcross * fontMetrics().averageCharWidth(),
                           kLinesDown * fontMetrics().height());
    setFixedSize(sizeHint().expandedTo(kDialogSize).expandedTo(forLetters));

    for (QLineEdit* edit : findChildren<QLineEdit*>()) {
        if (edit->isReadOnly()) {
            QPalette dull = edit->palette();
            dull.setColor(QPalette::Base, dull.color(QPalette::Window));
            edit->setPalette(dull);
        }
    }

    const auto onClick = [this](QAbstractButton* button, auto handler) {
        connect(button, &QAbstractButton::clicked, this, handler);
    };
    onClick(ui_->BrowseLabBlank, [this] { OpenFiles(FileKind::kQuantReport, TakeLabBlank); });
    onClick(ui_->AddButton, [this] { OpenFiles(FileKind::kQuantReport, AddQuantReports); });
    onClick(ui_->BrowseCalibButton, [this] { OpenFiles(FileKind::kCalibration, TakeCalReport); });
    onClick(ui_->BrowseChkCalButton,
            [this] { OpenFiles(FileKind::kCheckReport, TakeCheckReport); });
    onClick(ui_->OkButton, &TFilesDlg::OkButtonClick);
    onClick(ui_->DeleteButton, &TFilesDlg::DeleteButtonClick);
    onClick(ui_->ClearAllButton, &TFilesDlg::ClearAllButtonClick);
    onClick(ui_->CancelButton, &TFilesDlg::CancelButtonClick);
    onClick(ui_->ToldButton, [this] { ShowToldFiles(proposal_->Told, kHelpTopic, this); });
    onClick(ui_->Button1, &TFilesDlg::Button1Click);

    ElideItems(*ui_->QFilesList);
    auto* const deleteKey = new QShortcut(QKeySequence::Delete, ui_->QFilesList);
    deleteKey->setContext(Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &TFilesDlg::DeleteButtonClick);
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            &TFilesDlg::Button1Click);

    for (QWidget* const target : {static_cast<QWidget*>(this), ui_->QFilesList->viewport()}) {
        new FileDrops(*target, [this](const auto& files) { TakeDropped(files); });
    }

    ui_->BrowseLabBlank->setFocus();

    KeepToOneFieldEach(*this);
    // What is typed here is taken as it is; emptying it removes the report.
    connect(ui_->CheckCalEdit, &QLineEdit::textChanged, this, [this](const QString& text) {
        Shown().Files.CheckCal = EnteredText(text.toStdString());
    });
}

TFilesDlg::~TFilesDlg() = default;

void TFilesDlg::ShowFileSet() {
    const FileSet& files = Shown().Files;
    ShowPath(ui_->LibFileEdit, files.LibFile);
    ShowPath(ui_->SurrFileEdit, files.SurrFile);
    ShowPath(ui_->CalFileEdit, files.CalFile);
    ShowPath(ui_->LabBlankEdit, files.LabBlank);
    ShowPath(ui_->CalibEdit, files.Calib);
    ShowPath(ui_->CheckCalEdit, files.CheckCal);
    ui_->QFilesList->clear();
    for (const std::string& file : files.QFiles) {
        ui_->QFilesList->addItem(QString::fromStdString(file));
    }
}

void TFilesDlg::OpenAt(const std::string& control, std::optional<std::size_t> record) {
    const std::size_t blanks = LabBlankRecords(batch_);
    ui_->QFilesList->clearSelection();
    if (record && *record >= blanks) {
        ui_->QFilesList->setCurrentRow(static_cast<int>(*record - blanks));
    }
    show();
    if (auto* const place = findChild<QWidget*>(QString::fromStdString(control))) {
        place->setFocus();
    }
}

void TFilesDlg::OpenFiles(FileKind kind, TakeReports& take) {
    if (const auto chosen = services_.ChooseFiles(kind, take == AddQuantReports)) {
        Take(take, chosen->files);
    }
}

bool TFilesDlg::Propose(const std::vector<std::string>& names, QWidget* above) {
    std::optional<BatchProposal> proposal = SortWithProgress(Shown(), names, above);
    if (!proposal) {
        return false;
    }
    hasNews_ = !proposal->Told.empty();
    if (proposal_) {
        proposal->Told = Joined(std::move(proposal_->Told), proposal->Told);
    }
    const bool proposes = !proposal->IsEmpty();
    if (!proposes && !hasNews_) {
        messages_.Show({proposal->Loaded > 0 ? "All reports there are in the batch already."
                                             : "No reports were found there.",
                        kFileNotFoundTitle});
    } else if (!proposes) {
        ShowToldFiles(proposal->Told, kHelpTopic, above);
    }
    if (proposes) {
        proposal_ = std::move(proposal);
    } else if (proposal_) {
        proposal_->Told = std::move(proposal->Told);
        ShowProposalRow();
    }
    return proposes;
}

void TFilesDlg::ShowProposal() {
    const BatchProposal& proposal = *proposal_;
    const std::string& report =
        proposal.QFiles.empty() ? proposal.LabBlank : proposal.QFiles.front();
    for (const auto& [file, kind] : {std::pair(&report, FileKind::kQuantReport),
                                     std::pair(&proposal.Calib, FileKind::kCalibration)}) {
        if (!file->empty()) {
            services_.RememberChoice({{*file}, kind});
        }
    }
    ShowFileSet();
    ShowProposalRow();
    show();
    ui_->OkButton->setFocus();
    for (const Message& note : proposal.Notes) {
        messages_.Show(note);
    }
    if (hasNews_) {
        ShowToldFiles(proposal.Told, kHelpTopic, this);
    }
}

void TFilesDlg::ShowProposalRow() {
    ui_->ProposalLabel->setVisible(proposal_.has_value());
    ui_->CancelButton->setVisible(proposal_.has_value());
    ui_->ToldButton->setVisible(proposal_ && !proposal_->Told.empty());
    if (proposal_) {
        ui_->ProposalLabel->setText(Summary(batch_, proposal_->Batch));
    }
}

void TFilesDlg::TakeDropped(const std::vector<std::string>& files) {
    activateWindow();
    if (std::ranges::all_of(files, IsQuantReport)) {
        services_.RememberChoice({files, FileKind::kQuantReport});
        Take(AddQuantReports, files);
    } else if (Propose(files, this)) {
        ShowProposal();
    }
}

void TFilesDlg::Take(TakeReports& take, const std::vector<std::string>& files) {
    const WaitCursor wait;
    Reports reports(messages_);
    if (proposal_) {
        ProposalOwner owner;
        take(Shown(), files, reports, messages_, owner);
    } else {
        owner_.Flags().Form8DataReady = false;
        take(batch_, files, reports, messages_, owner_);
    }
    // Also after a rejection, which may have taken the names of the library and the like, or
    // cleared the batch.
    ShowFileSet();
    ShowProposalRow();
}

void TFilesDlg::reject() {
    proposal_ ? CancelButtonClick() : OkButtonClick();
}

void TFilesDlg::OkButtonClick() {
    if (proposal_) {
        owner_.Flags().Form8DataReady = false;
        batch_ = std::move(proposal_->Batch);
        proposal_.reset();
    }
    if (!batch_.SampleList) {
        const WaitCursor wait;
        Reports reports(messages_);
        BuildSampleList(batch_, reports);
    }
    Leave();
}

void TFilesDlg::CancelButtonClick() {
    proposal_.reset();
    ShowFileSet();
    Leave();
}

void TFilesDlg::Leave() {
    hide();
    ShowProposalRow();
    services_.ShowMainWindow();
}

void TFilesDlg::DeleteButtonClick() {
    std::vector<std::size_t> positions;
    for (const QModelIndex& index : ui_->QFilesList->selectionModel()->selectedIndexes()) {
        positions.push_back(static_cast<std::size_t>(index.row()));
    }
    std::sort(positions.begin(), positions.end());
    DeleteQuantReports(Shown(), positions);
    ShowFileSet();
    ShowProposalRow();
}

void TFilesDlg::ClearAllButtonClick() {
    owner_.OfferSave();
    proposal_.reset();
    ShowProposalRow();
    ClearBatch(batch_, owner_);
    owner_.Flags().InitCalEntered = false;
    owner_.Flags().ContCalEntered = false;
    ShowFileSet();
}

void TFilesDlg::Button1Click() {
    services_.ShowHelp(kHelpTopic);
}

}  // namespace qfr
