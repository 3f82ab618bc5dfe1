#include "streams/Zelmar_OTextDocStream.h"

namespace Zelmar {

OTextDocStream::~OTextDocStream() {
    try {
        docBuf_->pubsync();
    } catch (...) {
        // A destination that throws here has nobody left to tell.
    }
}

} // namespace Zelmar
