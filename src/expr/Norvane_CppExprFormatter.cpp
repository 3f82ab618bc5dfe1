#include "src/expr/Norvane_CppExprFormatter.h"

#include <array>

namespace Norvane {

namespace {

// Without one of these characters no rule has anything to say about a text.
constexpr std::array<bool, 256> makeRuled() {
    std::array<bool, 256> table{};
    for (const unsigned char c : std::string_view("([{<=*&+-/%^|?:,#\"~>\n")) table[c] = true;
    return table;
}
constexpr std::array<bool, 256> kRuled = makeRuled();

bool holdsRuled(std::string_view text) {
    for (const char c : text) {
        if (kRuled[static_cast<unsigned char>(c)]) return true;
    }
    return false;
}

} // namespace

std::string CppExprFormatter::format(const std::string& text, const Zelmar::IndentStreamState& state) {
    Zelmar::IndentWriter output(state);
    formatTo(text, output);
    return output.takeText();
}

std::string CppExprFormatter::formatDeclaration(const std::string& text,
                                                const Zelmar::IndentStreamState& state,
                                                const OptionalString& separator) {
    Zelmar::IndentWriter output(state);
    formatDeclarationTo(text, output, separator);
    return output.takeText();
}

void CppExprFormatter::formatTo(std::string_view text, Zelmar::IndentWriter& output) {
    walk(text, output, nullptr, false);
}

void CppExprFormatter::formatDeclarationTo(std::string_view text, Zelmar::IndentWriter& output,
                                           const OptionalString& separator) {
    walk(text, output, &separator, false);
}

void CppExprFormatter::formatCallTo(std::string_view text, Zelmar::IndentWriter& output,
                                    const OptionalString& separator) {
    walk(text, output, &separator, true);
}

/// Directives, literals over lines and code in braces are not copied like other text, so that even with
/// no option set a text of several lines is looked at.
bool CppExprFormatter::needsWalk(std::string_view text) const {
    if (options().expr.any) return holdsRuled(text);
    return text.find('\n') != std::string_view::npos && text.find_first_of("#%\"'\\{") != std::string_view::npos;
}

void CppExprFormatter::walk(std::string_view text, Zelmar::IndentWriter& output,
                            const OptionalString* separator, bool isCall) {
    if (!needsWalk(text)) return output.write(text);
    Buffers& own = buffers();
    own.tokens.assign(text, code_);
    ++depth_;
    ExprWalk(options().expr, options().directives, own.tokens, own.frames, output, code_).run(separator, isCall);
    --depth_;
}

CppExprFormatter::Buffers& CppExprFormatter::buffers() {
    if (depth_ == buffers_.size()) buffers_.emplace_back();
    return buffers_[depth_];
}

} // namespace Norvane
