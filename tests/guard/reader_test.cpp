#include "guard/Guard_Reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using Guard::Kind;

/// One letter and the text for all but plain tokens.
std::string describe(std::string_view text, const Guard::Item& item) {
    const std::string spelling(text.substr(item.begin, item.end - item.begin));
    switch (item.kind) {
    case Kind::token: return spelling;
    case Kind::macroParen: return "M:" + spelling;
    case Kind::literal: return "L:" + spelling;
    case Kind::looseLiteral: return "O:" + spelling;
    case Kind::blockComment: return "B:" + spelling;
    case Kind::lineComment: return "C:" + spelling;
    case Kind::splice: return "S";
    case Kind::directive: return "D:" + spelling;
    case Kind::directiveEnd: return "E";
    default: return "";
    }
}

std::string itemsOf(std::string_view text) {
    Guard::Reader reader(text);
    std::string items;
    Guard::Item item;
    for (reader.next(item); item.kind != Kind::end; reader.next(item)) {
        if (!items.empty()) items += ' ';
        items += describe(text, item);
    }
    return items;
}

struct ItemCase {
    const char* name;
    const char* text;
    const char* items;
};

class Items : public testing::TestWithParam<ItemCase> {};

TEST_P(Items, AreThoseThatACompilerReads) { EXPECT_EQ(itemsOf(GetParam().text), GetParam().items); }

std::string nameOf(const testing::TestParamInfo<ItemCase>& row) { return row.param.name; }

const ItemCase kWords[] = {
    {"Letters", "abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ 1abcdefghijklmnopqrstuvwxyz",
     "abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ 1abcdefghijklmnopqrstuvwxyz"},
    {"Names", "a _b $c d$1 \xc3\xa4\xc3\xb6 Az09", "a _b $c d$1 \xc3\xa4\xc3\xb6 Az09"},
    {"UniversalNames", "a\\u00e4b \\U0001F600x \\N{LATIN SMALL-A}y \\u{e4}z 1\\u00e4",
     "a\\u00e4b \\U0001F600x \\N{LATIN SMALL-A}y \\u{e4}z 1\\u00e4"},
    {"NoUniversalNames", "\\u00e \\N00e4 \\n \\u{e4;} \\U0001F60g", "\\ u00e \\ N00e4 \\ n \\ u { e4 ; } \\ U0001F60g"},
    {"BracesOfUniversalNames", "\\u{e4}+ \\u{} a \\u00e4} \\N00e4000f \\x00e4000f", "\\u{e4} + \\u{} a \\u00e4 } \\ N00e4000f \\ x00e4000f"},
    {"HexDigitsOfUniversalNames", "\\uafAF \\ugfAF \\uaGAF \\uaf`F", "\\uafAF \\ ugfAF \\ uaGAF \\ uaf ` F"},
    {"SplicedName", "ab\\\ncd a\\ \t\n\\\nb a\\\n b a\\\nb; a\\\nb \nc", "ab\\\ncd a\\ \t\n\\\nb a S b a\\\nb ; a\\\nb c"},
    {"Numbers", "0b1'0 1'000u 0x1p-3 1e+5 1E-5 1P+1 .5f 1..2 5_km 12ab 1$", "0b1'0 1'000u 0x1p-3 1e+5 1E-5 1P+1 .5f 1..2 5_km 12ab 1$"},
    {"NumberEnds", "1+2 1e+; 0xf+1 1'+' 1e*2 .a 1'", "1 + 2 1e+ ; 0xf + 1 1 L:'+' 1e * 2 . a 1 O:'"},
    {"SplicedNumber", "1\\\n2 1e\\\n+5 1\\\n'0 1'\\\n0 .\\\n5 1\\\n+2", "1\\\n2 1e\\\n+5 1\\\n'0 1'\\\n0 .\\\n5 1 S + 2"},
    {"Stray", "@ ` a\x01", "@ ` a \x01"},
    {"WhiteSpace", "a\fb\vc\rd\te\nf ", "a b c d e f"},
};
INSTANTIATE_TEST_SUITE_P(Words, Items, testing::ValuesIn(kWords), nameOf);

