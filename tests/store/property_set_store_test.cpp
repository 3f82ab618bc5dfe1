#include "files/Zelmar_Trace.h"
#include "schemes/NorvaneUI_PropertySetStore.h"
#include "tests/store/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Norvane::PropertySet;
using NorvaneUI::PropertySetStore;

PropertySet scheme(const std::string& name, int tabSize) {
    PropertySet set(name);
    set.setInt("TAB_SIZE", tabSize);
    return set;
}

std::string fileOf(const std::string& name, int tabSize) { return NorvaneUI::schemeText(scheme(name, tabSize)); }

class Store : public testing::Test {
protected:
    int tabSizeOf(const std::string& name) const {
        std::int32_t value = -1;
        const auto found = store.find(name);
        if (found != store.end()) found->second.scheme.getInt("TAB_SIZE", value);
        return value;
    }
    void setTabSize(const std::string& name, int value) {
        store.find(name)->second.scheme.setInt("TAB_SIZE", value);
    }
    std::string messageOfRead() {
        try {
            store.read();
        } catch (const PropertySetStore::ReadError& error) {
            return error.message();
        }
        return "read";
    }
    std::string messageOfWrite() {
        try {
            store.write();
        } catch (const PropertySetStore::WriteError& error) {
            return error.message();
        }
        return "written";
    }

    FakeFileSystem disk;
    PropertySetStore store{"/s", disk};
};

TEST_F(Store, AddsASeparatorUnlessThereIsOne) {
    EXPECT_EQ(PropertySetStore("/s", disk).directory(), "/s/");
    EXPECT_EQ(PropertySetStore("/s/", disk).directory(), "/s/");
    // A backslash is part of a folder's name like any other character.
    EXPECT_EQ(PropertySetStore("/s\\", disk).directory(), "/s\\/");
    EXPECT_EQ(PropertySetStore("", disk).directory(), "");
}

TEST_F(Store, TouchesNothingWithoutAFolder) {
    PropertySetStore none("", disk);
    none.insert(scheme("A", 1));
    disk.before = [](const std::string& call) { ADD_FAILURE() << call; };
    none.read();
    none.write();
    EXPECT_TRUE(none.findPSFiles().empty());
    EXPECT_EQ(none.count("A"), 1u);
}

TEST_F(Store, FindsRegularFilesOfTheExtensionInByteOrder) {
    for (const char* name : {"b.kls", "a.KLS", ".kls", "a.kl1", "kls", "d.kls", "gone.kls"}) {
        disk.put(std::string("/s/") + name, "");
    }
    disk.setKind("/s/d.kls", FakeFileSystem::FileKind::folder);
    disk.setKind("/s/gone.kls", FakeFileSystem::FileKind::missing);
    EXPECT_EQ(store.findPSFiles(), (std::vector<std::string>{".kls", "a.KLS", "b.kls"}));
}

TEST_F(Store, ReadsNamesFromInsideTheFiles) {
    disk.put("/s/x.kls", fileOf("Mine", 3));
    disk.putReadOnly("/s/y.kls", fileOf("Theirs", 5));
    store.read();
    EXPECT_EQ(store.files(), (PropertySetStore::FileMap{{"x.kls", "Mine"}, {"y.kls", "Theirs"}}));
    EXPECT_EQ(tabSizeOf("Mine"), 3);
    EXPECT_FALSE(store.find("Mine")->second.readOnly);
    EXPECT_TRUE(store.find("Theirs")->second.readOnly);
}

TEST_F(Store, ReadReplacesWhatItHeld) {
    store.insert(scheme("Old", 1));
    store.read();
    EXPECT_EQ(store.count("Old"), 0u);
    EXPECT_TRUE(store.files().empty());
}

TEST_F(Store, AMissingFolderIsAnEmptyOne) {
    disk.fail("list", "/s/", FakeFileSystem::FailureKind::missing);
    EXPECT_EQ(messageOfRead(), "read");
}

