#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "src/format/Norvane_DataOffsetCalculator.h"
#include "src/format/Norvane_NameOffsetCalculator.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <utility>

namespace {

using Norvane::PropertySet;

/// A scheme in a short notation: records of the text form, separated by ";".
PropertySet schemeOf(const std::string& records) {
    std::string text = "Norvane::PropertySet\n1\n\"test\"\n2 TAB_SIZE 4\n" + records;
    for (char& c : text) {
        if (c == ';') c = '\n';
    }
    std::istringstream in(text);
    PropertySet scheme;
    scheme.read(in);
    EXPECT_FALSE(in.fail()) << records;
    return scheme;
}

struct Tree {
    explicit Tree(const std::string& source) {
        std::istringstream in(source);
        Cpp::Lexer lexer(in);
        Cpp::Parser parser;
        Trn::MessageList messages;
        parser.parse(lexer, root, messages);
        for (const Trn::Message& message : messages)
            EXPECT_EQ(message.code, 2) << message.text << "\n" << source;
    }
    Cpp::RootNode root;
};

std::string nameOf(const Cpp::SyntaxNode* node) {
    const auto textOf = [](const Cpp::IdNode* name) { return name ? name->text() : std::string("?"); };
    if (const auto* data = dynamic_cast<const Cpp::DataDeclNode*>(node)) return textOf(data->name());
    const auto* function = dynamic_cast<const Cpp::FunctionDeclNode*>(node);
    return function && function->head() ? textOf(function->head()->name()) : "?";
}

/// "a@4 b@8": the names in source order with their columns.
std::string asText(const Norvane::OffsetCalculator::Columns& columns) {
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::string> ordered;
    for (const auto& [node, column] : columns) {
        const Trn::Position start = node->start();
        ordered[{start.line, start.column}] = nameOf(node) + "@" + std::to_string(column);
    }
    std::string text;
    for (const auto& entry : ordered) text += (text.empty() ? "" : " ") + entry.second;
    return text;
}

struct GroupCase {
    const char* name;
    const char* source;
    const char* data;
    const char* functions;
};

class NameColumns : public testing::TestWithParam<GroupCase> {
protected:
    void check(const std::string& records) {
        Tree tree(GetParam().source);
        Norvane::NameOffsetCalculator calculator(schemeOf(records));
        tree.root.accept(calculator);
        EXPECT_EQ(asText(calculator.dataColumns()), GetParam().data) << GetParam().source;
        EXPECT_EQ(asText(calculator.fnColumns()), GetParam().functions) << GetParam().source;
        EXPECT_TRUE(calculator.columns().empty());
    }
};
std::string rowName(const testing::TestParamInfo<GroupCase>& info) { return info.param.name; }

const char kAllNames[] = "1 ALIGN_DD_NAMES_LEFT 1;1 ALIGN_FN_DECL_NAMES_LEFT 1";
const GroupCase kGroups[] = {
    {"OneDeclaration", "int a;", "a@4", ""},
    {"NextTabStopBehindTheWidestAndABlank", "int a;\nlong b;\n", "a@8 b@8", ""},
    {"CommentsAndDirectivesStandInAGroup", "int a;\n// c\n#define X\n/* d */\ndouble b;\n", "a@8 b@8", ""},
    {"FunctionDefinitionEndsAGroup", "int a;\nvoid f() { }\ndouble b;\n", "a@4 b@8", ""},
    {"PrototypeStandsInAGroupOfData", "int a;\nvoid f();\ndouble b;\n", "a@8 b@8", "f@8"},
    {"EachKindHasItsOwnColumn", "int a;\nunsigned f();\nint g();\n", "a@4", "f@12 g@12"},
    {"ClassEndsAGroup", "int a;\nclass A { };\ndouble b;\n", "a@4 b@8", ""},
    {"EnumEndsAGroup", "int a;\nenum E { x };\ndouble b;\n", "a@4 b@8", ""},
    {"NamespaceIsAScopeOfItsOwn", "int a;\nnamespace N { double b; }\nint c;\n", "a@4 b@8 c@4", ""},
    {"LinkageBlockIsAScopeOfItsOwn", "int a;\nextern \"C\" { double b; }\nint c;\n", "a@4 b@8 c@4", ""},
    {"StatementEndsAGroup", "void f() { int a; g(); double b; }", "a@4 b@8", ""},
    {"NestedBlocksEndAGroup", "void f() { int a; { double b; } int c; }", "a@4 b@8 c@4", ""},
    {"ControlStatementEndsAGroup", "void f() { int a; if (x) { double b; } int c; }", "a@4 b@8 c@4", ""},
    {"CaseLabelsStandInAGroup", "void f() { switch (x) { case 1: int a; default: double b; } }", "a@8 b@8",
     ""},
    {"TypeOverTwoLinesMeasuresNothing", "unsigned\nint a;", "a@4", ""},
    {"WidthIsThatOfTheSource", "unsigned      int a;", "a@20", ""},
    {"TemplateHeadCounts", "template <class T> void f(T);\nint g();\n", "", "f@24 g@24"},
    {"TemplateHeadCountsForOneDeclaration", "template <class T> void f(T) { }\nint g();\n", "", "g@4"},
    {"ConstructorDoesNotWidenItsGroup",
     "class AVeryLongNameOfAClass { AVeryLongNameOfAClass(int a); int f(); };", "",
     "AVeryLongNameOfAClass@4 f@4"},
    {"PointerMarkInPlaceEndsTheType", "char *p;", "p@8", ""},
};
class NameGroups : public NameColumns {};
TEST_P(NameGroups, AreAligned) { check(kAllNames); }
INSTANTIATE_TEST_SUITE_P(Calculator, NameGroups, testing::ValuesIn(kGroups), rowName);

const GroupCase kMembers[] = {
    {"DataAndFunctionsShareAColumn", "class A { int a; unsigned f(); };", "a@12", "f@12"},
    {"AccessLabelsDoNotEndTheGroup", "class A { int a; public: double b; };", "a@8 b@8", ""},
    {"FileLevelIsNotAligned", "int a;\nclass A { int b; };\nint c();\n", "b@4", ""},
    {"NestedClassesAreScopesOfTheirOwn", "class A { int a; class B { double b; }; int c; };", "a@4 b@8 c@4",
     ""},
    {"InlineFunctionEndsTheGroup", "class A { int a; void f() { } double b; };", "a@4 b@8", ""},
};
class MemberNames : public NameColumns {};
TEST_P(MemberNames, AreAligned) { check("1 ALIGN_CLASS_MEMBER_NAMES_LEFT 1"); }
INSTANTIATE_TEST_SUITE_P(Calculator, MemberNames, testing::ValuesIn(kMembers), rowName);

TEST(NameColumnsOfAClass, EndWithTheClass) {
    Tree tree("class A { int a; };\nunsigned long int b;\n");
    Norvane::NameOffsetCalculator calculator(
        schemeOf("1 ALIGN_CLASS_MEMBER_NAMES_LEFT 1;1 ALIGN_DD_NAMES_LEFT 1"));
    tree.root.accept(calculator);
    EXPECT_EQ(asText(calculator.dataColumns()), "a@4 b@20");
}

struct AnchorCase {
    const char* source;
    const char* records;
    const char* data;
};
const AnchorCase kAnchors[] = {
    // Left where it is, the mark is part of the type and needs no blank behind it.
    {"abcdefg *p;", "2 ASTERISK_ANCHOR -1", "p@12"},
    {"abcdef *p;", "2 ASTERISK_ANCHOR -1", "p@8"},
    {"abcdef *p;", "2 ASTERISK_ANCHOR 0", "p@8"},
    // At the name it stands in the name column, which counts from the type alone.
    {"abcdef *p;", "2 ASTERISK_ANCHOR 1", "p@8"},
    {"abcdefg *p;", "2 ASTERISK_ANCHOR 1", "p@8"},
    {"abcdefgh *p;", "2 ASTERISK_ANCHOR 1", "p@12"},
    {"abcdefg &p;", "2 ASTERISK_ANCHOR 1", "p@12"},
    {"abcdefg &p;", "2 AMPERSAND_ANCHOR 1", "p@8"},
    {"abcdefg *p;", "2 ASTERISK_ANCHOR 1;3 WS_BETWEEN_ASTERISK_ANCHOR \"   \"", "p@8"},
    // At the type it takes the type, the mark, and the white space between the two.
    {"abcdef *p;", "2 ASTERISK_ANCHOR 0;3 WS_BETWEEN_ASTERISK_ANCHOR \"\"", "p@12"},
    {"abcd *p;", "2 ASTERISK_ANCHOR 0;3 WS_BETWEEN_ASTERISK_ANCHOR \"\"", "p@8"},
    {"abcd *p;", "2 ASTERISK_ANCHOR 0;3 WS_BETWEEN_ASTERISK_ANCHOR \"  \"", "p@12"},
    // The width between is not read where the mark has no anchor.
    {"abcdef *p;", "2 ASTERISK_ANCHOR -1;3 WS_BETWEEN_ASTERISK_ANCHOR \"   \"", "p@8"},
    {"abcdef *p;", "2 ASTERISK_ANCHOR 5;3 WS_BETWEEN_ASTERISK_ANCHOR \"   \"", "p@8"},
    // A hanging mark wants a column of its own between the type and the name column.
    {"abc *p;", "2 ASTERISK_ANCHOR 1", "p@4"},
    {"abc *p;", "2 ASTERISK_ANCHOR 1;1 HANGING_ASTERISK 1", "p@8"},
    {"abcd *p;", "2 ASTERISK_ANCHOR 1;1 HANGING_ASTERISK 1", "p@8"},
    {"abc &p;", "2 AMPERSAND_ANCHOR 1;1 HANGING_AMPERSAND 1", "p@8"},
    {"abc &p;", "2 AMPERSAND_ANCHOR 1;1 HANGING_ASTERISK 1", "p@4"},
};

TEST(NameColumnsOfPointers, FollowTheAnchor) {
    for (const AnchorCase& row : kAnchors) {
        SCOPED_TRACE(std::string(row.source) + " under " + row.records);
        Tree tree(row.source);
        Norvane::NameOffsetCalculator calculator(
            schemeOf(std::string(row.records) + ";1 ALIGN_DD_NAMES_LEFT 1"));
        tree.root.accept(calculator);
        EXPECT_EQ(asText(calculator.dataColumns()), row.data);
    }
}

struct DataCase {
    const char* name;
    const char* source;
    const char* fromType;
    const char* fromName;
};
class InitializerColumns : public testing::TestWithParam<DataCase> {};

const DataCase kInitializers[] = {
    {"OneDeclaration", "int a = 1;", "a@8", "a@4"},
    {"GroupSharesTheWidest", "int a = 1;\nint abcd = 2;\n", "a@12 abcd@12", "a@8 abcd@8"},
    {"NoInitializerHasNoPart", "int a = 1;\nunsigned abcdefgh;\nint b = 2;\n", "a@8 b@8", "a@4 b@4"},
    {"NoTypeIsMeasuredByItsName", "void f() { int a = 1; int b, cdefghij = 2; }", "a@12 cdefghij@12",
     "a@12 cdefghij@12"},
    {"AccessLabelEndsTheGroup", "class A { int a = 1; public: int bcdefghi = 2; };", "a@8 bcdefghi@16",
     "a@4 bcdefghi@12"},
    {"FunctionBodyIsAScopeOfItsOwn", "int a = 1;\nvoid f() { int bcdefghi = 2; }\nint c = 3;\n",
     "a@8 bcdefghi@16 c@8", "a@4 bcdefghi@12 c@4"},
    {"ConstructorBodyIsAScopeOfItsOwn", "A::A() : x(1) { int a = 2; }", "a@8", "a@4"},
    {"ControlStatementIsAScopeOfItsOwn", "void f() { int a = 1; while (x) int bcdefghi = 2; }",
     "a@8 bcdefghi@16", "a@4 bcdefghi@12"},
    {"DeclarationOverTwoLinesMeasuresNothing", "int\na = 1;", "a@4", "a@4"},
};

TEST_P(InitializerColumns, AreAligned) {
    const DataCase& row = GetParam();
    for (const bool names : {false, true}) {
        Tree tree(row.source);
        Norvane::DataOffsetCalculator calculator(schemeOf(names ? "1 ALIGN_DD_NAMES_LEFT 1" : ""));
        tree.root.accept(calculator);
        EXPECT_EQ(asText(calculator.columns()), names ? row.fromName : row.fromType) << row.source;
    }
}
INSTANTIATE_TEST_SUITE_P(Calculator, InitializerColumns, testing::ValuesIn(kInitializers),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(InitializerColumnsOfAClass, CountFromTheNameWhereMemberNamesAreAligned) {
    Tree tree("int abc = 1;\nclass A { int abc = 1; };\n");
    Norvane::DataOffsetCalculator calculator(schemeOf("1 ALIGN_CLASS_MEMBER_NAMES_LEFT 1"));
    tree.root.accept(calculator);
    EXPECT_EQ(asText(calculator.columns()), "abc@8 abc@4");
}

TEST(Columns, WithoutATabSizeAreOneBehindTheWidest) {
    Tree tree("int a;\nunsigned b;\n");
    PropertySet scheme;
    scheme.setBool("ALIGN_DD_NAMES_LEFT", true);
    Norvane::NameOffsetCalculator calculator(scheme);
    tree.root.accept(calculator);
    EXPECT_EQ(asText(calculator.dataColumns()), "a@9 b@9");
}

TEST(Columns, OfAGroupThatMeasuresNothingAreZero) {
    Tree tree("class A { A(); ~A(); };");
    Norvane::NameOffsetCalculator calculator(schemeOf("1 ALIGN_CLASS_MEMBER_NAMES_LEFT 1"));
    tree.root.accept(calculator);
    EXPECT_EQ(asText(calculator.fnColumns()), "A@0 ~A@0");
}

TEST(Columns, NegativeTabSizeIsNoReasonToFail) {
    Tree tree("int *a = 0;\nclass A { int b; };\n");
    for (const int tabSize : {0, -1, -1000}) {
        PropertySet scheme = schemeOf("1 ALIGN_DD_NAMES_LEFT 1;1 HANGING_ASTERISK 1;2 ASTERISK_ANCHOR 1");
        scheme.setInt("TAB_SIZE", tabSize);
        Norvane::NameOffsetCalculator names(scheme);
        tree.root.accept(names);
        Norvane::DataOffsetCalculator data(scheme);
        tree.root.accept(data);
        EXPECT_EQ(names.dataColumns().size(), 2U) << tabSize;
        EXPECT_EQ(data.columns().size(), 1U) << tabSize;
    }
}

} // namespace
