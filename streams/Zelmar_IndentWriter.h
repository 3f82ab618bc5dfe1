#ifndef KERFLINE_ZELMAR_INDENTWRITER_H
#define KERFLINE_ZELMAR_INDENTWRITER_H

#include "streams/Zelmar_Columns.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace Zelmar {

/// The characters that do not just go on their line as they are, by white space mode.
class WsStops {
public:
    explicit constexpr WsStops(std::string_view chars) {
        for (const char c : chars) has_[static_cast<unsigned char>(c)] = true;
    }
    constexpr bool has(char c) const { return has_[static_cast<unsigned char>(c)]; }

private:
    std::array<bool, 256> has_{};
};
inline constexpr WsStops kWsStops[] = {WsStops("\t\n"), WsStops("\t\n\"'"), WsStops(" \t\n\"'")};

/// Where the further lines of a construct go that owns its shape: by `shift` columns beside the place
/// that they have in the text that they are copied from, but not beyond the left edge.
struct LineShape {
    bool kept = false;
    int shift = 0;
};

/// A snapshot of how and where a writer writes. Built from it, a scratch writer goes on at the
/// same column under the same settings, so that text can be measured or laid out in place.
struct IndentStreamState {
    std::string indent;
    bool keepLeadingWs = false;
    int wsMode = 0;
    int tabSize = 1;
    int line = 1;
    int column = 0;
    LineShape shape = {};
    // Of a line that is still to begin: it goes on a copied text, with this white space in front.
    bool copiedFeed = false;
    std::string shapeWs = {};
    /// Of a line that has begun: the column of its first character, or -1 if nobody knows.
    int lineIndent = -1;
};

class WriterMark;

/// Appends text to a string and puts the current indent in front of every line.
///
/// A pass sets the indent and writes text; it never writes an indent itself. White space that
/// arrives at column 0 is dropped, so the indentation of the source cannot leak into the result,
/// unless keepLeadingWs is set. A line feed at column 0 writes no indent.
///
/// Where a backslash joins two lines in the middle of a word or an operator, the second line starts at
/// column 0: an indent would tear the token apart. A blank that keeps two words apart there stays.
///
///     out.setIndent("    ");
///     out.write("{\n  a();\n\n}\n");      // "    {\n    a();\n\n    }\n"
///
/// While a shape is kept, a line that write() begins behind a line feed that was copied too stands by
/// its own white space and the shift instead. A line that a value began has the indent as ever, and
/// so has every line while leading white space is kept.
///
/// Lines count from 1, columns from 0, and a tab runs to the next tab stop here. Tabs and spaces
/// are converted on the way by wsMode (0 leaves them, 1 tabs to spaces, 2 spaces to tabs), but not
/// inside string and character literals. In mode 2 spaces are held back until it is known whether
/// they make up a tab: sync() lets them out. With any other mode every write fails, see failed().
class IndentWriter {
public:
    IndentWriter() = default;
    /// Goes on at the place that `state` tells. A tab size or a line below 1 is raised to 1, a
    /// column below 0 to 0.
    explicit IndentWriter(const IndentStreamState& state);

    int line() const { return line_; }
    int column() const { return column_; }
    int tabSize() const { return tabSize_; }
    int wsMode() const { return wsMode_; }
    const std::string& indent() const { return indent_; }
    bool keepLeadingWs() const { return keepLeadingWs_; }
    /// True once something was to be written in a mode that does not exist. Nothing was written then.
    bool failed() const { return failed_; }
    /// True if a backslash directly behind some character has joined the line that starts now.
    bool endsInJoin() const;
    IndentStreamState state() const;
    const LineShape& shape() const { return shape_; }
    /// The column at which the next character comes to stand, white space aside that is dropped.
    int nextColumn() const;
    /// White space for `width` columns under this writer's mode and tab size, with tabs where the
    /// indent has some. Unlike makeIndent it never falls short.
    std::string columnIndent(int width) const;
    /// The column of the first character of the current line that is not white space; where the
    /// line is blank so far, that of its end, and at the start of a line the width of the indent.
    int lineIndent() const;

