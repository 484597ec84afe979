// Small pictures of the pages, one below the other. They are painted when they come into sight, and
// only the latest are kept.
#pragma once

#include <vector>

#include <QListView>

#include "platform/PrintJob.h"
#include "platform/pdf/Typeface.h"

namespace qfr {

class PageThumbnails : public QListView {
    Q_OBJECT

  public:
    // Pages and typeface outlive it.
    PageThumbnails(const std::vector<const JobPage*>& pages, Typeface& typeface, QWidget* parent);

    // Marks the page, from 0, and brings it into sight.
    void ShowCurrent(int page);

    QSize sizeHint() const override;

  signals:
    // By the user; from 0.
    void PageChosen(int page);

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void showEvent(QShowEvent* event) override;

  private:
    bool following_ = false;  // the program, not the user, chooses
};

}  // namespace qfr
