#include "platform/qt/HelpWindow.h"

#include <array>
#include <utility>

#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <QWindow>

#include "platform/qt/ControlRow.h"
#include "platform/qt/HelpTopics.h"

namespace qfr {

namespace {

const QString kScheme = "help";
constexpr int kPictureMargin = 60;  // of the page, a list and a scroll bar

}  // namespace

// A page of the help. Everything in it comes out of the help file.
class HelpPage : public QTextBrowser {
  public:
    HelpPage(const HelpFile& help, QWidget* parent) : QTextBrowser(parent), help_(help) {}

    static QUrl Address(const QString& page) { return QUrl(kScheme + ":/" + page); }
    QString Page() const { return Path(source()); }

    QVariant loadResource(int type, const QUrl& name) override {
        const QByteArray bytes = help_.Read(Path(source().resolved(name))).value_or(QByteArray());
        switch (type) {
            case QTextDocument::ImageResource: {
                QPixmap picture;
                picture.loadFromData(bytes);
                const int room = viewport()->width() - kPictureMargin;
                return picture.width() > room && room > 0
                           ? picture.scaledToWidth(room, Qt::SmoothTransformation)
                           : picture;
            }
            case QTextDocument::HtmlResource:
            case QTextDocument::StyleSheetResource:
                return QString::fromUtf8(bytes);
            default:
                return {};
        }
    }

  protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType) override {
        // The program stays off the network: a link leads to another page of the help or nowhere.
        const QUrl page = source().resolved(url);
        if (page.scheme() == kScheme && help_.Read(Path(page))) {
            QTextBrowser::doSetSource(page, QTextDocument::HtmlResource);
        }
    }

  private:
    static QString Path(const QUrl& url) { return url.path().mid(1); }

    const HelpFile& help_;
};

namespace {

constexpr std::array<int, 6> kPercents = {75, 100, 125, 150, 200, 300};
constexpr QSize kUsualSize(1040, 720);  // its pictures, up to 690 wide, show at their own size
constexpr int kContentsWidth = 250;
constexpr int kFrame = 16;  // room for it at the edge of the screen
constexpr int kPageRole = Qt::UserRole;

}  // namespace

