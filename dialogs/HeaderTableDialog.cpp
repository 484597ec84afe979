#include "dialogs/HeaderTableDialog.h"

#include <algorithm>
#include <utility>

#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

#include "dialogs/EntryDialogs.h"
#include "dialogs/HeaderCells.h"
#include "dialogs/HeaderColumns.h"
#include "platform/Text.h"
#include "platform/qt/FieldEntry.h"
#include "platform/qt/ShownText.h"
#include "platform/qt/WaitCursor.h"
#include "ui_HeaderTableDialog.h"

namespace qfr {

namespace {

constexpr int kFindCommands = 3;    // at the end of the menu
constexpr int kRowPadding = 8;      // pixels
constexpr QSize kLetters(150, 30);  // that the window has room for

}  // namespace

HeaderTableDialog::HeaderTableDialog(FormHost& host, WindowServices& services, Remembered& memory,
                                     QWidget* parent)
    : QDialog(parent),
      host_(host),
      services_(services),
      ui_(std::make_unique<Ui::HeaderTableDialog>()) {
    setWindowFlags(windowFlags() | Qt::WindowMaximizeButtonHint);
    ui_->setupUi(this);
    SetUpTable(memory);
    SetUpCommands();
    ShowColours();
    ui_->FindBar->LookIn(table_, *ui_->HeadersTable);

    connect(&table_, &HeaderTable::Changed, this, &HeaderTableDialog::OnChanged);
    connect(ui_->HeadersTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &HeaderTableDialog::ShowState);
    connect(ui_->CloseButton, &QPushButton::clicked, this, &HeaderTableDialog::reject);
    ConnectHelp(*this, services_, kHeadersHelpTopic, ui_->HelpButton);
}

HeaderTableDialog::~HeaderTableDialog() = default;

void HeaderTableDialog::SetUpTable(Remembered& memory) {
    SheetView& view = *ui_->HeadersTable;
    view.setModel(&table_);
    auto* const cells = new HeaderCells(view, [this] { Paste(); });
    view.setItemDelegate(cells);
    connect(cells, &HeaderCells::EditingBegan, this, [this] { fieldEndEntered_ = false; });
    connect(cells, &HeaderCells::FieldEndEntered, this, [this] {
        fieldEndEntered_ = true;
        ShowRemark(kNoFieldEnd);
    });
    ensurePolished();
    const QFontMetrics metrics = fontMetrics();
    columns_ = new HeaderColumns(view, memory);
    view.verticalHeader()->setDefaultSectionSize(metrics.height() + kRowPadding);
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    const QSize size(kLetters.width() * metrics.averageCharWidth(),
                     kLetters.height() * metrics.height());
    resize(size.boundedTo(screen()->availableGeometry().size()));
}

QAction* HeaderTableDialog::AddCommand(QMenu& menu, const QString& caption,
                                       const QKeySequence& shortcut,
                                       void (HeaderTableDialog::*handler)()) {
    QAction* const action = menu.addAction(caption);
    action->setShortcut(shortcut);
    // Where something else has the focus, nobody means the cells.
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, handler] {
        ui_->HeadersTable->FinishEditing();
        fieldEndEntered_ = false;
        (this->*handler)();
    });
    ui_->HeadersTable->addAction(action);
    return action;
}

void HeaderTableDialog::AddStep(QMenu& menu, QAction* action, void (QUndoStack::*step)()) {
    // The stack's own way does not know what is being typed.
    disconnect(action, nullptr, &table_.Steps(), nullptr);
    connect(action, &QAction::triggered, this, [this, step] {
        ui_->HeadersTable->FinishEditing();
        (table_.Steps().*step)();
    });
    menu.addAction(action);
}

