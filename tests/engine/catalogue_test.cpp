#include "src/scheme/Norvane_PropertyCatalogue.h"

#include "src/scheme/Norvane_PropertySet.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace {

using Norvane::checkBoolProperty;
using Norvane::checkIntProperty;
using Norvane::checkStringProperty;
using Norvane::findProperty;
using Norvane::nearestPropertyName;
using Norvane::propertyCatalogue;
using Norvane::PropertyFamily;
using Norvane::PropertyFault;
using Norvane::PropertyInfo;
using Norvane::PropertyKind;

TEST(Catalogue, HoldsEveryOptionOfEachFamilyByName) {
    const std::map<PropertyFamily, int> expected = {
        {PropertyFamily::Global, 7},
        {PropertyFamily::Classes, 20},
        {PropertyFamily::TemplateParameters, 7},
        {PropertyFamily::Namespaces, 4},
        {PropertyFamily::Enums, 7},
        {PropertyFamily::Functions, 17},
        {PropertyFamily::FunctionCalls, 4},
        {PropertyFamily::DataDeclarations, 11},
        {PropertyFamily::ControlStatements, 14},
        {PropertyFamily::Expressions, 6},
        {PropertyFamily::PointersAndReferences, 6},
        {PropertyFamily::WrappingAndMargins, 9},
        {PropertyFamily::Other, 7},
    };
    std::map<PropertyFamily, int> counts;
    // What came later stands behind those that every scheme knows.
    for (const PropertyInfo& info : propertyCatalogue().first(119)) ++counts[info.family];
    EXPECT_EQ(counts, expected);
    for (const PropertyInfo& info : propertyCatalogue().subspan(119)) {
        EXPECT_GT(info.family, PropertyFamily::Other) << info.name;
    }
    EXPECT_EQ(Norvane::pageKeyCatalogue().size(), 18U);
}

TEST(Catalogue, StandsInOrderWithoutDoubles) {
    std::set<std::string_view> names;
    const PropertyInfo* previous = nullptr;
    for (const PropertyInfo& info : propertyCatalogue()) {
        SCOPED_TRACE(info.name);
        EXPECT_TRUE(names.insert(info.name).second);
        if (previous && previous->family == info.family) {
            EXPECT_LT(previous->name, info.name);
        } else if (previous) {
            EXPECT_LT(previous->family, info.family);
        }
        previous = &info;
    }
    for (const PropertyInfo& info : Norvane::pageKeyCatalogue()) {
        EXPECT_TRUE(names.insert(info.name).second) << info.name;
        EXPECT_EQ(info.family, PropertyFamily::PageKeys) << info.name;
    }
}

TEST(Catalogue, KindFollowsThePrefixOfTheName) {
    for (const PropertyInfo& info : propertyCatalogue()) {
        SCOPED_TRACE(info.name);
        const std::string name(info.name);
        if (name.find("WS_") == 0 || name.find("GLOBAL_WS_") == 0) {
            EXPECT_EQ(info.kind, PropertyKind::WhiteSpace);
        } else if (name.find("INDENT_") == 0 || name == "GLOBAL_INDENT_CONTENT") {
            EXPECT_EQ(info.kind, PropertyKind::Indent);
        } else if (name.find("ALIGN_") == 0 || name.find("HANGING_") == 0) {
            EXPECT_EQ(info.kind, PropertyKind::Bool);
        }
        EXPECT_FALSE(info.description.empty());
        EXPECT_EQ(info.description.find('\n'), std::string_view::npos);
    }
}

TEST(Catalogue, DefaultsAreThoseThatNormalisingFillsIn) {
    Norvane::PropertySet scheme;
    normalizeProperties(scheme);
    for (const auto& [name, value] : scheme.ints()) {
        ASSERT_NE(findProperty(name), nullptr) << name;
        EXPECT_EQ(findProperty(name)->defaultValue, std::to_string(value)) << name;
    }
    for (const auto& [name, value] : scheme.strings()) {
        ASSERT_NE(findProperty(name), nullptr) << name;
        EXPECT_EQ(findProperty(name)->defaultValue, value == " " ? "one blank" : "?") << name;
    }
}

