#ifndef KERFLINE_ZELMAR_SOURCETEXT_H
#define KERFLINE_ZELMAR_SOURCETEXT_H

#include "trn/Trn_Position.h"

#include <cstddef>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace Zelmar {

/// Reads everything that is left of `in`, with every LF, CR and CRLF turned into one line feed.
std::string readAll(std::istream& in);

/// Turns every CR and CRLF of `text` into a line feed, in place.
void normaliseLineEnds(std::string& text);

/// A whole text in memory, with the offsets of its lines, so that a position is turned into an
/// offset in constant time. The text is given in line feeds only. Texts are below 4 GB.
class SourceText {
public:
    explicit SourceText(std::string text);

    std::string_view text() const { return text_; }
    std::size_t size() const { return text_.size(); }

    /// Offset of the character at `position`. A position behind the end gives size(), one in
    /// front of the start (such as no place at all) gives npos.
    std::size_t offsetOf(const Trn::Position& position) const;
    /// The position of the character at `offset`; logarithmic in the number of lines.
    Trn::Position positionOf(std::size_t offset) const;
    /// Offset of the first character of `line`, counted from 1; size() behind the last line.
    std::size_t lineStart(std::uint32_t line) const;
    std::uint32_t lineCount() const { return static_cast<std::uint32_t>(lineStarts_.size()); }

    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

private:
    std::string text_;
    std::vector<std::uint32_t> lineStarts_; // of line 1, 2, ...
};

/// A read point in a SourceText that only moves forward. A target that has been passed already
/// reads nothing. The views handed out live as long as the text, which must outlive the reader.
class SourceReader {
public:
    explicit SourceReader(const SourceText& source) : source_(&source) {}

    /// Reads up to, not including, the character at `position`.
    std::string_view readUpTo(const Trn::Position& position);
    /// Reads up to and including the character at `position`.
    std::string_view readThrough(const Trn::Position& position);
    /// Reads everything that is left.
    std::string_view readRest();
    /// Looks at what readUpTo would read.
    std::string_view peekUpTo(const Trn::Position& position) const;

    /// Puts the read point next to where it stands, for a reader that has its own idea of an edge.
    void moveTo(std::size_t offset) { offset_ = offset; }

    std::size_t offset() const { return offset_; }
    const SourceText& source() const { return *source_; }

private:
    std::string_view readToOffset(std::size_t end);

    const SourceText* source_;
    std::size_t offset_ = 0;
};

} // namespace Zelmar

#endif
