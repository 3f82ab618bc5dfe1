#ifndef KERFLINE_HELP_DOCUMENT_H
#define KERFLINE_HELP_DOCUMENT_H

#include "help/Help_Sample.h"

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace Help {

// A text of the help before it has a form: the same document becomes a page of HTML, text for a
// terminal, or a part of a manual page. In every text, `...` is code and [...](target) a link.

struct Heading {
    /// 1 or 2; the title of the document stands above both.
    int level;
    std::string text;
    /// What a link can lead to; may be empty.
    std::string anchor;
};

struct Paragraph {
    std::string text;
};

struct CodeBlock {
    std::string text;
};

struct Bullets {
    std::vector<std::string> items;
};

/// Words and what they mean.
struct Terms {
    std::vector<std::pair<std::string, std::string>> rows;
};

/// A picture that stands beside the page. `words` say what it shows, where it cannot be seen.
struct Picture {
    std::string file;
    std::string words;
};

using Block = std::variant<Heading, Paragraph, CodeBlock, Bullets, Terms, Comparison, Picture>;

struct Document {
    std::string title;
    std::vector<Block> blocks;
};

/// A stretch of a text between marks.
struct Piece {
    enum class Kind { text, code, link };
    Kind kind;
    /// Without the marks. The words of a link may hold code of their own.
    std::string_view text;
    /// Only for a link.
    std::string_view target;
};

/// The pieces view `text`. A mark that is not closed is text.
std::vector<Piece> inlinePieces(std::string_view text);

/// The lines of a scheme file, with commas between them.
std::string inOneLine(std::string_view lines);

/// `text` without its marks.
std::string withoutMarks(std::string_view text);

} // namespace Help

#endif
