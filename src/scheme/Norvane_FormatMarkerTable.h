#ifndef KERFLINE_NORVANE_FORMATMARKERTABLE_H
#define KERFLINE_NORVANE_FORMATMARKERTABLE_H

#include <string>
#include <utility>
#include <vector>

namespace Norvane {

/// The inner texts of the two comments around a stretch that formatting leaves alone: first the one
/// that opens it, second the one that closes it.
using FormatMarker = std::pair<std::string, std::string>;

/// Markers in the order in which they are tried. Texts are compared whole.
using FormatMarkerTable = std::vector<FormatMarker>;

/// Returns the built-in table: a pair for the user, and those that a class wizard writes around
/// source that it generates and must find again as it left it.
FormatMarkerTable defaultFormatMarkers();

} // namespace Norvane

#endif
