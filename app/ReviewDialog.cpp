#include "app/ReviewDialog.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QClipboard>
#include <QSignalBlocker>

#include "app/MainForm.h"
#include "dialogs/EntryDialogs.h"
#include "forms/FormList.h"
#include "platform/Text.h"
#include "platform/qt/Tables.h"
#include "platform/qt/WaitCursor.h"
#include "review/FindingsList.h"
#include "ui_ReviewDialog.h"

namespace qfr {

namespace {

struct SeverityChoice {
    const char* Caption;
    std::vector<Severity> Severities;
};
const std::array<SeverityChoice, 5>& SeverityChoices() {
    using enum Severity;
    static const std::array<SeverityChoice, 5> choices = {
        {{"Errors and warnings", {kError, kWarning}},
         {"Errors", {kError}},
         {"Warnings", {kWarning}},
         {"Notes", {kNote}},
         {"Everything", {kError, kWarning, kNote}}}};
    return choices;
}

constexpr int kWhyLines = 4;
constexpr int kAboutColumn = 2;
constexpr int kFindingColumn = 3;
constexpr int kMendColumn = 4;
constexpr int kFindingLetters = 72;
constexpr int kFilterLetters = 12;
constexpr QSize kLetters(164, 36);  // that the window has room for

}  // namespace

ReviewDialog::ReviewDialog(TQFRForm& window)
    : QDialog(&window), window_(window), ui_(std::make_unique<Ui::ReviewDialog>()) {
    ui_->setupUi(this);
    for (const SeverityChoice& choice : SeverityChoices()) {
        ui_->SeverityBox->addItem(choice.Caption);
    }
    ui_->FormBox->addItem("All forms");
    for (const FormRow& form : kForms) {
        ui_->FormBox->addItem(QString::fromStdString(std::string(form.caption)));
    }
    for (QComboBox* const box : {ui_->FormBox, ui_->SampleBox}) {
        box->setMinimumContentsLength(kFilterLetters);
    }
    for (QComboBox* const box : {ui_->SeverityBox, ui_->FormBox, ui_->SampleBox}) {
        connect(box, &QComboBox::currentIndexChanged, this, &ReviewDialog::ShowFiltered);
    }

    QTableView& table = *ui_->FindingsTable;
    table.setModel(&model_);
    ensurePolished();
    SetUpRows(table);
    KeepColumnsInSight(table, {.LongTexts = {kAboutColumn, kFindingColumn, kMendColumn},
                               .Rest = kFindingColumn,
                               .LettersOfRest = kFindingLetters});
    ui_->WhyEdit->setFixedHeight(kWhyLines * fontMetrics().lineSpacing() + 14);
    resize(kLetters.width() * fontMetrics().averageCharWidth(),
           std::max(kLetters.height() * fontMetrics().lineSpacing(), sizeHint().height()));

    connect(&table, &QTableView::doubleClicked, this, &ReviewDialog::GoTo);
    connect(table.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &ReviewDialog::ShowSelected);
    connect(ui_->GoToButton, &QPushButton::clicked, this, &ReviewDialog::GoTo);
    connect(ui_->RefreshButton, &QPushButton::clicked, this, &ReviewDialog::Refresh);
    connect(ui_->CopyButton, &QPushButton::clicked, this, &ReviewDialog::Copy);
    connect(ui_->PrintButton, &QPushButton::clicked, this, &ReviewDialog::PrintList);
    connect(ui_->CloseButton, &QPushButton::clicked, this, &QDialog::reject);
    ConnectHelp(*this, window_, kReviewHelpTopic, ui_->HelpButton);
}

ReviewDialog::~ReviewDialog() = default;

void ReviewDialog::ShowFindings() {
    ui_->SeverityBox->setCurrentIndex(0);
    ui_->FormBox->setCurrentIndex(0);
    ui_->SampleBox->setCurrentIndex(0);
    Refresh();
    ui_->FindingsTable->setFocus();
    open();
    FitColumns(*ui_->FindingsTable);
}

void ReviewDialog::ComeBack() {
    if (std::exchange(ledAway_, false)) {
        Refresh();
        open();
        ui_->FindingsTable->setFocus();
    }
}

void ReviewDialog::Refresh() {
    const int row = std::max(Row(), 0);
    const std::string line = Row() >= 0 ? model_.LineAt(row) : "";
    model_.Take(window_.Review(), window_.Batch());
    OfferFilters();
    ShowFiltered();
    // The finding that was chosen, or, where it is gone, the one that has come to its place.
    int chosen = std::min(row, model_.rowCount() - 1);
    for (int i = 0; i < model_.rowCount(); ++i) {
        chosen = model_.LineAt(i) == line ? i : chosen;
    }
    ui_->FindingsTable->selectRow(chosen);
    ShowSelected();
}

// The samples of the batch.
void ReviewDialog::OfferFilters() {
    QComboBox& box = *ui_->SampleBox;
    const QSignalBlocker blocker(box);
    const QString chosen = box.currentText();
    const int index = box.currentIndex();
    box.clear();
    box.addItem("All samples");
    for (const SampleRecord& sample : SamplesOf(window_.Batch())) {
        box.addItem(QString::fromStdString(SampleName(sample)));
    }
    // Two samples may have the same number.
    box.setCurrentIndex(index > 0 && box.itemText(index) == chosen
                            ? index
                            : std::max(box.findText(chosen, Qt::MatchExactly), 0));
}

void ReviewDialog::ShowFiltered() {
    FindingsFilter filter{
        SeverityChoices()[static_cast<std::size_t>(ui_->SeverityBox->currentIndex())].Severities,
        {},
        {}};
    if (const int form = ui_->FormBox->currentIndex(); form > 0) {
        filter.Form = kForms[static_cast<std::size_t>(form) - 1].name;
    }
    if (const int sample = ui_->SampleBox->currentIndex(); sample > 0) {
        filter.Record = static_cast<std::size_t>(sample) - 1;
    }
    model_.Show(filter);
    const std::string count = CountText(model_.All(), Severity::kError) + ", " +
                              CountText(model_.All(), Severity::kWarning) + ", " +
                              CountText(model_.All(), Severity::kNote);
    const bool nothing = CountFindings(model_.All(), Severity::kError) +
                             CountFindings(model_.All(), Severity::kWarning) ==
                         0;
    ui_->CountLabel->setText(
        QString::fromStdString((nothing ? "Nothing to be asked about. " : "") + count +
                               ". Shown: " + std::to_string(model_.rowCount()) + "."));
    ui_->FindingsTable->selectRow(0);
    ShowSelected();
}

int ReviewDialog::Row() const {
    return ui_->FindingsTable->currentIndex().row();
}

void ReviewDialog::ShowSelected() {
    const int row = Row();
    const bool any = model_.rowCount() > 0;
    ui_->GoToButton->setEnabled(row >= 0 && !model_.At(row).Mend.Control.empty());
    ui_->CopyButton->setEnabled(any);
    ui_->PrintButton->setEnabled(any);
    QString why;
    if (row >= 0) {
        const Finding& finding = model_.At(row);
        const std::string place = OneLine(MendText(finding.Mend));
        why = QString::fromStdString(
            OneLine(finding.Sentence) + "\n" + std::string(finding.Rule->Title) + ": " +
            std::string(finding.Rule->Why) + " (" + std::string(finding.Rule->Id) + ")" +
            (finding.Mend.Control.empty() ? "" : "\nTo be mended in " + place + "."));
    }
    ui_->WhyEdit->setPlainText(why);
}

void ReviewDialog::GoTo() {
    const int row = Row();
    if (row < 0 || model_.At(row).Mend.Control.empty()) {
        return;
    }
    const Finding finding = model_.At(row);
    ledAway_ = true;
    hide();
    window_.GoTo(finding.Mend,
                 finding.Records.empty() ? std::nullopt : std::optional(finding.Records.front()));
}

// All that show, with their heads, as a spreadsheet takes them.
void ReviewDialog::Copy() {
    std::string text = FindingsModel::Heads() + "\n";
    for (int row = 0; row < model_.rowCount(); ++row) {
        text += model_.CellsAt(row) + "\n";
    }
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void ReviewDialog::PrintList() {
    const WaitCursor wait;
    std::vector<std::string> lines;
    for (int row = 0; row < model_.rowCount(); ++row) {
        lines.push_back(model_.LineAt(row));
    }
    PrintFindings(window_.Page(),
                  "REVIEW: " + CountText(model_.All(), Severity::kError) + ", " +
                      CountText(model_.All(), Severity::kWarning) +
                      "; listed: " + std::to_string(lines.size()),
                  lines);
}

}  // namespace qfr
