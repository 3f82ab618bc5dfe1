#ifndef KERFLINE_CLI_WHICHCOMMAND_H
#define KERFLINE_CLI_WHICHCOMMAND_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

/// "which [--scheme NAME] FILE...": writes a line for each file that tells which scheme it is laid out
/// by, and where that comes from. The files need not exist.
ExitStatus runWhichCommand(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace Cli

#endif
