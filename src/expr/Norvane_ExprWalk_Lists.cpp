#include "src/expr/Norvane_ExprWalk.h"

#include "src/expr/Norvane_Gap.h"

namespace Norvane {

namespace {

/// What the braces of a list of values can belong to: a type, a name, bounds, or a cast.
bool ownsList(int kind) {
    switch (kind) {
    case Cpp::tkIdentifier: case Cpp::tkGreater: case Cpp::tkCloseBracket: case Cpp::tkCloseParen:
        return true;
    default:
        return endsType(kind);
    }
}

bool isCoroutineWord(std::string_view word) {
    return word == "co_return" || word == "co_yield" || word == "co_await";
}

} // namespace

/// Braces that hold values. In a copy of the source nobody knows of code; that ends in a ";" or begins
/// with a statement that may end in a brace.
bool ExprWalk::isList(std::size_t open, std::size_t close) const {
    if (close == ExprTokens::kNone || tokens_.opensStatements(open)) return false;
    if (Cpp::beginsControl(tokens_.kind(open + 1))) return false;
    return close == open + 1 || (tokens_.kind(close - 1) != Cpp::tkSemicolon && tokens_.kind(close - 1) != Cpp::tkOpenParen);
}

/// The values of a list are expressions, whatever stands around it. The list keeps the lines that it has.
void ExprWalk::writeList(std::size_t close) {
    const std::size_t open = at_;
    const bool isOwned = open > 0 && ownsList(tokens_.kind(open - 1)) && !isCoroutineWord(tokens_.token(open - 1));
    if (isOwned && !hasLineFeed(tokens_.gap(open))) decide(open, options_.beforeListBrace);
    if (close == open + 1) {
        if (options_.listBraces.isSet()) decide(close, std::string_view());
        at_ = close;
        return;
    }
    enterList(open, close, ExprGroup::kList);
}

/// Enters the braces with the white space of lists inside them.
void ExprWalk::enterList(std::size_t open, std::size_t close, ExprGroup group) {
    const bool isNote = Cpp::isCommentOrDirective(tokens_.kind(open + 1));
    settle();
    copier_.copyTo(tokens_.end(open));
    const bool mayKeep = group == ExprGroup::kList && !output_.keepLeadingWs() && !CppExprFormatterBase::isBinaryOperator(tokens_.kind(close - 1));
    if (mayKeep) copier_.keepShapeUpTo(close);
    if (!isNote && !hasLineFeed(tokens_.gap(open + 1))) decide(open + 1, options_.listBraces.afterOpen);
    at_ = open;
    pushGroup(group, open, close, options_.listBraces);
    const bool isBroken = hasLineFeed(tokens_.gap(close)) || tokens_.endsLine(close - 1);
    if (isBroken) frame().beforeClose = nullptr;
}

/// A comma between two values. Returns false if no option says anything about what is behind it.
bool ExprWalk::writeValueComma() {
    const bool isValue = frame().group == ExprGroup::kList || frame().group == ExprGroup::kInitialiser;
    if (!isValue || !options_.betweenListValues.set || !hasNext()) return false;
    const std::size_t next = at_ + 1;
    if (hasLineFeed(tokens_.gap(next)) || Cpp::isCommentOrDirective(tokens_.kind(next))) return false;
    decide(next, options_.betweenListValues);
    at_ = CppExprFormatterBase::isBinaryOperator(tokens_.kind(next)) ? next + 1 : next;
    return true;
}

/// In front of the brace of a closure that is a part of the expression: one on one line, which stays there.
void ExprWalk::writeClosureBrace() {
    if (tokens_.opensClosure(at_) && !options_.beforeClosureBrace.breaksLine()) decide(at_, options_.beforeClosureBrace);
}

/// Behind the "]" that closes what opens at `open`.
void ExprWalk::writeBehindCaptures(std::size_t open) {
    if (!tokens_.startsClosure(open)) return;
    if (next() == Cpp::tkOpenParen) decide(at_ + 1, options_.beforeClosureParams);
    if (next() == Cpp::tkLess && mateInFrame(at_ + 1) != ExprTokens::kNone) {
        templateCaptures_ = at_;
        lambdaParams_ = mateInFrame(at_ + 1) + 1;
    }
}

/// The parameters of a template behind the captures, where else a comparison would stand. Returns false if
/// there are none.
bool ExprWalk::writeClosureTemplate() {
    if (at_ != templateCaptures_) return false;
    ++at_;
    writeAngle();
    return true;
}

/// The "=" of "[=, this]", which assigns nothing.
bool ExprWalk::isCaptureDefault() const {
    return frame().group == ExprGroup::kSquares && at_ == frame().open + 1 && tokens_.startsClosure(frame().open);
}

} // namespace Norvane
