#include "platform/qt/PageThumbnails.h"

#include <algorithm>
#include <cmath>

#include <QAbstractListModel>
#include <QCache>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "platform/qt/PagePainter.h"

namespace qfr {

namespace {

constexpr int kKept = 60;     // pictures; more than a tall screen shows
constexpr int kLetters = 15;  // that a picture's longer side measures
constexpr int kAround = 6;    // pixels around picture and number

class PageList : public QAbstractListModel {
  public:
    PageList(std::size_t count, QObject* parent)
        : QAbstractListModel(parent), count_(static_cast<int>(count)) {}

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : count_; }
    QVariant data(const QModelIndex& index, int role) const override {
        const QString number = QString::number(index.row() + 1);
        switch (role) {
            case Qt::DisplayRole:
                return number;
            case Qt::AccessibleTextRole:
                return "Page " + number;
            default:
                return {};
        }
    }

  private:
    const int count_;
};

class PagePictures : public QStyledItemDelegate {
  public:
    PagePictures(const std::vector<const JobPage*>& pages, Typeface& typeface, QObject* parent)
        : QStyledItemDelegate(parent), pages_(pages), painter_(typeface), pictures_(kKept) {}

    static int Side(const QFontMetrics& letters) { return kLetters * letters.averageCharWidth(); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        const int side = Side(option.fontMetrics);
        return {side + 2 * kAround, side + option.fontMetrics.height() + 3 * kAround};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool current = (option.state & QStyle::State_Selected) != 0;
        const QPalette& colors = option.palette;
        if (current) {
            painter->fillRect(option.rect, colors.brush(QPalette::Highlight));
        }
        const QPixmap& picture =
            PictureOf(index.row(), Side(option.fontMetrics), option.widget->devicePixelRatioF());
        const QRect place = option.rect.adjusted(kAround, kAround, -kAround, -kAround);
        QRectF paper(QPointF(), picture.deviceIndependentSize());
        paper.moveCenter(place.center());
        paper.moveTop(place.top());
        painter->drawPixmap(paper.topLeft(), picture);
        painter->setPen(colors.color(QPalette::Mid));
        painter->drawRect(paper);
        painter->setPen(colors.color(current ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(place, Qt::AlignHCenter | Qt::AlignBottom, index.data().toString());
    }

  private:
    const QPixmap& PictureOf(int page, int side, double dots) const {
        if (dots != dots_ || side != side_) {
            dots_ = dots;
            side_ = side;
            pictures_.clear();
        }
        if (const QPixmap* const known = pictures_.object(page)) {
            return *known;
        }
        auto painted = std::make_unique<QPixmap>(
            Painted(*pages_[static_cast<std::size_t>(page)], side * dots));
        painted->setDevicePixelRatio(dots);
        pictures_.insert(page, painted.release());
        return *pictures_.object(page);
    }

    QPixmap Painted(const JobPage& page, double side) const {
        const double scale = side / std::max({page.width, page.height, 1});
        QPixmap picture(std::max(1, static_cast<int>(std::lround(page.width * scale))),
                        std::max(1, static_cast<int>(std::lround(page.height * scale))));
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.scale(scale, scale);
        painter_.Paint(painter, page);
        return picture;
    }

    const std::vector<const JobPage*> pages_;
    mutable PagePainter painter_;
    mutable QCache<int, QPixmap> pictures_;  // by page
    mutable double dots_ = 0;                // of the screen for a logical pixel
    mutable int side_ = 0;                   // logical pixels
};

}  // namespace

PageThumbnails::PageThumbnails(const std::vector<const JobPage*>& pages, Typeface& typeface,
                               QWidget* parent)
    : QListView(parent) {
    setObjectName("Thumbnails");
    setAccessibleName("Thumbnails");
    setModel(new PageList(pages.size(), this));
    setItemDelegate(new PagePictures(pages, typeface, this));
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setEditTriggers(NoEditTriggers);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void PageThumbnails::ShowCurrent(int page) {
    const QScopedValueRollback following(following_, true);
    setCurrentIndex(model()->index(page, 0));
}

QSize PageThumbnails::sizeHint() const {
    const int across = PagePictures::Side(fontMetrics()) + 2 * kAround;
    return {across + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
            QListView::sizeHint().height()};
}

void PageThumbnails::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (!following_ && current.isValid()) {
        emit PageChosen(current.row());
    }
}

void PageThumbnails::showEvent(QShowEvent* event) {
    QListView::showEvent(event);
    scrollTo(currentIndex(), PositionAtCenter);
}

}  // namespace qfr
