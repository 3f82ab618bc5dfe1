#include "addin/Addin_FileFormatter.h"
#include "addin/Addin_Utf16.h"
#include "tests/addin/Fixture.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace {

using Addin::FormatResult;

class FormatFile : public AddinTest {
protected:
    FormatFile() { options.createBackups = false; }

    FormatResult run(const std::string& path = "/a.cpp", Addin::ExtensionTest test = Addin::ExtensionTest::apply) {
        const auto dialog = host.openProgress(5);
        return Addin::FileFormatter(bench).format(path, keywordScheme(), dialog.get(), test);
    }
};

TEST_F(FormatFile, WritesTheResultAndTellsEachStep) {
    disk.put("/a.cpp", kSource);
    EXPECT_EQ(run(), FormatResult::formatted);
    EXPECT_EQ(disk.text("/a.cpp"), kResult);
    EXPECT_EQ(host.log, (Lines{"progress: Opening file:\n/a.cpp", "1: Formatting \"/a.cpp\".",
                               "progress: Analyzing file:\n/a.cpp", "progress: Formatting file:\n/a.cpp",
                               "progress: Writing file:\n/a.cpp", "progress: Completed file:\n/a.cpp"}));
    EXPECT_EQ(host.steps, Addin::FileProgressDlg::kStepsPerFile);
}

TEST_F(FormatFile, WorksWithoutADialog) {
    host.hasProgress = false;
    disk.put("/a.cpp", kSource);
    EXPECT_TRUE(Addin::FileFormatter(bench).FormatFile("/a.cpp", keywordScheme(), nullptr));
    EXPECT_EQ(disk.text("/a.cpp"), kResult);
}

TEST_F(FormatFile, LeavesAFormattedFileAlone) {
    options.createBackups = true;
    disk.put("/a.cpp", kResult);
    disk.put("/a.cpp.bak", "the original");
    EXPECT_EQ(run(), FormatResult::unchanged);
    EXPECT_TRUE(disk.changes.empty());
    EXPECT_EQ(host.logged("progress").back(), "Completed file:\n/a.cpp");
}

TEST_F(FormatFile, BacksUpBeforeItWrites) {
    options.createBackups = true;
    disk.put("/a.cpp", kSource);
    disk.put("/a.cpp.bak", "older");
    EXPECT_EQ(run(), FormatResult::formatted);
    EXPECT_EQ(disk.changes, (Lines{"copy /a.cpp.bak", "replace /a.cpp"}));
    EXPECT_EQ(disk.text("/a.cpp.bak"), kSource);
}

TEST_F(FormatFile, BackupExtensionIsUsedWithoutDotsAndBlanks) {
    options.createBackups = true;
    options.backupExtension = " .orig ";
    disk.put("/a.cpp", kSource);
    run();
    EXPECT_TRUE(disk.has("/a.cpp.orig"));
}

TEST_F(FormatFile, BackupExtensionNeverLeadsElsewhere) {
    options.createBackups = true;
    options.backupExtension = "x/y";
    disk.put("/a.cpp", kSource);
    EXPECT_EQ(run(), FormatResult::failed);
    EXPECT_TRUE(disk.changes.empty());
    EXPECT_EQ(host.told().back(),
              "3: Kerfline was unable to create a backup file for the file \"/a.cpp\". The file "
              "will not be formatted.");
}

TEST_F(FormatFile, KeepsLineEndsAndByteOrderMark) {
    disk.put("/a.cpp", "\xef\xbb\xbfvoid f() {\r\n    if(a) b();\r\n}\r\n");
    EXPECT_EQ(run(), FormatResult::formatted);
    EXPECT_EQ(disk.text("/a.cpp"), "\xef\xbb\xbfvoid f() {\r\n    if (a) b();\r\n}\r\n");
}

TEST_F(FormatFile, WritesUtf16BackAsUtf16) {
    for (const auto order : {Addin::Utf16Order::little, Addin::Utf16Order::big}) {
        const std::string mark = order == Addin::Utf16Order::little ? "\xff\xfe" : "\xfe\xff";
        disk.put("/a.cpp", mark + Addin::toUtf16("void \xc3\xa4() {\r\n    if(a) b(\"\xf0\x9f\x98\x80\");\r\n}\r\n", order));
        EXPECT_EQ(run(), FormatResult::formatted);
        EXPECT_EQ(disk.text("/a.cpp"),
                  mark + Addin::toUtf16("void \xc3\xa4() {\r\n    if (a) b(\"\xf0\x9f\x98\x80\");\r\n}\r\n", order));
    }
}

