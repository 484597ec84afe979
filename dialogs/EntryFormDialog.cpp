#include "dialogs/EntryFormDialog.h"

#include <QHeaderView>
#include <QMouseEvent>

#include "data/TuneRules.h"
#include "dialogs/EntryGrid.h"
#include "dialogs/MBSHeader.h"
#include "platform/Numbers.h"
#include "platform/qt/MaskEdit.h"
#include "ui_ARTSummForm.h"
#include "ui_ChkCalForm.h"
#include "ui_Form2Dlg.h"
#include "ui_InitCalInput.h"
#include "ui_TuneForm.h"

namespace qfr {

namespace {

// The design's controls are found by their names.
template <typename Design>
void SetUp(QDialog& dialog) {
    Design().setupUi(&dialog);
}

std::string MaskOf(const EntryField& field) {
    if (!field.Mask.empty()) {
        return std::string(field.Mask);
    }
    switch (field.Kind) {
        case EntryKind::kDate:
            return "!90/90/0000;1;_";
        case EntryKind::kTime:
            return "!90:00;1;_";
        case EntryKind::kDateTime:
            return "!90/90/0000 90:00;1;_";
        default:
            return "";
    }
}

QWidget* Find(const QDialog& dialog, const std::string& name) {
    return dialog.findChild<QWidget*>(QString::fromStdString(name));
}

// The radio buttons of a choice, which are numbered from 1.
QRadioButton* RadioButton(const QDialog& dialog, const EntryField& field, int number) {
    const std::string name = std::string(field.Control) + std::to_string(number);
    return qobject_cast<QRadioButton*>(Find(dialog, name));
}

// The control of an item; null for radio buttons.
QWidget* ControlOf(const QDialog& dialog, const EntryField& field, std::size_t item) {
    return Find(dialog, field.Kind == EntryKind::kCells ? std::string(field.Control)
                                                        : ControlName(field.Control, field, item));
}

void ShowItem(const QDialog& dialog, const EntryField& field, std::size_t item,
              const std::string& text) {
    QWidget* const control = ControlOf(dialog, field, item);
    if (auto* const date = qobject_cast<MaskEdit*>(control)) {
        date->SetMaskText(text);
    } else if (auto* const edit = qobject_cast<QLineEdit*>(control)) {
        ShowText(*edit, text);
    } else if (auto* const list = qobject_cast<QComboBox*>(control)) {
        list->setCurrentIndex(ParseInteger(text).value_or(-1));
    } else if (auto* const grid = qobject_cast<EntryGrid*>(control)) {
        grid->SetCell(static_cast<int>(item), grid->columnCount() - 1, text);
    } else {
        RadioButton(dialog, field, ParseInteger(text).value_or(1))->setChecked(true);
    }
}

// Absent where there is nothing to choose from.
std::optional<std::string> EnteredItem(const QDialog& dialog, const EntryField& field,
                                       std::size_t item) {
    const QWidget* const control = ControlOf(dialog, field, item);
    if (const auto* const date = qobject_cast<const MaskEdit*>(control)) {
        return date->MaskText();
    }
    if (const auto* const edit = qobject_cast<const QLineEdit*>(control)) {
        return EnteredIn(*edit);
    }
    if (const auto* const list = qobject_cast<const QComboBox*>(control)) {
        return list->count() > 0 ? std::optional(std::to_string(list->currentIndex()))
                                 : std::nullopt;
    }
    if (const auto* const grid = qobject_cast<const EntryGrid*>(control)) {
        return grid->Cell(static_cast<int>(item), grid->columnCount() - 1);
    }
    int number = 1;
    while (!RadioButton(dialog, field, number)->isChecked()) {
        ++number;
    }
    return std::to_string(number);
}

}  // namespace

EntryFormDialog::EntryFormDialog(const EntryDialogParts& parts, FormHost& host,
                                 WindowServices& services, QWidget* parent)
    : EntryWindow(parent),
      parts_(parts),
      host_(host),
      services_(services),
      entry_(EntryOf(parts.dialog)),
      checks_(host, *this, [this](const QWidget& control) { return Leave(control); }) {
    parts_.setUp(*this);
    auto& cancel = Get<QPushButton>("CancelButton");
    auto& help = Get<QPushButton>(parts_.helpButton);
    checks_.Allow(cancel);
    if (parts_.helpTakesFocus) {
        checks_.Allow(help);
    } else {
        help.setFocusPolicy(Qt::TabFocus);
    }
    for (const EntryField& field : entry_.table.Fields) {
        AddField(field);
    }
    connect(&Get<QPushButton>(parts_.okButton), &QPushButton::clicked, this,
            &EntryFormDialog::OkClick);
    connect(&cancel, &QPushButton::clicked, this, &EntryFormDialog::reject);
    ConnectHelp(*this, services_, parts_.helpTopic, &help);
}

void EntryFormDialog::AddField(const EntryField& field) {
    for (std::size_t item = 0; item < ItemCount(field, host_.Entries()); ++item) {
        QWidget* const control = ControlOf(*this, field, item);
        if (auto* const date = qobject_cast<MaskEdit*>(control)) {
            date->SetMask(MaskOf(field));
        }
        if (IsCheckedWhenLeft(entry_.table, field)) {
            checks_.Watch(*control);
        }
        if (field.Browse) {
            connect(&Get<QPushButton>(ControlName(field.Browse->Button, field, item)),
                    &QPushButton::clicked, this,
                    [this, &field, item] { BrowseClick(field, item); });
        }
    }
}

bool EntryFormDialog::Run(std::size_t headerRecord) {
    if (!entry_.onShow(host_, headerRecord)) {
        return false;
    }
    Prepare();
    ShowEntries();
    for (EntryGrid* const grid : findChildren<EntryGrid*>()) {
        grid->setCurrentCell(0, grid->columnCount() - 1);
    }
    if (parts_.firstFocus != nullptr) {
        Get<QWidget>(parts_.firstFocus).setFocus();
    }
    const bool accepted = exec() == Accepted;
    FinishEditing();
    StoreEntries();
    return accepted;
}

std::optional<EntryFault> EntryFormDialog::Leave(const QWidget& control) {
    StoreEntries();
    const std::string name = control.objectName().toStdString();
    Entries& entries = host_.Entries();
    for (const EntryField& field : entry_.table.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            if (ControlName(field.Control, field, item) != name) {
                continue;
            }
            if (!field.Rules.Leave) {
                return CheckLeft(entry_.table, field, item, entries);
            }
            auto fault = field.Rules.Leave(entries, host_.Batch(), host_.Reports(), host_);
            ShowEntries();
            return fault;
        }
    }
    return std::nullopt;
}

