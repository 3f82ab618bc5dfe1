#include "ui/NorvaneUI_PreviewSamples.h"

namespace NorvaneUI {

namespace {

// Each holds the constructs that its page has options for, in a layout that lets most of them show.

constexpr std::string_view kGlobals =
    "// This preview shows an overview of \n"
    "// the whole scheme. To change the\n"
    "// layout of a particular element\n"
    "// click on it's tab.\n"
    "// Each option has context-help.\n"
    "// Previews update in real-time!\n"
    "\n"
    "class A : public B, C\n"
    "{\n"
    "public:\n"
    "A(int num);\n"
    "private:\n"
    "int m_Num;\n"
    "};\n"
    "\n"
    "int main(void)\n"
    "{\n"
    "if (condition)\n"
    "{\n"
    "doSomething();\n"
    "}\n"
    "else\n"
    "{\n"
    "while (true)\n"
    "{\n"
    "doSomethingElse();\n"
    "}\n"
    "}\n"
    "\n"
    "return 0;\n"
    "}\n"
    "\n"
    "namespace NS\n"
    "{\n"
    "enum Seasons\n"
    "{\n"
    "spring,summer,autumn,winter\n"
    "};\n"
    "}\n"
    "\n"
    "char* userName = 0;\n"
    "int count = 42;\n"
    "int& countRef = count;\n"
    "\n"
    "template <class T, int i> class Buffer\n"
    "{\n"
    "Buffer();\n"
    "};";

constexpr std::string_view kClasses =
    "class clsA : public clsB, public clsC {\n"
    "public:\n"
    "clsA(int x, char* y);\n"
    "~clsA();\n"
    "int getX() const;\n"
    "char* getY() const;\n"
    "void setX(int newX);\n"
    "void setY(char* newY);\n"
    "private:\n"
    "int memberX;\n"
    "char* memberY;\n"
    "bool memberZ;\n"
    "};\n"
    "\n"
    "union Location {\n"
    "struct Point2d {\n"
    "float x;\n"
    "float y;\n"
    "};\n"
    "\n"
    "struct Point3d {\n"
    "float x;\n"
    "float y;\n"
    "float z;\n"
    "};\n"
    "};";

constexpr std::string_view kEnums =
    "enum keyword{ASM,AUTO,BREAK};\n"
    "\n"
    "enum Colour{red=1,yellow=2,green=3,purple=4};\n"
    "\n";

constexpr std::string_view kNamespaces =
    "namespace Outer{\n"
    "class X{\n"
    "X();\n"
    "~X();\n"
    "};\n"
    "\n"
    "namespace Inner{\n"
    "class Y {\n"
    "Y();\n"
    "~Y();\n"
    "};}\n"
    "\n"
    "// functions\n"
    "int free1(int i);\n"
    "std::string free2(const std::string& s);\n"
    "\n"
    "// data\n"
    "int x = 1;\n"
    "char c = 'a';\n"
    "char* s = \"abcde\";\n"
    "}";

constexpr std::string_view kFunctions =
    "// group of function declarations\n"
    "void callme1(int ph);\n"
    "String* callme2(int ph, Date when);\n"
    "\n"
    "// something in between\n"
    "int i;\n"
    "char* c;\n"
    "\n"
    "// another group of functions\n"
    "VeryLongClassName callme3();\n"
    "int callme4();\n"
    "\n"
    "bool Equal(const char* a, const char* b)\n"
    "{\n"
    "return strcmp(a, b) == 0;\n"
    "}\n"
    "\n"
    "// For extra options see the\n"
    "// Member Initializer Lists tab\n"
    "Fred::Fred(int& i) : i_(i)\n"
    "{\n"
    "\n"
    "}";

constexpr std::string_view kControlStatements =
    "switch (season)\n"
    "{\n"
    "case summer:\n"
    "surf();\n"
    "break;\n"
    "case winter:\n"
    "ski();\n"
    "break;\n"
    "default:\n"
    "swim();\n"
    "break;\n"
    "}\n"
    "\n"
    "if (condition)\n"
    "{\n"
    "doSomething();\n"
    "}\n"
    "else\n"
    "{\n"
    "while (true)\n"
    "{\n"
    "doSomethingElse();\n"
    "}\n"
    "}\n"
    "\n"
    "if (x < y)\n"
    "y=0;\n"
    "else\n"
    "x=1;\n"
    "\n"
    "try\n"
    "{\n"
    "doSomething();\n"
    "return true;\n"
    "}\n"
    "catch (const exception& e) {\n"
    "reportErr();\n"
    "}\n"
    "\n"
    "do\n"
    "{\n"
    "a = foo(a);\n"
    "}\n"
    "while(a > 0);\n"
    "\n"
    "for (int i = 1; i < 10; ++i)\n"
    "{cout << i; \n"
    "}";

constexpr std::string_view kData =
    "int main(void)\n"
    "{\n"
    "\n"
    "const int arraySize = 3;\n"
    "const char* errorMsg = \"Unknown\";\n"
    "const char* colorName = \"Red\";\n"
    "const char defaultColor = 'r';\n"
    "\n"
    "char color[arraySize] = {'r', 'g', 'b'};\n"
    "}\n"
    "\n"
    "struct Dress\n"
    "{\n"
    "char name[20];\n"
    "int size;\n"
    "double price;\n"
    "};\n"
    "\n";

constexpr std::string_view kExpressions =
    "const int size = 6;\n"
    "int main(void) {\n"
    "float age[size];\n"
    "cout << \"enter your age\";\n"
    "int i=0;\n"
    "float temp = 21;\n"
    "while (i < size && temp >= 0)\n"
    "{\n"
    "age[i++]=temp;\n"
    "if (i < size)\n"
    " cin >>temp;\n"
    "}\n"
    "}\n"
    "\n"
    "int main(void)\n"
    "{\n"
    "char x[2] [20] = {\"Silly\",\"to demonstrate layout\\n\"};\n"
    "char * y = \"example\";\n"
    "\n"
    "for (int i = 0; i < 3; i++)\n"
    "{\n"
    "cout << (test() ? y : x[1]);\n"
    "doSomething(i, x, y);\n"
    "}\n"
    "return 0;}";

constexpr std::string_view kLineWrapping =
    "bool set_up_log_messages(const std::string& filename, const std::string& startup_msg, const "
    "std::string& run_msg)\n"
    "{\n"
    "if ((set_logging_filename(filename) != 0) || (log_err_msg(startup_msg, LOG_TRACE, 1) != 0) || "
    "(log_err_msg(run_msg, LOG_TRACE, 1) != 0)){return false;}\n"
    "return true;\n"
    "}\n"
    "\n"
    "Address address={\"Kerfline\",\"www.example.com\",\"12 Formatting "
    "Street\",\"Tabville\",\"Victoria\",\"3000\",\"Australia\",\"+61 3 5550 0100\",\"+61 3 5550 "
    "0101\"};\n"
    "\n"
    "void PrintAddress(const Address* a){\n"
    "cout << a->name << '\\n' << a->website << '\\n' << a->street << '\\n' << a->suburb << '\\n' << "
    "a->state << '\\n' << a->postcode << '\\n' << a->country << '\\n';\n"
    "}\n"
    "\n"
    "enum Colours{blue,pink,yellow,green,orange,red,purple,magenta,violet,peach,aquamarine};\n"
    "\n"
    "class Test:public virtual classA,private virtual classB,virtual classC,public virtual classD{};\n"
    "\n"
    "Person(const std::string& firstName,const std::string& lastName,eGender sexOfPerson,const Date& "
    "dateOfBirth):m_FirstName(firstName),m_LastName(lastName),m_Sex(sexOfPerson),"
    "m_DateOfBirth(dateOfBirth){}";

constexpr std::string_view kMemberInits =
    "Queue::Queue(int qs) : qsize(qs)\n"
    "{\n"
    "front = rear = NULL;\n"
    "items = 0;\n"
    "}\n"
    "\n"
    "namespace MyNS {\n"
    "Cls::Cls(char* p1, int p2) : m_P1(p1),m_P2(p2){\n"
    "++m_Count;}\n"
    "}\n"
    "\n"
    "Employee::Employee(const Firm & f) : m_Firm(f)\n"
    "{\n"
    "\n"
    "}";

constexpr std::string_view kPointersReferences =
    "char* userName = 0;\n"
    "int count = 42;\n"
    "int& countRef = count;\n"
    "\n"
    "void Foo(char* cp)\n"
    "void Foo(const std::string& s);";

constexpr std::string_view kPreprocessor =
    "bool doesSomething(){\n"
    "runDemo();\n"
    "#ifdef SYMBOL\n"
    "doSomethingExtra();\n"
    "#endif\n"
    "return true;\n"
    "}";

constexpr std::string_view kTemplates =
    "template<class T,int i>class Buffer{\n"
    "Buffer();\n"
    "};\n"
    "\n"
    "template<class T,class C>int compare(const String<T>& str1,const String<T>& str2)\n"
    "{\n"
    "\n"
    "}\n"
    "\n"
    "namespace Utils\n"
    "{\n"
    "template<class H, class T>\n"
    "struct TypeList\n"
    "{\n"
    "typedef H Head;\n"
    "typedef T Tail;\n"
    "};\n"
    "}\n"
    "\n"
    "template <class Type>\n"
    "class Stack\n"
    "{\n"
    "public:\n"
    "Stack();\n"
    "private:\n"
    "int top;\n"
    "};";

struct Sample {
    std::string_view name;
    std::string_view text;
};
constexpr Sample kSamples[] = {
    {"GlobalsPreview", kGlobals},
    {"ClassesPreview", kClasses},
    {"EnumsPreview", kEnums},
    {"NamespacesPreview", kNamespaces},
    {"FunctionsPreview", kFunctions},
    {"ControlStatementsPreview", kControlStatements},
    {"DataPreview", kData},
    {"ExpressionsPreview", kExpressions},
    {"LineWrappingPreview", kLineWrapping},
    {"MemberInitsPreview", kMemberInits},
    {"PointersReferencesPreview", kPointersReferences},
    {"PreprocessorPreview", kPreprocessor},
    {"TemplatesPreview", kTemplates},
};

} // namespace

std::optional<std::string_view> previewSample(std::string_view previewName) {
    for (const Sample& sample : kSamples) {
        if (sample.name == previewName) return sample.text;
    }
    return std::nullopt;
}

} // namespace NorvaneUI
