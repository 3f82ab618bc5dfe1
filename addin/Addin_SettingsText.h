#ifndef KERFLINE_ADDIN_SETTINGSTEXT_H
#define KERFLINE_ADDIN_SETTINGSTEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Addin {

/// The text of a settings file, and its section "Options".
///
///     # a comment
///     [Options]
///     OnFormat=My scheme
///     FileExtensions="c,h "
///
/// A value stands as it is, without the blanks around it. One that could not be read back then is
/// in double quotes, with \n \t \v \r \" and \\ for what they usually mean. Of a name that stands
/// twice the last counts. Whatever this class does not know, it keeps where it is.
class SettingsText {
public:
    explicit SettingsText(std::string_view text);

    /// Nothing if the section has no such name.
    std::optional<std::string> value(std::string_view name) const;
    /// In the line that has the name, or in a new one at the end of the section.
    void setValue(std::string_view name, std::string_view value);

    std::string text() const;

private:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    std::size_t lineOf(std::string_view name) const;
    std::size_t endOfSection();

    /// A byte order mark, or nothing.
    std::string_view start_;
    /// Without their line feeds; a line that ends in a carriage return keeps it.
    std::vector<std::string> lines_;
};

} // namespace Addin

#endif
