#include "cpp/Cpp_NodeRangeRemover.h"

#include "cpp/Cpp_Nodes.h"

#include <algorithm>

namespace Cpp {

NodeRangeRemover::NodeRangeRemover(const SyntaxNode* first, const SyntaxNode* last) : lastOf_{{first, last}} {}

NodeRangeRemover::NodeRangeRemover(const std::vector<Range>& ranges) {
    for (const Range& range : ranges) lastOf_.emplace(range.first, range.last);
}

/// Tells whether `node` is to go. To be asked once for each node, children first.
bool NodeRangeRemover::check(const SyntaxNode& node) {
    if (removing_) removing_ = &node != last_;
    if (removing_) return true;
    const auto range = lastOf_.find(&node);
    if (range == lastOf_.end()) return false;
    last_ = range->second;
    removing_ = true;
    return true;
}

/// Goes through a named child, and tells whether its parent is to drop it.
bool NodeRangeRemover::checkChild(SyntaxNode* child) {
    if (child == nullptr) return false;
    // Lists that have no visit of their own would be passed over.
    if (auto* list = dynamic_cast<InteriorNode*>(child)) {
        removeFrom(*list);
    } else {
        child->accept(*this);
    }
    return removing_;
}

void NodeRangeRemover::removeChildren(InteriorNode& node) {
    for (auto child = node.childBegin(); child != node.childEnd(); ++child) {
        (*child)->accept(*this);
        if (removing_) child->reset();
    }
    const auto isGone = [](const auto& child) { return child == nullptr; };
    node.erase(std::remove_if(node.childBegin(), node.childEnd(), isGone), node.childEnd());
}

void NodeRangeRemover::removeFrom(InteriorNode& node) {
    removeChildren(node);
    check(node);
}

void NodeRangeRemover::visit(AsmNode& node) {
    if (checkChild(node.text())) node.setText(nullptr);
    if (checkChild(node.block())) node.setBlock(nullptr);
    check(node);
}

void NodeRangeRemover::visit(LabelNode& node) {
    if (checkChild(node.name())) node.setName(nullptr);
    check(node);
}

void NodeRangeRemover::visit(FunctionPtrDeclNode& node) {
    if (checkChild(node.returnType())) node.setReturnType(nullptr);
    if (checkChild(node.name())) node.setName(nullptr);
    if (checkChild(node.suffix())) node.setSuffix(nullptr);
    if (checkChild(node.params())) node.setParams(nullptr);
    check(node);
}

void NodeRangeRemover::visit(LinkageBlockNode& node) {
    if (checkChild(node.linkage())) node.setLinkage(nullptr);
    if (checkChild(node.body())) node.setBody(nullptr);
    check(node);
}

void NodeRangeRemover::visit(EnumDeclNode& node) {
    if (checkChild(node.head())) node.setHead(nullptr);
    if (checkChild(node.body())) node.setBody(nullptr);
    check(node);
}

void NodeRangeRemover::visit(TemplateNode& node) {
    if (checkChild(node.keyword())) node.setKeyword(nullptr);
    if (checkChild(node.params())) node.setParams(nullptr);
    check(node);
}

void NodeRangeRemover::visit(CaseNode& node) {
    if (checkChild(node.keyword())) node.setKeyword(nullptr);
    if (checkChild(node.expr())) node.setExpr(nullptr);
    check(node);
}

void NodeRangeRemover::visit(CtrlSubStmtHeadNode& node) {
    if (checkChild(node.keyword())) node.setKeyword(nullptr);
    if (checkChild(node.condition())) node.setCondition(nullptr);
    check(node);
}

void NodeRangeRemover::visit(CtrlSubStmtNode& node) {
    if (checkChild(node.head())) node.setHead(nullptr);
    if (checkChild(node.block())) node.setBlock(nullptr);
    check(node);
}

void NodeRangeRemover::visit(InitializerNode& node) {
    if (checkChild(node.name())) node.setName(nullptr);
    if (checkChild(node.args())) node.setArgs(nullptr);
    check(node);
}

void NodeRangeRemover::visit(DataDeclNode& node) {
    if (checkChild(node.type())) node.setType(nullptr);
    if (checkChild(node.name())) node.setName(nullptr);
    if (checkChild(node.init())) node.setInit(nullptr);
    check(node);
}

void NodeRangeRemover::visit(FunctionHeadNode& node) {
    if (checkChild(node.returnType())) node.setReturnType(nullptr);
    if (checkChild(node.name())) node.setName(nullptr);
    if (checkChild(node.params())) node.setParams(nullptr);
    if (checkChild(node.throwSpec())) node.setThrowSpec(nullptr);
    if (checkChild(node.qualifiers())) node.setQualifiers(nullptr);
    check(node);
}

void NodeRangeRemover::visit(FunctionDeclNode& node) {
    if (checkChild(node.head())) node.setHead(nullptr);
    if (checkChild(node.block())) node.setBlock(nullptr);
    check(node);
}

void NodeRangeRemover::visit(CtorDeclNode& node) {
    if (checkChild(node.head())) node.setHead(nullptr);
    if (checkChild(node.initializers())) node.setInitializers(nullptr);
    if (checkChild(node.block())) node.setBlock(nullptr);
    check(node);
}

void NodeRangeRemover::visit(NamespaceDeclNode& node) {
    if (checkChild(node.head())) node.setHead(nullptr);
    if (checkChild(node.body())) node.setBody(nullptr);
    check(node);
}

void NodeRangeRemover::visit(ClassHeadNode& node) {
    // Against the order of the text: a range that starts in the base classes takes the name along.
    if (checkChild(node.bases())) node.setBases(nullptr);
    if (checkChild(node.name())) node.setName(nullptr);
    check(node);
}

void NodeRangeRemover::visit(ClassDeclNode& node) {
    if (checkChild(node.head())) node.setHead(nullptr);
    if (checkChild(node.body())) node.setBody(nullptr);
    check(node);
}

void NodeRangeRemover::visit(LinkageBlockBodyNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(EnumBodyNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(CtrlStmtNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(InitializerListNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(ParameterListNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(BlockNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(NamespaceBodyNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(ClassBodyNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(BaseClauseListNode& node) { removeFrom(node); }
void NodeRangeRemover::visit(RootNode& node) { removeFrom(node); }

void NodeRangeRemover::visit(TextNode& node) { check(node); }
void NodeRangeRemover::visit(EnumHeadNode& node) { check(node); }
void NodeRangeRemover::visit(PreprocDirectiveNode& node) { check(node); }
void NodeRangeRemover::visit(CommentNode& node) { check(node); }
void NodeRangeRemover::visit(KeywordNode& node) { check(node); }
void NodeRangeRemover::visit(ExprNode& node) { check(node); }
void NodeRangeRemover::visit(TypeNode& node) { check(node); }
void NodeRangeRemover::visit(ParameterNode& node) { check(node); }
void NodeRangeRemover::visit(IdNode& node) { check(node); }
void NodeRangeRemover::visit(FunctionReturnNode& node) { check(node); }
void NodeRangeRemover::visit(NamespaceHeadNode& node) { check(node); }
void NodeRangeRemover::visit(AccessSpecNode& node) { check(node); }
void NodeRangeRemover::visit(ClassNameNode& node) { check(node); }

} // namespace Cpp
