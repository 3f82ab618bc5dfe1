#include "cpp/Cpp_NodeText.h"

#include "cpp/Cpp_TokenTable.h"

#include <algorithm>

namespace Cpp {

NodeText::NodeText(const void* from, std::uint32_t first, std::uint32_t last, Form form)
    : from_(from), first_(first), last_(last & kIndexMask), form_(form & kFormMask) {}

NodeText::NodeText(std::string_view text) {
    if (text.empty()) return;
    char* const characters = new char[text.size()];
    std::copy(text.begin(), text.end(), characters);
    from_ = characters;
    first_ = static_cast<std::uint32_t>(text.size());
    form_ = kOwn;
}

NodeText NodeText::keptBy(std::string_view owner) {
    return {owner.data(), static_cast<std::uint32_t>(owner.size()), 0, kKept};
}

NodeText NodeText::joined(const TokenTable& table, std::uint32_t first, std::uint32_t last) {
    return {&table, first, last, kJoined};
}

NodeText NodeText::statement(const TokenTable& table, std::uint32_t first, std::uint32_t last) {
    return {&table, first, last, kStatement};
}

NodeText NodeText::spelling(const TokenTable& table, std::uint32_t index) {
    return {&table, index, index + 1, kSpelling};
}

void NodeText::release() { delete[] static_cast<const char*>(from_); }

void NodeText::swap(NodeText& other) noexcept {
    std::swap(from_, other.from_);
    std::swap(first_, other.first_);
    const std::uint32_t last = last_;
    const std::uint32_t form = form_;
    last_ = other.last_;
    form_ = other.form_;
    other.last_ = last & kIndexMask;
    other.form_ = form & kFormMask;
}

bool NodeText::empty() const {
    if (form_ == kKept || form_ == kOwn) return first_ == 0;
    if (form_ != kJoined) return str().empty();
    const auto& table = *static_cast<const TokenTable*>(from_);
    return first_ >= last_ || table.significant(first_) >= last_;
}

std::string NodeText::str() const {
    if (form_ == kKept || form_ == kOwn) return std::string(static_cast<const char*>(from_), first_);
    const auto& table = *static_cast<const TokenTable*>(from_);
    if (form_ == kSpelling) return table.spelling(first_);
    return form_ == kStatement ? table.statement(first_, last_) : table.joined(first_, last_);
}

} // namespace Cpp
