#include "src/format/Norvane_CppFormatter.h"

#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"

#include <cstdint>

namespace Norvane {

void CppFormatter::visit(Cpp::EnumDeclNode& node) {
    beginDeclaration(node);
    Base column = base();
    const PendingScope pending(*this);
    if (node.head() != nullptr) {
        column = constructAt(node.head()->start());
        node.head()->accept(*this);
        if (node.body() != nullptr) pushPending(options_.wsBeforeEnumOpenBrace);
    }
    const BaseScope scope(*this, column);
    if (node.body() != nullptr) node.body()->accept(*this);
}

void CppFormatter::visit(Cpp::EnumBodyNode& node) {
    const BodyStyle style{options_.indentEnumContent, options_.wsAfterEnumOpenBrace, options_.wsBeforeEnumCloseBrace};
    const bool isList = options_.wsBeforeEnumComma.set || options_.wsBetweenEnumElements.set || options_.alignEnumInitializers;
    if (node.empty() || !hasBrace(node)) return writeBody(node, style);
    if (ownsRows(node, style)) return writeShapedEnum(node, style);
    if (!isList) return writeBody(node, style);
    writeBodyStart(node, style, true);
    copyThrough(node.start());
    const bool oneLine = isOneLiner(node);
    const OneLine line(*this, node.start(), oneLine);
    const BodyStyle used{style.indent, oneLine ? withinBraces(style.wsAfterOpen) : style.wsAfterOpen,
                         oneLine ? withinBraces(style.wsBeforeClose) : style.wsBeforeClose};
    const int column = closeColumn();
    const ShapeScope shape(*this);
    writeOpenBrace(node, used);
    writeElements(node, style.indent);
    writeCloseBrace(node, used, column);
}

// Elements that begin on the line of the brace have the shape that the author gave them.
bool CppFormatter::ownsRows(const Cpp::EnumBodyNode& node, const BodyStyle& style) const {
    if (!keepsShape() || style.wsAfterOpen.breaksLine() || node.start().line == node.end().line) return false;
    if (options_.wsBeforeEnumComma.breaksLine() || options_.wsBetweenEnumElements.breaksLine()) return false;
    return !isNote(*node.child(0)) && node.child(0)->start().line == node.start().line;
}

void CppFormatter::writeShapedEnum(const Cpp::EnumBodyNode& node, const BodyStyle& style) {
    writeBodyStart(node, style, true);
    writeOpenBrace(node, style);
    writeElements(node, noWs());
    writeCloseBrace(node, {noWs(), style.wsAfterOpen, style.wsBeforeClose}, base().column);
}

// A value between the elements that breaks no line joins those that no line comment and no directive
// keeps apart.
bool CppFormatter::onSeparateLines(const Cpp::EnumBodyNode& node) const {
    if (options_.wsBeforeEnumComma.breaksLine() || options_.wsBetweenEnumElements.breaksLine()) return true;
    std::uint32_t last = 0;
    bool endsLine = true;
    for (auto it = node.childBegin(); it != node.childEnd(); ++it) {
        const std::uint32_t line = (*it)->start().line;
        const bool isLineNote = isLineComment(**it) || isDirective(**it);
        const bool joined = options_.wsBetweenEnumElements.set && !endsLine && !isLineNote;
        if (line == last || joined) return false;
        last = line;
        endsLine = isLineNote;
    }
    return true;
}

// The elements are laid out as one text, commas and comments included.
void CppFormatter::writeElements(const Cpp::EnumBodyNode& node, const OptionalString& contentIndent) {
    const Edge edge(*this, contentIndent);
    const Cpp::SyntaxNode& last = *node.child(node.size() - 1);
    const bool oneLine = isOneLiner(node.child(0)->start(), last.end());
    const bool breaks = options_.wsBeforeEnumComma.breaksLine() || options_.wsBetweenEnumElements.breaksLine();
    const OneLine line(*this, node.child(0)->start(), oneLine && breaks, true);
    const OptionalString& comma = onOneLine(options_.wsBeforeEnumComma, oneLine);
    const OptionalString& between = onOneLine(options_.wsBetweenEnumElements, oneLine);
    std::string text(readThrough(last.end()));
    Zelmar::IndentStreamState state = output_.state();
    if (sourceOwnsEdge() && (comma.breaksLine() || between.breaksLine())) {
        // The lines to come get the indentation of the first one.
        state.keepLeadingWs = false;
        const std::size_t indent = text.size() - trimmedLeft(text).size();
        state.indent = output_.column() == 0 ? text.substr(0, indent) : baseIndent(baseHere());
    }
    text = exprFormatter_.format(text, state);
    if (comma.set || between.set) text = exprFormatter_.formatAlignedList(text, Cpp::tkComma, comma, between, state);
    // A comma behind the last element has brought the white space of one more.
    trimGapRight(text);
    if (options_.alignEnumInitializers && node.size() > 1 && onSeparateLines(node)) {
        text = exprFormatter_.alignAssignments(text, state);
    }
    output_.writeRaw(text);
}

} // namespace Norvane
