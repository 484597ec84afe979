#include "data/Reports.h"

#include <optional>
#include <system_error>
#include <type_traits>
#include <utility>

#include "data/ReportFrame.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

template <typename Content>
std::shared_ptr<const Content> ReadFile(const fs::path& path, std::uintmax_t size) {
    auto lines = std::is_same_v<Content, RawDataFile> ? LineReader::OpenHead(path, kRawDataLines)
                                                      : LineReader::Open(path, size);
    return lines ? std::make_shared<const Content>(Content::Read(*std::move(lines))) : nullptr;
}

}  // namespace

template <typename Content>
FileContent<Content> Reports::Read(std::string_view name, std::string_view folder) {
    const auto path = finder_.FindBeside(name, folder);
    if (!path) {
        if (finder_.FoundSeveral()) {
            Tell(name, NameIsNotUnique(name));
        }
        return {};
    }
    auto& files = std::get<Files<Content>>(files_);
    const auto known = files.find(path->native());
    if (known != files.end() && known->second.checkedIn == job_) {
        return known->second.content;
    }
    const std::optional<Stamp> stamp = StampOf(*path);
    if (known != files.end() && stamp == known->second.stamp) {
        known->second.checkedIn = job_;
        return known->second.content;
    }
    auto read = stamp ? ReadFile<Content>(*path, stamp->size) : nullptr;
    FileContent<Content> content(std::move(read), TextOf(path->parent_path()),
                                 stamp ? stamp->written : fs::file_time_type());
    if (content) {
        files.insert_or_assign(path->native(), Known<Content>{*stamp, job_, content});
    } else {
        files.erase(path->native());
        if (LineReader::IsTooLarge(*path)) {
            Tell(name, OverLimitMessage(FileNameOnly(name), LineReader::kMaxFileSizeText));
        }
    }
    return content;
}

void Reports::Tell(std::string_view name, const Message& message) {
    if (messages_ != nullptr && told_.emplace(name).second) {
        messages_->Show(message);
    }
}

void Reports::BeginJob() {
    ++job_;
    told_.clear();
}

bool Reports::IsFoundInLowerCase(std::string_view file) {
    const fs::path chosen = PathOf(file);
    const auto found = finder_.Find(LowerCase(file));
    std::error_code error;
    return (found && found->native() == chosen.native()) || !fs::exists(chosen, error) ||
           (found ? fs::equivalent(*found, chosen, error) : !finder_.FoundSeveral());
}

std::optional<Reports::Stamp> Reports::StampOf(const fs::path& path) {
    std::error_code error;
    const auto written = fs::last_write_time(path, error);
    const auto size = error ? 0 : fs::file_size(path, error);
    return error ? std::nullopt : std::optional(Stamp{written, size});
}

template FileContent<QuantReport> Reports::Read(std::string_view, std::string_view);
template FileContent<CalibrationReport> Reports::Read(std::string_view, std::string_view);
template FileContent<CheckReport> Reports::Read(std::string_view, std::string_view);
template FileContent<RawDataFile> Reports::Read(std::string_view, std::string_view);
template FileContent<RecoveryRangesFile> Reports::Read(std::string_view, std::string_view);
template FileContent<CriteriaFile> Reports::Read(std::string_view, std::string_view);

}  // namespace qfr
