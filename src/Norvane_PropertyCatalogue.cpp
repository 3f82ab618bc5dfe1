#include "src/Norvane_PropertyCatalogue.h"

#include "cpp/Cpp_Scanner.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace Norvane {

namespace {

using Family = PropertyFamily;

constexpr std::int32_t kNoMaximum = std::numeric_limits<std::int32_t>::max();

constexpr PropertyInfo flag(std::string_view name, Family family, std::string_view description) {
    return {name, family, PropertyKind::Bool, "false", 0, 1, description};
}

constexpr PropertyInfo space(std::string_view name, Family family, std::string_view description) {
    return {name, family, PropertyKind::WhiteSpace, "not set", 0, 0, description};
}

constexpr PropertyInfo indent(std::string_view name, Family family, std::string_view description) {
    return {name, family, PropertyKind::Indent, "not set", 0, 0, description};
}

struct IntRange {
    std::int32_t minimum;
    std::int32_t maximum;
};
constexpr IntRange kAnchor{-1, 1};
constexpr IntRange kStyle{0, 2};

constexpr PropertyInfo number(std::string_view name, Family family, std::string_view defaultValue,
                              IntRange range, std::string_view description) {
    return {name, family, PropertyKind::Int, defaultValue, range.minimum, range.maximum, description};
}

constexpr PropertyInfo pageKey(std::string_view name, std::string_view description) {
    return flag(name, Family::PageKeys, description);
}

// The rows stand in the order in which a reader looks for them: by family, then by name.
constexpr auto kCatalogue = std::to_array<PropertyInfo>({
    indent("GLOBAL_INDENT_CONTENT", Family::Global,
           "Indent of what stands in a free block or an extern \"C\" block"),
    space("GLOBAL_WS_AFTER_OPEN_BRACE", Family::Global,
          "White space behind the \"{\" of a free block or an extern \"C\" block"),
    space("GLOBAL_WS_AFTER_OPEN_PAREN", Family::Global,
          "No effect on formatting: the options interface copies it behind every \"(\""),
    space("GLOBAL_WS_BEFORE_CLOSE_BRACE", Family::Global,
          "White space in front of the \"}\" of a free block or an extern \"C\" block"),
    space("GLOBAL_WS_BEFORE_CLOSE_PAREN", Family::Global,
          "No effect on formatting: the options interface copies it in front of every \")\""),
    space("GLOBAL_WS_BEFORE_COMMA", Family::Global,
          "No effect on formatting: the options interface copies it in front of every comma"),
    space("GLOBAL_WS_BEFORE_OPEN_BRACE", Family::Global,
          "White space in front of the \"{\" of a free block or an extern \"C\" block"),

    flag("ALIGN_BASE_CLAUSES_LEFT", Family::Classes,
         "Each base class on a line of its own, lined up under the first one"),
    flag("ALIGN_BASE_CLAUSES_LEFT_ON_WRAP", Family::Classes, "No effect: kept for older schemes"),
    flag("ALIGN_CLASS_MEMBER_NAMES_LEFT", Family::Classes,
         "Names of consecutive data members and member functions in one column"),
    indent("INDENT_ACCESS_SPEC_LABEL", Family::Classes,
           "Indent of \"public:\" and its fellows, counted from the class"),
    indent("INDENT_CLASS_CONTENT", Family::Classes, "Indent of the members of a class, struct or union"),
    indent("INDENT_CLASS_INITS", Family::Classes, "No effect: kept for older schemes"),
    space("WS_AFTER_ACCESS_SPEC_LABEL", Family::Classes, "No effect: kept for older schemes"),
    space("WS_AFTER_CLASS_INIT_LIST", Family::Classes,
          "White space between the member initializers and the \"{\" of a constructor"),
    space("WS_AFTER_CLASS_NAME", Family::Classes,
          "White space between a class name and the \":\" of its base clauses"),
    space("WS_AFTER_CLASS_OPEN_BRACE", Family::Classes, "White space behind the \"{\" of a class"),
    space("WS_BEFORE_ACCESS_SPECS", Family::Classes, "White space in front of \"public:\" and its fellows"),
    space("WS_BEFORE_BASE_CLAUSES", Family::Classes,
          "White space between the \":\" and the first base class"),
    space("WS_BEFORE_BASE_CLAUSES_COMMA", Family::Classes,
          "White space in front of a comma between base classes"),
    space("WS_BEFORE_CLASS_CLOSE_BRACE", Family::Classes, "White space in front of the \"}\" of a class"),
    space("WS_BEFORE_CLASS_INITS", Family::Classes,
          "White space between the \":\" and the first member initializer"),
    space("WS_BEFORE_CLASS_INITS_COMMA", Family::Classes,
          "White space in front of a comma between member initializers"),
    space("WS_BEFORE_CLASS_INIT_LIST", Family::Classes,
          "White space between a constructor's head and the \":\" of its member initializers"),
    space("WS_BEFORE_CLASS_OPEN_BRACE", Family::Classes, "White space in front of the \"{\" of a class"),
    space("WS_BETWEEN_BASE_CLAUSES", Family::Classes, "White space behind a comma between base classes"),
    space("WS_BETWEEN_CLASS_INITS", Family::Classes,
          "White space behind a comma between member initializers"),

    flag("ALIGN_TP_PARAMS_LEFT", Family::TemplateParameters,
         "Each template parameter on a line of its own, lined up under the first one"),
    space("WS_AFTER_TP_CLOSE_BRACKET", Family::TemplateParameters,
          "White space between the \">\" of a template head and the declaration behind it"),
    space("WS_AFTER_TP_OPEN_BRACKET", Family::TemplateParameters,
          "White space behind the \"<\" of template parameters and arguments"),
    space("WS_BEFORE_TP_CLOSE_BRACKET", Family::TemplateParameters,
          "White space in front of the \">\" of template parameters and arguments"),
    space("WS_BEFORE_TP_COMMA", Family::TemplateParameters,
          "White space in front of a comma between template parameters"),
    space("WS_BEFORE_TP_OPEN_BRACKET", Family::TemplateParameters,
          "White space between \"template\" and the \"<\" behind it"),
    space("WS_BETWEEN_TP_PARAMS", Family::TemplateParameters,
          "White space behind a comma between template parameters or arguments"),

    indent("INDENT_NS_CONTENT", Family::Namespaces, "Indent of what stands in a namespace"),
    space("WS_AFTER_NS_OPEN_BRACE", Family::Namespaces, "White space behind the \"{\" of a namespace"),
    space("WS_BEFORE_NS_CLOSE_BRACE", Family::Namespaces, "White space in front of the \"}\" of a namespace"),
    space("WS_BEFORE_NS_OPEN_BRACE", Family::Namespaces, "White space in front of the \"{\" of a namespace"),

    flag("ALIGN_ENUM_INITIALIZERS", Family::Enums,
         "The \"=\" of enumerators that stand on lines of their own in one column"),
    indent("INDENT_ENUM_CONTENT", Family::Enums, "Indent of the enumerators"),
    space("WS_AFTER_ENUM_OPEN_BRACE", Family::Enums, "White space behind the \"{\" of an enum"),
    space("WS_BEFORE_ENUM_CLOSE_BRACE", Family::Enums, "White space in front of the \"}\" of an enum"),
    space("WS_BEFORE_ENUM_COMMA", Family::Enums, "White space in front of a comma between enumerators"),
    space("WS_BEFORE_ENUM_OPEN_BRACE", Family::Enums, "White space in front of the \"{\" of an enum"),
    space("WS_BETWEEN_ENUM_ELEMENTS", Family::Enums, "White space behind a comma between enumerators"),

    flag("ALIGN_FN_DECL_NAMES_LEFT", Family::Functions,
         "Names of consecutive function declarations in one column"),
    flag("ALIGN_FN_PARAMS_LEFT", Family::Functions,
         "Each parameter on a line of its own, lined up under the first one"),
    flag("ALIGN_FN_PARAMS_LEFT_ON_WRAP", Family::Functions, "No effect: kept for older schemes"),
    indent("INDENT_FN_CONTENT", Family::Functions, "Indent of the body of a function"),
    indent("INDENT_FN_PARAMS", Family::Functions, "No effect: kept for older schemes"),
    space("WS_AFTER_FN_DECL", Family::Functions, "No effect: kept for older schemes"),
    space("WS_AFTER_FN_DECL_RETURN_TYPE", Family::Functions,
          "White space between the return type and the name of a function declaration"),
    space("WS_AFTER_FN_DEFN_RETURN_TYPE", Family::Functions,
          "White space between the return type and the name of a function definition"),
    space("WS_AFTER_FN_NAME", Family::Functions,
          "White space between the name and the \"(\" of a function declaration or definition"),
    space("WS_AFTER_FN_OPEN_BRACE", Family::Functions, "White space behind the \"{\" of a function"),
    space("WS_AFTER_FN_OPEN_PAREN", Family::Functions, "White space behind the \"(\" of a parameter list"),
    PropertyInfo{
        "WS_AFTER_PARAM_TYPE_ID", Family::Functions, PropertyKind::WhiteSpace, "one blank", 0, 0,
        "White space between the type and the name of a parameter that has a \"*\" or \"&\" between them"},
    space("WS_BEFORE_FN_CLOSE_BRACE", Family::Functions, "White space in front of the \"}\" of a function"),
    space("WS_BEFORE_FN_CLOSE_PAREN", Family::Functions,
          "White space in front of the \")\" of a parameter list"),
    space("WS_BEFORE_FN_COMMA", Family::Functions, "White space in front of a comma between parameters"),
    space("WS_BEFORE_FN_OPEN_BRACE", Family::Functions, "White space in front of the \"{\" of a function"),
    space("WS_BETWEEN_FN_PARAMS", Family::Functions, "White space behind a comma between parameters"),

    flag("ALIGN_FN_CALL_ARGS_LEFT", Family::FunctionCalls,
         "Each argument on a line of its own under the first one, if WS_BETWEEN_FN_CALL_ARGS is not set"),
    space("WS_AFTER_FN_CALL_NAME", Family::FunctionCalls,
          "White space between the name and the \"(\" of a call"),
    space("WS_BEFORE_FN_CALL_COMMA", Family::FunctionCalls,
          "White space in front of a comma between arguments"),
    space("WS_BETWEEN_FN_CALL_ARGS", Family::FunctionCalls, "White space behind a comma between arguments"),

    flag("ALIGN_DD_INITIALIZERS", Family::DataDeclarations,
         "Initializers of consecutive declarations in one column"),
    flag("ALIGN_DD_NAMES_LEFT", Family::DataDeclarations,
         "Names of consecutive data declarations in one column"),
    indent("INDENT_DD_CONTENT", Family::DataDeclarations, "Indent of further lines of an initializer"),
    space("WS_AFTER_DD_NAME", Family::DataDeclarations,
          "White space between a declared name and the \"[\" or the initializer behind it"),
    space("WS_AFTER_DD_OPEN_BRACE", Family::DataDeclarations,
          "White space behind the \"{\" of an initializer"),
    space("WS_AFTER_DD_RBRACKET", Family::DataDeclarations,
          "White space behind the first \"]\" of an array that is declared with an initializer"),
    space("WS_AFTER_DD_TYPE_ID", Family::DataDeclarations,
          "White space between the type and the name of a data declaration"),
    space("WS_BEFORE_DD_CLOSE_BRACE", Family::DataDeclarations,
          "White space in front of the \"}\" of an initializer"),
    space("WS_BEFORE_DD_COMMA", Family::DataDeclarations,
          "White space in front of a comma between the elements of an initializer"),
    space("WS_BEFORE_DD_OPEN_BRACE", Family::DataDeclarations,
          "White space between \"=\" and the \"{\" of an initializer"),
    space("WS_BETWEEN_DD_ELEMENTS", Family::DataDeclarations,
          "White space behind a comma between the elements of an initializer"),

    flag("ALIGN_CS_FOR_CLAUSES_LEFT", Family::ControlStatements,
         "Each clause of a \"for\" on a line of its own, lined up under the first one"),
    flag("ALIGN_CS_FOR_CLAUSES_ON_WRAP", Family::ControlStatements, "No effect: kept for older schemes"),
    indent("INDENT_CS_CASE_CONTENT", Family::ControlStatements, "Indent of the statements in a switch"),
    indent("INDENT_CS_CASE_LABELS", Family::ControlStatements,
           "Indent of \"case\" and \"default\", counted from the switch"),
    indent("INDENT_CS_CONTENT", Family::ControlStatements, "Indent of the body of a control statement"),
    space("WS_AFTER_CS_CASE_LABELS", Family::ControlStatements,
          "White space between a case label and the statement behind it"),
    space("WS_AFTER_CS_KEY", Family::ControlStatements,
          "White space between \"if\", \"while\", ... and the \"(\""),
    space("WS_AFTER_CS_OPEN_BRACE", Family::ControlStatements,
          "White space behind the \"{\" of a control statement, and in front of a body without braces"),
    space("WS_AFTER_CS_OPEN_PAREN", Family::ControlStatements,
          "White space behind the \"(\" of a control statement"),
    space("WS_BEFORE_CS_CLOSE_BRACE", Family::ControlStatements,
          "White space in front of the \"}\" of a control statement"),
    space("WS_BEFORE_CS_CLOSE_PAREN", Family::ControlStatements,
          "White space in front of the \")\" of a control statement"),
    space("WS_BEFORE_CS_OPEN_BRACE", Family::ControlStatements,
          "White space in front of the \"{\" of a control statement"),
    space("WS_BETWEEN_CS_CASES", Family::ControlStatements, "No effect: kept for older schemes"),
    space("WS_BETWEEN_CS_FOR_CLAUSES", Family::ControlStatements,
          "White space behind the semicolons in the head of a \"for\""),

    number("EXPR_WRAP_STYLE", Family::Expressions, "1", kStyle,
           "Where a long expression breaks at an operator: 1 the operator starts the new line, 2 it ends the "
           "old "
           "one; 0 as 1"),
    space("WS_AFTER_EXPR_OPEN_PAREN", Family::Expressions,
          "White space behind a \"(\" in an expression or a call"),
    space("WS_AFTER_LBRACKET", Family::Expressions, "White space behind a \"[\""),
    space("WS_BEFORE_EXPR_CLOSE_PAREN", Family::Expressions,
          "White space in front of a \")\" in an expression or a call"),
    space("WS_BEFORE_RBRACKET", Family::Expressions, "White space in front of a \"]\""),
    space("WS_BETWEEN_EXPR_OP_OPERANDS", Family::Expressions,
          "White space on both sides of a binary operator, and between a cast and its operand"),

    number("AMPERSAND_ANCHOR", Family::PointersAndReferences, "-1", kAnchor,
           "Where the \"&\" of a reference stands: -1 as in the source, 0 at the type, 1 at the name"),
    number("ASTERISK_ANCHOR", Family::PointersAndReferences, "-1", kAnchor,
           "Where the \"*\" of a pointer stands: -1 as in the source, 0 at the type, 1 at the name"),
    flag("HANGING_AMPERSAND", Family::PointersAndReferences,
         "An \"&\" anchored at the name stands in front of the column of aligned names"),
    flag("HANGING_ASTERISK", Family::PointersAndReferences,
         "A \"*\" anchored at the name stands in front of the column of aligned names"),
    space("WS_BETWEEN_AMPERSAND_ANCHOR", Family::PointersAndReferences,
          "White space between an anchored \"&\" and the type or name it belongs to"),
    space("WS_BETWEEN_ASTERISK_ANCHOR", Family::PointersAndReferences,
          "White space between an anchored \"*\" and the type or name it belongs to"),

    number("COMMA_WRAP_STYLE", Family::WrappingAndMargins, "2", kStyle,
           "Where a long list breaks at a comma: 1 the comma starts the new line, 2 it ends the old one; 0 "
           "as 1"),
    indent("LEFT_MARGIN", Family::WrappingAndMargins,
           "White space in front of every line; not set, lines at file level keep their indentation"),
    flag("LINE_WRAP", Family::WrappingAndMargins, "Break lines that run past RIGHT_MARGIN"),
    number("LINE_WRAP_DO_NOT_FORMAT", Family::WrappingAndMargins, "none", {0, 1},
           "No effect on formatting: remembers a choice of the options interface"),
    number("LIST_WRAP_STRATEGY", Family::WrappingAndMargins, "0", kStyle,
           "How long initializer and comma lists break: 0 not at all, 1 each line is filled, 2 as "
           "expressions do"),
    number("RIGHT_MARGIN", Family::WrappingAndMargins, "none", {0, kNoMaximum},
           "The last column of a wrapped line; 0 breaks nothing"),
    number("SHIFT_WRAP_STYLE", Family::WrappingAndMargins, "1", kStyle,
           "Where a chain of << or >> breaks: 0 nowhere, 1 the operator starts the new line, 2 it ends the "
           "old one"),
    indent("WRAP_INDENT", Family::WrappingAndMargins,
           "Indent added to a continuation line where WRAP_STYLE is 2"),
    number("WRAP_STYLE", Family::WrappingAndMargins, "0", kStyle,
           "Indent of continuation lines: 0 none, 1 under the first element, 2 the line's indent plus "
           "WRAP_INDENT"),

    flag("ALIGN_PPD_LEFT_MOST", Family::Other,
         "Directives at LEFT_MARGIN; false, indented with the code; not set, where the source has them"),
    number("CONVERT_WS", Family::Other, "0", kStyle,
           "Conversion of white space: 0 none, 1 tabs to spaces, 2 spaces to tabs"),
    flag("DATA_DO_NOT_FORMAT", Family::Other,
         "Leave the space between type and name of data declarations as it is"),
    flag("FN_DO_NOT_FORMAT", Family::Other,
         "Leave the return type of functions and the space behind it as they are"),
    PropertyInfo{"KERFLINE_VERSION", Family::Other, PropertyKind::Text, "not set", 0, 0,
                 "No effect on formatting: the version of the program that last wrote the scheme"},
    number("TAB_SIZE", Family::Other, "1", {1, kNoMaximum}, "Columns between tab stops"),
    space("WS_BETWEEN_CS", Family::Other,
          "White space between the parts of a statement, as between \"}\" and \"else\", \"while\" or "
          "\"catch\""),
});

constexpr std::string_view kUsesGlobals =
    "The page copies its braces, parens and commas from the global settings";
constexpr std::string_view kLeavesAlone = "The page holds no options: what it is about stays as it is";

constexpr auto kPageKeys = std::to_array<PropertyInfo>({
    pageKey("CLASS_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("CLASS_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("CONTROL_STATEMENTS_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("DATA_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("ENUM_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("ENUMS_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("EXPR_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("EXPR_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("FN_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("GLOBALS_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("MEMBERINITS_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("NS_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("NAMESPACES_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("POINTERSREFS_USE_GLOBAL_SETTINGS", kUsesGlobals),
    pageKey("POINTERSREFS_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("PPD_DO_NOT_FORMAT", kLeavesAlone),
    pageKey("TEMPLATES_DO_NOT_FORMAT", kLeavesAlone),
});

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// The fewest characters to insert, drop or replace on the way from `from` to `to`.
std::size_t editDistance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = i;
    for (std::size_t i = 1; i <= from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced = diagonal + (upper(from[i - 1]) == to[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

/// Old schemes that went through the conversion hold these options under a kind that no pass reads.
bool passesAsInt(const PropertyInfo& info) {
    return info.name == "WRAP_INDENT" || info.name == "DATA_DO_NOT_FORMAT";
}

} // namespace

std::span<const PropertyInfo> propertyCatalogue() { return kCatalogue; }

std::span<const PropertyInfo> pageKeyCatalogue() { return kPageKeys; }

const PropertyInfo* findProperty(std::string_view name) {
    for (const std::span<const PropertyInfo> table : {propertyCatalogue(), pageKeyCatalogue()}) {
        for (const PropertyInfo& info : table) {
            if (info.name == name) return &info;
        }
    }
    return nullptr;
}

std::string_view nearestPropertyName(std::string_view name) {
    // Far beyond the longest option. A whole file that was taken for a name must not cost seconds.
    constexpr std::size_t kLongestCompared = 100;
    name = name.substr(0, kLongestCompared);
    std::string_view nearest;
    std::size_t fewest = std::numeric_limits<std::size_t>::max();
    for (const std::span<const PropertyInfo> table : {propertyCatalogue(), pageKeyCatalogue()}) {
        for (const PropertyInfo& info : table) {
            const std::size_t distance = editDistance(name, info.name);
            if (distance >= fewest) continue;
            fewest = distance;
            nearest = info.name;
        }
    }
    return nearest;
}

std::string_view propertyFamilyName(PropertyFamily family) {
    switch (family) {
    case Family::Global: return "Global";
    case Family::Classes: return "Classes";
    case Family::TemplateParameters: return "Template parameters";
    case Family::Namespaces: return "Namespaces";
    case Family::Enums: return "Enums";
    case Family::Functions: return "Functions";
    case Family::FunctionCalls: return "Function calls";
    case Family::DataDeclarations: return "Data declarations";
    case Family::ControlStatements: return "Control statements";
    case Family::Expressions: return "Expressions";
    case Family::PointersAndReferences: return "Pointers and references";
    case Family::WrappingAndMargins: return "Wrapping and margins";
    case Family::Other: return "Other";
    case Family::PageKeys: return "Page keys";
    }
    return "";
}

std::string_view propertyKindName(PropertyKind kind) {
    switch (kind) {
    case PropertyKind::Bool: return "bool";
    case PropertyKind::Int: return "int";
    case PropertyKind::WhiteSpace: return "white space";
    case PropertyKind::Indent: return "indent";
    case PropertyKind::Text: return "text";
    }
    return "";
}

PropertyFault checkBoolProperty(std::string_view name, bool) {
    const PropertyInfo* info = findProperty(name);
    if (!info) return PropertyFault::UnknownName;
    const bool fits = info->kind == PropertyKind::Bool || info->name == "LINE_WRAP_DO_NOT_FORMAT";
    return fits ? PropertyFault::None : PropertyFault::WrongKind;
}

PropertyFault checkIntProperty(std::string_view name, std::int32_t value) {
    const PropertyInfo* info = findProperty(name);
    if (!info) return PropertyFault::UnknownName;
    if (passesAsInt(*info)) return PropertyFault::None;
    if (info->kind != PropertyKind::Int) return PropertyFault::WrongKind;
    return value < info->minimum || value > info->maximum ? PropertyFault::OutOfRange : PropertyFault::None;
}

PropertyFault checkStringProperty(std::string_view name, std::string_view value) {
    const PropertyInfo* info = findProperty(name);
    if (!info) return PropertyFault::UnknownName;
    if (info->kind == PropertyKind::Text) return PropertyFault::None;
    if (info->kind != PropertyKind::WhiteSpace && info->kind != PropertyKind::Indent)
        return PropertyFault::WrongKind;
    if (!std::all_of(value.begin(), value.end(), Cpp::isSpace)) return PropertyFault::NotWhiteSpace;
    const bool breaksLine = value.find_first_of("\n\r") != std::string_view::npos;
    return breaksLine && info->kind == PropertyKind::Indent ? PropertyFault::LineBreakInIndent
                                                            : PropertyFault::None;
}

} // namespace Norvane
