#include "app/PrintAll.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <QProgressDialog>
#include <QScrollBar>
#include <QStatusBar>

#include "app/BatchStates.h"
#include "app/MainForm.h"
#include "app/Package.h"
#include "dialogs/EntryDialogs.h"
#include "platform/Text.h"
#include "platform/qt/PrintTarget.h"
#include "platform/qt/Tables.h"
#include "platform/qt/WaitCursor.h"
#include "ui_PackageNotesDialog.h"
#include "ui_PrintAllDialog.h"

namespace qfr {

namespace {

constexpr int kReviewAsked = QDialog::Accepted + 1;  // how the dialog ends
constexpr int kProgressDelay = 250;                  // ms; what is done sooner shows no progress
constexpr int kClosingNote = 8000;                   // ms
constexpr int kNotesLetters = 110;                   // that a line of the messages' window has
constexpr int kListLetters = 50;                     // of a line that no list elides

void AddChecked(QListWidget& list, const std::string& text) {
    auto* const item = new QListWidgetItem(QString::fromStdString(text), &list);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Checked);
    item->setToolTip(item->text());
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

// Which forms to print, and for which samples.
class PrintAllDialog : public QDialog {
  public:
    // Everything is checked. It ends with kReviewAsked when the findings are to be seen first.
    PrintAllDialog(const Batch& batch, std::span<const Finding> findings, WindowServices& services,
                   QWidget* parent);

    // The jobs that are due for what is checked.
    std::vector<PackageWork> DueJobs() const;

  private:
    void ShowCount();

