#include "streams/Zelmar_SourceText.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace Zelmar {

namespace {

constexpr std::size_t kReadChunk = 65536;
// Source lines are about this long, so the line table rarely grows twice.
constexpr std::size_t kTypicalLineLength = 28;

const char* findChar(const char* begin, const char* end, char c) {
    if (begin == end) return nullptr;
    return static_cast<const char*>(std::memchr(begin, c, static_cast<std::size_t>(end - begin)));
}

std::vector<std::uint32_t> findLineStarts(std::string_view text) {
    std::vector<std::uint32_t> starts;
    starts.reserve(text.size() / kTypicalLineLength + 2);
    starts.push_back(0);
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    for (const char* feed = findChar(begin, end, '\n'); feed; feed = findChar(feed + 1, end, '\n')) {
        starts.push_back(static_cast<std::uint32_t>(feed + 1 - begin));
    }
    return starts;
}

} // namespace

std::string readAll(std::istream& in) {
    std::string text;
    std::streambuf* const buffer = in.rdbuf();
    if (!buffer) return text;
    std::array<char, kReadChunk> chunk;
    while (true) {
        const std::streamsize count = buffer->sgetn(chunk.data(), static_cast<std::streamsize>(chunk.size()));
        if (count <= 0) break;
        text.append(chunk.data(), static_cast<std::size_t>(count));
    }
    normaliseLineEnds(text);
    return text;
}

void normaliseLineEnds(std::string& text) {
    const char* const end = text.data() + text.size();
    const char* from = findChar(text.data(), end, '\r');
    if (!from) return;
    char* to = text.data() + (from - text.data());
    while (from != end) {
        *to++ = '\n';
        ++from;
        if (from != end && *from == '\n') ++from;
        const char* const next = findChar(from, end, '\r');
        const auto run = static_cast<std::size_t>((next ? next : end) - from);
        std::memmove(to, from, run);
        to += run;
        from += run;
    }
    text.resize(static_cast<std::size_t>(to - text.data()));
}

SourceText::SourceText(std::string text) : text_(std::move(text)), lineStarts_(findLineStarts(text_)) {}

std::size_t SourceText::offsetOf(const Trn::Position& position) const {
    if (position.line == 0) return npos;
    if (position.line > lineStarts_.size()) return text_.size();
    // Column 0 is the line feed in front of the line; for line 1 that wraps round to npos.
    const std::size_t offset = std::size_t{lineStarts_[position.line - 1]} + position.column - 1;
    return offset == npos ? npos : std::min(offset, text_.size());
}

Trn::Position SourceText::positionOf(std::size_t offset) const {
    const auto behind = std::upper_bound(lineStarts_.begin(), lineStarts_.end(), offset);
    const auto line = static_cast<std::uint32_t>(behind - lineStarts_.begin());
    if (offset < text_.size() && text_[offset] == '\n') return {line + 1, 0};
    return {line, static_cast<std::uint32_t>(offset - lineStarts_[line - 1] + 1)};
}

std::size_t SourceText::lineStart(std::uint32_t line) const {
    if (line == 0) return 0;
    return line > lineStarts_.size() ? text_.size() : lineStarts_[line - 1];
}

std::string_view SourceReader::readUpTo(const Trn::Position& position) {
    const std::size_t target = source_->offsetOf(position);
    return readToOffset(target == SourceText::npos ? 0 : target);
}

std::string_view SourceReader::readThrough(const Trn::Position& position) {
    const std::size_t target = source_->offsetOf(position);
    return readToOffset(target == SourceText::npos ? 0 : target + 1);
}

std::string_view SourceReader::readRest() {
    return readToOffset(source_->size());
}

std::string_view SourceReader::peekUpTo(const Trn::Position& position) const {
    return SourceReader(*this).readUpTo(position);
}

std::string_view SourceReader::readToOffset(std::size_t end) {
    const std::size_t stop = std::min(end, source_->size());
    if (stop <= offset_) return std::string_view();
    const std::string_view read = source_->text().substr(offset_, stop - offset_);
    offset_ = stop;
    return read;
}

} // namespace Zelmar
