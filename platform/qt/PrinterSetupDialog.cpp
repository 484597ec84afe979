#include "platform/qt/PrinterSetupDialog.h"

#include <algorithm>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

#include "platform/WindowServices.h"

namespace qfr {

namespace {

std::vector<Paper> Papers(const Paper& current) {
    std::vector<Paper> papers = {
        kLetterPaper,        {"Legal", 8.5, 14},  {"Executive", 7.25, 10.5},
        {"Tabloid", 11, 17}, {"A4", 8.27, 11.69}, {"A3", 11.69, 16.54},
    };
    if (std::find(papers.begin(), papers.end(), current) == papers.end()) {
        papers.push_back(current);
    }
    return papers;
}

}  // namespace

PrinterSetupDialog::PrinterSetupDialog(TPrinter& printer, Remembered& memory, QWidget* parent)
    : QDialog(parent),
      printer_(printer),
      memory_(memory),
      papers_(Papers(printer.PaperSize)),
      printerCombo_(new QComboBox(this)),
      paperCombo_(new QComboBox(this)) {
    setWindowTitle("Printer Setup");
    setProperty(kHelpTopicProperty, kPrintingHelpTopic);

    printerCombo_->setObjectName("PrinterCombo");
    for (const std::string& name : printer_.Printers) {
        printerCombo_->addItem(QString::fromStdString(name));
    }
    printerCombo_->setCurrentIndex(printer_.PrinterIndex);

    paperCombo_->setObjectName("PaperCombo");
    for (const Paper& paper : papers_) {
        paperCombo_->addItem(QString("%1 (%2 x %3 in)")
                                 .arg(QString::fromStdString(paper.name))
                                 .arg(paper.width)
                                 .arg(paper.height));
    }
    const auto current = std::find(papers_.begin(), papers_.end(), printer_.PaperSize);
    paperCombo_->setCurrentIndex(static_cast<int>(current - papers_.begin()));

    if (printer_.PrinterIndex == 0 && printer_.PaperSize == kLetterPaper) {
        ProposeLast();
    }

    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OkButton");
    buttons->button(QDialogButtonBox::Ok)->setEnabled(!printer_.Printers.empty());
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("CancelButton");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const rows = new QFormLayout;
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows->addRow("&Printer:", printerCombo_);
    rows->addRow("P&aper:", paperCombo_);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(rows);
    layout->addStretch();
    layout->addWidget(buttons);
    printerCombo_->setFocus();
}

void PrinterSetupDialog::ProposeLast() {
    const int printer = printerCombo_->findText(memory_.Value(kPrinterName).toString());
    const std::string name = memory_.Value(kPaperName).toString().toStdString();
    const auto paper = std::ranges::find(papers_, name, &Paper::name);
    printerCombo_->setCurrentIndex(std::max(printer, 0));
    if (paper != papers_.end()) {
        paperCombo_->setCurrentIndex(static_cast<int>(paper - papers_.begin()));
    }
}

void PrinterSetupDialog::accept() {
    printer_.PrinterIndex = std::max(0, printerCombo_->currentIndex());
    printer_.PaperSize = papers_[static_cast<std::size_t>(paperCombo_->currentIndex())];
    memory_.Keep(kPrinterName, printerCombo_->currentText());
    memory_.Keep(kPaperName, QString::fromStdString(printer_.PaperSize.name));
    QDialog::accept();
}

}  // namespace qfr
