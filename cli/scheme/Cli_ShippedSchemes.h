#ifndef KERFLINE_CLI_SHIPPEDSCHEMES_H
#define KERFLINE_CLI_SHIPPEDSCHEMES_H

#include <algorithm>
#include <span>
#include <string>
#include <string_view>

namespace Cli {

/// A scheme file that is part of the program, so that it works wherever it is copied to.
struct ShippedScheme {
    std::string_view name;
    std::string_view text;
};

/// All of them, ordered by name. One is called "default".
std::span<const ShippedScheme> shippedSchemes();

/// Null if none has that name.
inline const ShippedScheme* findShippedScheme(std::string_view name) {
    const auto schemes = shippedSchemes();
    const auto found = std::find_if(schemes.begin(), schemes.end(),
                                    [&](const ShippedScheme& scheme) { return scheme.name == name; });
    return found == schemes.end() ? nullptr : &*found;
}

/// The first sentence of the comment that a scheme file opens with, on one line and without its full
/// stop; "" without a comment.
std::string summaryOf(std::string_view text);

} // namespace Cli

#endif
