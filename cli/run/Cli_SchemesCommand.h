#ifndef KERFLINE_CLI_SCHEMESCOMMAND_H
#define KERFLINE_CLI_SCHEMESCOMMAND_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

/// "schemes [list|show NAME|copy NAME NEW|convert]": what there is to choose from, the text of one,
/// a copy of one in the user's folder, and the user's old schemes brought up to date.
ExitStatus runSchemesCommand(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace Cli

#endif
