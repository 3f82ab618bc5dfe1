#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "streams/Zelmar_Columns.h"

#include <utility>

namespace Norvane {

namespace {

bool isLabel(const Cpp::SyntaxNode& node) {
    return dynamic_cast<const Cpp::CaseNode*>(&node) != nullptr || dynamic_cast<const Cpp::AccessSpecNode*>(&node) != nullptr;
}

/// Behind a text that ends so another statement begins.
bool endsStatement(std::string_view text) {
    const char last = text.back();
    if (text.ends_with("<%") || text.ends_with("%>")) return true;
    return last == ';' || last == '{' || last == '}' || last == ':';
}

/// The first statement of a gap: text that no node covers, through the semicolon that ends it.
struct LooseStatement {
    std::size_t begin = std::string_view::npos;
    std::size_t end = std::string_view::npos;
};

LooseStatement findLooseStatement(std::string_view gap) {
    LooseStatement found;
    int depth = 0;
    Cpp::Scanner scanner(gap);
    for (Cpp::RawToken token; scanner.next(token);) {
        if (Cpp::isCommentOrDirective(token.type)) continue;
        if (found.begin == std::string_view::npos) found.begin = token.begin;
        found.end = token.end;
        depth += bracketStep(token.type);
        if (token.type == Cpp::tkSemicolon && depth == 0) break;
    }
    return found;
}

} // namespace

// A statement that goes on in further lines was given a shape by its author. Its first character goes
// where the rules put it, and its further lines go along: the writer moves each by as many columns as
// that character was moved.

// Up to the first character of a statement the gap in front is written, whose lines are nobody's. What
// goes on with the statement in front, behind a directive or as the lines of a message map, keeps its
// distance from that one. Labels have columns of their own.
void CppFormatter::beginChild(const Cpp::SyntaxNode& child) {
    if (!ownsShape()) return;
    copyLooseStatements(child.start());
    if (!statementOpen_ || isLabel(child)) armShape(child);
}

void CppFormatter::endChild(const Cpp::SyntaxNode& child) {
    if (!ownsShape() || isNote(child) || input_.offset() == 0) return;
    statementOpen_ = !endsStatement(sourceText().substr(0, input_.offset()));
}

void CppFormatter::armShape(const Cpp::SyntaxNode& node) {
    if (!ownsShape()) return;
    output_.setShape({});
    shapeStart_ = source_.offsetOf(node.start());
}

// What is read in front of the first character of the statement has been written by now.
void CppFormatter::beginRead() {
    if (input_.offset() == shapeStart_) beginShape();
}

// A gap can hold statements without a node, such as "using", and the end of the one in front of it.
void CppFormatter::copyLooseStatements(const Position& end) {
    for (;;) {
        std::string_view gap = input_.peekUpTo(end);
        // The first half of a brace that is spelled with two characters.
        const bool splitsBrace = gap.ends_with('%') && sourceFrom(end).starts_with('>');
        if (splitsBrace) gap.remove_suffix(1);
        if (gap.find_first_not_of(" \t\n") == std::string_view::npos) return;
        const LooseStatement found = findLooseStatement(gap);
        if (found.begin == std::string_view::npos) return;
        const std::size_t begin = offsetIn(gap);
        if (!statementOpen_) {
            output_.setShape({});
            shapeStart_ = begin + found.begin;
        }
        copyUpTo(source_.positionOf(begin + found.begin));
        copyUpTo(source_.positionOf(begin + found.end));
        statementOpen_ = !endsStatement(gap.substr(0, found.end));
        if (gapIsInRegion_ || input_.offset() <= begin) return;
    }
}

// Behind the last child of a list.
void CppFormatter::endShapes(const Position& end, const OptionalString& indent) {
    if (!ownsShape()) return;
    const Edge edge(*this, indent);
    copyLooseStatements(end);
    output_.setShape({});
    statementOpen_ = false;
}

// A body can begin with a statement that has no node.
bool CppFormatter::writeLooseStart(const Position& first, const BodyStyle& style) {
    if (!ownsShape()) return false;
    const std::string_view gap = input_.peekUpTo(first);
    if (isBlank(gap)) return false;
    const LooseStatement found = findLooseStatement(gap);
    if (found.begin == std::string_view::npos) return false;
    const std::string_view front = readUpTo(source_.positionOf(offsetIn(gap) + found.begin));
    if (!style.wsAfterOpen.set || gapIsInRegion_) {
        writeSource(front);
    } else if (isBlank(front)) {
        writeInPlace(style.wsAfterOpen.value);
    } else {
        writeAfterOpen(front, style.wsAfterOpen.value);
    }
    shapeStart_ = input_.offset();
    return true;
}

void CppFormatter::beginShape() {
    const std::size_t start = std::exchange(shapeStart_, std::string_view::npos);
    if (sourceOwnsEdge()) return;
    const int column = output_.column() == 0 ? output_.indentWidth() : output_.column();
    // Behind a statement of several lines the line is one of that statement.
    const bool sharesLine = !isOutputLineBlank() && statementLine_ > 0 && statementLine_ < output_.line();
    if (!sharesLine) statementColumn_ = output_.lineIndent();
    statementLine_ = output_.line();
    output_.setShape({true, column - sourceColumn(start)});
}

// Statements that share a line are asked for in their order: each is counted on from the one before.
int CppFormatter::sourceColumn(std::size_t offset) {
    const std::size_t lineBegin = source_.lineStart(source_.positionOf(offset).line);
    if (columnOffset_ < lineBegin || columnOffset_ > offset) {
        columnOffset_ = lineBegin;
        columnThere_ = 0;
    }
    const std::string_view between = sourceText().substr(columnOffset_, offset - columnOffset_);
    columnThere_ = Zelmar::textColumn(between, columnThere_, output_.tabSize());
    columnOffset_ = offset;
    return columnThere_;
}

// What goes on with a statement in its line, as a block behind a macro does, stands by the line in which
// the statement begins.
CppFormatter::Base CppFormatter::constructHere() {
    if (!keepsShape()) return baseHere();
    beginRead();
    Base base = lineBase();
    if (statementLine_ > 0 && !isOutputLineBlank()) base.column = statementColumn_;
    return base;
}

CppFormatter::Base CppFormatter::constructAt(const Position& position) {
    copyUpTo(position);
    return constructHere();
}

// Asked behind an opening brace: a brace on a line of its own has its partner below it, any other
// one the start of the construct.
int CppFormatter::closeColumn() const {
    const int brace = output_.column() - 1;
    return output_.lineIndent() == brace ? brace : base().column;
}

// A comment that ends the line of the opening brace speaks of what stands in front of it.
bool CppFormatter::isHeadNote(const Cpp::InteriorNode& body) const {
    const Cpp::SyntaxNode& first = *body.child(0);
    if (!ownsShape() || sourceChar(first.start()) != '/' || first.start().line != body.start().line) return false;
    if (isLineComment(first)) return true;
    const std::string_view behind = sourceFrom(first.end()).substr(1);
    return isBlank(behind.substr(0, behind.find('\n')));
}

// A closing brace that starts its line and that no value places.
void CppFormatter::writeCloseBraceOnLine(const Cpp::InteriorNode& node, int column) {
    const Edge edge(*this, output_.makeIndent(column), false);
    output_.setShape({});
    copyThrough(node.end());
}

} // namespace Norvane
