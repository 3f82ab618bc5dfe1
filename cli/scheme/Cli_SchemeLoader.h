#ifndef KERFLINE_CLI_SCHEMELOADER_H
#define KERFLINE_CLI_SCHEMELOADER_H

#include "cli/console/Cli_Options.h"
#include "cli/console/Cli_Report.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

/// The text of a scheme file, in line feeds. Throws std::system_error.
std::string readSchemeFile(const std::string& path);

/// Checks the text of a scheme, and reports all that is wrong with it under `path`. Returns nothing
/// if any of that is an error.
std::optional<Norvane::PropertySet> parseSchemeText(const std::string& path, std::string_view text,
                                                    Report& report);

/// The same for a file.
std::optional<Norvane::PropertySet> loadSchemeFile(const std::string& path, Report& report);

/// Makes the edits in their order, and reports those that are wrong.
void applyEdits(const std::vector<SchemeEdit>& edits, Norvane::PropertySet& scheme, Report& report);

} // namespace Cli

#endif
