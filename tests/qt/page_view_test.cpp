#include "tests/qt/WindowTest.h"

#include "ui/NorvaneUI_Texts.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QSpinBox>

using NorvaneUI::PageId;
namespace Texts = NorvaneUI::Texts;

class PageViewTest : public WindowTest {
protected:
    bool isTicked(const std::string& option) { return widget<QCheckBox>(option + ":set").isChecked(); }
    QLabel& problem(const std::string& option) { return widget<QLabel>(option + ":problem"); }
    QListWidget& pages() { return widget<QListWidget>("pages"); }
};

TEST_F(PageViewTest, TypedEscapesAreStoredAsWhiteSpace) {
    type("WS_BEFORE_CLASS_OPEN_BRACE", "\\n\\s");
    EXPECT_EQ(value("WS_BEFORE_CLASS_OPEN_BRACE"), "\n ");
    EXPECT_EQ(widget<QLineEdit>("WS_BEFORE_CLASS_OPEN_BRACE").text(), "\\n\\s");
    EXPECT_TRUE(isTicked("WS_BEFORE_CLASS_OPEN_BRACE"));
}

// The difference between the two is the heart of a scheme, so both ways must be plain to see.
TEST_F(PageViewTest, EmptyIsShownApartFromNotSet) {
    auto& field = widget<QLineEdit>("WS_BEFORE_CLASS_OPEN_BRACE");
    EXPECT_EQ(field.placeholderText(), "as in the source");
    click("WS_BEFORE_CLASS_OPEN_BRACE:set");
    EXPECT_EQ(value("WS_BEFORE_CLASS_OPEN_BRACE"), "");
    EXPECT_EQ(field.placeholderText(), "nothing");
    EXPECT_EQ(focus(), &field);
    click("WS_BEFORE_CLASS_OPEN_BRACE:set");
    EXPECT_EQ(value("WS_BEFORE_CLASS_OPEN_BRACE"), "none");
    EXPECT_EQ(field.placeholderText(), "as in the source");
}

TEST_F(PageViewTest, CountAndKindMakeAnIndent) {
    widget<QSpinBox>("INDENT_CLASS_CONTENT").setValue(3);
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "   ");
    pick(widget<QComboBox>("INDENT_CLASS_CONTENT:kind"), 1);
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "\t\t\t");
    widget<QSpinBox>("INDENT_CLASS_CONTENT").setValue(0);
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "");
    widget<QSpinBox>("INDENT_CLASS_CONTENT").stepDown();
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "none");
    EXPECT_FALSE(isTicked("INDENT_CLASS_CONTENT"));
}

TEST_F(PageViewTest, AnIndentOfBothKindsIsTextAndStaysWhole) {
    putScheme("mine", "3 INDENT_CLASS_CONTENT \"\\t  \"\n");
    open();
    auto& spin = widget<QSpinBox>("INDENT_CLASS_CONTENT");
    EXPECT_TRUE(spin.isHidden());
    EXPECT_EQ(spin.parentWidget()->findChild<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)->text(), "\\t\\s\\s");
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "\t  ");
}

TEST_F(PageViewTest, SwitchIsYesNoOrNotSet) {
    auto& box = widget<QComboBox>("ALIGN_BASE_CLAUSES_LEFT");
    EXPECT_EQ(box.currentIndex(), -1);
    bool on = false;
    pick(box, 0);
    ASSERT_TRUE(scheme().getBool("ALIGN_BASE_CLAUSES_LEFT", on));
    EXPECT_TRUE(on);
    pick(box, 1);
    ASSERT_TRUE(scheme().getBool("ALIGN_BASE_CLAUSES_LEFT", on));
    EXPECT_FALSE(on);
    click("ALIGN_BASE_CLAUSES_LEFT:set");
    EXPECT_FALSE(scheme().exists("ALIGN_BASE_CLAUSES_LEFT"));
}

TEST_F(PageViewTest, ChoiceStoresItsNumber) {
    window->showPage(PageId::PointersRefs);
    auto& box = widget<QComboBox>("ASTERISK_ANCHOR");
    pick(box, box.findText("at the name"));
    std::int32_t anchor = 0;
    ASSERT_TRUE(scheme().getInt("ASTERISK_ANCHOR", anchor));
    EXPECT_EQ(anchor, 1);
}

TEST_F(PageViewTest, ValueOutsideOfTheChoicesIsShownAndKept) {
    putScheme("mine", "2 WRAP_STYLE 7\n2 RIGHT_MARGIN 1500\n");
    open();
    window->showPage(PageId::LineWrapping);
    EXPECT_EQ(widget<QComboBox>("WRAP_STYLE").currentText(), "other (7)");
    EXPECT_EQ(widget<QSpinBox>("RIGHT_MARGIN").value(), 1500);
    EXPECT_FALSE(styles->items()[1].modified);
}

