#include "data/SampleIds.h"

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Text.h"

namespace qfr {

namespace {

// The words of an ID, in lower case: "MB-051805" has two.
std::vector<std::string> WordsOf(std::string_view id) {
    std::vector<std::string> words(1);
    for (const char character : LowerCase(id)) {
        const bool inWord = (character >= 'a' && character <= 'z') ||
                            (character >= '0' && character <= '9') || (character & 0x80) != 0;
        if (inWord) {
            words.back() += character;
        } else if (!words.back().empty()) {
            words.emplace_back();
        }
    }
    return words;
}

// Whether the word is this one, maybe with a number behind it.
bool IsNumbered(std::string_view word, std::string_view name) {
    return word.starts_with(name) &&
           word.find_first_not_of("0123456789", name.size()) == std::string_view::npos;
}

}  // namespace

bool IsBlankId(std::string_view id) {
    const std::vector<std::string> words = WordsOf(id);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        const std::string_view before = i > 0 ? std::string_view(words[i - 1]) : "";
        const bool ofMethod = before == "method" || before == "lab" || before == "laboratory";
        if (word.starts_with("vblk") || word.starts_with("mblk") || IsNumbered(word, "mb") ||
            ((i == 0 || ofMethod) && (IsNumbered(word, "blank") || IsNumbered(word, "blk")))) {
            return true;
        }
    }
    return false;
}

bool IsStandardId(std::string_view id) {
    const std::string first = WordsOf(id).front();
    return first.starts_with("vstd") || first.starts_with("bfb");
}

}  // namespace qfr
