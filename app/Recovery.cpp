#include "app/Recovery.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <system_error>
#include <utility>

#include "platform/FileLookup.h"
#include "platform/FileReplace.h"
#include "platform/LineReader.h"
#include "platform/Text.h"

namespace qfr {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFirstLine = "QFRForms recovery 1";
constexpr int kHeadLines = 8;
constexpr std::time_t kAhead = 24 * 3600;  // seconds by which a clock may be set back

// A file is offered by its head, so what follows it needs a mark of its own.
std::uint64_t HashOf(std::string_view content) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : content) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    }
    return hash;
}

std::string AsFields(std::initializer_list<std::string> values) {
    std::string line;
    for (const std::string& value : values) {
        line += BatchText(value) + ';';
    }
    return line + '\n';
}

// A path with a line break is not kept, rather than taken for another one.
std::string PathLine(const std::string& path) {
    return (path.find_first_of("\r\n") == std::string::npos ? path : "") + '\n';
}

template <typename Number>
std::optional<Number> TakeNumber(std::string_view& rest) {
    const std::string_view text = TakeField(rest);
    Number number{};
    const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
    return failed == std::errc() && end == text.data() + text.size() ? std::optional(number)
                                                                     : std::nullopt;
}

struct ReadHead {
    RecoveryHead Head;
    std::uintmax_t Size = 0;  // of the content
    std::uint64_t Hash = 0;
};

std::optional<ReadHead> ParseHead(LineReader lines) {
    if (lines.Next() != kFirstLine) {
        return std::nullopt;
    }
    ReadHead read;
    RecoveryHead& head = read.Head;
    std::string line = lines.NextOrEmpty();
    std::string_view rest = line;
    const auto writtenAt = TakeNumber<std::time_t>(rest);
    const auto samples = TakeNumber<std::size_t>(rest);
    head.FirstSample = TakeField(rest);
    head.LastSample = TakeField(rest);
    head.BatchFile = lines.NextOrEmpty();
    line = lines.NextOrEmpty();
    rest = line;
    const auto stampSize = TakeNumber<std::uintmax_t>(rest);
    const auto stampTime = TakeNumber<std::int64_t>(rest);
    head.Folder = lines.NextOrEmpty();
    line = lines.NextOrEmpty();
    rest = line;
    const auto limits = TakeNumber<int>(rest);
    line = lines.NextOrEmpty();
    rest = line;
    for (std::string& id : head.LabFileIds) {
        id = TakeField(rest);
    }
    line = lines.NextOrEmpty();
    rest = line;
    const auto size = TakeNumber<std::uintmax_t>(rest);
    const auto hash = TakeNumber<std::uint64_t>(rest);
    if (!writtenAt || !samples || !limits || *limits < static_cast<int>(RecoveryLimits::kWater) ||
        *limits > static_cast<int>(RecoveryLimits::kOil) || !size || !hash) {
        return std::nullopt;
    }
    head.WrittenAt = *writtenAt;
    head.Samples = *samples;
    head.Limits = static_cast<RecoveryLimits>(*limits);
    if (stampSize && stampTime) {
        head.Stamp = {*stampSize, *stampTime};
    }
    read.Size = *size;
    read.Hash = *hash;
    return read;
}

std::optional<ReadHead> ReadHeadOf(const fs::path& file) {
    auto lines = LineReader::OpenHead(file, kHeadLines);
    return lines ? ParseHead(*std::move(lines)) : std::nullopt;
}

// The batch of a recovery file; absent where the file is not as it was written.
std::optional<std::string> ContentOf(const fs::path& file, const ReadHead& head) {
    if (LineReader::IsTooLarge(file)) {
        return std::nullopt;
    }
    std::error_code unknown;
    const std::uintmax_t size = fs::file_size(file, unknown);
    std::string text(unknown ? 0 : size, '\0');
    std::ifstream in(file, std::ios::binary);
    in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(in.gcount()));
    std::size_t start = 0;
    for (int line = 0; line < kHeadLines && start < text.size(); ++line) {
        start = std::min(text.find('\n', start), text.size() - 1) + 1;
    }
    text.erase(0, start);
    return text.size() == head.Size && HashOf(text) == head.Hash ? std::optional(std::move(text))
                                                                 : std::nullopt;
}

