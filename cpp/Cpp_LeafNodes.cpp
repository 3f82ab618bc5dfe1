#include "cpp/Cpp_LeafNodes.h"

#include "cpp/Cpp_Scanner.h"
#include "cpp/Cpp_Tokens.h"

#include <algorithm>
#include <cstddef>

namespace Cpp {

namespace {

std::int32_t requireKeyword(std::int32_t keyword) {
    if (keyword < tkClass || keyword > tkDefault) throw InvalidKeyword();
    return keyword;
}

} // namespace

std::string CommentNode::markerText() const {
    const std::string whole = text();
    if (whole.size() <= 1) return std::string();
    std::string inner(std::find_if_not(whole.begin(), whole.end(), isSpace), whole.end());
    if (inner.starts_with("/*")) {
        // Both delimiters need characters of their own: "/*/" is not closed.
        const std::size_t delimiters = 4;
        if (inner.size() < delimiters || !inner.ends_with("*/")) return inner;
        inner.resize(inner.size() - 2);
    } else if (!inner.starts_with("//")) {
        return inner;
    }
    inner.erase(0, 2);
    return inner;
}

IdNode::IdNode(NodeText text, const Trn::Position& start, const Trn::Position& end)
    : VisitedNode(std::move(text), start, end) {
    if (nodeText().empty()) throw InvalidId();
}

KeywordNode::KeywordNode(std::int32_t keyword, const Trn::Position& start, const Trn::Position& end)
    : VisitedNode(start, end), keyword_(requireKeyword(keyword)) {}

void KeywordNode::setKeyword(std::int32_t keyword) { keyword_ = requireKeyword(keyword); }

} // namespace Cpp
