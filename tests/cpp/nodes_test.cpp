#include "cpp/Cpp_Nodes.h"

#include "cpp/Cpp_Tokens.h"
#include "cpp/Cpp_TreeDumper.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Exception.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

namespace {

using namespace Cpp;
using Trn::Position;

IdNode* id(const std::string& name, std::uint32_t column) {
    const auto end = column + static_cast<std::uint32_t>(name.size()) - 1;
    return new IdNode(name, {1, column}, {1, end});
}

ExprNode* expr(const std::string& text, std::uint32_t column) {
    const auto end = column + static_cast<std::uint32_t>(text.size()) - 1;
    return new ExprNode(text, {1, column}, {1, end});
}

std::string messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Trn::Exception& exception) {
        return exception.message();
    }
    return "no exception";
}

std::string treeAsText(const RootNode& root) {
    std::ostringstream out;
    dumpTree(root, out);
    return out.str();
}

// --- extents ---

TEST(Extents, InteriorRunsFromFirstToLastChild) {
    CtrlStmtNode node;
    EXPECT_TRUE(node.start().isNone());
    EXPECT_TRUE(node.end().isNone());
    node.setStart({9, 9}); // no child to set it on
    EXPECT_TRUE(node.start().isNone());
    node.add(expr("a;", 1));
    node.add(expr("b;", 4));
    EXPECT_EQ(node.start(), (Position{1, 1}));
    EXPECT_EQ(node.end(), (Position{1, 5}));
    node.setEnd({1, 8});
    EXPECT_EQ(node.child(1)->end(), (Position{1, 8}));
}

TEST(Extents, BracketedListKeepsItsBracketsWhateverItHolds) {
    ClassBodyNode node({1, 1}, {3, 1});
    node.add(expr("a;", 5));
    EXPECT_EQ(node.start(), (Position{1, 1}));
    EXPECT_EQ(node.end(), (Position{3, 1}));
    ClassBodyNode none;
    none.add(expr("a;", 5));
    EXPECT_TRUE(none.start().isNone());
}

TEST(Extents, BlockWithoutBracesTakesThatOfItsChildren) {
    BlockNode node;
    EXPECT_TRUE(node.start().isNone());
    EXPECT_TRUE(node.end().isNone());
    node.add(expr("a;", 5));
    EXPECT_EQ(node.start(), (Position{1, 5}));
    EXPECT_EQ(node.end(), (Position{1, 6}));
    node.setStart({1, 2});
    EXPECT_EQ(node.start(), (Position{1, 2}));
    EXPECT_EQ(node.end(), (Position{1, 6}));
}

TEST(Extents, ConditionMayReachBeyondTheEndOfItsHead) {
    CtrlSubStmtHeadNode node(new KeywordNode(tkIf, {1, 1}, {1, 2}), expr("(a)", 4), {1, 5});
    EXPECT_EQ(node.end(), (Position{1, 5}));
    node.setEndPosition({});
    EXPECT_EQ(node.end(), (Position{1, 6}));
}

TEST(Extents, SettingTheEndOfADeclarationLeavesItsPartsAlone) {
    DataDeclNode node(new TypeNode("int", {1, 1}, {1, 3}), id("x", 5), nullptr);
    node.setEnd({1, 6});
    EXPECT_EQ(node.end(), (Position{1, 6}));
    EXPECT_EQ(node.name()->end(), (Position{1, 5}));
    node.setStart({1, 2});
    EXPECT_EQ(node.type()->start(), (Position{1, 2}));
}

TEST(Extents, MissingPartsAreSkipped) {
    FunctionHeadNode head;
    EXPECT_TRUE(head.start().isNone());
    head.setThrowSpec(expr("throw()", 20));
    head.setParams(new ParameterListNode({1, 5}, {1, 6}));
    EXPECT_EQ(head.start(), (Position{1, 5}));
    EXPECT_EQ(head.end(), (Position{1, 26}));
    head.setEnd({1, 30});
    EXPECT_EQ(head.end(), (Position{1, 30}));
}

