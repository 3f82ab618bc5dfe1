#include "src/wrap/Norvane_CppLineWrapper.h"

#include "cpp/Cpp_Tokens.h"
#include "src/wrap/Norvane_CppLineWrapper_Scope.h"

namespace Norvane {

namespace {

int keywordOf(const Cpp::CtrlSubStmtNode& node) {
    const Cpp::CtrlSubStmtHeadNode* head = node.head();
    return head != nullptr && head->keyword() != nullptr ? head->keyword()->keyword() : Cpp::tkEnd;
}

// True for an "else" whose body is nothing but an "if": the two are one step of a chain.
bool isElseIf(const Cpp::CtrlSubStmtNode& node) {
    const Cpp::BlockNode* block = node.block();
    if (keywordOf(node) != Cpp::tkElse || block == nullptr || block->size() != 1) return false;
    const auto* statement = dynamic_cast<const Cpp::CtrlStmtNode*>(block->child(0));
    if (statement == nullptr || statement->empty()) return false;
    const auto* first = dynamic_cast<const Cpp::CtrlSubStmtNode*>(statement->child(0));
    return first != nullptr && keywordOf(*first) == Cpp::tkIf && first->start() == block->start();
}

} // namespace

void CppLineWrapper::visit(Cpp::BlockNode& node) {
    copyUpTo(node.start());
    const ColumnScope scope(*this, output_.indentWidth());
    writeBody(node, rules().blockIndent);
}

void CppLineWrapper::visit(Cpp::CtrlStmtNode& node) {
    if (!overMargin(node)) return copyNode(node);
    const ColumnScope scope(*this, copyUpToStart(node));
    visitChildren(node);
    copyNode(node);
}

void CppLineWrapper::visit(Cpp::CtrlSubStmtNode& node) {
    if (!overMargin(node)) return copyNode(node);
    if (node.head() != nullptr) node.head()->accept(*this);
    if (node.block() == nullptr) return;
    if (isElseIf(node)) return visitElseIf(*node.block());
    writeBody(*node.block(), keywordOf(node) == Cpp::tkSwitch ? rules().caseIndent : rules().controlIndent);
}

// The whole of a chain stands at the column of its first "if".
void CppLineWrapper::visitElseIf(Cpp::BlockNode& block) {
    auto& statement = static_cast<Cpp::CtrlStmtNode&>(*block.child(0));
    if (!overMargin(statement)) return copyNode(statement);
    copyUpTo(statement.start());
    const ColumnScope scope(*this, baseColumn());
    visitChildren(statement);
    copyNode(block);
}

void CppLineWrapper::visit(Cpp::CtrlSubStmtHeadNode& node) {
    if (!overMargin(node)) return copyNode(node);
    if (wrapCodeIn(node)) return;
    if (node.keyword() != nullptr) copyNode(*node.keyword());
    const bool isFor = node.keyword() != nullptr && node.keyword()->keyword() == Cpp::tkFor;
    if (node.condition() != nullptr && overMargin(*node.condition())) wrapCondition(*node.condition(), isFor);
    copyNode(node);
}

// The extent of a condition includes its parentheses; what is broken lies between them.
void CppLineWrapper::wrapCondition(const Cpp::ExprNode& condition, bool hasParts) {
    copyUpTo(condition.start());
    copyThrough(condition.start());
    const std::string text(reader_.readUpTo(condition.end()));
    const Zelmar::IndentStreamState place = stateWith(indentFor(baseColumn()));
    const auto wrap = [this, &place, hasParts](const std::string& joined) {
        return hasParts ? exprWrapper_.wrapStatementParts(joined, place, follower())
                        : exprWrapper_.wrap(joined, place, false, false, follower());
    };
    writeSettled(text, wrap, [this, hasParts](const std::string& wrapped) {
        return layOutCondition(wrapped, hasParts);
    });
}

// With an option for what is next to its parentheses a condition is laid out from behind the first.
std::string CppLineWrapper::layOutCondition(const std::string& text, bool hasParts) {
    const bool hasClauses = hasParts && rules().betweenClauses.set;
    const bool isPlaced = hasClauses || rules().conditionParens.isSet();
    Zelmar::IndentStreamState place = stateWith(isPlaced ? indentFor(output_.column()) : std::string());
    place.keepLeadingWs = !isPlaced;
    const std::string laidOut = exprFormatter_.format(text, place);
    if (!hasClauses) return laidOut;
    return exprWrapper_.formatList(laidOut, Cpp::tkSemicolon, OptionalString(), rules().betweenClauses, place);
}

} // namespace Norvane
