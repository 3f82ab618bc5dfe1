#ifndef KERFLINE_ZELMAR_OTEXTDOCBUF_H
#define KERFLINE_ZELMAR_OTEXTDOCBUF_H

#include "streams/Zelmar_IndentWriter.h"
#include "streams/Zelmar_LineBuf.h"

#include <streambuf>
#include <string_view>

namespace Zelmar {

/// A stream buffer that converts tabs and spaces by its mode and counts lines and columns on the
/// way to another buffer, which is not owned.
///
/// Every write is passed on at once, but for the spaces that mode 2 holds back until the next other
/// character or sync. A write that the destination refuses fails and leaves the place where it was.
class OTextDocBuf : public std::streambuf {
public:
    /// A tab size or line below 1 is raised to 1, a column below 0 to 0.
    OTextDocBuf(std::streambuf* destination, int wsMode, int tabSize, int startLine, int startColumn);

    int line() const { return writer_.line(); }
    int column() const { return writer_.column(); }
    int tabSize() const { return writer_.tabSize(); }
    int wsMode() const { return writer_.wsMode(); }
    /// Both write the spaces held back first.
    void setTabSize(int tabSize);
    void setWsMode(int wsMode);

protected:
    OTextDocBuf(std::streambuf* destination, const IndentStreamState& state);

    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override;

    IndentWriter& writer() { return writer_; }
    const IndentWriter& writer() const { return writer_; }

private:
    bool put(std::string_view text);
    bool passOn();

    LineBuf lineBuf_;
    IndentWriter writer_;
};

} // namespace Zelmar

#endif
