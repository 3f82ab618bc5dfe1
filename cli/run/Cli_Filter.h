#ifndef KERFLINE_CLI_FILTER_H
#define KERFLINE_CLI_FILTER_H

#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Cli {

// As a filter the program stands between an editor and its buffer: whatever goes wrong, what came in
// goes out, or somebody's text is gone.

/// True if standard input is one of the sources, and the result goes to standard output.
bool isFilter(const Options& options);

/// The same for a command line that is wrong, as far as can be told: standard input is named, or no
/// file is, and no switch that it holds shows something other than the result.
bool isMeantAsFilter(const std::vector<std::string>& arguments);

/// Copies what is left of the input to the output. Nothing if the input is a terminal: then nobody
/// waits for a text, and somebody would have to type one.
void passInputThrough(const Streams& streams);

} // namespace Cli

#endif