TEST(Extents, LabelEndsAtItsColon) {
    LabelNode node(id("out", 1));
    EXPECT_EQ(node.end(), (Position{1, 3}));
    node.setColon({1, 5});
    EXPECT_EQ(node.end(), (Position{1, 5}));
}

// The member initializers stand between head and body.
TEST(Extents, ConstructorEndsWithItsBody) {
    CtorDeclNode node(new FunctionHeadNode(), new BlockNode({1, 14}, {1, 15}), new InitializerListNode());
    node.head()->setName(id("A", 1));
    node.initializers()->add(new InitializerNode(id("a", 7), new ArgListNode({1, 8}, {1, 10})));
    EXPECT_EQ(node.start(), (Position{1, 1}));
    EXPECT_EQ(node.end(), (Position{1, 15}));
    node.setBlock(nullptr);
    EXPECT_EQ(node.end(), (Position{1, 10}));
}

// --- children ---

TEST(Children, AddingNullDoesNothing) {
    BlockNode node;
    node.add(nullptr);
    node.append(nullptr);
    EXPECT_EQ(node.size(), 0U);
}

class AddTwice : public testing::TestWithParam<int> {};

TEST_P(AddTwice, ThrowsAndLeavesTheListAsItWas) {
    BlockNode node;
    for (int i = 0; i < GetParam(); ++i) node.add(expr("a", 1));
    const std::size_t size = node.size();
    for (std::size_t at : {std::size_t{0}, size / 2, size - 1}) {
        EXPECT_EQ(messageOf([&] { node.add(node.child(at)); }),
                  "Attempt to add an object to a collection that already exists in that collection.");
    }
    EXPECT_EQ(node.size(), size);
}

// The long list is looked up in another way than the short one.
INSTANTIATE_TEST_SUITE_P(Children, AddTwice, testing::Values(1, 2, 255, 256, 257, 5000));

TEST(Children, MayComeBackAfterTheyWereErased) {
    BlockNode node;
    for (int i = 0; i < 1000; ++i) node.add(expr("a", 1));
    SyntaxNode* released = node.childBegin()->release();
    node.erase(node.childBegin(), node.childBegin() + 1);
    EXPECT_NO_THROW(node.add(released));
    EXPECT_EQ(node.child(node.size() - 1), released);
}

TEST(Children, ReplacedInPlaceDoNotBlockTheirAddress) {
    BlockNode node;
    for (int i = 0; i < 1000; ++i) node.add(expr("a", 1));
    SyntaxNode* replaced = node.childBegin()->release();
    node.childBegin()->reset(expr("b", 1));
    EXPECT_NO_THROW(node.add(replaced));
}

TEST(Children, CommentsAndDirectivesAreAppendedInOrder) {
    EnumBodyNode node;
    auto* comment = new CommentNode("// c", {1, 1}, {1, 4});
    auto* directive = new PreprocDirectiveNode("#if A", {2, 1}, {2, 5});
    node.addComment(comment);
    node.addDirective(directive);
    EXPECT_EQ(node.child(0), comment);
    EXPECT_EQ(node.child(1), directive);
}

// --- ownership and copies ---

TEST(Copies, CloneOfAClassSharesNoNode) {
    auto* bases = new BaseClauseListNode();
    bases->add(new BaseClauseNode(tkPublic, true, "B", {1, 11}, {1, 18}));
    auto* body = new ClassBodyNode({1, 20}, {1, 30});
    body->add(new DataDeclNode(new TypeNode("int", {1, 22}, {1, 24}), id("x", 26), nullptr, {1, 27}));
    auto* name = new ClassNameNode(tkClass, "A", {1, 1}, {1, 7});
    const ClassDeclNode original(new ClassHeadNode(name, bases), body, {1, 31});

    RootNode originals;
    RootNode clones;
    originals.add(original.clone());
    clones.add(original.clone());
    EXPECT_EQ(treeAsText(originals), treeAsText(clones));

    const auto& clone = static_cast<const ClassDeclNode&>(*clones.child(0));
    EXPECT_NE(clone.head(), original.head());
    EXPECT_NE(clone.head()->name(), original.head()->name());
    EXPECT_NE(clone.head()->bases()->child(0), original.head()->bases()->child(0));
    EXPECT_NE(clone.body()->child(0), original.body()->child(0));
    EXPECT_EQ(clone.endPosition(), (Position{1, 31}));
}

