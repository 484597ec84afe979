#include "dialogs/EntryFormDialog.h"

#include <algorithm>
#include <set>

#include <QHeaderView>
#include <QMouseEvent>

#include "data/TuneRules.h"
#include "dialogs/EntryGrid.h"
#include "dialogs/FieldRemarks.h"
#include "dialogs/MBSHeader.h"
#include "platform/Numbers.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/MaskEdit.h"
#include "platform/qt/PrintTarget.h"
#include "ui_ARTSummForm.h"
#include "ui_ChkCalForm.h"
#include "ui_Form2Dlg.h"
#include "ui_InitCalInput.h"
#include "ui_TuneForm.h"

namespace qfr {

namespace {

// The design's controls are found by their names.
template <typename Control = QWidget>
Control* Find(const QDialog& dialog, const std::string& name) {
    return dialog.findChild<Control*>(QString::fromStdString(name));
}

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

// The radio buttons of a choice, which are numbered from 1.
QRadioButton* RadioButton(const QDialog& dialog, const EntryField& field, int number) {
    return Find<QRadioButton>(dialog, std::string(field.Control) + std::to_string(number));
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
        return grid->TypedCell(static_cast<int>(item), grid->columnCount() - 1);
    }
    int number = 1;
    while (!RadioButton(dialog, field, number)->isChecked()) {
        ++number;
    }
    return std::to_string(number);
}

std::string TextIn(const QWidget& control) {
    if (const auto* const date = qobject_cast<const MaskEdit*>(&control)) {
        return date->MaskText();
    }
    const auto* const edit = qobject_cast<const QLineEdit*>(&control);
    return edit != nullptr ? EnteredIn(*edit) : "";
}

// What an entry has come from: for who hears the entry, and in the label beside it, if it has one.
void ShowSource(const QDialog& dialog, const std::string& control, const std::string& source) {
    const QString text = QString::fromStdString(source);
    Remark(*Find(dialog, control), "source", text);
    if (auto* const label = Find<QLabel>(dialog, control + "Source")) {
        // A long name of a file must not widen the dialog.
        constexpr int kLetters = 80;
        const QFontMetrics metrics = label->fontMetrics();
        label->setText(
            metrics.elidedText(text, Qt::ElideMiddle, kLetters * metrics.averageCharWidth()));
    }
}

// ---- What the dialogs have of their own

void FocusChosenLimits(QDialog& dialog, FormHost& host) {
    const auto chosen = static_cast<int>(host.Entries().Ranges.Limits);
    Find(dialog, "RadioButton" + std::to_string(chosen))->setFocus();
}

void ShowVerdicts(EntryGrid& grid) {
    const int column = grid.columnCount() - 1;
    TuneAbundances typed;
    for (std::size_t ion = 0; ion < typed.size(); ++ion) {
        typed[ion] = grid.TypedCell(static_cast<int>(ion), column);
    }
    for (std::size_t ion = 0; ion < typed.size(); ++ion) {
        const auto [text, flagged] = VerdictOf(typed, ion);
        grid.SetNote(static_cast<int>(ion), column, {text, flagged});
    }
}

void SetUpTune(QDialog& dialog) {
    SetUp<Ui::TTuneForm>(dialog);
    auto& grid = *Find<EntryGrid>(dialog, "StringGrid1");
    grid.SetUp({{"m/e", 40, true},
                {"ION ABUNDANCE CRITERIA", 220, true},
                {"% RELATIVE ABUNDANCE", 370, false, 70}},
               TuneEntry::kIons, TuneEntry::kIons);
    grid.horizontalHeader()->setStretchLastSection(true);
    int row = 0;
    for (const TuneIon& ion : kTuneIons) {
        grid.SetCell(row, 0, std::string(ion.Mass));
        grid.SetCell(row, 1, std::string(ion.DialogCriterion));
        ++row;
    }
    QObject::connect(&grid, &EntryGrid::Edited, &grid, [&grid] { ShowVerdicts(grid); });
}

void SetUpInitialCalibration(QDialog& dialog) {
    SetUp<Ui::TInitCalInput>(dialog);
    const QString description = Find<QLabel>(dialog, "IdsLabel")->text();
    for (int level = 1; level <= kMaxLevels; ++level) {
        Find(dialog, "CalFileEdit" + std::to_string(level))->setAccessibleDescription(description);
    }
}

// The levels of the calibration that is being printed.
void ShowLevels(QDialog& dialog, FormHost& host) {
    for (int level = 1; level <= kMaxLevels; ++level) {
        for (const char* const name : {"NumberLabel", "CalFileEdit", "BrowseButton"}) {
            Find(dialog, name + std::to_string(level))->setVisible(level <= host.LevelCount());
        }
    }
    dialog.adjustSize();
}

// Presses its parent when what it watches is clicked.
struct ClickForwarder : QObject {
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonRelease &&
            static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            // The chooser opens when the edit is done with the click.
            QMetaObject::invokeMethod(static_cast<QPushButton*>(parent()), &QPushButton::click,
                                      Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }
};

void SetUpContinuingCalibration(QDialog& dialog) {
    SetUp<Ui::TChkCalForm>(dialog);
    auto* const forwarder = new ClickForwarder(Find<QPushButton>(dialog, "Button1"));
    Find(dialog, "LimitEdit")->installEventFilter(forwarder);
}

void SetUpStandardSummary(QDialog& dialog) {
    SetUp<Ui::TARTSummForm>(dialog);
    // A wheel that passes over the dialog must not choose another level.
    Find(dialog, "ConcCombo")->setFocusPolicy(Qt::StrongFocus);
}

// The levels of the calibration report.
void OfferLevels(QDialog& dialog, FormHost& host) {
    auto& list = *Find<QComboBox>(dialog, "ConcCombo");
    list.clear();
    for (const std::string& level : host.Entries().StandardSummary.Levels) {
        list.addItem(QString::fromStdString(level));
    }
}

}  // namespace

