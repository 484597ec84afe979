#include "data/FilesDlg.h"

#include <algorithm>

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>

#include "platform/Text.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/WaitCursor.h"
#include "ui_FilesDlg.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 105;
constexpr QSize kDialogSize(598, 456);  // at 100 %; larger where the fonts need it:
constexpr int kLettersAcross = 80;
constexpr int kLinesDown = 28;

// The reports among the files of a drag, full paths. What else comes along stays where it is.
std::vector<std::string> ReportsIn(const QMimeData& dragged) {
    const std::string_view patterns = RowOf(FileKind::kQuantReport).filter.Patterns();
    const QString pattern = QString::fromStdString(std::string(patterns));
    std::vector<std::string> reports;
    for (const QUrl& url : dragged.urls()) {
        const QFileInfo file(url.toLocalFile());  // empty for what is not of this machine
        // A name that is no text is that of no file here; it is refused by a message.
        const bool isText = !file.filePath().contains(QChar::ReplacementCharacter);
        if ((file.isFile() || !isText) && QDir::match(pattern, file.fileName())) {
            reports.push_back(QDir::toNativeSeparators(file.absoluteFilePath()).toStdString());
        }
    }
    return reports;
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
    onClick(ui_->Button1, &TFilesDlg::Button1Click);

    auto* const deleteKey = new QShortcut(QKeySequence::Delete, ui_->QFilesList);
    deleteKey->setContext(Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, this, &TFilesDlg::DeleteButtonClick);
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            &TFilesDlg::Button1Click);

    ui_->QFilesList->setAcceptDrops(true);
    ui_->QFilesList->viewport()->installEventFilter(this);

    ui_->BrowseLabBlank->setFocus();

    KeepToOneFieldEach(*this);
    // What is typed here is taken as it is; emptying it removes the report.
    connect(ui_->CheckCalEdit, &QLineEdit::textChanged, this, [this](const QString& text) {
        batch_.Files.CheckCal = EnteredText(text.toStdString());
    });
}

TFilesDlg::~TFilesDlg() = default;

void TFilesDlg::ShowFileSet() {
    const FileSet& files = batch_.Files;
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

void TFilesDlg::AddDropped(const std::vector<std::string>& reports) {
    activateWindow();
    services_.RememberChoice({reports, FileKind::kQuantReport});
    Take(AddQuantReports, reports);
}

bool TFilesDlg::eventFilter(QObject* watched, QEvent* event) {
    const bool dropped = event->type() == QEvent::Drop;
    if (!dropped && event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove) {
        return QDialog::eventFilter(watched, event);
    }
    auto& drag = *static_cast<QDropEvent*>(event);
    const std::vector<std::string> reports = ReportsIn(*drag.mimeData());
    drag.setDropAction(Qt::CopyAction);
    drag.setAccepted(!reports.empty());
    if (dropped && !reports.empty()) {
        // A message must not keep the program waiting from which the files came.
        QMetaObject::invokeMethod(
            this, [this, reports] { AddDropped(reports); }, Qt::QueuedConnection);
    }
    return true;
}

void TFilesDlg::Take(TakeReports& take, const std::vector<std::string>& files) {
    owner_.Flags().Form8DataReady = false;
    const WaitCursor wait;
    Reports reports(messages_);
    take(batch_, files, reports, messages_, owner_);
    // Also after a rejection, which may have taken the names of the library and the like, or
    // cleared the batch.
    ShowFileSet();
}

void TFilesDlg::OkButtonClick() {
    if (!batch_.SampleList) {
        const WaitCursor wait;
        Reports reports(messages_);
        BuildSampleList(batch_, reports);
    }
    hide();
    services_.ShowMainWindow();
}

void TFilesDlg::DeleteButtonClick() {
    std::vector<std::size_t> positions;
    for (const QModelIndex& index : ui_->QFilesList->selectionModel()->selectedIndexes()) {
        positions.push_back(static_cast<std::size_t>(index.row()));
    }
    std::sort(positions.begin(), positions.end());
    DeleteQuantReports(batch_, positions);
    ShowFileSet();
}

void TFilesDlg::ClearAllButtonClick() {
    owner_.OfferSave();
    ClearBatch(batch_, owner_);
    owner_.Flags().InitCalEntered = false;
    owner_.Flags().ContCalEntered = false;
    ShowFileSet();
}

void TFilesDlg::Button1Click() {
    services_.ShowHelp(kHelpTopic);
}

}  // namespace qfr
