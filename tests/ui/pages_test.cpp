#include "ui/NorvaneUI_Pages.h"

#include "schemes/NorvaneUI_PropertySetStore.h"
#include "tests/ui/FakeFace.h"
#include "tests/ui/SchemeTools.h"
#include "ui/NorvaneUI_Texts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace NorvaneUI;

/// A page that shows a scheme.
template <class Page> struct Shown {
    explicit Shown(const Norvane::PropertySet& scheme) : edit(scheme) { page.show(&edit); }

    std::string option(const std::string& name) const { return optionText(edit.scheme(), name); }
    const Field& field(std::string_view name) const { return *page.find(name); }

    SchemeEdit edit;
    Page page;
};

Norvane::PropertySet withGlobals(std::vector<std::pair<std::string, std::string>> more = {}) {
    Norvane::PropertySet scheme = schemeOf("Mine", {{"GLOBAL_INDENT_CONTENT", "  "},
                                                    {"GLOBAL_WS_BEFORE_OPEN_BRACE", "\n"},
                                                    {"GLOBAL_WS_AFTER_OPEN_BRACE", "\n\n"},
                                                    {"GLOBAL_WS_BEFORE_CLOSE_BRACE", "\t"}});
    for (const auto& [option, value] : more) scheme.setString(option, value);
    return scheme;
}

// ---------------------------------------------------------------------------------------------- keys

struct BodyKeyRow {
    PageId page;
    const char* before;
    const char* after;
    const char* beforeClose;
    const char* indent;
};
const BodyKeyRow kBodyKeys[] = {
    {PageId::Classes, "WS_BEFORE_CLASS_OPEN_BRACE", "WS_AFTER_CLASS_OPEN_BRACE", "WS_BEFORE_CLASS_CLOSE_BRACE",
     "INDENT_CLASS_CONTENT"},
    {PageId::ControlStatements, "WS_BEFORE_CS_OPEN_BRACE", "WS_AFTER_CS_OPEN_BRACE", "WS_BEFORE_CS_CLOSE_BRACE",
     "INDENT_CS_CONTENT"},
    {PageId::Data, "WS_BEFORE_DD_OPEN_BRACE", "WS_AFTER_DD_OPEN_BRACE", "WS_BEFORE_DD_CLOSE_BRACE",
     "INDENT_DD_CONTENT"},
    {PageId::Enums, "WS_BEFORE_ENUM_OPEN_BRACE", "WS_AFTER_ENUM_OPEN_BRACE", "WS_BEFORE_ENUM_CLOSE_BRACE",
     "INDENT_ENUM_CONTENT"},
    {PageId::Functions, "WS_BEFORE_FN_OPEN_BRACE", "WS_AFTER_FN_OPEN_BRACE", "WS_BEFORE_FN_CLOSE_BRACE",
     "INDENT_FN_CONTENT"},
    {PageId::Namespaces, "WS_BEFORE_NS_OPEN_BRACE", "WS_AFTER_NS_OPEN_BRACE", "WS_BEFORE_NS_CLOSE_BRACE",
     "INDENT_NS_CONTENT"},
};

TEST(Pages, NameTheKeysOfTheirBodies) {
    const auto pages = makePages();
    std::size_t bodies = 0;
    for (const auto& page : pages) bodies += dynamic_cast<const BodyBasePage*>(page.get()) != nullptr ? 1 : 0;
    EXPECT_EQ(bodies, std::size(kBodyKeys));
    for (const BodyKeyRow& row : kBodyKeys) {
        SCOPED_TRACE(row.before);
        const auto* page = dynamic_cast<const BodyBasePage*>(pages[static_cast<std::size_t>(row.page)].get());
        ASSERT_NE(page, nullptr);
        EXPECT_EQ(page->wsBeforeOpenBraceKey(), row.before);
        EXPECT_EQ(page->wsAfterOpenBraceKey(), row.after);
        EXPECT_EQ(page->wsBeforeCloseBraceKey(), row.beforeClose);
        EXPECT_EQ(page->indentContentKey(), row.indent);
    }
    EXPECT_EQ(ControlStatementsPage().wsAfterOpenParenKey(), "WS_AFTER_CS_OPEN_PAREN");
    EXPECT_EQ(ControlStatementsPage().wsBeforeCloseParenKey(), "WS_BEFORE_CS_CLOSE_PAREN");
}