const ItemCase kOperators[] = {
    {"Single", "{}()[];,~?:=*&+-!%<>^|./", "{ } ( ) [ ] ; , ~ ? : = * & + - ! % < > ^ | . /"},
    {"WithAssign", "+= -= *= /= %= ^= &= |= == != <= >= ~= .=", "+= -= *= /= %= ^= &= |= == != <= >= ~ = . ="},
    {"Doubled", "++ -- && || << >> ^^ ## :: <<= >>= ** !!", "++ -- && || << >> ^^ ## :: <<= >>= * * ! !"},
    {"Longest", "+++ -->> ->*a ->a <=>=", "++ + -- >> ->* a -> a <=> ="},
    {"Dots", "... .. .*a ..5 . * ....", "... . . .* a . .5 . * ... ."},
    {"Digraphs", "<: :> <% %> a%:b a%:%:b a%:%b a%>", "<: :> <% %> a %: b a %:%: b a %: % b a %>"},
    {"LessAndScope", "<::a <::: <::> <:a <: :", "< :: a <: :: <: :> <: a <: :"},
    {"Reflection", "[:a:] [::b] [:> [: :]", "[: a :] [ :: b ] [ :> [: :]"},
    {"ReflectedScope", "[:::a", "[: :: a"},
    {"Trigraphs", "?\?= ?\?/ ?\?( ?\?) ?\?! ?\?< ?\?> ?\?- ?\?' ?\? a", "?\?= ?\?/ ?\?( ?\?) ?\?! ?\?< ?\?> ?\?- ? ? O:' ?\? a"},
    {"Spliced", "+\\\n+ -\\\n>\\\n* .\\\n.\\\n. +\\\n a", "+\\\n+ -\\\n>\\\n* .\\\n.\\\n. + S a"},
};
INSTANTIATE_TEST_SUITE_P(Operators, Items, testing::ValuesIn(kOperators), nameOf);

const ItemCase kLiterals[] = {
    {"Plain", "\"a b\" 'c' \"\" '\"' \"'\" a\"b\"", "L:\"a b\" L:'c' L:\"\" L:'\"' L:\"'\" a L:\"b\""},
    {"Prefixes", "L\"a\" u'a' U\"a\" u8\"a\" x\"a\" Lu\"a\" L 'a'",
     "L:L\"a\" L:u'a' L:U\"a\" L:u8\"a\" x L:\"a\" Lu L:\"a\" L L:'a'"},
    {"Suffixes", "\"a\"_s 'a'x \"a\"\\u00e4 \"a\"\\\n_s \"a\" s \"a\"1 \"a\";u00e4", "L:\"a\"_s L:'a'x L:\"a\"\\u00e4 L:\"a\"\\\n_s L:\"a\" s L:\"a\" 1 L:\"a\" ; u00e4"},
    {"Escapes", "\"a\\\"b\" '\\'' \"\\\\\" \"\\\\\n\" a", "L:\"a\\\"b\" L:'\\'' L:\"\\\\\" O:\"\\\\\n\" a"},
    {"Splices", "\"a\\\nb\" \"a\\\\\n\"b\" L\\\n'a' \"a\\ \nb\"", "L:\"a\\\nb\" L:\"a\\\\\n\"b\" L:L\\\n'a' L:\"a\\ \nb\""},
    {"Unclosed", "don't do\n\"a\nb 'c\\", "don O:'t do O:\"a b O:'c\\"},
    {"Raw", "R\"(a\"\\\n)\" LR\"x()\")x\" uR\"()\" UR\"()\" u8R\"()\"s R'a'",
     "L:R\"(a\"\\\n)\" L:LR\"x()\")x\" L:uR\"()\" L:UR\"()\" L:u8R\"()\"s R L:'a'"},
    {"RawDelimiter", "R\"0123456789abcdef()\")0123456789abcdef\" R\"0123456789abcdefg()\"g",
     "L:R\"0123456789abcdef()\")0123456789abcdef\" L:R\"0123456789abcdefg()\"g"},
    {"RawDelimiterInvalid", "R\"a b()\" R\"a)b()\" R\"a\\b()\" R\"\"(\"", "L:R\"a b()\" L:R\"a)b()\" L:R\"a\\b()\" L:R\"\" ( O:\""},
    {"RawUnclosed", "R\"(a\n b", "L:R\"(a\n b"},
    {"RawSplicedPrefix", "u\\\n8R\\\n\"(a\n)\"", "L:u\\\n8R\\\n\"(a\n)\""},
    {"LongWordIsNoPrefix", "u8RRRRRRRRRRRRRRRRRRRR\"(\"", "u8RRRRRRRRRRRRRRRRRRRR L:\"(\""},
};
INSTANTIATE_TEST_SUITE_P(Literals, Items, testing::ValuesIn(kLiterals), nameOf);

