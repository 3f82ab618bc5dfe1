#include "schemes/NorvaneUI_SchemeConversion.h"
#include "tests/store/FakeFileSystem.h"

#include <gtest/gtest.h>

namespace {

using Norvane::PropertySet;
using NorvaneUI::PropertySetStore;

constexpr const char* kHeader = "Norvane::PropertySet\n1\n\"Old\"\n";

PropertySet schemeOf(const std::string& records) {
    PropertySet scheme;
    EXPECT_TRUE(NorvaneUI::parseScheme(kHeader + records, scheme)) << records;
    return scheme;
}

std::string converted(const std::string& records) {
    PropertySet scheme = schemeOf(records);
    NorvaneUI::convertScheme(scheme);
    return NorvaneUI::schemeText(scheme);
}

TEST(ConvertScheme, GivesAnEmptySchemeEveryNewOption) {
    EXPECT_EQ(converted(""), std::string(kHeader) +
                                 "1 LINE_WRAP 0\n"
                                 "2 COMMA_WRAP_STYLE 2\n"
                                 "2 DATA_DO_NOT_FORMAT 0\n"
                                 "2 EXPR_WRAP_STYLE 2\n"
                                 "2 LINE_WRAP_DO_NOT_FORMAT 0\n"
                                 "2 LIST_WRAP_STRATEGY 1\n"
                                 "2 RIGHT_MARGIN 78\n"
                                 "2 SHIFT_WRAP_STYLE 1\n"
                                 "2 WRAP_INDENT 0\n"
                                 "2 WRAP_STYLE 1\n"
                                 "3 GLOBAL_WS_BEFORE_COMMA \"\"\n"
                                 "3 INDENT_DD_CONTENT \"\"\n"
                                 "3 KERFLINE_VERSION \"1.2.1\"\n"
                                 "3 WS_AFTER_DD_OPEN_BRACE \"\"\n"
                                 "3 WS_AFTER_FN_CALL_NAME \"\"\n"
                                 "3 WS_BEFORE_BASE_CLAUSES_COMMA \"\"\n"
                                 "3 WS_BEFORE_CLASS_INITS_COMMA \"\"\n"
                                 "3 WS_BEFORE_DD_CLOSE_BRACE \"\"\n"
                                 "3 WS_BEFORE_DD_COMMA \"\"\n"
                                 "3 WS_BEFORE_DD_OPEN_BRACE \"\"\n"
                                 "3 WS_BEFORE_ENUM_COMMA \"\"\n"
                                 "3 WS_BEFORE_FN_CALL_COMMA \"\"\n"
                                 "3 WS_BEFORE_FN_COMMA \"\"\n"
                                 "3 WS_BEFORE_TP_COMMA \"\"\n"
                                 "3 WS_BETWEEN_DD_ELEMENTS \" \"\n"
                                 "3 WS_BETWEEN_FN_CALL_ARGS \"\"\n");
}

/// A record of the old scheme, and a line that the converted one must hold or, behind "-", must
/// not hold.
struct Conversion {
    const char* old;
    const char* expected;
};
const Conversion kConversions[] = {
    {"1 ALIGN_FN_PARAMS_LEFT 1\n", "3 WS_BETWEEN_FN_PARAMS \"\\n\"\n"},
    {"1 ALIGN_FN_PARAMS_LEFT 1\n", "3 WS_BETWEEN_FN_CALL_ARGS \"\\n\"\n"},
    {"1 ALIGN_FN_PARAMS_LEFT 1\n", "-ALIGN_FN_PARAMS_LEFT"},
    {"1 ALIGN_FN_PARAMS_LEFT 0\n", "-WS_BETWEEN_FN_PARAMS"},
    {"1 ALIGN_FN_PARAMS_LEFT 0\n", "-ALIGN_FN_PARAMS_LEFT"},
    {"3 ALIGN_FN_PARAMS_LEFT \"x\"\n1 ALIGN_FN_PARAMS_LEFT 1\n", "-ALIGN_FN_PARAMS_LEFT"},
    {"1 ALIGN_FN_PARAMS_LEFT_ON_WRAP 1\n", "-ALIGN_FN_PARAMS_LEFT_ON_WRAP"},
    {"1 ALIGN_CS_FOR_CLAUSES_LEFT 1\n", "3 WS_BETWEEN_CS_FOR_CLAUSES \"\\n\"\n"},
    {"1 ALIGN_CS_FOR_CLAUSES_LEFT 1\n", "-ALIGN_CS_FOR_CLAUSES_LEFT"},
    {"1 ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP 1\n", "-ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP"},
    {"1 ALIGN_CS_FOR_CLAUSES_ON_WRAP 1\n", "1 ALIGN_CS_FOR_CLAUSES_ON_WRAP 1\n"},
    {"3 WS_AFTER_DD_NAME \" \"\n", "-WS_AFTER_DD_NAME"},
    {"1 LINE_WRAP 1\n", "1 LINE_WRAP 0\n"},
    {"3 WRAP_INDENT \"  \"\n", "3 WRAP_INDENT \"  \"\n"},
    {"3 GLOBAL_WS_BEFORE_OPEN_BRACE \"\\n\"\n", "3 WS_BEFORE_DD_OPEN_BRACE \"\\n\"\n"},
    {"3 GLOBAL_WS_AFTER_OPEN_BRACE \"\\n\"\n", "3 WS_AFTER_DD_OPEN_BRACE \"\\n\"\n"},
    {"3 GLOBAL_WS_BEFORE_CLOSE_BRACE \"\\n\"\n", "3 WS_BEFORE_DD_CLOSE_BRACE \"\\n\"\n"},
    {"3 GLOBAL_INDENT_CONTENT \"\\t\"\n", "3 INDENT_DD_CONTENT \"\\t\"\n"},
    {"3 WS_BEFORE_FN_COMMA \" \"\n", "3 WS_BEFORE_FN_COMMA \"\"\n"},
    {"3 WS_AFTER_FN_NAME \" \"\n", "3 WS_AFTER_FN_CALL_NAME \" \"\n"},
    {"3 WS_BETWEEN_FN_PARAMS \" \"\n", "3 WS_BETWEEN_FN_CALL_ARGS \" \"\n"},
    {"2 SPACES_PER_TAB 4\n", "2 TAB_SIZE 4\n"},
    {"2 SPACES_PER_TAB 4\n", "-SPACES_PER_TAB"},
    {"3 SPACES_PER_TAB \"4\"\n", "3 SPACES_PER_TAB \"4\"\n"},
    {"3 WS_AFTER_CLASS_HEAD \"\\n\"\n", "3 WS_BEFORE_CLASS_OPEN_BRACE \"\\n\"\n"},
    {"3 WS_AFTER_NS_HEAD \"\\n\"\n", "3 WS_BEFORE_NS_OPEN_BRACE \"\\n\"\n"},
    {"3 WS_AFTER_ENUM_HEAD \"\\n\"\n", "3 WS_BEFORE_ENUM_OPEN_BRACE \"\\n\"\n"},
    {"3 WS_AFTER_FN_HEAD \"\\n\"\n", "3 WS_BEFORE_FN_OPEN_BRACE \"\\n\"\n"},
    {"3 WS_AFTER_CS_HEAD \"\\n\"\n", "3 WS_BEFORE_CS_OPEN_BRACE \"\\n\"\n"},
    {"3 WS_AFTER_CS_HEAD \"\\n\"\n", "-WS_AFTER_CS_HEAD"},
    {"1 ALIGN_DD_NAMES_LEFT 1\n", "1 ALIGN_DD_NAMES_LEFT 1\n"},
};

TEST(ConvertScheme, ConvertsEachOldOption) {
    for (const Conversion& row : kConversions) {
        SCOPED_TRACE(row.old);
        const std::string text = converted(row.old);
        const std::string expected = row.expected;
        if (expected[0] == '-') {
            EXPECT_EQ(text.find(' ' + expected.substr(1) + ' '), std::string::npos) << text;
        } else {
            EXPECT_NE(text.find('\n' + expected), std::string::npos) << text;
        }
    }
}

constexpr const char* kOldRecord = "2 SPACES_PER_TAB 4\n";

class ConvertSchemes : public testing::Test {
protected:
    std::string add(const std::string& name, const std::string& records = kOldRecord) {
        const std::string path = "/s/" + name + ".kls";
        disk.put(path, "Norvane::PropertySet\n1\n\"" + name + "\"\n" + records);
        return path;
    }
    void addReadOnly(const std::string& name) { disk.setWritable(add(name), false); }
    std::string run() {
        store.read();
        converted.clear();
        return NorvaneUI::convertSchemes(store, converted);
    }

