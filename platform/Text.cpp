#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace qfr {

namespace {

// What Windows-1252 has from 0x80 on, where Latin-1 has control characters.
constexpr std::array<char16_t, 32> kFrom0x80 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool IsBlank(char c) {
    return static_cast<unsigned char>(c) <= 0x20;
}

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The dotted capital I stays: its small letter is plain only in Turkish.
char32_t LowerLetter(char32_t c) {
    struct Run {
        char32_t first;
        char32_t last;
        char32_t distance;  // to the small letter; 1: capitals and small letters take turns
    };
    static constexpr std::array<Run, 17> kRuns = {{
        {0xC0, 0xD6, 0x20},
        {0xD8, 0xDE, 0x20},
        {0x100, 0x12F, 1},
        {0x132, 0x137, 1},
        {0x139, 0x148, 1},
        {0x14A, 0x177, 1},
        {0x179, 0x17E, 1},
        {0x386, 0x386, 0x26},
        {0x388, 0x38A, 0x25},
        {0x38C, 0x38C, 0x40},
        {0x38E, 0x38F, 0x3F},
        {0x391, 0x3A1, 0x20},
        {0x3A3, 0x3AB, 0x20},
        {0x400, 0x40F, 0x50},
        {0x410, 0x42F, 0x20},
        {0x460, 0x481, 1},
        {0x48A, 0x4BF, 1},
    }};
    if (c == 0x178) {
        return 0xFF;
    }
    const auto run = std::find_if(kRuns.begin(), kRuns.end(),
                                  [c](const Run& r) { return c >= r.first && c <= r.last; });
    if (run == kRuns.end()) {
        return c;
    }
    return run->distance > 1 ? c + run->distance : c + (c - run->first + 1) % 2;
}

// The bytes of the well-formed character at the front of `text`; 0 when there is none.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < length ||
        !std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length),
                     IsContinuation)) {
        return 0;
    }
    const bool overlong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
    const bool surrogate = lead == 0xED && byte(1) >= 0xA0;
    const bool beyondLast = lead == 0xF4 && byte(1) >= 0x90;
    return overlong || surrogate || beyondLast ? 0 : length;
}

void AppendUtf8(std::string& text, char32_t c) {
    if (c < 0x80) {
        text += static_cast<char>(c);
    } else if (c < 0x800) {
        text += static_cast<char>(0xC0 | (c >> 6));
        text += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (c >> 12));
        text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Position of the separator before the last component; npos without one. Reports carry Windows
// paths, in which a "/" is part of a name.
std::size_t LastSeparator(std::string_view path) {
    const std::size_t backslash = path.rfind('\\');
    return backslash != std::string_view::npos ? backslash : path.rfind('/');
}

}  // namespace

std::string TrimRight(std::string_view text) {
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return std::string(text);
}

bool IsBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return IsBlank(c); });
}

std::string Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    return TrimRight(text);
}

