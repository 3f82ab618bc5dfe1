#ifndef KERFLINE_CLI_COMMANDTABLE_H
#define KERFLINE_CLI_COMMANDTABLE_H

#include <span>
#include <string_view>

namespace Cli {

/// A word that does something else than laying out files, when it comes first.
struct Command {
    std::string_view name;
    /// As the help shows them.
    std::string_view arguments;
    /// One line, without a full stop.
    std::string_view text;
};

/// In the order of the help.
std::span<const Command> commandTable();

/// Null for a word that is no command. A file with the name of one is reached as "./NAME".
const Command* findCommand(std::string_view name);

} // namespace Cli

#endif
