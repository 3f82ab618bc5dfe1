#ifndef KERFLINE_CPP_NODEPOOL_H
#define KERFLINE_CPP_NODEPOOL_H

#include "cpp/Cpp_InteriorNode.h"
#include "cpp/Cpp_NodeText.h"

#include <algorithm>
#include <cstddef>
#include <memory_resource>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>

namespace Cpp {

/// The memory of one tree. What is made here lives until the pool goes: no node is deleted by itself,
/// and no destructor of one is run.
class NodePool {
public:
    explicit NodePool(std::size_t firstChunk) : memory_(std::max<std::size_t>(firstChunk, kSmallestChunk)) {}

    template <class Node, class... Arguments> OwnedNode<Node> make(Arguments&&... arguments) {
        Node* const node = new (memory_.allocate(sizeof(Node), alignof(Node))) Node(std::forward<Arguments>(arguments)...);
        SyntaxNode& base = *node;
        base.pooled_ = true;
        if constexpr (std::is_base_of_v<InteriorNode, Node>) static_cast<InteriorNode&>(*node).usePool(memory_);
        return OwnedNode<Node>(node);
    }

    /// A copy of `text` that lives as long as the nodes.
    NodeText keep(std::string_view text) {
        if (text.empty()) return {};
        char* const kept = static_cast<char*>(memory_.allocate(text.size(), 1));
        std::copy(text.begin(), text.end(), kept);
        return NodeText::keptBy({kept, text.size()});
    }

private:
    static constexpr std::size_t kSmallestChunk = 4096;

    std::pmr::monotonic_buffer_resource memory_;
};

} // namespace Cpp

#endif
