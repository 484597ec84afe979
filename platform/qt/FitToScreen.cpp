#include "platform/qt/FitToScreen.h"

#include <algorithm>
#include <functional>

#include <QAbstractButton>
#include <QBoxLayout>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>

namespace qfr {

namespace {

constexpr const char* kAreaName = "FitArea";
constexpr QMargins kUsualFrame(2, 32, 2, 2);  // of a window whose own is not known yet
constexpr int kTightMargin = 6;
constexpr qsizetype kShortCaption = 12;  // letters of one that stays in one line
constexpr int kAreaEdge = 2;             // around what scrolls
constexpr int kFocusMargin = 12;         // around the control that has the focus

int BarExtent(const QWidget& widget) {
    return widget.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

// Asks for all of its contents' size; the toolkit's own asks for a part of it.
class WholeArea : public QScrollArea {
  public:
    using QScrollArea::QScrollArea;

    QSize sizeHint() const override { return Around(widget()->sizeHint()); }
    // Large enough to scroll in.
    QSize minimumSizeHint() const override {
        const int line = fontMetrics().lineSpacing();
        return Around(widget()->minimumSizeHint()).boundedTo({20 * line, 6 * line});
    }

  private:
    QSize Around(const QSize& contents) const {
        return contents + QSize(BarExtent(*this) + kAreaEdge, kAreaEdge);
    }
};

QMargins FrameOf(const QWidget& window) {
    const QRect inner = window.geometry();
    const QRect outer = window.frameGeometry();
    return outer == inner
               ? kUsualFrame
               : QMargins(inner.left() - outer.left(), inner.top() - outer.top(),
                          outer.right() - inner.right(), outer.bottom() - inner.bottom());
}

QSize RoomFor(const QWidget& window) {
    return window.screen()->availableGeometry().marginsRemoved(FrameOf(window)).size();
}

bool Exceeds(const QSize& size, const QSize& room) {
    return size.width() > room.width() || size.height() > room.height();
}

// Whether the item of a layout is, or holds, a button.
bool HoldsButtons(QLayoutItem& item) {
    if (QLayout* const layout = item.layout()) {
        for (int i = 0; i < layout->count(); ++i) {
            if (HoldsButtons(*layout->itemAt(i))) {
                return true;
            }
        }
    }
    QWidget* const widget = item.widget();
    return widget != nullptr && (qobject_cast<QAbstractButton*>(widget) != nullptr ||
                                 !widget->findChildren<QAbstractButton*>().isEmpty());
}

// The row of buttons at the end of a dialog's layout, taken from there; null when it has none.
QLayoutItem* TakeButtonRow(QLayout& rows) {
    for (int i = 0; i < rows.count(); ++i) {
        if (qobject_cast<QDialogButtonBox*>(rows.itemAt(i)->widget()) != nullptr) {
            return rows.takeAt(i);
        }
    }
    auto* const box = qobject_cast<QBoxLayout*>(&rows);
    if (box == nullptr || box->direction() != QBoxLayout::TopToBottom || box->count() < 2 ||
        !HoldsButtons(*box->itemAt(box->count() - 1))) {
        return nullptr;
    }
    return box->takeAt(box->count() - 1);
}

void Add(QBoxLayout& layout, QLayoutItem* item) {
    if (QLayout* const inner = item->layout()) {
        inner->setParent(nullptr);
        layout.addLayout(inner);
    } else {
        layout.addWidget(item->widget());
        delete item;
    }
}

bool TakesFocus(const QWidget& widget) {
    const QList<QWidget*> inside = widget.findChildren<QWidget*>();
    return std::any_of(inside.begin(), inside.end(), [](const QWidget* each) {
        return (each->focusPolicy() & Qt::TabFocus) != 0;
    });
}

// Puts all of the dialog but its buttons into an area that scrolls.
void Wrap(QDialog& dialog) {
    const QPointer<QWidget> focused = dialog.focusWidget();
    auto* const area = new WholeArea(&dialog);
    area->setObjectName(kAreaName);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    auto* const contents = new QWidget(area);
    contents->setObjectName("FitContents");
    contents->hide();

    QLayout& rows = *dialog.layout();
    rows.setSizeConstraint(QLayout::SetDefaultConstraint);
    const QMargins margins = rows.contentsMargins();
    const int spacing = rows.spacing();
    QLayoutItem* const buttons = TakeButtonRow(rows);
    contents->setLayout(&rows);  // and the controls with it
    rows.setContentsMargins(0, 0, 0, 0);
    area->setWidget(contents);
    contents->show();

    auto* const outer = new QVBoxLayout(&dialog);
    outer->setContentsMargins(margins);
    outer->setSpacing(spacing);
    outer->addWidget(area, 1);
    if (buttons != nullptr) {
        Add(*outer, buttons);
    }
    area->setFocusPolicy(TakesFocus(*contents) ? Qt::NoFocus : Qt::StrongFocus);
    area->setAccessibleName(dialog.windowTitle());
    area->show();
    if (focused) {
        focused->setFocus();
    }
}

// A least size that was given for small letters must not cut large ones. The width of a button may
// be less than the style's on purpose: its caption has room.
void MakeRoomForLetters(const QWidget& window) {
    for (QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
        if (button->minimumHeight() > 0) {
            button->setMinimumHeight(
                std::max(button->minimumHeight(), button->minimumSizeHint().height()));
        }
    }
    for (QLabel* const label : window.findChildren<QLabel*>()) {
        if (!label->minimumSize().isNull() && !label->wordWrap()) {
            label->setMinimumSize(label->minimumSize().expandedTo(label->minimumSizeHint()));
        }
    }
}

bool FillsScreen(const QWidget& window) {
    return window.isMaximized() || window.isFullScreen();
}

// Lets the window be as small as the room, whatever was fixed before.
void Bound(QWidget& window, const QSize& room) {
    if (Exceeds(window.minimumSize(), room)) {
        window.setMinimumSize(window.minimumSize().boundedTo(room));
    }
    if (!FillsScreen(window)) {
        window.resize(window.size().boundedTo(room));
    }
}

WholeArea* AreaOf(const QWidget& window) {
    return window.findChild<WholeArea*>(kAreaName, Qt::FindDirectChildrenOnly);
}

QSize Least(const QWidget& window) {
    return window.layout()->totalMinimumSize().expandedTo(window.minimumSize());
}

// That the layout needs for all that it holds at this width.
int HeightFor(const QLayout& layout, int width) {
    return layout.hasHeightForWidth() ? layout.totalHeightForWidth(width)
                                      : layout.totalSizeHint().height();
}

bool FitsAcross(const QDialog& dialog, int width) {
    // Otherwise the inner ones would not know before the next event.
    for (QLayout* const layout : dialog.findChildren<QLayout*>()) {
        layout->invalidate();
    }
    return Least(dialog).width() <= width;
}

// What a field's caption has in brackets goes into a line of its own.
void BreakBeforeBracket(QLabel& caption) {
    const QString text = caption.text();
    if (const qsizetype bracket = text.lastIndexOf(" (");
        bracket > 0 && caption.buddy() != nullptr) {
        caption.setText(text.left(bracket) + '\n' + text.mid(bracket + 1));
    }
}

void BreakAnywhere(QLabel& caption) {
    caption.setWordWrap(true);
}

// Saves width where that is enough, before anything has to scroll: narrow margins, and captions of
// two lines, the longest first.
void Tighten(QDialog& dialog, const QSize& room) {
    const QMargins margins = dialog.layout()->contentsMargins();
    dialog.layout()->setContentsMargins(std::min(margins.left(), kTightMargin), margins.top(),
                                        std::min(margins.right(), kTightMargin), margins.bottom());
    QList<QLabel*> captions = dialog.findChildren<QLabel*>();
    captions.removeIf([&](const QLabel* label) {
        return label->window() != &dialog || label->text().size() <= kShortCaption;
    });
    std::ranges::stable_sort(captions, std::greater(),
                             [](const QLabel* label) { return label->sizeHint().width(); });
    for (const auto shorten : {BreakBeforeBracket, BreakAnywhere}) {
        for (qsizetype i = 0; i < captions.size() && !FitsAcross(dialog, room.width()); ++i) {
            shorten(*captions[i]);
        }
    }
}

// Lets the contents scroll; gives the height that they have use for at this width, all in all.
int Scroll(QDialog& dialog, const QSize& room, int width) {
    Wrap(dialog);
    WholeArea& area = *AreaOf(dialog);
    const QMargins margins = dialog.layout()->contentsMargins();
    const int beside = margins.left() + margins.right();
    const int below =
        dialog.layout()->totalMinimumSize().height() - area.minimumSizeHint().height();
    if (qobject_cast<QMessageBox*>(&dialog) != nullptr) {
        // It makes itself as small as it can be.
        area.setMinimumSize(area.sizeHint().boundedTo(room - QSize(beside, below)));
    }
    return HeightFor(*area.widget()->layout(), width - beside - BarExtent(dialog)) + below;
}

void FitContents(QDialog& dialog, const QSize& room) {
    const QSize wanted = dialog.size().expandedTo(dialog.layout()->totalSizeHint());
    dialog.setMinimumSize(0, 0);
    // The bar of contents that are too high, if only by captions of two lines, takes of the width.
    const int bar = BarExtent(dialog);
    const QSize besideBar = room - QSize(bar + kAreaEdge, 0);
    if (const QSize least = dialog.layout()->totalMinimumSize();
        Exceeds(least, room) && least.width() > besideBar.width()) {
        Tighten(dialog, besideBar);
    }
    const int width = std::min(wanted.width(), room.width());
    int height = HeightFor(*dialog.layout(), width);
    const bool isHigh = dialog.layout()->hasHeightForWidth() && height > room.height();
    const bool scrolls = isHigh || Exceeds(dialog.layout()->totalMinimumSize(), room);
    if (scrolls) {
        height = Scroll(dialog, room, width);
    }
    if (!FillsScreen(dialog)) {
        const int more = scrolls ? bar : 0;
        dialog.resize((wanted.expandedTo({0, height}) + QSize(more, more)).boundedTo(room));
    }
}

void Fit(QWidget& window) {
    const QSize room = RoomFor(window);
    auto* const dialog = qobject_cast<QDialog*>(&window);
    if (dialog != nullptr && dialog->layout() != nullptr && AreaOf(window) == nullptr &&
        Exceeds(Least(window), room)) {
        FitContents(*dialog, room);
    }
    Bound(window, room);
}

// The toolkit shows a dialog that nobody has made larger on two thirds of the screen at most.
void UseRoom(QWidget& window) {
    if (!window.testAttribute(Qt::WA_Resized) && qobject_cast<QDialog*>(&window) != nullptr) {
        window.resize(window.size().expandedTo(window.sizeHint()).boundedTo(RoomFor(window)));
        window.setAttribute(Qt::WA_Resized, false);
    }
}

// Into its screen, frame and all.
void MoveInto(QWidget& window) {
    const QRect screen = window.screen()->availableGeometry();
    const QRect outer = window.geometry().marginsAdded(FrameOf(window));
    const QPoint place(
        std::max(std::min(outer.left(), screen.right() + 1 - outer.width()), screen.left()),
        std::max(std::min(outer.top(), screen.bottom() + 1 - outer.height()), screen.top()));
    if (place != outer.topLeft()) {
        window.move(window.pos() + place - outer.topLeft());
    }
}

bool IsOurs(const QObject* watched) {
    const auto* const widget =
        watched->isWidgetType() ? static_cast<const QWidget*>(watched) : nullptr;
    return widget != nullptr && widget->isWindow() &&
           (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog);
}

class ScreenFitter : public QObject {
  public:
    explicit ScreenFitter(QApplication& application) : QObject(&application) {
        connect(&application, &QApplication::focusChanged, this, &ScreenFitter::ShowFocused);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool shown = event->type() == QEvent::Show && !event->spontaneous();
        const bool changed = event->type() == QEvent::LayoutRequest;
        if ((shown || changed) && IsOurs(watched)) {
            auto& window = *static_cast<QWidget*>(watched);
            if (shown) {
                MakeRoomForLetters(window);
                UseRoom(window);
                Fit(window);
            }
            if (shown || Exceeds(window.minimumSizeHint(), RoomFor(window))) {
                // When the window has its frame and its place.
                QTimer::singleShot(0, &window, [&window] {
                    if (window.isVisible() && !FillsScreen(window)) {
                        Fit(window);
                        MoveInto(window);
                    }
                });
            }
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    static void ShowFocused(QWidget* /*before*/, QWidget* now) {
        for (QWidget* above = now; above != nullptr; above = above->parentWidget()) {
            if (auto* const area = dynamic_cast<WholeArea*>(above);
                area != nullptr && area != now) {
                area->ensureWidgetVisible(now, kFocusMargin, kFocusMargin);
            }
        }
    }
};

}  // namespace

void FitToScreen(QApplication& application) {
    application.installEventFilter(new ScreenFitter(application));
}

}  // namespace qfr
