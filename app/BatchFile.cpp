#include "app/BatchFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/EntryTables.h"
#include "data/QuantReport.h"
#include "platform/DateTime.h"
#include "platform/FileLookup.h"
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

// Takes the lines one after the other. After a failure everything reads as empty.
class BatchParser {
  public:
    explicit BatchParser(LineReader file) : file_(std::move(file)) {}

    const std::optional<Message>& Failure() const { return failure_; }
    bool AtEnd() const { return failure_ || file_.AtEnd(); }
    std::string Line() { return file_.NextOrEmpty(); }

    // 0 at the end of the file.
    std::int32_t Count() {
        const std::optional<std::string> line = file_.Next();
        return line ? Number(*line) : 0;
    }
    std::int32_t Number(const std::string& text) {
        const std::int32_t number = ParseInteger(text).value_or(-1);
        if (number < 0 && !failure_) {
            failure_ = DoesNotReadProperly(Trim(text));
        }
        return std::max(number, 0);
    }

  private:
    LineReader file_;
    std::optional<Message> failure_;
};

void TakeValues(std::string_view line, std::span<std::string> values) {
    for (std::string& value : values) {
        value = TakeField(line);
    }
}

SampleRecord ParseRecord(BatchParser& in) {
    SampleRecord record;
    std::array<std::string, 2> report;
    TakeValues(in.Line(), report);
    record.FileName = report[0];
    record.CompoundCount = std::max(ParseInteger(report[1]).value_or(0), 0);
    TakeValues(in.Line(), record.Header.Values());

    const std::int32_t tics = in.Count();
    TicListType list;
    for (std::int32_t i = 0; i < tics && !in.AtEnd(); ++i) {
        TakeValues(in.Line(), list.emplace_back().cells);
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
                       " was saved with oil limits for Form 2.\n"
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

void ParseEntry(std::string_view line, const EntryTable& table, Entries& entries) {
    if (line.empty()) {
        return;
    }
    std::string_view rest = line;
    for (const EntryField& field : table.Fields) {
        const bool open = field.Kind == EntryKind::kLines;
        const std::size_t count = std::min(ItemCount(field, entries), field.Texts.SavedItems);
        for (std::size_t item = 0; open ? !rest.empty() : item < count; ++item) {
            field.Texts.Set(entries, item, TakeText(rest, field));
        }
    }
}

std::string FolderOf(std::string_view fileName) {
    std::error_code failed;
    const std::filesystem::path full = std::filesystem::absolute(PathOf(fileName), failed);
    return failed ? std::string() : TextOf(full.parent_path());
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

std::variant<SavedBatch, Message> RestoreBatch(LineReader file, std::string_view fileName) {
    if (file.Next() != kFirstLine) {
        return Message{std::string(fileName) + " is not a\nQFRForm saved file.",
                       "Improper File Type", MessageIcon::kInformation};
    }
    const std::size_t afterFirstLine = file.Position();
    if (std::optional<Message> trouble = FindTrouble(file)) {
        return *trouble;
    }
    file.Seek(afterFirstLine);

    BatchParser in(std::move(file));
    SavedBatch saved;
    FileSet& files = saved.Batch.Files;
    for (std::string* name : {&files.LibFile, &files.SurrFile, &files.CalFile, &files.LabBlank}) {
        *name = in.Line();
    }
    const std::int32_t names = in.Count();
    for (std::int32_t i = 0; i < names && !in.AtEnd(); ++i) {
        files.QFiles.push_back(in.Line());
    }
    files.Calib = in.Line();
    files.CheckCal = in.Line();

    const std::int32_t records = in.Count();
    SampleListType samples;
    for (std::int32_t i = 0; i < records && !in.AtEnd(); ++i) {
        samples.push_back(ParseRecord(in));
    }
    if (!samples.empty()) {
        saved.Batch.SampleList = std::move(samples);
    }

    const std::int32_t flags = in.Count();
    ParseFlags(flags, in.Line(), saved.Batch.BlankHitFlags);

    for (const EntryTable& table : EntryTables()) {
        const std::string line = Trim(in.Line());
        ParseEntry(line, table, saved.Entries);
        if (&table == &TableOf(EntryDialog::kRecoveryRanges)) {
            saved.LimitsNote = LimitsNoteFor(line, fileName);
        }
    }

    if (in.Failure()) {
        return *in.Failure();
    }
    SortReports(saved.Batch);
    saved.Flags.InitCalEntered = IsComplete(saved.Entries.InitialCalibration);
    saved.Batch.Folder = FolderOf(fileName);
    return saved;
}

}  // namespace qfr
