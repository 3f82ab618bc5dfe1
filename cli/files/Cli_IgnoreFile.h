#ifndef KERFLINE_CLI_IGNOREFILE_H
#define KERFLINE_CLI_IGNOREFILE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Cli {

/// True if the whole `text` is of the form `pattern`: "*" stands for any characters but "/", "?" for
/// one of them, "[a-z]" for one of several, "**" between slashes for any folders, and "\" takes the
/// meaning of the character behind it. Bytes count, not characters.
bool matchesPath(std::string_view pattern, std::string_view text);

/// The patterns of one ignore file, with the meaning that they have in a ".gitignore".
class IgnoreFile {
public:
    IgnoreFile() = default;
    explicit IgnoreFile(std::string_view text);

    enum class Verdict { none, ignored, kept };

    struct Match {
        Verdict verdict = Verdict::none;
        /// The line of the pattern that decided, from 1.
        std::size_t line = 0;
    };

    /// `path` starts in the folder of the ignore file. The last pattern that fits decides. A path
    /// below an ignored folder is not looked for here.
    Match match(std::string_view path, bool isFolder) const;

private:
    struct Pattern {
        std::string text;
        std::size_t line = 0;
        bool isNegated = false;
        bool foldersOnly = false;
        /// Holds a slash, so it is about the whole path and not about the last name of it.
        bool isAnchored = false;
    };

    static bool fits(const Pattern& pattern, std::string_view path);
    void add(std::string_view line, std::size_t number);

    std::vector<Pattern> patterns_;
};

} // namespace Cli

#endif
