#include "tests/engine/ExprTestTools.h"

#include <gtest/gtest.h>

namespace Norvane {
namespace {

struct TextCase {
    const char* text;
    const char* expected;
};

/// Lays out each text under the same options, and again, which must change nothing.
template <std::size_t N>
void expectLaidOut(const OptionRows& options, const TextCase (&cases)[N], int indent = 0) {
    CppExprFormatter formatter(schemeOf(options));
    for (const TextCase& row : cases) {
        SCOPED_TRACE(row.text);
        const std::string once = formatter.format(row.text, stateAt(indent));
        EXPECT_EQ(once, row.expected);
        EXPECT_EQ(formatter.format(once, stateAt(indent)), once) << "moves again";
    }
}

template <std::size_t N>
void expectDeclared(const OptionRows& options, const TextCase (&cases)[N], const OptionalString& separator) {
    CppExprFormatter formatter(schemeOf(options));
    for (const TextCase& row : cases) {
        SCOPED_TRACE(row.text);
        const std::string once = formatter.formatDeclaration(row.text, stateAt(0), separator);
        EXPECT_EQ(once, row.expected);
        EXPECT_EQ(formatter.formatDeclaration(once, stateAt(0), separator), once) << "moves again";
    }
}

const OptionRows kOperatorBlank = {{"WS_BETWEEN_EXPR_OP_OPERANDS", " "}};

TEST(Operators, StandBetweenBlanks) {
    const TextCase cases[] = {
        {"a+b", "a + b"},
        {"a  +  b", "a + b"},
        {"a\n  +b", "a + b"},
        {"x<<=1", "x <<= 1"},
        {"a?b:c", "a ? b : c"},
        {"a<=>b", "a <=> b"},
        {"x=y=z", "x = y = z"},
        {"cout<<\"a\"<<b;", "cout << \"a\" << b;"},
        {"a&&!b||c", "a && !b || c"},
        {"a<b", "a < b"},
        {"(i<n)&&(j>m)", "(i < n) && (j > m)"},
        {"x=::f()", "x = ::f()"},
        {"for (auto x:y)", "for (auto x : y)"},
        // No operators: members, scopes, increments, exponents.
        {"a->b.c", "a->b.c"},
        {"A::B", "A::B"},
        {"i++", "i++"},
        {"1e-5", "1e-5"},
        {"0x1p-64L+x", "0x1p-64L + x"},
        {"p->*q", "p->*q"},
        {"a[-1]", "a[-1]"},
        {"[&](int x){ return x; }", "[&](int x){ return x; }"},
        {"[=](int x){ return a*-x; }", "[=](int x){ return a * -x; }"},
        {"a.operator+(b)", "a.operator+(b)"},
        {"operator<(a,b)+c", "operator<(a,b) + c"},
        {"operator()(a)-1", "operator()(a) - 1"},
        {"größe+foo$bar", "größe + foo$bar"},
        // Digits that run into a name.
        {"x=0b11+100ms*2", "x = 0b11 + 100ms * 2"},
        {"{ .a=1, .b=&x, [0]=-1 }", "{ .a = 1, .b = &x, [0] = -1 }"},
    };
    expectLaidOut(kOperatorBlank, cases);
}

TEST(Operators, UnsetOptionKeepsTheirWhiteSpace) {
    const TextCase cases[] = {{"a+b", "a+b"}, {"a  +  b", "a  +  b"}, {"a<b &&c", "a<b &&c"}};
    expectLaidOut({{"WS_AFTER_FN_CALL_NAME", " "}}, cases);
}

TEST(Operators, AsPrefixesKeepTheirOperand) {
    const TextCase cases[] = {
        {"x = -1", "x = -1"},
        {"x=- 1", "x = - 1"},
        {"= -1", "= -1"},
        {"=*p", "= *p"},
        {"*p++=-x;", "*p++ = -x;"},
        {"return -1;", "return -1;"},
        {"return *p+1;", "return *p + 1;"},
        {"throw -1", "throw -1"},
        {"sizeof *p", "sizeof *p"},
        {"goto *p", "goto *p"},
        {"goto*p", "goto*p"},
        {"co_return -x", "co_return -x"},
        {"!x", "!x"},
        {"++*p", "++*p"},
        {"p++*q", "p++ * q"},
        {"a- -b", "a - -b"},
        {"a* *p", "a * *p"},
        {"a<-1", "a < -1"},
        {"f(a,&x)", "f(a, &x)"},
        {"f(a, /* c */ &x)", "f(a, /* c */ &x)"},
        {"scanf(\"%d\",&n)", "scanf(\"%d\", &n)"},
        {"f(-1,*p,!b)", "f(-1, *p,!b)"},
        {"= {-1,{-2,+3}}", "= {-1,{-2, +3}}"},
        {"x ? *p:&q", "x ? *p : &q"},
        // "+" and "~" are not told from operators.
        {"x = +1", "x = + 1"},
        {"~0", "~0"},
        {"a&~b", "a & ~b"},
    };
    expectLaidOut(kOperatorBlank, cases);
}

TEST(Operators, LeaveTheRowsOfATableAlone) {
    const TextCase cases[] = {{"= {1,\n-1,\n&x}", "= {1,\n-1,\n&x}"}, {"a();\n*p=0;", "a();\n*p = 0;"}};
    expectLaidOut(kOperatorBlank, cases);
}

TEST(Operators, NeverReadAsOneWithoutTheirBlanks) {
    const TextCase cases[] = {
        {"a - -b", "a- -b"}, {"a / *p", "a/ *p"}, {"a & &b", "a& &b"}, {"a ? b : ::c", "a?b: ::c"},
        {"a + b", "a+b"},    {"~ x", "~ x"},      {"a < b", "a<b"},
    };
    expectLaidOut({{"WS_BETWEEN_EXPR_OP_OPERANDS", ""}}, cases);
}

TEST(Operators, KeepCommentsAndTheirLineFeeds) {
    const TextCase cases[] = {
        {"a /* c */+ /* d */b", "a /* c */ + /* d */b"},
        {"a // c\n  + b", "a // c\n+ b"},
        {"a+  // c\n  b", "a +  // c\nb"},
        {"a+// c\nb", "a + // c\nb"},
        {"a +\n#if X\n  b", "a +\n#if X\nb"},
        {"a \\\n+ b", "a \\\n+ b"},
    };
    expectLaidOut(kOperatorBlank, cases);
}

TEST(Operators, BehindParenthesesMayBelongToACast) {
    const TextCase cases[] = {
        {"(char *)p", "(char *) p"},
        {"(char**)p", "(char **) p"},
        {"(char *)&p", "(char *) &p"},
        {"(T *)*p", "(T *) *p"},
        {"(a)&b", "(a) & b"},
        {"(a)-1", "(a) - 1"},
        {"(int)-1", "(int) -1"},
        {"(unsigned char)*p", "(unsigned char) *p"},
        {"(void)0", "(void) 0"},
        {"(int)'c'", "(int) 'c'"},
        {"(*fp)(x)", "(*fp) (x)"},
        {"f(a)(b)", "f(a)(b)"},
        {"sizeof(int)*n", "sizeof(int) * n"},
        {"static_cast<int>(x)*2", "static_cast<int> (x) * 2"},
        {"if (a) *p=1", "if (a) *p = 1"},
    };
    expectLaidOut(kOperatorBlank, cases);
}

TEST(Angles, AreBracketsWhereOneCloses) {
    const TextCase cases[] = {
        {"vector<int>x", "vector<int>x"},
        {"vector<vector<int> > v", "vector<vector<int> > v"},
        {"vector<vector<int>> v", "vector<vector<int>> v"},
        {"map<int,vector<vector<int>>> v=x", "map<int,vector<vector<int>>> v = x"},
        {"f<a>(b)+1", "f<a>(b) + 1"},
        {"x<y>>2", "x < y >> 2"},
        {"a<0 && b>0", "a<0 && b>0"},
        {"if (a < 0&&b > 0)", "if (a < 0 && b > 0)"},
        {"map<A*,B>m", "map<A *,B>m"},
        {"<a", "< a"},
        {"t< >", "t< >"},
    };
    expectLaidOut(kOperatorBlank, cases);
}

TEST(Angles, TakeTheirValues) {
    const TextCase cases[] = {
        {"t< >", "t<>"},
        {"vector< vector< int > > v", "vector<vector<int> > v"},
        {"vector< ::A >", "vector< ::A>"},
        {"map< int,char >", "map<int, char>"},
        {"a < b && c > d", "a <b && c> d"},
        {"vector<int // c\n>", "vector<int // c\n>"},
    };
    expectLaidOut({{"WS_AFTER_TP_OPEN_BRACKET", ""},
                   {"WS_BEFORE_TP_CLOSE_BRACKET", ""},
                   {"WS_BETWEEN_TP_PARAMS", " "}},
                  cases);
}

TEST(Brackets, TakeTheirValues) {
    const TextCase cases[] = {
        {"f( )", "f()"},
        {"a[ ]", "a[]"},
        {"f(a)", "f( a )"},
        {"(a+b)*c", "( a+b )*c"},
        {"a[ 1 ]", "a[1]"},
        {"f( /* c */)", "f( /* c */)"},
        {"f(a // c\n)", "f( a // c\n)"},
        {"f( // c\na)", "f( // c\na )"},
        {"f(\n    a)", "f( a )"},
        {"f((a))", "f( ( a ) )"},
        {"f(a", "f( a"},
        {"a)", "a)"},
    };
    expectLaidOut({{"WS_AFTER_EXPR_OPEN_PAREN", " "},
                   {"WS_BEFORE_EXPR_CLOSE_PAREN", " "},
                   {"WS_AFTER_LBRACKET", ""},
                   {"WS_BEFORE_RBRACKET", ""}},
                  cases);
}

TEST(Brackets, KeepTheirDistanceFromANameUnlessItIsSet) {
    const TextCase cases[] = {
        {"f (a)", "f(a)"}, {"g(f\n(a))", "g(f(a))"}, {"sizeof (a)", "sizeof(a)"}, {"(a) (b)", "(a) (b)"}};
    expectLaidOut({{"WS_AFTER_FN_CALL_NAME", ""}}, cases);
}

TEST(CallArguments, StandApartByTheirValues) {
    const TextCase cases[] = {
        {"f(a ,b)", "f(a, b)"},
        {"f(a,\n  -b,\n  &c)", "f(a, -b, &c)"},
        {"f({1,2},g(a,b))", "f({1,2}, g(a, b))"},
        {"f(a, // c\n  b)", "f(a, // c\nb)"},
        {"f(a,)", "f(a,)"},
        {"a[b,c]", "a[b,c]"},
        {"f(a,/* c */b)", "f(a, /* c */b)"},
    };
    expectLaidOut({{"WS_BEFORE_FN_CALL_COMMA", ""}, {"WS_BETWEEN_FN_CALL_ARGS", " "}}, cases);
}

TEST(CallArguments, LineUpWhereTheirValueBreaksTheLine) {
    const TextCase cases[] = {
        {"foo(a,b,c)", "    foo(a,\n        b,\n        c)"},
        // Calls in calls come out in their columns at once.
        {"ff(aa, g(bb, cc),dd)", "    ff(aa,\n       g(bb,\n         cc),\n       dd)"},
        {"f(a, // c\n b)", "    f(a, // c\n      b)"},
        {"f(a,\n#if X\n b,\n#endif\n c);", "    f(a,\n#if X\n      b,\n#endif\n      c);"},
        {"f(a+\nb,c)", "    f(a+\n    b,\n      c)"},
        {"f( /* x */ a,b)", "    f( /* x */ a,\n       b)"},
    };
    expectLaidOut({{"ALIGN_FN_CALL_ARGS_LEFT", "true"}}, cases, 4);
}

TEST(CallArguments, LineUpBehindACommaThatBreaksTheLine) {
    const TextCase cases[] = {{"foo(a,b)", "    foo(a\n      , b)"},
                              {"f(a // c\n, b)", "    f(a // c\n    , b)"}};
    expectLaidOut({{"WS_BEFORE_FN_CALL_COMMA", "\n"}, {"WS_BETWEEN_FN_CALL_ARGS", " "}}, cases, 4);
}

const OptionRows kBraces = {
    {"WS_BEFORE_DD_OPEN_BRACE", " "}, {"WS_AFTER_DD_OPEN_BRACE", "\n"}, {"WS_BEFORE_DD_CLOSE_BRACE", "\n"},
    {"WS_BETWEEN_DD_ELEMENTS", "\n"}, {"INDENT_DD_CONTENT", "  "},
};

TEST(Initialisers, TakeTheirValues) {
    const TextCase cases[] = {
        {"={1,2}", "    = {\n      1,\n      2\n    }"},
        {"x={1}", "    x= {\n      1\n    }"},
        {"={ {1,2}, {3,4}, }", "    = {\n      {1,2},\n      {3,4},\n    }"},
        {"={ // c\n1, // one\n2 // two\n}", "    = { // c\n      1, // one\n      2 // two\n    }"},
        {"={1 /* a */}", "    = {\n      1 /* a */\n    }"},
        {"= // c\n{1}", "    = // c\n    {\n      1\n    }"},
        {"={ }", "    = {}"},
        {"= {\n#if X\n1,\n#endif\n2}", "    = {\n#if X\n      1,\n#endif\n      2\n    }"},
        {"={.a={1}}", "    = {\n      .a= {\n        1\n      }\n    }"},
        {"={1", "    = {1"},
    };
    expectLaidOut(kBraces, cases, 4);
}

TEST(Initialisers, KeepAnEmptyPairUnlessABraceIsSet) {
    const TextCase cases[] = {{"x = { }", "x = { }"}, {"= { }", "= { }"}, {"x={1}", "x ={1}"}};
    expectLaidOut(kOperatorBlank, cases);
}

TEST(Shape, OfABlockInAnExpressionStays) {
    const TextCase cases[] = {
        {"f([](int a) {\n        if (a)\n            g();\n\n        return a+1;\n      })",
         "    f([](int a) {\n      if (a)\n          g();\n\n      return a + 1;\n    })"},
        {"x={a, T{\n  1,\n  /* c\n   * d */\n}}", "    x ={a, T{\n      1,\n      /* c\n       * d */\n    }}"},
        // A brace that does not start its line tells nothing.
        {"f({\n  a; })", "    f({\n    a; })"},
    };
    expectLaidOut(kOperatorBlank, cases, 4);
}

TEST(Shape, OfACommentMovesWithIt) {
    const TextCase cases[] = {
        {"={\n  1,\n  /* a\n   * b */\n  2}", "={\n1,\n/* a\n * b */\n2}"},
        // Where its first line stood in the source is not known.
        {"f(a, /* b\n      c */ d)", "f(a, /* b\n      c */ d)"},
    };
    expectLaidOut({{"WS_AFTER_FN_CALL_NAME", ""}}, cases);
}

TEST(Strings, ComeTogetherWhereLinesAreWrapped) {
    const TextCase cases[] = {
        {"f(\"a\"\n  \"b\")", "f(\"a\" \"b\")"},
        {"\"a\" // c\n\"b\"", "\"a\" // c\n\"b\""},
    };
    expectLaidOut({{"LINE_WRAP", "true"}}, cases);
    const TextCase kept[] = {{"f(\"a\"\n\"b\")", "f(\"a\"\n\"b\")"}};
    expectLaidOut(kOperatorBlank, kept);
}

TEST(Strings, KeepTheWhiteSpaceOfTheirLines) {
    const TextCase cases[] = {
        {"x=\"a\\\n  b\"", "    x = \"a\\\n  b\""},
        {"x=R\"(a\n  b)\"+y", "    x = R\"(a\n  b)\" + y"},
    };
    expectLaidOut(kOperatorBlank, cases, 4);
}

const OptionalString kBlank{true, " "};

OptionRows anchored(const char* anchor) {
    return {{"ASTERISK_ANCHOR", anchor},
            {"AMPERSAND_ANCHOR", anchor},
            {"WS_BETWEEN_ASTERISK_ANCHOR", ""},
            {"WS_BETWEEN_AMPERSAND_ANCHOR", ""},
            {"WS_BETWEEN_EXPR_OP_OPERANDS", " "}};
}

TEST(Pointers, StayWithTheName) {
    const TextCase cases[] = {
        {"int*p", "int *p"},
        {"int* p", "int *p"},
        {"char * * p", "char **p"},
        {"auto&x:y", "auto &x : y"},
        {"T&&x", "T &&x"},
        {"unsigned* p", "unsigned *p"},
        {"char const*p", "char const *p"},
        {"vector<vector<int>>& v", "vector<vector<int>> &v"},
        {"char*p,*q", "char *p, *q"},
        {"char*const p", "char*const p"},
        {"int A::*p", "int A::*p"},
        {"char*", "char *"},
        {"(char*)", "(char*)"},
        {"int (*fp)(Foo* x)", "int (*fp)(Foo *x)"},
    };
    expectDeclared(anchored("1"), cases, kBlank);
}

TEST(Pointers, StayWithTheType) {
    const TextCase cases[] = {
        {"int*p", "int* p"}, {"char * * p", "char** p"}, {"char *p, *q", "char* p,* q"}, {"T &x", "T& x"}};
    expectDeclared(anchored("0"), cases, kBlank);
}

TEST(Pointers, OfTheSourceStay) {
    const TextCase cases[] = {{"int*p", "int*p"}, {"int * p=a", "int * p = a"}};
    expectDeclared(kOperatorBlank, cases, kBlank);
    // An anchor that does not exist is none.
    expectDeclared({{"ASTERISK_ANCHOR", "2"}, {"WS_BETWEEN_EXPR_OP_OPERANDS", " "}}, cases, kBlank);
}

TEST(Pointers, GoBackToTheNarrowerGapWithoutAValue) {
    const TextCase cases[] = {{"int*  p", "int  *p"}, {"int *p", "int *p"}, {"int  * p", "int  * p"}};
    expectDeclared({{"ASTERISK_ANCHOR", "1"}}, cases, OptionalString());
}

TEST(Pointers, StandInFrontOfALineThatTheTypeEnds) {
    const TextCase cases[] = {{"char *f", "char*\nf"}};
    expectDeclared(anchored("1"), cases, {true, "\n"});
}

TEST(Pointers, OfADeclarationInsideAnExpressionAreMarks) {
    const TextCase cases[] = {{"[](const T* x) { char const* y=x; }", "[](const T *x) { char const *y = x; }"},
                              {"f(a, [&](T& x) { return *x; })", "f(a, [&](T &x) { return *x; })"},
                              {"sizeof(char*)", "sizeof(char *)"},
                              {"template A & operator<<(A & a, int);", "template A &operator<<(A &a, int);"},
                              {"template A *\nf(B *);", "template A*\nf(B *);"},
                              {"requires(T & t) { t & u; }", "requires(T &t) { t & u; }"},
                              {"requires (t & u)", "requires (t & u)"}};
    expectLaidOut(anchored("1"), cases);
}

TEST(Pointers, AreOperatorsInExpressionsOfADeclaration) {
    const TextCase cases[] = {
        {"= a*b", "= a * b"},
        {"int w = a*b, *p", "int w = a * b, *p"},
        {"= &x", "= &x"},
        {"= a & &x", "= a & &x"},
        {"= (char *)p", "= (char *) p"},
        {"f(a*b, &x)", "f(a * b, &x)"},
        {"f(int* x)", "f(int *x)"},
        {"int a[N*M]", "int a[N * M]"},
        {"int i=0; a&&*p; i++, *p++", "int i = 0; a && *p; i++, *p++"},
    };
    expectDeclared(anchored("1"), cases, kBlank);
}

TEST(Assignments, LineUpOnATabStopBehindTheLongestName) {
    CppExprFormatter formatter{PropertySet()};
    EXPECT_EQ(formatter.alignAssignments("A=1,\nLONGER = 2,\nB, // = x\n", stateAt(0)),
              "A       =1,\nLONGER  = 2,\nB, // = x\n");
    EXPECT_EQ(formatter.alignAssignments("ABCD = 1", stateAt(0)), "ABCD    = 1");
    EXPECT_EQ(formatter.alignAssignments("  \n", stateAt(0)), "  \n");
    // The lines of a comment are its own.
    EXPECT_EQ(formatter.alignAssignments("A = 1, /* b\n c = 2 */\nDEF = 3", stateAt(0, true)),
              "A       = 1, /* b\n c = 2 */\nDEF     = 3");
    const std::string aligned = formatter.alignAssignments("AB = 1,\n#if X\nC = 2", stateAt(4));
    EXPECT_EQ(aligned, "    AB  = 1,\n#if X\n    C   = 2");
}

TEST(Cost, GrowsInStepWithTheTextHoweverDeepBracketsNest) {
    // Deep enough to run off the stack if one call stood for one bracket.
    constexpr std::size_t kDepth = 100000;
    CppExprFormatter formatter(schemeOf({{"WS_BETWEEN_EXPR_OP_OPERANDS", " "},
                                         {"WS_AFTER_EXPR_OPEN_PAREN", ""},
                                         {"WS_BETWEEN_FN_CALL_ARGS", " "},
                                         {"WS_BETWEEN_TP_PARAMS", " "},
                                         {"INDENT_DD_CONTENT", "    "}}));
    const char* const pairs[][2] = {{"(", ")"},   {"[", "]"},  {"f(", ")"}, {"f(a,", ")"}, {"={", "}"},
                                    {"a<", "> "}, {"{", "}"},  {"(", ""},   {"a<", ""},    {"f(", ""},
                                    {"={", ""},   {"", ")"},   {"", "> "}};
    for (const auto& pair : pairs) {
        SCOPED_TRACE(std::string(pair[0]) + pair[1]);
        std::string text;
        for (std::size_t i = 0; i < kDepth; ++i) text += pair[0];
        text += 'x';
        for (std::size_t i = 0; i < kDepth; ++i) text += pair[1];
        EXPECT_EQ(withoutSpace(formatter.format(text, stateAt(0))), withoutSpace(text));
    }
}

} // namespace
} // namespace Norvane
