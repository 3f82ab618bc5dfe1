#include "ParserTestTools.h"

#include <gtest/gtest.h>

namespace {

class Functions : public testing::TestWithParam<ParseCase> {};
TEST_P(Functions, BuildTree) { checkTree(GetParam()); }

const ParseCase kHeads[] = {
    {"Prototype", "void f();", "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}}}"},
    {"LooksLikeData", "int x(5);", "Root{FunctionDecl{FunctionHead{Return'int' Id'x' ParameterList{Parameter'5'}}}}"},
    {"Definition", "int f(int a) { return a; }",
     "Root{FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList{Parameter'int a'}} Block{Expr'return a;'}}}"},
    {"AllParts", "int Foo::operator()(int a) const throw() = 0;",
     "Root{FunctionDecl{FunctionHead{Return'int' Id'Foo::operator()' ParameterList{Parameter'int a'} Text'const' "
     "Expr'throw ( )' Expr'= 0'}}}"},
    {"Destructor", "Foo::~Foo();", "Root{FunctionDecl{FunctionHead{Id'Foo::~Foo' ParameterList}}}"},
    {"SpacedDestructor", "~ Foo();", "Root{FunctionDecl{FunctionHead{Id'~ Foo' ParameterList}}}"},
    {"MemberOfTemplate", "void A<T>::g() { }",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'A < T > ::g' ParameterList} Block}}"},
    {"Declspec", "__declspec(dllexport) int f();",
     "Root{FunctionDecl{FunctionHead{Return'__declspec ( dllexport ) int' Id'f' ParameterList}}}"},
    {"Attribute", "[[nodiscard]] int f() { return 1; }",
     "Root{FunctionDecl{FunctionHead{Return'[ [ nodiscard ] ] int' Id'f' ParameterList} Block{Expr'return 1;'}}}"},
    {"TemplatesInReturnType", "vector<vector<int>> f(int a) { }",
     "Root{FunctionDecl{FunctionHead{Return'vector < vector < int >>' Id'f' ParameterList{Parameter'int a'}} Block}}"},
    {"StructInReturnType", "struct S f() { }", "Root{FunctionDecl{FunctionHead{Return'struct S' Id'f' ParameterList} Block}}"},
    {"MacroWithBlock", "MACRO(x) { y(); }",
     "Root{FunctionDecl{FunctionHead{Id'MACRO' ParameterList{Parameter'x'}} Block{Expr'y;'}}}"},
    {"TwoDeclarators", "void f(), g();",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}} FunctionDecl{FunctionHead{Id'g' ParameterList}}}"},
    {"NameInParens", "int (isalpha)(int c) { }",
     "Root{FunctionDecl{FunctionHead{Return'int' Id'( isalpha )' ParameterList{Parameter'int c'}} Block}}"},
    {"NothingButNameInParens", "(isalpha)(int c) { }",
     "Root{FunctionDecl{FunctionHead{Id'( isalpha )' ParameterList{Parameter'int c'}} Block}}"},
    {"AttributeBehindName", "Two foo __attribute__((init_priority(1005))) (5);",
     "Root{FunctionDecl{FunctionHead{Return'Two' Id'foo __attribute__ ( ( init_priority ( 1005 ) ) )' "
     "ParameterList{Parameter'5'}}}}"},
    {"ReturnsPointerToFunction", "void (*signal(int s))(int) { }",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'( * signal ( int s ) )' ParameterList{Parameter'int'}} Block}}"},
    {"MacroBeforeParameters", "STDMETHOD(get_X)(long *p) { return p; }",
     "Root{FunctionDecl{FunctionHead{Id'STDMETHOD' ParameterList{Parameter'get_X'}} Block{Expr'return p;'}}}"},
    {"MacrosInARow", "BEGIN_MAP(A,B) ON_X(a) END_MAP() void A::f() { }",
     "Root{FunctionDecl{FunctionHead{Id'BEGIN_MAP' ParameterList{Parameter'A' Parameter'B'}}} "
     "FunctionDecl{FunctionHead{Id'ON_X' ParameterList{Parameter'a'}}} "
     "FunctionDecl{FunctionHead{Id'END_MAP' ParameterList}} "
     "FunctionDecl{FunctionHead{Return'void' Id'A::f' ParameterList} Block}}"},
    {"OldStyleParameters", "int f(a, b) int a; char *b; { return a; }",
     "Root{FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList{Parameter'a' Parameter'b'}}} "
     "DataDecl{Type'int' Id'a'} DataDecl{Type'char *' Id'b'} Block{Expr'return a;'}}"},
};
INSTANTIATE_TEST_SUITE_P(Heads, Functions, testing::ValuesIn(kHeads), [](const auto& row) { return row.param.name; });

