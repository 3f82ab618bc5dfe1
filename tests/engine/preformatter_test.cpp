#include "src/format/Norvane_CppPreFormatter.h"

#include "cpp/Cpp_Nodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

using namespace Cpp;
using Trn::Position;

/// Builds lists of a tree whose nodes stand one behind the other, on a line of their own each.
class TreeBuilder {
public:
    Position nextLine() { return {++line_, 1}; }
    CommentNode* comment(const std::string& text) {
        const Position place = nextLine();
        return new CommentNode(text, place, {place.line, static_cast<std::uint32_t>(text.size())});
    }
    ExprNode* statement(const std::string& text) {
        const Position place = nextLine();
        return new ExprNode(text, place, {place.line, static_cast<std::uint32_t>(text.size())});
    }

private:
    std::uint32_t line_ = 0;
};

/// "a;" for a statement, the text of a comment, "<2-4>" for a region over lines 2 to 4.
std::string outline(const InteriorNode& list) {
    std::string result;
    for (auto child = list.childBegin(); child != list.childEnd(); ++child) {
        if (!result.empty()) result += ' ';
        if (const auto* comment = dynamic_cast<const CommentNode*>(child->get())) {
            if (comment->verbatim()) {
                EXPECT_EQ(comment->text(), "");
                result += '<' + std::to_string(comment->start().line) + '-' +
                          std::to_string(comment->end().line) + '>';
            } else {
                result += comment->text();
            }
        } else if (const auto* expr = dynamic_cast<const ExprNode*>(child->get())) {
            result += expr->text();
        } else if (const auto* inner = dynamic_cast<const InteriorNode*>(child->get())) {
            result += '{' + outline(*inner) + '}';
        } else {
            result += "decl";
        }
    }
    return result;
}

/// Adds the nodes that are listed with "|" between them: comments, and all else as statements.
void fill(TreeBuilder& builder, InteriorNode& list, const std::string& nodes) {
    for (std::size_t at = 0; at < nodes.size();) {
        const std::size_t bar = std::min(nodes.find('|', at), nodes.size());
        const std::string text = nodes.substr(at, bar - at);
        if (text.find("/*") != std::string::npos || text.find("//") != std::string::npos) {
            list.add(builder.comment(text));
        } else {
            list.add(builder.statement(text));
        }
        at = bar + 1;
    }
}

void collapse(RootNode& root) {
    Norvane::CppPreFormatter pass(Norvane::defaultFormatMarkers());
    root.accept(pass);
}

// --- one list ---

struct RegionCase {
    const char* name;
    const char* nodes;
    const char* collapsed;
};

class Regions : public testing::TestWithParam<RegionCase> {};

TEST_P(Regions, CollapseToTheirClosingComment) {
    TreeBuilder builder;
    RootNode root;
    fill(builder, root, GetParam().nodes);
    collapse(root);
    EXPECT_EQ(outline(root), GetParam().collapsed);
}

const RegionCase kRegions[] = {
    {"LineComments", "a;|// KL-FORMAT-OFF|b;|c;|// KL-FORMAT-ON|d;", "a; <2-5> d;"},
    {"BlockComments", "a;|/*KL-FORMAT-OFF*/|b;|/*\tKL-FORMAT-ON\n*/|d;", "a; <2-4> d;"},
    {"OneOfEach", "//KL-FORMAT-OFF|b;|/* KL-FORMAT-ON */|d;", "<1-3> d;"},
    {"WithItsLineFeed", "// KL-FORMAT-OFF \n|b;|// KL-FORMAT-ON\n", "<1-3>"},
    {"NothingBetween", "// KL-FORMAT-OFF|// KL-FORMAT-ON", "<1-2>"},
    {"WizardPair", "//{{AFX_MSG|b;|//AFX_MSG}}|c;", "<1-3> c;"},
    {"WizardPairWithThreeBraces", "//{{{AFX_DISP_MAP|b;|//AFX_DISP_MAP}}}", "<1-3>"},
    {"TwoInSequence", "// KL-FORMAT-OFF|a;|// KL-FORMAT-ON|b;|// KL-FORMAT-OFF|c;|// KL-FORMAT-ON|d;",
     "<1-3> b; <5-7> d;"},
    {"TheFirstEndCounts", "// KL-FORMAT-OFF|// KL-FORMAT-OFF|a;|// KL-FORMAT-ON|b;|// KL-FORMAT-ON",
     "<1-4> b; // KL-FORMAT-ON"},
    {"AnotherPairInsideIsText", "// KL-FORMAT-OFF|//{{AFX_MSG|a;|//AFX_MSG}}|b;|// KL-FORMAT-ON|c;",
     "<1-6> c;"},
    {"EndOfAnotherPairDoesNotClose", "// KL-FORMAT-OFF|a;|//AFX_MSG}}|b;",
     "// KL-FORMAT-OFF a; //AFX_MSG}} b;"},
    {"NeverClosed", "a;|// KL-FORMAT-OFF|b;", "a; // KL-FORMAT-OFF b;"},
    {"NeverOpened", "a;|// KL-FORMAT-ON|b;", "a; // KL-FORMAT-ON b;"},
    {"OtherCase", "// kl-format-off|a;|// KL-FORMAT-ON", "// kl-format-off a; // KL-FORMAT-ON"},
    {"TextAroundTheMarker", "// KL-FORMAT-OFF please|a;|// KL-FORMAT-ON",
     "// KL-FORMAT-OFF please a; // KL-FORMAT-ON"},
    // As real wizards write it: the name behind the marker makes it another text.
    {"WizardMarkerWithAName", "//{{AFX_MSG(CView)|a;|//}}AFX_MSG", "//{{AFX_MSG(CView) a; //}}AFX_MSG"},
    {"UnclosedComment", "/* KL-FORMAT-OFF|a;|// KL-FORMAT-ON", "/* KL-FORMAT-OFF a; // KL-FORMAT-ON"},
    {"NoComments", "a;|b;", "a; b;"},
    {"NoNodes", "", ""},
};
INSTANTIATE_TEST_SUITE_P(PreFormatter, Regions, testing::ValuesIn(kRegions),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PreFormatter, RegionRunsFromTheFirstToTheLastCharacterOfBothMarkers) {
    RootNode root;
    root.add(new CommentNode("// KL-FORMAT-OFF", {3, 5}, {4, 0}));
    auto* closing = new CommentNode("// KL-FORMAT-ON", {7, 9}, {8, 0});
    root.add(closing);
    collapse(root);
    ASSERT_EQ(root.child(0), closing);
    EXPECT_EQ(closing->start(), (Position{3, 5}));
    EXPECT_EQ(closing->end(), (Position{8, 0}));
}

