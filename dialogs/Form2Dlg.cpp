#include "dialogs/Form2Dlg.h"

#include <QButtonGroup>

#include "data/RecoveryRanges.h"
#include "dialogs/EntryDialogs.h"
#include "ui_Form2Dlg.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 121;

}  // namespace

TForm2Dlg::TForm2Dlg(FormHost& host, WindowServices& services, QWidget* parent)
    : QDialog(parent),
      host_(host),
      services_(services),
      ui_(std::make_unique<Ui::TForm2Dlg>()),
      kinds_(new QButtonGroup(this)) {
    ui_->setupUi(this);
    kinds_->addButton(ui_->RadioButton1, static_cast<int>(RecoveryLimits::kWater));
    kinds_->addButton(ui_->RadioButton2, static_cast<int>(RecoveryLimits::kSoil));
    kinds_->addButton(ui_->RadioButton3, static_cast<int>(RecoveryLimits::kOil));

    connect(ui_->BrowseButton, &QPushButton::clicked, this, &TForm2Dlg::BrowseButtonClick);
    connect(ui_->Button1, &QPushButton::clicked, this, &TForm2Dlg::Button1Click);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TForm2Dlg::reject);
    ConnectHelp(*this, services_, kHelpTopic, ui_->HelpButton);
}

TForm2Dlg::~TForm2Dlg() = default;

bool TForm2Dlg::Run(std::size_t /*headerRecord*/) {
    ShowEntry(host_.Entries().Ranges);
    const bool accepted = exec() == Accepted;
    host_.Entries().Ranges = Entry();
    return accepted;
}

void TForm2Dlg::ShowEntry(const RangesEntry& entry) {
    ShowText(*ui_->FileEdit, entry.FileName);
    QAbstractButton* const kind = kinds_->button(static_cast<int>(entry.Limits));
    kind->setChecked(true);
    kind->setFocus();
}

RangesEntry TForm2Dlg::Entry() const {
    return {EnteredIn(*ui_->FileEdit), static_cast<RecoveryLimits>(kinds_->checkedId())};
}

void TForm2Dlg::BrowseButtonClick() {
    const std::optional<ChosenFiles> chosen =
        services_.ChooseFiles(kTextFilter, kTextPathSlot, false);
    if (!chosen) {
        return;
    }
    const std::string& fileName = chosen->files.front();
    const bool refused = ShowFault(host_, *this, CheckRangesFile(fileName));
    ShowText(*ui_->FileEdit, refused ? "" : fileName);
}

void TForm2Dlg::Button1Click() {
    if (!ShowFault(host_, *this, CheckRanges(Entry()))) {
        accept();
    }
}

}  // namespace qfr
