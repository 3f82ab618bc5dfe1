#ifndef KERFLINE_ZELMAR_LINEBUF_H
#define KERFLINE_ZELMAR_LINEBUF_H

#include <array>
#include <streambuf>

namespace Zelmar {

/// A stream buffer on top of another that makes one line feed of every line end.
///
/// On input LF, CR and CRLF each give one line feed, also where a file mixes them. On output a line
/// feed becomes what `mode` tells; everything else goes through. The four characters read last can
/// be put back. The wrapped buffer is not owned; its read errors show as the end of the text.
class LineBuf : public std::streambuf {
public:
    enum Mode { kCrLf = 1, kLf = 2 };

    /// `mode` is kCrLf or kLf; with any other number a line feed is written as it stands.
    LineBuf(std::streambuf* source, int mode) : source_(source), mode_(mode) {}
    LineBuf(const LineBuf&) = delete;
    LineBuf& operator=(const LineBuf&) = delete;

protected:
    int_type underflow() override;
    int_type pbackfail(int_type c) override;
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override;

private:
    static constexpr std::size_t kPutBack = 4;
    static constexpr std::size_t kBufferSize = 16384;

    std::size_t fill();
    bool isWrittenAsItStands() const { return mode_ != kCrLf; }

    std::streambuf* source_;
    int mode_;
    std::array<char, kBufferSize> buffer_;
};

} // namespace Zelmar

#endif
