#include "cli/scheme/Cli_SchemeFinder.h"
#include "files/NorvaneUI_DiskFileSystem.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Kind = Cli::SchemeSource::Kind;

std::string schemeCalled(const std::string& name) {
    return "Norvane::PropertySet\n1\n\"" + name + "\"\n2 TAB_SIZE 3\n";
}

/// project/.kerfline.kls "outer", project/in/.kerfline.kls "inner", and a folder of own schemes.
class Finder : public testing::Test {
protected:
    Finder() {
        for (const char* path : {"project/in/deep", "other", "own"})
            std::filesystem::create_directories(folder / path);
        folder.write("project/.kerfline.kls", schemeCalled("outer"));
        folder.write("project/in/.kerfline.kls", schemeCalled("inner"));
        folder.write("own/mine.kls", schemeCalled("Mine"));
        folder.write("own/gnu.kls", schemeCalled("gnu"));
    }

    std::optional<Cli::SchemeSource> find(std::optional<std::string> wanted, const std::string& from,
                                          const std::string& preferred = "") {
        Cli::SchemeFinder finder(disk, folder / "own", preferred, report);
        return finder.find(wanted, folder / from);
    }
    std::string messages() {
        std::ostringstream out;
        report.flush(out);
        return out.str();
    }

    TempFolder folder;
    NorvaneUI::DiskFileSystem disk;
    Cli::Report report;
};

struct FindCase {
    const char* name;
    std::optional<std::string> wanted;
    const char* from;
    const char* preferred;
    Kind kind;
    /// Behind the folder of the test, or the name of a scheme that is no file.
    const char* where;
};

const FindCase kFinds[] = {
    {"NearestProject", {}, "project/in/deep", "Mine", Kind::project, "project/in/.kerfline.kls"},
    {"ProjectAbove", {}, "project", "Mine", Kind::project, "project/.kerfline.kls"},
    {"Setting", {}, "other", "Mine", Kind::user, "own/mine.kls"},
    {"SettingOfAShippedScheme", {}, "other", "knr", Kind::shipped, "knr"},
    {"Default", {}, "other", "", Kind::shipped, "default"},
    {"NameOfTheProject", "inner", "project/in/deep", "", Kind::project, "project/in/.kerfline.kls"},
    {"NameOfAProjectFurtherUp", "outer", "project/in/deep", "", Kind::project, "project/.kerfline.kls"},
    {"OwnName", "Mine", "project/in/deep", "", Kind::user, "own/mine.kls"},
    {"OwnBeforeShipped", "gnu", "other", "", Kind::user, "own/gnu.kls"},
    {"ShippedName", "knr", "project/in/deep", "", Kind::shipped, "knr"},
    {"NoOptions", "none", "project/in/deep", "", Kind::empty, "none"},
};

TEST_F(Finder, LooksInProjectThenUserThenProgram) {
    for (const FindCase& row : kFinds) {
        SCOPED_TRACE(row.name);
        const auto found = find(row.wanted, row.from, row.preferred);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->kind, row.kind);
        EXPECT_EQ(found->path.empty() ? found->name : found->path,
                  found->path.empty() ? row.where : folder / row.where);
    }
}

TEST_F(Finder, TakesAPathForAPath) {
    const std::string path = folder / "own/mine.kls";
    EXPECT_EQ(find(path, "other")->kind, Kind::file);
    EXPECT_EQ(find(path, "other")->path, path);
    EXPECT_EQ(find("/dev/null", "other")->kind, Kind::file);
}

TEST_F(Finder, NamesTheSchemeThatAMissingFileMayStandFor) {
    EXPECT_FALSE(find("mine.kls", "other"));
    EXPECT_EQ(report.status(), Cli::ExitStatus::badUsageOrScheme);
    EXPECT_EQ(messages(), "kerfline: error: there is no scheme file \"mine.kls\"; did you mean \"Mine\"?\n");
    EXPECT_FALSE(find("../zzzzzzzzzz", "other"));
    EXPECT_EQ(messages(), "kerfline: error: there is no scheme file \"../zzzzzzzzzz\"; \"kerfline schemes\" "
                          "lists the schemes there are\n");
}

TEST_F(Finder, NamesTheNearestOfAWrongName) {
    EXPECT_FALSE(find("Mime", "other"));
    EXPECT_EQ(report.status(), Cli::ExitStatus::badUsageOrScheme);
    EXPECT_EQ(messages(), "kerfline: error: there is no scheme \"Mime\"; did you mean \"Mine\"?\n");
}

TEST_F(Finder, PassesOverABrokenSchemeOfAnotherName) {
    folder.write("own/broken.kls", "no scheme");
    EXPECT_EQ(find("Mine", "other")->path, folder / "own/mine.kls");
    EXPECT_EQ(report.status(), Cli::ExitStatus::done);
    EXPECT_EQ(messages(),
              "kerfline: warning: " + (folder / "own/broken.kls") + " is passed over: it is not a scheme\n");
}

TEST_F(Finder, OfTwoFilesWithOneNameTheFirstCounts) {
    folder.write("own/a.kls", schemeCalled("Mine"));
    EXPECT_EQ(find("Mine", "other")->path, folder / "own/a.kls");
}

} // namespace
