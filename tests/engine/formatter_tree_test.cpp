#include "src/format/Norvane_CppFormatter.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <string_view>

// The golden cases show what the pass makes of trees that the parser builds. These are the others:
// trees with parts missing, in the wrong order or deeper than anything written by hand.

namespace {

using Norvane::CppFormatter;
using Norvane::PropertySet;

/// The text of a tree that is built by hand, and the places in it.
class Text {
public:
    explicit Text(std::string text) : source_(std::move(text)) {}

    Trn::Position start(std::string_view piece) const { return source_.positionOf(find(piece)); }
    Trn::Position end(std::string_view piece) const { return source_.positionOf(find(piece) + piece.size() - 1); }

    template <class Node> Node* leaf(std::string_view piece) const {
        return new Node(std::string(piece), start(piece), end(piece));
    }
    Cpp::KeywordNode* keyword(int type, std::string_view piece) const {
        return new Cpp::KeywordNode(type, start(piece), end(piece));
    }
    /// A node from the bracket that `open` starts with to the one that `close` starts with.
    template <class Node> Node* brackets(std::string_view open, std::string_view close) const {
        return new Node(start(open), start(close));
    }

    std::string format(Cpp::RootNode& root, const PropertySet& scheme = PropertySet()) const {
        std::istringstream in{std::string(source_.text())};
        std::ostringstream out;
        CppFormatter formatter(in, out, scheme);
        root.accept(formatter);
        return out.str();
    }

private:
    std::size_t find(std::string_view piece) const {
        const std::size_t at = source_.text().find(piece);
        EXPECT_NE(at, std::string_view::npos) << piece;
        return at;
    }

