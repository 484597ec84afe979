#include "platform/qt/PageView.h"

#include <algorithm>
#include <cmath>

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace qfr {

namespace {

// Logical pixels of the screen.
constexpr double kGap = 12;  // around and between the pages
constexpr int kShadow = 3;
constexpr double kMinScale = 0.01;

}  // namespace

PageView::PageView(std::vector<const JobPage*> pages, Typeface& typeface, QWidget* parent)
    : QAbstractScrollArea(parent), pages_(std::move(pages)), painter_(typeface) {
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
    moving_ = true;
    verticalScrollBar()->setValue(
        static_cast<int>(tops_[static_cast<std::size_t>(page)] - kGap / 2));
    moving_ = false;
    SetCurrent(page);
    viewport()->update();
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
