#ifndef KERFLINE_ZELMAR_ITEXTDOCBUF_H
#define KERFLINE_ZELMAR_ITEXTDOCBUF_H

#include "streams/Zelmar_LineBuf.h"

#include <deque>
#include <streambuf>

namespace Zelmar {

/// A stream buffer that knows the line and the column of the next character to be read.
///
/// Lines count from the start line, columns from 0. A tab is one column wide, whatever the tab size
/// says: columns of input are offsets in a line, made to slice it and not to measure it. Up to four
/// characters can be put back, also over the end of a line. It cannot seek.
class ITextDocBuf : public std::streambuf {
public:
    /// A tab size or line below 1 is raised to 1, a column below 0 to 0. `source` is not owned.
    ITextDocBuf(std::streambuf* source, int wsMode, int tabSize, int startLine, int startColumn);

    int line() const { return line_; }
    int column() const { return column_; }
    /// The column in front of the character read last; -1 if none was, or if more were put back than
    /// are remembered.
    int lastLineCol() const { return columnHistory_.back(); }

    // Both are only kept: they change nothing about reading.
    int tabSize() const { return tabSize_; }
    int wsMode() const { return wsMode_; }
    void setTabSize(int tabSize) { tabSize_ = tabSize; }
    void setWsMode(int wsMode) { wsMode_ = wsMode; }

protected:
    int_type underflow() override;
    int_type uflow() override;
    int_type pbackfail(int_type c) override;

private:
    void advance(char c);
    void stepBackPosition();
    int_type putBackChar(int_type c);
    int_type ungetPastPeeked();

    LineBuf lineBuf_;
    int wsMode_;
    int tabSize_;
    int startLine_;
    int startColumn_;
    int_type peeked_ = traits_type::eof();
    int line_;
    int column_;
    // The columns in front of the characters read last, which a step back over a line end needs.
    std::deque<int> columnHistory_;
};

} // namespace Zelmar

#endif
