#ifndef KERFLINE_NORVANE_WRAPINDEXSET_H
#define KERFLINE_NORVANE_WRAPINDEXSET_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Norvane {

/// A set of indexes below a fixed size that finds the neighbours of any index.
///
/// A tree of bits, 64 to a node: four levels hold 16 million indexes, so every operation takes a
/// handful of steps. A line that is cut into thousands of pieces, here, there and everywhere, asks
/// for the ends of the piece around a token after each cut; a walk to them would be quadratic.
class WrapIndexSet {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    explicit WrapIndexSet(std::size_t size);

    void insert(std::size_t index);
    void erase(std::size_t index);
    bool contains(std::size_t index) const;
    bool empty() const { return levels_.back().front() == 0; }
    /// The smallest member that is not below `index`, or npos.
    std::size_t next(std::size_t index) const;
    /// The largest member that is not above `index`, or npos.
    std::size_t previous(std::size_t index) const;

private:
    using Word = std::uint64_t;
    std::size_t firstBelow(std::size_t level, std::size_t index) const;
    std::size_t lastBelow(std::size_t level, std::size_t index) const;

    // The lowest level holds the members; a bit of a higher one tells that a word below it is not 0.
    // The highest level is a single word.
    std::vector<std::vector<Word>> levels_;
};

} // namespace Norvane

#endif
