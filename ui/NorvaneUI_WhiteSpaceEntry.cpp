#include "ui/NorvaneUI_WhiteSpaceEntry.h"

namespace NorvaneUI {

namespace {

struct Escape {
    char typed;
    char stored;
};
constexpr Escape kEscapes[] = {{'n', '\n'}, {'r', '\r'}, {'s', ' '}, {'t', '\t'}, {'\\', '\\'}};

char unescaped(char typed) {
    for (const Escape& escape : kEscapes) {
        if (escape.typed == typed) return escape.stored;
    }
    return typed;
}

} // namespace

std::string decodeWhiteSpace(std::string_view typed) {
    std::string value;
    for (std::size_t i = 0; i < typed.size(); ++i) {
        const bool isEscape = typed[i] == '\\';
        if (isEscape && ++i == typed.size()) break;
        value += isEscape ? unescaped(typed[i]) : typed[i];
    }
    return value;
}

std::string encodeWhiteSpace(std::string_view value) {
    std::string shown;
    for (const char c : value) {
        const Escape* match = nullptr;
        for (const Escape& escape : kEscapes) {
            if (escape.stored == c) match = &escape;
        }
        if (match != nullptr) shown += {'\\', match->typed};
        else shown += c;
    }
    return shown;
}

bool isWhiteSpaceOnly(std::string_view value) {
    return value.find_first_not_of("\t\n\v\f\r ") == std::string_view::npos;
}

} // namespace NorvaneUI
