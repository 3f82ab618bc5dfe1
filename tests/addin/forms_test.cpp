#include "addin/Addin_Extensions.h"
#include "addin/Addin_SourceForm.h"

#include <gtest/gtest.h>

namespace {

TEST(ExtensionOf, IsBehindTheLastDotOfTheFile) {
    const std::pair<std::string, std::string> cases[] = {
        {"a.cpp", "cpp"}, {"/x.d/Makefile", ""},      {"a", ""}, {"a.", ""}, {"a.b.C", "c"},
        {".H", "h"},      {"a.\xc3\x84", "\xc3\x84"},
    };
    for (const auto& [path, extension] : cases) EXPECT_EQ(Addin::extensionOf(path), extension) << path;
}

TEST(IsListedExtension, ComparesWithoutCase) {
    struct Row {
        const char* path;
        const char* list;
        bool listed;
    };
    const Row rows[] = {
        {"a.cpp", "c,cpp", true},       {"a.CPP", "c,cpp", true},   {"a.cpp", "C,CpP", true},
        {"a.cpp", "c, cpp;h", true},    {"a.h", "c, cpp;h", true},  {"a.cpp", ".cpp", true},
        {"a.cp", "c,cpp", false},       {"a.cpp", "", false},       {"a.", "", false},
        {"a.", ",,", false},            {"Makefile", "c", false},   {"/c.c/Makefile", "c/Makefile", false},
        {"a.cpp", " ,;\t;cpp ", true},  {"a.cpp", "...", false},    {"a.cpp.txt", "cpp", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Addin::isListedExtension(row.path, row.list), row.listed) << row.path << ' ' << row.list;
    }
}

TEST(BackupExtensionOf, IsNeverEmpty) {
    const std::pair<std::string, std::string> cases[] = {{"", "bak"},      {" . .", "bak"},    {"orig", "orig"},
                                                         {".bak", "bak"},  {" ..a.b ", "a.b"}, {"a b", "a b"}};
    for (const auto& [typed, extension] : cases) EXPECT_EQ(Addin::backupExtensionOf(typed), extension) << typed;
}

TEST(IsValidExtension, KnowsWhatCannotEndAName) {
    for (const char bad : std::string("<>:\\/|?")) {
        EXPECT_FALSE(Addin::isValidExtension(std::string("a") + bad)) << bad;
    }
    for (const char* good : {"", "cpp", ".cpp", " x ", "*", "\""}) {
        EXPECT_TRUE(Addin::isValidExtension(good)) << good;
    }
}

TEST(SourceForm, GivesBackTheCommonestLineEnd) {
    const std::pair<std::string, std::string> cases[] = {
        {"a\nb\n", "x\ny\n"},         {"a\r\nb\r\n", "x\r\ny\r\n"}, {"a\rb\r", "x\ry\r"},
        {"a\r\nb\nc\n", "x\ny\n"},    {"a\nb\r\nc\r\n", "x\r\ny\r\n"}, {"a\r\nb\n", "x\r\ny\r\n"},
        {"a\nb\r\n", "x\ny\n"},       {"a\rb\n", "x\ry\r"},         {"a\r\r\n", "x\ry\r"},
        {"", "x\ny\n"},               {"\r\n\r\n\n\n\n", "x\ny\n"},
    };
    for (const auto& [source, result] : cases) {
        EXPECT_EQ(Addin::SourceForm(source).bytesOf("x\ny\n"), result) << source;
    }
}

TEST(SourceForm, TakesTheByteOrderMarkOffAndPutsItBack) {
    const std::string bytes = "\xef\xbb\xbf" "a\r\n";
    const Addin::SourceForm form(bytes);
    EXPECT_EQ(form.textOf(bytes), "a\n");
    EXPECT_EQ(form.bytesOf("b"), "\xef\xbb\xbf" "b");
    EXPECT_EQ(Addin::SourceForm("a").bytesOf("b"), "b");
}

} // namespace
