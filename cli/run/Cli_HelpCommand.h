#ifndef KERFLINE_CLI_HELPCOMMAND_H
#define KERFLINE_CLI_HELPCOMMAND_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

/// Without an argument, the page of "--help" and a list of topics. With a topic, an option or a
/// command, what there is to say about it. "--html" opens the installed page of the topic instead, if
/// there is a screen to open it on, and writes its path.
ExitStatus runHelpCommand(const std::vector<std::string>& arguments, const Streams& streams);

struct Command;

/// How a command is called, and what it does.
std::string commandPage(const Command& command);

} // namespace Cli

#endif
