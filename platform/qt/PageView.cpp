#include "platform/qt/PageView.h"

#include <algorithm>
#include <cmath>

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

#include "platform/Text.h"

namespace qfr {

namespace {

// Logical pixels of the screen.
constexpr double kGap = 12;  // around and between the pages
constexpr int kShadow = 3;
constexpr double kMinScale = 0.01;
constexpr double kScreenful = 0.9;  // of the view; what was at its edge stays in sight
constexpr double kRounding = 1;     // of a place to scroll to
// How much of the paper a mark covers, of 255.
constexpr int kMarked = 70;
constexpr int kMarkedHere = 140;

}  // namespace

PageView::PageView(std::vector<const JobPage*> pages, Typeface& typeface, QWidget* parent)
    : QAbstractScrollArea(parent),
      pages_(std::move(pages)),
      typeface_(typeface),
      painter_(typeface) {
    for (const JobPage* const page : pages_) {
        widest_ = std::max(widest_, static_cast<double>(page->width));
        tallest_ = std::max(tallest_, static_cast<double>(page->height));
    }
    setFocusPolicy(Qt::StrongFocus);
    // Were it to come and go, the width to fit would follow it back and forth.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setBackgroundRole(QPalette::Dark);
    verticalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setSingleStep(40);
    LayOut();
}

void PageView::GoTo(int page) {
    if (pages_.empty()) {
        return;
    }
    page = std::clamp(page, 0, static_cast<int>(pages_.size()) - 1);
    ScrollTo(tops_[static_cast<std::size_t>(page)] - kGap / 2);
    SetCurrent(page);
    viewport()->update();
}

void PageView::ScrollTo(double down) {
    const QScopedValueRollback moving(moving_, true);
    verticalScrollBar()->setValue(static_cast<int>(down));
}

void PageView::Walk(int direction) {
    if (pages_.empty()) {
        return;
    }
    const auto top = [this](int page) { return tops_[static_cast<std::size_t>(page)] - kGap / 2; };
    // Where a page's lower end, or all of it, is in sight.
    const auto end = [&](int page) {
        return std::max(top(page), top(page + 1) - viewport()->height());
    };
    const double here = verticalScrollBar()->value();
    const double step = viewport()->height() * kScreenful;
    if (direction > 0 && here < end(current_) - kRounding) {
        ScrollTo(std::min(here + step, end(current_)));
    } else if (direction < 0 && here > top(current_) + kRounding) {
        ScrollTo(std::max(here - step, top(current_)));
    } else if (direction > 0) {
        GoTo(current_ + 1);
    } else if (current_ > 0) {
        GoTo(current_ - 1);
        ScrollTo(end(current_));
    }
}

void PageView::ShowFound(std::vector<FoundText> found) {
    found_ = std::move(found);
    place_ = found_.size();
    viewport()->update();
}

void PageView::GoToFound(std::size_t place) {
    place_ = place;
    const FoundText& found = found_[place];
    const QRectF paper = PageRect(found.Page);
    const QRectF mark = MarkOf(found);
    const QPointF centre = paper.topLeft() + mark.center() * scale_;
    const QSizeF half = mark.size() * scale_ / 2;
    {
        const QScopedValueRollback moving(moving_, true);
        const auto bring = [](QScrollBar& bar, double middle, double around, int room) {
            if (middle - around < kGap || middle + around > room - kGap) {
                bar.setValue(bar.value() + static_cast<int>(middle) - room / 2);
            }
        };
        bring(*verticalScrollBar(), centre.y(), half.height(), viewport()->height());
        bring(*horizontalScrollBar(), centre.x(), half.width(), viewport()->width());
    }
    SetCurrent(static_cast<int>(found.Page));
    viewport()->update();
}

QRectF PageView::MarkOf(const FoundText& found) const {
    const auto& item = std::get<TextItem>(pages_[found.Page]->items[found.Item]);
    const auto widthOf = [&](std::size_t characters) {
        return typeface_.TextWidth(FirstCharacters(item.text, characters), item.size);
    };
    const int before = widthOf(found.Start);
    return QRectF(item.x + before, item.y, widthOf(found.Start + found.Length) - before,
                  item.height);
}

void PageView::PaintFound(QPainter& painter, std::size_t page) const {
    auto found = std::ranges::lower_bound(found_, page, {}, &FoundText::Page);
    for (; found != found_.end() && found->Page == page; ++found) {
        QColor colour = palette().color(QPalette::Highlight);
        const auto place = static_cast<std::size_t>(found - found_.begin());
        colour.setAlpha(place == place_ ? kMarkedHere : kMarked);
        painter.fillRect(MarkOf(*found), colour);
    }
}

void PageView::SetFit(Fit fit) {
    fit_ = fit;
    LayOut();
}

void PageView::SetPercent(double percent) {
    fit_ = Fit::kNone;
    scale_ = percent / 100 * logicalDpiX() / kResolution;
    LayOut();
}

double PageView::Percent() const {
    return scale_ * 100 * kResolution / logicalDpiX();
}

void PageView::LayOut() {
    // What is at the upper edge stays there.
    const auto at = static_cast<std::size_t>(current_);
    const double oldScale = scale_;
    const double below = tops_.empty() ? -kGap : verticalScrollBar()->value() - tops_[at];

    const double roomAcross = viewport()->width() - 2 * kGap;
    const double roomDown = viewport()->height() - 2 * kGap;
    if (fit_ != Fit::kNone && !pages_.empty()) {
        scale_ = roomAcross / widest_;
        if (fit_ == Fit::kPage) {
            // Turned pages among upright ones would else change the scale from page to page.
            scale_ = std::min(scale_, roomDown / tallest_);
        }
        scale_ = std::max(scale_, kMinScale);
    }
    tops_.assign(1, kGap);
    for (const JobPage* const page : pages_) {
        tops_.push_back(tops_.back() + page->height * scale_ + kGap);
    }
    moving_ = true;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(
        0, std::max(0, static_cast<int>(tops_.back() - viewport()->height())));
    verticalScrollBar()->setValue(
        static_cast<int>(std::lround(tops_[at] + (below > 0 ? below * scale_ / oldScale : below))));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0,
                                    std::max(0, static_cast<int>(widest_ * scale_ - roomAcross)));
    horizontalScrollBar()->setValue(horizontalScrollBar()->maximum() / 2);
    moving_ = false;
    viewport()->update();
}

