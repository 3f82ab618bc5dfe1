#ifndef KERFLINE_ZELMAR_OINDENTBUF_H
#define KERFLINE_ZELMAR_OINDENTBUF_H

#include "streams/Zelmar_OTextDocBuf.h"

#include <string>

namespace Zelmar {

/// An OTextDocBuf that puts an indent in front of every line that is not empty, and drops the white
/// space that a line is given at its start unless it is told to keep it.
class OIndentBuf : public OTextDocBuf {
public:
    OIndentBuf(std::streambuf* destination, const IndentStreamState& state)
        : OTextDocBuf(destination, state) {}

    const std::string& indent() const { return writer().indent(); }
    bool keepLeadingWs() const { return writer().keepLeadingWs(); }
    IndentStreamState state() const { return writer().state(); }
    /// Takes effect at the next start of a line.
    void setIndent(const std::string& indent) { writer().setIndent(indent); }
    void setKeepLeadingWs(bool keep) { writer().setKeepLeadingWs(keep); }
};

} // namespace Zelmar

#endif
