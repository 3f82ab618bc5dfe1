#include "ParserTestTools.h"

#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Parser.h"
#include "trn/Trn_Exception.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

class TopLevel : public testing::TestWithParam<ParseCase> {};
TEST_P(TopLevel, BuildTree) { checkTree(GetParam()); }

const ParseCase kTopLevel[] = {
    {"StatementOnItsOwn", "return 1; if (a) b; asm(\"x\");",
     "Root{Expr'return 1;' CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'b;'}}} "
     "Asm'1'{Text'asm' Block{Text'( \"x\" )'}}}"},
    // A table that some other file includes.
    {"RowsOfATable", "{ 1, 2 },\n{ 3, 4 },\n", "Root{Block{Expr'1 , 2'} Block{Expr'3 , 4'}}"},
};
INSTANTIATE_TEST_SUITE_P(Rows, TopLevel, testing::ValuesIn(kTopLevel), [](const auto& row) { return row.param.name; });

TEST(DisabledRegion, ReachesThroughItsEnd) {
    Parsed parsed("int a;\n#if 0\n#if 1\n#endif\nb\n#endif // c\nint d;\n");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(1)), "#if 0\n#if 1\n#endif\nb\n#endif ");
}

TEST(DisabledRegion, WithoutEndIsAnErrorAndNoNode) {
    Parsed parsed("int a;\n#if 0\nb\n");
    EXPECT_EQ(errorsAsText(parsed), "3:1 Unexpected EOF found.");
    EXPECT_EQ(treeAsText(parsed.root), "Root{DataDecl{Type'int' Id'a'}}");
}

// Where each branch holds a part of a construct, one of them is seen and the others are copied.
const ParseCase kFolded[] = {
    {"ClosedInEachBranch", "void f() { if (x) {\n#ifdef A\na(); }\n#else\nb(); }\n#endif\n}\nint a;",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} "
     "Block{Directive'#ifdef A\n' Expr'a;'}}} Directive}} DataDecl{Type'int' Id'a'}}"},
    {"OpenInOneBranchOnly", "void f() {\n#ifdef A\nif (x) {\n#endif\ny();\n#ifdef A\n}\n#endif\n#ifdef B\n{\n#else\n{\n#endif\n}\n}\n",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block{Directive Expr'y;' Directive Directive'#ifdef B\n' "
     "Block{Directive}}}}"},
    {"LastBranchOnly", "#ifdef A\nvoid f( {\n#else\nvoid f() {\n#endif\n}\n",
     "Root{Directive FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block{Directive'#endif\n'}}}"},
};
INSTANTIATE_TEST_SUITE_P(Folded, TopLevel, testing::ValuesIn(kFolded), [](const auto& row) { return row.param.name; });

TEST(Folding, ReportsTheFirstAttemptIfNoneSucceeds) {
    const Parsed parsed("#ifdef A\n{\n#else\n{\n#endif\n}\nint x");
    EXPECT_EQ(errorsAsText(parsed), "7:5 Unexpected EOF found.; 7:5 Unexpected EOF found.");
}

TEST(Folding, LeavesDoubledHeadsAlone) {
    Parsed parsed("#ifdef A\nint f(int a)\n#else\nint f(void)\n#endif\n{ g(); }\n");
    EXPECT_EQ(treeAsText(parsed.root),
              "Root{Directive'#ifdef A\n' FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList{Parameter'int a'}}} "
              "Directive'#else\n' FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList{Parameter'void'}} Block{Expr'g;'}}}");
}

TEST(Messages, AreAppended) {
    std::istringstream in("int x");
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::MessageList messages = {{Trn::kSeverityWarning, {1, 1}, 0, "old"}};
    Cpp::Parser().parse(lexer, root, messages);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages.front().text, "old");
    EXPECT_EQ(messages.back().code, 7);
}

TEST(Messages, KnowTheirTexts) {
    EXPECT_EQ(Cpp::Parser::messageText(4), "Data declaration is missing a type specifier");
    EXPECT_EQ(Cpp::Parser::messageText(14), "Expected one of \"public\", \"protected\" or \"private\".");
    EXPECT_EQ(Cpp::Parser::messageText(15), "Unknown error.");
    EXPECT_EQ(Cpp::Parser::messageText(-1), "Unknown error.");
}

TEST(Parse, ReplacesTheRoot) {
    Cpp::RootNode root;
    Trn::MessageList messages;
    for (const char* source : {"int a; int b;", "int c;"}) {
        std::istringstream in(source);
        Cpp::Lexer lexer(in);
        Cpp::Parser().parse(lexer, root, messages);
    }
    EXPECT_EQ(treeAsText(root), "Root{DataDecl{Type'int' Id'c'}}");
}

TEST(Parse, RefusesAForeignRoot) {
    std::istringstream in("int a;");
    Cpp::Lexer lexer(in);
    Cpp::IdNode id;
    Trn::MessageList messages;
    EXPECT_THROW(Cpp::Parser().parse(lexer, id, messages), Trn::InvalidParameterException);
}

} // namespace