TEST(Catalogue, EveryOptionIsToldApartInAForm) {
    // A field beside a label is about as wide as its page.
    constexpr std::size_t widestLabel = 40;
    std::set<std::pair<PropertyFamily, std::string_view>> labels;
    for (const PropertyInfo& info : propertyCatalogue()) {
        SCOPED_TRACE(info.name);
        EXPECT_FALSE(info.label.empty());
        EXPECT_LE(info.label.size(), widestLabel);
        EXPECT_TRUE(labels.insert({info.family, info.label}).second) << info.label;
        const bool saysNoEffect = info.description.find("No effect") == 0;
        EXPECT_NE(info.formats, saysNoEffect);
    }
}

TEST(Catalogue, ChoicesRiseWithinTheValuesOfTheirOption) {
    int options = 0;
    for (const PropertyInfo& info : propertyCatalogue()) {
        SCOPED_TRACE(info.name);
        const auto choices = Norvane::propertyChoices(info.name);
        if (choices.empty()) continue;
        ++options;
        EXPECT_EQ(choices.back().value, info.maximum);
        std::int32_t previous = info.minimum - 1;
        for (const Norvane::PropertyChoice& choice : choices) {
            EXPECT_GT(choice.value, previous);
            EXPECT_FALSE(choice.words.empty());
            previous = choice.value;
        }
    }
    EXPECT_EQ(options, 9);
    EXPECT_TRUE(Norvane::propertyChoices("RIGHT_MARGIN").empty());
    EXPECT_TRUE(Norvane::propertyChoices("NO_SUCH_OPTION").empty());
}

TEST(Catalogue, FindsNamesOfBothTablesByTheirExactSpelling) {
    ASSERT_NE(findProperty("TAB_SIZE"), nullptr);
    EXPECT_EQ(findProperty("TAB_SIZE")->minimum, 1);
    ASSERT_NE(findProperty("NS_USE_GLOBAL_SETTINGS"), nullptr);
    EXPECT_EQ(findProperty("NS_USE_GLOBAL_SETTINGS")->kind, PropertyKind::Bool);
    EXPECT_EQ(findProperty("tab_size"), nullptr);
    EXPECT_EQ(findProperty(""), nullptr);
    EXPECT_EQ(findProperty("TAB_SIZE "), nullptr);
}

TEST(Catalogue, TheNearestNameIsTheOneThatWasMeant) {
    const struct {
        const char* typed;
        const char* meant;
    } rows[] = {
        {"TAB_SIZE", "TAB_SIZE"},
        {"tab_size", "TAB_SIZE"},
        {"TABSIZE", "TAB_SIZE"},
        {"RIGHT_MARGN", "RIGHT_MARGIN"},
        {"WS_BEFOR_CS_OPEN_BRACE", "WS_BEFORE_CS_OPEN_BRACE"},
        {"WS_BEFORE_FN_OPENBRACE", "WS_BEFORE_FN_OPEN_BRACE"},
        {"WS_BETWEEN_EXPR_OPERANDS", "WS_BETWEEN_EXPR_OP_OPERANDS"},
        {"ALIGN_DD_NAME_LEFT", "ALIGN_DD_NAMES_LEFT"},
        {"CLASS_DO_NOT_FORMATS", "CLASS_DO_NOT_FORMAT"},
    };
    for (const auto& row : rows) EXPECT_EQ(nearestPropertyName(row.typed), row.meant) << row.typed;
}

TEST(Catalogue, AnyNameHasANearestOne) {
    EXPECT_FALSE(nearestPropertyName("").empty());
    EXPECT_FALSE(nearestPropertyName(std::string(10'000'000, 'x')).empty());
    EXPECT_FALSE(nearestPropertyName("\xff\x80\n").empty());
}

