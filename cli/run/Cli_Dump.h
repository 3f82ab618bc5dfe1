#ifndef KERFLINE_CLI_DUMP_H
#define KERFLINE_CLI_DUMP_H

#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Report.h"

#include <ostream>
#include <string>

namespace Cli {

/// Writes what the engine sees of a text in line feeds, for people who work on the engine: its
/// tokens, its tree or the messages of the parser. Returns false if the text would be refused.
bool dumpText(Dump what, const std::string& path, const std::string& text, const MessageStyle& style,
              std::ostream& out);

} // namespace Cli

#endif