TEST(Copies, CloneKeepsTheFieldsBesideTextAndExtent) {
    CommentNode comment("", {1, 1}, {9, 9});
    comment.setVerbatim(true);
    EXPECT_TRUE(std::unique_ptr<CommentNode>(static_cast<CommentNode*>(comment.clone()))->verbatim());

    const AsmNode assembler(new TextNode("__asm", {1, 1}, {1, 5}), nullptr, AsmNode::kBraced);
    EXPECT_EQ(std::unique_ptr<AsmNode>(static_cast<AsmNode*>(assembler.clone()))->form(), 2);

    const LabelNode label(id("out", 1), {1, 5});
    EXPECT_EQ(std::unique_ptr<LabelNode>(static_cast<LabelNode*>(label.clone()))->colon(), (Position{1, 5}));

    const CaseNode caseNode(new KeywordNode(tkDefault, {1, 1}, {1, 7}), nullptr, {1, 9});
    EXPECT_EQ(std::unique_ptr<SyntaxNode>(caseNode.clone())->end(), (Position{1, 9}));
}

TEST(Copies, CloneIsOfTheMostDerivedClass) {
    const std::unique_ptr<SyntaxNode> returnType(FunctionReturnNode("int", {1, 1}, {1, 3}).clone());
    EXPECT_NE(dynamic_cast<FunctionReturnNode*>(returnType.get()), nullptr);
    const std::unique_ptr<SyntaxNode> constructor(CtorDeclNode().clone());
    EXPECT_NE(dynamic_cast<CtorDeclNode*>(constructor.get()), nullptr);
    const std::unique_ptr<SyntaxNode> arguments(ArgListNode().clone());
    EXPECT_NE(dynamic_cast<ArgListNode*>(arguments.get()), nullptr);
}

TEST(Copies, AssignmentReplacesTheChildrenByCopies) {
    RootNode from;
    from.add(expr("a;", 1));
    RootNode to;
    to.add(expr("b;", 1));
    to.add(expr("c;", 1));
    to = from;
    EXPECT_EQ(treeAsText(to), treeAsText(from));
    EXPECT_NE(to.child(0), from.child(0));
    const RootNode& same = to;
    to = same;
    EXPECT_EQ(treeAsText(to), treeAsText(from));
}

TEST(Copies, MovingARootHandsItsNodesOver) {
    RootNode from;
    SyntaxNode* child = expr("a;", 1);
    from.add(child);
    RootNode to;
    to = std::move(from);
    EXPECT_EQ(to.child(0), child);
    RootNode other;
    other.swap(to);
    EXPECT_EQ(other.child(0), child);
    EXPECT_TRUE(to.empty());
}

TEST(Ownership, ReleasedPartStaysAlive) {
    std::unique_ptr<IdNode> name;
    {
        DataDeclNode node(nullptr, id("x", 1), nullptr);
        name.reset(node.releaseName());
        EXPECT_EQ(node.name(), nullptr);
    }
    EXPECT_EQ(name->text(), "x");
}

TEST(Ownership, SwapOfFunctionsExchangesHeadAndBlock) {
    FunctionDeclNode a(new FunctionHeadNode(), nullptr);
    CtorDeclNode b(nullptr, new BlockNode({1, 1}, {1, 2}), new InitializerListNode());
    FunctionHeadNode* head = a.head();
    BlockNode* block = b.block();
    a.swap(b);
    EXPECT_EQ(a.head(), nullptr);
    EXPECT_EQ(a.block(), block);
    EXPECT_EQ(b.head(), head);
    EXPECT_EQ(b.block(), nullptr);
    EXPECT_NE(b.initializers(), nullptr);
}

