#ifndef KERFLINE_NORVANE_GAP_H
#define KERFLINE_NORVANE_GAP_H

#include "src/scheme/Norvane_ColumnRule.h"

#include <string>
#include <string_view>

namespace Zelmar {
class IndentWriter;
}

namespace Norvane {

/// Operations on gaps. A gap is the text between two constructs: white space, and whatever else
/// nobody laid claim to, such as comments, directives and a lone ";". None of them loses a
/// character that is not white space, but for the one loss that replaceGapStart names.
///
/// A text is open at its end if the line feed there belongs to what stands in front of it: a line
/// comment, a directive, a literal that its line does not close, or a backslash that joins two
/// lines. Nothing may be written on such a line any more, so its line feed stays.
///
/// A gap without "/", "#", quote and backslash is white space and plain code, and is answered by a
/// look at the characters; only other gaps are split into tokens.

void trimLeft(std::string& text);
void trimRight(std::string& text);
void trimBoth(std::string& text);
std::string_view trimmedLeft(std::string_view text);
std::string_view trimmedRight(std::string_view text);
std::string_view trimmedBoth(std::string_view text);
bool isBlank(std::string_view text);
bool hasLineFeed(std::string_view text);
/// `gap` is white space within a line that lines something up, and stays.
bool isKeptColumn(std::string_view gap, const ColumnRule& rule);
/// Removes every `c`.
void eraseChar(std::string& text, char c);

/// The first token is a line comment or a directive.
bool startsInLineComment(std::string_view text);
/// The last token is a line comment or a directive, or the text is open at its end otherwise.
bool endsInLineComment(std::string_view text);
/// Some token is a line comment.
bool holdsLineComment(std::string_view text);
/// Some token is a comment of either kind or a directive.
bool holdsComment(std::string_view text);
/// The last character that is not white space is "*" or "&", is not the first of the text, and is
/// none of a comment.
bool endsInAsterisk(std::string_view text);
bool endsInAmpersand(std::string_view text);

/// Trims at the left; behind a line comment or directive that the text starts with if there is one.
void trimGapLeft(std::string& text);
/// Trims at the right; only the white space behind the line feed of a text that is open at its end.
void trimGapRight(std::string& text);
/// Trims both ends, or neither if one of them is a line comment or a directive.
void trimGapBoth(std::string& text);

/// Puts `ws` in the place of the white space at the end of `text`. Behind a text that is open at
/// its end a `ws` without a line feed is not written.
///     replaceGapEnd(" /* c */  ", "\n")  ->  " /* c */\n"
///     replaceGapEnd(" // c\n  ", " ")    ->  " // c\n"
void replaceGapEnd(std::string& text, std::string_view ws);
/// Puts `ws` in the place of the white space at the start of `text`, or behind the line comment or
/// directive that the text starts with. A text that starts with one and holds no line feed, which
/// only the end of a file can bring about, becomes empty.
void replaceGapStart(std::string& text, std::string_view ws);
/// First the start by `left`, then the end by `right`: of a blank text only `right` remains.
void replaceGapEnds(std::string& text, std::string_view left, std::string_view right);
/// Replaces every `from` by `to` that stands in no comment and no literal. Leaves a text that holds
/// a line comment or a directive alone.
void replaceInGap(std::string& text, char from, char to);

/// Writes the leading white space of `text` and its first other character, and erases both from
/// `text`. Returns the column of that character, counted from 0; for a blank text, all of which is
/// written and erased, 0.
int writeToFirstChar(Zelmar::IndentWriter& output, std::string& text);

} // namespace Norvane

#endif
