#include "ui/NorvaneUI_PageTable.h"

#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace {

using namespace NorvaneUI;

struct PageRow {
    const char* className;
    const char* previewName;
    const char* helpTopic;
    const char* useGlobalSettingsKey;
    const char* doNotFormatKey;
    std::uint32_t helpContextBase;
    std::size_t optionCount;
};
// The count of options includes the box where the catalogue has it as an option.
const PageRow kRows[] = {
    {"GlobalsPage", "GlobalsPreview", "Globals.htm", "", "GLOBALS_DO_NOT_FORMAT", 0x10000000, 17},
    {"ClassesPage", "ClassesPreview", "Classes.htm", "CLASS_USE_GLOBAL_SETTINGS", "CLASS_DO_NOT_FORMAT",
     0x20000000, 12},
    {"EnumsPage", "EnumsPreview", "Enums.htm", "ENUM_USE_GLOBAL_SETTINGS", "ENUMS_DO_NOT_FORMAT", 0x30000000, 7},
    {"NamespacesPage", "NamespacesPreview", "Namespaces.htm", "NS_USE_GLOBAL_SETTINGS", "NAMESPACES_DO_NOT_FORMAT",
     0x40000000, 4},
    {"FunctionsPage", "FunctionsPreview", "Functions.htm", "FN_USE_GLOBAL_SETTINGS", "FN_DO_NOT_FORMAT", 0x50000000,
     19},
    {"ControlStatementsPage", "ControlStatementsPreview", "ControlStatements.htm",
     "CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS", "CONTROL_STATEMENTS_DO_NOT_FORMAT", 0x60000000, 14},
    {"DataPage", "DataPreview", "Variables.htm", "DATA_USE_GLOBAL_SETTINGS", "DATA_DO_NOT_FORMAT", 0x70000000, 12},
    {"ExpressionsPage", "ExpressionsPreview", "Expressions.htm", "EXPR_USE_GLOBAL_SETTINGS", "EXPR_DO_NOT_FORMAT",
     0x80000000, 13},
    {"LineWrappingPage", "LineWrappingPreview", "LineWrapping.htm", "", "LINE_WRAP_DO_NOT_FORMAT", 0, 9},
    {"MemberInitsPage", "MemberInitsPreview", "InitializerLists.htm", "", "MEMBERINITS_DO_NOT_FORMAT", 0, 5},
    {"PointersRefsPage", "PointersReferencesPreview", "PointersRefs.htm", "POINTERSREFS_USE_GLOBAL_SETTINGS",
     "POINTERSREFS_DO_NOT_FORMAT", 0, 6},
    {"PreprocessorPage", "PreprocessorPreview", "Preprocessor.htm", "", "PPD_DO_NOT_FORMAT", 0, 1},
    {"TemplatesPage", "TemplatesPreview", "Templates.htm", "", "TEMPLATES_DO_NOT_FORMAT", 0, 7},
};

bool inCatalogue(std::string_view name) {
    const auto catalogue = Norvane::propertyCatalogue();
    return std::any_of(catalogue.begin(), catalogue.end(),
                       [&](const auto& info) { return info.name == name; });
}

TEST(PageTable, HasEveryPageInOrder) {
    ASSERT_EQ(pageTable().size(), std::size(kRows));
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        SCOPED_TRACE(kRows[i].className);
        const PageInfo& page = pageTable()[i];
        EXPECT_EQ(page.className, kRows[i].className);
        EXPECT_EQ(static_cast<std::size_t>(page.id), i);
        EXPECT_EQ(page.previewName, kRows[i].previewName);
        EXPECT_EQ(page.helpTopic, kRows[i].helpTopic);
        EXPECT_EQ(page.useGlobalSettingsKey, kRows[i].useGlobalSettingsKey);
        EXPECT_EQ(page.doNotFormatKey, kRows[i].doNotFormatKey);
        EXPECT_EQ(page.helpContextBase, kRows[i].helpContextBase);
        const std::size_t box = inCatalogue(page.doNotFormatKey) ? 1 : 0;
        EXPECT_EQ(page.options.size() + box, kRows[i].optionCount);
    }
}

TEST(PageTable, GivesEveryOptionOfTheCatalogueOneHome) {
    std::map<std::string_view, int> homes;
    for (const PageInfo& page : pageTable()) {
        ++homes[page.doNotFormatKey];
        for (const PageOption& option : page.options) ++homes[option.name];
    }
    for (const std::string_view name : optionsWithoutControl()) ++homes[name];
    for (const auto& info : Norvane::propertyCatalogue()) EXPECT_EQ(homes[info.name], 1) << info.name;
}

TEST(PageTable, NamesOnlyOptionsThatThereAre) {
    for (const PageInfo& page : pageTable()) {
        for (const PageOption& option : page.options) {
            EXPECT_TRUE(inCatalogue(option.name)) << option.name;
            EXPECT_TRUE(option.global.empty() || inCatalogue(option.global)) << option.global;
        }
    }
    for (const auto& key : Norvane::pageKeyCatalogue()) {
        const bool used = std::any_of(pageTable().begin(), pageTable().end(), [&](const PageInfo& page) {
            return page.doNotFormatKey == key.name || page.useGlobalSettingsKey == key.name;
        });
        EXPECT_TRUE(used) << key.name;
    }
}

// A control that offers what the value cannot be would lose what the user entered.
TEST(PageTable, EditsEachOptionByAControlThatFitsItsValue) {
    using Norvane::PropertyKind;
    for (const PageInfo& page : pageTable()) {
        for (const PageOption& option : page.options) {
            SCOPED_TRACE(option.name);
            const PropertyKind kind = Norvane::findProperty(option.name)->kind;
            switch (option.kind) {
            case ControlKind::WhiteSpace: EXPECT_EQ(kind, PropertyKind::WhiteSpace); break;
            case ControlKind::CountAndKind: EXPECT_EQ(kind, PropertyKind::Indent); break;
            case ControlKind::Switch: EXPECT_EQ(kind, PropertyKind::Bool); break;
            case ControlKind::Number:
                EXPECT_EQ(kind, PropertyKind::Int);
                EXPECT_EQ(Norvane::checkIntProperty(option.name, option.minimum), Norvane::PropertyFault::None);
                EXPECT_EQ(Norvane::checkIntProperty(option.name, option.maximum), Norvane::PropertyFault::None);
                break;
            case ControlKind::Choice: EXPECT_TRUE(kind == PropertyKind::Int || kind == PropertyKind::Bool); break;
            }
        }
    }
}

TEST(PageTable, FindsThePageOfAnOption) {
    EXPECT_EQ(homeOf("WRAP_INDENT").page->id, PageId::LineWrapping);
    EXPECT_EQ(homeOf("WRAP_INDENT").option->kind, ControlKind::CountAndKind);
    EXPECT_EQ(homeOf("FN_DO_NOT_FORMAT").page->id, PageId::Functions);
    EXPECT_EQ(homeOf("FN_DO_NOT_FORMAT").option, nullptr);
    EXPECT_EQ(homeOf("WS_BETWEEN_CS_CASES").page, nullptr);
    EXPECT_EQ(homeOf("").page, nullptr);
}

} // namespace
