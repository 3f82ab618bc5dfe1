#ifndef KERFLINE_CLI_SOURCEFILE_H
#define KERFLINE_CLI_SOURCEFILE_H

#include <string>
#include <string_view>

namespace Cli {

/// The bytes of a source and the text that the engine sees of it: line feeds only, and no byte
/// order mark. What the file had of both goes back into the result.
class SourceFile {
public:
    explicit SourceFile(std::string bytes);

    const std::string& bytes() const { return bytes_; }
    const std::string& text() const { return text_; }

    /// The bytes that a file with the text `laidOut` has. They are those of the source if nothing
    /// changed, so that a file of mixed line ends stays one; otherwise every line gets the end
    /// that most lines of the source have.
    std::string withForm(std::string laidOut) const;

    /// Two bytes a character: white space of one byte would shift all that follows.
    bool isWideText() const;

private:
    std::string bytes_;
    std::string text_;
    bool hasByteOrderMark_ = false;
    std::string_view lineEnd_ = "\n";
};

} // namespace Cli

#endif
