#ifndef KERFLINE_CPP_TREEDUMPER_H
#define KERFLINE_CPP_TREEDUMPER_H

#include "cpp/Cpp_Emitter.h"

#include <initializer_list>
#include <iosfwd>
#include <string>
#include <string_view>

namespace Zelmar {
class SourceText;
}

namespace Cpp {

class ArgNode;
class InteriorNode;

/// Writes a tree as indented text, one node a line: class, extent, own text. For developers and
/// tests. Named children carry their name in front.
///
///     RootNode 1:1-1:10
///       DataDeclNode 1:1-1:10
///         type: TypeNode 1:1-1:3 "int"
///         name: IdNode 1:5-1:5 "x"
///         init: ExprNode 1:7-1:9 "= 5"
///
/// Positions are those of the tree: the first character of a text stands at 1:1, and both ends are
/// inclusive. Long texts are cut. With a source the texts of expressions are read from there.
class TreeDumper : public Emitter {
public:
    /// `source`, which may be null, and `out` are not owned and must outlive the dumper.
    TreeDumper(std::ostream& out, const Zelmar::SourceText* source) : out_(out), source_(source) {}

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
    void visit(BaseClauseNode& node) override;
    void visit(RootNode& node) override;
    void visit(SyntaxNode& node) override;

private:
    struct Part {
        std::string_view name;
        SyntaxNode* node;
    };

    void beginNode(std::string_view className, const SyntaxNode& node);
    void writeText(std::string_view text);
    void writeExpression(const SyntaxNode& node, const std::string& text);
    void endNode();
    void dumpList(std::string_view className, InteriorNode& node);
    void writeParts(std::initializer_list<Part> parts);
    void dumpWithText(std::string_view className, const SyntaxNode& node, std::string_view text);
    void dumpParts(std::string_view className, const SyntaxNode& node, std::initializer_list<Part> parts);

    std::ostream& out_;
    const Zelmar::SourceText* source_;
    int depth_ = 0;
    // Written in front of the next node.
    std::string_view partName_;
};

/// Writes the whole tree to `out`.
void dumpTree(const RootNode& root, std::ostream& out);
/// The same; `source` is the text that the tree was made of.
void dumpTree(const RootNode& root, const Zelmar::SourceText& source, std::ostream& out);

} // namespace Cpp

#endif
