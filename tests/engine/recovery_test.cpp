#include "src/Norvane_FormatDriver.h"
#include "src/Norvane_UpdateFunctor.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <utility>

namespace {

using Norvane::FormatDriver;

struct Recovered {
    std::string text;
    /// Each as "line:column text", with "; " between them.
    std::string warnings;
};

/// In what is laid out "if" loses the blank behind it: what is left alone keeps it.
Recovered recover(const std::string& source) {
    Norvane::PropertySet scheme;
    scheme.setString("WS_AFTER_CS_KEY", "");
    const Norvane::FormatOptions options(scheme, Norvane::defaultFormatMarkers());
    std::istringstream in(source);
    std::ostringstream out;
    Trn::MessageList messages;
    Norvane::UpdateFunctor update;
    const auto count = FormatDriver(FormatDriver::Unreadable::LeaveAlone).format(options, in, out, messages, update);
    EXPECT_EQ(count, 0) << source;
    Recovered result{out.str(), {}};
    for (const Trn::Message& message : messages) {
        EXPECT_EQ(message.severity, Trn::kSeverityWarning) << message.text;
        if (!result.warnings.empty()) result.warnings += "; ";
        result.warnings += std::to_string(message.position.line) + ':' + std::to_string(message.position.column) +
                           ' ' + message.text;
    }
    return result;
}

struct RecoveryCase {
    const char* name;
    const char* source;
    const char* expected;
    const char* warnings;
};

const RecoveryCase kCases[] = {
    {"Statement", "void f () { if (a) b (); while x; if (c) d (); }",
     "void f () { if(a) b (); while x; if(c) d (); }", "1:32 Expected \"(\"."},
    {"WithItsFurtherParts", "void f () { if x y (a); else if (b); if (c); }",
     "void f () { if x y (a); else if (b); if(c); }", "1:16 Expected \"(\"."},
    {"ButNotTheBodyAroundIt", "class A {\nvoid f () { template <class T> int x; if (a); }\n};\n",
     "class A {\nvoid f () { template <class T> int x; if(a); }\n};\n",
     "2:13 template declarations are not allowed inside block statements."},
    {"ClassWithABadHead", "class A : public public B { void f () { if (a); } };\nvoid g () { if (b); }\n",
     "class A : public public B { void f () { if (a); } };\nvoid g () { if(b); }\n",
     "1:18 Not expecting to find keyword \"public\""},
    {"ParenthesisThatNothingCloses", "void f () { g ( a; if (b); }\nvoid h () { }\n",
     "void f () { g ( a; if(b); }\nvoid h () { }\n", "1:13 Unexpected EOF found."},
    {"ConditionThatNothingCloses", "void f () { if (a { b (); } if (c); }\n",
     "void f () { if (a { b (); } if(c); }\n", "1:19 Expected \")\". Possible unbalanced parentheses."},
    {"BraceThatNothingCloses", "void f () {\n  if (a) {\n  b ();\n}\nvoid g () { if (c); }\n",
     "void f () {\n  if (a) {\n  b ();\n}\nvoid g () { if(c); }\n", "2:10 Unexpected EOF found."},
    {"MethodThatNothingCloses",
     "class A {\n  void f () {\n    if (a) {\n    }\n  void g () { if (b); }\n};\n",
     "class A {\n  void f () {\n    if (a) {\n    }\n  void g () { if(b); }\n};\n",
     "2:13 Unexpected EOF found."},
    {"RestOfTheFile", "void f () { if (b); }\nvoid g () {\n  if (a);\n",
     "void f () { if(b); }\nvoid g () {\n  if (a);\n",
     "2:11 Unexpected EOF found."},
    {"LastMemberWithoutSemicolon", "struct A { int a }; void f () { if (b); }",
     "struct A { int a }; void f () { if(b); }",
     "1:12 The statement cannot be parsed.; 1:16 Unexpected EOF found."},
    {"StringThatItsLineDoesNotClose", "void f () { a (); puts (\"x); b ();\n if (c); }\n",
     "void f () { a (); puts (\"x); b ();\n if(c); }\n", "1:24 Unexpected EOF found."},
    {"ObjectiveC", "@interface A : B { int  a; }\n- (void) f { if (x); }\n@end\n@class  C, D;\nvoid g () { if (a); }\n",
     "@interface A : B { int  a; }\n- (void) f { if (x); }\n@end\n@class  C, D;\nvoid g () { if(a); }\n",
     "1:1 Objective-C is left as it stands.; 4:1 Objective-C is left as it stands."},
    {"BehindAMacro", "BEGIN_IT\n@protocol  A\n@end\nEND_IT\nvoid g () { if (a); }\n",
     "BEGIN_IT\n@protocol  A\n@end\nEND_IT\nvoid g () { if(a); }\n", "2:1 Objective-C is left as it stands."},
    {"BesideBranchesThatShareABody", "#ifdef A\nvoid f () {\n#else\nvoid g () {\n#endif\n while x; if (a); }\n",
     "#ifdef A\nvoid f () {\n#else\nvoid g () {\n#endif\n while x; if(a); }\n", "6:8 Expected \"(\"."},
    {"NothingAtAll", "void f () { if (a); }", "void f () { if(a); }", ""},
};

class Recovery : public testing::TestWithParam<RecoveryCase> {};
TEST_P(Recovery, LeavesTheSmallestStretchAlone) {
    const Recovered first = recover(GetParam().source);
    EXPECT_EQ(first.text, GetParam().expected);
    EXPECT_EQ(first.warnings, GetParam().warnings);
    EXPECT_EQ(recover(first.text).text, first.text);
}
INSTANTIATE_TEST_SUITE_P(Driver, Recovery, testing::ValuesIn(kCases),
                         [](const auto& row) { return std::string(row.param.name); });

std::string repeated(const std::string& piece, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += piece;
    return text;
}

// Deeper than the parser reads: the rest of such a nest is one stretch.
TEST(RecoveryLimits, NestsOfAnyDepthGetThrough) {
    const std::pair<std::string, const char*> cases[] = {
        {repeated("{", 3000) + repeated("}", 3000), "1:1001 The statement cannot be parsed."},
        {repeated("namespace a {", 3000) + repeated("}", 3000), "1:13001 The statement cannot be parsed."},
        {"void f() {" + repeated("if (a) ", 3000) + "b(); }", "1:7011 The statement cannot be parsed."},
        {repeated("struct A {", 100000), "1:10 Unexpected EOF found."},
    };
    for (const auto& [text, warnings] : cases) EXPECT_EQ(recover(text).warnings, warnings);
}

double secondsFor(const std::string& text) {
    const auto start = std::chrono::steady_clock::now();
    recover(text);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Each piece is an item that looks for its end behind all the others.
TEST(RecoveryLimits, CostGrowsWithTheText) {
    for (const char* piece : {"f(; ", "using ", "@interface ", "struct A { ", "x = { ", "if ( ", "\" \n", "a } {"}) {
        SCOPED_TRACE(piece);
        const std::string small = "void f () { " + repeated(piece, 4000) + "}";
        const std::string large = "void f () { " + repeated(piece, 64000) + "}";
        EXPECT_LT(secondsFor(large), 64 * (secondsFor(small) + 0.01));
    }
}

} // namespace
