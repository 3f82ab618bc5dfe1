#include "src/format/Norvane_CppFormatter.h"

#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"

#include <algorithm>
#include <utility>

namespace Norvane {

namespace {

std::string withoutFeeds(std::string_view value) {
    std::string text(value);
    eraseChar(text, '\n');
    return text;
}

bool endsInFeed(std::string_view value) {
    return !value.empty() && value.back() == '\n';
}

/// The elements of a list in the order of the text. A comment inside a parameter may stand in front
/// of it in the tree; it is copied with the parameter then.
std::vector<Cpp::SyntaxNode*> elementsInOrder(Cpp::InteriorNode& list) {
    std::vector<Cpp::SyntaxNode*> elements;
    elements.reserve(list.size());
    for (auto it = list.childBegin(); it != list.childEnd(); ++it) elements.push_back(it->get());
    const auto isBefore = [](const auto* a, const auto* b) { return a->start() < b->start(); };
    std::stable_sort(elements.begin(), elements.end(), isBefore);
    Trn::Position reached;
    std::erase_if(elements, [&reached](const Cpp::SyntaxNode* element) {
        if (element->start() <= reached) return true;
        reached = std::max(reached, element->end());
        return false;
    });
    return elements;
}

} // namespace

// A body without braces takes its extent from its only child.
bool CppFormatter::hasBrace(const Cpp::InteriorNode& node) {
    if (node.empty()) return node.start() != node.end();
    return node.start() != node.child(0)->start();
}

void CppFormatter::writeChildren(Cpp::InteriorNode& node, const OptionalString& indent) {
    const Edge edge(*this, indent);
    const ChildScope scope(*this);
    const LineNote outer = std::exchange(lineNote_, LineNote());
    for (auto it = node.childBegin(); it != node.childEnd(); ++it) writeChild(node, it);
    lineNote_ = outer;
}

void CppFormatter::writeChild(Cpp::InteriorNode& node, Cpp::InteriorNode::iterator it) {
    // Only the declarators right behind a class body belong to it.
    if (afterClassBody_ && dynamic_cast<const Cpp::DataDeclNode*>(it->get()) == nullptr) {
        afterClassBody_ = false;
    }
    beginChild(**it);
    (*it)->accept(*this);
    endChild(**it);
    // Enumerators are told apart by commas.
    if (statementOpen_ && dynamic_cast<const Cpp::EnumBodyNode*>(&node) != nullptr) statementOpen_ = false;
    settleLineNote();
    if (!afterCaseLabel_) return;
    afterCaseLabel_ = false;
    if (const auto next = std::next(it); next != node.childEnd()) writeBehindLabel(**it, **next);
}

// The white space of the label is left to what follows where that has rules of its own: a directive
// stands on its own line, and the gap in front of a block belongs to its brace.
void CppFormatter::writeBehindLabel(const Cpp::SyntaxNode& label, const Cpp::SyntaxNode& next) {
    if (!options_.wsAfterCsCaseLabels.set || isDirective(next)) return;
    if (options_.globalWsBeforeOpenBrace.set && sourceChar(next.start()) == '{') return;
    std::string_view value = options_.wsAfterCsCaseLabels.value;
    if (hasLineFeed(value) && isOneLiner(label.start(), next.end())) {
        lineNote_ = {source_.offsetOf(label.start()), output_.line()};
        value = " ";
    }
    const std::string_view gap = readGapBefore(next, value);
    if (isBlank(gap) && staysBroken(gap, value)) {
        writeSource(gap);
    } else if (isBlank(gap)) {
        writeInPlace(splitGapEnd(gap, value).value, next);
    } else {
        output_.writeExact(value);
        writeSource(trimmedLeft(gap));
    }
}

// A child on its own line keeps the indentation of that line for itself, so that it can still
// decide about it.
std::string_view CppFormatter::readGapBefore(const Cpp::SyntaxNode& child, std::string_view value) {
    const Position start = child.start();
    return readUpTo(leavesIndent(child, value) ? Position{start.line, 1} : start);
}

bool CppFormatter::leavesIndent(const Cpp::SyntaxNode& child, std::string_view value) const {
    return (endsInFeed(value) || isDirective(child)) && startsLine(child.start());
}

void CppFormatter::writeInPlace(std::string_view value, const Cpp::SyntaxNode& child) {
    if (leavesIndent(child, value)) {
        output_.writeExact(value);
    } else {
        writeInPlace(value);
    }
}

void CppFormatter::writeBody(Cpp::InteriorNode& node, const BodyStyle& style) {
    const bool braced = hasBrace(node);
    const bool oneLine = isOneLiner(node);
    const bool isPending = pendingWs_.size() > pendingFloor_ && hasLineFeed(pendingWs_.back().value);
    const bool breaks = isPending || style.wsAfterOpen.breaksLine() || style.wsBeforeClose.breaksLine();
    writeBodyStart(node, style, braced);
    const OneLine line(*this, node.start(), oneLine && breaks);
    if (oneLine && braced) return writeBracedBody(node, {style.indent, withinBraces(style.wsAfterOpen), withinBraces(style.wsBeforeClose)});
    if (braced) return writeBracedBody(node, style);
    if (node.empty()) {
        const Edge edge(*this, style.indent);
        return copyThrough(node.end());
    }
    const ShapeScope shape(*this);
    writeChildren(node, style.indent);
    copyThrough(node.end());
}

void CppFormatter::writeBracedBody(Cpp::InteriorNode& node, const BodyStyle& style) {
    if (node.empty()) return writeEmptyBraces(node, style);
    copyThrough(node.start());
    const int column = closeColumn();
    const ShapeScope shape(*this);
    writeOpenBrace(node, style);
    writeChildren(node, style.indent);
    endShapes(node.end(), style.indent);
    writeCloseBrace(node, style, column);
}

void CppFormatter::writeBodyStart(const Cpp::InteriorNode& node, const BodyStyle& style, bool braced) {
    std::string_view value;
    if (!takePending(node.start(), value)) return;
    if (braced) {
        const std::string_view gap = readUpTo(node.start());
        if (gapIsInRegion_) return writeSource(gap);
        const GapEnd end = splitGapEnd(gap, onOneLine(value, gap, isOneLiner(node)));
        writeKept(end.kept, holdsLineComment(gap) ? style.indent : noWs());
        return writeAtBase(end.value, base());
    }
    const Cpp::SyntaxNode& first = node.empty() ? static_cast<const Cpp::SyntaxNode&>(node) : *node.child(0);
    value = onOneLine(value, input_.peekUpTo(first.start()), isOneLiner(node));
    const std::string_view gap = readGapBefore(first, value);
    const GapEnd end = splitGapEnd(gap, value);
    const ShapeScope shape(*this);
    const Edge edge(*this, style.indent);
    if (staysBroken(gap, value)) return writeSource(gap);
    writeSource(end.kept);
    writeInPlace(end.value, first);
}

void CppFormatter::writeKept(std::string_view text, const OptionalString& indent) {
    const Edge edge(*this, indent);
    writeSource(text);
}

void CppFormatter::writeOpenBrace(const Cpp::InteriorNode& node, const BodyStyle& style) {
    copyThrough(node.start());
    if (isInRegion(node.start()) || isHeadNote(node)) return;
    const Cpp::SyntaxNode& first = *node.child(0);
    const Edge edge(*this, style.indent);
    if (writeLooseStart(first.start(), style)) return;
    if (!style.wsAfterOpen.set) {
        // With an option of its own the child would add its white space to that of the source.
        if (!ownsGap(first)) writeSource(readUpTo(lineOrStart(first)));
        return;
    }
    std::string_view value = style.wsAfterOpen.value;
    if (isDirective(first) && startsLine(first.start())) {
        value = style.wsAfterOpen.breaksLine() ? throughLastFeed(value) : std::string_view("\n");
    }
    const std::string_view gap = readGapBefore(first, value);
    if (staysBroken(gap, value)) {
        writeSource(gap);
    } else if (!isBlank(gap)) {
        writeAfterOpen(gap, value);
    } else if (sourceOwnsEdge()) {
        writeInPlace(value, first);
    } else {
        output_.write(value);
    }
}

bool CppFormatter::ownsGap(const Cpp::SyntaxNode& child) const {
    if (options_.globalWsBeforeOpenBrace.set && sourceChar(child.start()) == '{') return true;
    return options_.wsBeforeAccessSpecs.set && dynamic_cast<const Cpp::AccessSpecNode*>(&child) != nullptr;
}

Trn::Position CppFormatter::lineOrStart(const Cpp::SyntaxNode& child) const {
    const Position start = child.start();
    return startsLine(start) ? Position{start.line, 1} : start;
}

void CppFormatter::writeAfterOpen(std::string_view gap, std::string_view value) {
    if (!startsInLineComment(gap)) {
        output_.write(value);
        return writeSource(trimmedLeft(gap));
    }
    std::string text(gap);
    replaceGapStart(text, hasLineFeed(value) ? value.substr(value.find('\n') + 1) : std::string_view());
    output_.write(text);
}

void CppFormatter::writeCloseBrace(const Cpp::InteriorNode& node, const BodyStyle& style, int column) {
    const std::string_view gap = readUpTo(node.end());
    if (style.wsBeforeClose.set && !staysBroken(gap, style.wsBeforeClose.value)) {
        const GapEnd end = splitGapEnd(gap, style.wsBeforeClose.value);
        writeKept(end.kept, style.indent);
        // A comment or a directive has ended the line already.
        if (output_.column() == 0) {
            writeAtBase(withoutFeeds(end.value), base());
        } else {
            writeAtBase(end.value, base());
        }
        column = base().column;
    } else {
        const std::size_t kept = trimmedRight(gap).size();
        writeKept(gap.substr(0, kept), style.indent);
        writeSource(gap.substr(kept));
    }
    if (keepsShape() && output_.column() == 0) return writeCloseBraceOnLine(node, column);
    copyThrough(node.end());
}

// Both values may break the line, but an empty pair takes one line feed only.
void CppFormatter::writeEmptyBraces(const Cpp::InteriorNode& node, const BodyStyle& style) {
    copyThrough(node.start());
    const int column = closeColumn();
    const ShapeScope shape(*this);
    const std::string_view gap = readUpTo(node.end());
    const bool oneLine = isOneLiner(node) && isBlank(gap);
    const OptionalString& after = oneLine ? noWs() : style.wsAfterOpen;
    const OptionalString& before = oneLine ? noWs() : style.wsBeforeClose;
    const bool stays = isBlank(gap) && staysBroken(gap, after.breaksLine() ? after.value : before.value);
    if ((!after.set && !before.set) || stays) {
        writeKept(gap, style.indent);
        if (keepsShape() && output_.column() == 0) return writeCloseBraceOnLine(node, column);
    } else if (isBlank(gap)) {
        std::string value = after.value;
        value += after.breaksLine() && before.breaksLine() ? withoutFeeds(before.value) : before.value;
        writeAtBase(value, base());
    } else {
        const Edge edge(*this, style.indent);
        const GapEnd end = before.set ? splitGapEnd(gap, before.value) : GapEnd{gap, {}};
        if (after.set) {
            writeAfterOpen(end.kept, after.value);
        } else {
            writeSource(end.kept);
        }
        writeAtBase(end.value, base());
    }
    copyThrough(node.end());
}

void CppFormatter::writeList(Cpp::InteriorNode& list, const ListStyle& style) {
    const std::vector<Cpp::SyntaxNode*> elements = elementsInOrder(list);
    if (elements.empty()) return;
    const bool oneLine = isOneLiner(list);
    const bool joined = std::exchange(joinsColon_, false);
    const bool breaks = joined || style.wsComma.breaksLine() || style.wsBetween.breaksLine();
    const OneLine line(*this, list.start(), oneLine && breaks, true);
    writeListOf(elements, {style.wsComma.breaksLine() && oneLine ? noWs() : style.wsComma,
                           onOneLine(style.wsBetween, oneLine), style.rows});
}

void CppFormatter::writeListOf(const std::vector<Cpp::SyntaxNode*>& elements, const ListStyle& style) {
    const bool breaks = style.wsComma.breaksLine() || style.wsBetween.breaksLine();
    if (!breaks && !style.rows) return writeElementsOf(elements, style);
    const Base first = beginAt(elements.front()->start());
    const std::string indent = breaks ? baseIndent(first) : output_.columnIndent(first.column);
    const Edge edge(*this, indent, false);
    writeElementsOf(elements, style);
}

void CppFormatter::writeElementsOf(const std::vector<Cpp::SyntaxNode*>& elements, const ListStyle& style) {
    for (std::size_t i = 0; i < elements.size(); ++i) {
        elements[i]->accept(*this);
        if (i + 1 < elements.size()) writeListGap(*elements[i], *elements[i + 1], style);
    }
}

void CppFormatter::writeListGap(const Cpp::SyntaxNode& element, const Cpp::SyntaxNode& next,
                                const ListStyle& style) {
    const bool directive = isDirective(next);
    const OptionalString* between = &style.wsBetween;
    if (between->breaksLine()) {
        if (isLineComment(element) || isLineComment(next) || directive) between = &noWs();
    } else if (directive && between->set) {
        between = &lineFeedWs();
    }
    const std::string_view gap = readUpTo(directive ? lineOrStart(next) : next.start());
    if (options_.keepLineBreaks || style.rows) return writeKeptListGap(gap, {style.wsComma, *between, style.rows});
    if (!style.wsComma.set && !between->set) return writeSource(gap);
    if (!style.wsComma.breaksLine() && gap.find_first_of("/#%\"'(<[{\\") == std::string_view::npos) {
        return writePlainListGap(gap, {style.wsComma, *between});
    }
    std::string text(gap);
    if (between->breaksLine() && holdsLineComment(gap)) trimGapRight(text);
    const Zelmar::IndentStreamState state = output_.state();
    output_.writeRaw(exprFormatter_.formatAlignedList(text, Cpp::tkComma, style.wsComma, *between, state));
}

// A gap without a comma lies beside a comment and stays.
void CppFormatter::writePlainListGap(std::string_view gap, const ListStyle& style) {
    const std::size_t comma = gap.find(',');
    if (comma == std::string_view::npos) return writeSource(gap);
    if (style.wsComma.set) {
        output_.write(trimmedRight(gap.substr(0, comma)));
        output_.writeExact(style.wsComma.value);
    } else {
        output_.write(gap.substr(0, comma));
    }
    output_.put(',');
    const std::string_view behind = gap.substr(comma + 1);
    if (style.wsBetween.set && isBlank(behind)) {
        output_.writeExact(style.wsBetween.value);
    } else {
        output_.write(behind);
    }
}

// A gap that may hold comments, and goes on in the lines that it has.
void CppFormatter::writeKeptListGap(std::string_view gap, const ListStyle& style) {
    const std::size_t comma = findToken(gap, Cpp::tkComma);
    if (comma == std::string_view::npos) {
        writeSource(gap);
        // Behind a comment too the line of a row is not the author's.
        if (style.rows && output_.column() == 0) output_.setShape(output_.shape());
        return;
    }
    const std::string_view front = gap.substr(0, comma);
    const bool mayReplace = output_.column() != 0 && isBlank(front);
    const bool replacesFront = style.wsComma.set && mayReplace && !staysBroken(front, style.wsComma.value);
    if (replacesFront) {
        output_.writeExact(style.wsComma.value);
    } else {
        writeSource(front);
    }
    output_.put(',');
    const std::string_view behind = gap.substr(comma + 1);
    const bool replaces = style.wsBetween.set && isBlank(behind);
    if (style.rows && isBlank(behind) && hasLineFeed(behind)) {
        output_.writeExact(throughLastFeed(behind));
    } else if (replaces && !staysBroken(behind, style.wsBetween.value) && !staysInColumn(behind, style.wsBetween.value)) {
        output_.writeExact(style.wsBetween.value);
    } else {
        writeSource(behind);
    }
}

} // namespace Norvane
