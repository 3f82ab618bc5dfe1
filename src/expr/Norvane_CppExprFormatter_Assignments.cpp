#include "src/expr/Norvane_CppExprFormatter.h"

#include "src/expr/Norvane_ExprCopier.h"
#include "src/expr/Norvane_Gap.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>

namespace Norvane {

namespace {

/// The tokens of one line of a text: those that start on it.
struct Line {
    std::size_t begin = 0; // offsets of the line, its line feed included
    std::size_t end = 0;
    std::size_t firstToken = 0;
    std::size_t endToken = 0;
    std::size_t assignment = 0; // endToken if there is none
};

/// Splits the text into lines at the line feeds between tokens and at the ends of line comments and
/// directives. A token that spans lines does not end one.
std::vector<Line> splitLines(const ExprTokens& tokens) {
    std::vector<Line> lines;
    const std::string_view text = tokens.text();
    std::size_t token = 0;
    for (std::size_t at = 0; at < text.size();) {
        Line line;
        line.begin = at;
        line.firstToken = token;
        std::size_t feed = text.find('\n', at);
        for (; token < tokens.size() && tokens.begin(token) < feed; ++token) {
            if (tokens.end(token) > feed) feed = text.find('\n', tokens.end(token) - 1);
        }
        line.end = feed == std::string_view::npos ? text.size() : feed + 1;
        line.endToken = token;
        line.assignment = line.firstToken;
        while (line.assignment < token &&
               !CppExprFormatterBase::isAssignmentOrEnd(tokens.kind(line.assignment))) {
            ++line.assignment;
        }
        lines.push_back(line);
        at = line.end;
    }
    return lines;
}

/// The column, counted from 1, of the last character in front of the assignment; 0 on a line that
/// has no token there. Comments do not count: a long one would push all operators to the right.
int endColumn(const ExprTokens& tokens, const Line& line) {
    std::size_t last = line.assignment;
    while (last > line.firstToken && Cpp::isCommentOrDirective(tokens.kind(last - 1))) --last;
    if (last == line.firstToken) return 0;
    const std::string_view before = tokens.text().substr(line.begin, tokens.end(last - 1) - line.begin);
    const std::size_t feed = before.rfind('\n');
    return static_cast<int>(before.size() - (feed == std::string_view::npos ? 0 : feed + 1));
}

/// How many columns to pad at `column` so that the operators of all lines stand on one tab stop.
int padding(int maxColumn, int column, int indentWidth, int tabSize) {
    if (maxColumn < 0 || column < 0 || indentWidth < 0) return 1;
    const int target = maxColumn + indentWidth;
    const int goal = Zelmar::roundUpToMultiple(target, tabSize);
    int count = goal - column;
    if (column < 1) {
        count = goal >= indentWidth ? goal - indentWidth : goal;
    } else if (column > target) {
        count = (goal > column ? goal : Zelmar::roundUpToMultiple(column, tabSize)) - column;
    }
    return count < 0 ? 1 : count;
}

} // namespace

std::string CppExprFormatter::alignAssignments(const std::string& text,
                                               const Zelmar::IndentStreamState& state) {
    ExprTokens& tokens = buffers().tokens;
    tokens.assign(text);
    const std::vector<Line> lines = splitLines(tokens);
    int maxColumn = 0;
    for (const Line& line : lines) maxColumn = std::max(maxColumn, endColumn(tokens, line));
    if (maxColumn < 1) return text;
    maxColumn = Zelmar::roundUpToMultiple(maxColumn + 2, state.tabSize);

    Zelmar::IndentWriter output(state);
    ExprCopier copier(tokens, output);
    for (const Line& line : lines) {
        for (std::size_t i = line.firstToken; i < line.assignment; ++i) {
            if (tokens.kind(i) == Cpp::tkDirective) copier.copyDirective(i, options().directives);
        }
        const bool isAligned = line.assignment < line.endToken && isBlank(tokens.gap(line.assignment)) &&
                               line.assignment > line.firstToken;
        if (isAligned) {
            copier.copyTo(tokens.gapBegin(line.assignment));
            const int count = padding(maxColumn, output.column(), output.indentWidth(), state.tabSize);
            output.writeRaw(std::string(static_cast<std::size_t>(count), ' '));
            copier.skipTo(tokens.begin(line.assignment));
            output.writeRaw(std::string_view(text).substr(copier.offset(), line.end - copier.offset()));
            copier.skipTo(line.end);
        } else {
            copier.copyTo(line.end);
        }
    }
    return output.takeText();
}

} // namespace Norvane
