// Keeps the batch from getting lost: knows its file and whether that holds all that was entered,
// says so in the main window's title, and writes what it does not hold to a recovery file.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <QObject>
#include <QString>
#include <QTimer>

#include "app/Recovery.h"
#include "app/RecoveryStore.h"
#include "platform/FileChooser.h"
#include "platform/qt/Remembered.h"

namespace qfr {

class TQFRForm;

class BatchKeeper : public QObject {
  public:
    // `tell` gets the notes that need no box. The window outlives this.
    BatchKeeper(TQFRForm& window, std::function<void(const QString& note)> tell);

    // Of the batch's file, full path (UTF-8); empty: it has none.
    const std::string& FileName() const { return fileName_; }

    // Whether Save may write to the batch's file: not to one of the example, nor where it cannot.
    bool HasFileOfItsOwn() const;
    // The question that Save asks where another program has changed the file; absent where it has
    // not.
    std::optional<Message> ReplaceQuestion() const;
    // What the save dialog starts with: the batch's own name and folder. One without a file of its
    // own goes to `folder`, or where that is the program's, to where the user has batches.
    SaveRequest Proposal(const std::string& folder, const Remembered& memory) const;

    // The main window has taken the batch of a file; `asSaved`: nothing of it came back otherwise.
    void Restored(const std::string& fileName, bool asSaved);
    // The batch was written; `restorable`: it can be restored from there.
    void Saved(const std::string& fileName, std::string content, bool restorable);
    // The batch was emptied.
    void Cleared();

    // What can be recovered; absent without any.
    std::optional<RecoveryOffer> Offer() const { return store_.Offer(); }
    // Its batch, or why there is none.
    std::variant<RecoveredBatch, Message> Read(const RecoveryOffer& offer) const {
        return store_.Read(offer);
    }
    // The main window has taken that batch.
    void Recovered(const RecoveryOffer& offer);

    // Looks for changes now.
    void Check();

  protected:
    // Whatever may change something.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Replaced(std::string fileName);
    void CheckSoon();
    void Look(const Batch& batch, const Entries& entries);
    void Keep(const Batch& batch, const Entries& entries, const std::string& content);
    void ShowTitle(bool loaded, bool unsaved);
    // Whether the main window shows, with no dialog before it.
    bool IsWindowFree() const;

    TQFRForm& window_;
    std::function<void(const QString& note)> tell_;
    RecoveryStore store_;
    QTimer timer_;
    int pause_ = 0;  // ms before the next check
    std::string fileName_;
    std::optional<FileStamp> stamp_;    // of the file when it was last read or written
    std::optional<std::string> saved_;  // what the file holds; absent: not this batch
    bool restorable_ = true;            // what the file holds can be restored
    bool failed_ = false;               // the last attempt to keep the batch
    bool told_ = false;                 // of that, where it could be seen
};

}  // namespace qfr
