#include "addin/Addin_Utf16.h"

#include <cstddef>
#include <cstdint>

namespace Addin {

namespace {

constexpr std::uint32_t kHighSurrogates = 0xD800;
constexpr std::uint32_t kLowSurrogates = 0xDC00;
constexpr std::uint32_t kSurrogatesEnd = 0xE000;
constexpr std::uint32_t kBeyondUnits = 0x10000;

bool isHighSurrogate(std::uint32_t unit) { return unit >= kHighSurrogates && unit < kLowSurrogates; }
bool isLowSurrogate(std::uint32_t unit) { return unit >= kLowSurrogates && unit < kSurrogatesEnd; }

std::uint32_t byteAt(std::string_view bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }

std::uint32_t unitAt(std::string_view bytes, std::size_t at, Utf16Order order) {
    const std::uint32_t first = byteAt(bytes, at);
    const std::uint32_t second = byteAt(bytes, at + 1);
    return order == Utf16Order::little ? first | second << 8 : first << 8 | second;
}

void appendUnit(std::string& bytes, std::uint32_t unit, Utf16Order order) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes.push_back(order == Utf16Order::little ? low : high);
    bytes.push_back(order == Utf16Order::little ? high : low);
}

void appendTail(std::string& text, std::uint32_t bits) { text.push_back(static_cast<char>(0x80 | (bits & 0x3F))); }

void appendUtf8(std::string& text, std::uint32_t c) {
    if (c < 0x80) {
        text.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        text.push_back(static_cast<char>(0xC0 | c >> 6));
        appendTail(text, c);
    } else if (c < kBeyondUnits) {
        text.push_back(static_cast<char>(0xE0 | c >> 12));
        appendTail(text, c >> 6);
        appendTail(text, c);
    } else {
        text.push_back(static_cast<char>(0xF0 | c >> 18));
        appendTail(text, c >> 12);
        appendTail(text, c >> 6);
        appendTail(text, c);
    }
}

std::size_t utf8Length(std::uint32_t lead) { return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4; }

std::uint32_t charAt(std::string_view text, std::size_t at, std::size_t length) {
    const std::uint32_t lead = byteAt(text, at);
    std::uint32_t c = length == 1 ? lead : lead & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length && at + i < text.size(); ++i) c = c << 6 | (byteAt(text, at + i) & 0x3F);
    return c;
}

} // namespace

std::optional<Utf16Order> utf16OrderOf(std::string_view bytes) {
    if (isMarkedUtf32(bytes)) return std::nullopt;
    if (bytes.starts_with("\xff\xfe")) return Utf16Order::little;
    if (bytes.starts_with("\xfe\xff")) return Utf16Order::big;
    return std::nullopt;
}

bool isMarkedUtf32(std::string_view bytes) {
    return bytes.starts_with(std::string_view("\xff\xfe\0\0", 4)) || bytes.starts_with(std::string_view("\0\0\xfe\xff", 4));
}

std::optional<std::string> fromUtf16(std::string_view bytes, Utf16Order order) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    std::string text;
    text.reserve(bytes.size() / 2 + bytes.size() / 16);
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        std::uint32_t c = unitAt(bytes, at, order);
        if (isLowSurrogate(c)) return std::nullopt;
        if (isHighSurrogate(c)) {
            at += 2;
            const std::uint32_t low = at < bytes.size() ? unitAt(bytes, at, order) : 0;
            if (!isLowSurrogate(low)) return std::nullopt;
            c = kBeyondUnits + ((c - kHighSurrogates) << 10) + (low - kLowSurrogates);
        }
        appendUtf8(text, c);
    }
    return text;
}

std::string toUtf16(std::string_view text, Utf16Order order) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8Length(byteAt(text, at));
        std::uint32_t c = charAt(text, at, length);
        at += length;
        if (c >= kBeyondUnits) {
            c -= kBeyondUnits;
            appendUnit(bytes, kHighSurrogates + (c >> 10), order);
            c = kLowSurrogates + (c & 0x3FF);
        }
        appendUnit(bytes, c, order);
    }
    return bytes;
}

} // namespace Addin
