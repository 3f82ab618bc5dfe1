#include "ParserTestTools.h"

#include <gtest/gtest.h>

namespace {

class Statements : public testing::TestWithParam<ParseCase> {};
TEST_P(Statements, BuildTree) { checkStatements(GetParam()); }

const ParseCase kControl[] = {
    {"IfElse", "if (a) b; else c;",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'b;'}} CtrlSubStmt{Head{Keyword'else'} Block{Expr'c;'}}}}"},
    {"DoWhile", "do x(); while (y);",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'do'} Block{Expr'x;'}} CtrlSubStmt{Head{Keyword'while' Expr}}}}"},
    // A macro may bring the ";" of its own: what follows is no body.
    {"DoWhileWithoutSemicolon", "do { } while (0)\nx();",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'do'} Block} CtrlSubStmt{Head{Keyword'while' Expr}}} Expr'x;'}"},
    {"DoWithMacroTail", "do { } END_LOOP(x);", "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'do'} Block}} Expr'END_LOOP x;'}"},
    {"TryCatchCatch", "try { } catch (...) { } catch (int) { }",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'try'} Block} CtrlSubStmt{Head{Keyword'catch' Expr} Block} "
     "CtrlSubStmt{Head{Keyword'catch' Expr} Block}}}"},
    // An "else" belongs to the nearest "if".
    {"DanglingElse", "if (a) if (b) x; else y; else z;",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'x;'}} "
     "CtrlSubStmt{Head{Keyword'else'} Block{Expr'y;'}}}}} CtrlSubStmt{Head{Keyword'else'} Block{Expr'z;'}}}}"},
    {"TwoElsesUnderDirectives", "if (a) x;\n#ifdef A\nelse y;\n#else\nelse z;\n#endif",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'x;'}} Directive'#ifdef A\n' "
     "CtrlSubStmt{Head{Keyword'else'} Block{Expr'y;'}} Directive'#else\n' CtrlSubStmt{Head{Keyword'else'} Block{Expr'z;'}}} "
     "Directive'#endif\n'}"},
    {"ElseUnderDisabledRegion", "if (a) x();\n#if 0\nelse y();\n#endif\nz();",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'x;'}}} Directive Expr'z;'}"},
    {"CommentsBeforeElse", "if (a) x; // 1\n/* 2 */ // 3\n// 4\n// 5\nelse y;",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'x;'}} Comment'// 1\n' Comment'/* 2 */' Comment'// 3\n' "
     "Comment'// 4\n' Comment'// 5\n' CtrlSubStmt{Head{Keyword'else'} Block{Expr'y;'}}}}"},
    {"EmptyBody", "for (;;) ;", "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'for' Expr} Block}}}"},
    {"PlainWhile", "while (x);", "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'while' Expr}}}}"},
    {"IfConstexpr", "if constexpr (x) a();", "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'a;'}}}}"},
    {"IfNotConsteval", "if not consteval { a(); }", "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if'} Block{Expr'a;'}}}}"},
    {"IfConsteval", "if !consteval { a(); }", "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if'} Block{Expr'a;'}}}}"},
    {"MacroBehindIf", "if LIKELY(x) a();", "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'a;'}}}}"},
    {"BracesInConditions", "if (any(v, [](int x) { return x; })) a(); for (T t : {1, 2}) b();",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'a;'}}} "
     "CtrlStmt{CtrlSubStmt{Head{Keyword'for' Expr} Block{Expr'b;'}}}}"},
    {"GenericSelection", "if (_Generic(x, int: 1, default: 0)) a();",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'a;'}}}}"},
    // A label of a single statement stays with it: as a sibling it would end the "if".
    {"LabelAsBody", "if (x) again: a(); else b();",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'again : a;'}} CtrlSubStmt{Head{Keyword'else'} Block{Expr'b;'}}}}"},
    // Braces in the one statement stay in it, so that the "else" behind them is that of the "if".
    {"ValueInBody", "if (a) return T{0}; else b = (T){1}.x;",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'return T { 0 };'}} "
     "CtrlSubStmt{Head{Keyword'else'} Block{Expr'b = T { 1 } . x;'}}}}"},
    {"MacroLoopAsBody", "if (a) EACH(x) { b(); } else c(); for (;;) EACH(y) { } (d)();",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'EACH x' Block{Expr'b;'}}} "
     "CtrlSubStmt{Head{Keyword'else'} Block{Expr'c;'}}} "
     "CtrlStmt{CtrlSubStmt{Head{Keyword'for' Expr} Block{Expr'EACH y' Block}}} Expr'd;'}"},
    // As a statement of its own an attribute would be the whole body.
    {"AttributeBeforeBody", "if (a) [[likely]] { b(); } else [[unlikely]] { c(); } do [[likely]] { } while (d);",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'b;'}} CtrlSubStmt{Head{Keyword'else'} Block{Expr'c;'}}} "
     "CtrlStmt{CtrlSubStmt{Head{Keyword'do'} Block} CtrlSubStmt{Head{Keyword'while' Expr}}}}"},
    {"AttributeBeforeElseIf", "if (a) b(); else [[unlikely]] if (c) d(); else e();",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'b;'}} CtrlSubStmt{Head{Keyword'else'} "
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'd;'}} CtrlSubStmt{Head{Keyword'else'} Block{Expr'e;'}}}}}}}"},
    {"AttributeAsStatement", "[[fallthrough]]; [[x]] a(); [[x]] int b = 1; [[x]] A c; [[x]] struct D { } e;",
     "Block{Expr'[ [ fallthrough ] ];' Expr'[ [ x ] ] a;' DataDecl{Type'[ [ x ] ] int' Id'b' Expr'= 1'} "
     "DataDecl{Type'[ [ x ] ] A' Id'c'} ClassDecl{ClassHead{ClassName'struct|[ [ x ] ] D'} ClassBody} DataDecl{Id'e'}}"},
    {"NestedMessageIsNoAttribute", "[[a b] c];", "Block{Expr'[ [ a b ] c ];'}"},
    {"DeclaratorsAsBody", "if (x) a * b, c; else d;",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{DataDecl{Type'a *' Id'b'}}} "
     "CtrlSubStmt{Head{Keyword'else'} Block{Expr'd;'}}}}"},
};
INSTANTIATE_TEST_SUITE_P(Control, Statements, testing::ValuesIn(kControl), [](const auto& row) { return row.param.name; });

