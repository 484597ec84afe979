#include "platform/qt/MaskEdit.h"

#include <algorithm>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "platform/DateTime.h"
#include "platform/qt/FieldEntry.h"

namespace qfr {

namespace {

constexpr QChar kPlace = u'0';
constexpr QChar kLiteral = u' ';
constexpr int kAroundText = 12;       // pixels
constexpr qsizetype kTimeStart = 11;  // in "mm/dd/yyyy hh:nn"

// A part that was not filled to its end has its unfilled places in front: "5 " becomes " 5".
QString RightAligned(const QString& part, QChar unfilled) {
    QString digits = part;
    while (digits.endsWith(unfilled)) {
        digits.chop(1);
    }
    return digits.rightJustified(part.size(), unfilled);
}

// How a date or time is to be typed, for who sees no mask.
QString Shape(const QString& empty) {
    const QStringList parts = {empty.contains(u'/') ? "MM/DD/YYYY" : "",
                               empty.contains(u':') ? "HH:MI" : ""};
    return parts.join(u' ').trimmed();
}

}  // namespace

MaskEdit::MaskEdit(QWidget* parent) : QLineEdit(parent) {}

void MaskEdit::SetMask(const std::string& mask) {
    const QString given = QString::fromStdString(mask);
    const QString shape = given.section(u';', 0, 0).remove(u'!');
    unfilled_ = given.contains(u';') ? given.back() : QChar(u'_');
    empty_.clear();
    places_.clear();
    QString toolkitMask;
    for (const QChar c : shape) {
        const bool place = c == u'9' || c == u'0';
        empty_ += place ? QChar(u' ') : c;
        places_ += place ? kPlace : kLiteral;
        toolkitMask += place ? QStringLiteral("0") : QStringLiteral("\\") + c;
    }
    setInputMask(toolkitMask + u';' + unfilled_);
    setToolTip(Shape(empty_));
    // It is seen whole, however large the letters are.
    const int text = fontMetrics().horizontalAdvance(QString(places_.size(), kPlace));
    setMinimumWidth(std::max(minimumWidth(), text + kAroundText));
}

std::string MaskEdit::MaskText() const {
    QString shown = displayText();
    for (qsizetype i = 0; i < shown.size() && i < places_.size(); ++i) {
        if (places_[i] == kPlace && shown[i] == unfilled_) {
            shown[i] = u' ';
        }
    }
    for (qsizetype start = 0; start < places_.size();) {
        const qsizetype end = EndOfPart(start);
        shown.replace(start, end - start, RightAligned(shown.sliced(start, end - start), u' '));
        start = end + 1;
    }
    return shown.toStdString();
}

qsizetype MaskEdit::StartOfPart(qsizetype place) const {
    while (place > 0 && places_[place - 1] == kPlace) {
        --place;
    }
    return place;
}

qsizetype MaskEdit::EndOfPart(qsizetype place) const {
    while (place < places_.size() && places_[place] == kPlace) {
        ++place;
    }
    return place;
}

std::optional<QString> MaskEdit::PlacedInMask(const QString& text, qsizetype from) const {
    QString placed = empty_;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype at = from + i;
        const QChar c = text[i];
        const bool digit = c >= u'0' && c <= u'9';
        if (at >= placed.size() ||
            (places_[at] == kPlace ? !digit && c != u' ' : c != empty_[at])) {
            return std::nullopt;
        }
        placed[at] = c;
    }
    return placed;
}

void MaskEdit::SetMaskText(const std::string& text) {
    const QString given = QString::fromStdString(text);
    std::optional<QString> placed;
    for (qsizetype from = 0; !placed && from + given.size() <= empty_.size(); ++from) {
        placed = PlacedInMask(given, from);
    }
    if (const auto when = placed ? std::nullopt : ParseDateTime(text)) {
        // A text of fewer parts than the mask, or of more, gives the parts that both have.
        const QString full = QString::fromStdString(FormatDateTime(*when));
        const bool date = given.contains(u'/') && empty_.contains(u'/');
        const bool time = given.contains(u':') && empty_.contains(u':');
        placed = date && time ? PlacedInMask(full, 0)
                 : date       ? PlacedInMask(full.first(kTimeStart - 1), 0)
                 : time
                     ? PlacedInMask(full.sliced(kTimeStart), empty_.contains(u'/') ? kTimeStart : 0)
                     : std::nullopt;
    }
    if (!placed) {
        // The toolkit takes what fits, as if it had been typed.
        setText(given);
        return;
    }
    for (qsizetype i = 0; i < placed->size(); ++i) {
        if (places_[i] == kPlace && (*placed)[i] == u' ') {
            (*placed)[i] = unfilled_;
        }
    }
    FillEdit(*this, [&] { setText(*placed); });
}

void MaskEdit::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste) && !isReadOnly()) {
        // Copied from a report or a sheet, a date may have blanks before it, which the toolkit
        // would take for the literal between date and time.
        SetMaskText(QGuiApplication::clipboard()->text().trimmed().toStdString());
        emit textEdited(text());
        return;
    }
    if (const QString typed = event->text();
        typed.size() == 1 && !isReadOnly() && TypeLiteral(typed.front())) {
        return;
    }
    QLineEdit::keyPressEvent(event);
}

bool MaskEdit::TypeLiteral(QChar typed) {
    const qsizetype caret = cursorPosition();
    const qsizetype start = StartOfPart(caret);
    const qsizetype end = EndOfPart(start);
    if (caret == start && start > 0 && empty_[start - 1] == typed) {
        return true;  // the caret has passed it already
    }
    if (caret > start && end < empty_.size() && empty_[end] == typed) {
        QString shown = displayText();
        shown.replace(start, end - start,
                      RightAligned(shown.sliced(start, end - start), unfilled_));
        setText(shown);
        setCursorPosition(static_cast<int>(end) + 1);
        emit textEdited(text());
        return true;
    }
    if (typed != u' ') {
        return false;
    }
    // Elsewhere a blank empties its place; the toolkit would take it for the literal between date
    // and time.
    QKeyEvent blank(QEvent::KeyPress, 0, Qt::NoModifier, QString(unfilled_));
    QLineEdit::keyPressEvent(&blank);
    return true;
}

void MaskEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    // Nobody means to start an empty date in its middle.
    if (event->button() == Qt::LeftButton && MaskText() == empty_.toStdString()) {
        setCursorPosition(0);
    }
}

}  // namespace qfr
