#ifndef KERFLINE_TESTS_GOLDENFILE_H
#define KERFLINE_TESTS_GOLDENFILE_H

#include "src/scheme/Norvane_PropertySet.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Golden {

/// One text of a case: where its marker stands in the file, and what it says.
struct ExpectedText {
    /// The line of the "<<<", counted from 1.
    int line = 0;
    /// "<<< same": the text in front of it comes out as it is.
    bool isSame = false;
    std::string text;
};

/// A source and what becomes of it.
struct Case {
    std::string title;
    Norvane::PropertySet scheme;
    /// The line of the ">>>", counted from 1.
    int line = 0;
    bool hasEscapes = false;
    bool isUnstable = false;
    std::string source;
    ExpectedText expected;
    /// What a second run makes of it; only in a case that is marked (unstable).
    std::optional<ExpectedText> second;
};

/// Tells what is wrong with a case file, and in which line.
class FormatError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads a file of cases:
///
///     ### White space before the "{" of control statements
///     scheme knr                          (a shipped scheme to start from; the empty one without it)
///     3 WS_BEFORE_CS_OPEN_BRACE "\n"      (option lines as in a scheme file)
///     >>> (escapes) a title, if there are several cases under the same options
///     while (a)\t{\x20
///     <<<
///     while (a)
///     {\x20
///
/// "<<< same" in the place of a text: nothing changes. With (unstable) a second "<<<" follows with
/// what a second run gives. Under (escapes) \t, \n, \r, \\ and \xHH are spelled out, and a backslash
/// at the end of a line takes its line feed away. Blank lines in front of the next ">>>" or "###"
/// belong to no text. Throws FormatError.
std::vector<Case> parseCases(const std::string& fileName, const std::string& content);
std::vector<Case> readCases(const std::string& path);

/// Spells `text` as the lines of a case. Nothing if they would not read back as the same text.
std::optional<std::string> spellText(const std::string& text, bool hasEscapes);

std::string readWholeFile(const std::string& path);

} // namespace Golden

#endif
