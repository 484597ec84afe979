#include "platform/FileDates.h"

#include <chrono>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/FileLookup.h"

namespace qfr {

namespace fs = std::filesystem;

struct FileDates::Shared {
    explicit Shared(FileDates::Tell tell) : Tell(std::move(tell)) {}
    std::mutex Mutex;
    FileDates::Tell Tell;  // empty once nobody listens
    std::set<std::string> LookedFor;
};

std::optional<std::time_t> FileDate(const std::string& file) {
    std::error_code failed;
    if (!fs::is_regular_file(PathOf(file), failed)) {
        return std::nullopt;
    }
    const fs::file_time_type written = fs::last_write_time(PathOf(file), failed);
    using std::chrono::system_clock;
    const auto when = std::chrono::time_point_cast<system_clock::duration>(
        fs::file_time_type::clock::to_sys(written));
    return failed ? std::nullopt : std::optional(system_clock::to_time_t(when));
}

FileDates::FileDates(Tell tell, std::function<Find> find)
    : find_(std::move(find)), shared_(std::make_shared<Shared>(std::move(tell))) {}

FileDates::~FileDates() {
    const std::lock_guard lock(shared_->Mutex);
    shared_->Tell = nullptr;
}

// A thread each, so that one that does not answer keeps no other waiting.
void FileDates::Look(const std::string& file) {
    {
        const std::lock_guard lock(shared_->Mutex);
        if (!shared_->LookedFor.insert(file).second) {
            return;
        }
    }
    try {
        std::thread([shared = shared_, find = find_, file] {
            const std::optional<std::time_t> written = find(file);
            const std::lock_guard lock(shared->Mutex);
            shared->LookedFor.erase(file);
            if (shared->Tell) {
                shared->Tell(file, written);
            }
        }).detach();
    } catch (const std::system_error&) {
        // Without a thread the file stays unknown until the next look.
        const std::lock_guard lock(shared_->Mutex);
        shared_->LookedFor.erase(file);
    }
}

}  // namespace qfr
