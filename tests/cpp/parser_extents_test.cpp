#include "ParserTestTools.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
    const char* name;
    const char* source;
    const char* node;
    const char* covered;
};

// The first node of the kind that is named, and what it covers of the source.
const Row kRows[] = {
    {"DataThroughSemicolon", "int a = 1 ; int b;", "DataDecl", "int a = 1 ;"},
    {"DataThroughComma", "int a , b = 2;", "DataDecl", "int a ,"},
    {"DataInFrontOfLabel", "class A { Q_OBJECT public: int a; };", "DataDecl", "Q_OBJECT"},
    {"InitializerWithoutSemicolon", "int a = /* c */ 1 ;", "Expr", "= /* c */ 1"},
    {"Prototype", "int f() const ;", "FunctionDecl", "int f() const"},
    {"DefaultedFunction", "struct A { A() = default; };", "FunctionDecl", "A()"},
    {"NextMemberIsExplicit", "struct A { F(x) explicit A(int); };", "FunctionDecl", "F(x)"},
    {"OverrideIsNotCovered", "struct A { int f() override ; };", "FunctionDecl", "int f()"},
    {"FunctionThroughBrace", "int f() override { } ;", "FunctionDecl", "int f() override { }"},
    {"FunctionPointer", "int (*f)(int) = 0 ;", "FunctionPtrDecl", "int (*f)(int) = 0"},
    {"ClassThroughSemicolon", "struct A { int a; } ; int b;", "ClassDecl", "struct A { int a; } ;"},
    {"ClassInFrontOfDeclarator", "struct A { int a; } b;", "ClassDecl", "struct A { int a; }"},
    {"EnumThroughSemicolon", "enum E { A } ;", "EnumDecl", "enum E { A } ;"},
    {"EnumeratorThroughComma", "enum E { A = 1 , B };", "Expr", "A = 1 ,"},
    {"BaseClause", "class A : public virtual B<int> , C { };", "BaseClause", "public virtual B<int>"},
    {"AccessLabel", "class A { public slots : int a; };", "AccessSpec", "public slots :"},
    {"Namespace", "namespace A { int a; } ;", "NamespaceDecl", "namespace A { int a; }"},
    {"EmptyParameters", "void f( );", "ParameterList", "( )"},
    {"TemplateParameters", "template <class T> void f();", "ParameterList", "<class T>"},
    {"Statement", "void f() { a(b) ; }", "Expr", "a(b) ;"},
    {"StatementWithoutSemicolon", "void f() { x = 1 }", "Expr", "x = 1"},
    {"StatementInFrontOfComment", "void f() { F(x) // c\n }", "Expr", "F(x)"},
    {"GlobalNew", "void f() { ::new (p) T(a); }", "Expr", "::new (p) T(a);"},
    {"GlobalDelete", "void f() { ::delete (p); }", "Expr", "::delete (p);"},
    {"DoWhile", "void f() { do ; while (a) ; b(); }", "CtrlStmt", "do ; while (a) ;"},
    {"Condition", "void f() { if ( a ) ; }", "Expr", "( a )"},
    {"KeywordWithConstexpr", "void f() { if constexpr (a) ; }", "Keyword", "if constexpr"},
    {"EmptyStatement", "void f() { for (;;) ; }", "CtrlStmt", "for (;;) ;"},
    {"ControlledStatement", "void f() { if (a) b(); }", "CtrlStmt", "if (a) b();"},
    {"Case", "void f() { switch (a) { case 1 : ; } }", "Case", "case 1 :"},
    {"Label", "void f() { a : b(); }", "Label", "a :"},
    {"AsmLine", "void f() { _asm mov a, b ; c(); }", "Asm", "_asm mov a, b"},
    {"AsmBraced", "void f() { __asm { mov a, b } c(); }", "Asm", "__asm { mov a, b }"},
    {"DisabledRegion", "#if 0\n a\n#endif // b", "Directive", "#if 0\n a\n#endif "},
};

class ParserExtents : public testing::TestWithParam<Row> {};

TEST_P(ParserExtents, Covers) {
    const Row& row = GetParam();
    Parsed parsed(row.source);
    ASSERT_EQ(errorsAsText(parsed), "");
    const Cpp::SyntaxNode* node = findNode(parsed.root, row.node);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(coveredText(parsed, *node), row.covered);
    EXPECT_EQ(extentFault(parsed), "");
}

INSTANTIATE_TEST_SUITE_P(Parser, ParserExtents, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
