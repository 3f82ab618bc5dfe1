#include "guard/Guard_Difference.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Pair {
    const char* name;
    const char* source;
    const char* result;
};

std::string nameOf(const testing::TestParamInfo<Pair>& row) { return row.param.name; }

class Fault : public testing::TestWithParam<Pair> {};

TEST_P(Fault, IsFoundEitherWay) {
    EXPECT_TRUE(Guard::firstDifference(GetParam().source, GetParam().result));
    EXPECT_TRUE(Guard::firstDifference(GetParam().result, GetParam().source));
}

const Pair kTokenFaults[] = {
    {"Glued", "int a;", "inta;"},
    {"Split", "intact;", "int act;"},
    {"Dropped", "a; b;", "a b;"},
    {"DroppedLast", "a; b", "a;"},
    {"Swapped", "a b;", "b a;"},
    {"Repeated", "a;", "a;;"},
    {"Changed", "a = 1;", "a = 2;"},
    {"NumberSplit", "0b1'0;", "0b1 '0;"},
    {"NumberCutAtSeparator", "x = 0b0111'1111;", "x = 0b0111 '1111;"},
    {"NumberOfAUserSplit", "5_km", "5 _km"},
    {"ExponentSplit", "0xe+1", "0xe +1"},
    {"ExponentGlued", "0xe +1", "0xe+1"},
    {"DotNumberSplit", "a = .5;", "a = . 5;"},
    {"NumberAndDotGlued", "1 .x", "1.x"},
    {"WordNotAscii", "void f\xc3\xa4();", "void f \xc3\xa4();"},
    {"WordWithDollar", "f$;", "f $;"},
    {"UniversalName", "a\\u00e4", "a \\u00e4"},
    {"PlusPlus", "a + +b", "a ++b"},
    {"MinusMinus", "a - -b", "a --b"},
    {"PlusPlusSplit", "a++;", "a+ +;"},
    {"ArrowSplit", "a->b", "a- >b"},
    {"ArrowStarSplit", "a->*b", "a-> *b"},
    {"SlashesBecomeComment", "a / / b\n", "a // b\n"},
    {"CommentOpened", "a / *b", "a /*b"},
    {"ShiftSplit", "a >> b", "a > > b"},
    {"ShiftGlued", "A<B<C> >", "A<B<C>>"},
    {"SpaceshipSplit", "a <=> b", "a <= > b"},
    {"ScopeSplit", "a::b", "a: :b"},
    {"ScopeBecomesDigraph", "a ? b < : :: c", "a ? b <: :: c"},
    {"EllipsisSplit", "f(...)", "f(.. .)"},
    {"EllipsisGlued", "x . . .", "x ..."},
    {"AssignSplit", "a <<= b", "a << = b"},
    {"DigraphSplit", "a<:1:>", "a< :1:>"},
    {"DigraphBraceSplit", "void f() <%%>", "void f() < %%>"},
    {"DigraphSpelledOut", "a<:1:>", "a[1]"},
    {"TrigraphSplit", "a ?\?! b", "a ?? ! b"},
    {"PastingSplit", "#define A a ## b\n", "#define A a # # b\n"},
    {"StrayLost", "a; @\nb;", "a;\nb;"},
    {"SpliceMovedIntoToken", "ab \\\n cd;", "ab\\\ncd;"},
    {"SplicedTokenIndented", "ab\\\ncd;", "ab\\\n    cd;"},
    {"SpliceInTokenRemoved", "ab\\\ncd;", "abcd;"},
    {"SpliceInTokenMoved", "ab\\\ncd;", "abc\\\nd;"},
};
INSTANTIATE_TEST_SUITE_P(Tokens, Fault, testing::ValuesIn(kTokenFaults), nameOf);

const Pair kLiteralFaults[] = {
    {"BlankChanged", "a = \"b  c\";", "a = \"b c\";"},
    {"TabChanged", "a = \"b\tc\";", "a = \"b    c\";"},
    {"SplicedStringIndented", "\"a\\\nb\"", "\"a\\\n  b\""},
    {"CharacterChanged", "' '", "'  '"},
    {"PrefixSeparated", "L\"a\"", "L \"a\""},
    {"PrefixGlued", "u 'a'", "u'a'"},
    {"SuffixSeparated", "\"a\"_s", "\"a\" _s"},
    {"SuffixGlued", "\"a\" B", "\"a\"B"},
    {"RawBlankChanged", "R\"(a  b)\"", "R\"(a b)\""},
    {"RawLineIndented", "R\"x(a\nb)x\"", "R\"x(a\n  b)x\""},
    {"RawPrefixSeparated", "u8R\"(a)\"", "u8R \"(a)\""},
    {"RawSpliceRemoved", "R\"(a\\\nb)\"", "R\"(ab)\""},
    {"HeaderNameBlank", "#include <a b>\n", "#include <a  b>\n"},
    {"HeaderNameBlankAdded", "#include <a>\n", "#include < a >\n"},
    {"HeaderNameTab", "#include \"a\tb\"\n", "#include \"a    b\"\n"},
    {"HeaderNameAskedFor", "#if __has_include(<a>)\n", "#if __has_include(< a>)\n"},
    {"HeaderImported", "import <a>;\n", "import < a >;\n"},
    {"LineOfUnclosedJoined", "don't\nb", "don't b"},
    {"WordsOfUnclosedJoined", "don't a b\n", "don't ab\n"},
    {"WordsOfMessageJoined", "#error \"a b\"\n", "#error \"ab\"\n"},
    {"BlankInPragma", "#pragma message(\"a  b\")\n", "#pragma message(\"a b\")\n"},
};
INSTANTIATE_TEST_SUITE_P(Literals, Fault, testing::ValuesIn(kLiteralFaults), nameOf);

