#include "addin/Addin_SourceForm.h"

#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <cstddef>

namespace Addin {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

struct LineEndCount {
    std::string_view lineEnd;
    std::size_t count = 0;
    std::size_t first = std::string_view::npos;

    void add(std::size_t offset) {
        if (count++ == 0) first = offset;
    }
};

/// The commoner, or else the earlier one.
bool comesBehind(const LineEndCount& a, const LineEndCount& b) {
    return a.count != b.count ? a.count < b.count : a.first > b.first;
}

std::string_view commonestLineEnd(std::string_view bytes) {
    LineEndCount counts[] = {{"\n"}, {"\r\n"}, {"\r"}};
    auto& [feed, pair, carriage] = counts;
    for (std::size_t at = bytes.find_first_of("\r\n"); at != std::string_view::npos;) {
        const bool isPair = bytes.substr(at, 2) == "\r\n";
        (isPair ? pair : bytes[at] == '\n' ? feed : carriage).add(at);
        at = bytes.find_first_of("\r\n", at + (isPair ? 2 : 1));
    }
    return std::max_element(std::begin(counts), std::end(counts), comesBehind)->lineEnd;
}

} // namespace

SourceForm::SourceForm(std::string_view bytes) : hasByteOrderMark_(bytes.starts_with(kByteOrderMark)) {
    // Most files have line feeds only, and then one fast search says so.
    lineEnd_ = bytes.find('\r') == std::string_view::npos ? "\n" : commonestLineEnd(bytes);
}

std::string SourceForm::textOf(std::string_view bytes) const {
    std::string text(bytes.substr(hasByteOrderMark_ ? kByteOrderMark.size() : 0));
    Zelmar::normaliseLineEnds(text);
    return text;
}

std::string SourceForm::bytesOf(std::string_view text) const {
    std::string bytes(hasByteOrderMark_ ? kByteOrderMark : std::string_view());
    if (lineEnd_ == "\n") return bytes.append(text);
    bytes.reserve(bytes.size() + text.size() + text.size() / 16);
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        bytes.append(text.substr(0, end)).append(lineEnd_);
        text.remove_prefix(end + 1);
    }
    return bytes.append(text);
}

} // namespace Addin