const ParseCase kOperators[] = {
    {"Conversion", "operator int();", "Root{FunctionDecl{FunctionHead{Id'operator int' ParameterList}}}"},
    {"QualifiedConversion", "A::operator const char *() const;",
     "Root{FunctionDecl{FunctionHead{Id'A::operator const char *' ParameterList Text'const'}}}"},
    {"Assign", "A& A::operator=(const A& a);",
     "Root{FunctionDecl{FunctionHead{Return'A &' Id'A::operator=' ParameterList{Parameter'const A & a'}}}}"},
    {"Less", "bool operator<(A a, A b);",
     "Root{FunctionDecl{FunctionHead{Return'bool' Id'operator<' ParameterList{Parameter'A a' Parameter'A b'}}}}"},
    {"Index", "int operator[](int i);", "Root{FunctionDecl{FunctionHead{Return'int' Id'operator[]' ParameterList{Parameter'int i'}}}}"},
    {"NewArray", "void *operator new[](size_t n);",
     "Root{FunctionDecl{FunctionHead{Return'void *' Id'operator new[]' ParameterList{Parameter'size_t n'}}}}"},
    {"Literal", "int operator\"\"_km(long double x);",
     "Root{FunctionDecl{FunctionHead{Return'int' Id'operator\"\" _km' ParameterList{Parameter'long double x'}}}}"},
};
INSTANTIATE_TEST_SUITE_P(Operators, Functions, testing::ValuesIn(kOperators), [](const auto& row) { return row.param.name; });

const ParseCase kParameters[] = {
    {"TemplateComma", "void f(int a, std::map<int, int> b);",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList{Parameter'int a' Parameter'std::map < int , int > b'}}}}"},
    {"ShiftClosesTwo", "void f(vector<vector<int>> v, int b);",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList{Parameter'vector < vector < int >> v' Parameter'int b'}}}}"},
    {"ComparisonAsDefault", "void f(int a = b < c);",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList{Parameter'int a = b < c'}}}}"},
    {"CommentsBetween", "void f(int a, /* b */ int b /* c */);",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList{Parameter'int a' Comment'/* b */' Parameter'int b' "
     "Comment'/* c */'}}}}"},
    {"DirectiveBetween", "void f(int a,\n#ifdef X\nint b,\n#endif\nint c);",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList{Parameter'int a' Parameter'int b' Parameter'int c'}}}}"},
};
INSTANTIATE_TEST_SUITE_P(Parameters, Functions, testing::ValuesIn(kParameters), [](const auto& row) { return row.param.name; });

