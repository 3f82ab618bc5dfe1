#include "cli/console/Cli_CommandTable.h"
#include "cli/files/Cli_Paths.h"
#include "cli/run/Cli_Commands.h"
#include "cli/scheme/Cli_NearestName.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include <sys/stat.h>

namespace {

using Cli::ExitStatus;

/// Runs commands for a user whose configuration is in a folder of its own.
class Commands : public testing::Test {
protected:
    Commands() { ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1); }
    ~Commands() override { ::setenv("XDG_CONFIG_HOME", "/nonexistent", 1); }

    ExitStatus run(const std::vector<std::string>& words) {
        std::istringstream in;
        std::ostringstream newOut;
        std::ostringstream newErr;
        const ExitStatus status = Cli::runCommandLine(words, {in, newOut, newErr});
        out = newOut.str();
        err = newErr.str();
        return status;
    }

    TempFolder folder;
    std::string out;
    std::string err;
};

TEST_F(Commands, TakeTheSwitchForHelp) {
    for (const Cli::Command& command : Cli::commandTable()) {
        const std::string name(command.name);
        for (const std::vector<std::string>& words :
             {std::vector<std::string>{name, "--help"}, {name, "-h"}, {name, "x", "--help"}}) {
            EXPECT_EQ(run(words), ExitStatus::done) << name << err;
            EXPECT_NE(out.find("kerfline " + name), std::string::npos) << out;
        }
        EXPECT_EQ(run({name, "--nonsense"}), ExitStatus::badUsageOrScheme) << name << out;
    }
}

TEST_F(Commands, WhichFailsOnABrokenScheme) {
    const std::string scheme = folder.write(".kerfline.kls", "Norvane::PropertySet\n1\n\"x\"\n2 TAB_SIZ 3\n");
    EXPECT_EQ(run({"which", folder / "a.c", folder / "b.c"}), ExitStatus::badUsageOrScheme);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err.rfind(scheme + ":4:3: error: ", 0), 0u) << err;
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
}

struct WrongCommand {
    std::vector<std::string> words;
    const char* part;
};

const WrongCommand kWrong[] = {
    {{"shcemes"}, "\"kerfline schemes\""},
    {{"--in-plac", "a.c"}, "\"--in-place\""},
    {{"schemes", "lsit"}, "\"list\""},
    {{"schemes", "show"}, "schemes show NAME"},
    {{"schemes", "show", "gnuu"}, "\"gnu\""},
    {{"schemes", "copy", "gnu", "none"}, "stands for no scheme at all"},
    {{"schemes", "copy", "gnu", "x."}, "not found again"},
    {{"settings", "get", "OnFromat"}, "\"OnFormat\""},
    {{"settings", "set", "OnFormat"}, "settings set NAME VALUE"},
    {{"settings", "set", "OnFormat", "gnuu"}, "\"gnu\""},
    {{"settings", "set", "OnFormat", "none"}, "set it to \"\""},
    {{"settings", "set", "OnFormat", "zzzzzzzzzz"}, "\"kerfline schemes\" lists"},
    {{"settings", "set", "CreateBackups", "yes"}, "0 or 1"},
    {{"settings", "set", "MessagesThreshold", "4"}, "0 to 3"},
    {{"settings", "set", "BackupExtension", "a/b"}, "file extensions"},
    {{"which"}, "which [--scheme NAME] FILE"},
    {{"which", "--scheme", "gnuu", "a.c"}, "\"gnu\""},
    {{"which", "--schem", "gnu", "a.c"}, "no switch \"--schem\""},
    {{"which", "--scheme=", "a.c"}, "needs a name or a file"},
    {{"which", "a.c", "--scheme"}, "needs a name or a file"},
};

