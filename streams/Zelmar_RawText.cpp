#include "streams/Zelmar_RawText.h"

#include "streams/Zelmar_OIndentStream.h"

namespace Zelmar {

std::ostream& operator<<(std::ostream& out, const RawText& raw) {
    // The stream in front of it in a chain is only known as an ostream.
    auto* const stream = dynamic_cast<OIndentStream*>(&out);
    if (!stream) return out << raw.text();
    const KeepWsGuard keep(*stream, true);
    return out << raw.text();
}

} // namespace Zelmar
