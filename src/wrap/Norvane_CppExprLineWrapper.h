#ifndef KERFLINE_NORVANE_CPPEXPRLINEWRAPPER_H
#define KERFLINE_NORVANE_CPPEXPRLINEWRAPPER_H

#include "src/expr/Norvane_CppExprFormatterBase.h"
#include "src/scheme/Norvane_OptionalString.h"
#include "streams/Zelmar_IndentWriter.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace Norvane {

class FirstWrapToken;
class GroupFinder;
class WrapKinds;
class WrapLayout;
struct WrapRange;

/// Breaks the text of an expression that runs past RIGHT_MARGIN.
///
/// Breaks are tried at the weakest binding first, and the text is measured again after each kind, so
/// a coarse break that is enough keeps the finer operators whole:
///
///     arguments of a call, "," , "<<" and ">>", "&&" and "||", other operators, casts
///
/// Where the new lines start is up to WRAP_STYLE: at column 0, under the first element, or at the
/// indent and WRAP_INDENT. No new line starts behind the margin, where it could only be too long.
/// Only white space changes. What can't be broken stays too long: nothing is broken inside a token,
/// a line comment keeps its line end and a directive its line.
///
/// A text that fits comes out as it is, but that adjacent string literals get a line each. With
/// LINE_WRAP off or a margin below 1 every text comes out as it is. The cost is in step with the
/// length of the text, however its brackets nest.
class CppExprLineWrapper : public CppExprFormatterBase {
public:
    explicit CppExprLineWrapper(SharedOptions options) : CppExprFormatterBase(std::move(options)) {}
    explicit CppExprLineWrapper(const PropertySet& scheme) : CppExprLineWrapper(readOptions(scheme)) {}

    /// Breaks an expression that stands at the column of `state`. `flag` tells that the text is one of
    /// several parts; no rule asks for it. With `noWrapIndent` WRAP_INDENT is not added to the indent.
    /// `follower` is what comes behind the text on the same line and can't leave it, such as ");".
    std::string wrap(const std::string& text, const Zelmar::IndentStreamState& state, bool flag,
                     bool noWrapIndent, std::string_view follower = {});
    /// Breaks the elements of a comma list by LIST_WRAP_STRATEGY: not at all, so that a line takes as
    /// many as fit, or one to a line as an expression.
    std::string wrapList(const std::string& text, const Zelmar::IndentStreamState& state, bool noWrapIndent,
                         std::string_view follower = {});
    /// The same for lists whose new lines start at the indent of `state`, whatever WRAP_STYLE says.
    std::string wrapRows(const std::string& text, const Zelmar::IndentStreamState& state,
                         std::string_view follower = {});
    /// True if LIST_WRAP_STRATEGY has a line take as many elements as fit.
    bool fillsLists() const { return isOn() && rules().listStrategy == ListStrategy::kFillLines; }
    /// Breaks several parts side by side, such as the clauses of a "for": behind each ";", and then
    /// each part that is still too long as an expression.
    std::string wrapStatementParts(const std::string& text, const Zelmar::IndentStreamState& state,
                                   std::string_view follower = {});

    /// True if no line of the text is beyond the margin, with the first one at the column of `state` and
    /// `follower` behind the last one. Looks at the characters only.
    bool fits(std::string_view text, const Zelmar::IndentStreamState& state, std::string_view follower) const;

private:
    const WrapOptions& rules() const { return options().wrap; }
    bool isOn() const { return rules().isOn; }

    // The steps of an expression, from the weakest binding to the strongest.
    void wrapRange(WrapLayout& layout, const WrapRange& range) const;
    void wrapExpression(WrapLayout& layout, const WrapRange& range, const std::string& indent) const;
    void wrapCasts(WrapLayout& layout, const WrapRange& range, const std::string& indent) const;
    void wrapCalls(WrapLayout& layout, const WrapRange& range, std::size_t depth) const;
    void wrapGroups(WrapLayout& layout, const WrapRange& range, std::size_t depth) const;
    void wrapBraces(WrapLayout& layout, const WrapRange& range) const;
    void wrapNested(WrapLayout& layout, const WrapRange& range) const;
    void wrapGroup(WrapLayout& layout, const GroupFinder& group) const;
    void wrapTails(WrapLayout& layout, const WrapRange& range) const;
    bool mayGain(const WrapLayout& layout, const GroupFinder& group) const;

    // Breaks at all places that a finder knows.
    void wrapAt(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder, bool afterOperator,
                const std::string& indent) const;
    void breakBehind(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder,
                     const std::string& indent) const;
    void breakInFront(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder,
                      const std::string& indent) const;
    void hangInFront(WrapLayout& layout, std::size_t index, const std::string& indent, int column) const;

    // Breaks where the next piece doesn't fit on the line.
    void wrapShifts(WrapLayout& layout, const WrapRange& range, const std::string& indent) const;
    void wrapListElements(WrapLayout& layout) const;
    void fillBehind(WrapLayout& layout, const WrapRange& range, FirstWrapToken& finder,
                    const std::string& newLine) const;
    void breakStrings(WrapLayout& layout, const WrapRange& range) const;

    std::string groupIndent(const WrapLayout& layout, const GroupFinder& group) const;
    std::string newLineAt(const WrapLayout& layout, const std::string& indent, int column) const;
    std::string indentTo(const WrapLayout& layout, const std::string& indent, int column) const;
    static std::string converted(const WrapLayout& layout, const std::string& indent);

    // For the length of a call.
    bool noWrapIndent_ = false;
    bool startsAtIndent_ = false;
};

} // namespace Norvane

#endif
