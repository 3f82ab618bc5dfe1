#include "addin/Addin_SourceForm.h"

#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <cstddef>

namespace Addin {

namespace {

constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";
constexpr std::size_t kUtf16MarkSize = 2;

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

SourceForm::SourceForm(std::string_view bytes) : byteOrderMark_(bytes.starts_with(kUtf8Mark) ? kUtf8Mark : "") {
    std::optional<std::string> decoded;
    if (const auto order = utf16OrderOf(bytes)) decoded = fromUtf16(bytes.substr(kUtf16MarkSize), *order);
    if (decoded) {
        utf16_ = utf16OrderOf(bytes);
        byteOrderMark_ = *utf16_ == Utf16Order::little ? "\xff\xfe" : "\xfe\xff";
        bytes = *decoded;
    }
    // Most files have line feeds only, and then one fast search says so.
    lineEnd_ = bytes.find('\r') == std::string_view::npos ? "\n" : commonestLineEnd(bytes);
}

std::string SourceForm::textOf(std::string_view bytes) const {
    bytes.remove_prefix(byteOrderMark_.size());
    std::string text = utf16_ ? fromUtf16(bytes, *utf16_).value_or(std::string()) : std::string(bytes);
    Zelmar::normaliseLineEnds(text);
    return text;
}

std::string SourceForm::bytesOf(std::string_view text) const {
    if (utf16_) return std::string(byteOrderMark_) + toUtf16(withLineEnds(text), *utf16_);
    return std::string(byteOrderMark_).append(withLineEnds(text));
}

std::string SourceForm::withLineEnds(std::string_view text) const {
    std::string bytes;
    if (lineEnd_ == "\n") return bytes.append(text);
    bytes.reserve(text.size() + text.size() / 16);
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        bytes.append(text.substr(0, end)).append(lineEnd_);
        text.remove_prefix(end + 1);
    }
    return bytes.append(text);
}

} // namespace Addin
