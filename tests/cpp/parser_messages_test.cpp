#include "ParserTestTools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

struct Row {
    const char* name;
    const char* source;
    const char* messages;
};

// A message stands at the token that cannot be placed, or at the last one in front of the end.
const Row kRows[] = {
    {"UnclosedRegion", "int b;\n#if 0\nint a;", "3:6 Unexpected EOF found."},
    {"UnfinishedDeclaration", "int x", "1:5 Unexpected EOF found.; 1:1 The statement cannot be parsed."},
    {"UnfinishedBody", "class A { int a;", "1:16 Unexpected EOF found.; 1:1 The statement cannot be parsed."},
    {"UnfinishedNamespace", "namespace A { int a;", "1:20 Unexpected EOF found."},
    {"UnfinishedBlocks", "void f() { {", "1:12 Unexpected EOF found.; 1:12 Unexpected EOF found."},
    {"NamespaceAtTheEnd", "int a; namespace A", "1:18 Expected:: \"{\"."},
    {"ConditionAtTheEnd", "void f() { if (a",
     "1:16 Expected \")\". Possible unbalanced parentheses.; 1:16 Unexpected EOF found."},
    {"CommaInFront", ", x; int y;", "1:1 The statement cannot be parsed."},
    {"LabelAtTopLevel", "private: int x;", "1:1 The statement cannot be parsed."},
    {"TwoAccessWords", "class A : public public B { };", "1:18 Not expecting to find keyword \"public\""},
    {"TwoVirtuals", "class A : virtual virtual B { };", "1:19 Not expecting to find keyword \"virtual\""},
    {"OperatorAmongBases", "class A : public + B { };", "1:18 Unexpected Token: \"+\""},
    {"NamespaceInClass", "class A { namespace B { } };",
     "1:11 Namespace declaration illegal inside class declaration."},
    {"LabelWithoutColon", "class A { public int x; };", "1:18 Expected ':' Found: int"},
    {"BitfieldWithoutName", "struct S { int a : 3, 4; };",
     "1:23 Bad looking bitfield. Expected an Identifier. Got: '4'.; 1:12 The statement cannot be parsed."},
    {"BitfieldWithoutColon", "struct S { int a : 3, b 4; };",
     "1:25 Bad looking bitfield. Expected ':'. Got: '4'.; 1:12 The statement cannot be parsed."},
    {"NamespaceWithoutBody", "namespace A int b;", "1:13 Expected:: \"{\"."},
    {"TemplateInLinkage", "extern \"C\" { template <class T> void f(); }",
     "1:14 templates cannot be declared to have 'C' linkage."},
    {"LabelInLinkage", "extern \"C\" { public: int a; }",
     "1:14 public: protected: private: labels are illegal inside linkage blocks."},
    {"ControlInLinkage", "extern \"C\" { else; }",
     "1:14 control statements (e.g. if, else, while) are illegal inside linkage blocks."},
    {"PureSpecifierIsNotZero", "virtual void f() = 1; int a;",
     "1:20 Expected '= 0' to indicate a pure virtual function. Got: 1; 1:1 The statement cannot be parsed."},
    {"ThrowWithoutList", "void f() throw;",
     "1:15 Expected '(' as part of exception specification clause 'throw()'. Got: ;; "
     "1:1 The statement cannot be parsed."},
    {"NumberAmongInitializers", "C::C() : 5(1) { }", "1:10 Expected a variable name for an initializer. Got: \"5\""},
    {"NoFunctionName", "() { }", "1:1 Expected function name. Got: (; 1:1 The statement cannot be parsed."},
    {"BraceInCondition", "void f() { if ( { } }", "1:17 Expected \")\". Possible unbalanced parentheses."},
    {"NoCondition", "void f() { if a; }", "1:15 Expected \"(\"."},
    {"DefaultWithoutColon", "void f() { default x; }",
     "1:20 Expected a : immediately following 'default'. Got: x"},
    {"LabelInBlock", "void f() { public: a; }",
     "1:12 public: protected: private: labels are not allowed inside block statements."},
    {"TemplateInBlock", "void f() { template <class T> x; }",
     "1:12 template declarations are not allowed inside block statements."},
    {"NamespaceInBlock", "void f() { namespace A { } }",
     "1:12 Namespace declarations are not allowed inside block statements."},
    {"UnclosedLiteralInBlock", "void f() { 'abc\nx(); }", "1:10 Unexpected EOF found."},
};

class ParserMessages : public testing::TestWithParam<Row> {};

TEST_P(ParserMessages, ReportsAll) {
    const Parsed parsed(GetParam().source);
    EXPECT_EQ(errorsAsText(parsed), GetParam().messages);
    for (const Trn::Message& message : parsed.messages) EXPECT_EQ(message.severity, Trn::kSeverityError);
}

INSTANTIATE_TEST_SUITE_P(Parser, ParserMessages, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

// What follows the parameters of a function and is no part of its head is noted, and stops nothing.
TEST(ParserNotes, TailOfFunction) {
    const char* const noted[] = {"void f() override;", "X() = default;", "FOO(a) int b;", "int f() noexcept { }"};
    for (const char* source : noted) {
        SCOPED_TRACE(source);
        const Parsed parsed(source);
        ASSERT_EQ(parsed.messages.size(), 1U);
        EXPECT_EQ(parsed.messages.front().code, 2);
        EXPECT_EQ(parsed.messages.front().text, "Unexpected token. Was expecting to find \";\" or \"{\".");
    }
    for (const char* source : {"void f();", "void f() const { }", "int f(), g();", "A() : b(1) { }"})
        EXPECT_TRUE(Parsed(source).messages.empty()) << source;
}

TEST(ParserMessages, GoesOnBehindWhatCannotBeParsed) {
    const Parsed parsed("virtual void f() = 1; int a; virtual void g() = 2; int b;");
    const auto failed = [](const Trn::Message& message) { return message.code == 7; };
    EXPECT_EQ(std::count_if(parsed.messages.begin(), parsed.messages.end(), failed), 2);
    EXPECT_EQ(parsed.root.size(), 2U);
}

TEST(ParserMessages, UnclosedRegionLeavesNoNode) {
    EXPECT_EQ(Parsed("int b;\n#if 0\nint a;").root.size(), 1U);
}

} // namespace
