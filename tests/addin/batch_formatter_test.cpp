#include "addin/Addin_BatchFormatter.h"
#include "tests/addin/Fixture.h"

#include <algorithm>

namespace {

using Addin::Answer;
using Addin::BatchCounts;

constexpr const char* kAskProject =
    "You have chosen to format all C/C++ files in the project \"Pro\". Are you sure you wish to continue?";
constexpr const char* kAskWorkspace =
    "You have chosen to format all C/C++ files in the workspace \"Work\". Are you sure you wish to continue?";

class Batch : public AddinTest {
protected:
    Batch() {
        options.createBackups = false;
        host.answers[kAskProject] = Answer::yes;
        host.answers[kAskWorkspace] = Answer::yes;
    }

    BatchCounts runProject(std::vector<std::string> files) {
        host.activeOne = host.addProject("Pro", std::move(files));
        return Addin::BatchFormatter(bench).formatActiveProject(keywordScheme());
    }
    BatchCounts runWorkspace() { return Addin::BatchFormatter(bench).formatActiveWorkspace(keywordScheme()); }
    void putSources(const Lines& paths) {
        for (const std::string& path : paths) disk.put(path, kSource);
    }
};

TEST_F(Batch, FormatsTheFilesOfAProject) {
    putSources({"/p/a.cpp", "/p/sub/b.h", "/x/c.cpp"});
    disk.put("/p/done.cpp", kResult);
    const BatchCounts counts =
        runProject({"a.cpp", "", "sub/b.h", "Pro.dsp", "Work.DSW", "/x/c.cpp", "done.cpp", "t.txt"});
    EXPECT_EQ(disk.changes, (Lines{"replace /p/a.cpp", "replace /p/sub/b.h", "replace /x/c.cpp"}));
    EXPECT_EQ(counts.formatted, 3);
    EXPECT_EQ(counts.unchanged, 1);
    EXPECT_EQ(counts.skipped, 1);
    EXPECT_EQ(
        host.told(),
        (Lines{std::string("question: ") + kAskProject, "1: Formatting active project using scheme \"Mine\".",
               "1: Formatting \"/p/a.cpp\".", "1: Formatting \"/p/sub/b.h\".", "1: Formatting \"/x/c.cpp\".",
               "1: Formatting \"/p/done.cpp\".", "1: Finished formatting project."}));
    EXPECT_EQ(host.total, 40);
    EXPECT_EQ(host.bar, (std::vector<int>{0, 5, 10, 15, 20, 25, 30, 35}));
}

TEST_F(Batch, NeedsAProjectAndAWorkspace) {
    Addin::BatchFormatter(bench).formatActiveProject(keywordScheme());
    runWorkspace();
    EXPECT_EQ(
        host.log,
        (Lines{
            "notice: Kerfline was unable to find an active project in the currently loaded workspace. Please "
            "set a project to be active before trying this command again.",
            "notice: No workspace is currently loaded. Please open a workspace before trying this command "
            "again."}));
}

TEST_F(Batch, DoesNothingWithoutAYes) {
    putSources({"/p/a.cpp"});
    for (const Answer answer : {Answer::no, Answer::cancel}) {
        host.answers[kAskProject] = answer;
        host.answers[kAskWorkspace] = answer;
        runProject({"a.cpp"});
        host.opened = Addin::Workspace{"Work", {*host.activeOne}};
        runWorkspace();
    }
    EXPECT_EQ(host.log,
              (Lines{std::string("question: ") + kAskProject, std::string("question: ") + kAskWorkspace,
                     std::string("question: ") + kAskProject, std::string("question: ") + kAskWorkspace}));
    EXPECT_TRUE(disk.changes.empty());
}

TEST_F(Batch, FormatsEachProjectOfAWorkspace) {
    putSources({"/p/a.cpp", "/p/b.cpp"});
    host.opened = Addin::Workspace{
        "Work", {host.addProject("One", {"a.cpp"}), host.addProject("Two", {"a.cpp", "b.cpp"})}};
    EXPECT_EQ(runWorkspace().formatted, 2);
    EXPECT_EQ(host.told(),
              (Lines{std::string("question: ") + kAskWorkspace,
                     "1: Formatting workspace \"Work\" using scheme \"Mine\".",
                     "1: Formatting project \"One\" using scheme \"Mine\".", "1: Formatting \"/p/a.cpp\".",
                     "1: Formatting project \"Two\" using scheme \"Mine\".", "1: Formatting \"/p/b.cpp\".",
                     "1: Finished formatting workspace."}));
    EXPECT_EQ(host.total, 15);
}

TEST_F(Batch, GoesOnBehindAFileThatFails) {
    putSources({"/p/a.cpp", "/p/c.cpp"});
    disk.put("/p/b.cpp", kBroken);
    bench.isStrict = true;
    disk.fail("replace", "/p/a.cpp", FailureKind::full);
    const BatchCounts counts = runProject({"a.cpp", "b.cpp", "missing.cpp", "c.cpp"});
    EXPECT_EQ(counts.failed, 2);
    EXPECT_EQ(counts.refused, 1);
    EXPECT_EQ(counts.formatted, 1);
    EXPECT_EQ(host.told().back(), "1: Finished formatting project.");
}

TEST_F(Batch, ProjectWithoutAListIsToldOf) {
    host.failing["projectFiles"] = FailureKind::denied;
    runProject({"a.cpp"});
    EXPECT_EQ(host.logged("3"),
              Lines{"An unexpected error has occurred. The current Kerfline operation has failed. Please contact "
                    "Technical Support and report the following details: no list"});
}

TEST_F(Batch, CancelEndsIt) {
    putSources({"/p/a.cpp", "/p/b.cpp"});
    host.cancelAt = "Completed file:\n/p/a.cpp";
    const BatchCounts counts = runProject({"a.cpp", "b.cpp"});
    EXPECT_TRUE(counts.cancelled);
    EXPECT_EQ(counts.formatted, 1);
    EXPECT_EQ(disk.text("/p/b.cpp"), kSource);
    EXPECT_EQ(host.told().back(), "1: Format operation cancelled at user's request.");
}

TEST_F(Batch, CancelInTheLastFileIsToldOnce) {
    putSources({"/p/a.cpp"});
    for (const char* step : {"Opening file", "Formatting file", "Completed file"}) {
        SCOPED_TRACE(step);
        host.log.clear();
        host.cancelled = false;
        host.cancelAt = step;
        disk.put("/p/a.cpp", kSource);
        EXPECT_TRUE(runProject({"a.cpp"}).cancelled);
        EXPECT_EQ(host.told().back(), "1: Format operation cancelled at user's request.");
        EXPECT_EQ(host.logged("1").size(), 3u);
    }
}

TEST_F(Batch, CancelEndsAllProjectsAndIsToldOnce) {
    putSources({"/p/a.cpp", "/p/b.cpp"});
    host.opened = Addin::Workspace{"Work", {host.addProject("One", {"a.cpp"}), host.addProject("Two", {"b.cpp"})}};
    host.cancelAt = "Opening file:\n/p/a.cpp";
    EXPECT_TRUE(runWorkspace().cancelled);
    EXPECT_TRUE(disk.changes.empty());
    const Lines told = host.logged("1");
    EXPECT_EQ(std::count(told.begin(), told.end(), "Format operation cancelled at user's request."), 1);
    EXPECT_EQ(told.back(), "Format operation cancelled at user's request.");
}

TEST_F(Batch, PumpsInFrontOfEachFile) {
    putSources({"/p/a.cpp"});
    host.onPump = [&] { host.cancelled = true; };
    runProject({"a.cpp"});
    EXPECT_TRUE(host.logged("progress").empty());
    EXPECT_TRUE(disk.changes.empty());
}

TEST_F(Batch, TakesAFileOnceWhateverItIsCalled) {
    options.createBackups = true;
    putSources({"/p/a.cpp"});
    disk.alias("/p/link.cpp", "/p/a.cpp");
    runProject({"a.cpp", "/p/a.cpp", "link.cpp"});
    EXPECT_EQ(host.logged("1").size(), 3u);
    EXPECT_EQ(disk.text("/p/a.cpp.bak"), kSource);
}

TEST_F(Batch, PassesOverBackups) {
    options.createBackups = true;
    options.backupExtension = "cpp";
    putSources({"/p/a.cpp", "/p/a.cpp.cpp", "/p/b.cpp.cpp"});
    runProject({"a.cpp.cpp", "b.cpp.cpp"});
    EXPECT_EQ(disk.text("/p/a.cpp.cpp"), kSource);
    EXPECT_EQ(disk.text("/p/b.cpp.cpp"), kResult);
}

TEST_F(Batch, DoesNotWriteBehindTheBackOfTheHost) {
    putSources({"/p/a.cpp", "/p/b.cpp"});
    host.changed = {"/p/a.cpp", "/p/gone.cpp"};
    const BatchCounts counts = runProject({"a.cpp", "b.cpp"});
    EXPECT_EQ(counts.failed, 1);
    EXPECT_EQ(disk.changes, Lines{"replace /p/b.cpp"});
    EXPECT_EQ(host.logged("3"),
              Lines{"Kerfline was unable to write the formatted text back to the file \"/p/a.cpp\". "
                    "The file will not be formatted."});
}

TEST_F(Batch, WorksWithoutADialog) {
    host.hasProgress = false;
    putSources({"/p/a.cpp"});
    EXPECT_EQ(runProject({"a.cpp"}).formatted, 1);
    EXPECT_EQ(host.told().back(), "1: Finished formatting project.");
}

} // namespace
