// A label of one line. Of a text that has no room, both ends show.
#pragma once

#include <QLabel>

namespace qfr {

class ElidedLabel : public QLabel {
  public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace qfr