    /// Takes effect at the next start of a line.
    void setIndent(std::string_view indent) { indent_.assign(indent); }
    void setKeepLeadingWs(bool keep) { keepLeadingWs_ = keep; }
    /// Takes effect behind the next line feed.
    void setShape(const LineShape& shape);
    /// At the start of a line: it stands at the indent, and the lines behind it keep their distance from
    /// it. `sourceColumn` is the column of its first character in the text that it is copied from.
    void anchorShape(int sourceColumn);
    /// Says that the line feed written last was one of the source, however it was written.
    void noteCopiedFeed();
    /// Both let held-back spaces out first. A tab size below 1 counts as 1.
    void setTabSize(int tabSize);
    void setWsMode(int wsMode);

    /// Writes under the rules of the writer: indent in front of lines, leading white space dropped.
    void write(std::string_view text) {
        text.remove_prefix(copyPlain(text));
        if (!text.empty()) writeLines(text);
    }
    void put(char c) { write(std::string_view(&c, 1)); }
    /// Writes with leading white space kept; each new line still gets the indent.
    void writeExact(std::string_view text) {
        text.remove_prefix(copyPlain(text));
        if (!text.empty()) writeUnder(text, indent_, true);
    }
    /// Writes with leading white space kept and no indent: for text that was laid out before.
    void writeRaw(std::string_view text);
    /// Writes every byte as it stands, tabs and spaces too, up to the end of a literal or a region:
    /// for text whose white space has a meaning of its own.
    void writeVerbatim(std::string_view text);
    /// Writes out the spaces that mode 2 holds back.
    void sync();

    /// The width in columns of the current indent, counted from column 0.
    int indentWidth() const;
    /// The white space for `width` columns under this writer's indent, mode and tab size.
    std::string makeIndent(int width) const;

    /// The text so far; held-back spaces are not in it before sync(). Good until the next write.
    std::string_view text() const { return {buffer_.data(), size_}; }
    /// Lets held spaces out and hands the text over; the writer goes on with an empty one.
    std::string takeText();
    /// Forgets the text so far, which the caller has passed on. Spaces held back stay held, and the
    /// line and the column go on.
    void clearText();
    /// The place that the writer stands at, to go back to: what is written from here on is forgotten
    /// then, and the settings are those of now.
    WriterMark mark();
    void goBackTo(const WriterMark& mark);
    /// Says that the writer stands at another place, such as before a write that went nowhere.
    void setPlace(int line, int column);
    void reserve(std::size_t bytes);

private:
    /// Copies what stays on the line as it is, and returns how much that was. Most texts that arrive are
    /// single tokens: for them this is all.
    std::size_t copyPlain(std::string_view text) {
        if (column_ == 0 || pendingSpaces_ > 0 || !isWsMode(wsMode_)) return 0;
        if (buffer_.size() - size_ < text.size()) grow(text.size());
        const WsStops& stops = kWsStops[wsMode_];
        char* const out = buffer_.data() + size_;
        std::size_t length = 0;
        for (; length < text.size() && !stops.has(text[length]); ++length) out[length] = text[length];
        if (length == 0) return 0;
        size_ += length;
        column_ += static_cast<int>(length);
        prevChar_ = static_cast<unsigned char>(text[length - 1]);
        copiedFeed_ = false;
        return length;
    }
    void grow(std::size_t more);
    void append(std::string_view text);
    void append(std::size_t count, char c);
    void writeLines(std::string_view text);
    void writeUnder(std::string_view text, std::string_view indent, bool keepLeadingWs);
    void writeShaped(std::string_view text);
    std::string shapedIndent() const;
    std::string tabbedIndent(int width) const;
    void writeIndent(std::string_view indent);
    void beginLineAt(std::size_t offset) { lineStart_ = offset, firstIndent_ = -1; }
    std::string_view startLine(std::string_view text, std::string_view indent, bool keepLeadingWs);
    // These three write as far as the first line feed and return how much that was.
    std::size_t writeLine(std::string_view text);
    std::size_t copyLine(std::string_view text);
    std::size_t convertLine(std::string_view text);
    void copyRun(std::string_view run);
    void convert(char c);
    void trackLiteral(char c);
    bool holdBack();
    void flushHeldSpaces();
    int tab() const { return tabSize_ < 1 ? 1 : tabSize_; }