TEST_F(PageViewTest, NumberIsSetAndUnset) {
    window->showPage(PageId::LineWrapping);
    auto& box = widget<QSpinBox>("RIGHT_MARGIN");
    EXPECT_EQ(box.text(), "not set");
    box.setValue(80);
    std::int32_t margin = 0;
    ASSERT_TRUE(scheme().getInt("RIGHT_MARGIN", margin));
    EXPECT_EQ(margin, 80);
    click("RIGHT_MARGIN:set");
    EXPECT_FALSE(scheme().exists("RIGHT_MARGIN"));
}

TEST_F(PageViewTest, WrongWhiteSpaceIsToldAtTheField) {
    type("WS_AFTER_CLASS_NAME", "x");
    EXPECT_FALSE(problem("WS_AFTER_CLASS_NAME").isHidden());
    EXPECT_EQ(problem("WS_AFTER_CLASS_NAME").text().toStdString(), Texts::kWhiteSpaceOnly);
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), "none");
    type("WS_AFTER_CLASS_NAME", "\\s");
    EXPECT_TRUE(problem("WS_AFTER_CLASS_NAME").isHidden());
}

TEST_F(PageViewTest, WrongWhiteSpaceHoldsThePageAndTheFocus) {
    type("WS_AFTER_CLASS_NAME", "x");
    responder.press(QMessageBox::Ok);
    pages().setFocus();
    pages().setCurrentRow(static_cast<int>(PageId::Enums));
    EXPECT_EQ(responder.texts, std::vector<std::string>{std::string(Texts::kWhiteSpaceOnly)});
    EXPECT_EQ(pages().currentRow(), static_cast<int>(PageId::Classes));
    EXPECT_EQ(focus(), &widget("WS_AFTER_CLASS_NAME"));
    EXPECT_EQ(widget<QLineEdit>("WS_AFTER_CLASS_NAME").text(), "x");
}

TEST_F(PageViewTest, BoxGreysTheOptionsAndGivesThemBack) {
    click("CLASS_DO_NOT_FORMAT");
    EXPECT_FALSE(widget("INDENT_CLASS_CONTENT").isEnabled());
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "none");
    EXPECT_EQ(shownPreview(), Texts::kLeftAsIs);
    click("CLASS_DO_NOT_FORMAT");
    EXPECT_TRUE(widget("INDENT_CLASS_CONTENT").isEnabled());
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
}

TEST_F(PageViewTest, GlobalSettingsTakeTheBracesOver) {
    click("CLASS_USE_GLOBAL_SETTINGS");
    EXPECT_FALSE(widget("WS_BEFORE_CLASS_OPEN_BRACE").isEnabled());
    EXPECT_TRUE(widget("WS_AFTER_CLASS_NAME").isEnabled());
    EXPECT_NE(widget<QLabel>("globalNote").text().indexOf("GLOBAL_INDENT_CONTENT"), -1);
}

TEST_F(PageViewTest, UndoAndRedoWorkFromWithinAField) {
    type("WS_AFTER_CLASS_NAME", "\\s");
    auto& field = widget<QLineEdit>("WS_AFTER_CLASS_NAME");
    QTest::keySequence(&field, QKeySequence::Undo);
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), "none");
    EXPECT_EQ(field.text(), "");
    QTest::keySequence(&field, QKeySequence::Redo);
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), " ");
}

TEST_F(PageViewTest, UndoGoesToThePageOfTheStep) {
    type("WS_AFTER_CLASS_NAME", "\\s");
    window->showPage(PageId::Enums);
    click("undo");
    EXPECT_EQ(pages().currentRow(), static_cast<int>(PageId::Classes));
    EXPECT_EQ(value("WS_AFTER_CLASS_NAME"), "none");
}

TEST_F(PageViewTest, SearchJumpsToTheField) {
    QTest::keySequence(window.get(), QKeySequence::Find);
    QTest::keyClicks(focus(), "after an opening bracket");
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_EQ(pages().currentRow(), static_cast<int>(PageId::Expressions));
    EXPECT_EQ(focus(), &widget("WS_AFTER_LBRACKET"));
}

TEST_F(PageViewTest, HintExplainsTheFieldThatHasTheFocus) {
    widget("WS_AFTER_CLASS_NAME").setFocus();
    const QString hint = widget<QLabel>("hint").text();
    EXPECT_NE(hint.indexOf("WS_AFTER_CLASS_NAME"), -1);
    EXPECT_NE(hint.indexOf("starts its base classes"), -1);
}

TEST_F(PageViewTest, WheelOverTheFormChangesNothing) {
    auto& box = widget<QSpinBox>("INDENT_CLASS_CONTENT");
    window->setFocus();
    QWheelEvent turn(QPointF(2, 2), box.mapToGlobal(QPointF(2, 2)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &turn);
    EXPECT_EQ(value("INDENT_CLASS_CONTENT"), "  ");
}

TEST_F(PageViewTest, HelpOpensTheTopicOfThePage) {
    QTest::keySequence(window.get(), QKeySequence::HelpContents);
    window->showPage(PageId::Data);
    click("help");
    EXPECT_EQ(topics, (std::vector<std::string>{"Classes.htm", "Variables.htm"}));
}
