#include "dialogs/ARTSummForm.h"

#include "data/CalibrationEntryRules.h"
#include "data/EntryChecks.h"
#include "platform/qt/MaskEdit.h"
#include "ui_ARTSummForm.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 160;
const char* const kDateTimeMask = "!90/90/0000 90:00;1;_";
const char* const kDateMask = "!90/90/0000;1;_";

}  // namespace

TARTSummForm::TARTSummForm(FormHost& host, WindowServices& services, QWidget* parent)
    : QDialog(parent), host_(host), services_(services), ui_(std::make_unique<Ui::TARTSummForm>()) {
    ui_->setupUi(this);
    ui_->MaskEdit1->SetMask(kDateTimeMask);
    ui_->MaskEdit2->SetMask(kDateMask);
    ui_->MaskEdit3->SetMask(kDateMask);
    // A wheel that passes over the dialog must not choose another level.
    ui_->ConcCombo->setFocusPolicy(Qt::StrongFocus);
    // A click on Help leaves no entry, so a wrong one does not stand in its way.
    ui_->Button1->setFocusPolicy(Qt::TabFocus);

    checks_ = std::make_unique<LeaveChecks>(
        host_, *this,
        [this](const QWidget& control) {
            const auto* const date = qobject_cast<const MaskEdit*>(&control);
            return date != nullptr
                       ? CheckDateTime(date->MaskText(), control.objectName().toStdString())
                       : LeaveSampleEdit();
        },
        std::initializer_list<QWidget*>{ui_->CancelButton});
    checks_->Watch({ui_->SampleEdit, ui_->MaskEdit1, ui_->MaskEdit2, ui_->MaskEdit3});

    connect(ui_->BrowseButton, &QPushButton::clicked, this, &TARTSummForm::BrowseButtonClick);
    connect(ui_->OkButton, &QPushButton::clicked, this, &TARTSummForm::OkButtonClick);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TARTSummForm::reject);
    ConnectHelp(*this, services_, kHelpTopic, ui_->Button1);
}

TARTSummForm::~TARTSummForm() = default;

bool TARTSummForm::Run(std::size_t /*headerRecord*/) {
    if (!ShowStandardSummary(host_.Entries(), host_.Batch(), host_.Calibration(), host_)) {
        return false;
    }
    const StandardSummaryEntry& entry = host_.Entries().StandardSummary;
    ui_->ConcCombo->clear();
    for (const std::string& level : entry.Levels) {
        ui_->ConcCombo->addItem(QString::fromStdString(level));
    }
    ShowEntry(entry);
    ui_->SampleEdit->setFocus();
    if (exec() != Accepted) {
        host_.Entries().StandardSummary = Entry();
        return false;
    }
    return true;
}

void TARTSummForm::ShowEntry(const StandardSummaryEntry& entry) {
    ShowText(*ui_->SampleEdit, entry.SampleNo);
    ShowText(*ui_->LabFileEdit, entry.LabFileId);
    ui_->MaskEdit1->SetMaskText(entry.AnalysisDateTime);
    ui_->MaskEdit2->SetMaskText(entry.FirstCalibrationDate);
    ui_->MaskEdit3->SetMaskText(entry.LastCalibrationDate);
    ShowText(*ui_->RTEdit1, entry.RetentionTimes[0]);
    ShowText(*ui_->RTEdit2, entry.RetentionTimes[1]);
    ShowText(*ui_->RTEdit3, entry.RetentionTimes[2]);
    ui_->ConcCombo->setCurrentIndex(entry.LevelIndex);
}

StandardSummaryEntry TARTSummForm::Entry() const {
    StandardSummaryEntry entry = host_.Entries().StandardSummary;
    entry.SampleNo = EnteredIn(*ui_->SampleEdit);
    entry.LabFileId = EnteredIn(*ui_->LabFileEdit);
    entry.AnalysisDateTime = ui_->MaskEdit1->MaskText();
    entry.FirstCalibrationDate = ui_->MaskEdit2->MaskText();
    entry.LastCalibrationDate = ui_->MaskEdit3->MaskText();
    entry.RetentionTimes = {EnteredIn(*ui_->RTEdit1), EnteredIn(*ui_->RTEdit2),
                            EnteredIn(*ui_->RTEdit3)};
    // Without a calibration report there are no levels to choose from, and a saved choice stays.
    if (ui_->ConcCombo->count() > 0) {
        entry.LevelIndex = ui_->ConcCombo->currentIndex();
    }
    return entry;
}

std::optional<EntryFault> TARTSummForm::LeaveSampleEdit() {
    StandardSummaryEntry entry = Entry();
    std::optional<EntryFault> fault = LeaveStandardSampleNo(entry, host_.Batch(), host_);
    ShowEntry(entry);
    return fault;
}

void TARTSummForm::BrowseButtonClick() {
    if (checks_->Refused()) {
        return;
    }
    if (const auto chosen = services_.ChooseFiles(kAnyFilter, kCalibrationPathSlot, false)) {
        StandardSummaryEntry entry = Entry();
        BrowseStandardFile(entry, chosen->files.front(), host_);
        ShowEntry(entry);
    }
}

void TARTSummForm::OkButtonClick() {
    if (checks_->Refused()) {
        return;
    }
    host_.Entries().StandardSummary = Entry();
    if (!ShowFault(host_, *this, AcceptStandardSummary(host_.Entries(), host_.Batch()))) {
        accept();
    }
}

}  // namespace qfr
