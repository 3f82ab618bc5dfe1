#include "src/wrap/Norvane_CppLineWrapper.h"

#include "cpp/Cpp_Lexer.h"
#include "cpp/Cpp_Nodes.h"
#include "cpp/Cpp_Parser.h"
#include "src/format/Norvane_CppPreFormatter.h"
#include "src/scheme/Norvane_FormatMarkerTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <sstream>
#include <string>

namespace {

constexpr const char* kRegion = "// KL-FORMAT-OFF\n  f ( a ,b ,  \"x\"  \"y\" )  ;\n\t// KL-FORMAT-ON\n";

/// Runs the stage alone on a text, which is not laid out before.
std::string wrapStage(const std::string& text, const Norvane::PropertySet& scheme) {
    std::istringstream in(text);
    std::ostringstream out;
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::MessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    Norvane::CppPreFormatter preFormatter(Norvane::defaultFormatMarkers());
    root.accept(preFormatter);
    Norvane::CppLineWrapper wrapper(scheme, text, out);
    root.accept(wrapper);
    return out.str();
}

/// A scheme of random style values, with some of the options that say where lines start.
Norvane::PropertySet randomScheme(std::mt19937& random, int margin) {
    Norvane::PropertySet scheme;
    scheme.setBool("LINE_WRAP", true);
    scheme.setInt("RIGHT_MARGIN", margin);
    scheme.setInt("TAB_SIZE", 4);
    for (const char* name : {"WRAP_STYLE", "COMMA_WRAP_STYLE", "EXPR_WRAP_STYLE", "SHIFT_WRAP_STYLE",
                             "LIST_WRAP_STRATEGY", "CONVERT_WS"}) {
        scheme.setInt(name, static_cast<int>(random() % 3));
    }
    for (const char* name : {"INDENT_FN_CONTENT", "INDENT_CS_CONTENT", "INDENT_DD_CONTENT", "WRAP_INDENT",
                             "LEFT_MARGIN", "WS_BETWEEN_FN_PARAMS", "WS_BETWEEN_EXPR_OP_OPERANDS"}) {
        if (random() % 2 == 0) scheme.setString(name, "  ");
    }
    return scheme;
}

/// Constructs of all kinds in random order, their blanks replaced by other white space.
std::string randomSource(std::mt19937& random) {
    static constexpr std::array kConstructs = {
        "int a [] = { 1 , 2 , { 3 , 4 } , \"x\" \"y\" } ;",
        "template < class T , class U = int > class A : public B , C { A ( int x ) : B ( x ) , y ( 1 ) { } } ;",
        "enum E { a , b = 2 , c } ;",
        "int f ( int x , char * y ) const noexcept { return g ( x , y ) && h ( 1 ) || x << 2 << y ; }",
        "void f ( ) { for ( i = 0 ; i < n ; ++ i ) { g ( a + b - c , \"x\" \"y\" ) ; } while ( a && b ) ; }",
        "void f ( ) { if ( a == b && c ) x = a ? b : c ; else if ( d ) { y = ( T ) z ; } /* c */ }",
        "int ( * p ) ( int , char * ) ; // why\n",
        "#define M ( a , b ) a + b\n",
        "namespace n { extern \"C\" { int v = f ( a , b ) ; } }",
        "/* one\n      two */ int x ;",
    };
    static constexpr std::array kBlanks = {" ", " ", " ", "  ", "\n", "\n\t", "\n\n   ", "\t"};
    std::string text;
    for (std::size_t count = 1 + random() % 6; count > 0; --count) {
        const std::string construct = kConstructs[random() % kConstructs.size()];
        const bool hasLineEnd = construct.back() == '\n';
        for (const char c : construct) {
            text += c == ' ' && !hasLineEnd ? kBlanks[random() % kBlanks.size()] : std::string(1, c);
        }
        text += '\n';
        if (random() % 6 == 0) text += kRegion;
    }
    return text;
}

int widestLine(const std::string& text) {
    int widest = 0;
    int column = 0;
    for (const char c : text) {
        column = c == '\n' ? 0 : c == '\t' ? column + 4 - column % 4 : column + 1;
        widest = std::max(widest, column);
    }
    return widest;
}

std::string inkOf(const std::string& text) {
    std::string ink = text;
    ink.erase(std::remove_if(ink.begin(), ink.end(), [](char c) { return c == ' ' || c == '\t' || c == '\n'; }),
              ink.end());
    return ink;
}

TEST(WrapStage, ATextThatFitsComesOutByteForByte) {
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        const std::string text = randomSource(random);
        ASSERT_EQ(wrapStage(text, randomScheme(random, widestLine(text))), text);
    }
}

TEST(WrapStage, OnlyALineBeyondTheMarginIsWorthAParse) {
    Norvane::PropertySet scheme;
    scheme.setBool("LINE_WRAP", true);
    scheme.setInt("RIGHT_MARGIN", 9);
    scheme.setInt("TAB_SIZE", 4);
    EXPECT_TRUE(Norvane::CppLineWrapper::leavesAsItIs(Norvane::LayoutOptions(scheme), "int a;\nint bbbb;\n"));
    EXPECT_FALSE(Norvane::CppLineWrapper::leavesAsItIs(Norvane::LayoutOptions(scheme), "int a;\nint bbbbb;"));
    EXPECT_FALSE(Norvane::CppLineWrapper::leavesAsItIs(Norvane::LayoutOptions(scheme), "\tint a;\n")); // 10 columns wide
    scheme.setInt("RIGHT_MARGIN", 0);
    EXPECT_TRUE(Norvane::CppLineWrapper::leavesAsItIs(Norvane::LayoutOptions(scheme), "int a;"));
}

TEST(WrapStage, WithTheMarginBelowOneEveryTextComesOutByteForByte) {
    std::mt19937 random(8);
    for (int round = 0; round < 200; ++round) {
        const std::string text = randomSource(random);
        ASSERT_EQ(wrapStage(text, randomScheme(random, -(round % 2))), text);
    }
}

TEST(WrapStage, RegionsComeOutByteForByteAndNothingIsLost) {
    std::mt19937 random(9);
    int changed = 0;
    for (int round = 0; round < 500; ++round) {
        const std::string text = kRegion + randomSource(random) + kRegion + "int after ;\n";
        const int margin = 1 + static_cast<int>(random() % 30);
        const std::string wrapped = wrapStage(text, randomScheme(random, margin));
        ASSERT_EQ(inkOf(wrapped), inkOf(text));
        for (std::size_t at = text.find(kRegion), in = 0; at != std::string::npos; at = text.find(kRegion, at + 1)) {
            in = wrapped.find(kRegion, in);
            ASSERT_NE(in, std::string::npos) << text << "\n-> " << wrapped;
            ++in;
        }
        changed += wrapped != text;
    }
    EXPECT_GT(changed, 250); // or the texts were none to wrap
}

} // namespace
