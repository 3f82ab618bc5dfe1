#include "schemes/NorvaneUI_SchemeChecker.h"
#include "cli/scheme/Cli_SchemeShelf.h"
#include "files/NorvaneUI_DiskFileSystem.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using Cli::ExitStatus;

const std::string kHead = "Norvane::PropertySet\n1\n\"mine\"\n";

/// All problems as "line:col: text", one a line.
std::string problemsOf(const std::string& text) {
    std::string result;
    for (const NorvaneUI::SchemeProblem& problem : NorvaneUI::checkSchemeText(text)) {
        result += std::to_string(problem.line) + ':' + std::to_string(problem.column) + ": " +
                  (problem.isWarning ? "warning: " : "") + problem.text + '\n';
    }
    return result;
}

struct TextCase {
    const char* name;
    std::string text;
    const char* problems;
};

const TextCase kTexts[] = {
    {"AllKinds", kHead + "1 LINE_WRAP 1\n2 TAB_SIZE 4\n3 LEFT_MARGIN \"\\t\"\n3 KERFLINE_VERSION \"1.2.1\"\n", ""},
    {"CommentsAndBlankLines", "# a\n\n" + kHead + "\n  # b\n  2 TAB_SIZE 4 # c\n", ""},
    {"NoFinalNewline", kHead + "2 TAB_SIZE 4", ""},
    {"PageKey", kHead + "1 PPD_DO_NOT_FORMAT 1\n", ""},
    {"UnquotedText", kHead + "3 KERFLINE_VERSION 1.2.1\n", ""},
    {"WhatConversionWrites",
     kHead + "2 WRAP_INDENT 4\n2 DATA_DO_NOT_FORMAT 1\n1 LINE_WRAP_DO_NOT_FORMAT 1\n2 LINE_WRAP_DO_NOT_FORMAT 1\n", ""},

    {"UnknownName", kHead + "\n3 WS_AFTER_CS_KEYS \" \"\n",
     "5:3: unknown option \"WS_AFTER_CS_KEYS\"; did you mean \"WS_AFTER_CS_KEY\"?\n"},
    {"TypeOfAnotherKind", kHead + "  1 TAB_SIZE 1\n", "4:3: TAB_SIZE takes type 2 with a whole number\n"},
    {"ValueOfAnotherKind", kHead + "2 TAB_SIZE four\n", "4:12: TAB_SIZE takes type 2 with a whole number\n"},
    {"BoolOutOfRange", kHead + "1 LINE_WRAP 2\n", "4:13: LINE_WRAP takes type 1 with the value 0 or 1\n"},
    {"NumberTooLong", kHead + "2 TAB_SIZE 99999999999\n", "4:12: TAB_SIZE takes type 2 with a whole number\n"},
    {"NotWhiteSpace", kHead + "3 LEFT_MARGIN \"  x\"\n", "4:15: LEFT_MARGIN takes white space only, not \"  x\"\n"},
    {"MissingQuote", kHead + "3 LEFT_MARGIN \"  \n", "4:15: the closing quote is missing\n"},
    {"TextBehindTheValue", kHead + "3 LEFT_MARGIN \" \" \"\n", "4:19: unexpected text behind the value\n"},
    {"MissingValue", kHead + "3 LEFT_MARGIN\n", "4:3: the value of LEFT_MARGIN is missing\n"},
    {"WrongTypeCode", kHead + "4 LEFT_MARGIN \"\"\n",
     "4:1: a line starts with 1 (yes or no), 2 (number) or 3 (text), not with \"4\"\n"},
    {"SeveralProblems", kHead + "1 LINE_WARP 1\n2 TAB_SIZE 4\n2 RIGHT_MARGIN x\n",
     "4:3: unknown option \"LINE_WARP\"; did you mean \"LINE_WRAP\"?\n6:16: RIGHT_MARGIN takes type 2 with a whole number\n"},
    {"GivenTwice", kHead + "2 TAB_SIZE 4\n1 LINE_WRAP 1\n  2 TAB_SIZE 8\n2 TAB_SIZE 8\n",
     "6:5: warning: TAB_SIZE is given twice: the value of line 4 does not count\n"
     "7:3: warning: TAB_SIZE is given twice: the value of line 6 does not count\n"},
    {"TwoKindsAreTwoValues", kHead + "2 WRAP_INDENT 0\n3 WRAP_INDENT \"  \"\n", ""},
    {"NameForgotten", "Norvane::PropertySet\n1\n 1 LINE_WRAP 1\n2 TAB_SIZE x\n",
     "3:2: the name of the scheme is missing: it stands here, in double quotes, in front of the options\n"
     "4:12: TAB_SIZE takes type 2 with a whole number\n"},
    {"NameWithoutQuotes", "Norvane::PropertySet\n1\n1 for all\n", ""},
    {"NameLikeAnOption", "Norvane::PropertySet\n1\n\"1 LINE_WRAP 1\"\n", ""},
    {"ByteOrderMark", "\xef\xbb\xbf" + kHead, ""},
    {"OlderName", kHead + "2 SPACES_PER_TAB 4\n",
     "4:3: \"SPACES_PER_TAB\" is a name of older schemes; \"kerfline schemes convert\" brings those in your folder up to date\n"},
    {"SlipOnlyWarns", kHead + "2 ASTERISK_ANCHOR 7\n", "4:19: warning: ASTERISK_ANCHOR takes a value from -1 to 1\n"},

    {"NoScheme", "int main() {}\n2 X 1\n", "1:1: not a scheme: its first line should be Norvane::PropertySet\n"},
    {"OtherVersion", "Norvane::PropertySet\n2\n\"\"\n", "2:1: version \"2\" of the scheme text is not known; it should be 1\n"},
    {"Empty", "", "1:1: not a scheme: the text ends before its name\n"},
    {"EndsInItsHead", "Norvane::PropertySet\n1\n", "2:1: not a scheme: the text ends before its name\n"},
};

