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
#include <QPainter>
#include <QScreen>
#include <QStatusBar>

#include "app/BatchFile.h"
#include "app/PrintAll.h"
#include "forms/Form2.h"
#include "forms/Form4.h"
#include "forms/Form5.h"
#include "forms/Form6.h"
#include "forms/Form7.h"
#include "forms/Form8.h"
#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/Text.h"
#include "platform/qt/WaitCursor.h"

// The icons are linked in with a library, so they are not registered by themselves.
static void RegisterIcons() {
    Q_INIT_RESOURCE(icons);
}

namespace qfr {

namespace {

constexpr int kHelpTopic = 10;
constexpr QSize kWindowSize(800, 500);
constexpr int kStateLetters = 130;  // that the status bar has room for

// Lines of the paths file.
constexpr int kBatchSlot = 4;

QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addFile(QString(":/icons/qfrforms-%1.png").arg(size));
    }
    return icon;
}

bool IsComplete(const SampleRecord& record) {
    return !FirstEmptyField(record.Header);
}

// The program's sign, as a watermark.
QPixmap Watermark() {
    constexpr double kStrength = 0.2;
    const QPixmap sign(":/icons/qfrforms-128.png");
    QPixmap faint(sign.size());
    faint.fill(Qt::transparent);
    QPainter painter(&faint);
    painter.setOpacity(kStrength);
    painter.drawPixmap(0, 0, sign);
    return faint;
}

QString NameOrNone(const std::string& path) {
    return path.empty() ? QString("none") : QString::fromStdString(FileNameOnly(path));
}

}  // namespace

// One line of a menu.
struct TQFRForm::Command {
    const char* caption;
    const char* shortcut;
    void (TQFRForm::*handler)();
};

struct TQFRForm::Menu {
    const char* caption;
    std::vector<Command> commands;
};

const std::array<TQFRForm::Menu, 3> TQFRForm::kMenus = {{
    {"&Data Files",
     {
         {"&Load Files", "Ctrl+O", &TQFRForm::OpenClick},
         {"&Save Batch", "Ctrl+S", &TQFRForm::SaveFilesClick},
         {"&Restore Batch", "Ctrl+R", &TQFRForm::RestoreFilesClick},
     }},
    {"&Forms",
     {
         {"Form &1 Volatile Organics Analysis", "Ctrl+1", &TQFRForm::FormIVoaClick},
         {"Form 1 &Tentative Identified Compounds", "Ctrl+T", &TQFRForm::FormITicClick},
         {"Form &2 Monitoring Compound Recovery", "Ctrl+2",
          &TQFRForm::PrintFormClick<Form2MCRClick>},
         {"Form &4 Method Blank Summary", "Ctrl+4", &TQFRForm::PrintFormClick<Form4MBSClick>},
         {"Form &5 Instrument Performance Check", "Ctrl+5",
          &TQFRForm::PrintFormClick<Form5IPCClick>},
         {"Form &6 Initial Calibration Data", "Ctrl+6", &TQFRForm::PrintFormClick<Form6CIDClick>},
         {"Form &7 Cont. Cal. Data", "Ctrl+7", &TQFRForm::PrintFormClick<Form7CCDClick>},
         {"Form &8 Internal Standard Summary", "Ctrl+8", &TQFRForm::PrintFormClick<Form8ARTClick>},
     }},
    {"&Reports",
     {
         {"Select &Printer", "Ctrl+P", &TQFRForm::SelectPrinter1Click},
         {"Print &All Forms...", "Ctrl+Shift+P", &TQFRForm::PrintAllClick},
     }},
}};

const std::array<TQFRForm::Command, 3> TQFRForm::kMenuBarCommands = {{
    {"&Help", "F1", &TQFRForm::Help1Click},
    {"&About", "", &TQFRForm::About1Click},
    {"E&xit", "Ctrl+Q", &TQFRForm::OnExit},
}};

