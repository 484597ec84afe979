#include "dialogs/HeaderMarks.h"

#include <QComboBox>
#include <QIcon>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSignalBlocker>

#include "data/HeaderFields.h"
#include "dialogs/FieldRemarks.h"

namespace qfr {

namespace {

constexpr int kIconSize = 16;  // pixels
const char* const kCarriedOver = "carried";

// A tick, or an empty ring; there are thousands of items to few pictures.
QIcon CompletenessIcon(const QWidget& widget, bool complete) {
    const QColor colour = widget.palette().color(QPalette::Text);
    const QString name = QString("completeness %1 %2 %3")
                             .arg(colour.name())
                             .arg(complete)
                             .arg(widget.devicePixelRatioF());
    if (QPixmap known; QPixmapCache::find(name, &known)) {
        return QIcon(known);
    }
    QPixmap picture(QSize(kIconSize, kIconSize) * widget.devicePixelRatioF());
    picture.setDevicePixelRatio(widget.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 2));
    if (complete) {
        painter.drawPolyline(QPolygonF({{3, 8}, {7, 12}, {13, 4}}));
    } else {
        painter.drawEllipse(QPointF(8, 8), 4, 4);
    }
    painter.end();
    QPixmapCache::insert(name, picture);
    return QIcon(picture);
}

QWidget& EditOf(QWidget& control) {
    auto* const box = qobject_cast<QComboBox*>(&control);
    return box != nullptr ? *box->lineEdit() : control;
}

// Between the two, and so readable on what both are.
QColor Mixed(const QColor& one, const QColor& other) {
    return QColor((one.red() + 2 * other.red()) / 3, (one.green() + 2 * other.green()) / 3,
                  (one.blue() + 2 * other.blue()) / 3);
}

}  // namespace

void MarkCompleteness(std::initializer_list<QComboBox*> boxes, int item,
                      const SampleHeader& header) {
    const QString text = QString::fromStdString(CompletenessOf(header));
    const bool complete = !FirstEmptyField(header);
    for (QComboBox* const box : boxes) {
        // The box would show its item's text anew, over what is typed or has come along.
        const QSignalBlocker blocker(box->model());
        box->setItemIcon(item, CompletenessIcon(*box, complete));
        box->setItemData(item, text, Qt::ToolTipRole);
        box->setItemData(item, text, Qt::AccessibleDescriptionRole);
        box->update();
    }
}

void ShowCarriedOver(QWidget& control, bool carriedOver) {
    if (!carriedOver && !IsShownCarriedOver(control)) {
        return;
    }
    QWidget& edit = EditOf(control);
    Remark(control, kCarriedOver,
           carriedOver ? "Came along from the sample shown before, and is stored when it is left."
                       : "");
    // Without these the edit has the window's again.
    QPalette palette;
    QFont font;
    if (carriedOver) {
        const QPalette& window = control.window()->palette();
        palette.setColor(QPalette::Text,
                         Mixed(window.color(QPalette::Text), window.color(QPalette::Highlight)));
        font.setItalic(true);
    }
    edit.setPalette(palette);
    edit.setFont(font);
}

bool IsShownCarriedOver(const QWidget& control) {
    return HasRemark(control, kCarriedOver);
}

}  // namespace qfr
