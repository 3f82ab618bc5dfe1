#ifndef KERFLINE_CLI_UNIFIEDDIFF_H
#define KERFLINE_CLI_UNIFIEDDIFF_H

#include <string>
#include <string_view>

namespace Cli {

/// The way from one text to another as a patch that git and patch can apply, with three lines of
/// context; empty if the texts are equal. `name` is a path without a "/" in front.
///
/// Lines count as the same if they are equal and as many characters that are not white space stand
/// in front of them. For two layouts of one source this finds nearly all that a search for the
/// longest common part would, in one walk over both; for other texts it is longer, but still right.
std::string unifiedDiff(std::string_view name, std::string_view before, std::string_view after,
                        bool isColored = false);

} // namespace Cli

#endif
