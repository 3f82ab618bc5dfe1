#include "cpp/Cpp_Scanner.h"
#include "cpp/Cpp_TokenDumper.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <sstream>

namespace {

using Cpp::RawToken;

std::vector<RawToken> tokensOf(std::string_view text) {
    std::vector<RawToken> tokens;
    Cpp::scanAll(text, tokens);
    return tokens;
}

/// The tokens in one line: an operator or keyword as it is spelled, others as type and spelling.
std::string tokensAsText(std::string_view text) {
    std::string result;
    for (const RawToken& token : tokensOf(text)) {
        const std::string spelling = Cpp::spelling(text, token);
        const std::string_view name = Cpp::tokenTypeName(token.type);
        if (!result.empty()) result += ' ';
        result += spelling == name ? spelling : std::string(name) + "[" + spelling + "]";
    }
    return result;
}

std::string dump(std::string_view text) {
    std::ostringstream out;
    Cpp::dumpTokens(text, out);
    return out.str();
}

struct ScanCase {
    const char* name;
    const char* source;
    const char* tokens;
};

class Scan : public testing::TestWithParam<ScanCase> {};

TEST_P(Scan, GivesTokens) {
    EXPECT_EQ(tokensAsText(GetParam().source), GetParam().tokens) << GetParam().source;
}

std::string rowName(const testing::TestParamInfo<ScanCase>& row) {
    return row.param.name;
}

const ScanCase kNames[] = {
    {"KeywordAndIdentifier", "int interest _int", "int <identifier>[interest] <identifier>[_int]"},
    {"QualifiedNameIsOne", "A::B::~C", "<identifier>[A::B::~C]"},
    {"LeadingColons", "::A", "<identifier>[::A]"},
    {"SpaceBehindColonsIsLeftOut", "A:: B A::\n\tB", "<identifier>[A::B] <identifier>[A::B]"},
    {"SpaceInFrontOfColonsIsNot", "A ::B", "<identifier>[A] <identifier>[::B]"},
    {"TrailingColonsStay", "A::*p", "<identifier>[A::] * <identifier>[p]"},
    {"QualifiedKeywordIsAName", "A::int", "<identifier>[A::int]"},
    {"Destructors", "~Foo Foo::~Foo ~ Foo ~0 ~_a",
     "<identifier>[~Foo] <identifier>[Foo::~Foo] ~ <identifier>[Foo] ~ <number>[0] ~ <identifier>[_a]"},
    {"QualifiedOperatorIsSplit", "Foo::operator=", "<identifier>[Foo] operator[::operator] ="},
    {"QualifiedNewAndDelete", "A::new A::B::delete",
     "<identifier>[A] new[::new] <identifier>[A::B] delete[::delete]"},
    {"GlobalOperatorHasAnEmptyName", "::operator new", "<identifier>[] operator[::operator] new"},
    {"SplitWithSpaces", "A:: B::  operator", "<identifier>[A::B] operator[::operator]"},
    {"OperatorInFrontOfColonsIsNotSplit", "operator::A", "<identifier>[operator::A]"},
    {"LabelsAndConditionals", "x ? a : b; x?a::b:c",
     "<identifier>[x] ? <identifier>[a] : <identifier>[b] ; <identifier>[x] ? <identifier>[a::b] : <identifier>[c]"},
    {"ThreeColons", "a:::b", "<identifier>[a::] : <identifier>[b]"},
    {"BeyondAscii", "gr\xc3\xb6\xc3\x9f" "e foo$bar $ \xff Ä::~Ä ~é @`\\",
     "<identifier>[größe] <identifier>[foo$bar] <identifier>[$] <identifier>[\xff] <identifier>[Ä::~Ä] <identifier>[~é]"},
    {"LettersByTheirCode", "\\u00e4b a\\U000000e4::\\u{e4} ~\\N{LATIN SMALL LETTER A} \\u00x",
     "<identifier>[\\u00e4b] <identifier>[a\\U000000e4::\\u{e4}] <identifier>[~\\N{LATIN SMALL LETTER A}] "
     "<identifier>[u00x]"},
    {"MarkInFrontOfTheText", "\xef\xbb\xbfint \xef\xbb\xbf", "int <identifier>[\xef\xbb\xbf]"},
};
INSTANTIATE_TEST_SUITE_P(Names, Scan, testing::ValuesIn(kNames), rowName);

const ScanCase kNumbers[] = {
    {"Plain", "0 42 1.5e+3f 0x1FUL 0x1.8p-3 1e5 7ull",
     "<number>[0] <number>[42] <number>[1.5e+3f] <number>[0x1FUL] <number>[0x1.8p-3] <number>[1e5] <number>[7ull]"},
    {"LeadingDot", ".5 a.b5 ...5", "<number>[.5] <identifier>[a] . <identifier>[b5] . . . <number>[5]"},
    {"FurtherDots", "1..2 1.2.3", "<number>[1..2] <number>[1.2.3]"},
    {"Suffixes", "123abc 1_km 0x1p-3f 1.0f16 1wb 2uz 1ä 1.\\u00e4",
     "<number>[123abc] <number>[1_km] <number>[0x1p-3f] <number>[1.0f16] <number>[1wb] <number>[2uz] <number>[1ä] "
     "<number>[1.\\u00e4]"},
    {"SignBehindAnExponent", "1e-2-3 0xe-1 1p+2 1f-2",
     "<number>[1e-2] - <number>[3] <number>[0xe-1] <number>[1p+2] <number>[1f] - <number>[2]"},
    {"DigitSeparators", "1'000'000 0xFF'ff 0b1'0 0b0111'1111 0'.' 1''",
     "<number>[1'000'000] <number>[0xFF'ff] <number>[0b1'0] <number>[0b0111'1111] <number>[0] "
     "<character>['.'] <number>[1] <invalid>['']"},
    {"AtTheEndOfTheText", "x12 12", "<identifier>[x12] <number>[12]"},
};
INSTANTIATE_TEST_SUITE_P(Numbers, Scan, testing::ValuesIn(kNumbers), rowName);

const ScanCase kOperators[] = {
    {"LongestFirst", "a<<=b>>=c->*d->e.*f",
     "<identifier>[a] <<= <identifier>[b] >>= <identifier>[c] ->* <identifier>[d] -> <identifier>[e] .* <identifier>[f]"},
    {"WithAssign", "+= -= *= /= %= &= ^= |= == != <= >=", "+= -= *= /= %= &= ^= |= == != <= >="},
    {"Doubled", "++ -- && || << >>", "++ -- && || << >>"},
    {"Greedy", "+++ ---> <<< &&&", "++ + -- -> << < && &"},
    {"Single", "; : , ( ) { } = * & [ ] / . + - ! ~ % < > ^ | ?",
     "; : , ( ) { } = * & [ ] / . + - ! ~ % < > ^ | ?"},
    {"EllipsisIsThreeDots", "...", ". . ."},
    {"Digraphs", "<:0:> <% %> a<::b> a<::>b a<:::b",
     "[[<:] <number>[0] ][:>] {[<%] }[%>] <identifier>[a] < <identifier>[::b] > <identifier>[a] [[<:] ][:>] "
     "<identifier>[b] <identifier>[a] [[<:] <identifier>[::b]"},
};
INSTANTIATE_TEST_SUITE_P(Operators, Scan, testing::ValuesIn(kOperators), rowName);

const ScanCase kLiterals[] = {
    {"Strings", R"("a\"b" "" "\\")", R"(<string>["a\"b"] <string>[""] <string>["\\"])"},
    {"PrefixIsAName", "L\"a\" u8'b'", "<identifier>[L] <string>[\"a\"] <identifier>[u8] <character>['b']"},
    {"UnclosedStringIsDropped", "\"abc\nx", "<identifier>[x]"},
    {"BackslashContinuesAString", "\"a\\\nb\" \"a\\ \t\nb\"", "<string>[\"a\\\nb\"] <string>[\"a\\ \t\nb\"]"},
    {"StringAtTheEndOfTheText", "\"abc", "<string>[\"abc]"},
    {"StringEndingInABackslash", "\"abc\\", "<string>[\"abc\\]"},
    {"Characters", R"('a' '\'' '\\' 'ab')",
     R"(<character>['a'] <character>['\''] <character>['\\'] <character>['ab'])"},
    {"UnclosedCharacterIsInvalid", "'\nx", "<invalid>[''] <identifier>[x]"},
    {"UnclosedCharacterTakesItsLine", "don't do;\nx", "<identifier>[don] <invalid>['t do;'] <identifier>[x]"},
    {"EmptyCharacterIsInvalid", "'' x", "<invalid>[''] <identifier>[x]"},
    {"CharacterAtTheEndOfTheText", "'a", "<character>['a']"},
    {"RawString", "R\"([\"'])\" x", "<identifier>[R] <string>[\"([\"'])\"] <identifier>[x]"},
    {"RawStringWithDelimiter", "u8R\"x(a)\"\n)y\")x\";", "<identifier>[u8R] <string>[\"x(a)\"\n)y\")x\"] ;"},
    {"EscapeOverAJoinedLineEnd", "\"a\\\\\n\" b\"; c", "<string>[\"a\\\\\n\" b\"] ; <identifier>[c]"},
    {"RawStringHoldsItsBackslashes", "LR\"(a\\\n)\" uR\"0123456789abcdef()0123456789abcdef\"",
     "<identifier>[LR] <string>[\"(a\\\n)\"] <identifier>[uR] <string>[\"0123456789abcdef()0123456789abcdef\"]"},
    {"RawDelimiterTooLong", "R\"0123456789abcdefg()\"", "<identifier>[R] <string>[\"0123456789abcdefg()\"]"},
    {"QuoteInARawDelimiter", "R\"\"(\")\"\" R\"\";f(x)", "<identifier>[R] <string>[\"\"(\")\"\"] <identifier>[R] "
     "<string>[\"\"] ; <identifier>[f] ( <identifier>[x] )"},
    {"NoRawPrefix", "FR\"(a\" AR\"b\"", "<identifier>[FR] <string>[\"(a\"] <identifier>[AR] <string>[\"b\"]"},
    {"RawPrefixWithoutParenthesis", "R\"a b\" x", "<identifier>[R] <string>[\"a b\"] <identifier>[x]"},
    {"UnclosedRawString", "R\"(a\nb", "<identifier>[R] <string>[\"(a\nb]"},
};
INSTANTIATE_TEST_SUITE_P(Literals, Scan, testing::ValuesIn(kLiterals), rowName);

const ScanCase kComments[] = {
    {"LineCommentHoldsItsLineFeed", "a// b\nc", "<identifier>[a] <line comment>[// b\n] <identifier>[c]"},
    {"BackslashContinuesALineComment", "// c:\\\nif (x) \\ \n y;\nz",
     "<line comment>[// c:\\\nif (x) \\ \n y;\n] <identifier>[z]"},
    {"BackslashContinuesALineCommentToTheEnd", "// c:\\\n", "<line comment>[// c:\\\n]"},
    {"BlockComment", "/* a\n * b **/c", "<block comment>[/* a\n * b **/] <identifier>[c]"},
    {"SlashStarSlashIsOpen", "/*/ x */ y", "<block comment>[/*/ x */] <identifier>[y]"},
    {"ShortestBlockComment", "/**/x", "<block comment>[/**/] <identifier>[x]"},
    {"CommentAtTheEndOfTheText", "/* a", "<block comment>[/* a]"},
    {"NoCommentInAString", "\"/*\" \"//\"", "<string>[\"/*\"] <string>[\"//\"]"},
};
INSTANTIATE_TEST_SUITE_P(Comments, Scan, testing::ValuesIn(kComments), rowName);

const ScanCase kDirectives[] = {
    {"ThroughItsLineFeed", "#if A\nx", "<directive>[#if A\n] <identifier>[x]"},
    {"AnywhereOnALine", "a #b\nc", "<identifier>[a] <directive>[#b\n] <identifier>[c]"},
    {"AsAnArgument", "F(#, # )\nx", "<identifier>[F] ( , ) <identifier>[x]"},
    {"ContinuedLines", "#define A \\\n 1 \\ \t\n 2\nx",
     "<directive>[#define A \\\n 1 \\ \t\n 2\n] <identifier>[x]"},
    {"EndsInFrontOfALineComment", "#define A // x\ny",
     "<directive>[#define A ] <line comment>[// x\n] <identifier>[y]"},
    {"SlashesInAString", "#define A \"http://x\" \\\n \"//\"\ny",
     "<directive>[#define A \"http://x\" \\\n \"//\"\n] <identifier>[y]"},
    {"SlashesBehindAnOpenQuote", "#error don't \"x // y\nz",
     "<directive>[#error don't \"x ] <line comment>[// y\n] <identifier>[z]"},
    {"CommentInsideIsSpelledWithOneMoreSlash", "#define A /* x */ 1\n",
     "<directive>[#define A /* x *// 1\n]"},
    {"BackslashBehindACommentContinues", "#define A /* x */ \\\n 1\ny",
     "<directive>[#define A /* x *// \\\n 1\n] <identifier>[y]"},
    {"BackslashInFrontOfACommentDoesNot", "#define A \\ /* x */\ny",
     "<directive>[#define A \\ /* x *//\n] <identifier>[y]"},
    {"CommentOverLinesEndsIt", "#endif /* a\n b */\nx",
     "<directive>[#endif ] <block comment>[/* a\n b */] <identifier>[x]"},
    {"RestOfItsLineIsADirective", "#define A /* a\n b */ 1 \\\n 2\nint z;",
     "<directive>[#define A ] <block comment>[/* a\n b */] <directive>[1 \\\n 2\n] int <identifier>[z] ;"},
    {"RestWithFurtherComments", "#define A /*\n*/ /* b */ 1 /*\n*/ 2\nx",
     "<directive>[#define A ] <block comment>[/*\n*/] <block comment>[/* b */] <directive>[1 ] "
     "<block comment>[/*\n*/] <directive>[2\n] <identifier>[x]"},
    {"RestThatIsALineComment", "#if A /*\n*/ // b\nx",
     "<directive>[#if A ] <block comment>[/*\n*/] <line comment>[// b\n] <identifier>[x]"},
    {"StarsInAStringOpenNoComment", "#define G \"a/*.c\"\nx */",
     "<directive>[#define G \"a/*.c\"\n] <identifier>[x] * /"},
    {"QuoteInACharacterOpensNoString", "#define Q '\"' /* \"\n */ x",
     "<directive>[#define Q '\"' ] <block comment>[/* \"\n */] <directive>[x]"},
    {"StringThatIsNotClosedOpensNothing", "#error \" /* a\n */\nx",
     "<directive>[#error \" ] <block comment>[/* a\n */] <identifier>[x]"},
    {"SpelledByADigraph", "%:if A\n%: define B %:%: C\nx", "<directive>[%:if A\n] <directive>[%: define B %:%: C\n] <identifier>[x]"},
    {"SlashesInAHeaderName", "#include <a//b/*c> // d\n#if A < b // >\n",
     "<directive>[#include <a//b/*c> ] <line comment>[// d\n] <directive>[#if A < b ] <line comment>[// >\n]"},
    {"RawStringOverLines", "#define A R\"(\n// \" )\" 1\nx", "<directive>[#define A R\"(\n// \" )\" 1\n] <identifier>[x]"},
    {"Apostrophe", "#error don't\nx", "<directive>[#error don't\n] <identifier>[x]"},
    {"AtTheEndOfTheText", "#endif", "<directive>[#endif]"},
};
INSTANTIATE_TEST_SUITE_P(Directives, Scan, testing::ValuesIn(kDirectives), rowName);

// The backslashes here join lines in the middle of a token.
const ScanCase kJoined[] = {
    {"Names", "ab\\\ncd A::b\\ \n\\\nc i\\\nnt x\\\n y",
     "<identifier>[abcd] <identifier>[A::bc] int <identifier>[x] <identifier>[y]"},
    {"Colons", "a:\\\n:b :\\\n:c", "<identifier>[a::b] <identifier>[::c]"},
    {"SplitNames", "A::oper\\\nator=", "<identifier>[A] operator[::operator] ="},
    {"Numbers", "1\\\n2 1e\\\n-3 1'\\\n0 1.\\\n5 1\\\n+2", "<number>[12] <number>[1e-3] <number>[1'0] <number>[1.5] "
     "<number>[1] + <number>[2]"},
    {"Operators", "+\\\n+ <<\\\n= -\\\n>\\\n* <\\\n% ,\\\n,", "++ <<= ->* {[<%] , ,"},
    {"Comments", "/\\\n/ a\n/\\\n* b *\\\n/ c", "<line comment>[/\\\n/ a\n] <block comment>[/\\\n* b *\\\n/] <identifier>[c]"},
    {"NoComment", "a /\\\n b /* c \n/ */", "<identifier>[a] / <identifier>[b] <block comment>[/* c \n/ */]"},
    {"Literals", "'a\\\nb' \"a\\\n\\\nb\" R\\\n\"(\")\"", "<character>['a\\\nb'] <string>[\"a\\\n\\\nb\"] <identifier>[R] <string>[\"(\")\"]"},
    {"Directives", "#\\\nif A\n%\\\n:e /\\\n/ x\n", "<directive>[#\\\nif A\n] <directive>[%\\\n:e ] <line comment>[/\\\n/ x\n]"},
};
INSTANTIATE_TEST_SUITE_P(Joined, Scan, testing::ValuesIn(kJoined), rowName);

TEST(ScannerPlaces, EndsAreInclusive) {
    EXPECT_EQ(dump("int a; // c\n/* b\n*/ 'x\n"),
              "1:1-1:3 int \"int\"\n"
              "1:5-1:5 <identifier> \"a\"\n"
              "1:6-1:6 ; \";\"\n"
              "1:8-2:0 <line comment> \"// c\\n\"\n"
              "2:1-3:2 <block comment> \"/* b\\n*/\"\n"
              "3:4-3:5 <invalid> \"'x'\"\n");
}

TEST(ScannerPlaces, SpaceBehindColonsIsInsideTheName) {
    EXPECT_EQ(dump("A::\n  *p"),
              "1:1-2:2 <identifier> \"A::\"\n"
              "2:3-2:3 * \"*\"\n"
              "2:4-2:4 <identifier> \"p\"\n");
}

TEST(ScannerPlaces, SplitNames) {
    EXPECT_EQ(dump("Foo::\noperator\n  ::operator"),
              "1:1-1:3 <identifier> \"Foo\"\n"
              "1:4-2:8 operator \"::operator\"\n"
              "3:3-3:2 <identifier> \"\"\n"
              "3:3-3:12 operator \"::operator\"\n");
}

TEST(ScannerPlaces, SplitNameInFrontOfAllElse) {
    EXPECT_EQ(dump("::new").substr(0, 11), "1:1-1:0 <id");
}

TEST(ScannerPlaces, DirectiveEndsInFrontOfItsComment) {
    EXPECT_EQ(dump("#if A  // x\n#endif\n"),
              "1:1-1:7 <directive> \"#if A  \"\n"
              "1:8-2:0 <line comment> \"// x\\n\"\n"
              "2:1-3:0 <directive> \"#endif\\n\"\n");
}

TEST(Scanner, EveryKeywordIsFoundAndOnlyThey) {
    for (int type = Cpp::tkClass; type <= Cpp::tkVoid; ++type) {
        const std::string keyword(Cpp::tokenTypeName(type));
        if (keyword.front() == '<') continue;
        SCOPED_TRACE(keyword);
        EXPECT_EQ(tokensOf(keyword).at(0).type, type);
        EXPECT_EQ(tokensOf(keyword + "x").at(0).type, Cpp::tkIdentifier);
        EXPECT_EQ(tokensOf(keyword.substr(0, keyword.size() - 1) + "Z").at(0).type, Cpp::tkIdentifier);
    }
}

TEST(Scanner, StartsAnywhereInAText) {
    const std::string_view text = "a /* b */ c";
    EXPECT_EQ(tokensAsText(text.substr(2, 5)), "<block comment>[/* b ]");
    EXPECT_EQ(tokensAsText(text.substr(5)), "<identifier>[b] * / <identifier>[c]");
}

std::string randomSource(std::mt19937& random) {
    static const std::vector<std::string> kParts = {
        "A",  "::", " ",  "\n",  "\t", "operator", "new", "int", "~", "0x", "1",   ".",   "e",  "'",    "\"",
        "\\", "#",  "//", "/*",  "*/", "*",        "/",   "<",   "=", "->", "R\"", "\"(", ")",  "\xff", "$",
        ":",  ";",  "(",  "\\\n",     "%:",  "\\u00e4"};
    std::string text;
    for (auto count = random() % 24; count > 0; --count) text += kParts[random() % kParts.size()];
    return text;
}

void expectTokensInOrder(const std::string& text) {
    const Zelmar::SourceText source{text};
    std::uint32_t end = 0;
    for (const RawToken& token : tokensOf(text)) {
        ASSERT_GE(token.begin, end);
        ASSERT_GE(token.end, token.begin);
        ASSERT_LE(token.end, text.size());
        ASSERT_EQ(Cpp::startOf(source, token).column, source.positionOf(token.begin).column);
        ASSERT_EQ(token.line, source.positionOf(token.begin).line);
        if (token.end > token.begin) {
            ASSERT_EQ(Cpp::endOf(source, token), source.positionOf(token.end - 1));
        }
        end = token.end;
    }
}

TEST(Scanner, TokensOfAnyTextStandInOrderAtTheirPlaces) {
    std::mt19937 random(20240502);
    for (int round = 0; round < 20000; ++round) {
        const std::string text = randomSource(random);
        SCOPED_TRACE(testing::PrintToString(text));
        expectTokensInOrder(text);
        if (testing::Test::HasFatalFailure()) return;
    }
}

std::string repeated(std::string_view part, std::size_t count) {
    std::string text;
    text.reserve(part.size() * count);
    for (std::size_t i = 0; i < count; ++i) text += part;
    return text;
}

// Each of these makes a search fail over and over, if it starts again at every turn.
TEST(Scanner, CostGrowsInStepWithTheText) {
    const std::string hostile[] = {"#x " + repeated("\"\\", 200000),
                                   "#x " + repeated("\\\"\\\n", 200000),
                                   repeated("R\"(", 200000),
                                   repeated("R\"aaaaaaaaaaaaaaaaa", 50000),
                                   repeated("/*/", 200000),
                                   repeated("\"\\\n", 200000),
                                   "#define " + repeated("/* a */", 200000),
                                   "\"" + repeated(" ", 400000) + repeated("\n", 400000),
                                   "#a" + repeated(" \\\n", 200000),
                                   repeated("'\\\\", 200000),
                                   repeated("R\"\";f(", 200000),
                                   "#x " + repeated("R\"\";f(", 200000),
                                   "#include <" + repeated("a/*", 200000),
                                   "/*" + repeated("\\ \n/", 200000),
                                   "a" + repeated("\\\n", 400000)};
    for (const std::string& text : hostile) {
        SCOPED_TRACE(text.substr(0, 20));
        const auto begin = std::chrono::steady_clock::now();
        const std::vector<RawToken> tokens = tokensOf(text);
        if (!tokens.empty()) Cpp::spelling(text, tokens.front());
        // Quadratic cost would be minutes here; a slow machine under a sanitizer needs a tenth.
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    }
}

TEST(NeedsBlank, WhereTwoWouldReadAsOne) {
    for (const char* pair : {"ab", "a1", "_a", "$a", "1\xc3", "++", "--", "&&", "||", "<<", ">>", "::", "//", "/*",
                             "->", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "!=", "==", "<=", ">=", "<:",
                             "..", ".*", ".5", "1.", "L\"", "u'", "\"s", "'s"}) {
        SCOPED_TRACE(pair);
        EXPECT_TRUE(Cpp::needsBlank(pair[0], pair[1]));
    }
}

TEST(NeedsBlank, NotWhereTheyStayApart) {
    for (const char* pair : {"a(", ")a", "a+", "+a", "+-", "-+", "*&", "&*", ">*", "**", "*p", "a:", ":a", "a;", "{}",
                             "\"\"", "=\"", "=-", "=&", "a<", ">a", ")=", "a=", "[&", "a."}) {
        SCOPED_TRACE(pair);
        EXPECT_FALSE(Cpp::needsBlank(pair[0], pair[1]));
    }
}

TEST(NeedsBlank, SeesMoreInWholeTexts) {
    const std::pair<const char*, const char*> glued[] = {{"x = 0xe", "+1"},  {"1.5E", "-y"},     {"0x1p", "+3"},
                                                         {"friend A", "::b"}, {"else", "::g()"}, {"x = ~", "a"}, {"x = ~", "ä"},    {"0xf", ".x"}, {"1.", "e"}};
    for (const auto& [left, right] : glued) {
        SCOPED_TRACE(std::string(left) + " " + right);
        EXPECT_TRUE(Cpp::needsBlank(std::string_view(left), std::string_view(right)));
    }
    const std::pair<const char*, const char*> apart[] = {{"value", "+1"}, {"a.e", "-1"}, {"0xf", "+1"}, {"case 1", ":"}, {"a.", "b"}, {"a", ".b"},
                                                         {")", "::b"},    {"~", "0"},    {"", "a"},     {"a", ""}};
    for (const auto& [left, right] : apart) {
        SCOPED_TRACE(std::string(left) + " " + right);
        EXPECT_FALSE(Cpp::needsBlank(std::string_view(left), std::string_view(right)));
    }
}

TEST(OneWord, IsTornByWhiteSpace) {
    const std::pair<const char*, const char*> whole[] = {{"f", "ä"}, {"f", "$"}, {"L", "\"a\""}, {"\"a\"", "_s"}, {"'a'", "_c"}, {"u8R", "\"(a)\""}};
    for (const auto& [left, right] : whole) EXPECT_TRUE(Cpp::isOneWord(left, right)) << left << right;
    const std::pair<const char*, const char*> apart[] = {{"return", "\"a\""}, {"f", "("}, {"", "a"}, {"\"a\"", "\"b\""}, {"AL", "\"a\""}};
    for (const auto& [left, right] : apart) EXPECT_FALSE(Cpp::isOneWord(left, right)) << left << right;
}

} // namespace
