#ifndef KERFLINE_CPP_BRACECLASSIFIER_H
#define KERFLINE_CPP_BRACECLASSIFIER_H

#include "cpp/Cpp_TokenTable.h"

#include <cstdint>
#include <vector>

namespace Cpp {

/// What a pair of braces holds.
enum class Brace : std::uint8_t {
    None,         // no "{", or one that nothing closes
    Block,        // statements, or the body of a function or a namespace
    Class,        // members
    Enumerators,
    Linkage,      // what stands behind extern "C"
    Values,       // a list of values, wherever an expression stands
    Closure,      // the statements of "[](int x) { ... }"
    Statements,   // those of "({ ... })", and code among the arguments of a macro
    Requirements, // those of "requires (T t) { ... }"
};

/// Braces that are a part of the expression or declarator in which they stand.
constexpr bool isInExpression(Brace brace) { return brace >= Brace::Values; }
/// Of these, braces that hold statements.
constexpr bool holdsCode(Brace brace) { return brace >= Brace::Closure; }

/// Tells of every "{" of a table what its braces hold.
///
///     x = T{1};  f([] { a(); });  if (b) { }  FOO(x) { }      // values, closure, block, block
///
/// One pass over the tokens, which knows of each bracket that it is in how the statement there
/// began. It decides by the token in front of a brace, by whether the braces hold statements at all,
/// and at times by what follows them: names tell nothing, since nobody knows what they name. Cost
/// grows in step with the text, and no nesting is too deep.
class BraceClassifier {
public:
    using Index = TokenTable::Index;

    /// `table` is only read, and not needed afterwards.
    explicit BraceClassifier(const TokenTable& table);

    Brace kind(Index i) const { return kinds_[i]; }
    /// The first token of the expression that ends in the braces at `i`: the "[" of a closure, the
    /// word "requires", the brace itself elsewhere.
    Index head(Index i) const;
    /// The braces that hold code within an expression, in the order of the text.
    const std::vector<Index>& codeBraces() const { return codeBraces_; }

private:
    class Pass;

    std::vector<Brace> kinds_;
    std::vector<Index> codeBraces_;
    std::vector<Index> heads_; // one for each of codeBraces_
};

} // namespace Cpp

#endif
