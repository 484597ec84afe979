#include "platform/qt/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace qfr {

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), fontMetrics().elidedText(text(), Qt::ElideMiddle, width()),
                          foregroundRole());
}

}  // namespace qfr
