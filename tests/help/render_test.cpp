#include "help/Help_Html.h"
#include "help/Help_PlainText.h"
#include "help/Help_Roff.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Help::Document;
using Help::Piece;

std::string piecesAsText(std::string_view text) {
    std::string dump;
    for (const Piece& piece : Help::inlinePieces(text)) {
        const char* kind = piece.kind == Piece::Kind::text ? "t" : piece.kind == Piece::Kind::code ? "c" : "l";
        dump += kind + ('<' + std::string(piece.text)) + '>' + std::string(piece.target);
    }
    return dump;
}

TEST(InlineMarks, SplitTextIntoCodeAndLinks) {
    const struct {
        const char* text;
        const char* pieces;
    } rows[] = {
        {"", ""},
        {"plain", "t<plain>"},
        {"a `b` c", "t<a >c<b>t< c>"},
        {"see [the `x`](y.htm#z).", "t<see >l<the `x`>y.htm#zt<.>"},
        {"a ` b", "t<a >t<` b>"},
        {"[FILE]", "t<[FILE]>"},
        {"[a] `b`", "t<[a] >c<b>"},
        {"`a``b`", "c<a>c<b>"},
    };
    for (const auto& row : rows) EXPECT_EQ(piecesAsText(row.text), row.pieces) << row.text;
    EXPECT_EQ(Help::withoutMarks("see [the `x`](y.htm)"), "see the x");
}

std::string page(Help::Block block) { return Help::htmlPage({"T", {std::move(block)}}, "a.htm", {}); }

TEST(Html, KeepsTextFromBeingMarkup) {
    EXPECT_NE(page(Help::Paragraph{"a < b && \"c\" > `<d>`"})
                  .find("<p>a &lt; b &amp;&amp; &quot;c&quot; &gt; <code>&lt;d&gt;</code></p>"),
              std::string::npos);
    EXPECT_NE(page(Help::CodeBlock{"#include <a>\n"}).find("<pre>#include &lt;a&gt;\n</pre>"),
              std::string::npos);
}

TEST(Html, MarksTheWhiteSpaceThatChanged) {
    const std::string html = page(Help::Comparison{"", "3 A \"\\n\"", "f() {a<b\n}\n", "f()\n{ a<b\n}\n"});
    EXPECT_NE(html.find("f()<mark> </mark>{<mark class=\"gone\"></mark>a&lt;b\n}"), std::string::npos) << html;
    EXPECT_NE(html.find("f()<mark class=\"line\"></mark>\n{<mark> </mark>a&lt;b\n}"), std::string::npos) << html;
}

TEST(Html, ShowsAPictureWithWordsForThoseWhoCannotSeeIt) {
    const Help::Picture picture{"a.png", "b \"c\""};
    EXPECT_NE(page(picture).find("<p><img src=\"a.png\" alt=\"b &quot;c&quot;\"></p>"), std::string::npos);
    EXPECT_EQ(Help::plainText({"T", {picture}}).find("a.png"), std::string::npos);
}

TEST(Html, LeadsFromTheNameOfAnOptionToItsPlace) {
    EXPECT_NE(page(Help::Paragraph{"`TAB_SIZE`"}).find("<a href=\"Globals.htm#TAB_SIZE\">"), std::string::npos);
}

TEST(PlainText, FillsLinesBehindAHangingHead) {
    EXPECT_EQ(Help::filledText("aa bb cc", "- ", 8), "- aa bb\n  cc\n");
    EXPECT_EQ(Help::filledText("aa  bb", "- ", 7), "- aa bb\n");
    EXPECT_EQ(Help::filledText("a muchtoolongword b", "- ", 8), "- a\n  muchtoolongword\n  b\n");
    EXPECT_EQ(Help::filledText("", "- ", 8), "- \n");
}

TEST(PlainText, KeepsTheBlanksOfCode) {
    EXPECT_EQ(Help::plainText({"", {Help::Paragraph{"a  `\"    \"` b"}}}), "  a \"    \" b\n");
}

TEST(PlainText, PutsSidesThatFitBesideOneAnother) {
    EXPECT_EQ(Help::plainText({"", {Help::Comparison{"", "3 A \"\\n\"", "f() {\n}\n", "f()\n{\n}\n"}}}),
              "    3 A \"\\n\"\n\n"
              "      f() {  |  f()\n"
              "      }      |  {\n"
              "             |  }\n");
}

TEST(PlainText, PutsWideSidesBelowOneAnother) {
    const std::string wide(50, 'x');
    EXPECT_EQ(Help::plainText({"", {Help::Comparison{"1 B 1\n", "1 A 1", wide + " a\n", wide + "\na\n"}}}),
              "    1 A 1\n    (with 1 B 1)\n\n    without:\n      " + wide + " a\n    with:\n      " + wide +
                  "\n      a\n");
}

TEST(PlainText, ShowsTabs) {
    const std::string text = Help::plainText({"", {Help::Comparison{"", "2 A 2", "{\n    a\n", "{\n\ta\n"}}});
    EXPECT_NE(text.find("|  --->a\n"), std::string::npos) << text;
    EXPECT_NE(text.find("(---> is a tab)"), std::string::npos) << text;
}

TEST(ManualPages, KeepTextFromBeingRequests) {
    const Document document{"a 'b'", {Help::Heading{1, "say \"x\"", {}}, Help::Paragraph{".kls \\n --x"},
                                      Help::CodeBlock{".x\n'y\n~^`\n"}}};
    const std::string roff = Help::manualPage(document, {"my-page", 5, "p 1"});
    EXPECT_NE(roff.find(".TH \"MY\\-PAGE\" 5 \"\" \"p 1\""), std::string::npos) << roff;
    EXPECT_NE(roff.find(".SH NAME\nmy\\-page \\- a \\(aqb\\(aq\n"), std::string::npos) << roff;
    EXPECT_NE(roff.find(".SH \"SAY \\(dqX\\(dq\"\n"), std::string::npos) << roff;
    EXPECT_NE(roff.find("\n\\&.kls \\en \\-\\-x\n"), std::string::npos) << roff;
    EXPECT_NE(roff.find("\n\\&.x\n\\(aqy\n\\(ti\\(ha\\(ga\n"), std::string::npos) << roff;
}

} // namespace
