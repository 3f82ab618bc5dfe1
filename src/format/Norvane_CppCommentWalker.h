#ifndef KERFLINE_NORVANE_CPPCOMMENTWALKER_H
#define KERFLINE_NORVANE_CPPCOMMENTWALKER_H

#include "cpp/Cpp_Emitter.h"

namespace Cpp {
class InteriorNode;
}

namespace Norvane {

/// Goes through a tree to each comment that is a node of a list: among declarations, statements,
/// enumerators, parameters, base classes and member initializers. Within an expression or a data
/// declaration a comment is only text.
///
/// The order is that of the text, but for the initializers of a constructor, which come before its
/// parameters. The tree must not change on the way.
class CppCommentWalker : public Cpp::Emitter {
public:
    using Cpp::Emitter::visit;
    /// What is to happen at each comment.
    void visit(Cpp::CommentNode& node) override = 0;

    void visit(Cpp::FunctionPtrDeclNode& node) override;
    void visit(Cpp::LinkageBlockBodyNode& node) override;
    void visit(Cpp::LinkageBlockNode& node) override;
    void visit(Cpp::EnumBodyNode& node) override;
    void visit(Cpp::EnumDeclNode& node) override;
    void visit(Cpp::TemplateNode& node) override;
    void visit(Cpp::CtrlSubStmtNode& node) override;
    void visit(Cpp::CtrlStmtNode& node) override;
    void visit(Cpp::InitializerListNode& node) override;
    void visit(Cpp::ParameterListNode& node) override;
    void visit(Cpp::BlockNode& node) override;
    void visit(Cpp::FunctionHeadNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::NamespaceBodyNode& node) override;
    void visit(Cpp::NamespaceDeclNode& node) override;
    void visit(Cpp::ClassHeadNode& node) override;
    void visit(Cpp::ClassDeclNode& node) override;
    void visit(Cpp::ClassBodyNode& node) override;
    void visit(Cpp::BaseClauseListNode& node) override;
    void visit(Cpp::RootNode& node) override;

protected:
    void visitChildren(Cpp::InteriorNode& node);
};

} // namespace Norvane

#endif
