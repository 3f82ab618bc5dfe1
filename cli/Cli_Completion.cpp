#include "cli/Cli_Completion.h"

#include "cli/Cli_Commands.h"

namespace Cli {

ExitStatus runCompletionCommand(const std::vector<std::string>&, const Streams& streams) {
    return failUsage("this version has no completion scripts", streams);
}

} // namespace Cli