// What takes the place of a file takes over who may read it, so it has to be there first.
void MakePrivate(const fs::path& file) {
    std::error_code ignored;
    fs::create_directories(file.parent_path(), ignored);
    fs::permissions(file.parent_path(), fs::perms::owner_all, ignored);
    if (!fs::exists(file, ignored)) {
        std::ofstream(file, std::ios::app).flush();
        fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write, ignored);
    }
}

std::string LocalTime(std::time_t time) {
    const std::tm* const local = std::localtime(&time);  // NOLINT(concurrency-mt-unsafe)
    std::array<char, 40> text{};
    if (local != nullptr) {
        std::strftime(text.data(), text.size(), "%m/%d/%Y %H:%M", local);
    }
    return text.data();
}

// Calls the function for each file of the folder whose name ends so.
void ForEachFile(const fs::path& folder, const std::string& ending, const auto& function) {
    std::error_code error;
    std::vector<fs::path> files;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        files.push_back(entry->path());
    }
    for (const fs::path& file : files) {
        if (EndsWith(TextOf(file.filename()), ending)) {
            function(file);
        }
    }
}

bool IsExpired(std::time_t writtenAt, std::time_t now) {
    return now - writtenAt > kRecoveryTime;
}

// By the time of the file itself. One that a clock ahead has dated is as new as now, from now on:
// it may be today's clock that is wrong.
bool IsOldFile(const fs::path& file, std::error_code& error) {
    const auto now = fs::file_time_type::clock::now();
    const auto writtenAt = fs::last_write_time(file, error);
    if (!error && writtenAt - now > std::chrono::seconds(kAhead)) {
        fs::last_write_time(file, now, error);
        return false;
    }
    return now - writtenAt > std::chrono::seconds(kRecoveryTime);
}

}  // namespace

std::optional<FileStamp> StampOf(const fs::path& file) {
    std::error_code noSize;
    std::error_code noTime;
    const std::uintmax_t size = fs::file_size(file, noSize);
    const auto time = fs::last_write_time(file, noTime).time_since_epoch().count();
    return noSize || noTime ? std::nullopt
                            : std::optional(FileStamp{size, static_cast<std::int64_t>(time)});
}

RecoveryHead RecoveryHeadOf(const Batch& batch, const Entries& entries) {
    RecoveryHead head;
    const std::span<const SampleRecord> samples = SamplesBesidesBlank(batch);
    const std::span<const SampleRecord> named = samples.empty() ? SamplesOf(batch) : samples;
    head.Samples = samples.size();
    if (!named.empty()) {
        head.FirstSample = SampleName(named.front());
        head.LastSample = SampleName(named.back());
    }
    head.Folder = batch.Folder;
    head.Limits = entries.Ranges.Limits;
    head.LabFileIds = entries.InitialCalibration.LabFileIds;
    return head;
}

std::string RecoveryText(const RecoveryHead& head, std::string_view content) {
    std::string text = std::string(kFirstLine) + '\n';
    text += AsFields({std::to_string(head.WrittenAt), std::to_string(head.Samples),
                      head.FirstSample, head.LastSample});
    text += PathLine(head.BatchFile);
    text += head.Stamp
                ? AsFields({std::to_string(head.Stamp->Size), std::to_string(head.Stamp->Time)})
                : "\n";
    text += PathLine(head.Folder);
    text += AsFields({std::to_string(static_cast<int>(head.Limits))});
    std::string ids;
    for (const std::string& id : head.LabFileIds) {
        ids += BatchText(id) + ';';
    }
    text += ids + '\n';
    text += AsFields({std::to_string(content.size()), std::to_string(HashOf(content))});
    return text.append(content);
}

