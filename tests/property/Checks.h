#ifndef KERFLINE_TESTS_CHECKS_H
#define KERFLINE_TESTS_CHECKS_H

#include "tests/property/Schemes.h"
#include "tests/property/Sources.h"

#include <string>

namespace Property {

/// What a layout must hold to, whatever the source.
enum class Demand {
    /// The result is the source.
    giveBack,
    /// The tokens of the result are those of the source.
    keepTokens,
    /// That, and a second run changes nothing.
    settle,
};

/// Lays every source out and describes the first few that break the demand. Empty if none does. What cannot
/// be read in a source is left alone, so that a source that is refused breaks it, too.
std::string breaches(const Scheme& scheme, const std::vector<Source>& sources, Demand demand);

/// The same, and nothing may be left alone.
std::string breachesOrRefusals(const Scheme& scheme, const std::vector<Source>& sources, Demand demand);

/// Lays every source out and describes the first few in which the text from `opening` through `closing`
/// is not the one of the source.
std::string changedStretches(const Scheme& scheme, const std::vector<Source>& sources, const std::string& opening,
                             const std::string& closing);

/// Lays every source out with `tail` behind it, which ends in a line feed, and describes the first few that come
/// out otherwise if that is taken away.
std::string changesWithoutFeed(const Scheme& scheme, const std::vector<Source>& sources, const std::string& tail);

} // namespace Property

#endif
