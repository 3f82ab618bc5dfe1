#ifndef KERFLINE_GUARD_DIFFERENCE_H
#define KERFLINE_GUARD_DIFFERENCE_H

#include <cstddef>
#include <optional>
#include <string_view>

namespace Guard {

/// A place in a text: the offset counts bytes from 0, line and column (in bytes) from 1.
struct Place {
    std::size_t offset = 0;
    std::size_t line = 1;
    std::size_t column = 1;
};

struct Difference {
    Place inSource;
    Place inResult;
    /// What differs there, such as "a comment has another text". Lives as long as the program.
    std::string_view reason;
};

/// The first place where a compiler could read `result` as anything else than `source`, or nothing if both
/// are the same program. Shares no code with the engine, so that a fault of its scanner is not excused by
/// that same fault.
///
/// Equal have to be: the preprocessing tokens with their spelling, splices inside of them too; the start and
/// the end of each directive, the tokens in it and the lines joined to it; whether a macro takes arguments;
/// and the comments with their text and place among the tokens. What only `#` and `__LINE__` could tell
/// is not compared, as layout is about just that.
///
/// In a comment, a line keeps its text, and white space in front of it is free. Elsewhere in it a tab may
/// stand for blanks and the other way round. The same holds for a literal that its line does not close and for
/// the literals of an #error or a #warning.
///
/// Both texts are in line feeds; the size of either is not limited. Costs in step with their length.
std::optional<Difference> firstDifference(std::string_view source, std::string_view result);

} // namespace Guard

#endif