std::optional<std::string> WriteRecovery(const fs::path& file, const RecoveryHead& head,
                                         std::string_view content) {
    MakePrivate(file);
    return ReplaceFile(file, RecoveryText(head, content));
}

std::string OfferText(const RecoveryOffer& offer) {
    const RecoveryHead& head = offer.Head;
    std::string text = head.BatchFile.empty() ? "" : FileNameOnly(head.BatchFile) + ": ";
    if (head.Samples == 0) {
        text += head.FirstSample.empty() ? "" : "lab blank " + head.FirstSample + ", ";
        text += "no samples yet";
    } else if (head.Samples == 1) {
        text += "1 sample, " + head.FirstSample;
    } else {
        text += std::to_string(head.Samples) + " samples, " + head.FirstSample + " to " +
                head.LastSample;
    }
    return Visible(text + ", as of " + LocalTime(head.WrittenAt));
}

std::vector<RecoveryOffer> RecoveryOffers(const fs::path& folder, std::time_t now,
                                          const StillWritten& stillWritten) {
    std::vector<RecoveryOffer> offers;
    ForEachFile(folder, std::string(kRecoveryEnding), [&](const fs::path& file) {
        auto read = ReadHeadOf(file);
        if (read && !IsExpired(read->Head.WrittenAt, now) && !stillWritten(file)) {
            offers.push_back({file, std::move(read->Head)});
        }
    });
    std::ranges::sort(offers, std::greater(),
                      [](const RecoveryOffer& offer) { return offer.Head.WrittenAt; });
    return offers;
}

void RemoveExpiredRecoveries(const fs::path& folder, std::time_t now,
                             const StillWritten& stillWritten) {
    RemoveLeftovers(folder);
    const std::string ending(kRecoveryEnding);
    for (const std::string& each : {ending, ending + std::string(kDamagedEnding)}) {
        ForEachFile(folder, each, [&](const fs::path& file) {
            std::error_code error;
            const auto read = ReadHeadOf(file);
            const bool dated = read && read->Head.WrittenAt - now <= kAhead;
            const bool expired =
                dated ? IsExpired(read->Head.WrittenAt, now) : IsOldFile(file, error);
            if (!error && expired && !stillWritten(file)) {
                fs::remove(file, error);
            }
        });
    }
}

std::variant<RecoveredBatch, Message> ReadRecovery(const fs::path& file) {
    auto read = ReadHeadOf(file);
    std::optional<std::string> content = read ? ContentOf(file, *read) : std::nullopt;
    if (!content) {
        return Message{
            "The batch cannot be recovered: its file\n" + Visible(TextOf(file)) + "\nis damaged.",
            "Warning", MessageIcon::kWarning};
    }
    RecoveryHead& head = read->Head;
    const std::string name = head.BatchFile.empty() ? "The recovered batch" : head.BatchFile;
    auto restored = RestoreBatch(LineReader(*std::move(content)), name, MissingReports::kAccepted);
    if (const auto* const refusal = std::get_if<Message>(&restored)) {
        return *refusal;
    }
    auto& saved = std::get<SavedBatch>(restored);
    saved.Batch.Folder = head.Folder;
    // The values are as old as the file that they were read with.
    std::error_code failed;
    const auto writtenAt = fs::last_write_time(file, failed);
    if (head.Stamp) {
        saved.Batch.SavedAt = fs::file_time_type(fs::file_time_type::duration(head.Stamp->Time));
    } else if (!failed) {
        saved.Batch.SavedAt = writtenAt;
    }
    saved.Entries.Ranges.Limits = head.Limits;
    saved.LimitsNote.reset();
    saved.Entries.InitialCalibration.LabFileIds = head.LabFileIds;
    return RecoveredBatch{std::move(saved), std::move(head)};
}

}  // namespace qfr
