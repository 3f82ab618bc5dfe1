#include "src/expr/Norvane_CppExprFormatterBase.h"

#include "cpp/Cpp_Tokens.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <cstddef>

namespace Norvane {

namespace {

std::string_view takeLine(std::string_view& text) {
    const std::size_t feed = text.find('\n');
    const std::string_view line = text.substr(0, feed == std::string_view::npos ? feed : feed + 1);
    text.remove_prefix(line.size());
    return line;
}

/// `line` without the white space that stands in front of `column`.
std::string_view cutColumns(std::string_view line, int column, int tabSize) {
    int reached = 0;
    while (reached < column && !line.empty() && (line.front() == ' ' || line.front() == '\t')) {
        reached = Zelmar::textColumn(line.substr(0, 1), reached, tabSize);
        line.remove_prefix(1);
    }
    return line;
}

int lastColumn(const Zelmar::IndentWriter& output) {
    return std::max(output.column() - 1, 0);
}

/// Writes the lines of `text`, each of which has lost its first `sourceColumn` columns, at `column`.
void writeMovedLines(std::string_view text, int sourceColumn, int column, Zelmar::IndentWriter& output) {
    const Zelmar::IndentGuard indent(output, output.makeIndent(column));
    const Zelmar::KeepWsGuard keep(output, true);
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const std::string_view cut = cutColumns(line, sourceColumn, output.tabSize());
        // The last blank stays where it may be all that keeps two words apart.
        const bool parts = column == 0 && cut.size() < line.size() && output.endsInJoin();
        output.write(parts ? line.substr(line.size() - cut.size() - 1) : cut);
    }
}

} // namespace

void writeMovedToken(std::string_view token, int sourceColumn, Zelmar::IndentWriter& output) {
    output.write(token.substr(0, 1));
    const int column = lastColumn(output);
    token.remove_prefix(std::min<std::size_t>(token.size(), 1));
    const bool endsLine = token.ends_with('\n');
    if (sourceColumn < 0 || column == sourceColumn) {
        output.writeRaw(token);
    } else {
        output.write(takeLine(token));
        writeMovedLines(token, sourceColumn, column, output);
    }
    if (endsLine) output.noteCopiedFeed();
}

void writeDirective(std::string_view gap, std::string_view directive, int sourceColumn,
                    const DirectivePlace& place, Zelmar::IndentWriter& output) {
    const Zelmar::ShapeGuard unshaped(output);
    if (!place.found) {
        output.writeRaw(gap);
        return output.writeRaw(directive);
    }
    if (!place.leftMost) {
        output.write(gap);
        return writeMovedToken(directive, sourceColumn, output);
    }
    const Zelmar::IndentGuard indent(output, place.leftMargin.set ? place.leftMargin.value : output.indent());
    const Zelmar::KeepWsGuard keep(output, false);
    output.write(gap);
    writeMovedToken(directive, sourceColumn, output);
}

namespace {

/// The column, with tabs expanded, of the character at `place`.
int columnInSource(const Zelmar::SourceText& source, const Trn::Position& place, int tabSize) {
    const std::size_t lineStart = source.lineStart(place.line);
    const std::size_t offset = std::max(std::min(source.offsetOf(place), source.size()), lineStart);
    return Zelmar::textColumn(source.text().substr(lineStart, offset - lineStart), 0, tabSize);
}

} // namespace

void CppExprFormatterBase::formatMultiLineToken(const Trn::Position& start, const Trn::Position& end,
                                                Zelmar::SourceReader& input, Zelmar::IndentWriter& output) {
    if (end.line <= start.line) return output.write(input.readThrough(end));
    output.write(input.readUpTo(start));
    writeMovedToken(input.readThrough(end), columnInSource(input.source(), start, output.tabSize()), output);
}

void CppExprFormatterBase::formatDirective(const Trn::Position& start, const Trn::Position& end,
                                           Zelmar::SourceReader& input, Zelmar::IndentWriter& output) {
    const int column = columnInSource(input.source(), start, output.tabSize());
    const std::string_view gap = input.readUpTo(start);
    writeDirective(gap, input.readThrough(end), column, options().directives, output);
}

bool CppExprFormatterBase::isBinaryOperator(int kind) {
    switch (kind) {
    case Cpp::tkColon: case Cpp::tkAssign: case Cpp::tkAsterisk: case Cpp::tkAmpersand:
    case Cpp::tkSlash: case Cpp::tkPlus: case Cpp::tkMinus: case Cpp::tkTilde: case Cpp::tkPercent:
    case Cpp::tkShiftLeft: case Cpp::tkShiftRight: case Cpp::tkLess: case Cpp::tkGreater:
    case Cpp::tkLessEqual: case Cpp::tkGreaterEqual: case Cpp::tkEqual: case Cpp::tkNotEqual:
    case Cpp::tkCaret: case Cpp::tkBar: case Cpp::tkLogicalAnd: case Cpp::tkLogicalOr:
    case Cpp::tkQuestion:
        return true;
    default:
        return kind != Cpp::tkEnd && isAssignmentOrEnd(kind);
    }
}

bool CppExprFormatterBase::isPointerOperator(int kind) {
    return kind == Cpp::tkAsterisk || kind == Cpp::tkAmpersand;
}

bool CppExprFormatterBase::isBuiltinType(int kind) {
    return kind >= Cpp::tkChar && kind <= Cpp::tkVoid;
}

bool CppExprFormatterBase::isAssignmentOrEnd(int kind) {
    return kind == Cpp::tkEnd || kind == Cpp::tkAssign ||
           (kind >= Cpp::tkMulAssign && kind <= Cpp::tkOrAssign);
}

} // namespace Norvane
