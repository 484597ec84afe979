// What forms had to say while a package was printed, in one list.
#pragma once

#include <memory>
#include <vector>

#include <QDialog>

#include "app/Package.h"
#include "data/Batch.h"

namespace Ui {
class PackageNotesDialog;
}

namespace qfr {

class PackageNotesDialog : public QDialog {
    Q_OBJECT

  public:
    // `summary` stands above the list. The notes are about forms and samples of the batch.
    PackageNotesDialog(const std::vector<PackageNote>& notes, const Batch& batch,
                       const QString& summary, QWidget* parent);
    ~PackageNotesDialog() override;

  private:
    std::unique_ptr<Ui::PackageNotesDialog> ui_;
};

}  // namespace qfr