    const Batch& batch_;
    Ui::PrintAllDialog ui_;
};

PrintAllDialog::PrintAllDialog(const Batch& batch, std::span<const Finding> findings,
                               WindowServices& services, QWidget* parent)
    : QDialog(parent), batch_(batch) {
    ui_.setupUi(this);
    for (const FormRow& form : kForms) {
        AddChecked(*ui_.FormsList, FormLine(form));
    }
    for (const SampleRecord& record : SamplesOf(batch_)) {
        std::string line = SampleName(record);
        if (const std::string file = FileNameOnly(record.FileName); line != file) {
            line.append(" (").append(file).append(")");
        }
        AddChecked(*ui_.SamplesList, line);
    }
    const auto connectList = [this](QListWidget& list, QPushButton& all, QPushButton& none) {
        // As wide as its longest line, within reason.
        const int bars = list.verticalScrollBar()->sizeHint().width() + 2 * list.frameWidth();
        const int widest = kListLetters * list.fontMetrics().averageCharWidth();
        list.setMinimumWidth(
            std::max(list.minimumWidth(), std::min(list.sizeHintForColumn(0) + bars, widest)));
        ElideItems(list);
        list.setCurrentRow(0);
        connect(&list, &QListWidget::itemChanged, this, &PrintAllDialog::ShowCount);
        connect(&all, &QPushButton::clicked, &list, [&list] { CheckAll(list, Qt::Checked); });
        connect(&none, &QPushButton::clicked, &list, [&list] { CheckAll(list, Qt::Unchecked); });
    };
    connectList(*ui_.FormsList, *ui_.AllFormsButton, *ui_.NoFormsButton);
    connectList(*ui_.SamplesList, *ui_.AllSamplesButton, *ui_.NoSamplesButton);
    ui_.ReviewLabel->setText(
        QString::fromStdString("A reviewer would find " + CountText(findings, Severity::kError) +
                               " and " + CountText(findings, Severity::kWarning) + "."));
    connect(ui_.ReviewButton, &QPushButton::clicked, this, [this] { done(kReviewAsked); });
    connect(ui_.PrintButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_.CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    ConnectHelp(*this, services, kPrintAllHelpTopic, ui_.HelpButton);
    PrintTarget::PutBefore(*ui_.PrintButton, services.Printers());
    ShowCount();
    ui_.FormsList->setFocus();
}

std::vector<PackageWork> PrintAllDialog::DueJobs() const {
    PackageChoice choice;
    for (std::size_t i = 0; i < choice.forms.size(); ++i) {
        choice.forms[i] = IsChecked(*ui_.FormsList, i);
    }
    const auto samples = static_cast<std::size_t>(ui_.SamplesList->count());
    for (std::size_t i = 0; i < samples; ++i) {
        choice.samples.push_back(IsChecked(*ui_.SamplesList, i));
    }
    return PlanPackage(batch_, choice);
}

void PrintAllDialog::ShowCount() {
    const std::size_t count = DueJobs().size();
    ui_.CountLabel->setText(QString("Print jobs: %1").arg(count));
    ui_.PrintButton->setEnabled(count > 0);
}

// Named after the sample delivery group, once a header names it.
std::string PackageTitle(const Batch& batch) {
    for (const SampleRecord& record : SamplesOf(batch)) {
        if (const std::string group = Trim(record.Header[HeaderField::kSdgNo]); !group.empty()) {
            return "Data Package " + group;
        }
    }
    return "Data Package";
}

std::string NameOf(const PackageWork& work, const Batch& batch) {
    const std::string form(work.form->caption);
    return work.record ? form + ", " + SampleName((*batch.SampleList)[*work.record]) : form;
}

// A package that is due.
struct DuePackage {
    std::string command;  // that prints it, as its button says
    std::string title;    // of the whole
    std::vector<PackageWork> jobs;
    int printer = 0;
};

// Shows the jobs going by until they are done or the user cancels.
PackageOutcome PrintWithProgress(TQFRForm& window, TextMetrics& metrics, const DuePackage& due,
                                 JobPackage& package) {
    const std::vector<PackageWork>& dueJobs = due.jobs;
    const auto count = static_cast<int>(dueJobs.size());
    QProgressDialog progress("", "&Cancel", 0, count, &window);
    progress.setObjectName("PrintAllProgress");
    progress.setWindowTitle(QString::fromStdString(due.command));
    progress.setProperty(kHelpTopicProperty, kPrintAllHelpTopic);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(kProgressDelay);
    progress.setAutoReset(false);
    progress.setAutoClose(false);
    progress.setMinimumWidth(progress.fontMetrics().averageCharWidth() * 60);
    std::optional<WaitCursor> wait(std::in_place);
    return PrintPackage(window, metrics, dueJobs, package, [&](std::size_t job) {
        if (job < dueJobs.size()) {
            progress.setLabelText(
                QString("%1\n%2 of %3")
                    .arg(QString::fromStdString(NameOf(dueJobs[job], window.Batch())))
                    .arg(job + 1)
                    .arg(count));
        }
        progress.setValue(static_cast<int>(job));
        if (progress.isVisible()) {
            wait.reset();
        }
        return !progress.wasCanceled();
    });
}

// Shows in one list what forms had to say while the package was printed, below the summary.
void ShowPackageNotes(const std::vector<PackageNote>& notes, const Batch& batch,
                      const QString& summary, QWidget* parent) {
    QDialog dialog(parent);
    Ui::PackageNotesDialog ui;
    ui.setupUi(&dialog);
    dialog.setProperty(kHelpTopicProperty, kPrintAllHelpTopic);
    ui.NotesLabel->setText(summary + " &Messages:");
    std::vector<std::vector<std::string>> rows;
    for (const PackageNote& note : notes) {
        const auto& record = note.work->record;
        rows.push_back({std::string(note.work->form->caption),
                        record ? SampleName((*batch.SampleList)[*record]) : "", note.text,
                        note.printed ? "Yes" : "No"});
    }
    constexpr int kMessage = 2;
    FillWrapped(*ui.NotesTable, rows, kMessage);
    dialog.resize(kNotesLetters * dialog.fontMetrics().averageCharWidth(),
                  dialog.sizeHint().height());
    QObject::connect(ui.OkButton, &QPushButton::clicked, &dialog, &QDialog::accept);
    ui.OkButton->setFocus();
    dialog.exec();
}

void PrintDue(TQFRForm& window, TextMetrics& metrics, PackageSink& sink, const DuePackage& due) {
    const std::unique_ptr<JobPackage> package = sink.BeginPackage(due.printer, due.title);
    if (!package) {
        return;
    }
    PackageOutcome outcome = PrintWithProgress(window, metrics, due, *package);
    if (!outcome.cancelled && !outcome.failed) {
        package->Finish();
    }
    const QString summary = QString("%1 of %2 %3.")
                                .arg(package->Printed())
                                .arg(QString::fromStdString(Counted(due.jobs.size(), "job")))
                                .arg(package->IsOnlyShown() ? "shown" : "printed");
    // Of a package that the user gave up with nothing printed, he need not hear more.
    if (!outcome.notes.empty() && (!outcome.cancelled || package->Printed() > 0)) {
        for (PackageNote& note : outcome.notes) {
            note.printed = note.printed && package->Printed() > 0;
        }
        ShowPackageNotes(outcome.notes, window.Batch(), summary, &window);
    }
    window.statusBar()->showMessage(QString::fromStdString(due.command) +
                                        (outcome.cancelled ? ", cancelled: " : ": ") + summary,
                                    kClosingNote);
}

// Whether anything is loaded to print; false after the message that says so.
bool CanPrint(TQFRForm& window) {
    if (!FilesSpecified(window.Batch())) {
        window.Show({std::string(kSpecifyFiles), kFilesNotSpecifiedTitle});
        return false;
    }
    return true;
}

}  // namespace

void PrintAll(TQFRForm& window, TextMetrics& metrics, PackageSink& sink) {
    if (!CanPrint(window)) {
        return;
    }
    const Batch& batch = window.Batch();
    Page& page = window.Page();
    PrintAllDialog dialog(batch, window.Review(), window, &window);
    const int end = dialog.exec();
    if (end == kReviewAsked) {
        window.ShowReview();
    }
    if (end == QDialog::Accepted && page.testPrinter()) {
        PrintDue(window, metrics, sink,
                 {"Print All Forms", PackageTitle(batch), dialog.DueJobs(),
                  page.Printer().PrinterIndex});
    }
}

void PrintChosen(TQFRForm& window, TextMetrics& metrics, PackageSink& sink,
                 const std::string& command, const PackageChoice& choice) {
    if (!CanPrint(window)) {
        return;
    }
    const Batch& batch = window.Batch();
    std::vector<PackageWork> jobs = PlanPackage(batch, choice);
    if (jobs.empty()) {
        window.Show({std::string(kNoTics), command});
        return;
    }
    if (!window.Page().testPrinter()) {
        return;
    }
    // All of one sample, or all of one form.
    const PackageWork& first = jobs.front();
    std::string title = JobTitle(*first.form);
    if (first.record && jobs.back().record == first.record) {
        title += " " + SampleName((*batch.SampleList)[*first.record]);
    }
    PrintDue(window, metrics, sink,
             {command, title, std::move(jobs), window.Page().Printer().PrinterIndex});
}

void PreviewAll(TQFRForm& window, TextMetrics& metrics, PackageSink& sink) {
    if (CanPrint(window)) {
        const Batch& batch = window.Batch();
        PrintDue(
            window, metrics, sink,
            {"Preview All Forms", PackageTitle(batch), PlanWholePackage(batch), kPreviewIndex});
    }
}

}  // namespace qfr
