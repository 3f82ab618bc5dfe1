#include "qt/NorvaneQt_HelpWindow.h"
#include "tests/qt/WindowTest.h"
#include "ui/NorvaneUI_Texts.h"

#include <QCheckBox>
#include <QLabel>
#include <QScrollBar>
#include <QSpinBox>
#include <QSplitter>
#include <QTabWidget>

using NorvaneUI::PageId;
namespace Texts = NorvaneUI::Texts;

/// What a person does with mouse and keys, and where windows used to lose something.
class User : public WindowTest {
protected:
    std::string number(const std::string& option) {
        std::int32_t found = 0;
        return scheme().getInt(option, found) ? std::to_string(found) : "none";
    }
    std::string shownNumber(const std::string& option) { return widget<QSpinBox>(option).text().toStdString(); }
    std::string said() { return responder.texts.empty() ? "" : responder.texts.back(); }
    std::string schemeShown() { return widget<QComboBox>("schemes").currentText().toStdString(); }
    Addin::AddInOptions result() {
        Addin::AddInOptions options_;
        options.giveTo(options_);
        return options_;
    }
    /// From now on, with this font.
    void reopenWith(const QFont& font) {
        QApplication::setFont(font);
        open();
    }
};

// Numbers.

TEST_F(User, TypesANumberIntoABoxWithoutOneAndTakesItBackInOneStep) {
    window->showPage(PageId::LineWrapping);
    mouseClickText("RIGHT_MARGIN");
    keys("100");
    EXPECT_EQ(number("RIGHT_MARGIN"), "100");
    keys(QKeySequence::Undo);
    EXPECT_EQ(number("RIGHT_MARGIN"), "none");
    EXPECT_EQ(shownNumber("RIGHT_MARGIN"), "not set");
    keys(QKeySequence::Redo);
    EXPECT_EQ(number("RIGHT_MARGIN"), "100");
    EXPECT_EQ(shownNumber("RIGHT_MARGIN"), "100");
}

TEST_F(User, WhatANumberShowsAfterUndoIsWhatIsStored) {
    window->showPage(PageId::LineWrapping);
    mouseClickText("RIGHT_MARGIN");
    keys("72");
    QTest::keyClick(focus(), Qt::Key_Return);
    keys("0");
    for (const char* expected : {"72", "none"}) {
        keys(QKeySequence::Undo);
        EXPECT_EQ(number("RIGHT_MARGIN"), expected);
        EXPECT_EQ(shownNumber("RIGHT_MARGIN"), std::string(expected) == "none" ? "not set" : expected);
    }
}

TEST_F(User, TypesAnIndentIntoABoxWithoutOne) {
    mouseClickText("INDENT_ACCESS_SPEC_LABEL");
    keys("2");
    EXPECT_EQ(value("INDENT_ACCESS_SPEC_LABEL"), "  ");
    EXPECT_TRUE(widget<QCheckBox>("INDENT_ACCESS_SPEC_LABEL:set").isChecked());
}

// Ticks, boxes and the choice of settings give back what they took.

TEST_F(User, FirstTickOfTheMarginIsAMarginOfUse) {
    window->showPage(PageId::LineWrapping);
    mouseClick("RIGHT_MARGIN:set");
    EXPECT_EQ(number("RIGHT_MARGIN"), "80");
}

TEST_F(User, TickOffAndOnKeepsTheValue) {
    mouseClick("INDENT_CLASS_CONTENT:set");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "none");
    mouseClick("INDENT_CLASS_CONTENT:set");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
    EXPECT_EQ(schemeShown(), "mine");
    mouseClick("WS_AFTER_CLASS_NAME");
    keys("\\n");
    mouseClick("WS_AFTER_CLASS_NAME:set");
    mouseClick("WS_AFTER_CLASS_NAME:set");
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), "\n");
}

TEST_F(User, BoxTickedUntickedUndoneAndUntickedKeepsAllValues) {
    mouseClick("WS_AFTER_CLASS_NAME");
    keys("\\s");
    mouseClick("CLASS_DO_NOT_FORMAT");
    mouseClick("CLASS_DO_NOT_FORMAT");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
    mouseClick("undo");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "none");
    mouseClick("CLASS_DO_NOT_FORMAT");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), " ");
}

