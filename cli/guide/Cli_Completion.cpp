#include "cli/guide/Cli_Completion.h"

#include "cli/console/Cli_Usage.h"
#include "cli/scheme/Cli_NearestName.h"

#include <algorithm>
#include <array>

namespace Cli {

namespace {

struct Shell {
    std::string_view name;
    std::string (*script)();
};

constexpr auto kShells = std::to_array<Shell>({
    {"bash", bashCompletion},
    {"zsh", zshCompletion},
    {"fish", fishCompletion},
});

ExitStatus failUnknownShell(const std::string& name, const Streams& streams) {
    std::vector<std::string_view> names;
    for (const Shell& shell : kShells) names.push_back(shell.name);
    const std::string hint = nearestNameHint(name, names);
    return failUsage("no completion for \"" + name + "\"; there are bash, zsh and fish" + hint, streams);
}

} // namespace

ExitStatus runCompletionCommand(const std::vector<std::string>& arguments, const Streams& streams) {
    if (arguments.size() != 1) {
        return failUsage("name one shell: kerfline completion bash, zsh or fish", streams);
    }
    const auto shell = std::find_if(kShells.begin(), kShells.end(),
                                    [&](const Shell& row) { return row.name == arguments.front(); });
    if (shell == kShells.end()) return failUnknownShell(arguments.front(), streams);
    streams.out << shell->script();
    return ExitStatus::done;
}

} // namespace Cli
