#ifndef KERFLINE_NORVANE_EXPRWALK_H
#define KERFLINE_NORVANE_EXPRWALK_H

#include "src/expr/Norvane_CppExprFormatterBase.h"
#include "src/expr/Norvane_ExprCopier.h"
#include "src/expr/Norvane_ExprTokens.h"
#include "src/scheme/Norvane_ExprOptions.h"
#include "streams/Zelmar_IndentWriter.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace Norvane {

/// What a bracketed group is, or the whole text.
enum class ExprGroup { kText, kParens, kCall, kSquares, kTemplateArgs, kCast, kInitialiser, kList };

/// One bracketed group that the walk is in. Groups stand on a stack of their own, not on the
/// program's: brackets nest as deep as the text likes.
struct ExprFrame {
    ExprGroup group = ExprGroup::kText;
    /// The bracket that opened it.
    std::size_t open = 0;
    /// The token that closes the group; the number of tokens for the whole text.
    std::size_t end = 0;
    /// "*" and "&" behind a type are marks of a declaration here, not operators.
    bool declaration = false;
    /// Behind the "=" of a declarator, where expressions stand.
    bool assigned = false;
    /// The white space between a type and a declared name; null if the source decides.
    const OptionalString* separator = nullptr;
    /// Null if the white space in front of the closing bracket is that of the source.
    const OptionalString* beforeClose = nullptr;
    /// Null if the elements are laid out as in the source.
    const ListStyle* list = nullptr;
    /// The elements line up in `alignColumn` wherever a value of the list breaks the line.
    bool aligned = false;
    /// The next element starts behind a comment or a directive that ended its line.
    bool alignsNext = false;
    int alignColumn = 0;
    /// Depths of all families at the first token of the group.
    BracketDepths depths;
    /// What an initialiser gives back to the writer if it has added to the indent: how long that
    /// was, and whether leading white space was kept.
    bool addedIndent = false;
    std::size_t indentLength = 0;
    bool keepLeadingWs = false;
    Zelmar::LineShape shape;
    /// The column of the line in which such an initialiser opens.
    int lineColumn = 0;
};

/// Lays out the tokens of one text in one pass. Every rule decides about the gap in front of a
/// token; a gap that no rule speaks of is copied with the tokens around it. A decision stays open
/// until the next one, so that a list can still overrule what an operator said about the gap in
/// front of a comma.
class ExprWalk {
public:
    /// `frames` is only lent for its memory.
    ExprWalk(const ExprOptions& options, const DirectivePlace& place, const ExprTokens& tokens,
             std::vector<ExprFrame>& frames, Zelmar::IndentWriter& output, ExprCode* code);

    /// Walks the whole text. `separator` is null outside a declaration. With `isCall` the text begins
    /// with the parentheses of a call, whose name stands in front of it.
    void run(const OptionalString* separator, bool isCall = false);

private:
    // Where a value goes: by the rules of the writer, exactly, or at the start of a line that
    // begins in a column of its own.
    enum class Place { kPlain, kExact, kColumn };
    struct Decision {
        std::size_t index = ExprTokens::kNone;
        std::string_view value;
        Place place = Place::kPlain;
        int column = 0;
    };

    // Decisions and copying.
    void decide(std::size_t index, std::string_view value, Place place = Place::kPlain, int column = 0);
    void decide(std::size_t index, const OptionalString& ws);
    void settle();
    void settleInColumn(const Decision& decision);
    void startLineInColumn(std::size_t index, int column);
    void writeFirstChar(std::size_t index);
    void copyDirective(std::size_t index);
    void finish();

    // What stands at the current token.
    ExprFrame& frame() { return frames_.back(); }
    const ExprFrame& frame() const { return frames_.back(); }
    bool hasNext() const { return at_ + 1 < frame().end; }
    int kindAt(std::size_t index) const;
    int next() const { return kindAt(at_ + 1); }
    std::size_t mateInFrame(std::size_t index) const;
    bool isDeclaration() const { return frame().declaration && !frame().assigned; }
    const BracketDepths& depthsAt(std::size_t index);

    // The rules, by the current token.
    void writeElement();
    void alignElement();
    void skipComments();
    void writeDefault();
    bool opensOperand(std::size_t index) const;
    void writeBehindOpener(std::size_t opener);
    void writeOperator(std::size_t left);
    void writeOperand(std::size_t operand);
    void noteOperator(int kind);
    void writeBlock();
    void writeCode();
    void writeClosureBrace();
    void writeBehindCaptures(std::size_t open);
    bool isCaptureDefault() const;
    bool writeClosureTemplate();
    bool isList(std::size_t open, std::size_t close) const;
    void writeList(std::size_t close);
    void enterList(std::size_t open, std::size_t close, ExprGroup group);
    bool writeValueComma();
    void joinStrings();

    // Commas.
    void writeComma();
    void endDeclarator();
    bool isListComma();
    bool isInColumn() const;
    void writeListComma();
    void decideBehindComma(std::size_t next, int column);
    int hangingColumnAt(std::size_t comma) const;
    std::string_view blanksBehindComma(const ListStyle& list, std::size_t next) const;

    // Brackets.
    void openGroup(ExprGroup group, const BracketStyle& style, const ListStyle& list);
    void pushGroup(ExprGroup group, std::size_t open, std::size_t close, const BracketStyle& style);
    void useList(const ListStyle& list);
    void alignList(const ListStyle& list);
    bool declaresInGroup(ExprGroup group, std::size_t open, std::size_t close) const;
    void closeGroup();
    void writeBehindParens(std::size_t open);
    bool holdsTypeOnly(std::size_t open, std::size_t close) const;
    bool isCast(std::size_t open, std::size_t close) const;
    void writeCall();
    void writeArguments();

    // Templates and named casts.
    void writeAngle();
    void writeTemplateArgs(std::size_t open, std::size_t close);
    void writeNamedCast();

    // Pointers.
    bool isMark(std::size_t index) const;
    bool declaresPointer() const;
    const PointerStyle& pointerStyle(std::size_t mark) const;
    std::size_t lastMark(std::size_t first) const;
    void writePointer();
    void anchorPointer(const PointerStyle& style, std::size_t first, std::size_t last);

    // Initialisers.
    void writeAssignment();
    bool writeBraces(std::size_t assign);
    void enterBraces(std::size_t open, std::size_t close);
    void leaveBraces(const ExprFrame& left);
    bool startsLine(std::size_t index) const;
    void anchorRow(std::size_t index);

    const ExprOptions& options_;
    const DirectivePlace& place_;
    const ExprTokens& tokens_;
    std::vector<ExprFrame>& frames_;
    ExprCode* code_;
    Zelmar::IndentWriter& output_;
    ExprCopier copier_;
    std::size_t at_ = 0;
    Decision open_;
    // Brackets in front of token counted_, brought forward as the lists ask for them.
    BracketDepths depths_;
    std::size_t counted_ = 0;
    // The "(" of the last lambda, and the "]" behind which its "<" stands.
    std::size_t lambdaParams_ = ExprTokens::kNone;
    std::size_t templateCaptures_ = ExprTokens::kNone;
    // Initialisers the walk is in.
    int indentedBraces_ = 0;
};

} // namespace Norvane

#endif