TEST_F(User, GlobalSettingsAndBackKeepsThoseOfThePage) {
    mouseClick("WS_BEFORE_CLASS_OPEN_BRACE");
    keys("\\n");
    mouseClick("CLASS_USE_GLOBAL_SETTINGS");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "");
    mouseClick("CLASS_OWN_SETTINGS");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
    EXPECT_EQ(value("WS_BEFORE_CLASS_OPEN_BRACE"), "\n");
    EXPECT_EQ(value("WS_AFTER_CLASS_OPEN_BRACE"), "none");
    mouseClick("undo");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "");
    mouseClick("CLASS_OWN_SETTINGS");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
}

TEST_F(User, MissingGlobalsAreToldBeforeTheyAreChosen) {
    auto& note = widget<QLabel>("globalNote");
    EXPECT_TRUE(note.isVisible());
    EXPECT_NE(note.text().indexOf("GLOBAL_INDENT_CONTENT"), -1);
}

// Schemes.

TEST_F(User, ReturnInTheQuestionAboutDeletingDeletesNothing) {
    responder.key(Qt::Key_Return);
    mouseClick("delete");
    EXPECT_EQ(schemeShown(), "mine");
    EXPECT_TRUE(responder.isDone());
}

TEST_F(User, DeletedSchemeCanBeBroughtBackAndIsChosenForNothingOnceItIsGone) {
    initial.onFormat.name = "mine";
    open();
    responder.press(QMessageBox::Yes);
    mouseClick("delete");
    EXPECT_EQ(schemeShown(), "shipped");
    mouseClick("bringBack");
    EXPECT_EQ(schemeShown(), "mine");
    responder.press(QMessageBox::Yes);
    mouseClick("delete");
    mouseClick("save");
    EXPECT_FALSE(files.has("/schemes/mine.kls"));
    window->showSettings();
    EXPECT_EQ(widget<QComboBox>("scheme0").currentText(), "<No Formatting>");
    mouseClick("cancel");
    EXPECT_TRUE(window->keepsSettings());
    EXPECT_EQ(result().onFormat.name, "");
}

TEST_F(User, MarkOfAnEditGoesWithTheSave) {
    const QColor plain = widget("WS_AFTER_CLASS_NAME:set").palette().color(QPalette::Active, QPalette::WindowText);
    const auto colour = [&] {
        return widget("WS_AFTER_CLASS_NAME:set").palette().color(QPalette::Active, QPalette::WindowText);
    };
    mouseClick("WS_AFTER_CLASS_NAME");
    keys("\\s");
    EXPECT_NE(colour(), plain);
    mouseClick("save");
    EXPECT_EQ(colour(), plain);
}

TEST_F(User, CancelThenReturnSavesNothingAndLosesNothing) {
    mouseClick("WS_AFTER_CLASS_NAME");
    keys("\\s");
    const std::string before = files.text("/schemes/mine.kls");
    responder.key(Qt::Key_Return);
    mouseClick("cancel");
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(files.text("/schemes/mine.kls"), before);
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), " ");
    EXPECT_EQ(said(), Texts::kModifiedOwn);
}

TEST_F(User, SeesWhatIsWrongInTheFolder) {
    EXPECT_FALSE(widget("schemeWarnings").isVisible());
    files.put("/schemes/copy.kls", files.text("/schemes/mine.kls"));
    files.put("/schemes/twice.kls", text("twice", "2 TAB_SIZE 1\n2 TAB_SIZE 2\n"));
    open();
    const QString shown = widget<QLabel>("schemeWarnings").text();
    EXPECT_TRUE(widget("schemeWarnings").isVisible());
    EXPECT_NE(shown.indexOf("The one in \"copy.kls\" is in use."), -1) << shown.toStdString();
    EXPECT_NE(shown.indexOf("twice.kls, line 5: TAB_SIZE is given twice"), -1) << shown.toStdString();
}

// Settings.

