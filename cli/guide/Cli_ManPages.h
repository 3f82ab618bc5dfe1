#ifndef KERFLINE_CLI_MANPAGES_H
#define KERFLINE_CLI_MANPAGES_H

#include <string>

namespace Cli {

/// kerfline(1): the commands and switches of the program.
std::string programManual();

/// kerfline-scheme(5): the form of a scheme file, and every option.
std::string schemeManual();

} // namespace Cli

#endif
