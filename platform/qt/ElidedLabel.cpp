#include "platform/qt/ElidedLabel.h"

#include <algorithm>

#include <QPainter>
#include <QStyle>

namespace qfr {

ElidedLabel::ElidedLabel(const QString& caption, int leastLetters, QWidget* parent)
    : QLabel(caption, parent), caption_(caption), leastLetters_(leastLetters) {}

void ElidedLabel::Show(const QString& text) {
    setText(caption_ + text);
    setToolTip(this->text());
}

QSize ElidedLabel::minimumSizeHint() const {
    const QSize whole = QLabel::minimumSizeHint();
    return {std::min(whole.width(), leastLetters_ * fontMetrics().averageCharWidth()),
            whole.height()};
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    if (width() >= sizeHint().width()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const QRect place = contentsRect();
    const int captionWidth = fontMetrics().horizontalAdvance(caption_);
    const QString whole = captionWidth < place.width() ? caption_ : "";
    const QString rest =
        fontMetrics().elidedText(text().mid(whole.size()), Qt::ElideMiddle,
                                 place.width() - (whole.isEmpty() ? 0 : captionWidth));
    style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          whole + rest, foregroundRole());
}

}  // namespace qfr
