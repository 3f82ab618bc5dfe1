#ifndef KERFLINE_HELP_ROFF_H
#define KERFLINE_HELP_ROFF_H

#include "help/Help_Document.h"

namespace Help {

struct ManualHeader {
    std::string_view name;
    int section;
    /// What the page belongs to, such as "kerfline 1.0".
    std::string product;
};

/// A manual page in the macros of "man". The title of the document is the one line of the NAME
/// section; its headings become sections and subsections.
std::string manualPage(const Document& document, const ManualHeader& header);

/// `text` so that troff prints it as it stands.
std::string roffText(std::string_view text);

} // namespace Help

#endif
