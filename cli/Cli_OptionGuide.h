#ifndef KERFLINE_CLI_OPTIONGUIDE_H
#define KERFLINE_CLI_OPTIONGUIDE_H

#include "cli/Cli_ExitStatus.h"
#include "cli/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

ExitStatus runOptionsCommand(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace Cli

#endif
