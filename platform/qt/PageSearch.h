// The bar that looks for a text on the pages of a view. It hides until it is opened.
#pragma once

#include <vector>

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "platform/JobText.h"
#include "platform/qt/PageView.h"

namespace qfr {

class PageSearch : public QWidget {
    Q_OBJECT

  public:
    // Shows what it finds on the view, which outlives it.
    explicit PageSearch(PageView& view, QWidget* parent = nullptr);

    // Shows the bar with its text ready to be typed over.
    void Open();
    // Hides it, and the marks on the pages.
    void Close();
    // Goes that many places on, from the last one to the first; opens the bar if need be.
    void GoOn(int places);

  private:
    void Find();
    void ShowPlace();

    PageView& view_;
    QLineEdit* edit_;
    QLabel* count_;
    std::vector<FoundText> found_;
    std::size_t place_ = 0;  // of found_
};

}  // namespace qfr
