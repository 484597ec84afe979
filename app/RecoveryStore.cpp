#include "app/RecoveryStore.h"

#include <ctime>
#include <system_error>
#include <utility>

#include <QCoreApplication>
#include <QSysInfo>
#include <QUuid>

#include "platform/FileLookup.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

QString LockOf(const fs::path& file) {
    return QString::fromStdString(TextOf(file)) + ".lock";
}

// A lock does not outlive its program, even where its file does.
bool IsLocked(const fs::path& file) {
    QLockFile lock(LockOf(file));
    lock.setStaleLockTime(0);
    if (lock.tryLock(0) || lock.error() != QLockFile::LockFailedError) {
        return false;
    }
    // After a restart of the machine, this program may have got the number of the one that is gone.
    qint64 process = 0;
    QString host;
    QString program;
    return !lock.getLockInfo(&process, &host, &program) ||
           process != QCoreApplication::applicationPid() || host != QSysInfo::machineHostName() ||
           !lock.removeStaleLockFile();
}

std::time_t Now() {
    return std::time(nullptr);
}

void RemoveQuietly(const fs::path& file) {
    std::error_code ignored;
    fs::remove(file, ignored);
}

}  // namespace

RecoveryStore::RecoveryStore(fs::path folder) : folder_(std::move(folder)) {
    RemoveExpiredRecoveries(folder_, Now(), IsLocked);
    for (const RecoveryOffer& offer : RecoveryOffers(folder_, Now(), IsLocked)) {
        dropped_.push_back(offer.File);
    }
}

fs::path RecoveryStore::NewName() const {
    const std::string name = QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    return folder_ / PathOf(name + std::string(kRecoveryEnding));
}

// Before the file is there, so that nobody else ever finds it without its lock.
bool RecoveryStore::Lock() {
    if (lock_) {
        return true;
    }
    own_ = NewName();
    std::error_code ignored;
    fs::create_directories(folder_, ignored);
    lock_ = std::make_unique<QLockFile>(LockOf(own_));
    lock_->setStaleLockTime(0);
    if (!lock_->tryLock(0)) {
        lock_.reset();
    }
    return lock_ != nullptr;
}

std::optional<std::string> RecoveryStore::Keep(RecoveryHead head, const std::string& content) {
    head.WrittenAt = 0;
    std::string whole = RecoveryText(head, content);
    std::error_code unknown;
    if (whole == kept_ && fs::exists(own_, unknown)) {
        return std::nullopt;
    }
    if (!Lock()) {
        return TextOf(folder_) + " cannot be written to.";
    }
    head.WrittenAt = Now();
    auto failure = WriteRecovery(own_, head, content);
    if (!failure) {
        kept_ = std::move(whole);
    }
    return failure;
}

void RecoveryStore::Drop() {
    if (!std::exchange(kept_, {}).empty()) {
        RemoveQuietly(own_);
    }
}

void RecoveryStore::SetAside() {
    if (std::exchange(kept_, {}).empty()) {
        return;
    }
    std::error_code failed;
    const fs::path aside = NewName();
    fs::rename(own_, aside, failed);
    if (failed) {
        // It stays under its name, and what follows gets one of its own.
        lock_.reset();
    }
    dropped_.push_back(failed ? std::exchange(own_, {}) : aside);
}

void RecoveryStore::DropOffers() {
    for (const fs::path& file : std::exchange(dropped_, {})) {
        if (!IsLocked(file)) {
            RemoveQuietly(file);
        }
    }
}

std::optional<RecoveryOffer> RecoveryStore::Offer() const {
    std::vector<RecoveryOffer> offers = RecoveryOffers(
        folder_, Now(), [this](const fs::path& file) { return file == own_ || IsLocked(file); });
    return offers.empty() ? std::nullopt : std::optional(std::move(offers.front()));
}

std::variant<RecoveredBatch, Message> RecoveryStore::Read(const RecoveryOffer& offer) const {
    auto read = ReadRecovery(offer.File);
    if (std::holds_alternative<Message>(read)) {
        std::error_code ignored;
        fs::path damaged = offer.File;
        fs::rename(offer.File, damaged += kDamagedEnding, ignored);
    }
    return read;
}

void RecoveryStore::Remove(const RecoveryOffer& offer) {
    RemoveQuietly(offer.File);
}

}  // namespace qfr
