#ifndef KERFLINE_CLI_DERIVETABLE_H
#define KERFLINE_CLI_DERIVETABLE_H

#include "derive/Derive_Deriver.h"

#include <cstddef>
#include <ostream>
#include <string_view>

namespace Cli {

/// What a scheme does to all sources that it was asked for.
struct DeriveTotals {
    std::size_t files = 0;
    std::size_t bytes = 0;
    std::size_t lines = 0;
    std::size_t changedLines = 0;
    std::size_t refused = 0;
};

/// A row an option: what is set first, then the doubtful ones, most doubtful last.
void writeDeriveTable(std::ostream& out, const Derive::Derivation& result, const DeriveTotals& totals);

/// One object with the same figures.
void writeDeriveJson(std::ostream& out, const Derive::Derivation& result, const DeriveTotals& totals);

/// The places that disagree with `option`: where, what stands there, and what the value would put.
void writeDissents(std::ostream& out, const Derive::Derivation& result, std::string_view option);

} // namespace Cli

#endif
