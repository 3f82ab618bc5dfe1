#ifndef KERFLINE_CPP_TOKENDUMPER_H
#define KERFLINE_CPP_TOKENDUMPER_H

#include <ostream>
#include <string_view>

namespace Cpp {

/// Writes the tokens of `text`, one a line: first and last place, type, spelling. For developers
/// and tests; the text must have line feeds only.
///
///     1:1-1:3 int "int"
///     1:5-1:5 <identifier> "x"
void dumpTokens(std::string_view text, std::ostream& out);

} // namespace Cpp

#endif
