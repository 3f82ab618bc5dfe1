#include "addin/Addin_Settings.h"
#include "addin/Addin_SettingsText.h"
#include "addin/Addin_UserFolders.h"
#include "tests/addin/Fixture.h"

#include <cstdlib>
#include <optional>

namespace {

using Addin::SettingsText;

constexpr const char* kNotOpened =
    "notice: Could not open application registry key. Any options you set during this "
    "session will not be saved.";
constexpr const char* kNotCreated =
    "notice: Failed to create registry settings. Any options you set during this session will not be saved.";

TEST(SettingsText, FindsValuesOfItsSection) {
    const SettingsText text(
        "A=0\n[Other]\nA=1\n[Options]\n# A=2\n;A=3\n A = 4 \r\nB=\nQ=\"\\n\\\"\\\\ \"\nno value\n"
        "A=5\n[More]\nA=6");
    EXPECT_EQ(text.value("A"), "5");
    EXPECT_EQ(text.value("B"), "");
    EXPECT_EQ(text.value("Q"), "\n\"\\ ");
    EXPECT_EQ(text.value("C"), std::nullopt);
    EXPECT_EQ(text.value("no value"), std::nullopt);
    EXPECT_EQ(SettingsText("").value("A"), std::nullopt);
}

TEST(SettingsText, ChangesOnlyTheLineThatHasTheValue) {
    SettingsText text("# top\nX=1\n\n[Options]\n; note\nUnknown = kept \r\nA=1\r\nA=2\r\n\n[Later]\nA=9\n");
    text.setValue("A", "new");
    text.setValue("B", "2");
    EXPECT_EQ(text.text(),
              "# top\nX=1\n\n[Options]\n; note\nUnknown = kept \r\nA=1\r\nA=new\r\nB=2\n\n[Later]\nA=9\n");
}

TEST(SettingsText, MakesItsSection) {
    SettingsText empty("");
    empty.setValue("A", "1");
    EXPECT_EQ(empty.text(), "[Options]\nA=1\n");
    SettingsText other("[Other]\nA=1");
    other.setValue("A", "2");
    EXPECT_EQ(other.text(), "[Other]\nA=1\n\n[Options]\nA=2\n");
}

TEST(SettingsText, KnowsItsSectionBehindAByteOrderMark) {
    SettingsText text("\xef\xbb\xbf[Options]\nA=1\n");
    EXPECT_EQ(text.value("A"), "1");
    text.setValue("A", "2");
    EXPECT_EQ(text.text(), "\xef\xbb\xbf[Options]\nA=2\n");
}

TEST(SettingsText, ReadsBackEveryValue) {
    const std::string values[] = {"",        "plain words", " blank",    "blank ",      "\"quoted\"", "a#b", ";",
                                  "a\\nb",   "line\nfeed",  "\t\v\r\n",  "[Options]",   "a=b",        "\\",  "\"",
                                  "\x01ctl", "gr\xc3\xbcn", "C:\\dir\\", "a\\\"b\"\\c"};
    for (const std::string& value : values) {
        SettingsText text("");
        text.setValue("A", value);
        text.setValue("B", "end");
        EXPECT_EQ(SettingsText(text.text()).value("A"), value) << text.text();
        EXPECT_EQ(SettingsText(text.text()).value("B"), "end") << text.text();
    }
}

class SettingsFile : public AddinTest {
protected:
    SettingsFile() {
        store.insert(keywordScheme("Mine"));
        store.insert(keywordScheme("Other"));
    }
    void read() {
        Addin::ReadRegOptions(host, settings, store, options);
        before = options;
    }
    void write() { Addin::WriteRegOptions(host, settings, before, options); }

    Addin::AddInOptions before;

