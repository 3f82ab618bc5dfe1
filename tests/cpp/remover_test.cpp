#include "cpp/Cpp_NodeRangeRemover.h"

#include "cpp/Cpp_Nodes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace Cpp;

ExprNode* statement(const std::string& text) { return new ExprNode(text, {1, 1}, {1, 1}); }

/// Texts of the children, with the braces of blocks and functions: "a {b c} f{d}".
std::string outline(const InteriorNode& list) {
    std::string result;
    for (auto child = list.childBegin(); child != list.childEnd(); ++child) {
        if (!result.empty()) result += ' ';
        if (const auto* expr = dynamic_cast<const ExprNode*>(child->get())) {
            result += expr->text();
        } else if (const auto* inner = dynamic_cast<const InteriorNode*>(child->get())) {
            result += '{' + outline(*inner) + '}';
        } else if (const auto* function = dynamic_cast<const FunctionDeclNode*>(child->get())) {
            result += function->head() ? "f" : "?";
            result += function->block() ? '{' + outline(*function->block()) + '}' : ";";
        } else {
            result += "other";
        }
    }
    return result;
}

/// a b f{c d} e g, where c and d are statements of the function.
class RemoverTest : public testing::Test {
protected:
    RemoverTest() {
        for (SyntaxNode* node : {a, b}) root.add(node);
        auto* block = new BlockNode({1, 1}, {1, 1});
        block->add(c);
        block->add(d);
        auto* head = new FunctionHeadNode();
        head->setName(new IdNode("f", {1, 1}, {1, 1}));
        root.add(new FunctionDeclNode(head, block));
        for (SyntaxNode* node : {e, g}) root.add(node);
    }

    std::string afterRemoving(const SyntaxNode* first, const SyntaxNode* last) {
        NodeRangeRemover remover(first, last);
        root.accept(remover);
        return outline(root);
    }

    ExprNode* a = statement("a");
    ExprNode* b = statement("b");
    ExprNode* c = statement("c");
    ExprNode* d = statement("d");
    ExprNode* e = statement("e");
    ExprNode* g = statement("g");
    RootNode root;
};

TEST_F(RemoverTest, TakesOnlyTheFirstOfTwoNeighbours) {
    EXPECT_EQ(afterRemoving(a, b), "b f{c d} e g");
}

TEST_F(RemoverTest, TakesEverythingUpToTheLast) { EXPECT_EQ(afterRemoving(b, g), "a g"); }

TEST_F(RemoverTest, WorksInsideANestedList) { EXPECT_EQ(afterRemoving(c, d), "a b f{d} e g"); }

TEST_F(RemoverTest, TheSameNodeAtBothEndsTakesEverythingBehind) {
    EXPECT_EQ(afterRemoving(e, e), "a b f{c d}");
}

TEST_F(RemoverTest, NodeThatIsNotInTheTreeTakesNothing) {
    const ExprNode stranger("s", {1, 1}, {1, 1});
    EXPECT_EQ(afterRemoving(&stranger, g), "a b f{c d} e g");
}

TEST_F(RemoverTest, WithoutItsLastNodeTheRangeRunsToTheEnd) {
    const ExprNode stranger("s", {1, 1}, {1, 1});
    EXPECT_EQ(afterRemoving(b, &stranger), "a");
}

// The function cannot lose the end of its body and stay, so what stands before the range goes too.
TEST_F(RemoverTest, RangeOutOfAFunctionTakesTheWholeFunction) { EXPECT_EQ(afterRemoving(d, g), "a b g"); }

TEST_F(RemoverTest, RangeIntoAFunctionLeavesItsBody) { EXPECT_EQ(afterRemoving(b, d), "a ?{d} e g"); }

TEST_F(RemoverTest, ManyRangesGoInOneWalk) {
    NodeRangeRemover remover({{e, g}, {a, b}, {c, d}});
    root.accept(remover);
    EXPECT_EQ(outline(root), "b f{d} g");
}

TEST_F(RemoverTest, RangeInsideAnotherHasNoPartInIt) {
    NodeRangeRemover remover({{b, e}, {c, d}});
    root.accept(remover);
    EXPECT_EQ(outline(root), "a e g");
}

/// Makes a node of any class that can be an end of a range.
struct EndCase {
    const char* name;
    SyntaxNode* (*make)();
};

template <class Node> SyntaxNode* make() { return new Node(); }

class RangeEnds : public testing::TestWithParam<EndCase> {};

