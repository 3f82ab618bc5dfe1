#ifndef KERFLINE_NORVANEQT_TEXT_H
#define KERFLINE_NORVANEQT_TEXT_H

#include <QString>

#include <string>
#include <string_view>

namespace NorvaneQt {

/// Texts of the logic are UTF-8.
QString toQt(std::string_view text);
std::string fromQt(const QString& text);

/// For a button or label that would take a "&" for the mark of a shortcut.
QString literal(std::string_view text);

/// What a value consists of, for a person: "2 line ends, 1 tab", or "nothing".
QString whiteSpaceWords(std::string_view value);

} // namespace NorvaneQt

#endif
