#include "tests/fuzz/Fuzz_Soundness.h"

#include "guard/Guard_Reader.h"

namespace Fuzz {

namespace {

using Guard::Kind;

bool isStray(std::string_view token) {
    const char first = token.front();
    return token.find_first_of("\\@`") != std::string_view::npos || (first >= '\0' && first < ' ') || first == '\x7f';
}

bool isOfFewCompilers(std::string_view token) {
    return token.starts_with("\?\?") || token == "[:" || token == ":]" || token == "^^";
}

} // namespace

bool isSound(std::string_view text) {
    Guard::Reader reader(text);
    bool inDirective = false;
    Guard::Item item;
    for (reader.next(item); item.kind != Kind::end; reader.next(item)) {
        const std::string_view spelling = text.substr(item.begin, item.end - item.begin);
        if (item.kind == Kind::directive || item.kind == Kind::directiveEnd) inDirective = item.kind == Kind::directive;
        // One that ends with the text may be one that nothing closes.
        const bool mayStayOpen = item.kind == Kind::blockComment || item.kind == Kind::literal;
        if (item.kind == Kind::looseLiteral || (mayStayOpen && item.end == text.size())) return false;
        if (item.kind != Kind::token) continue;
        const bool isHash = spelling.starts_with('#') || spelling.starts_with("%:");
        if (isStray(spelling) || isOfFewCompilers(spelling) || (isHash && !inDirective)) return false;
    }
    return true;
}

} // namespace Fuzz
