#include "app/AboutBox.h"

#include "app/Revision.h"
#include "platform/qt/HelpViewer.h"
#include "platform/qt/PdfOutline.h"
#include "platform/qt/PrinterQueue.h"
#include "ui_AboutBox.h"

namespace qfr {

namespace {

QString TextOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString BuiltFrom() {
    return Revision().empty() ? QString("Built from a source archive")
                              : "Revision " + TextOf(Revision());
}

QStringList Libraries() {
    QStringList libraries = {QString("Qt ") + qVersion(), TextOf(PrintingLibrary()),
                             TextOf(OutlineLibrary()), TextOf(HelpViewer::Library())};
    libraries.removeAll("");
    return libraries;
}

}  // namespace

TAboutBox::TAboutBox(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::TAboutBox>()) {
    ui_->setupUi(this);
    ui_->Image->setPixmap(QPixmap(":/icons/qfrforms-64.png"));
    ui_->Comments->setText(
        QString("Report forms of TQW04.2 (5/2005)\nfor volatile organics by GC/MS\n\n%1\n%2")
            .arg(BuiltFrom(), Libraries().join('\n')));
    ui_->OkButton->setFocus();
    connect(ui_->OkButton, &QPushButton::clicked, this, &QDialog::accept);
}

TAboutBox::~TAboutBox() = default;

}  // namespace qfr
