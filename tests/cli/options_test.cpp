#include "cli/run/Cli_CommandLine.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Cli::ExitStatus;

struct Parsed {
    std::optional<Cli::Options> options;
    ExitStatus status = ExitStatus::done;
    std::string out;
    std::string err;
};

Parsed parse(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "kerfline");
    std::ostringstream out;
    std::ostringstream err;
    Parsed parsed;
    const int count = static_cast<int>(arguments.size());
    parsed.options = Cli::parseCommandLine(count, arguments.data(), out, err, parsed.status);
    parsed.out = out.str();
    parsed.err = err.str();
    return parsed;
}

TEST(CommandLine, ReadsStandardInputByDefault) {
    const Parsed parsed = parse({});
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->files, std::vector<std::string>{"-"});
    EXPECT_FALSE(parsed.options->scheme);
    EXPECT_EQ(parsed.options->destination, Cli::Destination::standardOutput);
}

TEST(CommandLine, TakesOneArgumentForEachEdit) {
    const Parsed parsed =
        parse({"--set", "TAB_SIZE=8", "a.cpp", "--unset", "WS_AFTER_CS_KEY", "-", "[b].cpp"});
    ASSERT_TRUE(parsed.options);
    EXPECT_EQ(parsed.options->files, (std::vector<std::string>{"a.cpp", "-", "[b].cpp"}));
    ASSERT_EQ(parsed.options->edits.size(), 2u);
    EXPECT_EQ(parsed.options->edits[0].text, "TAB_SIZE=8");
}

TEST(CommandLine, KeepsTheOrderOfSetAndUnset) {
    const Parsed parsed = parse({"--unset", "A", "--set", "A=1", "--set=B=2", "--unset=B"});
    ASSERT_TRUE(parsed.options);
    std::string order;
    for (const Cli::SchemeEdit& edit : parsed.options->edits) {
        order += (edit.kind == Cli::SchemeEdit::Kind::set ? "set " : "unset ") + edit.text + ';';
    }
    EXPECT_EQ(order, "unset A;set A=1;set B=2;unset B;");
}

TEST(CommandLine, KeepsEveryCharacterOfAValue) {
    const Parsed parsed = parse({"--set", "WS_AFTER_CS_KEY= \\n\t ", "--set", "X=[a,b]", "--set", "Y="});
    ASSERT_TRUE(parsed.options);
    ASSERT_EQ(parsed.options->edits.size(), 3u);
    EXPECT_EQ(parsed.options->edits[0].text, "WS_AFTER_CS_KEY= \\n\t ");
    EXPECT_EQ(parsed.options->edits[1].text, "X=[a,b]");
    EXPECT_EQ(parsed.options->edits[2].text, "Y=");
}

struct WrongUsage {
    const char* name;
    std::vector<const char*> arguments;
    const char* part;
};

const WrongUsage kWrong[] = {
    {"UnknownOption", {"--nothing"}, "--nothing"},
    {"InPlaceAndCheck", {"-i", "--check", "a.c"}, "excludes"},
    {"InPlaceOnInput", {"-i"}, "standard input"},
    {"InPlaceOnDash", {"-i", "a.c", "-"}, "standard input"},
    {"DumpInPlace", {"-i", "--dump=tree", "a.c"}, "--dump"},
    {"UnknownDump", {"--dump=trees"}, "\"trees\" is none of tokens, tree, messages, scheme, options; did you mean \"tree\"?"},
    {"MissingValue", {"--set"}, "--set needs a value"},
    {"MissingShortValue", {"a.c", "-j"}, "--jobs needs a value"},
    // Taken for a plain switch it would write the file.
    {"ValueOfAFlag", {"--in-place=false", "a.c"}, "--in-place takes no value"},
    // A script whose variable is empty must not lose the file to the switch.
    {"EmptyValue", {"--scheme=", "a.c"}, "--scheme= has nothing behind it: put NAME|FILE there"},
    {"EmptyOptionalValue", {"-i", "--backup=", "a.c"}, "leave the \"=\" out"},
    {"BackupInAnotherFolder", {"-i", "--backup=a/b", "a.c"}, "\"a/b\""},
    {"MisspeltSwitch", {"--in-plac=1"}, "\"--in-place\""},
    {"InPlaceAndDiff", {"-i", "--diff", "a.c"}, "excludes"},
    {"QuietAndVerbose", {"-q", "-v"}, "excludes"},
    {"BackupWithoutInPlace", {"--backup", "a.c"}, "--backup requires --in-place"},
    {"NameOfNoInput", {"--stdin-filename", "a.c", "b.c"}, "--stdin-filename"},
    {"JobsNoNumber", {"-j", "two"}, "--jobs: Value two not in range"},
    {"JobsBeyondReason", {"-j", "1025"}, "--jobs: Value 1025 not in range"},
    {"UnknownColor", {"--color=red"}, "--color: \"red\" is none of auto, always, never"},
    {"UnknownMessageFormat", {"--message-format=xml"}, "xml"},
};

class Usage : public testing::TestWithParam<WrongUsage> {};

TEST_P(Usage, IsRefusedInOneLine) {
    const Parsed parsed = parse(GetParam().arguments);
    EXPECT_FALSE(parsed.options);
    EXPECT_EQ(parsed.status, ExitStatus::badUsageOrScheme);
    EXPECT_NE(parsed.err.find(GetParam().part), std::string::npos) << parsed.err;
    EXPECT_EQ(parsed.err.find('\n'), parsed.err.size() - 1) << parsed.err;
    EXPECT_EQ(parsed.out, "");
}

INSTANTIATE_TEST_SUITE_P(CommandLine, Usage, testing::ValuesIn(kWrong),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CommandLine, TakesEverythingBehindTwoDashesForAFile) {
    const Parsed parsed = parse({"--check", "--", "-x.c", "--diff", "--yes=1"});
    ASSERT_TRUE(parsed.options) << parsed.err;
    EXPECT_EQ(parsed.options->files, (std::vector<std::string>{"-x.c", "--diff", "--yes=1"}));
    EXPECT_EQ(parsed.options->destination, Cli::Destination::checkOnly);
}

TEST(CommandLine, BackupDoesNotSwallowTheFile) {
    const Parsed plain = parse({"-i", "--backup", "a.c"});
    ASSERT_TRUE(plain.options);
    EXPECT_TRUE(plain.options->backup.wanted);
    EXPECT_EQ(plain.options->backup.extension, "");
    EXPECT_EQ(plain.options->files, std::vector<std::string>{"a.c"});
    EXPECT_EQ(parse({"-i", "--backup=orig", "a.c"}).options->backup.extension, "orig");
}

TEST(CommandLine, TakesOneJobForEachProcessorAtNought) {
    EXPECT_GE(parse({"-j", "0"}).options->jobs, 1u);
    EXPECT_EQ(parse({"-j3"}).options->jobs, 3u);
    EXPECT_EQ(parse({}).options->jobs, 1u);
}

TEST(CommandLine, ReadsNoInputBesideAProject) {
    EXPECT_TRUE(parse({"--project", "x.json"}).options->files.empty());
}

TEST(CommandLine, ShowsVersionAndHelp) {
    const Parsed version = parse({"--version"});
    EXPECT_FALSE(version.options);
    EXPECT_EQ(version.status, ExitStatus::done);
    EXPECT_EQ(version.out.rfind("kerfline ", 0), 0u) << version.out;
    const Parsed help = parse({"--help"});
    EXPECT_EQ(help.status, ExitStatus::done);
    EXPECT_NE(help.out.find("--scheme"), std::string::npos);
}

} // namespace
