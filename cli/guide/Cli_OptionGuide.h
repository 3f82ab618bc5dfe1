#ifndef KERFLINE_CLI_OPTIONGUIDE_H
#define KERFLINE_CLI_OPTIONGUIDE_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <string>
#include <vector>

namespace Norvane {
struct PropertyInfo;
}

namespace Cli {

/// Without an argument, a list of all options of schemes. With names, everything about each of them,
/// with examples that are laid out as they are shown. With "--edit", opens the
/// window that edits them, and previews the source file that is named.
ExitStatus runOptionsCommand(const std::vector<std::string>& arguments, const Streams& streams);

/// Everything about one option, as text.
std::string optionGuide(const Norvane::PropertyInfo& option);

} // namespace Cli

#endif
