// Which forms to print, and for which samples.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QDialog>

#include "app/Package.h"
#include "data/Batch.h"
#include "platform/WindowServices.h"

class QListWidget;

namespace Ui {
class PrintAllDialog;
}

namespace qfr {

class PrintAllDialog : public QDialog {
    Q_OBJECT

  public:
    // Everything is checked. `printer` is the name of the chosen one, empty while there is none.
    PrintAllDialog(const Batch& batch, const std::string& printer, WindowServices& services,
                   QWidget* parent);
    ~PrintAllDialog() override;

    // The jobs that are due for what is checked.
    std::vector<PackageWork> DueJobs() const;

  private:
    void ShowCount();

    const Batch& batch_;
    const std::string printer_;
    std::unique_ptr<Ui::PrintAllDialog> ui_;
};

}  // namespace qfr
