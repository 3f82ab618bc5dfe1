#include "src/Norvane_WrapStay.h"

#include "src/Norvane_WrapText.h"

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

} // namespace Norvane
