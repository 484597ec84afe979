#include "app/AboutBox.h"

#include "app/Revision.h"
#include "platform/pdf/PdfFile.h"
#include "platform/qt/HelpViewer.h"
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
                             TextOf(PdfLibraries()), TextOf(HelpViewer::Library())};
    libraries.removeAll("");
    return libraries;
}

}  // namespace

std::unique_ptr<QDialog> MakeAboutBox(QWidget* parent) {
    auto box = std::make_unique<QDialog>(parent);
    Ui::TAboutBox ui;
    ui.setupUi(box.get());
    ui.Image->setPixmap(QPixmap(":/icons/qfrforms-64.png"));
    ui.Comments->setText(
        QString("Report forms of TQW04.2 (5/2005)\nfor volatile organics by GC/MS\n\n%1\n%2")
            .arg(BuiltFrom(), Libraries().join('\n')));
    ui.OkButton->setFocus();
    QObject::connect(ui.OkButton, &QPushButton::clicked, box.get(), &QDialog::accept);
    return box;
}

}  // namespace qfr