const ParseCase kLabels[] = {
    {"Case", "switch (x) { case 1: a(); break; default: ; }",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'switch' Expr} Block{Case{Keyword'case' Expr'1'} Expr'a;' Expr'break;' "
     "Case{Keyword'default'}}}}}"},
    {"FirstColonEndsCase", "switch (x) { case A ? B : C: a(); }",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'switch' Expr} Block{Case{Keyword'case' Expr'A ? B'} Label{Id'C'} Expr'a;'}}}}"},
    {"AttributeBeforeCase", "switch (x) { [[likely]] case 1: a(); }",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'switch' Expr} Block{Case{Keyword'case' Expr'1'} Expr'a;'}}}}"},
    {"ColonInParens", "switch (x) { case (a ? b : c): d(); }",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'switch' Expr} Block{Case{Keyword'case' Expr'( a ? b : c )'} Expr'd;'}}}}"},
    {"Range", "switch (x) { case 1 ... 5: d(); }",
     "Block{CtrlStmt{CtrlSubStmt{Head{Keyword'switch' Expr} Block{Case{Keyword'case' Expr'1 . . . 5'} Expr'd;'}}}}"},
    {"Label", "label: x = 1;", "Block{Label{Id'label'} Expr'x = 1;'}"},
    {"LabelAtEnd", "goto end; end:", "Block{Expr'goto end;' Label{Id'end'}}"},
};
INSTANTIATE_TEST_SUITE_P(Labels, Statements, testing::ValuesIn(kLabels), [](const auto& row) { return row.param.name; });

