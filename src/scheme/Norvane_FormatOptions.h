#ifndef KERFLINE_NORVANE_FORMATOPTIONS_H
#define KERFLINE_NORVANE_FORMATOPTIONS_H

#include "src/scheme/Norvane_FormatMarkerTable.h"
#include "src/scheme/Norvane_PropertySet.h"

#include <utility>

namespace Norvane {

/// What one run of the formatter is to go by: a scheme, and the markers of regions to leave alone.
class FormatOptions : public PropertySet {
public:
    FormatOptions(const PropertySet& scheme, FormatMarkerTable markers)
        : PropertySet(scheme), markers_(std::move(markers)) {}

    const FormatMarkerTable& markers() const { return markers_; }

private:
    FormatMarkerTable markers_;
};

} // namespace Norvane

#endif