void EntryFormDialog::BrowseClick(const EntryField& field, std::size_t item) {
    if (checks_.Refused()) {
        return;
    }
    if (const auto chosen = services_.ChooseFiles(field.Browse->Kind, false)) {
        StoreEntries();
        ShowFault(host_, *this,
                  field.Browse->Take(host_.Entries(), item, chosen->files.front(), host_));
        ShowEntries();
    }
}

void EntryFormDialog::OkClick() {
    if (checks_.Refused()) {
        return;
    }
    FinishEditing();
    StoreEntries();
    if (!ShowFault(host_, *this, entry_.onOk(host_))) {
        accept();
    }
}

void EntryFormDialog::ShowEntries() {
    const Entries& entries = host_.Entries();
    for (const EntryField& field : entry_.table.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            ShowItem(*this, field, item, field.Texts.Get(entries, item));
        }
    }
}

void EntryFormDialog::StoreEntries() {
    Entries& entries = host_.Entries();
    for (const EntryField& field : entry_.table.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            if (const auto text = EnteredItem(*this, field, item)) {
                field.Texts.Set(entries, item, *text);
            }
        }
    }
}

void EntryFormDialog::FinishEditing() {
    for (EntryGrid* const grid : findChildren<EntryGrid*>()) {
        grid->FinishEditing();
    }
}

// ---- Form II

TForm2Dlg::TForm2Dlg(FormHost& host, WindowServices& services, QWidget* parent)
    : EntryFormDialog({.dialog = EntryDialog::kRecoveryRanges,
                       .setUp = SetUp<Ui::TForm2Dlg>,
                       .helpTopic = 121,
                       .okButton = "Button1",
                       .helpTakesFocus = true},
                      host, services, parent) {}

void TForm2Dlg::Prepare() {
    const auto chosen = static_cast<int>(Host().Entries().Ranges.Limits);
    Get<QRadioButton>("RadioButton" + std::to_string(chosen)).setFocus();
}

// ---- Form V

