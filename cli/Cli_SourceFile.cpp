#include "cli/Cli_SourceFile.h"

#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <cstddef>

namespace Cli {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

std::string_view commonestLineEnd(std::string_view bytes) {
    const auto feeds = std::count(bytes.begin(), bytes.end(), '\n');
    const auto returns = std::count(bytes.begin(), bytes.end(), '\r');
    if (returns == 0) return "\n";
    std::ptrdiff_t pairs = 0;
    for (std::size_t at = bytes.find("\r\n"); at != bytes.npos; at = bytes.find("\r\n", at + 2)) ++pairs;
    const auto loneFeeds = feeds - pairs;
    const auto loneReturns = returns - pairs;
    if (pairs > loneFeeds && pairs >= loneReturns) return "\r\n";
    return loneReturns > loneFeeds ? "\r" : "\n";
}

std::string withLineEnd(const std::string& text, std::string_view lineEnd) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    std::size_t start = 0;
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', start)) {
        result.append(text, start, at - start).append(lineEnd);
        start = at + 1;
    }
    return result.append(text, start);
}

} // namespace

SourceFile::SourceFile(std::string bytes) : bytes_(std::move(bytes)) {
    hasByteOrderMark_ = bytes_.starts_with(kByteOrderMark);
    lineEnd_ = commonestLineEnd(bytes_);
    text_.assign(bytes_, hasByteOrderMark_ ? kByteOrderMark.size() : 0);
    Zelmar::normaliseLineEnds(text_);
}

std::string SourceFile::withForm(std::string laidOut) const {
    if (laidOut == text_) return bytes_;
    if (lineEnd_ != "\n") laidOut = withLineEnd(laidOut, lineEnd_);
    if (hasByteOrderMark_) laidOut.insert(0, kByteOrderMark);
    return laidOut;
}

bool SourceFile::isWideText() const {
    return bytes_.starts_with("\xff\xfe") || bytes_.starts_with("\xfe\xff");
}

} // namespace Cli