TEST(Catalogue, AValueOfAnotherKindIsAFault) {
    EXPECT_EQ(checkBoolProperty("LINE_WRAP", true), PropertyFault::None);
    EXPECT_EQ(checkBoolProperty("ENUMS_DO_NOT_FORMAT", true), PropertyFault::None);
    EXPECT_EQ(checkIntProperty("LINE_WRAP", 1), PropertyFault::WrongKind);
    EXPECT_EQ(checkStringProperty("LINE_WRAP", " "), PropertyFault::WrongKind);
    EXPECT_EQ(checkBoolProperty("TAB_SIZE", true), PropertyFault::WrongKind);
    EXPECT_EQ(checkIntProperty("INDENT_FN_CONTENT", 4), PropertyFault::WrongKind);
    EXPECT_EQ(checkStringProperty("TAB_SIZE", "4"), PropertyFault::WrongKind);
    EXPECT_EQ(checkBoolProperty("NO_SUCH", true), PropertyFault::UnknownName);
    EXPECT_EQ(checkIntProperty("NO_SUCH", 1), PropertyFault::UnknownName);
    EXPECT_EQ(checkStringProperty("NO_SUCH", ""), PropertyFault::UnknownName);
}

TEST(Catalogue, ConvertedSchemesPass) {
    EXPECT_EQ(checkIntProperty("WRAP_INDENT", 0), PropertyFault::None);
    EXPECT_EQ(checkStringProperty("WRAP_INDENT", "  "), PropertyFault::None);
    EXPECT_EQ(checkIntProperty("DATA_DO_NOT_FORMAT", 0), PropertyFault::None);
    EXPECT_EQ(checkBoolProperty("DATA_DO_NOT_FORMAT", true), PropertyFault::None);
    EXPECT_EQ(checkIntProperty("LINE_WRAP_DO_NOT_FORMAT", 0), PropertyFault::None);
    EXPECT_EQ(checkBoolProperty("LINE_WRAP_DO_NOT_FORMAT", false), PropertyFault::None);
    EXPECT_EQ(checkStringProperty("KERFLINE_VERSION", "1.2.1"), PropertyFault::None);
    EXPECT_EQ(checkIntProperty("FN_DO_NOT_FORMAT", 0), PropertyFault::WrongKind);
}

TEST(Catalogue, IntsHaveTheirRange) {
    const struct {
        const char* name;
        std::int32_t lowest;
        std::int32_t highest;
    } rows[] = {{"CONVERT_WS", 0, 2},       {"ASTERISK_ANCHOR", -1, 1},  {"AMPERSAND_ANCHOR", -1, 1},
                {"WRAP_STYLE", 0, 2},       {"EXPR_WRAP_STYLE", 0, 2},   {"SHIFT_WRAP_STYLE", 0, 2},
                {"COMMA_WRAP_STYLE", 0, 2}, {"LIST_WRAP_STRATEGY", 0, 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(checkIntProperty(row.name, row.lowest), PropertyFault::None);
        EXPECT_EQ(checkIntProperty(row.name, row.highest), PropertyFault::None);
        EXPECT_EQ(checkIntProperty(row.name, row.lowest - 1), PropertyFault::OutOfRange);
        EXPECT_EQ(checkIntProperty(row.name, row.highest + 1), PropertyFault::OutOfRange);
    }
    EXPECT_EQ(checkIntProperty("TAB_SIZE", 0), PropertyFault::OutOfRange);
    EXPECT_EQ(checkIntProperty("RIGHT_MARGIN", 0), PropertyFault::None);
    EXPECT_EQ(checkIntProperty("RIGHT_MARGIN", -1), PropertyFault::OutOfRange);
}

TEST(Catalogue, WhiteSpaceIsNothingElse) {
    EXPECT_EQ(checkStringProperty("WS_AFTER_CS_KEY", ""), PropertyFault::None);
    EXPECT_EQ(checkStringProperty("WS_AFTER_CS_KEY", " \t\n"), PropertyFault::None);
    EXPECT_EQ(checkStringProperty("WS_AFTER_CS_KEY", " x"), PropertyFault::NotWhiteSpace);
    EXPECT_EQ(checkStringProperty("WS_AFTER_CS_KEY", "\xa0"), PropertyFault::NotWhiteSpace);
    EXPECT_EQ(checkStringProperty("INDENT_FN_CONTENT", "  ;"), PropertyFault::NotWhiteSpace);
    EXPECT_EQ(checkStringProperty("INDENT_FN_CONTENT", "\t  "), PropertyFault::None);
    EXPECT_EQ(checkStringProperty("LEFT_MARGIN", "\n"), PropertyFault::LineBreakInIndent);
}

} // namespace
