#ifndef KERFLINE_CLI_COMMANDLINE_H
#define KERFLINE_CLI_COMMANDLINE_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Options.h"

#include <optional>
#include <ostream>
#include <string>

namespace Cli {

/// Reads the command line. Returns nothing if the program is done with that: help or version were
/// asked for and stand on `out`, or the usage was wrong and `err` says so. Then `status` is set.
std::optional<Options> parseCommandLine(int argc, const char* const* argv, std::ostream& out,
                                        std::ostream& err, ExitStatus& status);

/// The page that "--help" shows.
std::string commandLineHelp();

} // namespace Cli

#endif
