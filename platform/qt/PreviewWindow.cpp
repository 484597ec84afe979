#include "platform/qt/PreviewWindow.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QInputDialog>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "platform/WindowServices.h"
#include "platform/pdf/PdfFile.h"
#include "platform/qt/ControlRow.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kFitWidth = 0;
constexpr int kFitPage = 1;
constexpr int kFirstPercent = 2;  // index in the list
constexpr std::array<int, 7> kPercents = {50, 75, 100, 150, 200, 300, 400};
constexpr QSize kUsualSize(940, 1000);
constexpr int kFormLetters = 17;  // of a job's title, on a small screen

std::vector<const JobPage*> PagesOf(const std::vector<PrintJob>& jobs) {
    std::vector<const JobPage*> pages;
    for (const PrintJob& job : jobs) {
        for (const JobPage& page : job.pages) {
            pages.push_back(&page);
        }
    }
    return pages;
}

// The print service may take its time.
QStringList PrinterNames() {
    const WaitCursor wait;
    QStringList names;
    for (const std::string& name : InstalledPrinters()) {
        names += QString::fromStdString(name);
    }
    return names;
}

}  // namespace

PreviewWindow::PreviewWindow(std::vector<PrintJob> jobs, const std::string& title,
                             Typeface& typeface, PdfSaver& pdfSaver, Messages& messages,
                             QWidget* parent)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      jobs_(std::move(jobs)),
      title_(title),
      typeface_(typeface),
      pdfSaver_(pdfSaver),
      messages_(messages),
      view_(new PageView(PagesOf(jobs_), typeface, this)),
      pageEdit_(new QSpinBox),
      zoomCombo_(new QComboBox),
      formCombo_(new QComboBox(this)) {
    setWindowTitle("Print Preview - " + QString::fromStdString(title_));
    setProperty(kHelpTopicProperty, kPrintingHelpTopic);
    for (const PrintJob& job : jobs_) {
        firstPages_.push_back(pageCount_);
        pageCount_ += static_cast<int>(job.pages.size());
        formCombo_->addItem(QString::fromStdString(job.title));
    }

    auto* const row = new QHBoxLayout;
    QPushButton* const printButton = AddButton(row, "&Print...", "PrintButton");
    QPushButton* const saveButton = AddButton(row, "&Save as PDF...", "SaveButton");
    row->addStretch();
    formCombo_->hide();
    if (jobs_.size() > 1) {
        AddControl(row, "&Form:", formCombo_, "FormCombo");
        formCombo_->setMinimumWidth(kFormLetters * fontMetrics().averageCharWidth());
        formCombo_->show();
        row->addStretch();
    }
    previousButton_ = AddButton(row, "P&revious", "PreviousButton");
    pageEdit_->setRange(1, std::max(1, pageCount_));
    pageEdit_->setSuffix(QString(" of %1").arg(pageCount_));
    pageEdit_->setKeyboardTracking(false);
    AddControl(row, "Pa&ge:", pageEdit_, "PageEdit");
    nextButton_ = AddButton(row, "&Next", "NextButton");
    row->addStretch();
    zoomCombo_->addItems({"Fit width", "Fit page"});
    for (const int percent : kPercents) {
        zoomCombo_->addItem(QString("%1 %").arg(percent));
    }
    AddControl(row, "&Zoom:", zoomCombo_, "ZoomCombo");
    row->addStretch();
    QPushButton* const closeButton = AddButton(row, "&Close", "CloseButton");

    view_->setObjectName("PageView");
    view_->setAccessibleName("Pages");
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(view_);
    setTabOrder(saveButton, formCombo_);

    if (PrinterNames().empty()) {
        printButton->setEnabled(false);
        printButton->setToolTip("No printer is installed.");
    }
    saveButton->setEnabled(pageCount_ > 0);
    connect(printButton, &QPushButton::clicked, this, &PreviewWindow::Print);
    connect(saveButton, &QPushButton::clicked, this, &PreviewWindow::SaveAsPdf);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(previousButton_, &QPushButton::clicked, this,
            [this] { view_->GoTo(view_->CurrentPage() - 1); });
    connect(nextButton_, &QPushButton::clicked, this,
            [this] { view_->GoTo(view_->CurrentPage() + 1); });
    connect(pageEdit_, &QSpinBox::valueChanged, this, [this](int page) { view_->GoTo(page - 1); });
    connect(zoomCombo_, &QComboBox::activated, this, &PreviewWindow::ZoomChosen);
    connect(formCombo_, &QComboBox::activated, this,
            [this](int job) { view_->GoTo(firstPages_[static_cast<std::size_t>(job)]); });
    connect(view_, &PageView::CurrentPageChanged, this, &PreviewWindow::ShowPageNumber);
    connect(view_, &PageView::ZoomWished, this, &PreviewWindow::ZoomBy);
    AddKeys();
    ShowPageNumber(0);
    view_->setFocus();

    // Between the screen's edges with some room for the window's frame.
    const QRect room = (parent != nullptr ? parent : this)->screen()->availableGeometry();
    resize(kUsualSize.boundedTo(QSize(room.width() * 95 / 100, room.height() * 88 / 100)));
    move(room.center() - rect().center());
}