TQFRForm::TQFRForm(const DesktopServices& services)
    : services_(services),
      paths_(services.Settings, *this),
      printer_(services.Metrics, services.Sink),
      page_(printer_,
            [this] {
                const AskingCursor asking;
                services_.ShowPrinterSetup(printer_);
            }),
      filesDlg_(std::make_unique<TFilesDlg>(*this, *this, *this)),
      form1Header_(std::make_unique<TForm1Header>(*this, *this)),
      ticForm_(std::make_unique<TTICForm>(*this, *this, form1Header_.get())),
      form2Dlg_(std::make_unique<TForm2Dlg>(*this, *this, this)),
      mbsHeader_(std::make_unique<TMBSHeader>(*this, *this, this)),
      tuneForm_(std::make_unique<TTuneForm>(*this, *this, this)),
      initCalInput_(std::make_unique<TInitCalInput>(*this, *this, this)),
      chkCalForm_(std::make_unique<TChkCalForm>(*this, *this, this)),
      artSummForm_(std::make_unique<TARTSummForm>(*this, *this, this)),
      aboutBox_(std::make_unique<TAboutBox>(this)) {
    OnCreate();
}

TQFRForm::~TQFRForm() = default;

void TQFRForm::OnCreate() {
    RegisterIcons();
    setObjectName("TQFRForm");
    setWindowTitle("QFR Forms");
    QApplication::setWindowIcon(ProgramIcon());

    for (const Menu& menu : kMenus) {
        AddCommands(*menuBar()->addMenu(menu.caption), menu.commands.data(),
                    menu.commands.data() + menu.commands.size());
    }
    AddCommands(*menuBar(), kMenuBarCommands.begin(), kMenuBarCommands.end());

    auto* const emptyArea = new QLabel(this);
    emptyArea->setAlignment(Qt::AlignCenter);
    emptyArea->setPixmap(Watermark());
    setCentralWidget(emptyArea);
    for (QLabel*& label : state_) {
        label = new QLabel(this);
        label->setContentsMargins(6, 1, 6, 1);
        statusBar()->addWidget(label);
    }
    ShowBatchState();
    aboutBox_->setProperty(kHelpTopicProperty, kHelpTopic);
    qApp->installEventFilter(this);

    resize(kWindowSize.expandedTo({kStateLetters * fontMetrics().averageCharWidth(), 0}));
    const QRect place(QPoint(), size());
    move(place.translated(screen()->availableGeometry().center() - place.center()).topLeft());
}

void TQFRForm::AddCommands(QWidget& menu, const Command* first, const Command* last) {
    for (const Command* command = first; command != last; ++command) {
        auto* const action = new QAction(command->caption, &menu);
        action->setShortcut(QKeySequence(command->shortcut));
        action->setMenuRole(QAction::NoRole);
        connect(action, &QAction::triggered, this, command->handler);
        menu.addAction(action);
    }
}

void TQFRForm::OpenClick() {
    hide();
    filesDlg_->show();
}

TQFRForm::SaveResult TQFRForm::Save() {
    const std::optional<ChosenFiles> chosen =
        services_.Chooser.Save({SaveKind::kBatch, paths_.ReadPath(kBatchSlot), ""});
    if (!chosen) {
        return SaveResult::kCancelled;
    }
    const WaitCursor wait;
    const std::string& file = chosen->files.front();
    if (ReplaceFile(PathOf(file), SaveBatch(Batch(), entries_))) {
        Show(CouldNotBeWritten(file));
        return SaveResult::kNotWritten;
    }
    paths_.RememberDir(file, FileKind::kBatch);
    Show({"File information saved.", "", MessageIcon::kInformation});
    return SaveResult::kSaved;
}