void HeaderTableDialog::SetUpCommands() {
    auto* const bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu& menu = *bar->addMenu("&Edit");
    connect(&menu, &QMenu::aboutToShow, ui_->HeadersTable, &SheetView::FinishEditing);
    QAction* const undo = table_.Steps().createUndoAction(&menu);
    QAction* const redo = table_.Steps().createRedoAction(&menu);
    undo->setShortcut(QKeySequence("Ctrl+Z"));
    redo->setShortcuts({QKeySequence("Ctrl+Y"), QKeySequence("Ctrl+Shift+Z")});
    AddStep(menu, undo, &QUndoStack::undo);
    AddStep(menu, redo, &QUndoStack::redo);
    menu.addSeparator();
    AddCommand(menu, "Cu&t", QKeySequence("Ctrl+X"), &HeaderTableDialog::Cut);
    AddCommand(menu, "&Copy", QKeySequence("Ctrl+C"), &HeaderTableDialog::Copy);
    AddCommand(menu, "&Paste", QKeySequence("Ctrl+V"), &HeaderTableDialog::Paste);
    AddCommand(menu, "&Empty", QKeySequence("Del"), &HeaderTableDialog::Clear);
    AddCommand(menu, "Select &All", QKeySequence("Ctrl+A"), &HeaderTableDialog::SelectAll);
    menu.addSeparator();
    const QAction* const fillDown =
        AddCommand(menu, "Fill &Down", QKeySequence("Ctrl+D"), &HeaderTableDialog::FillDown);
    const QAction* const fillEmpty = AddCommand(menu, "Fill E&mpty Cells", QKeySequence("Ctrl+E"),
                                                &HeaderTableDialog::FillEmpty);
    connect(ui_->FillDownButton, &QPushButton::clicked, fillDown, &QAction::trigger);
    connect(ui_->FillEmptyButton, &QPushButton::clicked, fillEmpty, &QAction::trigger);
    menu.addSeparator();
    AddCommand(menu, "&Find...", QKeySequence("Ctrl+F"), &HeaderTableDialog::OpenFindBar);
    AddCommand(menu, "Find &Next", QKeySequence("F3"), &HeaderTableDialog::FindNext);
    AddCommand(menu, "Find Pre&vious", QKeySequence("Shift+F3"), &HeaderTableDialog::FindPrevious);
    for (QAction* const find : menu.actions().last(kFindCommands)) {
        find->setShortcutContext(Qt::WindowShortcut);
    }
    ui_->HeadersTable->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void HeaderTableDialog::ShowHeaders() {
    if (SamplesOf(host_.Batch()).empty()) {
        host_.Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
        return;
    }
    table_.Open(host_.Batch());
    columns_->Fit();
    ui_->FindBar->Close();
    ui_->HeadersTable->Go(table_.index(0, 0));
    ShowRemark("");
    ShowState();
    open();
}

void HeaderTableDialog::StoreInto(Batch& batch, Entries& /*entries*/) const {
    const QModelIndex current = ui_->HeadersTable->currentIndex();
    QWidget* const editor = ui_->HeadersTable->indexWidget(current);
    if (const auto text =
            editor != nullptr ? HeaderCells::EnteredIn(*editor, current) : std::nullopt) {
        HeaderSheet sheet(batch);
        sheet.Redo(sheet.ChangesBy({{HeaderTable::CellAt(current), text->toStdString()}}));
    }
}

void HeaderTableDialog::reject() {
    if (!table_.IsOpen()) {
        return;
    }
    SheetView& view = *ui_->HeadersTable;
    view.FinishEditing();
    if (!AgreesToLose()) {
        view.Go(table_.IndexOf(table_.Sheet().Refused().begin()->first));
        view.setFocus();
        return;
    }
    QDialog::reject();
    table_.Close();
    services_.ShowMainWindow();
}

bool HeaderTableDialog::AgreesToLose() const {
    constexpr std::size_t kMost = 5;
    std::vector<std::string> lines;
    for (const auto& [cell, text] : table_.Sheet().Refused()) {
        lines.push_back(Visible(table_.Sheet().RefusalOf(cell)));
    }
    Message question = ListMessage("These values were not taken:", lines, kMost);
    question.text += "\nClose without them?";
    question.noByDefault = true;
    return lines.empty() || host_.AskYesNo(question);
}

void HeaderTableDialog::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ShowColours();
    }
}

// Enter must never close the window; Escape closes the find bar first.
void HeaderTableDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && ui_->FindBar->isVisible()) {
        ui_->FindBar->Close();
    } else if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
    } else if (auto* const button = qobject_cast<QAbstractButton*>(focusWidget())) {
        button->click();
    }
}

void HeaderTableDialog::ShowColours() {
    const auto show = [this](QLabel* label, HeaderMark mark) {
        QPalette colours = palette();
        colours.setColor(QPalette::Window, ColourOf(mark, colours));
        colours.setColor(QPalette::WindowText, colours.color(QPalette::Text));
        label->setPalette(colours);
    };
    show(ui_->EmptyLabel, HeaderMark::kEmpty);
    show(ui_->DoubtfulLabel, HeaderMark::kDoubtful);
    show(ui_->RefusedLabel, HeaderMark::kRefused);
}

void HeaderTableDialog::ShowState() {
    if (!table_.IsOpen()) {
        return;
    }
    const HeaderSheet& sheet = table_.Sheet();
    const std::size_t refused = sheet.Refused().size();
    ui_->CompleteLabel->setText(
        QString("%1 of %2 headers complete").arg(sheet.CompleteRows()).arg(sheet.Rows()) +
        (refused > 0 ? QString(". Not taken: %1").arg(refused) : QString()));
    if (const QModelIndex current = ui_->HeadersTable->currentIndex(); current.isValid()) {
        const HeaderCell cell = HeaderTable::CellAt(current);
        const std::string note = sheet.NoteOf(cell).Text;
        const std::string sample = SampleName(SamplesOf(host_.Batch())[cell.Record]);
        ui_->NoteLabel->setText(Shown(note.empty() ? sheet.NameOf(cell) : sample + ": " + note));
        ui_->NoteLabel->setToolTip(ui_->NoteLabel->text());
    }
}

