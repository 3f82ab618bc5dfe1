#ifndef KERFLINE_CLI_NEARESTNAME_H
#define KERFLINE_CLI_NEARESTNAME_H

#include <string>
#include <string_view>
#include <vector>

namespace Cli {

/// The name that takes the fewest changed characters to get to from `typed`, whatever the case of
/// its letters; the first of several. Empty if every one would be another word altogether.
std::string_view nearestName(std::string_view typed, const std::vector<std::string_view>& names);

/// "; did you mean "NAME"?", or nothing if no name is near.
std::string nearestNameHint(std::string_view typed, const std::vector<std::string_view>& names,
                            std::string_view prefix = {});

} // namespace Cli

#endif
