#include "tests/qt/WindowTest.h"

#include "files/NorvaneUI_DiskFileSystem.h"
#include "qt/NorvaneQt_HelpWindow.h"
#include "qt/NorvaneQt_WindowHost.h"
#include "ui/NorvaneUI_Texts.h"

#include <QCheckBox>

class SettingsTab : public WindowTest {
protected:
    SettingsTab() { window->showSettings(); }
};

TEST_F(SettingsTab, ChoicesAreTakenOver) {
    pick(widget<QComboBox>("scheme0"), 2);
    pick(widget<QComboBox>("messagesThreshold"), 3);
    type("fileExtensions", "c, cpp;h");
    click("promptUnsaved");
    click("ok");
    Addin::AddInOptions result;
    options.giveTo(result);
    EXPECT_EQ(result.onFormat.name, "mine");
    EXPECT_EQ(result.onOpen.name, "");
    EXPECT_EQ(result.messagesThreshold, 3);
    EXPECT_EQ(result.fileExtensions, "c, cpp;h");
    EXPECT_FALSE(result.promptUnsaved);
}

TEST_F(SettingsTab, BackupExtensionIsForThoseWhoKeepBackups) {
    click("createBackups");
    EXPECT_FALSE(widget("backupExtension").isEnabled());
    click("createBackups");
    EXPECT_TRUE(widget("backupExtension").isEnabled());
}

TEST_F(SettingsTab, BadExtensionIsRefusedAtItsField) {
    type("backupExtension", "a/b");
    click("createBackups");
    responder.press(QMessageBox::Ok);
    click("ok");
    EXPECT_EQ(responder.texts, std::vector<std::string>{std::string(NorvaneUI::Texts::kBadExtension)});
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->focusWidget(), &widget("backupExtension"));
    EXPECT_FALSE(window->keepsSettings());
}

TEST_F(SettingsTab, CloseWithEditsAsks) {
    click("promptUnsaved");
    responder.press(QMessageBox::Cancel);
    window->close();
    EXPECT_TRUE(window->isVisible());
    responder.press(QMessageBox::No);
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->keepsSettings());
}

TEST_F(SettingsTab, CloseWithEditsAndYesKeepsThem) {
    click("promptUnsaved");
    responder.press(QMessageBox::Yes);
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(window->keepsSettings());
}

TEST_F(SettingsTab, ListFollowsNewSchemesAndRenamedOnesStayChosen) {
    pick(widget<QComboBox>("scheme0"), 2);
    responder.enter("renamed");
    click("rename");
    click("save");
    window->showPage(NorvaneUI::PageId::Enums);
    window->showSettings();
    EXPECT_NE(widget<QComboBox>("scheme0").findText("renamed"), -1);
    click("ok");
    EXPECT_EQ(options.onFormat, "renamed");
}

TEST(HelpWindow, ShowsEveryTopicThatAPageNames) {
    NorvaneQt::HelpWindow help(nullptr);
    for (const NorvaneUI::PageInfo& page : NorvaneUI::pageTable()) {
        ASSERT_TRUE(help.showTopic(std::string(page.helpTopic))) << page.helpTopic;
        EXPECT_GT(help.toPlainText().size(), 200) << page.helpTopic;
    }
    EXPECT_TRUE(help.showTopic("FormattingAddIn.htm"));
    EXPECT_FALSE(help.showTopic("Nothing.htm"));
}
