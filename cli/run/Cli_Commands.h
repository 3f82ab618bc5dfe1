#ifndef KERFLINE_CLI_COMMANDS_H
#define KERFLINE_CLI_COMMANDS_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

/// The whole program: does the command that comes first, or lays out files. `arguments` are those
/// behind the name of the program. Throws nothing.
ExitStatus runCommandLine(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace Cli

#endif
