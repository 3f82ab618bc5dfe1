#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";

TEST(Name, IsNoCommandToATerminal) {
    const TempFolder folder;
    const std::string evil = "a\x1b[31m\n\xc2\x9b" "\x9b.c";
    folder.write(evil, kUntidy);
    std::filesystem::create_directory(folder / "d\x1b[2J");
    const Surroundings here = {.folder = folder / ""};
    const auto isPlain = [](const std::string& text) {
        return std::none_of(text.begin(), text.end(),
                            [](char c) { return c != '\n' && static_cast<unsigned char>(c) < 0x20; }) &&
               text.find('\x9b') == std::string::npos;
    };
    for (const Words& words : {Words{"--check", evil}, Words{"-v", "--check", "."}, Words{"which", evil},
                               Words{"--message-format=json", "-v", "--check", evil}, Words{"--schem\x1b"},
                               Words{"--scheme", "x\x1b", evil}, Words{"which", "-\x1b"}, Words{"--color=\x1b"}}) {
        const Finished finished = run(words, here);
        EXPECT_TRUE(isPlain(finished.out) || words[0] == "--message-format=json") << finished.out;
        EXPECT_TRUE(isPlain(finished.err) || words[0] == "--message-format=json") << finished.err;
        EXPECT_EQ((finished.out + finished.err).find('\x1b'), std::string::npos) << words[0];
    }
    EXPECT_EQ(run({"--check", evil}, here).out, "a\\x1b[31m\\n\\xc2\\x9b\\x9b.c\n");
    EXPECT_EQ(run({"--check", "\xc3\xa4\xff.c"}, here).err.rfind("\xc3\xa4\xff.c: error: ", 0), 0u);
    EXPECT_EQ(runOnTerminal({"-i", "d\x1b[2J"}, "continue?", "n\n", here).out.find("d\x1b[2J"), std::string::npos);
}

/// A process of root becomes one of a user who owns `folder`.
constexpr ::uid_t kUser = 65534;

void giveToUser(const TempFolder& folder, const std::string& name, ::mode_t mode) {
    ASSERT_EQ(::chown((folder / "").c_str(), kUser, kUser), 0);
    ASSERT_EQ(::chown((folder / name).c_str(), kUser, kUser), 0);
    ASSERT_EQ(::chmod((folder / name).c_str(), mode), 0);
}

TEST(InPlace, DoesForRootWhatItDoesForTheOwner) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs root to be two users";
    const std::pair<::mode_t, bool> modes[] = {{0644, true},  {0600, true},  {0444, false}, {0400, false},
                                               {0466, false}, {0244, false}, {0200, false}, {0000, false}};
    for (const auto& [mode, isWritten] : modes) {
        for (const bool isRoot : {true, false}) {
            const TempFolder folder;
            folder.write("a.c", kUntidy);
            giveToUser(folder, "a.c", mode);
            const auto become = [isRoot] {
                if (!isRoot && (::setgid(kUser) != 0 || ::setuid(kUser) != 0)) ::_exit(124);
            };
            const Finished finished =
                run({"-i", "--scheme", "knr", "a.c"}, {.folder = folder / "", .prepare = become});
            EXPECT_EQ(folder.read("a.c") != kUntidy, isWritten) << std::oct << mode << ' ' << isRoot;
            EXPECT_EQ(finished.status, isWritten ? 0 : 3) << finished.err;
        }
    }
}

TEST(InPlace, WritesNothingWhereTheSchemeIsInDoubt) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", kUntidy);
    const Surroundings here = {.folder = folder / "", .environment = {"XDG_CONFIG_HOME=" + (folder / "")}};
    std::filesystem::create_directory(folder / "kerfline");
    folder.write("kerfline/settings", "[Options]\nOnFormat=Gone\n");
    for (const Words& words : {Words{"-i", "a.c"}, Words{"--check", "a.c"}, Words{"which", "a.c"}}) {
        const Finished finished = run(words, here);
        EXPECT_EQ(finished.status, 2);
        EXPECT_NE(finished.err.find("OnFormat names the scheme \"Gone\", which is not there"), std::string::npos)
            << finished.err;
        EXPECT_EQ(finished.out, "");
    }
    // A scheme that is chosen otherwise is in no doubt.
    EXPECT_EQ(run({"--check", "--scheme", "knr", "a.c"}, here).status, 1);
    folder.write("kerfline/settings", "");
    std::filesystem::create_symlink("gone.kls", folder / ".kerfline.kls");
    for (const Words& words : {Words{"-i", "a.c"}, Words{"which", "a.c"}}) {
        const Finished finished = run(words, here);
        EXPECT_EQ(finished.status, 2);
        EXPECT_NE(finished.err.find(".kerfline.kls: error: the link leads nowhere\n"), std::string::npos) << finished.err;
    }
    EXPECT_EQ(folder.read("a.c"), kUntidy);
}

TEST(InPlace, WritesNothingBelowAnIgnoreFileThatCannotBeRead) {
    const TempFolder folder;
    for (const char* name : {"x/y", "z"}) std::filesystem::create_directories(folder / name);
    for (const char* name : {"x/a.c", "x/y/b.c", "z/c.c"}) folder.write(name, kUntidy);
    folder.write("x/y/.kerflineignore", "!b.c\n");
    std::filesystem::create_symlink("gone", folder / "x/.kerflineignore");
    const Finished finished = run({"-i", "-y", "--scheme", "knr", ".", "x/a.c", "x/y/b.c"}, {.folder = folder / ""});
    EXPECT_EQ(finished.status, 3);
    EXPECT_NE(finished.err.find("x/.kerflineignore: error: the link leads nowhere; "), std::string::npos) << finished.err;
    EXPECT_EQ(std::count(finished.err.begin(), finished.err.end(), '\n'), 1) << finished.err;
    EXPECT_EQ(folder.read("x/a.c"), kUntidy);
    EXPECT_EQ(folder.read("x/y/b.c"), kUntidy);
    EXPECT_NE(folder.read("z/c.c"), kUntidy);
}

} // namespace
