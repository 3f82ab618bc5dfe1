#include "ParserTestTools.h"

#include <gtest/gtest.h>

#include <string>

namespace {

class Declarations : public testing::TestWithParam<ParseCase> {};
TEST_P(Declarations, BuildTree) { checkTree(GetParam()); }

const ParseCase kData[] = {
    {"TypeAndName", "int a;", "Root{DataDecl{Type'int' Id'a'}}"},
    {"Initializer", "int a = 5;", "Root{DataDecl{Type'int' Id'a' Expr'= 5'}}"},
    // The comma in front of a "=" cuts the declaration; the rest has no type.
    {"CommaBeforeInitializer", "int a, b = 2;", "Root{DataDecl{Type'int' Id'a'} DataDecl{Id'b' Expr'= 2'}}"},
    // Without a "=" one declaration holds all declarators.
    {"CommaWithoutInitializer", "int a, b;", "Root{DataDecl{Type'int' Id'a'}}"},
    {"CommaBehindInitializer", "int a = 1, b;", "Root{DataDecl{Type'int' Id'a' Expr'= 1 , b'}}"},
    {"CommentBehindAssign", "int a = /* c */ 5;", "Root{DataDecl{Type'int' Id'a' Expr'= 5'}}"},
    {"Pointer", "const char *const p;", "Root{DataDecl{Type'const char * const' Id'p'}}"},
    {"Arrays", "int a[3], b[4];", "Root{DataDecl{Type'int' Id'a [ 3 ]'} DataDecl{Id'b [ 4 ]'}}"},
    {"TemplateComma", "std::map<int, int> m;", "Root{DataDecl{Type'std::map < int , int >' Id'm'}}"},
    {"ParensInTemplate", "std::function<void(int)> cb;", "Root{DataDecl{Type'std::function < void ( int ) >' Id'cb'}}"},
    {"BraceInitializer", "int x{5};", "Root{DataDecl{Type'int' Id'x' Expr'{ 5 }'}}"},
    {"BraceInitializerBehindComma", "int a, b{2};", "Root{DataDecl{Type'int' Id'a'} DataDecl{Id'b' Expr'{ 2 }'}}"},
    {"LambdaInitializer", "auto f = [] { g(); h(); };", "Root{DataDecl{Type'auto' Id'f' Expr'= [ ] { g ( ) ; h ( ) ; }'}}"},
    {"StructuredBinding", "auto [a, b] = f();", "Root{DataDecl{Id'auto [ a , b ]' Expr'= f ( )'}}"},
    {"DisabledRegionInInitializer", "int a[] = {\n#if 0\n 1;\n#endif\n 2};", "Root{DataDecl{Type'int' Id'a [ ]' Expr'= { 2 }'}}"},
    // A key and a name alone declare no name.
    {"ForwardClass", "struct A;", "Root{DataDecl{Type'struct A'}}"},
    {"StructVariable", "struct S s = {1};", "Root{DataDecl{Type'struct S' Id's' Expr'= { 1 }'}}"},
    {"StructBraceInit", "struct S s{1, 2};", "Root{DataDecl{Type'struct S' Id's' Expr'{ 1 , 2 }'}}"},
    {"StructBraceInitOfOneName", "struct S s{x};", "Root{DataDecl{Type'struct S' Id's' Expr'{ x }'}}"},
    {"StructBraceInitOfMember", "struct S s{.x = 1};", "Root{DataDecl{Type'struct S' Id's' Expr'{ . x = 1 }'}}"},
    {"EmptyStructBraceInit", "struct stat st{};", "Root{DataDecl{Type'struct stat' Id'st' Expr'{ }'}}"},
    {"BasesWithoutBody", "class X : public Y;", "Root{DataDecl{Type'class X : public' Id'Y'}}"},
    {"TypeAttribute", "alignas(16) int x;", "Root{DataDecl{Type'alignas ( 16 ) int' Id'x'}}"},
    {"TypeWithArgument", "_Atomic(int) a; unsigned _BitInt(3) b; typeof_unqual(c) d;",
     "Root{DataDecl{Type'_Atomic ( int )' Id'a'} DataDecl{Type'unsigned _BitInt ( 3 )' Id'b'} "
     "DataDecl{Type'typeof_unqual ( c )' Id'd'}}"},
    // Braces among the arguments of a template are a value or a closure, and end no list.
    {"BracesInArguments", "A<B{1}> a; int b = c<d{e}>(f);",
     "Root{DataDecl{Type'A < B { 1 } >' Id'a'} DataDecl{Type'int' Id'b' Expr'= c < d { e } > ( f )'}}"},
    {"ClosureInParameters", "template <auto F = [] { return 1; }> struct S { }; template <A<3>{}> struct T;",
     "Root{Template{Keyword'template' ParameterList{Parameter'auto F = [ ] { return 1 ; }'}} "
     "ClassDecl{ClassHead{ClassName'struct|S'} ClassBody} Template{Keyword'template' ParameterList{Parameter'A < 3 > { }'}} "
     "DataDecl{Type'struct T'}}"},
    {"ModuleName", "export module a.b.c; import d.e;",
     "Root{DataDecl{Type'export module' Id'a . b . c'} DataDecl{Type'import' Id'd . e'}}"},
    // A blank between the template and its member would be no error, but no name either.
    {"MemberOfTemplate", "int A<T>::x = 3; B<U>::C<V>::y; std::map<int, int>::iterator z;",
     "Root{DataDecl{Type'int' Id'A < T > ::x' Expr'= 3'} DataDecl{Id'B < U > ::C < V > ::y'} "
     "DataDecl{Type'std::map < int , int > ::iterator' Id'z'}}"},
    {"TypedefOfKeyword", "typedef int bool;", "Root{DataDecl{Type'typedef int' Id'bool'}}"},
};
INSTANTIATE_TEST_SUITE_P(Data, Declarations, testing::ValuesIn(kData), [](const auto& row) { return row.param.name; });

const ParseCase kPointers[] = {
    {"ToFunction", "int (*fp)(int);", "Root{FunctionPtrDecl{Return'int' Id'* fp' ParameterList{Parameter'int'}}}"},
    {"ReturningPointer", "int *(*fp)(int);", "Root{FunctionPtrDecl{Return'int *' Id'* fp' ParameterList{Parameter'int'}}}"},
    {"ToArray", "int (*p)[10];", "Root{FunctionPtrDecl{Return'int' Id'* p' Text'[ 10 ]'}}"},
    {"MacroInFrontOfATemplate", "struct S { int F(a)(b) c\n template <class T> void g(); };",
     "Root{ClassDecl{ClassHead{ClassName'struct|S'} ClassBody{FunctionPtrDecl{Return'int F' Id'a' "
     "ParameterList{Parameter'b'} Text'c'} Template{Keyword'template' ParameterList{Parameter'class T'}} "
     "FunctionDecl{FunctionHead{Return'void' Id'g' ParameterList}}}}}"},
    {"ToMember", "int (A::*p)(int) const;", "Root{FunctionPtrDecl{Return'int' Id'A:: * p' ParameterList{Parameter'int'} Text'const'}}"},
    {"ReferenceToArray", "char (&yes)[1];", "Root{FunctionPtrDecl{Return'char' Id'& yes' Text'[ 1 ]'}}"},
    {"CallingConvention", "int (WINAPI *f)(int);", "Root{FunctionPtrDecl{Return'int' Id'WINAPI * f' ParameterList{Parameter'int'}}}"},
    {"Table", "static int (*t[])(void) = { a, b };",
     "Root{FunctionPtrDecl{Return'static int' Id'* t [ ]' ParameterList{Parameter'void'} Text'= { a , b }'}}"},
    {"NameInParens", "int (x);", "Root{FunctionPtrDecl{Return'int' Id'x'}}"},
    {"OperatorAsMacroArgument", "OPS(*, mul)\nint x;",
     "Root{FunctionDecl{FunctionHead{Id'OPS' ParameterList{Parameter'*' Parameter'mul'}}} DataDecl{Type'int' Id'x'}}"},
};
INSTANTIATE_TEST_SUITE_P(Pointers, Declarations, testing::ValuesIn(kPointers), [](const auto& row) { return row.param.name; });

// What a C program may name with words that only C++ keeps for itself.
const char* const kNamesInC[] = {
    "int class = 1; int new, delete; char *template, **this;",
    "struct template { int new, private : 3, public; char *operator, virtual[2]; } *template;",
    "union namespace { int a; } u; enum class { A, B }; struct operator *o;",
    "void delete(struct node *new) { free(new); } struct x *new(void) { return 0; }",
    "int throw(int x) { return x; } int catch(int x) { return x; } int operator(int a);",
    "int f(int private, char *class, int template[]) { return typename ? explicit : protected; }",
    "void f(void) { x->new = y; f(this, template, class); this->class = 3; delete(x); new = old; }",
    "void f(void) { operator = 5; try(1); catch = 2; throw = 3; virtual->a = namespace.b; using = 1; }",
    "void f(void) { switch (class) { case private: break; } goto delete; delete: friend[1] = export(2); }",
    "void f(void) { char loadable, private, public; private = public; template->x = 2; mutable++; }",
    "typedef int bool; typedef unsigned short wchar_t; typedef unsigned long size_t;",
    "struct k { u8 private[4]; T public[2]; }; void f(void) { x.public[1] = private[0]; }",
};

TEST(NamesInC, AreAcceptedWhereTheKeywordCannotStand) {
    for (const char* source : kNamesInC) {
        SCOPED_TRACE(source);
        const Parsed parsed(source);
        EXPECT_EQ(errorsAsText(parsed), "");
        EXPECT_EQ(extentFault(parsed), "");
    }
}

TEST(NamesInC, AreNames) {
    Parsed parsed("void delete(int private);");
    EXPECT_EQ(treeAsText(parsed.root),
              "Root{FunctionDecl{FunctionHead{Return'void' Id'delete' ParameterList{Parameter'int private'}}}}");
}

class DeclarationMessages : public testing::TestWithParam<MessageCase> {};
TEST_P(DeclarationMessages, Are) { checkMessages(GetParam()); }
const MessageCase kMessages[] = {
    {"UnfinishedInClass", "class A { int x };", "1:15 Unexpected EOF found.; 1:11 The statement cannot be parsed."},
    {"MacroOnLastLine", "FOO", ""},
    {"MacroAtClassEnd", "struct S { int a; PADDING };", ""},
    {"OpenParen", "int f(int a;", "1:12 Unexpected EOF found.; 1:1 The statement cannot be parsed."},
    {"MixedBitfields", "struct S { int a : 3, b, : 4, *c, d[2]; int : 0; };", ""},
    {"FieldsNamedLikeKeywords", "struct S { unsigned a : 1, export : 1; int new : 2, public : 1; T class : 3; };", ""},
    {"WithoutWidth", "struct S { int a : ; int b : = 3; };",
     "1:20 Bad looking bitfield. Expected an identifier or an integer literal. Got: ';'.; 1:12 The statement cannot be parsed.; "
     "1:30 Bad looking bitfield. Expected an identifier or an integer literal. Got: '='.; 1:22 The statement cannot be parsed."},
    {"FieldOutsideOfAClass", "namespace n { int a : 3; }",
     "1:21 Unexpected token. Was expecting to find \";\", \"(\" or \"=\".; 1:15 The statement cannot be parsed."},
    {"FieldsThatAClassIncludes", "unsigned a : 3;", ""},
    {"SemicolonAmongValues", "int x(1; 2);", "1:8 An unexpected semicolon was found.; 1:1 The statement cannot be parsed."},
    {"SemicolonAmongParameters", "void f(int n; int a[n]); int FOO(1; 2);", ""},
    {"ValueBehindAPointer", "int (*f) 5;",
     "1:10 Expected \"(\" as part of pointer-to-function declaration. Got: 5; 1:1 The statement cannot be parsed."},
    {"WidthOfAnyKind", "struct S { int a : (8); int b : 'c'; };", ""},
    {"ExpressionAsWidth", "struct S { int a : (8 - 3); int b : sizeof(x) * 8; int NAME(c) : 1; };", ""},
};
INSTANTIATE_TEST_SUITE_P(Rows, DeclarationMessages, testing::ValuesIn(kMessages), [](const auto& row) { return row.param.name; });

TEST(DataExtent, EndsAtItsTerminator) {
    Parsed parsed("int a, b = 2;\n");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(0)), "int a,");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(1)), "b = 2;");
    EXPECT_EQ(coveredText(parsed, *findNode(parsed.root, "Expr")), "= 2");
}

TEST(DataExtent, FunctionPointerLeavesItsSemicolonOut) {
    Parsed parsed("int (*f)(int) = g;\n");
    EXPECT_EQ(coveredText(parsed, *parsed.root.child(0)), "int (*f)(int) = g");
    EXPECT_EQ(coveredText(parsed, *findNode(parsed.root, "Id")), "(*f)");
}

} // namespace
