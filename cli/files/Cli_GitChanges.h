#ifndef KERFLINE_CLI_GITCHANGES_H
#define KERFLINE_CLI_GITCHANGES_H

#include <optional>
#include <string>
#include <vector>

namespace Cli {

/// What has changed in the work tree since `revision`, as a patch without context whose paths start at
/// the current folder; nothing if git is not there or refuses. With `paths`, what changed below these.
/// Files that git does not track count as unchanged.
std::optional<std::string> gitChanges(const std::string& revision, const std::vector<std::string>& paths);

} // namespace Cli

#endif