// Copying, walking and destroying descend by recursion, so they must bear all the nesting that a
// text may have.
TEST(Copies, DeepTreesDoNotExhaustTheStack) {
    constexpr int kDepth = 1000;
    RootNode root;
    InteriorNode* innermost = &root;
    for (int i = 0; i < kDepth; ++i) {
        auto* block = new BlockNode({1, 1}, {1, 2});
        auto* statement = new CtrlStmtNode();
        statement->add(new CtrlSubStmtNode(nullptr, block));
        innermost->add(statement);
        innermost = block;
    }
    innermost->add(expr("a;", 1));
    const RootNode copy(root);
    const std::string text = treeAsText(copy);
    EXPECT_NE(text.find("\"a;\""), std::string::npos);
}

// --- checked values ---

TEST(KeywordNode, TakesTheKeywordsFromClassToDefault) {
    for (const int good : {53, 59, 80, 93, 102, 103}) {
        EXPECT_EQ(KeywordNode(good, {1, 1}, {1, 2}).keyword(), good);
    }
    for (const int bad : {-1, 0, 52, 104, 105, 106, 107, 108, 119}) {
        SCOPED_TRACE(bad);
        EXPECT_EQ(messageOf([&] { KeywordNode(bad, {1, 1}, {1, 2}); }), "Not a keyword");
        KeywordNode node(tkIf, {1, 1}, {1, 2});
        EXPECT_EQ(messageOf([&] { node.setKeyword(bad); }), "Not a keyword");
        EXPECT_EQ(node.keyword(), tkIf);
    }
}

TEST(IdNode, RefusesAnEmptyText) {
    EXPECT_EQ(messageOf([] { IdNode("", {1, 1}, {1, 1}); }), "Invalid name for an Identifier");
    EXPECT_EQ(messageOf([] { IdNode("  ", {1, 1}, {1, 2}); }), "no exception");
}

// --- inner text of comments ---

struct MarkerCase {
    const char* name;
    const char* comment;
    const char* inner;
};

class MarkerText : public testing::TestWithParam<MarkerCase> {};

TEST_P(MarkerText, IsWhatTheDelimitersEnclose) {
    EXPECT_EQ(CommentNode(GetParam().comment, {1, 1}, {1, 1}).markerText(), GetParam().inner);
}

const MarkerCase kMarkers[] = {
    {"Line", "// ON", " ON"},
    {"LineWithItsLineFeed", "//ON\n", "ON\n"},
    {"Block", "/* ON */", " ON "},
    {"WhiteSpaceInFront", " \t\n/*ON*/", "ON"},
    {"UnclosedBlockKeepsBoth", "/* ON", "/* ON"},
    {"UnclosedByOneCharacter", "/*/", "/*/"},
    {"WhiteSpaceBehindTheBlock", "/*ON*/ ", "/*ON*/ "},
    {"EmptyBlock", "/**/", ""},
    {"EmptyLine", "//", ""},
    {"Empty", "", ""},
    {"OneCharacter", "/", ""},
    {"WhiteSpaceOnly", "   ", ""},
    {"NoDelimiters", "ON", "ON"},
};
INSTANTIATE_TEST_SUITE_P(Comment, MarkerText, testing::ValuesIn(kMarkers),
                         [](const auto& row) { return std::string(row.param.name); });

// --- dispatch ---

/// Notes the class whose visit was called.
class VisitRecorder : public Emitter {
public:
    void visit(TypeNode&) override { visited_ = "TypeNode"; }
    void visit(FunctionReturnNode&) override { visited_ = "FunctionReturnNode"; }
    void visit(FunctionDeclNode&) override { visited_ = "FunctionDeclNode"; }
    void visit(CtorDeclNode&) override { visited_ = "CtorDeclNode"; }
    void visit(TextNode&) override { visited_ = "TextNode"; }
    void visit(CommentNode&) override { visited_ = "CommentNode"; }
    void visit(BlockNode&) override { visited_ = "BlockNode"; }
    void visit(SyntaxNode&) override { visited_ = "SyntaxNode"; }
    using Emitter::visit;

