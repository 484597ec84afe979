// Small text helpers that every reader and form shares. All texts are UTF-8.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qfr {

// The text without leading and trailing blanks and control characters (U+0000 to U+0020).
std::string Trim(std::string_view text);
std::string TrimRight(std::string_view text);
// Whether Trim leaves nothing.
bool IsBlank(std::string_view text);

// Lower case of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic letters; the rest stays.
std::string LowerCase(std::string_view text);

// At most `count` characters (not bytes) from the front; never cuts inside a character.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

// The longest text that a form prints (characters).
inline constexpr std::size_t kMaxPrintedText = 400;
// Cuts the text there; whether it was longer.
bool CutText(std::string& text);

// Characters `first` (from 1) to `last`; what of them lies beyond the text is missing.
std::string CharacterRange(std::string_view text, std::size_t first, std::size_t last);

// Whether the text begins with `lowerCasePrefix` when its case is ignored.
bool BeginsWith(std::string_view text, std::string_view lowerCasePrefix);

// Whether the text ends with `lowerCaseSuffix` when its case is ignored.
bool EndsWith(std::string_view text, std::string_view lowerCaseSuffix);

bool Contains(std::string_view text, std::string_view part);

// Takes the character at the front off a text that is not empty. A byte that begins no well-formed
// character counts as one of Latin-1.
char32_t TakeCharacter(std::string_view& text);

// The last component of a path: what follows the last "\", or the last "/" of a text without "\".
std::string FileNameOnly(std::string_view path);

// The path up to, not including, the separator that FileNameOnly cuts at; empty without one.
std::string FolderOnly(std::string_view path);

// The k-th field, from 1, of a ";"-delimited line, trimmed. A line with fewer fields yields its
// last.
std::string GetField(std::string_view line, int k);

// The text before the first ";" (all of it without one); that text and its ";" leave `rest`.
std::string_view TakeField(std::string_view& rest);

// The text as valid UTF-8: as it stands when it already is, else read as Windows-1252.
std::string ToUtf8(std::string text);
bool IsUtf8(std::string_view text);
// The character's byte in Windows-1252; absent when it has none.
std::optional<unsigned char> InWindows1252(char32_t character);

// What was entered in an edit of one line: a paste may bring line breaks along, which become
// blanks, but for those at its end.
std::string EnteredText(std::string_view text);

// The same for a field of a batch file's line, which its ";" would end: that becomes ",".
std::string EnteredField(std::string_view text);

// "1 sample", "2 samples".
std::string Counted(std::size_t count, std::string_view thing);

// "1", "1 and 2", "1, 2 and 3".
std::string Enumerated(const std::vector<std::string>& items);

// The text with line breaks as single blanks, for a line of a log.
std::string OneLine(std::string_view text);

// Whether the character is no part of a text but rules how it shows: a control character (C0, DEL,
// C1), or one that turns the direction of writing; or whether it is none at all (U+FFFF).
bool IsControl(char32_t character);

// The text with "?" in the place of each such character and of each byte that begins no well-formed
// one: for terminals, titles and file names, which would obey it.
std::string Visible(std::string_view text);

}  // namespace qfr
