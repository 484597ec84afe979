#include "dialogs/TicForm.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include <QShortcut>

#include "data/TicRows.h"
#include "dialogs/EntryDialogs.h"
#include "platform/Text.h"
#include "ui_TicForm.h"

namespace qfr {

namespace {

constexpr int kHelpTopic = 420;
constexpr int kInitialRows = 29;  // below the heading
constexpr int kVisibleRows = 14;
const char* const kLeaveOut = "Rows left out by OK, because a cell was missing";

}  // namespace

TTICForm::TTICForm(FormHost& host, WindowServices& services, QWidget* parent)
    : QDialog(parent), host_(host), ui_(std::make_unique<Ui::TTICForm>()) {
    ui_->setupUi(this);
    ui_->StringGrid1->SetUp({{"CAS NUMBER", 89},
                             {"COMPOUND NAME", 201},
                             {"RET.TIME", 57},
                             {"EST.CONC.", 65},
                             {"Q", 33}},
                            kInitialRows, kVisibleRows);
    ui_->StringGrid1->LetPasteAddRows();
    ui_->EntryNote->Hear(*this);
    // The cell that is being typed in stays open when these are clicked.
    ui_->AddButton->setFocusPolicy(Qt::TabFocus);
    ui_->DeleteButton->setFocusPolicy(Qt::TabFocus);
    ui_->UndoButton->setFocusPolicy(Qt::TabFocus);

    connect(ui_->AddButton, &QPushButton::clicked, this, &TTICForm::AddButtonClick);
    connect(ui_->DeleteButton, &QPushButton::clicked, this, &TTICForm::DeleteButtonClick);
    EntryGrid& grid = *ui_->StringGrid1;
    connect(ui_->UndoButton, &QPushButton::clicked, &grid, &EntryGrid::Undo);
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, &grid,
            &EntryGrid::Undo);
    connect(new QShortcut(QKeySequence::Redo, this), &QShortcut::activated, &grid,
            &EntryGrid::Redo);
    connect(&grid.Steps(), &QUndoStack::indexChanged, this, &TTICForm::ShowSteps);
    connect(&grid, &EntryGrid::Edited, this, &TTICForm::ShowSteps);
    connect(ui_->OkButton, &QPushButton::clicked, this, &TTICForm::OkButtonClick);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &TTICForm::reject);
    ConnectHelp(*this, services, kHelpTopic);
}

// A cell that is open would tell of its end, and the dialog is no dialog any more.
TTICForm::~TTICForm() {
    ui_->StringGrid1->FinishEditing();
}

bool TTICForm::Run(std::size_t record, const std::string& sampleNo, int row) {
    auto& samples = host_.Batch().SampleList;
    if (!samples || record >= samples->size()) {
        return false;
    }
    record_ = record;
    OnShow((*samples)[record], sampleNo);
    if (row > 0) {
        ui_->StringGrid1->setCurrentCell(row - 1, 0);
    }
    return exec() == Accepted;
}

void TTICForm::OnShow(const SampleRecord& sample, const std::string& sampleNo) {
    ShowText(*ui_->ZOVEdit, sampleNo);
    // What was cancelled in another sample's list is still in the grid.
    EmptyRows();
    EntryGrid& grid = *ui_->StringGrid1;
    int row = 0;
    for (const TicEntry& entry : sample.TicList.value_or(TicListType())) {
        for (int column = 0; column < TicEntry::kCount; ++column) {
            grid.SetCell(row, column, entry.cells[static_cast<std::size_t>(column)]);
        }
        ++row;
        if (row == grid.rowCount()) {
            grid.setRowCount(row + 1);
        }
    }
    grid.Steps().clear();
    ui_->EntryNote->Forget();
    OfferLeftOut(sample);
    grid.setCurrentCell(0, 0);
    grid.scrollToTop();
    grid.setFocus(Qt::TabFocusReason);
}

void TTICForm::EmptyRows() {
    ui_->StringGrid1->FinishEditing();
    ui_->StringGrid1->clearContents();
}

void TTICForm::OfferLeftOut(const SampleRecord& sample) {
    const auto leftOut = leftOut_.find(sample.FileName);
    if (leftOut != leftOut_.end() && leftOut->second.Kept == sample.TicList) {
        ui_->StringGrid1->AddDoneStep(kLeaveOut, leftOut->second.Rows);
    }
    ShowSteps();
}

