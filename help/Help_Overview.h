#ifndef KERFLINE_HELP_OVERVIEW_H
#define KERFLINE_HELP_OVERVIEW_H

#include "help/Help_Document.h"

namespace Help {

/// The page that a newcomer reads first: what there is, and where the other pages are.
Document overviewDocument();

// Parts of the overview that stand elsewhere too.

void appendSchemeFiles(Document& document);
void appendValues(Document& document);
void appendMarkers(Document& document);

} // namespace Help

#endif
