#include "src/scheme/Norvane_PropertyCatalogue.h"

#include <array>
#include <limits>

namespace Norvane {

namespace {

using Family = PropertyFamily;

constexpr std::int32_t kNoMaximum = std::numeric_limits<std::int32_t>::max();

/// What every row says of its option to a person.
struct Words {
    std::string_view label;
    std::string_view description;
};

constexpr PropertyInfo row(std::string_view name, Family family, PropertyKind kind, Words words) {
    const std::string_view defaultValue = kind == PropertyKind::Bool ? "false" : "not set";
    return {name, family, kind, defaultValue, 0, 0, words.label, words.description, true};
}

constexpr PropertyInfo flag(std::string_view name, Family family, Words words) {
    PropertyInfo info = row(name, family, PropertyKind::Bool, words);
    info.maximum = 1;
    return info;
}

constexpr PropertyInfo space(std::string_view name, Family family, Words words) {
    return row(name, family, PropertyKind::WhiteSpace, words);
}

constexpr PropertyInfo indent(std::string_view name, Family family, Words words) {
    return row(name, family, PropertyKind::Indent, words);
}

/// An option that no pass reads.
constexpr PropertyInfo idle(PropertyInfo info) {
    info.formats = false;
    return info;
}

struct IntRange {
    std::int32_t minimum;
    std::int32_t maximum;
};
constexpr IntRange kAnchor{-1, 1};
constexpr IntRange kStyle{0, 2};

constexpr PropertyInfo number(std::string_view name, Family family, std::string_view defaultValue,
                              IntRange range, Words words) {
    PropertyInfo info = row(name, family, PropertyKind::Int, words);
    info.defaultValue = defaultValue;
    info.minimum = range.minimum;
    info.maximum = range.maximum;
    return info;
}

constexpr PropertyInfo withDefault(std::string_view defaultValue, PropertyInfo info) {
    info.defaultValue = defaultValue;
    return info;
}

constexpr std::string_view kOfOldSchemes = "No effect: kept so that older schemes stay whole";

// The rows stand in the order in which a reader looks for them: by family, then by name.
constexpr auto kCatalogue = std::to_array<PropertyInfo>({
    indent("GLOBAL_INDENT_CONTENT", Family::Global,
           {"Indent of the content",
            "Indent of what stands in a block of its own or in an extern \"C\" block"}),
    space("GLOBAL_WS_AFTER_OPEN_BRACE", Family::Global,
          {"After the opening brace",
           "White space after the \"{\" of a block of its own or an extern \"C\" block"}),
    idle(space("GLOBAL_WS_AFTER_OPEN_PAREN", Family::Global,
               {"After an opening paren",
                "No effect by itself: a page that uses the global settings copies it for its own \"(\""})),
    space("GLOBAL_WS_BEFORE_CLOSE_BRACE", Family::Global,
          {"Before the closing brace",
           "White space before the \"}\" of a block of its own or an extern \"C\" block"}),
    idle(space("GLOBAL_WS_BEFORE_CLOSE_PAREN", Family::Global,
               {"Before a closing paren",
                "No effect by itself: a page that uses the global settings copies it for its own \")\""})),
    idle(space("GLOBAL_WS_BEFORE_COMMA", Family::Global,
               {"Before a comma",
                "No effect by itself: a page that uses the global settings copies it for its own commas"})),
    space("GLOBAL_WS_BEFORE_OPEN_BRACE", Family::Global,
          {"Before the opening brace",
           "White space before the \"{\" of a block of its own or an extern \"C\" block"}),

    flag("ALIGN_BASE_CLAUSES_LEFT", Family::Classes,
         {"One base class per line",
          "Puts each base class on a line of its own, lined up under the first one"}),
    idle(flag("ALIGN_BASE_CLAUSES_LEFT_ON_WRAP", Family::Classes,
              {"One base class per line when wrapped", kOfOldSchemes})),
    flag("ALIGN_CLASS_MEMBER_NAMES_LEFT", Family::Classes,
         {"Line up member names",
          "Puts the names of data members and member functions on consecutive lines in one column"}),
    indent("INDENT_ACCESS_SPEC_LABEL", Family::Classes,
           {"Indent of access labels",
            "Indent of \"public:\", \"protected:\" and \"private:\", counted from the class"}),
    indent("INDENT_CLASS_CONTENT", Family::Classes,
           {"Indent of the members", "Indent of the members of a class, struct or union"}),
    idle(indent("INDENT_CLASS_INITS", Family::Classes, {"Indent of member initializers", kOfOldSchemes})),
    idle(space("WS_AFTER_ACCESS_SPEC_LABEL", Family::Classes, {"After an access label", kOfOldSchemes})),
    space("WS_AFTER_CLASS_INIT_LIST", Family::Classes,
          {"After the initializers",
           "White space between the last member initializer and the \"{\" of the constructor"}),
    space("WS_AFTER_CLASS_NAME", Family::Classes,
          {"After the class name",
           "White space between a class name and the \":\" that starts its base classes"}),
    space("WS_AFTER_CLASS_OPEN_BRACE", Family::Classes,
          {"After the opening brace", "White space after the \"{\" of a class, struct or union"}),
    space("WS_BEFORE_ACCESS_SPECS", Family::Classes,
          {"Before access labels",
           "White space before \"public:\", \"protected:\" and \"private:\""}),
    space("WS_BEFORE_BASE_CLAUSES", Family::Classes,
          {"Before the base classes", "White space between the \":\" and the first base class"}),
    space("WS_BEFORE_BASE_CLAUSES_COMMA", Family::Classes,
          {"Before a comma between base classes", "White space before a comma between two base classes"}),
    space("WS_BEFORE_CLASS_CLOSE_BRACE", Family::Classes,
          {"Before the closing brace", "White space before the \"}\" of a class, struct or union"}),
    space("WS_BEFORE_CLASS_INITS", Family::Classes,
          {"Before the first initializer",
           "White space between the \":\" of a constructor and its first member initializer"}),
    space("WS_BEFORE_CLASS_INITS_COMMA", Family::Classes,
          {"Before a comma between initializers",
           "White space before a comma between two member initializers"}),
    space("WS_BEFORE_CLASS_INIT_LIST", Family::Classes,
          {"Before the colon",
           "White space between the \")\" of a constructor and the \":\" that starts its member "
           "initializers"}),
    space("WS_BEFORE_CLASS_OPEN_BRACE", Family::Classes,
          {"Before the opening brace", "White space before the \"{\" of a class, struct or union"}),
    space("WS_BETWEEN_BASE_CLAUSES", Family::Classes,
          {"After a comma between base classes", "White space after a comma between two base classes"}),
    space("WS_BETWEEN_CLASS_INITS", Family::Classes,
          {"After a comma between initializers",
           "White space after a comma between two member initializers"}),

    flag("ALIGN_TP_PARAMS_LEFT", Family::TemplateParameters,
         {"One template parameter per line",
          "Puts each template parameter on a line of its own, lined up under the first one"}),
    space("WS_AFTER_TP_CLOSE_BRACKET", Family::TemplateParameters,
          {"After the template head",
           "White space between the \">\" of \"template <...>\" and the declaration that follows"}),
    space("WS_AFTER_TP_OPEN_BRACKET", Family::TemplateParameters,
          {"After the opening bracket", "White space after the \"<\" of template parameters and arguments"}),
    space("WS_BEFORE_TP_CLOSE_BRACKET", Family::TemplateParameters,
          {"Before the closing bracket",
           "White space before the \">\" of template parameters and arguments"}),
    space("WS_BEFORE_TP_COMMA", Family::TemplateParameters,
          {"Before a comma",
           "White space before a comma between the parameters of a template; one between arguments keeps that of the source"}),
    space("WS_BEFORE_TP_OPEN_BRACKET", Family::TemplateParameters,
          {"After \"template\"", "White space between the word \"template\" and its \"<\""}),
    space("WS_BETWEEN_TP_PARAMS", Family::TemplateParameters,
          {"After a comma", "White space after a comma between template parameters or arguments"}),

    indent("INDENT_NS_CONTENT", Family::Namespaces,
           {"Indent of the content", "Indent of what stands in a namespace"}),
    space("WS_AFTER_NS_OPEN_BRACE", Family::Namespaces,
          {"After the opening brace", "White space after the \"{\" of a namespace"}),
    space("WS_BEFORE_NS_CLOSE_BRACE", Family::Namespaces,
          {"Before the closing brace", "White space before the \"}\" of a namespace"}),
    space("WS_BEFORE_NS_OPEN_BRACE", Family::Namespaces,
          {"Before the opening brace", "White space before the \"{\" of a namespace"}),

    flag("ALIGN_ENUM_INITIALIZERS", Family::Enums,
         {"Line up the values",
          "Puts the \"=\" of enumerators that stand on lines of their own in one column"}),
    indent("INDENT_ENUM_CONTENT", Family::Enums, {"Indent of the enumerators", "Indent of the enumerators"}),
    space("WS_AFTER_ENUM_OPEN_BRACE", Family::Enums,
          {"After the opening brace", "White space after the \"{\" of an enum"}),
    space("WS_BEFORE_ENUM_CLOSE_BRACE", Family::Enums,
          {"Before the closing brace", "White space before the \"}\" of an enum"}),
    space("WS_BEFORE_ENUM_COMMA", Family::Enums,
          {"Before a comma", "White space before a comma between two enumerators"}),
    space("WS_BEFORE_ENUM_OPEN_BRACE", Family::Enums,
          {"Before the opening brace", "White space before the \"{\" of an enum"}),
    space("WS_BETWEEN_ENUM_ELEMENTS", Family::Enums,
          {"After a comma", "White space after a comma between two enumerators"}),

    flag("ALIGN_FN_DECL_NAMES_LEFT", Family::Functions,
         {"Line up names of declarations",
          "Puts the names of function declarations on consecutive lines in one column"}),
    flag("ALIGN_FN_PARAMS_LEFT", Family::Functions,
         {"One parameter per line",
          "Puts each parameter on a line of its own, lined up under the first one"}),
    idle(flag("ALIGN_FN_PARAMS_LEFT_ON_WRAP", Family::Functions,
              {"One parameter per line when wrapped", kOfOldSchemes})),
    indent("INDENT_FN_CONTENT", Family::Functions,
           {"Indent of the body", "Indent of the statements in the body of a function"}),
    idle(indent("INDENT_FN_PARAMS", Family::Functions, {"Indent of parameters", kOfOldSchemes})),
    idle(space("WS_AFTER_FN_DECL", Family::Functions, {"After a declaration", kOfOldSchemes})),
    space("WS_AFTER_FN_DECL_RETURN_TYPE", Family::Functions,
          {"After the return type, declarations",
           "White space between the return type and the name of a function that is only declared"}),
    space("WS_AFTER_FN_DEFN_RETURN_TYPE", Family::Functions,
          {"After the return type, definitions",
           "White space between the return type and the name of a function that has a body"}),
    space("WS_AFTER_FN_NAME", Family::Functions,
          {"After the function name",
           "White space between the name and the \"(\" of a function declaration or definition"}),
    space("WS_AFTER_FN_OPEN_BRACE", Family::Functions,
          {"After the opening brace", "White space after the \"{\" of a function body"}),
    space("WS_AFTER_FN_OPEN_PAREN", Family::Functions,
          {"After the opening paren", "White space after the \"(\" of a parameter list"}),
    withDefault("one blank",
                space("WS_AFTER_PARAM_TYPE_ID", Family::Functions,
                      {"Beside the mark of a parameter",
                       "White space between a \"*\" or \"&\" of a parameter and what is not its anchor; "
                       "acts where WS_BETWEEN_ASTERISK_ANCHOR or WS_BETWEEN_AMPERSAND_ANCHOR is set"})),
    space("WS_BEFORE_FN_CLOSE_BRACE", Family::Functions,
          {"Before the closing brace", "White space before the \"}\" of a function body"}),
    space("WS_BEFORE_FN_CLOSE_PAREN", Family::Functions,
          {"Before the closing paren", "White space before the \")\" of a parameter list"}),
    space("WS_BEFORE_FN_COMMA", Family::Functions,
          {"Before a comma between parameters", "White space before a comma between two parameters"}),
    space("WS_BEFORE_FN_OPEN_BRACE", Family::Functions,
          {"Before the opening brace", "White space before the \"{\" of a function body"}),
    space("WS_BETWEEN_FN_PARAMS", Family::Functions,
          {"After a comma between parameters", "White space after a comma between two parameters"}),

    flag("ALIGN_FN_CALL_ARGS_LEFT", Family::FunctionCalls,
         {"One argument per line",
          "Puts each argument of a call on a line of its own under the first one, as long as "
          "WS_BETWEEN_FN_CALL_ARGS is not set"}),
    space("WS_AFTER_FN_CALL_NAME", Family::FunctionCalls,
          {"After the name in a call", "White space between the name and the \"(\" of a function call"}),
    space("WS_BEFORE_FN_CALL_COMMA", Family::FunctionCalls,
          {"Before a comma between arguments", "White space before a comma between two arguments of a call"}),
    space("WS_BETWEEN_FN_CALL_ARGS", Family::FunctionCalls,
          {"After a comma between arguments", "White space after a comma between two arguments of a call"}),

    flag("ALIGN_DD_INITIALIZERS", Family::DataDeclarations,
         {"Line up initializers",
          "Puts the initializers of declarations on consecutive lines in one column"}),
    flag("ALIGN_DD_NAMES_LEFT", Family::DataDeclarations,
         {"Line up names", "Puts the names of variables declared on consecutive lines in one column"}),
    indent("INDENT_DD_CONTENT", Family::DataDeclarations,
           {"Indent of the initializer",
            "Indent of an initializer that starts a line, and once more of what stands in its braces"}),
    space("WS_AFTER_DD_NAME", Family::DataDeclarations,
          {"After the name",
           "White space between a declared name and the \"[\" or the initializer that follows"}),
    space("WS_AFTER_DD_OPEN_BRACE", Family::DataDeclarations,
          {"After the opening brace", "White space after the \"{\" of an initializer"}),
    space("WS_AFTER_DD_RBRACKET", Family::DataDeclarations,
          {"After the array size",
           "White space after the first \"]\" of an array that is declared with an initializer"}),
    space("WS_AFTER_DD_TYPE_ID", Family::DataDeclarations,
          {"After the type", "White space between the type and the name of a variable"}),
    space("WS_BEFORE_DD_CLOSE_BRACE", Family::DataDeclarations,
          {"Before the closing brace", "White space before the \"}\" of an initializer"}),
    space("WS_BEFORE_DD_COMMA", Family::DataDeclarations,
          {"Before a comma", "White space before a comma between two elements of an initializer"}),
    space("WS_BEFORE_DD_OPEN_BRACE", Family::DataDeclarations,
          {"Before the opening brace", "White space between the \"=\" and the \"{\" of an initializer"}),
    space("WS_BETWEEN_DD_ELEMENTS", Family::DataDeclarations,
          {"After a comma", "White space after a comma between two elements of an initializer"}),

    flag("ALIGN_CS_FOR_CLAUSES_LEFT", Family::ControlStatements,
         {"One \"for\" clause per line",
          "Puts each of the three clauses of a \"for\" on a line of its own, lined up under the first one"}),
    idle(flag("ALIGN_CS_FOR_CLAUSES_ON_WRAP", Family::ControlStatements,
              {"One \"for\" clause per line when wrapped", kOfOldSchemes})),
    indent("INDENT_CS_CASE_CONTENT", Family::ControlStatements,
           {"Indent after case labels", "Indent of the statements after a case label"}),
    indent("INDENT_CS_CASE_LABELS", Family::ControlStatements,
           {"Indent of case labels", "Indent of \"case\" and \"default\", counted from the \"switch\""}),
    indent("INDENT_CS_CONTENT", Family::ControlStatements,
           {"Indent of the body",
            "Indent of the body of \"if\", \"else\", \"for\", \"while\" and their like"}),
    space("WS_AFTER_CS_CASE_LABELS", Family::ControlStatements,
          {"After case labels", "White space between a case label and the statement that follows it"}),
    space("WS_AFTER_CS_KEY", Family::ControlStatements,
          {"After the keyword",
           "White space between \"if\", \"for\", \"while\", \"switch\" or \"catch\" and the \"(\""}),
    space("WS_AFTER_CS_OPEN_BRACE", Family::ControlStatements,
          {"After the opening brace",
           "White space after the \"{\" of a control statement, and before a body that has no braces"}),
    space("WS_AFTER_CS_OPEN_PAREN", Family::ControlStatements,
          {"After the opening paren", "White space after the \"(\" of a control statement"}),
    space("WS_BEFORE_CS_CLOSE_BRACE", Family::ControlStatements,
          {"Before the closing brace", "White space before the \"}\" of a control statement"}),
    space("WS_BEFORE_CS_CLOSE_PAREN", Family::ControlStatements,
          {"Before the closing paren", "White space before the \")\" of a control statement"}),
    space("WS_BEFORE_CS_OPEN_BRACE", Family::ControlStatements,
          {"Before the opening brace", "White space before the \"{\" of a control statement"}),
    idle(space("WS_BETWEEN_CS_CASES", Family::ControlStatements, {"Between cases", kOfOldSchemes})),
    space("WS_BETWEEN_CS_FOR_CLAUSES", Family::ControlStatements,
          {"Between \"for\" clauses", "White space after the semicolons in the head of a \"for\""}),

    number("EXPR_WRAP_STYLE", Family::Expressions, "1", kStyle,
           {"Breaks at an operator",
            "Where a line that is too long breaks at an operator; acts with LINE_WRAP; 0 counts as 1"}),
    space("WS_AFTER_EXPR_OPEN_PAREN", Family::Expressions,
          {"After an opening paren", "White space after a \"(\" in an expression or a call"}),
    space("WS_AFTER_LBRACKET", Family::Expressions,
          {"After an opening bracket", "White space after a \"[\""}),
    space("WS_BEFORE_EXPR_CLOSE_PAREN", Family::Expressions,
          {"Before a closing paren", "White space before a \")\" in an expression or a call"}),
    space("WS_BEFORE_RBRACKET", Family::Expressions,
          {"Before a closing bracket", "White space before a \"]\""}),
    space("WS_BETWEEN_EXPR_OP_OPERANDS", Family::Expressions,
          {"Around operators",
           "White space on both sides of an operator with two operands, and between a cast and its operand"}),

    number("AMPERSAND_ANCHOR", Family::PointersAndReferences, "-1", kAnchor,
           {"Where the \"&\" stands",
            "Whether the \"&\" of a reference stands at the type or at the name; one that touches neither "
            "or both moves only if WS_BETWEEN_AMPERSAND_ANCHOR is set"}),
    number("ASTERISK_ANCHOR", Family::PointersAndReferences, "-1", kAnchor,
           {"Where the \"*\" stands",
            "Whether the \"*\" of a pointer stands at the type or at the name; one that touches neither or "
            "both moves only if WS_BETWEEN_ASTERISK_ANCHOR is set"}),
    flag("HANGING_AMPERSAND", Family::PointersAndReferences,
         {"\"&\" hangs left of aligned names",
          "Where names are lined up, an \"&\" anchored at the name stands left of their column"}),
    flag("HANGING_ASTERISK", Family::PointersAndReferences,
         {"\"*\" hangs left of aligned names",
          "Where names are lined up, a \"*\" anchored at the name stands left of their column"}),
    space("WS_BETWEEN_AMPERSAND_ANCHOR", Family::PointersAndReferences,
          {"Between the \"&\" and its anchor",
           "White space between an \"&\" and the type or name that AMPERSAND_ANCHOR puts it to"}),
    space("WS_BETWEEN_ASTERISK_ANCHOR", Family::PointersAndReferences,
          {"Between the \"*\" and its anchor",
           "White space between a \"*\" and the type or name that ASTERISK_ANCHOR puts it to"}),

    number("COMMA_WRAP_STYLE", Family::WrappingAndMargins, "2", kStyle,
           {"Breaks at a comma",
            "Where a line that is too long breaks at a comma; acts with LINE_WRAP; 0 counts as 1"}),
    indent("LEFT_MARGIN", Family::WrappingAndMargins,
           {"Left margin",
            "White space before every line; while it is not set, lines outside of all braces keep their "
            "indentation"}),
    flag("LINE_WRAP", Family::WrappingAndMargins,
         {"Break long lines", "Breaks lines that run past RIGHT_MARGIN"}),
    idle(number("LINE_WRAP_DO_NOT_FORMAT", Family::WrappingAndMargins, "none", {0, 1},
                {"Leave long lines alone",
                 "No effect by itself: remembers a choice made in the options window"})),
    number("LIST_WRAP_STRATEGY", Family::WrappingAndMargins, "0", kStyle,
           {"Long lists",
            "How initializer lists and other comma lists that are too long are broken; acts with LINE_WRAP"}),
    number("RIGHT_MARGIN", Family::WrappingAndMargins, "none", {0, kNoMaximum},
           {"Right margin",
            "The last column that a line may reach before LINE_WRAP breaks it; 0 breaks nothing"}),
    number("SHIFT_WRAP_STYLE", Family::WrappingAndMargins, "1", kStyle,
           {"Breaks at << and >>", "Where a long chain of << or >> is broken; acts with LINE_WRAP"}),
    indent("WRAP_INDENT", Family::WrappingAndMargins,
           {"Extra indent of broken lines",
            "Indent added to the lines that a break makes; acts where WRAP_STYLE is 2"}),
    number("WRAP_STYLE", Family::WrappingAndMargins, "0", kStyle,
           {"Indent of broken lines", "Where the lines that a break makes start; acts with LINE_WRAP"}),

    flag("ALIGN_PPD_LEFT_MOST", Family::Other,
         {"Place of directives", "Where lines that start with \"#\" stand; not set, each keeps its column"}),
    number("CONVERT_WS", Family::Other, "0", kStyle,
           {"Blanks and tabs",
            "Turns the tabs of the result into blanks, or its blanks into tabs, by TAB_SIZE"}),
    flag("DATA_DO_NOT_FORMAT", Family::Other,
         {"Leave variables alone", "Leaves the space between the type and the name of a variable as it is"}),
    flag("FN_DO_NOT_FORMAT", Family::Other,
         {"Leave function heads alone",
          "Leaves the return type of a function and the space after it as they are"}),
    idle(PropertyInfo{"KERFLINE_VERSION", Family::Other, PropertyKind::Text, "not set", 0, 0,
                      "Written by version",
                      "No effect on formatting: the version of the program that last wrote the scheme", true}),
    number("TAB_SIZE", Family::Other, "1", {1, kNoMaximum},
           {"Tab size", "Columns from one tab stop to the next"}),
    space("WS_BETWEEN_CS", Family::Other,
          {"Before \"else\", \"while\" and \"catch\"",
           "White space before the \"else\", \"while\" or \"catch\" that goes on with its statement"}),

    flag("ALIGN_FURTHER_LINES", Family::SourceLayout,
         {"Align further lines",
          "Lines on which a statement goes on line up under what its bracket opens with, or under the operand "
          "that they go on"}),
    indent("INDENT_FURTHER_LINES", Family::SourceLayout,
           {"Indent of further lines",
            "Indent of lines on which a statement goes on, where ALIGN_FURTHER_LINES does not place them: behind "
            "a bracket or \"=\" that ends its line, and outside of brackets"}),
    flag("KEEP_COLUMNS", Family::SourceLayout,
         {"Keep columns",
          "White space of more than one blank within a line lines something up and stays: a value without a line "
          "feed acts where there is less"}),
    flag("KEEP_LINE_BREAKS", Family::SourceLayout,
         {"Keep line breaks",
          "Nothing that stands on lines of its own is joined: a value without a line feed acts where there is "
          "none, and lists are lined up in the lines they have; braces and \"else\" still move"}),
    flag("KEEP_ONE_LINERS", Family::SourceLayout,
         {"Keep one-liners",
          "A body, a list or a statement that stands on one line stays there as long as it fits: values with "
          "a line feed do not act in it"}),
    flag("KEEP_SHAPE", Family::SourceLayout,
         {"Keep the shape of statements",
          "A statement of several lines moves as a whole: lines that no other option places keep their "
          "distance from its first line"}),
    space("WS_WITHIN_ONE_LINE_BRACES", Family::SourceLayout,
          {"In the braces of a one-liner",
           "White space inside the braces of a body that KEEP_ONE_LINERS leaves on one line"}),

    indent("INDENT_LABELS", Family::Refinements,
           {"Indent of labels",
            "Indent of labels that \"goto\" names, counted from the construct in whose block they stand"}),
    space("WS_AFTER_CAST", Family::Refinements,
          {"After a cast",
           "White space between a cast such as \"(int)\" and its operand; not set, that around operators"}),
    space("WS_BEFORE_NAMED_CAST_PAREN", Family::Refinements,
          {"After a named cast",
           "White space between \"static_cast<T>\" or its like and the \"(\"; not set, that around operators"}),

    indent("INDENT_CLOSURE_CONTENT", Family::ClosuresAndLists,
           {"Statements of a closure",
            "Indent of the statements in a closure, counted from the line in which it begins; not set, that of "
            "a function, or else of a block"}),
    space("WS_BEFORE_CLOSURE_OPEN_BRACE", Family::ClosuresAndLists,
          {"Before \"{\" of a closure",
           "White space before the \"{\" of a closure, and behind \"requires\"; a line feed acts on code of several "
           "lines alone"}),
    space("WS_BEFORE_CLOSURE_PARAMS", Family::ClosuresAndLists,
          {"Before \"(\" of a closure", "White space between the captures of a closure and its parameters"}),
    space("WS_BEFORE_LIST_OPEN_BRACE", Family::ClosuresAndLists,
          {"Before \"{\" of a list",
           "White space between a type or a name and the \"{\" of its list of values, where no line breaks"}),
    space("WS_BETWEEN_LIST_VALUES", Family::ClosuresAndLists,
          {"Between values",
           "White space after a comma in a list of values, where no line breaks; WS_BETWEEN_DD_ELEMENTS comes "
           "first in an initializer"}),
    space("WS_WITHIN_LIST_BRACES", Family::ClosuresAndLists,
          {"In the braces of a list",
           "White space inside the braces of a list of values, where no line breaks; WS_AFTER_DD_OPEN_BRACE and "
           "WS_BEFORE_DD_CLOSE_BRACE come first in an initializer"}),
});

constexpr Words kUsesGlobals = {"Use the global settings",
                                "No effect by itself: remembers that the page in the options window copies "
                                "from the global settings"};
constexpr Words kLeavesAlone = {"Do not format",
                                "No effect by itself: remembers that the page in the options window keeps "
                                "its options out of the scheme"};

constexpr PropertyInfo pageKey(std::string_view name, Words words) {
    return idle(flag(name, Family::PageKeys, words));
}

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

constexpr auto kAnchors = std::to_array<PropertyChoice>({
    {-1, "as in the source"},
    {0, "at the type"},
    {1, "at the name"},
});

constexpr auto kBreaks = std::to_array<PropertyChoice>({
    {1, "starts the new line"},
    {2, "ends the old line"},
});

constexpr auto kShiftBreaks = std::to_array<PropertyChoice>({
    {0, "never breaks"},
    {1, "starts the new line"},
    {2, "ends the old line"},
});

constexpr auto kConversions = std::to_array<PropertyChoice>({
    {0, "leave blanks and tabs"},
    {1, "tabs to blanks"},
    {2, "blanks to tabs"},
});

constexpr auto kWrapIndents = std::to_array<PropertyChoice>({
    {0, "no indent"},
    {1, "under the first element"},
    {2, "the line's indent plus WRAP_INDENT"},
});

constexpr auto kListStrategies = std::to_array<PropertyChoice>({
    {0, "lists stay as they are"},
    {1, "fill each line"},
    {2, "break as expressions do"},
});

constexpr auto kDirectivePlaces = std::to_array<PropertyChoice>({
    {0, "with the code's indent"},
    {1, "left-most"},
});

struct ChoicesOfOption {
    std::string_view name;
    std::span<const PropertyChoice> choices;
};

constexpr auto kChoices = std::to_array<ChoicesOfOption>({
    {"ALIGN_PPD_LEFT_MOST", kDirectivePlaces},
    {"AMPERSAND_ANCHOR", kAnchors},
    {"ASTERISK_ANCHOR", kAnchors},
    {"COMMA_WRAP_STYLE", kBreaks},
    {"CONVERT_WS", kConversions},
    {"EXPR_WRAP_STYLE", kBreaks},
    {"LIST_WRAP_STRATEGY", kListStrategies},
    {"SHIFT_WRAP_STYLE", kShiftBreaks},
    {"WRAP_STYLE", kWrapIndents},
});

} // namespace

std::span<const PropertyInfo> propertyCatalogue() { return kCatalogue; }

std::span<const PropertyInfo> pageKeyCatalogue() { return kPageKeys; }

std::span<const PropertyChoice> propertyChoices(std::string_view name) {
    for (const ChoicesOfOption& option : kChoices) {
        if (option.name == name) return option.choices;
    }
    return {};
}

} // namespace Norvane