std::string LowerCase(std::string_view text) {
    // Nearly all names are plain ASCII, and large folders hold many.
    const auto other = std::find_if(text.begin(), text.end(),
                                    [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    std::string lower(text.begin(), other);
    std::transform(lower.begin(), lower.end(), lower.begin(), LowerAscii);
    text.remove_prefix(lower.size());
    while (!text.empty()) {
        // All letters that have two forms here are of one or two bytes.
        if (CharacterLength(text) == 2) {
            AppendUtf8(lower, LowerLetter(TakeCharacter(text)));
        } else {
            lower += LowerAscii(text.front());
            text.remove_prefix(1);
        }
    }
    return lower;
}

char32_t TakeCharacter(std::string_view& text) {
    const std::size_t length = std::max<std::size_t>(CharacterLength(text), 1);
    const auto lead = static_cast<unsigned char>(text.front());
    char32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (const char next : text.substr(1, length - 1)) {
        character = (character << 6) | (static_cast<unsigned char>(next) & 0x3FU);
    }
    text.remove_prefix(length);
    return character;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    if (text.size() <= count) {
        return text;
    }
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count) {
        ++end;
        while (end < text.size() && IsContinuation(text[end])) {
            ++end;
        }
    }
    return text.substr(0, end);
}

std::string CharacterRange(std::string_view text, std::size_t first, std::size_t last) {
    if (first < 1 || last < first) {
        return {};
    }
    const std::string_view before = FirstCharacters(text, first - 1);
    return std::string(FirstCharacters(text.substr(before.size()), last - first + 1));
}

bool BeginsWith(std::string_view text, std::string_view lowerCasePrefix) {
    return text.size() >= lowerCasePrefix.size() &&
           std::equal(lowerCasePrefix.begin(), lowerCasePrefix.end(), text.begin(),
                      [](char expected, char c) { return expected == LowerAscii(c); });
}

bool EndsWith(std::string_view text, std::string_view lowerCaseSuffix) {
    return text.size() >= lowerCaseSuffix.size() &&
           BeginsWith(text.substr(text.size() - lowerCaseSuffix.size()), lowerCaseSuffix);
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string FileNameOnly(std::string_view path) {
    return std::string(path.substr(LastSeparator(path) + 1));  // npos + 1 is 0
}

std::string FolderOnly(std::string_view path) {
    const std::size_t separator = LastSeparator(path);
    return std::string(separator == std::string_view::npos ? "" : path.substr(0, separator));
}

std::string GetField(std::string_view line, int k) {
    for (; k > 1; --k) {
        const std::size_t end = line.find(';');
        if (end == std::string_view::npos) {
            break;
        }
        line.remove_prefix(end + 1);
    }
    return Trim(line.substr(0, line.find(';')));
}

std::string_view TakeField(std::string_view& rest) {
    const std::string_view field = rest.substr(0, rest.find(';'));
    rest.remove_prefix(std::min(field.size() + 1, rest.size()));
    return field;
}

bool IsUtf8(std::string_view text) {
    for (;;) {
        // Reports are plain ASCII but for a name here and there.
        const auto other = std::find_if(
            text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
        text.remove_prefix(static_cast<std::size_t>(other - text.begin()));
        if (text.empty()) {
            return true;
        }
        const std::size_t length = CharacterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
}

std::string ToUtf8(std::string text) {
    if (IsUtf8(text)) {
        return text;
    }
    std::string converted;
    converted.reserve(text.size() + text.size() / 8);
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        AppendUtf8(converted, byte >= 0x80 && byte < 0xA0 ? kFrom0x80[byte - 0x80u] : byte);
    }
    return converted;
}

std::optional<unsigned char> InWindows1252(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<unsigned char>(character);
    }
    const auto found = std::ranges::find(kFrom0x80, character);
    return found != kFrom0x80.end() && character >= 0x100
               ? std::optional(static_cast<unsigned char>(0x80 + (found - kFrom0x80.begin())))
               : std::nullopt;
}

bool CutText(std::string& text) {
    const std::size_t kept = FirstCharacters(text, kMaxPrintedText).size();
    const bool longer = kept < text.size();
    text.resize(kept);
    return longer;
}

std::string EnteredText(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    return OneLine(text);
}

std::string EnteredField(std::string_view text) {
    std::string field = EnteredText(text);
    std::ranges::replace(field, ';', ',');
    return field;
}

std::string Counted(std::size_t count, std::string_view thing) {
    return std::to_string(count) + " " + std::string(thing) + (count == 1 ? "" : "s");
}

std::string Enumerated(const std::vector<std::string>& items) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        text += i == 0 ? "" : i + 1 == items.size() ? " and " : ", ";
        text += items[i];
    }
    return text;
}

bool IsControl(char32_t c) {
    const bool turnsWriting = c == 0x061C || c == 0x200E || c == 0x200F ||
                              (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
    const bool isNone = (c & 0xFFFE) == 0xFFFE;
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || turnsWriting || isNone;
}

std::string Visible(std::string_view text) {
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        std::string_view rest = text;
        const bool wellFormed = CharacterLength(text) > 0;
        const bool shows = !IsControl(TakeCharacter(rest)) && wellFormed;
        visible += shows ? text.substr(0, text.size() - rest.size()) : "?";
        text = rest;
    }
    return visible;
}

std::string OneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            continue;
        }
        line += text[i] == '\n' || text[i] == '\r' ? ' ' : text[i];
    }
    return line;
}

}  // namespace qfr
