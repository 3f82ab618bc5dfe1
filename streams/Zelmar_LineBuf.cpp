#include "streams/Zelmar_LineBuf.h"

#include <algorithm>
#include <cstring>

namespace Zelmar {

LineBuf::int_type LineBuf::underflow() {
    if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
    char* const body = buffer_.data() + kPutBack;
    const std::size_t kept = std::min(kPutBack, static_cast<std::size_t>(gptr() - eback()));
    if (kept > 0) std::memmove(body - kept, gptr() - kept, kept);
    const std::size_t count = fill();
    setg(body - kept, body, body + count);
    return count == 0 ? traits_type::eof() : traits_type::to_int_type(*body);
}

std::size_t LineBuf::fill() {
    std::size_t used = kPutBack;
    while (used < kBufferSize) {
        const int_type c = source_->sbumpc();
        if (traits_type::eq_int_type(c, traits_type::eof())) break;
        const bool isReturn = c == traits_type::to_int_type('\r');
        buffer_[used++] = isReturn ? '\n' : traits_type::to_char_type(c);
        // Asks the source, not this buffer: the pair may lie across the end of a fill.
        if (isReturn && source_->sgetc() == traits_type::to_int_type('\n')) source_->sbumpc();
    }
    return used - kPutBack;
}

LineBuf::int_type LineBuf::pbackfail(int_type c) {
    if (gptr() == eback()) return traits_type::eof();
    gbump(-1);
    if (!traits_type::eq_int_type(c, traits_type::eof())) *gptr() = traits_type::to_char_type(c);
    return traits_type::not_eof(c);
}

LineBuf::int_type LineBuf::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char ch = traits_type::to_char_type(c);
    if (ch == '\n' && !isWrittenAsItStands()) {
        if (traits_type::eq_int_type(source_->sputc('\r'), traits_type::eof())) return traits_type::eof();
    }
    return source_->sputc(ch);
}

std::streamsize LineBuf::xsputn(const char* text, std::streamsize count) {
    return isWrittenAsItStands() ? source_->sputn(text, count) : std::streambuf::xsputn(text, count);
}

int LineBuf::sync() {
    return source_->pubsync();
}

} // namespace Zelmar