TEST_F(FormatFile, MixedLineEndsOfAFormattedFileStay) {
    const std::string mixed = "int a;\r\nint b;\nint c;\r";
    disk.put("/a.cpp", mixed);
    EXPECT_EQ(run(), FormatResult::unchanged);
    EXPECT_EQ(disk.text("/a.cpp"), mixed);
}

TEST_F(FormatFile, SkipsOtherExtensionsWithoutAWord) {
    disk.put("/a.inl", kSource);
    EXPECT_EQ(run("/a.inl"), FormatResult::skipped);
    EXPECT_TRUE(host.told().empty());
    EXPECT_EQ(run("/a.inl", Addin::ExtensionTest::passed), FormatResult::formatted);
}

TEST_F(FormatFile, SkipsAnEmptyFile) {
    disk.put("/a.cpp", "");
    EXPECT_EQ(run(), FormatResult::skipped);
    EXPECT_EQ(host.told(), Lines{"1: Formatting \"/a.cpp\"."});
}

TEST_F(FormatFile, SkipsAFileThatCannotBeExamined) {
    disk.put("/a.cpp", kSource);
    disk.fail("status", "/a.cpp");
    EXPECT_EQ(run(), FormatResult::skipped);
    EXPECT_EQ(host.told(), Lines{"1: Formatting \"/a.cpp\"."});
}

constexpr const char* kNoPermissions =
    "3: The file \"/a.cpp\" does not have read/write permissions and cannot be formatted.";
constexpr const char* kUnreadable =
    "3: Kerfline was unable to read the contents of the file \"/a.cpp\". The file will not be formatted.";
constexpr const char* kUnwritable = "3: Kerfline was unable to write the formatted text back to the file "
                                    "\"/a.cpp\". The file will not be formatted.";

struct BadFile {
    const char* name;
    void (*spoil)(FakeFileSystem&);
    std::string message;
    bool isShown;
};
const BadFile kBadFiles[] = {
    {"Missing", [](FakeFileSystem& disk) { disk.vanish("/a.cpp"); }, "3: The file \"/a.cpp\" cannot be found.",
     false},
    {"ReadOnly", [](FakeFileSystem& disk) { disk.setWritable("/a.cpp", false); }, kNoPermissions, false},
    {"WriteOnly", [](FakeFileSystem& disk) { disk.setReadable("/a.cpp", false); }, kNoPermissions, false},
    {"HiddenFolder",
     [](FakeFileSystem& disk) { disk.fail("status", "/a.cpp", NorvaneUI::FailureKind::denied); },
     kNoPermissions, false},
    {"Unreadable", [](FakeFileSystem& disk) { disk.fail("read", "/a.cpp"); }, kUnreadable, true},
    {"Folder", [](FakeFileSystem& disk) { disk.setKind("/a.cpp", NorvaneUI::FileKind::folder); }, kUnreadable,
     true},
    {"Pipe",
     [](FakeFileSystem& disk) {
         disk.put("/a.cpp", "");
         disk.setKind("/a.cpp", NorvaneUI::FileKind::other);
         disk.setWritable("/a.cpp", false);
         disk.before = [](const std::string& call) { EXPECT_NE(call, "read /a.cpp"); };
     },
     kUnreadable, true},
    {"VanishedMeanwhile",
     [](FakeFileSystem& disk) {
         disk.before = [&disk](const std::string& call) {
             if (call == "read /a.cpp") disk.vanish("/a.cpp");
         };
     },
     kUnreadable, true},
    {"ChangedMeanwhile",
     [](FakeFileSystem& disk) {
         disk.before = [&disk](const std::string& call) {
             if (call == "copy /a.cpp.bak") disk.put("/a.cpp", "somebody's newer text");
         };
     },
     kUnwritable, false},
    {"FullDisk", [](FakeFileSystem& disk) { disk.fail("replace", "/a.cpp", NorvaneUI::FailureKind::full); },
     kUnwritable, false},
    {"NoBackup", [](FakeFileSystem& disk) { disk.fail("copy", "/a.cpp.bak", NorvaneUI::FailureKind::full); },
     "3: Kerfline was unable to create a backup file for the file \"/a.cpp\". The file will not be formatted.",
     false},
};
class FormatFileFailure : public FormatFile, public testing::WithParamInterface<BadFile> {};