void TTICForm::ShowSteps() {
    const EntryGrid& grid = *ui_->StringGrid1;
    const QUndoStack& steps = ui_->StringGrid1->Steps();
    const bool typing = grid.TypedCell(grid.currentRow(), grid.currentColumn()) !=
                        grid.Cell(grid.currentRow(), grid.currentColumn());
    const QString step = typing ? EntryGrid::kTyping : steps.undoText();
    ui_->UndoButton->setEnabled(typing || steps.canUndo());
    const QString said = step.isEmpty() ? "" : QString("Takes back: ") + step;
    ui_->UndoButton->setToolTip(said);
    ui_->UndoButton->setAccessibleDescription(said);
}

void TTICForm::AddButtonClick() {
    EntryGrid& grid = *ui_->StringGrid1;
    grid.FinishEditing();
    grid.AsOneStep("Add Row", [&grid] { grid.setRowCount(grid.rowCount() + 1); });
    grid.setCurrentCell(grid.rowCount() - 1, 0);
}

void TTICForm::DeleteButtonClick() {
    EntryGrid& grid = *ui_->StringGrid1;
    if (grid.currentRow() < 0) {
        return;
    }
    grid.FinishEditing();
    grid.AsOneStep("Delete Row", [&grid] {
        for (int row = grid.currentRow(); row < grid.rowCount(); ++row) {
            for (int column = 0; column < grid.columnCount(); ++column) {
                grid.SetCell(row, column, grid.Cell(row + 1, column));
            }
        }
    });
}

std::vector<TicEntry> TTICForm::Rows() const {
    const EntryGrid& grid = *ui_->StringGrid1;
    std::vector<TicEntry> rows(static_cast<std::size_t>(grid.rowCount()));
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < TicEntry::kCount; ++column) {
            rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(column)] =
                grid.TypedCell(row, column);
        }
    }
    return rows;
}

void TTICForm::StoreInto(Batch& batch, Entries& /*entries*/) const {
    if (record_ >= SamplesOf(batch).size()) {
        return;
    }
    TicListType list = Rows();
    std::ranges::transform(list, list.begin(), KeptTic);
    std::erase_if(list, [](const TicEntry& row) {
        return std::ranges::all_of(row.cells,
                                   [](const std::string& cell) { return IsBlank(cell); });
    });
    list.resize(std::min(list.size(), static_cast<std::size_t>(kMaxTics)));
    batch.SampleList->at(record_).TicList =
        list.empty() ? std::nullopt : std::optional(std::move(list));
}

bool TTICForm::AreToBeLeftOut(const std::vector<std::size_t>& rows) {
    if (rows.empty()) {
        return true;
    }
    std::vector<std::string> numbers;
    for (const std::size_t row : rows) {
        numbers.push_back(std::to_string(row));
    }
    const bool one = rows.size() == 1;
    if (host_.AskYesNo(
            RiskyQuestion((one ? "Row " : "Rows ") + Enumerated(numbers) +
                              " will not be kept, because a cell is missing.\nClose the list " +
                              (one ? "without it?" : "without them?"),
                          "Incomplete Rows"))) {
        return true;
    }
    EntryGrid& grid = *ui_->StringGrid1;
    const int row = static_cast<int>(rows.front()) - 1;
    int column = 0;
    while (column < TicEntry::kRequired - 1 && !IsBlank(grid.Cell(row, column))) {
        ++column;
    }
    grid.setFocus();
    grid.setCurrentCell(row, column);
    return false;
}

void TTICForm::OkButtonClick() {
    EntryGrid& grid = *ui_->StringGrid1;
    grid.FinishEditing();
    const std::vector<TicEntry> rows = Rows();
    const std::vector<std::size_t> incomplete = IncompleteTicRows(rows);
    if (!AreToBeLeftOut(incomplete)) {
        return;
    }
    std::optional<TicListType> list = TicListFromRows(rows);
    if (list && std::ssize(*list) > kMaxTics) {
        host_.Show({"No more than 1,000 TICs can be kept for a sample.", "Too Many Entries"});
        return;
    }
    SampleRecord& sample = host_.Batch().SampleList->at(record_);
    sample.TicList = std::move(list);
    leftOut_.erase(sample.FileName);
    if (!incomplete.empty()) {
        leftOut_[sample.FileName] = {grid.AllCells(), sample.TicList};
    }
    EmptyRows();
    accept();
}

}  // namespace qfr
