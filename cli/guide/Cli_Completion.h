#ifndef KERFLINE_CLI_COMPLETION_H
#define KERFLINE_CLI_COMPLETION_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

/// Writes the script of the shell that the one argument names.
ExitStatus runCompletionCommand(const std::vector<std::string>& arguments, const Streams& streams);

// Each is a whole script. All are made of the same tables as the program itself: its switches, its
// commands, the options of schemes, the shipped schemes and the topics of the help.

std::string bashCompletion();
std::string zshCompletion();
std::string fishCompletion();

} // namespace Cli

#endif
