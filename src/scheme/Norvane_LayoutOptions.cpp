#include "src/scheme/Norvane_LayoutOptions.h"

#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <cstdint>

namespace Norvane {

namespace {

template <class Value> struct Row {
    const char* name;
    Value LayoutOptions::*member;
};

constexpr Row<OptionalString> kStrings[] = {
    {"LEFT_MARGIN", &LayoutOptions::leftMargin},
    {"GLOBAL_WS_BEFORE_OPEN_BRACE", &LayoutOptions::globalWsBeforeOpenBrace},
    {"GLOBAL_INDENT_CONTENT", &LayoutOptions::globalIndentContent},
    {"GLOBAL_WS_AFTER_OPEN_BRACE", &LayoutOptions::globalWsAfterOpenBrace},
    {"GLOBAL_WS_BEFORE_CLOSE_BRACE", &LayoutOptions::globalWsBeforeCloseBrace},
    {"WS_BEFORE_NS_OPEN_BRACE", &LayoutOptions::wsBeforeNsOpenBrace},
    {"INDENT_NS_CONTENT", &LayoutOptions::indentNsContent},
    {"WS_AFTER_NS_OPEN_BRACE", &LayoutOptions::wsAfterNsOpenBrace},
    {"WS_BEFORE_NS_CLOSE_BRACE", &LayoutOptions::wsBeforeNsCloseBrace},
    {"WS_BEFORE_CLASS_OPEN_BRACE", &LayoutOptions::wsBeforeClassOpenBrace},
    {"WS_AFTER_CLASS_NAME", &LayoutOptions::wsAfterClassName},
    {"INDENT_CLASS_CONTENT", &LayoutOptions::indentClassContent},
    {"WS_AFTER_CLASS_OPEN_BRACE", &LayoutOptions::wsAfterClassOpenBrace},
    {"WS_BEFORE_CLASS_CLOSE_BRACE", &LayoutOptions::wsBeforeClassCloseBrace},
    {"WS_BEFORE_BASE_CLAUSES", &LayoutOptions::wsBeforeBaseClauses},
    {"WS_BEFORE_BASE_CLAUSES_COMMA", &LayoutOptions::wsBeforeBaseClausesComma},
    {"WS_BETWEEN_BASE_CLAUSES", &LayoutOptions::wsBetweenBaseClauses},
    {"WS_BEFORE_ACCESS_SPECS", &LayoutOptions::wsBeforeAccessSpecs},
    {"INDENT_ACCESS_SPEC_LABEL", &LayoutOptions::indentAccessSpecLabel},
    {"WS_BEFORE_CLASS_INIT_LIST", &LayoutOptions::wsBeforeClassInitList},
    {"WS_BEFORE_CLASS_INITS", &LayoutOptions::wsBeforeClassInits},
    {"WS_BEFORE_CLASS_INITS_COMMA", &LayoutOptions::wsBeforeClassInitsComma},
    {"WS_BETWEEN_CLASS_INITS", &LayoutOptions::wsBetweenClassInits},
    {"WS_AFTER_CLASS_INIT_LIST", &LayoutOptions::wsAfterClassInitList},
    {"WS_BEFORE_FN_OPEN_BRACE", &LayoutOptions::wsBeforeFnOpenBrace},
    {"WS_AFTER_FN_NAME", &LayoutOptions::wsAfterFnName},
    {"INDENT_FN_CONTENT", &LayoutOptions::indentFnContent},
    {"WS_AFTER_FN_OPEN_BRACE", &LayoutOptions::wsAfterFnOpenBrace},
    {"WS_BEFORE_FN_CLOSE_BRACE", &LayoutOptions::wsBeforeFnCloseBrace},
    {"WS_BEFORE_FN_COMMA", &LayoutOptions::wsBeforeFnComma},
    {"WS_BETWEEN_FN_PARAMS", &LayoutOptions::wsBetweenFnParams},
    {"WS_AFTER_FN_OPEN_PAREN", &LayoutOptions::wsAfterFnOpenParen},
    {"WS_BEFORE_FN_CLOSE_PAREN", &LayoutOptions::wsBeforeFnCloseParen},
    {"WS_AFTER_FN_DECL_RETURN_TYPE", &LayoutOptions::wsAfterFnDeclReturnType},
    {"WS_AFTER_FN_DEFN_RETURN_TYPE", &LayoutOptions::wsAfterFnDefnReturnType},
    {"WS_BEFORE_CS_OPEN_BRACE", &LayoutOptions::wsBeforeCsOpenBrace},
    {"WS_AFTER_CS_KEY", &LayoutOptions::wsAfterCsKey},
    {"WS_AFTER_CS_OPEN_BRACE", &LayoutOptions::wsAfterCsOpenBrace},
    {"WS_BETWEEN_CS", &LayoutOptions::wsBetweenCs},
    {"WS_BEFORE_CS_CLOSE_BRACE", &LayoutOptions::wsBeforeCsCloseBrace},
    {"INDENT_CS_CONTENT", &LayoutOptions::indentCsContent},
    {"WS_BETWEEN_CS_FOR_CLAUSES", &LayoutOptions::wsBetweenCsForClauses},
    {"WS_AFTER_CS_OPEN_PAREN", &LayoutOptions::wsAfterCsOpenParen},
    {"WS_BEFORE_CS_CLOSE_PAREN", &LayoutOptions::wsBeforeCsCloseParen},
    {"INDENT_CS_CASE_CONTENT", &LayoutOptions::indentCsCaseContent},
    {"WS_AFTER_CS_CASE_LABELS", &LayoutOptions::wsAfterCsCaseLabels},
    {"INDENT_CS_CASE_LABELS", &LayoutOptions::indentCsCaseLabels},
    {"WS_AFTER_PARAM_TYPE_ID", &LayoutOptions::wsAfterParamTypeId},
    {"WS_AFTER_DD_TYPE_ID", &LayoutOptions::wsAfterDdTypeId},
    {"INDENT_DD_CONTENT", &LayoutOptions::indentDdContent},
    {"WS_AFTER_DD_NAME", &LayoutOptions::wsAfterDdName},
    {"WS_AFTER_DD_RBRACKET", &LayoutOptions::wsAfterDdRbracket},
    {"WS_BETWEEN_EXPR_OP_OPERANDS", &LayoutOptions::wsBetweenExprOpOperands},
    {"WS_AFTER_FN_CALL_NAME", &LayoutOptions::wsAfterFnCallName},
    {"WS_BEFORE_TP_OPEN_BRACKET", &LayoutOptions::wsBeforeTpOpenBracket},
    {"WS_AFTER_TP_OPEN_BRACKET", &LayoutOptions::wsAfterTpOpenBracket},
    {"WS_BEFORE_TP_COMMA", &LayoutOptions::wsBeforeTpComma},
    {"WS_BETWEEN_TP_PARAMS", &LayoutOptions::wsBetweenTpParams},
    {"WS_BEFORE_TP_CLOSE_BRACKET", &LayoutOptions::wsBeforeTpCloseBracket},
    {"WS_AFTER_TP_CLOSE_BRACKET", &LayoutOptions::wsAfterTpCloseBracket},
    {"WS_BEFORE_ENUM_OPEN_BRACE", &LayoutOptions::wsBeforeEnumOpenBrace},
    {"WS_AFTER_ENUM_OPEN_BRACE", &LayoutOptions::wsAfterEnumOpenBrace},
    {"WS_BEFORE_ENUM_CLOSE_BRACE", &LayoutOptions::wsBeforeEnumCloseBrace},
    {"WS_BEFORE_ENUM_COMMA", &LayoutOptions::wsBeforeEnumComma},
    {"WS_BETWEEN_ENUM_ELEMENTS", &LayoutOptions::wsBetweenEnumElements},
    {"INDENT_ENUM_CONTENT", &LayoutOptions::indentEnumContent},
    {"WS_BEFORE_DD_OPEN_BRACE", &LayoutOptions::wsBeforeDdOpenBrace},
    {"WS_AFTER_DD_OPEN_BRACE", &LayoutOptions::wsAfterDdOpenBrace},
    {"WS_BEFORE_DD_CLOSE_BRACE", &LayoutOptions::wsBeforeDdCloseBrace},
    {"WS_BEFORE_DD_COMMA", &LayoutOptions::wsBeforeDdComma},
    {"WS_BETWEEN_DD_ELEMENTS", &LayoutOptions::wsBetweenDdElements},
    {"WS_AFTER_EXPR_OPEN_PAREN", &LayoutOptions::wsAfterExprOpenParen},
    {"WS_BEFORE_EXPR_CLOSE_PAREN", &LayoutOptions::wsBeforeExprCloseParen},
    {"WS_AFTER_LBRACKET", &LayoutOptions::wsAfterLbracket},
    {"WS_BEFORE_RBRACKET", &LayoutOptions::wsBeforeRbracket},
    {"WS_BEFORE_FN_CALL_COMMA", &LayoutOptions::wsBeforeFnCallComma},
    {"WS_BETWEEN_FN_CALL_ARGS", &LayoutOptions::wsBetweenFnCallArgs},
    {"WS_BETWEEN_ASTERISK_ANCHOR", &LayoutOptions::wsBetweenAsteriskAnchor},
    {"WS_BETWEEN_AMPERSAND_ANCHOR", &LayoutOptions::wsBetweenAmpersandAnchor},
    {"WRAP_INDENT", &LayoutOptions::wrapIndent},
    {"WS_WITHIN_ONE_LINE_BRACES", &LayoutOptions::wsWithinOneLineBraces},
    {"INDENT_FURTHER_LINES", &LayoutOptions::indentFurtherLines},
    {"INDENT_LABELS", &LayoutOptions::indentLabels},
    {"WS_AFTER_CAST", &LayoutOptions::wsAfterCast},
    {"WS_BEFORE_NAMED_CAST_PAREN", &LayoutOptions::wsBeforeNamedCastParen},
    {"INDENT_CLOSURE_CONTENT", &LayoutOptions::indentClosureContent},
    {"WS_BEFORE_CLOSURE_OPEN_BRACE", &LayoutOptions::wsBeforeClosureOpenBrace},
    {"WS_BEFORE_CLOSURE_PARAMS", &LayoutOptions::wsBeforeClosureParams},
    {"WS_BEFORE_LIST_OPEN_BRACE", &LayoutOptions::wsBeforeListOpenBrace},
    {"WS_BETWEEN_LIST_VALUES", &LayoutOptions::wsBetweenListValues},
    {"WS_WITHIN_LIST_BRACES", &LayoutOptions::wsWithinListBraces},
};

constexpr Row<bool> kSwitches[] = {
    {"ALIGN_BASE_CLAUSES_LEFT", &LayoutOptions::alignBaseClausesLeft},
    {"DATA_DO_NOT_FORMAT", &LayoutOptions::dataDoNotFormat},
    {"FN_DO_NOT_FORMAT", &LayoutOptions::fnDoNotFormat},
    {"ALIGN_CS_FOR_CLAUSES_LEFT", &LayoutOptions::alignForClausesLeft},
    {"ALIGN_FN_CALL_ARGS_LEFT", &LayoutOptions::alignFnCallArgsLeft},
    {"ALIGN_DD_NAMES_LEFT", &LayoutOptions::alignDdNamesLeft},
    {"ALIGN_DD_INITIALIZERS", &LayoutOptions::alignDdInitializers},
    {"ALIGN_FN_DECL_NAMES_LEFT", &LayoutOptions::alignFnDeclNamesLeft},
    {"ALIGN_ENUM_INITIALIZERS", &LayoutOptions::alignEnumInitializers},
    {"ALIGN_CLASS_MEMBER_NAMES_LEFT", &LayoutOptions::alignClassMemberNamesLeft},
    {"HANGING_ASTERISK", &LayoutOptions::hangingAsterisk},
    {"HANGING_AMPERSAND", &LayoutOptions::hangingAmpersand},
    {"ALIGN_FURTHER_LINES", &LayoutOptions::alignFurtherLines},
    {"KEEP_COLUMNS", &LayoutOptions::keepColumns},
    {"KEEP_LINE_BREAKS", &LayoutOptions::keepLineBreaks},
    {"KEEP_ONE_LINERS", &LayoutOptions::keepOneLiners},
    {"KEEP_SHAPE", &LayoutOptions::keepShape},
    {"ALIGN_FN_PARAMS_LEFT", &LayoutOptions::alignFnParamsLeft},
    {"ALIGN_TP_PARAMS_LEFT", &LayoutOptions::alignTpParamsLeft},
    {"LINE_WRAP", &LayoutOptions::lineWrap},
};

// Absent, or of another kind than it should be, each keeps the default of its member.
constexpr Row<int> kNumbers[] = {
    {"TAB_SIZE", &LayoutOptions::tabSize},
    {"CONVERT_WS", &LayoutOptions::convertWs},
    {"RIGHT_MARGIN", &LayoutOptions::rightMargin},
    {"ASTERISK_ANCHOR", &LayoutOptions::asteriskAnchor},
    {"AMPERSAND_ANCHOR", &LayoutOptions::ampersandAnchor},
    {"WRAP_STYLE", &LayoutOptions::wrapStyle},
    {"EXPR_WRAP_STYLE", &LayoutOptions::exprWrapStyle},
    {"SHIFT_WRAP_STYLE", &LayoutOptions::shiftWrapStyle},
    {"COMMA_WRAP_STYLE", &LayoutOptions::commaWrapStyle},
    {"LIST_WRAP_STRATEGY", &LayoutOptions::listWrapStrategy},
};

} // namespace

LayoutOptions::LayoutOptions(PropertySet scheme) {
    normalizeProperties(scheme);
    readStrings(scheme);
    readSwitches(scheme);
    readNumbers(scheme);
    directives.found = scheme.exists("ALIGN_PPD_LEFT_MOST");
    directives.leftMargin = leftMargin;
    expr = ExprOptions(*this);
    wrap = WrapOptions(*this);
    settle();
}

void LayoutOptions::readStrings(const PropertySet& scheme) {
    for (const auto& row : kStrings) {
        OptionalString& option = this->*row.member;
        option.set = scheme.getString(row.name, option.value);
    }
}

void LayoutOptions::readSwitches(const PropertySet& scheme) {
    for (const auto& row : kSwitches) scheme.getBool(row.name, this->*row.member);
    scheme.getBool("ALIGN_PPD_LEFT_MOST", directives.leftMost);
}

void LayoutOptions::readNumbers(const PropertySet& scheme) {
    for (const auto& row : kNumbers) {
        std::int32_t value = this->*row.member;
        scheme.getInt(row.name, value);
        this->*row.member = value;
    }
    tabSize = std::max(tabSize, 1);
    rightMargin = std::max(rightMargin, 0);
    if (!Zelmar::isWsMode(convertWs)) convertWs = Zelmar::kWsKeep;
}

// An alignment of parameters stands for a line of its own for each of them, unless the lines are those
// of the source, and where initializers are
// lined up the type and the name before them share a line. Expressions go by the values of the scheme.
void LayoutOptions::settle() {
    const OptionalString lineFeedWs{true, "\n"};
    if (alignFnParamsLeft && !keepLineBreaks) wsBetweenFnParams = lineFeedWs;
    if (alignTpParamsLeft && !keepLineBreaks) wsBetweenTpParams = lineFeedWs;
    std::string& afterType = wsAfterDdTypeId.value;
    if (alignDdInitializers) std::replace(afterType.begin(), afterType.end(), '\n', ' ');
}

ColumnRule LayoutOptions::keptColumns() const { return {keepColumns, convertWs != Zelmar::kWsTabsToSpaces}; }

} // namespace Norvane
