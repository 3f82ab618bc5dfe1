#ifndef KERFLINE_NORVANE_WRAPSTAY_H
#define KERFLINE_NORVANE_WRAPSTAY_H

#include <optional>
#include <string>

namespace Norvane {

/// Returns `text` with those line breaks of `wrapped` that are still there in `again`, each with the
/// white space that it has there. `wrapped` is `text` with lines broken, `again` is `wrapped` formatted
/// once more: it joins most of the lines again, and leaves some alone with an indent of its own.
///
///     f({a, b}, c)    f({a,       f({a,         ->  f({a,
///                        b},      b}, c)            b}, c)
///                      c)
///
/// All three hold the same tokens; if they do not, the result is `text`.
std::string keepStayingBreaks(const std::string& text, const std::string& wrapped, const std::string& again);

/// The white space at the start of the first line that `broken` has and `text` does not; none if they
/// are the same. `broken` is `text` with more line breaks.
std::optional<std::string> indentOfFirstBreak(const std::string& text, const std::string& broken);

} // namespace Norvane

#endif