TEST_P(RangeEnds, FirstGoes) {
    RootNode root;
    SyntaxNode* first = GetParam().make();
    auto* last = statement("z");
    root.add(statement("a"));
    root.add(first);
    root.add(statement("b"));
    root.add(last);
    NodeRangeRemover remover(first, last);
    root.accept(remover);
    EXPECT_EQ(outline(root), "a z");
}

TEST_P(RangeEnds, LastStays) {
    RootNode root;
    auto* first = statement("a");
    SyntaxNode* last = GetParam().make();
    root.add(first);
    root.add(statement("b"));
    root.add(last);
    root.add(statement("z"));
    NodeRangeRemover remover(first, last);
    root.accept(remover);
    ASSERT_EQ(root.size(), 2U);
    EXPECT_EQ(root.child(0), last);
}

const EndCase kEnds[] = {
    {"Asm", make<AsmNode>},
    {"Label", make<LabelNode>},
    {"FunctionPtrDecl", make<FunctionPtrDeclNode>},
    {"LinkageBlock", make<LinkageBlockNode>},
    {"EnumDecl", make<EnumDeclNode>},
    {"Template", make<TemplateNode>},
    {"Case", make<CaseNode>},
    {"CtrlSubStmt", make<CtrlSubStmtNode>},
    {"CtrlStmt", make<CtrlStmtNode>},
    {"Initializer", make<InitializerNode>},
    {"DataDecl", make<DataDeclNode>},
    {"Block", make<BlockNode>},
    {"FunctionDecl", make<FunctionDeclNode>},
    {"CtorDecl", make<CtorDeclNode>},
    {"NamespaceDecl", make<NamespaceDeclNode>},
    {"ClassDecl", make<ClassDeclNode>},
    {"AccessSpec", make<AccessSpecNode>},
    {"Directive", make<PreprocDirectiveNode>},
    {"Comment", make<CommentNode>},
    {"Text", make<TextNode>},
    {"Parameter", make<ParameterNode>},
};
INSTANTIATE_TEST_SUITE_P(NodeRangeRemover, RangeEnds, testing::ValuesIn(kEnds),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(NodeRangeRemover, ParametersBehindTheRangeStay) {
    auto* params = new ParameterListNode({1, 1}, {1, 9});
    auto* first = new ParameterNode("int a", {1, 1}, {1, 1});
    auto* last = new ParameterNode("int b", {1, 1}, {1, 1});
    params->add(first);
    params->add(last);
    RootNode root;
    auto* head = new FunctionHeadNode();
    head->setParams(params);
    root.add(new FunctionDeclNode(head, nullptr));
    NodeRangeRemover remover(first, last);
    root.accept(remover);
    ASSERT_EQ(params->size(), 1U);
    EXPECT_EQ(params->child(0), last);
}

// Base classes are gone through before the name.
TEST(NodeRangeRemover, RangeFromTheBaseClassesTakesTheClassNameAlong) {
    auto* comment = new CommentNode("/* c */", {1, 1}, {1, 1});
    auto* bases = new BaseClauseListNode();
    bases->add(comment);
    auto* member = statement("m");
    auto* body = new ClassBodyNode({1, 1}, {1, 1});
    body->add(member);
    auto* head = new ClassHeadNode(new ClassNameNode(53, "A", {1, 1}, {1, 1}), bases);
    auto* declaration = new ClassDeclNode(head, body);
    RootNode root;
    root.add(declaration);
    NodeRangeRemover remover(comment, member);
    root.accept(remover);
    EXPECT_EQ(declaration->head(), nullptr);
    ASSERT_NE(declaration->body(), nullptr);
    EXPECT_EQ(declaration->body()->child(0), member);
}

// A list that has no visit of its own is gone through all the same, when it is a named part.
TEST(NodeRangeRemover, ArgumentListInsideTheRangeGoes) {
    auto* initializers = new InitializerListNode();
    auto* comment = new CommentNode("/* c */", {1, 1}, {1, 1});
    initializers->add(comment);
    auto* initializer = new InitializerNode(new IdNode("a", {1, 1}, {1, 1}), new ArgListNode({1, 1}, {1, 1}));
    initializers->add(initializer);
    auto* end = new CommentNode("/* d */", {1, 1}, {1, 1});
    initializers->add(end);
    RootNode root;
    root.add(new CtorDeclNode(nullptr, new BlockNode({1, 1}, {1, 1}), initializers));
    NodeRangeRemover remover(comment, end);
    root.accept(remover);
    ASSERT_EQ(initializers->size(), 1U);
    EXPECT_EQ(initializers->child(0), end);
}

} // namespace
