// A batch file: what can be restored can be printed and reviewed, and what is saved of it restores
// to the same.

#include "app/BatchFile.h"

#include <cstdlib>
#include <variant>

#include "fuzz/Laboratory.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const qfr::fuzz::Laboratory laboratory("example.qff");
    const auto restore = [](std::string content) {
        return RestoreBatch(qfr::LineReader(std::move(content)), laboratory.Name());
    };
    const auto restored = restore(std::string(data, data + size));
    const auto* const batch = std::get_if<qfr::SavedBatch>(&restored);
    if (batch == nullptr) {
        return 0;
    }
    laboratory.Print(*batch, qfr::fuzz::AllForms());
    laboratory.Review(*batch);
    // A file cut short is restored with names missing, and is not restored once it is saved so.
    const std::string saved = SaveBatch(batch->Batch, batch->Entries);
    const auto again = restore(saved);
    const auto* const same = std::get_if<qfr::SavedBatch>(&again);
    if (same != nullptr && SaveBatch(same->Batch, same->Entries) != saved) {
        std::abort();
    }
    return 0;
}
