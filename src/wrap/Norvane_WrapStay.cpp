#include "src/wrap/Norvane_WrapStay.h"

#include "src/wrap/Norvane_WrapText.h"

#include <algorithm>

namespace Norvane {

namespace {

bool startsLine(const WrapText& text, std::size_t index) {
    if (text.gap(index).find('\n') != std::string_view::npos) return true;
    return index > 0 && text.token(index - 1).ends_with('\n');
}

} // namespace

std::string keepStayingBreaks(const std::string& text, const std::string& wrapped, const std::string& again) {
    const WrapText before(text);
    const WrapText broken(wrapped);
    const WrapText after(again);
    if (before.size() != broken.size() || before.size() != after.size()) return text;
    std::string result;
    for (std::size_t i = 0; i <= before.size(); ++i) {
        const bool stays = broken.gap(i) != before.gap(i) && startsLine(after, i);
        result += stays ? after.gap(i) : before.gap(i);
        result += before.token(i);
    }
    return result;
}

std::optional<std::string> indentOfFirstBreak(const std::string& text, const std::string& broken) {
    const auto inBroken = std::mismatch(text.begin(), text.end(), broken.begin(), broken.end()).second;
    const auto isIndent = [](char c) { return c == ' ' || c == '\t'; };
    const auto feed = std::find(inBroken, broken.end(), '\n');
    if (feed == broken.end()) return std::nullopt;
    return std::string(feed + 1, std::find_if_not(feed + 1, broken.end(), isIndent));
}

} // namespace Norvane