TEST(Pages, StandInTheOrderOfTheTable) {
    const auto pages = makePages();
    ASSERT_EQ(pages.size(), pageTable().size());
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const PageInfo& info = pageTable()[i];
        EXPECT_EQ(pages[i]->previewName(), info.previewName);
        EXPECT_EQ(pages[i]->helpTopic(), info.helpTopic);
        EXPECT_EQ(pages[i]->useGlobalSettingsKey(), info.useGlobalSettingsKey);
        EXPECT_EQ(pages[i]->doNotFormatKey(), info.doNotFormatKey);
        EXPECT_EQ(pages[i]->helpContextBase(), info.helpContextBase);
    }
}

TEST(Pages, HaveALabelAnExplanationAndChoicesForEveryField) {
    for (const auto& page : makePages()) {
        for (const Field& field : page->fields()) {
            SCOPED_TRACE(field.option);
            EXPECT_FALSE(field.label.empty());
            EXPECT_FALSE(field.explanation.empty());
            EXPECT_EQ(field.choices.empty(), field.kind != ControlKind::Choice);
        }
    }
}

// ------------------------------------------------------------------------------------------- showing

TEST(Fields, TellNotSetFromSetAndEmpty) {
    Shown<ClassesPage> shown(schemeOf("Mine", {{"WS_BEFORE_CLASS_OPEN_BRACE", ""}, {"INDENT_CLASS_CONTENT", ""}}));
    EXPECT_TRUE(shown.field("WS_BEFORE_CLASS_OPEN_BRACE").set);
    EXPECT_FALSE(shown.field("WS_AFTER_CLASS_OPEN_BRACE").set);
    EXPECT_TRUE(shown.field("INDENT_CLASS_CONTENT").set);
    EXPECT_FALSE(shown.field("INDENT_ACCESS_SPEC_LABEL").set);
    EXPECT_EQ(shown.field("INDENT_CLASS_CONTENT").count, 0);
    EXPECT_EQ(shown.field("WS_BEFORE_CLASS_OPEN_BRACE").text, "");
}

struct IndentCase {
    const char* value;
    int count;
    bool tabs;
    const char* text;
};
const IndentCase kIndents[] = {
    {"    ", 4, false, ""},
    {"\t\t", 2, true, ""},
    {"\t  ", 3, true, "\\t\\s\\s"},
    {" \n", 2, false, "\\s\\n"},
};

TEST(Fields, ShowAnIndentByCountAndKindOrInWords) {
    for (const IndentCase& row : kIndents) {
        SCOPED_TRACE(row.text);
        Shown<EnumsPage> shown(schemeOf("Mine", {{"INDENT_ENUM_CONTENT", row.value}}));
        const Field& field = shown.field("INDENT_ENUM_CONTENT");
        EXPECT_EQ(field.count, row.count);
        EXPECT_EQ(field.tabs, row.tabs);
        EXPECT_EQ(field.text, row.text);
    }
}

TEST(Fields, ShowAValueOutOfTheChoices) {
    Norvane::PropertySet scheme("Mine");
    scheme.setInt("WRAP_STYLE", 7);
    scheme.setInt("SHIFT_WRAP_STYLE", 2);
    Shown<LineWrappingPage> shown(scheme);
    EXPECT_EQ(shown.field("WRAP_STYLE").text, "other (7)");
    EXPECT_EQ(shown.field("SHIFT_WRAP_STYLE").text, "");
    EXPECT_EQ(shown.field("SHIFT_WRAP_STYLE").value, 2);
}

TEST(Fields, ShowABoolAmongChoices) {
    Norvane::PropertySet scheme("Mine");
    scheme.setBool("ALIGN_PPD_LEFT_MOST", true);
    Shown<PreprocessorPage> shown(scheme);
    EXPECT_EQ(shown.field("ALIGN_PPD_LEFT_MOST").value, 1);
    shown.page.setNumber("ALIGN_PPD_LEFT_MOST", 0);
    EXPECT_EQ(shown.option("ALIGN_PPD_LEFT_MOST"), "false");
    shown.page.setAsInSource("ALIGN_PPD_LEFT_MOST");
    EXPECT_EQ(shown.option("ALIGN_PPD_LEFT_MOST"), "not set");
}

