// An edit for dates and times that keeps the mask's literals and blanks in its text.
#pragma once

#include <QLineEdit>
#include <string>

namespace qfr {

// The mask is written in the style "!99/99/9999 99:99;1;_": "9" is a digit or a blank, "0" a digit,
// everything up to the first ";" else is a literal; unfilled places show the last character.
class MaskEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit MaskEdit(QWidget* parent = nullptr);

    void SetMask(const std::string& mask);

    // Always as long as the mask: literals in place, unfilled places as blanks ("  /  /       :  ").
    std::string MaskText() const;
    // Takes such a text, or one whose leading blanks were lost; places that do not fit stay unfilled.
    void SetMaskText(const std::string& text);
};

}  // namespace qfr
