#include "tests/property/Sources.h"

#include "cpp/Cpp_Scanner.h"
#include "tests/format/runner/GoldenFile.h"

#include <filesystem>
#include <iterator>
#include <random>

namespace Property {

namespace {

constexpr int kNestingDepth = 100000;

std::string repeated(const std::string& piece, int count) {
    std::string result;
    result.reserve(piece.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) result += piece;
    return result;
}

std::vector<Source> readGoldenSources() {
    std::vector<Source> sources;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(KERFLINE_CASES)) {
        if (entry.path().extension() != ".case") continue;
        for (const Golden::Case& golden : Golden::readCases(entry.path().string())) {
            const std::string place = entry.path().filename().string() + ':' + std::to_string(golden.line);
            sources.push_back({place, golden.source});
        }
    }
    return sources;
}

constexpr const char* kCFile = R"(/* A list. */
#include <stdio.h>
#define MAX(a, b) \
    ((a) > (b) ? (a) : (b))
struct node { int value; struct node *next, **prev; };
static const char *names[] = { "one", "two" /* 2 */, };
enum color { red, green = 2, blue };
int add(int a, int *b)
{
    int i, sum = -1; // start
    for (i = 0; i < 10; i++) sum += names[i][0] & *b;
    if (a && !b) return a; else if (sum) { sum--; }
#ifdef DEBUG
    printf("%d\n", sum);
#endif
    switch (a) { case 1: case 2: break; default: goto out; }
    do a = b ? *b : (int) sizeof(a); while (a < 0);
out:
    return (sum << 2) + a;
}
)";

constexpr const char* kCppFile = R"(namespace a { namespace b {
template <class T, int n = 3> class Box : public Base<T>, private Other {
public:
    explicit Box(T const& t) : Base<T>(t), n_(n) {}
    virtual ~Box() throw();
    bool operator==(const Box& other) const { return this == &other; }
    std::map<int, std::vector<T> > items;
private:
    int n_;
};
extern "C" { void f(void); }
using std::string;
void g() {
    try { x = new int[3]; } catch (const E& e) { throw; } catch (...) {}
    auto l = [&](int y) { return y * 2; };
    std::cout << "a" << l(1) << std::endl;
    while (it != end) ++it;
}
} }
)";

std::string randomBytes(std::mt19937& random, std::size_t length) {
    std::string text;
    for (std::size_t i = 0; i < length; ++i) text += static_cast<char>(random() & 0xff);
    return text;
}

std::string randomTokens(std::mt19937& random, int count) {
    static const std::vector<std::string> pieces = {
        "{",     "}",       "(",     ")",     "[",      "]",        "<",      ">",         ";",     ":",       ",",
        "=",     "*",       "&",     "&&",    "::",     "->",       "+",      "--",        "<<",    ">>",      "?",
        "~",     "a",       "b2",    "0x1f",  "'c'",    "\"s\"",    "\"",     "'",         "//c\n", "/*c*/",   "/*",
        "\n",    "\n#if X\n", "\n#endif\n", "\\\n",  "if",     "else",     "for",    "while",     "do",    "switch",  "case",
        "class", "struct",  "enum",  "union", "public", "template", "typedef", "namespace", "using", "operator", "return",
        "int",   "const",   "void",  "try",   "catch",  "extern",   "asm",    "new",       "goto",  "default", "R\"x(",
    };
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += pieces[random() % pieces.size()];
        if (random() % 3 != 0) text += ' ';
    }
    return text;
}

} // namespace

const std::vector<Source>& goldenSources() {
    static const std::vector<Source> sources = readGoldenSources();
    return sources;
}

const std::vector<Source>& smallFiles() {
    static const std::vector<Source> files = {{"C", kCFile}, {"Cpp", kCppFile}};
    return files;
}

const std::vector<Source>& oddTexts() {
    using namespace std::string_literals;
    static const std::vector<Source> texts = {
        {"empty", ""},
        {"lone newline", "\n"},
        {"only blanks", "  \t  "},
        {"no final newline", "int a;"},
        {"comment without end", "int a; /* b"},
        {"line comment without newline", "int a; // b"},
        {"backslash at the end", "int a; \\"},
        {"line comment that goes on", "// a \\\nb\nint c;\n"},
        {"string without end", "char *a = \"b\nint c;\n"},
        {"character without end", "char a = 'b\nint c;\n"},
        {"raw string without end", "auto a = R\"x(b\n"},
        {"directive without newline", "#define A"},
        {"directive with continuation to the end", "#define A \\"},
        {"NUL bytes", "int a\0b;\0\n"s},
        {"high-bit bytes", "int gr\xc3\xb6\xc3\x9f" "e; // \xff\xfe\n"},
        {"form feeds and vertical tabs", "int a;\f\n\vint b;\n"},
        {"stray characters", "int @a; $b; `c`; #\n"},
        {"only closing brackets", "} ) ] >\n"},
        {"only operators", "+ - * / << >> && || :: -> . , ; ? : = ~ !\n"},
        {"if 0 without end", "#if 0\nint a;\n"},
        {"else without if", "#else\n#endif\nint a;\n"},
        {"a long line", "int a = " + repeated("1 + ", 20000) + "1;\n"},
        {"a long word", repeated("x", 100000) + ";\n"},
        {"many empty lines", repeated("\n", 50000)},
        {"many declarations on a line", repeated("int a;", 20000)},
    };
    return texts;
}

const std::vector<Source>& deepNests() {
    static const std::vector<Source> nests = [] {
        const std::vector<std::pair<std::string, std::string>> pairs = {
            {"(", ")"}, {"[", "]"}, {"{", "}"}, {"<", ">"}, {"f(", ")"}, {"a<", ">"}, {"if(a){", "}"},
            {"if(a)", ";"}, {"namespace a{", "}"}, {"class a{", "};"}, {"if(a);else ", ""}, {"do ", "while(a);"},
            {"template<", ">"}, {"switch(a){case 1:", "}"}, {"enum{", "}"}, {"={", "}"}, {"[]{", "}"}, {"f([]{a;\n", "});\n"},
        };
        std::vector<Source> result;
        for (const auto& [open, close] : pairs) {
            const std::string opened = repeated(open, kNestingDepth);
            result.push_back({open + " not closed", opened});
            result.push_back({open + " closed", opened + repeated(close, kNestingDepth) + ";\n"});
            result.push_back({open + " in a function", "void f(){x=" + opened + repeated(close, kNestingDepth) + ";}\n"});
        }
        return result;
    }();
    return nests;
}

const std::vector<Source>& randomTexts() {
    static const std::vector<Source> texts = [] {
        std::vector<Source> result;
        for (unsigned seed = 1; seed <= 100; ++seed) {
            std::mt19937 random(seed);
            result.push_back({"bytes of seed " + std::to_string(seed), randomBytes(random, 600)});
            result.push_back({"tokens of seed " + std::to_string(seed), randomTokens(random, 150)});
        }
        return result;
    }();
    return texts;
}

std::vector<Source> withCommentInEachGap(const Source& source, const std::string& comment) {
    std::vector<Cpp::RawToken> tokens;
    Cpp::scanAll(source.text, tokens);
    std::vector<Source> result;
    for (const Cpp::RawToken& token : tokens) {
        if (token.type == Cpp::tkLineComment || token.type == Cpp::tkDirective) continue;
        std::string text = source.text;
        text.insert(token.end, comment);
        result.push_back({source.name + ", comment at byte " + std::to_string(token.end), std::move(text)});
    }
    return result;
}

} // namespace Property
