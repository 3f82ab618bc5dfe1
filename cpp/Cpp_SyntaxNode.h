#ifndef KERFLINE_CPP_SYNTAXNODE_H
#define KERFLINE_CPP_SYNTAXNODE_H

#include "trn/Trn_SyntaxNode.h"

#include <memory>
#include <utility>

namespace Cpp {

class Emitter;

/// A node of the coarse tree that is made for layout: it tells where each construct starts and
/// ends. Extents are inclusive, and (0, 0) means that there is none. A node
/// owns its children.
class SyntaxNode : public Trn::SyntaxNode {
public:
    /// Calls the visit of this node's own class. Descends nowhere by itself.
    virtual void accept(Emitter& emitter) = 0;
    /// Returns a deep copy, owned by the caller.
    virtual SyntaxNode* clone() const = 0;
    /// True for the nodes that a parser makes: their memory is that of the tree and goes with it, and
    /// nobody deletes them. Other nodes are on the heap.
    bool isPooled() const { return pooled_; }

protected:
    SyntaxNode() = default;
    SyntaxNode(const SyntaxNode& other) : Trn::SyntaxNode(other) {}
    SyntaxNode& operator=(const SyntaxNode&) { return *this; }

private:
    friend class NodePool;

    bool pooled_ = false;
};

/// Ends the life of a node that has an owner.
struct NodeDeleter {
    void operator()(const SyntaxNode* node) const {
        if (!node->isPooled()) delete node;
    }
};

template <class Node> using OwnedNode = std::unique_ptr<Node, NodeDeleter>;

/// A node without children that stores its extent.
class LeafNode : public SyntaxNode {
public:
    void setStart(const Trn::Position& position) override { start_ = position; }
    Trn::Position start() const override { return start_; }
    void setEnd(const Trn::Position& position) override { end_ = position; }
    Trn::Position end() const override { return end_; }

protected:
    LeafNode() = default;
    LeafNode(const Trn::Position& start, const Trn::Position& end) : start_(start), end_(end) {}

private:
    Trn::Position start_;
    Trn::Position end_;
};

/// Base of the declarations that have named parts.
class DeclNode : public SyntaxNode {
protected:
    DeclNode() = default;
};

/// A child that is held by name, or none: copied deeply, and moved as a pointer.
template <class Node> class NodePtr {
public:
    NodePtr() = default;
    explicit NodePtr(Node* node) : node_(node) {}
    NodePtr(OwnedNode<Node> node) : node_(std::move(node)) {}
    NodePtr(const NodePtr& other) : node_(other.node_ ? static_cast<Node*>(other.node_->clone()) : nullptr) {}
    NodePtr(NodePtr&&) noexcept = default;
    NodePtr& operator=(NodePtr other) noexcept {
        node_ = std::move(other.node_);
        return *this;
    }
    ~NodePtr() = default;

    Node* get() const { return node_.get(); }
    void reset(Node* node = nullptr) { node_.reset(node); }
    Node* release() { return node_.release(); }
    explicit operator bool() const { return node_ != nullptr; }
    Node* operator->() const { return node_.get(); }
    void swap(NodePtr& other) noexcept { node_.swap(other.node_); }

private:
    OwnedNode<Node> node_;
};

} // namespace Cpp

#endif
