#include "cpp/Cpp_Emitter.h"
#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "cpp/Cpp_Tokens.h"

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>
#include <type_traits>

using namespace Cpp;

// What a pass over the tree is written against.
namespace {

template <class Node, class... Bases> constexpr bool kDerives = (std::is_base_of_v<Bases, Node> && ...);
static_assert(kDerives<SyntaxNode, Trn::SyntaxNode> && kDerives<LeafNode, SyntaxNode> && kDerives<DeclNode, SyntaxNode>);
static_assert(kDerives<TextNode, LeafNode> && kDerives<PreprocDirectiveNode, TextNode> &&
              kDerives<CommentNode, TextNode> && kDerives<IdNode, TextNode>);
static_assert(kDerives<FunctionReturnNode, TypeNode, LeafNode> && kDerives<ParameterNode, LeafNode>);
static_assert(kDerives<ArgListNode, InteriorNode> && kDerives<CtrlStmtNode, InteriorNode> && kDerives<RootNode, InteriorNode>);
static_assert(kDerives<CtorDeclNode, FunctionDeclNode, DeclNode> && kDerives<FunctionPtrDeclNode, DeclNode>);
static_assert(kDerives<LinkageBlockNode, DeclNode> && !kDerives<NamespaceDeclNode, DeclNode>);
static_assert(std::is_abstract_v<SyntaxNode> && std::is_abstract_v<LeafNode> && std::is_abstract_v<DeclNode>);

class NamesOfFunctions : public Emitter {
public:
    using Emitter::visit;
    void visit(RootNode& node) override {
        for (auto child = node.childBegin(); child != node.childEnd(); ++child) (*child)->accept(*this);
    }
    void visit(FunctionDeclNode& node) override { names += node.head()->name()->text() + " "; }
    void visit(CtorDeclNode& node) override {
        names += node.head()->name()->text() + ":" + std::to_string(node.initializers()->size()) + " ";
    }

    std::string names;
};

TEST(CppInterface, PassWalksWhatTheParserBuilt) {
    std::istringstream in("int f(); A::A() : a(1), b(2) { } int x;");
    Lexer lexer(in);
    RootNode root;
    Trn::MessageList messages(1);
    Parser parser;
    static_cast<Trn::Parser&>(parser).parse(lexer, root, messages);
    NamesOfFunctions pass;
    root.accept(pass);
    EXPECT_EQ(pass.names, "f A::A:2 ");
    EXPECT_EQ(messages.size(), 1U) << "what the list held stays";
}

TEST(CppInterface, NodesArePutTogetherFromParts) {
    const Trn::Position one{1, 1};
    const Trn::Position end{1, 9};
    FunctionHeadNode head(new FunctionReturnNode("int", one, one), new IdNode("f", one, one), nullptr, nullptr, nullptr,
                          nullptr, end);
    FunctionDeclNode function(new FunctionHeadNode(head), new BlockNode(one, end));
    CaseNode label(new KeywordNode(tkDefault, one, one), nullptr, end);
    ClassDeclNode classDecl(new ClassHeadNode(new ClassNameNode(tkStruct, "S", one, one), nullptr), new ClassBodyNode(one, end));
    AsmNode assembler(new TextNode("asm", one, one), nullptr, AsmNode::kOneLine);
    EXPECT_EQ(function.head()->returnType()->text(), "int");
    EXPECT_EQ(label.end(), end);
    EXPECT_EQ(classDecl.head()->name()->classKey(), 54);
    EXPECT_EQ(assembler.form(), 0);
    FunctionDeclNode other;
    other.swap(function);
    EXPECT_EQ(function.head(), nullptr);
    other.setHead(nullptr);
    EXPECT_EQ(other.start(), one) << "the block is left";
}

} // namespace
