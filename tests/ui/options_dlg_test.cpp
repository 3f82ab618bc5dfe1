#include "ui/NorvaneUI_OptionsDlg.h"

#include "tests/ui/FakeFace.h"
#include "tests/ui/SchemeTools.h"

#include <gtest/gtest.h>

namespace {

using namespace NorvaneUI;
using Action = OptionsDlg::Action;

constexpr const char* kMessage =
    "Error: Invalid file extension entered. File extensions may not contain any of the following characters: "
    "\"<>:\\/|?\"";

/// The dialog with two schemes in the store.
class OptionsDialog : public testing::Test {
protected:
    OptionsDialog() {
        for (const char* name : {"Mine", "Other"}) dialog.schemes[name].scheme = schemeOf(name);
    }

    std::vector<std::string> shownSchemes() const {
        std::vector<std::string> shown;
        for (const auto& item : dialog.schemeItems()) shown.push_back(item.shown);
        return shown;
    }

    OptionsDlg dialog;
    FakeFace face;
};

TEST_F(OptionsDialog, ListsNoFormattingAndThenTheSchemes) {
    dialog.open();
    EXPECT_EQ(shownSchemes(), (FakeFace::Lines{"<No Formatting>", "Mine", "Other"}));
}

TEST_F(OptionsDialog, ListsTheThresholds) {
    const FakeFace::Lines items = {"Never display", "Information or greater", "Warning or greater",
                                   "Error or greater"};
    EXPECT_EQ(OptionsDlg::thresholdItems(), items);
}

TEST_F(OptionsDialog, ShowsAndReadsBackWhatTheCallerFillsIn) {
    dialog.onFormat = "Other";
    dialog.onClose = "Mine";
    dialog.fileExtensions = "c, cpp;h";
    dialog.promptUnsaved = false;
    dialog.createBackups = true;
    dialog.backupExtension = ".bak";
    dialog.messagesThreshold = 3;
    dialog.open();
    EXPECT_EQ(dialog.chosenScheme(Action::Format), 2u);
    EXPECT_EQ(dialog.chosenScheme(Action::Open), 0u);
    EXPECT_EQ(dialog.chosenScheme(Action::Close), 1u);
    EXPECT_EQ(dialog.shownFileExtensions(), "c, cpp;h");
    EXPECT_FALSE(dialog.shownPromptUnsaved());
    EXPECT_EQ(dialog.chosenThreshold(), 3u);
    EXPECT_TRUE(dialog.accept(face));
    EXPECT_EQ(dialog.onFormat, "Other");
    EXPECT_EQ(dialog.onOpen, "");
    EXPECT_EQ(dialog.onClose, "Mine");
    EXPECT_EQ(dialog.fileExtensions, "c, cpp;h");
    EXPECT_FALSE(dialog.promptUnsaved);
    EXPECT_EQ(dialog.backupExtension, ".bak");
    EXPECT_EQ(dialog.messagesThreshold, 3);
}

TEST_F(OptionsDialog, ReadsBackWhatTheUserChooses) {
    dialog.onOpen = "Mine";
    dialog.open();
    dialog.chooseScheme(Action::Format, 1);
    dialog.chooseScheme(Action::Open, 0);
    dialog.chooseScheme(Action::Close, 2);
    dialog.chooseThreshold(0);
    dialog.checkPromptUnsaved(false);
    dialog.typeFileExtensions("inl");
    ASSERT_TRUE(dialog.accept(face));
    EXPECT_EQ(dialog.onFormat, "Mine");
    EXPECT_EQ(dialog.onOpen, "");
    EXPECT_EQ(dialog.onClose, "Other");
    EXPECT_EQ(dialog.messagesThreshold, 0);
    EXPECT_FALSE(dialog.promptUnsaved);
    EXPECT_EQ(dialog.fileExtensions, "inl");
}

TEST_F(OptionsDialog, EnablesTheBackupExtensionWithTheBackups) {
    dialog.createBackups = false;
    dialog.open();
    EXPECT_FALSE(dialog.isBackupExtensionEnabled());
    dialog.checkCreateBackups(true);
    EXPECT_TRUE(dialog.isBackupExtensionEnabled());
    dialog.checkCreateBackups(false);
    EXPECT_FALSE(dialog.isBackupExtensionEnabled());
}

struct ExtensionCase {
    const char* typed;
    bool accepted;
};
const ExtensionCase kExtensions[] = {
    {"", true},     {".cpp", true},   {"c, cpp;h", true}, {" ..h ", true}, {"a*b", true}, {"a\"b", true}, {";", true},
    {"a/b", false}, {"c,a|b", false}, {"c;;h:", false},   {"a\\b", false}, {"<", false},  {"c >", false}, {"?", false},
};

TEST_F(OptionsDialog, ChecksTheExtensions) {
    for (const ExtensionCase& row : kExtensions) {
        for (const bool ofBackup : {false, true}) {
            SCOPED_TRACE(row.typed);
            FakeFace user;
            dialog.fileExtensions = "before";
            dialog.backupExtension = "before";
            dialog.open();
            if (ofBackup) dialog.typeBackupExtension(row.typed);
            else dialog.typeFileExtensions(row.typed);
            EXPECT_EQ(dialog.accept(user), row.accepted);
            const std::string& stored = ofBackup ? dialog.backupExtension : dialog.fileExtensions;
            EXPECT_EQ(stored, row.accepted ? row.typed : "before");
            EXPECT_EQ(user.notices, row.accepted ? FakeFace::Lines{} : FakeFace::Lines{kMessage});
            EXPECT_EQ(user.focus, row.accepted ? "" : ofBackup ? "backupExtension" : "fileExtensions");
        }
    }
}

TEST_F(OptionsDialog, KeepsTheControlsAfterARefusal) {
    dialog.open();
    dialog.chooseScheme(Action::Format, 1);
    dialog.typeFileExtensions("a/b");
    EXPECT_FALSE(dialog.accept(face));
    EXPECT_EQ(dialog.onFormat, "");
    EXPECT_EQ(dialog.chosenScheme(Action::Format), 1u);
    EXPECT_EQ(dialog.shownFileExtensions(), "a/b");
}

// The focus cannot go into a field that is grey.
TEST_F(OptionsDialog, LetsTheUserMendABackupExtensionThatIsSwitchedOff) {
    dialog.createBackups = false;
    dialog.backupExtension = "x/y";
    dialog.open();
    EXPECT_FALSE(dialog.accept(face));
    EXPECT_TRUE(dialog.isBackupExtensionEnabled());
    EXPECT_EQ(face.focus, "backupExtension");
    dialog.typeBackupExtension("y");
    EXPECT_TRUE(dialog.accept(face));
    EXPECT_FALSE(dialog.isBackupExtensionEnabled());
}

TEST_F(OptionsDialog, KeepsAChoiceThatItCannotShow) {
    dialog.onFormat = "Lost";
    dialog.onOpen = "Lost";
    dialog.messagesThreshold = 7;
    dialog.open();
    EXPECT_EQ(dialog.chosenScheme(Action::Format), 0u);
    EXPECT_EQ(dialog.chosenThreshold(), 1u);
    // A user who picks the entry that is shown means it.
    dialog.chooseScheme(Action::Open, 0);
    ASSERT_TRUE(dialog.accept(face));
    EXPECT_EQ(dialog.onFormat, "Lost");
    EXPECT_EQ(dialog.onOpen, "");
    EXPECT_EQ(dialog.messagesThreshold, 7);
}

TEST_F(OptionsDialog, FollowsTheSchemesAsTheyAreEdited) {
    dialog.onFormat = "Other";
    dialog.open();
    dialog.chooseScheme(Action::Close, 1);
    PropertySetStore::SchemeMap edited;
    edited["A"].scheme = schemeOf("A");
    edited["Mine"].scheme = schemeOf("Mine");
    edited["Renamed"].scheme = schemeOf("Renamed");
    dialog.renameScheme("Other", "Renamed");
    dialog.changeSchemes(edited);
    EXPECT_EQ(shownSchemes(), (FakeFace::Lines{"<No Formatting>", "A", "Mine", "Renamed"}));
    EXPECT_EQ(dialog.chosenScheme(Action::Format), 3u);
    EXPECT_EQ(dialog.chosenScheme(Action::Close), 2u);
}

TEST_F(OptionsDialog, CarriesTheSettingsOfTheAddInThroughUnchanged) {
    Addin::AddInOptions options;
    options.onOpen.name = "Mine";
    options.fileExtensions = "x";
    options.backupExtension = "y";
    options.createBackups = false;
    options.promptUnsaved = false;
    options.messagesThreshold = 2;
    const PropertySetStore::SchemeMap schemes = dialog.schemes;
    dialog.take(options, schemes);
    dialog.open();
    ASSERT_TRUE(dialog.accept(face));
    Addin::AddInOptions result;
    dialog.giveTo(result);
    EXPECT_EQ(result.onFormat.name, "");
    EXPECT_EQ(result.onOpen.name, "Mine");
    EXPECT_EQ(result.fileExtensions, "x");
    EXPECT_EQ(result.backupExtension, "y");
    EXPECT_FALSE(result.createBackups);
    EXPECT_FALSE(result.promptUnsaved);
    EXPECT_EQ(result.messagesThreshold, 2);
}

} // namespace
