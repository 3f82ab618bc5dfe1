#ifndef KERFLINE_TESTS_ENGINE_EXPRTESTTOOLS_H
#define KERFLINE_TESTS_ENGINE_EXPRTESTTOOLS_H

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_CppExprFormatter.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Norvane {

/// Options of a scheme written down in a row: `{"NAME", "value"}`. A value of digits is an int, as
/// is "-1"; "true" and "false" are bools; anything else is white space.
using OptionRows = std::vector<std::pair<std::string, std::string>>;

inline bool isNumber(const std::string& value) {
    return !value.empty() && value.find_first_not_of("-0123456789") == std::string::npos;
}

inline PropertySet schemeOf(const OptionRows& options) {
    PropertySet scheme;
    for (const auto& [name, value] : options) {
        if (value == "true" || value == "false") {
            scheme.setBool(name, value == "true");
        } else if (isNumber(value)) {
            scheme.setInt(name, std::stoi(value));
        } else {
            scheme.setString(name, value);
        }
    }
    return scheme;
}

/// A writer's state at the start of a line with an indent of `width` blanks.
inline Zelmar::IndentStreamState stateAt(int width, bool keepLeadingWs = false) {
    Zelmar::IndentStreamState state;
    state.indent = std::string(static_cast<std::size_t>(width), ' ');
    state.keepLeadingWs = keepLeadingWs;
    state.tabSize = 4;
    return state;
}

/// The spellings of all tokens. White space does not count inside comments and directives.
inline std::vector<std::string> tokenTexts(std::string_view text) {
    std::vector<Cpp::RawToken> tokens;
    Cpp::scanAll(text, tokens);
    std::vector<std::string> texts;
    for (const Cpp::RawToken& token : tokens) {
        std::string spelling = Cpp::spelling(text, token);
        if (Cpp::isCommentOrDirective(token.type)) std::erase_if(spelling, Cpp::isSpace);
        texts.push_back(std::move(spelling));
    }
    return texts;
}

inline std::string withoutSpace(std::string text) {
    std::erase_if(text, Cpp::isSpace);
    return text;
}

} // namespace Norvane

#endif
