#include "dialogs/ChkCalForm.h"

#include <QMouseEvent>

#include "data/CalibrationEntryRules.h"
#include "data/EntryChecks.h"
#include "platform/qt/MaskEdit.h"
#include "ui_ChkCalForm.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 150;
const char* const kDateMask = "!90/90/0000 90:00;1;_";

}  // namespace

TChkCalForm::TChkCalForm(FormHost& host, WindowServices& services, QWidget* parent)
    : QDialog(parent), host_(host), services_(services), ui_(std::make_unique<Ui::TChkCalForm>()) {
    ui_->setupUi(this);
    const std::initializer_list<MaskEdit*> dates = {ui_->MaskEdit1, ui_->MaskEdit2, ui_->MaskEdit3};
    checks_ = std::make_unique<LeaveChecks>(
        host_, *this,
        [](const QWidget& control) {
            return CheckDateTime(static_cast<const MaskEdit&>(control).MaskText(),
                                 control.objectName().toStdString());
        },
        std::initializer_list<QWidget*>{ui_->CancelButton});
    for (MaskEdit* const date : dates) {
        date->SetMask(kDateMask);
        checks_->Watch({date});
    }
    ui_->LimitEdit->installEventFilter(this);
    // A click on Help leaves no entry, so a wrong one does not stand in its way.
    ui_->Button2->setFocusPolicy(Qt::TabFocus);

    connect(ui_->BrowseButton, &QPushButton::clicked, this, &TChkCalForm::BrowseButtonClick);
    connect(ui_->Button1, &QPushButton::clicked, this, &TChkCalForm::Button1Click);
    connect(ui_->OkButton, &QPushButton::clicked, this, &TChkCalForm::OkButtonClick);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TChkCalForm::reject);
    ConnectHelp(*this, services_, kHelpTopic, ui_->Button2);
}

TChkCalForm::~TChkCalForm() = default;

bool TChkCalForm::Run(std::size_t /*headerRecord*/) {
    ShowContinuingCalibration(host_.Entries(), host_.Batch(), host_);
    ShowEntry(host_.Entries().ContinuingCalibration);
    ui_->LabFileEdit->setFocus();
    if (exec() != Accepted) {
        host_.Entries().ContinuingCalibration = Entry();
        return false;
    }
    return true;
}

void TChkCalForm::ShowEntry(const ContinuingCalibrationEntry& entry) {
    ShowText(*ui_->LabFileEdit, entry.LabFileId);
    ShowText(*ui_->ZOV_IDEdit, entry.SampleNo);
    ShowText(*ui_->InstrEdit, entry.InstrumentId);
    ui_->MaskEdit1->SetMaskText(entry.AnalysisDateTime);
    ui_->MaskEdit2->SetMaskText(entry.FirstStandard);
    ui_->MaskEdit3->SetMaskText(entry.LastStandard);
    ShowText(*ui_->LimitEdit, entry.CriteriaFile);
}

ContinuingCalibrationEntry TChkCalForm::Entry() const {
    ContinuingCalibrationEntry entry;
    entry.LabFileId = EnteredIn(*ui_->LabFileEdit);
    entry.SampleNo = EnteredIn(*ui_->ZOV_IDEdit);
    entry.InstrumentId = EnteredIn(*ui_->InstrEdit);
    entry.AnalysisDateTime = ui_->MaskEdit1->MaskText();
    entry.FirstStandard = ui_->MaskEdit2->MaskText();
    entry.LastStandard = ui_->MaskEdit3->MaskText();
    entry.CriteriaFile = EnteredIn(*ui_->LimitEdit);
    return entry;
}

bool TChkCalForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        // The chooser opens when the edit is done with the click.
        QMetaObject::invokeMethod(this, &TChkCalForm::Button1Click, Qt::QueuedConnection);
    }
    return QDialog::eventFilter(watched, event);
}

void TChkCalForm::BrowseButtonClick() {
    if (checks_->Refused()) {
        return;
    }
    if (const auto chosen = services_.ChooseFiles(kAnyFilter, kCalibrationPathSlot, false)) {
        ContinuingCalibrationEntry entry = Entry();
        BrowseStandardFile(entry, chosen->files.front(), host_);
        ShowEntry(entry);
    }
}

void TChkCalForm::Button1Click() {
    if (checks_->Refused()) {
        return;
    }
    if (const auto chosen = services_.ChooseFiles(kTextFilter, kTextPathSlot, false)) {
        ContinuingCalibrationEntry entry = Entry();
        BrowseCriteriaFile(entry, chosen->files.front(), host_);
        ShowEntry(entry);
    }
}

void TChkCalForm::OkButtonClick() {
    if (checks_->Refused()) {
        return;
    }
    host_.Entries().ContinuingCalibration = Entry();
    if (!ShowFault(host_, *this, AcceptContinuingCalibration(host_.Entries(), host_.Flags()))) {
        accept();
    }
}

}  // namespace qfr
