#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"

#include <utility>

namespace Norvane {

namespace {

/// Offset of the last colon of `gap` outside brackets, or npos. Further in front may stand the tail
/// of a head with colons of its own.
std::size_t findColon(std::string_view gap) {
    Cpp::Scanner scanner(gap);
    int depth = 0;
    std::size_t colon = std::string_view::npos;
    for (Cpp::RawToken token; scanner.next(token);) {
        depth += bracketStep(token.type);
        if (token.type == Cpp::tkColon && depth == 0) colon = token.begin;
    }
    return colon;
}

} // namespace

void CppFormatter::visit(Cpp::ClassDeclNode& node) {
    beginDeclaration(node);
    Base column = base();
    const bool hadTemplate = takeTemplateBase(node.start(), column);
    const PendingScope pending(*this);
    if (Cpp::ClassHeadNode* head = node.head()) {
        if (!hadTemplate) column = constructAt(head->start());
        head->accept(*this);
    }
    Cpp::ClassBodyNode* body = node.body();
    if (body == nullptr) return;
    if (node.head() != nullptr) pushPending(options_.wsBeforeClassOpenBrace);
    const BaseScope scope(*this, column);
    body->accept(*this);
    afterClassBody_ = endsWithBody(node);
}

// Then the declarators of the class follow as a declaration of their own.
bool CppFormatter::endsWithBody(const Cpp::ClassDeclNode& node) const {
    const Cpp::ClassBodyNode& body = *node.body();
    return !body.empty() && hasBrace(body) && node.end() == body.end();
}

void CppFormatter::visit(Cpp::ClassHeadNode& node) {
    const PendingScope pending(*this);
    if (node.name() != nullptr) {
        node.name()->accept(*this);
        if (node.bases() != nullptr) pushPending(options_.wsAfterClassName);
    }
    if (node.bases() != nullptr) node.bases()->accept(*this);
}

void CppFormatter::visit(Cpp::BaseClauseListNode& node) {
    OptionalString wsBefore;
    std::string_view value;
    if (takePending(node.start(), value)) wsBefore = {true, std::string(value)};
    writeColonOf(node, wsBefore, options_.wsBeforeBaseClauses);
    const bool aligned = options_.alignBaseClausesLeft;
    writeList(node, {options_.wsBeforeBaseClausesComma,
                     aligned && !options_.keepLineBreaks ? lineFeedWs() : options_.wsBetweenBaseClauses,
                     aligned && options_.keepLineBreaks});
}

void CppFormatter::writeColonOf(const Cpp::InteriorNode& list, const OptionalString& wsBefore,
                                const OptionalString& wsAfter) {
    const std::string_view gap = readUpTo(list.start());
    const bool oneLine = isOneLiner(list) && !hasLineFeed(gap);
    joinsColon_ = oneLine && (wsBefore.breaksLine() || wsAfter.breaksLine());
    writeColon(gap, onOneLine(wsBefore, oneLine), onOneLine(wsAfter, oneLine), base());
}

// The colon in front of a list is no node: it lies in the gap.
void CppFormatter::writeColon(std::string_view gap, const OptionalString& wsBefore, const OptionalString& wsAfter,
                              const Base& base) {
    const std::size_t colon = wsBefore.set || wsAfter.set ? findColon(gap) : std::string_view::npos;
    if (colon == std::string_view::npos) return writeSource(gap);
    const std::string_view front = gap.substr(0, colon);
    if (wsBefore.set) {
        writeFrontEnd(front, wsBefore.value, base);
    } else {
        writeSource(front);
    }
    output_.put(':');
    const std::string_view behind = gap.substr(colon + 1);
    if (wsAfter.set) {
        writeGapEnd(behind, wsAfter.value, base);
    } else {
        writeSource(behind);
    }
}

// Its right neighbour is the colon, which no value glues to anything but another colon.
void CppFormatter::writeFrontEnd(std::string_view front, const std::string& value, const Base& base) {
    if (staysBroken(front, value)) return writeSource(front);
    if (!endsInLineComment(front)) {
        writeSource(trimmedRight(front));
        return writeAtBase(value, base);
    }
    const bool joined = trimmedRight(front).ends_with('\\');
    const bool breaks = hasLineFeed(value) && !joined;
    writeSource(breaks ? trimmedRight(front) : front);
    writeAtBase(breaks ? std::string_view(value) : std::string_view(), base);
}

void CppFormatter::visit(Cpp::BaseClauseNode& node) {
    copyUpTo(node.start());
    exprFormatter_.formatDeclarationTo(readThrough(node.end()), output_, options_.wsAfterParamTypeId);
}

// A comment in front of the brace belongs to the head, and stays at its indentation.
void CppFormatter::visit(Cpp::ClassBodyNode& node) {
    beginDeclaration(node);
    const bool outer = std::exchange(inClassBody_, true);
    writeBody(node, {options_.indentClassContent, options_.wsAfterClassOpenBrace, options_.wsBeforeClassCloseBrace});
    inClassBody_ = outer;
}

void CppFormatter::visit(Cpp::AccessSpecNode& node) {
    const std::string_view gap = readUpTo(node.start());
    std::string_view sourceIndent = gap.substr(gap.rfind('\n') + 1);
    if (options_.wsBeforeAccessSpecs.set && !staysBroken(gap, options_.wsBeforeAccessSpecs.value)) {
        const bool onNewLine = output_.column() == 0 || hasLineFeed(gap);
        const GapEnd end = splitGapEnd(gap, options_.wsBeforeAccessSpecs.value);
        writeSource(end.kept);
        if (!onNewLine && sourceOwnsEdge()) {
            writeAtBase(end.value, scopeBase());
        } else {
            output_.writeExact(end.value);
        }
        if (!onNewLine) sourceIndent = {};
    } else {
        writeSource(gap.substr(0, gap.size() - sourceIndent.size()));
    }
    writeAccessLabel(readThrough(node.end()), sourceIndent);
}

// A label stands out of the members around it: its indent counts from the class.
void CppFormatter::writeAccessLabel(std::string_view label, std::string_view sourceIndent) {
    const OptionalString& spec = options_.indentAccessSpecLabel;
    if (output_.column() != 0) {
        if (!options_.wsBeforeAccessSpecs.set) output_.write(sourceIndent);
        return writeSource(label);
    }
    if (!spec.set && sourceOwnsEdge()) {
        output_.write(sourceIndent);
        return writeSource(label);
    }
    const Edge edge(*this, spec.set ? baseIndent(scopeBase()) + spec.value : baseIndent(scopeBase()), false);
    writeSource(label);
}

void CppFormatter::visit(Cpp::InitializerListNode& node) {
    OptionalString wsBefore;
    std::string_view value;
    if (takePending(node.start(), value)) wsBefore = {true, std::string(value)};
    writeColonOf(node, wsBefore, options_.wsBeforeClassInits);
    writeList(node, {options_.wsBeforeClassInitsComma, options_.wsBetweenClassInits});
}

void CppFormatter::visit(Cpp::InitializerNode& node) {
    copyUpTo(node.start());
    exprFormatter_.formatDeclarationTo(readThrough(node.end()), output_, noWs());
}

} // namespace Norvane
