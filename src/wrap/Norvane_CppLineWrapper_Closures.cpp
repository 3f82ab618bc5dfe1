#include "src/wrap/Norvane_CppLineWrapper.h"

#include "src/wrap/Norvane_CppLineWrapper_Scope.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>

namespace Norvane {

namespace {

bool startsBefore(const Cpp::CodeInExpression& code, const Trn::Position& position) {
    return code.block->start() < position;
}

} // namespace

// The code in expressions that no other code in `node` holds, in order.
std::vector<const Cpp::CodeInExpression*> CppLineWrapper::codeIn(const Cpp::SyntaxNode& node) const {
    std::vector<const Cpp::CodeInExpression*> found;
    auto code = std::lower_bound(code_.begin(), code_.end(), node.start(), startsBefore);
    for (; code != code_.end() && code->block->start() < node.end(); ++code) {
        const bool isInner = !found.empty() && code->block->start() < found.back()->block->end();
        if (!isInner) found.push_back(&*code);
    }
    return found;
}

// Whether every line of `node` beyond the margin stands between the braces of code.
bool CppLineWrapper::isOverInCode(const Cpp::SyntaxNode& node,
                                  const std::vector<const Cpp::CodeInExpression*>& codes) const {
    const auto first = std::lower_bound(overLines_.begin(), overLines_.end(), node.start().line);
    auto code = codes.begin();
    for (auto line = first; line != overLines_.end() && *line <= node.end().line; ++line) {
        while (code != codes.end() && (*code)->block->end().line <= *line) ++code;
        if (code == codes.end() || *line <= (*code)->block->start().line) return false;
    }
    return true;
}

// Not a byte of a region may change, so the code around it cannot move.
bool CppLineWrapper::holdsRegion(const Cpp::SyntaxNode& node) const {
    const auto last = std::lower_bound(code_.begin(), code_.end(), node.end(), startsBefore);
    return std::any_of(std::lower_bound(code_.begin(), code_.end(), node.start(), startsBefore), last,
                       [](const Cpp::CodeInExpression& code) { return code.hasRegion; });
}

int CppLineWrapper::indentOfLine(std::uint32_t line) const {
    const std::string_view text = source_.text().substr(source_.lineStart(line));
    return Zelmar::textColumn(text.substr(0, text.find_first_not_of(" \t")), 0, options_->tabSize);
}

// The expression around the code stays as it is, so the code keeps its columns. Where a line of the
// expression is too long itself the code is copied along with it. Returns false there.
bool CppLineWrapper::wrapCodeIn(const Cpp::SyntaxNode& node) {
    const std::vector<const Cpp::CodeInExpression*> codes = codeIn(node);
    if (codes.empty()) return false;
    if (!isOverInCode(node, codes)) {
        if (holdsRegion(node)) return copyNode(node), true;
        leavesCode_ = true;
        return false;
    }
    for (const Cpp::CodeInExpression* code : codes) {
        copyUpTo(code->block->start());
        const Trn::Position brace = code->block->start();
        const int column = indentOfLine(brace.line);
        const bool ownsLine = static_cast<int>(brace.column) == column + 1;
        const ColumnScope scope(*this, ownsLine ? column : indentOfLine(code->head.line));
        const bool hasOwn = rules().functionIndent.set;
        writeBody(*code->block.get(), hasOwn ? rules().functionIndent : rules().blockIndent);
    }
    copyNode(node);
    return true;
}

} // namespace Norvane
