#include "src/expr/Norvane_ExprWalk.h"

namespace Norvane {

/// The current token is a "<", or a name in front of one.
void ExprWalk::writeAngle() {
    const bool hasName = tokens_.kind(at_) != Cpp::tkLess;
    const std::size_t open = hasName ? at_ + 1 : at_;
    const std::size_t close = mateInFrame(open);
    if (close != ExprTokens::kNone) return writeTemplateArgs(open, close);
    if (hasName) decide(open, options_.aroundOperator);
    at_ = open;
    if (hasNext()) {
        writeOperand(open + 1);
    } else {
        ++at_;
    }
}

void ExprWalk::writeTemplateArgs(std::size_t open, std::size_t close) {
    const BracketStyle& style = options_.angles;
    at_ = open;
    if (close == open + 1) {
        if (style.isSet()) decide(close, std::string_view());
        at_ = close;
        return;
    }
    decide(open + 1, style.afterOpen);
    pushGroup(ExprGroup::kTemplateArgs, open, close, style);
    if (!options_.templateArgs.isSet()) return;
    frame().list = &options_.templateArgs;
    frame().separator = nullptr;
    frame().assigned = false;
}

void ExprWalk::writeNamedCast() {
    skipComments();
    ++at_;
    if (at_ < frame().end && tokens_.kind(at_) == Cpp::tkLess) {
        openGroup(ExprGroup::kCast, options_.angles, options_.callArgs);
    }
}

} // namespace Norvane
