// Cells from the clipboard: what is read of any text comes back equal when it is written, and so do
// cells that hold anything.
#include "data/TabSeparated.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

void WriteAndRead(const qfr::CellRows& rows) {
    if (qfr::ParseTabSeparated(qfr::FormatTabSeparated(rows)) != rows) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    WriteAndRead(qfr::ParseTabSeparated(text));
    // Cut anywhere: after each "|" begins a cell, and after each "/" a row.
    qfr::CellRows rows;
    for (const char c : text) {
        if (rows.empty() || c == '/') {
            rows.emplace_back(1);
        } else if (c == '|') {
            rows.back().emplace_back();
        } else {
            rows.back().back() += c;
        }
    }
    WriteAndRead(rows);
    return 0;
}
