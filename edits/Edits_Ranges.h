#ifndef KERFLINE_EDITS_RANGES_H
#define KERFLINE_EDITS_RANGES_H

#include "edits/Edits_Edit.h"

#include <string>
#include <string_view>
#include <vector>

namespace Edits {

/// Lines of a text, counted from 1, both ends included.
struct LineRange {
    std::size_t first = 1;
    std::size_t last = 1;
};

/// The bytes of those lines with their line ends. What lies behind the end of the text is left out.
std::vector<Range> bytesOf(std::string_view text, const std::vector<LineRange>& lines);

/// In order, without overlaps and with neighbours joined. Empty ranges are dropped.
std::vector<Range> merged(std::vector<Range> ranges);

/// Lays out some stretches of a text and nothing else. `result` is the layout of the whole of
/// `source`, the same but for white space. Returns a text that
///   - is `source`, byte for byte, outside of `ranges`;
///   - has the white space of `result` inside, but for indents: a line stands to the nearest line
///     in front of it with a smaller indent as it does in `result`. If that one lies outside and
///     stands elsewhere than its rules want it, the stretch follows it;
///   - keeps the white space of `source` where `result` joins a line inside with one outside, and
///     where a range begins or ends in the middle of the white space of a line.
/// If the ranges cover the text, that is `result`. Tabs run to the next multiple of `tabSize`, which
/// is at least 1. Cost grows in step with both texts and the number of ranges.
std::string layOutWithin(std::string_view source, std::string_view result, const std::vector<Range>& ranges,
                         int tabSize);

} // namespace Edits

#endif
