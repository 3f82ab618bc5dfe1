#include "ParserTestTools.h"

#include <gtest/gtest.h>

namespace {

class Classes : public testing::TestWithParam<ParseCase> {};
TEST_P(Classes, BuildTree) { checkTree(GetParam()); }

const ParseCase kInterfaces[] = {
    {"Interface", "interface I : public J { void g(); };",
     "Root{ClassDecl{ClassHead{ClassName'struct|I' BaseClauseList{BaseClause'public J'}} "
     "ClassBody{FunctionDecl{FunctionHead{Return'void' Id'g' ParameterList}}}}}"},
    {"MacroWithUuid", "MIDL_INTERFACE(\"x\") I : J { };",
     "Root{ClassDecl{ClassHead{ClassName'struct|( \"x\" ) I' BaseClauseList{BaseClause'J'}} ClassBody}}"},
    {"AttributeInFront", "[uuid(\"x\")] interface API(\"y\") I { };",
     "Root{ClassDecl{ClassHead{ClassName'struct|[ uuid ( \"x\" ) ] API ( \"y\" ) I'} ClassBody}}"},
    {"NamesOfC", "struct interface { int a; }; interface x; int interface(void);",
     "Root{ClassDecl{ClassHead{ClassName'struct|interface'} ClassBody{DataDecl{Type'int' Id'a'}}} DataDecl{Type'interface' Id'x'} "
     "FunctionDecl{FunctionHead{Return'int' Id'interface' ParameterList{Parameter'void'}}}}"},
};
class Interfaces : public testing::TestWithParam<ParseCase> {};
TEST_P(Interfaces, BuildTree) { checkTree(GetParam()); }
INSTANTIATE_TEST_SUITE_P(Parser, Interfaces, testing::ValuesIn(kInterfaces),
                         [](const auto& row) { return std::string(row.param.name); });

const ParseCase kHeads[] = {
    {"Anonymous", "struct { int a; };", "Root{ClassDecl{ClassHead{ClassName'struct|'} ClassBody{DataDecl{Type'int' Id'a'}}}}"},
    {"Declspec", "class __declspec(dllexport) Foo : public Bar {};",
     "Root{ClassDecl{ClassHead{ClassName'class|__declspec ( dllexport ) Foo' BaseClauseList{BaseClause'public Bar'}} ClassBody}}"},
    {"MacroWithArgument", "class ATTR(x) Foo : public Bar { public: };",
     "Root{ClassDecl{ClassHead{ClassName'class|ATTR ( x ) Foo' BaseClauseList{BaseClause'public Bar'}} "
     "ClassBody{AccessSpec'public'}}}"},
    {"MacrosWithArguments", "class A(x) B C(y) Foo final : Bar { };",
     "Root{ClassDecl{ClassHead{ClassName'class|A ( x ) B C ( y ) Foo final' BaseClauseList{BaseClause'Bar'}} ClassBody}}"},
    {"MacroBehindAMacro", "class EXPORT CAPABILITY(\"m\") Foo { };",
     "Root{ClassDecl{ClassHead{ClassName'class|EXPORT CAPABILITY ( \"m\" ) Foo'} ClassBody}}"},
    {"FunctionWithATail", "struct FOO F(int) NOTHROW { }",
     "Root{FunctionDecl{FunctionHead{Return'struct FOO' Id'F' ParameterList{Parameter'int'}} Block}}"},
    {"MacroAsName", "struct NAME(x) { int a : 3; };",
     "Root{ClassDecl{ClassHead{ClassName'struct|NAME ( x )'} ClassBody{DataDecl{Type'int' Id'a' Expr': 3'}}}}"},
    {"Alignas", "struct alignas(16) S { };", "Root{ClassDecl{ClassHead{ClassName'struct|alignas ( 16 ) S'} ClassBody}}"},
    {"BaseClauses", "class A : public virtual B, private C { };",
     "Root{ClassDecl{ClassHead{ClassName'class|A' BaseClauseList{BaseClause'public virtual B' BaseClause'private C'}} ClassBody}}"},
    {"TemplateBases", "class A final : B<int, C<D>>, Es... { };",
     "Root{ClassDecl{ClassHead{ClassName'class|A final' BaseClauseList{BaseClause'B < int , C < D >>' BaseClause'Es . . .'}} "
     "ClassBody}}"},
    {"Specialisation", "struct hash<vector<int>> { };",
     "Root{ClassDecl{ClassHead{ClassName'struct|hash < vector < int >>'} ClassBody}}"},
    // Members, though two names and a comma in the braces look like the values of an object.
    {"MacroBeforeName", "class API A { A() : b(1), c(2) { } }; class API B { };",
     "Root{ClassDecl{ClassHead{ClassName'class|API A'} ClassBody{CtorDecl{FunctionHead{Id'A' ParameterList} "
     "InitializerList{Initializer{Id'b' ArgList{Arg'1'}} Initializer{Id'c' ArgList{Arg'2'}}} Block}}} ClassDecl{ClassHead{ClassName'class|API B'} ClassBody}}"},
    {"EnumInArguments", "struct A : B<enum E> { };",
     "Root{ClassDecl{ClassHead{ClassName'struct|A' BaseClauseList{BaseClause'B < enum E >'}} ClassBody}}"},
};
INSTANTIATE_TEST_SUITE_P(Heads, Classes, testing::ValuesIn(kHeads), [](const auto& row) { return row.param.name; });

const ParseCase kBodies[] = {
    {"Members", "class A { int a; void f(); };",
     "Root{ClassDecl{ClassHead{ClassName'class|A'} ClassBody{DataDecl{Type'int' Id'a'} "
     "FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}}}}}"},
    {"AccessLabels", "class A { public slots: int a; signals: void f(); };",
     "Root{ClassDecl{ClassHead{ClassName'class|A'} ClassBody{AccessSpec'public' DataDecl{Type'int' Id'a'} AccessSpec "
     "FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}}}}}"},
    // The macro is data without a type, and the label is left for the next turn.
    {"MacroBeforeLabel", "class A { Q_OBJECT public: int x; };",
     "Root{ClassDecl{ClassHead{ClassName'class|A'} ClassBody{DataDecl{Id'Q_OBJECT'} AccessSpec'public' "
     "DataDecl{Type'int' Id'x'}}}}"},
    {"Bitfields", "struct S { int a : 3, b : 4; unsigned : 2; u8 c : 1; u8 : 4; };",
     "Root{ClassDecl{ClassHead{ClassName'struct|S'} ClassBody{DataDecl{Type'int' Id'a' Expr': 3 , b : 4'} "
     "DataDecl{Type'unsigned' Expr': 2'} DataDecl{Type'u8' Id'c' Expr': 1'} DataDecl{Type'u8' Expr': 4'}}}}"},
    {"Nested", "class A { class B { int x; }; enum { C }; };",
     "Root{ClassDecl{ClassHead{ClassName'class|A'} ClassBody{ClassDecl{ClassHead{ClassName'class|B'} "
     "ClassBody{DataDecl{Type'int' Id'x'}}} EnumDecl{EnumHead EnumBody{Expr'C'}}}}}"},
    {"UsingLeavesNoNode", "class A { using B::g; /* c */ template <class T> void f(); };",
     "Root{ClassDecl{ClassHead{ClassName'class|A'} ClassBody{Comment'/* c */' Template{Keyword'template' "
     "ParameterList{Parameter'class T'}} FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}}}}}"},
    {"MacroAsBlockHead", "class A { FOO { x(); } };",
     "Root{ClassDecl{ClassHead{ClassName'class|A'} ClassBody{Expr'FOO' Block{Expr'x;'}}}}"},
    {"DisabledProse", "class A {\n#if 0\nit's off } {\n#endif\nint a; };",
     "Root{ClassDecl{ClassHead{ClassName'class|A'} ClassBody{Directive DataDecl{Type'int' Id'a'}}}}"},
    {"Declarators", "struct S { int a; } s;",
     "Root{ClassDecl{ClassHead{ClassName'struct|S'} ClassBody{DataDecl{Type'int' Id'a'}}} DataDecl{Id's'}}"},
};
INSTANTIATE_TEST_SUITE_P(Bodies, Classes, testing::ValuesIn(kBodies), [](const auto& row) { return row.param.name; });

const ParseCase kEnums[] = {
    {"CommentBetween", "enum { A = 1, /* c */ B };", "Root{EnumDecl{EnumHead EnumBody{Expr'A = 1' Comment'/* c */' Expr'B'}}}"},
    {"Scoped", "enum class E : int { A };", "Root{EnumDecl{EnumHead'class E : int' EnumBody{Expr'A'}}}"},
    {"Directives", "enum E { A,\n#ifdef X\nB,\n#endif\n};",
     "Root{EnumDecl{EnumHead'E' EnumBody{Expr'A' Directive'#ifdef X\n' Expr'B' Directive'#endif\n'}}}"},
    {"CommaInCall", "enum E { A = F(1, 2), B };", "Root{EnumDecl{EnumHead'E' EnumBody{Expr'A = F ( 1 , 2 )' Expr'B'}}}"},
};
INSTANTIATE_TEST_SUITE_P(Enums, Classes, testing::ValuesIn(kEnums), [](const auto& row) { return row.param.name; });

const ParseCase kNamespaces[] = {
    {"Nested", "namespace a::b { inline namespace c { int x; } }",
     "Root{NamespaceDecl{NamespaceHead'a::b' NamespaceBody{NamespaceDecl{NamespaceHead'c' "
     "NamespaceBody{DataDecl{Type'int' Id'x'}}}}}}"},
    {"MacroBehindName", "namespace X VIS(default) { }", "Root{NamespaceDecl{NamespaceHead'X' NamespaceBody}}"},
};
INSTANTIATE_TEST_SUITE_P(Namespaces, Classes, testing::ValuesIn(kNamespaces), [](const auto& row) { return row.param.name; });

const ParseCase kTemplates[] = {
    // The "<" of the comparison must not take the ">" of the list.
    {"ComparisonAsDefault", "template <int N, bool = N < cast<int>(M)> struct S { };",
     "Root{Template{Keyword'template' ParameterList{Parameter'int N' Parameter'bool = N < cast < int > ( M )'}} "
     "ClassDecl{ClassHead{ClassName'struct|S'} ClassBody}}"},
    {"Constrained", "template <class T> requires C<T> && (D<T>) void f();",
     "Root{Template{Keyword'template' ParameterList{Parameter'class T'}} FunctionDecl{FunctionHead{"
     "Return'requires C < T > && ( D < T > ) void' Id'f' ParameterList}}}"},
    {"Exported", "export template <class T> void f();",
     "Root{Template{Keyword'template' ParameterList{Parameter'class T'}} FunctionDecl{FunctionHead{Return'void' Id'f' "
     "ParameterList}}}"},
};
INSTANTIATE_TEST_SUITE_P(Templates, Classes, testing::ValuesIn(kTemplates), [](const auto& row) { return row.param.name; });

class ClassMessages : public testing::TestWithParam<MessageCase> {};
TEST_P(ClassMessages, Are) { checkMessages(GetParam()); }
const MessageCase kMessages[] = {
    {"SecondVirtual", "class A : virtual B, virtual virtual C { };", "1:30 Not expecting to find keyword \"virtual\""},
    {"TokenInBases", "class A : B + C { };", "1:13 Unexpected Token: \"+\""},
    {"NumberAsBase", "class A : 5 { };", "1:11 Unexpected Token: \"5\""},
    {"NumberInBase", "class A : B<5> { }; class C : D::E<6>::F { };", ""},
    {"NoClassAtAll", "static const { int a; };",
     "1:14 Expected an identifier for the class name.; 1:1 The statement cannot be parsed."},
    {"MacroInFrontOfBraces", "static TABLE { int a; };", ""},
    {"NamespaceWithoutBody", "namespace foo;", "1:14 Expected:: \"{\"."},
    {"OpenEnum", "enum E { A,",
     "1:8 Expected \"}\" first to close enum declaration.; 1:11 Unexpected EOF found.; 1:1 The statement cannot be parsed."},
    {"OpenTemplate", "template <class T int x;", "1:24 Unexpected EOF found."},
    {"ControlInLinkage", "extern \"C\" { while { } }",
     "1:14 control statements (e.g. if, else, while) are illegal inside linkage blocks."},
};
INSTANTIATE_TEST_SUITE_P(Rows, ClassMessages, testing::ValuesIn(kMessages), [](const auto& row) { return row.param.name; });

TEST(ClassExtent, RunsToADirectlyFollowingSemicolon) {
    Parsed parsed("class A { } /* c */ ;\nstruct B { } b;\n");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(0)), "class A { } /* c */ ;");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(1)), "struct B { }");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(2)), "b;");
}

TEST(ClassExtent, EnumeratorsEndAtTheirCommas) {
    Parsed parsed("enum E { A = 1 , B };");
    Cpp::SyntaxNode* body = findNode(parsed.root, "EnumBody");
    ASSERT_NE(body, nullptr);
    EXPECT_EQ(coveredText(parsed, *viewOf(*body).children[0]), "A = 1 ,");
}

TEST(ClassExtent, LabelsEndAtTheirColon) {
    Parsed parsed("class A { public slots : int a; };");
    EXPECT_EQ(coveredText(parsed, *findNode(parsed.root, "AccessSpec")), "public slots :");
}

} // namespace
