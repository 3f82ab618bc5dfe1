#include "src/wrap/Norvane_WrapStay.h"

#include <gtest/gtest.h>

namespace {

using Norvane::indentOfFirstBreak;
using Norvane::keepStayingBreaks;

TEST(WrapStay, TakesOverOnlyTheBreaksThatAreLeft) {
    EXPECT_EQ(keepStayingBreaks("f({a, b}, c)", "f({a,\n   b},\n  c)", "f({a,\n b}, c)"), "f({a,\n b}, c)");
    EXPECT_EQ(keepStayingBreaks("a && b", "a &&\n  b", "a && b"), "a && b");
    // A comment whose lines have moved is the same token.
    EXPECT_EQ(keepStayingBreaks("a /*\n */ && b", "a /*\n   */ &&\n  b", "a /*\n   */ &&\n b"), "a /*\n */ &&\n b");
}

TEST(WrapStay, LeavesTheBlanksOfTheTextAlone) {
    EXPECT_EQ(keepStayingBreaks("a  +b, c", "a  +b,\n  c", "a + b,\n c"), "a  +b,\n c");
    EXPECT_EQ(keepStayingBreaks("a,\n   b, c", "a,\n   b,\n  c", "a,\n b, c"), "a,\n   b, c");
}

TEST(WrapStay, ALineBehindALineCommentStays) {
    EXPECT_EQ(keepStayingBreaks("a, // c\nb", "a, // c\n  b", "a, // c\n    b"), "a, // c\n    b");
}

TEST(WrapStay, TextsOfOtherTokensChangeNothing) {
    EXPECT_EQ(keepStayingBreaks("a, b", "a,\nb", "a,\nb c"), "a, b");
}

TEST(WrapStay, TheFirstNewLineTellsWhereRowsStart) {
    EXPECT_EQ(indentOfFirstBreak("a,\n  b, c, d", "a,\n  b,\n    c,\n d"), "    ");
    EXPECT_EQ(indentOfFirstBreak("a, b", "a,\nb"), "");
    EXPECT_EQ(indentOfFirstBreak("a,\n  b", "a,\n  b"), std::nullopt);
}

} // namespace
