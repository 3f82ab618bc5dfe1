#include "tests/cli/TempFolder.h"
#include "tests/process/Process.h"

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <thread>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";

/// A folder of sources that all change, of which each knows its old and its new text.
class Batch {
public:
    explicit Batch(int count) {
        for (int i = 0; i < count; ++i) {
            std::string text;
            std::string result;
            for (int j = 0; j < 20; ++j) {
                const std::string head = "int f" + std::to_string(i) + "(int a)\n{\nif";
                text += head + "(a)b();\n}\n";
                result += head + " (a)b();\n}\n";
            }
            texts_.push_back(text);
            results_.push_back(result);
        }
        restore();
    }

    static std::string name(int i) { return "f" + std::to_string(i) + ".c"; }
    Words inPlace(const Words& more = {}) const {
        Words words = {"-i", "-y", "--scheme", "none", "--set", "WS_AFTER_CS_KEY= ", folder_ / ""};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }

    void restore() const {
        for (std::size_t i = 0; i < texts_.size(); ++i) folder_.write(name(static_cast<int>(i)), texts_[i]);
    }
    int count() const { return static_cast<int>(texts_.size()); }
    /// How many files have their new text; every other one has to have its old one.
    int changedFiles() const {
        int changed = 0;
        for (int i = 0; i < count(); ++i) {
            const auto index = static_cast<std::size_t>(i);
            const std::string text = folder_.read(name(i));
            if (text == results_[index]) {
                ++changed;
            } else {
                EXPECT_EQ(text, texts_[index]) << name(i);
            }
        }
        return changed;
    }
    const TempFolder& folder() const { return folder_; }

private:
    TempFolder folder_;
    std::vector<std::string> texts_;
    std::vector<std::string> results_;
};

TEST(Batch, ChangesEveryFileAndLeavesNothingBeside) {
    const Batch batch(10);
    const Finished finished = run(batch.inPlace({"-j", "2"}));
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(batch.changedFiles(), batch.count());
    EXPECT_EQ(batch.folder().fileCount(), 10u);
}

TEST(Batch, KilledAtAnyMomentLeavesWholeFiles) {
    const Batch batch(12);
    std::mt19937 random(1);
    int untouched = 0;
    int partly = 0;
    int complete = 0;
    // The moments lie between the start and the usual end of a run, whatever the speed of the machine.
    const auto start = std::chrono::steady_clock::now();
    run(batch.inPlace({"-j", "2"}));
    const auto usual =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    std::uniform_int_distribution<long> moment(0, std::max<long>(usual.count(), 2000));
    for (int i = 0; i < 220; ++i) {
        batch.restore();
        Process process(kerfline(batch.inPlace({"-j", "2"})));
        std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
        process.send(SIGKILL);
        process.finish();
        const int changed = batch.changedFiles();
        ++(changed == 0 ? untouched : changed == batch.count() ? complete : partly);
    }
    // Otherwise the moments were not within the work.
    EXPECT_GT(partly, 10) << untouched << " untouched, " << complete << " complete";
}

TEST(Batch, StopsBetweenFilesAtControlC) {
    const Batch batch(400);
    Process process(kerfline(batch.inPlace()));
    // The first file in the order of the folder is done: the batch is in its middle.
    const auto isBegun = [&] { return batch.folder().read("f0.c").find("if (") != std::string::npos; };
    while (!isBegun()) std::this_thread::yield();
    process.send(SIGINT);
    const Finished finished = process.finish();
    EXPECT_EQ(finished.signal, SIGINT);
    const int changed = batch.changedFiles();
    EXPECT_GT(changed, 0);
    ASSERT_LT(changed, batch.count());
    EXPECT_NE(finished.err.find("Format operation cancelled at user's request."), std::string::npos)
        << finished.err;
    const std::string left = std::to_string(batch.count() - changed) + " of 400 files not done: ";
    EXPECT_NE(finished.err.find(left), std::string::npos) << finished.err;
}

TEST(Batch, TwoAtOnceLeaveWholeFiles) {
    const Batch batch(60);
    for (int round = 0; round < 5; ++round) {
        batch.restore();
        Process first(kerfline(batch.inPlace({"-j", "2"})));
        Process second(kerfline(batch.inPlace()));
        first.finish();
        second.finish();
        // A file that one saw change under the hands of the other may be left to it, but not lost.
        EXPECT_EQ(batch.changedFiles(), batch.count());
    }
}