    NorvaneUI::PropertySetStore store{"/s", disk};
    Addin::Settings settings{disk, "/c/settings"};
};

TEST_F(SettingsFile, MissingFileMeansDefaultsAndIsNotMade) {
    options.messagesThreshold = 3;
    read();
    EXPECT_TRUE(host.log.empty());
    EXPECT_TRUE(disk.changes.empty());
    EXPECT_EQ(options.onFormat.name, "");
    EXPECT_EQ(options.fileExtensions, "c,cc,cpp,cxx,h,hh,hpp,hxx");
    EXPECT_EQ(options.backupExtension, "");
    EXPECT_TRUE(options.createBackups);
    EXPECT_TRUE(options.promptUnsaved);
    EXPECT_EQ(options.messagesThreshold, 1);
}

TEST_F(SettingsFile, ReadsWhatItWrote) {
    options.onFormat.name = "Mine";
    options.onOpen.name = "Other";
    options.onClose.name = "a \"#\n";
    options.fileExtensions = "";
    options.backupExtension = ".bak";
    options.createBackups = false;
    options.promptUnsaved = false;
    options.messagesThreshold = -4;
    write();
    EXPECT_TRUE(host.log.empty());
    EXPECT_EQ(disk.text("/c/settings"), "[Options]\n"
                                        "BackupExtension=.bak\n"
                                        "CreateBackups=0\n"
                                        "FileExtensions=\n"
                                        "MessagesThreshold=-4\n"
                                        "OnClose=\"a \\\"#\\n\"\n"
                                        "OnFormat=Mine\n"
                                        "OnOpen=Other\n"
                                        "PromptUnsaved=0\n");
    const Addin::AddInOptions written = options;
    read();
    EXPECT_EQ(options.onFormat.name, written.onFormat.name);
    EXPECT_EQ(options.onOpen.name, written.onOpen.name);
    EXPECT_EQ(options.onClose.name, written.onClose.name);
    EXPECT_EQ(options.fileExtensions, "");
    EXPECT_EQ(options.backupExtension, ".bak");
    EXPECT_FALSE(options.createBackups);
    EXPECT_FALSE(options.promptUnsaved);
    EXPECT_EQ(options.messagesThreshold, -4);
    EXPECT_TRUE(options.onOpen.scheme);
    EXPECT_FALSE(options.onClose.scheme);
}

TEST_F(SettingsFile, ValuesOfAnotherKindAreDefaults) {
    disk.put("/c/settings", "[Options]\nCreateBackups=true\nPromptUnsaved=\nMessagesThreshold=2x\n");
    read();
    EXPECT_TRUE(options.createBackups);
    EXPECT_TRUE(options.promptUnsaved);
    EXPECT_EQ(options.messagesThreshold, 1);
}

TEST_F(SettingsFile, SchemeThatIsNotThereIsNoneButStaysStored) {
    disk.put("/c/settings", "[Options]\nOnFormat=Lost\n");
    read();
    EXPECT_FALSE(options.onFormat.scheme);
    options.promptUnsaved = false;
    write();
    EXPECT_NE(disk.text("/c/settings").find("OnFormat=Lost\n"), std::string::npos);
}

TEST_F(SettingsFile, WriteKeepsWhatOthersWrote) {
    read();
    disk.put("/c/settings", "# mine\n[Options]\nCurrentSchemesTab=3\n");
    options.promptUnsaved = false;
    write();
    EXPECT_EQ(disk.text("/c/settings"), "# mine\n[Options]\nCurrentSchemesTab=3\nPromptUnsaved=0\n");
}

// A default that nobody has looked at must not be stored as a choice.
TEST_F(SettingsFile, WritesNothingThatIsAsItWas) {
    read();
    write();
    EXPECT_TRUE(disk.changes.empty());
    disk.fail("status", "/c/settings", FailureKind::denied);
    write();
    EXPECT_TRUE(host.log.empty());
}

TEST_F(SettingsFile, SecondWriteOfTheSameChangesNothing) {
    options.onOpen.name = "Mine";
    write();
    disk.changes.clear();
    write();
    EXPECT_TRUE(disk.changes.empty());
}

struct BadSettings {
    const char* name;
    const char* operation;
    const char* path;
    bool exists;
    const char* notice;
};
const BadSettings kBadSettings[] = {
    {"Status", "status", "/c/settings", true, kNotOpened},   {"Read", "read", "/c/settings", true, kNotOpened},
    {"Replace", "replace", "/c/settings", true, kNotOpened}, {"Folder", "makeFolders", "/c", false, kNotCreated},
    {"Create", "create", "/c/settings", false, kNotCreated},
};
class SettingsFailure : public SettingsFile, public testing::WithParamInterface<BadSettings> {};

TEST_P(SettingsFailure, IsToldAndLosesNothing) {
    const std::string old = "# mine\n[Options]\nOnFormat=Mine\n";
    if (GetParam().exists) disk.put("/c/settings", old);
    disk.fail(GetParam().operation, GetParam().path, FailureKind::denied);
    options.onFormat.name = "Other";
    write();
    EXPECT_EQ(host.log, Lines{GetParam().notice});
    EXPECT_EQ(disk.text("/c/settings"), GetParam().exists ? old : "<missing>");
}
INSTANTIATE_TEST_SUITE_P(All, SettingsFailure, testing::ValuesIn(kBadSettings),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SettingsFile, UnreadableFileIsToldOfAndMeansDefaults) {
    disk.put("/c/settings", "[Options]\nCreateBackups=0\n");
    disk.fail("read", "/c/settings", FailureKind::denied);
    read();
    EXPECT_EQ(host.log, Lines{kNotOpened});
    EXPECT_TRUE(options.createBackups);
}

/// Sets a variable of the environment as long as it stands.
class Environment {
public:
    Environment(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value == nullptr) {
            ::unsetenv(name);
        } else {
            ::setenv(name, value, 1);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        if (old_) {
            ::setenv(name_, old_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }

private:
    const char* name_;
    std::optional<std::string> old_;
};

TEST(UserFolders, FollowTheEnvironment) {
    const Environment home("HOME", "/home/me");
    {
        const Environment xdg("XDG_CONFIG_HOME", "/etc/me");
        EXPECT_EQ(Addin::userSettingsFile(), "/etc/me/kerfline/settings");
        EXPECT_EQ(Addin::userSchemeFolder(), "/etc/me/kerfline/schemes");
    }
    for (const char* useless : {"relative/path", "", static_cast<const char*>(nullptr)}) {
        const Environment xdg("XDG_CONFIG_HOME", useless);
        EXPECT_EQ(Addin::userConfigurationFolder(), "/home/me/.config/kerfline");
    }
    const Environment xdg("XDG_CONFIG_HOME", nullptr);
    const Environment noHome("HOME", nullptr);
    EXPECT_TRUE(Addin::userConfigurationFolder().ends_with("/.config/kerfline"));
    EXPECT_TRUE(Addin::userConfigurationFolder().starts_with('/'));
}

} // namespace
