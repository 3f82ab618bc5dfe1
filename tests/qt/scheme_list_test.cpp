#include "tests/qt/WindowTest.h"

#include "addin/Addin_Texts.h"
#include "files/NorvaneUI_Text.h"
#include "ui/NorvaneUI_Texts.h"

#include <QListWidget>

using NorvaneUI::PageId;
namespace Texts = NorvaneUI::Texts;

class SchemeList : public WindowTest {
protected:
    QComboBox& list() { return widget<QComboBox>("schemes"); }
    void edit() { type("WS_AFTER_CLASS_NAME", "\\s"); }
    void choose(const std::string& name) { pick(list(), list().findText(QString::fromStdString(name))); }
    std::string path(const std::string& name) { return std::string(kFolder) + name + ".kls"; }
    bool isStored(const std::string& name) {
        return files.text(path(name)).find("WS_AFTER_CLASS_NAME \" \"") != std::string::npos;
    }
    std::string said() { return responder.texts.empty() ? "" : responder.texts.back(); }
    std::string current() { return list().currentText().toStdString(); }
};

TEST_F(SchemeList, ShowsOwnAndBuiltInSchemes) {
    QStringList names;
    for (int i = 0; i < list().count(); ++i) names += list().itemText(i);
    EXPECT_EQ(names, QStringList({"locked", "mine", "shipped"}));
    EXPECT_FALSE(widget("schemeNote").isVisible());
    choose("locked");
    EXPECT_EQ(styles->current(), "locked");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "\t");
    EXPECT_TRUE(widget("schemeNote").isVisible());
}

TEST_F(SchemeList, MarksASchemeWithEdits) {
    edit();
    EXPECT_EQ(current(), "mine (Modified)");
    click("restore");
    EXPECT_EQ(current(), "mine");
    click("undo");
    EXPECT_EQ(current(), "mine (Modified)");
}

TEST_F(SchemeList, SaveWritesTheFile) {
    edit();
    QTest::keySequence(window.get(), QKeySequence::Save);
    EXPECT_TRUE(isStored("mine"));
    EXPECT_EQ(current(), "mine");
}

TEST_F(SchemeList, SaveAsWritesANewSchemeAndLeavesTheOld) {
    edit();
    responder.enter("other");
    click("saveAs");
    EXPECT_EQ(said(), Texts::kNewScheme);
    EXPECT_TRUE(isStored("other"));
    EXPECT_FALSE(isStored("mine"));
    EXPECT_EQ(current(), "other");
}

TEST_F(SchemeList, SavingABuiltInSchemeAsksForAName) {
    choose("shipped");
    edit();
    responder.enter("other");
    click("save");
    EXPECT_TRUE(isStored("other"));
    EXPECT_EQ(list().findText("shipped (Modified)"), -1);
}

TEST_F(SchemeList, BuiltInSchemeIsNotDeleted) {
    choose("locked");
    responder.press(QMessageBox::Ok);
    click("delete");
    EXPECT_EQ(said(), Texts::kCannotDelete);
    EXPECT_NE(list().findText("locked"), -1);
}

TEST_F(SchemeList, NewCopyRenameAndDelete) {
    responder.enter("fresh");
    click("new");
    EXPECT_EQ(current(), "fresh (Modified)");
    choose("mine");
    responder.enter("twin");
    click("copy");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
    responder.enter("triplet");
    click("rename");
    click("save");
    EXPECT_TRUE(files.has(path("fresh")) && files.has(path("triplet")) && !files.has(path("twin")));
    responder.press(QMessageBox::Yes);
    click("delete");
    click("save");
    EXPECT_FALSE(files.has(path("triplet")));
    EXPECT_TRUE(responder.isDone());
}

// Closing.

TEST_F(SchemeList, CloseWithoutEditsAsksNothing) {
    click("cancel");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(SchemeList, CloseWithEditsAndYesSaves) {
    edit();
    responder.press(QMessageBox::Yes);
    window->close();
    EXPECT_EQ(said(), Texts::kModifiedOwn);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(isStored("mine"));
}

TEST_F(SchemeList, CloseWithEditsAndNoDropsThem) {
    edit();
    responder.press(QMessageBox::No);
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(isStored("mine"));
}

TEST_F(SchemeList, CloseWithEditsAndCancelStays) {
    edit();
    responder.press(QMessageBox::Cancel);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), " ");
    responder.press(QMessageBox::No);
    window->close();
}

TEST_F(SchemeList, CloseWithEditsOfABuiltInSchemeAndYesAsksForAName) {
    choose("shipped");
    edit();
    responder.press(QMessageBox::Yes);
    responder.enter("other");
    window->close();
    EXPECT_EQ(responder.texts, (std::vector<std::string>{std::string(Texts::kModifiedBuiltIn), "New Scheme"}));
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(isStored("other"));
}

TEST_F(SchemeList, OkSavesAndCloses) {
    edit();
    click("ok");
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(isStored("mine"));
    EXPECT_TRUE(window->keepsSettings());
}

TEST_F(SchemeList, NextWindowOpensWhereThisOneWasLeft) {
    choose("locked");
    window->showPage(PageId::Templates);
    click("togglePreview");
    window->close();
    settings->read();
    NorvaneUI::StylesDlg next(face, files, *settings, *store);
    EXPECT_EQ(next.current(), "locked");
    EXPECT_EQ(next.sheet().currentPageId(), PageId::Templates);
    EXPECT_FALSE(next.sheet().isPreviewShown());
    EXPECT_NE(files.text(kSettingsFile).find("CurrentSchemesTab=12"), std::string::npos);
}

// Another program at work, and a disk that fails.

TEST_F(SchemeList, ChangeByAnotherProgramIsToldAndNoEditLost) {
    edit();
    putScheme("mine", "3 INDENT_CLASS_CONTENT \"        \"\n");
    responder.press(QMessageBox::Ok);
    styles->rereadFolder();
    EXPECT_EQ(said(), NorvaneUI::filled(Texts::kChangedMeanwhile, {"mine"}));
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), " ");
    EXPECT_EQ(current(), "mine (Modified)");
}

TEST_F(SchemeList, ChangeByAnotherProgramIsSeenWhenTheWindowComesBack) {
    putScheme("mine", "3 INDENT_CLASS_CONTENT \"        \"\n");
    putScheme("added", "");
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QApplication::setActiveWindow(window.get());
    EXPECT_TRUE(QTest::qWaitFor([&] { return value("INDENT_CLASS_CONTENT") == "        "; }));
    EXPECT_NE(list().findText("added"), -1);
}

TEST_F(SchemeList, SchemeThatCannotBeWrittenIsToldAndTheWindowStays) {
    edit();
    files.fail("replace", path("mine"), NorvaneUI::FailureKind::full);
    responder.press(QMessageBox::Ok);
    click("ok");
    EXPECT_EQ(said(), NorvaneUI::filled(Addin::Texts::kSchemeUnwritable, {path("mine"), kFolder}));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(current(), "mine (Modified)");
    files.mend();
    click("ok");
    EXPECT_TRUE(isStored("mine"));
}

TEST_F(SchemeList, BrokenSchemeFileIsToldOnceAndHoldsNothingUp) {
    edit();
    files.put(path("broken"), "no scheme at all");
    responder.press(QMessageBox::Ok);
    click("save");
    EXPECT_EQ(said(), NorvaneUI::filled(Addin::Texts::kSchemeUnreadable, {path("broken")}));
    EXPECT_TRUE(isStored("mine"));
    styles->rereadFolder();
}
