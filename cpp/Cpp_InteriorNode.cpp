#include "cpp/Cpp_InteriorNode.h"

#include "cpp/Cpp_Emitter.h"
#include "cpp/Cpp_LeafNodes.h"
#include "trn/Trn_Exception.h"

#include <algorithm>
#include <utility>

namespace Cpp {

namespace {

// Up to here a look at every child is cheaper than keeping a set of them.
constexpr std::size_t kMaxLinearSearch = 256;

} // namespace

InteriorNode::InteriorNode(const InteriorNode& other) : SyntaxNode(other) {
    children_.reserve(other.children_.size());
    for (const auto& child : other.children_) children_.emplace_back(child ? child->clone() : nullptr);
}

InteriorNode& InteriorNode::operator=(InteriorNode other) noexcept {
    swapChildren(other);
    return *this;
}

// The two may have their memory from different places.
void InteriorNode::swapChildren(InteriorNode& other) noexcept {
    std::swap(children_, other.children_);
    index_.swap(other.index_);
    std::swap(lastEnd_, other.lastEnd_);
}

void InteriorNode::setStart(const Trn::Position& position) {
    if (!children_.empty()) children_.front()->setStart(position);
}

Trn::Position InteriorNode::start() const {
    return children_.empty() ? Trn::Position() : children_.front()->start();
}

void InteriorNode::setEnd(const Trn::Position& position) {
    if (children_.empty()) return;
    children_.back()->setEnd(position);
    noteEnd();
}

Trn::Position InteriorNode::end() const {
    if (children_.empty()) return {};
    return lastEnd_.isNone() ? children_.back()->end() : lastEnd_;
}

// In a chain of "else if" each step ends where the next one does: asked along the chain each time, that
// would cost the square of its length. A parser adds a node when it is complete.
void InteriorNode::noteEnd() {
    const bool isComplete = !children_.empty() && children_.back()->isPooled();
    lastEnd_ = isComplete ? children_.back()->end() : Trn::Position();
}

void InteriorNode::accept(Emitter& emitter) { emitter.visit(static_cast<SyntaxNode&>(*this)); }

SyntaxNode* InteriorNode::clone() const { return new InteriorNode(*this); }

InteriorNode::iterator InteriorNode::childBegin() { return children_.begin(); }
InteriorNode::const_iterator InteriorNode::childBegin() const { return children_.begin(); }
InteriorNode::iterator InteriorNode::childEnd() { return children_.end(); }
InteriorNode::const_iterator InteriorNode::childEnd() const { return children_.end(); }

void InteriorNode::erase(iterator first, iterator last) {
    children_.erase(first, last);
    noteEnd();
}

std::size_t InteriorNode::size() const { return children_.size(); }

bool InteriorNode::isListed(const SyntaxNode* node) const {
    return std::any_of(children_.begin(), children_.end(),
                       [node](const auto& child) { return child.get() == node; });
}

bool InteriorNode::isChild(const SyntaxNode* node) {
    if (children_.size() < kMaxLinearSearch) return isListed(node);
    if (!index_) {
        index_ = std::make_unique<Index>();
        for (const auto& child : children_) index_->insert(child.get());
    }
    // A child that has gone may have left its address here for a new node.
    return index_->count(node) != 0 && isListed(node);
}

void InteriorNode::add(SyntaxNode* child) {
    if (child == nullptr) return;
    if (isChild(child)) throw Trn::AlreadyExistsException();
    append(OwnedNode<SyntaxNode>(child));
}

/// From here on the list of children has its memory from `pool`, too. For a node without children.
void InteriorNode::usePool(std::pmr::memory_resource& pool) {
    std::destroy_at(&children_);
    std::construct_at(&children_, &pool);
}

void InteriorNode::append(OwnedNode<SyntaxNode> child) {
    if (!child) return;
    if (index_) index_->insert(child.get());
    children_.push_back(std::move(child));
    noteEnd();
}

void InteriorNode::addComment(CommentNode* comment) { add(comment); }

void InteriorNode::addDirective(PreprocDirectiveNode* directive) { add(directive); }

} // namespace Cpp
