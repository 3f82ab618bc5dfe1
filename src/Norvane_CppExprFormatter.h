#ifndef KERFLINE_NORVANE_CPPEXPRFORMATTER_H
#define KERFLINE_NORVANE_CPPEXPRFORMATTER_H

#include "src/Norvane_CppExprFormatterBase.h"

#include <string>
#include <string_view>

namespace Norvane {

/// Applies the white-space options of a scheme to the text of one expression, initialiser or
/// declarator. The text is tokenised here; no tree is used.
class CppExprFormatter : public CppExprFormatterBase {
public:
    explicit CppExprFormatter(const PropertySet& scheme);

    /// Returns `text` laid out as it would stand at `state`.
    std::string format(const std::string& text, const Zelmar::IndentStreamState& state);
    /// The same under the rules of declarations: "*" and "&" behind a type are pointer marks, and
    /// `separator` is the white space between a type and a declared name.
    std::string formatDeclaration(const std::string& text, const Zelmar::IndentStreamState& state,
                                  const OptionalString& separator);
    /// Lines up the assignment operators of consecutive lines.
    std::string alignAssignments(const std::string& text, const Zelmar::IndentStreamState& state);

    /// Lays `text` out straight into `output`, as writing the result of format raw would, without
    /// the scratch text in between. The hot path: most of a source is expressions.
    void formatTo(std::string_view text, Zelmar::IndentWriter& output);
    void formatDeclarationTo(std::string_view text, Zelmar::IndentWriter& output, const OptionalString& separator);
};

} // namespace Norvane

#endif
