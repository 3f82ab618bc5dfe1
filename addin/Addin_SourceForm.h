#ifndef KERFLINE_ADDIN_SOURCEFORM_H
#define KERFLINE_ADDIN_SOURCEFORM_H

#include <string>
#include <string_view>

namespace Addin {

/// How the bytes of a file stand for its text: the line ends, and a byte order mark or none. Taken
/// from the source, and given back to the result.
class SourceForm {
public:
    explicit SourceForm(std::string_view bytes);

    /// The text in `bytes`, in line feeds and without a byte order mark.
    std::string textOf(std::string_view bytes) const;
    /// The bytes for `text`. Every line gets the line end that most lines of the source have, or
    /// of several such the one that comes first.
    std::string bytesOf(std::string_view text) const;

private:
    bool hasByteOrderMark_;
    std::string_view lineEnd_;
};

} // namespace Addin

#endif
