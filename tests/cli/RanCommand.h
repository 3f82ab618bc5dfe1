#ifndef KERFLINE_TESTS_CLI_RANCOMMAND_H
#define KERFLINE_TESTS_CLI_RANCOMMAND_H

#include "cli/console/Cli_ExitStatus.h"
#include "cli/console/Cli_Streams.h"

#include <sstream>
#include <string>
#include <vector>

/// What came of a command that reads nothing.
struct RanCommand {
    Cli::ExitStatus status = Cli::ExitStatus::done;
    std::string out;
    std::string err;
};

template <class Command>
RanCommand ranCommand(Command command, const std::vector<std::string>& arguments) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    const Cli::ExitStatus status = command(arguments, Cli::Streams{in, out, err});
    return {status, out.str(), err.str()};
}

#endif