TEST_F(Commands, TellInOneLineWhatIsWrong) {
    for (const WrongCommand& row : kWrong) {
        SCOPED_TRACE(row.part);
        EXPECT_EQ(run(row.words), ExitStatus::badUsageOrScheme);
        EXPECT_EQ(out, "");
        EXPECT_NE(err.find(row.part), std::string::npos) << err;
        EXPECT_EQ(err.find('\n'), err.size() - 1) << err;
    }
}

TEST_F(Commands, CopyASchemeIntoTheUsersFolder) {
    ASSERT_EQ(run({"schemes", "copy", "gnu", "My own"}), ExitStatus::done) << err;
    EXPECT_EQ(out, folder / "config/kerfline/schemes/My own.kls\n");
    run({"schemes"});
    EXPECT_EQ(out.rfind("My own  (yours, ", 0), 0u) << out;
    EXPECT_EQ(out.find("not converted"), std::string::npos) << out;
    EXPECT_NE(out.find("linux  (comes with the program)  Linux kernel: tabs of eight, the brace of a function on a line of "
                       "its own, labels of \"case\" under their \"switch\", \"*\" at the name\n"),
              std::string::npos)
        << out;
    run({"schemes", "show", "My own"});
    EXPECT_NE(out.find("\"My own\"\n"), std::string::npos) << out;
    EXPECT_NE(out.find("KERFLINE_VERSION \"1.2.1\""), std::string::npos) << out;
    EXPECT_EQ(run({"schemes", "copy", "gnu", "My own"}), ExitStatus::badUsageOrScheme);
    EXPECT_NE(err.find("already"), std::string::npos) << err;
}

TEST_F(Commands, CopyKeepsTheOtherSchemesOfTheFolder) {
    ASSERT_EQ(run({"schemes", "copy", "gnu", "One"}), ExitStatus::done);
    const std::string commented = "# mine\n" + folder.read("config/kerfline/schemes/One.kls");
    folder.write("config/kerfline/schemes/One.kls", commented);
    ASSERT_EQ(run({"schemes", "copy", "knr", "Two"}), ExitStatus::done);
    EXPECT_EQ(folder.read("config/kerfline/schemes/One.kls"), commented);
    folder.write("config/kerfline/schemes/broken.kls", "no scheme");
    EXPECT_EQ(run({"schemes", "copy", "knr", "Three"}), ExitStatus::done);
    EXPECT_EQ(err, "kerfline: warning: " + (folder / "config/kerfline/schemes/broken.kls") +
                       " is passed over: it is not a scheme\n");
    EXPECT_EQ(run({"schemes", "convert"}), ExitStatus::fileFailed);
    EXPECT_NE(err.find("Kerfline encountered an error while trying to read the scheme file \"" +
                       (folder / "config/kerfline/schemes/broken.kls") + "\"."),
              std::string::npos)
        << err;
}

TEST_F(Commands, FilesWithAByteOrderMarkAreSchemes) {
    std::filesystem::create_directories(folder / "config/kerfline/schemes");
    const std::string marked = "\xef\xbb\xbfNorvane::PropertySet\r\n1\r\n\"Marked\"\r\n2 TAB_SIZE 3\r\n";
    const std::string path = folder.write("config/kerfline/schemes/marked.kls", marked);
    EXPECT_EQ(run({"schemes", "copy", "Marked", "Two"}), ExitStatus::done) << err;
    EXPECT_EQ(run({"schemes", "convert"}), ExitStatus::done) << err;
    EXPECT_EQ(folder.read("config/kerfline/schemes/marked.kls"), marked);
    folder.write("config/kerfline/schemes/marked.kls", marked + "2 SPACES_PER_TAB 5\r\n# end");
    EXPECT_EQ(run({"schemes", "convert"}), ExitStatus::done) << err;
    EXPECT_TRUE(folder.read("config/kerfline/schemes/marked.kls").starts_with("\xef\xbb\xbfNorvane::PropertySet\r\n1\r\n"));
    EXPECT_TRUE(folder.read("config/kerfline/schemes/marked.kls").ends_with("\r\n# end"));
}

