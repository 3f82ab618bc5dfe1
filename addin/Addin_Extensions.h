#ifndef KERFLINE_ADDIN_EXTENSIONS_H
#define KERFLINE_ADDIN_EXTENSIONS_H

#include <string>
#include <string_view>

namespace Addin {

/// The text behind the last dot of the file's name, in small letters; empty if there is no dot or
/// nothing behind it. Only ASCII letters have a case here, whatever the language of the user.
std::string extensionOf(std::string_view path);

/// True if the path has one of the extensions of the list, whatever the case of their letters. The
/// items stand between commas, semicolons and blanks; dots in front of them do not count.
bool isListedExtension(std::string_view path, std::string_view list);

/// False for text that cannot end the name of a file. Blanks around it and dots in front do not
/// count.
bool isValidExtension(std::string_view typed);

/// What to put behind the name of a file, and a dot, to name its backup. What the user typed can
/// have blanks around it and dots in front; if nothing else is left, it is "bak", since the name of
/// the backup has to differ from that of the file.
std::string backupExtensionOf(std::string_view typed);

} // namespace Addin

#endif
