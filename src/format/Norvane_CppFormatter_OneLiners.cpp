#include "src/format/Norvane_CppFormatter.h"

#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "streams/Zelmar_Columns.h"

#include <limits>
#include <optional>
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

/// A place between two constructs of the top level to go back to.
class CppFormatter::Checkpoint {
public:
    explicit Checkpoint(CppFormatter& formatter, Cpp::InteriorNode::iterator next = {})
        : next_(next), input_(formatter.input_), output_(formatter.output_.mark()),
          begin_(formatter.output_.text().size()), lineEnd_(formatter.lineEnd_), shapeStart_(formatter.shapeStart_),
          nextRegion_(formatter.nextRegion_), bases_(formatter.baseColumns_), pendingWs_(formatter.pendingWs_),
          templateBases_(formatter.templateBases_), templateEnd_(formatter.templateEnd_),
          templateColumnPending_(formatter.templateColumnPending_), statementLine_(formatter.statementLine_),
          statementColumn_(formatter.statementColumn_), statementOpen_(formatter.statementOpen_),
          gapIsInRegion_(formatter.gapIsInRegion_), afterClassBody_(formatter.afterClassBody_),
          joinsColon_(formatter.joinsColon_) {}

    void restore(CppFormatter& formatter) const {
        formatter.input_ = input_;
        formatter.output_.goBackTo(output_);
        formatter.lineEnd_ = lineEnd_;
        formatter.shapeStart_ = shapeStart_;
        formatter.nextRegion_ = nextRegion_;
        formatter.baseColumns_ = bases_;
        formatter.pendingWs_ = pendingWs_;
        formatter.templateBases_ = templateBases_;
        formatter.templateEnd_ = templateEnd_;
        formatter.templateColumnPending_ = templateColumnPending_;
        formatter.statementLine_ = statementLine_;
        formatter.statementColumn_ = statementColumn_;
        formatter.statementOpen_ = statementOpen_;
        formatter.gapIsInRegion_ = gapIsInRegion_;
        formatter.afterClassBody_ = afterClassBody_;
        formatter.joinsColon_ = joinsColon_;
    }
    Cpp::InteriorNode::iterator next() const { return next_; }
    /// The output offset and the line at which what follows begins.
    std::size_t begin() const { return begin_; }
    int line() const { return output_.line(); }

private:
    Cpp::InteriorNode::iterator next_;
    Zelmar::SourceReader input_;
    Zelmar::WriterMark output_;
    std::size_t begin_;
    std::size_t lineEnd_;
    std::size_t shapeStart_;
    std::size_t nextRegion_;
    // At the top level these two hold no more than what a template head leaves.
    std::vector<Base> bases_;
    std::vector<PendingWs> pendingWs_;
    std::size_t templateBases_;
    std::size_t templateEnd_;
    bool templateColumnPending_;
    int statementLine_;
    int statementColumn_;
    bool statementOpen_;
    bool gapIsInRegion_;
    bool afterClassBody_;
    bool joinsColon_;
};

void CppFormatter::writeText(Cpp::RootNode& node) {
    const Checkpoint start(*this);
    while (true) {
        writePass(node);
        output_.sync();
        noteLists(start);
        if (!hasToGoBack()) return;
        start.restore(*this);
    }
}

// What has to be laid out once more is so at once, together with what shares its lines: a text that is
// laid out again as a whole costs twice as much.
void CppFormatter::writeTopLevel(Cpp::RootNode& node) {
    const ChildScope scope(*this);
    std::optional<Checkpoint> from;
    for (auto child = node.childBegin(); child != node.childEnd();) {
        const bool isAgain = from && from->next() == child;
        if (!isAgain && isSettled()) {
            from.emplace(*this, child);
            pass_ = 1;
        }
        writeChild(node, child++);
        const bool isOpen = !listLines_.empty() && listLines_.back().line >= output_.line();
        if (isOpen || (listLines_.empty() && overlong_.empty())) continue;
        noteLists(*from);
        if (!hasToGoBack()) continue;
        from->restore(*this);
        child = from->next();
    }
}

/// No line of what has been written so far may still turn out too long.
bool CppFormatter::isSettled() const {
    return overlong_.empty() && listLines_.empty();
}

bool CppFormatter::hasToGoBack() {
    const bool goesBack = !overlong_.empty() && pass_ <= kLastPass;
    for (const LineNote& note : overlong_) broken_.insert(note.begin);
    overlong_.clear();
    pass_ = goesBack ? pass_ + 1 : 1;
    return goesBack;
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
    while (pass_ != kLastPass && !overlong_.empty() && overlong_.back().begin > begin) overlong_.pop_back();
    overlong_.push_back({begin, line});
}

// A list shares its line with what follows, and is where the line would be broken if it were too long. So
// the line is looked at when it is whole, but for a comment at its end.
void CppFormatter::noteLists(const Checkpoint& from) {
    if (listLines_.empty()) return;
    const std::string_view text = output_.text();
    const int margin = options_.rightMargin;
    // Where a body on the line is broken there may be room for the list.
    std::unordered_set<int> brokenLines;
    for (const LineNote& note : overlong_) brokenLines.insert(note.line);
    std::size_t begin = throughLastFeed(text.substr(0, from.begin())).size();
    int line = from.line();
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
