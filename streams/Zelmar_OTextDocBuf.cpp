#include "streams/Zelmar_OTextDocBuf.h"

#include "streams/Zelmar_Columns.h"

namespace Zelmar {

// Without an indent of its own and with all leading white space kept, the writer only converts.
OTextDocBuf::OTextDocBuf(std::streambuf* destination, int wsMode, int tabSize, int startLine, int startColumn)
    : OTextDocBuf(destination, IndentStreamState{"", true, wsMode, tabSize, startLine, startColumn}) {}

OTextDocBuf::OTextDocBuf(std::streambuf* destination, const IndentStreamState& state)
    : lineBuf_(destination, LineBuf::kLf), writer_(state) {}

void OTextDocBuf::setTabSize(int tabSize) {
    sync();
    writer_.setTabSize(tabSize);
}

void OTextDocBuf::setWsMode(int wsMode) {
    sync();
    writer_.setWsMode(wsMode);
}

OTextDocBuf::int_type OTextDocBuf::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    const char ch = traits_type::to_char_type(c);
    return put(std::string_view(&ch, 1)) ? c : traits_type::eof();
}

std::streamsize OTextDocBuf::xsputn(const char* text, std::streamsize count) {
    if (count <= 0) return 0;
    return put(std::string_view(text, static_cast<std::size_t>(count))) ? count : 0;
}

int OTextDocBuf::sync() {
    writer_.sync();
    return passOn() ? lineBuf_.pubsync() : -1;
}

bool OTextDocBuf::put(std::string_view text) {
    if (!isWsMode(writer_.wsMode())) return false;
    const int line = writer_.line();
    const int column = writer_.column();
    writer_.write(text);
    if (passOn()) return true;
    writer_.setPlace(line, column);
    return false;
}

bool OTextDocBuf::passOn() {
    const auto count = static_cast<std::streamsize>(writer_.text().size());
    const bool done = lineBuf_.sputn(writer_.text().data(), count) == count;
    writer_.clearText();
    return done;
}

} // namespace Zelmar