// --- where markers count ---

/// Makes a construct and points `marked` at one of the lists in it.
using Construct = SyntaxNode* (*)(InteriorNode*& marked);

template <class List> List* listIn(InteriorNode*& marked) {
    auto* list = new List();
    marked = list;
    return list;
}

SyntaxNode* functionWithParameters(InteriorNode*& marked) {
    auto* head = new FunctionHeadNode();
    head->setParams(listIn<ParameterListNode>(marked));
    return new FunctionDeclNode(head, nullptr);
}

SyntaxNode* controlStatement(InteriorNode*& marked) {
    auto* control = new CtrlStmtNode();
    control->add(new CtrlSubStmtNode(nullptr, listIn<BlockNode>(marked)));
    return control;
}

struct PlaceCase {
    const char* name;
    Construct construct;
};

const PlaceCase kPlaces[] = {
    {"Block", [](InteriorNode*& marked) -> SyntaxNode* { return listIn<BlockNode>(marked); }},
    {"FunctionBody",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new FunctionDeclNode(nullptr, listIn<BlockNode>(marked));
     }},
    {"Parameters", functionWithParameters},
    {"Initializers",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new CtorDeclNode(nullptr, nullptr, listIn<InitializerListNode>(marked));
     }},
    {"ConstructorBody",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new CtorDeclNode(nullptr, listIn<BlockNode>(marked), nullptr);
     }},
    {"ParametersOfAPointer",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new FunctionPtrDeclNode(nullptr, nullptr, listIn<ParameterListNode>(marked), nullptr);
     }},
    {"LinkageBlock",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new LinkageBlockNode(nullptr, listIn<LinkageBlockBodyNode>(marked));
     }},
    {"Enumerators",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new EnumDeclNode(nullptr, listIn<EnumBodyNode>(marked));
     }},
    {"TemplateParameters",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new TemplateNode(nullptr, listIn<ParameterListNode>(marked));
     }},
    {"ControlledBlock", controlStatement},
    {"BetweenIfAndElse", [](InteriorNode*& marked) -> SyntaxNode* { return listIn<CtrlStmtNode>(marked); }},
    {"Namespace",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new NamespaceDeclNode(nullptr, listIn<NamespaceBodyNode>(marked));
     }},
    {"BaseClasses",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new ClassDeclNode(new ClassHeadNode(nullptr, listIn<BaseClauseListNode>(marked)), nullptr);
     }},
    {"ClassBody",
     [](InteriorNode*& marked) -> SyntaxNode* {
         return new ClassDeclNode(nullptr, listIn<ClassBodyNode>(marked));
     }},
};

class Places : public testing::TestWithParam<PlaceCase> {};

TEST_P(Places, HoldRegions) {
    InteriorNode* marked = nullptr;
    RootNode root;
    root.add(GetParam().construct(marked));
    TreeBuilder builder;
    fill(builder, *marked, "a;|/* KL-FORMAT-OFF */|b;|/* KL-FORMAT-ON */|c;");
    collapse(root);
    EXPECT_EQ(outline(*marked), "a; <2-4> c;");
}

