#ifndef KERFLINE_CLI_EXITSTATUS_H
#define KERFLINE_CLI_EXITSTATUS_H

namespace Cli {

/// What the program tells its caller. With several files the highest counts.
enum class ExitStatus : int {
    done = 0,
    wouldChange = 1,
    badUsageOrScheme = 2,
    fileFailed = 3,
    refused = 4,
};

} // namespace Cli

#endif
