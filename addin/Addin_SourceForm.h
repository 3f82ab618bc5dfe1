#ifndef KERFLINE_ADDIN_SOURCEFORM_H
#define KERFLINE_ADDIN_SOURCEFORM_H

#include "addin/Addin_Utf16.h"

#include <optional>
#include <string>
#include <string_view>

namespace Addin {

/// How the bytes of a file stand for its text: the line ends, and a byte order mark or none, which may
/// be one of UTF-16. Taken from the source, and given back to the result.
class SourceForm {
public:
    explicit SourceForm(std::string_view bytes);

    /// The text in `bytes`, in line feeds and without a byte order mark. What is marked as UTF-16 comes
    /// in UTF-8; if it is ill-formed or in UTF-32, it comes as it stands, with its mark.
    std::string textOf(std::string_view bytes) const;
    /// The bytes for `text`. Every line gets the line end that most lines of the source have, or
    /// of several such the one that comes first.
    std::string bytesOf(std::string_view text) const;

private:
    std::string withLineEnds(std::string_view text) const;

    std::string_view byteOrderMark_;
    std::optional<Utf16Order> utf16_;
    std::string_view lineEnd_;
};

} // namespace Addin

#endif
