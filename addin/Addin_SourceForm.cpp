#include "addin/Addin_SourceForm.h"

#include "streams/Zelmar_SourceText.h"

#include <iterator>

namespace Addin {

namespace {

constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";
constexpr std::size_t kUtf16MarkSize = 2;

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The line end at `at`, where there is one.
std::string_view lineEndAt(std::string_view bytes, std::size_t at) {
    if (bytes[at] == '\n') return "\n";
    return bytes.substr(at, 2) == "\r\n" ? "\r\n" : "\r";
}

/// The line end that all lines have; empty if there are several kinds.
std::string_view onlyLineEnd(std::string_view bytes) {
    // Most files have line feeds only, and then one fast search says so.
    if (bytes.find('\r') == std::string_view::npos) return "\n";
    const std::string_view first = lineEndAt(bytes, bytes.find_first_of("\r\n"));
    for (std::size_t at = bytes.find_first_of("\r\n"); at != std::string_view::npos;) {
        if (lineEndAt(bytes, at) != first) return {};
        at = bytes.find_first_of("\r\n", at + first.size());
    }
    return first;
}

} // namespace

SourceForm::SourceForm(std::string_view bytes) : byteOrderMark_(bytes.starts_with(kUtf8Mark) ? kUtf8Mark : "") {
    std::optional<std::string> decoded;
    if (const auto order = utf16OrderOf(bytes)) decoded = fromUtf16(bytes.substr(kUtf16MarkSize), *order);
    if (decoded) {
        utf16_ = utf16OrderOf(bytes);
        byteOrderMark_ = *utf16_ == Utf16Order::little ? "\xff\xfe" : "\xfe\xff";
        bytes = *decoded;
    } else {
        bytes.remove_prefix(byteOrderMark_.size());
    }
    lineEnd_ = onlyLineEnd(bytes);
    if (lineEnd_.empty()) noteLineEnds(bytes);
}

void SourceForm::noteLineEnds(std::string_view text) {
    std::size_t ink = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == '\n' || text[at] == '\r') {
            lineEnds_.push_back({ink, lineEndAt(text, at)});
            at += lineEnds_.back().bytes.size();
        } else {
            if (!isBlank(text[at])) ++ink;
            ++at;
        }
    }
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
    if (lineEnd_.empty()) {
        appendMixed(text, bytes);
        return bytes;
    }
    for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        bytes.append(text.substr(0, end)).append(lineEnd_);
        text.remove_prefix(end + 1);
    }
    return bytes.append(text);
}

void SourceForm::appendMixed(std::string_view text, std::string& bytes) const {
    // The first line end of the source that has not been passed.
    auto next = lineEnds_.begin();
    std::size_t ink = 0;
    for (const char c : text) {
        if (c != '\n') {
            if (!isBlank(c)) ++ink;
            bytes += c;
            continue;
        }
        while (next != lineEnds_.end() && next->inkBefore < ink) ++next;
        // A blank line more than the source has is like the line in front of it.
        const bool isExtra = next != lineEnds_.begin() && std::prev(next)->inkBefore == ink;
        const bool isFound = next != lineEnds_.end() && next->inkBefore == ink;
        if (isFound) {
            bytes += (next++)->bytes;
        } else {
            bytes += (isExtra || next == lineEnds_.end() ? std::prev(next) : next)->bytes;
        }
    }
}

} // namespace Addin
