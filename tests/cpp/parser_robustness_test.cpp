#include "ParserTestTools.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

namespace {

std::string repeated(const std::string& text, int count) {
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) result += text;
    return result;
}

/// Parses, and checks what holds for any text: the tree of a text without errors nests.
void checkAnyText(const std::string& source) {
    const Parsed parsed(source);
    if (errorsAsText(parsed).empty()) {
        EXPECT_EQ(extentFault(parsed), "") << source;
    }
}

TEST(ParserRobustness, RandomTokens) {
    const std::vector<std::string> words = {
        "{", "}", "(", ")", "[", "]", "<", ">", ">>", ";", ",", ":", "=", "*", "&", "~", "?", ".", "->", "0", "1",
        "a", "b", "A::", "::b", "FOO", "\"s\"", "'c'", "'", "int", "const", "class", "struct", "enum", "union",
        "public", "private", "namespace", "using", "template", "operator", "virtual", "throw", "if", "else", "for",
        "do", "while", "try", "catch", "switch", "case", "default", "return", "goto", "asm", "__asm", "extern",
        "typedef", "static", "override", "noexcept", "requires", "__declspec", "/* c */", "// c\n", "\n#if 0\n",
        "\n#if A\n", "\n#else\n", "\n#endif\n"};
    std::mt19937 random(20);
    for (int round = 0; round < 4000; ++round) {
        std::string text;
        for (int i = 0; i < 40; ++i) text += words[random() % words.size()] + " ";
        checkAnyText(text);
    }
}

struct DeepRow {
    const char* name;
    const char* prefix;
    const char* open;
    const char* close;
    int count;
};

// Each would take minutes if a step looked at the rest of the text again, and the stack if each
// level took some of it.
const DeepRow kDeep[] = {
    {"Braces", "void f() ", "{", "}", 100000},
    {"OpenBraces", "void f() ", "{", "", 100000},
    {"CloseBraces", "", "}", "", 100000},
    {"Parentheses", "int a = ", "(", ")", 100000},
    {"OpenParentheses", "void f() { x = ", "(", "", 100000},
    {"Brackets", "int a = ", "[", "]", 100000},
    {"OpenBrackets", "int a", "[", "", 100000},
    {"Angles", "", "a<", ">", 100000},
    {"OpenAngles", "void f() { ", "a<", "", 100000},
    {"Initializers", "int a = ", "{", "}", 100000},
    {"Closures", "void f() { x = ", "[] { a = ", "; }", 50000},
    {"OpenClosures", "void f() { x = ", "[](a) { b; ", "", 50000},
    {"ClosureHeads", "void f() { g(", "[a]->[b]", "", 50000},
    {"ElseIf", "void f() { ", "if (a) b; else ", "", 100000},
    {"If", "void f() { ", "if (a) ", "", 100000},
    {"OpenConditions", "void f() { ", "if (", "", 100000},
    {"Do", "void f() { ", "do ", "", 100000},
    {"Conditionals", "", "#if A\n", "#endif\n", 100000},
    {"OpenConditionals", "}", "#if A\n", "", 100000},
    {"DisabledRegions", "", "#if 0\n", "#endif\n", 100000},
    {"Classes", "", "class A { ", "};", 50000},
    {"OpenClasses", "", "class A { ", "", 50000},
    {"Namespaces", "", "namespace A { ", "}", 50000},
    {"Linkages", "", "extern \"C\" { ", "}", 50000},
    {"Templates", "", "template <class T> ", "", 50000},
    {"TemplateParameters", "", "template <", "", 50000},
    {"Functions", "", "void f() { ", "}", 50000},
    {"Prototypes", "", "int f(", ")", 50000},
    {"Macros", "", "FOO(a) ", "", 50000},
    {"Names", "", "a ", "", 100000},
    {"NamesInBlock", "void f() { ", "a ", "", 100000},
    {"Stars", "void f() { ", "a * ", "", 100000},
    {"Commas", "int a", ", b", "", 100000},
    {"Labels", "void f() { ", "a: ", "", 100000},
    {"Cases", "void f() { ", "case a ", "", 100000},
    {"Comments", "void f() { ", "/* c */ ", "", 100000},
    {"Operators", "", "operator ", "", 100000},
    {"Colons", "A()", " : a(1)", "", 100000},
    {"Requires", "", "requires ", "", 100000},
    {"Asm", "void f() { ", "asm ", "", 100000},
    {"Using", "", "using ", "", 100000},
    {"Extern", "", "extern ", "", 100000},
    {"Apostrophes", "", "'\n", "", 100000},
    {"Statements", "void f() { ", "a = b;\n", "}", 100000},
    {"Declarations", "", "int a;\n", "", 100000},
};

class ParserDeep : public testing::TestWithParam<DeepRow> {};

TEST_P(ParserDeep, EndsSoon) {
    const DeepRow& row = GetParam();
    const std::string text = row.prefix + repeated(row.open, row.count) + repeated(row.close, row.count);
    const auto begin = std::chrono::steady_clock::now();
    const Parsed parsed(text);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

INSTANTIATE_TEST_SUITE_P(Parser, ParserDeep, testing::ValuesIn(kDeep),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(ParserRobustness, RefusesOnlyWhatIsTooDeep) {
    const auto nested = [](int depth) { return "void f() " + repeated("{", depth) + repeated("}", depth); };
    EXPECT_EQ(errorsAsText(Parsed(nested(500))), "");
    const Parsed tooDeep(nested(5000));
    ASSERT_EQ(tooDeep.messages.size(), 1U);
    EXPECT_EQ(tooDeep.messages.front().code, 7);
}

TEST(ParserRobustness, ElseIfDoesNotNest) {
    EXPECT_EQ(errorsAsText(Parsed("void f() { " + repeated("if (a) b(); else ", 500) + "c(); }")), "");
}

} // namespace
