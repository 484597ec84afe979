#include "platform/qt/PreviewWindow.h"

#include <algorithm>
#include <array>
#include <utility>

#include <QInputDialog>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "platform/JobText.h"
#include "platform/WindowServices.h"
#include "platform/pdf/PdfFile.h"
#include "platform/qt/ControlRow.h"
#include "platform/qt/FoldingRow.h"
#include "platform/qt/LargeWindow.h"
#include "platform/qt/PrinterQueue.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

constexpr int kFitWidth = 0;
constexpr int kFitPage = 1;
constexpr int kFirstPercent = 2;  // index in the list
constexpr std::array<int, 7> kPercents = {50, 75, 100, 150, 200, 300, 400};
const char* const kZoom = "preview/zoom";  // the list's text
const char* const kThumbnailsShown = "preview/thumbnails";
constexpr QSize kUsualSize(1060, 1000);
constexpr int kFormLetters = 20;  // of a job's title, on a small screen

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
                             const PreviewServices& services, QWidget* parent)
    : QDialog(parent, LargeWindowFlags()),
      jobs_(std::move(jobs)),
      title_(title),
      services_(services),
      view_(new PageView(PagesOf(jobs_), services.Typeface, nullptr)),
      thumbnails_(new PageThumbnails(view_->Pages(), services.Typeface, nullptr)),
      search_(new PageSearch(*view_)),
      pageEdit_(new QSpinBox),
      zoomCombo_(new QComboBox),
      formCombo_(new QComboBox(this)) {
    setObjectName("PreviewWindow");
    setWindowTitle("Print Preview - " + QString::fromStdString(title_));
    setProperty(kHelpTopicProperty, kPrintingHelpTopic);
    ListForms();
    AddControls();
    Connect();
    AddKeys();
    ShowRememberedZoom();
    ShowPageNumber(0);
    view_->GoTo(static_cast<int>(FirstFilled(view_->Pages())));
    view_->setFocus();

    // Between the screen's edges with some room for the window's frame.
    const QRect room = (parent != nullptr ? parent : this)->screen()->availableGeometry();
    resize(kUsualSize.boundedTo(QSize(room.width() * 95 / 100, room.height() * 88 / 100)));
    move(room.center() - rect().center());
}

void PreviewWindow::ListForms() {
    for (const PrintJob& job : jobs_) {
        firstPages_.push_back(pageCount_);
        pageCount_ += static_cast<int>(job.pages.size());
        formCombo_->addItem(QString::fromStdString(job.title));
    }
}

void PreviewWindow::AddControls() {
    auto* const controls = new FoldingRow(this);
    QHBoxLayout* const row = controls->Row();
    printButton_ = AddButton(row, "&Print...", "PrintButton");
    saveButton_ = AddButton(row, "&Save as PDF...", "SaveButton");
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
    thumbnailsButton_ = AddButton(row, "&Thumbnails", "ThumbnailsButton");
    thumbnailsButton_->setCheckable(true);
    findButton_ = AddButton(row, "Fin&d...", "FindButton");
    closeButton_ = AddButton(row, "&Close", "CloseButton");
    controls->LetFold({{findButton_},
                       {thumbnailsButton_},
                       {previousButton_, nextButton_},
                       {saveButton_},
                       {closeButton_},
                       {printButton_}});

    view_->setObjectName("PageView");
    view_->setAccessibleName("Pages");
    saveButton_->setEnabled(pageCount_ > 0);

    auto* const pages = new QHBoxLayout;
    pages->addWidget(thumbnails_);
    pages->addWidget(view_, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(controls);
    layout->addLayout(pages, 1);
    layout->addWidget(search_);
    setTabOrder(saveButton_, formCombo_);
    const bool shown = services_.Memory.Value(kThumbnailsShown).toBool();
    thumbnailsButton_->setChecked(shown);
    thumbnails_->setVisible(shown);
}

void PreviewWindow::Connect() {
    connect(printButton_, &QPushButton::clicked, this, &PreviewWindow::Print);
    connect(saveButton_, &QPushButton::clicked, this, &PreviewWindow::SaveAsPdf);
    connect(findButton_, &QPushButton::clicked, search_, &PageSearch::Open);
    connect(closeButton_, &QPushButton::clicked, this, &QDialog::reject);
    connect(thumbnailsButton_, &QPushButton::toggled, this, [this](bool shown) {
        thumbnails_->setVisible(shown);
        services_.Memory.Keep(kThumbnailsShown, shown);
    });
    connect(previousButton_, &QPushButton::clicked, this,
            [this] { view_->GoTo(view_->CurrentPage() - 1); });
    connect(nextButton_, &QPushButton::clicked, this,
            [this] { view_->GoTo(view_->CurrentPage() + 1); });
    connect(pageEdit_, &QSpinBox::valueChanged, this, [this](int page) { view_->GoTo(page - 1); });
    connect(zoomCombo_, &QComboBox::activated, this, &PreviewWindow::ZoomChosen);
    connect(formCombo_, &QComboBox::activated, this,
            [this](int job) { view_->GoTo(firstPages_[static_cast<std::size_t>(job)]); });
    connect(thumbnails_, &PageThumbnails::PageChosen, view_, &PageView::GoTo);
    connect(view_, &PageView::CurrentPageChanged, this, &PreviewWindow::ShowPageNumber);
    connect(view_, &PageView::ZoomWished, this, &PreviewWindow::ZoomBy);
}

void PreviewWindow::AddKeys() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    add(Qt::Key_PageUp, [this] { view_->Walk(-1); });
    add(Qt::Key_PageDown, [this] { view_->Walk(1); });
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
        add(modifier | Qt::Key_Home, [this] { view_->GoTo(0); });
        add(modifier | Qt::Key_End, [this] { view_->GoTo(pageCount_ - 1); });
    }
    add(Qt::CTRL | Qt::Key_Plus, [this] { ZoomBy(1); });
    add(Qt::CTRL | Qt::Key_Equal, [this] { ZoomBy(1); });  // "+" without Shift on many keyboards
    add(Qt::CTRL | Qt::Key_Minus, [this] { ZoomBy(-1); });
    add(Qt::CTRL | Qt::Key_0, [this] {
        zoomCombo_->setCurrentIndex(zoomCombo_->findText("100 %"));
        ZoomChosen(zoomCombo_->currentIndex());
    });
    add(QKeySequence::Find, [this] { search_->Open(); });
    add(Qt::Key_F3, [this] { search_->GoOn(1); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { search_->GoOn(-1); });
    add(Qt::Key_F9, [this] { thumbnailsButton_->toggle(); });
}

