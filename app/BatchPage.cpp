#include "app/BatchPage.h"

#include <algorithm>
#include <functional>
#include <span>
#include <utility>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include "app/MainForm.h"
#include "app/PrintAll.h"
#include "platform/qt/ControlRow.h"
#include "platform/qt/ElidedLabel.h"
#include "platform/qt/Tables.h"

namespace qfr {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPause(200);       // before it counts as idle
constexpr milliseconds kStep(10);         // in which input waits
constexpr milliseconds kUnnoticed(100);   // a look through that costs nothing
constexpr milliseconds kWorthAWord(500);  // one that lasts

// With commands for the chosen row; long texts are in these columns.
void SetUp(QTableView& table, QAbstractItemModel& model, std::vector<int> longTexts) {
    table.setModel(&model);
    SetUpRows(table);
    KeepColumnsInSight(table, {.LongTexts = std::move(longTexts)});
    table.setTextElideMode(Qt::ElideMiddle);
    table.setAlternatingRowColors(true);
    table.setShowGrid(false);
    table.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void AddAction(QTableView& table, const QString& caption, const std::function<void()>& handler) {
    auto* const action = new QAction(caption, &table);
    QObject::connect(action, &QAction::triggered, &table, handler);
    table.addAction(action);
}

// A button that Enter presses too.
QPushButton* AddCommand(QHBoxLayout* row, const QString& caption, const char* name,
                        const std::function<void()>& handler) {
    QPushButton* const button = AddButton(row, caption, name);
    button->setAutoDefault(true);
    QObject::connect(button, &QPushButton::clicked, button, handler);
    return button;
}

// The label at the left, and room for buttons at the right end.
QHBoxLayout* HeadRow(const QString& caption, QWidget* table) {
    auto* const row = new QHBoxLayout;
    auto* const label = new QLabel(caption);
    label->setBuddy(table);
    row->addWidget(label);
    row->addStretch();
    return row;
}

}  // namespace

BatchPage::BatchPage(TQFRForm& window, const DesktopServices& services)
    : window_(window),
      services_(services),
      lookingLabel_(new ElidedLabel("Looking through the batch...")),
      samplesTable_(new QTableView),
      formsTable_(new QTableView) {
    setObjectName("BatchPage");
    auto* const rows = new QVBoxLayout(this);
    AddSamples(*rows);
    AddForms(*rows);
    next_.setSingleShot(true);
    connect(&next_, &QTimer::timeout, this, &BatchPage::GoOnLooking);
    ForgetPrinted();
}

void BatchPage::AddSamples(QVBoxLayout& rows) {
    samplesTable_->setObjectName("SamplesTable");
    sorted_.setSourceModel(&samples_);
    sorted_.setSortRole(SampleTable::kSortRole);
    SetUp(*samplesTable_, sorted_,
          {SampleTable::kSampleNo, SampleTable::kLabSampleId, SampleTable::kReport});
    samplesTable_->horizontalHeader()->setSortIndicator(SampleTable::kNumber, Qt::AscendingOrder);
    samplesTable_->setSortingEnabled(true);
    connect(samplesTable_, &QTableView::activated, this, &BatchPage::OpenSample);
    connect(samplesTable_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &BatchPage::WaitLonger);
    connect(samplesTable_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &BatchPage::WaitLonger);

    QHBoxLayout* const head = HeadRow("Samp&les:", samplesTable_);
    lookingLabel_->setObjectName("LookingLabel");
    lookingLabel_->hide();
    head->insertWidget(1, lookingLabel_);
    previewButton_ =
        AddCommand(head, "Pre&view All Forms", "PreviewAllButton", [this] { PreviewAllForms(); });
    sheetsButton_ =
        AddCommand(head, "Print &Sample's Sheets", "PrintSheetsButton", [this] { PrintSheets(); });
    AddAction(*samplesTable_, "&Header...", [this] { OpenHeader(); });
    AddAction(*samplesTable_, "&TICs...", [this] { OpenTics(); });
    AddAction(*samplesTable_, "&Print Sample's Sheets", [this] { PrintSheets(); });
    AddAction(*samplesTable_, "&Review Batch...", [this] { window_.ShowReview(); });
    rows.addLayout(head);
    rows.addWidget(samplesTable_, 3);
}

void BatchPage::AddForms(QVBoxLayout& rows) {
    formsTable_->setObjectName("FormsTable");
    SetUp(*formsTable_, forms_, {FormsTable::kForm, FormsTable::kState});
    connect(formsTable_, &QTableView::activated, this, &BatchPage::OpenForm);

    QHBoxLayout* const head = HeadRow("F&orms:", formsTable_);
    AddCommand(head, "Print For&m", "PrintFormButton", [this] { PrintForm(); });
    AddAction(*formsTable_, "&Open Entry...", [this] { OpenForm(); });
    AddAction(*formsTable_, "&Print Form", [this] { PrintForm(); });
    rows.addLayout(head);
    rows.addWidget(formsTable_, 2);
}

void BatchPage::Refresh() {
    if (samples_.Show(window_.Batch())) {
        states_ = {};
    }
    sheetsButton_->setEnabled(samples_.rowCount() > 0);
    for (QTableView* const table : {samplesTable_, formsTable_}) {
        if (!table->currentIndex().isValid()) {
            table->setCurrentIndex(table->model()->index(0, 0));
        }
    }
    ShowStates();
    LookThroughWhenIdle();
}

void BatchPage::ShowNew() {
    EndLooking();
    source_.reset();
    states_ = {};
    samples_.ShowFindings({});
    samplesTable_->setCurrentIndex({});
    formsTable_->setCurrentIndex({});
    samplesTable_->sortByColumn(SampleTable::kNumber, Qt::AscendingOrder);
    Refresh();
    FitColumns(*samplesTable_);
    previewButton_->setFocus();
}

void BatchPage::ForgetPrinted() {
    printedBefore_ = services_.Printed.Jobs().size();
}

bool BatchPage::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && isVisible()) {
        Refresh();
    }
    if (event->type() == QEvent::Show) {
        LookThroughWhenIdle();
    }
    return QWidget::event(event);
}