void TQFRForm::OfferSave() {
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
    if (const std::optional<ChosenFiles> chosen =
            ChooseFiles(static_cast<int>(FileKind::kBatch), kBatchSlot, false)) {
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
    std::error_code failed;
    const std::string file =
        TextOf(std::filesystem::absolute(PathOf(arguments.front()), failed).lexically_normal());
    if (RestoreFile(file)) {
        // The other lines of the paths file stay; reading them takes them over.
        paths_.ReadPath(kBatchSlot);
        paths_.RememberDir(file, FileKind::kBatch);
    }
}

bool TQFRForm::RestoreFile(const std::string& fileName) {
    const WaitCursor wait;
    std::optional<LineReader> file = LineReader::Open(PathOf(fileName));
    // A file that cannot be read is told as one that holds nothing.
    auto restored = RestoreBatch(file ? std::move(*file) : LineReader(""), fileName, entries_);
    if (const auto* const refusal = std::get_if<Message>(&restored)) {
        Show(*refusal);
        return false;
    }
    auto& saved = std::get<SavedBatch>(restored);
    Batch() = std::move(saved.Batch);
    entries_ = std::move(saved.Entries);
    filesDlg_->ShowFileSet();
    ShowBatchState();
    return true;
}

void TQFRForm::FormIClick(int mode) {
    if (!FilesSpecified(Batch())) {
        Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
        return;
    }
    hide();
    form1Header_->Open(mode);
}

template <void (*driver)(FormHost&)>
void TQFRForm::PrintFormClick() {
    const WaitCursor wait;
    driver(*this);
    ShowBatchState();
}

void TQFRForm::PrintAllClick() {
    PrintAll(*this, services_.Metrics, services_.Packages);
}

void TQFRForm::Help1Click() {
    ShowHelp(kHelpTopic);
}

void TQFRForm::About1Click() {
    aboutBox_->exec();
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
    switch (dialog) {
        case EntryDialog::kRecoveryRanges:
            return form2Dlg_->Run(headerRecord);
        case EntryDialog::kBlankComments:
            return mbsHeader_->Run(headerRecord);
        case EntryDialog::kTune:
            return tuneForm_->Run(headerRecord);
        case EntryDialog::kInitialCalibration:
            return initCalInput_->Run(headerRecord);
        case EntryDialog::kContinuingCalibration:
            return chkCalForm_->Run(headerRecord);
        case EntryDialog::kStandardSummary:
            return artSummForm_->Run(headerRecord);
    }
    return false;
}

void TQFRForm::EnterTics(std::size_t record, const std::string& sampleNo) {
    ticForm_->Run(record, sampleNo);
}

void TQFRForm::ResetEntryDialogs() {
    form1Header_->Reset();
    ResetEntries(entries_);
}

std::optional<ChosenFiles> TQFRForm::ChooseFiles(int filter, int pathSlot, bool multiSelect) {
    std::optional<ChosenFiles> chosen =
        services_.Chooser.Open({filter, paths_.ReadPath(pathSlot), multiSelect});
    if (chosen) {
        RememberChoice(*chosen);
    }
    return chosen;
}

void TQFRForm::RememberChoice(const ChosenFiles& chosen) {
    paths_.RememberDir(chosen.files.front(), static_cast<FileKind>(chosen.filter));
}

std::optional<std::string> TQFRForm::ChooseLaboratoryFile() {
    const std::optional<ChosenFiles> chosen =
        services_.Chooser.Save({SaveKind::kLaboratoryFile, paths_.ReadPath(kTextPathSlot), ""});
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
}

void TQFRForm::ShowBatchState() {
    const qfr::Batch& batch = Batch();
    const FileSet& files = batch.Files;
    const bool loaded = batch.SampleList || FilesSpecified(batch) || !files.Calib.empty() ||
                        !files.CheckCal.empty();
    std::array<QString, 5> texts;
    if (loaded) {
        const SampleListType none;
        const SampleListType& samples = batch.SampleList ? *batch.SampleList : none;
        const auto complete = std::count_if(samples.begin(), samples.end(), IsComplete);
        texts = {QString("Lab blank: ") + NameOrNone(files.LabBlank),
                 QString("Samples: %1").arg(files.QFiles.size()),
                 QString("Headers complete: %1 of %2").arg(complete).arg(samples.size()),
                 QString("Calibration: ") + NameOrNone(files.Calib),
                 QString("Check: ") + NameOrNone(files.CheckCal)};
    }
    for (std::size_t i = 0; i < state_.size(); ++i) {
        state_[i]->setText(texts[i]);
        state_[i]->setToolTip(texts[i]);
        state_[i]->setVisible(loaded);
    }
}

}  // namespace qfr
