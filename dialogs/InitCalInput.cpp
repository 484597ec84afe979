#include "dialogs/InitCalInput.h"

#include "data/CalibrationEntryRules.h"
#include "data/EntryChecks.h"
#include "platform/qt/MaskEdit.h"
#include "ui_InitCalInput.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 140;

constexpr std::size_t kLevels = static_cast<std::size_t>(kMaxLevels);

}  // namespace

TInitCalInput::TInitCalInput(FormHost& host, WindowServices& services, QWidget* parent)
    : QDialog(parent),
      host_(host),
      services_(services),
      ui_(std::make_unique<Ui::TInitCalInput>()) {
    ui_->setupUi(this);
    ui_->CalStartMaskEdit->SetMask("!90/90/0000 90:00;1;_");
    ui_->CalEndMaskEdit->SetMask("!99/99/0000 90:00;1;_");

    checks_ = std::make_unique<LeaveChecks>(
        host_, *this,
        [](const QWidget& control) {
            return CheckDateTime(static_cast<const MaskEdit&>(control).MaskText(),
                                 control.objectName().toStdString());
        },
        std::initializer_list<QWidget*>{ui_->CancelButton, ui_->HelpButton});
    checks_->Watch({ui_->CalStartMaskEdit, ui_->CalEndMaskEdit});

    for (std::size_t level = 0; level < kLevels; ++level) {
        OfLevel<QLineEdit>("CalFileEdit", level).setAccessibleDescription(ui_->IdsLabel->text());
        connect(&OfLevel<QPushButton>("BrowseButton", level), &QPushButton::clicked, this,
                [this, level] { OnBrowseClick(level); });
    }
    connect(ui_->OkButton, &QPushButton::clicked, this, &TInitCalInput::OkButtonClick);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TInitCalInput::reject);
    ConnectHelp(*this, services_, kHelpTopic, ui_->HelpButton);
}

TInitCalInput::~TInitCalInput() = default;

bool TInitCalInput::Run(std::size_t /*headerRecord*/) {
    ShowInitialCalibration(host_.Entries());
    const auto levelCount = static_cast<std::size_t>(host_.Calibration().LevelCount);
    for (std::size_t level = 0; level < kLevels; ++level) {
        OfLevel<QWidget>("NumberLabel", level).setVisible(level < levelCount);
        OfLevel<QWidget>("CalFileEdit", level).setVisible(level < levelCount);
        OfLevel<QWidget>("BrowseButton", level).setVisible(level < levelCount);
    }
    ShowEntry(host_.Entries().InitialCalibration);
    ui_->CalStartMaskEdit->setFocus();
    adjustSize();
    if (exec() != Accepted) {
        host_.Entries().InitialCalibration = Entry();
        return false;
    }
    return true;
}

template <typename Control>
Control& TInitCalInput::OfLevel(const char* name, std::size_t level) const {
    return *findChild<Control*>(QString(name) + QString::number(level + 1));
}

void TInitCalInput::ShowEntry(const InitialCalibrationEntry& entry) {
    ui_->CalStartMaskEdit->SetMaskText(entry.FirstStandard);
    ui_->CalEndMaskEdit->SetMaskText(entry.LastStandard);
    for (std::size_t level = 0; level < kLevels; ++level) {
        ShowText(OfLevel<QLineEdit>("CalFileEdit", level), entry.LabFileIds.at(level));
    }
}

InitialCalibrationEntry TInitCalInput::Entry() const {
    InitialCalibrationEntry entry;
    entry.FirstStandard = ui_->CalStartMaskEdit->MaskText();
    entry.LastStandard = ui_->CalEndMaskEdit->MaskText();
    for (std::size_t level = 0; level < kLevels; ++level) {
        entry.LabFileIds.at(level) = EnteredIn(OfLevel<QLineEdit>("CalFileEdit", level));
    }
    return entry;
}

void TInitCalInput::OnBrowseClick(std::size_t level) {
    if (checks_->Refused()) {
        return;
    }
    if (const auto chosen = services_.ChooseFiles(kAnyFilter, kCalibrationPathSlot, false)) {
        InitialCalibrationEntry entry = Entry();
        BrowseLevelFile(entry, level, chosen->files.front(), host_);
        ShowEntry(entry);
    }
}

void TInitCalInput::OkButtonClick() {
    if (checks_->Refused()) {
        return;
    }
    host_.Entries().InitialCalibration = Entry();
    if (!ShowFault(host_, *this,
                   AcceptInitialCalibration(host_.Entries(), host_.Calibration().LevelCount,
                                            host_.Flags()))) {
        accept();
    }
}

}  // namespace qfr
