#include "app/BatchFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <span>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/EntryTables.h"
#include "platform/DateTime.h"
#include "platform/FileLookup.h"
#include "platform/HostSystem.h"
#include "platform/Numbers.h"
#include "platform/Text.h"

namespace qfr {
namespace {

constexpr std::string_view kFirstLine = "QFRForms";

class BatchWriter {
  public:
    // A line break that was pasted into an entry would end its line of the file too early.
    void Line(std::string_view text) { file_ += OneLine(text) + '\n'; }
    void Count(std::size_t count) { Line(std::to_string(count)); }
    template <typename List>
    void Values(const List& values) {
        for (const std::string& value : values) {
            file_ += OneLine(value) + ';';
        }
        file_ += '\n';
    }
    std::string Take() { return std::move(file_); }

  private:
    std::string file_;
};

void WriteRecord(BatchWriter& out, const SampleRecord& record) {
    out.Values(std::array{record.FileName, std::to_string(record.CompoundCount)});
    out.Values(record.Header.Values());
    const TicListType tics = record.TicList.value_or(TicListType());
    out.Count(tics.size());
    for (const TicEntry& tic : tics) {
        out.Values(tic.cells);
    }
}

void WriteEntries(BatchWriter& out, const Entries& entries) {
    for (const EntryTable& table : EntryTables()) {
        std::vector<std::string> values;
        for (const EntryField& field : table.Fields) {
            const std::size_t count = std::min(ItemCount(field, entries), field.Texts.SavedItems);
            for (std::size_t item = 0; item < count; ++item) {
                const std::string text = field.Texts.Get(entries, item);
                values.push_back(field.Kind == EntryKind::kLines ? Trim(text) : text);
            }
        }
        out.Values(values);
    }
}

Message Aborted(std::string_view line, std::string_view trouble) {
    return {std::string(line) + std::string(trouble), kFileNotFoundTitle,
            MessageIcon::kInformation};
}

Message DoesNotReadProperly(std::string_view line) {
    return Aborted(line, " does not read properly.\nRestore will be aborted");
}

// Looks over the file names and the two counts after the first line, before anything is taken. Lab
// blank, calibration and check report must be named, on purpose also where a batch could do without
// one. A count of three and more digits passes for a name; the scan then ends at a later short
// line.
std::optional<Message> FindTrouble(LineReader& file) {
    constexpr int kUncheckedNames = 3;
    constexpr int kCountLines = 2;
    constexpr std::size_t kLongestCount = 2;
    for (int i = 0; i < kUncheckedNames; ++i) {
        file.Next();
    }
    int counts = 0;
    while (counts < kCountLines) {
        const std::optional<std::string> raw = file.Next();
        if (!raw) {
            return std::nullopt;
        }
        const std::string line = Trim(*raw);
        if (line.empty()) {
            return Aborted(line, " does not exist.\nRestore will be aborted");
        }
        if (FirstCharacters(line, kLongestCount).size() < line.size()) {
            continue;
        }
        if (ParseInteger(line).value_or(-1) < 0) {
            return DoesNotReadProperly(line);
        }
        ++counts;
    }
    return std::nullopt;
}

// How much of a thing a batch may have, and how that is told.
struct Limit {
    std::int32_t Most;
    std::string_view Text;
};
constexpr Limit kMaxReports = {10'000, "10,000 reports"};
constexpr Limit kMaxTicsOfSample = {kMaxTics, "1,000 TICs in a sample"};
constexpr Limit kMaxTicsOfBatch = {100'000, "100,000 TICs"};
constexpr Limit kMaxComments = {10'000, "10,000 comment lines"};
constexpr Limit kNoLimit = {std::numeric_limits<std::int32_t>::max(), ""};

// Takes the lines one after the other. After a failure everything reads as empty.
class BatchParser {
  public:
    BatchParser(LineReader file, std::string_view fileName)
        : file_(std::move(file)), fileName_(fileName) {}

    const std::optional<Message>& Failure() const { return failure_; }
    bool AtEnd() const { return failure_ || file_.AtEnd(); }
    std::string Line() { return file_.NextOrEmpty(); }

    // 0 at the end of the file.
    std::int32_t Count(const Limit& limit) {
        const std::optional<std::string> line = file_.Next();
        return line ? Number(*line, limit) : 0;
    }
    std::int32_t Number(const std::string& text, const Limit& limit) {
        const std::int32_t number = ParseInteger(text).value_or(-1);
        if (number < 0 && !failure_) {
            failure_ = DoesNotReadProperly(Trim(text));
        }
        return Within(limit, std::max(number, 0)) ? std::max(number, 0) : 0;
    }
    // False, and a failure, for more.
    bool Within(const Limit& limit, std::int32_t count) {
        if (count > limit.Most && !failure_) {
            failure_ = Message{FileNameOnly(fileName_) + " has more than " +
                                   std::string(limit.Text) + ".\nRestore will be aborted",
                               kFileErrorTitle, MessageIcon::kInformation};
        }
        return count <= limit.Most;
    }
    // The next line's values.
    void Values(std::span<std::string> values) {
        const std::string line = Line();
        std::string_view rest = line;
        for (std::string& value : values) {
            value = Cut(std::string(TakeField(rest)));
        }
    }
    std::string Cut(std::string text) {
        textsCut_ |= CutText(text);
        return text;
    }
    bool TextsCut() const { return textsCut_; }
    // Counts one more of the batch.
    bool AddTic() { return Within(kMaxTicsOfBatch, ++tics_); }

  private:
    LineReader file_;
    std::string fileName_;
    std::optional<Message> failure_;
    bool textsCut_ = false;
    std::int32_t tics_ = 0;
};

SampleRecord ParseRecord(BatchParser& in) {
    SampleRecord record;
    const std::string line = in.Line();
    std::string_view rest = line;
    record.FileName = TakeField(rest);
    record.CompoundCount = std::max(ParseInteger(TakeField(rest)).value_or(0), 0);
    in.Values(record.Header.Values());

    const std::int32_t tics = in.Count(kMaxTicsOfSample);
    TicListType list;
    for (std::int32_t i = 0; i < tics && !in.AtEnd() && in.AddTic(); ++i) {
        in.Values(list.emplace_back().cells);
    }
    if (!list.empty()) {
        record.TicList = std::move(list);
    }
    return record;
}

// A line that ends early leaves the other compounds of the blank not found.
void ParseFlags(std::int32_t count, std::string_view line, std::vector<bool>& flags) {
    // What a count without flags is believed: more rows than any form could print.
    constexpr std::int32_t kMostWithoutFlags = 100'000;
    while (std::ssize(flags) < count && !line.empty()) {
        flags.push_back(line.front() == '1');
        TakeField(line);
    }
    const auto stated = static_cast<std::size_t>(std::min(count, kMostWithoutFlags));
    flags.resize(std::max(flags.size(), stated));
}

// Sorts the list of reports; each record goes with its report, the lab blank's stays first.
void SortReports(Batch& batch) {
    std::vector<std::string>& names = batch.Files.QFiles;
    std::ranges::sort(names);
    if (!batch.SampleList) {
        return;
    }
    std::unordered_map<std::string, std::size_t> places;
    for (const std::string& name : names) {
        places.try_emplace(LowerCase(name), places.size());
    }
    const auto placeOf = [&places](const SampleRecord& record) {
        const auto place = places.find(LowerCase(record.FileName));
        return place == places.end() ? places.size() : place->second;
    };
    SampleListType& records = *batch.SampleList;
    const std::size_t first = std::min(LabBlankRecords(batch), records.size());
    std::ranges::stable_sort(records.begin() + static_cast<std::ptrdiff_t>(first), records.end(),
                             {}, placeOf);
}

// A calibration that was accepted is complete; its raw data files need not be there any more.
bool IsComplete(const InitialCalibrationEntry& entry) {
    return IsDateTimeText(entry.FirstStandard) && IsDateTimeText(entry.LastStandard) &&
           std::ranges::any_of(entry.LabFileIds,
                               [](const std::string& id) { return !IsBlank(id); });
}

// A choice of limits that does not come back as it was saved.
std::optional<Message> LimitsNoteFor(std::string_view rangesLine, std::string_view fileName) {
    TakeField(rangesLine);
    if (ParseInteger(TakeField(rangesLine)) != static_cast<int>(RecoveryLimits::kOil)) {
        return std::nullopt;
    }
    return Message{FileNameOnly(fileName) +
                       " was saved with oil limits for Form II.\n"
                       "They come back as soil limits. Please check the choice.",
                   "Warning", MessageIcon::kWarning};
}

// The text that a field's next value comes back as. A masked entry always holds its literals; those
// that open a line have lost their blanks.
std::string TakeText(std::string_view& rest, const EntryField& field) {
    const std::string text(TakeField(rest));
    if (field.Texts.Restored) {
        return field.Texts.Restored(text);
    }
    const std::string_view emptyMask = EmptyMaskOf(field.Kind);
    return emptyMask.empty() ? text : OrEmptyMask(text, emptyMask);
}

void ParseEntry(BatchParser& in, std::string_view rest, const EntryTable& table, Entries& entries) {
    if (rest.empty()) {
        return;
    }
    for (const EntryField& field : table.Fields) {
        const bool open = field.Kind == EntryKind::kLines;
        const std::size_t count = std::min(ItemCount(field, entries), field.Texts.SavedItems);
        // Comments stay whole: what of them does not print has still been typed.
        const bool whole = open || field.Kind == EntryKind::kFile;
        for (std::size_t item = 0; open ? !rest.empty() : item < count; ++item) {
            if (open && !in.Within(kMaxComments, static_cast<std::int32_t>(item) + 1)) {
                return;
            }
            const std::string text = TakeText(rest, field);
            field.Texts.Set(entries, item, whole ? text : in.Cut(text));
        }
    }
}

std::string FolderOf(std::string_view fileName) {
    return TextOf(FullPathOf(PathOf(fileName)).parent_path());
}

}  // namespace

std::string SaveBatch(const Batch& batch, const Entries& entries) {
    BatchWriter out;
    out.Line(kFirstLine);
    const FileSet& files = batch.Files;
    for (const std::string* name :
         {&files.LibFile, &files.SurrFile, &files.CalFile, &files.LabBlank}) {
        out.Line(*name);
    }
    out.Count(files.QFiles.size());
    for (const std::string& name : files.QFiles) {
        out.Line(name);
    }
    out.Line(files.Calib);
    out.Line(files.CheckCal);

    const SampleListType none;
    const SampleListType& samples = batch.SampleList ? *batch.SampleList : none;
    out.Count(samples.size());
    for (const SampleRecord& record : samples) {
        WriteRecord(out, record);
    }

    out.Count(batch.BlankHitFlags.size());
    std::vector<std::string> flags;
    for (const bool hit : batch.BlankHitFlags) {
        flags.emplace_back(hit ? "1" : "0");
    }
    out.Values(flags);
    WriteEntries(out, entries);
    return out.Take();
}

std::vector<std::string_view> LackingForRestore(const FileSet& files) {
    const std::pair<std::string_view, const std::string&> required[] = {
        {"lab blank", files.LabBlank},
        {"calibration report", files.Calib},
        {"check report", files.CheckCal}};
    std::vector<std::string_view> lacking;
    for (const auto& [what, name] : required) {
        if (IsBlank(name)) {
            lacking.push_back(what);
        }
    }
    return lacking;
}

std::optional<Message> RestoreWarning(const FileSet& files, std::string content,
                                      std::string_view fileName) {
    const auto warning = [&](const std::string& reason) {
        return Message{FileNameOnly(fileName) + " cannot be restored:" + reason, "Warning",
                       MessageIcon::kWarning};
    };
    std::string lacking;
    for (const std::string_view what : LackingForRestore(files)) {
        lacking += std::string(lacking.empty() ? "" : ", ") + "no " + std::string(what);
    }
    if (!lacking.empty()) {
        return warning(" it has\n" + lacking + ".");
    }
    const auto restored = RestoreBatch(LineReader(std::move(content)), fileName);
    const auto* const refusal = std::get_if<Message>(&restored);
    return refusal != nullptr ? std::optional(warning("\n" + refusal->text)) : std::nullopt;
}

std::variant<SavedBatch, Message> RestoreBatch(LineReader file, std::string_view fileName,
                                               MissingReports missing) {
    if (file.Next() != kFirstLine) {
        return Message{std::string(fileName) + " is not a\nQFRForm saved file.",
                       "Improper File Type", MessageIcon::kInformation};
    }
    const std::size_t afterFirstLine = file.Position();
    if (missing == MissingReports::kRefused) {
        if (std::optional<Message> trouble = FindTrouble(file)) {
            return *trouble;
        }
    }
    file.Seek(afterFirstLine);

    BatchParser in(std::move(file), fileName);
    SavedBatch saved;
    FileSet& files = saved.Batch.Files;
    for (std::string* name : {&files.LibFile, &files.SurrFile, &files.CalFile, &files.LabBlank}) {
        *name = in.Line();
    }
    const std::int32_t names = in.Count(kMaxReports);
    for (std::int32_t i = 0; i < names && !in.AtEnd(); ++i) {
        files.QFiles.push_back(in.Line());
    }
    files.Calib = in.Line();
    files.CheckCal = in.Line();

    const std::int32_t records = in.Count(kMaxReports);
    SampleListType samples;
    samples.reserve(static_cast<std::size_t>(records));
    for (std::int32_t i = 0; i < records && !in.AtEnd(); ++i) {
        samples.push_back(ParseRecord(in));
    }
    if (!samples.empty()) {
        saved.Batch.SampleList = std::move(samples);
    }

    const std::int32_t flags = in.Count(kNoLimit);
    ParseFlags(flags, in.Line(), saved.Batch.BlankHitFlags);

    for (const EntryTable& table : EntryTables()) {
        const std::string line = Trim(in.Line());
        ParseEntry(in, line, table, saved.Entries);
        if (&table == &TableOf(EntryDialog::kRecoveryRanges)) {
            saved.LimitsNote = LimitsNoteFor(line, fileName);
        }
    }

    if (in.Failure()) {
        return *in.Failure();
    }
    if (in.TextsCut()) {
        saved.TextsNote = TextsWereCut(fileName);
    }
    SortReports(saved.Batch);
    saved.Flags.InitCalEntered = IsComplete(saved.Entries.InitialCalibration);
    saved.Batch.Folder = FolderOf(fileName);
    std::error_code failed;
    const auto savedAt = std::filesystem::last_write_time(PathOf(fileName), failed);
    saved.Batch.SavedAt = failed ? std::nullopt : std::optional(savedAt);
    return saved;
}

}  // namespace qfr
