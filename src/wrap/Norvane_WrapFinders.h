#ifndef KERFLINE_NORVANE_WRAPFINDERS_H
#define KERFLINE_NORVANE_WRAPFINDERS_H

#include "src/wrap/Norvane_WrapText.h"

#include <cstdint>
#include <initializer_list>

namespace Norvane {

/// A set of token kinds as bits.
class WrapKinds {
public:
    constexpr WrapKinds() = default;
    constexpr WrapKinds(std::initializer_list<int> kinds) {
        for (const int kind : kinds) words_[kind / 64] |= std::uint64_t{1} << (kind % 64);
    }
    constexpr bool has(int kind) const {
        return kind >= 0 && kind < 128 && (words_[kind / 64] >> (kind % 64) & 1) != 0;
    }

private:
    std::uint64_t words_[2] = {0, 0};
};

/// Finds the first token of a range at which a break may be made, outside all brackets in it.
///
/// A search knows nothing of what lies in front of its range. A bracket that the range does not
/// close, or closes without opening it, hides everything behind it.
class FirstWrapToken {
public:
    virtual ~FirstWrapToken() = default;

    /// The index of the token, or the end of the range.
    std::size_t find(const WrapText& text, const WrapRange& range);
    /// True if tokens of `kind` are what this finder looks for.
    virtual bool matches(int kind) const = 0;

protected:
    FirstWrapToken() = default;
    FirstWrapToken(const FirstWrapToken&) = default;
    FirstWrapToken& operator=(const FirstWrapToken&) = default;

    /// The token at which to break if that is decided at `index`, which lies outside all brackets
    /// or opens one; otherwise the end of the range.
    virtual std::size_t breakAt(const WrapText& text, std::size_t index, const WrapRange& range) = 0;

    /// Kind of the last token in front of the current one that is no comment; -1 at the start.
    int lastKind_ = -1;
};

/// Breaks at members of a set, but at neither of two that stand side by side, and at none that one of
/// the excluded kinds follows.
class FindFirstElem : public FirstWrapToken {
public:
    explicit FindFirstElem(const WrapKinds& elems, const WrapKinds& excluded = {})
        : elems_(elems), excluded_(excluded) {}
    bool matches(int kind) const override { return elems_.has(kind); }

protected:
    std::size_t breakAt(const WrapText& text, std::size_t index, const WrapRange& range) override;

private:
    WrapKinds elems_;
    WrapKinds excluded_;
};

/// Breaks at operators between two operands; at a sign only behind the end of an operand. A shift
/// is one of them, but has its own way of breaking and is no break here.
class FindFirstBinaryOp : public FirstWrapToken {
public:
    bool matches(int kind) const override;

protected:
    std::size_t breakAt(const WrapText& text, std::size_t index, const WrapRange& range) override;
};

/// Breaks behind the type of a named cast: finds its ">".
class FindFirstCast : public FirstWrapToken {
public:
    bool matches(int) const override { return false; }

protected:
    std::size_t breakAt(const WrapText& text, std::size_t index, const WrapRange& range) override;
};

/// Breaks behind a pair of parentheses that looks like a cast: finds its ")".
class FindFirstOldCast : public FirstWrapToken {
public:
    bool matches(int) const override { return false; }

protected:
    std::size_t breakAt(const WrapText& text, std::size_t index, const WrapRange& range) override;
};

/// Walks the bracket pairs of one nesting depth that lie in a range, from the front.
class GroupFinder {
public:
    enum class Brackets { kParens, kBraces };

    GroupFinder(const WrapText& text, Brackets brackets, const WrapRange& range, std::size_t depth);

    /// Goes on to the next pair. Returns false if there is none.
    bool findNext();

    /// The token in front of the pair, or npos at the start of the range.
    std::size_t preceding() const { return open_ > range_.begin ? open_ - 1 : WrapText::npos; }
    bool precedingIsName() const;
    std::size_t open() const { return open_; }
    std::size_t close() const { return text_.mate(open_); }
    WrapRange inner() const { return {open_ + 1, close()}; }

private:
    const WrapText& text_;
    WrapRange range_;
    std::span<const std::uint32_t> opens_;
    std::size_t next_ = 0;
    std::size_t open_ = 0;
};

} // namespace Norvane

#endif
