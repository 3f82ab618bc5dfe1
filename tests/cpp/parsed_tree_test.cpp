#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_ParsedText.h"
#include "cpp/Cpp_Parser.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace Cpp;

RootNode parsed(std::string text) {
    RootNode root;
    Trn::MessageList messages;
    Parser().parse(std::make_shared<const Zelmar::SourceText>(std::move(text)), root, messages);
    EXPECT_TRUE(messages.empty());
    return root;
}

TEST(ParsedTree, ACopyOutlivesTheTreeWithItsTexts) {
    std::unique_ptr<SyntaxNode> copy;
    {
        const RootNode root = parsed("unsigned  long A::b = c /* d */ + ( 1 );");
        ASSERT_EQ(root.size(), 1U);
        EXPECT_TRUE(root.child(0)->isPooled());
        copy.reset(root.child(0)->clone());
    }
    EXPECT_FALSE(copy->isPooled());
    const auto& data = dynamic_cast<const DataDeclNode&>(*copy);
    EXPECT_FALSE(data.type()->isPooled());
    EXPECT_EQ(data.type()->text(), "unsigned long");
    EXPECT_EQ(data.name()->text(), "A::b");
    EXPECT_EQ(data.init()->text(), "= c + ( 1 )");
}

TEST(ParsedTree, SwappedRootsKeepWhatTheyLiveOn) {
    RootNode kept;
    {
        RootNode root = parsed("int a;\nstruct S : T<U> { };\n");
        kept.swap(root);
    }
    ASSERT_EQ(kept.size(), 2U);
    const auto& type = dynamic_cast<const ClassDeclNode&>(*kept.child(1));
    EXPECT_EQ(type.head()->name()->name(), "S");
    EXPECT_EQ(kept.end(), (Trn::Position{2, 20}));
    kept.erase(kept.childBegin() + 1, kept.childEnd());
    EXPECT_EQ(kept.end(), (Trn::Position{1, 6}));
}

// Each step of the chain ends where the last one does.
TEST(ParsedTree, EveryStepOfAChainEndsWithIt) {
    constexpr int kSteps = 900;
    std::string text = "void f() { if (a) b();\n";
    for (int i = 0; i < kSteps; ++i) text += "else if (a) b();\n";
    const RootNode root = parsed(text + "}");
    const SyntaxNode* at = dynamic_cast<const FunctionDeclNode&>(*root.child(0)).block()->child(0);
    int steps = 0;
    for (const auto* chain = dynamic_cast<const CtrlStmtNode*>(at); chain != nullptr; ++steps) {
        EXPECT_EQ(chain->end(), (Trn::Position{kSteps + 1, 16}));
        if (chain->size() < 2) break;
        const auto& last = dynamic_cast<const CtrlSubStmtNode&>(*chain->child(chain->size() - 1));
        chain = dynamic_cast<const CtrlStmtNode*>(last.block()->child(0));
    }
    EXPECT_GE(steps, 1);
}

} // namespace
