#include "cpp/Cpp_FunctionNodes.h"

namespace Cpp {

void FunctionDeclNode::swap(FunctionDeclNode& other) {
    head_.swap(other.head_);
    block_.swap(other.block_);
}

void FunctionDeclNode::setHead(FunctionHeadNode* node) { head_.reset(node); }

void CtorDeclNode::setStart(const Trn::Position& position) {
    if (SyntaxNode* node = firstPart()) node->setStart(position);
}

Trn::Position CtorDeclNode::start() const {
    const SyntaxNode* node = firstPart();
    return node != nullptr ? node->start() : Trn::Position();
}

void CtorDeclNode::setEnd(const Trn::Position& position) {
    if (SyntaxNode* node = lastPart()) node->setEnd(position);
}

Trn::Position CtorDeclNode::end() const {
    const SyntaxNode* node = lastPart();
    return node != nullptr ? node->end() : Trn::Position();
}

} // namespace Cpp