class SchemeText : public testing::TestWithParam<TextCase> {};

TEST_P(SchemeText, IsChecked) { EXPECT_EQ(problemsOf(GetParam().text), GetParam().problems); }

INSTANTIATE_TEST_SUITE_P(Scheme, SchemeText, testing::ValuesIn(kTexts),
                         [](const auto& row) { return std::string(row.param.name); });

struct Loaded {
    std::optional<Norvane::PropertySet> scheme;
    ExitStatus status;
    std::string messages;
};

Loaded load(const std::string& name, std::vector<Cli::SchemeEdit> edits = {}) {
    NorvaneUI::DiskFileSystem disk;
    Cli::Report report;
    Cli::SchemeFinder finder(disk, "", "", report);
    Cli::SchemeShelf shelf(finder, name, std::move(edits), report);
    const Norvane::PropertySet* scheme = shelf.schemeIn("/");
    Loaded loaded{scheme == nullptr ? std::nullopt : std::optional(*scheme), report.status(), ""};
    std::ostringstream out;
    report.flush(out);
    loaded.messages = out.str();
    return loaded;
}

Cli::SchemeEdit set(const std::string& text) { return {Cli::SchemeEdit::Kind::set, text}; }
Cli::SchemeEdit unset(const std::string& text) { return {Cli::SchemeEdit::Kind::unset, text}; }

TEST(SchemeLoader, KnowsTheEmptyAndTheShippedSchemes) {
    const Loaded none = load("none");
    ASSERT_TRUE(none.scheme);
    EXPECT_EQ(none.scheme->size(), 0u);
    const Loaded shipped = load("default");
    ASSERT_TRUE(shipped.scheme) << shipped.messages;
    EXPECT_GT(shipped.scheme->size(), 30u);
}

TEST(SchemeLoader, ReadsAFileOfAnyForm) {
    const TempFolder folder;
    const std::string path = folder.write("a.kls", "\xef\xbb\xbfNorvane::PropertySet\r\n1\r\n\"a\"\r\n2 TAB_SIZE 3\r\n");
    const Loaded loaded = load(path);
    ASSERT_TRUE(loaded.scheme) << loaded.messages;
    int tabSize = 0;
    EXPECT_TRUE(loaded.scheme->getInt("TAB_SIZE", tabSize));
    EXPECT_EQ(tabSize, 3);
}

TEST(SchemeLoader, NamesFileLineAndColumnOfAnError) {
    const TempFolder folder;
    const std::string path = folder.write("a.kls", kHead + "1 LINE_WARP 1\n");
    const Loaded loaded = load(path);
    EXPECT_FALSE(loaded.scheme);
    EXPECT_EQ(loaded.status, ExitStatus::badUsageOrScheme);
    EXPECT_EQ(loaded.messages, path + ":4:3: error: unknown option \"LINE_WARP\"; did you mean \"LINE_WRAP\"?\n");
}

TEST(SchemeLoader, TellsWhyAFileCannotBeRead) {
    const TempFolder folder;
    const Loaded missing = load(folder / "no.kls");
    EXPECT_EQ(missing.status, ExitStatus::badUsageOrScheme);
    EXPECT_EQ(missing.messages.rfind("kerfline: error: there is no scheme file \"" + folder / "no.kls" + '"', 0),
              0u)
        << missing.messages;
    EXPECT_EQ(load(folder / "").messages, folder / "" + ": error: Is a directory\n");
}

