#include "cli/run/Cli_Program.h"
#include "tests/cli/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Cli::ExitStatus;

constexpr const char* kUntidy = "void f()\n{\nif(a)b();\n}\n";
constexpr const char* kTidy = "void f()\n{\nif (a)b();\n}\n";
constexpr const char* kBroken = "void f() { if (a }\n";

struct Ran {
    ExitStatus status = ExitStatus::done;
    std::string out;
    std::string err;
};

/// Runs the program with one rule: a blank behind the keyword of a control statement.
Ran run(std::vector<std::string> files, Cli::Options options = {}, const std::string& input = "") {
    options.scheme = "none";
    options.edits = {{Cli::SchemeEdit::Kind::set, "WS_AFTER_CS_KEY= "}};
    options.files = std::move(files);
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    Ran result;
    result.status = Cli::runProgram(options, {in, out, err});
    result.out = out.str();
    result.err = err.str();
    return result;
}

Cli::Options to(Cli::Destination destination) {
    Cli::Options options;
    options.destination = destination;
    return options;
}

Cli::Options showing(Cli::Dump dump) {
    Cli::Options options;
    options.dump = dump;
    return options;
}

TEST(Program, FiltersStandardInput) {
    const Ran result = run({"-"}, {}, kUntidy);
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.out, kTidy);
    EXPECT_EQ(result.err, "");
}

TEST(Program, WritesFilesToStandardOutput) {
    const TempFolder folder;
    const Ran result = run({folder.write("a.c", kUntidy), folder.write("b.c", "int x;\n")});
    EXPECT_EQ(result.out, std::string(kTidy) + "int x;\n");
    EXPECT_EQ(folder.read("a.c"), kUntidy);
}

TEST(Program, WritesBackOnlyWhatChanged) {
    const TempFolder folder;
    const std::string untidy = folder.write("a.c", kUntidy);
    const std::string tidy = folder.write("b.c", kTidy);
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
    std::filesystem::last_write_time(tidy, longAgo);
    const Ran result = run({untidy, tidy}, to(Cli::Destination::sameFile));
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(folder.read("a.c"), kTidy);
    EXPECT_EQ(std::filesystem::last_write_time(tidy), longAgo);
}

TEST(Program, ChecksWithoutWriting) {
    const TempFolder folder;
    const std::string untidy = folder.write("a.c", kUntidy);
    const std::string tidy = folder.write("b.c", kTidy);
    const Ran result = run({untidy, tidy}, to(Cli::Destination::checkOnly));
    EXPECT_EQ(result.status, ExitStatus::wouldChange);
    EXPECT_EQ(result.out, untidy + '\n');
    EXPECT_EQ(folder.read("a.c"), kUntidy);
    EXPECT_EQ(run({tidy}, to(Cli::Destination::checkOnly)).status, ExitStatus::done);
}

TEST(Program, OnlyLooksAtAFileThatIsReadOnly) {
    const TempFolder folder;
    const std::string file = folder.write("a.c", kUntidy);
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_EQ(run({file}).out, kTidy);
    EXPECT_EQ(run({file}, to(Cli::Destination::checkOnly)).status, ExitStatus::wouldChange);
    EXPECT_EQ(run({file}, to(Cli::Destination::sameFile)).status, ExitStatus::fileFailed);
    EXPECT_EQ(folder.read("a.c"), kUntidy);
}

TEST(Program, PassesARefusedSourceThrough) {
    Cli::Options options;
    options.isStrict = true;
    const Ran result = run({"-"}, options, kBroken);
    EXPECT_EQ(result.status, ExitStatus::refused);
    EXPECT_EQ(result.out, kBroken);
    EXPECT_EQ(result.err.rfind("<stdin>:1:", 0), 0u) << result.err;
    EXPECT_NE(result.err.find(": error: "), std::string::npos) << result.err;
}

TEST(Program, LeavesARefusedFileAlone) {
    const TempFolder folder;
    const std::string broken = folder.write("a.c", kBroken);
    for (const auto destination : {Cli::Destination::sameFile, Cli::Destination::checkOnly}) {
        Cli::Options options = to(destination);
        options.isStrict = true;
        const Ran result = run({broken}, options);
        EXPECT_EQ(result.status, ExitStatus::refused);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(folder.read("a.c"), kBroken);
    }
}

