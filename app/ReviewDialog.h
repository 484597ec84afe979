// Reports | Review Batch: what a reviewer would flag, and the way to where it is mended.
#pragma once

#include <memory>
#include <string>

#include <QDialog>

#include "app/FindingsModel.h"

namespace Ui {
class ReviewDialog;
}

namespace qfr {

class TQFRForm;

class ReviewDialog : public QDialog {
  public:
    explicit ReviewDialog(TQFRForm& window);
    ~ReviewDialog() override;

    // Reviews the batch and shows what was found.
    void ShowFindings();
    // The window to which it has led is closed: shows what is found now. Does nothing when it has
    // led to none.
    void ComeBack();

  private:
    void Refresh();
    void OfferFilters();
    void ShowFiltered();
    void ShowSelected();
    void GoTo();
    void Copy();
    void PrintList();
    int Row() const;  // -1: none

    TQFRForm& window_;
    std::unique_ptr<Ui::ReviewDialog> ui_;
    FindingsModel model_;
    bool ledAway_ = false;
};

}  // namespace qfr
