#include "tests/ui/StylesDialogFixture.h"
#include "ui/NorvaneUI_Texts.h"

#include <optional>

namespace {

using namespace NorvaneUI;
using FailureKind = NorvaneUI::FailureKind;

constexpr const char* kUnreadable =
    "Kerfline encountered an error while trying to read the scheme file \"/s/%s\". To correct the problem, you "
    "should delete this file before restarting Kerfline and attempting this operation again.";

std::string unreadable(const std::string& file) {
    std::string text = kUnreadable;
    return text.replace(text.find("%s"), 2, file);
}
std::string unwritable(const std::string& path) {
    return "Kerfline encountered an error while trying to write the scheme file \"" + path +
           "\". To correct the problem, ensure you have enough disk space and that the directory \"/s/\" can be "
           "written to.";
}

// ------------------------------------------------------------------------------------------- failures

TEST_F(StylesDialog, KeepsTheEditsIfASchemeCannotBeWritten) {
    edit("Mine", "\\t");
    disk.fail("replace", "/s/Mine.kls", FailureKind::full);
    EXPECT_FALSE(dialog->accept());
    EXPECT_EQ(face.notices, FakeFace::Lines{unwritable("/s/Mine.kls")});
    EXPECT_EQ(dialog->currentShown(), "Mine (Modified)");
    disk.mend();
    EXPECT_TRUE(dialog->accept());
    EXPECT_TRUE(face.questions.empty());
    EXPECT_EQ(valueOnDisk("Mine"), "\"\t\"");
}

// What was written before the failure must not look like the work of another program.
TEST_F(StylesDialog, GoesOnWhereAFailedSaveStopped) {
    edit("Mine", "\\t");
    edit("Other", "\\t");
    face.names = {"A new one"};
    dialog->newScheme();
    disk.fail("replace", "/s/Other.kls", FailureKind::full);
    EXPECT_FALSE(dialog->save());
    disk.mend();
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(face.questions.empty());
    EXPECT_EQ(valueOnDisk("Mine"), "\"\t\"");
    EXPECT_EQ(valueOnDisk("Other"), "\"\t\"");
    EXPECT_EQ(valueOnDisk("A new one"), "not set");
    EXPECT_EQ(shown(), "A new one, Locked [built-in], Mine, Other");
}

TEST_F(StylesDialog, TellsOfASchemeThatHasBecomeReadOnly) {
    edit("Mine", "\\t");
    disk.setWritable("/s/Mine.kls", false);
    EXPECT_FALSE(dialog->save());
    EXPECT_EQ(face.notices, FakeFace::Lines{unwritable("/s/Mine.kls")});
    // Once it is known, the edits can be saved as another scheme.
    dialog->rereadFolder();
    face.answers = {Answer::yes};
    face.names = {"Copy"};
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(face.questions, FakeFace::Lines{std::string(Texts::kModifiedBuiltIn)});
    EXPECT_EQ(valueOnDisk("Copy"), "\"\t\"");
}

TEST_F(StylesDialog, BringsBackADeletedSchemeThatHasBecomeReadOnly) {
    dialog->select("Mine");
    deleteScheme();
    disk.setWritable("/s/Mine.kls", false);
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(face.notices, FakeFace::Lines{"This scheme is built-in and cannot be deleted."});
    EXPECT_EQ(shown(), "Locked [built-in], Mine [built-in], Other");
}

TEST_F(StylesDialog, ABrokenSchemeIsToldAndHoldsNothingUp) {
    edit("Mine", "\\t");
    disk.put("/s/broken.kls", "");
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(face.notices, FakeFace::Lines{unreadable("broken.kls")});
    EXPECT_EQ(valueOnDisk("Mine"), "\"\t\"");
    EXPECT_EQ(disk.text("/s/broken.kls"), "");
}

// What broke is the very scheme that is edited: it may hold more than what is known here.
TEST_F(StylesDialog, WritesNothingOverASchemeThatBroke) {
    edit("Mine", "\\t");
    disk.put("/s/Mine.kls", "half a file");
    face.answers = {Answer::yes};
    EXPECT_FALSE(dialog->save());
    EXPECT_EQ(face.questions.size(), 1u);
    EXPECT_EQ(disk.text("/s/Mine.kls"), "half a file");
    EXPECT_EQ(dialog->currentShown(), "Mine (Modified)");
}

TEST_F(StylesDialog, FolderThatCannotBeListedIsToldAtEachSave) {
    edit("Mine", "\\t");
    disk.fail("list", "/s/", FakeFileSystem::FailureKind::denied);
    EXPECT_FALSE(dialog->save());
    EXPECT_FALSE(dialog->save());
    EXPECT_EQ(face.notices.size(), 2u);
    dialog->rereadFolder();
    EXPECT_EQ(face.notices.size(), 2u);
    EXPECT_EQ(dialog->currentShown(), "Mine (Modified)");
}

TEST_F(StylesDialog, ASaveKeepsCommentsAndLayoutOfTheFile) {
    const std::string before = "# ours\n" + disk.text("/s/Mine.kls") + "\n# end\n";
    disk.put("/s/Mine.kls", before);
    open();
    edit("Mine", "\\t");
    EXPECT_TRUE(dialog->save());
    std::string expected = before;
    const std::size_t line = expected.find("3 WS_AFTER_CS_KEY");
    expected.replace(line, expected.find('\n', line) - line, "3 WS_AFTER_CS_KEY \"\\t\"");
    EXPECT_EQ(disk.text("/s/Mine.kls"), expected);
    face.names = {"Yours"};
    EXPECT_TRUE(dialog->renameScheme() && dialog->save());
    expected.replace(expected.find("Mine"), 4, "Yours");
    EXPECT_EQ(disk.text("/s/Yours.kls"), expected);
    EXPECT_FALSE(disk.has("/s/Mine.kls"));
}

TEST_F(StylesDialog, KeepsTheEditsOfAUserWithoutAFolder) {
    PropertySetStore nowhere("", disk);
    StylesDlg homeless(face, disk, settings, nowhere, {schemeOf("Shipped")});
    face.names = {"Mine"};
    EXPECT_TRUE(homeless.newScheme());
    EXPECT_FALSE(homeless.accept());
    EXPECT_EQ(face.notices,
              FakeFace::Lines{"There is no folder to keep schemes in, so your changes cannot be saved."});
    EXPECT_EQ(homeless.currentShown(), "Mine (Modified)");
}

TEST_F(StylesDialog, TellsIfTheSettingsCannotBeKept) {
    disk.fail("create", "/c/settings");
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(face.notices, FakeFace::Lines{"Failed to create registry settings. Any options you set during this "
                                            "session will not be saved."});
    disk.mend();
    disk.put("/c/settings", "");
    disk.fail("read", "/c/settings");
    dialog->cancel();
    EXPECT_EQ(face.notices.back(), "Could not open application registry key. Any options you set during this "
                                   "session will not be saved.");
}

// -------------------------------------------------------------------------------------- other programs

TEST_F(StylesDialog, TakesOverWhatOtherProgramsDid) {
    put("Mine", "\t");
    put("Added", "\n");
    disk.vanish("/s/Other.kls");
    dialog->select("Mine");
    dialog->rereadFolder();
    EXPECT_EQ(shown(), "Added, Locked [built-in], Mine");
    EXPECT_EQ(value("Mine"), "\"\t\"");
    EXPECT_EQ(value("Added"), "\"\n\"");
    EXPECT_TRUE(face.notices.empty());
    EXPECT_TRUE(dialog->close());
    EXPECT_TRUE(face.questions.empty());
}

TEST_F(StylesDialog, DoesNotBringADeletedSchemeBack) {
    dialog->select("Mine");
    deleteScheme();
    dialog->rereadFolder();
    EXPECT_EQ(shown(), "Locked [built-in], Other");
}

TEST_F(StylesDialog, ShowsAnotherSchemeIfTheOneShownIsRemoved) {
    dialog->select("Mine");
    disk.vanish("/s/Mine.kls");
    dialog->rereadFolder();
    EXPECT_EQ(dialog->current(), "Other");
    EXPECT_EQ(dialog->sheet().scheme()->scheme().getName(), "Other");
}

TEST_F(StylesDialog, TellsOfAConflictOnceAndKeepsTheEdits) {
    edit("Mine", "\\t");
    edit("Other", "\\t");
    put("Mine", "\n");
    disk.vanish("/s/Other.kls");
    dialog->rereadFolder();
    dialog->rereadFolder();
    EXPECT_EQ(face.notices,
              (FakeFace::Lines{"Another program has changed the scheme \"Mine\". Your changes are kept, and you will "
                               "be asked which of the two to keep when you save.",
                               "Another program has removed the scheme \"Other\". Your changes are kept, and you "
                               "will be asked whether to write it again when you save."}));
    EXPECT_EQ(value("Mine"), "\"\t\"");
    EXPECT_EQ(value("Other"), "\"\t\"");
}

TEST_F(StylesDialog, TellsOfABrokenSchemeOnce) {
    disk.put("/s/broken.kls", "");
    dialog->rereadFolder();
    dialog->rereadFolder();
    EXPECT_EQ(face.notices, FakeFace::Lines{unreadable("broken.kls")});
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other");
    disk.vanish("/s/broken.kls");
    dialog->rereadFolder();
    disk.put("/s/broken.kls", "");
    dialog->rereadFolder();
    EXPECT_EQ(face.notices.size(), 2u);
}

struct ConflictCase {
    const char* name;
    /// Done here and by the other program. Nothing for an edit: the scheme goes.
    std::optional<std::string> here;
    std::optional<std::string> there;
    const char* question;
    /// What is on the disk after Yes and after No.
    const char* afterYes;
    const char* afterNo;
};
const ConflictCase kConflicts[] = {
    {"BothChanged", "\\t", "\n",
     "Another program has changed the scheme \"Mine\". Choose Yes to replace it with yours, No to discard your changes "
     "and Cancel to return to the Manage Schemes dialog.",
     "\"\t\"", "\"\n\""},
    {"ChangedAndRemoved", "\\t", std::nullopt,
     "Another program has removed the scheme \"Mine\". Choose Yes to write it again, No to discard your changes and "
     "Cancel to return to the Manage Schemes dialog.",
     "\"\t\"", "no file"},
    {"RemovedAndChanged", std::nullopt, "\n",
     "Another program has changed the scheme \"Mine\" that you have deleted. Choose Yes to delete it, No to keep it "
     "and Cancel to return to the Manage Schemes dialog.",
     "no file", "\"\n\""},
};

class Conflict : public StylesDialog, public testing::WithParamInterface<ConflictCase> {
protected:
    void collide() {
        if (GetParam().here) {
            edit("Mine", *GetParam().here);
        } else {
            dialog->select("Mine");
            deleteScheme();
        }
        if (GetParam().there) put("Mine", *GetParam().there);
        else disk.vanish("/s/Mine.kls");
    }
};

TEST_P(Conflict, IsDecidedByTheUserAlone) {
    collide();
    EXPECT_FALSE(dialog->save());
    EXPECT_EQ(face.questions, FakeFace::Lines{GetParam().question});
    EXPECT_TRUE(disk.changes.empty());
    face.answers = {Answer::yes};
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(valueOnDisk("Mine"), GetParam().afterYes);
    EXPECT_TRUE(dialog->close());
    EXPECT_EQ(face.questions.size(), 2u);
}

TEST_P(Conflict, CanGoToTheOtherProgram) {
    collide();
    face.answers = {Answer::no};
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(valueOnDisk("Mine"), GetParam().afterNo);
    const bool isListed = shown().find("Mine") != std::string::npos;
    EXPECT_EQ(isListed, std::string(GetParam().afterNo) != "no file");
    if (isListed) {
        EXPECT_EQ(value("Mine"), GetParam().afterNo);
    }
    EXPECT_TRUE(dialog->close());
    EXPECT_EQ(face.questions.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(StylesDialog, Conflict, testing::ValuesIn(kConflicts),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(StylesDialog, AsksBeforeANewSchemeReplacesOneThatCameMeanwhile) {
    face.names = {"Same"};
    dialog->newScheme();
    put("Same", "\n");
    dialog->rereadFolder();
    EXPECT_EQ(dialog->currentShown(), "Same (Modified)");
    EXPECT_TRUE(face.notices.empty());
    face.answers = {Answer::no};
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(face.questions.size(), 1u);
    EXPECT_EQ(value("Same"), "\"\n\"");
}

TEST_F(StylesDialog, DoesNotAskIfBothDidTheSame) {
    edit("Mine", "\\t");
    put("Mine", "\t");
    dialog->select("Other");
    deleteScheme();
    disk.vanish("/s/Other.kls");
    dialog->rereadFolder();
    EXPECT_EQ(shown(), "Locked [built-in], Mine");
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(face.questions.empty());
    EXPECT_TRUE(face.notices.empty());
}

// The other program's scheme took the file name, so ours would go to one that is not found again.
TEST_F(StylesDialog, RefusesANameWhoseFileWasTakenMeanwhile) {
    face.names = {"a/b"};
    dialog->newScheme();
    disk.put("/s/a_b.kls", schemeText(schemeOf("Theirs")));
    EXPECT_FALSE(dialog->save());
    EXPECT_EQ(face.notices.size(), 1u);
    EXPECT_EQ(dialog->currentShown(), "a/b (Modified)");
    face.names = {"c"};
    EXPECT_TRUE(dialog->renameScheme());
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(valueOnDisk("c"), "not set");
}

TEST_F(StylesDialog, LeavesTheSchemesThatOthersAddedOrChangedAlone) {
    edit("Mine", "\\t");
    put("Other", "\n");
    put("Added", "\n");
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(valueOnDisk("Other"), "\"\n\"");
    EXPECT_EQ(valueOnDisk("Added"), "\"\n\"");
    EXPECT_TRUE(face.questions.empty());
    EXPECT_EQ(shown(), "Added, Locked [built-in], Mine, Other");
}

} // namespace