// ------------------------------------------------------------------------------------------- editing

TEST(Fields, StoreWhatIsEntered) {
    Shown<ClassesPage> shown(Norvane::PropertySet("Mine"));
    shown.page.typeText("WS_BEFORE_CLASS_OPEN_BRACE", "\\n\\n\\s\\s");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_OPEN_BRACE"), "\"\n\n  \"");
    shown.page.typeText("WS_AFTER_CLASS_OPEN_BRACE", "");
    EXPECT_EQ(shown.option("WS_AFTER_CLASS_OPEN_BRACE"), "\"\"");
    shown.page.setCount("INDENT_CLASS_CONTENT", 3, false);
    EXPECT_EQ(shown.option("INDENT_CLASS_CONTENT"), "\"   \"");
    shown.page.setCount("INDENT_CLASS_CONTENT", 2, true);
    EXPECT_EQ(shown.option("INDENT_CLASS_CONTENT"), "\"\t\t\"");
    shown.page.setCount("INDENT_CLASS_CONTENT", 1000, false);
    EXPECT_EQ(shown.field("INDENT_CLASS_CONTENT").count, 99);
    shown.page.setSwitch("ALIGN_BASE_CLAUSES_LEFT", false);
    EXPECT_EQ(shown.option("ALIGN_BASE_CLAUSES_LEFT"), "false");
    shown.page.setAsInSource("ALIGN_BASE_CLAUSES_LEFT");
    EXPECT_EQ(shown.option("ALIGN_BASE_CLAUSES_LEFT"), "not set");
    EXPECT_TRUE(shown.field("WS_AFTER_CLASS_OPEN_BRACE").edited);
    EXPECT_FALSE(shown.field("ALIGN_BASE_CLAUSES_LEFT").edited);
}

TEST(Fields, KeepAnEntryThatIsNoWhiteSpaceAndTheValueFromBefore) {
    Shown<ClassesPage> shown(schemeOf("Mine", {{"WS_AFTER_CLASS_NAME", " "}}));
    FakeFace face;
    shown.page.typeText("WS_AFTER_CLASS_NAME", "x");
    EXPECT_EQ(shown.option("WS_AFTER_CLASS_NAME"), "\" \"");
    EXPECT_FALSE(shown.page.check(face));
    EXPECT_EQ(face.notices,
              FakeFace::Lines{"Please only enter white space.\nValid entries are: \\n (newline)  \\t (tab)  or  "
                              "\\s (space)"});
    EXPECT_EQ(face.focus, "WS_AFTER_CLASS_NAME");
    EXPECT_EQ(shown.field("WS_AFTER_CLASS_NAME").text, "x");
    // Not even an edit of another field takes it away.
    shown.page.typeText("WS_BETWEEN_BASE_CLAUSES", "\\s");
    EXPECT_EQ(shown.field("WS_AFTER_CLASS_NAME").text, "x");
    shown.page.typeText("WS_AFTER_CLASS_NAME", "");
    EXPECT_TRUE(shown.page.check(face));
}

// A value that was there before, whatever it is, must not hold the user on the page.
TEST(Fields, AreNotCheckedUnlessTheUserEntersSomething) {
    Shown<ClassesPage> shown(schemeOf("Mine", {{"WS_AFTER_CLASS_NAME", "hand-made"}}));
    FakeFace face;
    EXPECT_TRUE(shown.page.check(face));
    EXPECT_EQ(shown.field("WS_AFTER_CLASS_NAME").text, "hand-made");
}