INSTANTIATE_TEST_SUITE_P(PreFormatter, Places, testing::ValuesIn(kPlaces),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(PreFormatter, ArgumentsOfInitializersAreNotSearched) {
    TreeBuilder builder;
    auto* args = new ArgListNode();
    fill(builder, *args, "/* KL-FORMAT-OFF */|a|/* KL-FORMAT-ON */");
    auto* list = new InitializerListNode();
    list->add(new InitializerNode(nullptr, args));
    RootNode root;
    root.add(new CtorDeclNode(nullptr, nullptr, list));
    collapse(root);
    EXPECT_EQ(args->size(), 3U);
}

// --- across nestings ---

TEST(PreFormatter, RegionMayOpenInOneBlockAndCloseInAnother) {
    TreeBuilder builder;
    RootNode root;
    auto* first = new BlockNode({1, 1}, {1, 1});
    auto* second = new BlockNode({1, 1}, {1, 1});
    fill(builder, *first, "a;|// KL-FORMAT-OFF|b;");
    fill(builder, root, "c;");
    root.add(first);
    fill(builder, root, "d;");
    root.add(second);
    fill(builder, *second, "e;|// KL-FORMAT-ON|f;");
    collapse(root);
    EXPECT_EQ(outline(root), "c; {<2-7> f;}");
}

// Initializers are looked at before the parameters, which stand in front of them.
TEST(PreFormatter, MarkerInTheParametersDoesNotCloseARegionOfTheInitializers) {
    TreeBuilder builder;
    auto* params = new ParameterListNode();
    fill(builder, *params, "/* KL-FORMAT-ON */");
    auto* initializers = new InitializerListNode();
    fill(builder, *initializers, "/* KL-FORMAT-OFF */|a(1)");
    auto* block = new BlockNode({1, 1}, {1, 1});
    fill(builder, *block, "b;|/* KL-FORMAT-ON */|c;");
    auto* head = new FunctionHeadNode();
    head->setParams(params);
    RootNode root;
    root.add(new CtorDeclNode(head, block, initializers));
    collapse(root);
    EXPECT_EQ(outline(*block), "<2-5> c;");
    EXPECT_EQ(outline(*params), "/* KL-FORMAT-ON */");
}

// --- state ---

TEST(PreFormatter, NewRootForgetsAnOpenRegion) {
    TreeBuilder builder;
    RootNode first;
    RootNode second;
    fill(builder, first, "// KL-FORMAT-OFF|a;");
    fill(builder, second, "b;|// KL-FORMAT-ON|c;");
    Norvane::CppPreFormatter pass(Norvane::defaultFormatMarkers());
    first.accept(pass);
    second.accept(pass);
    EXPECT_EQ(outline(second), "b; // KL-FORMAT-ON c;");
}

TEST(PreFormatter, OneObjectServesSeveralRoots) {
    Norvane::CppPreFormatter pass(Norvane::defaultFormatMarkers());
    for (int i = 0; i < 2; ++i) {
        TreeBuilder builder;
        RootNode root;
        fill(builder, root, "// KL-FORMAT-OFF|a;|// KL-FORMAT-ON|b;");
        root.accept(pass);
        EXPECT_EQ(outline(root), "<1-3> b;");
    }
}

TEST(PreFormatter, WithoutMarkersNothingIsCollapsed) {
    TreeBuilder builder;
    RootNode root;
    fill(builder, root, "// KL-FORMAT-OFF|a;|// KL-FORMAT-ON");
    Norvane::CppPreFormatter pass(Norvane::FormatMarkerTable{});
    root.accept(pass);
    EXPECT_EQ(root.size(), 3U);
}

TEST(PreFormatter, FirstPairWithTheOpeningTextWins) {
    TreeBuilder builder;
    RootNode root;
    fill(builder, root, "//OFF|a;|//ON2|b;|//ON1|c;");
    Norvane::CppPreFormatter pass({{"OFF", "ON1"}, {"OFF", "ON2"}});
    root.accept(pass);
    EXPECT_EQ(outline(root), "<1-5> c;");
}

TEST(PreFormatter, ManyRegionsInOneLongListCollapse) {
    constexpr std::uint32_t kCount = 20000;
    TreeBuilder builder;
    RootNode root;
    for (std::uint32_t i = 0; i < kCount; ++i) fill(builder, root, "// KL-FORMAT-OFF|a;|// KL-FORMAT-ON|b;");
    collapse(root);
    EXPECT_EQ(root.size(), 2 * kCount);
}

// --- table ---

TEST(FormatMarkers, PairsOpenAndCloseAlike) {
    const Norvane::FormatMarkerTable markers = Norvane::defaultFormatMarkers();
    ASSERT_EQ(markers.size(), 13U);
    EXPECT_EQ(markers[0], Norvane::FormatMarker("KL-FORMAT-OFF", "KL-FORMAT-ON"));
    for (std::size_t i = 1; i < markers.size(); ++i) {
        const auto& [opening, closing] = markers[i];
        const std::size_t braces = i < 11 ? 2 : 3;
        EXPECT_EQ(opening.find("AFX_"), braces) << opening;
        EXPECT_EQ(closing, opening.substr(braces) + std::string(braces, '}'));
    }
}

TEST(FormatMarkers, EveryCallGivesATableOfItsOwn) {
    Norvane::FormatMarkerTable changed = Norvane::defaultFormatMarkers();
    const Norvane::FormatMarkerTable before = changed;
    changed.clear();
    EXPECT_EQ(Norvane::defaultFormatMarkers(), before);
}

} // namespace
