#include "cli/scheme/Cli_ShippedSchemes.h"
#include "derive/Derive_Deriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace {

using Derive::Derivation;
using Derive::Text;

Derivation derived(const std::string& source) { return Derive::derive({{"a.cpp", source}}, {}); }

const Derive::Measure* measureOf(const Derivation& derivation, std::string_view option) {
    for (const Derive::Measure& measure : derivation.measures) {
        if (measure.option->name == option) return &measure;
    }
    return nullptr;
}

std::string repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

TEST(Gaps, AreKnownByTheInkInFrontOfThem) {
    const auto gaps = Derive::gapsOf(" a b\n");
    ASSERT_EQ(gaps.size(), 3u);
    EXPECT_EQ(gaps[0].ink, 0u);
    EXPECT_EQ(gaps[1].ink, 1u);
    EXPECT_EQ(gaps[1].begin, 2u);
    EXPECT_EQ(gaps[2].end, 5u);
}

TEST(Gaps, AreVisitedWhereTwoLayoutsDiffer) {
    const auto source = Derive::layoutOf("a=  b;c");
    std::string seen;
    Derive::visitDifferences(Derive::layoutOf("a = b; c"), Derive::layoutOf("a =b;\nc"), source,
                             [&](std::string_view a, std::string_view b, std::string_view found, std::uint32_t offset) {
                                 seen += '[' + std::string(a) + '|' + std::string(b) + '|' + std::string(found) + '@' +
                                         std::to_string(offset) + ']';
                             });
    EXPECT_EQ(seen, "[ ||  @2][ |\n|@6]");
}

struct ValueCase {
    const char* name;
    const char* source;
    const char* option;
    Derive::Value value;
    std::size_t places;
};

const ValueCase kValues[] = {
    {"BlankBehindKeyword", "void f() {\n    if (a) g();\n    while (b) g();\n}\n", "WS_AFTER_CS_KEY", std::string(" "), 2},
    {"NothingBehindKeyword", "void f() {\n    if(a) g();\n}\n", "WS_AFTER_CS_KEY", std::string(), 1},
    {"BraceOnItsLine", "void f()\n{\n    g();\n}\n", "WS_BEFORE_FN_OPEN_BRACE", std::string("\n"), 1},
    {"IndentOfTwo", "void f() {\n  g();\n  h();\n}\n", "INDENT_FN_CONTENT", std::string("  "), 2},
    {"IndentOfATab", "void f() {\n\tg();\n\th();\n}\n", "INDENT_FN_CONTENT", std::string("\t"), 2},
    {"StarAtTheType", "int* a;\nchar* b;\nint f(char* c);\n", "ASTERISK_ANCHOR", std::int32_t{0}, 6},
    {"StarAtTheName", "int *a;\nchar *b;\nint f(char *c);\n", "ASTERISK_ANCHOR", std::int32_t{1}, 6},
};

class ValueRow : public testing::TestWithParam<ValueCase> {};

TEST_P(ValueRow, IsReadOffTheCode) {
    const ValueCase& row = GetParam();
    const Derivation derivation = derived(row.source);
    const Derive::Measure* measure = measureOf(derivation, row.option);
    ASSERT_NE(measure, nullptr) << row.source;
    EXPECT_TRUE(measure->isSet);
    EXPECT_EQ(measure->value, row.value);
    EXPECT_EQ(measure->places, row.places);
    EXPECT_EQ(measure->agreeing, row.places);
    EXPECT_EQ(derivation.changedLines, 0u) << Derive::schemeText(derivation, "x");
}

INSTANTIATE_TEST_SUITE_P(Derive, ValueRow, testing::ValuesIn(kValues),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Derive, LeavesOpenWhatIsMixed) {
    const std::string source = repeated("void f() {\n    if (a) g();\n    if(b) g();\n}\n", 4);
    const Derivation derivation = derived(source);
    const Derive::Measure* key = measureOf(derivation, "WS_AFTER_CS_KEY");
    ASSERT_NE(key, nullptr);
    EXPECT_FALSE(key->isSet);
    EXPECT_FALSE(derivation.scheme.exists("WS_AFTER_CS_KEY"));
    EXPECT_EQ(key->places, 8u);
    EXPECT_EQ(key->agreeing, 4u);
    const std::string text = Derive::schemeText(derivation, "x");
    EXPECT_NE(text.find("\n# 3 WS_AFTER_CS_KEY"), std::string::npos) << text;
    EXPECT_NE(text.find("# 4 of 8 places"), std::string::npos) << text;
}

