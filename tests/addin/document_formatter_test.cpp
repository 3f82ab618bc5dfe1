#include "addin/Addin_DocumentFormatter.h"
#include "files/Zelmar_Trace.h"
#include "tests/addin/Fixture.h"

#include <stdexcept>

namespace {

using Addin::Answer;
using Addin::FormatResult;
using Addin::Occasion;

constexpr const char* kAskExtension =
    "The file \"/a.inl\" does not have a file extension registered with Kerfline as "
    "valid for formatting. Format the file anyway?";
constexpr const char* kAskSave =
    "The file you have chosen to reformat is unsaved. Would you like to save it before Kerfline reformats it?";

class FormatDocument : public AddinTest {
protected:
    FormatDocument() { options.createBackups = false; }

    FormatResult run(Addin::Document document, Occasion occasion = Occasion::command) {
        const auto dialog = host.openProgress(5);
        return Addin::DocumentFormatter(bench).FormatDocument(document, keywordScheme(), dialog.get(), occasion);
    }
    std::string textOf(Addin::Document document) const { return host.documents.at(document).text; }
    bool cursorStayed(Addin::Document document) const {
        const Addin::Cursor cursor = host.documents.at(document).cursor;
        return cursor.line == 7 && cursor.column == 9;
    }
};

TEST_F(FormatDocument, ReplacesTheTextAndKeepsTheCursor) {
    const auto document = host.open("/a.cpp", kSource);
    EXPECT_EQ(run(document), FormatResult::formatted);
    EXPECT_EQ(textOf(document), kResult);
    EXPECT_TRUE(cursorStayed(document));
    EXPECT_EQ(host.log,
              (Lines{"progress: Opening file:\nactive document", "1: Formatting \"/a.cpp\".",
                     "progress: Analyzing file:\nactive document", "progress: Formatting file:\nactive document",
                     "progress: Writing file:\nactive document", "progress: Completed file:\nactive document"}));
    EXPECT_TRUE(disk.changes.empty());
}

TEST_F(FormatDocument, ShowsTheHostsNameForAnEvent) {
    const auto document = host.open("/a.cpp", kSource);
    run(document, Occasion::event);
    EXPECT_EQ(host.logged("progress").front(), "Opening file:\na.cpp");
    host.log.clear();
    host.documents.at(document).info.name.clear();
    run(document, Occasion::event);
    EXPECT_EQ(host.logged("progress").front(), "Opening file:\n<Unknown>");
}

TEST_F(FormatDocument, LeavesAFormattedTextAlone) {
    options.createBackups = true;
    disk.put("/a.cpp", kResult);
    const auto document = host.open("/a.cpp", kResult);
    EXPECT_EQ(run(document), FormatResult::unchanged);
    EXPECT_EQ(host.documents.at(document).revision, 1u);
    EXPECT_TRUE(disk.changes.empty());
}

TEST_F(FormatDocument, SkipsWhatIsNoText) {
    const auto document = host.open("/a.cpp", kSource);
    host.documents.at(document).info.isText = false;
    EXPECT_EQ(run(document), FormatResult::skipped);
    EXPECT_TRUE(host.told().empty());
    EXPECT_EQ(textOf(document), kSource);
}

TEST_F(FormatDocument, SkipsAnEmptyText) {
    const auto document = host.open("/a.cpp", "");
    EXPECT_EQ(run(document), FormatResult::skipped);
    EXPECT_EQ(host.told(), Lines{"1: Formatting \"/a.cpp\"."});
}

TEST_F(FormatDocument, RefusesAReadOnlyDocument) {
    const auto document = host.open("/a.cpp", kSource);
    host.documents.at(document).info.isReadOnly = true;
    EXPECT_EQ(run(document), FormatResult::refused);
    EXPECT_EQ(host.told(),
              Lines{"1: The file you are attempting to format is read only and cannot be formatted."});
    EXPECT_EQ(textOf(document), kSource);
}

TEST_F(FormatDocument, AsksAboutAnotherExtension) {
    const auto document = host.open("/a.inl", kSource);
    for (const Answer answer : {Answer::no, Answer::cancel}) {
        host.answers[kAskExtension] = answer;
        EXPECT_EQ(run(document, Occasion::event), FormatResult::skipped);
        EXPECT_EQ(textOf(document), kSource);
    }
    EXPECT_EQ(host.occasions.back(), Occasion::event);
    host.answers[kAskExtension] = Answer::yes;
    EXPECT_EQ(run(document), FormatResult::formatted);
    EXPECT_EQ(host.occasions.back(), Occasion::command);
}

TEST_F(FormatDocument, AsksAboutATextWithoutAName) {
    const auto document = host.open("", kSource);
    run(document);
    EXPECT_EQ(host.logged("question"),
              Lines{"The file \"<Unknown>\" does not have a file extension registered with Kerfline as valid for "
                    "formatting. Format the file anyway?"});
}

TEST_F(FormatDocument, SavesIfTheUserWantsIt) {
    for (const Addin::Saved saved : {Addin::Saved::no, Addin::Saved::unknown}) {
        const auto document = host.open("/a.cpp", kSource);
        host.documents.at(document).info.saved = saved;
        host.answers[kAskSave] = Answer::yes;
        EXPECT_EQ(run(document), FormatResult::formatted);
        EXPECT_EQ(host.documents.at(document).info.saved, Addin::Saved::yes);
    }
}

TEST_F(FormatDocument, FormatsUnsavedIfTheUserWantsIt) {
    const auto document = host.open("/a.cpp", kSource);
    host.documents.at(document).info.saved = Addin::Saved::no;
    host.answers[kAskSave] = Answer::no;
    EXPECT_EQ(run(document), FormatResult::formatted);
    EXPECT_EQ(host.documents.at(document).info.saved, Addin::Saved::no);
}

TEST_F(FormatDocument, EndsIfTheUserCancelsTheSaving) {
    const auto document = host.open("/a.cpp", kSource);
    host.documents.at(document).info.saved = Addin::Saved::no;
    EXPECT_EQ(run(document), FormatResult::cancelled);
    EXPECT_EQ(textOf(document), kSource);
}

TEST_F(FormatDocument, AsksNothingIfSwitchedOff) {
    options.promptUnsaved = false;
    const auto document = host.open("/a.cpp", kSource);
    host.documents.at(document).info.saved = Addin::Saved::no;
    EXPECT_EQ(run(document), FormatResult::formatted);
    EXPECT_TRUE(host.logged("question").empty());
}

TEST_F(FormatDocument, TakesTheNameThatSavingGave) {
    options.createBackups = true;
    const auto document = host.open("/old.cpp", kSource);
    host.documents.at(document).info.saved = Addin::Saved::no;
    host.answers[kAskSave] = Answer::yes;
    host.onSave = [&] {
        host.documents.at(document).info.path = "/new.cpp";
        ++host.documents.at(document).revision;
        disk.put("/new.cpp", kSource);
    };
    EXPECT_EQ(run(document), FormatResult::formatted);
    EXPECT_EQ(disk.changes, Lines{"copy /new.cpp.bak"});
}

struct BadDocument {
    const char* name;
    void (*spoil)(FakeHost&, FakeFileSystem&);
    std::string message;
    bool isShown;
};
constexpr const char* kNoText = "3: Kerfline was unable to obtain the text of the active file from Visual "
                                "Studio. The file will not be formatted.";
constexpr const char* kUnwritable = "3: Kerfline was unable to write the formatted text back to the file "
                                    "\"/a.cpp\". The file will not be formatted.";
using NorvaneUI::FailureKind;
const BadDocument kBadDocuments[] = {
    {"NoText", [](FakeHost& host, FakeFileSystem&) { host.failing["text"] = FailureKind::other; }, kNoText,
     false},
    {"SaveFails",
     [](FakeHost& host, FakeFileSystem&) {
         host.documents.begin()->second.info.saved = Addin::Saved::no;
         host.answers[kAskSave] = Answer::yes;
         host.failing["save"] = FailureKind::cancelled;
     },
     "3: Kerfline was unable to save the file. The file will not be formatted.", true},
    {"ReplaceFails", [](FakeHost& host, FakeFileSystem&) { host.failing["replaceText"] = FailureKind::denied; },
     kUnwritable, false},
    {"TypedMeanwhile",
     [](FakeHost& host, FakeFileSystem&) {
         host.onProgress = [&host](const std::string& text) {
             if (text.starts_with("Formatting file")) ++host.documents.begin()->second.revision;
         };
     },
     kUnwritable, false},
    {"BackupFails", [](FakeHost&, FakeFileSystem& disk) { disk.fail("copy", "/a.cpp.bak", FailureKind::full); },
     "3: Kerfline was unable to create a backup file for the file \"/a.cpp\". The file will not be formatted.",
     false},
};
class FormatDocumentFailure : public FormatDocument, public testing::WithParamInterface<BadDocument> {};

TEST_P(FormatDocumentFailure, IsToldAndLeavesTheText) {
    options.createBackups = true;
    disk.put("/a.cpp", kSource);
    const auto document = host.open("/a.cpp", kSource);
    GetParam().spoil(host, disk);
    EXPECT_EQ(run(document), FormatResult::failed);
    Lines expected{"1: Formatting \"/a.cpp\"."};
    if (!host.logged("question").empty()) expected.push_back(std::string("question: ") + kAskSave);
    expected.push_back(GetParam().message);
    if (GetParam().isShown) expected.push_back("notice: " + GetParam().message.substr(3));
    EXPECT_EQ(host.told(), expected);
    EXPECT_EQ(textOf(document), kSource);
    EXPECT_TRUE(cursorStayed(document));
}
INSTANTIATE_TEST_SUITE_P(All, FormatDocumentFailure, testing::ValuesIn(kBadDocuments),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(FormatDocument, ClosedDocumentHasNoText) {
    const auto document = host.open("/a.cpp", kSource);
    host.documents.clear();
    EXPECT_EQ(run(document), FormatResult::failed);
    EXPECT_EQ(host.told(), Lines{kNoText});
}

TEST_F(FormatDocument, ListsTheDiagnosticsOfATextThatDoesNotParse) {
    const auto document = host.open("/a.cpp", kBroken);
    bench.isStrict = true;
    EXPECT_EQ(run(document), FormatResult::refused);
    const Lines errors = host.logged("3");
    ASSERT_GE(errors.size(), 2u);
    EXPECT_TRUE(errors.front().starts_with("/a.cpp(1) : error: col ")) << errors.front();
    EXPECT_TRUE(errors.back().starts_with("Kerfline could not successfully parse the file /a.cpp. "))
        << errors.back();
    EXPECT_TRUE(cursorStayed(document));
}

TEST_F(FormatDocument, TextThatIsNotOnTheDiskHasNoBackup) {
    options.createBackups = true;
    const auto document = host.open("/never-saved.cpp", kSource);
    EXPECT_EQ(run(document), FormatResult::formatted);
    EXPECT_TRUE(disk.changes.empty());
}

TEST_F(FormatDocument, ExceptionIsToldOf) {
    const auto document = host.open("/a.cpp", kSource);
    host.onProgress = [](const std::string& text) {
        if (text.starts_with("Writing file")) throw std::runtime_error("no luck");
    };
    EXPECT_EQ(run(document), FormatResult::failed);
    EXPECT_EQ(host.logged("3"),
              Lines{"An unexpected error has occurred. The current Kerfline operation has failed. Please contact "
                    "Technical Support and report the following details: no luck The file \"/a.cpp\" will not be "
                    "formatted."});
    EXPECT_EQ(textOf(document), kSource);
    EXPECT_TRUE(cursorStayed(document));
}

TEST_F(FormatDocument, CancelLeavesTheText) {
    for (const char* step : {"Opening file", "Analyzing file", "Formatting file"}) {
        SCOPED_TRACE(step);
        host.cancelled = false;
        host.cancelAt = step;
        const auto document = host.open("/a.cpp", kSource);
        EXPECT_EQ(run(document), FormatResult::cancelled);
        EXPECT_EQ(textOf(document), kSource);
    }
    EXPECT_TRUE(host.logged("3").empty());
}

TEST_F(FormatDocument, SwitchesTheTraceOff) {
    Zelmar::Trace::switchOn();
    run(host.open("/a.cpp", kSource));
    EXPECT_FALSE(Zelmar::Trace::isOn());
}

} // namespace
