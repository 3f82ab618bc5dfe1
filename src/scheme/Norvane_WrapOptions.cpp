#include "src/scheme/Norvane_WrapOptions.h"

#include "src/scheme/Norvane_LayoutOptions.h"

#include <string>

namespace Norvane {

namespace {

template <class Style> Style styleOr(int value, Style outOfRange) {
    return value < 0 || value > 2 ? outOfRange : static_cast<Style>(value);
}

OptionalString indentOf(const OptionalString& option) {
    return option.value.find_first_not_of(" \t") == std::string::npos ? option : OptionalString();
}

OptionalString alignedOr(bool aligned, const OptionalString& between) {
    return aligned ? OptionalString{true, "\n"} : between;
}

} // namespace

WrapOptions::WrapOptions(const LayoutOptions& options)
    : isOn(options.lineWrap && options.rightMargin > 0), rightMargin(options.rightMargin),
      style(styleOr(options.wrapStyle, WrapStyle::kFlush)),
      exprBreak(styleOr(options.exprWrapStyle, BreakStyle::kFirst)),
      shiftBreak(styleOr(options.shiftWrapStyle, BreakStyle::kFirst)),
      commaBreak(styleOr(options.commaWrapStyle, BreakStyle::kLast)),
      listStrategy(styleOr(options.listWrapStrategy, ListStrategy::kKeepLines)),
      commasStick(options.commaWrapStyle == static_cast<int>(BreakStyle::kLast)),
      indent(indentOf(options.wrapIndent)), leftMargin(indentOf(options.leftMargin)),
      namespaceIndent(indentOf(options.indentNsContent)), blockIndent(indentOf(options.globalIndentContent)),
      classIndent(indentOf(options.indentClassContent)), functionIndent(indentOf(options.indentFnContent)),
      controlIndent(indentOf(options.indentCsContent)), caseIndent(indentOf(options.indentCsCaseContent)),
      dataIndent(indentOf(options.indentDdContent)), enumIndent(indentOf(options.indentEnumContent)),
      afterTypeId(options.wsAfterDdTypeId),
      conditionParens{options.wsAfterCsOpenParen, options.wsBeforeCsCloseParen},
      betweenClauses(alignedOr(options.alignForClausesLeft, options.wsBetweenCsForClauses)),
      bases{options.wsBeforeBaseClausesComma,
            alignedOr(options.alignBaseClausesLeft, options.wsBetweenBaseClauses)},
      parameters{options.wsBeforeFnComma, alignedOr(options.alignFnParamsLeft, options.wsBetweenFnParams)},
      templateParameters{options.wsBeforeTpComma,
                         alignedOr(options.alignTpParamsLeft, options.wsBetweenTpParams)},
      initializers{options.wsBeforeClassInitsComma, options.wsBetweenClassInits},
      enumerators{options.wsBeforeEnumComma, options.wsBetweenEnumElements} {}

} // namespace Norvane
