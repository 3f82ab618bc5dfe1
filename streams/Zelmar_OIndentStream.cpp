#include "streams/Zelmar_OIndentStream.h"

#include "streams/Zelmar_Columns.h"

namespace Zelmar {

OIndentStreamBase::OIndentStreamBase(std::streambuf* destination, const IndentStreamState& state)
    : stringBuf_(std::ios::out | std::ios::binary), indentBuf_(destination, state) {}

// Opened at its end, since the first write would else overwrite the initial text.
OIndentStreamBase::OIndentStreamBase(const std::string& initial, const IndentStreamState& state)
    : stringBuf_(initial, std::ios::out | std::ios::binary | std::ios::ate), indentBuf_(&stringBuf_, state) {}

OIndentStream::OIndentStream(std::ostream& destination, const std::string& indent, bool keepLeadingWs,
                             int wsMode, int tabSize, int startLine, int startColumn)
    : OIndentStream(destination.rdbuf(), indent, keepLeadingWs, wsMode, tabSize, startLine, startColumn) {}

OIndentStream::OIndentStream(std::streambuf* destination, const std::string& indent, bool keepLeadingWs,
                             int wsMode, int tabSize, int startLine, int startColumn)
    : OIndentStreamBase(destination, {indent, keepLeadingWs, wsMode, tabSize, startLine, startColumn}),
      OTextDocStream(&indentBuf_) {}

OIndentStream::OIndentStream(const std::string& indent, bool keepLeadingWs, int wsMode, int tabSize,
                             int startLine, int startColumn)
    : OIndentStream(std::string(), indent, keepLeadingWs, wsMode, tabSize, startLine, startColumn) {}

OIndentStream::OIndentStream(const std::string& initial, const std::string& indent, bool keepLeadingWs,
                             int wsMode, int tabSize, int startLine, int startColumn)
    : OIndentStreamBase(initial, {indent, keepLeadingWs, wsMode, tabSize, startLine, startColumn}),
      OTextDocStream(&indentBuf_) {}

OIndentStream::OIndentStream(std::ostream& destination, const OIndentStream& other)
    : OIndentStream(destination.rdbuf(), other) {}

OIndentStream::OIndentStream(std::streambuf* destination, const OIndentStream& other)
    : OIndentStreamBase(destination, other.state()), OTextDocStream(&indentBuf_) {}

OIndentStream::OIndentStream(const OIndentStream& other) : OIndentStream(other.state()) {}

OIndentStream::OIndentStream(std::ostream& destination, const IndentStreamState& state)
    : OIndentStreamBase(destination.rdbuf(), state), OTextDocStream(&indentBuf_) {}

OIndentStream::OIndentStream(const IndentStreamState& state)
    : OIndentStreamBase(std::string(), state), OTextDocStream(&indentBuf_) {}

std::string OIndentStream::str() {
    flush();
    return stringBuf_.str();
}

std::string makeIndent(const OIndentStream& stream, int width) {
    return makeIndent(stream.indent(), stream.wsMode(), stream.tabSize(), width);
}

} // namespace Zelmar
