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

TEST(SourceForm, GivesEachLineItsOwnLineEnd) {
    struct Row {
        const char* name;
        std::string source;
        std::string text;
        std::string result;
    };
    const Row rows[] = {
        {"one kind", "a\r\nb\r\n", "a\nb\n", "a\r\nb\r\n"},
        {"one kind, more lines", "ab\r\n", "a\n\nb\n", "a\r\n\r\nb\r\n"},
        {"carriage returns", "a\rb\r", "a\nb\n", "a\rb\r"},
        {"none", "ab", "a\nb", "a\nb"},
        {"mixed and unchanged", "a\r\nb\nc\rd", "a\nb\nc\nd", "a\r\nb\nc\rd"},
        {"mixed and indented", "a\r\n b\nc\r", "a\nb\n\tc\n", "a\r\nb\n\tc\r"},
        {"a line that is cut", "a\nbc\r\nd\n", "a\nb\nc\nd\n", "a\nb\r\nc\r\nd\n"},
        {"lines that are joined", "a\r\nb\nc\r\n", "a b\nc\n", "a b\nc\r\n"},
        {"blank lines keep their own", "a\n\r\n\nb\r\n", "a\n\n\nb\n", "a\n\r\n\nb\r\n"},
        {"a blank line less", "a\r\n\nb\n", "a\nb\n", "a\r\nb\n"},
        {"a blank line more", "a\r\nb\n", "a\n\nb\n", "a\r\n\r\nb\n"},
        {"a last line end more", "a\nb\r\nc", "a\nb\nc\n", "a\nb\r\nc\r\n"},
        {"blank lines in front", "\r\n\na\n", "\n\na\n", "\r\n\na\n"},
        {"a mark in front", "\xef\xbb\xbf" "a\r\nb\n", "a\nb\n", "\xef\xbb\xbf" "a\r\nb\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Addin::SourceForm(row.source).bytesOf(row.text), row.result) << row.name;
    }
}

TEST(SourceForm, TakesTheByteOrderMarkOffAndPutsItBack) {
    const std::string bytes = "\xef\xbb\xbf" "a\r\n";
    const Addin::SourceForm form(bytes);
    EXPECT_EQ(form.textOf(bytes), "a\n");
    EXPECT_EQ(form.bytesOf("b"), "\xef\xbb\xbf" "b");
    EXPECT_EQ(Addin::SourceForm("a").bytesOf("b"), "b");
}

TEST(SourceForm, ReadsUtf16InBothOrders) {
    const std::string little("\xff\xfe\xe4\0\r\0\n\0\x3d\xd8\0\xde", 12);
    const std::string big("\xfe\xff\0\xe4\0\r\0\n\xd8\x3d\xde\0", 12);
    for (const std::string& bytes : {little, big}) {
        const Addin::SourceForm form(bytes);
        EXPECT_EQ(form.textOf(bytes), "\xc3\xa4\n\xf0\x9f\x98\x80");
        EXPECT_EQ(form.bytesOf(form.textOf(bytes)), bytes);
    }
}

TEST(Utf16, EveryCharacterComesBack) {
    for (const auto order : {Addin::Utf16Order::little, Addin::Utf16Order::big}) {
        std::string units;
        for (unsigned row = 0; row < 0x100; ++row) {
            for (const unsigned low : {0x00u, 0x41u, 0x7Fu, 0x80u, 0xFFu}) {
                const unsigned c = row << 8 | low;
                if (c >= 0xD800 && c < 0xE000) continue;
                units += order == Addin::Utf16Order::little ? std::string{char(c & 0xFF), char(c >> 8)} : std::string{char(c >> 8), char(c & 0xFF)};
            }
        }
        units += order == Addin::Utf16Order::little ? "\xff\xdb\xff\xdf" : "\xdb\xff\xdf\xff";
        const auto text = Addin::fromUtf16(units, order);
        ASSERT_TRUE(text);
        EXPECT_TRUE(text->ends_with("\xf4\x8f\xbf\xbf"));
        EXPECT_EQ(Addin::toUtf16(*text, order), units);
    }
}

TEST(Utf16, IllFormedTextIsNone) {
    for (const char* bytes : {"a", "\x01\xdc", "\x01\xd8", "\x01\xd8" "ab", "\x01\xd8\x01\xd8"}) {
        EXPECT_FALSE(Addin::fromUtf16(bytes, Addin::Utf16Order::little)) << testing::PrintToString(bytes);
    }
    EXPECT_EQ(Addin::fromUtf16("", Addin::Utf16Order::big), "");
}

} // namespace
