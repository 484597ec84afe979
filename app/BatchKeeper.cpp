#include "app/BatchKeeper.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>

#include "app/BatchFile.h"
#include "app/MainForm.h"
#include "dialogs/HoldsEntries.h"
#include "platform/FileLookup.h"
#include "platform/HostSystem.h"
#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

constexpr int kSoon = 1000;     // ms after something may have changed
constexpr int kAtLeast = 3000;  // ms, where a disk is slow, or nothing tells of changes
constexpr int kDiskShare = 10;  // a slow disk works for one part of the time

constexpr const char* kTitle = "QFR Forms";

std::vector<const HoldsEntries*> OpenWindows() {
    std::vector<const HoldsEntries*> windows;
    for (const QWidget* const widget : QApplication::topLevelWidgets()) {
        const auto* const holder = dynamic_cast<const HoldsEntries*>(widget);
        if (holder != nullptr && widget->isVisible()) {
            windows.push_back(holder);
        }
    }
    return windows;
}

bool LiesIn(fs::path folder, const fs::path& outer) {
    std::error_code unknown;
    while (!fs::equivalent(folder, outer, unknown)) {
        const fs::path above = folder.parent_path();
        if (above == folder) {
            return false;
        }
        folder = above;
    }
    return true;
}

}  // namespace

BatchKeeper::BatchKeeper(TQFRForm& window, std::function<void(const QString& note)> tell)
    : window_(window), tell_(std::move(tell)), store_(window.Settings().UserDir() / "recovery") {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &BatchKeeper::Check);
    // However the program is asked to end, also while windows are open.
    connect(qApp, &QCoreApplication::aboutToQuit, this, &BatchKeeper::Check);
    qApp->installEventFilter(this);
    ShowTitle(false, false);
}

bool BatchKeeper::HasFileOfItsOwn() const {
    const fs::path file = PathOf(fileName_);
    std::error_code unknown;
    return !fileName_.empty() && !IsReadOnly(file) && IsWritable(file.parent_path()) &&
           !fs::equivalent(file.parent_path(), PathOf(window_.Settings().ProgramDir()) / "example",
                           unknown);
}

std::optional<Message> BatchKeeper::ReplaceQuestion() const {
    const std::optional<FileStamp> now = StampOf(PathOf(fileName_));
    if (!now || now == stamp_) {
        return std::nullopt;
    }
    return RiskyQuestion(FileNameOnly(fileName_) +
                         " was changed by another program\nsince it was read or written here. "
                         "Replace it?");
}

SaveRequest BatchKeeper::Proposal(const std::string& folder, const Remembered& memory) const {
    std::string start = folder;
    if (HasFileOfItsOwn()) {
        start = FolderOnly(fileName_);
    } else if (LiesIn(PathOf(folder), PathOf(window_.Settings().ProgramDir()))) {
        start = memory.UsersFolder({kBatchFolder});
    }
    return {SaveKind::kBatch, start, FileNameOnly(fileName_)};
}

void BatchKeeper::Replaced(std::string fileName) {
    store_.SetAside();
    fileName_ = std::move(fileName);
    stamp_ = StampOf(PathOf(fileName_));
    saved_.reset();
    restorable_ = true;
}

void BatchKeeper::Restored(const std::string& fileName, bool asSaved) {
    Replaced(fileName);
    if (asSaved) {
        saved_ = SaveBatch(window_.Batch(), window_.Entries());
    }
    Check();
    told_ = false;  // the window, which shows the batch anew, clears the note
}

void BatchKeeper::Saved(const std::string& fileName, std::string content, bool restorable) {
    fileName_ = fileName;
    stamp_ = StampOf(PathOf(fileName_));
    saved_ = std::move(content);
    restorable_ = restorable;
    if (IsLoaded(window_.Batch())) {
        store_.DropOffers();
    }
    Check();
}

void BatchKeeper::Cleared() {
    Replaced("");
    Check();
}

void BatchKeeper::Recovered(const RecoveryOffer& offer) {
    Replaced(offer.Head.BatchFile);
    stamp_ = offer.Head.Stamp;
    Check();
    told_ = false;   // as after a restore
    if (!failed_) {  // it is kept anew
        store_.Remove(offer);
    }
}

bool BatchKeeper::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::InputMethod:
        case QEvent::MouseButtonRelease:
        case QEvent::Drop:
        case QEvent::WindowActivate:
            CheckSoon();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void BatchKeeper::CheckSoon() {
    if (!timer_.isActive() || timer_.remainingTime() > pause_) {
        timer_.start(pause_);
    }
}

void BatchKeeper::Check() {
    QElapsedTimer time;
    time.start();
    const std::vector<const HoldsEntries*> open = OpenWindows();
    if (open.empty()) {
        Look(window_.Batch(), window_.Entries());
    } else {
        Batch batch = window_.Batch();
        Entries entries = window_.Entries();
        for (const HoldsEntries* const window : open) {
            window->StoreInto(batch, entries);
        }
        Look(batch, entries);
    }
    pause_ = std::clamp(kDiskShare * static_cast<int>(time.elapsed()), kSoon, kAtLeast);
    // Assistive technology and the like enter texts without an event.
    if (!IsWindowFree()) {
        timer_.start(kAtLeast);
    }
}

void BatchKeeper::Look(const Batch& batch, const Entries& entries) {
    const bool loaded = IsLoaded(batch);
    const std::string content = loaded ? SaveBatch(batch, entries) : "";
    const bool unsaved = loaded && content != saved_;
    ShowTitle(loaded, unsaved);
    if (!loaded) {
        store_.SetAside();
    } else if (unsaved || !restorable_) {
        Keep(batch, entries, content);
    } else {
        store_.Drop();
    }
}

void BatchKeeper::Keep(const Batch& batch, const Entries& entries, const std::string& content) {
    RecoveryHead head = RecoveryHeadOf(batch, entries);
    head.BatchFile = fileName_;
    head.Stamp = stamp_;
    const auto failure = store_.Keep(std::move(head), content);
    failed_ = failure.has_value();
    if (!failed_) {
        told_ = false;
    } else if (!told_ && IsWindowFree()) {
        tell_("What is not saved cannot be kept for recovery: " + QString::fromStdString(*failure));
        told_ = true;
    }
}

bool BatchKeeper::IsWindowFree() const {
    return window_.isVisible() && QApplication::activeModalWidget() == nullptr;
}

void BatchKeeper::ShowTitle(bool loaded, bool unsaved) {
    QString title = kTitle;
    if (loaded) {
        const std::string name = Visible(FileNameOnly(fileName_));
        // Twice, the place of the mark stands for itself.
        title +=
            " - " +
            (name.empty() ? "Untitled" : QString::fromStdString(name).replace("[*]", "[*][*]")) +
            "[*]";
    }
    window_.setWindowTitle(title);
    window_.setWindowModified(unsaved);
}

}  // namespace qfr