TEST_F(Commands, ListTellsWhatIsWrongInAFile) {
    std::filesystem::create_directories(folder / "config/kerfline/schemes");
    const std::string path = folder.write("config/kerfline/schemes/a.kls",
                                          "Norvane::PropertySet\n1\n\"A\"\n2 TAB_SIZE 3\n2 TAB_SIZE 4\n");
    EXPECT_EQ(run({"schemes"}), ExitStatus::done);
    EXPECT_EQ(err, path + ":5:3: warning: TAB_SIZE is given twice: the value of line 4 does not count\n");
}

TEST_F(Commands, ConvertOldSchemes) {
    std::filesystem::create_directories(folder / "config/kerfline/schemes");
    const std::string old = "Norvane::PropertySet\n1\n\"Old\"\n2 SPACES_PER_TAB 3\n";
    const std::string path = folder.write("config/kerfline/schemes/old.kls", old);
    run({"schemes"});
    EXPECT_NE(out.find("not converted"), std::string::npos) << out;
    EXPECT_EQ(run({"schemes", "convert"}), ExitStatus::done);
    EXPECT_EQ(out, "Old: converted; the file as it was is " + path + ".old\n");
    EXPECT_EQ(folder.read("config/kerfline/schemes/old.kls.old"), old);
    EXPECT_NE(folder.read("config/kerfline/schemes/old.kls").find("TAB_SIZE 3"), std::string::npos);
    run({"schemes", "convert"});
    EXPECT_EQ(out, "There is nothing to convert.\n");
    folder.write("config/kerfline/schemes/old.kls", old);
    ::chmod(path.c_str(), 0444);
    EXPECT_EQ(run({"schemes", "convert"}), ExitStatus::done);
    EXPECT_NE(err.find("The scheme 'Old' was created using a previous version of Kerfline."),
              std::string::npos)
        << err;
    EXPECT_EQ(folder.read("config/kerfline/schemes/old.kls"), old);
}

TEST_F(Commands, NameSeveralOldSchemesThatAreReadOnlyALineEach) {
    std::filesystem::create_directories(folder / "config/kerfline/schemes");
    for (const std::string name : {"A", "B"}) {
        const std::string old = "Norvane::PropertySet\n1\n\"" + name + "\"\n2 SPACES_PER_TAB 3\n";
        ::chmod(folder.write("config/kerfline/schemes/" + name + ".kls", old).c_str(), 0444);
    }
    EXPECT_EQ(run({"schemes", "convert"}), ExitStatus::done);
    const std::string warning = "kerfline: warning: ";
    EXPECT_EQ(err, warning + "The following schemes were created using a previous version of Kerfline:\n" +
                       warning + "A\n" + warning + "B\n" + warning +
                       "The files are read-only and so cannot be converted. Please ensure that the scheme files "
                       "listed are read-write and run Kerfline again. Once the schemes have been converted, the "
                       "files can be set read-only again.\n");
}

TEST_F(Commands, ChangeSettingsAndKeepTheRestOfTheFile) {
    EXPECT_EQ(run({"settings", "get", "OnFormat"}), ExitStatus::done);
    EXPECT_EQ(out, "\n");
    EXPECT_EQ(folder.fileCount(), 0u);
    std::filesystem::create_directories(folder / "config/kerfline");
    folder.write("config/kerfline/settings", "# mine\n[Options]\nOther=1\n");
    EXPECT_EQ(run({"settings", "set", "OnFormat", "gnu"}), ExitStatus::done) << err;
    EXPECT_EQ(folder.read("config/kerfline/settings"), "# mine\n[Options]\nOther=1\nOnFormat=gnu\n");
    EXPECT_EQ(run({"which", folder / "a.c"}), ExitStatus::done);
    EXPECT_EQ(out, folder / "a.c: \"gnu\", which comes with the program, by the setting OnFormat\n");
}

