#include "help/Help_SampleTable.h"

#include <array>

namespace Help {

namespace {

constexpr std::string_view kNewLine = R"("\n")";
constexpr std::string_view kNothing = R"("")";
constexpr std::string_view kBlank = R"(" ")";
constexpr std::string_view kFour = R"("    ")";
constexpr std::string_view kOn = "1";
/// Columns are filled with tabs, unless the scheme asks for blanks.
constexpr std::string_view kInBlanks = "2 CONVERT_WS 1\n";

constexpr std::string_view kLinkage = R"(extern "C" { int answer(void); }
)";
constexpr std::string_view kLinkageLines = R"(extern "C" {
int answer(void);
int question(void);
}
)";
constexpr std::string_view kTabs = "int answer(void)\n{\n\treturn 42;\n}\n";
constexpr std::string_view kBlanks = "int answer(void)\n{\n        return 42;\n}\n";

constexpr std::string_view kClassLine = R"(struct Point { int x; int y; };
)";
constexpr std::string_view kBases = R"(class Circle:public Shape,private Named {
};
)";
constexpr std::string_view kClass = R"(class Circle {
public:
double area() const;
private:
double radius;
};
)";
constexpr std::string_view kMembers = R"(class Circle {
    int x;
    unsigned long count;
    double area() const;
};
)";
constexpr std::string_view kConstructor = R"(Point::Point(int a, int b):x(a),y(b){
}
)";

constexpr std::string_view kTemplate = R"(template<class Key,class Value> class Map;
std::map<int,Name> names;
)";

constexpr std::string_view kNamespaceLine = R"(namespace net { int connect(); }
)";
constexpr std::string_view kNamespace = R"(namespace net {
int connect();
void close(int line);
}
)";

constexpr std::string_view kEnumLine = R"(enum Colour { red,green,blue };
)";
constexpr std::string_view kEnum = R"(enum Colour {
red = 1,
green = 2,
turquoise = 3
};
)";

constexpr std::string_view kDeclarations = R"(int size();
unsigned long capacity();
)";
constexpr std::string_view kDeclaration = R"(int scale(int width,int height);
)";
constexpr std::string_view kClosure = R"(void sortByName(std::vector<Item>& items)
{
    std::sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
      return a.name < b.name;
    });
}
)";
constexpr std::string_view kValues = R"(std::vector<Point> corners()
{
    Point last{0,1};
    return {Point{0,0}, Point{1,0}, last};
}
)";
constexpr std::string_view kDefinition = R"(int twice(int x) { return 2 * x; }
)";
constexpr std::string_view kBody = R"(int twice(int x)
{
int result = 2 * x;
return result;
}
)";
constexpr std::string_view kMarkedParameters = R"(void swap(int*a, int*b);
)";
constexpr std::string_view kAtType = "2 ASTERISK_ANCHOR 0\n3 WS_BETWEEN_ASTERISK_ANCHOR \"\"\n";
constexpr std::string_view kCall = R"(int main()
{
    print(name,age,street);
}
)";

constexpr std::string_view kVariables = R"(int x = 1;
unsigned long count = 20;
)";
constexpr std::string_view kArrayLine = R"(int primes[3] = { 2,3,5 };
)";
constexpr std::string_view kArrayTight = R"(int primes[3]={2,3,5};
)";
constexpr std::string_view kArrayLines = R"(int primes[] = {
2, 3, 5,
7, 11, 13
};
)";

constexpr std::string_view kFor = R"(void count()
{
    for (int i = 0;i < 10;i++) print(i);
}
)";
constexpr std::string_view kIf = R"(void check()
{
    if (ready) { start(); } else { wait(); }
}
)";
constexpr std::string_view kIfTight = R"(void check()
{
    if(ready){ start(); }
}
)";
constexpr std::string_view kIfLines = R"(void check()
{
    if (ready) {
    start();
    }
}
)";
constexpr std::string_view kSwitch = R"(void act(int key)
{
    switch (key) {
    case 1: start(); break;
    default:
    stop();
    }
}
)";

constexpr std::string_view kSwitchLabels = R"(void act(int key)
{
    switch (key) {
    case 1: start(); break;
    default: stop();
    }
}
)";