void HeaderTableDialog::ShowRemark(const QString& text) {
    ui_->RemarkLabel->setText(text);
    ui_->RemarkLabel->setToolTip(text);
}

QString HeaderTableDialog::RemarkOn(const std::vector<HeaderChange>& changes) const {
    const HeaderSheet& sheet = table_.Sheet();
    std::vector<HeaderCell> refused;
    for (const auto& [cell, before, after] : changes) {
        if (sheet.Refused().contains(cell) && before.Refused != after.Refused) {
            refused.push_back(cell);
        }
    }
    if (refused.empty()) {
        return {};
    }
    const QString first = Shown(sheet.RefusalOf(refused.front()));
    return refused.size() == 1
               ? "Not taken: " + first
               : QString("%1 values were not taken. The first: ").arg(refused.size()) + first;
}

void HeaderTableDialog::OnChanged(const std::vector<HeaderChange>& changes, bool again) {
    if (again) {
        const auto [left, right] = std::ranges::minmax(
            changes, {}, [](const HeaderChange& change) { return change.Cell.Field; });
        const HeaderCell last{changes.back().Cell.Record, right.Cell.Field};
        ui_->HeadersTable->Go(table_.IndexOf(last));
        ui_->HeadersTable->Go(table_.IndexOf({changes.front().Cell.Record, left.Cell.Field}), true);
    }
    QStringList remarks = {RemarkOn(changes)};
    if (std::exchange(fieldEndEntered_, false)) {
        remarks << kNoFieldEnd;
    }
    remarks.removeAll("");
    ShowRemark(remarks.join(' '));
    ShowState();
}

std::vector<HeaderCell> HeaderTableDialog::Selection() const {
    const SheetView& view = *ui_->HeadersTable;
    std::vector<HeaderCell> cells;
    for (const QModelIndex& index : view.selectionModel()->selectedIndexes()) {
        cells.push_back(HeaderTable::CellAt(index));
    }
    if (cells.empty()) {
        cells.push_back(HeaderTable::CellAt(view.currentIndex()));
    }
    std::ranges::sort(cells);
    return cells;
}

void HeaderTableDialog::Copy() {
    QGuiApplication::clipboard()->setText(
        QString::fromStdString(FormatTabSeparated(table_.Sheet().Copy(Selection()))));
}

void HeaderTableDialog::Cut() {
    Copy();
    table_.Enter(HeaderSheet::Clear(Selection()), "Cut");
}

void HeaderTableDialog::Clear() {
    table_.Enter(HeaderSheet::Clear(Selection()), "Empty");
}

void HeaderTableDialog::Paste() {
    const CellRows rows = ParseTabSeparated(QGuiApplication::clipboard()->text().toStdString());
    PastedCells pasted = table_.Sheet().Paste(rows, Selection());
    if (pasted.Cells.empty()) {
        return;
    }
    const QModelIndex first = table_.IndexOf(pasted.Cells.front().Cell);
    const QModelIndex last = table_.IndexOf(pasted.Cells.back().Cell);
    fieldEndEntered_ = std::ranges::any_of(
        pasted.Cells, [](const EnteredCell& entered) { return Contains(entered.Text, ";"); });
    {
        const WaitCursor wait;
        table_.Enter(std::move(pasted.Cells), "Paste");
    }
    if (std::exchange(fieldEndEntered_, false)) {
        ShowRemark(kNoFieldEnd);  // what was pasted has changed nothing
    }
    ui_->HeadersTable->selectionModel()->select({first, last}, QItemSelectionModel::ClearAndSelect);
    if (pasted.RowsLeftOut + pasted.ColumnsLeftOut > 0) {
        host_.Show(
            {"The clipboard has more than there is room for from here on.\nLeft out at its "
             "end: rows: " +
                 std::to_string(pasted.RowsLeftOut) +
                 ", columns: " + std::to_string(pasted.ColumnsLeftOut) + ".",
             "Edit All Headers", MessageIcon::kWarning});
    }
}

void HeaderTableDialog::FillDown() {
    table_.Enter(table_.Sheet().FillDown(Selection()), "Fill Down");
}

void HeaderTableDialog::FillEmpty() {
    table_.Enter(table_.Sheet().FillEmpty(Selection()), "Fill Empty Cells");
}

void HeaderTableDialog::SelectAll() {
    ui_->HeadersTable->selectAll();
}

void HeaderTableDialog::OpenFindBar() {
    ui_->FindBar->Open();
}

void HeaderTableDialog::FindNext() {
    ui_->FindBar->GoOn(1);
}

void HeaderTableDialog::FindPrevious() {
    ui_->FindBar->GoOn(-1);
}

}  // namespace qfr
