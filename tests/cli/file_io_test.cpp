#include "cli/files/Cli_FileIo.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

namespace {

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

} // namespace
