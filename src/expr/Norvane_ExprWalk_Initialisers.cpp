#include "src/expr/Norvane_ExprWalk.h"

#include "src/expr/Norvane_Gap.h"

namespace Norvane {

namespace {

// Initialisers nested deeper add no more to the indent: with every level the lines would get longer
// than anyone can read, and with brackets in brackets the white space would outgrow the text by far.
constexpr int kMaxIndentedBraces = 200;

} // namespace

void ExprWalk::writeAssignment() {
    if (isCaptureDefault()) {
        ++at_;
        return;
    }
    noteOperator(Cpp::tkAssign);
    if (!writeBraces(at_)) writeDefault();
}

/// Writes the opening brace behind `assign` and enters its group. Returns false if there is none.
bool ExprWalk::writeBraces(std::size_t assign) {
    std::size_t open = assign + 1;
    while (Cpp::isCommentOrDirective(kindAt(open))) ++open;
    if (kindAt(open) != Cpp::tkOpenBrace || tokens_.opensCode(open)) return false;
    skipComments();
    decide(open, options_.beforeInitBrace);
    at_ = open;
    const std::size_t close = mateInFrame(open);
    if (close == ExprTokens::kNone) {
        ++at_;
    } else if (close == open + 1) {
        if (options_.initBraces.isSet() || options_.listBraces.isSet()) decide(close, std::string_view());
        at_ = close;
    } else {
        enterBraces(open, close);
    }
    return true;
}

/// The value behind the brace still goes by the indent of what stands outside.
void ExprWalk::enterBraces(std::size_t open, std::size_t close) {
    const bool keepsComment =
        tokens_.kind(open + 1) == Cpp::tkLineComment && !hasLineFeed(tokens_.gap(open + 1));
    if (!keepsComment) decide(open + 1, options_.initBraces.afterOpen);
    if (options_.initBraces.isSet()) {
        settle();
        copier_.copyTo(tokens_.end(open));
        pushGroup(ExprGroup::kInitialiser, open, close, options_.initBraces);
    } else {
        enterList(open, close, ExprGroup::kInitialiser);
    }
    if (options_.initElements.isSet()) frame().list = &options_.initElements;
    const bool isDeep = ++indentedBraces_ > kMaxIndentedBraces;
    if (isDeep || !options_.initIndent.set || copier_.keepsShape()) return;
    // Elements that begin on the line of the brace have the shape that the author gave them.
    const bool breaks = startsLine(open + 1) || options_.initBraces.afterOpen.breaksLine() || keepsComment;
    if (output_.shape().kept && !breaks) return;
    frame().addedIndent = true;
    frame().lineColumn = output_.lineIndent();
    frame().shape = output_.shape();
    frame().indentLength = output_.indent().size();
    frame().keepLeadingWs = output_.keepLeadingWs();
    output_.setIndent(output_.indent() + options_.initIndent.value);
    output_.setKeepLeadingWs(false);
    anchorRow(open + 1);
}

bool ExprWalk::startsLine(std::size_t index) const {
    return tokens_.endsLine(index - 1) || hasLineFeed(tokens_.gap(index));
}

/// A row of an initialiser stands at the indent and takes its further lines along; so do the comments
/// in front of it.
void ExprWalk::anchorRow(std::size_t index) {
    if (!output_.shape().kept) return;
    for (; index < frame().end; ++index) {
        if (startsLine(index) && tokens_.kind(index) != Cpp::tkDirective) copier_.anchorLine(index);
        if (!Cpp::isCommentOrDirective(tokens_.kind(index))) return;
    }
}

/// A closing brace on a line of its own stands below the line of its partner.
void ExprWalk::leaveBraces(const ExprFrame& left) {
    settle();
    copier_.copyTo(tokens_.gapBegin(left.end));
    --indentedBraces_;
    if (!left.addedIndent) return;
    output_.setIndent(output_.indent().substr(0, left.indentLength));
    output_.setKeepLeadingWs(left.keepLeadingWs);
    if (left.shape.kept) output_.setShape(left.shape);
    const bool placed = left.beforeClose && !copier_.staysBroken(left.end, left.beforeClose->value);
    if (!placed && !left.keepLeadingWs && startsLine(left.end)) startLineInColumn(left.end, left.lineColumn);
}

} // namespace Norvane
