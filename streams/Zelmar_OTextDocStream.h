#ifndef KERFLINE_ZELMAR_OTEXTDOCSTREAM_H
#define KERFLINE_ZELMAR_OTEXTDOCSTREAM_H

#include "streams/Zelmar_OTextDocBuf.h"

#include <ostream>

namespace Zelmar {

/// An output stream that knows its line and column and converts tabs and spaces. Lines count from 1
/// and columns from 0; a tab runs to the next tab stop. The buffer is not owned; the destructor
/// still writes the spaces that it holds back.
class OTextDocStream : public std::ostream {
public:
    explicit OTextDocStream(OTextDocBuf* buffer) : std::ostream(buffer), docBuf_(buffer) {}
    ~OTextDocStream() override;

    int line() const { return docBuf_->line(); }
    int column() const { return docBuf_->column(); }
    int tabSize() const { return docBuf_->tabSize(); }
    int wsMode() const { return docBuf_->wsMode(); }
    void setTabSize(int tabSize) { docBuf_->setTabSize(tabSize); }
    void setWsMode(int wsMode) { docBuf_->setWsMode(wsMode); }

private:
    OTextDocBuf* docBuf_;
};

} // namespace Zelmar

#endif
