#include "ParserTestTools.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace {

std::string repeated(const std::string& part, int count) {
    std::string text;
    text.reserve(part.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) text += part;
    return text;
}

const char kTooDeep[] = "The statement cannot be parsed.";

TEST(Nesting, ToTheLimitIsRead) {
    EXPECT_EQ(errorsAsText(Parsed("void f() " + repeated("{ ", 900) + repeated("} ", 900))), "");
    EXPECT_EQ(errorsAsText(Parsed(repeated("class A { ", 900) + repeated("}; ", 900))), "");
    EXPECT_EQ(errorsAsText(Parsed("void f() { if (a) { b; }" + repeated(" else if (c) { d; }", 900) + " }")), "");
}

// One message at the place, and no overflow of the stack.
TEST(Nesting, BeyondTheLimitIsRefused) {
    for (const std::string part : {"{ ", "class A { ", "namespace a { ", "extern \"C\" { ", "if (a) { ", "do { ", "if (a) ",
                                   "switch (a) { case 1: ", "FOO { ", "FOO(x) { ", "if (a) b; else "}) {
        SCOPED_TRACE(part);
        const Parsed parsed("void f() {\n" + repeated(part, 50000));
        const Parsed bare(repeated(part, 50000));
        for (const Parsed* one : {&parsed, &bare}) {
            ASSERT_FALSE(one->messages.empty());
            EXPECT_EQ(one->messages.back().text, kTooDeep);
        }
    }
}

// Processor time, so that a busy machine does not count.
double secondsFor(const std::string& text) {
    const std::clock_t begin = std::clock();
    const Parsed parsed(text);
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

// Were the cost of these to grow with the square of their length, each would take minutes.
constexpr int kMany = 100000;
constexpr double kSecondsAtMost = 5;

TEST(Cost, GrowsInStepWithTheText) {
    for (const std::string part :
         {"( ", "< ", "a < ", "[ ", "} ", ") ", "a ( ", "A(x) ", "F f(x) A(x) ", "a * b = {} ", "a * b {} ", "a(b) : c(d) ",
          "case a ", "x = ( ", "a, ", "template < ", "template <class T ", "#if 0\n", "#if A\n", "#if A\n{\n#else\n", "/**/ ",
          "operator ", "requires a && ", "int a(", "struct A : ", "a::", "'\n", "\"\n", "~", "X f() X X X X ", "goto x "}) {
        for (const std::string head : {"", "void f() { ", "class A { "}) {
            SCOPED_TRACE(head + part);
            EXPECT_LT(secondsFor(head + repeated(part, kMany)), kSecondsAtMost);
        }
    }
}

TEST(Cost, OfManyStatementsWithoutSemicolon) {
    EXPECT_LT(secondsFor("void f() { " + repeated("a * b = {} { a * b = {} } ", kMany) + "}"), kSecondsAtMost);
}

// Any prefix and any single token left out of a text with every construct: no crash, no endless loop,
// and extents that fit into each other.
const char kEverything[] =
    "#if 0\nx\n#endif\n#ifdef A\nint q;\n#else\nint r;\n#endif\n"
    "namespace a::b { template <class T, int N = (1 > 0)> class C final : public virtual B<T>, D { public slots: int x : 3, y;\n"
    "C() : a(1), b{2} { } virtual void f(int a = {1}, /* c */ int b) const throw(X) = 0; operator int() const; enum E { P = 1, Q };\n"
    "using X::y; friend class Z; }; }\n"
    "extern \"C\" { int (*fp)(int), z[] = {1, 2}; static const char *s = \"x\"; }\n"
    "int f(a, b) int a; { if (a) { b(); } else if (c) d; else { e } do { g; } while (0); for (int i = 0; i < n; ++i) h(i);\n"
    "switch (x) { case 1: default: break; } try { } catch (...) { } l: goto l; std::map<int, int> m{{1, 2}}; a * b, c = 2;\n"
    "asm(\"x\" : \"y\"); __asm { mov } auto f = [](int x) -> int { return x; }; x = y < z ? (T){1} : 2; return throw 1; }\n"
    "MACRO(x) FOO { y } template class V<int>; auto g() -> int { return 1; } void A<T>::h() noexcept override;\n";

TEST(OddTexts, AnyPrefix) {
    const std::string text = kEverything;
    for (std::size_t size = 0; size <= text.size(); ++size) {
        const Parsed parsed(text.substr(0, size));
        EXPECT_EQ(extentFault(parsed), "") << text.substr(0, size);
    }
}

TEST(OddTexts, AnyGap) {
    const std::string text = kEverything;
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        for (std::size_t size : {1u, 3u, 11u}) {
            std::string broken = text;
            broken.erase(begin, size);
            const Parsed parsed(broken);
            EXPECT_EQ(extentFault(parsed), "") << broken;
        }
    }
}

} // namespace
