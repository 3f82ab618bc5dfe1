#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"

namespace Norvane {

void CppFormatter::visit(Cpp::NamespaceDeclNode& node) {
    beginDeclaration(node);
    const PendingScope pending(*this);
    if (node.head() == nullptr) {
        if (node.body() != nullptr) node.body()->accept(*this);
        return;
    }
    const BaseScope scope(*this, constructAt(node.head()->start()));
    node.head()->accept(*this);
    if (node.body() == nullptr) return;
    pushPending(options_.wsBeforeNsOpenBrace);
    node.body()->accept(*this);
}

void CppFormatter::visit(Cpp::NamespaceBodyNode& node) {
    writeBody(node, {options_.indentNsContent, options_.wsAfterNsOpenBrace, options_.wsBeforeNsCloseBrace});
}

// Linkage blocks have no options of their own and follow those of free blocks.
void CppFormatter::visit(Cpp::LinkageBlockNode& node) {
    Base column = base();
    const PendingScope pending(*this);
    if (node.linkage() != nullptr) {
        column = constructAt(node.linkage()->start());
        node.linkage()->accept(*this);
        if (node.body() != nullptr) pushPending(options_.globalWsBeforeOpenBrace);
    }
    const BaseScope scope(*this, column);
    if (node.body() != nullptr) node.body()->accept(*this);
}

void CppFormatter::visit(Cpp::LinkageBlockBodyNode& node) {
    beginDeclaration(node);
    writeBody(node, {options_.globalIndentContent, options_.globalWsAfterOpenBrace, options_.globalWsBeforeCloseBrace});
}

// The column stays on the stack, with no scope, for the declaration that the head belongs to. The
// heads of a member template stand in a row: the first one tells where the declaration begins.
void CppFormatter::visit(Cpp::TemplateNode& node) {
    beginDeclaration(node);
    Base column;
    const bool inRow = takeTemplateBase(node.start(), column);
    const Base here = constructAt(node.start());
    baseColumns_.push_back(inRow ? column : here);
    if (node.params() != nullptr) {
        copyThrough(node.keyword() != nullptr ? node.keyword()->end() : node.start());
        writeTemplateParams(*node.params());
    }
    copyThrough(node.end());
    templateColumnPending_ = true;
    templateBases_ = baseColumns_.size();
    templateEnd_ = input_.offset();
    if (options_.wsAfterTpCloseBracket.set) {
        pendingWs_.push_back({options_.wsAfterTpCloseBracket.value, templateEnd_});
    }
}

void CppFormatter::writeTemplateParams(Cpp::ParameterListNode& list) {
    const std::string_view gap = readUpTo(list.start());
    if (options_.wsBeforeTpOpenBracket.set) {
        writeGapEnd(gap, options_.wsBeforeTpOpenBracket.value, base());
    } else {
        writeSource(gap);
    }
    copyThrough(list.start());
    const OptionalString& after = options_.wsAfterTpOpenBracket;
    const bool closesUp = list.empty() && (after.set || options_.wsBeforeTpCloseBracket.set);
    if (closesUp) {
        writeGapEnd(readUpTo(list.end()), {}, base());
    } else if (!list.empty()) {
        const Position first = list.child(0)->start();
        // Two of them would read as a shift.
        const bool touches = after.value.empty() && sourceChar(first) == '<';
        const std::string_view value = touches ? std::string_view(" ") : after.value;
        if (after.set) {
            writeGapEnd(readUpTo(first), value, base());
        } else {
            copyUpTo(first);
        }
    }
    writeList(list, {options_.wsBeforeTpComma, options_.wsBetweenTpParams,
                     options_.alignTpParamsLeft && options_.keepLineBreaks});
    if (!list.empty()) writeTemplateClose(list);
}

void CppFormatter::writeTemplateClose(const Cpp::ParameterListNode& list) {
    const std::string_view gap = readUpTo(list.end());
    const OptionalString& option = options_.wsBeforeTpCloseBracket;
    if (!option.set || staysBroken(gap, option.value)) return exprFormatter_.formatDeclarationTo(gap, output_, options_.wsAfterParamTypeId);
    const std::string_view text = output_.text();
    const bool behindClose = !text.empty() && text.back() == '>';
    // The two are one token of the source.
    if (behindClose && gap.empty()) return;
    const bool touches = option.value.empty() && behindClose;
    writeGapEnd(gap, touches ? std::string_view(" ") : option.value, base());
}

namespace {

/// Whether each line of `text` may move: none is a directive or a part of a literal.
bool mayMoveLines(std::string_view text) {
    Cpp::Scanner scanner(text);
    for (Cpp::RawToken token; scanner.next(token);) {
        const bool literal = token.type == Cpp::tkStringLiteral;
        if (token.type == Cpp::tkDirective) return false;
        if (literal && hasLineFeed(text.substr(token.begin, token.end - token.begin))) return false;
    }
    return true;
}

} // namespace

// Operands in lines of their own keep their distance from the first line, as the rows of a table do:
// no option speaks of them.
void CppFormatter::copyAssembler(const Position& start, const Position& end) {
    copyUpTo(start);
    const std::string_view text = input_.peekUpTo(end);
    if (sourceOwnsEdge() || !hasLineFeed(text) || !mayMoveLines(text)) return copyThrough(end);
    exprFormatter_.formatMultiLineToken(start, end, input_, output_);
}

void CppFormatter::visit(Cpp::AsmNode& node) {
    Cpp::TextNode* head = node.text();
    Cpp::BlockNode* body = node.block();
    if (node.form() != Cpp::AsmNode::kBraced) {
        if (head != nullptr && body == nullptr) copyNode(*head);
        if (body != nullptr) copyAssembler(node.start(), body->end());
        return;
    }
    Base column = base();
    if (head != nullptr) {
        column = constructAt(head->start());
        copyThrough(head->end());
    }
    const BaseScope scope(*this, column);
    if (body != nullptr) body->accept(*this);
}

} // namespace Norvane