void PreviewWindow::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel) && search_->isVisible()) {
        search_->Close();
        return;
    }
    QDialog::keyPressEvent(event);
}

void PreviewWindow::ShowPageNumber(int page) {
    const QSignalBlocker quiet(pageEdit_);
    pageEdit_->setValue(page + 1);
    previousButton_->setEnabled(page > 0);
    nextButton_->setEnabled(page + 1 < pageCount_);
    const auto behind = std::upper_bound(firstPages_.begin(), firstPages_.end(), page);
    formCombo_->setCurrentIndex(static_cast<int>(behind - firstPages_.begin()) - 1);
    thumbnails_->ShowCurrent(page);
}

void PreviewWindow::ShowRememberedZoom() {
    const int zoom = zoomCombo_->findText(services_.Memory.Value(kZoom).toString());
    zoomCombo_->setCurrentIndex(std::max(zoom, kFitWidth));
    ZoomChosen(zoomCombo_->currentIndex());
}

void PreviewWindow::ZoomChosen(int index) {
    if (index == kFitWidth || index == kFitPage) {
        view_->SetFit(index == kFitWidth ? PageView::Fit::kWidth : PageView::Fit::kPage);
    } else {
        view_->SetPercent(kPercents[static_cast<std::size_t>(index - kFirstPercent)]);
    }
    services_.Memory.Keep(kZoom, zoomCombo_->itemText(index));
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
    const QStringList names = PrinterNames();
    if (names.empty()) {
        services_.Messages.Show({"No printer is installed.", "Print"});
        return;
    }
    bool chosen = false;
    const QString name =
        QInputDialog::getItem(this, "Print", "&Printer:", names, 0, false, &chosen);
    if (!chosen || name.isEmpty()) {
        return;
    }
    const std::string printer = name.toStdString();
    std::size_t printed = 0;
    std::optional<std::string> reason;
    for (; printed < jobs_.size(); ++printed) {
        const WaitCursor wait;
        // The next ones would fail for the same reason.
        if ((reason = PrintOnQueue(jobs_[printed], printer, services_.Typeface))) {
            break;
        }
    }
    services_.Printed.NoteNow(Titles(printed), printer, false);
    if (reason) {
        services_.Messages.Show(CouldNotBePrinted(jobs_[printed].title, printer, *reason));
    }
}

void PreviewWindow::SaveAsPdf() {
    if (const auto file = services_.Saver.ChooseFile(title_)) {
        const WaitCursor wait;
        PdfFile pdf(services_.Typeface);
        for (const PrintJob& job : jobs_) {
            pdf.Add(job);
        }
        if (services_.Saver.Write(pdf, title_, *file)) {
            services_.Printed.NoteNow(Titles(jobs_.size()), *file, true);
        }
    }
}

std::vector<std::string> PreviewWindow::Titles(std::size_t jobs) const {
    std::vector<std::string> titles;
    for (std::size_t i = 0; i < jobs; ++i) {
        titles.push_back(jobs_[i].title);
    }
    return titles;
}

}  // namespace qfr