TEST_P(FormatFileFailure, IsToldAndWritesNothing) {
    options.createBackups = true;
    disk.put("/a.cpp", kSource);
    GetParam().spoil(disk);
    EXPECT_EQ(run(), FormatResult::failed);
    Lines expected{"1: Formatting \"/a.cpp\".", GetParam().message};
    if (GetParam().isShown) expected.push_back("notice: " + GetParam().message.substr(3));
    EXPECT_EQ(host.told(), expected);
    EXPECT_NE(disk.text("/a.cpp"), kResult);
}
INSTANTIATE_TEST_SUITE_P(All, FormatFileFailure, testing::ValuesIn(kBadFiles),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FormatFile, ListsTheDiagnosticsOfATextThatDoesNotParse) {
    options.createBackups = true;
    bench.isStrict = true;
    disk.put("/a.cpp", kBroken);
    disk.put("/a.cpp.bak", "older");
    EXPECT_EQ(run(), FormatResult::refused);
    EXPECT_TRUE(disk.changes.empty());
    EXPECT_EQ(host.logged("progress").back(), "The file will not be formatted:\n/a.cpp");
    const Lines errors = host.logged("3");
    ASSERT_GE(errors.size(), 2u);
    EXPECT_TRUE(errors.front().starts_with("/a.cpp(1) : error: col ")) << errors.front();
    EXPECT_TRUE(errors.back().starts_with("Kerfline could not successfully parse the file /a.cpp. "))
        << errors.back();
    EXPECT_TRUE(errors.back().ends_with(" The file will not be formatted.")) << errors.back();
    const auto placed = std::find_if(host.messages.begin(), host.messages.end(),
                                     [](const Addin::Message& m) { return !m.position.isNone(); });
    ASSERT_NE(placed, host.messages.end());
    EXPECT_EQ(placed->path, "/a.cpp");
    EXPECT_EQ(placed->position.line, 1u);
    EXPECT_EQ(placed->text.find("/a.cpp"), std::string::npos) << placed->text;
}

TEST_F(FormatFile, WarnsOfWhatItLeavesAlone) {
    disk.put("/a.cpp", std::string(kSource) + kBroken);
    EXPECT_EQ(run(), FormatResult::formatted);
    EXPECT_EQ(disk.text("/a.cpp"), std::string(kResult) + kBroken);
    const Lines warnings = host.logged("2");
    ASSERT_FALSE(warnings.empty());
    EXPECT_TRUE(warnings.front().starts_with("/a.cpp(4) : warning: col ")) << warnings.front();
    EXPECT_EQ(host.logged("3"), Lines{});
}

TEST_F(FormatFile, RefusesWhatIsNoSource) {
    const std::pair<std::string, std::string> cases[] = {
        {std::string("int a;\nint\0b;\n", 14),
         "(2) : error: col 4: The text is no source: it holds a NUL character."},
        {std::string("\0", 1), "(1) : error: col 1: The text is no source: it holds a NUL character."},
        {std::string("\n\0", 2), "(2) : error: col 1: The text is no source: it holds a NUL character."},
        {"\xff\xfei", "(0) : error: col 0: The text cannot be read: it is marked as UTF-16, but ill-formed."},
        {"\xfe\xff\xdc\x01", "(0) : error: col 0: The text cannot be read: it is marked as UTF-16, but ill-formed."},
        {std::string("\xff\xfe\0\0i\0\0\0", 8), "(0) : error: col 0: The text cannot be read: it is in UTF-32."},
        {std::string("\0\0\xfe\xff\0\0\0i", 8), "(0) : error: col 0: The text cannot be read: it is in UTF-32."},
    };
    for (const auto& [bytes, line] : cases) {
        host.log.clear();
        disk.put("/a.cpp", bytes);
        EXPECT_EQ(run(), FormatResult::refused);
        EXPECT_EQ(host.logged("3").front(), "/a.cpp" + line);
        EXPECT_EQ(disk.text("/a.cpp"), bytes);
    }
}

struct CancelledStep {
    const char* name;
    const char* step;
    std::vector<std::string> told;
};
using Lines = std::vector<std::string>;
const Lines kNothingMore{"1: Formatting \"/a.cpp\"."};
const Lines kCancelLine{"1: Formatting \"/a.cpp\".",
                        "1: /a.cpp(0) : information: col 0: Formatting cancelled at user's request."};
const CancelledStep kCancelledSteps[] = {
    {"Opening", "Opening file", kNothingMore},
    {"Analyzing", "Analyzing file", kCancelLine},
    {"Formatting", "Formatting file", kNothingMore},
};
class FormatFileCancel : public FormatFile, public testing::WithParamInterface<CancelledStep> {};

