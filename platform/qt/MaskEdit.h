// An edit for dates and times that keeps the mask's literals and blanks in its text.
#pragma once

#include <optional>
#include <string>

#include <QLineEdit>

namespace qfr {

// The mask is written in the style "!99/99/9999 99:99;1;_": "9" and "0" are digits, either of which
// may be left blank, everything else up to the first ";" is a literal; unfilled places show the
// last character.
class MaskEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit MaskEdit(QWidget* parent = nullptr);

    void SetMask(const std::string& mask);

    // Always as long as the mask: literals in place, unfilled places as blanks. Use this, not
    // text(), which drops the blanks. A part with fewer digits has them at its end (" 5/ 8/2005").
    std::string MaskText() const;
    // Takes such a text, one that lost blanks at its ends, or a date or time with shorter parts
    // ("1/2/2005 9:05"), whose parts get leading zeros. What does not fit the
    // places stays out.
    void SetMaskText(const std::string& text);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    // The text over the empty mask, from its `from`-th character on; absent where it does not fit.
    std::optional<QString> PlacedInMask(const QString& text, qsizetype from) const;

    // The places from one literal to the next, around a place.
    qsizetype StartOfPart(qsizetype place) const;
    qsizetype EndOfPart(qsizetype place) const;
    // A literal that is typed ends its part. False when the toolkit is to have it.
    bool TypeLiteral(QChar typed);

    QString empty_;   // the mask with blanks for its places
    QString places_;  // as long; "0" for a place, blank for a literal
    QChar unfilled_ = u'_';
};

}  // namespace qfr
