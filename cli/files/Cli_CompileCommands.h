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

/// The path of the database of a project: of a folder, the one that it should hold.
std::string compileCommandsFile(const std::string& project);

/// The files that are compiled in a project, once each, in the order of its database `file`. Throws
/// std::system_error if that cannot be read.
std::vector<std::string> filesOfCompileCommands(const std::string& file);

} // namespace Cli

#endif
