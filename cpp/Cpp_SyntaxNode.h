#ifndef KERFLINE_CPP_SYNTAXNODE_H
#define KERFLINE_CPP_SYNTAXNODE_H

#include "trn/Trn_SyntaxNode.h"

#include <cstddef>
#include <memory>
#include <unordered_set>
#include <vector>

namespace Cpp {

class Emitter;
class CommentNode;
class PreprocDirectiveNode;

/// A node of the coarse tree that is made for layout: it tells where each construct starts and
/// ends. Extents are inclusive, and (0, 0) means that there is none. A node owns its children.
class SyntaxNode : public Trn::SyntaxNode {
public:
    /// Calls the visit of this node's own class. Descends nowhere by itself.
    virtual void accept(Emitter& emitter) = 0;
    /// Returns a deep copy, owned by the caller.
    virtual SyntaxNode* clone() const = 0;

protected:
    SyntaxNode() = default;
    SyntaxNode(const SyntaxNode&) = default;
    SyntaxNode& operator=(const SyntaxNode&) = default;
};

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

/// A node with any number of children in source order. Its extent runs from the first child to the
/// last one. The ends of the child range carry the prefix "child", since start() and end() are
/// positions.
class InteriorNode : public SyntaxNode {
public:
    using Children = std::vector<std::unique_ptr<SyntaxNode>>;
    using iterator = Children::iterator;
    using const_iterator = Children::const_iterator;

    InteriorNode() = default;
    InteriorNode(const InteriorNode& other);
    InteriorNode(InteriorNode&& other) noexcept;
    InteriorNode& operator=(const InteriorNode& other);
    InteriorNode& operator=(InteriorNode&& other) noexcept;
    ~InteriorNode() override;

    void setStart(const Trn::Position& position) override;
    Trn::Position start() const override;
    void setEnd(const Trn::Position& position) override;
    Trn::Position end() const override;
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    virtual iterator childBegin();
    virtual const_iterator childBegin() const;
    virtual iterator childEnd();
    virtual const_iterator childEnd() const;
    virtual void erase(iterator first, iterator last);
    virtual std::size_t size() const;
    /// Takes ownership of `child` and appends it. A null pointer is ignored. Throws
    /// Trn::AlreadyExistsException if it is a child already, and then leaves it to the caller.
    virtual void add(SyntaxNode* child);
    virtual void addComment(CommentNode* comment);
    virtual void addDirective(PreprocDirectiveNode* directive);

    SyntaxNode* child(std::size_t index) const { return children_[index].get(); }
    bool empty() const { return children_.empty(); }

protected:
    void swapChildren(InteriorNode& other) noexcept;
    Children& children() { return children_; }
    const Children& children() const { return children_; }

private:
    bool isChild(const SyntaxNode* node) const;

    Children children_;
    // Filled once there are many children, so that add stays cheap.
    mutable std::unordered_set<const SyntaxNode*> index_;
};

/// Base of the declarations that have named parts.
class DeclNode : public SyntaxNode {
protected:
    DeclNode() = default;
};

/// A child that is held by name: copied deeply, and moved as a pointer.
template <class Node> class NodePtr {
public:
    NodePtr() = default;
    explicit NodePtr(Node* node) : node_(node) {}
    NodePtr(const NodePtr& other) : node_(other.node_ ? static_cast<Node*>(other.node_->clone()) : nullptr) {}
    NodePtr(NodePtr&&) noexcept = default;
    NodePtr& operator=(NodePtr other) noexcept {
        node_ = std::move(other.node_);
        return *this;
    }
    Node* get() const { return node_.get(); }
    void reset(Node* node = nullptr) { node_.reset(node); }
    Node* release() { return node_.release(); }
    explicit operator bool() const { return node_ != nullptr; }
    Node* operator->() const { return node_.get(); }

private:
    std::unique_ptr<Node> node_;
};

} // namespace Cpp

#endif
