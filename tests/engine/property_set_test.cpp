#include "src/scheme/Norvane_PropertySet.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using Norvane::PropertySet;

const std::string kHead = "Norvane::PropertySet\n1\n\"Mine\"\n";

/// Reads `text` into a set that holds something already, and reports whether that worked.
bool readInto(PropertySet& scheme, const std::string& text) {
    std::istringstream in(text);
    scheme.read(in);
    return !in.fail();
}

PropertySet readScheme(const std::string& text) {
    PropertySet scheme;
    EXPECT_TRUE(readInto(scheme, text)) << text;
    return scheme;
}

std::string written(const PropertySet& scheme) {
    std::ostringstream out;
    scheme.write(out);
    return out.str();
}

std::string stringOf(const PropertySet& scheme, const std::string& name) {
    std::string value = "(not set)";
    scheme.getString(name, value);
    return value;
}

TEST(PropertySet, WritesKindsInOrderAndNamesByBytes) {
    PropertySet scheme("A scheme");
    scheme.setString("WS_B", "\t\n\v\r\"'\\ x");
    scheme.setInt("TAB_SIZE", -4);
    scheme.setBool("b", true);
    scheme.setBool("Z", false);
    EXPECT_EQ(written(scheme), "Norvane::PropertySet\n1\n\"A scheme\"\n1 Z 0\n1 b 1\n2 TAB_SIZE -4\n"
                               "3 WS_B \"\\t\\n\\v\\r\\\"\\'\\\\ x\"\n");
}

TEST(PropertySet, WritesNothingToABadStream) {
    std::ostringstream out;
    out.setstate(std::ios::failbit);
    PropertySet("x").write(out);
    EXPECT_EQ(out.str(), "");
}

TEST(PropertySet, ReadsBackEveryString) {
    for (const std::string value : {"", " ", "\"", "\"\"", "\"a\"", "\\", "\\\"", "a\\", "\\n", "'",
                                    "\n\n\t ", "# not a comment", "\r\n", "\v\f", "n\\\\n\"", "\xff\x80"}) {
        SCOPED_TRACE(testing::PrintToString(value));
        PropertySet scheme;
        scheme.setString("NAME", value);
        EXPECT_EQ(stringOf(readScheme(written(scheme)), "NAME"), value);
    }
}

TEST(PropertySet, NoCharacterOfAValueDisturbsTheNextRecord) {
    for (int c = 0; c < 256; ++c) {
        SCOPED_TRACE(c);
        PropertySet scheme;
        const std::string value(2, static_cast<char>(c));
        scheme.setString("A", value);
        scheme.setString("B", "next");
        const PropertySet back = readScheme(written(scheme));
        EXPECT_EQ(stringOf(back, "A"), value);
        EXPECT_EQ(stringOf(back, "B"), "next");
    }
}

struct ValueCase {
    const char* record;
    const char* value;
};
const ValueCase kValues[] = {
    {"3 NAME abc", "abc"},
    {"3 NAME abc def", "abc"},
    {"3 NAME \"\\n\"", "\n"},
    {"3   NAME\t\"a b\"  ", "a b"},
    {"3 NAME \"a\" tail", "a"},
    {"3 NAME \"a", "\"aa"},
    {"3 NAME \"a\\", "\"a\\"},
    {"3 NAME \"", ""},
    {"3 NAME \"\"", ""},
    {"3 NAME \"\\a\\'\\q\"", "a'q"},
    {"3 NAME a\\", "a"},
    {"3 NAME a\\tb", "a\tb"},
    {"3 NAME", ""},
    {"3 NAME  ", ""},
    {"3", "(not set)"},
};

TEST(PropertySet, ReadsStringValues) {
    for (const ValueCase& row : kValues) {
        SCOPED_TRACE(row.record);
        EXPECT_EQ(stringOf(readScheme(kHead + row.record + "\n"), "NAME"), row.value);
        EXPECT_EQ(stringOf(readScheme(kHead + row.record), "NAME"), row.value) << "without a line feed";
    }
}

