#ifndef KERFLINE_HELP_PAGEFOLDER_H
#define KERFLINE_HELP_PAGEFOLDER_H

#include "help/Help_Topic.h"

#include <optional>
#include <string>

namespace Help {

/// The path of the page of a topic: beside the running program, wherever that was copied to with its
/// folders, or else where the program was to be installed. Nothing if neither holds it.
std::optional<std::string> findPage(const Topic& topic);

} // namespace Help

#endif
