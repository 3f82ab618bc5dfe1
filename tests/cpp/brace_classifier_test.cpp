#include "cpp/Cpp_BraceClassifier.h"

#include <gtest/gtest.h>

namespace {

using namespace Cpp;

/// One letter for each "{" of a text: Block, Klass, Enumerators, Linkage, Values, Closure, Statements,
/// Requirements, and "-" for one that nothing closes.
std::string kindsOf(const std::string& text) {
    const Zelmar::SourceText source(text);
    const TokenTable table(source, scanForParser(source).tokens);
    const BraceClassifier braces(table);
    std::string kinds;
    for (TokenTable::Index i = 0; i < table.size(); ++i) {
        if (table.type(i) == tkOpenBrace) kinds += "-BKELVCSR"[static_cast<int>(braces.kind(i))];
    }
    return kinds;
}

struct BraceCase {
    const char* name;
    const char* source;
    const char* kinds;
};

const BraceCase kBraceCases[] = {
    {"Bodies", "void f() { if (a) { } else { } do { } while (b); try { } catch (...) { } { } }", "BBBBBBB"},
    {"Tails", "A f() const { } A g() override { x; } void h() noexcept(true) { } auto i() -> T& { } int j() TAIL { };", "BBBBB"},
    {"Classes", "class A : B<C> { }; struct API(x) S final { }; template <class T> union U { T t; }; struct { } t[] = {{1}};", "KKKKVV"},
    {"StructValue", "struct S s{1, 2}; struct S f() { } template <class T> T t{1};", "VBV"},
    {"Enums", "enum class E : int { A }; enum E f() { } enum { B } b{A};", "EBEV"},
    {"Namespaces", "namespace a { } namespace b::c { int x{1}; }; inline namespace d { } extern \"C\" { } export { }", "BBVBLB"},
    {"Returns", "int f() { return {1}; throw E{}; co_return {}; co_await T{2}; if (a) return {b}; }", "BVVVVV"},
    {"Assigned", "void f() { x = T{1}; x += {2}; t[] = {{1}, {2}}; a ? B{1} : C{2}; }", "BVVVVVVV"},
    {"Declared", "void f() { int v{1}, w{2}; std::vector<int> x{1}; T{1}.f(); T y[2]{1}; T{}; } int a{1};", "BVVVVVVV"},
    {"Arguments", "void f() { g({1, 2}, T{.a = 1}); h(new T[2]{1}, (T){.x = 1}); a[T{}] = {}; for (int i : {1, 2}) { } }", "BVVVVVVVB"},
    {"Cases", "void f() { switch (a) { case T{1}: { } l: { } default: { } } }", "BBVBBB"},
    {"Inits", "A::A() : a{1}, B<C>{2}, c(3) { } A::A() try : a{1} { } catch (...) { } int x : 3;", "VVBVBB"},
    {"Closures", "auto l = [] { }; f([&](int x) mutable noexcept -> T<A> { }, [x = [] { }]<class T>(T t) { });", "CCCC"},
    {"ClosureAtStart", "void f() { [] { }(); co_await [] { }(); return [this] { }; }", "BCCC"},
    {"NoClosures", "int a[2]{1}; auto [b, c]{d}; void f() { auto &[x, y]{z}; [[likely]] { } delete[] T{}; int* p = new T *[2]{a, b}; }", "VVBVBVV"},
    {"Macros", "TEST(a) { } FOO { a; } void f() { EXPECT_THROW({ a(); }, E); EACH(x) { } FOREVER { } G({ if (a) { } }); M { } (void)a; }", "BBBSBBSBB"},
    {"StatementExpressions", "int q = ({ int z = 1; z; }); auto c = BLOCK(x) { a(); };", "SS"},
    {"Requirements", "template <class T> concept C = requires(T t) { { t.a() } -> D; typename T::x; requires requires { t; }; };", "RVR"},
    {"Constraint", "template <class T> void f() requires(T::x) { } template <class T> requires C<T> struct S { };", "BK"},
    {"Unclosed", "void f() { x = { ;", "--"},
};

class Braces : public testing::TestWithParam<BraceCase> {};
TEST_P(Braces, AreClassified) { EXPECT_EQ(kindsOf(GetParam().source), GetParam().kinds) << GetParam().source; }
INSTANTIATE_TEST_SUITE_P(Parser, Braces, testing::ValuesIn(kBraceCases),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(BraceHead, IsWhereTheExpressionBegins) {
    const Zelmar::SourceText source("f([](int x) { a; }, requires(T t) { t; }, { b; });");
    const TokenTable table(source, scanForParser(source).tokens);
    const BraceClassifier braces(table);
    std::string heads;
    for (const TokenTable::Index brace : braces.codeBraces()) heads += table.spelling(braces.head(brace)) + " ";
    EXPECT_EQ(heads, "[ requires { ");
}

} // namespace