BatchPage::Source BatchPage::Now() const {
    return {window_.Batch(), window_.Entries(), window_.Flags()};
}

bool BatchPage::IsNow(const std::optional<Source>& source) const {
    return source && source->Batch == window_.Batch() && source->Entries == window_.Entries() &&
           source->Flags == window_.Flags();
}

// The files may have changed on disk: where that costs nothing, it is found out each time.
void BatchPage::LookThroughWhenIdle() {
    if (!isVisible()) {
        return;
    }
    const bool known = IsNow(source_);
    if (!known) {
        EndLooking();
        source_.reset();
    }
    if (looking_ || !known || lookedFor_ < kUnnoticed) {
        next_.start(kPause);
    }
}

// Somebody is at work in the samples.
void BatchPage::WaitLonger() {
    if (next_.isActive()) {
        next_.start(kPause);
    }
}

void BatchPage::GoOnLooking() {
    if (!isVisible()) {
        return;  // it is shown again
    }
    // Above it something else is in use.
    if (QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr) {
        next_.start(kPause);
        return;
    }
    QElapsedTimer time;
    time.start();
    if (!looking_) {
        source_ = Now();
        lookedFor_ = {};
        looking_ = std::make_unique<LookThrough>(
            SavedBatch{source_->Batch, source_->Entries, source_->Flags}, window_.LevelCount(),
            services_.Metrics);
    }
    bool goesOn = true;
    while (goesOn && !time.hasExpired(kStep.count())) {
        goesOn = looking_->Step();
    }
    lookedFor_ += std::chrono::nanoseconds(time.nsecsElapsed());
    if (goesOn) {
        lookingLabel_->setVisible(lookedFor_ > kWorthAWord);
        next_.start(0);
        return;
    }
    const BatchStates states = looking_->Take();
    EndLooking();
    if (IsNow(source_)) {
        states_ = states;
        ShowStates();
    } else {
        Refresh();  // it has changed meanwhile
    }
}

void BatchPage::EndLooking() {
    looking_.reset();
    lookingLabel_->hide();
}

void BatchPage::ShowStates() {
    samples_.ShowFindings(states_.Samples);
    forms_.Show(window_.Batch(), states_.Forms,
                std::span(services_.Printed.Jobs()).subspan(printedBefore_));
    FitColumns(*formsTable_);
}

std::optional<std::size_t> BatchPage::CurrentRecord() const {
    const QModelIndex index = sorted_.mapToSource(samplesTable_->currentIndex());
    return index.isValid() ? std::optional(static_cast<std::size_t>(index.row())) : std::nullopt;
}

void BatchPage::OpenHeader() {
    if (const auto record = CurrentRecord()) {
        MendPlace place;
        place.Window = MendWindow::kForm1Header;
        place.Field = FirstEmptyField((*window_.Batch().SampleList)[*record].Header)
                          .value_or(HeaderField::kZovSampleNo);
        window_.GoTo(place, record);
    }
}

void BatchPage::OpenTics() {
    MendPlace place;
    place.Window = MendWindow::kTics;
    window_.GoTo(place, CurrentRecord());
}

void BatchPage::OpenSample(const QModelIndex& index) {
    switch (index.column()) {
        case SampleTable::kTics:
            return OpenTics();
        case SampleTable::kFindings:
            return window_.ShowReview();
        default:
            return OpenHeader();
    }
}

void BatchPage::OpenForm() {
    const FormRow& form = kForms[static_cast<std::size_t>(formsTable_->currentIndex().row())];
    if (!form.entry) {
        return window_.FormClick(form, CurrentRecord().value_or(0));
    }
    MendPlace place;
    place.Window = MendWindow::kEntry;
    place.Dialog = form.entry;
    window_.GoTo(place, std::nullopt);
}

void BatchPage::PreviewAllForms() {
    PreviewAll(window_, services_.Metrics, services_.Packages);
    window_.ShowPrinted();
}

void BatchPage::PrintForm() {
    PackageChoice choice;
    choice.forms.at(static_cast<std::size_t>(formsTable_->currentIndex().row())) = true;
    choice.samples.assign(SamplesOf(window_.Batch()).size(), true);
    PrintChosen(window_, services_.Metrics, services_.Packages, "Print Form", choice);
    window_.ShowPrinted();
}

void BatchPage::PrintSheets() {
    const std::optional<std::size_t> record = CurrentRecord();
    if (!record) {
        return;
    }
    PackageChoice choice;
    for (std::size_t i = 0; i < kForms.size(); ++i) {
        choice.forms[i] = kForms[i].printSample != nullptr;
    }
    choice.samples.resize(SamplesOf(window_.Batch()).size());
    choice.samples.at(*record) = true;
    PrintChosen(window_, services_.Metrics, services_.Packages, "Print Sample's Sheets", choice);
    window_.ShowPrinted();
}

}  // namespace qfr