    std::string of(SyntaxNode&& node) {
        visited_ = "none";
        node.accept(*this);
        return visited_;
    }

private:
    std::string visited_;
};

TEST(Dispatch, ReachesTheVisitOfTheMostDerivedClass) {
    VisitRecorder recorder;
    EXPECT_EQ(recorder.of(TypeNode()), "TypeNode");
    EXPECT_EQ(recorder.of(FunctionReturnNode()), "FunctionReturnNode");
    EXPECT_EQ(recorder.of(FunctionDeclNode()), "FunctionDeclNode");
    EXPECT_EQ(recorder.of(CtorDeclNode()), "CtorDeclNode");
    EXPECT_EQ(recorder.of(TextNode()), "TextNode");
    EXPECT_EQ(recorder.of(CommentNode()), "CommentNode");
}

TEST(Dispatch, ListsAndArgumentsWithoutAVisitShareTheLast) {
    VisitRecorder recorder;
    EXPECT_EQ(recorder.of(InteriorNode()), "SyntaxNode");
    EXPECT_EQ(recorder.of(ArgListNode()), "SyntaxNode");
    EXPECT_EQ(recorder.of(ArgNode()), "SyntaxNode");
}

TEST(Dispatch, DescendsNowhereByItself) {
    class RootOnly : public Emitter {
    public:
        void visit(RootNode&) override { ++roots; }
        void visit(BlockNode&) override { ++blocks; }
        using Emitter::visit;
        int roots = 0;
        int blocks = 0;
    };
    RootNode root;
    root.add(new BlockNode({1, 1}, {1, 2}));
    RootOnly pass;
    root.accept(pass);
    EXPECT_EQ(pass.roots, 1);
    EXPECT_EQ(pass.blocks, 0);
}

// --- dump ---

TEST(Dump, ShowsClassExtentTextAndParts) {
    RootNode root;
    root.add(new DataDeclNode(new TypeNode("int", {1, 1}, {1, 3}), id("x", 5), expr("= \"a\tb\"", 7), {1, 14}));
    auto* list = new InitializerListNode();
    auto* args = new ArgListNode({2, 9}, {2, 11});
    args->add(new ArgNode("1", {2, 10}, {2, 10}));
    list->add(new InitializerNode(new IdNode("a", {2, 8}, {2, 8}), args));
    root.add(new CtorDeclNode(nullptr, new BlockNode({2, 13}, {2, 14}), list));
    EXPECT_EQ(treeAsText(root), R"(RootNode 1:1-2:14
  DataDeclNode 1:1-1:14
    type: TypeNode 1:1-1:3 "int"
    name: IdNode 1:5-1:5 "x"
    init: ExprNode 1:7-1:13 "= \"a\tb\""
  CtorDeclNode 2:8-2:14
    initializers: InitializerListNode 2:8-2:11
      InitializerNode 2:8-2:11
        name: IdNode 2:8-2:8 "a"
        args: ArgListNode 2:9-2:11
          ArgNode 2:10-2:10 "1"
    block: BlockNode 2:13-2:14
)");
}

TEST(Dump, ReadsExpressionsFromTheSourceAndCutsThem) {
    const Zelmar::SourceText source("a\n  + b;\n" + std::string(200, 'x') + ";\n");
    RootNode root;
    root.add(new ExprNode("", {1, 1}, {2, 6}));
    root.add(new ExprNode("", {3, 1}, {3, 201}));
    root.add(new ExprNode("gone", {9, 1}, {9, 5}));
    std::ostringstream out;
    dumpTree(root, source, out);
    EXPECT_EQ(out.str(), "RootNode 1:1-9:5\n"
                         "  ExprNode 1:1-2:6 \"a\\n  + b;\"\n"
                         "  ExprNode 3:1-3:201 \"" + std::string(72, 'x') + "\"...\n"
                         "  ExprNode 9:1-9:5 \"\"\n");
}

} // namespace