// Status 0 says that everything was laid out but for what the warnings name.
TEST(Program, LaysOutTheRestOfASourceAndWarns) {
    const std::string source = std::string(kUntidy) + kBroken;
    const std::string warning = "<stdin>:5:12: warning: Expected \")\". Possible unbalanced parentheses.\n";
    Ran result = run({"-"}, {}, source);
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.out, std::string(kTidy) + kBroken);
    EXPECT_EQ(result.err, warning);
    EXPECT_EQ(run({"-"}, to(Cli::Destination::checkOnly), source).status, ExitStatus::wouldChange);
    Cli::Options options;
    options.verbosity = Cli::Verbosity::quiet;
    EXPECT_EQ(run({"-"}, options, source).err, "");
    options.verbosity = Cli::Verbosity::normal;
    options.messageFormat = Cli::MessageFormat::json;
    result = run({"-"}, options, source);
    EXPECT_NE(result.err.find("\"severity\":\"warning\""), std::string::npos) << result.err;
}

TEST(Program, GoesOnBehindAFailureAndKeepsTheHighestStatus) {
    const TempFolder folder;
    const std::string missing = folder / "missing.c";
    const std::string untidy = folder.write("a.c", kUntidy);
    Ran result = run({missing, untidy}, to(Cli::Destination::sameFile));
    EXPECT_EQ(result.status, ExitStatus::fileFailed);
    EXPECT_EQ(result.err, missing + ": error: The file \"" + missing + "\" cannot be found.\n");
    EXPECT_EQ(folder.read("a.c"), kTidy);
    Cli::Options strict = to(Cli::Destination::sameFile);
    strict.isStrict = true;
    result = run({folder.write("b.c", kBroken), missing}, strict);
    EXPECT_EQ(result.status, ExitStatus::refused);
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 2) << result.err;
}

TEST(Program, TellsAnErrorOnce) {
    const TempFolder folder;
    const std::string missing = folder / "missing.c";
    const Ran result = run({missing, missing}, to(Cli::Destination::standardOutput));
    EXPECT_EQ(result.err, missing + ": error: The file \"" + missing + "\" cannot be found.\n");
}

TEST(Program, KeepsLineEndsAndByteOrderMark) {
    const std::string mark = "\xef\xbb\xbf";
    EXPECT_EQ(run({"-"}, {}, mark + "void f() {\r\nif(a);\r\n}").out, mark + "void f() {\r\nif (a);\r\n}");
    const std::string mixed = "int a;\r\nint b;\rint c;\n";
    EXPECT_EQ(run({"-"}, {}, mixed).out, mixed);
}

TEST(Program, RefusesWideText) {
    const std::string wide("\xff\xfe\0\xd8i\0", 6); // half of a pair
    const Ran result = run({"-"}, {}, wide);
    EXPECT_EQ(result.status, ExitStatus::refused);
    EXPECT_EQ(result.out, wide);
}

TEST(Program, RefusesTextThatHoldsNul) {
    const std::string text("int a;\nint \0b;\n", 15);
    const Ran result = run({"-"}, {}, text);
    EXPECT_EQ(result.status, ExitStatus::refused);
    EXPECT_EQ(result.out, text);
    EXPECT_EQ(result.err, "<stdin>:2:5: error: The text is no source: it holds a NUL character.\n");
}

TEST(Program, WritesNothingIfOneOfTheSchemesIsWrong) {
    const TempFolder folder;
    std::filesystem::create_directories(folder / "x");
    folder.write("x/.kerfline.kls", "Norvane::PropertySet\n1\n\"x\"\n2 TAB_SIZ 3\n");
    Cli::Options options = to(Cli::Destination::sameFile);
    options.files = {folder.write("a.c", kUntidy), folder.write("x/b.c", kUntidy)};
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Cli::runProgram(options, {in, out, err}), ExitStatus::badUsageOrScheme);
    EXPECT_EQ(err.str().rfind(folder / "x/.kerfline.kls" + ":4:3: error: unknown option \"TAB_SIZ\"", 0), 0u)
        << err.str();
    EXPECT_EQ(folder.read("a.c"), kUntidy);
}