    FakeFileSystem disk;
    PropertySetStore store{"/s", disk};
    std::vector<NorvaneUI::ConvertedScheme> converted;
};

TEST_F(ConvertSchemes, LeavesSchemesWithAnyVersionAlone) {
    add("Empty", std::string(kOldRecord) + "3 KERFLINE_VERSION \"\"\n");
    add("Older", std::string(kOldRecord) + "3 KERFLINE_VERSION \"0.1\"\n1 LINE_WRAP 1\n");
    EXPECT_EQ(run(), "");
    EXPECT_TRUE(disk.changes.empty());
}

// What a person writes by hand has no version, and says what it says.
TEST_F(ConvertSchemes, LeavesSchemesWithNoOlderNameAlone) {
    add("Hand", "1 LINE_WRAP 1\n2 RIGHT_MARGIN 100\n1 ALIGN_FN_PARAMS_LEFT 1\n3 WS_AFTER_DD_NAME \" \"\n2 KERFLINE_VERSION 1\n");
    EXPECT_EQ(run(), "");
    EXPECT_TRUE(disk.changes.empty() && converted.empty());
}

TEST_F(ConvertSchemes, EachOlderNameMakesAnOldScheme) {
    for (const char* name : {"SPACES_PER_TAB", "WS_AFTER_CLASS_HEAD", "WS_AFTER_NS_HEAD", "WS_AFTER_ENUM_HEAD",
                             "WS_AFTER_FN_HEAD", "WS_AFTER_CS_HEAD", "ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP"}) {
        for (const char code : {'1', '2', '3'}) {
            EXPECT_TRUE(NorvaneUI::isOldScheme(schemeOf(code + (' ' + std::string(name)) + " 1\n"))) << code << name;
        }
    }
}

TEST_F(ConvertSchemes, KeepsACopyAndWritesOnceAndFindsNothingToDoTheSecondTime) {
    const std::string before = disk.text(add("A"));
    add("B");
    disk.put("/s/B.kls.old", "of somebody");
    EXPECT_EQ(run(), "");
    EXPECT_EQ(disk.changes, (std::vector<std::string>{"copy /s/A.kls.old", "copy /s/B.kls.old2", "replace /s/A.kls",
                                                      "replace /s/B.kls"}));
    EXPECT_EQ(disk.text("/s/A.kls.old"), before);
    EXPECT_EQ(disk.text("/s/B.kls.old"), "of somebody");
    ASSERT_EQ(converted.size(), 2u);
    EXPECT_EQ(NorvaneUI::convertedText(converted[1]),
              "The scheme 'B' was created using a previous version of Kerfline and has been converted. Its file as it "
              "was is kept as \"/s/B.kls.old2\".");
    EXPECT_EQ(run(), "");
    EXPECT_EQ(disk.changes.size(), 4u);
    EXPECT_TRUE(converted.empty());
}

TEST_F(ConvertSchemes, KeepsTheCommentsOfWhatItConverts) {
    add("A", "# indents\n  2 SPACES_PER_TAB 4\n\n3 WS_AFTER_CS_KEY \" \"  # if (\n");
    run();
    const std::string text = disk.text("/s/A.kls");
    EXPECT_NE(text.find("\n# indents\n\n3 WS_AFTER_CS_KEY \" \"  # if (\n1 LINE_WRAP 0\n"), std::string::npos) << text;
}

TEST_F(ConvertSchemes, WritesNothingWithoutACopy) {
    add("A");
    add("B");
    disk.fail("copy", "/s/B.kls.old", FakeFileSystem::FailureKind::full);
    EXPECT_THROW(run(), PropertySetStore::WriteError);
    EXPECT_EQ(disk.changes, std::vector<std::string>{"copy /s/A.kls.old"});
}

TEST_F(ConvertSchemes, NamesOneReadOnlyScheme) {
    addReadOnly("My %s");
    EXPECT_EQ(run(), "The scheme 'My %s' was created using a previous version of Kerfline. The file is marked "
                     "read-only and so cannot be converted. Please ensure the file is read-write and run Kerfline "
                     "again. Once the scheme has been converted, the file can be set read-only again.");
    EXPECT_TRUE(disk.changes.empty());
    EXPECT_EQ(store.find("My %s")->second.scheme.size(), 1u);
}

TEST_F(ConvertSchemes, NamesSeveralReadOnlySchemesAndConvertsTheRest) {
    addReadOnly("One");
    addReadOnly("Two");
    add("Writable");
    EXPECT_EQ(run(),
              "The following schemes were created using a previous version of Kerfline:\r\nOne\r\nTwo\r\nThe "
              "files are read-only and so cannot be converted. Please ensure that the scheme files listed are "
              "read-write and run Kerfline again. Once the schemes have been converted, the files can be set "
              "read-only again.");
    EXPECT_EQ(disk.changes.back(), "replace /s/Writable.kls");
    EXPECT_EQ(disk.changes.size(), 2u);
}

TEST_F(ConvertSchemes, PassesAFailedWriteThroughWithTheSchemesConverted) {
    add("A");
    disk.fail("replace", "/s/A.kls", FakeFileSystem::FailureKind::full);
    EXPECT_THROW(run(), PropertySetStore::WriteError);
    std::string version;
    EXPECT_TRUE(store.find("A")->second.scheme.getString("KERFLINE_VERSION", version));
    EXPECT_EQ(version, "1.2.1");
}

} // namespace
