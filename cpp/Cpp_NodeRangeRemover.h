#ifndef KERFLINE_CPP_NODERANGEREMOVER_H
#define KERFLINE_CPP_NODERANGEREMOVER_H

#include "cpp/Cpp_Emitter.h"

#include <unordered_map>
#include <vector>

namespace Cpp {

class InteriorNode;

/// Takes ranges of nodes out of a tree: every node from the first one of a range up to its last
/// one, in the order of the walk; the first goes and the last stays. A range may start and end at
/// different depths. Let the root accept it; one object serves one walk.
///
/// A node is looked at after its children. So where a range starts inside a construct and does not
/// end there, the construct goes as a whole, with its children in front of the range.
class NodeRangeRemover : public Emitter {
public:
    struct Range {
        const SyntaxNode* first = nullptr;
        const SyntaxNode* last = nullptr;
    };

    /// The nodes are not owned. If `last` is not met behind `first`, everything behind `first` goes.
    NodeRangeRemover(const SyntaxNode* first, const SyntaxNode* last);
    /// Does in one walk what one remover after the other would do, in any order.
    explicit NodeRangeRemover(const std::vector<Range>& ranges);

    void visit(AsmNode& node) override;
    void visit(LabelNode& node) override;
    void visit(TextNode& node) override;
    void visit(FunctionPtrDeclNode& node) override;
    void visit(LinkageBlockBodyNode& node) override;
    void visit(LinkageBlockNode& node) override;
    void visit(EnumBodyNode& node) override;
    void visit(EnumHeadNode& node) override;
    void visit(EnumDeclNode& node) override;
    void visit(PreprocDirectiveNode& node) override;
    void visit(CommentNode& node) override;
    void visit(TemplateNode& node) override;
    void visit(CaseNode& node) override;
    void visit(KeywordNode& node) override;
    void visit(CtrlSubStmtHeadNode& node) override;
    void visit(CtrlSubStmtNode& node) override;
    void visit(CtrlStmtNode& node) override;
    void visit(ExprNode& node) override;
    void visit(TypeNode& node) override;
    void visit(InitializerNode& node) override;
    void visit(InitializerListNode& node) override;
    void visit(DataDeclNode& node) override;
    void visit(ParameterListNode& node) override;
    void visit(ParameterNode& node) override;
    void visit(IdNode& node) override;
    void visit(FunctionReturnNode& node) override;
    void visit(BlockNode& node) override;
    void visit(FunctionHeadNode& node) override;
    void visit(FunctionDeclNode& node) override;
    void visit(CtorDeclNode& node) override;
    void visit(NamespaceBodyNode& node) override;
    void visit(NamespaceHeadNode& node) override;
    void visit(NamespaceDeclNode& node) override;
    void visit(AccessSpecNode& node) override;
    void visit(ClassNameNode& node) override;
    void visit(ClassHeadNode& node) override;
    void visit(ClassDeclNode& node) override;
    void visit(ClassBodyNode& node) override;
    void visit(BaseClauseListNode& node) override;
    void visit(RootNode& node) override;
    using Emitter::visit;

private:
    bool check(const SyntaxNode& node);
    bool checkChild(SyntaxNode* child);
    void removeChildren(InteriorNode& node);
    void removeFrom(InteriorNode& node);

    // The last node of each range, by its first one.
    std::unordered_map<const SyntaxNode*, const SyntaxNode*> lastOf_;
    // Of the range that is being removed.
    const SyntaxNode* last_ = nullptr;
    bool removing_ = false;
};

} // namespace Cpp

#endif
