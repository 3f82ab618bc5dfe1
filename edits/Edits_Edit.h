#ifndef KERFLINE_EDITS_EDIT_H
#define KERFLINE_EDITS_EDIT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Edits {

/// A stretch of a text in bytes, the end not included. It may be empty.
struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;

    friend bool operator==(const Range&, const Range&) = default;
};

/// White space that takes the place of the white space in `range` of a source. Either may be empty.
struct Edit {
    Range range;
    std::string text;

    friend bool operator==(const Edit&, const Edit&) = default;
};

/// In the order of the source; no two overlap.
using EditList = std::vector<Edit>;

/// One run of white space in two layouts of one text, with what is in front of it in both.
struct Gap {
    Range source;
    Range result;
};

/// All runs of white space that differ between two layouts of one text, in order. The two have to be
/// the same but for white space; if they are not, the list ends where they part. One walk over both.
std::vector<Gap> differingGaps(std::string_view source, std::string_view result);

/// The edits that turn `source` into `result`, each as small as can be: what a gap keeps at its two
/// ends is no part of its edit, so that a cursor in it stays.
EditList editsBetween(std::string_view source, std::string_view result);

/// Requires: the edits lie within `source`, in its order.
std::string applied(std::string_view source, const EditList& edits);

inline bool isWhite(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

} // namespace Edits

#endif
