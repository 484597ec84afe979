#include "data/HeaderSheet.h"

#include <algorithm>
#include <set>

#include "data/HeaderFields.h"
#include "platform/DateTime.h"
#include "platform/Text.h"

namespace qfr {

namespace {

using enum HeaderField;

constexpr HeaderField kOfReport[] = {kZovSampleNo, kLabSampleId, kLabFileId, kDateAnalyzed};

std::size_t ColumnOf(HeaderField field) {
    return static_cast<std::size_t>(field) - 1;
}

HeaderField FieldAt(std::size_t column) {
    return HeaderFieldAt(static_cast<int>(column) + 1);
}

std::string NumberKey(std::string_view sampleNo) {
    return LowerCase(Trim(sampleNo));
}

bool IsDate(HeaderField field) {
    return HeaderEntryOf(field).Kind == HeaderKind::kDate;
}

// The selected rows of each column.
std::map<HeaderField, std::vector<std::size_t>> ByColumn(std::span<const HeaderCell> selection) {
    std::map<HeaderField, std::vector<std::size_t>> columns;
    for (const HeaderCell& cell : selection) {
        columns[cell.Field].push_back(cell.Record);
    }
    return columns;
}

// How many cells a block of `size` cells takes where `selected` are selected.
std::size_t Repeated(std::size_t size, std::size_t selected) {
    return selected % size == 0 ? selected : size;
}

}  // namespace

HeaderSheet::HeaderSheet(Batch& batch) : batch_(batch) {
    for (const SampleRecord& sample : SamplesOf(batch_)) {
        complete_.push_back(!FirstEmptyField(sample.Header));
        ++samplesOf_[NumberKey(sample.Header[kZovSampleNo])];
    }
}

std::size_t HeaderSheet::CompleteRows() const {
    return static_cast<std::size_t>(std::ranges::count(complete_, true));
}

const std::string& HeaderSheet::Kept(const HeaderCell& cell) const {
    return SamplesOf(batch_)[cell.Record].Header[cell.Field];
}

HeaderValue HeaderSheet::ValueOf(const HeaderCell& cell) const {
    const auto refused = refused_.find(cell);
    return {Kept(cell), refused == refused_.end() ? std::nullopt : std::optional(refused->second)};
}

std::string HeaderSheet::Text(const HeaderCell& cell) const {
    const HeaderValue value = ValueOf(cell);
    return value.Refused ? *value.Refused
                         : (IsDate(cell.Field) ? PrintableDate(value.Kept) : value.Kept);
}

std::string HeaderSheet::Shown(const HeaderCell& cell) const {
    if (!IsDate(cell.Field) || !IsEmptyMask(Kept(cell)) || refused_.contains(cell)) {
        return Text(cell);
    }
    std::string mask(kEmptyDateTimeMask);
    std::ranges::replace(mask, ' ', '_');
    mask[mask.find("_:") - 2] = ' ';
    return mask;
}

std::string HeaderSheet::NameOf(const HeaderCell& cell) const {
    return SampleName(SamplesOf(batch_)[cell.Record]) + ", " +
           std::string(HeaderEntryOf(cell.Field).Label);
}

std::string HeaderSheet::RefusalOf(const HeaderCell& cell) const {
    constexpr std::size_t kLetters = 40;
    const std::string& text = refused_.at(cell);
    const std::string_view shown = FirstCharacters(text, kLetters);
    return SampleName(SamplesOf(batch_)[cell.Record]) + ": \"" + std::string(shown) +
           (shown.size() < text.size() ? "...\". " : "\". ") +
           HeaderFault(cell.Field, text).value_or("");
}

HeaderNote HeaderSheet::NoteOf(const HeaderCell& cell) const {
    using enum HeaderMark;
    const HeaderField field = cell.Field;
    const std::string& kept = Kept(cell);
    const std::string label(HeaderEntryOf(field).Label);
    if (const auto refused = refused_.find(cell); refused != refused_.end()) {
        std::string fault = HeaderFault(field, refused->second).value_or("");
        const std::string printed = Trim(PrintableDate(kept));
        return {kRefused,
                fault + (printed.empty() ? " It was not taken."
                                         : " It was not taken; the header has " + printed + ".")};
    }
    if (IsBlank(kept)) {
        return {kEmpty, label + " is empty."};
    }
    // Only the lab blank is not received.
    if (IsDate(field) && IsEmptyMask(kept) &&
        (field == kDateAnalyzed || cell.Record >= LabBlankRecords(batch_))) {
        return {kDoubtful, label + " is left open."};
    }
    for (const auto& doubt :
         {HeaderFault(field, kept), PlaceholderDoubt(field, kept), ChoiceDoubt(field, kept)}) {
        if (doubt) {
            return {kDoubtful, *doubt};
        }
    }
    if (const auto same = samplesOf_.find(NumberKey(kept));
        field == kZovSampleNo && same != samplesOf_.end() && same->second > 1) {
        return {kDoubtful, "Another sample has this " + label + ", too."};
    }
    return {};
}

std::vector<HeaderChange> HeaderSheet::ChangesBy(std::vector<EnteredCell> entered) const {
    // The matrix comes before what it rules, so that what is entered beside it stays.
    std::ranges::stable_sort(entered, {}, &EnteredCell::Cell);
    std::vector<HeaderChange> changes;
    for (auto next = entered.begin(); next != entered.end();) {
        const std::size_t record = next->Cell.Record;
        const SampleHeader& before = SamplesOf(batch_)[record].Header;
        SampleHeader after = before;
        std::map<HeaderField, std::optional<std::string>> refused;
        for (; next != entered.end() && next->Cell.Record == record; ++next) {
            const HeaderField field = next->Cell.Field;
            std::string text = HeaderText(field, next->Text);
            if (HeaderFault(field, text)) {
                refused[field] = std::move(text);
                continue;
            }
            refused[field] = std::nullopt;
            // To empty what is empty does not leave a date open.
            if (IsBlank(next->Text) && IsBlank(after[field])) {
                continue;
            }
            const bool isNew = after[field] != text;
            after[field] = std::move(text);
            if (field == kMatrix && isNew) {
                ApplyMatrixRules(after);
            }
        }
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            const HeaderCell cell{record, HeaderFieldAt(number)};
            const HeaderValue was = ValueOf(cell);
            const auto found = refused.find(cell.Field);
            const HeaderValue is{after[cell.Field],
                                 found == refused.end() ? was.Refused : found->second};
            if (is != was) {
                changes.push_back({cell, was, is});
            }
        }
    }
    return changes;
}

