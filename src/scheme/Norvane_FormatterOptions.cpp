#include "src/scheme/Norvane_FormatterOptions.h"

#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <cstdint>

namespace Norvane {

namespace {

template <class Value> struct Row {
    const char* name;
    Value FormatterOptions::*member;
};

constexpr Row<OptionalString> kStrings[] = {
    {"LEFT_MARGIN", &FormatterOptions::leftMargin},
    {"GLOBAL_WS_BEFORE_OPEN_BRACE", &FormatterOptions::globalWsBeforeOpenBrace},
    {"GLOBAL_INDENT_CONTENT", &FormatterOptions::globalIndentContent},
    {"GLOBAL_WS_AFTER_OPEN_BRACE", &FormatterOptions::globalWsAfterOpenBrace},
    {"GLOBAL_WS_BEFORE_CLOSE_BRACE", &FormatterOptions::globalWsBeforeCloseBrace},
    {"WS_BEFORE_NS_OPEN_BRACE", &FormatterOptions::wsBeforeNsOpenBrace},
    {"INDENT_NS_CONTENT", &FormatterOptions::indentNsContent},
    {"WS_AFTER_NS_OPEN_BRACE", &FormatterOptions::wsAfterNsOpenBrace},
    {"WS_BEFORE_NS_CLOSE_BRACE", &FormatterOptions::wsBeforeNsCloseBrace},
    {"WS_BEFORE_CLASS_OPEN_BRACE", &FormatterOptions::wsBeforeClassOpenBrace},
    {"WS_AFTER_CLASS_NAME", &FormatterOptions::wsAfterClassName},
    {"INDENT_CLASS_CONTENT", &FormatterOptions::indentClassContent},
    {"WS_AFTER_CLASS_OPEN_BRACE", &FormatterOptions::wsAfterClassOpenBrace},
    {"WS_BEFORE_CLASS_CLOSE_BRACE", &FormatterOptions::wsBeforeClassCloseBrace},
    {"WS_BEFORE_BASE_CLAUSES", &FormatterOptions::wsBeforeBaseClauses},
    {"WS_BEFORE_BASE_CLAUSES_COMMA", &FormatterOptions::wsBeforeBaseClausesComma},
    {"WS_BETWEEN_BASE_CLAUSES", &FormatterOptions::wsBetweenBaseClauses},
    {"WS_BEFORE_ACCESS_SPECS", &FormatterOptions::wsBeforeAccessSpecs},
    {"INDENT_ACCESS_SPEC_LABEL", &FormatterOptions::indentAccessSpecLabel},
    {"WS_BEFORE_CLASS_INIT_LIST", &FormatterOptions::wsBeforeClassInitList},
    {"WS_BEFORE_CLASS_INITS", &FormatterOptions::wsBeforeClassInits},
    {"WS_BEFORE_CLASS_INITS_COMMA", &FormatterOptions::wsBeforeClassInitsComma},
    {"WS_BETWEEN_CLASS_INITS", &FormatterOptions::wsBetweenClassInits},
    {"WS_AFTER_CLASS_INIT_LIST", &FormatterOptions::wsAfterClassInitList},
    {"WS_BEFORE_FN_OPEN_BRACE", &FormatterOptions::wsBeforeFnOpenBrace},
    {"WS_AFTER_FN_NAME", &FormatterOptions::wsAfterFnName},
    {"INDENT_FN_CONTENT", &FormatterOptions::indentFnContent},
    {"WS_AFTER_FN_OPEN_BRACE", &FormatterOptions::wsAfterFnOpenBrace},
    {"WS_BEFORE_FN_CLOSE_BRACE", &FormatterOptions::wsBeforeFnCloseBrace},
    {"WS_BEFORE_FN_COMMA", &FormatterOptions::wsBeforeFnComma},
    {"WS_BETWEEN_FN_PARAMS", &FormatterOptions::wsBetweenFnParams},
    {"WS_AFTER_FN_OPEN_PAREN", &FormatterOptions::wsAfterFnOpenParen},
    {"WS_BEFORE_FN_CLOSE_PAREN", &FormatterOptions::wsBeforeFnCloseParen},
    {"WS_AFTER_FN_DECL_RETURN_TYPE", &FormatterOptions::wsAfterFnDeclReturnType},
    {"WS_AFTER_FN_DEFN_RETURN_TYPE", &FormatterOptions::wsAfterFnDefnReturnType},
    {"WS_BEFORE_CS_OPEN_BRACE", &FormatterOptions::wsBeforeCsOpenBrace},
    {"WS_AFTER_CS_KEY", &FormatterOptions::wsAfterCsKey},
    {"WS_AFTER_CS_OPEN_BRACE", &FormatterOptions::wsAfterCsOpenBrace},
    {"WS_BETWEEN_CS", &FormatterOptions::wsBetweenCs},
    {"WS_BEFORE_CS_CLOSE_BRACE", &FormatterOptions::wsBeforeCsCloseBrace},
    {"INDENT_CS_CONTENT", &FormatterOptions::indentCsContent},
    {"WS_BETWEEN_CS_FOR_CLAUSES", &FormatterOptions::wsBetweenCsForClauses},
    {"WS_AFTER_CS_OPEN_PAREN", &FormatterOptions::wsAfterCsOpenParen},
    {"WS_BEFORE_CS_CLOSE_PAREN", &FormatterOptions::wsBeforeCsCloseParen},
    {"INDENT_CS_CASE_CONTENT", &FormatterOptions::indentCsCaseContent},
    {"WS_AFTER_CS_CASE_LABELS", &FormatterOptions::wsAfterCsCaseLabels},
    {"INDENT_CS_CASE_LABELS", &FormatterOptions::indentCsCaseLabels},
    {"WS_AFTER_PARAM_TYPE_ID", &FormatterOptions::wsAfterParamTypeId},
    {"WS_AFTER_DD_TYPE_ID", &FormatterOptions::wsAfterDdTypeId},
    {"INDENT_DD_CONTENT", &FormatterOptions::indentDdContent},
    {"WS_AFTER_DD_NAME", &FormatterOptions::wsAfterDdName},
    {"WS_AFTER_DD_RBRACKET", &FormatterOptions::wsAfterDdRbracket},
    {"WS_BETWEEN_EXPR_OP_OPERANDS", &FormatterOptions::wsBetweenExprOpOperands},
    {"WS_AFTER_FN_CALL_NAME", &FormatterOptions::wsAfterFnCallName},
    {"WS_BEFORE_TP_OPEN_BRACKET", &FormatterOptions::wsBeforeTpOpenBracket},
    {"WS_AFTER_TP_OPEN_BRACKET", &FormatterOptions::wsAfterTpOpenBracket},
    {"WS_BEFORE_TP_COMMA", &FormatterOptions::wsBeforeTpComma},
    {"WS_BETWEEN_TP_PARAMS", &FormatterOptions::wsBetweenTpParams},
    {"WS_BEFORE_TP_CLOSE_BRACKET", &FormatterOptions::wsBeforeTpCloseBracket},
    {"WS_AFTER_TP_CLOSE_BRACKET", &FormatterOptions::wsAfterTpCloseBracket},
    {"WS_BEFORE_ENUM_OPEN_BRACE", &FormatterOptions::wsBeforeEnumOpenBrace},
    {"WS_AFTER_ENUM_OPEN_BRACE", &FormatterOptions::wsAfterEnumOpenBrace},
    {"WS_BEFORE_ENUM_CLOSE_BRACE", &FormatterOptions::wsBeforeEnumCloseBrace},
    {"WS_BEFORE_ENUM_COMMA", &FormatterOptions::wsBeforeEnumComma},
    {"WS_BETWEEN_ENUM_ELEMENTS", &FormatterOptions::wsBetweenEnumElements},
    {"INDENT_ENUM_CONTENT", &FormatterOptions::indentEnumContent},
};

constexpr Row<bool> kSwitches[] = {
    {"ALIGN_BASE_CLAUSES_LEFT", &FormatterOptions::alignBaseClausesLeft},
    {"DATA_DO_NOT_FORMAT", &FormatterOptions::dataDoNotFormat},
    {"FN_DO_NOT_FORMAT", &FormatterOptions::fnDoNotFormat},
    {"ALIGN_CS_FOR_CLAUSES_LEFT", &FormatterOptions::alignForClausesLeft},
    {"ALIGN_FN_CALL_ARGS_LEFT", &FormatterOptions::alignFnCallArgsLeft},
    {"ALIGN_DD_NAMES_LEFT", &FormatterOptions::alignDdNamesLeft},
    {"ALIGN_DD_INITIALIZERS", &FormatterOptions::alignDdInitializers},
    {"ALIGN_FN_DECL_NAMES_LEFT", &FormatterOptions::alignFnDeclNamesLeft},
    {"ALIGN_ENUM_INITIALIZERS", &FormatterOptions::alignEnumInitializers},
    {"ALIGN_CLASS_MEMBER_NAMES_LEFT", &FormatterOptions::alignClassMemberNamesLeft},
    {"HANGING_ASTERISK", &FormatterOptions::hangingAsterisk},
    {"HANGING_AMPERSAND", &FormatterOptions::hangingAmpersand},
};

bool isTrue(const PropertySet& scheme, const char* name) {
    bool value = false;
    return scheme.getBool(name, value) && value;
}

int numberOf(const PropertySet& scheme, const char* name, int defaultValue) {
    std::int32_t value = defaultValue;
    scheme.getInt(name, value);
    return value;
}

} // namespace

FormatterOptions::FormatterOptions(const PropertySet& scheme) {
    readStrings(scheme);
    readSwitches(scheme);
    readNumbers(scheme);
}

void FormatterOptions::readStrings(const PropertySet& scheme) {
    for (const auto& row : kStrings) {
        OptionalString& option = this->*row.member;
        option.set = scheme.getString(row.name, option.value);
    }
}

// An alignment of parameters stands for a line of its own for each of them, and where initializers are
// lined up the type and the name before them share a line.
void FormatterOptions::readSwitches(const PropertySet& scheme) {
    for (const auto& row : kSwitches) this->*row.member = isTrue(scheme, row.name);
    const OptionalString lineFeedWs{true, "\n"};
    if (isTrue(scheme, "ALIGN_FN_PARAMS_LEFT")) wsBetweenFnParams = lineFeedWs;
    if (isTrue(scheme, "ALIGN_TP_PARAMS_LEFT")) wsBetweenTpParams = lineFeedWs;
    std::string& afterType = wsAfterDdTypeId.value;
    if (alignDdInitializers) std::replace(afterType.begin(), afterType.end(), '\n', ' ');
}

void FormatterOptions::readNumbers(const PropertySet& scheme) {
    tabSize = std::max(numberOf(scheme, "TAB_SIZE", 1), 0);
    const int mode = numberOf(scheme, "CONVERT_WS", Zelmar::kWsKeep);
    convertWs = mode < Zelmar::kWsKeep || mode > Zelmar::kWsSpacesToTabs ? Zelmar::kWsKeep : mode;
    asteriskAnchor = numberOf(scheme, "ASTERISK_ANCHOR", -1);
    ampersandAnchor = numberOf(scheme, "AMPERSAND_ANCHOR", -1);
}

} // namespace Norvane
