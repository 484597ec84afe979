#include "app/StartPage.h"

#include <algorithm>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/RecentBatches.h"
#include "platform/Text.h"
#include "platform/qt/ShownText.h"
#include "platform/qt/WaitCursor.h"

namespace qfr {

namespace {

const char* const kRecentName = "batches/recent";
constexpr int kMargin = 20;
constexpr int kRowPadding = 6;
constexpr int kSaved = 1;  // the columns
constexpr int kFolder = 2;
constexpr int kFileRole = Qt::UserRole;

// A share may answer no more.
bool IsThere(const std::string& file) {
    const WaitCursor wait;
    return QFileInfo(QString::fromStdString(file)).isFile();
}

std::string FileOf(const QTreeWidgetItem& item) {
    return item.data(0, kFileRole).toString().toStdString();
}

void KeepRecent(Remembered& memory, const std::vector<std::string>& files) {
    QStringList names;
    for (const std::string& file : files) {
        names << QString::fromStdString(file);
    }
    memory.Keep(kRecentName, names);
}

QLayout* Sign() {
    constexpr double kLarger = 1.6;
    constexpr QSize kSize(48, 48);
    auto* const picture = new QLabel;
    picture->setPixmap(QApplication::windowIcon().pixmap(kSize, picture->devicePixelRatioF()));
    auto* const name = new QLabel("QFR Forms");
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * kLarger);
    name->setFont(font);
    auto* const row = new QHBoxLayout;
    row->addWidget(picture);
    row->addWidget(name, 1);
    return row;
}

}  // namespace

std::vector<std::string> RecentBatches(const Remembered& memory) {
    std::vector<std::string> files;
    for (const QString& name : memory.Value(kRecentName).toStringList()) {
        if (files.size() < kRecentBatches && !name.isEmpty()) {
            files.push_back(name.toStdString());
        }
    }
    return files;
}

void RememberBatch(Remembered& memory, const std::string& file) {
    KeepRecent(memory, WithRecentBatch(RecentBatches(memory), file));
}

void StartPage::Command::Describe(const QString& what) const {
    What->setText(what);
    Button->setAccessibleDescription(what);
}

void StartPage::Command::Offer(bool offered) const {
    Button->setVisible(offered);
    What->setVisible(offered);
}

StartPage::StartPage(StartCommands commands, Messages& messages, Remembered& memory,
                     std::string exampleFile)
    : commands_(std::move(commands)),
      messages_(messages),
      memory_(memory),
      exampleFile_(std::move(exampleFile)),
      dates_([this](const std::string& file, const std::optional<std::time_t>& written) {
          QMetaObject::invokeMethod(
              this, [this, file, written] { TakeDate(file, written); }, Qt::QueuedConnection);
      }) {
    setObjectName("StartPage");
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(kMargin, kMargin / 2, kMargin, kMargin / 2);
    rows->addLayout(Sign());
    auto* const grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(kMargin);
    rows->addLayout(grid);
    load_ = AddCommand(*grid, "LoadFilesButton", "&Load Files",
                       "A new batch: lab blank, samples, calibration and check report",
                       commands_.LoadFiles);
    AddCommand(*grid, "LoadFolderButton", "Load F&older...",
               "A new batch from what lies in one folder", commands_.LoadFolder);
    AddCommand(*grid, "RestoreBatchButton", "Restore &Batch",
               "A batch that was saved, with all that was typed for it", commands_.RestoreBatch);
    recover_ =
        AddCommand(*grid, "RecoverButton", "Re&cover Last Batch", "", commands_.RecoverBatch);
    example_ = AddCommand(*grid, "OpenExampleButton", "Open &Example", "",
                          [this] { commands_.OpenBatch(exampleFile_); });
    rows->addSpacing(kMargin / 2);
    AddRecent(*rows);
    SetRecovery("");
    Refresh();
}

StartPage::Command StartPage::AddCommand(QGridLayout& commands, const char* name,
                                         const QString& caption, const QString& what,
                                         const std::function<void()>& handler) {
    const Command command{new QPushButton(caption), new QLabel};
    command.Button->setObjectName(name);
    command.Button->setAutoDefault(true);
    command.What->setWordWrap(true);
    command.Describe(what);
    const int row = commands.rowCount();
    commands.addWidget(command.Button, row, 0);
    commands.addWidget(command.What, row, 1);
    command.Offer(handler != nullptr);
    connect(command.Button, &QPushButton::clicked, this, handler);
    return command;
}

