#ifndef KERFLINE_CLI_USAGE_H
#define KERFLINE_CLI_USAGE_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string_view>

namespace Cli {

/// Writes the one line about a wrong use, and returns its status.
///     kerfline: error: TEXT
ExitStatus failUsage(std::string_view text, const Streams& streams);

} // namespace Cli

#endif
