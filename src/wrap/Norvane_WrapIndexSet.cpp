#include "src/wrap/Norvane_WrapIndexSet.h"

#include <bit>

namespace Norvane {

namespace {

constexpr std::size_t kBits = 64;

std::uint64_t bitOf(std::size_t index) {
    return std::uint64_t{1} << (index % kBits);
}

std::size_t lowestBit(std::uint64_t word) {
    return static_cast<std::size_t>(std::countr_zero(word));
}

std::size_t highestBit(std::uint64_t word) {
    return kBits - 1 - static_cast<std::size_t>(std::countl_zero(word));
}

} // namespace

WrapIndexSet::WrapIndexSet(std::size_t size) {
    std::size_t words = size;
    do {
        words = (words + kBits - 1) / kBits;
        levels_.emplace_back(words == 0 ? 1 : words, 0);
    } while (words > 1);
}

void WrapIndexSet::insert(std::size_t index) {
    for (auto& level : levels_) {
        level[index / kBits] |= bitOf(index);
        index /= kBits;
    }
}

void WrapIndexSet::erase(std::size_t index) {
    for (auto& level : levels_) {
        level[index / kBits] &= ~bitOf(index);
        if (level[index / kBits] != 0) return;
        index /= kBits;
    }
}

bool WrapIndexSet::contains(std::size_t index) const {
    const auto& members = levels_.front();
    return index / kBits < members.size() && (members[index / kBits] & bitOf(index)) != 0;
}

std::size_t WrapIndexSet::firstBelow(std::size_t level, std::size_t index) const {
    while (level-- > 0) index = index * kBits + lowestBit(levels_[level][index]);
    return index;
}

std::size_t WrapIndexSet::lastBelow(std::size_t level, std::size_t index) const {
    while (level-- > 0) index = index * kBits + highestBit(levels_[level][index]);
    return index;
}

std::size_t WrapIndexSet::next(std::size_t index) const {
    for (std::size_t level = 0; level < levels_.size(); ++level) {
        const std::size_t word = index / kBits;
        if (word >= levels_[level].size()) return npos;
        const Word rest = levels_[level][word] & (~Word{0} << (index % kBits));
        if (rest != 0) return firstBelow(level, word * kBits + lowestBit(rest));
        index = word + 1;
    }
    return npos;
}

std::size_t WrapIndexSet::previous(std::size_t index) const {
    for (std::size_t level = 0; level < levels_.size(); ++level) {
        const std::size_t word = index / kBits;
        if (word >= levels_[level].size()) return npos;
        const Word rest = levels_[level][word] & (~Word{0} >> (kBits - 1 - index % kBits));
        if (rest != 0) return lastBelow(level, word * kBits + highestBit(rest));
        if (word == 0) return npos;
        index = word - 1;
    }
    return npos;
}

} // namespace Norvane
