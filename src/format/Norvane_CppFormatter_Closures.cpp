#include "src/format/Norvane_CppFormatter.h"

#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace Norvane {

/// What code in an expression must not see of the construct around it, and that not of the code: the
/// expression has been read to its end already.
class CppFormatter::CodeScope {
public:
    CodeScope(CppFormatter& formatter, std::vector<Region>& regions)
        : formatter_(formatter), regions_(regions), nextRegion_(std::exchange(formatter.nextRegion_, 0)), input_(formatter.input_), pending_(formatter),
          inClassBody_(std::exchange(formatter.inClassBody_, false)),
          inCode_(std::exchange(formatter.inCode_, true)),
          afterClassBody_(std::exchange(formatter.afterClassBody_, false)),
          afterCaseLabel_(std::exchange(formatter.afterCaseLabel_, false)),
          inElseIf_(std::exchange(formatter.inElseIf_, false)),
          gapIsInRegion_(std::exchange(formatter.gapIsInRegion_, false)),
          lineNote_(std::exchange(formatter.lineNote_, {})) {
        formatter_.regions_.swap(regions_);
    }
    ~CodeScope() {
        formatter_.regions_.swap(regions_);
        formatter_.nextRegion_ = nextRegion_;
        formatter_.input_ = input_;
        formatter_.inClassBody_ = inClassBody_;
        formatter_.inCode_ = inCode_;
        formatter_.afterClassBody_ = afterClassBody_;
        formatter_.afterCaseLabel_ = afterCaseLabel_;
        formatter_.inElseIf_ = inElseIf_;
        formatter_.gapIsInRegion_ = gapIsInRegion_;
        formatter_.lineNote_ = lineNote_;
    }
    CodeScope(const CodeScope&) = delete;
    CodeScope& operator=(const CodeScope&) = delete;

private:
    CppFormatter& formatter_;
    std::vector<Region>& regions_;
    std::size_t nextRegion_;
    Zelmar::SourceReader input_;
    PendingScope pending_;
    bool inClassBody_;
    bool inCode_;
    bool afterClassBody_;
    bool afterCaseLabel_;
    bool inElseIf_;
    bool gapIsInRegion_;
    LineNote lineNote_;
};

void CppFormatter::takeCode(const Cpp::RootNode& root) {
    code_.reserve(root.code().size());
    for (const Cpp::CodeInExpression& code : root.code()) {
        const std::size_t end = source_.offsetOf(code.block->end()) + 1;
        code_.push_back({source_.offsetOf(code.head), source_.offsetOf(code.block->start()), end, code.block.get(), {}});
        if (code.hasRegion) code_.back().regions = findRegions(*code.block.get());
    }
    codeBases_.resize(code_.size());
    exprFormatter_.setCode(code_.empty() ? nullptr : this);
}

// Code on one line stays there, as a part of the expression. So does what has no indent that would
// keep it apart from the lines around it.
bool CppFormatter::isApart(const Code& code) const {
    const bool spansLines = hasLineFeed(sourceText().substr(code.begin, code.end - code.begin));
    return (spansLines && (closureIndent().set || sourceOwnsEdge())) || !code.regions.empty();
}

std::optional<ExprCode::Extent> CppFormatter::find(const char* brace) const {
    const std::string_view source = sourceText();
    const std::less<> isBefore;
    if (isBefore(brace, source.data()) || !isBefore(brace, source.data() + source.size())) return {};
    const auto offset = static_cast<std::size_t>(brace - source.data());
    const auto found = std::lower_bound(code_.begin(), code_.end(), offset,
                                        [](const Code& code, std::size_t at) { return code.begin < at; });
    if (found == code_.end() || found->begin != offset) return {};
    const bool isClosure = found->head < found->begin;
    return Extent{static_cast<std::size_t>(found - code_.begin()), source.data() + found->head, source.data() + found->end,
                  isClosure, isApart(*found)};
}

// The content of a block may stand at the braces, where these are indented themselves.
const OptionalString& CppFormatter::closureIndent() const {
    if (options_.indentClosureContent.set) return options_.indentClosureContent;
    return options_.indentFnContent.set ? options_.indentFnContent : options_.globalIndentContent;
}

// Code is indented from the line in which the expression that it belongs to begins, or from its
// opening brace where that has a line of its own.
CppFormatter::Base CppFormatter::codeBase() {
    Base base = lineBase();
    if (!base.ofSource) base.column = output_.lineIndent();
    return base;
}

void CppFormatter::noteHead(std::size_t number) { codeBases_[number] = codeBase(); }

int CppFormatter::headColumn(std::size_t number) const {
    return code_[number].head < code_[number].begin ? codeBases_[number].column : -1;
}

void CppFormatter::writeCode(std::size_t number) {
    Code& code = code_[number];
    const CodeScope scope(*this, code.regions);
    input_.moveTo(code.begin);
    const bool ownsLine = output_.column() == 0 || output_.lineIndent() == output_.column();
    if (ownsLine) copyThrough(code.block->start());
    const Base start = ownsLine || code.head == code.begin ? codeBase() : codeBases_[number];
    const BaseScope column(*this, start);
    const BodyStyle style{closureIndent(), options_.globalWsAfterOpenBrace, options_.globalWsBeforeCloseBrace};
    if (start.ofSource) return writeBody(*code.block, style);
    const Edge edge(*this, baseIndent(start), false);
    writeBody(*code.block, style);
}

} // namespace Norvane
