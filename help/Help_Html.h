#ifndef KERFLINE_HELP_HTML_H
#define KERFLINE_HELP_HTML_H

#include "help/Help_Document.h"

namespace Help {

/// One line of the list of pages that stands beside every page.
struct PageLink {
    std::string_view file;
    std::string_view title;
};

/// The stylesheet that the pages ask for, which has to stand beside them.
inline constexpr std::string_view kStylesheet = "kerfline.css";

/// A whole page. `file` is its own place in `pages`.
std::string htmlPage(const Document& document, std::string_view file, const std::vector<PageLink>& pages);

} // namespace Help

#endif