TEST_F(Commands, WhichTellsOfProjectAndIgnoreFile) {
    folder.write(".kerfline.kls", "Norvane::PropertySet\n1\n\"ours\"\n");
    folder.write(".kerflineignore", "\n*.h\n");
    run({"which", folder / "a.h"});
    EXPECT_EQ(out, (folder / "a.h") + ": \"ours\", the project's " + (folder / ".kerfline.kls") +
                       "; left alone by " + (folder / ".kerflineignore") + ":2\n");
}

/// A stream that takes nothing, like a full disk.
class FullBuffer : public std::streambuf {};

TEST_F(Commands, TellIfWhatTheyPrintIsLost) {
    const std::vector<std::string> commands[] = {{"which", "a.c"},     {"schemes"},  {"schemes", "show", "gnu"},
                                                 {"settings"},         {"options"},  {"help", "Classes"},
                                                 {"completion", "zsh"}, {"--help"},   {"--dump=options"}};
    for (const std::vector<std::string>& words : commands) {
        SCOPED_TRACE(words.front());
        FullBuffer full;
        std::ostream lost(&full);
        std::istringstream in;
        std::ostringstream told;
        EXPECT_EQ(Cli::runCommandLine(words, {in, lost, told}), ExitStatus::fileFailed);
        EXPECT_EQ(told.str().rfind("<stdout>: error: ", 0), 0u) << told.str();
        EXPECT_EQ(told.str().find('\n'), told.str().size() - 1) << told.str();
    }
}

TEST_F(Commands, TellOfErrorsWhateverEditorsAreToShow) {
    std::filesystem::create_directories(folder / "config/kerfline");
    folder.write("config/kerfline/settings", "[Options]\nMessagesThreshold=0\n");
    EXPECT_EQ(run({"--strict", "--check", folder.write("a.c", "void f( {\n")}), ExitStatus::refused);
    EXPECT_NE(err, "");
}

TEST_F(Commands, ShowHelpAndVersionOfThePlainProgram) {
    EXPECT_EQ(run({"--help"}), ExitStatus::done);
    for (const Cli::Command& command : Cli::commandTable()) {
        EXPECT_NE(out.find("  " + std::string(command.name)), std::string::npos) << command.name;
    }
}

TEST(NearestName, IsNoneIfNothingIsNear) {
    EXPECT_EQ(Cli::nearestName("chekc", {"color", "check"}), "check");
    EXPECT_EQ(Cli::nearestName("CHECK", {"color", "check"}), "check");
    EXPECT_EQ(Cli::nearestName("zzzzzzzz", {"color", "check"}), "");
    EXPECT_EQ(Cli::nearestName(std::string(100000, 'a'), {"color"}), "");
}

TEST(Paths, AreTakenFromTheRoot) {
    const TempFolder folder;
    const std::string here = std::filesystem::canonical(folder / "").string();
    std::filesystem::create_directories(here + "/x/y");
    std::filesystem::create_directory_symlink("x/y", here + "/link");
    EXPECT_EQ(Cli::absolutePath(here + "/x/./a.c"), here + "/x/a.c");
    EXPECT_EQ(Cli::absolutePath(here + "/x/"), here + "/x");
    EXPECT_EQ(Cli::absolutePath(here + "/link/a.c"), here + "/link/a.c");
    // Behind a link, ".." is the folder above its target.
    EXPECT_EQ(Cli::absolutePath(here + "/link/../a.c"), here + "/x/a.c");
    EXPECT_EQ(Cli::folderOf("/a"), "/");
    EXPECT_EQ(Cli::folderOf("/"), "");
    EXPECT_EQ(Cli::joined(".", "a"), "a");
    EXPECT_EQ(Cli::joined("/", "a"), "/a");
    EXPECT_EQ(Cli::joined("x", "a"), "x/a");
}

} // namespace