const ParseCase kExpressions[] = {
    {"LostSemicolon", "x = 1", "Block{Expr'x = 1'}"},
    {"MacroBeforeReturn", "FOO(a) return 1;", "Block{Expr'FOO a' Expr'return 1;'}"},
    {"ThrowAsOperand", "x = a ? throw 1 : 2;", "Block{Expr'x = a ? throw 1 : 2;'}"},
    {"LambdaInCall", "sort(b, e, [](int x) { return x < 1; }); c();",
     "Block{Expr'sort b , e , [ ] int x { return x 1 ; };' Expr'c;'}"},
    {"DirectivesInCall", "foo(a,\n#ifdef X\n b,\n#endif\n c);\nnext();",
     "Block{Expr'foo a ,' Directive'#ifdef X\n' Expr'b ,' Directive'#endif\n' Expr'c;' Expr'next;'}"},
    {"DirectiveInLambda", "foo([&] {\n#ifdef X\n a();\n#endif\n b(); });\nnext();",
     "Block{Expr'foo [ & ] { a ; b ; };' Expr'next;'}"},
    {"BraceBehindAssign", "x = { 1 };", "Block{Expr'x = { 1 };'}"},
    {"CommentBeforeBrace", "FOO(x) // c\n{ }", "Block{Expr'FOO x' Comment'// c\n' Block}"},
    {"StatementExpression", "x = ({ int t = 1; t; });", "Block{Expr'x = { int t = 1 ; t ; };'}"},
    {"NestedFunction", "int g(int a) { return a; }", "Block{Expr'int g int a' Block{Expr'return a;'}}"},
};
INSTANTIATE_TEST_SUITE_P(Expressions, Statements, testing::ValuesIn(kExpressions), [](const auto& row) { return row.param.name; });

const ParseCase kData[] = {
    // Without a symbol table a product cannot be told from a pointer.
    {"Product", "a * b;", "Block{DataDecl{Type'a *' Id'b'}}"},
    {"Declarators", "int a, b = 2, c;", "Block{DataDecl{Type'int' Id'a'} DataDecl{Id'b' Expr'= 2 , c'}}"},
    {"Map", "std::map<int, int> m;", "Block{DataDecl{Type'std::map < int , int >' Id'm'}}"},
    {"CallForm", "Rect r(a < b ? a : b, 1);", "Block{DataDecl{Type'Rect' Id'r' Expr'( a < b ? a : b , 1 )'}}"},
    {"Lambda", "auto f = [] { g(); h(); }; i();", "Block{DataDecl{Type'auto' Id'f' Expr'= [ ] { g ( ) ; h ( ) ; }'} Expr'i;'}"},
    {"Thread", "std::thread t([&] { run(); });", "Block{DataDecl{Type'std::thread' Id't' Expr'( [ & ] { run ( ) ; } )'}}"},
    {"BraceInitializer", "Foo x{1}; y();", "Block{DataDecl{Type'Foo' Id'x' Expr'{ 1 }'} Expr'y;'}"},
    {"Designators", "struct foo x = { .a = 1, .b = { 2 } };",
     "Block{DataDecl{Type'struct foo' Id'x' Expr'= { . a = 1 , . b = { 2 } }'}}"},
    {"LocalClass", "struct S { int a; } s;", "Block{ClassDecl{ClassHead{ClassName'struct|S'} ClassBody{DataDecl{Type'int' Id'a'}}} "
                                             "DataDecl{Id's'}}"},
    {"ListInBraces", "y = (T){ a & b, c(d) };", "Block{Expr'y = T { a & b , c d };'}"},
    {"ListOfUnnamed", "struct { int a; } t[] = {{1}, {2}};",
     "Block{ClassDecl{ClassHead{ClassName'struct|'} ClassBody{DataDecl{Type'int' Id'a'}}} DataDecl{Id't [ ]' Expr'= { { 1 } , { 2 } }'}}"},
    {"ListsOfStatements", "return {1, 2}; throw E{}; co_return {}; new T[2]{1}; a<b>{1}.c(); case T{1}: d();",
     "Block{Expr'return { 1 , 2 };' Expr'throw E { };' Expr'co_return { };' Expr'new T [ 2 ] { 1 };' Expr'a b { 1 } . c;' "
     "Case{Keyword'case' Expr'T { 1 }'} Expr'd;'}"},
    {"DependentTemplate", "a<b>.template get<T>();", "Block{DataDecl{Type'a < b > . template' Id'get < T >' Expr'( )'}}"},
    {"Alias", "namespace fs = a::b; using x = y; z();", "Block{Expr'z;'}"},
    {"ExternInBlock", "extern \"C\" int x;", "Block{DataDecl{Type'int' Id'x'}}"},
};
INSTANTIATE_TEST_SUITE_P(Data, Statements, testing::ValuesIn(kData), [](const auto& row) { return row.param.name; });

