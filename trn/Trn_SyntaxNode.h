#ifndef KERFLINE_TRN_SYNTAXNODE_H
#define KERFLINE_TRN_SYNTAXNODE_H

#include "trn/Trn_Position.h"

namespace Trn {

/// A node of a syntax tree, as far as every language has one: an inclusive extent in the source.
class SyntaxNode {
public:
    virtual ~SyntaxNode() = default;
    virtual void setStart(const Position& position) = 0;
    virtual Position start() const = 0;
    virtual void setEnd(const Position& position) = 0;
    virtual Position end() const = 0;

protected:
    SyntaxNode() = default;
    SyntaxNode(const SyntaxNode&) = default;
    SyntaxNode& operator=(const SyntaxNode&) = default;
};

} // namespace Trn

#endif
