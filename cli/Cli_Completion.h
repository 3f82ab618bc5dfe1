#ifndef KERFLINE_CLI_COMPLETION_H
#define KERFLINE_CLI_COMPLETION_H

#include "cli/Cli_ExitStatus.h"
#include "cli/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

ExitStatus runCompletionCommand(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace Cli

#endif
