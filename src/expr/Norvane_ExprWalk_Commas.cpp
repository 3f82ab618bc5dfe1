#include "src/expr/Norvane_ExprWalk.h"

#include "src/expr/Norvane_Gap.h"

namespace Norvane {

void ExprWalk::writeComma() {
    endDeclarator();
    if (frame().addedIndent && depthsAt(at_) == frame().depths) anchorRow(at_ + 1);
    if (isListComma()) return writeListComma();
    if (writeValueComma()) return;
    const bool declares = frame().group == ExprGroup::kText && isDeclaration();
    if (declares && CppExprFormatterBase::isPointerOperator(next())) return writePointer();
    const std::size_t comma = at_;
    skipComments();
    if (hasNext() && CppExprFormatterBase::isBinaryOperator(next())) {
        // A prefix. A line that it starts is a row of a table, and stays one.
        const bool sameLine = at_ == comma && !hasLineFeed(tokens_.gap(at_ + 1));
        if (sameLine) decide(at_ + 1, options_.aroundOperator);
        ++at_;
    }
    ++at_;
}

/// Behind a comma that no bracket holds another name is declared.
void ExprWalk::endDeclarator() {
    ExprFrame& group = frame();
    if (!group.assigned || group.group == ExprGroup::kInitialiser || group.group == ExprGroup::kList) return;
    BracketDepths depths = depthsAt(at_);
    depths.angle = group.depths.angle;
    if (depths == group.depths) group.assigned = false;
}

bool ExprWalk::isListComma() {
    return frame().list && depthsAt(at_) == frame().depths;
}

/// Lines of the list start in a column of their own.
bool ExprWalk::isInColumn() const {
    return frame().aligned && (frame().list->breaksLine() || frame().list->rows);
}

void ExprWalk::writeListComma() {
    const ListStyle& list = *frame().list;
    const std::size_t comma = at_++;
    const bool inColumn = isInColumn();
    const int column = inColumn ? hangingColumnAt(comma) : 0;
    // In front of the first of all it is the opening bracket that has its say.
    if (list.beforeComma.set && comma != frame().open + 1) {
        decide(comma, list.beforeComma.value, inColumn ? Place::kColumn : Place::kExact, column);
    }
    // What stands in front of the closing bracket is for the bracket to say.
    if (at_ >= frame().end) return;
    const int kind = tokens_.kind(at_);
    const bool keepsPlace = kind == Cpp::tkLineComment || (kind == Cpp::tkBlockComment && !frame().aligned);
    if (keepsPlace || kind == Cpp::tkDirective) {
        frame().alignsNext = inColumn;
        return;
    }
    decideBehindComma(at_, column);
    // A prefix, which belongs to what follows it.
    if (CppExprFormatterBase::isBinaryOperator(kind)) ++at_;
}

void ExprWalk::decideBehindComma(std::size_t next, int column) {
    const ListStyle& list = *frame().list;
    const bool inColumn = isInColumn();
    if (list.rows && inColumn && hasLineFeed(tokens_.gap(next))) {
        startLineInColumn(next, column);
    } else if (list.between.set) {
        decide(next, list.between.value, inColumn ? Place::kColumn : Place::kExact, column);
    } else if (hasLineFeed(tokens_.gap(next))) {
        if (inColumn) startLineInColumn(next, column);
    } else if (frame().group == ExprGroup::kInitialiser && options_.betweenListValues.set) {
        decide(next, options_.betweenListValues);
    } else if (CppExprFormatterBase::isBinaryOperator(tokens_.kind(next))) {
        decide(next, options_.aroundOperator);
    }
}

/// Where the line of the element behind a comma starts.
int ExprWalk::hangingColumnAt(std::size_t comma) const {
    const ListStyle& list = *frame().list;
    std::string hanging(",");
    hanging.append(blanksBehindComma(list, comma + 1));
    return hangingColumn(list.beforeComma, hanging, frame().alignColumn, output_.tabSize());
}

/// The white space that will stand between a comma and the element at `next` on the same line.
std::string_view ExprWalk::blanksBehindComma(const ListStyle& list, std::size_t next) const {
    const int kind = kindAt(next);
    if (kind == Cpp::tkEnd || kind == Cpp::tkComma) return std::string_view();
    if (list.between.set) return list.between.value;
    if (hasLineFeed(tokens_.gap(next))) return std::string_view();
    const bool isPrefix = CppExprFormatterBase::isBinaryOperator(kind);
    return isPrefix && options_.aroundOperator.set ? options_.aroundOperator.value : tokens_.gap(next);
}

} // namespace Norvane
