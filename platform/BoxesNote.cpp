#include "platform/BoxesNote.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "platform/Text.h"

namespace qfr {

std::optional<Message> BoxesNote::About(const std::vector<char32_t>& boxes) {
    constexpr std::size_t kNamed = 5;
    std::size_t count = 0;
    std::vector<std::string> names;
    for (const char32_t character : boxes) {
        if (told_.insert(character).second && ++count <= kNamed) {
            std::array<char, 16> name{};
            std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(character));
            names.emplace_back(name.data());
        }
    }
    if (count == 0) {
        return std::nullopt;
    }
    if (count > kNamed) {
        names.push_back(std::to_string(count - kNamed) + " more");
    }
    const bool one = count == 1;
    return Message{
        .text = "No installed font has the character" + std::string(one ? " " : "s ") +
                Enumerated(names) + ".\n" +
                (one ? "A box is printed in its place." : "Boxes are printed in their place."),
        .title = "Print",
        .icon = MessageIcon::kWarning};
}

}  // namespace qfr
