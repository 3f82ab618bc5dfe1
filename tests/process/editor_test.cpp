#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace {

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";
constexpr const char* kTidy = "void f()\n{\nif (a)b();\n}\n";
constexpr const char* kBroken = "void f() { if (a }\n";

/// The first block of `language` in the recipes: what people copy is what is tried here.
std::string recipe(const std::string& language) {
    std::ifstream in(KERFLINE_DOCS "/recipes.md");
    std::string text;
    bool isInside = false;
    for (std::string line; std::getline(in, line);) {
        if (isInside && line == "```") break;
        if (isInside) text += line + '\n';
        isInside = isInside || line == "```" + language;
    }
    return text;
}

struct Editor {
    const char* name;
    const char* program;
    /// What has to be there for the recipe, as a command of the shell.
    const char* test;
    const char* language;
    /// Opens a.c, lays it out by the recipe, and saves it.
    Words arguments;
    bool showsMessages = true;
};

constexpr const char* kShowList = "call writefile(map(getqflist(), 'v:val.text'), 'messages')";

const Editor kEditors[] = {
    {"Vim", "vim", "vim --version | grep -q +eval", "vim",
     {"-Nu", "recipe", "-es", "-c", "edit a.c", "-c", "Kerfline", "-c", kShowList, "-c", "silent! wq", "-c", "cquit"}},
    {"VimOperator", "vim", "vim --version | grep -q +eval", "vim",
     {"-Nu", "recipe", "-es", "-c", "edit a.c", "-c", "normal gggqG", "-c", "silent! wq", "-c", "cquit"}, false},
    {"Neovim", "nvim", "command -v nvim", "vim",
     {"--headless", "-u", "recipe", "-i", "NONE", "-c", "edit a.c", "-c", "Kerfline", "-c", kShowList, "-c", "silent! wq", "-c", "cquit"}},
    {"Emacs", "emacs", "command -v emacs", "elisp",
     {"-Q", "--batch", "-l", "recipe", "a.c", "--eval", "(ignore-errors (kerfline-buffer))", "--eval",
      "(save-buffer)"}},
};

class EditorRecipe : public testing::TestWithParam<Editor> {
protected:
    void SetUp() override {
        if (Process({"sh", "-c", GetParam().test}).finish().status != 0) {
            GTEST_SKIP() << GetParam().program << " is not installed";
        }
        ASSERT_NE(recipe(GetParam().language), "");
        folder.write("recipe", recipe(GetParam().language));
        setScheme("3 WS_AFTER_CS_KEY \" \"\n");
        const std::string own = std::filesystem::path(KERFLINE_PROGRAM).parent_path().string();
        path = own + ':' + std::getenv("PATH");
    }
    void setScheme(const std::string& options) const {
        folder.write(".kerfline.kls", "Norvane::PropertySet\n1\n\"x\"\n" + options);
    }
    /// The text as it was saved. What the editor told stands in `told` then.
    std::string edited(const std::string& text) {
        folder.write("a.c", text);
        Words words = {GetParam().program};
        words.insert(words.end(), GetParam().arguments.begin(), GetParam().arguments.end());
        const Finished finished =
            Process(words, {.folder = folder / "",
                            .environment = {"PATH=" + path, "HOME=" + (folder / ""), "TERM=dumb"}})
                .finishWithin(std::chrono::seconds(60));
        EXPECT_EQ(finished.status, 0) << finished.out << finished.err;
        told = folder.read("messages") + finished.err;
        return folder.read("a.c");
    }

    TempFolder folder;
    std::string path;
    std::string told;
};

TEST_P(EditorRecipe, LaysOutTheBuffer) {
    EXPECT_EQ(edited(kUntidy), kTidy);
    EXPECT_EQ(edited(kTidy), kTidy);
}

TEST_P(EditorRecipe, LeavesTheBufferAloneWhateverFails) {
    EXPECT_EQ(edited(kBroken), kBroken);
    setScheme("2 TAB_SIZ 3\n");
    EXPECT_EQ(edited(kUntidy), kUntidy);
    EXPECT_EQ(told.find("TAB_SIZ") != std::string::npos, GetParam().showsMessages) << told;
    std::filesystem::remove(folder / ".kerfline.kls");
    std::filesystem::create_symlink("gone.kls", folder / ".kerfline.kls");
    EXPECT_EQ(edited(kUntidy), kUntidy);
}

TEST_P(EditorRecipe, LeavesTheBufferAloneIfTheProgramIsMissing) {
    if (GetParam().name == std::string("VimOperator")) GTEST_SKIP() << "Vim itself takes what the shell gives";
    std::filesystem::create_directory(folder / "bin");
    for (const char* name : {GetParam().program, "sh", "cat", "env"}) {
        const std::string found = Process({"sh", "-c", std::string("command -v ") + name}).finish().out;
        std::filesystem::create_symlink(found.substr(0, found.find('\n')), folder / "bin/" + name);
    }
    path = folder / "bin";
    EXPECT_EQ(edited(kUntidy), kUntidy);
}

INSTANTIATE_TEST_SUITE_P(Process, EditorRecipe, testing::ValuesIn(kEditors),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