TEST_F(Store, FailedReadKeepsTheOldContents) {
    disk.put("/s/a.kls", fileOf("A", 3));
    store.read();
    disk.put("/s/a.kls", fileOf("A", 4));
    disk.put("/s/b.kls", "no scheme");
    EXPECT_EQ(messageOfRead(), "Could not successfully read PropertySet \"/s/b.kls\"");
    EXPECT_EQ(tabSizeOf("A"), 3);
    disk.put("/s/b.kls", "");
    EXPECT_EQ(messageOfRead(), "Could not successfully read PropertySet \"/s/b.kls\"");
    disk.vanish("/s/b.kls");
    disk.fail("read", "/s/a.kls", FakeFileSystem::FailureKind::denied);
    EXPECT_EQ(messageOfRead(), "Could not successfully read PropertySet \"/s/a.kls\"");
    disk.fail("list", "/s/", FakeFileSystem::FailureKind::denied);
    EXPECT_EQ(messageOfRead(), "Could not successfully read PropertySet \"/s/\"");
}

TEST_F(Store, PassesOverAFileThatVanishesWhileItReads) {
    disk.put("/s/a.kls", fileOf("A", 3));
    disk.put("/s/b.kls", fileOf("B", 4));
    disk.before = [&](const std::string& call) {
        if (call == "read /s/a.kls") disk.vanish("/s/a.kls");
    };
    store.read();
    EXPECT_EQ(store.count("A"), 0u);
    EXPECT_EQ(tabSizeOf("B"), 4);
}

TEST_F(Store, WritesAndReadsBack) {
    store.insert(scheme("a/b", 3));
    EXPECT_EQ(messageOfWrite(), "written");
    EXPECT_EQ(disk.text("/s/a_b.kls"), fileOf("a/b", 3));
    PropertySetStore again("/s", disk);
    again.read();
    EXPECT_TRUE(NorvaneUI::isSameScheme(again.find("a/b")->second.scheme, scheme("a/b", 3)));
}

TEST_F(Store, LeavesFilesAloneThatSayTheSame) {
    disk.put("/s/a.kls", "# mine\n" + fileOf("A", 3));
    disk.put("/s/b.kls", fileOf("B", 4));
    store.read();
    setTabSize("B", 8);
    store.write();
    EXPECT_EQ(disk.changes, std::vector<std::string>{"replace /s/b.kls"});
    EXPECT_EQ(disk.text("/s/b.kls"), fileOf("B", 8));
}

TEST_F(Store, ErasedSchemeTakesItsFileAlong) {
    disk.put("/s/a.kls", fileOf("A", 3));
    disk.putReadOnly("/s/b.kls", fileOf("B", 4));
    store.read();
    store.erase("A");
    store.erase("B");
    store.write();
    EXPECT_EQ(disk.paths(), std::vector<std::string>{"/s/b.kls"});
    store.read();
    EXPECT_EQ(tabSizeOf("B"), 4);
}

TEST_F(Store, KeepsWhatItHasNotRead) {
    disk.put("/s/a.kls", fileOf("A", 3));
    disk.put("/s/b.kls", "broken");
    EXPECT_THROW(store.read(), PropertySetStore::ReadError);
    store.insert(scheme("New", 1));
    store.write();
    EXPECT_EQ(disk.text("/s/a.kls"), fileOf("A", 3));
    EXPECT_EQ(disk.text("/s/b.kls"), "broken");
    EXPECT_EQ(disk.text("/s/New.kls"), fileOf("New", 1));
}

TEST_F(Store, KeepsTheEditsOfOthers) {
    disk.put("/s/a.kls", fileOf("A", 3));
    disk.put("/s/b.kls", fileOf("B", 3));
    store.read();
    disk.put("/s/a.kls", fileOf("A", 77));
    disk.put("/s/c.kls", fileOf("C", 3));
    setTabSize("B", 4);
    store.write();
    EXPECT_EQ(disk.text("/s/a.kls"), fileOf("A", 77));
    EXPECT_EQ(disk.text("/s/b.kls"), fileOf("B", 4));
    EXPECT_TRUE(disk.has("/s/c.kls"));
    // The edit of somebody else is still not this store's to overwrite.
    setTabSize("A", 5);
    EXPECT_EQ(messageOfWrite(), "Could not successfully write PropertySet \"/s/a.kls\"");
    EXPECT_EQ(disk.text("/s/a.kls"), fileOf("A", 77));
}

