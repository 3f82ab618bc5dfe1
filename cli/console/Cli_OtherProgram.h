#ifndef KERFLINE_CLI_OTHERPROGRAM_H
#define KERFLINE_CLI_OTHERPROGRAM_H

#include <optional>
#include <string>
#include <vector>

namespace Cli {

/// Runs another program and waits for its end. `words` are its name or path and its arguments.
/// Returns its exit status, 128 and the number of a signal that ended it, or nothing if it could not be
/// started.
std::optional<int> runOtherProgram(std::vector<std::string> words);

/// Whether a program could open a window.
bool hasScreen();

/// The path of a program in the folder of this one, or its bare name if there is none.
std::string besideThisProgram(const std::string& name);

} // namespace Cli

#endif
