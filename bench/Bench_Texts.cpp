#include "bench/Bench_Texts.h"

#include <array>
#include <cstddef>

namespace Bench {

namespace {

constexpr std::size_t kMegabyte = 1'000'000;

/// Appends what `part` makes of 0, 1, 2, ... until the text has `bytes`.
template <class Part> std::string repeatTo(std::size_t bytes, Part part) {
    std::string text;
    text.reserve(bytes + bytes / 16);
    for (int i = 0; text.size() < bytes; ++i) text += part(std::to_string(i));
    return text;
}

template <class Part> std::string repeat(int count, Part part) {
    std::string text;
    for (int i = 0; i < count; ++i) text += part(std::to_string(i));
    return text;
}

std::size_t megabytes(int count, int scale) {
    return static_cast<std::size_t>(count) * static_cast<std::size_t>(scale) * kMegabyte;
}

std::string cFunction(const std::string& n) {
    return "/* Looks item " + n +
           " up in the table and adds what it finds to the buffer.\n"
           " * Returns the number of bytes that were added, or -1. */\n"
           "static int lookup_" +
           n +
           "(struct table *table, const char *key, unsigned flags)\n"
           "{\n"
           "    struct entry *entry = NULL;\n"
           "    int i, found = 0;\n"
           "    size_t length = strlen(key);\n"
           "\n"
           "    if (table == NULL || key == NULL)\n"
           "        return -1;\n"
           "#ifdef CHECK_FLAGS\n"
           "    if ((flags & FLAG_MASK_" +
           n +
           ") != 0) {\n"
           "        report(table->log, \"bad flags %x in %s\\n\", flags, key);\n"
           "        return -1;\n"
           "    }\n"
           "#endif\n"
           "    for (i = 0; i < table->count; i++) {\n"
           "        entry = &table->entries[(hash(key, length) + i) % table->size];\n"
           "        if (entry->key != NULL && strcmp(entry->key, key) == 0) {\n"
           "            found += entry->length * 2 + sizeof(struct entry); // with its head\n"
           "            entry->uses++;\n"
           "        } else if (entry->flags & ENTRY_FREE) {\n"
           "            break;\n"
           "        } else {\n"
           "            table->misses += 1;\n"
           "        }\n"
           "    }\n"
           "    switch (flags >> 4) {\n"
           "    case 0:\n"
           "        table->last = entry;\n"
           "        break;\n"
           "    case 1:\n"
           "    case 2:\n"
           "        *(int *)table->data = found ? found : -" +
           n +
           ";\n"
           "        break;\n"
           "    default:\n"
           "        while (table->next != NULL)\n"
           "            table = table->next;\n"
           "    }\n"
           "    return found;\n"
           "}\n\n";
}

std::string cppClass(const std::string& n) {
    return "/// A shape with number " + n +
           ".\n"
           "template <class Number, class Allocator = std::allocator<Number> >\n"
           "class Shape" +
           n +
           " : public Base<Number>, protected Drawable, private Counted {\n"
           "public:\n"
           "    enum Kind { Round" +
           n + ", Flat" + n + " = 4, Solid" + n +
           " };\n"
           "    typedef std::map<std::string, std::vector<Number> > Index;\n"
           "\n"
           "    explicit Shape" +
           n +
           "(const Index& index, Number width = 0);\n"
           "    virtual ~Shape" +
           n +
           "() { clear(); }\n"
           "\n"
           "    bool operator<(const Shape" +
           n +
           "& other) const { return area() < other.area(); }\n"
           "    virtual Number area() const = 0;\n"
           "    const std::string& name() const throw() { return name_; }\n"
           "    Number* begin();\n"
           "    static Shape" +
           n +
           "* create(Kind kind, int, const char* text = \"none\");\n"
           "\n"
           "protected:\n"
           "    struct Point {\n"
           "        Number x, y;\n"
           "        Point() : x(0), y(0) {}\n"
           "    };\n"
           "\n"
           "private:\n"
           "    // Changed by every call of draw.\n"
           "    mutable unsigned long drawn_;\n"
           "    std::string name_;\n"
           "    Point points_[16];\n"
           "    Index index_;\n"
           "};\n"
           "\n"
           "template <class Number, class Allocator>\n"
           "Shape" +
           n + "<Number, Allocator>::Shape" + n +
           "(const Index& index, Number width)\n"
           "    : Base<Number>(width), Counted(), drawn_(0), name_(\"shape\"), index_(index)\n"
           "{\n"
           "    try {\n"
           "        for (typename Index::const_iterator it = index.begin(); it != index.end(); ++it) {\n"
           "            insert(it->first, static_cast<Number>(it->second.size()) << 2, *it);\n"
           "        }\n"
           "    } catch (const std::exception& e) {\n"
           "        std::cerr << \"shape \" << name_ << \": \" << e.what() << std::endl;\n"
           "        throw;\n"
           "    }\n"
           "}\n\n";
}

std::string cFunctions(int scale) { return repeatTo(megabytes(4, scale), cFunction); }

std::string cppClasses(int scale) { return repeatTo(megabytes(2, scale), cppClass); }

std::string tableInitialiser(int scale) {
    return "static const struct row rows[] = {\n" +
           repeat(10'000 * scale,
                  [](const std::string& n) {
                      return "    { " + n + ", \"name of row " + n + "\", 0x1f, { 1.5, -" + n +
                             " }, &handler_" + n + ", FLAG_A | FLAG_B },\n";
                  }) +
           "};\n";
}

std::string oneLineFunctions(int scale) {
    return repeat(5'000 * scale, [](const std::string& n) {
        return "static int get_" + n + "(int a, int *b) { return a + b[" + n + "] * 3; }\n";
    });
}

std::string longLine(int scale) {
    return "void f() { " +
           repeatTo(megabytes(1, scale),
                    [](const std::string& n) { return "a" + n + " = b + g(x, " + n + "); "; }) +
           "}\n";
}

constexpr int kDepth = 500;

/// A function of control statements inside each other. More depth is more indentation in every line,
/// so twice the text is two such functions.
std::string nestedFunction(const std::string& n) {
    std::string text = "void nested_" + n + "(int a) {\n";
    for (int depth = 1; depth <= kDepth; ++depth) {
        text += std::string(static_cast<std::size_t>(depth) * 4, ' ') + "if (a > " + std::to_string(depth) +
                ") {\n";
    }
    for (int depth = kDepth; depth > 0; --depth) {
        text += std::string(static_cast<std::size_t>(depth) * 4, ' ') + "}\n";
    }
    return text + "}\n";
}

std::string nestedBlocks(int scale) { return repeat(scale, nestedFunction); }

/// Here depth costs no indentation, and twice the text is twice as deep.
std::string nestedParens(int scale) {
    std::string text = "int f() {\n    return ";
    for (int i = 0; i < kDepth * scale; ++i) text += "(a + f(";
    text += "x";
    for (int i = 0; i < kDepth * scale; ++i) text += "))";
    return text + ";\n}\n";
}

/// Comparisons that look like the start of template arguments, with nothing that closes them.
std::string comparisons(int scale) {
    return "int f() {\n    return " +
           repeat(5'000 * scale, [](const std::string& n) { return "a" + n + " < b || "; }) + "c;\n}\n";
}

std::string fittingLines(int scale) { return repeatTo(megabytes(2, scale), cFunction); }

std::string overLongLines(int scale) {
    return "void f() {\n" +
           repeat(5'000 * scale,
                  [](const std::string& n) {
                      return "    result_" + n + " = compute(first_argument, second_argument + " + n +
                             ", lookup(table, key, \"a string\")) && third_condition || fourth_condition;\n";
                  }) +
           "}\n";
}

std::string longExpression(int scale) {
    return "int f() {\n    return " +
           repeat(20'000 * scale, [](const std::string& n) { return "term_" + n + " + "; }) + "last;\n}\n";
}

constexpr auto kTexts = std::to_array<Text>({
    {"c_functions", cFunctions},
    {"cpp_classes", cppClasses},
    {"table_10000_rows", tableInitialiser},
    {"one_line_functions_5000", oneLineFunctions},
    {"one_line_of_1MB", longLine},
    {"nested_blocks_500", nestedBlocks},
    {"nested_parens_500", nestedParens},
    {"comparisons_5000", comparisons},
});

constexpr auto kWrapTexts = std::to_array<Text>({
    {"fitting_lines", fittingLines},
    {"over_long_lines_5000", overLongLines},
    {"expression_of_20000_terms", longExpression},
    {"one_line_of_1MB", longLine},
});

} // namespace

std::span<const Text> texts() { return kTexts; }

std::span<const Text> wrapTexts() { return kWrapTexts; }

const Text* findText(std::string_view name) {
    for (const std::span<const Text> table : {texts(), wrapTexts()}) {
        for (const Text& text : table) {
            if (text.name == name) return &text;
        }
    }
    return nullptr;
}

} // namespace Bench