TEST(Derive, SetsWhatNearlyAllPlacesAgreeWith) {
    const std::string source = "void f() {\n    if(a) g();\n" + repeated("    if (a) g();\n", 60) + "}\n";
    const Derivation derivation = derived(source);
    const Derive::Measure* key = measureOf(derivation, "WS_AFTER_CS_KEY");
    ASSERT_NE(key, nullptr);
    EXPECT_TRUE(key->isSet);
    EXPECT_EQ(key->changedLines, 1u);
    ASSERT_EQ(key->dissents.size(), 1u);
    EXPECT_EQ(key->dissents[0].line, 2u);
    EXPECT_EQ(key->dissents[0].column, 7u);
    EXPECT_EQ(key->dissents[0].wanted, " ");
}

TEST(Derive, LeavesOutWhatActsNowhere) {
    EXPECT_EQ(measureOf(derived("int a;\n"), "WS_AFTER_CS_KEY"), nullptr);
    EXPECT_TRUE(derived("").measures.empty());
}

TEST(Derive, EndsWhenItIsCancelled) {
    const std::atomic<bool> cancelled = true;
    EXPECT_TRUE(Derive::derive({{"a.cpp", "int a;\n"}}, {}, {}, &cancelled).names.empty());
}

TEST(Derive, GivesTheSameSchemeWithAnyNumberOfThreads) {
    const std::vector<Text> texts = {{"a.c", "int f(int a) {\n    return a;\n}\n"}, {"b.c", "void g() {\n    if (a) h();\n}\n"}};
    Derive::Settings two;
    two.threads = 2;
    EXPECT_EQ(Derive::schemeText(Derive::derive(texts, {}), "x"), Derive::schemeText(Derive::derive(texts, two), "x"));
}

/// Ordinary code, in no layout of its own.
const char* const kCode = R"(// Accounts.
#include <map>
namespace bank {
class Account : public Base {
public:
Account(int id, const char *name) : id_(id), name_(name) {}
int id() const { return id_; }
private:
int id_;
const char *name_;
};
enum Kind { kOpen, kClosed };
int total(const int *sums, int count) {
int result = 0;
for (int i = 0; i < count; ++i) {
if (sums[i] > 0) {
result += sums[i];
} else {
result -= 1;
}
}
switch (count) {
case 0:
return 0;
default:
break;
}
while (result > 100) {
result = shrink(result, 2);
}
return result;
}
}
)";

class RoundTrip : public testing::TestWithParam<std::string> {};

TEST_P(RoundTrip, CodeLaidOutByASchemeStaysUnderTheDerivedOne) {
    std::istringstream text{std::string(Cli::findShippedScheme(GetParam())->text)};
    const Norvane::PropertySet scheme(text);
    const Derive::Laboratory lab({{"a.cpp", kCode}}, 1, nullptr);
    const std::string laidOut = lab.layOut(scheme).front().text;
    const Derivation derivation = derived(laidOut);
    EXPECT_EQ(derivation.changedLines, 0u) << laidOut << Derive::schemeText(derivation, "x");
    std::istringstream written(Derive::schemeText(derivation, "x"));
    const Norvane::PropertySet read(written);
    EXPECT_EQ(read.names(), derivation.scheme.names());
}

std::vector<std::string> schemeNames() {
    std::vector<std::string> names;
    for (const Cli::ShippedScheme& scheme : Cli::shippedSchemes()) names.emplace_back(scheme.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Derive, RoundTrip, testing::ValuesIn(schemeNames()),
                         [](const auto& row) { return row.param; });

} // namespace