const Pair kCommentFaults[] = {
    {"Changed", "/* a */ b", "/* c */ b"},
    {"Lost", "/* a */ b", "b"},
    {"Moved", "/* a */ b", "b /* a */"},
    {"OtherKind", "// a\nb", "/* a */\nb"},
    {"WordsGlued", "/* a b */", "/* ab */"},
    {"WordSplit", "// ab\n", "// a b\n"},
    {"BlankAtMark", "//a\n", "// a\n"},
    {"BlanksWidened", "/* a b */", "/* a  b */"},
    {"LinesJoined", "/* a\n b */", "/* a b */"},
    {"LineAdded", "/* a\n b */", "/* a\n\n b */"},
    {"LineEndTrimmed", "/* a \n b */", "/* a\n b */"},
    {"LineEndTabTrimmed", "/* a\t\n b */", "/* a\n b */"},
    {"LineSwallowsCode", "// a\nb;\n", "// a b;\n"},
    {"LineSwallowsNextLine", "a // b \\\n\nc", "a // b \\\nc"},
    {"LineLetsGo", "// a \\\nb\nc", "// a \\ \n\nb\nc"},
    {"BackslashLosesItsLine", "// a \\\nb\nc", "// a \\ b\nc"},
    {"BackslashGetsABlank", "// a \\\nb\nc", "// a \\ \nb\nc"},
    {"CommentTwiceAsLong", "/* a */ b /* c */", "/* a * / b /* c */"},
    {"UnclosedTakesMore", "/* a\n", "/* a\nb"},
};
INSTANTIATE_TEST_SUITE_P(Comments, Fault, testing::ValuesIn(kCommentFaults), nameOf);

const Pair kDirectiveFaults[] = {
    {"Joined", "#if a\nb\n", "#if a b\n"},
    {"Split", "#define A b c\n", "#define A b\nc\n"},
    {"TwoJoined", "#else\n#if a\n", "#else #if a\n"},
    {"BroughtToLife", "a #b\n", "a\n#b\n"},
    {"PutBehindCode", "a;\n#if b\n", "a; #if b\n"},
    {"TokenLeaves", "#endif a\nb", "#endif\na b"},
    {"EmptyTakesNextLine", "#\ndefine a\n", "# define a\n"},
    {"MacroGetsArguments", "#define A (x)\n", "#define A(x)\n"},
    {"MacroGetsArgumentsOverComment", "#define A/**/(x)\n", "#define A(x) /**/\n"},
    {"SpliceLost", "#define A \\\n b\n", "#define A b\n"},
    {"SpliceAdded", "#define A b\n", "#define A \\\n b\n"},
    {"SpliceMoved", "#define A b \\\n c\n", "#define A \\\n b c\n"},
    {"SpliceBroken", "#define A \\\n b\n", "#define A \\ b\n"},
    {"SpliceGetsABlank", "#define A \\\n b\n", "#define A \\ \n b\n"},
    {"SpliceTakesOneMoreLine", "#define A \\\n\nb\n", "#define A \\\nb\n"},
    {"SpliceInCodeBroken", "a \\\nb;", "a \\ b;"},
    {"DigraphSplit", "%:define A 1\n", "% :define A 1\n"},
    {"CommentLeaves", "#define A /* b */\nc", "#define A\n/* b */ c"},
    {"LineCommentLeaves", "#if a // b\nc", "#if a\n// b\nc"},
    {"CommentPutInFront", "a /* b\n*/\n#if c\n", "a /* b\n*/ #if c\n"},
};
INSTANTIATE_TEST_SUITE_P(Directives, Fault, testing::ValuesIn(kDirectiveFaults), nameOf);

class Layout : public testing::TestWithParam<Pair> {};

TEST_P(Layout, RaisesNoAlarmEitherWay) {
    EXPECT_FALSE(Guard::firstDifference(GetParam().source, GetParam().result));
    EXPECT_FALSE(Guard::firstDifference(GetParam().result, GetParam().source));
}