struct EditCase {
    const char* name;
    Cli::SchemeEdit edit;
    const char* option;
    std::string value;
};

const EditCase kStringEdits[] = {
    {"Escapes", set("WS_AFTER_CS_KEY=\\n\\t"), "WS_AFTER_CS_KEY", "\n\t"},
    {"Typed", set("WS_AFTER_CS_KEY=\n\t "), "WS_AFTER_CS_KEY", "\n\t "},
    {"Quoted", set("WS_AFTER_CS_KEY=\" \""), "WS_AFTER_CS_KEY", " "},
    {"Empty", set("WS_AFTER_CS_KEY="), "WS_AFTER_CS_KEY", ""},
    {"EmptyQuoted", set("WS_AFTER_CS_KEY=\"\""), "WS_AFTER_CS_KEY", ""},
    {"Text", set("KERFLINE_VERSION=a b"), "KERFLINE_VERSION", "a b"},
};

class StringEdit : public testing::TestWithParam<EditCase> {};

TEST_P(StringEdit, GivesTheValue) {
    const Loaded loaded = load("none", {GetParam().edit});
    ASSERT_TRUE(loaded.scheme) << loaded.messages;
    std::string value = "untouched";
    EXPECT_TRUE(loaded.scheme->getString(GetParam().option, value));
    EXPECT_EQ(value, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Scheme, StringEdit, testing::ValuesIn(kStringEdits),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SchemeEdits, TakeTheKindOfTheOption) {
    const Loaded loaded = load("none", {set("LINE_WRAP=1"), set("TAB_SIZE=8")});
    ASSERT_TRUE(loaded.scheme) << loaded.messages;
    EXPECT_EQ(loaded.scheme->bools().size(), 1u);
    EXPECT_EQ(loaded.scheme->ints().size(), 1u);
}

TEST(SchemeEdits, ApplyInOrder) {
    const Loaded last = load("none", {set("TAB_SIZE=8"), unset("TAB_SIZE"), set("RIGHT_MARGIN=9"), set("RIGHT_MARGIN=7")});
    ASSERT_TRUE(last.scheme);
    EXPECT_FALSE(last.scheme->exists("TAB_SIZE"));
    int margin = 0;
    EXPECT_TRUE(last.scheme->getInt("RIGHT_MARGIN", margin));
    EXPECT_EQ(margin, 7);
}

TEST(SchemeEdits, ReplaceAValueOfAnotherKind) {
    const TempFolder folder;
    const std::string path = folder.write("a.kls", kHead + "2 DATA_DO_NOT_FORMAT 1\n2 WRAP_INDENT 4\n");
    const Loaded loaded = load(path, {set("DATA_DO_NOT_FORMAT=0"), unset("WRAP_INDENT")});
    ASSERT_TRUE(loaded.scheme) << loaded.messages;
    EXPECT_EQ(loaded.scheme->size(), 1u);
}

const std::pair<Cli::SchemeEdit, const char*> kWrongEdits[] = {
    {set("TAB_SIZ=4"), "--set TAB_SIZ: error: unknown option \"TAB_SIZ\"; did you mean \"TAB_SIZE\"?\n"},
    {set("TAB_SIZE"), "--set TAB_SIZE: error: the form is NAME=VALUE\n"},
    {set("LEFT_MARGIN=x"), "--set LEFT_MARGIN: error: "},
    {set("LINE_WRAP=yes"), "--set LINE_WRAP: error: "},
    {set("TAB_SIZE="), "--set TAB_SIZE: error: "},
    {set("=4"), "--set =4: error: the form is NAME=VALUE\n"},
    {set("TAB SIZE=4"), "--set TAB SIZE: error: unknown option"},
    {unset("TAB_SIZ"), "--unset TAB_SIZ: error: unknown option \"TAB_SIZ\"; did you mean \"TAB_SIZE\"?\n"},
};

TEST(SchemeEdits, AreRefusedWhenWrong) {
    for (const auto& [edit, message] : kWrongEdits) {
        SCOPED_TRACE(edit.text);
        const Loaded loaded = load("default", {edit});
        EXPECT_FALSE(loaded.scheme);
        EXPECT_EQ(loaded.status, ExitStatus::badUsageOrScheme);
        EXPECT_EQ(loaded.messages.rfind(message, 0), 0u) << loaded.messages;
    }
}

} // namespace
