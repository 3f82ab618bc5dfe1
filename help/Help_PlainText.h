#ifndef KERFLINE_HELP_PLAINTEXT_H
#define KERFLINE_HELP_PLAINTEXT_H

#include "help/Help_Document.h"

namespace Help {

/// Lines of a terminal. Code is never broken, so it can be wider.
inline constexpr std::size_t kTextWidth = 80;

/// The document without its title as text of `kTextWidth` columns, in ASCII if the document is. Ends
/// in a line feed.
std::string plainText(const Document& document);

/// `title` underlined, then the document.
std::string plainTextWithTitle(const Document& document);

/// A blank at which no line is broken, and which is written as a blank.
inline constexpr char kFixedBlank = '\x01';

/// `text` in lines of at most `width` columns, the first behind `first`, the others behind as many
/// blanks. A word that is longer stands alone on its line.
std::string filledText(std::string_view text, std::string_view first, std::size_t width);

} // namespace Help

#endif
