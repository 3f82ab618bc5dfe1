#include "src/format/Norvane_CppFormatter.h"

#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "streams/Zelmar_Columns.h"

#include <limits>
#include <utility>

namespace Norvane {

// A body, list or statement on one line of the source stays there as long as the line fits. Whether it
// fits shows only when it is written, its blanks being those of the scheme by then. What does not fit is
// noted, and the text is laid out once more with those constructs broken.

namespace {

// Constructs can nest on one line. A pass breaks the outermost of them, and the last pass all that is
// left: few people write lines that need more.
constexpr int kLastPass = 4;

constexpr std::string_view kBlank = " ";

} // namespace

void CppFormatter::writeText(Cpp::RootNode& node) {
    for (int pass = 1;; ++pass) {
        isLastPass_ = pass == kLastPass;
        writePass(node);
        output_.sync();
        noteLists();
        if (overlong_.empty() || pass > kLastPass) return;
        for (const LineNote& note : overlong_) broken_.insert(note.begin);
        overlong_.clear();
        beginAgain();
    }
}

void CppFormatter::beginAgain() {
    input_ = Zelmar::SourceReader(source_);
    output_ = Zelmar::IndentWriter();
    output_.setTabSize(options_.tabSize);
    output_.setWsMode(options_.convertWs);
    lineEnd_ = std::string_view::npos;
    nextRegion_ = 0;
    gapIsInRegion_ = false;
    afterClassBody_ = false;
    afterCaseLabel_ = false;
    shapeStart_ = std::string_view::npos;
    statementOpen_ = false;
    statementLine_ = 0;
    lineNote_ = {};
    listLines_.clear();
}

bool CppFormatter::isOneLiner(const Position& start, const Position& end) const {
    return options_.keepOneLiners && start.line == end.line && !start.isNone() &&
           !broken_.contains(source_.offsetOf(start));
}

bool CppFormatter::isOneLiner(const Cpp::SyntaxNode& node) const {
    return isOneLiner(node.start(), node.end());
}

// In a line that stays one a value that breaks it comes to a blank.
std::string_view CppFormatter::onOneLine(std::string_view value, std::string_view gap, bool oneLine) const {
    return oneLine && hasLineFeed(value) && !hasLineFeed(gap) ? kBlank : value;
}

const OptionalString& CppFormatter::onOneLine(const OptionalString& option, bool oneLine) const {
    static const OptionalString blank{true, std::string(kBlank)};
    return oneLine && option.breaksLine() ? blank : option;
}

/// The white space inside the braces of a body that stays on one line.
const OptionalString& CppFormatter::withinBraces(const OptionalString& option) const {
    if (option.set && !option.breaksLine()) return option;
    return options_.wsWithinOneLineBraces;
}

// `begin` is the source offset by which the construct is known, `line` the line of the output that it
// is to stay on. What follows it at once belongs to the line too.
void CppFormatter::noteLine(std::size_t begin, int line, bool isList) {
    constexpr int kNoMargin = std::numeric_limits<int>::max();
    const int margin = options_.lineWrap && options_.rightMargin > 0 ? options_.rightMargin : kNoMargin;
    const std::size_t next = input_.offset();
    const bool follows = next < source_.size() && (sourceText()[next] == ';' || sourceText()[next] == ',');
    if (isList && output_.line() == line) {
        if (margin != kNoMargin) listLines_.push_back({begin, line});
        return;
    }
    if (output_.line() == line && output_.column() + (follows ? 1 : 0) <= margin) return;
    while (!isLastPass_ && !overlong_.empty() && overlong_.back().begin > begin) overlong_.pop_back();
    overlong_.push_back({begin, line});
}

// A list shares its line with what follows, and is where the line would be broken if it were too long. So
// the line is looked at when it is whole, but for a comment at its end.
void CppFormatter::noteLists() {
    if (listLines_.empty()) return;
    const std::string_view text = output_.text();
    const int margin = options_.rightMargin;
    // Where a body on the line is broken there may be room for the list.
    std::unordered_set<int> brokenLines;
    for (const LineNote& note : overlong_) brokenLines.insert(note.line);
    std::size_t begin = 0;
    int line = 1;
    for (const LineNote& note : listLines_) {
        if (brokenLines.contains(note.line)) continue;
        for (; line < note.line && begin < text.size(); ++line) begin = text.find('\n', begin) + 1;
        const std::string_view whole = text.substr(begin, text.find('\n', begin) - begin);
        const std::string_view code = trimmedRight(whole.substr(0, whole.find(" //")));
        if (Zelmar::textColumn(code, 0, output_.tabSize()) > margin) overlong_.push_back(note);
    }
    listLines_.clear();
}

// Behind a statement that was to stay on the line of what stands in front of it.
void CppFormatter::settleLineNote() {
    const LineNote note = std::exchange(lineNote_, LineNote());
    if (note.begin != std::string_view::npos) noteLine(note.begin, note.line);
}

} // namespace Norvane