/// The step at which the user cancels is still shown; the next one asks and learns of it.
TEST_P(FormatFileCancel, ChangesNothingAndMakesNoBackup) {
    options.createBackups = true;
    disk.put("/a.cpp", kSource);
    host.cancelAt = GetParam().step;
    EXPECT_EQ(run(), FormatResult::cancelled);
    EXPECT_TRUE(disk.changes.empty());
    EXPECT_EQ(host.told(), GetParam().told);
}
INSTANTIATE_TEST_SUITE_P(All, FormatFileCancel, testing::ValuesIn(kCancelledSteps),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FormatFile, CancelInFrontOfTheFirstStepShowsNothing) {
    disk.put("/a.cpp", kSource);
    host.onPump = [&] { host.cancelled = true; };
    EXPECT_EQ(run(), FormatResult::cancelled);
    EXPECT_TRUE(host.log.empty());
}

TEST_F(FormatFile, CancelThatComesWhileItWritesIsTooLate) {
    disk.put("/a.cpp", kSource);
    host.cancelAt = "Writing file";
    EXPECT_EQ(run(), FormatResult::formatted);
    EXPECT_EQ(disk.text("/a.cpp"), kResult);
}

struct Thrown {
    const char* name;
    void (*raise)();
    const char* text;
};
const Thrown kThrown[] = {
    {"Engine", [] { throw Trn::InvalidParameterException(); },
     "An unexpected error has occurred. The current Kerfline operation has failed. Please contact Technical "
     "Support and report the following details: InvalidParameterExecption"},
    {"Memory", [] { throw std::bad_alloc(); },
     "Kerfline is out of memory. Please try closing applications before attempting to run this application "
     "again."},
    {"Standard", [] { throw std::runtime_error("100 %s"); },
     "An unexpected error has occurred. The current Kerfline operation has failed. Please contact Technical "
     "Support and report the following details: 100 %s"},
    {"Other", [] { throw 1; },
     "An unexpected error has occurred. The current Kerfline operation has failed. Please contact Technical "
     "Support and report the following details: Unknown"},
};
class FormatFileThrows : public FormatFile, public testing::WithParamInterface<Thrown> {};

TEST_P(FormatFileThrows, TellsOfItAndLeavesTheFile) {
    disk.put("/a.cpp", kSource);
    host.onProgress = [](const std::string& text) {
        if (text.starts_with("Formatting file")) GetParam().raise();
    };
    EXPECT_EQ(run(), FormatResult::failed);
    EXPECT_EQ(host.logged("3"),
              Lines{std::string(GetParam().text) + " The file \"/a.cpp\" will not be formatted."});
    EXPECT_EQ(disk.text("/a.cpp"), kSource);
}
INSTANTIATE_TEST_SUITE_P(All, FormatFileThrows, testing::ValuesIn(kThrown),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FormatFile, GateKeepsTheSource) {
    options.createBackups = true;
    disk.put("/a.cpp", kSource);
    std::string asked;
    bench.gate = [&](const std::string& path, std::string_view source,
                     std::string_view result) -> std::optional<Addin::Objection> {
        asked = path + '|' + std::string(source) + '|' + std::string(result);
        return Addin::Objection{"the tokens differ", {1, 5}};
    };
    EXPECT_EQ(run(), FormatResult::refused);
    EXPECT_EQ(asked, std::string("/a.cpp|") + kSource + '|' + kResult);
    EXPECT_EQ(host.logged("3"), Lines{"the tokens differ"});
    EXPECT_TRUE(disk.changes.empty());
    bench.gate = [](const std::string&, std::string_view, std::string_view) { return std::nullopt; };
    EXPECT_EQ(run(), FormatResult::formatted);
}

TEST_F(FormatFile, NamesWithPlaceholdersAreText) {
    disk.put("/%s%n.cpp", kSource);
    EXPECT_EQ(run("/%s%n.cpp"), FormatResult::formatted);
    EXPECT_EQ(host.told(), Lines{"1: Formatting \"/%s%n.cpp\"."});
    EXPECT_EQ(host.logged("progress").front(), "Opening file:\n/%s%n.cpp");
}

TEST_F(FormatFile, SwitchesTheTraceOff) {
    Zelmar::Trace::switchOn();
    disk.put("/a.cpp", kSource);
    run();
    EXPECT_FALSE(Zelmar::Trace::isOn());
}

} // namespace
