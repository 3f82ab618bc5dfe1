#ifndef KERFLINE_CPP_EMITTER_H
#define KERFLINE_CPP_EMITTER_H

namespace Cpp {

class SyntaxNode;
class AsmNode;
class LabelNode;
class TextNode;
class FunctionPtrDeclNode;
class LinkageBlockBodyNode;
class LinkageBlockNode;
class EnumBodyNode;
class EnumHeadNode;
class EnumDeclNode;
class PreprocDirectiveNode;
class CommentNode;
class TemplateNode;
class CaseNode;
class KeywordNode;
class CtrlSubStmtHeadNode;
class CtrlSubStmtNode;
class CtrlStmtNode;
class ExprNode;
class TypeNode;
class InitializerNode;
class InitializerListNode;
class DataDeclNode;
class ParameterListNode;
class ParameterNode;
class IdNode;
class FunctionReturnNode;
class BlockNode;
class FunctionHeadNode;
class FunctionDeclNode;
class CtorDeclNode;
class NamespaceBodyNode;
class NamespaceHeadNode;
class NamespaceDeclNode;
class AccessSpecNode;
class ClassNameNode;
class ClassHeadNode;
class ClassDeclNode;
class ClassBodyNode;
class BaseClauseListNode;
class BaseClauseNode;
class RootNode;

/// Base of every pass over the tree. It walks nothing: a pass decides by itself whether and in what
/// order to descend, so one that overrides a single visit meets only what it goes to itself.
///
/// A pass that overrides some visits and calls others by name needs `using Emitter::visit;`, or the
/// call ends up at the last overload below without a warning.
class Emitter {
public:
    virtual ~Emitter() = default;
    virtual void visit(AsmNode&) {}
    virtual void visit(LabelNode&) {}
    virtual void visit(TextNode&) {}
    virtual void visit(FunctionPtrDeclNode&) {}
    virtual void visit(LinkageBlockBodyNode&) {}
    virtual void visit(LinkageBlockNode&) {}
    virtual void visit(EnumBodyNode&) {}
    virtual void visit(EnumHeadNode&) {}
    virtual void visit(EnumDeclNode&) {}
    virtual void visit(PreprocDirectiveNode&) {}
    virtual void visit(CommentNode&) {}
    virtual void visit(TemplateNode&) {}
    virtual void visit(CaseNode&) {}
    virtual void visit(KeywordNode&) {}
    virtual void visit(CtrlSubStmtHeadNode&) {}
    virtual void visit(CtrlSubStmtNode&) {}
    virtual void visit(CtrlStmtNode&) {}
    virtual void visit(ExprNode&) {}
    virtual void visit(TypeNode&) {}
    virtual void visit(InitializerNode&) {}
    virtual void visit(InitializerListNode&) {}
    virtual void visit(DataDeclNode&) {}
    virtual void visit(ParameterListNode&) {}
    virtual void visit(ParameterNode&) {}
    virtual void visit(IdNode&) {}
    virtual void visit(FunctionReturnNode&) {}
    virtual void visit(BlockNode&) {}
    virtual void visit(FunctionHeadNode&) {}
    virtual void visit(FunctionDeclNode&) {}
    virtual void visit(CtorDeclNode&) {}
    virtual void visit(NamespaceBodyNode&) {}
    virtual void visit(NamespaceHeadNode&) {}
    virtual void visit(NamespaceDeclNode&) {}
    virtual void visit(AccessSpecNode&) {}
    virtual void visit(ClassNameNode&) {}
    virtual void visit(ClassHeadNode&) {}
    virtual void visit(ClassDeclNode&) {}
    virtual void visit(ClassBodyNode&) {}
    virtual void visit(BaseClauseListNode&) {}
    virtual void visit(BaseClauseNode&) {}
    virtual void visit(RootNode&) {}
    /// Of a plain interior node, and of the arguments of a member initializer: a list and the
    /// arguments in it have no visit of their own.
    virtual void visit(SyntaxNode&) {}

protected:
    Emitter() = default;
    Emitter(const Emitter&) = default;
    Emitter& operator=(const Emitter&) = default;
};

} // namespace Cpp

#endif