TEST(PropertySet, SkipsCommentsBlankLinesAndIndentation) {
    const PropertySet plain = readScheme(kHead + "1 A 1\n2 B 3\n3 C \" \"\n");
    const PropertySet decorated =
        readScheme("# first\n\n  Norvane::PropertySet  \r\n\t1\n\n# name\n \"Mine\"\n"
                   "\n  1 A 1\r\n   # between\n2 B 3\n\t3 C \" \"");
    EXPECT_EQ(written(decorated), written(plain));
    EXPECT_EQ(plain.size(), 3U);
}

TEST(PropertySet, DropsAnUnreadableBoolOrIntAndGoesOn) {
    const PropertySet scheme =
        readScheme(kHead + "1 A x\n1 B 2\n1 C\n2 D x\n2 E 99999999999\n2 F\n1\n2 G +7\n2 H 12abc\n1 I 1\n");
    EXPECT_EQ(written(scheme), kHead + "1 I 1\n2 G 7\n2 H 12\n");
}

TEST(PropertySet, AFailedReadLeavesTheSetAlone) {
    const char* const broken[] = {
        "",
        "\n# only a comment\n",
        "Norvane::PropertySet",
        "Other\n1\n",
        "Norvane::PropertySet\n2\n",
        "Norvane::PropertySet\n0\n\"x\"\n",
        "Norvane::PropertySet\nx\n\"x\"\n",
        "Norvane::PropertySet\n1\n\"x\"\n1 A 1\n4 NAME 1\n",
        "Norvane::PropertySet\n1\n\"x\"\n1 A 1\nNAME 1\n1 B 1\n",
        "Norvane::PropertySet\n1\n\"x\"\n1 A 1\n0 NAME 1",
    };
    for (const char* text : broken) {
        SCOPED_TRACE(text);
        PropertySet scheme("old");
        scheme.setInt("KEPT", 1);
        EXPECT_FALSE(readInto(scheme, text));
        EXPECT_EQ(written(scheme), "Norvane::PropertySet\n1\n\"old\"\n2 KEPT 1\n");
    }
}

TEST(PropertySet, ASuccessfulReadReplacesEverything) {
    PropertySet scheme("old");
    scheme.setInt("GONE", 1);
    ASSERT_TRUE(readInto(scheme, kHead + "1 A 1\n"));
    EXPECT_EQ(written(scheme), kHead + "1 A 1\n");
}

TEST(PropertySet, KeepsQuotesInsideTheSchemeName) {
    PropertySet scheme("5\" wide");
    EXPECT_EQ(readScheme(written(scheme)).getName(), "5\" wide");
    EXPECT_EQ(readScheme("Norvane::PropertySet\n1\nbare name").getName(), "bare name");
}

TEST(PropertySet, GettersLookOnlyInTheirOwnKind) {
    PropertySet scheme;
    scheme.setInt("A", 1);
    bool flag = true;
    std::string text = "default";
    std::int32_t number = 7;
    EXPECT_FALSE(scheme.getBool("A", flag));
    EXPECT_FALSE(scheme.getString("A", text));
    EXPECT_FALSE(scheme.getInt("not a name", number));
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "default");
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(scheme.exists("A"));
    EXPECT_FALSE(scheme.exists(""));
}

TEST(PropertySet, OneNameInSeveralKindsIsErasedOneByOne) {
    PropertySet scheme;
    scheme.setBool("A", true);
    scheme.setInt("A", 1);
    scheme.setString("A", "x");
    EXPECT_EQ(scheme.size(), 3U);
    EXPECT_EQ(scheme.names().size(), 1U);
    EXPECT_TRUE(scheme.erase("A"));
    EXPECT_EQ(stringOf(scheme, "A"), "(not set)");
    EXPECT_TRUE(scheme.erase("A"));
    EXPECT_TRUE(scheme.ints().empty());
    EXPECT_TRUE(scheme.erase("A"));
    EXPECT_FALSE(scheme.erase("A"));
}

