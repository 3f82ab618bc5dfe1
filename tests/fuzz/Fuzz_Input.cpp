#include "tests/fuzz/Fuzz_Input.h"

#include "streams/Zelmar_SourceText.h"
#include "tests/fuzz/Fuzz_Schemes.h"

#include <algorithm>
#include <sstream>

namespace Fuzz {

namespace {

constexpr std::size_t kMostOptions = 16;

/// The number of options that differ between two schemes, those counted that the bytes can tell.
std::size_t distance(const Norvane::PropertySet& a, const Norvane::PropertySet& b) {
    return static_cast<std::size_t>(std::count_if(options().begin(), options().end(), [&](std::string_view option) {
        return choiceOf(a, option) != choiceOf(b, option);
    }));
}

std::size_t nearestBase(const Norvane::PropertySet& scheme) {
    const auto bases = baseSchemes();
    const auto nearest = std::min_element(bases.begin(), bases.end(), [&](const auto& a, const auto& b) {
        return distance(a, scheme) < distance(b, scheme);
    });
    return static_cast<std::size_t>(nearest - bases.begin());
}

char byte(std::size_t value) { return static_cast<char>(static_cast<unsigned char>(value)); }

} // namespace

std::string textOf(const std::uint8_t* data, std::size_t size) {
    std::string text(data, data + size);
    if (text.starts_with("\xef\xbb\xbf")) text.erase(0, 3);
    std::replace(text.begin(), text.end(), '\0', ' ');
    Zelmar::normaliseLineEnds(text);
    return text;
}

Input inputOf(const std::uint8_t* data, std::size_t size) {
    Input input;
    if (size < 2) return input;
    const std::size_t base = data[0] % baseSchemes().size();
    const std::size_t count = std::min(data[1] % (kMostOptions + 1), (size - 2) / 2);
    input.scheme = baseSchemes()[base];
    input.isShipped = base != 0 && count == 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t* pair = data + 2 + 2 * i;
        setOption(input.scheme, options()[pair[0] % options().size()], pair[1]);
    }
    const std::size_t head = 2 + 2 * count;
    input.source = textOf(data + head, size - head);
    return input;
}

std::string bytesOf(const Norvane::PropertySet& scheme, std::string_view source) {
    const std::size_t base = nearestBase(scheme);
    std::string pairs;
    for (std::size_t i = 0; i < options().size() && pairs.size() < 2 * kMostOptions; ++i) {
        const auto choice = choiceOf(scheme, options()[i]);
        if (!choice || choice == choiceOf(baseSchemes()[base], options()[i])) continue;
        pairs += byte(i);
        pairs += byte(*choice);
    }
    return std::string{byte(base), byte(pairs.size() / 2)} + pairs + std::string(source);
}

std::string describe(const Input& input) {
    std::ostringstream out;
    input.scheme.write(out);
    out << ">>>\n" << input.source;
    return out.str();
}

} // namespace Fuzz
