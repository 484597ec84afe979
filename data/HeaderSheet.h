// The headers of all samples as one sheet, samples down and the 26 values across: what typing,
// pasting and filling change in it. A value that is refused shows in its cell as it was entered;
// the header keeps the one that it had.
#pragma once

#include <compare>
#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/Batch.h"
#include "data/TabSeparated.h"

namespace qfr {

struct HeaderCell {
    std::size_t Record = 0;  // index in SampleList
    HeaderField Field = HeaderField::kZovSampleNo;
    auto operator<=>(const HeaderCell&) const = default;
};

// What was entered into a cell, by whatever way.
struct EnteredCell {
    HeaderCell Cell;
    std::string Text;
};

struct HeaderValue {
    std::string Kept;                    // by the header
    std::optional<std::string> Refused;  // that the cell shows instead
    bool operator==(const HeaderValue&) const = default;
};

struct HeaderChange {
    HeaderCell Cell;
    HeaderValue Before;
    HeaderValue After;
};

enum class HeaderMark { kNone, kEmpty, kDoubtful, kRefused };

struct HeaderNote {
    HeaderMark Mark = HeaderMark::kNone;
    std::string Text;  // why, as a sentence
};

struct PastedCells {
    std::vector<EnteredCell> Cells;
    // Of the clipboard, for which there was no place.
    std::size_t RowsLeftOut = 0;
    std::size_t ColumnsLeftOut = 0;
};

class HeaderSheet {
  public:
    // The batch outlives the sheet; meanwhile nobody else changes its headers or its samples.
    explicit HeaderSheet(Batch& batch);

    std::size_t Rows() const { return complete_.size(); }
    std::size_t CompleteRows() const;
    const std::map<HeaderCell, std::string>& Refused() const { return refused_; }

    // As the cell shows it: a date that is left open as "__/__/____ __:__".
    std::string Shown(const HeaderCell& cell) const;
    // As it is copied and edited: such a date is empty.
    std::string Text(const HeaderCell& cell) const;
    HeaderNote NoteOf(const HeaderCell& cell) const;
    // Of a refused cell: "ZA101: "2/30/2005". Date Analyzed is no date."
    std::string RefusalOf(const HeaderCell& cell) const;
    // "ZA101, Date Analyzed"
    std::string NameOf(const HeaderCell& cell) const;

    // What it changes to enter these, each cell once, with what a new matrix does to the other
    // values of its sample that are not entered themselves. Nothing is changed yet.
    std::vector<HeaderChange> ChangesBy(std::vector<EnteredCell> entered) const;
    void Redo(std::span<const HeaderChange> changes);
    void Undo(std::span<const HeaderChange> changes);

    // Selections are sorted and not empty.

    // Rows and columns in which something is selected; what is not selected there is empty.
    CellRows Copy(std::span<const HeaderCell> selection) const;
    // One value into all cells, otherwise a block from the first selected row and column on, as
    // often as it fits into what is selected.
    PastedCells Paste(const CellRows& rows, std::span<const HeaderCell> selection) const;
    static std::vector<EnteredCell> Clear(std::span<const HeaderCell> selection);
    // In each column the first selected value into the selected cells below; where only one is
    // selected, the one above into it.
    std::vector<EnteredCell> FillDown(std::span<const HeaderCell> selection) const;
    // The empty cells that are selected take the next value above, or, with none above, below. Of a
    // column with only one selected cell all are meant. Values that a report has for its own sample
    // are for no other, and the lab blank's date of receipt is left open. A matrix that is filled
    // in changes no value that is there.
    std::vector<EnteredCell> FillEmpty(std::span<const HeaderCell> selection) const;

    // The cells that show the text in whatever case, sample by sample; none show a blank one.
    std::vector<HeaderCell> Find(std::string_view text) const;

  private:
    // Enters what the sample has of the values that a matrix rules, beside a new matrix.
    void KeepRuled(std::size_t record, std::vector<EnteredCell>& entered) const;
    const std::string& Kept(const HeaderCell& cell) const;
    HeaderValue ValueOf(const HeaderCell& cell) const;
    void Set(const HeaderCell& cell, const HeaderValue& value);

    Batch& batch_;
    std::map<HeaderCell, std::string> refused_;
    std::vector<bool> complete_;                              // by record
    std::unordered_map<std::string, std::size_t> samplesOf_;  // each ZOV sample number
};

}  // namespace qfr
