#ifndef KERFLINE_CLI_TALLY_H
#define KERFLINE_CLI_TALLY_H

#include "addin/Addin_FormatJob.h"
#include "cli/console/Cli_Options.h"

#include <cstddef>
#include <string>

namespace Cli {

/// How many sources came to what.
struct Tally {
    std::size_t formatted = 0;
    std::size_t unchanged = 0;
    std::size_t skipped = 0;
    std::size_t refused = 0;
    std::size_t failed = 0;

    void count(Addin::FormatResult result);
    std::size_t total() const { return formatted + unchanged + skipped + refused + failed; }
    /// "3 files: 1 formatted, 2 unchanged"; what is nought is left out.
    std::string text(Destination destination) const;
};

} // namespace Cli

#endif
