#include "dialogs/EntryDialogParts.h"

#include <algorithm>

#include <QMouseEvent>

#include "data/TuneRules.h"
#include "dialogs/EntryControls.h"
#include "dialogs/EntryGrid.h"
#include "ui_ARTSummForm.h"
#include "ui_ChkCalForm.h"
#include "ui_Form2Dlg.h"
#include "ui_InitCalInput.h"
#include "ui_TuneForm.h"

namespace qfr {

namespace {

template <typename Design>
void SetUp(QDialog& dialog) {
    Design().setupUi(&dialog);
}

void FocusChosenLimits(QDialog& dialog, FormHost& host) {
    const auto chosen = static_cast<int>(host.Entries().Ranges.Limits);
    Find(dialog, "RadioButton" + std::to_string(chosen))->setFocus();
}

void ShowVerdicts(EntryGrid& grid, QLabel& label) {
    const int column = grid.columnCount() - 1;
    TuneAbundances typed;
    for (std::size_t ion = 0; ion < typed.size(); ++ion) {
        typed[ion] = grid.TypedCell(static_cast<int>(ion), column);
    }
    for (std::size_t ion = 0; ion < typed.size(); ++ion) {
        const auto [text, sentence, flagged] = VerdictOf(typed, ion);
        grid.SetNote(static_cast<int>(ion), column, {text, sentence, flagged});
    }
    label.setText(grid.CurrentNote());
}

void SetUpTune(QDialog& dialog) {
    SetUp<Ui::TTuneForm>(dialog);
    auto& grid = *Find<EntryGrid>(dialog, "StringGrid1");
    grid.SetUp({{"m/e", 40, true},
                {"ION ABUNDANCE CRITERIA", 220, true},
                {"% RELATIVE ABUNDANCE", 190, false, 80}},
               TuneEntry::kIons, TuneEntry::kIons);
    int row = 0;
    for (const TuneIon& ion : kTuneIons) {
        grid.SetCell(row, 0, std::string(ion.Mass));
        grid.SetCell(row, 1, std::string(ion.DialogCriterion));
        ++row;
    }
    auto& label = *Find<QLabel>(dialog, "VerdictLabel");
    const auto show = [&grid, &label] { ShowVerdicts(grid, label); };
    QObject::connect(&grid, &EntryGrid::Edited, &grid, show);
    QObject::connect(&grid, &QTableWidget::currentCellChanged, &grid, show);
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

const EntryDialogParts& PartsOf(EntryDialog dialog) {
    return *std::ranges::find(kParts, dialog, &EntryDialogParts::dialog);
}

}  // namespace qfr