constexpr std::string_view kExpression = R"(int area = (width+2)*height-count[ i ];
)";

constexpr std::string_view kPointer = R"(char* name;
void print(const char *text);
)";
constexpr std::string_view kReference = R"(int& total = sum;
void print(const Text &text);
)";
constexpr std::string_view kLoosePointer = R"(char * name;
void print(const char*text);
)";
constexpr std::string_view kLooseReference = R"(int & total = sum;
void print(const Text&text);
)";
constexpr std::string_view kAlignedPointers = R"(int size;
char *name;
unsigned long *table;
)";
constexpr std::string_view kAlignedReferences = R"(int size;
Text &name;
unsigned long &total;
)";

constexpr std::string_view kLongCall = R"(void report()
{
    print(first_value, second_value, third_value);
}
)";
constexpr std::string_view kLongSum = R"(void report()
{
    total = first_value + second_value + third_value;
}
)";
constexpr std::string_view kLongChain = R"(void report()
{
    out << first_value << second_value << third_value;
}
)";
constexpr std::string_view kLongList = R"(int squares[] = {1, 4, 9, 16, 25, 36, 49, 64, 81, 100, 121, 144};
)";
constexpr std::string_view kMargin = "2 RIGHT_MARGIN 40\n2 WRAP_STYLE 1\n";
constexpr std::string_view kWrap = "1 LINE_WRAP 1\n2 WRAP_STYLE 1\n";
constexpr std::string_view kWrapping = "1 LINE_WRAP 1\n2 RIGHT_MARGIN 40\n2 WRAP_STYLE 1\n";
constexpr std::string_view kWrappingPlain = "1 LINE_WRAP 1\n2 RIGHT_MARGIN 40\n";
constexpr std::string_view kWrappingPlus = "1 LINE_WRAP 1\n2 RIGHT_MARGIN 40\n2 WRAP_STYLE 2\n";

constexpr std::string_view kDirectives = R"(void run()
{
    start();
  #ifdef TRACE
    trace();
  #endif
}
)";

constexpr std::string_view kLines = R"(int sum()
{
  return first(list,
               0)
       + rest(list);
}
)";

constexpr std::string_view kColumns = R"(enum Rank
{
    low    = 1,
    middle = 2+3
};
void fill()
{
    set(low,    "few",  1+2);
    set(middle, "some", 3);
}
)";

constexpr std::string_view kLabel = R"(int sum()
{
    if (failed()) goto end;
    add();
    end:
    return 0;
}
)";
constexpr std::string_view kCasts = R"(int n = (int)x + static_cast<int>(y);
)";