// What a dialog has besides its entries; its Cancel is always "CancelButton".
struct EntryDialogParts {
    EntryDialog dialog;
    void (*setUp)(QDialog& dialog);  // its design, and what that leaves open
    // What the dialog offers for the entries that are about to show; null: the same for all.
    void (*prepare)(QDialog& dialog, FormHost& host);
    const char* firstFocus;  // null: `prepare` sets it
    const char* okButton;
    const char* helpButton;
    // What its entries may have come from; null: nobody asks.
    std::vector<EntrySource> (*sources)(const Entries& entries, const Batch& batch,
                                        Reports& reports, int levelCount);
    int helpTopic;
    // A click on Help leaves the entry, and may leave a wrong one; otherwise it leaves none, so
    // that a wrong one does not stand in its way.
    bool helpTakesFocus;
};

namespace {

constexpr EntryDialogParts kParts[] = {
    {EntryDialog::kRecoveryRanges, SetUp<Ui::TForm2Dlg>, FocusChosenLimits, nullptr, "Button1",
     "HelpButton", nullptr, 121, true},
    {EntryDialog::kTune, SetUpTune, nullptr, "SampleEdit", "OkButton", "HelpButton", nullptr, 130,
     false},
    {EntryDialog::kInitialCalibration, SetUpInitialCalibration, ShowLevels, "CalStartMaskEdit",
     "OkButton", "HelpButton", nullptr, 140, true},
    {EntryDialog::kContinuingCalibration, SetUpContinuingCalibration, nullptr, "LabFileEdit",
     "OkButton", "Button2", nullptr, 150, false},
    {EntryDialog::kStandardSummary, SetUpStandardSummary, OfferLevels, "SampleEdit", "OkButton",
     "Button1", SourcesOfStandardSummary, 160, false},
};

}  // namespace

EntryFormDialog::EntryFormDialog(EntryDialog dialog, FormHost& host, WindowServices& services,
                                 QWidget* parent)
    : EntryWindow(parent),
      parts_(*std::ranges::find(kParts, dialog, &EntryDialogParts::dialog)),
      host_(host),
      services_(services),
      table_(TableOf(dialog)),
      checks_(host, *this, [this](const QWidget& control) { return Leave(control); }) {
    parts_.setUp(*this);
    auto& cancel = *Find<QPushButton>(*this, "CancelButton");
    auto& help = *Find<QPushButton>(*this, parts_.helpButton);
    checks_.Allow(cancel);
    if (parts_.helpTakesFocus) {
        checks_.Allow(help);
    } else {
        help.setFocusPolicy(Qt::TabFocus);
    }
    for (const EntryField& field : table_.Fields) {
        AddField(field);
    }
    KeepToOneFieldEach(*this);
    auto* const dateNote = new QLabel(this);
    dateNote->setObjectName("DateNote");
    Find<QHBoxLayout>(*this, "Buttons")->insertWidget(0, dateNote);
    TellOfNoSuchDates(*this, *dateNote);
    connect(Find<QPushButton>(*this, parts_.okButton), &QPushButton::clicked, this,
            &EntryFormDialog::OkClick);
    connect(&cancel, &QPushButton::clicked, this, &EntryFormDialog::reject);
    ConnectHelp(*this, services_, parts_.helpTopic, &help);
    PrintTarget::PutBefore(*Find<QPushButton>(*this, parts_.okButton), kPrintTo,
                           services_.Printers());
}

