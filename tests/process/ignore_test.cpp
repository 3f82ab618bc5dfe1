#include "cli/files/Cli_IgnoreRules.h"
#include "files/NorvaneUI_DiskFileSystem.h"
#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace {

/// Patterns and paths from a small alphabet, so that many of them meet.
class Inventor {
public:
    explicit Inventor(unsigned seed) : random_(seed) {}

    std::string ignoreFile() {
        std::string text;
        for (unsigned line = pick(5); line > 0; --line) text += pattern() + '\n';
        return text;
    }

private:
    unsigned pick(unsigned below) { return std::uniform_int_distribution<unsigned>(0, below - 1)(random_); }

    std::string pattern() {
        static const char* const parts[] = {"a",  "b",    "*",    "?",   "**",   "/",      "/",  "a*",  "*.c",
                                            "**/", "/**", "[ab]", "[!a]", "\\a", "[a-b]x", "x",  "***", "/a/",
                                            "#",  "\\!",  "[]a]", "ab",   " ",   "[[:alpha:]]", "*a*b", "\\"};
        std::string text = pick(4) == 0 ? "!" : "";
        for (unsigned left = pick(4) + 1; left > 0; --left) text += parts[pick(std::size(parts))];
        return pick(5) == 0 ? text + '/' : text;
    }

    std::mt19937 random_;
};

TEST(IgnoreRules, AgreeWithThoseOfGit) {
    if (!isInstalled("git")) GTEST_SKIP() << "git is not installed";
    const TempFolder folder;
    const std::string root = std::filesystem::canonical(folder / "").string();
    const Surroundings here = {.folder = root};
    ASSERT_EQ(Process({"git", "init", "-q", "."}, here).finish().status, 0);
    const std::vector<std::string> paths = {
        "a",     "b",    "ab",   "x",         "a.c", "a/a",    "a/b",     "a/x.c",   "a/b/a", "a/b/x", "b/a",
        "b/a/b", "b/ax", "ab/a", "x/a/b/c.c", "b/x", "a/ab/b", "a/a/a/b", "b/b/b.c", "b/#",   "x/!"};
    // A name can be a folder or a file, not both: files get an ending of their own.
    std::string list;
    std::vector<std::string> files;
    for (const std::string& path : paths) {
        const std::filesystem::path file = root + "/" + path + "x";
        std::filesystem::create_directories(file.parent_path());
        if (!std::filesystem::is_directory(file)) folder.write(path + "x", "");
        files.push_back(path + "x");
        list += path + "x\n";
    }
    for (unsigned seed = 0; seed < 150; ++seed) {
        Inventor inventor(seed);
        for (const char* place : {".", "a", "b"}) {
            const std::string text = inventor.ignoreFile();
            folder.write(std::string(place) + "/.gitignore", text);
            folder.write(std::string(place) + "/.kerflineignore", text);
        }
        Surroundings asking = here;
        asking.input = list;
        const Finished git = Process({"git", "check-ignore", "--no-index", "--stdin"}, asking).finish();
        std::string ours;
        NorvaneUI::DiskFileSystem disk;
        Cli::Report report;
        Cli::IgnoreRules rules(disk, report);
        for (const std::string& file : files) {
            if (rules.reasonFor(root + '/' + file, false)) ours += file + '\n';
        }
        // Git quotes names that hold special characters; there are none among these.
        EXPECT_EQ(ours, git.out) << folder.read(".gitignore") << "--- a\n"
                                 << folder.read("a/.gitignore") << "--- b\n" << folder.read("b/.gitignore");
        if (HasFailure()) return;
    }
}

} // namespace
