#include "src/expr/Norvane_ExprWalk.h"

#include "src/expr/Norvane_Gap.h"

namespace Norvane {

namespace {

using Base = CppExprFormatterBase;

/// Keywords that an expression may follow, so that "*", "&" and "-" behind them are prefixes.
bool isOperandKeyword(int kind) {
    switch (kind) {
    case Cpp::tkThrow: case Cpp::tkReturn: case Cpp::tkCase: case Cpp::tkElse: case Cpp::tkDo:
    case Cpp::tkDelete: case Cpp::tkSizeof: case Cpp::tkGoto:
        return true;
    default:
        return false;
    }
}

bool isCoroutineWord(std::string_view name) {
    return name == "co_return" || name == "co_await" || name == "co_yield";
}

bool isMarkOrReference(int kind) {
    return Base::isPointerOperator(kind) || kind == Cpp::tkLogicalAnd;
}

/// Tokens behind which "++" and "--" are postfix operators.
bool endsOperand(int kind) {
    switch (kind) {
    case Cpp::tkIdentifier: case Cpp::tkThis: case Cpp::tkCloseParen: case Cpp::tkCloseBracket:
    case Cpp::tkGreater:
        return true;
    default:
        return false;
    }
}

/// Tokens that can stand in front of the "}" of a block or of a list of values.
bool isStatementEnd(int kind) {
    return !Base::isBinaryOperator(kind) && kind != Cpp::tkOpenParen && kind != Cpp::tkOpenBracket;
}

/// Tokens in front of which no operand stands.
bool closesOperands(int kind) {
    switch (kind) {
    case Cpp::tkComma: case Cpp::tkSemicolon: case Cpp::tkCloseParen: case Cpp::tkCloseBracket:
    case Cpp::tkCloseBrace: case Cpp::tkGreater:
        return true;
    default:
        return false;
    }
}

} // namespace

ExprWalk::ExprWalk(const ExprOptions& options, const DirectivePlace& place, const ExprTokens& tokens,
                   std::vector<ExprFrame>& frames, Zelmar::IndentWriter& output, ExprCode* code)
    : options_(options), place_(place), tokens_(tokens), frames_(frames), code_(code), output_(output),
      copier_(tokens, output, options.keepsBreaks, code, options.columns) {}

void ExprWalk::run(const OptionalString* separator, bool isCall) {
    frames_.clear();
    ExprFrame text;
    text.end = tokens_.size();
    // What an explicit instantiation names is declared like any other function or class.
    text.declaration = separator != nullptr || (text.end > 0 && tokens_.kind(0) == Cpp::tkTemplate);
    text.separator = separator && separator->set ? separator : nullptr;
    frames_.push_back(text);
    if (isCall) writeArguments();
    while (at_ < frame().end || frames_.size() > 1) {
        if (at_ < frame().end) {
            writeElement();
        } else {
            closeGroup();
        }
    }
    finish();
}

void ExprWalk::decide(std::size_t index, std::string_view value, Place place, int column) {
    if (open_.index != index) settle();
    open_ = {index, value, place, column};
}

void ExprWalk::decide(std::size_t index, const OptionalString& ws) {
    if (ws.set) decide(index, ws.value);
}

void ExprWalk::settle() {
    if (open_.index == ExprTokens::kNone) return;
    const Decision decision = open_;
    open_.index = ExprTokens::kNone;
    if (decision.place == Place::kColumn) return settleInColumn(decision);
    copier_.replaceGap(decision.index, decision.value, decision.place == Place::kExact);
}

void ExprWalk::settleInColumn(const Decision& decision) {
    copier_.copyTo(tokens_.gapBegin(decision.index));
    if (!copier_.isReplaceable(decision.index)) return;
    if (copier_.staysBroken(decision.index, decision.value)) return startLineInColumn(decision.index, decision.column);
    const ColumnGuard column(output_, decision.column);
    copier_.replaceGap(decision.index, decision.value, true);
    if (output_.column() == 0) writeFirstChar(decision.index);
}

/// Starts the line of a token that follows a line feed in `column`. Blank lines stay.
void ExprWalk::startLineInColumn(std::size_t index, int column) {
    if (open_.index == index) open_.index = ExprTokens::kNone;
    settle();
    copier_.copyTo(tokens_.gapBegin(index));
    if (!isBlank(tokens_.gap(index))) return;
    for (const char c : tokens_.gap(index)) {
        if (c == '\n') output_.writeExact("\n");
    }
    copier_.skipTo(tokens_.gapEnd(index));
    if (output_.column() > 0) return;
    const ColumnGuard guard(output_, column, options_.keepsBreaks);
    writeFirstChar(index);
}

/// The line's indent goes out with its first character; the rest of the token needs none.
void ExprWalk::writeFirstChar(std::size_t index) {
    if (index >= tokens_.size()) return;
    if (tokens_.kind(index) == Cpp::tkBlockComment && tokens_.spansLines(index)) {
        copier_.copyMoved(index);
    } else if (tokens_.kind(index) == Cpp::tkDirective) {
        copier_.copyDirective(index, place_);
    } else {
        copier_.copyTo(tokens_.begin(index) + 1);
    }
}

void ExprWalk::copyDirective(std::size_t index) {
    settle();
    copier_.copyDirective(index, place_);
}

void ExprWalk::finish() {
    settle();
    copier_.copyRest();
}

int ExprWalk::kindAt(std::size_t index) const {
    return index < frame().end ? tokens_.kind(index) : static_cast<int>(Cpp::tkEnd);
}

std::size_t ExprWalk::mateInFrame(std::size_t index) const {
    const std::size_t mate = tokens_.mate(index);
    // A ">>" closes the group that the walk is in along with the one inside it.
    const bool isShared = mate == frame().end && mate < tokens_.size() && tokens_.token(mate) == ">>";
    return mate < frame().end || isShared ? mate : ExprTokens::kNone;
}

const BracketDepths& ExprWalk::depthsAt(std::size_t index) {
    for (; counted_ < index; ++counted_) depths_.count(tokens_.kind(counted_));
    return depths_;
}

void ExprWalk::writeElement() {
    if (frame().alignsNext) alignElement();
    switch (tokens_.kind(at_)) {
    case Cpp::tkDirective: copyDirective(at_++); break;
    case Cpp::tkLineComment:
    case Cpp::tkBlockComment:
    case Cpp::tkAsterisk:
    case Cpp::tkAmpersand:
    case Cpp::tkMinus:
    case Cpp::tkExclamation: ++at_; break;
    case Cpp::tkStringLiteral: joinStrings(); break;
    case Cpp::tkComma: writeComma(); break;
    case Cpp::tkOpenBrace: writeBlock(); break;
    case Cpp::tkOpenParen: openGroup(ExprGroup::kParens, options_.parens, options_.callArgs); break;
    case Cpp::tkOpenBracket: openGroup(ExprGroup::kSquares, options_.squares, ListStyle()); break;
    case Cpp::tkAssign: writeAssignment(); break;
    case Cpp::tkLess: writeAngle(); break;
    case Cpp::tkStaticCast:
    case Cpp::tkDynamicCast:
    case Cpp::tkConstCast:
    case Cpp::tkReinterpretCast: writeNamedCast(); break;
    case Cpp::tkThrow:
    case Cpp::tkSizeof:
        if (next() == Cpp::tkOpenParen) return writeCall();
        return writeDefault();
    case Cpp::tkTemplate:
    case Cpp::tkIdentifier:
        if (next() == Cpp::tkOpenParen) return writeCall();
        if (next() == Cpp::tkLess) return writeAngle();
        return writeDefault();
    default: writeDefault(); break;
    }
}

/// An element of a list behind a comment or a directive that ended its line.
void ExprWalk::alignElement() {
    const int kind = tokens_.kind(at_);
    const bool byLine = kind != Cpp::tkDirective || (place_.found && !place_.leftMost);
    const bool startsLine = tokens_.endsLine(at_ - 1) || hasLineFeed(tokens_.gap(at_));
    frame().alignsNext = Cpp::isCommentOrDirective(kind);
    if (byLine && startsLine) startLineInColumn(at_, frame().alignColumn);
}

/// Comments and directives go out at once; the last of them becomes the current token.
void ExprWalk::skipComments() {
    for (; hasNext() && Cpp::isCommentOrDirective(next()); ++at_) {
        if (next() == Cpp::tkDirective) copyDirective(at_ + 1);
    }
}

void ExprWalk::writeDefault() {
    if (writeClosureTemplate()) return;
    const std::size_t left = at_;
    skipComments();
    if (!hasNext()) {
        ++at_;
    } else if (opensOperand(left)) {
        writeBehindOpener(left);
    } else if (isMark(at_ + 1) || declaresPointer()) {
        writePointer();
    } else if (Base::isBinaryOperator(next()) && next() != Cpp::tkTilde) {
        writeOperator(left);
    } else {
        ++at_;
    }
}

/// True if what follows the token is an operand, so that an operator there is a prefix.
bool ExprWalk::opensOperand(std::size_t index) const {
    const int kind = tokens_.kind(index);
    switch (kind) {
    case Cpp::tkSemicolon:
    case Cpp::tkOpenBrace: return true;
    // Behind a block that ends a line another statement starts. Where operators break lines too
    // that shows nothing.
    case Cpp::tkCloseBrace:
        return hasLineFeed(tokens_.gap(index + 1)) && !options_.aroundOperator.breaksLine();
    case Cpp::tkGreater: return false;
    case Cpp::tkIncrement:
    case Cpp::tkDecrement: return index == 0 || !endsOperand(tokens_.kind(index - 1));
    // Part of the name of a member that is pointed to, as in "int A::*p".
    case Cpp::tkIdentifier: {
        const std::string_view name = trimmedRight(tokens_.token(index));
        return isCoroutineWord(name) || (name.ends_with("::") && isMarkOrReference(kindAt(index + 1)));
    }
    default: return Base::isBinaryOperator(kind) || isOperandKeyword(kind);
    }
}

void ExprWalk::writeBehindOpener(std::size_t opener) {
    const int kind = tokens_.kind(opener);
    noteOperator(kind);
    // A "~" stays with what it negates.
    if (opener == at_ && Base::isBinaryOperator(kind) && kind != Cpp::tkTilde) return writeOperand(at_ + 1);
    ++at_;
    const bool sameLine = !hasLineFeed(tokens_.gap(at_));
    if (kind == Cpp::tkSemicolon && sameLine && Base::isBinaryOperator(tokens_.kind(at_))) {
        decide(at_, options_.aroundOperator);
    }
}

/// The binary operator behind the current token. `left` is the operand, which comments may follow.
void ExprWalk::writeOperator(std::size_t left) {
    decide(++at_, options_.aroundOperator);
    const int kind = tokens_.kind(at_);
    noteOperator(kind);
    if (kind == Cpp::tkAssign && writeBraces(at_)) return;
    // No operator, but the end of a type: "(char **)", "<A *, B>".
    const bool isType = endsType(tokens_.kind(left)) || closesOperands(next());
    if (!hasNext() || (isType && isMarkOrReference(kind))) {
        ++at_;
    } else {
        writeOperand(at_ + 1);
    }
}

/// The gap between an operator and its right operand. A comment there keeps its place.
void ExprWalk::writeOperand(std::size_t operand) {
    const bool isComment = Cpp::isCommentOrDirective(tokens_.kind(operand));
    if (!isComment || tokens_.gap(operand).empty()) decide(operand, options_.aroundOperator);
    at_ = operand;
}

/// In a declaration what follows is an expression: up to the next declarator behind "=" or ":", for
/// good behind the ";" in the head of a loop.
void ExprWalk::noteOperator(int kind) {
    if (kind == Cpp::tkAssign || kind == Cpp::tkColon) frame().assigned = true;
    if (kind == Cpp::tkSemicolon) frame().declaration = false;
}

/// A brace that no "=" precedes: the body of a lambda or a list of values.
void ExprWalk::writeBlock() {
    if (tokens_.opensCode(at_)) return writeCode();
    const std::size_t close = mateInFrame(at_);
    if (isList(at_, close)) return writeList(close);
    writeClosureBrace();
    // Behind an operator the closing brace could be drawn up to the line before.
    if (close != ExprTokens::kNone && !output_.keepLeadingWs() && isStatementEnd(tokens_.kind(close - 1))) {
        settle();
        copier_.copyTo(tokens_.end(at_));
        copier_.keepShapeUpTo(close);
    }
    writeDefault();
}

/// Its brace stands at the line in which the closure begins, if it starts a line.
void ExprWalk::writeCode() {
    settle();
    copier_.copyTo(tokens_.gapBegin(at_));
    const int column = copier_.codeColumn(at_);
    const bool isPlaced = tokens_.opensClosure(at_) && options_.beforeClosureBrace.set && column >= 0;
    const bool ownsLine = !output_.keepLeadingWs() && !output_.shape().kept && hasLineFeed(tokens_.gap(at_));
    if (isPlaced) decide(at_, options_.beforeClosureBrace.value, Place::kColumn, column);
    else if (ownsLine && column >= 0) startLineInColumn(at_, column);
    ++at_;
    writeDefault();
}

void ExprWalk::joinStrings() {
    if (next() != Cpp::tkStringLiteral) return writeDefault();
    if (options_.joinsStrings) decide(at_ + 1, " ");
    ++at_;
}

bool ExprWalk::isMark(std::size_t index) const {
    if (!isDeclaration()) return false;
    const int left = tokens_.kind(at_);
    const bool isType = endsType(left) || left == Cpp::tkIdentifier || left == Cpp::tkGreater;
    // Between brackets "&&" is far more often an operator.
    const bool isReference = kindAt(index) == Cpp::tkLogicalAnd && frame().group == ExprGroup::kText;
    return (isType || Cpp::isComment(left)) && (Base::isPointerOperator(kindAt(index)) || isReference);
}

} // namespace Norvane
