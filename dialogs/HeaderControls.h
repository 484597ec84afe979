// The controls of the 26 header values in the Form 1 header dialog.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "data/Batch.h"

class QLineEdit;
class QWidget;

namespace qfr {

class HeaderControls {
  public:
    // Finds them in the window, and shows in each what it has at first.
    void FindIn(const QWidget& window);

    const std::array<QWidget*, SampleHeader::kCount>& All() const { return controls_; }
    QWidget* Of(HeaderField field) const;
    // Of a control; absent where it is none of these.
    std::optional<HeaderField> FieldOf(const QWidget* control) const;
    // What is typed in: the control itself, or the edit of a drop-down.
    static QLineEdit& EditOf(QWidget& control);

    // As a header keeps it.
    std::string Text(HeaderField field) const;
    SampleHeader Texts() const;
    void SetText(HeaderField field, const std::string& text) const;

  private:
    std::array<QWidget*, SampleHeader::kCount> controls_{};  // by number
};

}  // namespace qfr
