// The about box.
#pragma once

#include <memory>

#include <QDialog>

namespace Ui {
class TAboutBox;
}

namespace qfr {

class TAboutBox : public QDialog {
    Q_OBJECT

  public:
    explicit TAboutBox(QWidget* parent);
    ~TAboutBox() override;

  private:
    std::unique_ptr<Ui::TAboutBox> ui_;
};

}  // namespace qfr