    // The text, and behind it room for more.
    std::string buffer_;
    std::size_t size_ = 0;
    std::string indent_;
    bool keepLeadingWs_ = false;
    bool failed_ = false;
    /// White space alone has come at the start of the line and was dropped.
    bool droppedBlank_ = false;
    int wsMode_ = 0;
    int tabSize_ = 1;
    int line_ = 1;
    int column_ = 0;
    LineShape shape_;
    // Of the current line: where it begins in the text, whether write() ended the one before, and the
    // white space that the text copied has in front of it.
    std::size_t lineStart_ = 0;
    bool copiedFeed_ = false;
    std::string shapeWs_;
    int firstIndent_ = -1; // of a line that was begun elsewhere
    // Only mode 1 and 2 look at these. Characters are held as ints: -1 means none.
    int pendingSpaces_ = 0;
    int prevChar_ = -1;
    int quote_ = -1;
};

/// A place in the text of a writer, and how the writer stood there. Good as long as the writer has all of
/// that text.
class WriterMark {
public:
    int line() const { return writer_.line(); }

private:
    friend class IndentWriter;
    explicit WriterMark(IndentWriter writer) : writer_(std::move(writer)) {}

    IndentWriter writer_; // all of it but its text
};

/// The white space that fills `width` columns under the settings of `writer`.
inline std::string makeIndent(const IndentWriter& writer, int width) {
    return writer.makeIndent(width);
}

/// Sets an indent for the length of a scope. Works on a writer and on an indent stream.
template <class Stream> class IndentGuard {
public:
    IndentGuard(Stream& stream, std::string_view indent) : stream_(stream), saved_(stream.indent()) {
        stream_.setIndent(std::string(indent));
    }
    ~IndentGuard() { stream_.setIndent(saved_); }
    IndentGuard(const IndentGuard&) = delete;
    IndentGuard& operator=(const IndentGuard&) = delete;

private:
    Stream& stream_;
    std::string saved_;
};

/// Lets no shape be kept for the length of a scope. A line feed that ends it counts as copied.
class ShapeGuard {
public:
    explicit ShapeGuard(IndentWriter& writer) : writer_(writer), saved_(writer.shape()) {
        if (saved_.kept) writer_.setShape({});
    }
    ~ShapeGuard() {
        if (!saved_.kept) return;
        writer_.setShape(saved_);
        writer_.noteCopiedFeed();
    }
    ShapeGuard(const ShapeGuard&) = delete;
    ShapeGuard& operator=(const ShapeGuard&) = delete;

private:
    IndentWriter& writer_;
    LineShape saved_;
};

/// Sets whether leading white space is kept, for the length of a scope.
template <class Stream> class KeepWsGuard {
public:
    KeepWsGuard(Stream& stream, bool keep) : stream_(stream), saved_(stream.keepLeadingWs()) {
        stream_.setKeepLeadingWs(keep);
    }
    ~KeepWsGuard() { stream_.setKeepLeadingWs(saved_); }
    KeepWsGuard(const KeepWsGuard&) = delete;
    KeepWsGuard& operator=(const KeepWsGuard&) = delete;

private:
    Stream& stream_;
    bool saved_;
};

} // namespace Zelmar

#endif
