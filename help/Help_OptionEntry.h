#ifndef KERFLINE_HELP_OPTIONENTRY_H
#define KERFLINE_HELP_OPTIONENTRY_H

#include "help/Help_Document.h"

#include <string>

namespace Help {

/// What can be set, in one line with marked code.
std::string valueWords(const Norvane::PropertyInfo& option);

/// What holds while the option is not set, in one line with marked code.
std::string whenNotSet(const Norvane::PropertyInfo& option);

/// `text` with each name of an option in it marked as code.
std::string withMarkedOptions(std::string_view text);

/// Everything there is to say of one option: heading, explanation, values, and a comparison for each
/// of its samples.
void appendOption(Document& document, const Norvane::PropertyInfo& option);

} // namespace Help

#endif
