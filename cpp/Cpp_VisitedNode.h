#ifndef KERFLINE_CPP_VISITEDNODE_H
#define KERFLINE_CPP_VISITEDNODE_H

#include "cpp/Cpp_Emitter.h"
#include "cpp/Cpp_SyntaxNode.h"

#include <initializer_list>

namespace Cpp {

/// Gives `Node` what every concrete node needs: the visit of its own class, and a deep copy made by
/// its copy constructor. Put between a node and the class that it is derived from.
template <class Node, class Base> class VisitedNode : public Base {
public:
    using Base::Base;
    VisitedNode() = default;

    void accept(Emitter& emitter) override { emitter.visit(static_cast<Node&>(*this)); }
    SyntaxNode* clone() const override { return new Node(static_cast<const Node&>(*this)); }
};

/// The first or last of `nodes` that is there, or null.
inline SyntaxNode* firstPresent(std::initializer_list<SyntaxNode*> nodes) {
    for (SyntaxNode* node : nodes) {
        if (node != nullptr) return node;
    }
    return nullptr;
}
inline SyntaxNode* lastPresent(std::initializer_list<SyntaxNode*> nodes) {
    SyntaxNode* last = nullptr;
    for (SyntaxNode* node : nodes) {
        if (node != nullptr) last = node;
    }
    return last;
}

/// A node with named children, each of which may be missing. Its extent runs from the first child
/// that is there to the last one; with none it has no extent, and setting one does nothing.
/// `Node` says by firstChild() and lastChild() which these are.
template <class Node, class Base> class PartsNode : public VisitedNode<Node, Base> {
public:
    void setStart(const Trn::Position& position) override {
        if (SyntaxNode* node = self().firstChild()) node->setStart(position);
    }
    Trn::Position start() const override {
        const SyntaxNode* node = self().firstChild();
        return node != nullptr ? node->start() : Trn::Position();
    }
    void setEnd(const Trn::Position& position) override {
        if (SyntaxNode* node = self().lastChild()) node->setEnd(position);
    }
    Trn::Position end() const override {
        const SyntaxNode* node = self().lastChild();
        return node != nullptr ? node->end() : Trn::Position();
    }

private:
    const Node& self() const { return static_cast<const Node&>(*this); }
};

/// A node with named children that ends behind the last of them, as at a colon or a semicolon.
/// Setting the end sets that place; while it is no place, the end is that of the last child.
template <class Node, class Base> class EndedNode : public PartsNode<Node, Base> {
public:
    void setEnd(const Trn::Position& position) override { endPosition_ = position; }
    Trn::Position end() const override {
        return endPosition_.isNone() ? PartsNode<Node, Base>::end() : endPosition_;
    }
    Trn::Position endPosition() const { return endPosition_; }
    void setEndPosition(const Trn::Position& position) { endPosition_ = position; }

protected:
    EndedNode() = default;
    explicit EndedNode(const Trn::Position& endPosition) : endPosition_(endPosition) {}

private:
    Trn::Position endPosition_;
};

} // namespace Cpp

#endif
