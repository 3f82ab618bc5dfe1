#include "ParserTestTools.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Row {
    const char* name;
    const char* source;
    const char* tree;
};

// What stands outside of functions and classes. Aliases and using-declarations leave no node.
const Row kRows[] = {
    {"EmptyFile", "",
     "Root"},
    {"SemicolonIsDropped", ";",
     "Root"},
    {"StrayBraceIsDropped", "};",
     "Root"},
    {"MacroAsBlockHead", "FOO { int x; }",
     "Root{Expr'FOO' Block{DataDecl{Type'int' Id'x'}}}"},
    {"MacroInFrontOfType", "FOO int x;",
     "Root{DataDecl{Type'FOO int' Id'x'}}"},
    // On a line of its own a macro is no return type of what follows; on the same line it may be one.
    {"LoneMacroOpens", "G_BEGIN_DECLS\nFoo::Foo();\nQT_END_NAMESPACE\nclass A;",
     "Root{Expr'G_BEGIN_DECLS' FunctionDecl{FunctionHead{Id'Foo::Foo' ParameterList}} Expr'QT_END_NAMESPACE' "
     "DataDecl{Type'class A'}}"},
    {"LoneMacroBeforeMacro", "Q_X\nQ_Y(a)\nBOOL\nf(int a);\nBOOL F(int a);",
     "Root{Expr'Q_X' FunctionDecl{FunctionHead{Id'Q_Y' ParameterList{Parameter'a'}}} "
     "FunctionDecl{FunctionHead{Return'BOOL' Id'f' ParameterList{Parameter'int a'}}} "
     "FunctionDecl{FunctionHead{Return'BOOL' Id'F' ParameterList{Parameter'int a'}}}}"},
    {"LegendIsNoMacro", "LEGEND\nf(int a);",
     "Root{FunctionDecl{FunctionHead{Return'LEGEND' Id'f' ParameterList{Parameter'int a'}}}}"},
    {"BlockAtTopLevel", "{ a(); }",
     "Root{Block{Expr'a;'}}"},
    {"DisabledRegionIsOneDirective", "#if 0\nint it's }\n#endif\nint b;",
     "Root{Directive DataDecl{Type'int' Id'b'}}"},
    {"DisabledRegionSpacedDirective", "# if 0\n}\n#endif",
     "Root{Directive}"},
    {"DisabledRegionWithComment", "#if  0 // off\n}\n#endif",
     "Root{Directive}"},
    {"DisabledRegionPrefixMatch", "#if 00\n}\n#endif",
     "Root{Directive}"},
    {"DisabledRegionNestsOverIfdef", "#if 0\n#ifdef A\n#endif\n}\n#endif\nint b;",
     "Root{Directive DataDecl{Type'int' Id'b'}}"},
    {"DisabledRegionElseMeansNothing", "#if 0\n#else\n}\n#endif\nint b;",
     "Root{Directive DataDecl{Type'int' Id'b'}}"},
    {"DirectiveAlone", "#if 1\nint a;\n#endif\n",
     "Root{Directive'#if 1\n' DataDecl{Type'int' Id'a'} Directive'#endif\n'}"},
    {"UsingLeavesNoNode", "using namespace std; int a;",
     "Root{DataDecl{Type'int' Id'a'}}"},
    {"CommentsAreNodes", "/* c */ int a; // d",
     "Root{Comment'/* c */' DataDecl{Type'int' Id'a'} Comment'// d'}"},
    {"MarkersAreComments", "// KERFLINE-OFF\nint a;\n// KERFLINE-ON",
     "Root{Comment'// KERFLINE-OFF\n' DataDecl{Type'int' Id'a'} Comment'// KERFLINE-ON'}"},
    {"Asm", R"(asm("nop");)",
     R"(Root{Asm'1'{Text'asm' Block{Text'( "nop" )'}}})"},
    {"AsmSpelledAsName", R"(__asm__("nop");)",
     R"(Root{Asm'1'{Text'__asm__' Block{Text'( "nop" )'}}})"},
    {"AsmLine", "_asm mov eax, 1\nint a;",
     "Root{Asm'0'{Text'_asm' Block{Text'mov eax , 1'}} DataDecl{Type'int' Id'a'}}"},
    {"ReturnIsExpression", "return 1;",
     "Root{Expr'return 1;'}"},
    {"GotoIsExpression", "goto x; int a;",
     "Root{Expr'goto x;' DataDecl{Type'int' Id'a'}}"},
    {"ThrowIsExpression", "throw 1;",
     "Root{Expr'throw 1;'}"},
    {"ControlStatement", "if (a) b();",
     "Root{CtrlStmt{CtrlSubStmt{Head{Keyword'if' Expr} Block{Expr'b;'}}}}"},
    {"StrayCharactersAreSkipped", "`\nint a;",
     "Root{DataDecl{Type'int' Id'a'}}"},
    {"InvalidTokenIsDropped", "'abc\nint a;",
     "Root{DataDecl{Type'int' Id'a'}}"},
    {"BareMacroAtTheEnd", "int a; FOO",
     "Root{DataDecl{Type'int' Id'a'} DataDecl{Id'FOO'}}"},
    {"NamespaceAliasLeavesNoNode", "namespace A = B; int a;",
     "Root{DataDecl{Type'int' Id'a'}}"},
    {"AnonymousNamespace", "namespace { int a; }",
     "Root{NamespaceDecl{NamespaceHead NamespaceBody{DataDecl{Type'int' Id'a'}}}}"},
    {"NestedNamespaces", "namespace A { namespace B { int a; } }",
     "Root{NamespaceDecl{NamespaceHead'A' NamespaceBody{NamespaceDecl{NamespaceHead'B' "
     "NamespaceBody{DataDecl{Type'int' Id'a'}}}}}}"},
    {"QualifiedNamespace", "namespace A::B { int a; }",
     "Root{NamespaceDecl{NamespaceHead'A::B' NamespaceBody{DataDecl{Type'int' Id'a'}}}}"},
    {"InlineNamespace", "inline namespace v1 { int a; }",
     "Root{NamespaceDecl{NamespaceHead'v1' NamespaceBody{DataDecl{Type'int' Id'a'}}}}"},
    {"MacroBehindNamespaceName", "namespace X MACRO { int a; }",
     "Root{NamespaceDecl{NamespaceHead'X' NamespaceBody{DataDecl{Type'int' Id'a'}}}}"},
    {"UsingInNamespaceKeepsComment", "namespace A { using namespace std /* c */; int b; }",
     "Root{NamespaceDecl{NamespaceHead'A' NamespaceBody{Comment'/* c */' DataDecl{Type'int' Id'b'}}}}"},
    {"TemplateHead", "template <class T, int N> class A { };",
     "Root{Template{Keyword'template' ParameterList{Parameter'class T' Parameter'int N'}} "
     "ClassDecl{ClassHead{ClassName'class|A'} ClassBody}}"},
    {"TemplateHeadIsSibling", "template <class T> void f();",
     "Root{Template{Keyword'template' ParameterList{Parameter'class T'}} "
     "FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}}}"},
    {"TemplateOfTemplates", "template <class T, class U = A<B<T>>> class C { };",
     "Root{Template{Keyword'template' ParameterList{Parameter'class T' Parameter'class U = A < B < T >>'}} "
     "ClassDecl{ClassHead{ClassName'class|C'} ClassBody}}"},
    {"TemplateEmptyHead", "template <> struct A<int> { };",
     "Root{Template{Keyword'template' ParameterList} ClassDecl{ClassHead{ClassName'struct|A < int >'} "
     "ClassBody}}"},
    {"TemplateComparisonInParens", "template <class T = int /* c */, int N = (3 > 2)> void f();",
     "Root{Template{Keyword'template' ParameterList{Parameter'class T = int' Comment'/* c */' Parameter'int "
     "N = ( 3 > 2 )'}} FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}}}"},
    {"ExplicitInstantiation", "template class Foo<int>; int a;",
     "Root{Expr'class Foo int;' DataDecl{Type'int' Id'a'}}"},
    {"LinkageBlock", R"(extern "C" { int f(); })",
     R"(Root{LinkageBlock{Expr'extern "C"' LinkageBlockBody{FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList}}}}})"},
    {"LinkageDeclaration", R"(extern "C" int f();)",
     R"(Root{FunctionDecl{FunctionHead{Return'extern "C" int' Id'f' ParameterList}}})"},
    {"LinkageNests", R"(extern "C" { namespace A { int b; } extern "C" { int c; } })",
     R"(Root{LinkageBlock{Expr'extern "C"' LinkageBlockBody{NamespaceDecl{NamespaceHead'A' NamespaceBody{DataDecl{Type'int' Id'b'}}} LinkageBlock{Expr'extern "C"' LinkageBlockBody{DataDecl{Type'int' Id'c'}}}}}})"},
    {"CxxLinkageHoldsTemplates", R"(extern "C++" { template <class T> void f(); })",
     R"(Root{LinkageBlock{Expr'extern "C++"' LinkageBlockBody{Template{Keyword'template' ParameterList{Parameter'class T'}} FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}}}}})"},
    {"LinkageBlockWithDirectives", "extern \"C\" {\n#ifdef X\n int f();\n#endif\n}",
     "Root{LinkageBlock{Expr'extern \"C\"' LinkageBlockBody{Directive'#ifdef X\n' "
     "FunctionDecl{FunctionHead{Return'int' Id'f' ParameterList}} Directive'#endif\n'}}}"},
    {"ExportedBlock", "export { template <class T> void f(); namespace A { } }",
     "Root{LinkageBlock{Expr'export' LinkageBlockBody{Template{Keyword'template' ParameterList{Parameter'class T'}} "
     "FunctionDecl{FunctionHead{Return'void' Id'f' ParameterList}} NamespaceDecl{NamespaceHead'A' NamespaceBody}}}}"},
    {"ExportedDeclarations", "export template <class T> class A { }; export int f(); export import a;",
     "Root{Template{Keyword'template' ParameterList{Parameter'class T'}} ClassDecl{ClassHead{ClassName'class|A'} ClassBody} "
     "FunctionDecl{FunctionHead{Return'export int' Id'f' ParameterList}} DataDecl{Type'export import' Id'a'}}"},
    {"ExternTemplate", "extern template class A<int>; extern template void f<int>(int);",
     "Root{DataDecl{Type'extern template class' Id'A < int >'} "
     "FunctionDecl{FunctionHead{Return'extern template void' Id'f < int >' ParameterList{Parameter'int'}}}}"},
    {"ExternData", "extern int a;",
     "Root{DataDecl{Type'extern int' Id'a'}}"},
};

class ParserTopLevel : public testing::TestWithParam<Row> {};

TEST_P(ParserTopLevel, BuildsTree) {
    const Row& row = GetParam();
    Parsed parsed(row.source);
    EXPECT_EQ(treeAsText(parsed.root), row.tree);
    EXPECT_EQ(errorsAsText(parsed), "");
    EXPECT_EQ(extentFault(parsed), "");
}

INSTANTIATE_TEST_SUITE_P(Parser, ParserTopLevel, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

// What stands in front of the keyword belongs to the construct, so that its content is laid out from there.
TEST(SpecifiedConstructs, StartAtTheirSpecifier) {
    for (const char* source : {"export namespace A { }", "inline namespace A { }", "export inline namespace A { }",
                               "export template <class T>", "export extern \"C\" { }"}) {
        SCOPED_TRACE(source);
        Parsed parsed(source);
        ASSERT_EQ(parsed.root.size(), 1u);
        EXPECT_EQ(coveredText(parsed, *parsed.root.child(0)), source);
    }
}

} // namespace
