#include "src/scheme/Norvane_FormatMarkerTable.h"

namespace Norvane {

FormatMarkerTable defaultFormatMarkers() {
    static const FormatMarkerTable markers = {
        {"KL-FORMAT-OFF", "KL-FORMAT-ON"},
        {"{{AFX_DATA", "AFX_DATA}}"},
        {"{{AFX_MSG", "AFX_MSG}}"},
        {"{{AFX_MSG_MAP", "AFX_MSG_MAP}}"},
        {"{{AFX_VIRTUAL", "AFX_VIRTUAL}}"},
        {"{{AFX_DATA_INIT", "AFX_DATA_INIT}}"},
        {"{{AFX_DATA_MAP", "AFX_DATA_MAP}}"},
        {"{{AFX_FIELD", "AFX_FIELD}}"},
        {"{{AFX_FIELD_INIT", "AFX_FIELD_INIT}}"},
        {"{{AFX_EVENT", "AFX_EVENT}}"},
        {"{{AFX_EVENT_MAP", "AFX_EVENT_MAP}}"},
        // The wizard writes these two with three braces.
        {"{{{AFX_DISP", "AFX_DISP}}}"},
        {"{{{AFX_DISP_MAP", "AFX_DISP_MAP}}}"},
    };
    return markers;
}

} // namespace Norvane
