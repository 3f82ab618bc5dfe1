#ifndef KERFLINE_ZELMAR_OINDENTSTREAM_H
#define KERFLINE_ZELMAR_OINDENTSTREAM_H

#include "streams/Zelmar_IndentWriter.h"
#include "streams/Zelmar_OIndentBuf.h"
#include "streams/Zelmar_OTextDocStream.h"

#include <ostream>
#include <sstream>
#include <string>

namespace Zelmar {

/// The buffers of an OIndentStream: a base, so that they stand before the stream is built on them.
class OIndentStreamBase {
protected:
    OIndentStreamBase(std::streambuf* destination, const IndentStreamState& state);
    /// The own string buffer takes the text, behind `initial`.
    OIndentStreamBase(const std::string& initial, const IndentStreamState& state);

    std::stringbuf stringBuf_;
    OIndentBuf indentBuf_;
};

/// An output stream that puts the current indent in front of every line.
///
/// Writes under the rules of IndentWriter, for code that wants a stream. Lines count from 1 and
/// columns from 0; a tab runs to the next tab stop. A write fails if the destination fails or if the
/// white space mode does not exist; nothing throws. A given destination is not owned and must
/// outlive the stream, whose destructor still writes the spaces held back.
class OIndentStream : public OIndentStreamBase, public OTextDocStream {
public:
    // On the buffer of a given stream, or on a given buffer.
    OIndentStream(std::ostream& destination, const std::string& indent, bool keepLeadingWs, int wsMode,
                  int tabSize, int startLine, int startColumn);
    OIndentStream(std::streambuf* destination, const std::string& indent, bool keepLeadingWs, int wsMode,
                  int tabSize, int startLine, int startColumn);

    // On a string buffer of its own, for str(). It starts empty or with a copy of `initial`, which
    // counts in no line or column.
    OIndentStream(const std::string& indent, bool keepLeadingWs, int wsMode, int tabSize, int startLine,
                  int startColumn);
    OIndentStream(const std::string& initial, const std::string& indent, bool keepLeadingWs, int wsMode,
                  int tabSize, int startLine, int startColumn);

    // Going on where `other` or a snapshot stands, under the same settings. No text is copied.
    OIndentStream(std::ostream& destination, const OIndentStream& other);
    OIndentStream(std::streambuf* destination, const OIndentStream& other);
    OIndentStream(const OIndentStream& other);
    OIndentStream(std::ostream& destination, const IndentStreamState& state);
    explicit OIndentStream(const IndentStreamState& state);
    OIndentStream& operator=(const OIndentStream&) = delete;

    const std::string& indent() const { return indentBuf_.indent(); }
    bool keepLeadingWs() const { return indentBuf_.keepLeadingWs(); }
    /// Takes effect at the next start of a line.
    void setIndent(const std::string& indent) { indentBuf_.setIndent(indent); }
    void setKeepLeadingWs(bool keep) { indentBuf_.setKeepLeadingWs(keep); }

    IndentStreamState state() const { return indentBuf_.state(); }
    operator IndentStreamState() const { return state(); }

    /// Flushes the stream and returns the text of its own string buffer: empty if it has a given
    /// destination.
    std::string str();
};

/// The white space that fills `width` columns under the settings of `stream`.
std::string makeIndent(const OIndentStream& stream, int width);

} // namespace Zelmar

#endif