const ItemCase kComments[] = {
    {"Block", "a/* b\n * c **/d /*/ */ /**/e", "a B:/* b\n * c **/ d B:/*/ */ B:/**/ e"},
    {"Line", "a// b \\ c\nd //e\\\nf\\ \ng\nh", "a C:// b \\ c d C://e\\\nf\\ \ng h"},
    {"LineAtOnceContinued", "//\\\na\nb // \\\n\nc // \\", "C://\\\na b C:// \\\n c C:// \\"},
    {"Spliced", "/\\\n* a *\\\n/ b /\\\n/ c\nd", "B:/\\\n* a *\\\n/ b C:/\\\n/ c d"},
    {"Unclosed", "a /* b\n", "a B:/* b\n"},
    {"NoCommentInLiteral", "\"/*\" '//' a", "L:\"/*\" L:'//' a"},
    {"NoLiteralInComment", "/*\"*/ a // '\nb", "B:/*\"*/ a C:// ' b"},
};
INSTANTIATE_TEST_SUITE_P(Comments, Items, testing::ValuesIn(kComments), nameOf);

const ItemCase kDirectives[] = {
    {"Ends", "#if a\nb\n #\n# endif", "D:# if a E b D:# E D:# endif E"},
    {"OnlyAtLineStart", "a #b\n/* c\n */ #d\ne /*\n*/ #f", "a # b B:/* c\n */ D:# d E e B:/*\n*/ # f"},
    {"NotInside", "#a\\\n# b ## c", "D:# a S # b ## c E"},
    {"Digraph", "%:if a\n%\\\n: b\na %:\n%= c\n% d\n", "D:%: if a E D:%\\\n: b E a %: %= c % d"},
    {"PastingStartsNone", "## a\nb\n%:%: c\nd", "## a b %:%: c d"},
    {"BehindSplice", "\\\n#a\nb \\\n#c", "S D:# a E b S # c"},
    {"Spliced", "#a \\\n b\\ \n\nc", "D:# a S b S E c"},
    {"CommentGoesOn", "#a /* b\n c */ d\ne", "D:# a B:/* b\n c */ d E e"},
    {"LineCommentEnds", "#a // b\nc", "D:# a C:// b E c"},
    {"MacroParen", "#define A(x) (y)\n#define B (x)\n#define C/**/(x)\n#define D\\\n(x)\n#undef E(x)",
     "D:# define A M:( x ) ( y ) E D:# define B ( x ) E D:# define C B:/**/ ( x ) E D:# define D S M:( x ) E D:# undef E ( x ) E"},
    {"MacroParenNotElsewhere", "define A(x)\n#a define B(x)\n#define C D(x)\n#de\\\nfine E(x)",
     "define A ( x ) D:# a define B ( x ) E D:# define C D ( x ) E D:# de\\\nfine E M:( x ) E"},
    {"HeaderNames", "#include <a  b'c> d<e  'f>\n#include_next <//a>\n#import <a>\n# embed </*> a(<b c>)\n#include \"a\\\" b",
     "D:# include L:<a  b'c> d < e O:'f> E D:# include_next L:<//a> E D:# import L:<a> E D:# embed L:</*> a ( < b c > ) E "
     "D:# include L:\"a\\\" b E"},
    {"HeaderNamesAsked", "#if __has_include(<a b>) < c\n#if __has_include_next(\"a\\\") && __has_embed (<a b>)\n#if __has_include <a b>",
     "D:# if __has_include ( L:<a b> ) < c E D:# if __has_include_next ( L:\"a\\\" ) && __has_embed ( L:<a b> ) E "
     "D:# if __has_include < a b > E"},
    {"HeaderNameBehindComment", "#include /**/ \\\n <a b>", "D:# include B:/**/ S L:<a b> E"},
    {"HeaderNameSpliced", "#include <a\\\nb>\n#include \"a\\\nb\"", "D:# include L:<a\\\nb> E D:# include L:\"a\\\nb\" E"},
    {"HeaderNameEmpty", "#include <> a>\n#include <>\n#include \"\" a\"", "D:# include L:<> a > E D:# include L:<> E D:# include L:\"\" a O:\" E"},
    {"HeaderNamesUnclosed", "#if __has_include(<a) || __has_include(<b", "D:# if __has_include ( < a ) || __has_include ( < b E"},
    {"HeaderNameUnclosed", "#include <a b\n>\n#include \"a b\n\"", "D:# include < a b E > D:# include O:\"a b E O:\""},
    {"NoHeaderName", "include <a b>\n__has_include(<a b>)\n#pragma include <a b>\n#include\n<a b>\n#if a(<b c>)",
     "include < a b > __has_include ( < a b > ) D:# pragma include < a b > E D:# include E < a b > D:# if a ( < b c > ) E"},
    {"Import", "import <a b>;\nexport import <a b>;\nx import <a b>\nexport x import <a b>\nimport\n<a b>\nexport\nimport <c d>\nexport\n x",
     "import L:<a b> ; export import L:<a b> ; x import < a b > export x import < a b > import < a b > export import L:<c d> export x"},
    {"NoImport", "a export import <b c>\n#x import <a b>", "a export import < b c > D:# x import < a b > E"},
    {"Message", "#error \"a\" don't\n#warning a: \"b\"\n\"c\" # \"d\"", "D:# error O:\"a\" don O:'t E D:# warning a : O:\"b\" E L:\"c\" # L:\"d\""},
    {"MessageHoldsNoHeader", "#error a __has_include(<a b>) \"c\"\n#pragma \"a\"", "D:# error a __has_include ( < a b > ) O:\"c\" E D:# pragma L:\"a\" E"},
    {"LineMarker", "# 1 \"a\"\n", "D:# 1 L:\"a\" E"},
    {"RawString", "#define A R\"(\n)\" b\nc", "D:# define A L:R\"(\n)\" b E c"},
};
INSTANTIATE_TEST_SUITE_P(Directives, Items, testing::ValuesIn(kDirectives), nameOf);

TEST(Reader, StaysAtTheEnd) {
    Guard::Reader reader("a");
    Guard::Item item;
    for (int i = 0; i < 3; ++i) reader.next(item);
    EXPECT_EQ(item.kind, Kind::end);
    EXPECT_EQ(item.begin, 1u);
    EXPECT_EQ(item.end, 1u);
}

// Each of these makes a reader that looks ahead again and again pay with the square of the length.
TEST(Reader, CostsInStepWithTheText) {
    const std::string_view heads[] = {"", "#include ", "#if ", "#error "};
    const std::string_view pieces[] = {"\"\\", "'", "<", "__has_include(<", "R\"(", "R\"a", "\\\n", "\\ ", "*\\\n", "/*", "\\N{", "\\u{a", "//\\\n",
                                       "1'", "1e\\\n", "[:", "%:", "?\?"};
    for (const std::string_view head : heads) {
        for (const std::string_view piece : pieces) {
            std::string text(head);
            while (text.size() < 500000) text += piece;
            EXPECT_FALSE(itemsOf(text).empty());
        }
    }
}

} // namespace