void HeaderSheet::Set(const HeaderCell& cell, const HeaderValue& value) {
    SampleHeader& header = (*batch_.SampleList)[cell.Record].Header;
    if (cell.Field == kZovSampleNo) {
        --samplesOf_[NumberKey(header[cell.Field])];
        ++samplesOf_[NumberKey(value.Kept)];
    }
    header[cell.Field] = value.Kept;
    if (value.Refused) {
        refused_[cell] = *value.Refused;
    } else {
        refused_.erase(cell);
    }
    complete_[cell.Record] = !FirstEmptyField(header);
}

void HeaderSheet::Redo(std::span<const HeaderChange> changes) {
    for (const HeaderChange& change : changes) {
        Set(change.Cell, change.After);
    }
}

void HeaderSheet::Undo(std::span<const HeaderChange> changes) {
    for (const HeaderChange& change : changes) {
        Set(change.Cell, change.Before);
    }
}

CellRows HeaderSheet::Copy(std::span<const HeaderCell> selection) const {
    std::set<HeaderField> fields;
    std::set<std::size_t> records;
    for (const HeaderCell& cell : selection) {
        fields.insert(cell.Field);
        records.insert(cell.Record);
    }
    CellRows rows;
    for (const std::size_t record : records) {
        std::vector<std::string>& row = rows.emplace_back();
        for (const HeaderField field : fields) {
            const HeaderCell cell{record, field};
            row.push_back(std::ranges::binary_search(selection, cell) ? Text(cell) : "");
        }
    }
    return rows;
}

