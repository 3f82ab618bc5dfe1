#ifndef KERFLINE_GUARD_WORDS_H
#define KERFLINE_GUARD_WORDS_H

#include "guard/Guard_Text.h"

#include <cstddef>

namespace Guard {

/// The extents of the tokens that are told by their first character alone. Each takes the offset of that
/// character and returns the one behind the token; splices inside a token belong to it.

/// A name, with universal character names. The offset may stand where a name only goes on.
std::size_t findWordEnd(const Text& text, std::size_t at);

/// True if a name can start at `at`: a letter or a universal character name.
bool startsWord(const Text& text, std::size_t at);

/// A preprocessing number: whatever a compiler reads as one piece before it looks at its value.
std::size_t findNumberEnd(const Text& text, std::size_t at);

/// The longest operator or bracket of C or C++, digraphs and trigraphs among them. Those of either language
/// count for both, as the language of a header cannot be told. Comments are none.
std::size_t findPunctuatorEnd(const Text& text, std::size_t at);

/// A comment through its closing mark, or in front of the line feed that ends it; through the end of the
/// text if nothing closes it. `body` is the offset behind the opening mark.
std::size_t findBlockCommentEnd(const Text& text, std::size_t body);
std::size_t findLineCommentEnd(const Text& text, std::size_t body);

} // namespace Guard

#endif
