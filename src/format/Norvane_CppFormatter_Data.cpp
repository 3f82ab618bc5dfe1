#include "src/format/Norvane_CppFormatter.h"

#include "cpp/Cpp_Scanner.h"
#include "src/expr/Norvane_Gap.h"
#include "src/format/Norvane_CppFormatter_Guards.h"
#include "src/format/Norvane_CppFormatter_Text.h"
#include "streams/Zelmar_Columns.h"

#include <algorithm>
#include <utility>

namespace Norvane {

/// A data declaration while it is written.
struct CppFormatter::DataLine {
    /// Its name is lined up with those of its neighbours.
    bool aligned;
    Base column;
    /// Where the padding in front of the name has ended.
    int nameColumn = 0;
};

bool CppFormatter::alignsDataNames() const {
    return options_.alignDdNamesLeft || (options_.alignClassMemberNamesLeft && inClassBody_);
}

void CppFormatter::visit(Cpp::DataDeclNode& node) {
    beginDeclaration(node);
    const bool ofClass = std::exchange(afterClassBody_, false);
    DataLine line{alignsDataNames() && !ofClass && !options_.dataDoNotFormat, base()};
    // A template head in front has found its declaration, which needs no column of it.
    takeTemplateBase(node.start(), line.column);
    // Only the first name of a line is put in a column.
    if (isFurtherPointer(node) && (!line.aligned || followsCommaOnLine(node))) {
        writeFurtherPointer(node, line);
    } else if (line.aligned && node.name() != nullptr) {
        writeAlignedName(node, line);
    } else {
        writePlainName(node, line);
    }
    if (node.init() != nullptr) writeInitializer(node, line);
    exprFormatter_.formatDeclarationTo(readThrough(node.end()), output_, options_.wsAfterDdTypeId);
}

// One more declarator, whose marks look like a type of its own.
bool CppFormatter::isFurtherPointer(const Cpp::DataDeclNode& node) const {
    if (node.type() == nullptr || node.name() == nullptr || options_.dataDoNotFormat) return false;
    const char first = sourceChar(node.type()->start());
    return first == '*' || first == '&';
}

bool CppFormatter::followsCommaOnLine(const Cpp::DataDeclNode& node) const {
    const std::size_t begin = input_.offset();
    const std::string_view gap = input_.peekUpTo(node.start());
    return begin > 0 && sourceText()[begin - 1] == ',' && isBlank(gap) && !hasLineFeed(gap);
}

// Marks behind a comma are placed as those behind a type.
void CppFormatter::writeFurtherPointer(const Cpp::DataDeclNode& node, DataLine& line) {
    const bool sameLine = followsCommaOnLine(node);
    if (!sameLine) copyUpTo(node.type()->start());
    line.column = baseHere();
    std::string marks = formatBehind(',', readUpTo(node.name()->start()));
    if (!sameLine) trimLeft(marks);
    output_.writeExact(marks);
    line.nameColumn = output_.column();
}

void CppFormatter::writePlainName(const Cpp::DataDeclNode& node, DataLine& line) {
    const Cpp::SyntaxNode* anchor = node.name();
    if (anchor == nullptr) anchor = node.init();
    line.column = constructAt(node.start());
    if (anchor == nullptr) return;
    const std::string_view text = readUpTo(anchor->start());
    const bool padded = line.aligned && node.init() != nullptr;
    const std::string_view written = padded ? trimmedRight(text) : text;
    if (node.type() == nullptr || options_.dataDoNotFormat) {
        writeSource(written);
    } else {
        writeDataType(written, line);
    }
    if (padded) padName(node, line, {}, false);
}

// A mark at the end of the type brings the white space around it along.
void CppFormatter::writeDataType(std::string_view text, const DataLine& line) {
    const OptionalString& option = options_.wsAfterDdTypeId;
    if (!option.set || endsInAsterisk(text) || endsInAmpersand(text)) {
        return exprFormatter_.formatDeclarationTo(text, output_, option);
    }
    if (staysBroken(text, option.value) || staysInColumn(text, option.value)) {
        return exprFormatter_.formatDeclarationTo(text, output_, option);
    }
    const GapEnd end = splitGapEnd(text, option.value);
    exprFormatter_.formatDeclarationTo(end.kept, output_, option);
    writeAtBase(end.value, line.column);
}

void CppFormatter::writeAlignedName(const Cpp::DataDeclNode& node, DataLine& line) {
    const Position name = node.name()->start();
    if (node.type() == nullptr) {
        // A further declarator on the same line stays behind its comma. Where the source owns the
        // edge the name stands in its column already, and padding would push it on with each run.
        copyUpTo(name);
        line.column = constructHere();
        if (output_.column() == 0 && !sourceOwnsEdge()) padName(node, line, {}, false);
        line.nameColumn = output_.column();
        return;
    }
    line.column = constructAt(node.type()->start());
    const std::string_view text = readUpTo(name);
    if (holdsComment(text) || staysBroken(text, {}) || text.find('\\') != std::string_view::npos) {
        exprFormatter_.formatDeclarationTo(text, output_, noWs());
        line.nameColumn = output_.column();
        return;
    }
    std::string type(text);
    joinLines(type);
    trimGapRight(type);
    type = exprFormatter_.formatDeclaration(type, output_.state(), noWs());
    const std::size_t marks = isAnchoredMark(type) ? trailingMarks(type) : type.size();
    output_.writeRaw(std::string_view(type).substr(0, marks));
    padName(node, line, std::string_view(type).substr(marks), isHangingMark(type));
}

// `marks` end the type and stand in the column of the name.
void CppFormatter::padName(const Cpp::DataDeclNode& node, DataLine& line, std::string_view marks, bool hanging) {
    const Cpp::SyntaxNode* next = node.name();
    if (next == nullptr) next = node.init();
    const std::string_view tail = trimmedLeft(marks);
    const auto column = nameColumns_.find(&node);
    padToColumn(column == nameColumns_.end() ? 1 : column->second,
                line.column.ofSource ? line.column.column : output_.indentWidth(), hanging,
                tail.empty() ? sourceFrom(next->start()) : tail);
    line.nameColumn = output_.column();
    output_.write(tail);
}

void CppFormatter::writeInitializer(const Cpp::DataDeclNode& node, const DataLine& line) {
    const Cpp::ExprNode& init = *node.init();
    const char first = sourceChar(init.start());
    if (node.name() != nullptr) writeNameText(readUpTo(init.start()), first, line);
    if (options_.alignDdInitializers && first != '(' && first != '{') padInitializer(node, line);
    const std::string_view text = readThrough(init.end());
    const BaseScope scope(*this, line.column);
    const Edge edge(*this, options_.dataDoNotFormat ? noWs() : options_.indentDdContent);
    // White space of a call belongs behind a name, and none stands in front on a line of its own.
    if (first == '(' && output_.column() != 0) return exprFormatter_.formatCallTo(text, output_, options_.wsAfterDdTypeId);
    exprFormatter_.formatDeclarationTo(text, output_, options_.wsAfterDdTypeId);
}

// The name with its array bounds, and the gap behind it. A brace that follows has no "=" to space but
// the white space of lists, and a call form has that of calls.
void CppFormatter::writeNameText(std::string_view text, char initStart, const DataLine& line) {
    const bool callForm = initStart == '(';
    const bool trims = callForm ? options_.wsAfterFnCallName.set || options_.alignFnCallArgsLeft
                                : options_.alignDdInitializers && initStart != '{';
    const bool ofList = initStart == '{' && !hasLineFeed(text.substr(trimmedRight(text).size()));
    const OptionalString& option = ofList ? options_.wsBeforeListOpenBrace : options_.wsBetweenExprOpOperands;
    const bool spaces = !callForm && !trims && (ofList || initStart != '{') && option.set;
    const std::string_view value = spaces ? std::string_view(option.value) : std::string_view();
    const bool stays = ((trims || spaces) && staysBroken(text, value)) || (spaces && staysInColumn(text, value));
    if (!line.aligned && (options_.wsAfterDdName.set || options_.wsAfterDdRbracket.set)) {
        std::string fixed(text);
        fixBrackets(fixed);
        if ((trims || spaces) && !stays) replaceGapEnd(fixed, value);
        return exprFormatter_.formatDeclarationTo(fixed, output_, options_.wsAfterDdTypeId);
    }
    if (stays || (!trims && !spaces)) return exprFormatter_.formatDeclarationTo(text, output_, options_.wsAfterDdTypeId);
    const GapEnd end = splitGapEnd(text, value);
    exprFormatter_.formatDeclarationTo(end.kept, output_, options_.wsAfterDdTypeId);
    if (spaces) writeAtBase(end.value, line.column);
}

// Only the first pair counts.
void CppFormatter::fixBrackets(std::string& text) const {
    const OptionalString& name = options_.wsAfterDdName;
    const OptionalString& bracket = options_.wsAfterDdRbracket;
    if (name.set) {
        const std::size_t open = std::min(findToken(text, Cpp::tkOpenBracket), text.size());
        std::string front = text.substr(0, open);
        replaceGapEnd(front, name.value);
        text.replace(0, open, front);
    }
    const std::size_t close = bracket.set ? findToken(text, Cpp::tkCloseBracket) : std::string::npos;
    if (close == std::string::npos) return;
    const std::size_t end = close + (text[close] == ']' ? 1 : 2); // of a digraph
    std::string behind = text.substr(end);
    replaceGapStart(behind, bracket.value);
    text.replace(end, std::string::npos, behind);
}

void CppFormatter::padInitializer(const Cpp::DataDeclNode& node, const DataLine& line) {
    const auto found = initializerColumns_.find(&node);
    int target = found == initializerColumns_.end() ? 1 : found->second;
    const int width = line.column.ofSource ? line.column.column : output_.indentWidth();
    const int tab = options_.tabSize;
    int column = output_.column();
    int goal = 0;
    if (line.aligned) {
        if (node.name() == nullptr && node.type() != nullptr) {
            target += width - Zelmar::columnsBetween(node.type()->start(), node.type()->end()) - 1;
        }
        goal = Zelmar::roundUpToMultiple(line.nameColumn + target, tab);
    } else {
        const int offset = column > width ? width : 0;
        column -= offset;
        goal = Zelmar::roundUpToMultiple(std::max(target, column), tab);
    }
    int count = std::max(goal - column, 0);
    if (count == 0 && Cpp::needsBlank(output_.text().back(), sourceChar(node.init()->start()))) count = 1;
    padColumns(count);
}

// Laid out with a character in front that says how to read the text, in a column that is one less,
// so that the columns of its lines do not shift. The character goes again.
std::string CppFormatter::formatBehind(char lead, std::string_view text) {
    Zelmar::IndentStreamState state = output_.state();
    if (state.column > 0) --state.column;
    std::string written = exprFormatter_.formatDeclaration(lead + std::string(text), state, options_.wsAfterDdTypeId);
    written.erase(written.size() - trimmedLeft(written).size(), 1);
    return written;
}

} // namespace Norvane
