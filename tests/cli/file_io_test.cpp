#include "cli/Cli_FileIo.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

TEST(ReadSource, StopsAtItsLimitAndLeavesTheRest) {
    std::istringstream in("abcdef");
    const Cli::ReadResult read = Cli::readSource(in, 4);
    EXPECT_FALSE(read.complete);
    EXPECT_EQ(read.bytes, "abcd");
    std::string rest;
    in >> rest;
    EXPECT_EQ(rest, "ef");
}

TEST(ReadSource, ReadsASourceThatFillsTheLimit) {
    std::istringstream in("abcd");
    const Cli::ReadResult read = Cli::readSource(in, 4);
    EXPECT_TRUE(read.complete);
    EXPECT_EQ(read.bytes, "abcd");
}

TEST(ReadSource, ReadsMoreThanOneBufferful) {
    const std::string bytes(1000003, 'x');
    std::istringstream in(bytes);
    EXPECT_EQ(Cli::readSource(in).bytes, bytes);
}

TEST(OpenFile, NamesTheReason) {
    const TempFolder folder;
    const auto reasonFor = [](const std::string& path) {
        try {
            Cli::openFile(path);
        } catch (const std::system_error& error) {
            return error.code().message();
        }
        return std::string("opened");
    };
    EXPECT_EQ(reasonFor(folder / "missing"), "No such file or directory");
    EXPECT_EQ(reasonFor(folder / ""), "Is a directory");
}

TEST(ReplaceFile, KeepsModeAndLeavesNothingBehind) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", "old");
    ::chmod(path.c_str(), 0750);
    Cli::replaceFile(path, "new text");
    EXPECT_EQ(folder.read("a.c"), "new text");
    EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0750));
    EXPECT_EQ(folder.fileCount(), 1u);
}

TEST(ReplaceFile, WritesThroughLinks) {
    const TempFolder folder;
    folder.write("a.c", "old");
    fs::create_symlink("a.c", folder / "soft.c");
    Cli::replaceFile(folder / "soft.c", "by soft link");
    EXPECT_TRUE(fs::is_symlink(folder / "soft.c"));
    EXPECT_EQ(folder.read("a.c"), "by soft link");
    fs::create_hard_link(folder / "a.c", folder / "hard.c");
    Cli::replaceFile(folder / "hard.c", "by hard link");
    EXPECT_EQ(folder.read("a.c"), "by hard link");
}

TEST(ReplaceFile, RefusesAFileThatMayNotBeWritten) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may write everything";
    const TempFolder folder;
    const std::string path = folder.write("a.c", "old");
    ::chmod(path.c_str(), 0440);
    EXPECT_THROW(Cli::replaceFile(path, "new"), std::system_error);
    EXPECT_EQ(folder.read("a.c"), "old");
}

TEST(ReplaceFile, RefusesAMissingFile) {
    const TempFolder folder;
    EXPECT_THROW(Cli::replaceFile(folder / "missing", "new"), std::system_error);
    EXPECT_EQ(folder.fileCount(), 0u);
}

} // namespace
