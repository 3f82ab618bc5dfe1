#include "ParserTestTools.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
    const char* name;
    const char* source;
    const char* tree;
};

// Branches that only together with the rest of the text are well-formed. One of them is read, the
// others are left alone as a region; where all branches are even, all are read.
const Row kRows[] = {
    {"EvenBranches", "#ifdef A\nint a;\n#else\nint b;\n#endif\n",
     "Root{Directive'#ifdef A\n' DataDecl{Type'int' Id'a'} Directive'#else\n' DataDecl{Type'int' Id'b'} "
     "Directive'#endif\n'}"},
    {"OpenBraceInEachBranch", "void f() {\n#ifdef A\nif (a) {\n#else\nif (b) {\n#endif\nx(); }\n}",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block{Directive'#ifdef A\n' "
     "CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Directive Expr'x;'}}}}}}"},
    {"HeadInEachBranch", "#ifdef A\nint f(int a)\n{\n#else\nint f()\n{\n#endif\n}\nint b;",
     "Root{Directive'#ifdef A\n' FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList{Parameter'int a'}} "
     "Block{Directive}} DataDecl{Type'int' Id'b'}}"},
    {"LinkageForOtherLanguage",
     "#ifdef __cplusplus\nextern \"C\" {\n#endif\nint a;\n#ifdef __cplusplus\n}\n#endif\n",
     "Root{Directive'#ifdef __cplusplus\n' LinkageBlock{Expr'extern \"C\"' LinkageBlockBody{Directive'#endif\n' "
     "DataDecl{Type'int' Id'a'} Directive'#ifdef __cplusplus\n'}} Directive'#endif\n'}"},
    {"ElseInOneBranch", "void f() {\n#ifdef A\nif (a) {\n} else {\n#else\n{\n#endif\nx(); }\n}",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block{Directive'#ifdef A\n' "
     "CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block} CtrlSubStmt{Head{Keyword'else'} "
     "Block{Directive Expr'x;'}}}}}}"},
};

class ParserConditionals : public testing::TestWithParam<Row> {};

TEST_P(ParserConditionals, BuildsTree) {
    Parsed parsed(GetParam().source);
    EXPECT_EQ(treeAsText(parsed.root), GetParam().tree);
    EXPECT_EQ(errorsAsText(parsed), "");
    EXPECT_EQ(extentFault(parsed), "");
}

INSTANTIATE_TEST_SUITE_P(Parser, ParserConditionals, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
