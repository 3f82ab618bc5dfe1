#ifndef KERFLINE_CPP_NAMES_H
#define KERFLINE_CPP_NAMES_H

#include <algorithm>
#include <string_view>

namespace Cpp {

/// Upper case throughout, or with the prefix of names that the compiler's own headers use.
inline bool looksLikeMacro(std::string_view name) {
    if (name.substr(0, 2) == "__") return true;
    return std::none_of(name.begin(), name.end(), [](char c) { return c >= 'a' && c <= 'z'; });
}

/// Words behind the parameters of a function that mean something there alone.
inline bool isTailWord(std::string_view name) {
    return name == "override" || name == "final" || name == "noexcept";
}

} // namespace Cpp

#endif
