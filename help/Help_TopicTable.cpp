#include "help/Help_Topic.h"

#include <array>

namespace Help {

namespace {

using Text = std::string_view;

constexpr auto kGlobals = std::to_array<Text>({
    "The margin and the tabs of every line, and the blocks that have no options of their own: a block in "
    "braces that belongs to no statement, and an `extern \"C\"` block.",
    "The other pages can be told to use the global settings. They then take over the braces, the indent, "
    "and where they have them the parens and the comma, of this page. They hold a copy of their own: a "
    "scheme file always says for each construct what holds there, and no construct falls back on a global "
    "value.",
    "`CONVERT_WS` works on the finished text, with tab stops every `TAB_SIZE` columns. It needs the true tab "
    "size: a tab counts as one column as long as `TAB_SIZE` is not set. What is lined up in columns is filled "
    "with tabs where a tab fits, unless `CONVERT_WS` is 1.",
    "`KEEP_SHAPE` is for statements that take several lines. The first line goes where the indents put it, and "
    "the further ones go along, so that what was lined up stays lined up. Without it each of them falls back "
    "to the indent of the statement. It has nothing to do while the left edge is left to the source.",
    "With `KEEP_COLUMNS` white space of two columns or more within a line stays, since it lines something up: "
    "members behind their types, `=` below `=`, the columns of a table. A value acts where there is one blank "
    "or nothing. A tab counts as well, unless `CONVERT_WS` is 1.",
    "With `KEEP_LINE_BREAKS` what was broken over lines is never joined: a value for the white space behind a "
    "comma or around an operator acts where the two sides share a line. Options that line up a list, such as "
    "`ALIGN_FN_CALL_ARGS_LEFT`, put each line of it under the first element then, however many elements it "
    "holds. Braces, `else`, `while` and `catch` still go where their options put them.",
    "With `KEEP_ONE_LINERS` a function, a class, a list or a statement on one line stays on it: a value with a "
    "line feed acts where the source has one. What goes beyond `RIGHT_MARGIN` is broken as without the option, "
    "if lines are wrapped at all.",
});

constexpr auto kClasses = std::to_array<Text>({
    "Classes, structs and unions: their base classes, their braces, their access labels and the indent of "
    "their members. Functions that are defined inside a class follow the page [Functions](Functions.htm), "
    "the member initializers of a constructor the page [Member Initializer Lists](InitializerLists.htm).",
});

constexpr auto kEnums = std::to_array<Text>({
    "Enumerations, scoped ones included: their braces, their enumerators and the commas between them. The "
    "white space around the `=` of a value is not an option of its own, but the values can be lined up.",
});

constexpr auto kNamespaces = std::to_array<Text>({
    "Namespaces, unnamed and nested ones included: their braces and the indent of what stands in them. Many "
    "styles do not indent there: that is `INDENT_NS_CONTENT` set to `\"\"`.",
});

constexpr auto kFunctions = std::to_array<Text>({
    "Function declarations, function definitions and function calls. The body of a function follows the "
    "pages of what stands in it.",
    "A list of parameters that runs over several lines keeps its breaks while `WS_BETWEEN_FN_PARAMS` is not "
    "set. With a value that has no line feed, the parameters come to stand on one line, and "
    "[line wrapping](LineWrapping.htm) breaks it where it is too long. The same holds for the arguments of a "
    "call and `WS_BETWEEN_FN_CALL_ARGS`.",
});

constexpr auto kControlStatements = std::to_array<Text>({
    "The statements that steer others: `if`, `else`, `for`, `while`, `do`, `switch`, `try` and `catch`. The "
    "condition in the parens is an expression, and follows the page [Expressions](Expressions.htm).",
    "A body without braces is laid out like one with them: `WS_AFTER_CS_OPEN_BRACE` stands before it, and "
    "`INDENT_CS_CONTENT` indents it.",
});

constexpr auto kVariables = std::to_array<Text>({
    "Variables, constants and data members: the space between type, name and initializer, columns of names "
    "and values, and lists in braces. Where the `*` and the `&` stand is said on the page [Pointers and "
    "References](PointersRefs.htm).",
    "A table that was typed in rows keeps them while `WS_BETWEEN_DD_ELEMENTS` is not set.",
});

constexpr auto kExpressions = std::to_array<Text>({
    "What stands between the operands and operators of an expression, wherever there is one: in a condition, "
    "as an argument, behind an `=`. An operator with one operand, such as the `-` in `-x`, always stays at "
    "it.",
    "Where taking white space away would glue two words or operators into another one, one blank stays.",
    "The body of a closure is code: its statements are laid out like those of a function, and indented from the "
    "line in which the closure begins. A closure on one line stays there. The same goes for the braces of "
    "`requires`, for code among the arguments of a macro and for `({ ... })`; the last two have no option for the "
    "white space in front of their brace.",
    "A list of values never changes its lines: the three options for lists act where the source breaks none.",
});

constexpr auto kLineWrapping = std::to_array<Text>({
    "Breaks lines that run past the right margin, after everything else is laid out: at operators, at "
    "commas, and at `<<` and `>>`. Nothing on this page acts while `LINE_WRAP` is off or `RIGHT_MARGIN` is "
    "0.",
    "A line breaks only where a break does no harm. Comments, literals and directives are never broken, so a "
    "line can stay longer than the margin.",
});

constexpr auto kMemberInits = std::to_array<Text>({
    "The initializers between the head of a constructor and its body, as in `Point::Point(int a) : x(a), "
    "y(0)`.",
});

constexpr auto kPointersRefs = std::to_array<Text>({
    "Whether the `*` of a pointer and the `&` of a reference stand at the type, as in `char* name`, or at "
    "the name, as in `char *name`.",
    "An anchor moves a mark that touches the type or the name. Set the white space between the mark and its "
    "anchor too, and every mark is moved, those with blanks on both sides or on none included.",
});

constexpr auto kPreprocessor = std::to_array<Text>({
    "Where lines that start with `#` stand. What stands in a directive is never changed.",
});

constexpr auto kTemplates = std::to_array<Text>({
    "Template parameters, as in `template <class T>`, and template arguments, as in `vector<int>`.",
    "Without knowing the names nobody can tell a template argument from a comparison in `a < b && c > d`. If "
    "your code has such expressions, leave `WS_AFTER_TP_OPEN_BRACKET` and `WS_BEFORE_TP_CLOSE_BRACKET` out.",
});

constexpr auto kTopics = std::to_array<Topic>({
    {kOverviewFile, "Formatting with Kerfline", "Commands, schemes, settings, and how to leave code alone", {}},
    {"Globals.htm", "Globals", "Margin, tabs, and blocks without options of their own", kGlobals},
    {"Classes.htm", "Classes", "Classes, structs and unions", kClasses},
    {"Enums.htm", "Enums", "Enumerations", kEnums},
    {"Namespaces.htm", "Namespaces", "Namespaces", kNamespaces},
    {"Functions.htm", "Functions", "Function declarations, definitions and calls", kFunctions},
    {"ControlStatements.htm", "Control Statements", "if, for, while, switch, try and their like",
     kControlStatements},
    {"Variables.htm", "Data", "Variables, constants and their initializers", kVariables},
    {"Expressions.htm", "Expressions", "Operators, parens and brackets", kExpressions},
    {"LineWrapping.htm", "Line Wrapping", "Where lines that are too long break", kLineWrapping},
    {"InitializerLists.htm", "Member Initializer Lists", "The initializers of constructors", kMemberInits},
    {"PointersRefs.htm", "Pointers and References", "Where the * and the & stand", kPointersRefs},
    {"Preprocessor.htm", "Preprocessor", "Where directives stand", kPreprocessor},
    {"Templates.htm", "Templates", "Template parameters and arguments", kTemplates},
});

} // namespace

std::span<const Topic> topicTable() { return kTopics; }

} // namespace Help
