#include "addin/Addin_Extensions.h"

#include <algorithm>

namespace Addin {

namespace {

constexpr std::string_view kSeparators = " \t,;";

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isEqualWithoutCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lowered(x) == lowered(y); });
}

/// Takes the next item of a list off its front; empty at the end.
std::string_view takeItem(std::string_view& list) {
    const std::size_t start = std::min(list.find_first_not_of(kSeparators), list.size());
    const std::size_t end = std::min(list.find_first_of(kSeparators, start), list.size());
    const std::string_view item = list.substr(start, end - start);
    list.remove_prefix(end);
    return item;
}

std::string_view withoutLeadingDots(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of('.'), text.size()));
}

} // namespace

std::string extensionOf(std::string_view path) {
    const std::size_t mark = path.find_last_of("./");
    if (mark == std::string_view::npos || path[mark] == '/') return {};
    std::string extension(path.substr(mark + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(), lowered);
    return extension;
}

bool isListedExtension(std::string_view path, std::string_view list) {
    const std::string extension = extensionOf(path);
    if (extension.empty()) return false;
    for (std::string_view item = takeItem(list); !item.empty(); item = takeItem(list)) {
        if (isEqualWithoutCase(extension, withoutLeadingDots(item))) return true;
    }
    return false;
}

bool isValidExtension(std::string_view typed) { return typed.find_first_of("<>:\\/|?") == std::string_view::npos; }

std::string backupExtensionOf(std::string_view typed) {
    const std::size_t start = typed.find_first_not_of(" \t.");
    if (start == std::string_view::npos) return "bak";
    return std::string(typed.substr(start, typed.find_last_not_of(" \t") + 1 - start));
}

} // namespace Addin