HelpWindow::HelpWindow(std::unique_ptr<HelpFile> help)
    : help_(std::move(help)),
      page_(new HelpPage(*help_, this)),
      contents_(new QTreeWidget),
      zoomCombo_(new QComboBox),
      findEdit_(new QLineEdit),
      findState_(new QLabel),
      usualPointSize_(page_->font().pointSizeF()) {
    setObjectName("HelpWindow");
    setWindowTitle("QFR Forms Help");

    auto* const row = new QHBoxLayout;
    backButton_ = AddButton(row, "&Back", "BackButton");
    forwardButton_ = AddButton(row, "F&orward", "ForwardButton");
    QPushButton* const homeButton = AddButton(row, "&Home", "HomeButton");
    row->addStretch();
    for (const int percent : kPercents) {
        zoomCombo_->addItem(QString("%1 %").arg(percent), percent);
    }
    AddControl(row, "&Zoom:", zoomCombo_, "ZoomCombo");
    row->addStretch();
    QPushButton* const closeButton = AddButton(row, "&Close", "CloseButton");

    auto* const findRow = new QHBoxLayout;
    AddControl(findRow, "&Find in page:", findEdit_, "FindEdit");
    QPushButton* const previousButton = AddButton(findRow, "&Previous", "PreviousButton");
    QPushButton* const nextButton = AddButton(findRow, "&Next", "NextButton");
    findState_->setObjectName("FindState");
    findRow->addWidget(findState_, 1);

    auto* const split = new QSplitter;
    split->setObjectName("Parts");
    split->addWidget(contents_);
    split->addWidget(page_);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    split->setSizes({kContentsWidth, kUsualSize.width() - kContentsWidth});
    contents_->setObjectName("Contents");
    contents_->setAccessibleName("Contents");
    page_->setObjectName("Page");
    page_->setAccessibleName("Page");

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(row);
    layout->addWidget(split, 1);
    layout->addLayout(findRow);

    connect(backButton_, &QPushButton::clicked, page_, &QTextBrowser::backward);
    connect(forwardButton_, &QPushButton::clicked, page_, &QTextBrowser::forward);
    connect(homeButton, &QPushButton::clicked, this,
            [this] { ShowPage(help_->Contents().front().page); });
    connect(closeButton, &QPushButton::clicked, this, &QWidget::close);
    connect(page_, &QTextBrowser::historyChanged, this, &HelpWindow::PageShown);
    connect(contents_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* chosen) { ShowPage(chosen->data(0, kPageRole).toString()); });
    connect(zoomCombo_, &QComboBox::currentIndexChanged, this, &HelpWindow::ZoomChosen);
    connect(findEdit_, &QLineEdit::textChanged, this, &HelpWindow::FindAsTyped);
    connect(findEdit_, &QLineEdit::returnPressed, this, [this] { FindNext({}); });
    connect(nextButton, &QPushButton::clicked, this, [this] { FindNext({}); });
    connect(previousButton, &QPushButton::clicked, this,
            [this] { FindNext(QTextDocument::FindBackward); });
    AddKeys();
    FillContents();
    zoomCombo_->setCurrentIndex(zoomCombo_->findData(100));
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::AddKeys() {
    const auto add = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    add(Qt::ALT | Qt::Key_Left, [this] { page_->backward(); });
    add(Qt::ALT | Qt::Key_Right, [this] { page_->forward(); });
    add(Qt::ALT | Qt::Key_Home, [this] { ShowPage(help_->Contents().front().page); });
    add(QKeySequence::Find, [this] {
        findEdit_->setFocus();
        findEdit_->selectAll();
    });
    add(Qt::Key_F3, [this] { FindNext({}); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { FindNext(QTextDocument::FindBackward); });
    add(Qt::CTRL | Qt::Key_Plus, [this] { ZoomBy(1); });
    add(Qt::CTRL | Qt::Key_Equal, [this] { ZoomBy(1); });  // "+" without Shift on many keyboards
    add(Qt::CTRL | Qt::Key_Minus, [this] { ZoomBy(-1); });
    add(Qt::CTRL | Qt::Key_0, [this] { zoomCombo_->setCurrentIndex(zoomCombo_->findData(100)); });
    add(Qt::Key_Escape, [this] { close(); });
}

void HelpWindow::FillContents() {
    const QSignalBlocker quiet(contents_);
    contents_->setHeaderHidden(true);
    std::vector<QTreeWidgetItem*> path = {contents_->invisibleRootItem()};
    for (const HelpChapter& chapter : help_->Contents()) {
        path.resize(std::min(path.size(), static_cast<std::size_t>(chapter.depth) + 1));
        auto* const item = new QTreeWidgetItem(path.back(), {chapter.title});
        item->setData(0, kPageRole, chapter.page);
        path.push_back(item);
    }
    contents_->expandAll();
}

void HelpWindow::ShowTopic(int topic) {
    if (!isVisible()) {
        // At the edge of the screen, so that it leaves the dialog that it explains in view.
        const QRect room = screen()->availableGeometry();
        resize(kUsualSize.boundedTo(room.size() * 9 / 10));
        move(room.right() - width() - kFrame, room.top());
    }
    const std::string_view page = HelpPageOf(topic);
    ShowPage(QString::fromUtf8(page.data(), static_cast<qsizetype>(page.size())));
    StandBeside();
    show();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
    page_->setFocus();
}

// A modal dialog leaves only its own windows usable.
void HelpWindow::StandBeside() {
    QWidget* const modal = QApplication::activeModalWidget();
    winId();  // makes the window, should it be a new one
    windowHandle()->setTransientParent(modal != nullptr ? modal->windowHandle() : nullptr);
}

bool HelpWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked) {
        // A dialog opened while the help shows.
        QMetaObject::invokeMethod(this, &HelpWindow::StandBeside, Qt::QueuedConnection);
    }
    return QWidget::event(event);
}

void HelpWindow::ShowPage(const QString& page) {
    page_->setSource(HelpPage::Address(page));
}

void HelpWindow::PageShown() {
    backButton_->setEnabled(page_->isBackwardAvailable());
    forwardButton_->setEnabled(page_->isForwardAvailable());
    findState_->clear();
    const QSignalBlocker quiet(contents_);
    for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
        if ((*item)->data(0, kPageRole).toString() == page_->Page()) {
            contents_->setCurrentItem(*item);
            return;
        }
    }
}

void HelpWindow::ZoomChosen() {
    QFont font = page_->font();
    font.setPointSizeF(usualPointSize_ * zoomCombo_->currentData().toInt() / 100);
    page_->setFont(font);
}

void HelpWindow::ZoomBy(int steps) {
    zoomCombo_->setCurrentIndex(
        std::clamp(zoomCombo_->currentIndex() + steps, 0, zoomCombo_->count() - 1));
}

void HelpWindow::FindAsTyped() {
    // The text found so far may go on.
    QTextCursor cursor = page_->textCursor();
    cursor.setPosition(cursor.selectionStart());
    page_->setTextCursor(cursor);
    FindNext({});
}

void HelpWindow::FindNext(QTextDocument::FindFlags direction) {
    findState_->clear();
    if (findEdit_->text().isEmpty() || page_->find(findEdit_->text(), direction)) {
        return;
    }
    const QTextCursor before = page_->textCursor();
    page_->moveCursor(direction == QTextDocument::FindBackward ? QTextCursor::End
                                                               : QTextCursor::Start);
    if (page_->find(findEdit_->text(), direction)) {
        findState_->setText("Continued from the other end of the page");
    } else {
        page_->setTextCursor(before);
        findState_->setText("Not found");
    }
}

}  // namespace qfr
