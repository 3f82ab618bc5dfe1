#ifndef KERFLINE_CLI_DERIVECOMMAND_H
#define KERFLINE_CLI_DERIVECOMMAND_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

/// "derive PATH... [-o FILE]": writes the scheme under which the sources change least.
ExitStatus runDeriveCommand(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace Cli

#endif