PastedCells HeaderSheet::Paste(const CellRows& rows, std::span<const HeaderCell> selection) const {
    PastedCells pasted;
    if (rows.empty()) {
        return pasted;
    }
    std::size_t across = 0;
    for (const std::vector<std::string>& row : rows) {
        across = std::max(across, row.size());
    }
    if (rows.size() == 1 && across == 1) {
        for (const HeaderCell& cell : selection) {
            pasted.Cells.push_back({cell, rows.front().front()});
        }
        return pasted;
    }
    const auto [left, right] = std::ranges::minmax(selection, {}, &HeaderCell::Field);
    const std::size_t top = selection.front().Record;
    const std::size_t first = ColumnOf(left.Field);
    const std::size_t height = Repeated(rows.size(), selection.back().Record - top + 1);
    const std::size_t width = Repeated(across, ColumnOf(right.Field) - first + 1);
    const std::size_t fittingRows = std::min(height, Rows() - top);
    const std::size_t fittingColumns = std::min<std::size_t>(width, SampleHeader::kCount - first);
    for (std::size_t down = 0; down < fittingRows; ++down) {
        const std::vector<std::string>& row = rows[down % rows.size()];
        for (std::size_t i = 0; i < fittingColumns; ++i) {
            if (i % across < row.size()) {
                pasted.Cells.push_back({{top + down, FieldAt(first + i)}, row[i % across]});
            }
        }
    }
    pasted.RowsLeftOut = height - fittingRows;
    pasted.ColumnsLeftOut = width - fittingColumns;
    return pasted;
}

std::vector<EnteredCell> HeaderSheet::Clear(std::span<const HeaderCell> selection) {
    std::vector<EnteredCell> cleared;
    for (const HeaderCell& cell : selection) {
        cleared.push_back({cell, ""});
    }
    return cleared;
}

std::vector<EnteredCell> HeaderSheet::FillDown(std::span<const HeaderCell> selection) const {
    std::vector<EnteredCell> filled;
    for (auto& [field, records] : ByColumn(selection)) {
        const bool one = records.size() == 1;
        if (one && records.front() == 0) {
            continue;
        }
        const std::string text = Text({records.front() - (one ? 1 : 0), field});
        for (std::size_t i = one ? 0 : 1; i < records.size(); ++i) {
            filled.push_back({{records[i], field}, text});
        }
    }
    return filled;
}

void HeaderSheet::KeepRuled(std::size_t record, std::vector<EnteredCell>& entered) const {
    for (const HeaderField field : kRuledByMatrix) {
        const HeaderCell cell{record, field};
        if (!IsBlank(Kept(cell))) {
            entered.push_back({cell, Kept(cell)});
        }
    }
}

std::vector<EnteredCell> HeaderSheet::FillEmpty(std::span<const HeaderCell> selection) const {
    std::vector<EnteredCell> filled;
    for (const auto& [field, selected] : ByColumn(selection)) {
        if (std::ranges::count(kOfReport, field) > 0) {
            continue;
        }
        const auto isValue = [&, field = field](std::size_t record) {
            return !IsUnfilled(Kept({record, field})) && !refused_.contains({record, field});
        };
        std::optional<std::size_t> source;
        for (std::size_t record = 0; record < Rows() && !source; ++record) {
            source = isValue(record) ? std::optional(record) : std::nullopt;
        }
        for (std::size_t record = 0; record < Rows() && source; ++record) {
            source = isValue(record) ? record : *source;
            const HeaderCell cell{record, field};
            const bool meant = selected.size() == 1 || std::ranges::binary_search(selected, record);
            if (meant && IsBlank(Text(cell)) && IsBlank(Kept(cell))) {
                // What the laboratory made itself, it never received.
                const bool staysOpen =
                    field == HeaderField::kDateReceived && record < LabBlankRecords(batch_);
                filled.push_back({cell, staysOpen ? ":" : Kept({*source, field})});
                if (field == kMatrix) {
                    KeepRuled(record, filled);
                }
            }
        }
    }
    return filled;
}

std::vector<HeaderCell> HeaderSheet::Find(std::string_view text) const {
    std::vector<HeaderCell> found;
    const std::string wanted = LowerCase(text);
    for (std::size_t record = 0; record < Rows() && !IsBlank(wanted); ++record) {
        for (int number = 1; number <= SampleHeader::kCount; ++number) {
            const HeaderCell cell{record, HeaderFieldAt(number)};
            if (Contains(LowerCase(Shown(cell)), wanted)) {
                found.push_back(cell);
            }
        }
    }
    return found;
}

}  // namespace qfr
