#include "src/scheme/Norvane_LayoutOptions.h"

#include <gtest/gtest.h>

namespace {

using Norvane::LayoutOptions;
using Norvane::PropertySet;

PropertySet numbers(std::initializer_list<std::pair<const char*, int>> values) {
    PropertySet scheme;
    for (const auto& [name, value] : values) scheme.setInt(name, value);
    return scheme;
}

TEST(LayoutOptions, BringsNumbersIntoTheirLimits) {
    const LayoutOptions low(numbers({{"TAB_SIZE", -3}, {"RIGHT_MARGIN", -1}, {"CONVERT_WS", 7}, {"WRAP_STYLE", -1}}));
    EXPECT_EQ(low.tabSize, 1);
    EXPECT_EQ(low.rightMargin, 0);
    EXPECT_EQ(low.convertWs, 0);
    EXPECT_EQ(low.wrap.style, Norvane::WrapStyle::kFlush);
    EXPECT_EQ(LayoutOptions(numbers({{"TAB_SIZE", 8}})).tabSize, 8);
}

TEST(LayoutOptions, ACommaStyleOutOfRangeBreaksBehindButSticksToNothing) {
    const LayoutOptions odd(numbers({{"COMMA_WRAP_STYLE", 7}}));
    EXPECT_EQ(odd.wrap.commaBreak, Norvane::BreakStyle::kLast);
    EXPECT_FALSE(odd.wrap.commasStick);
    EXPECT_TRUE(LayoutOptions(PropertySet()).wrap.commasStick);
}

TEST(LayoutOptions, AlignmentsStandForALineEachAndExpressionsGoByTheScheme) {
    PropertySet scheme;
    for (const char* name : {"ALIGN_TP_PARAMS_LEFT", "ALIGN_DD_INITIALIZERS"}) scheme.setBool(name, true);
    scheme.setString("WS_BETWEEN_TP_PARAMS", " ");
    scheme.setString("WS_AFTER_DD_TYPE_ID", "\n");
    const LayoutOptions options(scheme);
    EXPECT_EQ(options.wsBetweenTpParams.value, "\n");
    EXPECT_EQ(options.wrap.templateParameters.between.value, "\n");
    EXPECT_EQ(options.expr.templateArgs.between.value, " ");
    EXPECT_EQ(options.wsAfterDdTypeId.value, " ");
    EXPECT_EQ(options.wrap.afterTypeId.value, "\n");
}

TEST(LayoutOptions, AnIndentThatHoldsCodeBreaksNoLine) {
    PropertySet scheme;
    scheme.setString("WRAP_INDENT", "x ");
    EXPECT_FALSE(LayoutOptions(scheme).wrap.indent.set);
}

} // namespace