TEST(Fields, RefuseALineBreakInAnIndentAndANumberOutOfRange) {
    Shown<GlobalsPage> shown(Norvane::PropertySet("Mine"));
    FakeFace face;
    shown.page.typeText("LEFT_MARGIN", "\\n");
    EXPECT_EQ(shown.field("LEFT_MARGIN").problem, Texts::kNoLineBreak);
    shown.page.typeText("LEFT_MARGIN", "\\t\\s");
    EXPECT_EQ(shown.option("LEFT_MARGIN"), "\"\t \"");
    for (const int wrong : {0, 65}) {
        shown.page.setNumber("TAB_SIZE", wrong);
        EXPECT_EQ(shown.field("TAB_SIZE").problem, "Please enter a number from 1 to 64.");
        EXPECT_EQ(shown.field("TAB_SIZE").text, std::to_string(wrong));
        EXPECT_FALSE(shown.page.check(face));
    }
    EXPECT_EQ(shown.option("TAB_SIZE"), "not set");
    shown.page.setNumber("TAB_SIZE", 64);
    EXPECT_TRUE(shown.page.check(face));
    EXPECT_EQ(shown.option("TAB_SIZE"), "64");
}

TEST(Fields, ShowTextAsItIsTypedUntilTheFieldIsLeft) {
    Shown<ClassesPage> shown(Norvane::PropertySet("Mine"));
    shown.page.typeText("WS_AFTER_CLASS_NAME", " \\");
    EXPECT_EQ(shown.field("WS_AFTER_CLASS_NAME").text, " \\");
    EXPECT_EQ(shown.option("WS_AFTER_CLASS_NAME"), "\" \"");
    shown.page.endTyping();
    EXPECT_EQ(shown.field("WS_AFTER_CLASS_NAME").text, "\\s");
}

// Old schemes hold this one as an int, which no pass finds.
TEST(Fields, LeaveAValueOfAnotherKindAlone) {
    Norvane::PropertySet scheme("Mine");
    scheme.setInt("WRAP_INDENT", 0);
    scheme.setInt("WRAP_STYLE", 2);
    Shown<LineWrappingPage> shown(scheme);
    EXPECT_FALSE(shown.field("WRAP_INDENT").set);
    shown.page.setCount("WRAP_INDENT", 2, false);
    shown.page.setAsInSource("WRAP_INDENT");
    EXPECT_EQ(shown.option("WRAP_INDENT"), "0");
}

TEST(Fields, OfWrappedLinesAreEnabledUnderTheStyleThatHasAnIndent) {
    Shown<LineWrappingPage> shown(Norvane::PropertySet("Mine"));
    EXPECT_FALSE(shown.field("WRAP_INDENT").enabled);
    shown.page.setNumber("WRAP_STYLE", 2);
    EXPECT_TRUE(shown.field("WRAP_INDENT").enabled);
}

TEST(Fields, OfAPageWithoutASchemeCannotBeEdited) {
    ClassesPage page;
    page.show(nullptr);
    for (const Field& field : page.fields()) EXPECT_FALSE(field.enabled) << field.option;
    page.typeText("WS_AFTER_CLASS_NAME", "x");
    page.setDoNotFormat(true);
    EXPECT_FALSE(page.doNotFormat());
}

// --------------------------------------------------------------------------------------------- boxes

TEST(Box, TakesTheOptionsOutAndBringsThemBack) {
    const Norvane::PropertySet before =
        schemeOf("Mine", {{"WS_BEFORE_CLASS_OPEN_BRACE", "\n"}, {"INDENT_CLASS_CONTENT", "\t "}});
    Shown<ClassesPage> shown(before);
    EXPECT_FALSE(shown.page.doNotFormat());
    shown.page.setDoNotFormat(true);
    EXPECT_EQ(shown.option("CLASS_DO_NOT_FORMAT"), "true");
    for (const Field& field : shown.page.fields()) {
        EXPECT_FALSE(field.enabled || field.set) << field.option;
        EXPECT_EQ(shown.option(std::string(field.option)), "not set");
    }
    shown.page.setDoNotFormat(false);
    EXPECT_EQ(shown.option("CLASS_DO_NOT_FORMAT"), "false");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_OPEN_BRACE"), "\"\n\"");
    EXPECT_EQ(shown.option("INDENT_CLASS_CONTENT"), "\"\t \"");
    EXPECT_TRUE(shown.field("INDENT_CLASS_CONTENT").enabled);
    shown.edit.undo();
    shown.edit.undo();
    EXPECT_TRUE(isSameScheme(shown.edit.scheme(), before));
}