TEST_F(Store, DoesNotRemoveWhatSomebodyChanged) {
    disk.put("/s/a.kls", fileOf("A", 3));
    store.read();
    disk.put("/s/a.kls", fileOf("A", 77));
    store.erase("A");
    store.write();
    EXPECT_TRUE(disk.has("/s/a.kls"));
}

TEST_F(Store, WritesASecondTime) {
    store.insert(scheme("A", 3));
    store.write();
    setTabSize("A", 4);
    store.write();
    EXPECT_EQ(disk.text("/s/A.kls"), fileOf("A", 4));
    store.erase("A");
    store.write();
    EXPECT_FALSE(disk.has("/s/A.kls"));
}

struct FailedWrite {
    const char* name;
    const char* operation;
    const char* path;
    const char* message;
};
class StoreFailure : public Store, public testing::WithParamInterface<FailedWrite> {};

TEST_P(StoreFailure, NamesTheFileAndRemovesNothing) {
    disk.put("/s/a.kls", fileOf("A", 3));
    disk.put("/s/b.kls", fileOf("B", 3));
    store.read();
    setTabSize("B", 4);
    store.erase("A");
    store.insert(scheme("C", 1));
    disk.fail(GetParam().operation, GetParam().path, FakeFileSystem::FailureKind::full);
    EXPECT_EQ(messageOfWrite(), GetParam().message);
    EXPECT_EQ(disk.text("/s/a.kls"), fileOf("A", 3));
}
INSTANTIATE_TEST_SUITE_P(
    All, StoreFailure,
    testing::Values(
        FailedWrite{"NewFile", "create", "/s/C.kls", "Could not successfully write PropertySet \"/s/C.kls\""},
        FailedWrite{"OldFile", "replace", "/s/b.kls", "Could not successfully write PropertySet \"/s/b.kls\""},
        FailedWrite{"Status", "status", "/s/b.kls", "Could not successfully write PropertySet \"/s/b.kls\""},
        FailedWrite{"Folder", "makeFolders", "/s/", "Could not successfully write PropertySet \"/s/\""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Store, FileThatTurnedReadOnlyIsNeitherWrittenNorRemoved) {
    disk.put("/s/a.kls", fileOf("A", 3));
    disk.put("/s/b.kls", fileOf("B", 3));
    store.read();
    disk.setWritable("/s/a.kls", false);
    disk.setWritable("/s/b.kls", false);
    store.erase("A");
    EXPECT_EQ(messageOfWrite(), "written");
    EXPECT_TRUE(disk.has("/s/a.kls"));
    setTabSize("B", 4);
    EXPECT_EQ(messageOfWrite(), "Could not successfully write PropertySet \"/s/b.kls\"");
}

TEST_F(Store, ReadOnlySchemeIsNotWritten) {
    disk.putReadOnly("/s/a.kls", fileOf("A", 3));
    store.read();
    setTabSize("A", 4);
    EXPECT_EQ(messageOfWrite(), "written");
    EXPECT_EQ(disk.text("/s/a.kls"), fileOf("A", 3));
}

TEST_F(Store, NewFileNeverReplacesOneThatWasNotRead) {
    store.read();
    store.insert(scheme("A", 3));
    disk.put("/s/A.kls", fileOf("Other", 9));
    EXPECT_EQ(messageOfWrite(), "Could not successfully write PropertySet \"/s/A.kls\"");
    EXPECT_EQ(disk.text("/s/A.kls"), fileOf("Other", 9));
}

TEST_F(Store, FailedRemovalIsTracedAndTheRestGoesOn) {
    std::ostringstream log;
    Zelmar::Trace::setStream(&log);
    Zelmar::Trace::switchOn();
    disk.put("/s/a.kls", fileOf("A", 3));
    disk.put("/s/b.kls", fileOf("B", 3));
    store.read();
    store.erase("A");
    store.erase("B");
    disk.fail("remove", "/s/a.kls", FakeFileSystem::FailureKind::denied);
    store.write();
    Zelmar::Trace::switchOff();
    Zelmar::Trace::setStream(nullptr);
    EXPECT_NE(log.str().find("Could not successfully delete PropertySet file \"a.kls\"\n"), std::string::npos);
    EXPECT_NE(log.str().find("Found file \"b.kls\"\n"), std::string::npos);
    EXPECT_EQ(disk.paths(), std::vector<std::string>{"/s/a.kls"});
}

TEST_F(Store, FirstOfTwoFilesOfOneNameCounts) {
    disk.put("/s/mine-old.kls", fileOf("Mine", 3));
    disk.put("/s/mine.kls", fileOf("Mine", 4));
    store.read();
    EXPECT_EQ(tabSizeOf("Mine"), 3);
    EXPECT_EQ(store.files().size(), 2u);
    setTabSize("Mine", 8);
    store.write();
    EXPECT_EQ(disk.text("/s/mine-old.kls"), fileOf("Mine", 8));
    EXPECT_EQ(disk.text("/s/mine.kls"), fileOf("Mine", 4));
    // Erasing takes the one in use; the other comes up with the next read.
    store.erase("Mine");
    EXPECT_EQ(store.files(), (PropertySetStore::FileMap{{"mine.kls", "Mine"}}));
    store.write();
    EXPECT_EQ(disk.paths(), std::vector<std::string>{"/s/mine.kls"});
    store.read();
    EXPECT_EQ(tabSizeOf("Mine"), 4);
}

TEST_F(Store, InsertKeepsAnExistingEntry) {
    store.insert(scheme("my", 3));
    store.insert(scheme("my", 4));
    EXPECT_EQ(tabSizeOf("my"), 3);
    EXPECT_EQ(store.files(), (PropertySetStore::FileMap{{"my.kl1", "my"}, {"my.kls", "my"}}));
}

TEST_F(Store, ErasedNameGetsItsFileBack) {
    disk.put("/s/my.kls", fileOf("my", 3));
    store.read();
    store.erase("my");
    store.insert(scheme("my", 4));
    EXPECT_EQ(messageOfWrite(), "written");
    EXPECT_EQ(disk.text("/s/my.kls"), fileOf("my", 4));
    EXPECT_EQ(disk.paths().size(), 1u);
}

TEST_F(Store, RemovesOnlyWhatAReadWouldFind) {
    for (const char* name : {"my", "my/"}) store.insert(scheme(name, 3));
    store.insert(scheme("my", 3));
    store.write();
    ASSERT_TRUE(disk.has("/s/my.kl1"));
    for (const char* name : {"my", "my/"}) store.erase(name);
    store.write();
    EXPECT_TRUE(disk.has("/s/my.kl1"));
    EXPECT_FALSE(disk.has("/s/my_.kls"));
}

TEST_F(Store, IteratesInNameOrder) {
    store.insert(scheme("b", 1));
    store.insert(scheme("a", 1));
    std::string names;
    for (const auto& entry : store) names += entry.first;
    EXPECT_EQ(names, "ab");
}

TEST_F(Store, FileNamesHaveNoPathInThem) {
    const std::pair<std::string, std::string> cases[] = {
        {"plain", "plain.kls"},   {"a/b", "a_b.kls"},       {"a..b", "a_b.kls"},
        {"..", "_.kls"},          {"a.", "a_kls"},          {".", "_kls"},
        {"...", "__kls"},         {"<>:\\/|", "______.kls"}, {"a?b", "a_b.kls"},
        {"", ".kls"},             {std::string(256, 'x'), std::string(256, 'x') + ".kls"},
        {std::string(257, 'x'), std::string(257, 'x') + ".kls"},
        {std::string(300, 'x'), std::string(260, 'x') + ".kls"},
    };
    for (const auto& [name, file] : cases) EXPECT_EQ(store.validFilename(name), file) << name;
}

TEST_F(Store, DigitsEatIntoTheExtension) {
    const auto nameOf = [&](int count) {
        PropertySetStore many("/s", disk);
        for (int i = 0; i < count; ++i) many.insert(scheme("my", 1));
        return many.validFilename("my");
    };
    EXPECT_EQ(nameOf(1), "my.kl1");
    EXPECT_EQ(nameOf(9), "my.kl9");
    EXPECT_EQ(nameOf(10), "my.k10");
    EXPECT_EQ(nameOf(100), "my.100");
    EXPECT_EQ(nameOf(1000), "my1000");
}

} // namespace