const ParseCase kInitializers[] = {
    {"Two", "Foo::Foo() : a(1), b(2) { }",
     "Root{CtorDecl{FunctionHead{Id'Foo::Foo' ParameterList} InitializerList{Initializer{Id'a' ArgList{Arg'1'}} "
     "Initializer{Id'b' ArgList{Arg'2'}}} Block}}"},
    {"BracesAndLambda", "C::C() : a{1}, cb([this]{ g(); }) { h(); }",
     "Root{CtorDecl{FunctionHead{Id'C::C' ParameterList} InitializerList{Initializer{Id'a' ArgList{Arg'1'}} "
     "Initializer{Id'cb' ArgList{Arg'[ this ] { g ( ) ; }'}}} Block{Expr'h;'}}}"},
    {"TemplateBase", "C::C() : A<int, 2>(1, x) { }",
     "Root{CtorDecl{FunctionHead{Id'C::C' ParameterList} InitializerList{Initializer{Id'A < int , 2 >' ArgList{Arg'1' Arg'x'}}} "
     "Block}}"},
    {"DecltypeBase", "C::C() : decltype(a)(1) { }",
     "Root{CtorDecl{FunctionHead{Id'C::C' ParameterList} InitializerList{Initializer{Id'decltype ( a )' ArgList{Arg'1'}}} "
     "Block}}"},
    {"Pack", "C::C(Ts... t) : Ts(t)... { }",
     "Root{CtorDecl{FunctionHead{Id'C::C' ParameterList{Parameter'Ts . . . t'}} InitializerList{Initializer{Id'Ts' "
     "ArgList{Arg't'}}} Block}}"},
    {"CommentsAndDirectives", "C::C() : a(1) // x\n#ifdef B\n, b(2)\n#endif\n{ }",
     "Root{CtorDecl{FunctionHead{Id'C::C' ParameterList} InitializerList{Initializer{Id'a' ArgList{Arg'1'}} Comment'// x\n' "
     "Directive'#ifdef B\n' Initializer{Id'b' ArgList{Arg'2'}} Directive'#endif\n'} Block}}"},
};
INSTANTIATE_TEST_SUITE_P(Initializers, Functions, testing::ValuesIn(kInitializers), [](const auto& row) { return row.param.name; });

// What follows the parameters and is no part of the head lies between the head and the body or the ";".
const ParseCase kTails[] = {
    {"Override", "void f() const override;", "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList Text'const'}}}"},
    {"OverrideWithBody", "void f() override { g(); }",
     "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block{Expr'g;'}}}"},
    {"Noexcept", "void f() noexcept(true) { }", "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block}}"},
    {"TrailingReturn", "auto f() -> std::map<int, int> { }", "Root{FunctionDecl{FunctionHead{Return'auto' Id'f' ParameterList} Block}}"},
    {"Defaulted", "X() = default;\nint a;", "Root{FunctionDecl{FunctionHead{Id'X' ParameterList}} DataDecl{Type'int' Id'a'}}"},
    {"Requires", "void f() requires (!A<T>) || B<T> { }", "Root{FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList} Block}}"},
    {"GnuAttributes", "extern int g(int) __THROW __attribute__ ((x)) __nonnull ((1));\nint a;",
     "Root{FunctionDecl{FunctionHead{Return'extern int' Id'g' ParameterList{Parameter'int'}}} DataDecl{Type'int' Id'a'}}"},
    {"AsmLabel", "int f(void) __asm__(\"g\");", "Root{FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList{Parameter'void'}}}}"},
    // A macro with an argument in the place of a specifier or a type is no function of its own.
    {"SpecifierMacro", "static API(x) int f(int a) { }",
     "Root{FunctionDecl{FunctionHead{Return'static API ( x ) int' Id'f' ParameterList{Parameter'int a'}} Block}}"},
    {"TypeMacro", "PUBLIC(const char *) f(int a) { } STDMETHODIMP_(ULONG) A::f() { }",
     "Root{FunctionDecl{FunctionHead{Return'PUBLIC ( const char * )' Id'f' ParameterList{Parameter'int a'}} Block} "
     "FunctionDecl{FunctionHead{Return'STDMETHODIMP_ ( ULONG )' Id'A::f' ParameterList} Block}}"},
    {"MacroNameWithTail", "int __f(A a) noexcept(B(a)) { } int __g(void) __must_hold(x) { } int F(a) int a; { }",
     "Root{FunctionDecl{FunctionHead{Return'int' Id'__f' ParameterList{Parameter'A a'}} Block} "
     "FunctionDecl{FunctionHead{Return'int' Id'__g' ParameterList{Parameter'void'}} Block} "
     "FunctionDecl{FunctionHead{Return'int' Id'F' ParameterList{Parameter'a'}}} DataDecl{Type'int' Id'a'} Block}"},
    {"FunctionTry", "int f() try { return 0; } catch (...) { }",
     "Root{FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList}} CtrlStmt{CtrlSubStmt{Head{Keyword'try'} "
     "Block{Expr'return 0;'}} CtrlSubStmt{Head{Keyword'catch' Expr} Block}}}"},
    {"FunctionTryWithInits", "A::A() try : a(1), b{2} { f(); } catch (...) { }",
     "Root{FunctionDecl{FunctionHead{Id'A::A' ParameterList}} CtrlStmt{CtrlSubStmt{Head{Keyword'try' "
     "Expr': a ( 1 ) , b { 2 }'} Block{Expr'f;'}} CtrlSubStmt{Head{Keyword'catch' Expr} Block}}}"},
    // A comment in front of what does not belong to the function is a node, so that a marker in it is seen.
    {"CommentBehindMacro", "IMPL(A)\n// mark\nint  a;",
     "Root{FunctionDecl{FunctionHead{Id'IMPL' ParameterList{Parameter'A'}}} Comment'// mark\n' DataDecl{Type'int' Id'a'}}"},
};
INSTANTIATE_TEST_SUITE_P(Tails, Functions, testing::ValuesIn(kTails), [](const auto& row) { return row.param.name; });

