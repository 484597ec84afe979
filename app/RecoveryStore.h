// The recovery files of one run of the program, in the user's configuration directory.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QLockFile>

#include "app/Recovery.h"

namespace qfr {

class RecoveryStore {
  public:
    // `folder` is made when something is first kept.
    explicit RecoveryStore(std::filesystem::path folder);

    // Keeps the batch, unless it is kept as it is. The reason of a failure.
    std::optional<std::string> Keep(RecoveryHead head, const std::string& content);
    // The batch that was kept is safe elsewhere.
    void Drop();
    // The batch that was kept is given up: it is offered from now on, and the next one that is kept
    // does not replace it.
    void SetAside();
    // A batch was saved: what could be recovered before is offered no more. Other programs that end
    // without saving while this one runs are not meant.
    void DropOffers();

    // The newest batch that can be recovered; absent without any.
    std::optional<RecoveryOffer> Offer() const;
    // A damaged file is not offered again.
    std::variant<RecoveredBatch, Message> Read(const RecoveryOffer& offer) const;
    void Remove(const RecoveryOffer& offer);

  private:
    std::filesystem::path NewName() const;
    bool Lock();

    std::filesystem::path folder_;
    std::filesystem::path own_;        // empty: nothing was kept in this run
    std::unique_ptr<QLockFile> lock_;  // of the own file
    std::string kept_;                 // what stands in the own file; empty: it is not there
    std::vector<std::filesystem::path> dropped_;  // goes when a batch is saved
};

}  // namespace qfr
