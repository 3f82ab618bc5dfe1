#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/resource.h>

namespace {

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";

struct FailingFilter {
    const char* name;
    Words arguments;
    int status = 2;
    const char* input = kUntidy;
};

const FailingFilter kFailing[] = {
    {"UnknownScheme", {"--scheme", "knrr"}},
    {"SchemeThatIsMissing", {"--scheme", "./none.kls"}},
    {"SchemeThatIsAFolder", {"--scheme", "./folder"}},
    {"SchemeThatIsBroken", {"--stdin-filename", "broken/a.c"}},
    {"SchemeLinkThatLeadsNowhere", {"--stdin-filename", "nowhere/a.c"}},
    {"SchemeThatIsAPipe", {"--stdin-filename", "pipe/a.c"}},
    {"SettingWithoutItsScheme", {}},
    {"UnreadableIgnoreFile", {"--scheme", "none", "--stdin-filename", "unreadable/a.c"}, 3},
    {"OptionWithAWrongValue", {"--set", "TAB_SIZE=x"}},
    {"OptionThatIsUnknown", {"--unset", "TAB_SIZ"}},
    {"SwitchThatIsUnknown", {"--chekc"}},
    {"SwitchThatIsUnknownWithAValue", {"--schme", "gnu"}},
    {"SwitchWithoutItsValue", {"-q", "--scheme"}},
    {"SwitchWithAWrongValue", {"--color=red", "-"}},
    {"SwitchesThatContradict", {"-q", "-v", "-j", "2"}},
    {"WritingBackToInput", {"-i"}},
    {"NoSource", {"--strict", "--scheme", "none"}, 4, "void f() { if (a }\n"},
    {"WideText", {"--scheme", "none"}, 4, "\xff\xfei"},
};

class Filter : public testing::TestWithParam<FailingFilter> {
protected:
    Filter() {
        for (const char* name : {"folder", "broken", "nowhere", "pipe", "unreadable/.kerflineignore", "kerfline"}) {
            std::filesystem::create_directories(folder / name);
        }
        folder.write("broken/.kerfline.kls", "Norvane::PropertySet\n1\n\"x\"\n2 TAB_SIZ 3\n");
        std::filesystem::create_symlink("gone.kls", folder / "nowhere/.kerfline.kls");
        EXPECT_EQ(Process({"mkfifo", folder / "pipe/.kerfline.kls"}).finish().status, 0);
        folder.write("kerfline/settings", "[Options]\nOnFormat=Gone\n");
    }

    TempFolder folder;
};

TEST_P(Filter, GivesItsInputBackWhateverFails) {
    const Finished finished =
        run(GetParam().arguments, {.folder = folder / "",
                                   .input = GetParam().input,
                                   .environment = {"XDG_CONFIG_HOME=" + (folder / "")}});
    EXPECT_EQ(finished.out, GetParam().input);
    EXPECT_EQ(finished.status, GetParam().status) << finished.err;
    EXPECT_NE(finished.err, "");
}

INSTANTIATE_TEST_SUITE_P(Process, Filter, testing::ValuesIn(kFailing),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Filter, GivesNothingWhereFilesAreNamed) {
    for (const Words& words : {Words{"--chekc", "/dev/null"}, Words{"--scheme", "knrr", "/dev/null"}, Words{"--check", "-q", "-v"}}) {
        EXPECT_EQ(run(words, {.input = kUntidy}).out, "");
    }
}

#ifndef __SANITIZE_ADDRESS__
TEST(Filter, GivesItsInputBackWithoutMemory) {
    // Too much to be read, and little enough to be read but not to be laid out.
    for (const std::size_t lines : {9000000, 1000000}) {
        std::string input;
        for (std::size_t i = 0; i < lines; ++i) input += "int a;\n";
        const auto limit = [] {
            constexpr rlim_t bytes = 60 << 20;
            const rlimit most = {bytes, bytes};
            ::setrlimit(RLIMIT_AS, &most);
        };
        const Finished finished = run({"--scheme", "knr"}, {.input = input, .prepare = limit});
        EXPECT_EQ(finished.status, 3) << finished.signal << finished.err;
        EXPECT_TRUE(finished.out == input) << lines << ' ' << finished.out.size();
        EXPECT_NE(finished.err.find("memory"), std::string::npos) << finished.err;
    }
}
#endif

} // namespace
