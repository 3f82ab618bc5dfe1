#include "cli/Cli_HelpCommand.h"

#include "cli/Cli_Options.h"

namespace Cli {

ExitStatus runHelpCommand(const std::vector<std::string>&, const Streams& streams) {
    streams.out << commandLineHelp();
    return ExitStatus::done;
}

} // namespace Cli
