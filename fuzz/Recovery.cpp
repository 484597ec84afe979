// A recovery file: what is read can be printed, and comes back as it was when it is kept anew. The
// input is taken for such a file, and for the batch in one.
#include "app/Recovery.h"

#include <cstdlib>

#include "fuzz/Laboratory.h"

namespace {

void Recover(const qfr::fuzz::Laboratory& laboratory) {
    const auto read = qfr::ReadRecovery(laboratory.File());
    const auto* const batch = std::get_if<qfr::RecoveredBatch>(&read);
    if (batch == nullptr) {
        return;
    }
    laboratory.Print(batch->Saved, qfr::fuzz::AllForms());
    const std::string content = SaveBatch(batch->Saved.Batch, batch->Saved.Entries);
    WriteRecovery(laboratory.File(), batch->Head, content);
    const auto again = qfr::ReadRecovery(laboratory.File());
    const auto* const same = std::get_if<qfr::RecoveredBatch>(&again);
    if (same == nullptr || SaveBatch(same->Saved.Batch, same->Saved.Entries) != content) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("monday.recovery");
    laboratory.Put(data, size);
    Recover(laboratory);
    qfr::WriteRecovery(laboratory.File(), {}, std::string(data, data + size));
    Recover(laboratory);
    return 0;
}
