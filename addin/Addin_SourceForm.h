#ifndef KERFLINE_ADDIN_SOURCEFORM_H
#define KERFLINE_ADDIN_SOURCEFORM_H

#include "addin/Addin_Utf16.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Addin {

/// How the bytes of a file stand for its text: the line ends, and a byte order mark or none, which may
/// be one of UTF-16. Taken from the source, and given back to the result.
class SourceForm {
public:
    explicit SourceForm(std::string_view bytes);

    /// The text in `bytes`, in line feeds and without a byte order mark. What is marked as UTF-16 comes
    /// in UTF-8; if it is ill-formed or in UTF-32, it comes as it stands, with its mark.
    std::string textOf(std::string_view bytes) const;
    /// The bytes for `text`, which has the source's characters in their order and white space of its
    /// own. In a source with several kinds of line ends each line keeps its own: a line end that
    /// stands where the source has none is like that of the line that was cut.
    std::string bytesOf(std::string_view text) const;

private:
    /// One line end of the source.
    struct LineEnd {
        /// How many characters that are not white space stand in front of it.
        std::size_t inkBefore;
        std::string_view bytes;
    };

    void noteLineEnds(std::string_view text);
    std::string withLineEnds(std::string_view text) const;
    void appendMixed(std::string_view text, std::string& bytes) const;

    std::string_view byteOrderMark_;
    std::optional<Utf16Order> utf16_;
    /// The only kind of line end; empty if there are several.
    std::string_view lineEnd_;
    /// All of them, if there are several kinds.
    std::vector<LineEnd> lineEnds_;
};

} // namespace Addin

#endif
