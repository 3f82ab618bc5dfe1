#include "files/NorvaneUI_DiskFileSystem.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <thread>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace {

namespace fs = std::filesystem;
using NorvaneUI::FailureKind;
using NorvaneUI::FileKind;
using NorvaneUI::FileStatus;

class Disk : public testing::Test {
protected:
    FileStatus statusOf(const std::string& path) { return *disk.status(path); }
    std::optional<FailureKind> replace(const std::string& path, const std::string& bytes) {
        const auto done = disk.replace(path, bytes, statusOf(path));
        return done.isDone() ? std::nullopt : std::optional(done.failure().kind);
    }

    TempFolder folder;
    NorvaneUI::DiskFileSystem disk;
};

/// Lets this process be somebody who may not do everything, as long as it stands.
class AsNobody {
public:
    AsNobody() { done_ = ::geteuid() != 0 || ::seteuid(65534) == 0; }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody() {
        if (::getuid() == 0 && ::seteuid(0) != 0) std::abort();
    }
    bool done() const { return done_; }

private:
    bool done_;
};

TEST_F(Disk, TellsWhatAPathIs) {
    folder.write("a.c", "abc");
    fs::create_symlink("a.c", folder / "link.c");
    fs::create_symlink("nowhere", folder / "dangling.c");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(statusOf(folder / "a.c").kind, FileKind::regular);
    EXPECT_EQ(statusOf(folder / "a.c").size, 3u);
    EXPECT_TRUE(statusOf(folder / "a.c").isSameFile(statusOf(folder / "link.c")));
    EXPECT_EQ(statusOf(folder / "dangling.c").kind, FileKind::missing);
    EXPECT_TRUE(statusOf(folder / "dangling.c").leadsNowhere);
    EXPECT_FALSE(statusOf(folder / "missing.c").leadsNowhere);
    fs::create_symlink("loop.c", folder / "loop.c");
    EXPECT_EQ(statusOf(folder / "loop.c").kind, FileKind::missing);
    EXPECT_EQ(statusOf(folder / "a.c/b").kind, FileKind::missing);
    EXPECT_EQ(statusOf(folder / "").kind, FileKind::folder);
    EXPECT_EQ(statusOf(folder / "pipe").kind, FileKind::other);
    EXPECT_EQ(disk.status(std::string(5000, 'x')).failure().kind, FailureKind::other);
}

TEST_F(Disk, ModeCountsForRootToo) {
    const std::string path = folder.write("a.c", "abc");
    const std::pair<mode_t, const char*> modes[] = {{0644, "rw"}, {0444, "r-"}, {0466, "r-"}, {0244, "-w"}, {0200, "-w"}, {0000, "--"}};
    for (const auto& [mode, expected] : modes) {
        ::chmod(path.c_str(), mode);
        const FileStatus status = statusOf(path);
        EXPECT_EQ(std::string(status.readable ? "r" : "-") + (status.writable ? "w" : "-"), expected) << mode;
    }
}

TEST_F(Disk, AsksForTheUserWhoRuns) {
    const std::string path = folder.write("a.c", "abc");
    ::chmod((folder / "").c_str(), 0755);
    const AsNobody nobody;
    if (!nobody.done() || ::getuid() != 0) GTEST_SKIP() << "needs root to change the user";
    EXPECT_TRUE(statusOf(path).readable);
    EXPECT_FALSE(statusOf(path).writable);
    EXPECT_EQ(disk.create(folder / "b.c", "x").failure().kind, FailureKind::denied);
    EXPECT_EQ(disk.remove(path).failure().kind, FailureKind::denied);
}

TEST_F(Disk, ReadsRegularFilesOnly) {
    const std::string bytes = std::string("a\0\r\n", 4) + std::string(100000, 'x');
    folder.write("a.c", bytes);
    folder.write("empty.c", "");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(*disk.read(folder / "a.c"), bytes);
    EXPECT_EQ(*disk.read(folder / "empty.c"), "");
    EXPECT_FALSE(disk.read(folder / "pipe"));
    EXPECT_FALSE(disk.read(folder / ""));
    EXPECT_EQ(disk.read(folder / "missing").failure().kind, FailureKind::missing);
}

TEST_F(Disk, ListsNames) {
    folder.write("a.c", "");
    folder.write(".b", "");
    auto names = *disk.list(folder / "");
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{".b", "a.c"}));
    EXPECT_EQ(disk.list(folder / "missing").failure().kind, FailureKind::missing);
}

