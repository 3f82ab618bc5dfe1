#include "tests/ui/StylesDialogFixture.h"

namespace {

using namespace NorvaneUI;

constexpr const char* kBuiltInQuestion =
    "You have modified a built-in scheme that is read only. Choose Yes to save the changes to a new scheme, No to "
    "discard the changes and Cancel to return to the Manage Schemes dialog.";

// ---------------------------------------------------------------------------------------------- list

TEST_F(StylesDialog, ListsSchemesAndMarksWhatIsModified) {
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other");
    EXPECT_EQ(dialog->current(), "Locked");
    edit("Mine", "\\t");
    EXPECT_EQ(shown(), "Locked [built-in], Mine (Modified), Other");
    EXPECT_EQ(dialog->currentShown(), "Mine (Modified)");
    dialog->sheet().undo();
    EXPECT_EQ(dialog->currentShown(), "Mine");
}

TEST_F(StylesDialog, StartsWithTheSchemeOfTheLastTime) {
    dialog->select("Other");
    dialog->cancel();
    open();
    EXPECT_EQ(dialog->current(), "Other");
    settings.setString("CurrentPropertySet", "Lost");
    open();
    EXPECT_EQ(dialog->current(), "Mine");
}

TEST_F(StylesDialog, TakesShippedSchemesForBuiltInBehindThoseOfTheUser) {
    open({schemeOf("Mine"), schemeOf("Shipped")});
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other, Shipped [built-in]");
    // Without the scheme in front of it, the shipped one comes to light.
    dialog->select("Mine");
    EXPECT_TRUE(deleteScheme());
    EXPECT_EQ(shown(), "Locked [built-in], Mine [built-in], Other, Shipped [built-in]");
    EXPECT_TRUE(dialog->accept());
    EXPECT_FALSE(disk.has("/s/Mine.kls"));
}

TEST_F(StylesDialog, StaysAtASchemeWithAnEntryThatIsNoValue) {
    edit("Mine", "x");
    EXPECT_FALSE(dialog->select("Other"));
    EXPECT_FALSE(dialog->newScheme());
    EXPECT_FALSE(dialog->accept());
    EXPECT_FALSE(dialog->close());
    EXPECT_EQ(face.notices.size(), 4u);
    EXPECT_EQ(face.focus, "WS_AFTER_CS_KEY");
    EXPECT_TRUE(disk.changes.empty());
}

// A copy of a file keeps the name of the scheme in it, and the user wonders why edits have no effect.
TEST_F(StylesDialog, WarnsOfTwoFilesWithTheSameScheme) {
    EXPECT_TRUE(dialog->warnings().empty());
    disk.put("/s/Copy of Mine.kls", disk.text("/s/Mine.kls"));
    open();
    EXPECT_EQ(dialog->warnings(), FakeFace::Lines{"The files \"Copy of Mine.kls\" and \"Mine.kls\" both hold a "
                                                  "scheme \"Mine\". The one in \"Copy of Mine.kls\" is in use."});
}

TEST_F(StylesDialog, WarnsOfWhatIsWrongInFiles) {
    disk.put("/s/broken.kls", "x");
    disk.put("/s/Other.kls", "Norvane::PropertySet\n1\n3 WS_AFTER_CS_KEY \" \"\n2 TAB_SIZE 1\n2 TAB_SIZE 2\n");
    dialog->rereadFolder();
    EXPECT_EQ(dialog->warnings(),
              (FakeFace::Lines{"/s/broken.kls cannot be read as a scheme and is left out.",
                               "Other.kls, line 3: the name of the scheme is missing: it stands here, in double quotes, "
                               "in front of the options",
                               "Other.kls, line 5: TAB_SIZE is given twice: the value of line 4 does not count"}));
}

TEST_F(StylesDialog, MakesANewSchemeThatChangesNothing) {
    face.names = {"New Scheme"};
    EXPECT_TRUE(dialog->newScheme());
    EXPECT_EQ(face.proposals, FakeFace::Lines{"New Scheme"});
    EXPECT_EQ(dialog->currentShown(), "New Scheme (Modified)");
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(disk.text("/s/New Scheme.kls"),
              "Norvane::PropertySet\n1\n\"New Scheme\"\n3 KERFLINE_VERSION \"1.2.1\"\n");
}

TEST_F(StylesDialog, ProposesANameThatIsFree) {
    face.names = {"New Scheme", "New Scheme 2", std::nullopt};
    EXPECT_TRUE(dialog->newScheme());
    EXPECT_TRUE(dialog->newScheme());
    EXPECT_FALSE(dialog->newScheme());
    EXPECT_EQ(face.proposals, (FakeFace::Lines{"New Scheme", "New Scheme 2", "New Scheme 3"}));
}

TEST_F(StylesDialog, AsksAgainUntilANameIsGood) {
    open({schemeOf("Shipped")});
    face.names = {"", "Mine", "Shipped", "<No Formatting>", "a.", "Good"};
    EXPECT_TRUE(dialog->newScheme());
    ASSERT_EQ(face.notices.size(), 5u);
    EXPECT_EQ(face.notices[1], "There is already a scheme \"Mine\".");
    EXPECT_EQ(face.notices[2], "There is already a scheme \"Shipped\".");
    EXPECT_EQ(face.proposals.back(), "a.");
    EXPECT_EQ(dialog->current(), "Good");
}

// The second of two would go to "a_b.kl1", which no later read finds.
TEST_F(StylesDialog, RefusesANameWhoseFileANewSchemeWillTake) {
    face.names = {"a/b", "a_b", "a:b", "c"};
    EXPECT_TRUE(dialog->newScheme());
    EXPECT_TRUE(dialog->newScheme());
    EXPECT_EQ(face.notices.size(), 2u);
    EXPECT_EQ(dialog->current(), "c");
}

TEST_F(StylesDialog, CopiesASchemeAsItIsEdited) {
    edit("Mine", "\\t");
    face.names = {"Copy"};
    EXPECT_TRUE(dialog->copyScheme());
    EXPECT_EQ(value("Copy"), "\"\t\"");
    EXPECT_EQ(value("Mine"), "\"\t\"");
    EXPECT_EQ(shown(), "Copy (Modified), Locked [built-in], Mine (Modified), Other");
}

TEST_F(StylesDialog, SavesEditsAsANewScheme) {
    edit("Locked", "\\t");
    face.names = {"Unlocked"};
    EXPECT_TRUE(dialog->saveAs());
    EXPECT_EQ(value("Locked"), "\"\"");
    EXPECT_EQ(value("Unlocked"), "\"\t\"");
    EXPECT_TRUE(dialog->accept());
    EXPECT_TRUE(face.questions.empty());
    EXPECT_EQ(valueOnDisk("Unlocked"), "\"\t\"");
    EXPECT_EQ(disk.changes, FakeFace::Lines({"create /s/Unlocked.kls", "create /c/settings"}));
}

TEST_F(StylesDialog, RenamesASchemeWithItsFile) {
    dialog->select("Mine");
    face.names = {"Yours"};
    EXPECT_TRUE(dialog->renameScheme());
    EXPECT_EQ(face.proposals, FakeFace::Lines{"Mine"});
    EXPECT_EQ(shown(), "Locked [built-in], Other, Yours (Modified)");
    EXPECT_TRUE(renamed.empty());
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(valueOnDisk("Yours"), "\" \"");
    EXPECT_FALSE(disk.has("/s/Mine.kls"));
    EXPECT_EQ(renamed, (std::map<std::string, std::string>{{"Mine", "Yours"}}));
    EXPECT_EQ(shown(), "Locked [built-in], Other, Yours");
}

// Were the new scheme first, it would go to a file that is not found again.
TEST_F(StylesDialog, RenamesASchemeWhoseFileKeepsItsName) {
    face.names = {"a/b", "a_b"};
    dialog->newScheme();
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(dialog->renameScheme());
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(face.notices.empty());
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other, a_b");
    EXPECT_EQ(disk.paths(), FakeFace::Lines({"/s/Locked.kls", "/s/Mine.kls", "/s/Other.kls", "/s/a_b.kls"}));
}

TEST_F(StylesDialog, RenamesAnEditedSchemeBackAndForth) {
    edit("Mine", "\\t");
    face.names = {"Yours", "Mine", "Mine"};
    EXPECT_TRUE(dialog->renameScheme());
    EXPECT_TRUE(dialog->renameScheme());
    EXPECT_FALSE(dialog->renameScheme());
    EXPECT_TRUE(dialog->accept());
    EXPECT_TRUE(face.questions.empty());
    EXPECT_EQ(valueOnDisk("Mine"), "\"\t\"");
    EXPECT_FALSE(disk.has("/s/Yours.kls"));
}

TEST_F(StylesDialog, FollowsASchemeThatIsRenamedTwice) {
    dialog->select("Mine");
    face.names = {"Second", "Third"};
    EXPECT_TRUE(dialog->renameScheme());
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(dialog->renameScheme());
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(renamed, (std::map<std::string, std::string>{{"Mine", "Second"}, {"Second", "Third"}}));
    EXPECT_TRUE(removed.empty());
}

TEST_F(StylesDialog, DeletesASchemeWithTheNextSave) {
    dialog->select("Mine");
    EXPECT_TRUE(deleteScheme());
    EXPECT_EQ(dialog->current(), "Other");
    EXPECT_TRUE(disk.has("/s/Mine.kls"));
    EXPECT_TRUE(dialog->accept());
    EXPECT_FALSE(disk.has("/s/Mine.kls"));
    EXPECT_EQ(store->count("Mine"), 0u);
    EXPECT_EQ(removed, std::set<std::string>{"Mine"});
}

TEST_F(StylesDialog, AsksBeforeItDeletes) {
    dialog->select("Mine");
    for (const Answer answer : {Answer::no, Answer::cancel}) {
        face.answers = {answer};
        EXPECT_FALSE(dialog->deleteScheme());
        EXPECT_EQ(shown(), "Locked [built-in], Mine, Other");
        EXPECT_TRUE(face.questions.back().starts_with("Delete the scheme \"Mine\"?"));
    }
}

TEST_F(StylesDialog, BringsDeletedSchemesBackWithTheirEdits) {
    EXPECT_FALSE(dialog->bringBack());
    edit("Mine", "\\t");
    deleteScheme();
    dialog->select("Other");
    deleteScheme();
    EXPECT_TRUE(dialog->bringBack());
    EXPECT_EQ(dialog->current(), "Other");
    EXPECT_TRUE(dialog->bringBack());
    EXPECT_EQ(shown(), "Locked [built-in], Mine (Modified), Other");
    EXPECT_FALSE(dialog->canBringBack());
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(disk.changes, FakeFace::Lines{"replace /s/Mine.kls"});
    EXPECT_EQ(valueOnDisk("Mine"), "\"\t\"");
}

TEST_F(StylesDialog, BringsASchemeBackWhoseFileIsGone) {
    dialog->select("Mine");
    deleteScheme();
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(dialog->bringBack());
    EXPECT_EQ(shown(), "Locked [built-in], Mine (Modified), Other");
    EXPECT_TRUE(dialog->save());
    EXPECT_EQ(valueOnDisk("Mine"), "\" \"");
}

TEST_F(StylesDialog, DoesNotBringBackOverASchemeOfTheSameName) {
    dialog->select("Mine");
    deleteScheme();
    face.names = {"Mine"};
    EXPECT_TRUE(dialog->newScheme());
    EXPECT_FALSE(dialog->bringBack());
    EXPECT_EQ(face.notices, FakeFace::Lines{"There is already a scheme \"Mine\"."});
}

TEST_F(StylesDialog, ARenamedSchemeThatIsDeletedIsGone) {
    dialog->select("Mine");
    face.names = {"Yours"};
    dialog->renameScheme();
    deleteScheme();
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(renamed.empty());
    EXPECT_EQ(removed, std::set<std::string>{"Mine"});
    EXPECT_FALSE(disk.has("/s/Mine.kls") || disk.has("/s/Yours.kls"));
}

TEST_F(StylesDialog, RefusesToDeleteOrRenameABuiltInScheme) {
    dialog->select("Locked");
    EXPECT_FALSE(deleteScheme());
    EXPECT_FALSE(dialog->renameScheme());
    EXPECT_EQ(face.notices, (FakeFace::Lines{"This scheme is built-in and cannot be deleted.",
                                             "This scheme is built-in and cannot be renamed."}));
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other");
}

TEST_F(StylesDialog, CanBeEmptied) {
    disk.vanish("/s/Locked.kls");
    open();
    EXPECT_TRUE(deleteScheme());
    EXPECT_TRUE(deleteScheme());
    EXPECT_FALSE(deleteScheme());
    EXPECT_EQ(dialog->current(), "");
    EXPECT_EQ(dialog->currentShown(), "");
    EXPECT_EQ(dialog->sheet().scheme(), nullptr);
    EXPECT_FALSE(dialog->copyScheme() || dialog->renameScheme() || dialog->saveAs());
    face.names = {"Mine"};
    EXPECT_TRUE(dialog->newScheme());
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(valueOnDisk("Mine"), "not set");
    EXPECT_FALSE(disk.has("/s/Other.kls"));
}

// ------------------------------------------------------------------------------------------- closing

TEST_F(StylesDialog, WritesOnlyWhatWasEdited) {
    disk.put("/s/Other.kls", "# a comment of mine\n" + disk.text("/s/Other.kls"));
    open();
    edit("Mine", "\\t");
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(disk.changes, FakeFace::Lines({"replace /s/Mine.kls", "create /c/settings"}));
    EXPECT_EQ(valueOnDisk("Mine"), "\"\t\"");
    EXPECT_EQ(optionText(store->find("Mine")->second.scheme, "WS_AFTER_CS_KEY"), "\"\t\"");
    EXPECT_TRUE(face.questions.empty());
}

TEST_F(StylesDialog, SavesOwnEditsAndKeepsThoseOfABuiltInSchemeOpen) {
    edit("Locked", "\\t");
    edit("Mine", "\\t");
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(face.notices.empty());
    EXPECT_EQ(disk.changes, FakeFace::Lines{"replace /s/Mine.kls"});
    EXPECT_EQ(shown(), "Locked (Modified) [built-in], Mine, Other");
}

TEST_F(StylesDialog, ClosesWithoutAQuestionIfNothingIsUnsaved) {
    edit("Mine", "\\t");
    EXPECT_TRUE(dialog->save());
    EXPECT_TRUE(dialog->close());
    EXPECT_TRUE(face.questions.empty());
}

TEST_F(StylesDialog, DropsEverythingOnCancel) {
    edit("Mine", "\\t");
    edit("Locked", "\\t");
    dialog->select("Other");
    deleteScheme();
    dialog->cancel();
    EXPECT_EQ(disk.changes, FakeFace::Lines{"create /c/settings"});
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other");
    EXPECT_EQ(value("Mine"), "\" \"");
}

struct CloseCase {
    const char* name;
    Answer answer;
    bool closes;
    const char* onDisk;
    const char* shown;
};
const CloseCase kOwnCloses[] = {
    {"Yes", Answer::yes, true, "\"\t\"", "Locked [built-in], Mine, Other"},
    {"No", Answer::no, true, "\" \"", "Locked [built-in], Mine, Other"},
    {"Cancel", Answer::cancel, false, "\" \"", "Locked [built-in], Mine (Modified), Other"},
};

TEST_F(StylesDialog, AsksBeforeOwnEditsGo) {
    for (const CloseCase& row : kOwnCloses) {
        SCOPED_TRACE(row.name);
        put("Mine", " ");
        open();
        edit("Mine", "\\t");
        face.answers = {row.answer};
        EXPECT_EQ(dialog->close(), row.closes);
        EXPECT_EQ(valueOnDisk("Mine"), row.onDisk);
        EXPECT_EQ(shown(), row.shown);
        EXPECT_EQ(face.questions.back(),
                  "You have modified schemes. Choose Yes to save the changes, No to discard the changes and Cancel "
                  "to return to the Manage Schemes dialog.");
    }
}

TEST_F(StylesDialog, BringsDeletedAndRenamedSchemesBackIfTheyAreNotToBeSaved) {
    face.names = {"Renamed"};
    dialog->select("Mine");
    dialog->renameScheme();
    dialog->select("Other");
    deleteScheme();
    face.answers = {Answer::no};
    EXPECT_TRUE(dialog->close());
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other");
    EXPECT_EQ(disk.changes, FakeFace::Lines{"create /c/settings"});
    EXPECT_TRUE(renamed.empty());
}

TEST_F(StylesDialog, SavesEditsOfABuiltInSchemeAsANewOneOnYes) {
    edit("Locked", "\\t");
    dialog->select("Mine");
    face.answers = {Answer::yes};
    face.names = {"Unlocked"};
    // The question names no scheme, so the user must see which one it is about.
    face.onAsk = [&] { EXPECT_EQ(dialog->current(), "Locked"); };
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(face.questions, FakeFace::Lines{kBuiltInQuestion});
    EXPECT_EQ(face.proposals, FakeFace::Lines{"New Scheme"});
    EXPECT_EQ(valueOnDisk("Unlocked"), "\"\t\"");
    EXPECT_EQ(valueOnDisk("Locked"), "\"\"");
    EXPECT_EQ(shown(), "Locked [built-in], Mine, Other, Unlocked");
}

TEST_F(StylesDialog, DiscardsEditsOfABuiltInSchemeOnNo) {
    edit("Locked", "\\t");
    face.answers = {Answer::no};
    EXPECT_TRUE(dialog->close());
    EXPECT_EQ(face.questions, FakeFace::Lines{kBuiltInQuestion});
    EXPECT_EQ(value("Locked"), "\"\"");
}

TEST_F(StylesDialog, StaysOpenWithEverythingOnCancelOrWithoutAName) {
    edit("Mine", "\\t");
    edit("Locked", "\\t");
    face.answers = {Answer::cancel, Answer::yes, Answer::no, Answer::cancel};
    face.names = {std::nullopt};
    EXPECT_FALSE(dialog->accept());
    EXPECT_FALSE(dialog->accept());
    EXPECT_FALSE(dialog->close());
    EXPECT_EQ(shown(), "Locked (Modified) [built-in], Mine (Modified), Other");
    EXPECT_TRUE(disk.changes.empty());
}

TEST_F(StylesDialog, SavesSeveralBuiltInSchemesUnderNamesOfTheirOwn) {
    open({schemeOf("Shipped")});
    edit("Locked", "\\t");
    edit("Shipped", "\\n");
    face.answers = {Answer::yes, Answer::yes};
    face.names = {"A", "A", "B"};
    EXPECT_TRUE(dialog->accept());
    EXPECT_EQ(face.proposals, (FakeFace::Lines{"New Scheme", "New Scheme", "A"}));
    EXPECT_EQ(valueOnDisk("A"), "\"\t\"");
    EXPECT_EQ(valueOnDisk("B"), "\"\n\"");
}

} // namespace
