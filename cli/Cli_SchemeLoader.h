#ifndef KERFLINE_CLI_SCHEMELOADER_H
#define KERFLINE_CLI_SCHEMELOADER_H

#include "cli/Cli_Options.h"
#include "cli/Cli_Report.h"
#include "src/Norvane_PropertySet.h"

#include <optional>

namespace Cli {

/// Makes the scheme that the options ask for: a file, a shipped one, or none, and then the edits in
/// their order. Returns nothing after reporting every error that the scheme and the edits hold.
std::optional<Norvane::PropertySet> loadScheme(const Options& options, Report& report);

} // namespace Cli

#endif
