#include "cli/console/Cli_Usage.h"

#include "cli/console/Cli_Printable.h"

namespace Cli {

ExitStatus failUsage(std::string_view text, const Streams& streams) {
    streams.err << "kerfline: error: " << printable(text) << '\n';
    return ExitStatus::badUsageOrScheme;
}

} // namespace Cli
