#ifndef KERFLINE_HELP_DIFFERENCE_H
#define KERFLINE_HELP_DIFFERENCE_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace Help {

/// A stretch of a text, the end not included. It may be empty: a place where white space is missing.
struct Range {
    std::size_t start;
    std::size_t end;
};

/// The runs of white space that are not the same in two texts that differ in nothing else. Those of
/// one index belong together.
struct Differences {
    std::vector<Range> before;
    std::vector<Range> after;
};

Differences whiteSpaceDifferences(std::string_view before, std::string_view after);

} // namespace Help

#endif