    Zelmar::SourceText source_;
};

PropertySet scheme(std::initializer_list<std::pair<const char*, const char*>> strings) {
    PropertySet set;
    for (const auto& [name, value] : strings) set.setString(name, value);
    return set;
}

TEST(FormatterTree, TextWithoutNodesIsCopied) {
    for (const char* source : {"", "\n", "  a\n\tb // c", "\xEF\xBB\xBFint x;\n", "# define A \\\n  1\n/* a\n b */"}) {
        SCOPED_TRACE(source);
        const Text text(source);
        Cpp::RootNode root;
        EXPECT_EQ(text.format(root), source);
    }
}

TEST(FormatterTree, ByteOrderMarkStandsInFrontOfTheMargin) {
    const Text text("\xEF\xBB\xBFint x;");
    Cpp::RootNode root;
    EXPECT_EQ(text.format(root, scheme({{"LEFT_MARGIN", "  "}})), "\xEF\xBB\xBF  int x;");
}

// With a mode that the writer does not know it would write nothing at all.
TEST(FormatterTree, NumbersOutOfRangeLoseNoText) {
    const Text text("\tint x;");
    for (const int mode : {-1, 3, 1000}) {
        PropertySet set;
        set.setInt("CONVERT_WS", mode);
        set.setInt("TAB_SIZE", -4);
        Cpp::RootNode root;
        EXPECT_EQ(text.format(root, set), "\tint x;") << mode;
    }
}

TEST(FormatterTree, NodesWithNothingInThemWriteNothing) {
    const Text text("a;\n");
    Cpp::RootNode root;
    root.add(new Cpp::ClassDeclNode());
    root.add(new Cpp::EnumDeclNode());
    root.add(new Cpp::NamespaceDeclNode());
    root.add(new Cpp::LinkageBlockNode());
    root.add(new Cpp::TemplateNode());
    root.add(new Cpp::FunctionDeclNode());
    root.add(new Cpp::CtorDeclNode());
    root.add(new Cpp::CtorDeclNode(nullptr, new Cpp::BlockNode(), new Cpp::InitializerListNode()));
    root.add(new Cpp::FunctionPtrDeclNode());
    root.add(new Cpp::DataDeclNode());
    root.add(new Cpp::CtrlStmtNode());
    root.add(new Cpp::CtrlSubStmtNode());
    root.add(new Cpp::CtrlSubStmtHeadNode());
    root.add(new Cpp::CaseNode());
    root.add(new Cpp::LabelNode());
    root.add(new Cpp::AsmNode());
    root.add(new Cpp::BlockNode());
    root.add(new Cpp::InteriorNode());
    EXPECT_EQ(text.format(root), "a;\n");
    EXPECT_EQ(text.format(root, scheme({{"LEFT_MARGIN", ""}, {"WS_AFTER_TP_CLOSE_BRACKET", "\n"},
                                        {"WS_BEFORE_FN_OPEN_BRACE", "\n"}, {"WS_BETWEEN_CS", "\n"}})),
              "a;\n");
}

// The edges of these nodes lie within a word.
TEST(FormatterTree, NoWhiteSpaceTearsAWordApart) {
    const Text text("void l\xC3\xA4ngste$(int);");
    auto* head = new Cpp::FunctionHeadNode(text.leaf<Cpp::FunctionReturnNode>("void l\xC3"), text.leaf<Cpp::IdNode>("\xA4ng"),
                                           text.brackets<Cpp::ParameterListNode>("(", ")"), nullptr, nullptr, nullptr);
    Cpp::RootNode root;
    root.add(new Cpp::FunctionDeclNode(head, nullptr));
    const PropertySet set = scheme({{"WS_AFTER_FN_DECL_RETURN_TYPE", "\n"}, {"WS_AFTER_FN_NAME", "  "}});
    const std::string result = text.format(root, set);
    EXPECT_NE(result.find("l\xC3\xA4ngste$"), std::string::npos) << result;
}

// A comment inside a parameter is a child in front of it. The value for the open parenthesis must
// not land behind the parameter that holds the comment.
TEST(FormatterTree, CommentInsideAParameterStaysThere) {
    const Text text("void f(int a /* x */, int b);");
    auto* params = text.brackets<Cpp::ParameterListNode>("(", ")");
    params->add(text.leaf<Cpp::CommentNode>("/* x */"));
    params->add(text.leaf<Cpp::ParameterNode>("int a /* x */"));
    params->add(text.leaf<Cpp::ParameterNode>("int b"));
    auto* head = new Cpp::FunctionHeadNode(text.leaf<Cpp::FunctionReturnNode>("void"), text.leaf<Cpp::IdNode>("f"),
                                           params, nullptr, nullptr, nullptr);
    Cpp::RootNode root;
    root.add(new Cpp::FunctionDeclNode(head, nullptr));
    EXPECT_EQ(text.format(root, scheme({{"WS_AFTER_FN_OPEN_PAREN", " "}, {"WS_BEFORE_FN_CLOSE_PAREN", " "}})),
              "void f( int a /* x */, int b );");
}

// The head waits for a declaration that never comes in its scope.
TEST(FormatterTree, TemplateHeadLeavesNothingBehindItsScope) {
    const Text text("namespace N {\n      template <T>\n}\nvoid f() {\n}\n\n");
    auto* params = text.brackets<Cpp::ParameterListNode>("<", ">");
    params->add(text.leaf<Cpp::ParameterNode>("T"));
    auto* body = text.brackets<Cpp::NamespaceBodyNode>("{\n ", "}\nvoid");
    body->add(new Cpp::TemplateNode(text.keyword(Cpp::tkTemplate, "template"), params));
    auto* head = new Cpp::FunctionHeadNode(text.leaf<Cpp::FunctionReturnNode>("void"), text.leaf<Cpp::IdNode>("f"),
                                           text.brackets<Cpp::ParameterListNode>("()", ") {"), nullptr, nullptr, nullptr);
    Cpp::RootNode root;
    root.add(new Cpp::NamespaceDeclNode(text.leaf<Cpp::NamespaceHeadNode>("namespace N"), body));
    root.add(new Cpp::FunctionDeclNode(head, text.brackets<Cpp::BlockNode>("{\n}", "}\n\n")));
    EXPECT_EQ(text.format(root, scheme({{"WS_AFTER_TP_CLOSE_BRACKET", " "}, {"WS_BEFORE_FN_OPEN_BRACE", "\n"}})),
              "namespace N {\n      template <T>\n}\nvoid f()\n{\n}\n\n");
}

/// `depth` blocks, one inside the other.
std::unique_ptr<Cpp::BlockNode> nestedBlocks(std::uint32_t depth) {
    std::unique_ptr<Cpp::BlockNode> block;
    for (std::uint32_t level = depth; level > 0; --level) {
        auto outer = std::make_unique<Cpp::BlockNode>(Trn::Position{1, level}, Trn::Position{1, 2 * depth + 1 - level});
        if (block) outer->add(block.release());
        block = std::move(outer);
    }
    return block;
}

TEST(FormatterTree, DeepNestingIsWrittenWithALeanStack) {
    const std::uint32_t depth = 1000;
    const Text text(std::string(depth, '{') + std::string(depth, '}'));
    Cpp::RootNode root;
    root.add(nestedBlocks(depth).release());
    const std::string result = text.format(root, scheme({{"LEFT_MARGIN", ""}, {"GLOBAL_INDENT_CONTENT", " "},
                                                         {"GLOBAL_WS_AFTER_OPEN_BRACE", "\n"},
                                                         {"GLOBAL_WS_BEFORE_CLOSE_BRACE", "\n"}}));
    EXPECT_NE(result.find("\n" + std::string(depth - 1, ' ') + "{\n" + std::string(depth - 1, ' ') + "}\n"),
              std::string::npos);
    EXPECT_EQ(result.substr(result.size() - 4), " }\n}");
}

} // namespace