TEST_F(Disk, CreatesOnlyWhatIsNotThere) {
    EXPECT_TRUE(disk.create(folder / "new.c", "text").isDone());
    EXPECT_EQ(folder.read("new.c"), "text");
    EXPECT_EQ(disk.create(folder / "new.c", "other").failure().kind, FailureKind::exists);
    fs::create_symlink("nowhere", folder / "dangling.c");
    EXPECT_EQ(disk.create(folder / "dangling.c", "other").failure().kind, FailureKind::exists);
    EXPECT_EQ(disk.create(folder / "missing/new.c", "other").failure().kind, FailureKind::missing);
    EXPECT_EQ(folder.read("new.c"), "text");
    EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(Disk, NewFileFollowsTheMask) {
    const mode_t old = ::umask(027);
    EXPECT_TRUE(disk.create(folder / "new.c", "text").isDone());
    ::umask(old);
    EXPECT_EQ(statusOf(folder / "new.c").mode, 0640u);
}

TEST_F(Disk, ReplacingKeepsModeAndOwnerAndLeavesNothingBehind) {
    const std::string path = folder.write("a.c", "old");
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(path.c_str(), 12345, 23456), 0);
    }
    ::chmod(path.c_str(), 04750);
    struct stat before {};
    ASSERT_EQ(::stat(path.c_str(), &before), 0);
    EXPECT_EQ(replace(path, "new text"), std::nullopt);
    struct stat after {};
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(folder.read("a.c"), "new text");
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_NE(after.st_ino, before.st_ino);
    EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(Disk, ReplacesWhatALinkLeadsTo) {
    fs::create_directory(folder / "real");
    folder.write("real/a.c", "old");
    fs::create_symlink("real/a.c", folder / "soft.c");
    EXPECT_EQ(replace(folder / "soft.c", "new"), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(folder / "soft.c"));
    EXPECT_EQ(folder.read("real/a.c"), "new");
    EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(Disk, ReplacesUnderAllNamesOfAFile) {
    folder.write("a.c", "a long old text");
    fs::create_hard_link(folder / "a.c", folder / "b.c");
    EXPECT_EQ(replace(folder / "a.c", "new"), std::nullopt);
    EXPECT_EQ(folder.read("b.c"), "new");
    EXPECT_EQ(statusOf(folder / "a.c").links, 2u);
    EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(Disk, FileOfSomebodyElseStaysTheirs) {
    const std::string path = folder.write("a.c", "old");
    ::chmod((folder / "").c_str(), 0777);
    ::chmod(path.c_str(), 0666);
    {
        const AsNobody nobody;
        if (!nobody.done() || ::getuid() != 0) GTEST_SKIP() << "needs root to change the user";
        EXPECT_EQ(replace(path, "new"), std::nullopt);
    }
    struct stat after {};
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(after.st_uid, 0u);
    EXPECT_EQ(folder.read("a.c"), "new");
    EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(Disk, RefusesToReplaceWhatItShouldNot) {
    const std::string path = folder.write("a.c", "old");
    const FileStatus seen = statusOf(path);
    folder.write("a.c", "somebody's newer text");
    EXPECT_EQ(disk.replace(path, "new", seen).failure().kind, FailureKind::changed);
    ::chmod(path.c_str(), 0444);
    EXPECT_EQ(replace(path, "new"), FailureKind::denied);
    EXPECT_EQ(folder.read("a.c"), "somebody's newer text");
    fs::remove(path);
    EXPECT_EQ(disk.replace(path, "new", seen).failure().kind, FailureKind::missing);
    EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(Disk, CopyKeepsModeAndTimes) {
    const std::string from = folder.write("a.c", "text");
    ::chmod(from.c_str(), 0750);
    const struct timespec times[2] = {{1000, 5}, {2000, 7}};
    ASSERT_EQ(::utimensat(AT_FDCWD, from.c_str(), times, 0), 0);
    EXPECT_TRUE(disk.copy(from, folder / "a.c.bak").isDone());
    const FileStatus copy = statusOf(folder / "a.c.bak");
    EXPECT_EQ(folder.read("a.c.bak"), "text");
    EXPECT_EQ(copy.mode, 0750u);
    EXPECT_EQ(copy.changed, 2000000000007);
    EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(Disk, CopyReplacesALinkAndNotWhatItLeadsTo) {
    folder.write("a.c", "text");
    folder.write("precious", "keep");
    fs::create_symlink("precious", folder / "a.c.bak");
    EXPECT_TRUE(disk.copy(folder / "a.c", folder / "a.c.bak").isDone());
    EXPECT_EQ(folder.read("precious"), "keep");
    EXPECT_FALSE(fs::is_symlink(folder / "a.c.bak"));
    ::chmod((folder / "a.c.bak").c_str(), 0444);
    folder.write("a.c", "newer");
    EXPECT_TRUE(disk.copy(folder / "a.c", folder / "a.c.bak").isDone());
    EXPECT_EQ(folder.read("a.c.bak"), "newer");
}

TEST_F(Disk, FailedCopyLeavesNothingBehind) {
    folder.write("a.c", "text");
    fs::create_directory(folder / "a.c.bak");
    EXPECT_FALSE(disk.copy(folder / "a.c", folder / "a.c.bak").isDone());
    EXPECT_FALSE(disk.copy(folder / "a.c", folder / std::string(300, 'x')).isDone());
    EXPECT_FALSE(disk.copy(folder / "missing", folder / "b.c").isDone());
    EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(Disk, RemovesALinkAlone) {
    folder.write("a.c", "text");
    fs::create_symlink("a.c", folder / "link.c");
    EXPECT_TRUE(disk.remove(folder / "link.c").isDone());
    EXPECT_EQ(folder.read("a.c"), "text");
    EXPECT_EQ(disk.remove(folder / "link.c").failure().kind, FailureKind::missing);
}

TEST_F(Disk, MakesFolders) {
    EXPECT_TRUE(disk.makeFolders(folder / "a/b/").isDone());
    EXPECT_TRUE(disk.makeFolders(folder / "a/b").isDone());
    EXPECT_TRUE(fs::is_directory(folder / "a/b"));
    folder.write("file", "");
    EXPECT_FALSE(disk.makeFolders(folder / "file/b").isDone());
}

/// A disk of its own, so small that the second text does not fit.
class SmallDisk {
public:
    explicit SmallDisk(std::string path) : path_(std::move(path)) {
        fs::create_directory(path_);
        mounted_ = ::mount("none", path_.c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        if (mounted_) ::umount2(path_.c_str(), MNT_DETACH);
    }
    bool mounted() const { return mounted_; }

private:
    std::string path_;
    bool mounted_;
};

TEST_F(Disk, FullDiskLeavesEveryFileWhole) {
    const SmallDisk small(folder / "small");
    if (!small.mounted()) GTEST_SKIP() << "needs root to make a small disk";
    const std::string old(20000, 'o');
    const std::string tooLong(100000, 'n');
    const std::string path = folder.write("small/a.c", old);
    EXPECT_EQ(replace(path, tooLong), FailureKind::full);
    EXPECT_EQ(folder.read("small/a.c"), old);
    fs::create_hard_link(path, folder / "small/b.c");
    EXPECT_EQ(replace(path, tooLong), FailureKind::full);
    EXPECT_EQ(folder.read("small/b.c"), old);
    EXPECT_EQ(disk.create(folder / "small/c.c", tooLong).failure().kind, FailureKind::full);
    folder.write("big.c", tooLong);
    EXPECT_EQ(disk.copy(folder / "big.c", folder / "small/d.c").failure().kind, FailureKind::full);
    const auto entries = *disk.list(folder / "small");
    EXPECT_EQ(entries.size(), 2u);
}

TEST_F(Disk, WriterThatIsKilledLeavesOldOrNewText) {
    const std::string oldText(300000, 'o');
    const std::string newText(400000, 'n');
    for (int delay = 0; delay < 100; ++delay) {
        const std::string path = folder.write("a.c", oldText);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            NorvaneUI::DiskFileSystem files;
            for (int i = 0; i < 1000; ++i) {
                if (const auto seen = files.status(path)) files.replace(path, newText, *seen);
            }
            ::_exit(0);
        }
        ::usleep(static_cast<useconds_t>(delay) * 61);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const std::string found = folder.read("a.c");
        ASSERT_TRUE(found == oldText || found == newText) << found.size();
    }
}

TEST_F(Disk, TwoWritersAtOnceLeaveOneText) {
    const std::string path = folder.write("a.c", "old");
    const auto write = [&](char letter) {
        NorvaneUI::DiskFileSystem files;
        for (int i = 0; i < 50; ++i) files.replace(path, std::string(50000, letter), *files.status(path));
    };
    std::thread one(write, 'a');
    std::thread two(write, 'b');
    one.join();
    two.join();
    const std::string found = folder.read("a.c");
    EXPECT_EQ(found.size(), 50000u);
    EXPECT_EQ(found.find_first_not_of(found[0]), std::string::npos);
    EXPECT_EQ(folder.fileCount(), 1u);
}

} // namespace