TEST(Box, WinsOverTheGlobalSettings) {
    Norvane::PropertySet scheme = withGlobals();
    scheme.setBool("CLASS_USE_GLOBAL_SETTINGS", true);
    Shown<ClassesPage> shown(scheme);
    shown.page.setDoNotFormat(true);
    EXPECT_EQ(shown.option("CLASS_USE_GLOBAL_SETTINGS"), "true");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_OPEN_BRACE"), "not set");
    // As long as it is checked, nothing else on the page can be chosen.
    shown.page.setUseGlobalSettings(false);
    EXPECT_TRUE(shown.page.useGlobalSettings());
}

struct BoxCase {
    const char* box;
    std::vector<std::string> stay;
};
const BoxCase kBoxes[] = {
    {"FN_DO_NOT_FORMAT",
     {"WS_AFTER_FN_CALL_NAME", "WS_BEFORE_FN_CALL_COMMA", "WS_BETWEEN_FN_CALL_ARGS", "ALIGN_FN_CALL_ARGS_LEFT"}},
    {"GLOBALS_DO_NOT_FORMAT", {"LEFT_MARGIN", "TAB_SIZE", "CONVERT_WS", "KEEP_COLUMNS", "KEEP_LINE_BREAKS", "KEEP_SHAPE", "KEEP_ONE_LINERS",
      "WS_WITHIN_ONE_LINE_BRACES", "ALIGN_FURTHER_LINES", "INDENT_FURTHER_LINES"}},
    {"LINE_WRAP_DO_NOT_FORMAT",
     {"RIGHT_MARGIN", "WRAP_STYLE", "WRAP_INDENT", "EXPR_WRAP_STYLE", "COMMA_WRAP_STYLE", "SHIFT_WRAP_STYLE",
      "LIST_WRAP_STRATEGY"}},
    {"TEMPLATES_DO_NOT_FORMAT", {}},
    {"DATA_DO_NOT_FORMAT", {}},
    {"EXPR_DO_NOT_FORMAT", {}},
    {"POINTERSREFS_DO_NOT_FORMAT", {}},
    {"PPD_DO_NOT_FORMAT", {}},
};

TEST(Box, TakesOutWhatActsOnTheConstructAndNothingElse) {
    for (const BoxCase& row : kBoxes) {
        SCOPED_TRACE(row.box);
        const PageInfo& info = *homeOf(row.box).page;
        for (const PageOption& option : info.options) {
            const bool stays = std::find(row.stay.begin(), row.stay.end(), option.name) != row.stay.end();
            EXPECT_EQ(option.erasedByBox, !stays) << option.name;
        }
    }
}

TEST(Box, OfFunctionsLeavesCalls) {
    Shown<FunctionsPage> shown(schemeOf("Mine", {{"WS_AFTER_FN_NAME", " "}, {"WS_AFTER_FN_CALL_NAME", " "}}));
    shown.page.setDoNotFormat(true);
    EXPECT_EQ(shown.option("WS_AFTER_FN_NAME"), "not set");
    EXPECT_EQ(shown.option("WS_AFTER_FN_CALL_NAME"), "\" \"");
    EXPECT_EQ(shown.option("FN_DO_NOT_FORMAT"), "true");
}

TEST(Box, OfLineWrappingIsABoolBesideAnIntOfOldSchemes) {
    Norvane::PropertySet scheme("Mine");
    scheme.setInt("LINE_WRAP_DO_NOT_FORMAT", 0);
    scheme.setBool("LINE_WRAP", true);
    Shown<LineWrappingPage> shown(scheme);
    shown.page.setDoNotFormat(true);
    EXPECT_EQ(shown.edit.scheme().ints().at("LINE_WRAP_DO_NOT_FORMAT"), 0);
    EXPECT_TRUE(shown.edit.scheme().bools().at("LINE_WRAP_DO_NOT_FORMAT"));
    EXPECT_EQ(shown.option("LINE_WRAP"), "not set");
}

// ------------------------------------------------------------------------------------ global settings