class FunctionMessages : public testing::TestWithParam<MessageCase> {};
TEST_P(FunctionMessages, Are) { checkMessages(GetParam()); }
const MessageCase kMessages[] = {
    {"ThrowWithoutParen", "void f() throw int;",
     "1:16 Expected '(' as part of exception specification clause 'throw()'. Got: int; 1:1 The statement cannot be parsed."},
    {"OpenAngle", "void f(std::vector<int a);", "1:25 Expected '>'. Got: )"},
    {"CallOperator", "int A::operator(int);",
     "1:17 Expected ')'. As part of overloaded function call operator.; 1:1 The statement cannot be parsed."},
    {"CallOperatorOfAClass", "struct A { int operator(int); };",
     "1:25 Expected ')'. As part of overloaded function call operator.; 1:12 The statement cannot be parsed."},
    {"PlainOperatorIsAName", "int operator(int);", ""},
    {"NewWithoutList", "void *operator new x(int);", "1:20 Expected (.; 1:1 The statement cannot be parsed."},
    {"OpenIndexOperator", "int A::operator[;",
     "1:17 Expected [.; 1:1 The statement cannot be parsed."},
    {"OpenConversion", "struct A { operator B<C(); };", "1:22 Expected \"<\".; 1:12 The statement cannot be parsed."},
    {"ArrayNamedOperator", "int operator[5];", ""},
    {"UnknownOperator", "int A::operator ? (int);", "1:17 Could not recognize overloaded operator.; 1:1 The statement cannot be parsed."},
    {"InitializersWithoutBody", "A::A() : a(1)", "1:13 Unexpected EOF found.; 1:1 The statement cannot be parsed."},
};
INSTANTIATE_TEST_SUITE_P(Rows, FunctionMessages, testing::ValuesIn(kMessages), [](const auto& row) { return row.param.name; });

TEST(FunctionNote, IsRaisedOnceAndStopsNothing) {
    const Parsed parsed("void f() const override final;");
    ASSERT_EQ(parsed.messages.size(), 1u);
    EXPECT_EQ(parsed.messages.front().code, 2);
    EXPECT_EQ(parsed.messages.front().text, "Unexpected token. Was expecting to find \";\" or \"{\".");
    EXPECT_EQ(parsed.messages.front().position, (Trn::Position{1, 16}));
}

TEST(FunctionExtent, PrototypeEndsAtItsHead) {
    Parsed parsed("int f(int a) const throw(X) = 0;\nint g() override;\n");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(0)), "int f(int a) const throw(X) = 0");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(1)), "int g()");
}

TEST(FunctionExtent, EmptyParameterListHasItsBrackets) {
    Parsed parsed("void f( );");
    EXPECT_EQ(coveredText(parsed, *findNode(parsed.root, "ParameterList")), "( )");
}

} // namespace
