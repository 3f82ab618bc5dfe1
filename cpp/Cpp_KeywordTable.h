#ifndef KERFLINE_CPP_KEYWORDTABLE_H
#define KERFLINE_CPP_KEYWORDTABLE_H

#include "cpp/Cpp_CharClass.h"
#include "cpp/Cpp_Tokens.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace Cpp {

/// The keywords under a hash that keeps every two of them apart, so that one comparison tells.
/// The factor is searched when this is compiled; a set of keywords for which there is none does
/// not compile.
class KeywordTable {
public:
    consteval KeywordTable() {
        while (!fill()) factor_ = factor_ * 1664525u + 1013904223u;
    }

    /// The number of the keyword `name`, or tkIdentifier.
    constexpr int find(std::string_view name) const {
        if (name.size() < kShortest || name.size() > kLongest) return tkIdentifier;
        const int type = types_[slotOf(name)];
        return type != tkInvalid && tokenTypeName(type) == name ? type : tkIdentifier;
    }

private:
    static constexpr int kFirstKeyword = tkClass;
    static constexpr int kLastKeyword = tkVoid;
    static constexpr std::size_t kShortest = 2;
    static constexpr std::size_t kLongest = 16;
    static constexpr int kSlotBits = 9;

    constexpr std::size_t slotOf(std::string_view name) const {
        const std::size_t key = Chars::index(name[0]) | (Chars::index(name[1]) << 8) |
                                (Chars::index(name.back()) << 16) | (name.size() << 24);
        return (static_cast<std::uint32_t>(key) * factor_) >> (32 - kSlotBits);
    }

    constexpr bool fill() {
        types_ = {};
        for (int type = kFirstKeyword; type <= kLastKeyword; ++type) {
            const std::string_view spelling = tokenTypeName(type);
            if (spelling.front() == '<') continue;
            std::uint8_t& slot = types_[slotOf(spelling)];
            if (slot != tkInvalid) return false;
            slot = static_cast<std::uint8_t>(type);
        }
        return true;
    }

    std::uint32_t factor_ = 0x9E3779B1u;
    std::array<std::uint8_t, std::size_t{1} << kSlotBits> types_{};
};

inline constexpr KeywordTable kKeywords;

} // namespace Cpp

#endif