QRectF PageView::PageRect(std::size_t page) const {
    const double width = pages_[page]->width * scale_;
    const double all =
        std::max(widest_ * scale_ + 2 * kGap, static_cast<double>(viewport()->width()));
    // On whole pixels the paper's edges and most rules are sharp.
    return {std::round((all - width) / 2 - horizontalScrollBar()->value()),
            std::round(tops_[page] - verticalScrollBar()->value()), width,
            pages_[page]->height * scale_};
}

void PageView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        Walk((event->modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
        return;
    }
    QAbstractScrollArea::keyPressEvent(event);
}

void PageView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Dark));
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const QRectF paper = PageRect(i);
        if (!paper.adjusted(0, 0, kShadow, kShadow).intersects(QRectF(event->rect()))) {
            continue;
        }
        painter.fillRect(paper.translated(kShadow, kShadow), QColor(0, 0, 0, 90));
        painter.fillRect(paper, Qt::white);
        painter.save();
        painter.setClipRect(paper);
        painter.translate(paper.topLeft());
        painter.scale(scale_, scale_);
        painter_.Paint(painter, *pages_[i]);
        PaintFound(painter, i);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent*) {
    LayOut();
}

int PageView::MostVisible() const {
    const QRectF seen(viewport()->rect());
    std::size_t best = 0;
    double bestHeight = 0;
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const double height = PageRect(i).intersected(seen).height();
        if (height > bestHeight) {
            best = i;
            bestHeight = height;
        }
    }
    return static_cast<int>(best);
}

void PageView::scrollContentsBy(int, int) {
    viewport()->update();
    if (!moving_) {
        SetCurrent(MostVisible());
    }
}

void PageView::SetCurrent(int page) {
    if (page != current_) {
        current_ = page;
        emit CurrentPageChanged(page);
    }
}

void PageView::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) != 0 && event->angleDelta().y() != 0) {
        emit ZoomWished(event->angleDelta().y() > 0 ? 1 : -1);
        event->accept();
        return;
    }
    QAbstractScrollArea::wheelEvent(event);
}

}  // namespace qfr
