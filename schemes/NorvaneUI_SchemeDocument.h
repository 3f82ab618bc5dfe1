#ifndef KERFLINE_NORVANEUI_SCHEMEDOCUMENT_H
#define KERFLINE_NORVANEUI_SCHEMEDOCUMENT_H

#include "src/scheme/Norvane_PropertySet.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace NorvaneUI {

/// The text of a scheme file, line by line. An edit changes the value within its line, so that
/// comments, the order of the lines and their layout are those of whoever wrote the file.
///
///     # indents            2 TAB_SIZE 8   becomes, with TAB_SIZE 4 and LINE_WRAP on,
///     2 TAB_SIZE 4  # as it was
///     1 LINE_WRAP 1
class SchemeDocument {
public:
    /// `text` is the text of a scheme, with a byte order mark or without.
    explicit SchemeDocument(std::string_view text);

    /// Makes the text say what `scheme` says: changes the values that differ, takes the lines of
    /// options out that the scheme does not have, and adds the others behind the last one.
    void setContent(const Norvane::PropertySet& scheme);
    std::string text() const;

private:
    struct Line {
        std::string text;
        /// What the line says of an option: one value, or none.
        Norvane::PropertySet value;
        bool gone = false;
    };
    /// The type code of a value and its name.
    using Key = std::pair<char, std::string>;

    void setName(const std::string& name);
    void setValue(Line& line, const Norvane::PropertySet& value);
    void add(const Norvane::PropertySet& value);
    std::string endOf(std::size_t line) const;

    std::string_view mark_;
    std::vector<Line> lines_;
    bool endsWithNewLine_ = false;
    /// No line: the number of lines.
    std::size_t nameLine_ = 0;
    /// Where lines are added: behind the last record.
    std::size_t end_ = 0;
    /// The line that counts, which is the last one of several.
    std::map<Key, std::size_t> lineOf_;
};

/// The text with the content of `scheme`. One that cannot be edited line by line is written anew.
std::string editedSchemeText(std::string_view text, const Norvane::PropertySet& scheme);

} // namespace NorvaneUI

#endif
