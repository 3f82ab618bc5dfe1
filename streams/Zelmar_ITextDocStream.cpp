#include "streams/Zelmar_ITextDocStream.h"

namespace Zelmar {

ITextDocStreamBase::ITextDocStreamBase(std::streambuf* source, int wsMode, int tabSize, int startLine,
                                       int startColumn)
    : stringBuf_(std::ios::in | std::ios::binary), docBuf_(source, wsMode, tabSize, startLine, startColumn) {}

ITextDocStreamBase::ITextDocStreamBase(const std::string& text, int wsMode, int tabSize, int startLine,
                                       int startColumn)
    : stringBuf_(text, std::ios::in | std::ios::binary),
      docBuf_(&stringBuf_, wsMode, tabSize, startLine, startColumn) {}

ITextDocStream::ITextDocStream(std::istream& source, int wsMode, int tabSize, int startLine, int startColumn)
    : ITextDocStreamBase(source.rdbuf(), wsMode, tabSize, startLine, startColumn), std::istream(&docBuf_) {}

ITextDocStream::ITextDocStream(const std::string& text, int wsMode, int tabSize, int startLine,
                               int startColumn)
    : ITextDocStreamBase(text, wsMode, tabSize, startLine, startColumn), std::istream(&docBuf_) {}

bool rewind(std::istream& stream) {
    stream.clear();
    stream.seekg(0, std::ios::beg);
    return !stream.fail();
}

} // namespace Zelmar
