#ifndef KERFLINE_CPP_INTERIORNODE_H
#define KERFLINE_CPP_INTERIORNODE_H

#include "cpp/Cpp_SyntaxNode.h"

#include <cstddef>
#include <memory>
#include <memory_resource>
#include <unordered_set>
#include <vector>

namespace Cpp {

class CommentNode;
class PreprocDirectiveNode;

/// A node with any number of children in source order. Its extent runs from the first child to the
/// last one. The ends of the child range carry the prefix "child", since start() and end() are
/// positions.
class InteriorNode : public SyntaxNode {
public:
    using Children = std::pmr::vector<OwnedNode<SyntaxNode>>;
    using iterator = Children::iterator;
    using const_iterator = Children::const_iterator;

    InteriorNode() = default;
    InteriorNode(const InteriorNode& other);
    InteriorNode(InteriorNode&& other) noexcept : SyntaxNode(other), children_(std::move(other.children_)), index_(std::move(other.index_)) {}
    InteriorNode& operator=(InteriorNode other) noexcept;
    ~InteriorNode() override = default;

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
    /// Trn::AlreadyExistsException if it is a child already; then nothing changes.
    virtual void add(SyntaxNode* child);
    virtual void addComment(CommentNode* comment);
    virtual void addDirective(PreprocDirectiveNode* directive);

    /// As add, for a node that cannot be a child of anything yet, which saves the search.
    void append(OwnedNode<SyntaxNode> child);

    SyntaxNode* child(std::size_t index) const { return children_[index].get(); }
    bool empty() const { return children_.empty(); }

protected:
    void swapChildren(InteriorNode& other) noexcept;

private:
    friend class NodePool;
    using Index = std::unordered_set<const SyntaxNode*>;

    void noteEnd();
    void usePool(std::pmr::memory_resource& pool);
    bool isChild(const SyntaxNode* node);
    bool isListed(const SyntaxNode* node) const;

    Children children_;
    // Where the last child ends, if that is complete; no place if it has to be asked.
    Trn::Position lastEnd_;
    // Made when add meets many children, so that searching them stays cheap. May hold nodes that
    // have gone since.
    std::unique_ptr<Index> index_;
};

} // namespace Cpp

#endif