void StartPage::AddRecent(QVBoxLayout& rows) {
    recentTree_ = new QTreeWidget;
    recentTree_->setObjectName("RecentTree");
    recentTree_->setHeaderLabels({"Batch", "Saved", "Folder"});
    recentTree_->setRootIsDecorated(false);
    recentTree_->setUniformRowHeights(true);
    recentTree_->setAllColumnsShowFocus(true);
    recentTree_->setTextElideMode(Qt::ElideMiddle);
    recentTree_->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(recentTree_, &QTreeWidget::itemActivated, this, &StartPage::OpenRecent);
    auto* const open = new QAction("&Open", recentTree_);
    auto* const forget = new QAction("&Remove from List", recentTree_);
    forget->setShortcut(QKeySequence::Delete);
    forget->setShortcutContext(Qt::WidgetShortcut);
    connect(open, &QAction::triggered, this, &StartPage::OpenRecent);
    connect(forget, &QAction::triggered, this, &StartPage::ForgetRecent);
    recentTree_->addActions({open, forget});
    recentLabel_ = new QLabel("Recent batche&s:");
    recentLabel_->setBuddy(recentTree_);
    rows.addWidget(recentLabel_);
    rows.addWidget(recentTree_, 1);
    // As high as eight batches, where there is room.
    recentTree_->setMaximumHeight((recentTree_->fontMetrics().height() + kRowPadding) *
                                  static_cast<int>(kRecentBatches + 2));
    rows.addStretch();
}

void StartPage::Refresh() {
    ShowExample();
    ShowRecent();
}

void StartPage::ShowExample() {
    const bool there = IsThere(exampleFile_);
    example_.Button->setEnabled(there);
    example_.Describe(
        there ? QString("Nine samples and a lab blank, with everything typed, to look around")
              : Shown(exampleFile_) + " is missing");
}

void StartPage::ShowRecent() {
    const int chosen = recentTree_->indexOfTopLevelItem(recentTree_->currentItem());
    recentTree_->clear();
    for (const std::string& file : RecentBatches(memory_)) {
        auto* const item = new QTreeWidgetItem(
            recentTree_, {Shown(FileNameOnly(file)), "", Shown(FolderOnly(file))});
        item->setSizeHint(kFolder, {0, recentTree_->fontMetrics().height() + kRowPadding});
        item->setData(0, kFileRole, QString::fromStdString(file));
        for (int column = 0; column < recentTree_->columnCount(); ++column) {
            item->setToolTip(column, Shown(file));
        }
        ShowDate(*item);
        dates_.Look(file);
    }
    const int rows = recentTree_->topLevelItemCount();
    recentTree_->setCurrentItem(
        recentTree_->topLevelItem(std::clamp(chosen, 0, std::max(rows - 1, 0))));
    recentTree_->setVisible(rows > 0);
    recentLabel_->setVisible(rows > 0);
    recentTree_->resizeColumnToContents(0);
    recentTree_->resizeColumnToContents(kSaved);
}

void StartPage::ShowDate(QTreeWidgetItem& item) const {
    const auto known = saved_.find(FileOf(item));
    if (known == saved_.end()) {
        item.setText(kSaved, kNotKnownYet);
        return;
    }
    const std::optional<std::time_t>& saved = known->second;
    item.setText(kSaved, saved ? QDateTime::fromSecsSinceEpoch(*saved).toString(kShownDateTime)
                               : QString("is missing"));
    for (int column = 0; column < item.columnCount(); ++column) {
        item.setForeground(column,
                           saved ? QBrush() : palette().brush(QPalette::Disabled, QPalette::Text));
    }
}

void StartPage::TakeDate(const std::string& file, const std::optional<std::time_t>& written) {
    saved_[file] = written;
    for (int row = 0; row < recentTree_->topLevelItemCount(); ++row) {
        if (QTreeWidgetItem& item = *recentTree_->topLevelItem(row); FileOf(item) == file) {
            ShowDate(item);
            recentTree_->resizeColumnToContents(kSaved);
        }
    }
}

void StartPage::FocusFirst() {
    // Enter is enough, so it is to be seen where it goes.
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    QWidget* const order[] = {recover_.Button, recentTree_, example_.Button, load_.Button};
    for (QWidget* const control : order) {
        if (!control->isHidden() && control->isEnabled()) {
            control->setFocus();
            return;
        }
    }
}

void StartPage::SetRecovery(const QString& text) {
    recover_.Describe(text);
    recover_.Offer(commands_.RecoverBatch && !text.isEmpty());
}

void StartPage::OpenRecent() {
    const QTreeWidgetItem* const item = recentTree_->currentItem();
    if (item == nullptr) {
        return;
    }
    const std::string file = FileOf(*item);
    if (!saved_.contains(file)) {
        messages_.Show({FileNameOnly(file) + " is still being looked for in\n" + FolderOnly(file) +
                            ".\nPlease try again when the list says when it was saved.",
                        "QFR Forms", MessageIcon::kInformation});
    } else if (IsThere(file)) {
        commands_.OpenBatch(file);
        return;
    } else {
        messages_.Show({FileNameOnly(file) + " is no longer in\n" + FolderOnly(file) + ".",
                        kFileNotFoundTitle, MessageIcon::kInformation});
    }
    ShowRecent();
}

void StartPage::ForgetRecent() {
    if (const QTreeWidgetItem* const item = recentTree_->currentItem()) {
        std::vector<std::string> files = RecentBatches(memory_);
        std::erase(files, FileOf(*item));
        KeepRecent(memory_, files);
        ShowRecent();
    }
}

}  // namespace qfr