TEST(GlobalSettings, AreCopiedWhenAPageChoosesThem) {
    Shown<ClassesPage> shown(withGlobals({{"GLOBAL_WS_BEFORE_COMMA", " "}}));
    shown.page.setUseGlobalSettings(true);
    EXPECT_EQ(shown.option("CLASS_USE_GLOBAL_SETTINGS"), "true");
    EXPECT_EQ(shown.option("INDENT_CLASS_CONTENT"), "\"  \"");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_OPEN_BRACE"), "\"\n\"");
    EXPECT_EQ(shown.option("WS_AFTER_CLASS_OPEN_BRACE"), "\"\n\n\"");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_CLOSE_BRACE"), "\"\t\"");
    EXPECT_EQ(shown.option("WS_BEFORE_BASE_CLAUSES_COMMA"), "\" \"");
    EXPECT_FALSE(shown.field("WS_BEFORE_CLASS_OPEN_BRACE").enabled);
    EXPECT_FALSE(shown.field("WS_BEFORE_BASE_CLAUSES_COMMA").enabled);
    EXPECT_TRUE(shown.field("WS_AFTER_CLASS_NAME").enabled);
    shown.page.setUseGlobalSettings(false);
    EXPECT_EQ(shown.option("CLASS_USE_GLOBAL_SETTINGS"), "false");
    // As the page had it: not at all.
    EXPECT_EQ(shown.option("INDENT_CLASS_CONTENT"), "not set");
    EXPECT_TRUE(shown.field("WS_BEFORE_CLASS_OPEN_BRACE").enabled);
}

TEST(GlobalSettings, ThatAreNotSetTakeTheValueOfTheRowBefore) {
    Shown<EnumsPage> shown(
        schemeOf("Mine", {{"GLOBAL_INDENT_CONTENT", "    "}, {"GLOBAL_WS_AFTER_OPEN_BRACE", "\n"}}));
    EXPECT_EQ(shown.page.globalSettingsNote(),
              "Not set on the Globals page: GLOBAL_WS_BEFORE_OPEN_BRACE, GLOBAL_WS_BEFORE_CLOSE_BRACE, "
              "GLOBAL_WS_BEFORE_COMMA.");
    shown.page.setUseGlobalSettings(true);
    EXPECT_EQ(shown.option("WS_BEFORE_ENUM_OPEN_BRACE"), "\"    \"");
    EXPECT_EQ(shown.option("WS_AFTER_ENUM_OPEN_BRACE"), "\"\n\"");
    EXPECT_EQ(shown.option("WS_BEFORE_ENUM_CLOSE_BRACE"), "\"\n\"");
    // Beyond the body, what is not set is not copied.
    EXPECT_EQ(shown.option("WS_BEFORE_ENUM_COMMA"), "not set");
}

TEST(GlobalSettings, OfParensAndCommasGoToTheOptionsThatAreLikeThem) {
    const Norvane::PropertySet scheme = schemeOf("Mine", {{"GLOBAL_WS_AFTER_OPEN_PAREN", " "},
                                                          {"GLOBAL_WS_BEFORE_CLOSE_PAREN", "\t"},
                                                          {"GLOBAL_WS_BEFORE_COMMA", "\n"}});
    Shown<FunctionsPage> functions(scheme);
    functions.page.setUseGlobalSettings(true);
    EXPECT_EQ(functions.option("WS_AFTER_FN_OPEN_PAREN"), "\" \"");
    EXPECT_EQ(functions.option("WS_BEFORE_FN_CLOSE_PAREN"), "\"\t\"");
    EXPECT_EQ(functions.option("WS_BEFORE_FN_COMMA"), "\"\n\"");
    EXPECT_EQ(functions.option("WS_BEFORE_FN_CALL_COMMA"), "\"\n\"");
    Shown<ExpressionsPage> expressions(scheme);
    expressions.page.setUseGlobalSettings(true);
    EXPECT_EQ(expressions.option("WS_AFTER_EXPR_OPEN_PAREN"), "\" \"");
    EXPECT_EQ(expressions.option("WS_BEFORE_EXPR_CLOSE_PAREN"), "\"\t\"");
    EXPECT_EQ(expressions.option("EXPR_USE_GLOBAL_SETTINGS"), "true");
    Shown<PointersRefsPage> pointers(scheme);
    pointers.page.setUseGlobalSettings(true);
    EXPECT_EQ(pointers.edit.scheme().size(), scheme.size() + 1);
    Shown<TemplatesPage> templates(scheme);
    templates.page.setUseGlobalSettings(true);
    EXPECT_FALSE(templates.edit.isModified());
}