TEST(Batch, WithoutRoomLeavesWholeFiles) {
    const Batch batch(6);
    Surroundings narrow;
    // Every write beyond this many bytes of a file fails, as on a full disk.
    narrow.prepare = [] {
        std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit limit = {200, 200};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    };
    const Finished finished = run(batch.inPlace(), narrow);
    EXPECT_EQ(finished.status, 3);
    EXPECT_EQ(batch.changedFiles(), 0);
    EXPECT_EQ(batch.folder().fileCount(), 6u);
}

TEST(Batch, OnAFullDiskLeavesWholeFilesAndSaysSo) {
    const TempFolder folder;
    // In a view of the file systems of its own, a small one is mounted, filled up and worked in.
    const std::string here = folder / "";
    const std::string script =
        "cd " + here + " && mount -t tmpfs -o size=64k none . || exit 77; cd " + here +
        "; for i in 1 2 3 4; do printf 'int f(int a)\\n{\\nif(a)b();\\n}\\n' > f$i.c; done;"
        "dd if=/dev/zero of=fill bs=1k >/dev/null 2>&1 ; status=0;" +
        KERFLINE_PROGRAM + " -i -y . || status=$?; ls -A | wc -l; grep -c 'if(a)' f?.c; exit $status";
    const Finished finished = Process({"unshare", "-m", "sh", "-c", script}).finish();
    if (finished.status == 77 || finished.err.find("unshare") != std::string::npos) {
        GTEST_SKIP() << "no file system may be mounted here: " << finished.err;
    }
    EXPECT_EQ(finished.status, 3) << finished.err;
    EXPECT_EQ(finished.out, "5\nf1.c:1\nf2.c:1\nf3.c:1\nf4.c:1\n");
    EXPECT_NE(finished.err.find("No space left on device"), std::string::npos) << finished.err;
}

TEST(InPlace, KeepsModeLinkAndNames) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", kUntidy);
    ::chmod(path.c_str(), 0640);
    ASSERT_EQ(::symlink("a.c", (folder / "link.c").c_str()), 0);
    EXPECT_EQ(run({"-i", folder / "link.c"}).status, 0);
    struct stat found {};
    ASSERT_EQ(::lstat(path.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0640u);
    ASSERT_EQ(::lstat((folder / "link.c").c_str(), &found), 0);
    EXPECT_TRUE(S_ISLNK(found.st_mode));
    EXPECT_NE(folder.read("a.c"), kUntidy);
    // Several names of one file stay names of one file.
    folder.write("a.c", kUntidy);
    ASSERT_EQ(::link(path.c_str(), (folder / "b.c").c_str()), 0);
    EXPECT_EQ(run({"-i", path}).status, 0);
    EXPECT_NE(folder.read("b.c"), kUntidy);
}

TEST(InPlace, MakesABackupWhenAsked) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", kUntidy);
    EXPECT_EQ(run({"-i", path}).status, 0);
    EXPECT_EQ(folder.fileCount(), 1u);
    folder.write("a.c", kUntidy);
    EXPECT_EQ(run({"-i", "--backup", path}).status, 0);
    EXPECT_EQ(folder.read("a.c.bak"), kUntidy);
    folder.write("a.c", kUntidy);
    EXPECT_EQ(run({"-i", "--backup=orig", path}).status, 0);
    EXPECT_EQ(folder.read("a.c.orig"), kUntidy);
}

TEST(InPlace, MakesNoBackupBecauseASettingOfEditorsSaysSo) {
    const TempFolder folder;
    const std::string path = folder.write("a.c", kUntidy);
    std::filesystem::create_directories(folder / "kerfline");
    folder.write("kerfline/settings", "[Options]\nCreateBackups=1\nBackupExtension=old\n");
    const Surroundings user = {.environment = {"XDG_CONFIG_HOME=" + (folder / "")}};
    EXPECT_EQ(run({"-i", path}, user).status, 0);
    EXPECT_FALSE(std::filesystem::exists(folder / "a.c.old"));
    // Which name a backup has is another question.
    folder.write("a.c", kUntidy);
    EXPECT_EQ(run({"-i", "--backup", path}, user).status, 0);
    EXPECT_EQ(folder.read("a.c.old"), kUntidy);
}

} // namespace
