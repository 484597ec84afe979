// A label that may have less room than its text.
#pragma once

#include <QLabel>

namespace qfr {

// One line; of a text that has no room both ends show. The caption before it stays whole where it
// can.
class ElidedLabel : public QLabel {
  public:
    // It may become as narrow as this many letters, caption and all.
    explicit ElidedLabel(const QString& caption = "", int leastLetters = 0,
                         QWidget* parent = nullptr);

    // After the caption. The tooltip says the same.
    void Show(const QString& text);

    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const QString caption_;
    const int leastLetters_;
};

}  // namespace qfr
