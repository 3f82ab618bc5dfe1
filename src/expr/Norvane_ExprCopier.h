#ifndef KERFLINE_NORVANE_EXPRCOPIER_H
#define KERFLINE_NORVANE_EXPRCOPIER_H

#include "src/expr/Norvane_CppExprFormatterBase.h"
#include "src/expr/Norvane_ExprTokens.h"
#include "streams/Zelmar_IndentWriter.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Norvane {

/// Sets another indent and (with `exact`, one that misses no column for the sake of a tab) the keeping of leading white space for the length of a scope, as text
/// needs that starts its line in a column of its own.
class ColumnGuard {
public:
    ColumnGuard(Zelmar::IndentWriter& output, int column, bool exact = false)
        : indent_(output, exact ? output.columnIndent(column) : output.makeIndent(column)), keep_(output, true) {}

private:
    Zelmar::IndentGuard<Zelmar::IndentWriter> indent_;
    Zelmar::KeepWsGuard<Zelmar::IndentWriter> keep_;
};

/// The column at which the line of an element starts so that the element stands in `column`, if
/// `wsBefore` breaks the line in front of the separator: what it holds behind the line feed and
/// `hanging`, the separator with the white space behind it, hang to the left of the element.
int hangingColumn(const OptionalString& wsBefore, std::string_view hanging, int column, int tabSize);

/// Copies a tokenised text to a writer, from the front to the back, with other white space in some
/// of its gaps. A string literal that holds a line feed comes out as it stands: the white space in
/// front of its lines is a part of the program. The lines of a block comment move with its first.
class ExprCopier {
public:
    /// `code`, which may be null, writes the code of the tokens as the copy comes to it.
    ExprCopier(const ExprTokens& tokens, Zelmar::IndentWriter& output, bool keepsBreaks = false, ExprCode* code = nullptr,
               ColumnRule columns = {})
        : tokens_(tokens), output_(output), keepsBreaks_(keepsBreaks), columns_(columns), code_(code) {}

    /// Copies up to `offset`; nothing if it has been passed.
    void copyTo(std::size_t offset);
    void copyRest() { copyTo(tokens_.text().size()); }
    /// Passes over what lies in front of `offset` without writing it: white space only.
    void skipTo(std::size_t offset) { if (offset > at_) at_ = offset; }
    std::size_t offset() const { return at_; }

    /// True if the gap in front of token `index` may be replaced: it is white space, does not
    /// follow a line feed that a comment or a directive owns, and does not precede a directive.
    bool isReplaceable(std::size_t index) const;
    /// True if line breaks are kept, there is one in front of token `index`, and `ws` brings none.
    bool staysBroken(std::size_t index, std::string_view ws) const;
    /// True if columns are kept, and the white space in front of token `index` may line it up.
    bool staysInColumn(std::size_t index, std::string_view ws) const;
    /// What `ws` comes to in front of token `index`: one blank if without any the tokens would read
    /// as one.
    std::string_view safeValue(std::size_t index, std::string_view ws) const;
    /// Copies up to the gap in front of token `index`, and `ws` in the place of that gap if it may
    /// be replaced. `exact` keeps white space at the start of a line.
    void replaceGap(std::size_t index, std::string_view ws, bool exact);

    /// From here on up to the brace `close`, which has to start its line, every line that is copied
    /// keeps its distance from that brace, which goes to the writer's indent: statements in the middle
    /// of an expression keep their shape. Does nothing where the source owns the left edge, and
    /// inside braces that do so already.
    void keepShapeUpTo(std::size_t close);
    /// Inside such braces the indent is not for others to change.
    bool keepsShape() const { return shape_.end > at_; }

    /// The column of the line in which what the code at token `index` belongs to begins; below 0 if
    /// that is the code itself.
    int codeColumn(std::size_t index) const;

    /// The line that token `index` starts stands at the indent, wherever it stands in the source. Said
    /// before the token is copied, and in the order of the tokens.
    void anchorLine(std::size_t index) { anchors_.push_back(tokens_.begin(index)); }

    /// Copies up to the gap in front of a directive, and the gap and the directive by their rules.
    void copyDirective(std::size_t index, const DirectivePlace& place);
    /// Copies up to the token, and the token with its further lines moved along with its first one.
    void copyMoved(std::size_t index);
    /// The column at which the next token comes to stand.
    int column() const { return output_.nextColumn(); }

private:
    struct Shape {
        std::size_t end = 0; // offset of the closing brace; 0 outside
        int column = 0; // of that brace in the source
        std::string indent;
    };

    bool isSettled(std::size_t index, std::string_view ws) const;
    void copyTokens(std::size_t offset);
    void takeCode(const ExprTokens::CodePlace& place);
    int sourceColumn(std::size_t index) const;
    void copyAsItIs(std::size_t index, std::size_t offset);
    void copyPlain(std::size_t offset);
    void copyAnchored(std::size_t offset);
    void leaveShape();
    void indentLine(std::size_t lineBegin);

    const ExprTokens& tokens_;
    Zelmar::IndentWriter& output_;
    bool keepsBreaks_ = false;
    ColumnRule columns_;
    ExprCode* code_;
    std::size_t at_ = 0;
    std::size_t nextCode_ = 0;
    std::size_t nextMultiLine_ = 0;
    std::vector<std::size_t> anchors_; // offsets
    std::size_t nextAnchor_ = 0;
    Shape shape_;
};

} // namespace Norvane

#endif
