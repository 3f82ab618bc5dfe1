#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>

namespace Norvane {

namespace {

constexpr std::size_t kNone = std::string_view::npos;

// A line longer than this holds no indentation worth looking for, and a text of one line would
// make the search for its start quadratic.
constexpr int kLongestIndentedLine = 512;

// Functions that follow each other on a line would each be indented further than the one in front.
constexpr int kWidestBase = 4096;

/// What is left of a value where the token in front has brought the first line feed along.
std::string_view behindLineEnd(std::string_view value) {
    const std::size_t feed = value.find('\n');
    return feed == kNone ? std::string_view() : value.substr(feed + 1);
}

/// How many columns lie between `column` and the tab stop at or behind `target`, which counts from
/// the indent. Text that ends exactly on that stop gets none.
int spacesToColumn(int target, int column, int indentWidth, int tab) {
    if (target < 0 || column < 0 || indentWidth < 0) return 1;
    const int goal = target + indentWidth;
    const int roundedGoal = Zelmar::roundUpToMultiple(goal, tab);
    if (column == 0) return roundedGoal >= indentWidth ? roundedGoal - indentWidth : roundedGoal;
    if (column <= goal || roundedGoal > column) return std::max(roundedGoal - column, 0);
    return Zelmar::roundUpToMultiple(column, tab) - column;
}

/// A name with white space behind a "::", of which nothing else is fixed.
bool isSpacedName(std::string_view token) {
    return token.find(':') != kNone && token.find_first_of("\"'\\") == kNone;
}

} // namespace

// An edge that is pushed for the length of a token keeps leading white space too, but has an indent.
bool CppFormatter::sourceOwnsEdge() const {
    return output_.keepLeadingWs() && output_.indent().empty();
}

std::size_t CppFormatter::offsetIn(std::string_view piece) const {
    return static_cast<std::size_t>(piece.data() - sourceText().data());
}

char CppFormatter::sourceChar(const Position& position) const {
    return Cpp::meaningAt(sourceText(), source_.offsetOf(position));
}

std::string_view CppFormatter::sourceFrom(const Position& position) const {
    const std::size_t offset = source_.offsetOf(position);
    return offset < source_.size() ? sourceText().substr(offset) : std::string_view();
}

// Nothing but a directive can start with "#", and nothing but a comment with "/" and one of "/*".
bool CppFormatter::isDirective(const Cpp::SyntaxNode& node) const {
    return sourceChar(node.start()) == '#';
}

bool CppFormatter::isNote(const Cpp::SyntaxNode& node) const {
    const char c = sourceChar(node.start());
    return c == '/' || c == '#';
}

bool CppFormatter::isLineComment(const Cpp::SyntaxNode& node) const {
    return Cpp::opensLineComment(sourceText(), source_.offsetOf(node.start()));
}

bool CppFormatter::startsLine(const Position& position) const {
    const std::size_t offset = source_.offsetOf(position);
    const std::size_t lineBegin = source_.lineStart(position.line);
    if (offset > source_.size() || lineBegin > offset) return false;
    return isBlank(sourceText().substr(lineBegin, offset - lineBegin));
}

void CppFormatter::copyNode(const Cpp::SyntaxNode& node) {
    copyUpTo(node.start());
    copyThrough(node.end());
}

void CppFormatter::writeSource(std::string_view text) {
    if (text.find('\n') == kNone || text.find_first_of("#%/\"'\\") == kNone) {
        output_.write(text);
    } else {
        writeSourceTokens(text);
    }
}

// Directives and comments of several lines have a shape of their own, and the white space at the
// start of a line of a literal is part of the program.
void CppFormatter::writeSourceTokens(std::string_view text) {
    const std::size_t offset = offsetIn(text);
    Cpp::Scanner scanner(text);
    std::size_t at = 0;
    for (Cpp::RawToken token; scanner.next(token);) {
        const std::string_view spelling = text.substr(token.begin, token.end - token.begin);
        if (token.type == Cpp::tkDirective) {
            const std::size_t lineBegin = std::max(throughLastFeed(text.substr(0, token.begin)).size(), at);
            output_.write(text.substr(at, lineBegin - at));
            writeDirectiveOf(offset + lineBegin, offset + token.begin, offset + token.end);
        } else if (token.type == Cpp::tkBlockComment && hasLineFeed(spelling)) {
            output_.write(text.substr(at, token.begin - at));
            Zelmar::SourceReader reader(source_);
            reader.readUpTo(source_.positionOf(offset + token.begin));
            exprFormatter_.formatMultiLineToken(source_.positionOf(offset + token.begin),
                                                source_.positionOf(offset + token.end - 1), reader, output_);
        } else if (token.type != Cpp::tkLineComment && hasLineFeed(spelling) && !isSpacedName(spelling)) {
            output_.write(text.substr(at, token.begin + 1 - at));
            output_.writeVerbatim(spelling.substr(1));
        } else {
            continue;
        }
        at = token.end;
    }
    output_.write(text.substr(at));
}

void CppFormatter::writeDirectiveOf(std::size_t lineBegin, std::size_t begin, std::size_t end) {
    Zelmar::SourceReader reader(source_);
    reader.readUpTo(source_.positionOf(lineBegin));
    writeDirective(source_.positionOf(begin), source_.positionOf(end - 1), reader);
}

namespace {

bool isOpenEndReplaced(std::string_view gap, std::string_view kept, std::string_view value) {
    std::string text(gap);
    replaceGapEnd(text, value);
    return hasLineFeed(value) && text.size() == kept.size() + value.size() && text.ends_with(value);
}

std::size_t trimmedOpenSize(std::string_view gap) {
    std::string text(gap);
    trimGapRight(text);
    return text.size();
}

} // namespace

// The gap is what was read last, so its right neighbour stands at the read point.
CppFormatter::GapEnd CppFormatter::splitGapEnd(std::string_view gap, std::string_view value) const {
    GapEnd end{trimmedRight(gap), value};
    if (endsInLineComment(gap)) {
        return isOpenEndReplaced(gap, end.kept, value) ? end : GapEnd{gap.substr(0, trimmedOpenSize(gap)), {}};
    }
    const std::size_t right = input_.offset();
    const std::size_t gone = gap.size() - end.kept.size();
    if (right >= source_.size() || right <= gone) return end;
    if (end.kept.empty() && right - gone == lineEnd_) {
        end.value = behindLineEnd(value);
        return end;
    }
    if (gone > 0 && value.empty()) {
        const std::string_view left = sourceText().substr(0, right - gone);
        if (Cpp::needsBlank(left, sourceText().substr(right))) end.value = " ";
    }
    return end;
}

// What the source has broken stays so, unless the value brings a line feed of its own. Behind a line
// comment the next line of a statement that keeps its shape is not for a blank to place.
bool CppFormatter::staysBroken(std::string_view gap, std::string_view value) const {
    if (hasLineFeed(value) || !(options_.keepLineBreaks || output_.shape().kept)) return false;
    if (!hasLineFeed(gap.substr(trimmedRight(gap).size())) && !gap.ends_with('\n')) return endsInLineComment(gap);
    return options_.keepLineBreaks || endsInLineComment(gap);
}

bool CppFormatter::staysInColumn(std::string_view gap, std::string_view value) const {
    return !hasLineFeed(value) && isKeptColumn(gap.substr(trimmedRight(gap).size()), options_.keptColumns());
}

void CppFormatter::writeGapEnd(std::string_view gap, std::string_view value, const Base& base) {
    if (staysBroken(gap, value) || staysInColumn(gap, value)) return writeSource(gap);
    moveGapEnd(gap, value, base);
}

// For what stands where its option says, on the line in front or on one of its own: braces, and the
// keywords that go on with a statement.
void CppFormatter::moveGapEnd(std::string_view gap, std::string_view value, const Base& base) {
    if (gapIsInRegion_) return writeSource(gap);
    const GapEnd end = splitGapEnd(gap, value);
    writeSource(end.kept);
    writeAtBase(end.value, base);
}

// What follows a line feed of the value is added to the base, and so is a token that finds itself
// at the start of a line because a comment in front of it has ended one.
void CppFormatter::writeAtBase(std::string_view value, const Base& base) {
    const std::string_view feeds = throughLastFeed(value);
    if (feeds.empty() && output_.column() != 0) return output_.writeExact(value);
    output_.writeExact(feeds);
    output_.writeRaw(baseIndent(base));
    output_.writeRaw(value.substr(feeds.size()));
}

// Where the source owns the left edge nobody else indents the line that the value starts.
void CppFormatter::writeInPlace(std::string_view value) {
    if (sourceOwnsEdge() && hasLineFeed(value)) return writeAtBase(value, base());
    output_.writeExact(value);
}

void CppFormatter::padColumns(int count) {
    const int tab = output_.tabSize();
    std::string ws;
    if (output_.wsMode() != Zelmar::kWsTabsToSpaces) {
        int column = output_.column() == 0 ? output_.indentWidth() : output_.column();
        for (int step = tab - column % tab; step <= count; step = tab) {
            ws.push_back('\t');
            column += step;
            count -= step;
        }
    }
    ws.append(static_cast<std::size_t>(std::max(count, 0)), ' ');
    output_.writeExact(ws);
}

void CppFormatter::padToColumn(int target, int indentWidth, bool hanging, std::string_view next) {
    int count = spacesToColumn(target, output_.column(), indentWidth, output_.tabSize());
    if (hanging) count = std::max(count - 1, 0);
    if (count == 0 && Cpp::needsBlank(output_.text(), next)) count = 1;
    padColumns(count);
}

// Asked in front of the first character of a construct: spaces held back belong in front of it.
CppFormatter::Base CppFormatter::baseHere() {
    output_.sync();
    Base base;
    base.column = std::min(output_.nextColumn(), kWidestBase);
    base.ofSource = sourceOwnsEdge();
    if (!base.ofSource || output_.column() > kLongestIndentedLine) return base;
    const std::string_view text = output_.text();
    base.lineBegin = throughLastFeed(text).size();
    const std::string_view line = text.substr(base.lineBegin);
    base.indentSize = line.size() - trimmedLeft(line).size();
    return base;
}

CppFormatter::Base CppFormatter::beginAt(const Position& position) {
    copyUpTo(position);
    return baseHere();
}

const CppFormatter::Base& CppFormatter::base() const {
    static const Base none;
    return baseColumns_.empty() ? none : baseColumns_.back();
}

const CppFormatter::Base& CppFormatter::scopeBase() const {
    static const Base none;
    return scopeBases_ == 0 ? none : baseColumns_[scopeBases_ - 1];
}

std::string CppFormatter::baseIndent(const Base& base) const {
    if (!base.ofSource) return output_.makeIndent(base.column);
    std::string indent(output_.text().substr(base.lineBegin, base.indentSize));
    const int width = Zelmar::textColumn(indent, 0, std::max(output_.tabSize(), 1));
    indent.append(static_cast<std::size_t>(std::max(base.column - width, 0)), ' ');
    return indent;
}

std::string CppFormatter::bodyIndent(const OptionalString& spec) const {
    return spec.set ? baseIndent(base()) + spec.value : output_.indent();
}

} // namespace Norvane
