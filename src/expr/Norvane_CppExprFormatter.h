#ifndef KERFLINE_NORVANE_CPPEXPRFORMATTER_H
#define KERFLINE_NORVANE_CPPEXPRFORMATTER_H

#include "src/expr/Norvane_CppExprFormatterBase.h"
#include "src/expr/Norvane_ExprTokens.h"
#include "src/expr/Norvane_ExprWalk.h"

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Norvane {

/// Applies the white-space options of a scheme to the text of one expression, initialiser or
/// declarator. The text is tokenised here; no tree is used.
///
///     f(a,b)+-1;      f(a, b) + -1;
///     int*p={1,2};    int *p = {1, 2};
///
/// A value of the scheme takes the place of the white space between two tokens, line feeds
/// included, and one blank stays where two tokens would read as one without it. Comments and
/// directives keep their places, and the line feeds that end them. A text that has been laid out
/// is not changed by being laid out again at the same place.
///
/// An object lays out one text at a time; it keeps its buffers for the next. Time and memory grow
/// in step with the text, however deep its brackets nest.
class CppExprFormatter : public CppExprFormatterBase {
public:
    explicit CppExprFormatter(SharedOptions options) : CppExprFormatterBase(std::move(options)) {}
    explicit CppExprFormatter(const PropertySet& scheme) : CppExprFormatter(readOptions(scheme)) {}

    /// Returns `text` laid out as it would stand at `state`.
    std::string format(const std::string& text, const Zelmar::IndentStreamState& state);
    /// The same under the rules of declarations: "*" and "&" behind a type are pointer marks, and
    /// `separator` is the white space between a type and a declared name. Behind a "=" stands an
    /// expression, and in brackets where no keyword tells of a type.
    std::string formatDeclaration(const std::string& text, const Zelmar::IndentStreamState& state,
                                  const OptionalString& separator);
    /// Lines up the assignment operators of consecutive lines. The first on each line counts.
    std::string alignAssignments(const std::string& text, const Zelmar::IndentStreamState& state);

    /// What lays out the code in the texts to come; none if null. Not owned, and may lay out texts
    /// by this object in its turn.
    void setCode(ExprCode* code) { code_ = code; }

    /// Lays `text` out straight into `output`, as writing the result of format raw would, without
    /// the scratch text in between. The hot path: most of a source is expressions.
    void formatTo(std::string_view text, Zelmar::IndentWriter& output);
    void formatDeclarationTo(std::string_view text, Zelmar::IndentWriter& output,
                             const OptionalString& separator);
    /// The same for the parentheses of a call whose name stands in front of them.
    void formatCallTo(std::string_view text, Zelmar::IndentWriter& output, const OptionalString& separator);

private:
    /// Empty of meaning between two calls.
    struct Buffers {
        ExprTokens tokens;
        std::vector<ExprFrame> frames;
    };

    void walk(std::string_view text, Zelmar::IndentWriter& output, const OptionalString* separator, bool isCall);
    bool needsWalk(std::string_view text) const;
    Buffers& buffers();

    ExprCode* code_ = nullptr;
    // One for each text that is being laid out: code in one text holds others.
    std::deque<Buffers> buffers_;
    std::size_t depth_ = 0;
};

} // namespace Norvane

#endif
