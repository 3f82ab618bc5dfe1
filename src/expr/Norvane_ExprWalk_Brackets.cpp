#include "src/expr/Norvane_ExprWalk.h"

#include "src/expr/Norvane_Gap.h"

namespace Norvane {

namespace {

// Elements are lined up no further to the right than this. Nobody reads a column out there, and
// with brackets nested in brackets the white space would outgrow the text by far.
constexpr int kMaxAlignColumn = 400;

bool isTypePart(int kind) {
    return isTypeKeyword(kind) || kind == Cpp::tkIdentifier || CppExprFormatterBase::isPointerOperator(kind);
}

/// Whether a keyword of a type stands in the group itself, not in a group inside it.
bool holdsTypeKeyword(const ExprTokens& tokens, std::size_t open, std::size_t close) {
    for (std::size_t i = open + 1; i < close; ++i) {
        if (isTypeKeyword(tokens.kind(i))) return true;
        const std::size_t mate = tokens.mate(i);
        if (mate < close) i = mate;
    }
    return false;
}

/// A "[" that follows no operand and no type starts a lambda.
bool startsLambda(const ExprTokens& tokens, std::size_t open) {
    if (tokens.kind(open) != Cpp::tkOpenBracket) return false;
    if (open == 0) return true;
    const int left = tokens.kind(open - 1);
    switch (left) {
    case Cpp::tkIdentifier: case Cpp::tkThis: case Cpp::tkStringLiteral: case Cpp::tkDelete:
    case Cpp::tkCloseParen: case Cpp::tkCloseBracket: case Cpp::tkGreater:
        return false;
    default:
        return !endsType(left);
    }
}

/// The parameters of a "requires" expression, whose braces follow.
bool holdsRequirementParams(const ExprTokens& tokens, std::size_t open, std::size_t close) {
    return open > 0 && close + 1 < tokens.size() && tokens.token(open - 1) == "requires" &&
           tokens.kind(close + 1) == Cpp::tkOpenBrace;
}

/// The head of a statement, behind which another statement starts.
bool isCondition(const ExprTokens& tokens, std::size_t open) {
    if (open == 0) return false;
    switch (tokens.kind(open - 1)) {
    case Cpp::tkIf: case Cpp::tkWhile: case Cpp::tkFor: case Cpp::tkSwitch: case Cpp::tkCatch:
        return true;
    default:
        return false;
    }
}

} // namespace

/// The group that the current token opens. One that nothing closes is not looked at as a group.
void ExprWalk::openGroup(ExprGroup group, const BracketStyle& style, const ListStyle& list) {
    const std::size_t open = at_;
    const std::size_t close = mateInFrame(open);
    if (close == ExprTokens::kNone) {
        ++at_;
        if (at_ < frame().end || frame().group == ExprGroup::kText) decide(at_, style.afterOpen);
        return;
    }
    if (startsLambda(tokens_, open)) lambdaParams_ = close + 1;
    if (style.isSet()) {
        skipComments();
        if (at_ + 1 == close) {
            decide(close, std::string_view());
            at_ = close;
            if (group == ExprGroup::kParens) writeBehindParens(open);
            writeBehindCaptures(open);
            return;
        }
        decide(at_ + 1, style.afterOpen);
    }
    pushGroup(group, open, close, style);
    if (list.isSet()) alignList(list);
}

/// Enters the group behind the current token.
void ExprWalk::pushGroup(ExprGroup group, std::size_t open, std::size_t close, const BracketStyle& style) {
    ExprFrame inner;
    inner.group = group;
    inner.open = open;
    inner.end = close;
    inner.declaration = declaresInGroup(group, open, close);
    inner.assigned = group == ExprGroup::kInitialiser || group == ExprGroup::kList;
    inner.separator = group == ExprGroup::kCast ? nullptr : frame().separator;
    inner.beforeClose = style.beforeClose.set ? &style.beforeClose : nullptr;
    inner.depths = depthsAt(++at_);
    frames_.push_back(inner);
}

/// Where a group stands in a declaration, an argument list holds declarations only if a keyword
/// shows it: `Foo f(a * b)` multiplies, `Foo f(int *p)` does not.
bool ExprWalk::declaresInGroup(ExprGroup group, std::size_t open, std::size_t close) const {
    switch (group) {
    case ExprGroup::kCast: return true;
    case ExprGroup::kSquares: return false;
    case ExprGroup::kInitialiser:
    case ExprGroup::kList: return frame().declaration;
    case ExprGroup::kTemplateArgs: return isDeclaration() || options_.templateArgs.between.set;
    default: break;
    }
    if (group == ExprGroup::kParens && open == lambdaParams_) return true;
    if (group == ExprGroup::kCall && holdsRequirementParams(tokens_, open, close)) return true;
    if (!frame().declaration) return false;
    return (group == ExprGroup::kParens && !frame().assigned) || holdsTypeKeyword(tokens_, open, close);
}

/// The elements of the group just entered line up under the first.
void ExprWalk::alignList(const ListStyle& list) {
    frame().list = &list;
    frame().aligned = true;
    frame().alignColumn = output_.indentWidth();
    const int first = kindAt(at_);
    const bool hasFirst = first != Cpp::tkEnd && first != Cpp::tkComma && first != Cpp::tkDirective;
    if (!isInColumn() || !hasFirst) return;
    settle();
    copier_.copyTo(tokens_.begin(at_));
    const int column = copier_.column();
    if (column <= kMaxAlignColumn) frame().alignColumn = column;
}

void ExprWalk::closeGroup() {
    const ExprFrame left = frame();
    if (left.group == ExprGroup::kInitialiser) leaveBraces(left);
    frames_.pop_back();
    at_ = left.end;
    if (left.beforeClose) decide(at_, left.beforeClose->value);
    if (left.group == ExprGroup::kSquares) writeBehindCaptures(left.open);
    if (left.group == ExprGroup::kParens) {
        writeBehindParens(left.open);
    } else if (left.group == ExprGroup::kCast && next() == Cpp::tkOpenParen) {
        decide(at_ + 1, options_.beforeCastParen.set ? options_.beforeCastParen : options_.aroundOperator);
    }
}

/// At the closing bracket of a group that was no call: it may have been a cast.
void ExprWalk::writeBehindParens(std::size_t open) {
    if (open == lambdaParams_) return;
    const std::size_t operand = at_ + 1;
    const bool isHead = isCondition(tokens_, open);
    // The statement behind such a head may have a line of its own.
    if (isHead && hasLineFeed(tokens_.gap(operand))) {
        ++at_;
        return;
    }
    const bool hasOwn = options_.afterCast.set && !isHead;
    const OptionalString& behindCast = hasOwn ? options_.afterCast : options_.aroundOperator;
    switch (next()) {
    case Cpp::tkOpenParen:
        // The parameters of a declarator, as in "int (*f)(int)", or a call of what the group gives.
        if (isDeclaration() || (hasOwn && !holdsTypeOnly(open, at_))) return;
        [[fallthrough]];
    case Cpp::tkCharLiteral:
    case Cpp::tkNumber:
    case Cpp::tkStringLiteral:
    case Cpp::tkIdentifier: return decide(operand, behindCast);
    case Cpp::tkAsterisk:
    case Cpp::tkAmpersand:
    case Cpp::tkMinus:
    case Cpp::tkPlus:
    case Cpp::tkTilde:
        if (!isHead && !isCast(open, at_)) return;
        decide(operand, behindCast);
        at_ = operand;
        return;
    default: return;
    }
}

/// Whether a group can be read as a type: names, keywords, and pointer marks at its end.
bool ExprWalk::holdsTypeOnly(std::size_t open, std::size_t close) const {
    const auto isMarkAt = [this](std::size_t i) { return CppExprFormatterBase::isPointerOperator(tokens_.kind(i)); };
    std::size_t end = close;
    while (end > open + 1 && isMarkAt(end - 1)) --end;
    for (std::size_t i = open + 1; i < end; ++i) {
        if (!isTypePart(tokens_.kind(i)) || isMarkAt(i)) return false;
    }
    return end > open + 1;
}

/// Whether a group in front of an operator is a cast, so that the operator is a prefix: it ends in
/// a pointer mark, which makes sense for "*" and "&" only, or it holds nothing but a type.
bool ExprWalk::isCast(std::size_t open, std::size_t close) const {
    if (CppExprFormatterBase::isPointerOperator(next()) && close > open + 1 &&
        CppExprFormatterBase::isPointerOperator(tokens_.kind(close - 1))) {
        return true;
    }
    bool hasKeyword = false;
    for (std::size_t i = open + 1; i < close; ++i) {
        if (!isTypePart(tokens_.kind(i))) return false;
        hasKeyword = hasKeyword || isTypeKeyword(tokens_.kind(i));
    }
    return hasKeyword;
}

void ExprWalk::writeCall() {
    ++at_;
    writeArguments();
}

void ExprWalk::writeArguments() {
    // Behind a name in another text the parenthesis may start its line.
    if (at_ > 0 || output_.column() > 0) decide(at_, options_.afterCallName);
    openGroup(ExprGroup::kCall, options_.parens, options_.callArgs);
}

} // namespace Norvane
