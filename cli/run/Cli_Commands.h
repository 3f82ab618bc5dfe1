#ifndef KERFLINE_CLI_COMMANDS_H
#define KERFLINE_CLI_COMMANDS_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

/// Does one command. `arguments` are the words behind its name. Messages go to the error stream.
using CommandFunction = ExitStatus (*)(const std::vector<std::string>& arguments, const Streams& streams);

/// A word that does something else than laying out files, when it comes first.
struct Command {
    std::string_view name;
    /// As the help shows them.
    std::string_view arguments;
    /// One line, without a full stop.
    std::string_view text;
    CommandFunction run;
};

/// In the order of the help.
std::span<const Command> commandTable();

/// Null for a word that is no command. A file with the name of one is reached as "./NAME".
const Command* findCommand(std::string_view name);

/// The whole program: does the command that comes first, or lays out files. `arguments` are those
/// behind the name of the program. Throws nothing.
ExitStatus runCommandLine(const std::vector<std::string>& arguments, const Streams& streams);

/// Writes the one line about a wrong use, and returns its status.
///     kerfline: error: TEXT
ExitStatus failUsage(std::string_view text, const Streams& streams);

} // namespace Cli

#endif
