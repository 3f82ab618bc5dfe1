#ifndef KERFLINE_CLI_OPTIONLIST_H
#define KERFLINE_CLI_OPTIONLIST_H

#include <ostream>

namespace Cli {

/// Writes every option that a scheme can hold: name, kind, default and meaning, by family.
void listSchemeOptions(std::ostream& out);

} // namespace Cli

#endif
