#ifndef KERFLINE_ZELMAR_RAWTEXT_H
#define KERFLINE_ZELMAR_RAWTEXT_H

#include <ostream>
#include <string>
#include <utility>

namespace Zelmar {

/// Text that keeps its own leading white space when it is inserted. Lines still get the indent.
///     out << RawText("  a\n b");      // indent "\t": "\t  a\n\t b"
/// Into a stream of another kind it is inserted as it stands.
class RawText {
public:
    explicit RawText(std::string text) : text_(std::move(text)) {}

    const std::string& text() const { return text_; }

private:
    std::string text_;
};

std::ostream& operator<<(std::ostream& out, const RawText& raw);

} // namespace Zelmar

#endif