const ParseCase kAssembler[] = {
    {"Line", "_asm mov eax, 1\nx();", "Block{Asm'0'{Text'_asm' Block{Text'mov eax , 1'}} Expr'x;'}"},
    {"Braces", "__asm { mov eax, 1 } x();", "Block{Asm'2'{Text'__asm' Block{Text'mov eax , 1'}} Expr'x;'}"},
    {"OperandsOverLines", "asm volatile (\"a\"\n \"b\" : \"=r\"(x)\n : \"m\"(y));\nz();",
     "Block{Asm'1'{Text'asm' Block{Text'volatile ( \"a\" \"b\" : \"=r\" ( x ) : \"m\" ( y ) )'}} Expr'z;'}"},
};
INSTANTIATE_TEST_SUITE_P(Assembler, Statements, testing::ValuesIn(kAssembler), [](const auto& row) { return row.param.name; });

class StatementMessages : public testing::TestWithParam<MessageCase> {};
TEST_P(StatementMessages, Are) { checkMessages(GetParam()); }
const MessageCase kMessages[] = {
    {"OpenCondition", "void f() { if (a { b(); } }", "1:18 Expected \")\". Possible unbalanced parentheses."},
    {"OpenBlock", "void f() { { x();", "1:17 Unexpected EOF found.; 1:17 Unexpected EOF found."},
    {"OpenParen", "void f() { x(a; }", "1:15 Unexpected EOF found."},
    {"UnfinishedData", "void f() { int x = 5 }", "1:20 Unexpected EOF found."},
    {"OpenAssembler", "void f() { __asm { mov }", "1:24 Unexpected EOF found."},
    // A macro that makes a class looks like a function without a type.
    {"LabelInMacroBody", "CONCEPT(A, (T)) { private: T x; }", ""},
};
INSTANTIATE_TEST_SUITE_P(Rows, StatementMessages, testing::ValuesIn(kMessages), [](const auto& row) { return row.param.name; });

std::string statementAt(const std::string& source, const std::string& node) {
    Parsed parsed("void f() { " + source + " }");
    Cpp::SyntaxNode* block = findNode(parsed.root, "Block");
    Cpp::SyntaxNode* found = block ? findNode(*viewOf(*block).children.at(0), node) : nullptr;
    return found ? coveredText(parsed, *found) : "none";
}

TEST(StatementExtent, IsWhatTheSourceSays) {
    EXPECT_EQ(statementAt("x = 1 ;", "Expr"), "x = 1 ;");
    EXPECT_EQ(statementAt("x = 1 /* c */", "Expr"), "x = 1");
    EXPECT_EQ(statementAt("while (y) ;", "CtrlSubStmt"), "while (y) ;");
    EXPECT_EQ(statementAt("if (a) ;", "Block"), ";");
    EXPECT_EQ(statementAt("if (a) b;", "Block"), "b;");
    EXPECT_EQ(statementAt("if ( a /* c */ ) b;", "Expr"), "( a /* c */ )");
    EXPECT_EQ(statementAt("if constexpr (a) b;", "Keyword"), "if constexpr");
    EXPECT_EQ(statementAt("l : x;", "Label"), "l :");
    EXPECT_EQ(statementAt("{ case 1 : x; }", "Case"), "case 1 :");
    EXPECT_EQ(statementAt("{ case 1 : x; }", "Block"), "{ case 1 : x; }");
}

} // namespace