TEST_F(User, NoToSettingsKeepsNoneOfThemEvenAfterARename) {
    initial.onFormat.name = "mine";
    open();
    responder.enter("renamed");
    mouseClick("rename");
    mouseClick("save");
    window->showSettings();
    EXPECT_EQ(widget<QComboBox>("scheme0").currentText(), "renamed");
    mouseClick("fileExtensions");
    keys("zzz");
    mouseClick("promptUnsaved");
    responder.press(QMessageBox::No);
    mouseClick("cancel");
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(window->keepsSettings());
    EXPECT_EQ(result().onFormat.name, "renamed");
    EXPECT_EQ(result().fileExtensions, initial.fileExtensions);
    EXPECT_TRUE(result().promptUnsaved);
}

TEST_F(User, AnOkThatTheSchemesRefuseLeavesSettingsOpen) {
    window->showSettings();
    mouseClick("promptUnsaved");
    window->showPage(PageId::Classes);
    mouseClick("WS_AFTER_CLASS_NAME");
    keys("x");
    responder.press(QMessageBox::Ok);
    mouseClick("ok");
    EXPECT_TRUE(window->isVisible());
    keys(QKeySequence::SelectAll);
    keys(QKeySequence::Delete);
    mouseClick("restore");
    responder.press(QMessageBox::No);
    mouseClick("cancel");
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(result().promptUnsaved);
}

TEST_F(User, EscapeAfterARenameByAnotherProgramClaimsNoChange) {
    initial.onFormat.name = "mine";
    open();
    window->showSettings();
    files.put("/schemes/added.kls", text("added", ""));
    files.vanish("/schemes/mine.kls");
    styles->rereadFolder();
    EXPECT_NE(widget<QComboBox>("scheme0").findText("added"), -1);
    EXPECT_EQ(widget<QComboBox>("scheme0").findText("mine"), -1);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->keepsSettings());
}

TEST_F(User, ChoosesASchemeOfTheProgramInTheSettings) {
    window->showSettings();
    auto& list = widget<QComboBox>("scheme0");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.currentText(), "shipped (comes with the program)");
    mouseClick("ok");
    EXPECT_EQ(result().onFormat.name, "shipped");
}

// Help and places.

TEST_F(User, HelpOpensAtTheOptionThatHasTheFocus) {
    mouseClick("WS_BETWEEN_BASE_CLAUSES");
    keys(QKeySequence::HelpContents);
    EXPECT_EQ(topics, std::vector<std::string>{"Classes.htm#WS_BETWEEN_BASE_CLAUSES"});
    NorvaneQt::HelpWindow help(nullptr);
    ASSERT_TRUE(help.showTopic("Classes.htm"));
    EXPECT_EQ(help.verticalScrollBar()->value(), 0);
    ASSERT_TRUE(help.showTopic(topics.front()));
    EXPECT_GT(help.verticalScrollBar()->value(), 0);
}

TEST_F(User, WindowOpensWhereItWasLeft) {
    window->showPage(PageId::Enums);
    window->resize(1003, 711);
    QTest::qWait(1);
    auto& handle = *widget<QSplitter>("splitter").handle(1);
    const QPoint middle = handle.rect().center();
    QTest::mousePress(&handle, Qt::LeftButton, {}, middle);
    QTest::mouseMove(&handle, middle + QPoint(37, 0));
    QTest::mouseRelease(&handle, Qt::LeftButton, {}, middle + QPoint(37, 0));
    const QList<int> sizes = widget<QSplitter>("splitter").sizes();
    window->close();
    open();
    EXPECT_EQ(window->size(), QSize(1003, 711));
    EXPECT_EQ(widget<QSplitter>("splitter").sizes(), sizes);
    settings->setString("OptionsWindow", "nonsense from elsewhere !");
    open();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(User, SmallestWindowFitsSmallScreensAndLargeFonts) {
    window->resize(1, 1);
    EXPECT_LE(window->width(), 800);
    EXPECT_LE(window->height(), 600);
    const QFont plain = QApplication::font();
    QFont large = plain;
    large.setPointSizeF(plain.pointSizeF() * 1.5);
    reopenWith(large);
    window->resize(1, 1);
    const QSize size = window->size();
    reopenWith(plain);
    EXPECT_LE(size.width(), 1200);
    EXPECT_LE(size.height(), 740);
}
