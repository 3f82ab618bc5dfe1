#ifndef KERFLINE_CLI_SETTINGSCOMMAND_H
#define KERFLINE_CLI_SETTINGSCOMMAND_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

/// "settings [get NAME|set NAME VALUE]": shows the settings of the user, or changes one.
ExitStatus runSettingsCommand(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace Cli

#endif
