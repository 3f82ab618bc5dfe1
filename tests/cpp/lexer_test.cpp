#include "cpp/Cpp_Lexer.h"

#include <gtest/gtest.h>

#include <locale>
#include <sstream>

namespace {

using Trn::Position;
using Trn::Token;

std::vector<Token> tokensOf(const std::string& text) {
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    std::vector<Token> tokens;
    while (true) {
        Token token = lexer.nextToken();
        if (token.type() == Cpp::tkEnd) return tokens;
        tokens.push_back(std::move(token));
    }
}

std::string stringValue(const Token& token) {
    std::string value;
    token.value(value);
    return value;
}

char charValue(const Token& token) {
    char value = 0;
    token.value(value);
    return value;
}

std::string printed(const Cpp::Lexer& lexer) {
    std::ostringstream out;
    lexer.print(out);
    return out.str();
}

TEST(Lexer, ANameHasItsSpellingAsItsValue) {
    const std::vector<Token> tokens = tokensOf("A::  b int 12 +");
    ASSERT_EQ(tokens.size(), 4u);
    EXPECT_EQ(tokens[0], Token(Cpp::tkIdentifier, Position{1, 1}, Position{1, 6}, "A::b", std::string("A::b")));
    EXPECT_EQ(tokens[1], Token(Cpp::tkInt, Position{1, 8}, Position{1, 10}, "int"));
    EXPECT_EQ(tokens[2], Token(Cpp::tkNumber, Position{1, 12}, Position{1, 13}, "12"));
    EXPECT_EQ(tokens[3], Token(Cpp::tkPlus, Position{1, 15}, Position{1, 15}, "+"));
}

TEST(Lexer, ANameInFrontOfAnOperatorHasNone) {
    const std::vector<Token> tokens = tokensOf("Foo::operator= ::new");
    ASSERT_EQ(tokens.size(), 5u);
    EXPECT_EQ(tokens[0], Token(Cpp::tkIdentifier, Position{1, 1}, Position{1, 3}, "Foo"));
    EXPECT_EQ(tokens[1], Token(Cpp::tkOperator, Position{1, 4}, Position{1, 13}, "::operator"));
    EXPECT_EQ(tokens[3], Token(Cpp::tkIdentifier, Position{1, 16}, Position{1, 15}, ""));
    EXPECT_EQ(tokens[4], Token(Cpp::tkNew, Position{1, 16}, Position{1, 20}, "::new"));
}

TEST(Lexer, ANameThatOnlyEndsInColonsHasOne) {
    for (const char* text : {"A::::b", "A:: ::b", "::\n::b"}) {
        SCOPED_TRACE(text);
        const std::vector<Token> tokens = tokensOf(text);
        ASSERT_EQ(tokens.size(), 2u);
        EXPECT_EQ(stringValue(tokens[0]), tokens[0].text());
        EXPECT_EQ(stringValue(tokens[1]), "::b");
    }
}

TEST(Lexer, LiteralsHaveTheirContent) {
    const std::vector<Token> tokens = tokensOf("\"a\\n\\\"b\" 'x' '\\t' 'ab' '\\q'");
    ASSERT_EQ(tokens.size(), 5u);
    EXPECT_EQ(stringValue(tokens[0]), "a\n\"b");
    EXPECT_EQ(tokens[0].text(), "\"a\\n\\\"b\"");
    EXPECT_EQ(charValue(tokens[1]), 'x');
    EXPECT_EQ(charValue(tokens[2]), '\t');
    EXPECT_EQ(charValue(tokens[3]), 'a');
    EXPECT_EQ(charValue(tokens[4]), 'q');
}

TEST(Lexer, AStringCutShortByTheEndLosesItsLastCharacter) {
    EXPECT_EQ(stringValue(tokensOf("\"abc").at(0)), "ab");
    EXPECT_EQ(stringValue(tokensOf("\"").at(0)), "");
}

TEST(Lexer, InvalidTextHasNoValue) {
    const Token token = tokensOf("'\n").at(0);
    EXPECT_EQ(token, Token(Cpp::tkInvalid, Position{1, 1}, Position{1, 1}, "''"));
}

TEST(Lexer, ALineCommentEndsWithItsLineWhateverItEndsIn) {
    const std::vector<Token> tokens = tokensOf("// c:\\\nx\n#define A \"http://x\"\n");
    ASSERT_EQ(tokens.size(), 4u);
    EXPECT_EQ(tokens[0].text(), "// c:\\\n");
    EXPECT_EQ(tokens[1].text(), "x");
    EXPECT_EQ(tokens[2].text(), "#define A \"http:");
    EXPECT_EQ(tokens[3].text(), "//x\"\n");
}

TEST(Lexer, LineEndsOfAllKindsAreLineFeeds) {
    const std::vector<Token> tokens = tokensOf("// a\r\n// b\rc");
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_EQ(tokens[0].text(), "// a\n");
    EXPECT_EQ(tokens[1].end(), (Position{3, 0}));
    EXPECT_EQ(tokens[2].start(), (Position{3, 1}));
}

TEST(Lexer, TheEndIsNoTokenForEver) {
    std::istringstream in("a");
    Cpp::Lexer lexer(in);
    lexer.nextToken();
    for (int i = 0; i < 3; ++i) EXPECT_EQ(lexer.nextToken(), Token());
}

TEST(Lexer, TheWholeTextCanBeHadAtAnyTime) {
    std::istringstream in("a\r\nb");
    Cpp::Lexer lexer(in);
    EXPECT_EQ(lexer.source().text(), "a\nb");
    EXPECT_EQ(lexer.nextToken().text(), "a");
    EXPECT_EQ(lexer.source().text(), "a\nb");
    EXPECT_EQ(lexer.nextToken().text(), "b");
}

TEST(Lexer, PrintsWhereItStands) {
    std::istringstream in("ab // c\n x");
    Cpp::Lexer lexer(in);
    EXPECT_EQ(printed(lexer), "line:\t1\tcol:\t0\tlastlinecol:\t-1\n");
    lexer.nextToken();
    EXPECT_EQ(printed(lexer), "line:\t1\tcol:\t2\tlastlinecol:\t1\n");
    lexer.nextToken();
    EXPECT_EQ(printed(lexer), "line:\t2\tcol:\t0\tlastlinecol:\t7\n");
    lexer.nextToken();
    EXPECT_EQ(printed(lexer), "line:\t2\tcol:\t2\tlastlinecol:\t1\n");
}

TEST(Lexer, PrintsNumbersWithoutALocale) {
    struct Grouping : std::numpunct<char> {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    std::istringstream in(std::string(1234, '\n') + "a");
    Cpp::Lexer lexer(in);
    lexer.nextToken();
    std::ostringstream out;
    out.imbue(std::locale(std::locale::classic(), new Grouping));
    lexer.print(out);
    EXPECT_EQ(out.str(), "line:\t1235\tcol:\t1\tlastlinecol:\t0\n");
}

TEST(Unescape, ResolvesTheFiveAndDropsOtherBackslashes) {
    EXPECT_EQ(Cpp::Lexer::unescape(R"(a\\b\n\r\t\v\x\"\')"), "a\\b\n\r\t\vx\"'");
    EXPECT_EQ(Cpp::Lexer::unescape("\\\\n"), "\\n");
    EXPECT_EQ(Cpp::Lexer::unescape("end\\"), "end");
    EXPECT_EQ(Cpp::Lexer::unescape(""), "");
}

} // namespace
