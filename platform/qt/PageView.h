// Shows the pages of jobs one below the other. Only those in sight are painted.
#pragma once

#include <vector>

#include <QAbstractScrollArea>

#include "platform/JobText.h"
#include "platform/PrintJob.h"
#include "platform/qt/PagePainter.h"

namespace qfr {

class PageView : public QAbstractScrollArea {
    Q_OBJECT

  public:
    enum class Fit { kWidth, kPage, kNone };

    // The pages outlive the view.
    PageView(std::vector<const JobPage*> pages, Typeface& typeface, QWidget* parent);

    // Pages count from 0.
    int CurrentPage() const { return current_; }
    // Shows the page's top edge; a number outside the pages means the first or the last one.
    void GoTo(int page);
    // By as much as the view shows, forwards (1) or backwards (-1); to the next or previous page
    // when that end of the page is in sight.
    void Walk(int direction);

    const std::vector<const JobPage*>& Pages() const { return pages_; }
    // Marks the places, which FindText found on the pages, in its order; and one of them as the
    // current one, which comes into sight.
    void ShowFound(std::vector<FoundText> found);
    void GoToFound(std::size_t place);

    // The zoom that follows the window's size, or stays at SetPercent's.
    void SetFit(Fit fit);
    // 100 is the size on paper, where the screen's resolution is known.
    void SetPercent(double percent);
    double Percent() const;

  signals:
    void CurrentPageChanged(int page);
    // The wheel was turned with Ctrl held: +1 nearer, -1 farther.
    void ZoomWished(int steps);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    QRectF PageRect(std::size_t page) const;      // in the viewport, logical pixels
    QRectF MarkOf(const FoundText& found) const;  // on its page, pixels at kResolution
    void PaintFound(QPainter& painter, std::size_t page) const;
    void LayOut();
    void ScrollTo(double down);
    void SetCurrent(int page);
    int MostVisible() const;

    const std::vector<const JobPage*> pages_;
    Typeface& typeface_;
    PagePainter painter_;
    std::vector<FoundText> found_;  // by page
    std::size_t place_ = 0;         // the current one of found_
    Fit fit_ = Fit::kWidth;
    double scale_ = 0.1;        // logical pixels for one of kResolution
    std::vector<double> tops_;  // of the pages, logical pixels at this scale; one more at the end
    double widest_ = 0;         // pixels at kResolution
    double tallest_ = 0;        // pixels at kResolution
    int current_ = 0;
    bool moving_ = false;  // by the program: the current page is known
};

}  // namespace qfr
