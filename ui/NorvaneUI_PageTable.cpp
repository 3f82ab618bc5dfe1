#include "ui/NorvaneUI_PageTable.h"

#include <array>

namespace NorvaneUI {

namespace {

constexpr std::int32_t kLargestTab = 64;
constexpr std::int32_t kUsualTab = 4;
constexpr std::int32_t kLargestMargin = 999;
constexpr std::int32_t kUsualMargin = 80;

constexpr std::string_view kGlobalParen = "GLOBAL_WS_AFTER_OPEN_PAREN";
constexpr std::string_view kGlobalCloseParen = "GLOBAL_WS_BEFORE_CLOSE_PAREN";
constexpr std::string_view kGlobalComma = "GLOBAL_WS_BEFORE_COMMA";

constexpr PageOption space(std::string_view name, std::string_view global = {}) {
    return {name, ControlKind::WhiteSpace, 0, 0, 0, global, true};
}
constexpr PageOption indent(std::string_view name, std::string_view global = {}) {
    return {name, ControlKind::CountAndKind, 0, 0, 0, global, true};
}
constexpr PageOption flag(std::string_view name) { return {name, ControlKind::Switch}; }
constexpr PageOption choice(std::string_view name) { return {name, ControlKind::Choice}; }
constexpr PageOption number(std::string_view name, std::int32_t minimum, std::int32_t maximum, std::int32_t first) {
    return {name, ControlKind::Number, minimum, maximum, first};
}
/// Acts on something that the do-not-format box of its page does not speak of.
constexpr PageOption apart(PageOption option) {
    option.erasedByBox = false;
    return option;
}

constexpr PageOption beforeOpenBrace(std::string_view name) {
    return space(name, "GLOBAL_WS_BEFORE_OPEN_BRACE");
}
constexpr PageOption afterOpenBrace(std::string_view name) {
    return space(name, "GLOBAL_WS_AFTER_OPEN_BRACE");
}
constexpr PageOption beforeCloseBrace(std::string_view name) {
    return space(name, "GLOBAL_WS_BEFORE_CLOSE_BRACE");
}
constexpr PageOption content(std::string_view name) { return indent(name, "GLOBAL_INDENT_CONTENT"); }

constexpr auto kGlobals = std::to_array<PageOption>({
    space("GLOBAL_WS_BEFORE_OPEN_BRACE"),
    space("GLOBAL_WS_AFTER_OPEN_BRACE"),
    space("GLOBAL_WS_BEFORE_CLOSE_BRACE"),
    indent("GLOBAL_INDENT_CONTENT"),
    space("GLOBAL_WS_AFTER_OPEN_PAREN"),
    space("GLOBAL_WS_BEFORE_CLOSE_PAREN"),
    space("GLOBAL_WS_BEFORE_COMMA"),
    apart(indent("LEFT_MARGIN")),
    apart(number("TAB_SIZE", 1, kLargestTab, kUsualTab)),
    apart(choice("CONVERT_WS")),
    apart(flag("KEEP_COLUMNS")),
    apart(flag("KEEP_LINE_BREAKS")),
    apart(flag("KEEP_SHAPE")),
    apart(flag("KEEP_ONE_LINERS")),
    apart(space("WS_WITHIN_ONE_LINE_BRACES")),
    apart(flag("ALIGN_FURTHER_LINES")),
    apart(indent("INDENT_FURTHER_LINES")),
});

constexpr auto kClasses = std::to_array<PageOption>({
    beforeOpenBrace("WS_BEFORE_CLASS_OPEN_BRACE"),
    afterOpenBrace("WS_AFTER_CLASS_OPEN_BRACE"),
    beforeCloseBrace("WS_BEFORE_CLASS_CLOSE_BRACE"),
    content("INDENT_CLASS_CONTENT"),
    space("WS_AFTER_CLASS_NAME"),
    space("WS_BEFORE_BASE_CLAUSES"),
    space("WS_BEFORE_BASE_CLAUSES_COMMA", kGlobalComma),
    space("WS_BETWEEN_BASE_CLAUSES"),
    flag("ALIGN_BASE_CLAUSES_LEFT"),
    space("WS_BEFORE_ACCESS_SPECS"),
    indent("INDENT_ACCESS_SPEC_LABEL"),
    flag("ALIGN_CLASS_MEMBER_NAMES_LEFT"),
});

constexpr auto kEnums = std::to_array<PageOption>({
    beforeOpenBrace("WS_BEFORE_ENUM_OPEN_BRACE"),
    afterOpenBrace("WS_AFTER_ENUM_OPEN_BRACE"),
    beforeCloseBrace("WS_BEFORE_ENUM_CLOSE_BRACE"),
    content("INDENT_ENUM_CONTENT"),
    space("WS_BEFORE_ENUM_COMMA", kGlobalComma),
    space("WS_BETWEEN_ENUM_ELEMENTS"),
    flag("ALIGN_ENUM_INITIALIZERS"),
});

constexpr auto kNamespaces = std::to_array<PageOption>({
    beforeOpenBrace("WS_BEFORE_NS_OPEN_BRACE"),
    afterOpenBrace("WS_AFTER_NS_OPEN_BRACE"),
    beforeCloseBrace("WS_BEFORE_NS_CLOSE_BRACE"),
    content("INDENT_NS_CONTENT"),
});

// Calls have no page of their own. They act in expressions, so the box of functions leaves them.
constexpr auto kFunctions = std::to_array<PageOption>({
    beforeOpenBrace("WS_BEFORE_FN_OPEN_BRACE"),
    afterOpenBrace("WS_AFTER_FN_OPEN_BRACE"),
    beforeCloseBrace("WS_BEFORE_FN_CLOSE_BRACE"),
    content("INDENT_FN_CONTENT"),
    space("WS_AFTER_FN_DECL_RETURN_TYPE"),
    space("WS_AFTER_FN_DEFN_RETURN_TYPE"),
    flag("ALIGN_FN_DECL_NAMES_LEFT"),
    space("WS_AFTER_FN_NAME"),
    space("WS_AFTER_FN_OPEN_PAREN", kGlobalParen),
    space("WS_BEFORE_FN_CLOSE_PAREN", kGlobalCloseParen),
    space("WS_BEFORE_FN_COMMA", kGlobalComma),
    space("WS_BETWEEN_FN_PARAMS"),
    flag("ALIGN_FN_PARAMS_LEFT"),
    space("WS_AFTER_PARAM_TYPE_ID"),
    apart(space("WS_AFTER_FN_CALL_NAME")),
    apart(space("WS_BEFORE_FN_CALL_COMMA", kGlobalComma)),
    apart(space("WS_BETWEEN_FN_CALL_ARGS")),
    apart(flag("ALIGN_FN_CALL_ARGS_LEFT")),
});

constexpr auto kControlStatements = std::to_array<PageOption>({
    beforeOpenBrace("WS_BEFORE_CS_OPEN_BRACE"),
    afterOpenBrace("WS_AFTER_CS_OPEN_BRACE"),
    beforeCloseBrace("WS_BEFORE_CS_CLOSE_BRACE"),
    content("INDENT_CS_CONTENT"),
    space("WS_AFTER_CS_KEY"),
    space("WS_AFTER_CS_OPEN_PAREN", kGlobalParen),
    space("WS_BEFORE_CS_CLOSE_PAREN", kGlobalCloseParen),
    space("WS_BETWEEN_CS"),
    space("WS_BETWEEN_CS_FOR_CLAUSES"),
    flag("ALIGN_CS_FOR_CLAUSES_LEFT"),
    indent("INDENT_CS_CASE_LABELS"),
    space("WS_AFTER_CS_CASE_LABELS"),
    indent("INDENT_CS_CASE_CONTENT"),
    indent("INDENT_LABELS"),
});

constexpr auto kData = std::to_array<PageOption>({
    beforeOpenBrace("WS_BEFORE_DD_OPEN_BRACE"),
    afterOpenBrace("WS_AFTER_DD_OPEN_BRACE"),
    beforeCloseBrace("WS_BEFORE_DD_CLOSE_BRACE"),
    content("INDENT_DD_CONTENT"),
    space("WS_AFTER_DD_TYPE_ID"),
    flag("ALIGN_DD_NAMES_LEFT"),
    space("WS_AFTER_DD_NAME"),
    flag("ALIGN_DD_INITIALIZERS"),
    space("WS_AFTER_DD_RBRACKET"),
    space("WS_BEFORE_DD_COMMA", kGlobalComma),
    space("WS_BETWEEN_DD_ELEMENTS"),
});

constexpr auto kExpressions = std::to_array<PageOption>({
    space("WS_BETWEEN_EXPR_OP_OPERANDS"),
    space("WS_AFTER_EXPR_OPEN_PAREN", kGlobalParen),
    space("WS_BEFORE_EXPR_CLOSE_PAREN", kGlobalCloseParen),
    space("WS_AFTER_LBRACKET"),
    space("WS_BEFORE_RBRACKET"),
    space("WS_AFTER_CAST"),
    space("WS_BEFORE_NAMED_CAST_PAREN"),
    space("WS_BEFORE_CLOSURE_PARAMS"),
    space("WS_BEFORE_CLOSURE_OPEN_BRACE"),
    indent("INDENT_CLOSURE_CONTENT"),
    space("WS_BEFORE_LIST_OPEN_BRACE"),
    space("WS_WITHIN_LIST_BRACES"),
    space("WS_BETWEEN_LIST_VALUES"),
});

// Nothing here acts without the first, so the box has to take out no other.
constexpr auto kLineWrapping = std::to_array<PageOption>({
    flag("LINE_WRAP"),
    apart(number("RIGHT_MARGIN", 0, kLargestMargin, kUsualMargin)),
    apart(choice("WRAP_STYLE")),
    apart(indent("WRAP_INDENT")),
    apart(choice("EXPR_WRAP_STYLE")),
    apart(choice("COMMA_WRAP_STYLE")),
    apart(choice("SHIFT_WRAP_STYLE")),
    apart(choice("LIST_WRAP_STRATEGY")),
});

constexpr auto kMemberInits = std::to_array<PageOption>({
    space("WS_BEFORE_CLASS_INIT_LIST"),
    space("WS_BEFORE_CLASS_INITS"),
    space("WS_BEFORE_CLASS_INITS_COMMA"),
    space("WS_BETWEEN_CLASS_INITS"),
    space("WS_AFTER_CLASS_INIT_LIST"),
});

constexpr auto kPointersRefs = std::to_array<PageOption>({
    choice("ASTERISK_ANCHOR"),
    space("WS_BETWEEN_ASTERISK_ANCHOR"),
    flag("HANGING_ASTERISK"),
    choice("AMPERSAND_ANCHOR"),
    space("WS_BETWEEN_AMPERSAND_ANCHOR"),
    flag("HANGING_AMPERSAND"),
});

constexpr auto kPreprocessor = std::to_array<PageOption>({
    choice("ALIGN_PPD_LEFT_MOST"),
});

constexpr auto kTemplates = std::to_array<PageOption>({
    space("WS_BEFORE_TP_OPEN_BRACKET"),
    space("WS_AFTER_TP_OPEN_BRACKET"),
    space("WS_BEFORE_TP_COMMA"),
    space("WS_BETWEEN_TP_PARAMS"),
    flag("ALIGN_TP_PARAMS_LEFT"),
    space("WS_BEFORE_TP_CLOSE_BRACKET"),
    space("WS_AFTER_TP_CLOSE_BRACKET"),
});

constexpr auto kPages = std::to_array<PageInfo>({
    {PageId::Globals, "GlobalsPage", "Globals", "GlobalsPreview", "Globals.htm", "", "GLOBALS_DO_NOT_FORMAT",
     0x10000000, false, kGlobals},
    {PageId::Classes, "ClassesPage", "Classes", "ClassesPreview", "Classes.htm", "CLASS_USE_GLOBAL_SETTINGS",
     "CLASS_DO_NOT_FORMAT", 0x20000000, true, kClasses},
    {PageId::Enums, "EnumsPage", "Enums", "EnumsPreview", "Enums.htm", "ENUM_USE_GLOBAL_SETTINGS",
     "ENUMS_DO_NOT_FORMAT", 0x30000000, true, kEnums},
    {PageId::Namespaces, "NamespacesPage", "Namespaces", "NamespacesPreview", "Namespaces.htm",
     "NS_USE_GLOBAL_SETTINGS", "NAMESPACES_DO_NOT_FORMAT", 0x40000000, true, kNamespaces},
    {PageId::Functions, "FunctionsPage", "Functions", "FunctionsPreview", "Functions.htm",
     "FN_USE_GLOBAL_SETTINGS", "FN_DO_NOT_FORMAT", 0x50000000, true, kFunctions},
    {PageId::ControlStatements, "ControlStatementsPage", "Control Statements", "ControlStatementsPreview",
     "ControlStatements.htm", "CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS", "CONTROL_STATEMENTS_DO_NOT_FORMAT",
     0x60000000, true, kControlStatements},
    {PageId::Data, "DataPage", "Data", "DataPreview", "Variables.htm", "DATA_USE_GLOBAL_SETTINGS",
     "DATA_DO_NOT_FORMAT", 0x70000000, true, kData},
    {PageId::Expressions, "ExpressionsPage", "Expressions", "ExpressionsPreview", "Expressions.htm",
     "EXPR_USE_GLOBAL_SETTINGS", "EXPR_DO_NOT_FORMAT", 0x80000000, false, kExpressions},
    {PageId::LineWrapping, "LineWrappingPage", "Line Wrapping", "LineWrappingPreview", "LineWrapping.htm", "",
     "LINE_WRAP_DO_NOT_FORMAT", 0, false, kLineWrapping},
    {PageId::MemberInits, "MemberInitsPage", "Member Initializer Lists", "MemberInitsPreview",
     "InitializerLists.htm", "", "MEMBERINITS_DO_NOT_FORMAT", 0, false, kMemberInits},
    {PageId::PointersRefs, "PointersRefsPage", "Pointers and References", "PointersReferencesPreview",
     "PointersRefs.htm", "POINTERSREFS_USE_GLOBAL_SETTINGS", "POINTERSREFS_DO_NOT_FORMAT", 0, false,
     kPointersRefs},
    {PageId::Preprocessor, "PreprocessorPage", "Preprocessor", "PreprocessorPreview", "Preprocessor.htm", "",
     "PPD_DO_NOT_FORMAT", 0, false, kPreprocessor},
    {PageId::Templates, "TemplatesPage", "Templates", "TemplatesPreview", "Templates.htm", "",
     "TEMPLATES_DO_NOT_FORMAT", 0, false, kTemplates},
});

constexpr auto kWithoutControl = std::to_array<std::string_view>({
    "ALIGN_BASE_CLAUSES_LEFT_ON_WRAP",
    "ALIGN_CS_FOR_CLAUSES_ON_WRAP",
    "ALIGN_FN_PARAMS_LEFT_ON_WRAP",
    "INDENT_CLASS_INITS",
    "INDENT_FN_PARAMS",
    "WS_AFTER_ACCESS_SPEC_LABEL",
    "WS_AFTER_FN_DECL",
    "WS_BETWEEN_CS_CASES",
    "KERFLINE_VERSION",
});

} // namespace

std::span<const PageInfo> pageTable() { return kPages; }

const PageInfo& pageInfo(PageId id) { return kPages[static_cast<std::size_t>(id)]; }

OptionHome homeOf(std::string_view option) {
    for (const PageInfo& page : kPages) {
        const bool isSwitch = page.doNotFormatKey == option || page.useGlobalSettingsKey == option;
        if (isSwitch && !option.empty()) return {&page, nullptr};
        for (const PageOption& candidate : page.options) {
            if (candidate.name == option) return {&page, &candidate};
        }
    }
    return {};
}

std::span<const std::string_view> optionsWithoutControl() { return kWithoutControl; }

} // namespace NorvaneUI