TEST(PropertySet, RefusesNamesThatTheTextFormCannotHold) {
    PropertySet scheme;
    for (const char* name : {"", " ", "A B", "A\n", "\tA", "A\v"}) {
        SCOPED_TRACE(name);
        EXPECT_THROW(scheme.setBool(name, true), Norvane::InvalidPropertyName);
        EXPECT_THROW(scheme.setInt(name, 1), Norvane::InvalidPropertyName);
        EXPECT_THROW(scheme.setString(name, ""), Norvane::InvalidPropertyName);
        EXPECT_THROW(scheme.erase(name), Norvane::InvalidPropertyName);
    }
    EXPECT_EQ(scheme.size(), 0U);
    EXPECT_EQ(Norvane::InvalidPropertyName().message(), "Invalid name for a Property.");
}

TEST(Normalize, FillsInWhatAnEmptySchemeLeavesOut) {
    PropertySet scheme;
    normalizeProperties(scheme);
    EXPECT_EQ(written(scheme), "Norvane::PropertySet\n1\n\"\"\n2 AMPERSAND_ANCHOR -1\n2 ASTERISK_ANCHOR -1\n"
                               "2 CONVERT_WS 0\n2 EXPR_WRAP_STYLE 1\n2 TAB_SIZE 1\n"
                               "3 WS_AFTER_PARAM_TYPE_ID \" \"\n");
}

TEST(Normalize, KeepsWhatIsSet) {
    const std::string text =
        "Norvane::PropertySet\n1\n\"\"\n2 AMPERSAND_ANCHOR 0\n2 ASTERISK_ANCHOR 1\n2 CONVERT_WS 2\n"
        "2 EXPR_WRAP_STYLE 0\n2 TAB_SIZE 8\n3 WS_AFTER_DD_TYPE_ID \"  \"\n"
        "3 WS_AFTER_PARAM_TYPE_ID \"\"\n";
    PropertySet scheme = readScheme(text);
    normalizeProperties(scheme);
    EXPECT_EQ(written(scheme), text);
}

TEST(Normalize, NeverLetsATypeAndANameRunTogether) {
    for (const char* name :
         {"WS_AFTER_DD_TYPE_ID", "WS_AFTER_FN_DECL_RETURN_TYPE", "WS_AFTER_FN_DEFN_RETURN_TYPE"}) {
        SCOPED_TRACE(name);
        PropertySet unset;
        normalizeProperties(unset);
        EXPECT_EQ(stringOf(unset, name), "(not set)");
        PropertySet empty;
        empty.setString(name, "");
        normalizeProperties(empty);
        EXPECT_EQ(stringOf(empty, name), " ");
        for (const char* anchor : {"WS_BETWEEN_AMPERSAND_ANCHOR", "WS_BETWEEN_ASTERISK_ANCHOR"}) {
            PropertySet anchored;
            anchored.setString(anchor, "");
            normalizeProperties(anchored);
            EXPECT_EQ(stringOf(anchored, name), " ") << anchor;
        }
    }
}

TEST(Normalize, WrappingSpacesOperatorsUnlessTheSchemeSaysOtherwise) {
    PropertySet scheme;
    scheme.setBool("LINE_WRAP", true);
    normalizeProperties(scheme);
    EXPECT_EQ(stringOf(scheme, "WS_BETWEEN_EXPR_OP_OPERANDS"), " ");
    scheme.setString("WS_BETWEEN_EXPR_OP_OPERANDS", "");
    normalizeProperties(scheme);
    EXPECT_EQ(stringOf(scheme, "WS_BETWEEN_EXPR_OP_OPERANDS"), "");
}

TEST(Normalize, AnOptionOfAnotherKindCountsAsThereExceptTheExpressionWrapStyle) {
    PropertySet scheme;
    scheme.setString("TAB_SIZE", "4");
    scheme.setString("EXPR_WRAP_STYLE", "2");
    normalizeProperties(scheme);
    EXPECT_EQ(scheme.ints().count("TAB_SIZE"), 0U);
    std::int32_t style = 0;
    EXPECT_TRUE(scheme.getInt("EXPR_WRAP_STYLE", style));
    EXPECT_EQ(style, 1);
}

} // namespace
