#include "app/PrintAllDialog.h"

#include "dialogs/EntryDialogs.h"
#include "platform/Text.h"
#include "ui_PrintAllDialog.h"

namespace qfr {

namespace {

void AddChecked(QListWidget& list, const std::string& text) {
    auto* const item = new QListWidgetItem(QString::fromStdString(text), &list);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
}

void CheckAll(QListWidget& list, Qt::CheckState state) {
    for (int row = 0; row < list.count(); ++row) {
        list.item(row)->setCheckState(state);
    }
}

bool IsChecked(const QListWidget& list, std::size_t row) {
    return list.item(static_cast<int>(row))->checkState() == Qt::Checked;
}

std::string FormLine(const FormRow& form) {
    const std::string caption(form.caption);
    if (form.printBatch) {
        return caption;
    }
    return caption + (form.onlyWithTics ? ", for each sample with TICs" : ", for each sample");
}

}  // namespace

PrintAllDialog::PrintAllDialog(const Batch& batch, const std::string& printer,
                               WindowServices& services, QWidget* parent)
    : QDialog(parent),
      batch_(batch),
      printer_(printer),
      ui_(std::make_unique<Ui::PrintAllDialog>()) {
    ui_->setupUi(this);
    for (const FormRow& form : kForms) {
        AddChecked(*ui_->FormsList, FormLine(form));
    }
    for (const SampleRecord& record : batch_.SampleList.value_or(SampleListType())) {
        std::string line = SampleName(record);
        if (const std::string file = FileNameOnly(record.FileName); line != file) {
            line.append(" (").append(file).append(")");
        }
        AddChecked(*ui_->SamplesList, line);
    }
    const auto connectList = [this](QListWidget& list, QPushButton& all, QPushButton& none) {
        list.setCurrentRow(0);
        connect(&list, &QListWidget::itemChanged, this, &PrintAllDialog::ShowCount);
        connect(&all, &QPushButton::clicked, &list, [&list] { CheckAll(list, Qt::Checked); });
        connect(&none, &QPushButton::clicked, &list, [&list] { CheckAll(list, Qt::Unchecked); });
    };
    connectList(*ui_->FormsList, *ui_->AllFormsButton, *ui_->NoFormsButton);
    connectList(*ui_->SamplesList, *ui_->AllSamplesButton, *ui_->NoSamplesButton);
    connect(ui_->PrintButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    ConnectHelp(*this, services, kPrintAllHelpTopic, ui_->HelpButton);
    ShowCount();
    ui_->FormsList->setFocus();
}

PrintAllDialog::~PrintAllDialog() = default;

std::vector<PackageWork> PrintAllDialog::DueJobs() const {
    PackageChoice choice;
    for (std::size_t i = 0; i < choice.forms.size(); ++i) {
        choice.forms[i] = IsChecked(*ui_->FormsList, i);
    }
    const auto samples = static_cast<std::size_t>(ui_->SamplesList->count());
    for (std::size_t i = 0; i < samples; ++i) {
        choice.samples.push_back(IsChecked(*ui_->SamplesList, i));
    }
    return PlanPackage(batch_, choice);
}

void PrintAllDialog::ShowCount() {
    const std::size_t count = DueJobs().size();
    QString text = QString("Print jobs: %1").arg(count);
    if (!printer_.empty()) {
        text += "        Printer: " + QString::fromStdString(printer_);
    }
    ui_->CountLabel->setText(text);
    ui_->PrintButton->setEnabled(count > 0);
}

}  // namespace qfr
