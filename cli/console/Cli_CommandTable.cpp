#include "cli/console/Cli_CommandTable.h"

#include <algorithm>
#include <iterator>

namespace Cli {

namespace {

constexpr Command kCommands[] = {
    {"which", "[--scheme NAME] FILE...", "Tell which scheme a file is laid out by"},
    {"schemes", "[show NAME|copy NAME NEW|convert]", "List the schemes; show, copy or convert them"},
    {"derive", "PATH... [-o FILE]", "Write the scheme under which some code changes least"},
    {"settings", "[get NAME|set NAME VALUE]", "Show or change your settings"},
    {"options", "[NAME...|--edit [FILE]]",
     "Tell of the options that a scheme can hold, or edit schemes in a window"},
    {"help", "[TOPIC]", "Show a page of the help"},
    {"completion", "bash|zsh|fish", "Write the script that completes words in a shell"},
};

} // namespace

std::span<const Command> commandTable() { return kCommands; }

const Command* findCommand(std::string_view name) {
    const auto found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                    [&](const Command& command) { return command.name == name; });
    return found == std::end(kCommands) ? nullptr : found;
}

} // namespace Cli
