#ifndef KERFLINE_CLI_OPTIONS_H
#define KERFLINE_CLI_OPTIONS_H

#include "cli/Cli_ExitStatus.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace Cli {

/// What becomes of the laid out text.
enum class Destination { standardOutput, sameFile, checkOnly };

/// What is shown in the place of the laid out text.
enum class Dump { none, tokens, tree, messages, scheme, options };

/// One "--set NAME=VALUE" or "--unset NAME", as it was typed.
struct SchemeEdit {
    enum class Kind { set, unset };
    Kind kind = Kind::set;
    std::string text;
};

struct Options {
    std::string scheme = "default";
    /// In the order of the command line, so that a later one wins.
    std::vector<SchemeEdit> edits;
    Destination destination = Destination::standardOutput;
    Dump dump = Dump::none;
    /// Never empty; "-" is standard input.
    std::vector<std::string> files;
};

/// Reads the command line. Returns nothing if the program is done with that: help or version were
/// asked for and stand on `out`, or the usage was wrong and `err` says so. Then `status` is set.
std::optional<Options> parseCommandLine(int argc, const char* const* argv, std::ostream& out,
                                        std::ostream& err, ExitStatus& status);

} // namespace Cli

#endif
