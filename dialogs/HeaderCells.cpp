#include "dialogs/HeaderCells.h"

#include <utility>

#include <QClipboard>
#include <QComboBox>
#include <QCompleter>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include "data/HeaderFields.h"
#include "dialogs/HeaderTable.h"
#include "dialogs/SheetView.h"
#include "platform/Text.h"
#include "platform/qt/FieldEntry.h"

namespace qfr {

namespace {

bool HasSeveralCells(const QString& text) {
    return text.contains('\t') || text.trimmed().contains('\n');
}

QColor HueOf(HeaderMark mark) {
    return mark == HeaderMark::kEmpty      ? QColor(0xE8, 0xB0, 0x00)
           : mark == HeaderMark::kDoubtful ? QColor(0x30, 0x78, 0xE0)
                                           : QColor(0xD8, 0x20, 0x20);
}

HeaderMark MarkOf(const QModelIndex& index) {
    return static_cast<HeaderMark>(index.data(HeaderTable::kMarkRole).toInt());
}

QLineEdit* LineOf(QWidget* editor) {
    auto* const box = qobject_cast<QComboBox*>(editor);
    return box != nullptr ? box->lineEdit() : qobject_cast<QLineEdit*>(editor);
}

QComboBox* MakeChoiceBox(const HeaderEntry& entry, QWidget* parent) {
    auto* const box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    for (const std::string_view choice : entry.Choices) {
        if (!choice.empty()) {
            box->addItem(QString::fromLatin1(choice.data(), std::ssize(choice)));
        }
    }
    box->completer()->setCompletionMode(QCompleter::InlineCompletion);
    box->completer()->setCaseSensitivity(Qt::CaseInsensitive);
    return box;
}

}  // namespace

QColor ColourOf(HeaderMark mark, const QPalette& palette) {
    constexpr double kStrength = 0.3;
    const QColor hue = HueOf(mark);
    const QColor base = palette.color(QPalette::Base);
    const auto mixed = [&](int of, int in) {
        return static_cast<int>(kStrength * of + (1 - kStrength) * in);
    };
    return mark == HeaderMark::kNone
               ? base
               : QColor(mixed(hue.red(), base.red()), mixed(hue.green(), base.green()),
                        mixed(hue.blue(), base.blue()));
}

HeaderCells::HeaderCells(SheetView& view, std::function<void()> paste)
    : QStyledItemDelegate(&view), view_(view), paste_(std::move(paste)) {}

// A corner in the mark's colour shows in a selected cell, too, and where colours are hard to tell:
// that of a refused value is twice as large.
void HeaderCells::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const HeaderMark mark = MarkOf(index);
    if (mark != HeaderMark::kDoubtful && mark != HeaderMark::kRefused) {
        return;
    }
    const int size = option.rect.height() / (mark == HeaderMark::kRefused ? 2 : 4);
    const QPoint corner = option.rect.topRight() + QPoint(1, 0);
    painter->save();
    painter->setPen(option.palette.color(QPalette::Base));
    painter->setBrush(HueOf(mark));
    painter->drawPolygon(QPolygon({corner, corner - QPoint(size, 0), corner + QPoint(0, size)}));
    painter->restore();
}

QWidget* HeaderCells::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                   const QModelIndex& index) const {
    const HeaderCell cell = HeaderTable::CellAt(index);
    const HeaderEntry& entry = HeaderEntryOf(cell.Field);
    QWidget* editor = nullptr;
    if (entry.Kind == HeaderKind::kChoice) {
        editor = MakeChoiceBox(entry, parent);
    } else {
        auto* const line = new QLineEdit(parent);
        line->setFrame(false);
        editor = line;
    }
    editor->setAutoFillBackground(true);
    const auto& table = static_cast<const HeaderTable&>(*index.model());
    editor->setAccessibleName(QString::fromStdString(table.Sheet().NameOf(cell)));
    QLineEdit& line = *LineOf(editor);
    line.setMaxLength(kMaxPrintedText);
    KeepToOneField(line, [this](const QLineEdit&, bool fieldEnd) {
        if (fieldEnd) {
            emit FieldEndEntered();
        }
    });
    emit EditingBegan();
    return editor;
}

void HeaderCells::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* const box = qobject_cast<QComboBox*>(editor)) {
        box->setCurrentIndex(box->findText(text));
        box->setEditText(text);
        box->lineEdit()->selectAll();
    } else {
        LineOf(editor)->setText(text);
    }
}

std::optional<QString> HeaderCells::EnteredIn(QWidget& editor, const QModelIndex& index) {
    const QLineEdit& line = *LineOf(&editor);
    QString text = line.text();
    if (const auto* const box = qobject_cast<QComboBox*>(&editor)) {
        // Completed, it may be in another case.
        const int listed = box->findText(text, Qt::MatchFixedString);
        text = listed >= 0 ? box->itemText(listed) : text;
    }
    const bool entered = line.isModified() || text != index.data(Qt::EditRole).toString();
    return entered ? std::optional(text) : std::nullopt;
}

void HeaderCells::setModelData(QWidget* editor, QAbstractItemModel* model,
                               const QModelIndex& index) const {
    if (const auto text = EnteredIn(*editor, index)) {
        model->setData(index, *text, Qt::EditRole);
    }
}

void HeaderCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (const HeaderMark mark = MarkOf(index); mark != HeaderMark::kNone) {
        option->backgroundBrush = ColourOf(mark, option->palette);
        option->font.setItalic(mark == HeaderMark::kRefused);
    }
}

bool HeaderCells::eventFilter(QObject* editor, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        auto& key = *static_cast<QKeyEvent*>(event);
        const bool pastes = key.matches(QKeySequence::Paste) &&
                            HasSeveralCells(QGuiApplication::clipboard()->text());
        if (pastes || view_.LeavesEditor(key)) {
            view_.FinishEditing();
            pastes ? paste_() : view_.TakeKey(key);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

}  // namespace qfr