TEST(Program, EachFileHasTheSchemeOfItsProject) {
    const TempFolder folder;
    std::filesystem::create_directories(folder / "x");
    folder.write(".kerfline.kls", "Norvane::PropertySet\n1\n\"a\"\n3 WS_AFTER_CS_KEY \" \"\n");
    folder.write("x/.kerfline.kls", "Norvane::PropertySet\n1\n\"x\"\n");
    Cli::Options options;
    options.files = {folder.write("a.c", kUntidy), folder.write("x/b.c", kUntidy)};
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Cli::runProgram(options, {in, out, err}), ExitStatus::done);
    EXPECT_EQ(out.str(), std::string(kTidy) + kUntidy);
}

TEST(Program, StopsAtAWrongScheme) {
    Cli::Options options;
    options.edits = {{Cli::SchemeEdit::Kind::set, "NONSENSE=1"}};
    options.files = {"-"};
    std::istringstream in(kUntidy);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Cli::runProgram(options, {in, out, err}), ExitStatus::badUsageOrScheme);
    EXPECT_EQ(out.str(), kUntidy);
    EXPECT_NE(err.str(), "");
}

/// A stream that breaks while it is read, in a way that nobody has foreseen.
class BrokenBuffer : public std::streambuf {
    int_type underflow() override { throw std::runtime_error("the wire was cut"); }
};

TEST(Program, TellsTheReasonOfAnInternalError) {
    Cli::Options options;
    options.files = {"-"};
    BrokenBuffer broken;
    std::istream in(&broken);
    in.exceptions(std::ios::badbit);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Cli::runProgram(options, {in, out, err}), ExitStatus::refused);
    EXPECT_NE(err.str().find("internal error: the wire was cut"), std::string::npos) << err.str();
}

TEST(Program, SaysThatThereAreNoSources) {
    const TempFolder folder;
    folder.write("notes.txt", "");
    const Ran result = run({folder / ""}, to(Cli::Destination::checkOnly));
    EXPECT_EQ(result.status, ExitStatus::done);
    EXPECT_EQ(result.err, "kerfline: note: no sources found\n");
    Cli::Options quiet = to(Cli::Destination::checkOnly);
    quiet.verbosity = Cli::Verbosity::quiet;
    EXPECT_EQ(run({folder / ""}, quiet).err, "");
}

/// A stream that takes nothing, like a full disk.
class FullBuffer : public std::streambuf {};

TEST(Program, TellsThatItsOutputFailed) {
    Cli::Options options;
    options.scheme = "none";
    options.files = {"-"};
    std::istringstream in("int a;\n");
    FullBuffer full;
    std::ostream out(&full);
    std::ostringstream err;
    EXPECT_EQ(Cli::runProgram(options, {in, out, err}), ExitStatus::fileFailed);
    EXPECT_EQ(err.str().rfind("<stdout>: error: ", 0), 0u) << err.str();
}

TEST(Dump, ShowsTokens) {
    EXPECT_EQ(run({"-"}, showing(Cli::Dump::tokens), "int x").out,
              "1:1-1:3 int \"int\"\n1:5-1:5 <identifier> \"x\"\n");
}

TEST(Dump, ShowsTheTree) {
    const std::string tree = run({"-"}, showing(Cli::Dump::tree), "int x = 5;").out;
    EXPECT_EQ(tree.rfind("RootNode ", 0), 0u) << tree;
    EXPECT_NE(tree.find("DataDeclNode"), std::string::npos) << tree;
}

TEST(Dump, ShowsMessages) {
    const Ran result = run({"-"}, showing(Cli::Dump::messages), kBroken);
    EXPECT_EQ(result.status, ExitStatus::refused);
    EXPECT_EQ(result.out.rfind("<stdin>:1:", 0), 0u) << result.out;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(run({"-"}, showing(Cli::Dump::messages), "int a;\n").out, "");
}

TEST(Dump, ShowsTheSchemeInForce) {
    EXPECT_EQ(run({"-"}, showing(Cli::Dump::scheme)).out,
              "Norvane::PropertySet\n1\n\"none\"\n3 WS_AFTER_CS_KEY \" \"\n");
}

TEST(Message, IsOneLine) {
    EXPECT_EQ(Cli::messageLine({"a\nb.c", 3, 4}, "error", "x\ty\r\x7f"),
              "a\\nb.c:3:4: error: x\\ty\\x0d\\x7f");
}

} // namespace