TEST(GlobalSettings, ThatAreEditedReachThePagesThatUseThemInOneStep) {
    Norvane::PropertySet scheme = withGlobals({{"WS_BEFORE_ENUM_OPEN_BRACE", " "}, {"WS_BEFORE_NS_OPEN_BRACE", " "}});
    scheme.setBool("CLASS_USE_GLOBAL_SETTINGS", true);
    scheme.setBool("NS_USE_GLOBAL_SETTINGS", true);
    scheme.setBool("NAMESPACES_DO_NOT_FORMAT", true);
    Shown<GlobalsPage> shown(scheme);
    shown.page.typeText("GLOBAL_WS_BEFORE_OPEN_BRACE", "\\t");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_OPEN_BRACE"), "\"\t\"");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_CLOSE_BRACE"), "\"\t\"");
    EXPECT_EQ(shown.option("WS_BEFORE_ENUM_OPEN_BRACE"), "\" \"");
    EXPECT_EQ(shown.option("WS_BEFORE_NS_OPEN_BRACE"), "\" \"");
    shown.edit.undo();
    EXPECT_TRUE(isSameScheme(shown.edit.scheme(), scheme));
    EXPECT_FALSE(shown.edit.canUndo());
}

TEST(GlobalSettings, ThatAreTakenAwayLeaveThePagesAsTheyAre) {
    Norvane::PropertySet scheme = withGlobals({{"INDENT_CLASS_CONTENT", "  "}});
    scheme.setBool("CLASS_USE_GLOBAL_SETTINGS", true);
    Shown<GlobalsPage> shown(scheme);
    shown.page.setAsInSource("GLOBAL_WS_AFTER_OPEN_BRACE");
    EXPECT_EQ(shown.option("WS_AFTER_CLASS_OPEN_BRACE"), "not set");
    shown.page.setDoNotFormat(true);
    EXPECT_EQ(shown.option("INDENT_CLASS_CONTENT"), "\"  \"");
    EXPECT_EQ(shown.option("WS_BEFORE_CLASS_OPEN_BRACE"), "not set");
    // A margin is nothing that the global settings of a construct could change.
    shown.page.setDoNotFormat(false);
    EXPECT_EQ(shown.option("GLOBAL_INDENT_CONTENT"), "\"  \"");
}

TEST(GlobalSettings, ThatChangedWhileThePageWasLeftAloneAreTakenWhenItNoLongerIs) {
    Norvane::PropertySet scheme = withGlobals();
    scheme.setBool("ENUM_USE_GLOBAL_SETTINGS", true);
    SchemeEdit edit(scheme);
    EnumsPage enums;
    GlobalsPage globals;
    enums.show(&edit);
    enums.setDoNotFormat(true);
    globals.show(&edit);
    globals.setCount("GLOBAL_INDENT_CONTENT", 1, true);
    EXPECT_EQ(optionText(edit.scheme(), "INDENT_ENUM_CONTENT"), "not set");
    enums.reload();
    enums.setDoNotFormat(false);
    EXPECT_EQ(optionText(edit.scheme(), "INDENT_ENUM_CONTENT"), "\"\t\"");
}

TEST(GlobalSettings, ThatAreBroughtBackReachThePagesThatUseThem) {
    SchemeEdit edit(withGlobals());
    EnumsPage enums;
    GlobalsPage globals;
    globals.show(&edit);
    globals.setDoNotFormat(true);
    enums.show(&edit);
    enums.setUseGlobalSettings(true);
    EXPECT_EQ(optionText(edit.scheme(), "INDENT_ENUM_CONTENT"), "\"\"");
    globals.setDoNotFormat(false);
    EXPECT_EQ(optionText(edit.scheme(), "INDENT_ENUM_CONTENT"), "\"  \"");
}

