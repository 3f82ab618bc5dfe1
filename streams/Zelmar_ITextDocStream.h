#ifndef KERFLINE_ZELMAR_ITEXTDOCSTREAM_H
#define KERFLINE_ZELMAR_ITEXTDOCSTREAM_H

#include "streams/Zelmar_ITextDocBuf.h"

#include <istream>
#include <sstream>
#include <string>

namespace Zelmar {

/// The buffers of an ITextDocStream: a base, so that they stand before the stream is built on them.
class ITextDocStreamBase {
protected:
    ITextDocStreamBase(std::streambuf* source, int wsMode, int tabSize, int startLine, int startColumn);
    ITextDocStreamBase(const std::string& text, int wsMode, int tabSize, int startLine, int startColumn);

    std::stringbuf stringBuf_;
    ITextDocBuf docBuf_;
};

/// An input stream that knows its line and column and reads every line end as one line feed.
///
/// Lines count from 1 and columns from 0, of the next character to be read; a tab is one column.
/// It cannot be rewound: rewind the stream below and build another one.
class ITextDocStream : private ITextDocStreamBase, public std::istream {
public:
    /// Reads from the buffer of `source`, which must outlive this stream.
    explicit ITextDocStream(std::istream& source, int wsMode = 0, int tabSize = 1, int startLine = 1,
                            int startColumn = 0);
    /// Reads a copy of `text`.
    explicit ITextDocStream(const std::string& text, int wsMode = 0, int tabSize = 1, int startLine = 1,
                            int startColumn = 0);

    int line() const { return docBuf_.line(); }
    int column() const { return docBuf_.column(); }
    int lastLineCol() const { return docBuf_.lastLineCol(); }
    int tabSize() const { return docBuf_.tabSize(); }
    int wsMode() const { return docBuf_.wsMode(); }
    void setTabSize(int tabSize) { docBuf_.setTabSize(tabSize); }
    void setWsMode(int wsMode) { docBuf_.setWsMode(wsMode); }
};

/// Goes back to the start of `stream`, whatever state it is in. Returns false if it then shows a
/// failure, as a stream that cannot seek does.
bool rewind(std::istream& stream);

} // namespace Zelmar

#endif
