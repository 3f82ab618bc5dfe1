#ifndef KERFLINE_CPP_NODETEXT_H
#define KERFLINE_CPP_NODETEXT_H

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace Cpp {

class TokenTable;

/// The text of a node: a range of the tokens that the node was built from, spelled out only when
/// somebody asks for it, or a text of its own. A copy is a text of its own.
class NodeText {
public:
    NodeText() = default;
    NodeText(const char* text) : NodeText(std::string_view(text)) {}
    NodeText(const std::string& text) : NodeText(std::string_view(text)) {}
    NodeText(std::string_view text);
    /// The spellings of the tokens from `first` up to but not including `last`, with single blanks
    /// between them; comments and directives are left out. The table must outlive the text.
    static NodeText joined(const TokenTable& table, std::uint32_t first, std::uint32_t last);
    /// The text of a statement, see TokenTable::statement.
    static NodeText statement(const TokenTable& table, std::uint32_t first, std::uint32_t last);
    /// The spelling of one token, of whatever type.
    static NodeText spelling(const TokenTable& table, std::uint32_t index);
    /// A text that somebody else keeps.
    static NodeText keptBy(std::string_view owner);

    NodeText(const NodeText& other) : NodeText(std::string_view(other.str())) {}
    NodeText(NodeText&& other) noexcept { swap(other); }
    NodeText& operator=(NodeText other) noexcept {
        swap(other);
        return *this;
    }
    ~NodeText() {
        if (form_ == kOwn) release();
    }

    bool empty() const;
    std::string str() const;

private:
    enum Form : std::uint32_t { kKept, kOwn, kJoined, kStatement, kSpelling };

    static constexpr std::uint32_t kIndexBits = 29;
    static constexpr std::uint32_t kIndexMask = (std::uint32_t{1} << kIndexBits) - 1;
    static constexpr std::uint32_t kFormMask = (std::uint32_t{1} << (32 - kIndexBits)) - 1;

    NodeText(const void* from, std::uint32_t first, std::uint32_t last, Form form);
    void release();
    void swap(NodeText& other) noexcept;

    // The table, or the characters.
    const void* from_ = nullptr;
    // Token indexes, or how many characters there are.
    std::uint32_t first_ = 0;
    std::uint32_t last_ : kIndexBits = 0;
    std::uint32_t form_ : 32 - kIndexBits = kKept;
};

} // namespace Cpp

#endif
