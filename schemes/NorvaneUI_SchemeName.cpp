#include "schemes/NorvaneUI_SchemeName.h"

#include <algorithm>
#include <cstdint>

namespace NorvaneUI {

namespace {

bool isControl(char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }

/// The length of the UTF-8 character that starts with `first`; 0 if none does.
std::size_t utf8Length(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xc2 && first < 0xe0) return 2;
    if (first >= 0xe0 && first < 0xf0) return 3;
    return first >= 0xf0 && first < 0xf5 ? 4 : 0;
}

/// Code points that are written longer than need be, halves of a pair, and those out of range.
bool isBadCodePoint(std::uint32_t codePoint, std::size_t length) {
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    return codePoint < smallest[length] || (codePoint >= 0xd800 && codePoint < 0xe000) || codePoint > 0x10ffff;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto first = static_cast<unsigned char>(text[0]);
        const std::size_t length = utf8Length(first);
        if (length == 0 || length > text.size()) return false;
        std::uint32_t codePoint = length == 1 ? first : first & (0x7fu >> length);
        for (std::size_t i = 1; i < length; ++i) {
            const auto next = static_cast<unsigned char>(text[i]);
            if ((next & 0xc0) != 0x80) return false;
            codePoint = codePoint << 6 | (next & 0x3f);
        }
        if (isBadCodePoint(codePoint, length)) return false;
        text.remove_prefix(length);
    }
    return true;
}

} // namespace

std::string schemeNameFault(const PropertySetStore& store, const std::string& name) {
    constexpr std::size_t longestFileName = 255;
    if (name.empty()) return "A scheme needs a name.";
    if (std::any_of(name.begin(), name.end(), isControl)) {
        return "The name of a scheme cannot hold line ends, tabs or other control characters.";
    }
    if (!isUtf8(name)) return "The name of a scheme must be UTF-8 text.";
    if (name == kNoFormatting || name == "none") return "\"" + name + "\" stands for no scheme at all.";
    if (store.count(name) != 0) return "There is already a scheme \"" + name + "\".";
    const std::string file = store.validFilename(name);
    if (file.size() > longestFileName) return "The name of the scheme is too long for a file.";
    if (!file.ends_with(".kls")) {
        return "The scheme would go to the file \"" + file + "\", which is not found again. Choose another name.";
    }
    return {};
}

} // namespace NorvaneUI
