#ifndef KERFLINE_CLI_PRINTABLE_H
#define KERFLINE_CLI_PRINTABLE_H

#include <string>
#include <string_view>

namespace Cli {

/// `text` in one line that no terminal takes for a command: line feeds, tabs, and all control
/// characters of ASCII and Unicode are spelled out.
///     printable("a\nb\x1b") == "a\\nb\\x1b"
std::string printable(std::string_view text);

} // namespace Cli

#endif