TEST(GlobalSettings, OfTheMarginsDoNotCopyAnything) {
    Norvane::PropertySet scheme("Mine");
    scheme.setBool("CLASS_USE_GLOBAL_SETTINGS", true);
    Shown<GlobalsPage> shown(scheme);
    shown.page.setNumber("TAB_SIZE", 4);
    EXPECT_EQ(shown.edit.scheme().size(), 2u);
}

// ------------------------------------------------------------------------------------------- property

TEST(Exchange, LookingAtAllPagesChangesNothing) {
    std::vector<Norvane::PropertySet> schemes = shippedSchemes();
    std::mt19937 random(11);
    for (int i = 0; i < 200; ++i) schemes.push_back(randomScheme(random));
    for (const Norvane::PropertySet& scheme : schemes) {
        SchemeEdit edit(scheme);
        FakeFace face;
        for (const auto& page : makePages()) {
            page->show(&edit);
            page->reload();
            page->endTyping();
            ASSERT_TRUE(page->check(face));
        }
        ASSERT_EQ(schemeText(edit.scheme()), schemeText(scheme));
        ASSERT_FALSE(edit.isModified());
    }
}

/// Enters something into the field, by the operation of its kind.
void editField(StylesBasePage& page, const Field& field) {
    switch (field.kind) {
    case ControlKind::WhiteSpace: return page.typeText(field.option, "\\n\\t\\n");
    case ControlKind::CountAndKind: return page.setCount(field.option, 7, true);
    case ControlKind::Switch: return page.setSwitch(field.option, !field.on);
    case ControlKind::Number: return page.setNumber(field.option, field.value == 5 ? 6 : 5);
    case ControlKind::Choice: return page.setNumber(field.option, field.choices.back().value);
    }
}

// Every line of the file stays byte for byte, but for the option that was edited.
TEST(Exchange, AnEditChangesNoOtherOption) {
    std::vector<Norvane::PropertySet> schemes = shippedSchemes();
    std::mt19937 random(5);
    for (int i = 0; i < 6; ++i) schemes.push_back(randomScheme(random));
    for (const Norvane::PropertySet& scheme : schemes) {
        for (const auto& page : makePages()) {
            // Copying on to other pages is what this one is for.
            if (page->info().id == PageId::Globals) continue;
            for (std::size_t i = 0; i < page->fields().size(); ++i) {
                SchemeEdit edit(scheme);
                page->show(&edit);
                const Field field = page->fields()[i];
                if (!field.enabled) continue;
                SCOPED_TRACE(field.option);
                editField(*page, field);
                Norvane::PropertySet before = scheme;
                Norvane::PropertySet after = edit.scheme();
                storeOption(before, field.option, {});
                storeOption(after, field.option, {});
                ASSERT_EQ(schemeText(after), schemeText(before));
                page->setAsInSource(field.option);
                ASSERT_EQ(schemeText(edit.scheme()), schemeText(before));
                page->show(nullptr);
            }
        }
    }
}

TEST(Exchange, EveryFieldCanBeEditedUndoneAndRedone) {
    Norvane::PropertySet scheme("Mine");
    scheme.setInt("WRAP_STYLE", 2);
    for (const auto& page : makePages()) {
        SchemeEdit edit(scheme);
        page->show(&edit);
        const std::size_t count = page->fields().size();
        for (std::size_t i = 0; i < count; ++i) {
            if (page->fields()[i].option != "WRAP_STYLE") editField(*page, page->fields()[i]);
        }
        const Norvane::PropertySet after = edit.scheme();
        for (const Field& field : page->fields()) EXPECT_TRUE(field.set) << field.option;
        while (edit.canUndo()) EXPECT_EQ(homeOf(edit.undo()).page, &page->info());
        EXPECT_TRUE(isSameScheme(edit.scheme(), scheme));
        while (edit.canRedo()) edit.redo();
        EXPECT_TRUE(isSameScheme(edit.scheme(), after));
        page->show(nullptr);
    }
}

} // namespace
