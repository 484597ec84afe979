#include "dialogs/CellDelegate.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPainter>

#include "dialogs/EntryGrid.h"
#include "platform/qt/FieldEntry.h"

namespace qfr {

namespace {

constexpr int kNoteSpace = 6;  // pixels around a note

bool HasSeveralCells(const QString& text) {
    return text.contains('\t') || text.contains('\n');
}

}  // namespace

CellDelegate::CellDelegate(EntryGrid& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const {
    QWidget* const editor = QStyledItemDelegate::createEditor(parent, option, index);
    const QAbstractItemModel& model = *index.model();
    editor->setAccessibleName(model.headerData(index.column(), Qt::Horizontal).toString() + ' ' +
                              model.headerData(index.row(), Qt::Vertical).toString());
    editor->setAccessibleDescription(index.data(Qt::AccessibleDescriptionRole).toString());
    // Cells that came in by another way than the key, such as the context menu.
    if (auto* const line = qobject_cast<QLineEdit*>(editor)) {
        KeepToOneField(
            *line, [this](QLineEdit& edit, bool fieldEnd) { emit grid_.Typed(&edit, fieldEnd); });
        connect(line, &QLineEdit::textEdited, &grid_, &EntryGrid::Edited);
        connect(
            line, &QLineEdit::textEdited, &grid_,
            [this, line](const QString& text) {
                if (HasSeveralCells(text)) {
                    line->undo();
                    grid_.Paste();
                }
            },
            Qt::QueuedConnection);
    }
    return editor;
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                const QModelIndex& index) const {
    grid_.AsOneStep(EntryGrid::kTyping,
                    [&] { QStyledItemDelegate::setModelData(editor, model, index); });
}

void CellDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
    QStyleOptionViewItem text = option;
    text.rect = grid_.TextPlace(index, option.rect);
    QStyledItemDelegate::updateEditorGeometry(editor, text, index);
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem text = option;
    text.rect = grid_.TextPlace(index, option.rect);
    QStyledItemDelegate::paint(painter, text, index);
    const auto note = grid_.notes_.find({index.row(), index.column()});
    if (note == grid_.notes_.end()) {
        return;
    }
    QRect place = option.rect;
    place.setLeft(text.rect.right() + kNoteSpace);
    place.setRight(place.right() - kNoteSpace);
    QFont font = option.font;
    font.setBold(note->second.Strong);
    painter->save();
    painter->setFont(font);
    painter->setPen(option.palette.color(option.state.testFlag(QStyle::State_Selected)
                                             ? QPalette::HighlightedText
                                             : QPalette::Text));
    painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      QFontMetrics(font).elidedText(QString::fromStdString(note->second.Text),
                                                    Qt::ElideRight, place.width()));
    painter->restore();
}

bool CellDelegate::eventFilter(QObject* editor, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const QString text = QGuiApplication::clipboard()->text();
        if (key.matches(QKeySequence::Paste) && HasSeveralCells(text)) {
            grid_.Paste();
            return true;
        }
        const auto& line = *static_cast<QLineEdit*>(editor);
        // The edit takes back what was typed there, and then the grid its own.
        if (key.matches(QKeySequence::Undo) && !line.isUndoAvailable()) {
            grid_.Undo();
            return true;
        }
        if (key.matches(QKeySequence::Redo) && !line.isRedoAvailable()) {
            grid_.Redo();
            return true;
        }
        if (IsEnter(key)) {
            grid_.FinishEditing();
            grid_.MoveDown();
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

}  // namespace qfr
