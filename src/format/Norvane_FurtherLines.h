#ifndef KERFLINE_NORVANE_FURTHERLINES_H
#define KERFLINE_NORVANE_FURTHERLINES_H

#include "src/scheme/Norvane_FormatMarkerTable.h"
#include "src/scheme/Norvane_LayoutOptions.h"

#include <string>

namespace Norvane {

/// Places the lines on which a statement goes on, in a text that is laid out otherwise:
///
///     total = first(a,          // with ALIGN_FURTHER_LINES under what the bracket opens with,
///                   b) +        // or under the operand that the line goes on;
///             second(           // where a bracket ends its line, and without that option, by
///                 c);           // INDENT_FURTHER_LINES from the line of the bracket
///
/// Heads of functions and classes, lists in braces, directives and lines between format-off markers
/// keep their places, and go along with a line that they stand in. Neither option set: returns `text`.
/// Nothing but white space at the start of lines changes, and a second pass changes nothing. One walk
/// over the tokens; no nesting is too deep.
std::string placeFurtherLines(std::string text, const LayoutOptions& options, const FormatMarkerTable& markers);

} // namespace Norvane

#endif