constexpr auto kSamples = std::to_array<Sample>({
    {"GLOBAL_INDENT_CONTENT", kFour, kLinkageLines, {}},
    {"GLOBAL_WS_AFTER_OPEN_BRACE", kNewLine, kLinkage, {}},
    {"GLOBAL_WS_BEFORE_CLOSE_BRACE", kNewLine, kLinkage, {}},
    {"GLOBAL_WS_BEFORE_OPEN_BRACE", kNewLine, kLinkage, {}},

    {"ALIGN_BASE_CLAUSES_LEFT", kOn, kBases, {}},
    {"ALIGN_CLASS_MEMBER_NAMES_LEFT", kOn, kMembers, kInBlanks},
    {"INDENT_ACCESS_SPEC_LABEL", R"("  ")", kClass, "3 INDENT_CLASS_CONTENT \"    \"\n"},
    {"INDENT_CLASS_CONTENT", kFour, kClass, {}},
    {"WS_AFTER_CLASS_INIT_LIST", kNewLine, kConstructor, {}},
    {"WS_AFTER_CLASS_NAME", kBlank, kBases, {}},
    {"WS_AFTER_CLASS_OPEN_BRACE", kNewLine, kClassLine, {}},
    {"WS_BEFORE_ACCESS_SPECS", R"("\n\n")", kClass, {}},
    {"WS_BEFORE_BASE_CLAUSES", kBlank, kBases, {}},
    {"WS_BEFORE_BASE_CLAUSES_COMMA", kNewLine, kBases, {}},
    {"WS_BEFORE_CLASS_CLOSE_BRACE", kNewLine, kClassLine, {}},
    {"WS_BEFORE_CLASS_INITS", kBlank, kConstructor, {}},
    {"WS_BEFORE_CLASS_INITS_COMMA", kNewLine, kConstructor, {}},
    {"WS_BEFORE_CLASS_INIT_LIST", R"("\n    ")", kConstructor, {}},
    {"WS_BEFORE_CLASS_OPEN_BRACE", kNewLine, kClass, {}},
    {"WS_BETWEEN_BASE_CLAUSES", kBlank, kBases, {}},
    {"WS_BETWEEN_CLASS_INITS", kBlank, kConstructor, {}},

    {"ALIGN_TP_PARAMS_LEFT", kOn, kTemplate, {}},
    {"WS_AFTER_TP_CLOSE_BRACKET", kNewLine, kTemplate, {}},
    {"WS_AFTER_TP_OPEN_BRACKET", kBlank, kTemplate, {}},
    {"WS_BEFORE_TP_CLOSE_BRACKET", kBlank, kTemplate, {}},
    {"WS_BEFORE_TP_COMMA", kBlank, kTemplate, {}},
    {"WS_BEFORE_TP_OPEN_BRACKET", kBlank, kTemplate, {}},
    {"WS_BETWEEN_TP_PARAMS", kBlank, kTemplate, {}},

    {"INDENT_NS_CONTENT", kFour, kNamespace, {}},
    {"WS_AFTER_NS_OPEN_BRACE", kNewLine, kNamespaceLine, {}},
    {"WS_BEFORE_NS_CLOSE_BRACE", kNewLine, kNamespaceLine, {}},
    {"WS_BEFORE_NS_OPEN_BRACE", kNewLine, kNamespace, {}},

    {"ALIGN_ENUM_INITIALIZERS", kOn, kEnum, kInBlanks},
    {"INDENT_ENUM_CONTENT", kFour, kEnum, {}},
    {"WS_AFTER_ENUM_OPEN_BRACE", kNewLine, kEnumLine, {}},
    {"WS_BEFORE_ENUM_CLOSE_BRACE", kNewLine, kEnumLine, {}},
    {"WS_BEFORE_ENUM_COMMA", kBlank, kEnumLine, {}},
    {"WS_BEFORE_ENUM_OPEN_BRACE", kNewLine, kEnum, {}},
    {"WS_BETWEEN_ENUM_ELEMENTS", kBlank, kEnumLine, {}},
    {"WS_BETWEEN_ENUM_ELEMENTS", kNewLine, kEnumLine, {}},

    {"ALIGN_FN_DECL_NAMES_LEFT", kOn, kDeclarations, kInBlanks},
    {"ALIGN_FN_PARAMS_LEFT", kOn, kDeclaration, {}},
    {"INDENT_FN_CONTENT", kFour, kBody, {}},
    {"INDENT_FN_CONTENT", R"("\t")", kBody, {}},
    {"WS_AFTER_FN_DECL_RETURN_TYPE", kNewLine, kDeclaration, {}},
    {"WS_AFTER_FN_DEFN_RETURN_TYPE", kNewLine, kBody, {}},
    {"WS_AFTER_FN_NAME", kBlank, kDeclaration, {}},
    {"WS_AFTER_FN_OPEN_BRACE", kNewLine, kDefinition, {}},
    {"WS_AFTER_FN_OPEN_PAREN", kBlank, kDeclaration, {}},
    {"WS_AFTER_PARAM_TYPE_ID", R"("  ")", kMarkedParameters, kAtType},
    {"WS_BEFORE_FN_CLOSE_BRACE", kNewLine, kDefinition, {}},
    {"WS_BEFORE_FN_CLOSE_PAREN", kBlank, kDeclaration, {}},
    {"WS_BEFORE_FN_COMMA", kBlank, kDeclaration, {}},
    {"WS_BEFORE_FN_OPEN_BRACE", kNewLine, kDefinition, {}},
    {"WS_BEFORE_FN_OPEN_BRACE", kBlank, kBody, {}},
    {"WS_BETWEEN_FN_PARAMS", kBlank, kDeclaration, {}},

    {"ALIGN_FN_CALL_ARGS_LEFT", kOn, kCall, {}},
    {"WS_AFTER_FN_CALL_NAME", kBlank, kCall, {}},
    {"WS_BEFORE_FN_CALL_COMMA", kBlank, kCall, {}},
    {"WS_BETWEEN_FN_CALL_ARGS", kBlank, kCall, {}},

    {"ALIGN_DD_INITIALIZERS", kOn, kVariables, kInBlanks},
    {"ALIGN_DD_NAMES_LEFT", kOn, kVariables, kInBlanks},
    {"INDENT_DD_CONTENT", kFour, kArrayLines, {}},
    {"WS_AFTER_DD_NAME", kBlank, kArrayTight, {}},
    {"WS_AFTER_DD_OPEN_BRACE", kNewLine, kArrayLine, {}},
    {"WS_AFTER_DD_RBRACKET", kBlank, kArrayTight, {}},
    {"WS_AFTER_DD_TYPE_ID", R"("\t")", kVariables, {}},
    {"WS_BEFORE_DD_CLOSE_BRACE", kNewLine, kArrayLine, {}},
    {"WS_BEFORE_DD_COMMA", kBlank, kArrayLine, {}},
    {"WS_BEFORE_DD_OPEN_BRACE", kNewLine, kArrayLine, {}},
    {"WS_BETWEEN_DD_ELEMENTS", kBlank, kArrayLine, {}},

    {"ALIGN_CS_FOR_CLAUSES_LEFT", kOn, kFor, {}},
    {"INDENT_CS_CASE_CONTENT", kFour, kSwitch, {}},
    {"INDENT_CS_CASE_LABELS", kFour, kSwitchLabels, {}},
    {"INDENT_CS_CONTENT", kFour, kIfLines, {}},
    {"WS_AFTER_CS_CASE_LABELS", kNewLine, kSwitch, {}},
    {"WS_AFTER_CS_KEY", kBlank, kIfTight, {}},
    {"WS_AFTER_CS_OPEN_BRACE", kNewLine, kIf, {}},
    {"WS_AFTER_CS_OPEN_PAREN", kBlank, kIf, {}},
    {"WS_BEFORE_CS_CLOSE_BRACE", kNewLine, kIf, {}},
    {"WS_BEFORE_CS_CLOSE_PAREN", kBlank, kIf, {}},
    {"WS_BEFORE_CS_OPEN_BRACE", kNewLine, kIfLines, {}},
    {"WS_BEFORE_CS_OPEN_BRACE", kBlank, kIfTight, {}},
    {"WS_BETWEEN_CS_FOR_CLAUSES", kBlank, kFor, {}},

    {"EXPR_WRAP_STYLE", "2", kLongSum, kWrapping},
    {"WS_AFTER_EXPR_OPEN_PAREN", kBlank, kExpression, {}},
    {"WS_AFTER_LBRACKET", kNothing, kExpression, {}},
    {"WS_BEFORE_EXPR_CLOSE_PAREN", kBlank, kExpression, {}},
    {"WS_BEFORE_RBRACKET", kNothing, kExpression, {}},
    {"WS_BETWEEN_EXPR_OP_OPERANDS", kBlank, kExpression, {}},

    {"AMPERSAND_ANCHOR", "0", kReference, {}},
    {"AMPERSAND_ANCHOR", "1", kReference, {}},
    {"ASTERISK_ANCHOR", "0", kPointer, {}},
    {"ASTERISK_ANCHOR", "1", kPointer, {}},
    {"HANGING_AMPERSAND", kOn, kAlignedReferences, "1 ALIGN_DD_NAMES_LEFT 1\n2 AMPERSAND_ANCHOR 1\n2 CONVERT_WS 1\n"},
    {"HANGING_ASTERISK", kOn, kAlignedPointers, "1 ALIGN_DD_NAMES_LEFT 1\n2 ASTERISK_ANCHOR 1\n2 CONVERT_WS 1\n"},
    {"WS_BETWEEN_AMPERSAND_ANCHOR", kNothing, kLooseReference, "2 AMPERSAND_ANCHOR 1\n"},
    {"WS_BETWEEN_ASTERISK_ANCHOR", kNothing, kLoosePointer, "2 ASTERISK_ANCHOR 1\n"},

    {"COMMA_WRAP_STYLE", "1", kLongCall, kWrapping},
    {"LEFT_MARGIN", R"("  ")", kBody, {}},
    {"LINE_WRAP", kOn, kLongCall, kMargin},
    {"LIST_WRAP_STRATEGY", "1", kLongList, kWrapping},
    {"LIST_WRAP_STRATEGY", "2", kLongList, kWrapping},
    {"RIGHT_MARGIN", "40", kLongCall, kWrap},
    {"SHIFT_WRAP_STYLE", "0", kLongChain, kWrapping},
    {"SHIFT_WRAP_STYLE", "2", kLongChain, kWrapping},
    {"WRAP_INDENT", kFour, kLongCall, kWrappingPlus},
    {"WRAP_STYLE", "1", kLongCall, kWrappingPlain},
    {"WRAP_STYLE", "2", kLongCall, kWrappingPlain},

    {"ALIGN_PPD_LEFT_MOST", "1", kDirectives, {}},
    {"ALIGN_PPD_LEFT_MOST", "0", kDirectives, "3 INDENT_FN_CONTENT \"    \"\n"},
    {"CONVERT_WS", "1", kTabs, "2 TAB_SIZE 4\n"},
    {"CONVERT_WS", "2", kBlanks, "2 TAB_SIZE 4\n"},
    {"DATA_DO_NOT_FORMAT", kOn, kVariables, "3 WS_AFTER_DD_TYPE_ID \"   \"\n"},
    {"FN_DO_NOT_FORMAT", kOn, kDeclarations, "3 WS_AFTER_FN_DECL_RETURN_TYPE \"   \"\n"},
    {"TAB_SIZE", "4", kTabs, "2 CONVERT_WS 1\n"},
    {"TAB_SIZE", "8", kTabs, "2 CONVERT_WS 1\n"},
    {"WS_BETWEEN_CS", kNewLine, kIf, {}},

    {"ALIGN_FURTHER_LINES", kOn, kLines, "1 KEEP_SHAPE 1\n3 WS_AFTER_FN_CALL_NAME \"  \"\n"},
    {"INDENT_FURTHER_LINES", kFour, kLines, "1 KEEP_SHAPE 1\n"},
    {"KEEP_COLUMNS", kOn, kColumns, "3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n3 WS_BETWEEN_FN_CALL_ARGS \" \"\n"},
    {"KEEP_LINE_BREAKS", kOn, kLines, "3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n3 WS_BETWEEN_FN_CALL_ARGS \" \"\n"},
    {"KEEP_ONE_LINERS", kOn, kDefinition, "3 WS_AFTER_FN_OPEN_BRACE \"\\n\"\n3 WS_BEFORE_FN_CLOSE_BRACE \"\\n\"\n"},
    {"KEEP_SHAPE", kOn, kLines, "3 LEFT_MARGIN \"\"\n3 INDENT_FN_CONTENT \"    \"\n"},
    {"WS_WITHIN_ONE_LINE_BRACES", R"("  ")", kDefinition, "1 KEEP_ONE_LINERS 1\n"},

    {"INDENT_LABELS", kNothing, kLabel, "3 INDENT_FN_CONTENT \"    \"\n"},
    {"WS_AFTER_CAST", kNothing, kCasts, "3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n"},
    {"WS_BEFORE_NAMED_CAST_PAREN", kNothing, kCasts, "3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n"},

    {"INDENT_CLOSURE_CONTENT", kFour, kClosure, {}},
    {"WS_BEFORE_CLOSURE_OPEN_BRACE", kNewLine, kClosure, "3 INDENT_CLOSURE_CONTENT \"  \"\n"},
    {"WS_BEFORE_CLOSURE_PARAMS", kBlank, kClosure, {}},
    {"WS_BEFORE_LIST_OPEN_BRACE", kBlank, kValues, {}},
    {"WS_BETWEEN_LIST_VALUES", kBlank, kValues, {}},
    {"WS_WITHIN_LIST_BRACES", kBlank, kValues, {}},
});

} // namespace

std::span<const Sample> sampleTable() { return kSamples; }

} // namespace Help
