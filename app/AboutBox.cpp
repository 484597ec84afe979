#include "app/AboutBox.h"

#include "ui_AboutBox.h"

namespace qfr {

TAboutBox::TAboutBox(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::TAboutBox>()) {
    ui_->setupUi(this);
    ui_->Image->setPixmap(QPixmap(":/icons/qfrforms-64.png"));
    ui_->Comments->setText(
        QString("Report forms of TQW04.2 (5/2005)\nfor volatile organics by GC/MS\n\nQt %1")
            .arg(qVersion()));
    connect(ui_->OkButton, &QPushButton::clicked, this, &QDialog::accept);
}

TAboutBox::~TAboutBox() = default;

}  // namespace qfr