const Pair kLayouts[] = {
    {"Empty", "", " \n\t"},
    {"MovedSpace", "int a ;\n", "int\na;"},
    {"TouchingTokens", "f ( a , -1 ) ; x = \"a\" \"b\" ;", "f(a,-1);x=\"a\"\"b\";"},
    {"TouchingOperators", "a = * b ; c ( ) ( ) ; ! ! d", "a=*b;c()();!!d"},
    {"EveryKindOfWhite", "a b c d", "a\fb\vc\rd"},
    {"CommentMoved", "a; /* b\n   c */", "a;\n    /* b\n       c */"},
    {"CommentTabs", "/* a\tb\n\tc */", "/* a   b\n    c */"},
    {"CommentTabAtLineEnd", "/* a\t\n b */", "/* a  \n b */"},
    {"CommentEmptyLine", "/* a\n   \n b */", "/* a\n\n b */"},
    {"LineCommentTrimmed", "// a  \nb", "// a\nb"},
    {"LineCommentContinued", "// a \\\n  b\nc", "// a \\\nb\nc"},
    {"DirectiveIndented", "#define A\n", "  #  define\tA\n"},
    {"DirectiveWithoutFeed", "#endif\n", "#endif"},
    {"ContinuationMoved", "#define A \\\n  b \\ \n c\n", "#define A \\\n      b \\\t\nc\n"},
    {"ContinuationTabs", "#define A\t\\\n\tb\n", "#define A   \\\n    b\n"},
    {"BodyRespaced", "#define A(x) ( x + 1 )\n", "#define A( x ) (x+1)\n"},
    {"ObjectMacroTouches", "#define A -1\n", "#define A-1\n"},
    {"SpliceInCode", "a = \\\n  b;", "a =\n\\\nb;"},
    {"ErrorApostrophe", "#error don't \\\n\tdo\nb", "#error don't \\\n    do\n  b"},
    {"ErrorQuotesOverLines", "#error don't \\\n\tcan't\n", "#error don't \\\n    can't\n"},
    {"ErrorQuoteThatNothingCloses", "#error 5\" \\ \n\tc\n", "#error 5\" \\ \n    c\n"},
    {"ApostropheInText", "#if 0\ndon't  \n  a\n#endif\n", "#if 0\n  don't\na\n#endif\n"},
    {"SkippedQuote", "#if 0\n\"a /* b\n#endif\n c", "#if 0\n\"a /* b\n#endif\nc"},
    {"RawStringKept", "a  R\"(\n  x\n)\" ;", "a R\"(\n  x\n)\";"},
    {"HeaderNameMoved", "#include<a b>\n", "#  include <a b>\n"},
    {"HeaderNameMayTouch", "#if __has_include( <a b> )\n", "#if __has_include (<a b>)\n"},
    {"DigraphKept", "a <: 1 :> ;", "a<:1:>;"},
    {"DirectiveBehindComment", "/* a\n*/ #if b\n", "/* a\n*/\n#if b\n"},
    {"CommentInDirective", "#if a /* b\n  c */ d\n", "#if a   /* b\n c */ d\n"},
};
INSTANTIATE_TEST_SUITE_P(Texts, Layout, testing::ValuesIn(kLayouts), nameOf);

struct PlaceCase {
    const char* name;
    const char* source;
    const char* result;
    Guard::Place inSource;
    Guard::Place inResult;
    const char* reason;
};

class Places : public testing::TestWithParam<PlaceCase> {};

bool equal(const Guard::Place& a, const Guard::Place& b) {
    return a.offset == b.offset && a.line == b.line && a.column == b.column;
}

TEST_P(Places, AreToldWithTheReason) {
    const auto difference = Guard::firstDifference(GetParam().source, GetParam().result);
    ASSERT_TRUE(difference);
    EXPECT_TRUE(equal(difference->inSource, GetParam().inSource));
    EXPECT_TRUE(equal(difference->inResult, GetParam().inResult));
    EXPECT_EQ(difference->reason, GetParam().reason);
}

const PlaceCase kPlaces[] = {
    {"Token", "a;\n  b;", "a;\n\nc;", {5, 2, 3}, {4, 3, 1}, "a token is not the same"},
    {"FirstToken", "a", "b", {0, 1, 1}, {0, 1, 1}, "a token is not the same"},
    {"Lost", "a; b", "a;", {3, 1, 4}, {2, 1, 3}, "a token is not the same"},
    {"Added", "a;", "a; b", {2, 1, 3}, {3, 1, 4}, "a token is not the same"},
    {"Comment", "/* a */", "/* b */", {0, 1, 1}, {0, 1, 1}, "a comment is not the same"},
    {"LineComment", "a", "// a", {0, 1, 1}, {0, 1, 1}, "a comment is not the same"},
    {"Splice", "a \\\nb", "a b", {2, 1, 3}, {2, 1, 3}, "a joined line begins or ends elsewhere"},
    {"Directive", "# a", "a", {0, 1, 1}, {0, 1, 1}, "a directive begins or ends elsewhere"},
    {"DirectiveEnd", "#a\nb", "#a b", {2, 1, 3}, {3, 1, 4}, "a directive begins or ends elsewhere"},
    {"MacroParen", "#define A (", "#define A(", {10, 1, 11}, {9, 1, 10}, "a directive begins or ends elsewhere"},
};
INSTANTIATE_TEST_SUITE_P(Texts, Places, testing::ValuesIn(kPlaces),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
