#ifndef KERFLINE_NORVANE_CPPEXPRFORMATTERBASE_H
#define KERFLINE_NORVANE_CPPEXPRFORMATTERBASE_H

#include "src/Norvane_OptionalString.h"
#include "src/Norvane_PropertySet.h"
#include "streams/Zelmar_IndentWriter.h"
#include "streams/Zelmar_SourceText.h"
#include "trn/Trn_Position.h"

#include <string>

namespace Norvane {

/// What the layout of expressions and their wrapping share: the scheme, the classes of tokens, the
/// two list formatters and the two formatters for tokens that span lines. Text in, text out:
/// whatever no rule touches comes out byte for byte.
class CppExprFormatterBase {
public:
    /// Takes a private, normalised copy of `scheme`.
    explicit CppExprFormatterBase(const PropertySet& scheme);

    /// Puts white space around each `separatorKind` of `text` at bracket depth 0, and lines the
    /// elements up in the column of the first where a value breaks the line.
    virtual std::string formatAlignedList(const std::string& text, int separatorKind,
                                          const OptionalString& wsBefore, const OptionalString& wsBetween,
                                          const Zelmar::IndentStreamState& state);
    /// The same without the column.
    virtual std::string formatList(const std::string& text, int separatorKind,
                                   const OptionalString& wsBefore, const OptionalString& wsBetween,
                                   const Zelmar::IndentStreamState& state);
    /// Copies the token at `start` to `end` and moves its further lines with its first one.
    virtual void formatMultiLineToken(const Trn::Position& start, const Trn::Position& end,
                                      Zelmar::SourceReader& input, Zelmar::IndentWriter& output);
    /// Copies a directive and decides its column by ALIGN_PPD_LEFT_MOST and LEFT_MARGIN.
    virtual void formatDirective(const Trn::Position& start, const Trn::Position& end,
                                 Zelmar::SourceReader& input, Zelmar::IndentWriter& output);

    static bool isBinaryOperator(int kind);
    static bool isPointerOperator(int kind);
    static bool isBuiltinType(int kind);
    static bool isAssignmentOrEnd(int kind);

protected:
    ~CppExprFormatterBase() = default;

    PropertySet props_;
    int tabSize_ = 1;
    OptionalString leftMargin_;
    bool ppdFound_ = false;
    bool ppdLeftMost_ = false;
};

} // namespace Norvane

#endif
