#include "data/TabSeparated.h"

#include <optional>

namespace qfr {

namespace {

constexpr std::string_view kEnds = "\t\r\n";

// The cell in quotation marks at the front, which is then taken off; absent where they do not
// enclose it.
std::optional<std::string> TakeQuoted(std::string_view& text) {
    if (!text.starts_with('"')) {
        return std::nullopt;
    }
    std::string cell;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] != '"') {
            cell += text[i];
        } else if (text.substr(i + 1).starts_with('"')) {
            cell += text[i++];
        } else if (i + 1 == text.size() || kEnds.find(text[i + 1]) != std::string_view::npos) {
            text.remove_prefix(i + 1);
            return cell;
        } else {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::string TakeCell(std::string_view& text) {
    if (auto quoted = TakeQuoted(text)) {
        return *std::move(quoted);
    }
    const std::string cell(text.substr(0, text.find_first_of(kEnds)));
    text.remove_prefix(cell.size());
    return cell;
}

}  // namespace

CellRows ParseTabSeparated(std::string_view text) {
    CellRows rows;
    while (!text.empty()) {
        std::vector<std::string>& row = rows.emplace_back();
        row.push_back(TakeCell(text));
        while (text.starts_with('\t')) {
            text.remove_prefix(1);
            row.push_back(TakeCell(text));
        }
        text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
    }
    return rows;
}

std::string FormatTabSeparated(const CellRows& rows) {
    std::string text;
    for (const std::vector<std::string>& row : rows) {
        bool first = true;
        for (const std::string& cell : row) {
            text += first ? "" : "\t";
            first = false;
            if (cell.find_first_of("\"\t\r\n") == std::string::npos) {
                text += cell;
                continue;
            }
            text += '"';
            for (const char c : cell) {
                text.append(c == '"' ? 2 : 1, c);
            }
            text += '"';
        }
        text += '\n';
    }
    return text;
}

}  // namespace qfr
