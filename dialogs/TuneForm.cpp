#include "dialogs/TuneForm.h"

#include <QHeaderView>

#include "data/TuneRules.h"
#include "ui_TuneForm.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 130;
const char* const kDateMask = "!90/90/0000;1;_";
const char* const kTimeMask = "!90:00;1;_";
constexpr int kMassColumn = 0;
constexpr int kCriterionColumn = 1;
constexpr int kValueColumn = 2;

}  // namespace

TTuneForm::TTuneForm(FormHost& host, WindowServices& services, QWidget* parent)
    : QDialog(parent), host_(host), ui_(std::make_unique<Ui::TTuneForm>()) {
    ui_->setupUi(this);
    ui_->MaskEdit1->SetMask(kDateMask);
    ui_->MaskEdit2->SetMask(kTimeMask);
    EntryGrid& grid = *ui_->StringGrid1;
    grid.SetUp(
        {{"m/e", 40, true}, {"ION ABUNDANCE CRITERIA", 220, true}, {"% RELATIVE ABUNDANCE", 150}},
        TuneEntry::kIons, TuneEntry::kIons);
    grid.horizontalHeader()->setStretchLastSection(true);
    for (int row = 0; row < TuneEntry::kIons; ++row) {
        const TuneIon& ion = kTuneIons[static_cast<std::size_t>(row)];
        grid.SetCell(row, kMassColumn, std::string(ion.Mass));
        grid.SetCell(row, kCriterionColumn, std::string(ion.DialogCriterion));
    }
    // A click on Help leaves no entry, so a wrong one does not stand in its way.
    ui_->HelpButton->setFocusPolicy(Qt::TabFocus);

    checks_ = std::make_unique<LeaveChecks>(
        host_, *this,
        [this](const QWidget& control) {
            return CheckTuneBox(Entry(), control.objectName().toStdString());
        },
        std::initializer_list<QWidget*>{ui_->CancelButton});
    checks_->Watch(
        {ui_->SampleEdit, ui_->InstrEdit, ui_->MaskEdit1, ui_->FileEdit, ui_->MaskEdit2});

    connect(ui_->OkButton, &QPushButton::clicked, this, &TTuneForm::OkButtonClick);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TTuneForm::reject);
    ConnectHelp(*this, services, kHelpTopic, ui_->HelpButton);
}

TTuneForm::~TTuneForm() = default;

bool TTuneForm::Run(std::size_t headerRecord) {
    TuneEntry& entry = host_.Entries().Tune;
    if (const auto& samples = host_.Batch().SampleList; samples && headerRecord < samples->size()) {
        ShowTune(entry, (*samples)[headerRecord].Header);
    }
    ShowEntry(entry);
    const bool accepted = exec() == Accepted;
    ui_->StringGrid1->FinishEditing();
    entry = Entry();
    return accepted;
}

void TTuneForm::ShowEntry(const TuneEntry& entry) {
    ShowText(*ui_->SampleEdit, entry.SampleNo);
    ShowText(*ui_->InstrEdit, entry.InstrumentId);
    ui_->MaskEdit1->SetMaskText(entry.InjectionDate);
    ShowText(*ui_->FileEdit, entry.LabFileId);
    ui_->MaskEdit2->SetMaskText(entry.InjectionTime);
    for (int row = 0; row < TuneEntry::kIons; ++row) {
        ui_->StringGrid1->SetCell(row, kValueColumn,
                                  entry.Abundances[static_cast<std::size_t>(row)]);
    }
    ui_->StringGrid1->setCurrentCell(0, kValueColumn);
    ui_->SampleEdit->setFocus();
}

TuneEntry TTuneForm::Entry() const {
    TuneEntry entry;
    entry.SampleNo = EnteredIn(*ui_->SampleEdit);
    entry.InstrumentId = EnteredIn(*ui_->InstrEdit);
    entry.InjectionDate = ui_->MaskEdit1->MaskText();
    entry.LabFileId = EnteredIn(*ui_->FileEdit);
    entry.InjectionTime = ui_->MaskEdit2->MaskText();
    for (int row = 0; row < TuneEntry::kIons; ++row) {
        entry.Abundances[static_cast<std::size_t>(row)] = ui_->StringGrid1->Cell(row, kValueColumn);
    }
    return entry;
}

void TTuneForm::OkButtonClick() {
    if (checks_->Refused()) {
        return;
    }
    ui_->StringGrid1->FinishEditing();
    if (!ShowFault(host_, *this, CheckTune(Entry()))) {
        accept();
    }
}

}  // namespace qfr
