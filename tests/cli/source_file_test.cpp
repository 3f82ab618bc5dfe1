#include "cli/Cli_SourceFile.h"

#include <gtest/gtest.h>

namespace {

struct FormCase {
    const char* name;
    std::string bytes;
    std::string text;
    /// What the text "x\ny\n" becomes in the form of the file.
    std::string changed;
};

const FormCase kForms[] = {
    {"LineFeeds", "a\nb\n", "a\nb\n", "x\ny\n"},
    {"Windows", "a\r\nb\r\n", "a\nb\n", "x\r\ny\r\n"},
    {"OldMac", "a\rb\r", "a\nb\n", "x\ry\r"},
    {"MostAreWindows", "a\r\nb\nc\r\n", "a\nb\nc\n", "x\r\ny\r\n"},
    {"MostAreLineFeeds", "a\r\nb\nc\n", "a\nb\nc\n", "x\ny\n"},
    {"AsManyOfBoth", "a\r\nb\n", "a\nb\n", "x\ny\n"},
    {"ReturnsThenFeedsAreOneEnd", "a\r\n\r\nb", "a\n\nb", "x\r\ny\r\n"},
    {"NoLineEnd", "a", "a", "x\ny\n"},
    {"Empty", "", "", "x\ny\n"},
    {"ByteOrderMark", "\xef\xbb\xbf" "a\r\n", "a\n", "\xef\xbb\xbf" "x\r\ny\r\n"},
    {"OnlyByteOrderMark", "\xef\xbb\xbf", "", "\xef\xbb\xbf" "x\ny\n"},
};

class Form : public testing::TestWithParam<FormCase> {};

TEST_P(Form, IsTakenOffAndPutBack) {
    const Cli::SourceFile file(GetParam().bytes);
    EXPECT_EQ(file.text(), GetParam().text);
    EXPECT_EQ(file.withForm("x\ny\n"), GetParam().changed);
    // Mixed line ends and all: a text that did not change is the old file.
    EXPECT_EQ(file.withForm(GetParam().text), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(SourceFile, Form, testing::ValuesIn(kForms),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SourceFile, TellsWideText) {
    EXPECT_TRUE(Cli::SourceFile("\xff\xfe" "a").isWideText());
    EXPECT_TRUE(Cli::SourceFile("\xfe\xff").isWideText());
    EXPECT_FALSE(Cli::SourceFile("a\xff\xfe").isWideText());
}

} // namespace
