#ifndef KERFLINE_CLI_TOKENCHECK_H
#define KERFLINE_CLI_TOKENCHECK_H

#include "trn/Trn_Position.h"

#include <optional>
#include <string_view>

namespace Cli {

/// Returns the place in `source` of the first token that `result` does not have in the same order
/// and spelling, or nothing if both are the same code. Inside comments and directives a stretch of
/// white space equals any other, since their further lines move with their first one; but not
/// between the double quotes of a directive. Characters that form no token, such as a backslash in
/// front of a line end, have to be the same as well.
/// Both texts are in line feeds.
std::optional<Trn::Position> firstTokenDifference(std::string_view source, std::string_view result);

} // namespace Cli

#endif
