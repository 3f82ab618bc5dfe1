#include "cli/console/Cli_Printable.h"

#include <algorithm>
#include <cstddef>

namespace Cli {

namespace {

constexpr bool isBetween(char c, unsigned char low, unsigned char high) {
    return static_cast<unsigned char>(c) >= low && static_cast<unsigned char>(c) <= high;
}

/// How many bytes the character of UTF-8 at the start of `text` has. A byte that starts none counts
/// alone: names of files need not be UTF-8.
std::size_t characterLength(std::string_view text) {
    const char lead = text.front();
    const std::size_t length = isBetween(lead, 0xc2, 0xdf)   ? 2
                               : isBetween(lead, 0xe0, 0xef) ? 3
                               : isBetween(lead, 0xf0, 0xf4) ? 4
                                                             : 1;
    const std::string_view rest = text.substr(1, length - 1);
    const bool isWhole = rest.size() == length - 1 &&
                         std::all_of(rest.begin(), rest.end(), [](char c) { return isBetween(c, 0x80, 0xbf); });
    return isWhole ? length : 1;
}

/// The control characters from 0x80 on are single bytes in older character sets.
bool isControl(std::string_view character) {
    if (character.size() == 1) return isBetween(character[0], 0, 0x1f) || isBetween(character[0], 0x7f, 0x9f);
    return character.size() == 2 && character[0] == '\xc2' && isBetween(character[1], 0x80, 0x9f);
}

void appendSpelled(std::string& line, char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    if (c == '\n' || c == '\t') {
        line += c == '\n' ? "\\n" : "\\t";
        return;
    }
    const auto byte = static_cast<unsigned char>(c);
    line += "\\x";
    line += digits[byte >> 4];
    line += digits[byte & 0xf];
}

} // namespace

std::string printable(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    while (!text.empty()) {
        const std::string_view character = text.substr(0, characterLength(text));
        if (isControl(character)) {
            for (const char c : character) appendSpelled(line, c);
        } else {
            line += character;
        }
        text.remove_prefix(character.size());
    }
    return line;
}

} // namespace Cli
