#include "cli/files/Cli_FileCollector.h"
#include "files/NorvaneUI_DiskFileSystem.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <sstream>

#include <unistd.h>

namespace {

class Collector : public testing::Test {
protected:
    Collector() {
        options.destination = Cli::Destination::checkOnly;
        for (const char* path : {"x/y", ".git", "x/.hidden", "CVS", "out"})
            std::filesystem::create_directories(folder / path);
        for (const char* path : {"b.c", "a.h", "notes.txt", "x/c.CPP", "x/y/d.cc", ".git/e.c",
                                 "x/.hidden/f.c", "CVS/g.c", "out/h.c", "Makefile"}) {
            folder.write(path, "int a;\n");
        }
    }

    /// Paths from the folder of the test on, in their order; "!" is in front of those left alone.
    std::string collect(std::vector<std::string> words, const std::string& input = "") {
        options.files = std::move(words);
        std::istringstream in(input);
        Cli::IgnoreRules ignored(disk, report);
        Cli::FileCollector collector(options, settings, disk, ignored, in, report);
        std::string text;
        for (const Cli::WorkItem& item : collector.collect()) {
            const std::string start = folder / "";
            const bool isInside = item.path.starts_with(start);
            text +=
                (item.ignoredBy ? "!" : "") + (isInside ? item.path.substr(start.size()) : item.path) + ' ';
        }
        return text;
    }
    std::string messages() {
        std::ostringstream out;
        report.flush(out);
        return out.str();
    }

    TempFolder folder;
    Cli::Options options;
    Addin::AddInOptions settings;
    NorvaneUI::DiskFileSystem disk;
    Cli::Report report;
};

TEST_F(Collector, TakesTheSourcesOfAFolderByName) {
    EXPECT_EQ(collect({folder / ""}), "a.h b.c out/h.c x/c.CPP x/y/d.cc ");
}

TEST_F(Collector, TakesANamedFileWhateverItIsCalled) {
    EXPECT_EQ(collect({folder / "notes.txt", folder / "missing", "-"}), "notes.txt missing <stdin> ");
}

TEST_F(Collector, TakesTheExtensionsOfTheSettings) {
    settings.fileExtensions = "txt;.cpp";
    EXPECT_EQ(collect({folder / ""}), "notes.txt x/c.CPP ");
}

TEST_F(Collector, LeavesIgnoredFilesAlone) {
    folder.write(".kerflineignore", "out/\n*.h\n");
    folder.write("x/.kerflineignore", "d.cc\n!*.h\n");
    folder.write("x/y/i.h", "");
    EXPECT_EQ(collect({folder / ""}), "!a.h b.c x/c.CPP !x/y/d.cc x/y/i.h ");
    EXPECT_EQ(collect({folder / "out/h.c", folder / "out"}), "!out/h.c ");
}

TEST_F(Collector, AppliesIgnoreFilesToANamedInput) {
    folder.write(".kerflineignore", "*.h\n");
    options.inputName = folder / "new.h";
    EXPECT_EQ(collect({"-"}), "!new.h ");
}

TEST_F(Collector, TakesAFileOnce) {
    ASSERT_EQ(::link((folder / "b.c").c_str(), (folder / "b2.c").c_str()), 0);
    ASSERT_EQ(::symlink("b.c", (folder / "b3.c").c_str()), 0);
    EXPECT_EQ(collect({folder / "b.c", folder / "./b.c", folder / "b2.c", folder / "b3.c"}), "b.c ");
    // A result can be wanted twice.
    options.destination = Cli::Destination::standardOutput;
    EXPECT_EQ(collect({folder / "b.c", folder / "b.c"}), "b.c b.c ");
}

TEST_F(Collector, FollowsNoLinkInCirclesOrToNowhere) {
    ASSERT_EQ(::symlink("..", (folder / "x/up").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (folder / "x/gone.c").c_str()), 0);
    EXPECT_EQ(collect({folder / "x"}), "x/c.CPP x/y/d.cc ");
}

TEST_F(Collector, ReadsLists) {
    // What is no source is passed over: a list comes from a program.
    const std::string lines =
        (folder / "b.c") + "\r\n\n" + (folder / "notes.txt") + '\n' + (folder / "x") + '\n';
    EXPECT_EQ(collect({'@' + folder.write("list", lines)}), "b.c x/c.CPP x/y/d.cc ");
    EXPECT_EQ(
        collect({"@-"}, folder / "b.c" + std::string(1, '\0') + (folder / "a.h") + std::string(1, '\0')),
        "b.c a.h ");
    EXPECT_EQ(collect({'@' + (folder / "none")}), "");
    EXPECT_EQ(messages(), (folder / "none") + ": error: No such file or directory\n");
}

TEST_F(Collector, PassesOverBackupsThatLookLikeSources) {
    settings.backupExtension = "c";
    folder.write("b.c.c", "");
    folder.write("z.c.c", "");
    EXPECT_EQ(collect({folder / ""}), "a.h b.c out/h.c x/c.CPP x/y/d.cc z.c.c ");
}

TEST_F(Collector, TakesTheFilesOfAProjectAndTheHeadersBesideThem) {
    folder.write("x/y/k.hpp", "");
    options.project =
        folder.write("compile_commands.json",
                     R"([{"directory":")" + (folder / "x") + R"(","file":"y/d.cc","command":"c++"},)" +
                         R"({"directory":"/","file":")" + (folder / "x/y/../y/d.cc") + R"("}])");
    EXPECT_EQ(collect({}), "x/y/d.cc x/y/k.hpp ");
    options.project = folder / "";
    EXPECT_EQ(collect({}), "x/y/d.cc x/y/k.hpp ");
}

TEST_F(Collector, NamesTheFileThatAFolderShouldHold) {
    options.project = folder / "x";
    collect({});
    EXPECT_EQ(messages(), (folder / "x/compile_commands.json") + ": error: No such file or directory\n");
}

TEST_F(Collector, RefusesWhatIsNoProject) {
    for (const char* text : {"", "{}", "[1]", "[{\"file\":3}]", "[{\"file\":\"a.c\"}"}) {
        SCOPED_TRACE(text);
        report = Cli::Report();
        options.project = folder.write("compile_commands.json", text);
        EXPECT_EQ(collect({}), "");
        EXPECT_EQ(report.status(), Cli::ExitStatus::badUsageOrScheme);
    }
}

} // namespace
