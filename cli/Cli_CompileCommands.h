#ifndef KERFLINE_CLI_COMPILECOMMANDS_H
#define KERFLINE_CLI_COMPILECOMMANDS_H

#include <stdexcept>
#include <string>
#include <vector>

namespace Cli {

/// The text is no database of compile commands; what() says why.
class CompileCommandsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The files that are compiled in a project, once each, in the order of its database. `path` is the
/// database or the folder that holds it. Throws std::system_error if it cannot be read.
std::vector<std::string> filesOfCompileCommands(const std::string& path);

} // namespace Cli

#endif