TTuneForm::TTuneForm(FormHost& host, WindowServices& services, QWidget* parent)
    : EntryFormDialog({.dialog = EntryDialog::kTune,
                       .setUp = SetUp<Ui::TTuneForm>,
                       .helpTopic = 130,
                       .firstFocus = "SampleEdit"},
                      host, services, parent) {
    auto& grid = Get<EntryGrid>("StringGrid1");
    grid.SetUp(
        {{"m/e", 40, true}, {"ION ABUNDANCE CRITERIA", 220, true}, {"% RELATIVE ABUNDANCE", 150}},
        TuneEntry::kIons, TuneEntry::kIons);
    grid.horizontalHeader()->setStretchLastSection(true);
    int row = 0;
    for (const TuneIon& ion : kTuneIons) {
        grid.SetCell(row, 0, std::string(ion.Mass));
        grid.SetCell(row, 1, std::string(ion.DialogCriterion));
        ++row;
    }
}

// ---- Form VI

TInitCalInput::TInitCalInput(FormHost& host, WindowServices& services, QWidget* parent)
    : EntryFormDialog({.dialog = EntryDialog::kInitialCalibration,
                       .setUp = SetUp<Ui::TInitCalInput>,
                       .helpTopic = 140,
                       .firstFocus = "CalStartMaskEdit",
                       .helpTakesFocus = true},
                      host, services, parent) {
    for (int level = 1; level <= kMaxLevels; ++level) {
        Get<QLineEdit>("CalFileEdit" + std::to_string(level))
            .setAccessibleDescription(Get<QLabel>("IdsLabel").text());
    }
}

void TInitCalInput::Prepare() {
    for (int level = 1; level <= kMaxLevels; ++level) {
        for (const char* const name : {"NumberLabel", "CalFileEdit", "BrowseButton"}) {
            Get<QWidget>(name + std::to_string(level)).setVisible(level <= Host().LevelCount());
        }
    }
    adjustSize();
}

// ---- Form VII

TChkCalForm::TChkCalForm(FormHost& host, WindowServices& services, QWidget* parent)
    : EntryFormDialog({.dialog = EntryDialog::kContinuingCalibration,
                       .setUp = SetUp<Ui::TChkCalForm>,
                       .helpTopic = 150,
                       .firstFocus = "LabFileEdit",
                       .helpButton = "Button2"},
                      host, services, parent) {
    Get<QLineEdit>("LimitEdit").installEventFilter(this);
}

bool TChkCalForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        // The chooser opens when the edit is done with the click.
        QMetaObject::invokeMethod(&Get<QPushButton>("Button1"), &QPushButton::click,
                                  Qt::QueuedConnection);
    }
    return EntryFormDialog::eventFilter(watched, event);
}

// ---- Form VIII

TARTSummForm::TARTSummForm(FormHost& host, WindowServices& services, QWidget* parent)
    : EntryFormDialog({.dialog = EntryDialog::kStandardSummary,
                       .setUp = SetUp<Ui::TARTSummForm>,
                       .helpTopic = 160,
                       .firstFocus = "SampleEdit",
                       .helpButton = "Button1"},
                      host, services, parent) {
    // A wheel that passes over the dialog must not choose another level.
    Get<QComboBox>("ConcCombo").setFocusPolicy(Qt::StrongFocus);
}

void TARTSummForm::Prepare() {
    auto& list = Get<QComboBox>("ConcCombo");
    list.clear();
    for (const std::string& level : Host().Entries().StandardSummary.Levels) {
        list.addItem(QString::fromStdString(level));
    }
}

std::unique_ptr<EntryWindow> MakeEntryDialog(EntryDialog dialog, FormHost& host,
                                             WindowServices& services, QWidget* parent) {
    switch (dialog) {
        case EntryDialog::kRecoveryRanges:
            return std::make_unique<TForm2Dlg>(host, services, parent);
        case EntryDialog::kBlankComments:
            return std::make_unique<TMBSHeader>(host, services, parent);
        case EntryDialog::kTune:
            return std::make_unique<TTuneForm>(host, services, parent);
        case EntryDialog::kInitialCalibration:
            return std::make_unique<TInitCalInput>(host, services, parent);
        case EntryDialog::kContinuingCalibration:
            return std::make_unique<TChkCalForm>(host, services, parent);
        case EntryDialog::kStandardSummary:
            break;
    }
    return std::make_unique<TARTSummForm>(host, services, parent);
}

}  // namespace qfr