void PreviewWindow::AddKeys() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    add(Qt::Key_PageUp, [this] { view_->GoTo(view_->CurrentPage() - 1); });
    add(Qt::Key_PageDown, [this] { view_->GoTo(view_->CurrentPage() + 1); });
    add(Qt::Key_Home, [this] { view_->GoTo(0); });
    add(Qt::Key_End, [this] { view_->GoTo(pageCount_ - 1); });
    add(Qt::CTRL | Qt::Key_Plus, [this] { ZoomBy(1); });
    add(Qt::CTRL | Qt::Key_Equal, [this] { ZoomBy(1); });  // "+" without Shift on many keyboards
    add(Qt::CTRL | Qt::Key_Minus, [this] { ZoomBy(-1); });
    add(Qt::CTRL | Qt::Key_0, [this] {
        zoomCombo_->setCurrentIndex(zoomCombo_->findText("100 %"));
        ZoomChosen(zoomCombo_->currentIndex());
    });
}

void PreviewWindow::ShowPageNumber(int page) {
    const QSignalBlocker quiet(pageEdit_);
    pageEdit_->setValue(page + 1);
    previousButton_->setEnabled(page > 0);
    nextButton_->setEnabled(page + 1 < pageCount_);
    const auto behind = std::upper_bound(firstPages_.begin(), firstPages_.end(), page);
    formCombo_->setCurrentIndex(static_cast<int>(behind - firstPages_.begin()) - 1);
}

void PreviewWindow::ZoomChosen(int index) {
    if (index == kFitWidth || index == kFitPage) {
        view_->SetFit(index == kFitWidth ? PageView::Fit::kWidth : PageView::Fit::kPage);
    } else {
        view_->SetPercent(kPercents[static_cast<std::size_t>(index - kFirstPercent)]);
    }
}

void PreviewWindow::ZoomBy(int steps) {
    const double percent = view_->Percent();
    const auto next = steps > 0 ? std::ranges::upper_bound(kPercents, percent + 0.5)
                                : std::ranges::lower_bound(kPercents, percent - 0.5);
    const auto wished = static_cast<int>(next - kPercents.begin()) - (steps > 0 ? 0 : 1);
    if (wished >= 0 && wished < static_cast<int>(kPercents.size())) {
        zoomCombo_->setCurrentIndex(wished + kFirstPercent);
        ZoomChosen(wished + kFirstPercent);
    }
}

void PreviewWindow::Print() {
    bool chosen = false;
    const QString printer =
        QInputDialog::getItem(this, "Print", "&Printer:", PrinterNames(), 0, false, &chosen);
    if (!chosen || printer.isEmpty()) {
        return;
    }
    for (const PrintJob& job : jobs_) {
        const auto reason = [&] {
            const WaitCursor wait;
            return PrintOnQueue(job, printer.toStdString(), typeface_);
        }();
        if (reason) {
            // The next ones would fail for the same reason.
            messages_.Show(CouldNotBePrinted(job.title, printer.toStdString(), *reason));
            return;
        }
    }
}

void PreviewWindow::SaveAsPdf() {
    if (const auto file = pdfSaver_.ChooseFile(title_)) {
        const WaitCursor wait;
        PdfFile pdf(typeface_);
        for (const PrintJob& job : jobs_) {
            pdf.Add(job);
        }
        pdfSaver_.Write(pdf, title_, *file);
    }
}

}  // namespace qfr
