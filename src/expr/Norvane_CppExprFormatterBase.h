#ifndef KERFLINE_NORVANE_CPPEXPRFORMATTERBASE_H
#define KERFLINE_NORVANE_CPPEXPRFORMATTERBASE_H

#include "src/expr/Norvane_ExprTokens.h"
#include "src/scheme/Norvane_LayoutOptions.h"
#include "src/scheme/Norvane_OptionalString.h"
#include "streams/Zelmar_IndentWriter.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Position.h"

#include <string>
#include <string_view>
#include <utility>

namespace Norvane {

/// Writes `token`, which may span lines, and moves its further lines with its first one: they lose
/// the white space in front of `sourceColumn`, where the token stood in the source, and get the
/// column where it stands now. Columns count from 0 with tabs expanded. A token that has not moved,
/// or whose column is not known (below 0), keeps its lines as they are.
void writeMovedToken(std::string_view token, int sourceColumn, Zelmar::IndentWriter& output);
/// Writes `gap`, the white space in front of a directive, and the directive itself.
void writeDirective(std::string_view gap, std::string_view directive, int sourceColumn,
                    const DirectivePlace& place, Zelmar::IndentWriter& output);

/// What the layout of expressions and their wrapping share: the scheme, the classes of tokens, the
/// two list formatters and the two formatters for tokens that span lines. Text in, text out:
/// whatever no rule touches comes out byte for byte.
class CppExprFormatterBase {
public:
    explicit CppExprFormatterBase(SharedOptions options) : options_(std::move(options)) {}

    /// Puts white space around each `separatorKind` of `text` at bracket depth 0, and lines the
    /// elements up in the column of the first where a value breaks the line. Angle brackets count
    /// as brackets: a lone "<" or ">" hides every later separator. Comments keep their places, a
    /// line comment or a directive its line feed.
    virtual std::string formatAlignedList(const std::string& text, int separatorKind,
                                          const OptionalString& wsBefore, const OptionalString& wsBetween,
                                          const Zelmar::IndentStreamState& state);
    /// The same without the column.
    virtual std::string formatList(const std::string& text, int separatorKind,
                                   const OptionalString& wsBefore, const OptionalString& wsBetween,
                                   const Zelmar::IndentStreamState& state);
    /// Copies what lies in front of the token that runs from `start` to `end`, and the token, and
    /// moves the token's further lines with its first one.
    virtual void formatMultiLineToken(const Trn::Position& start, const Trn::Position& end,
                                      Zelmar::SourceReader& input, Zelmar::IndentWriter& output);
    /// Copies a directive and decides its column by ALIGN_PPD_LEFT_MOST and LEFT_MARGIN.
    virtual void formatDirective(const Trn::Position& start, const Trn::Position& end,
                                 Zelmar::SourceReader& input, Zelmar::IndentWriter& output);

    /// The tokens that WS_BETWEEN_EXPR_OP_OPERANDS surrounds. "~" is one of them.
    static bool isBinaryOperator(int kind);
    /// "*" and "&".
    static bool isPointerOperator(int kind);
    /// The keywords from `char` to `void`.
    static bool isBuiltinType(int kind);
    /// "=", the compound assignments and the end of the input.
    static bool isAssignmentOrEnd(int kind);

protected:
    ~CppExprFormatterBase() = default;
    CppExprFormatterBase(const CppExprFormatterBase&) = default;
    CppExprFormatterBase& operator=(const CppExprFormatterBase&) = default;

    const LayoutOptions& options() const { return *options_; }

private:
    std::string writeList(std::string_view text, int separatorKind, bool aligned,
                          const OptionalString& wsBefore, const OptionalString& wsBetween,
                          const Zelmar::IndentStreamState& state);

    SharedOptions options_;
    // Kept for its memory: lists are laid out gap by gap.
    ExprTokens listTokens_;
};

} // namespace Norvane

#endif
