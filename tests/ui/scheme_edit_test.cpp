#include "ui/NorvaneUI_SchemeEdit.h"

#include "schemes/NorvaneUI_PropertySetStore.h"
#include "tests/ui/SchemeTools.h"

#include <gtest/gtest.h>

namespace {

using namespace NorvaneUI;

Norvane::PropertySet valued(const std::string& value) { return schemeOf("Mine", {{"WS_AFTER_CS_KEY", value}}); }

std::string valueIn(const SchemeEdit& edit) { return optionText(edit.scheme(), "WS_AFTER_CS_KEY"); }

TEST(SchemeEdit, TakesStepsBackAndForth) {
    SchemeEdit edit(valued("0"));
    EXPECT_EQ(edit.undo(), "");
    edit.change(valued("1"), "A");
    edit.change(valued("2"), "B");
    EXPECT_EQ(edit.undo(), "B");
    EXPECT_EQ(valueIn(edit), "\"1\"");
    EXPECT_EQ(edit.redo(), "B");
    EXPECT_EQ(valueIn(edit), "\"2\"");
    EXPECT_FALSE(edit.canRedo());
    edit.undo();
    edit.change(valued("3"), "C");
    EXPECT_FALSE(edit.canRedo());
    edit.undo();
    edit.undo();
    EXPECT_FALSE(edit.isModified());
    EXPECT_FALSE(edit.canUndo());
}

TEST(SchemeEdit, TakesTypingInOneFieldForOneStep) {
    SchemeEdit edit(valued(""));
    edit.change(valued("a"), "A", true);
    edit.change(valued("ab"), "A", true);
    edit.endTyping();
    edit.change(valued("abc"), "A", true);
    edit.change(valued("b"), "B", true);
    EXPECT_EQ(edit.undo(), "B");
    EXPECT_EQ(valueIn(edit), "\"abc\"");
    edit.undo();
    EXPECT_EQ(valueIn(edit), "\"ab\"");
    edit.undo();
    EXPECT_EQ(valueIn(edit), "\"\"");
}

TEST(SchemeEdit, DoesNotCountAStepThatChangesNothing) {
    SchemeEdit edit(valued("a"));
    edit.change(valued("a"), "A");
    EXPECT_FALSE(edit.canUndo());
}

TEST(SchemeEdit, HoldsALongSession) {
    SchemeEdit edit(valued(""));
    for (int i = 0; i < 2000; ++i) edit.change(valued(std::to_string(i)), "A");
    int steps = 0;
    while (edit.canUndo()) {
        edit.undo();
        ++steps;
    }
    EXPECT_EQ(steps, 500);
    EXPECT_EQ(valueIn(edit), "\"1499\"");
}

TEST(SchemeEdit, CanBeTakenBackBehindASave) {
    SchemeEdit edit(valued("a"));
    edit.change(valued("b"), "A");
    edit.markSaved();
    EXPECT_FALSE(edit.isModified());
    edit.undo();
    EXPECT_TRUE(edit.isModified());
    edit.revert();
    EXPECT_EQ(valueIn(edit), "\"b\"");
    EXPECT_FALSE(edit.canRedo());
}

TEST(SchemeEdit, KeepsItsNewNameOnTheWayBack) {
    SchemeEdit edit(valued("a"));
    edit.change(valued("b"), "A");
    edit.rename("Other");
    edit.undo();
    EXPECT_EQ(edit.scheme().getName(), "Other");
    EXPECT_FALSE(edit.isModified());
}

// One name can stand in a scheme under each kind, and must not lose any with the name.
TEST(SchemeEdit, RenamesWithAllValues) {
    Norvane::PropertySet scheme = valued("a");
    scheme.setInt("WS_AFTER_CS_KEY", 3);
    scheme.setBool("WS_AFTER_CS_KEY", true);
    const Norvane::PropertySet renamed = renamedScheme(scheme, "Other");
    EXPECT_EQ(renamed.getName(), "Other");
    EXPECT_EQ(renamed.size(), 3u);
    EXPECT_TRUE(isSameScheme(renamedScheme(renamed, "Mine"), scheme));
}

} // namespace