void EntryFormDialog::AddField(const EntryField& field) {
    for (std::size_t item = 0; item < ItemCount(field, host_.Entries()); ++item) {
        QWidget* const control = ControlOf(*this, field, item);
        if (auto* const date = qobject_cast<MaskEdit*>(control)) {
            date->SetMask(MaskOf(field));
        }
        if (auto* const edit = qobject_cast<QLineEdit*>(control)) {
            connect(edit, &QLineEdit::textChanged, this, &EntryFormDialog::ShowSources);
        }
        if (IsCheckedWhenLeft(table_, field)) {
            checks_.Watch(*control);
        }
        if (field.Browse) {
            connect(Find<QPushButton>(*this, ControlName(field.Browse->Button, field, item)),
                    &QPushButton::clicked, this,
                    [this, &field, item] { BrowseClick(field, item); });
        }
    }
}

bool EntryFormDialog::Run(std::size_t headerRecord) {
    if (!FormOf(parts_.dialog).onShow(host_, headerRecord)) {
        return false;
    }
    if (parts_.prepare) {
        parts_.prepare(*this, host_);
    }
    ShowEntries();
    FindSources();
    for (EntryGrid* const grid : findChildren<EntryGrid*>()) {
        grid->Steps().clear();
        grid->setCurrentCell(0, grid->columnCount() - 1);
    }
    if (parts_.firstFocus) {
        Find(*this, parts_.firstFocus)->setFocus();
    }
    TakePendingFocus();
    const bool accepted = exec() == Accepted;
    FinishEditing();
    StoreEntries();
    return accepted;
}

std::optional<EntryFault> EntryFormDialog::Leave(const QWidget& control) {
    StoreEntries();
    const std::string name = control.objectName().toStdString();
    Entries& entries = host_.Entries();
    for (const EntryField& field : table_.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            if (ControlName(field.Control, field, item) != name) {
                continue;
            }
            if (!field.Rules.Leave) {
                return CheckLeft(table_, field, item, entries,
                                 {.LevelCount = host_.LevelCount(),
                                  .CheckReport = CheckReportNamed(host_.Batch())});
            }
            host_.BeginRun();
            auto fault = field.Rules.Leave(entries, host_.Batch(), host_.Reports(), host_);
            ShowEntries();
            FindSources();
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
    host_.BeginRun();
    const std::optional<EntryFault> fault = FormOf(parts_.dialog).onOk(host_);
    ShowEntries();  // also what OK has taken over
    if (!ShowFault(host_, *this, fault)) {
        accept();
    }
}

void EntryFormDialog::ShowEntries() {
    const Entries& entries = host_.Entries();
    for (const EntryField& field : table_.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            ShowItem(*this, field, item, field.Texts.Get(entries, item));
        }
    }
}

void EntryFormDialog::StoreEntries() {
    StoreInto(host_.Batch(), host_.Entries());
}

void EntryFormDialog::StoreInto(Batch& /*batch*/, Entries& entries) const {
    for (const EntryField& field : table_.Fields) {
        for (std::size_t item = 0; item < ItemCount(field, entries); ++item) {
            if (const auto text = EnteredItem(*this, field, item)) {
                field.Texts.Set(entries, item, *text);
            }
        }
    }
}

void EntryFormDialog::FindSources() {
    if (parts_.sources != nullptr) {
        sources_ =
            parts_.sources(host_.Entries(), host_.Batch(), host_.Reports(), host_.LevelCount());
        ShowSources();
    }
}

void EntryFormDialog::ShowSources() {
    std::set<std::string> told;
    for (const EntrySource& source : sources_) {
        QWidget& control = *Find(*this, source.Control);
        if (told.contains(source.Control) || !source.Gives(TextIn(control))) {
            continue;
        }
        told.insert(source.Control);
        ShowSource(*this, source.Control, source.Note);
    }
    for (const EntrySource& source : sources_) {
        if (!told.contains(source.Control)) {
            ShowSource(*this, source.Control, "");
        }
    }
}

void EntryFormDialog::FinishEditing() {
    for (EntryGrid* const grid : findChildren<EntryGrid*>()) {
        grid->FinishEditing();
    }
}

std::unique_ptr<EntryWindow> MakeEntryDialog(EntryDialog dialog, FormHost& host,
                                             WindowServices& services, QWidget* parent) {
    if (dialog == EntryDialog::kBlankComments) {
        return std::make_unique<TMBSHeader>(host, services, parent);
    }
    return std::make_unique<EntryFormDialog>(dialog, host, services, parent);
}

}  // namespace qfr
