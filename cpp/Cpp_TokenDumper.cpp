#include "cpp/Cpp_TokenDumper.h"

#include "cpp/Cpp_Scanner.h"

#include <string>

namespace Cpp {

namespace {

std::string number(std::uint32_t value) {
    return std::to_string(value);
}

std::string placeText(const Trn::Position& position) {
    return number(position.line) + ":" + number(position.column);
}

std::string escaped(std::string_view text) {
    static constexpr std::string_view kHexDigits = "0123456789abcdef";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        switch (c) {
        case '\n': result += "\\n"; break;
        case '\t': result += "\\t"; break;
        case '"': result += "\\\""; break;
        case '\\': result += "\\\\"; break;
        default:
            if (byte >= 0x20 && byte < 0x7f) {
                result += c;
            } else {
                result.append("\\x").append(1, kHexDigits[byte >> 4]).append(1, kHexDigits[byte & 15]);
            }
        }
    }
    return result;
}

} // namespace

void dumpTokens(std::string_view text, std::ostream& out) {
    const Zelmar::SourceText source{std::string(text)};
    std::vector<RawToken> tokens;
    scanAll(source.text(), tokens);
    for (const RawToken& token : tokens) {
        const std::string extent = placeText(startOf(source, token)) + "-" + placeText(endOf(source, token));
        out << extent << ' ' << tokenTypeName(token.type) << " \"" << escaped(spelling(source.text(), token))
            << "\"\n";
    }
}

} // namespace Cpp
