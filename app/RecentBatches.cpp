#include "app/RecentBatches.h"

#include <filesystem>
#include <system_error>

#include "platform/FileLookup.h"
#include "platform/HostSystem.h"
#include "platform/Text.h"

namespace qfr {

namespace {

// In another folder too, as through a link. What is not there is told by its name alone, and so is
// what is called otherwise: on a share that does not answer, each look takes its time.
bool IsSameFile(const std::string& one, const std::string& other) {
    std::error_code failed;
    return one == other || (LowerCase(FileNameOnly(one)) == LowerCase(FileNameOnly(other)) &&
                            std::filesystem::equivalent(PathOf(one), PathOf(other), failed));
}

}  // namespace

std::vector<std::string> WithRecentBatch(const std::vector<std::string>& recent,
                                         const std::string& file) {
    const std::string newest = TextOf(FullPathOf(PathOf(file)));
    std::vector<std::string> list;
    if (!newest.empty()) {
        list.push_back(newest);
    }
    for (const std::string& name : recent) {
        if (list.size() < kRecentBatches && !name.empty() && !IsSameFile(name, newest)) {
            list.push_back(name);
        }
    }
    return list;
}

}  // namespace qfr
